#pragma once

#include <QPointF>

class QGestureEvent;
class QGraphicsObject;

namespace NARV {
class PanGesture;
}

//! A point on the screen, as gestures tell it, in the coordinates of an item that hears of them.
QPointF fromScreen(const QGraphicsObject *item, const QGestureEvent *event,
                   const QPointF &screenPoint);

//! Turns what a pan gesture tells, event by event, into movements within an item.
class PanFollower
{
public:
    //! How far the finger has moved since the last call, in the coordinates of the item.
    QPointF follow(const QGraphicsObject *item, const QGestureEvent *event,
                   const NARV::PanGesture *pan);
    //! The finger has been farther away from where it was put down than a press allows.
    bool isDrag() const { return m_isDrag; }

private:
    QPointF m_followed; //!< on the screen, since the gesture began
    bool m_isDrag = false;
};
