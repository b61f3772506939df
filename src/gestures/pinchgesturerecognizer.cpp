#include "pinchgesturerecognizer.h"

#include "gesturegeometry_p.h"
#include "gesturetypes_p.h"
#include "log/logdelivery_p.h"
#include "pinchgesture.h"
#include "pinchgesture_p.h"

#include <NARV/LogHandler>

#include <QGraphicsObject>
#include <QTouchEvent>

namespace NARV {

using Point = QTouchEvent::TouchPoint;

PinchGestureRecognizer::PinchGestureRecognizer() = default;

PinchGestureRecognizer::~PinchGestureRecognizer() = default;

// No parent: the toolkit deletes the gestures of a target itself.
QGesture *PinchGestureRecognizer::create(QObject *)
{
    return new PinchGesture;
}

Qt::GestureType PinchGestureRecognizer::type()
{
    return INTERNAL::gestureType(INTERNAL::Pinch, 1);
}

void PinchGestureRecognizer::reset(QGesture *gesture)
{
    *static_cast<PinchGesture *>(gesture)->d_func() = PinchGesturePrivate();
    QGestureRecognizer::reset(gesture);
}

QGestureRecognizer::Result PinchGestureRecognizer::recognize(QGesture *gesture, QObject *watched,
                                                             QEvent *event)
{
    if (!qobject_cast<QGraphicsObject *>(watched))
        return Ignore;
    auto *pinch = static_cast<PinchGesture *>(gesture);
    switch (event->type()) {
    case QEvent::TouchBegin:
        return MayBeGesture;
    case QEvent::TouchUpdate:
        return touchUpdate(pinch, static_cast<QTouchEvent *>(event));
    case QEvent::TouchEnd:
        return touchEnd(pinch);
    default:
        return Ignore;
    }
}

QGestureRecognizer::Result PinchGestureRecognizer::touchEnd(const PinchGesture *pinch)
{
    return pinch->state() == Qt::NoGesture ? CancelGesture : FinishGesture;
}

static void moveCenter(PinchGesturePrivate *d, const QLineF &line)
{
    const QPointF center = line.center();
    if (d->isNewSequence)
        d->startCenterPoint = center;
    d->lastCenterPoint = d->isNewSequence ? center : d->centerPoint;
    d->centerPoint = center;
    d->changeFlags |= PinchGesture::CenterPointChanged;
}

// False for a leap, of which the panel is to blame.
static bool scale(PinchGesturePrivate *d, const QPointF &way, const QPointF &lastWay)
{
    if (d->isNewSequence)
        d->scaleFactor = 1;
    d->lastScaleFactor = d->scaleFactor;
    if (!d->isNewSequence) {
        const qreal ratio = INTERNAL::length(way) / INTERNAL::length(lastWay);
        if (!INTERNAL::isPlausibleScale(ratio))
            return false;
        d->scaleFactor = ratio;
    }
    d->totalScaleFactor *= d->scaleFactor;
    d->changeFlags |= PinchGesture::ScaleFactorChanged;
    return true;
}

static void logMeasurement(const PinchGesturePrivate *d)
{
    if (!INTERNAL::isHeard())
        return;
    const LogHandler log(QString(), __FILE__, __LINE__, __func__);
    log.debug().debug() << "P1" << d->line.p1();
    log.debug().debug() << "P2" << d->line.p2();
    log.debug().debug() << "ANGLE" << INTERNAL::signedAngle(d->line);
    log.debug().debug() << "START ANGLE" << INTERNAL::signedAngle(d->startLine);
}

static void rotate(PinchGesturePrivate *d, const QLineF &line)
{
    d->lastLine = d->isNewSequence ? d->startLine : d->line;
    d->line = line;
    d->changeFlags |= PinchGesture::RotationAngleChanged;
    logMeasurement(d);
}

QGestureRecognizer::Result PinchGestureRecognizer::touchUpdate(PinchGesture *pinch,
                                                               const QTouchEvent *event)
{
    PinchGesturePrivate *d = pinch->d_func();
    d->changeFlags = {};
    if (event->touchPoints().size() != 2)
        return otherFingers(pinch);
    const Point &first = event->touchPoints().at(0);
    const Point &second = event->touchPoints().at(1);
    const QLineF line(first.screenPos(), second.screenPos());
    if (d->isNewSequence) {
        d->earlierRotation = d->totalRotation();
        d->startLine = QLineF(first.startScreenPos(), second.startScreenPos());
        pinch->setHotSpot(line.center());
    }
    moveCenter(d, line);
    if (!scale(d, line.p2() - line.p1(), second.lastScreenPos() - first.lastScreenPos()))
        return Ignore;
    rotate(d, line);
    d->totalChangeFlags |= d->changeFlags;
    d->isNewSequence = false;
    return TriggerGesture;
}

QGestureRecognizer::Result PinchGestureRecognizer::otherFingers(PinchGesture *pinch)
{
    pinch->d_func()->isNewSequence = true;
    return touchEnd(pinch) == FinishGesture ? FinishGesture : Ignore;
}

} // namespace NARV
