#include "alarmlist.h"

#include <NARV/Event>
#include <NARV/GraphicsObject>
#include <NARV/WidgetActionManager>

#include <QTimerEvent>

#include <algorithm>

using NARV::AlarmInfo;

static constexpr int groupPeriod = 500; // in milliseconds
static const QString alarmCount = QStringLiteral("alarmCount");

//! What the list looks like, for the designer.
static QVector<AlarmInfo> sampleAlarms()
{
    static const struct
    {
        const char *name;
        const char *description;
        AlarmInfo::Severity severity;
        AlarmInfo::State state;
    } samples[] = {
        {"PT-101", "P > 8.5 bar", AlarmInfo::SeverityHigh,
         AlarmInfo::StateTriggeredNotAcknowledged},
        {"LT-204", "L < 15 %", AlarmInfo::SeverityNormal, AlarmInfo::StateTriggeredAcknowledged},
        {"M-12", "I > 16 A", AlarmInfo::SeverityLow, AlarmInfo::StateNotTriggeredNotAcknowledged},
    };
    QVector<AlarmInfo> alarms;
    for (const auto &sample : samples) {
        NARV::AlarmInfoData data;
        data.name = QLatin1String(sample.name);
        data.description = QLatin1String(sample.description);
        data.severity = sample.severity;
        data.state = sample.state;
        data.timestamp = QDateTime(QDate(2024, 5, 1), QTime(10, 20 - alarms.size()));
        data.acknowledgeEnabled = true;
        data.resetEnabled = sample.state == AlarmInfo::StateNotTriggeredNotAcknowledged;
        alarms.append(AlarmInfo(data));
    }
    return alarms;
}

AlarmList::AlarmList(const NARV::WidgetData &data)
    : NARV::Widget(data)
{
    m_refresh.setSingleShot(true);
    connect(&m_refresh, &QTimer::timeout, this, &AlarmList::refresh);
}

void AlarmList::initEvent(NARV::InitEvent *)
{
    watchGroupTag();
    refresh();
}

void AlarmList::deinitEvent(NARV::DeinitEvent *)
{
    m_refresh.stop();
    m_groupWatch.stop();
}

void AlarmList::fieldIsChangedEvent(NARV::FieldIsChangedEvent *event)
{
    if (event->fieldId() == alarmCount)
        return;
    watchGroupTag();
    m_refresh.start(0);
}

void AlarmList::alarmStatusIsChangedEvent(NARV::AlarmStatusIsChangedEvent *)
{
    m_refresh.start(0);
}

void AlarmList::watchGroupTag()
{
    if (getFieldValue(QStringLiteral("groupTag")).toString().isEmpty() ||
        widgetActionManager().isInsideProjectEditor())
        m_groupWatch.stop();
    else if (!m_groupWatch.isActive())
        m_groupWatch.start(groupPeriod, this);
}

void AlarmList::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_groupWatch.timerId())
        return NARV::Widget::timerEvent(event);
    if (chosenGroup() != m_group)
        refresh();
}

QString AlarmList::chosenGroup()
{
    const QString tag = getFieldValue(QStringLiteral("groupTag")).toString();
    return tag.isEmpty() ? tag : widgetActionManager().getTagValue(tag).toString();
}

AlarmFilter AlarmList::filter()
{
    const auto value = [this](const char *id) { return getFieldValue(QLatin1String(id)); };
    AlarmFilter filter;
    m_group = chosenGroup();
    filter.groups = value("groups").toStringList() + QStringList(m_group);
    filter.groups.removeAll(QString());
    filter.lowestSeverity = value("lowestSeverity").toInt();
    filter.sortOrder = value("sortOrder").toInt();
    filter.rowLimit = value("limitRows").toBool() ? value("rowLimit").toInt() : -1;
    filter.showAcknowledged = value("showAcknowledged").toBool();
    filter.showCleared = value("showCleared").toBool();
    return filter;
}

void AlarmList::refresh()
{
    if (widgetActionManager().isInsideProjectEditor()) {
        AlarmFilter ofSamples = filter();
        ofSamples.groups.clear();
        m_rows = ofSamples.apply(sampleAlarms());
    } else {
        m_rows = filter().apply(widgetActionManager().getAlarms());
        setFieldValue(alarmCount, m_rows.size());
    }
    Q_EMIT rowsChanged();
}

bool AlarmList::canAcknowledge(const AlarmInfo &alarm)
{
    return alarm.acknowledgeEnabled() &&
           (alarm.state() == AlarmInfo::StateTriggeredNotAcknowledged ||
            alarm.state() == AlarmInfo::StateNotTriggeredNotAcknowledged);
}

bool AlarmList::canReset(const AlarmInfo &alarm)
{
    return alarm.resetEnabled() && alarm.enabled();
}

using Command = void (NARV::WidgetActionManager::*)() const;
using NamedCommand = void (NARV::WidgetActionManager::*)(const QString &) const;

//! Gives the command for all alarms if the rows are all that it concerns, else one for each row.
static void command(const NARV::WidgetActionManager &manager, QVector<AlarmInfo> rows,
                    bool (*isConcerned)(const AlarmInfo &), Command all, NamedCommand one)
{
    const auto count = [isConcerned](const QVector<AlarmInfo> &alarms) {
        return std::count_if(alarms.begin(), alarms.end(), isConcerned);
    };
    if (count(rows) == count(manager.getAlarms()))
        return (manager.*all)();
    for (const AlarmInfo &alarm : qAsConst(rows)) {
        if (isConcerned(alarm))
            (manager.*one)(alarm.name());
    }
}

void AlarmList::acknowledgeAll()
{
    command(widgetActionManager(), m_rows, canAcknowledge,
            &NARV::WidgetActionManager::acknowAllAlarms, &NARV::WidgetActionManager::acknowAlarm);
}

void AlarmList::resetAll()
{
    command(widgetActionManager(), m_rows, canReset, &NARV::WidgetActionManager::resetAllAlarms,
            &NARV::WidgetActionManager::resetAlarm);
}
