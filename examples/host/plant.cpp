#include "plant.h"

#include <algorithm>
#include <cmath>

using NARV::AlarmInfo;
using NARV::AlarmInfoData;
using NARV::WidgetActionManager;

// Tags that move, each in a wave around a middle. All others are as they were written last.
static const struct
{
    const char *name;
    double middle;
    double swing;
    double period; // in seconds
} tags[] = {{"level", 54, 38, 160},
            {"pressure", 66, 24, 90},
            {"temperature", 71, 4, 210},
            {"state", 1.5, 2, 45}};

static const struct
{
    const char *widget;
    const char *field;
    const char *tag;
} attached[] = {
    {"bar", "value", "level"},
    {"gauge", "value", "pressure"},
    {"gauge", "setpoint", "setpoint"},
    {"lamp", "state", "state"},
    {"numericDisplay", "value", "temperature"},
    {"numericInput", "value", "setpoint"},
    {"numericInput", "actualValueTag", "pressure"},
    {"pushButton", "value", "start"},
    {"selector", "value", "mode"},
    {"trendChart", "pen1", "level"},
    {"trendChart", "pen2", "pressure"},
    {"trendChart", "pen3", "temperature"},
};

static const struct
{
    const char *name;
    const char *description;
    AlarmInfo::Severity severity;
    const char *tag;
    double limit;
} limits[] = {
    {"LT-204", "Level of the tank is high", AlarmInfo::SeverityHigh, "level", 85},
    {"PT-101", "Pressure is above its limit", AlarmInfo::SeverityCritical, "pressure", 80},
    {"TT-310", "Cooling water is warm", AlarmInfo::SeverityNormal, "temperature", 70},
    {"XS-001", "Machine is not running", AlarmInfo::SeverityLow, "state", 1},
};

Plant::Plant(const QDateTime &start, bool isInsideEditor)
    : m_start(start)
    , m_isInsideEditor(isInsideEditor)
    , m_written{{QStringLiteral("setpoint"), 60}}
{
    for (const auto &limit : limits) {
        AlarmInfoData alarm;
        alarm.name = QLatin1String(limit.name);
        alarm.description = QLatin1String(limit.description);
        alarm.severity = limit.severity;
        alarm.tagName = QLatin1String(limit.tag);
        alarm.timestamp = start;
        alarm.acknowledgeEnabled = alarm.blinkEnabled = alarm.resetEnabled = true;
        m_alarms.append(alarm);
    }
}

QString Plant::tagOf(const QString &widgetId, const QString &fieldId)
{
    for (const auto &entry : attached) {
        if (widgetId == QLatin1String(entry.widget) && fieldId == QLatin1String(entry.field))
            return QLatin1String(entry.tag);
    }
    return {};
}

//! What a moving tag is at a time; invalid if it is none.
static QVariant valueAt(const QString &tag, double seconds)
{
    for (const auto &wave : tags) {
        if (tag == QLatin1String(wave.name))
            return wave.middle + wave.swing * std::sin(seconds * 2 * M_PI / wave.period);
    }
    return {};
}

QVariant Plant::getTagValue(const QString &tagName)
{
    const QVariant moving = valueAt(tagName, m_seconds);
    return moving.isValid() ? moving : m_written.value(tagName);
}

//! A time as the widget wants it.
static QVariant written(const QDateTime &time, WidgetActionManager::TrendTimeFormat format)
{
    switch (format) {
    case WidgetActionManager::MillisecondsSinceEpoch:
        return time.toMSecsSinceEpoch();
    case WidgetActionManager::SecondsSinceEpoch:
        return double(time.toMSecsSinceEpoch()) / 1000;
    case WidgetActionManager::IsoText:
        return time.toOffsetFromUtc(time.offsetFromUtc()).toString(Qt::ISODateWithMs);
    default:
        return time;
    }
}

QVariant Plant::getTrendValue(const QString &name, const QDateTime &from, const QDateTime &to,
                              unsigned int count, WidgetActionManager::TrendTimeFormat format)
{
    if (!valueAt(name, 0).isValid() || count < 2 || to <= from)
        return {};
    const double present = m_seconds - double(QDateTime::currentMSecsSinceEpoch()) / 1000;
    const qint64 step = qMax(Q_INT64_C(1), from.msecsTo(to) / (count - 1));
    QVariantList samples;
    for (QDateTime time = from; time <= to; time = time.addMSecs(step)) {
        const double seconds = present + double(time.toMSecsSinceEpoch()) / 1000;
        samples += QVariant(QVariantList{written(time, format), valueAt(name, seconds)});
    }
    return samples;
}

void Plant::advance(double seconds)
{
    m_seconds += seconds;
    for (AlarmInfoData &alarm : m_alarms) {
        const auto &limit = limits[&alarm - m_alarms.data()];
        const bool isRaised = getTagValue(alarm.tagName).toDouble() > limit.limit;
        if (isRaised && !AlarmInfo(alarm).triggered())
            setState(alarm, AlarmInfo::StateTriggeredNotAcknowledged);
        else if (!isRaised && alarm.state == AlarmInfo::StateTriggeredNotAcknowledged)
            setState(alarm, AlarmInfo::StateNotTriggeredNotAcknowledged);
        else if (!isRaised && alarm.state == AlarmInfo::StateTriggeredAcknowledged)
            setState(alarm, AlarmInfo::StateNotTriggered);
    }
}

void Plant::setState(AlarmInfoData &alarm, AlarmInfo::State state)
{
    alarm.state = state;
    alarm.timestamp = m_start.addMSecs(qint64(m_seconds * 1000));
    alarm.tagValue = getTagValue(alarm.tagName);
    if (alarmChanged)
        alarmChanged(AlarmInfo(alarm));
}

QVector<AlarmInfo> Plant::getAlarms()
{
    QVector<AlarmInfo> alarms;
    for (const AlarmInfoData &alarm : qAsConst(m_alarms))
        alarms.append(AlarmInfo(alarm));
    return alarms;
}

//! Calls the command for the alarm of a name, or for all with an empty name.
void Plant::forAlarms(const QString &name, void (Plant::*command)(AlarmInfoData &))
{
    for (AlarmInfoData &alarm : m_alarms) {
        if (name.isEmpty() || alarm.name == name)
            (this->*command)(alarm);
    }
}

void Plant::acknowledge(AlarmInfoData &alarm)
{
    if (alarm.state == AlarmInfo::StateTriggeredNotAcknowledged)
        setState(alarm, AlarmInfo::StateTriggeredAcknowledged);
    else if (alarm.state == AlarmInfo::StateNotTriggeredNotAcknowledged)
        setState(alarm, AlarmInfo::StateNotTriggered);
}

void Plant::reset(AlarmInfoData &alarm)
{
    if (!AlarmInfo(alarm).triggered())
        setState(alarm, AlarmInfo::StateNotTriggered);
}

void Plant::resetAlarm(const QString &alarmName)
{
    forAlarms(alarmName, &Plant::reset);
}

void Plant::resetAllAlarms()
{
    forAlarms({}, &Plant::reset);
}

void Plant::acknowAlarm(const QString &alarmName)
{
    forAlarms(alarmName, &Plant::acknowledge);
}

void Plant::acknowAllAlarms()
{
    forAlarms({}, &Plant::acknowledge);
}
