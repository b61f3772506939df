#pragma once

#include <NARV/AlarmInfo>

#include <QVector>

//! Which alarms an alarm list shows, and in which order.
struct AlarmFilter
{
    enum SortOrder
    {
        NewestFirst,
        OldestFirst,
        MostSevereFirst //!< the newest first among equals
    };

    QStringList groups; //!< an alarm must be in one of them; empty for all alarms
    int lowestSeverity = NARV::AlarmInfo::SeverityNotImportant;
    int sortOrder = NewestFirst;
    int rowLimit = -1; //!< negative for no limit
    bool showAcknowledged = true;
    bool showCleared = true; //!< no longer active, but not done with

    //! The alarms to show, in order.
    QVector<NARV::AlarmInfo> apply(const QVector<NARV::AlarmInfo> &alarms) const;

private:
    bool accepts(const NARV::AlarmInfo &alarm) const;
    bool acceptsState(const NARV::AlarmInfo &alarm) const;
    bool comesFirst(const NARV::AlarmInfo &left, const NARV::AlarmInfo &right) const;
};
