#include "alarmfilter.h"

#include <algorithm>
#include <iterator>

using NARV::AlarmInfo;

QVector<AlarmInfo> AlarmFilter::apply(const QVector<AlarmInfo> &alarms) const
{
    QVector<AlarmInfo> shown;
    std::copy_if(alarms.begin(), alarms.end(), std::back_inserter(shown),
                 [this](const AlarmInfo &alarm) { return accepts(alarm); });
    std::stable_sort(
        shown.begin(), shown.end(),
        [this](const AlarmInfo &left, const AlarmInfo &right) { return comesFirst(left, right); });
    return rowLimit < 0 ? shown : shown.mid(0, rowLimit);
}

bool AlarmFilter::accepts(const AlarmInfo &alarm) const
{
    if (alarm.severity() < lowestSeverity || !acceptsState(alarm))
        return false;
    return groups.isEmpty() || std::any_of(groups.begin(), groups.end(), [&](const QString &group) {
               return alarm.groups().contains(group);
           });
}

bool AlarmFilter::acceptsState(const AlarmInfo &alarm) const
{
    if (!alarm.enabled() || alarm.state() == AlarmInfo::StateNotTriggered)
        return false;
    return (showAcknowledged || !alarm.acknowledged()) && (showCleared || alarm.triggered());
}

bool AlarmFilter::comesFirst(const AlarmInfo &left, const AlarmInfo &right) const
{
    if (sortOrder == MostSevereFirst && left.severity() != right.severity())
        return left.severity() > right.severity();
    return sortOrder == OldestFirst ? left.timestamp() < right.timestamp()
                                    : left.timestamp() > right.timestamp();
}
