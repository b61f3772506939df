#include "timewindow.h"

#include <QDateTime>

#include <algorithm>
#include <iterator>

static constexpr qint64 second = 1000;
static constexpr qint64 minute = 60 * second;
static constexpr qint64 hour = 60 * minute;
static constexpr qint64 day = 24 * hour;
static constexpr double shortestSpan = 10 * second;
static constexpr double longestSpan = 366 * day;

static constexpr qint64 steps[] = {second,      2 * second,  5 * second, 10 * second, 15 * second,
                                   30 * second, minute,      2 * minute, 5 * minute,  10 * minute,
                                   15 * minute, 30 * minute, hour,       2 * hour,    3 * hour,
                                   6 * hour,    12 * hour,   day,        2 * day,     7 * day,
                                   14 * day,    28 * day,    91 * day,   182 * day,   366 * day};

TimeWindow TimeWindow::movedBack(double parts) const
{
    const auto distance = qint64(parts * double(span()));
    return {from - distance, to - distance};
}

TimeWindow TimeWindow::zoomed(double factor, double fraction) const
{
    if (!(factor > 0))
        return *this;
    const double length = qBound(shortestSpan, double(span()) / factor, longestSpan);
    const double fixed = double(from) + fraction * double(span());
    const auto start = qint64(fixed - fraction * length);
    return {start, start + qint64(length)};
}

TimeWindow TimeWindow::endingBy(qint64 latest) const
{
    const qint64 excess = qMax(0LL, to - latest);
    return {from - excess, to - excess};
}

QVector<qint64> TimeWindow::ticks(int most) const
{
    const auto fits = [&](qint64 candidate) { return span() / candidate <= most; };
    const auto *found = std::find_if(std::begin(steps), std::end(steps), fits);
    const qint64 step = found == std::end(steps) ? *std::prev(found) : *found;
    // Round on the clock of the panel, not in UTC.
    const qint64 offset = QDateTime::fromMSecsSinceEpoch(from).offsetFromUtc() * second;
    const qint64 local = from + offset;
    QVector<qint64> times;
    for (qint64 time = local - local % step; time <= to + offset; time += step) {
        if (time >= local)
            times.append(time - offset);
    }
    return times;
}
