#pragma once

#include <QtGlobal>

//! From now on all code of this process reads these times from the machine's clocks, and they stand
//! still: the time of day is start + elapsed, in milliseconds since 1970 in UTC, and the clocks
//! that measure durations have moved on by elapsed milliseconds since the first call.
//!
//! Where that can not be done the clocks stay as they are.
void setSystemClock(qint64 start, qint64 elapsed);
