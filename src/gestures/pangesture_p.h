#pragma once

#include <QPointF>

namespace NARV {

class PanGesturePrivate
{
public:
    //! Starts a drag. Points are pixels of the screen.
    void start(const QPointF &point, int fingerCount)
    {
        startPoint = point;
        lastOffset = QPointF();
        offset = QPointF();
        touchPoints = fingerCount;
    }
    void moveTo(const QPointF &newOffset)
    {
        lastOffset = offset;
        offset = newOffset;
    }

    QPointF startPoint;
    QPointF lastOffset;
    QPointF offset;
    int touchPoints;
};

} // namespace NARV
