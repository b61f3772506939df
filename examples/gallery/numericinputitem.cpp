#include "numericinputitem.h"

#include "drawing.h"
#include "numbertext.h"

#include <QPainter>

static constexpr qreal padding = 6;
static constexpr qreal widestButton = 64;
static constexpr int buttonDarkness = 112; // in percent, of the background
static constexpr qreal spentOpacity = 0.4;

NumericInputItem::NumericInputItem(const NARV::GraphicsObjectData &data)
    : ControlItem(data)
{
}

void NumericInputItem::drawControl(QPainter &painter, const QRectF &area)
{
    drawValue(painter, drawStepButtons(painter, drawPrompt(painter, area)));
}

QRectF NumericInputItem::drawPrompt(QPainter &painter, const QRectF &area)
{
    const QString prompt = text("prompt");
    if (prompt.isEmpty())
        return area;
    QRectF rest = area;
    const QRectF line = takeTop(rest, lineHeight(fontOf("prompt")));
    drawFittedText(painter, line, Qt::AlignLeft | Qt::AlignVCenter, prompt, fontOf("prompt"),
                   color("promptColor"));
    return rest;
}

QRectF NumericInputItem::drawStepButtons(QPainter &painter, const QRectF &area)
{
    if (!flag("showStepButtons"))
        return area;
    const double value = number("value");
    const qreal width = qMin(widestButton, area.width() / 4);
    QRectF rest = area;
    drawStepButton(painter, takeLeft(rest, width), QChar(0x2212), value > number("minimum"));
    drawStepButton(painter, takeRight(rest, width), QLatin1Char('+'), value < number("maximum"));
    return rest;
}

void NumericInputItem::drawStepButton(QPainter &painter, const QRectF &area, QChar sign,
                                      bool canStep)
{
    drawButton(painter, area, color("backgroundColor").darker(buttonDarkness), 0);
    painter.save();
    if (!canStep)
        painter.setOpacity(painter.opacity() * spentOpacity);
    drawFittedText(painter, area, Qt::AlignCenter, sign, font("valueFont"), color("valueColor"));
    painter.restore();
}

void NumericInputItem::drawValue(QPainter &painter, const QRectF &area)
{
    drawPlate(painter, area,
              {color("backgroundColor"), color(hasFocus() ? "focusColor" : "frameColor"),
               hasFocus() ? 2.0 : 1.0, 0});
    drawFittedText(painter, area.adjusted(padding, 0, -padding, 0),
                   Qt::AlignRight | Qt::AlignVCenter,
                   withUnit(decimalText(number("value"), integer("decimals")), text("unit")),
                   font("valueFont"), color("valueColor"));
}
