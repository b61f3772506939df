#pragma once

#include <zpplugin_export.h>

#include <QGestureRecognizer>
#include <QPointF>

class QGraphicsSceneMouseEvent;
class QTouchEvent;

namespace NARV {

class PanGesture;

//! Recognises a PanGesture with exactly one, two or three fingers on a QGraphicsObject. Owned by
//! the toolkit once registered.
class ZPPLUGIN_EXPORT PanGestureRecognizer : public QGestureRecognizer
{
public:
    //! For 1, 2 or 3 fingers.
    explicit PanGestureRecognizer(int touchPoints);
    ~PanGestureRecognizer() override;

    //! A PanGesture, which the caller owns.
    QGesture *create(QObject *target) override;
    Result recognize(QGesture *gesture, QObject *watched, QEvent *event) override;

    //! The gesture type for 1, 2 or 3 fingers; 1256, which nobody registers, for another number.
    static Qt::GestureType type(int touchPoints);

private:
    Result doubleClick() const;
    Result mousePress(PanGesture *pan, const QGraphicsSceneMouseEvent *event) const;
    Result mouseMove(PanGesture *pan, const QGraphicsSceneMouseEvent *event) const;
    Result mouseRelease(PanGesture *pan, const QGraphicsSceneMouseEvent *event) const;
    Result touchBegin(PanGesture *pan, const QTouchEvent *event) const;
    Result touchUpdate(PanGesture *pan, const QTouchEvent *event) const;
    Result touchEnd(PanGesture *pan, const QTouchEvent *event) const;
    bool followsMouse(const PanGesture *pan) const;
    QPointF averageOffset(const QTouchEvent *event) const;

    const int m_touchPoints;
};

} // namespace NARV
