#pragma once

#include <NARV/INTERNAL/WidgetActionManagerImpl>

#include <QStringList>

//! A host that notes what it is asked, and answers so that the answer tells the question.
class RecordingHost : public NARV::INTERNAL::WidgetActionManagerImpl
{
public:
    QVariant getTagValue(const QString &tagName) override { return note("tag", {tagName}); }
    QVariant getTrendValue(const QString &name, const QDateTime &from, const QDateTime &to,
                           unsigned int count,
                           NARV::WidgetActionManager::TrendTimeFormat format) override
    {
        return note("trend", {name, from.toString(Qt::ISODate), to.toString(Qt::ISODate),
                              QString::number(count), QString::number(format)});
    }
    QVector<NARV::AlarmInfo> getAlarms() override
    {
        note("alarms");
        return alarms;
    }
    void resetAlarm(const QString &alarmName) override { note("reset", {alarmName}); }
    void resetAllAlarms() override { note("reset all"); }
    void acknowAlarm(const QString &alarmName) override { note("acknow", {alarmName}); }
    void acknowAllAlarms() override { note("acknow all"); }
    bool isInsideProjectEditor() const override { return insideProjectEditor; }
    bool isInsideDevProject() const override { return insideDevProject; }

    QStringList calls;
    QVector<NARV::AlarmInfo> alarms;
    bool insideProjectEditor = false;
    bool insideDevProject = false;

private:
    QString note(const char *what, const QStringList &arguments = {})
    {
        calls += (QStringList(QLatin1String(what)) + arguments).join(QLatin1Char(' '));
        return calls.constLast();
    }
};
