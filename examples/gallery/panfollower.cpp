#include "panfollower.h"

#include <NARV/PanGesture>

#include <QGestureEvent>
#include <QGraphicsObject>

static constexpr qreal trembling = 10; // of a finger that presses, in pixels on the screen

QPointF fromScreen(const QGraphicsObject *item, const QGestureEvent *event,
                   const QPointF &screenPoint)
{
    return item->mapFromScene(event->mapToGraphicsScene(screenPoint));
}

QPointF PanFollower::follow(const QGraphicsObject *item, const QGestureEvent *event,
                            const NARV::PanGesture *pan)
{
    if (pan->state() == Qt::GestureStarted)
        *this = PanFollower();
    const QPointF before = pan->startPoint() + m_followed;
    m_followed = pan->offset();
    m_isDrag = m_isDrag || m_followed.manhattanLength() > trembling;
    return fromScreen(item, event, pan->startPoint() + m_followed) -
           fromScreen(item, event, before);
}
