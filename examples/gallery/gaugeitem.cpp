#include "gaugeitem.h"

#include "dial.h"
#include "drawing.h"
#include "numbertext.h"

#include <QPainter>

#include <iterator>

// Distances from the centre, as fractions of the dial's radius.
static constexpr qreal faceEdge = 0.98;
static constexpr qreal limitsRing = 0.925;
static constexpr qreal limitsWidth = 0.05;
static constexpr qreal tickOuter = 0.88;
static constexpr qreal majorTickInner = 0.78;
static constexpr qreal minorTickInner = 0.83;
static constexpr qreal labelRing = 0.64;
static constexpr qreal labelHeight = 0.2;
static constexpr qreal needleTip = 0.84;
static constexpr qreal triangleLength = 0.14;
static constexpr qreal widestArc = 0.5;

enum NeedleStyle
{
    NeedleStyleNeedle,
    NeedleStyleTriangle,
    NeedleStyleArc
};

GaugeItem::GaugeItem(const NARV::GraphicsObjectData &data)
    : IndicatorItem(data)
{
}

qreal GaugeItem::pointerDepth(const Dial &dial)
{
    switch (integer("needleStyle")) {
    case NeedleStyleTriangle:
        return triangleLength;
    case NeedleStyleArc:
        return qMin(integer("arcWidth") / dial.radius(), widestArc);
    default:
        return 0;
    }
}

void GaugeItem::draw(QPainter &painter, const QRectF &area)
{
    using Pointer = void (GaugeItem::*)(QPainter &, const Dial &);
    static constexpr Pointer pointers[] = {&GaugeItem::drawNeedle, &GaugeItem::drawTriangle,
                                           &GaugeItem::drawArc};
    const Dial dial(drawTitle(painter, area));
    if (dial.radius() <= 0)
        return;
    drawFace(painter, dial);
    drawLimits(painter, dial);
    drawScale(painter, dial);
    drawMarkers(painter, dial);
    drawValue(painter, dial);
    const int style = qBound(0, integer("needleStyle"), int(std::size(pointers)) - 1);
    (this->*pointers[style])(painter, dial);
}

void GaugeItem::drawMarkers(QPainter &, const Dial &) {}

void GaugeItem::drawFace(QPainter &painter, const Dial &dial)
{
    painter.setPen(QPen(color("frameColor"), dial.radius() * 0.025));
    painter.setBrush(color("faceColor"));
    painter.drawEllipse(dial.square(faceEdge));
}

void GaugeItem::drawLimits(QPainter &painter, const Dial &dial)
{
    painter.setBrush(Qt::NoBrush);
    for (const ValueLimits::Band &band : limits().bands(scale())) {
        painter.setPen(QPen(band.color, dial.radius() * limitsWidth, Qt::SolidLine, Qt::FlatCap));
        painter.drawPath(dial.arc(band.from, band.to, limitsRing));
    }
}

void GaugeItem::drawScale(QPainter &painter, const Dial &dial)
{
    const QColor ink = color("scaleColor");
    for (const Scale::Tick &tick : ticks()) {
        painter.setPen(QPen(ink, dial.radius() * (tick.isMajor ? 0.018 : 0.009)));
        painter.drawLine(dial.at(tick.fraction, tickOuter),
                         dial.at(tick.fraction, tick.isMajor ? majorTickInner : minorTickInner));
    }
    if (flag("showScaleLabels"))
        drawScaleLabels(painter, dial);
}

void GaugeItem::drawScaleLabels(QPainter &painter, const Dial &dial)
{
    const QFont labelFont = font("scaleFont");
    const QColor ink = color("scaleColor");
    const qreal ring = labelRing - pointerDepth(dial);
    for (const Scale::Tick &tick : ticks()) {
        if (!tick.isMajor)
            continue;
        QRectF box =
            dial.square(labelHeight / 2).adjusted(-dial.radius() / 10, 0, dial.radius() / 10, 0);
        box.moveCenter(dial.at(tick.fraction, ring));
        drawFittedText(painter, box, Qt::AlignCenter, labelText(tick.value), labelFont, ink);
    }
}

void GaugeItem::drawNeedle(QPainter &painter, const Dial &dial)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(stateColor(color("needleColor")));
    painter.drawPolygon(dial.pointer(scale().fraction(number("value")), needleTip, 0.07));
    painter.drawEllipse(dial.square(0.075));
    painter.setBrush(color("faceColor"));
    painter.drawEllipse(dial.square(0.025));
}

void GaugeItem::drawTriangle(QPainter &painter, const Dial &dial)
{
    const double fraction = scale().fraction(number("value"));
    const QPointF tip = dial.at(fraction, majorTickInner);
    const QPointF foot = dial.at(fraction, majorTickInner - triangleLength);
    const QPointF across = QPointF(tip.y() - foot.y(), foot.x() - tip.x()) * 0.4;
    painter.setPen(Qt::NoPen);
    painter.setBrush(stateColor(color("needleColor")));
    painter.drawPolygon(QPolygonF({tip, foot + across, foot - across}));
}

void GaugeItem::drawArc(QPainter &painter, const Dial &dial)
{
    const qreal depth = pointerDepth(dial);
    const qreal width = depth * dial.radius();
    const qreal ring = majorTickInner - 0.02 - depth / 2;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(stateColor(color("needleColor")), width, Qt::SolidLine, Qt::FlatCap));
    const Scale valueScale = scale();
    painter.drawPath(dial.arc(0, valueScale.fraction(number("value")), ring));
}

void GaugeItem::drawValue(QPainter &painter, const Dial &dial)
{
    if (!flag("showValue"))
        return;
    QRectF box = dial.square(0.45);
    box.setTop(dial.center().y() + dial.radius() * 0.56);
    box.setHeight(dial.radius() * 0.3);
    drawFittedText(painter, box, Qt::AlignCenter, valueText(), font("valueFont"),
                   legible(stateColor(color("valueColor")), color("faceColor")));
}
