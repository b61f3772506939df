#include "pinchgesture.h"

#include "gesturetypes_p.h"
#include "pinchgesture_p.h"
#include "pinchgesturerecognizer.h"

namespace NARV {

PinchGesture::PinchGesture(QObject *parent)
    : QGesture(parent)
    , d_ptr(new PinchGesturePrivate)
{
}

PinchGesture::~PinchGesture() = default;

Qt::GestureType PinchGesture::gestureType() const
{
    return INTERNAL::gestureType(*this, PinchGestureRecognizer::type());
}

PinchGesture::ChangeFlags PinchGesture::totalChangeFlags() const
{
    Q_D(const PinchGesture);
    return d->totalChangeFlags;
}

PinchGesture::ChangeFlags PinchGesture::changeFlags() const
{
    Q_D(const PinchGesture);
    return d->changeFlags;
}

QPointF PinchGesture::startCenterPoint() const
{
    Q_D(const PinchGesture);
    return d->startCenterPoint;
}

QPointF PinchGesture::lastCenterPoint() const
{
    Q_D(const PinchGesture);
    return d->lastCenterPoint;
}

QPointF PinchGesture::centerPoint() const
{
    Q_D(const PinchGesture);
    return d->centerPoint;
}

double PinchGesture::totalScaleFactor() const
{
    Q_D(const PinchGesture);
    return d->totalScaleFactor;
}

double PinchGesture::lastScaleFactor() const
{
    Q_D(const PinchGesture);
    return d->lastScaleFactor;
}

double PinchGesture::scaleFactor() const
{
    Q_D(const PinchGesture);
    return d->scaleFactor;
}

double PinchGesture::totalRotationAngle() const
{
    Q_D(const PinchGesture);
    return d->totalRotation();
}

double PinchGesture::lastRotationAngle() const
{
    Q_D(const PinchGesture);
    return d->rotation(d->lastLine);
}

double PinchGesture::rotationAngle() const
{
    Q_D(const PinchGesture);
    return d->rotation(d->line);
}

bool PinchGesture::event(QEvent *event)
{
    return QGesture::event(event);
}

} // namespace NARV
