#pragma once

#include <zpplugin_export.h>

#include <QGestureRecognizer>

class QTouchEvent;

namespace NARV {

class PinchGesture;

//! Recognises a PinchGesture with exactly two fingers on a QGraphicsObject. Owned by the toolkit
//! once registered. Writes each measurement to the debug log.
class ZPPLUGIN_EXPORT PinchGestureRecognizer : public QGestureRecognizer
{
public:
    PinchGestureRecognizer();
    ~PinchGestureRecognizer() override;

    //! A PinchGesture, which the caller owns.
    QGesture *create(QObject *target) override;
    Result recognize(QGesture *gesture, QObject *watched, QEvent *event) override;
    void reset(QGesture *gesture) override;

    //! The gesture type, 263.
    static Qt::GestureType type();

private:
    static Result touchUpdate(PinchGesture *pinch, const QTouchEvent *event);
    static Result otherFingers(PinchGesture *pinch);
    static Result touchEnd(const PinchGesture *pinch);
};

} // namespace NARV
