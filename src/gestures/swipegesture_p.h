#pragma once

#include "gesturegeometry_p.h"
#include "swipegesture.h"

#include <QElapsedTimer>

namespace NARV {

class SwipeGesturePrivate
{
public:
    using Direction = SwipeGesture::SwipeDirection;

    //! Pixels of movement along an axis before a stroke is recognised.
    static constexpr int MoveThreshold = 50;
    //! Pixels of movement along an axis before the direction on that axis is looked at again.
    static constexpr int DirectionChangeThreshold = 6;

    enum State
    {
        NoGesture,
        Started,      //!< a finger or the mouse is down
        PointsReached //!< all fingers are down and have moved
    };

    //! A finger or the mouse goes down. Points are pixels of the screen.
    void begin(const QPointF &point, int fingerCount);
    //! All fingers are down; where each of them began.
    void reach(const INTERNAL::FingerPoints &start);
    //! The fingers are on average here now, so far from where movement was last accepted.
    void measure(const QPointF &point, const QPointF &movement);
    //! Takes a movement beyond the threshold into account. False when it goes back on an axis.
    bool accept(const QPointF &movement, const INTERNAL::FingerPoints &fingers);
    void reset();

    //! The way from the start to the current point. Worked out when asked for, since an update is
    //! read once at most and an angle is slow to work out.
    QLineF way() const { return {startPoint, currentPoint}; }

    Direction horizontalDirection = SwipeGesture::NoDirection;
    Direction verticalDirection = SwipeGesture::NoDirection;
    INTERNAL::FingerPoints remembered; //!< where the fingers were when movement was last accepted
    State state = NoGesture;
    double velocity = 0;
    QElapsedTimer timer;
    QPointF startPoint;
    QPointF currentPoint;
    int touchPoints = 0;

private:
    static bool turn(Direction &direction, Direction to, qreal movement);
};

} // namespace NARV
