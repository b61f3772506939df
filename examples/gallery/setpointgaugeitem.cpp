#include "setpointgaugeitem.h"

#include "dial.h"

#include <QPainter>

SetpointGaugeItem::SetpointGaugeItem(const NARV::GraphicsObjectData &data)
    : GaugeItem(data)
{
}

void SetpointGaugeItem::drawMarkers(QPainter &painter, const Dial &dial)
{
    if (!flag("showSetpoint"))
        return;
    const double fraction = scale().fraction(number("setpoint"));
    const QPointF outer = dial.at(fraction, 0.94);
    const QPointF tip = dial.at(fraction, 0.8);
    const QPointF across = QPointF(tip.y() - outer.y(), outer.x() - tip.x()) * 0.35;
    painter.setPen(Qt::NoPen);
    painter.setBrush(color("setpointColor"));
    painter.drawPolygon(QPolygonF({tip, outer + across, outer - across}));
}
