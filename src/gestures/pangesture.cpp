#include "pangesture.h"

#include "gesturetypes_p.h"
#include "pangesture_p.h"
#include "pangesturerecognizer.h"

namespace NARV {

PanGesture::PanGesture(int touchPoints, QObject *parent)
    : QGesture(parent)
    , d_ptr(new PanGesturePrivate{{}, {}, {}, touchPoints})
{
}

PanGesture::~PanGesture() = default;

Qt::GestureType PanGesture::gestureType() const
{
    Q_D(const PanGesture);
    return INTERNAL::gestureType(*this, PanGestureRecognizer::type(d->touchPoints));
}

QPointF PanGesture::startPoint() const
{
    Q_D(const PanGesture);
    return d->startPoint;
}

QPointF PanGesture::offset() const
{
    Q_D(const PanGesture);
    return d->offset;
}

QPointF PanGesture::lastOffset() const
{
    Q_D(const PanGesture);
    return d->lastOffset;
}

QPointF PanGesture::delta() const
{
    Q_D(const PanGesture);
    return d->offset - d->lastOffset;
}

bool PanGesture::event(QEvent *event)
{
    return QGesture::event(event);
}

} // namespace NARV
