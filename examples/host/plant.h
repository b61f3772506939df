#pragma once

#include <NARV/INTERNAL/WidgetActionManagerImpl>

#include <QDateTime>
#include <QMap>
#include <QVariant>
#include <QVector>

#include <functional>

//! What a real host takes from its project and its machine: tags with values that move, their
//! histories, alarms, and the tags to which fields are attached.
class Plant : public NARV::INTERNAL::WidgetActionManagerImpl
{
public:
    //! The plant starts at a time of its own, so that it can be made to look the same each time.
    Plant(const QDateTime &start, bool isInsideEditor);

    //! The tag or trend that the project attaches to a field; empty for none.
    static QString tagOf(const QString &widgetId, const QString &fieldId);
    //! Lets time go by. Afterwards tags may have other values, and alarms may have come or gone.
    void advance(double seconds);
    //! An operator's write; a moving tag does not hold it.
    void setTagValue(const QString &tagName, const QVariant &value) { m_written[tagName] = value; }

    QVariant getTagValue(const QString &tagName) override;
    QVariant getTrendValue(const QString &name, const QDateTime &from, const QDateTime &to,
                           unsigned int count,
                           NARV::WidgetActionManager::TrendTimeFormat format) override;
    QVector<NARV::AlarmInfo> getAlarms() override;
    void resetAlarm(const QString &alarmName) override;
    void resetAllAlarms() override;
    void acknowAlarm(const QString &alarmName) override;
    void acknowAllAlarms() override;
    bool isInsideProjectEditor() const override { return m_isInsideEditor; }
    bool isInsideDevProject() const override { return false; }

    //! Called with each alarm that has changed.
    std::function<void(const NARV::AlarmInfo &)> alarmChanged;

private:
    void setState(NARV::AlarmInfoData &alarm, NARV::AlarmInfo::State state);
    void forAlarms(const QString &name, void (Plant::*command)(NARV::AlarmInfoData &));
    void acknowledge(NARV::AlarmInfoData &alarm);
    void reset(NARV::AlarmInfoData &alarm);

    QDateTime m_start;
    bool m_isInsideEditor;
    double m_seconds = 0; //!< since the start
    QMap<QString, QVariant> m_written;
    QVector<NARV::AlarmInfoData> m_alarms;
};
