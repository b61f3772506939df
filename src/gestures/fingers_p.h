#pragma once

#include "gesturegeometry_p.h"

#include <QTouchEvent>

#include <algorithm>

namespace NARV::INTERNAL {

using TouchPoints = QList<QTouchEvent::TouchPoint>;

//! A position of each of the first touch points, at most three:
//! fingers(points, &QTouchEvent::TouchPoint::screenPos).
inline FingerPoints fingers(const TouchPoints &touchPoints,
                            QPointF (QTouchEvent::TouchPoint::*position)() const,
                            int most = FingerPoints::most)
{
    FingerPoints found;
    found.count = std::min({touchPoints.size(), most, FingerPoints::most});
    for (int i = 0; i < found.count; ++i)
        found.points[size_t(i)] = (touchPoints.at(i).*position)();
    return found;
}

} // namespace NARV::INTERNAL
