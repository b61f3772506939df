#pragma once

#include <zpplugin_export.h>

#include <QGestureRecognizer>
#include <QPointF>

class QGraphicsSceneMouseEvent;
class QTouchEvent;

namespace NARV {

namespace INTERNAL {
struct FingerPoints;
} // namespace INTERNAL

class SwipeGesture;

//! Recognises a SwipeGesture with exactly one, two or three fingers on a QGraphicsObject. Owned by
//! the toolkit once registered.
class ZPPLUGIN_EXPORT SwipeGestureRecognizer : public QGestureRecognizer
{
public:
    //! For 1, 2 or 3 fingers.
    explicit SwipeGestureRecognizer(int touchPoints);
    ~SwipeGestureRecognizer() override;

    //! A SwipeGesture, which the caller owns.
    QGesture *create(QObject *target) override;
    Result recognize(QGesture *gesture, QObject *watched, QEvent *event) override;
    void reset(QGesture *gesture) override;

    //! The gesture type for 1, 2 or 3 fingers; 1256, which nobody registers, for another number.
    static Qt::GestureType type(int touchPoints);

private:
    Result touchBegin(SwipeGesture *swipe, const QTouchEvent *event) const;
    Result touchUpdate(SwipeGesture *swipe, const QTouchEvent *event) const;
    Result fewerFingers(const SwipeGesture *swipe, const QTouchEvent *event) const;
    Result recognizeMouse(SwipeGesture *swipe, QEvent *event) const;
    Result mouseMove(SwipeGesture *swipe, const QGraphicsSceneMouseEvent *event) const;
    Result begin(SwipeGesture *swipe, const QPointF &point) const;
    static void reach(SwipeGesture *swipe, const INTERNAL::FingerPoints &start);
    static Result move(SwipeGesture *swipe, const INTERNAL::FingerPoints &fingers);
    static Result end(const SwipeGesture *swipe);

    const int m_touchPoints;
};

} // namespace NARV
