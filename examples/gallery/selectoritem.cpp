#include "selectoritem.h"

#include "drawing.h"

#include <QPainter>

enum Style
{
    Buttons,
    List
};

static constexpr qreal padding = 8;
static constexpr qreal gap = 4;

SelectorItem::SelectorItem(const NARV::GraphicsObjectData &data)
    : ControlItem(data)
{
}

int SelectorItem::selected()
{
    const qint64 index = qint64(integer("value")) - integer("firstNumber");
    return index >= 0 && index < texts("entries").size() ? int(index) : -1;
}

void SelectorItem::drawControl(QPainter &painter, const QRectF &area)
{
    if (integer("style") == List)
        drawList(painter, area);
    else
        drawButtons(painter, area);
}

void SelectorItem::drawButtons(QPainter &painter, const QRectF &area)
{
    const QStringList entries = texts("entries");
    const bool isVertical = integer("orientation") == 1;
    const qreal length = isVertical ? area.height() : area.width();
    const qreal size = (length + gap) / qMax(1, entries.size()) - gap;
    QRectF rest = area;
    for (int i = 0; i < entries.size(); ++i) {
        const bool isSelected = i == selected();
        const QRectF button = isVertical ? takeTop(rest, size) : takeLeft(rest, size);
        isVertical ? takeTop(rest, gap) : takeLeft(rest, gap);
        drawButton(painter, button, color(isSelected ? "selectedColor" : "buttonColor"),
                   integer("cornerRadius"));
        drawFittedText(painter, button.adjusted(gap, 0, -gap, 0), Qt::AlignCenter, entries[i],
                       fontOf("entries"), color(isSelected ? "selectedTextColor" : "textColor"));
    }
}

void SelectorItem::drawList(QPainter &painter, const QRectF &area)
{
    drawButton(painter, area, color("buttonColor"), integer("cornerRadius"));
    QRectF rest = area.adjusted(padding, 0, -padding, 0);
    const QPointF tip = takeRight(rest, 2 * padding).center() + QPointF(0, padding / 4);
    painter.setPen(QPen(color("selectedColor"), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF(
        {tip + QPointF(-padding, -padding) * 0.7, tip, tip + QPointF(padding, -padding) * 0.7}));
    drawFittedText(painter, rest, Qt::AlignLeft | Qt::AlignVCenter,
                   texts("entries").value(selected()), fontOf("entries"), color("textColor"));
}
