#include "swipegesture.h"

#include "gesturetypes_p.h"
#include "swipegesture_p.h"
#include "swipegesturerecognizer.h"

#include <QGestureEvent>
#include <QGraphicsObject>

namespace NARV {

using Direction = SwipeGesture::SwipeDirection;

static QLineF mapped(const QLineF &way, const QGestureEvent *event, const QGraphicsObject *object)
{
    if (!event)
        return way;
    const QPointF start = event->mapToGraphicsScene(way.p1());
    const QPointF current = event->mapToGraphicsScene(way.p2());
    if (!object)
        return {start, current};
    return {object->mapFromScene(start), object->mapFromScene(current)};
}

static Direction horizontal(Direction own, const QLineF &way)
{
    return own == SwipeGesture::NoDirection
               ? own
               : INTERNAL::directionAlong(way.dx(), SwipeGesture::Left, SwipeGesture::Right);
}

static Direction vertical(Direction own, const QLineF &way)
{
    return own == SwipeGesture::NoDirection
               ? own
               : INTERNAL::directionAlong(way.dy(), SwipeGesture::Up, SwipeGesture::Down);
}

SwipeGesture::SwipeGesture(int touchPoints, QObject *parent)
    : QGesture(parent)
    , d_ptr(new SwipeGesturePrivate)
{
    Q_D(SwipeGesture);
    d->touchPoints = touchPoints;
}

SwipeGesture::~SwipeGesture() = default;

Qt::GestureType SwipeGesture::gestureType() const
{
    Q_D(const SwipeGesture);
    return INTERNAL::gestureType(*this, SwipeGestureRecognizer::type(d->touchPoints));
}

Direction SwipeGesture::horizontalDirection() const
{
    Q_D(const SwipeGesture);
    return d->horizontalDirection;
}

Direction SwipeGesture::verticalDirection() const
{
    Q_D(const SwipeGesture);
    return d->verticalDirection;
}

double SwipeGesture::swipeAngle() const
{
    Q_D(const SwipeGesture);
    return d->way().angle();
}

double SwipeGesture::velocity() const
{
    Q_D(const SwipeGesture);
    return d->velocity;
}

QPointF SwipeGesture::startPoint() const
{
    Q_D(const SwipeGesture);
    return d->startPoint;
}

Direction SwipeGesture::mapHorizontalDirectionToGraphicsScene(QGestureEvent *event) const
{
    return mapHorizontalDirectionToGraphicsObject(event, nullptr);
}

Direction SwipeGesture::mapVerticalDirectionToGraphicsScene(QGestureEvent *event) const
{
    return mapVerticalDirectionToGraphicsObject(event, nullptr);
}

double SwipeGesture::mapSwipeAngleToGraphicsScene(QGestureEvent *event) const
{
    return mapSwipeAngleToGraphicsObject(event, nullptr);
}

Direction SwipeGesture::mapHorizontalDirectionToGraphicsObject(QGestureEvent *event,
                                                               QGraphicsObject *object) const
{
    Q_D(const SwipeGesture);
    return horizontal(d->horizontalDirection, mapped(d->way(), event, object));
}

Direction SwipeGesture::mapVerticalDirectionToGraphicsObject(QGestureEvent *event,
                                                             QGraphicsObject *object) const
{
    Q_D(const SwipeGesture);
    return vertical(d->verticalDirection, mapped(d->way(), event, object));
}

double SwipeGesture::mapSwipeAngleToGraphicsObject(QGestureEvent *event,
                                                   QGraphicsObject *object) const
{
    Q_D(const SwipeGesture);
    return mapped(d->way(), event, object).angle();
}

bool SwipeGesture::event(QEvent *event)
{
    return QGesture::event(event);
}

QDebug operator<<(QDebug debug, const SwipeGesture *gesture)
{
    const QDebugStateSaver saver(debug);
    debug.nospace();
    if (!gesture)
        return debug << "NARV::SwipeGesture(0x0)";
    return debug << "NARV::SwipeGesture(" << gesture->state() << ", "
                 << gesture->horizontalDirection() << ", " << gesture->verticalDirection()
                 << ", angle " << gesture->swipeAngle() << ", velocity " << gesture->velocity()
                 << ", from " << gesture->startPoint() << ')';
}

} // namespace NARV
