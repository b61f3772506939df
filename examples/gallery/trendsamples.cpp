#include "trendsamples.h"

#include <cmath>

bool TrendSample::isGap() const
{
    return quality == Bad || !std::isfinite(value);
}

static double numberOf(const QVariant &value)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    return isNumber ? number : qQNaN();
}

QVector<TrendSample> trendSamples(const QVariant &trend)
{
    QVector<TrendSample> samples;
    for (const QVariant &entry : trend.toList()) {
        const QVariantList parts = entry.toList();
        bool hasTime = false;
        const qint64 time = parts.value(0).toLongLong(&hasTime);
        if (!hasTime || parts.size() < 2)
            continue;
        const int quality =
            qBound(int(TrendSample::Good), parts.value(2).toInt(), int(TrendSample::Bad));
        samples.append({time, numberOf(parts[1]), TrendSample::Quality(quality)});
    }
    return samples;
}
