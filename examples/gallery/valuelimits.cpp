#include "valuelimits.h"

#include "scale.h"

QColor ValueLimits::colorOf(double value, const QColor &normal) const
{
    if (!areShown)
        return normal;
    if (value <= lowAlarm || value >= highAlarm)
        return alarmColor;
    return value <= lowWarning || value >= highWarning ? warningColor : normal;
}

QVector<ValueLimits::Band> ValueLimits::bands(const Scale &scale) const
{
    if (!areShown)
        return {};
    const struct
    {
        double from;
        double to;
        QColor color;
    } ranges[] = {{scale.lowest(), lowAlarm, alarmColor},
                  {lowAlarm, lowWarning, warningColor},
                  {highWarning, highAlarm, warningColor},
                  {highAlarm, scale.highest(), alarmColor}};
    QVector<Band> bands;
    for (const auto &range : ranges) {
        if (range.from < range.to)
            bands.append({scale.fraction(range.from), scale.fraction(range.to), range.color});
    }
    return bands;
}
