#include "pangesturerecognizer.h"

#include "fingers_p.h"
#include "gesturetypes_p.h"
#include "pangesture.h"
#include "pangesture_p.h"

#include <QGraphicsObject>
#include <QGraphicsSceneMouseEvent>

namespace NARV {

static constexpr qreal moveThreshold = 10; // pixels

PanGestureRecognizer::PanGestureRecognizer(int touchPoints)
    : m_touchPoints(touchPoints)
{
}

PanGestureRecognizer::~PanGestureRecognizer() = default;

// No parent: the toolkit deletes the gestures of a target itself.
QGesture *PanGestureRecognizer::create(QObject *)
{
    return new PanGesture(m_touchPoints);
}

Qt::GestureType PanGestureRecognizer::type(int touchPoints)
{
    return INTERNAL::gestureType(INTERNAL::Pan1Touch, touchPoints);
}

QGestureRecognizer::Result PanGestureRecognizer::recognize(QGesture *gesture, QObject *watched,
                                                           QEvent *event)
{
    if (!qobject_cast<QGraphicsObject *>(watched))
        return Ignore;
    auto *pan = static_cast<PanGesture *>(gesture);
    switch (event->type()) {
    case QEvent::TouchBegin:
        return touchBegin(pan, static_cast<QTouchEvent *>(event));
    case QEvent::TouchUpdate:
        return touchUpdate(pan, static_cast<QTouchEvent *>(event));
    case QEvent::TouchEnd:
        return touchEnd(pan, static_cast<QTouchEvent *>(event));
    case QEvent::GraphicsSceneMousePress:
        return mousePress(pan, static_cast<QGraphicsSceneMouseEvent *>(event));
    case QEvent::GraphicsSceneMouseMove:
        return mouseMove(pan, static_cast<QGraphicsSceneMouseEvent *>(event));
    case QEvent::GraphicsSceneMouseRelease:
        return mouseRelease(pan, static_cast<QGraphicsSceneMouseEvent *>(event));
    case QEvent::MouseButtonDblClick:
    case QEvent::GraphicsSceneMouseDoubleClick:
        return doubleClick();
    default:
        return Ignore;
    }
}

QGestureRecognizer::Result PanGestureRecognizer::doubleClick() const
{
    return m_touchPoints == 1 ? CancelGesture : Ignore;
}

QGestureRecognizer::Result
PanGestureRecognizer::mousePress(PanGesture *pan, const QGraphicsSceneMouseEvent *event) const
{
    if (m_touchPoints != 1 || pan->gestureType() != type(1))
        return Ignore;
    pan->setHotSpot(event->screenPos());
    pan->d_func()->start(event->screenPos(), m_touchPoints);
    return MayBeGesture;
}

QGestureRecognizer::Result
PanGestureRecognizer::mouseMove(PanGesture *pan, const QGraphicsSceneMouseEvent *event) const
{
    if (!followsMouse(pan))
        return Ignore;
    pan->d_func()->moveTo(event->screenPos() - pan->startPoint());
    return TriggerGesture;
}

QGestureRecognizer::Result
PanGestureRecognizer::mouseRelease(PanGesture *pan, const QGraphicsSceneMouseEvent *event) const
{
    if (!followsMouse(pan))
        return Ignore;
    pan->d_func()->moveTo(event->screenPos() - pan->startPoint());
    const bool moved = event->screenPos() != pan->startPoint();
    return moved && pan->state() != Qt::NoGesture ? FinishGesture : CancelGesture;
}

QGestureRecognizer::Result PanGestureRecognizer::touchBegin(PanGesture *pan,
                                                            const QTouchEvent *event) const
{
    if (event->touchPoints().isEmpty())
        return Ignore;
    pan->d_func()->start(event->touchPoints().constFirst().screenPos(), m_touchPoints);
    return MayBeGesture;
}

QGestureRecognizer::Result PanGestureRecognizer::touchUpdate(PanGesture *pan,
                                                             const QTouchEvent *event) const
{
    const auto &points = event->touchPoints();
    if (points.size() != pan->d_func()->touchPoints || points.isEmpty())
        return Ignore;
    pan->d_func()->moveTo(averageOffset(event));
    if (!INTERNAL::exceeds(pan->offset(), moveThreshold))
        return MayBeGesture;
    pan->setHotSpot(points.constFirst().startScreenPos());
    return TriggerGesture;
}

QGestureRecognizer::Result PanGestureRecognizer::touchEnd(PanGesture *pan,
                                                          const QTouchEvent *event) const
{
    if (pan->state() == Qt::NoGesture)
        return CancelGesture;
    if (event->touchPoints().size() == pan->d_func()->touchPoints)
        pan->d_func()->moveTo(averageOffset(event));
    return FinishGesture;
}

bool PanGestureRecognizer::followsMouse(const PanGesture *pan) const
{
    return m_touchPoints == 1 && pan->d_func()->touchPoints == 1;
}

QPointF PanGestureRecognizer::averageOffset(const QTouchEvent *event) const
{
    using Point = QTouchEvent::TouchPoint;
    const auto &points = event->touchPoints();
    return mean(INTERNAL::fingers(points, &Point::screenPos, m_touchPoints) -
                INTERNAL::fingers(points, &Point::startScreenPos, m_touchPoints));
}

} // namespace NARV
