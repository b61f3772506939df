#include "numericdisplayitem.h"

#include "drawing.h"
#include "numbertext.h"

#include <QPainter>

static constexpr qreal padding = 4;

NumericDisplayItem::NumericDisplayItem(const NARV::GraphicsObjectData &data)
    : IndicatorItem(data)
{
}

void NumericDisplayItem::draw(QPainter &painter, const QRectF &area)
{
    NumberStyle style;
    style.format = NumberFormat(qBound(0, integer("format"), int(NumberFormat::Binary)));
    style.decimals = integer("decimals");
    style.digits = integer("digits");
    style.showSign = flag("showSign");

    const QRectF inside = drawBox(painter, area).adjusted(padding, 0, -padding, 0);
    drawFittedText(painter, inside, horizontalAlignment() | Qt::AlignVCenter,
                   withUnit(numberText(number("value"), style), text("unit")), font("valueFont"),
                   legible(stateColor(color("normalColor")), color("backgroundColor")));
}
