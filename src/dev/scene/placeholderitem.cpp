#include "scene/placeholderitem.h"

#include <QPainter>

namespace NARV::DEV {

static const QColor paper(0xff, 0xf4, 0xe0);
static const QColor ink(0x7a, 0x4b, 0x00);

PlaceholderItem::PlaceholderItem(const QString &title, const QString &reason)
    : m_title(title)
    , m_reason(reason)
{
    setToolTip(reason);
}

void PlaceholderItem::setSize(const QSizeF &size)
{
    prepareGeometryChange();
    m_size = size;
}

QRectF PlaceholderItem::boundingRect() const
{
    return {QPointF(), m_size};
}

void PlaceholderItem::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    const QRectF area = boundingRect().adjusted(1, 1, -1, -1);
    painter->setPen(QPen(ink, 1.5, Qt::DashLine));
    painter->setBrush(paper);
    painter->drawRect(area);
    QFont font = painter->font();
    font.setPixelSize(13);
    font.setBold(true);
    painter->setFont(font);
    const QRectF inside = area.adjusted(6, 6, -6, -6);
    QRectF used;
    painter->drawText(inside, Qt::AlignTop | Qt::AlignHCenter | Qt::TextWrapAnywhere, m_title,
                      &used);
    font.setBold(false);
    painter->setFont(font);
    painter->drawText(inside.adjusted(0, used.height() + 4, 0, 0),
                      Qt::AlignTop | Qt::AlignHCenter | Qt::TextWordWrap, m_reason);
}

} // namespace NARV::DEV
