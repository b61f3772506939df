#pragma once

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
    double totalRotationAngle = 0;
    double lastRotationAngle = 0;
    double rotationAngle = 0;
    bool isNewSequence = true; //!< the next update with two fingers starts a new measurement
    QPointF startPositions[2];
};

} // namespace NARV
