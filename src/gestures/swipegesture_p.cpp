#include "swipegesture_p.h"

namespace NARV {

using INTERNAL::FingerPoints;

static constexpr double startVelocity = 1.0;
static constexpr double velocityKept = 0.9;

void SwipeGesturePrivate::begin(const QPointF &point, int fingerCount)
{
    velocity = startVelocity;
    timer.start();
    state = Started;
    touchPoints = fingerCount;
    startPoint = point;
    currentPoint = point;
}

void SwipeGesturePrivate::reach(const FingerPoints &start)
{
    state = PointsReached;
    remembered = start;
    startPoint = mean(start);
}

void SwipeGesturePrivate::measure(const QPointF &point, const QPointF &movement)
{
    currentPoint = point;
    const qint64 elapsed = timer.restart();
    velocity =
        velocityKept * velocity + INTERNAL::length(movement) / double(elapsed > 0 ? elapsed : 1);
}

bool SwipeGesturePrivate::accept(const QPointF &movement, const FingerPoints &fingers)
{
    remembered = fingers;
    const Direction vertical =
        INTERNAL::directionAlong(movement.y(), SwipeGesture::Up, SwipeGesture::Down);
    const Direction horizontal =
        INTERNAL::directionAlong(movement.x(), SwipeGesture::Left, SwipeGesture::Right);
    const bool turnedVertically = turn(verticalDirection, vertical, movement.y());
    const bool turnedHorizontally = turn(horizontalDirection, horizontal, movement.x());
    return !turnedVertically && !turnedHorizontally;
}

// Whether a direction that was set is another one now. Small wobbles do not count.
bool SwipeGesturePrivate::turn(Direction &direction, Direction to, qreal movement)
{
    const Direction before = direction;
    if (before != SwipeGesture::NoDirection && std::abs(movement) <= DirectionChangeThreshold)
        return false;
    direction = to;
    return before != SwipeGesture::NoDirection && before != to;
}

void SwipeGesturePrivate::reset()
{
    horizontalDirection = SwipeGesture::NoDirection;
    verticalDirection = SwipeGesture::NoDirection;
    remembered = FingerPoints();
    state = NoGesture;
    velocity = 0;
    startPoint = QPointF();
    currentPoint = QPointF();
    timer.invalidate();
}

} // namespace NARV
