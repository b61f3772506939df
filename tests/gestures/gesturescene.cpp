#include "gesturescene.h"

#include <NARV/INTERNAL/GraphicsObjectPrivateAccessor>

#include <QCoreApplication>
#include <QGraphicsSceneMouseEvent>

using NARV::GraphicsObject;
using NARV::GraphicsObjectData;

GestureItem::GestureItem()
    : GraphicsObject(GraphicsObjectData(QStringLiteral("pad"),
                                        GraphicsObjectData::VersionType(1, 0, 0), nullptr, nullptr))
{
    NARV::INTERNAL::GraphicsObjectPrivateAccessor::priv(this)->resize({400, 300});
}

bool GestureItem::sceneEvent(QEvent *event)
{
    if (event->type() == QEvent::Gesture)
        return gestureEvent(static_cast<QGestureEvent *>(event));
    const bool handled = GraphicsObject::sceneEvent(event);
    return handled || event->type() == QEvent::TouchBegin; // the updates only come if taken
}

bool GestureItem::gestureEvent(QGestureEvent *event)
{
    for (QGesture *gesture : event->gestures())
        onGesture(gesture, event);
    return true;
}

void GestureItem::hear(const char *what, QGraphicsSceneMouseEvent *event)
{
    const QPoint pos = event->pos().toPoint();
    mouse += QStringLiteral("%1 %2,%3").arg(QLatin1String(what)).arg(pos.x()).arg(pos.y());
}

GestureScene::GestureScene()
    : scene(-350, -350, 700, 700)
    , view(&scene)
    , item(new GestureItem)
{
    scene.addItem(item);
    view.setFrameShape(QFrame::NoFrame);
    view.setGeometry(50, 30, 700, 700);
    view.show();
    QCoreApplication::processEvents();
}

void GestureScene::press(const QVector<QPointF> &points)
{
    for (const QPointF &point : points) {
        for (auto &finger : m_fingers)
            finger.setState(Qt::TouchPointStationary);
        QTouchEvent::TouchPoint finger(m_fingers.size());
        finger.setState(Qt::TouchPointPressed);
        finger.setPos(point);
        finger.setStartPos(point);
        finger.setScreenPos(toScreen(point));
        finger.setStartScreenPos(toScreen(point));
        m_fingers += finger;
        send(m_fingers.size() == 1 ? QEvent::TouchBegin : QEvent::TouchUpdate);
    }
}

void GestureScene::moveTo(const QVector<QPointF> &points)
{
    for (int i = 0; i < points.size(); ++i) {
        auto &finger = m_fingers[i];
        finger.setState(Qt::TouchPointMoved);
        finger.setPos(points[i]);
        finger.setScreenPos(toScreen(points[i]));
    }
    send(QEvent::TouchUpdate);
}

void GestureScene::moveBy(const QPointF &offset)
{
    QVector<QPointF> points;
    for (const auto &finger : qAsConst(m_fingers))
        points += finger.pos() + offset;
    moveTo(points);
}

void GestureScene::release()
{
    for (auto &finger : m_fingers)
        finger.setState(Qt::TouchPointReleased);
    send(QEvent::TouchEnd);
    m_fingers.clear();
}

void GestureScene::drag(const QVector<QPointF> &points)
{
    sendMouse(QEvent::MouseButtonPress, points.constFirst(), Qt::LeftButton);
    for (const QPointF &point : points)
        sendMouse(QEvent::MouseMove, point, Qt::NoButton);
    sendMouse(QEvent::MouseButtonRelease, points.constLast(), Qt::LeftButton);
}

QPointF GestureScene::toScreen(const QPointF &point) const
{
    return view.viewport()->mapToGlobal(point.toPoint());
}

void GestureScene::send(QEvent::Type type)
{
    static QTouchDevice device;
    Qt::TouchPointStates states;
    for (const auto &finger : qAsConst(m_fingers))
        states |= finger.state();
    QTouchEvent event(type, &device, Qt::NoModifier, states, m_fingers);
    event.setTarget(view.viewport());
    QCoreApplication::sendEvent(view.viewport(), &event);
    for (auto &finger : m_fingers) {
        finger.setLastPos(finger.pos());
        finger.setLastScreenPos(finger.screenPos());
    }
}

void GestureScene::sendMouse(QEvent::Type type, const QPointF &point, Qt::MouseButton button)
{
    const Qt::MouseButton down = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, point, toScreen(point), button, down, Qt::NoModifier);
    QCoreApplication::sendEvent(view.viewport(), &event);
}
