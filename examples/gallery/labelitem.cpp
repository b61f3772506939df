#include "labelitem.h"

#include <QPainter>

LabelItem::LabelItem(const NARV::GraphicsObjectData &data)
    : GalleryItem(data)
{
}

void LabelItem::draw(QPainter &painter, const QRectF &area)
{
    const qreal padding = integer("padding");
    const QRectF inside = drawBox(painter, area).adjusted(padding, padding, -padding, -padding);
    const int wrap = flag("wordWrap") ? Qt::TextWordWrap : 0;
    painter.setFont(fontOf("text"));
    painter.setPen(color("textColor"));
    painter.drawText(inside, horizontalAlignment() | verticalAlignment() | wrap, text("text"));
}
