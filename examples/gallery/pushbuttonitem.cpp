#include "pushbuttonitem.h"

#include "drawing.h"

#include <QPainter>
#include <QPixmap>

#include <iterator>

static constexpr qreal padding = 6;
static constexpr qreal imageShare = 0.5; // of the button, when the image stands beside the caption

PushButtonItem::PushButtonItem(const NARV::GraphicsObjectData &data)
    : ControlItem(data)
{
}

void PushButtonItem::drawControl(QPainter &painter, const QRectF &area)
{
    drawButton(painter, area, color(flag("value") ? "activeColor" : "buttonColor"),
               integer("cornerRadius"));
    QRectF inside = area.adjusted(padding, padding, -padding, -padding);
    if (flag("showImage"))
        inside = drawImage(painter, inside);
    drawFittedText(painter, inside, Qt::AlignCenter, text("text"), fontOf("text"),
                   color("textColor"));
}

static QRectF takeAll(QRectF &area, qreal)
{
    return area;
}

QRectF PushButtonItem::drawImage(QPainter &painter, const QRectF &area)
{
    // In the order of the field's options: left, above, right, below, behind.
    static constexpr decltype(&takeLeft) cuts[] = {takeLeft, takeTop, takeRight, takeBottom,
                                                   takeAll};
    const QPixmap image(text("image"));
    if (image.isNull())
        return area;
    const int position = qBound(0, integer("imagePosition"), int(std::size(cuts)) - 1);
    const bool isVertical = position % 2 == 1;
    QRectF rest = area;
    const QRectF place =
        cuts[position](rest, (isVertical ? area.height() : area.width()) * imageShare);
    QRectF target(QPointF(), QSizeF(image.size()).scaled(place.size(), Qt::KeepAspectRatio));
    target.moveCenter(place.center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(target, image, image.rect());
    return rest;
}
