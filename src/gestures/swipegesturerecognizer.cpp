#include "swipegesturerecognizer.h"

#include "fingers_p.h"
#include "gesturetypes_p.h"
#include "swipegesture.h"
#include "swipegesture_p.h"

#include <QGraphicsObject>
#include <QGraphicsSceneMouseEvent>

#include <algorithm>

namespace NARV {

using INTERNAL::FingerPoints;
using Point = QTouchEvent::TouchPoint;

SwipeGestureRecognizer::SwipeGestureRecognizer(int touchPoints)
    : m_touchPoints(touchPoints)
{
}

SwipeGestureRecognizer::~SwipeGestureRecognizer() = default;

// No parent: the toolkit deletes the gestures of a target itself.
QGesture *SwipeGestureRecognizer::create(QObject *)
{
    return new SwipeGesture(m_touchPoints);
}

Qt::GestureType SwipeGestureRecognizer::type(int touchPoints)
{
    return INTERNAL::gestureType(INTERNAL::Swipe1Touch, touchPoints);
}

void SwipeGestureRecognizer::reset(QGesture *gesture)
{
    static_cast<SwipeGesture *>(gesture)->d_func()->reset();
    QGestureRecognizer::reset(gesture);
}

QGestureRecognizer::Result SwipeGestureRecognizer::recognize(QGesture *gesture, QObject *watched,
                                                             QEvent *event)
{
    if (!qobject_cast<QGraphicsObject *>(watched))
        return Ignore;
    auto *swipe = static_cast<SwipeGesture *>(gesture);
    switch (event->type()) {
    case QEvent::TouchBegin:
        return touchBegin(swipe, static_cast<QTouchEvent *>(event));
    case QEvent::TouchUpdate:
        return touchUpdate(swipe, static_cast<QTouchEvent *>(event));
    case QEvent::TouchEnd:
        return end(swipe);
    default:
        return m_touchPoints == 1 ? recognizeMouse(swipe, event) : Ignore;
    }
}

QGestureRecognizer::Result SwipeGestureRecognizer::recognizeMouse(SwipeGesture *swipe,
                                                                  QEvent *event) const
{
    switch (event->type()) {
    case QEvent::GraphicsSceneMousePress:
        return begin(swipe, static_cast<QGraphicsSceneMouseEvent *>(event)->screenPos());
    case QEvent::GraphicsSceneMouseMove:
        return mouseMove(swipe, static_cast<QGraphicsSceneMouseEvent *>(event));
    case QEvent::GraphicsSceneMouseRelease:
        return end(swipe);
    case QEvent::MouseButtonDblClick:
    case QEvent::GraphicsSceneMouseDoubleClick:
        return CancelGesture;
    default:
        return Ignore;
    }
}

QGestureRecognizer::Result SwipeGestureRecognizer::touchBegin(SwipeGesture *swipe,
                                                              const QTouchEvent *event) const
{
    if (event->touchPoints().isEmpty())
        return Ignore;
    return begin(swipe, mean(INTERNAL::fingers(event->touchPoints(), &Point::screenPos)));
}

QGestureRecognizer::Result SwipeGestureRecognizer::touchUpdate(SwipeGesture *swipe,
                                                               const QTouchEvent *event) const
{
    const auto &points = event->touchPoints();
    if (swipe->d_func()->state == SwipeGesturePrivate::NoGesture)
        return CancelGesture;
    if (points.size() > m_touchPoints)
        return CancelGesture;
    if (points.size() < m_touchPoints)
        return fewerFingers(swipe, event);
    if (swipe->d_func()->state == SwipeGesturePrivate::Started)
        reach(swipe, INTERNAL::fingers(points, &Point::startScreenPos));
    return move(swipe, INTERNAL::fingers(points, &Point::screenPos));
}

QGestureRecognizer::Result SwipeGestureRecognizer::fewerFingers(const SwipeGesture *swipe,
                                                                const QTouchEvent *event) const
{
    const auto &points = event->touchPoints();
    const bool again = std::any_of(points.begin(), points.end(), [](const Point &point) {
        return point.state() == Qt::TouchPointPressed;
    });
    const bool reached = swipe->d_func()->state == SwipeGesturePrivate::PointsReached;
    return reached && again ? CancelGesture : Ignore;
}

QGestureRecognizer::Result
SwipeGestureRecognizer::mouseMove(SwipeGesture *swipe, const QGraphicsSceneMouseEvent *event) const
{
    if (swipe->d_func()->state == SwipeGesturePrivate::NoGesture)
        return CancelGesture;
    if (swipe->d_func()->state == SwipeGesturePrivate::Started)
        reach(swipe, {{swipe->startPoint()}, 1});
    return move(swipe, {{event->screenPos()}, 1});
}

QGestureRecognizer::Result SwipeGestureRecognizer::begin(SwipeGesture *swipe,
                                                         const QPointF &point) const
{
    swipe->d_func()->begin(point, m_touchPoints);
    swipe->setHotSpot(swipe->startPoint());
    return MayBeGesture;
}

void SwipeGestureRecognizer::reach(SwipeGesture *swipe, const FingerPoints &start)
{
    swipe->d_func()->reach(start);
    swipe->setHotSpot(swipe->startPoint());
}

QGestureRecognizer::Result SwipeGestureRecognizer::move(SwipeGesture *swipe,
                                                        const FingerPoints &fingers)
{
    SwipeGesturePrivate *d = swipe->d_func();
    const QPointF movement = mean(fingers - d->remembered);
    d->measure(mean(fingers), movement);
    if (!INTERNAL::exceeds(movement, SwipeGesturePrivate::MoveThreshold))
        return swipe->state() == Qt::NoGesture ? MayBeGesture : TriggerGesture;
    return d->accept(movement, fingers) ? TriggerGesture : CancelGesture;
}

QGestureRecognizer::Result SwipeGestureRecognizer::end(const SwipeGesture *swipe)
{
    return swipe->state() == Qt::NoGesture ? CancelGesture : FinishGesture;
}

} // namespace NARV
