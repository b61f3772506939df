#include "controlitem.h"

#include "drawing.h"

#include <QPainter>

static constexpr qreal disabledOpacity = 0.45;

void ControlItem::draw(QPainter &painter, const QRectF &area)
{
    if (!flag("enabled"))
        painter.setOpacity(painter.opacity() * disabledOpacity);
    drawControl(painter, area);
}

void ControlItem::drawButton(QPainter &painter, const QRectF &area, const QColor &fill,
                             qreal radius)
{
    drawPlate(painter, area, {fill, color("frameColor"), 1, radius});
}
