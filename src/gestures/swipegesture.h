#pragma once

#include <zpplugin_export.h>

#include <QDebug>
#include <QGesture>
#include <QLineF>
#include <QPointF>
#include <QScopedPointer>

class QGestureEvent;
class QGraphicsObject;

namespace NARV {

class SwipeGesturePrivate;
class SwipeGestureRecognizer;

//! A quick stroke with exactly one, two or three fingers; with one finger also with the mouse.
//!
//! Made by its recogniser and owned by the toolkit. A direction once set does not turn: a stroke
//! that goes back is cancelled. The map functions say what a scene or an item sees of the stroke;
//! they need the event that delivered the gesture, since it knows the view.
class ZPPLUGIN_EXPORT SwipeGesture : public QGesture
{
    Q_OBJECT

public:
    enum SwipeDirection
    {
        NoDirection = 0,
        Left = 1,
        Right = 2,
        Up = 3,
        Down = 4
    };
    Q_ENUM(SwipeDirection)

    //! For 1, 2 or 3 fingers.
    explicit SwipeGesture(int touchPoints, QObject *parent = nullptr);
    ~SwipeGesture() override;

    //! SwipeGestureRecognizer::type() of the number of fingers.
    Qt::GestureType gestureType() const;
    //! Left, Right or, before the gesture is recognised, NoDirection; on the screen.
    SwipeDirection horizontalDirection() const;
    //! Up, Down or, before the gesture is recognised, NoDirection; on the screen. A stroke that
    //! is exactly level counts as Up.
    SwipeDirection verticalDirection() const;
    //! The way from the start to the fingers, on the screen: degrees from 0 up to 360, 0 to the
    //! right, counter-clockwise.
    double swipeAngle() const;
    //! Pixels of the screen per millisecond, smoothed: nine tenths of the value before an update
    //! plus the speed of that update. 1 at the start.
    double velocity() const;
    //! Where the stroke began, in pixels of the screen: the average of the fingers.
    QPointF startPoint() const;

    SwipeDirection mapHorizontalDirectionToGraphicsScene(QGestureEvent *event) const;
    SwipeDirection mapVerticalDirectionToGraphicsScene(QGestureEvent *event) const;
    double mapSwipeAngleToGraphicsScene(QGestureEvent *event) const;

    SwipeDirection mapHorizontalDirectionToGraphicsObject(QGestureEvent *event,
                                                          QGraphicsObject *object) const;
    SwipeDirection mapVerticalDirectionToGraphicsObject(QGestureEvent *event,
                                                        QGraphicsObject *object) const;
    double mapSwipeAngleToGraphicsObject(QGestureEvent *event, QGraphicsObject *object) const;

    bool event(QEvent *event) override;

private:
    friend class SwipeGestureRecognizer;

    Q_DISABLE_COPY(SwipeGesture)
    Q_DECLARE_PRIVATE(SwipeGesture)
    const QScopedPointer<SwipeGesturePrivate> d_ptr;
};

ZPPLUGIN_EXPORT QDebug operator<<(QDebug debug, const SwipeGesture *gesture);

} // namespace NARV
