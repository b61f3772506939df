#pragma once

#include <QStringList>

namespace NARV::DEV {

//! The time of day of a record, whose time is in milliseconds since the epoch.
QString recordTime(qint64 time);

//! The whole of a record: a line of the parts that are not empty, and its text, not too long for a
//! tool tip.
QString recordToolTip(const QStringList &parts, const QString &text);

} // namespace NARV::DEV
