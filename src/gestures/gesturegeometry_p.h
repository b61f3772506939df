#pragma once

#include <QLineF>
#include <QPointF>

#include <array>
#include <cmath>

namespace NARV::INTERNAL {

//! A point for each of up to three fingers: where they are, or how far they moved.
struct FingerPoints
{
    static constexpr int most = 3;

    std::array<QPointF, most> points;
    int count = 0;
};

//! Where the fingers are on average; (0, 0) without a finger.
inline QPointF mean(const FingerPoints &fingers)
{
    QPointF sum;
    for (int i = 0; i < fingers.count; ++i)
        sum += fingers.points[size_t(i)];
    return fingers.count > 0 ? sum / fingers.count : sum;
}

//! How far each finger moved; both have the same number of fingers.
inline FingerPoints operator-(const FingerPoints &to, const FingerPoints &from)
{
    FingerPoints moved = to;
    for (int i = 0; i < to.count; ++i)
        moved.points[size_t(i)] -= from.points[size_t(i)];
    return moved;
}

//! Whether a movement is longer than the limit along the x axis or along the y axis.
inline bool exceeds(const QPointF &movement, qreal limit)
{
    return std::abs(movement.x()) > limit || std::abs(movement.y()) > limit;
}

//! The length of a way.
inline qreal length(const QPointF &way)
{
    return std::sqrt(QPointF::dotProduct(way, way));
}

//! The angle of a line in degrees, above -180 and up to 180, counter-clockwise on the screen.
inline qreal signedAngle(const QLineF &line)
{
    const qreal angle = line.angle();
    return angle > 180 ? angle - 360 : angle;
}

//! Whether two fingers can come apart or together that much from one update to the next. A touch
//! panel leaps; no number, as of two lines of no length, is a leap too.
inline bool isPlausibleScale(qreal ratio)
{
    constexpr qreal least = 0.1;
    constexpr qreal greatest = 2.0;
    return ratio >= least && ratio <= greatest;
}

//! Direction along an axis; standing still counts as against it.
template<typename Direction>
Direction directionAlong(qreal movement, Direction against, Direction along)
{
    return movement > 0 ? along : against;
}

} // namespace NARV::INTERNAL
