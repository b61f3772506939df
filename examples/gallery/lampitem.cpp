#include "lampitem.h"

#include "drawing.h"

#include <QPainter>

static constexpr int shortestPeriod = 100; // of blinking, in milliseconds
static constexpr int darkness = 260;       // of a lamp while it blinks, in percent

enum Shape
{
    Round,
    Square,
    Rectangle
};

enum TextPosition
{
    Inside,
    Below,
    Right
};

LampItem::LampItem(const NARV::GraphicsObjectData &data)
    : GalleryItem(data)
{
}

QColor LampItem::stateColor()
{
    const QColor color(textMap("stateColors").value(integer("state")));
    return color.isValid() ? color : this->color("unknownColor");
}

bool LampItem::isBlinking()
{
    return flag("blink") && integer("state") == integer("blinkState");
}

int LampItem::beatPeriod()
{
    return isBlinking() ? qMax(shortestPeriod, integer("blinkPeriod")) / 2 : 0;
}

QColor LampItem::shownColor()
{
    const bool isDark = beats() % 2 == 1;
    return isDark ? stateColor().darker(darkness) : stateColor();
}

void LampItem::draw(QPainter &painter, const QRectF &area)
{
    const bool textIsInside = integer("textPosition") == Inside;
    if (textIsInside)
        drawLamp(painter, area);
    const QRectF rest = flag("showText") ? drawText(painter, area) : area;
    if (!textIsInside)
        drawLamp(painter, rest);
}

QRectF LampItem::drawText(QPainter &painter, const QRectF &area)
{
    const QFont textFont = fontOf("stateTexts");
    const int position = integer("textPosition");
    QRectF rest = area;
    QRectF place = area;
    if (position == Below && lineHeight(textFont) > area.height() / 2)
        return area;
    if (position == Below)
        place = takeBottom(rest, lineHeight(textFont));
    else if (position == Right)
        place = takeRight(rest, rest.width() - qMin(rest.width(), rest.height()))
                    .adjusted(lineHeight(textFont) / 3, 0, 0, 0);
    drawFittedText(
        painter, place, position == Right ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignCenter,
        textMap("stateTexts").value(integer("state")), textFont,
        position == Inside ? legible(color("textColor"), shownColor()) : color("textColor"));
    return rest;
}

//! Light from above.
static void drawGloss(QPainter &painter, const QRectF &body, qreal radius)
{
    if (body.isEmpty())
        return;
    QLinearGradient gloss(body.topLeft(), body.bottomLeft());
    gloss.setColorAt(0, QColor(255, 255, 255, 80));
    gloss.setColorAt(0.5, QColor(255, 255, 255, 0));
    gloss.setColorAt(1, QColor(0, 0, 0, 40));
    painter.setPen(Qt::NoPen);
    painter.setBrush(gloss);
    painter.drawRoundedRect(body, radius, radius);
}

void LampItem::drawLamp(QPainter &painter, const QRectF &area)
{
    const int shape = integer("shape");
    QRectF body = area;
    if (shape != Rectangle) {
        const qreal side = qMin(area.width(), area.height());
        body = QRectF(0, 0, side, side);
        body.moveCenter(area.center());
    }
    const qreal frame = qMax(1.0, body.height() * 0.04);
    const qreal radius = shape == Round ? body.height() / 2 : body.height() * 0.08;
    drawPlate(painter, body, {shownColor(), color("frameColor"), frame, radius});
    drawGloss(painter, body.adjusted(frame, frame, -frame, -frame), radius - frame);
}
