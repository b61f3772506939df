#include "scale.h"

#include <cmath>

static constexpr int mostDivisions = 100;
static constexpr double roundingError = 1e-9; // relative to the length of the scale

Scale::Scale(double minimum, double maximum)
    : m_minimum(minimum)
    , m_maximum(maximum)
{
}

double Scale::position(double value) const
{
    const double position = (value - m_minimum) / (m_maximum - m_minimum);
    return std::isnan(position) ? 0 : position;
}

double Scale::fraction(double value) const
{
    return qBound(0.0, position(value), 1.0);
}

QVector<Scale::Tick> Scale::ticks(int divisions, int subdivisions) const
{
    const int minor = qBound(1, subdivisions, mostDivisions);
    const int count = qBound(1, divisions, mostDivisions) * minor;
    const double range = m_maximum - m_minimum;
    QVector<Tick> ticks;
    ticks.reserve(count + 1);
    for (int i = 0; i <= count; ++i) {
        const double fraction = double(i) / count;
        const double value = m_minimum + fraction * range;
        const bool isZero = std::abs(value) < std::abs(range) * roundingError;
        ticks.append({isZero ? 0 : value, fraction, i % minor == 0});
    }
    return ticks;
}

static RoundScale stepped(double lowest, double highest, double step)
{
    const double first = std::floor(lowest / step);
    const double last = std::ceil(highest / step);
    return {first * step, last * step, int(last - first), step};
}

RoundScale RoundScale::around(double lowest, double highest, int divisions)
{
    const double range = highest - lowest;
    if (!std::isfinite(range))
        return {0, 1, 1, 1};
    const double size = qMax(std::abs(lowest), std::abs(highest));
    if (range <= size * roundingError) // a constant, in the middle
        return around(lowest - 1 - size / 10, highest + 1 + size / 10, divisions);
    const int most = qBound(1, divisions, mostDivisions);
    const double power = std::pow(10, std::floor(std::log10(range / most)));
    RoundScale found{};
    for (double factor : {1, 2, 5, 10, 20, 50, 100}) {
        found = stepped(lowest, highest, factor * power);
        if (found.divisions <= most)
            break;
    }
    return found;
}
