#include "baritem.h"

#include "drawing.h"
#include "numbertext.h"

#include <QPainter>

static constexpr qreal gap = 4;
static constexpr qreal majorTick = 8;
static constexpr qreal minorTick = 4;
static constexpr qreal limitsWidth = 4;
static constexpr qreal largestShare = 0.7; // of the widget for what is not the bar

BarItem::BarItem(const NARV::GraphicsObjectData &data)
    : IndicatorItem(data)
{
}

bool BarItem::isUpright()
{
    return integer("direction") < Right;
}

void BarItem::draw(QPainter &painter, const QRectF &area)
{
    QRectF track = drawTitle(painter, area);
    track = drawValue(painter, track);
    track = drawScale(painter, track);
    drawPlate(painter, track, {color("trackColor"), {}, 0, 0});
    drawBar(painter, track);
    drawLimits(painter, track);
    drawPlate(painter, track, {{}, color("frameColor"), 1, 0});
}

QRectF BarItem::segment(const QRectF &track, double from, double to)
{
    const double low = qMin(from, to);
    const double length = qMax(from, to) - low;
    const qreal x = track.left() + low * track.width();
    const qreal y = track.top() + low * track.height();
    switch (integer("direction")) {
    case Down:
        return {track.left(), y, track.width(), length * track.height()};
    case Right:
        return {x, track.top(), length * track.width(), track.height()};
    case Left:
        return {track.right() - (low + length) * track.width(), track.top(), length * track.width(),
                track.height()};
    default:
        return {track.left(), track.bottom() - (low + length) * track.height(), track.width(),
                length * track.height()};
    }
}

QRectF BarItem::drawValue(QPainter &painter, const QRectF &area)
{
    if (!flag("showValue"))
        return area;
    const QFont valueFont = font("valueFont");
    if (lineHeight(valueFont) > area.height() * largestShare)
        return area;
    QRectF rest = area;
    const QRectF line = takeBottom(rest, lineHeight(valueFont));
    drawFittedText(painter, line, Qt::AlignCenter, valueText(), valueFont,
                   legible(stateColor(color("valueColor")), color("trackColor")));
    return rest;
}

qreal BarItem::scaleExtent()
{
    const QFont labelFont = font("scaleFont");
    if (!isUpright())
        return majorTick + gap + lineHeight(labelFont);
    qreal widest = 0;
    for (const Scale::Tick &tick : ticks()) {
        if (tick.isMajor)
            widest = qMax(widest, textWidth(labelFont, labelText(tick.value)));
    }
    return majorTick + 2 * gap + widest;
}

QRectF BarItem::drawScale(QPainter &painter, const QRectF &area)
{
    const qreal room = isUpright() ? area.width() : area.height();
    if (!flag("showScale") || scaleExtent() > room * largestShare)
        return area;
    // Half a label sticks out at each end.
    const QFont labelFont = font("scaleFont");
    QRectF track = area;
    if (isUpright()) {
        takeRight(track, scaleExtent());
        track.adjust(0, lineHeight(labelFont) / 2, 0, -lineHeight(labelFont) / 2);
    } else {
        takeBottom(track, scaleExtent());
        const Scale values = scale();
        track.adjust(textWidth(labelFont, labelText(values.lowest())) / 2 + gap, 0,
                     -textWidth(labelFont, labelText(values.highest())) / 2 - gap, 0);
    }
    drawTicks(painter, track);
    return track;
}

void BarItem::drawTicks(QPainter &painter, const QRectF &track)
{
    const QFont labelFont = font("scaleFont");
    const Scale values = scale();
    const qreal label = isUpright() ? lineHeight(labelFont)
                                    : qMax(textWidth(labelFont, labelText(values.lowest())),
                                           textWidth(labelFont, labelText(values.highest()))) +
                                          gap;
    const int interval =
        labelInterval(integer("divisions"), isUpright() ? track.height() : track.width(), label);
    int labels = 0;
    for (const Scale::Tick &tick : ticks()) {
        const QRectF position = segment(track, tick.fraction, tick.fraction);
        drawTick(painter, position, tick, tick.isMajor && labels++ % interval == 0);
    }
}

void BarItem::drawTick(QPainter &painter, const QRectF &position, const Scale::Tick &tick,
                       bool hasLabel)
{
    const qreal length = tick.isMajor ? majorTick : minorTick;
    const QPointF offset = isUpright() ? QPointF(length, 0) : QPointF(0, length);
    const QPointF start = position.bottomRight();
    painter.setPen(QPen(color("scaleColor"), tick.isMajor ? 1.5 : 1));
    painter.drawLine(start, start + offset);
    if (hasLabel)
        drawTickLabel(painter, start + offset, tick);
}

void BarItem::drawTickLabel(QPainter &painter, const QPointF &end, const Scale::Tick &tick)
{
    const QFont labelFont = font("scaleFont");
    const QString label = labelText(tick.value);
    const QSizeF size(textWidth(labelFont, label) + gap, lineHeight(labelFont));
    const QPointF corner = isUpright() ? end + QPointF(gap, -size.height() / 2)
                                       : end + QPointF(-size.width() / 2, gap / 2);
    const int alignment = isUpright() ? Qt::AlignVCenter | Qt::AlignLeft : Qt::AlignCenter;
    drawFittedText(painter, {corner, size}, alignment, label, labelFont, color("scaleColor"));
}

void BarItem::drawBar(QPainter &painter, const QRectF &track)
{
    const Scale values = scale();
    painter.fillRect(
        segment(track, values.fraction(number("origin")), values.fraction(number("value"))),
        stateColor(color("barColor")));
}

void BarItem::drawLimits(QPainter &painter, const QRectF &track)
{
    QRectF strip = track;
    strip = isUpright() ? takeRight(strip, limitsWidth) : takeBottom(strip, limitsWidth);
    const auto bands = limits().bands(scale());
    if (bands.isEmpty())
        return;
    // A bar beyond a limit has the colour of its band.
    const QPointF hair = isUpright() ? QPointF(1, 0) : QPointF(0, 1);
    painter.fillRect(QRectF(strip.topLeft() - hair, strip.bottomRight()), color("trackColor"));
    for (const ValueLimits::Band &band : bands)
        painter.fillRect(segment(strip, band.from, band.to), band.color);
}
