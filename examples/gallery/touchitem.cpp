#include "touchitem.h"

#include <QGraphicsSceneMouseEvent>

TouchItem::TouchItem(const NARV::GraphicsObjectData &data)
    : GalleryItem(data)
{
    if (!isAtRunTime())
        return;
    setAcceptTouchAndMouseEvents(true);
    setOption(TouchToMouseEmulation);
}

int TouchItem::partAt(const QPointF &point)
{
    const QVector<QRectF> places = parts();
    for (int i = 0; i < places.size(); ++i) {
        if (!places[i].isEmpty() && places[i].contains(point))
            return i;
    }
    return noPart;
}

void TouchItem::partPressed(int) {}

void TouchItem::press(int part)
{
    cancelPress();
    m_part = part;
    m_isOver = true;
    update();
    partPressed(part);
}

void TouchItem::release(bool isOver)
{
    if (m_part == noPart)
        return;
    const int part = m_part;
    m_part = noPart;
    m_isOver = false;
    update();
    partReleased(part, isOver);
}

void TouchItem::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    if (!isAtRunTime() || event->button() != Qt::LeftButton)
        return GalleryItem::mousePressEvent(event);
    event->accept();
    setFocus(Qt::MouseFocusReason);
    const int part = partAt(event->pos());
    if (part != noPart)
        press(part);
}

void TouchItem::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    if (!isAtRunTime())
        return GalleryItem::mouseMoveEvent(event);
    const bool isOver = m_part != noPart && partAt(event->pos()) == m_part;
    if (isOver == m_isOver)
        return;
    m_isOver = isOver;
    update();
}

void TouchItem::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    if (!isAtRunTime())
        return GalleryItem::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton)
        release(m_part != noPart && partAt(event->pos()) == m_part);
}

// A finger or the mouse may be taken away without a release.
bool TouchItem::sceneEvent(QEvent *event)
{
    if (event->type() == QEvent::TouchCancel || event->type() == QEvent::UngrabMouse)
        cancelPress();
    return GalleryItem::sceneEvent(event);
}

QVariant TouchItem::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if ((change == ItemVisibleHasChanged && !isVisible()) ||
        (change == ItemSceneHasChanged && !scene()))
        cancelPress();
    return GalleryItem::itemChange(change, value);
}

void TouchItem::deinitEvent(NARV::DeinitEvent *event)
{
    cancelPress();
    GalleryItem::deinitEvent(event);
}
