#include "indicatoritem.h"

#include "numbertext.h"

Scale IndicatorItem::scale()
{
    return {number("minimum"), number("maximum")};
}

QVector<Scale::Tick> IndicatorItem::ticks()
{
    return scale().ticks(integer("divisions"), integer("subdivisions"));
}

ValueLimits IndicatorItem::limits()
{
    ValueLimits limits;
    limits.lowAlarm = number("lowAlarm");
    limits.lowWarning = number("lowWarning");
    limits.highWarning = number("highWarning");
    limits.highAlarm = number("highAlarm");
    limits.warningColor = color("warningColor");
    limits.alarmColor = color("alarmColor");
    limits.areShown = flag("showLimits");
    return limits;
}

QColor IndicatorItem::stateColor(const QColor &normal)
{
    return limits().colorOf(number("value"), normal);
}

QString IndicatorItem::valueText()
{
    return withUnit(decimalText(number("value"), integer("decimals")), text("unit"));
}
