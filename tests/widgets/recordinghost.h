#pragma once

#include <NARV/INTERNAL/WidgetActionManagerImpl>

#include <QStringList>

//! A host that notes what it is asked, and answers so that the answer tells the question.
class RecordingHost : public NARV::INTERNAL::WidgetActionManagerImpl
{
    Q_OBJECT

public:
    QVariant getTagValue(const QString &tagName) override
    {
        return note({QStringLiteral("tag"), tagName});
    }
    QVariant getTrendValue(const QString &name, const QDateTime &from, const QDateTime &to,
                           unsigned int count,
                           NARV::WidgetActionManager::TrendTimeFormat format) override
    {
        return note({QStringLiteral("trend"), name, from.toString(Qt::ISODate),
                     to.toString(Qt::ISODate), QString::number(count), QString::number(format)});
    }
    QVector<NARV::AlarmInfo> getAlarms() override
    {
        note({QStringLiteral("alarms")});
        NARV::AlarmInfoData data;
        data.name = QStringLiteral("pump");
        return {NARV::AlarmInfo(data)};
    }
    void resetAlarm(const QString &alarmName) override
    {
        note({QStringLiteral("reset"), alarmName});
    }
    void resetAllAlarms() override { note({QStringLiteral("reset all")}); }
    void acknowAlarm(const QString &alarmName) override
    {
        note({QStringLiteral("acknow"), alarmName});
    }
    void acknowAllAlarms() override { note({QStringLiteral("acknow all")}); }
    bool isInsideProjectEditor() const override { return insideProjectEditor; }
    bool isInsideDevProject() const override { return insideDevProject; }

    QStringList calls;
    bool insideProjectEditor = false;
    bool insideDevProject = false;

private:
    QString note(const QStringList &call)
    {
        calls.append(call.join(QLatin1Char(' ')));
        return calls.constLast();
    }
};
