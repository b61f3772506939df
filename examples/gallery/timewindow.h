#pragma once

#include <QVector>

//! A stretch of time; in milliseconds since 1970-01-01 00:00 UTC.
struct TimeWindow
{
    qint64 from = 0;
    qint64 to = 0;

    qint64 span() const { return to - from; }
    //! 0 at the start, 1 at the end; less and more outside.
    double fraction(qint64 time) const { return double(time - from) / double(qMax(1LL, span())); }

    //! Moved into the past by parts of its span.
    TimeWindow movedBack(double parts) const;
    //! Showing factor times as much detail, with the time at a fraction where it was.
    TimeWindow zoomed(double factor, double fraction) const;
    //! As long, but not beyond a time.
    TimeWindow endingBy(qint64 latest) const;

    //! Round times inside, at most so many, evenly spread.
    QVector<qint64> ticks(int most) const;
};
