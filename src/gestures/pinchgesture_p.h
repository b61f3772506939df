#pragma once

#include "gesturegeometry_p.h"
#include "pinchgesture.h"

namespace NARV {

//! A gesture as it is before it begins.
class PinchGesturePrivate
{
public:
    PinchGesture::ChangeFlags totalChangeFlags;
    PinchGesture::ChangeFlags changeFlags;
    QPointF startCenterPoint;
    QPointF lastCenterPoint;
    QPointF centerPoint;
    double totalScaleFactor = 1;
    double lastScaleFactor = 1;
    double scaleFactor = 1;
    bool isNewSequence = true; //!< the next update with two fingers starts a new measurement
    //! From the first to the second finger: where they went down, and in the updates before the
    //! latest and the latest. Angles are computed from them when they are asked for.
    QLineF startLine;
    QLineF lastLine;
    QLineF line;
    double earlierRotation = 0; //!< of the measurements before this one

    double rotation(const QLineF &to) const
    {
        return INTERNAL::signedAngle(startLine) - INTERNAL::signedAngle(to);
    }
    double totalRotation() const { return earlierRotation + rotation(line); }
};

} // namespace NARV
