#pragma once

#include <NARV/GraphicsObject>
#include <NARV/PanGesture>
#include <NARV/PinchGesture>
#include <NARV/SwipeGesture>

#include <QGestureEvent>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPointer>
#include <QTouchEvent>

#include <functional>

//! An item of 400 by 300 that follows gestures and notes the mouse.
class GestureItem : public NARV::GraphicsObject
{
    Q_OBJECT

public:
    GestureItem();

    void paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) override {}

    std::function<void(QGesture *, QGestureEvent *)> onGesture = [](auto *, auto *) {};
    QStringList mouse; //!< for example: press 10,20

protected:
    bool sceneEvent(QEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override { hear("press", event); }
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override { hear("move", event); }
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override { hear("release", event); }

private:
    bool gestureEvent(QGestureEvent *event);
    void hear(const char *what, QGraphicsSceneMouseEvent *event);
};

//! A view of 700 by 700, its middle the scene's (0, 0) and the item's top left corner, and the
//! fingers on it.
class GestureScene
{
public:
    GestureScene();

    //! Points are pixels of the view. Fingers go down one after the other, ...
    void press(const QVector<QPointF> &points);
    void moveTo(const QVector<QPointF> &points);
    void moveBy(const QPointF &offset);
    //! ... and up together.
    void release();
    //! Left button: press at the first point, moves, release at the last.
    void drag(const QVector<QPointF> &points);

    QPointF toScreen(const QPointF &point) const;

    QGraphicsScene scene;
    QGraphicsView view;
    QPointer<GestureItem> item;

private:
    void send(QEvent::Type type);
    void sendMouse(QEvent::Type type, const QPointF &point, Qt::MouseButton button);

    QList<QTouchEvent::TouchPoint> m_fingers;
};
