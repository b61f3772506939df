#include "scale.h"

#include <cmath>

static constexpr int mostDivisions = 100;
static constexpr double roundingError = 1e-9; // relative to the length of the scale

Scale::Scale(double minimum, double maximum)
    : m_minimum(minimum)
    , m_maximum(maximum)
{
}

double Scale::fraction(double value) const
{
    const double fraction = (value - m_minimum) / (m_maximum - m_minimum);
    return fraction > 0 ? qMin(fraction, 1.0) : 0; // also if it is not a number
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
