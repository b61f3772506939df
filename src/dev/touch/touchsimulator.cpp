#include "touch/touchsimulator.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QTouchDevice>
#include <QTouchEvent>
#include <QWidget>

namespace NARV::DEV {

// In pixels of the target.
static const QPointF fingerDistance(36, 0);
static const QPointF pinchCentre(-40, 0); //!< from the pressed point
static const double dotRadius = 12;

static const Qt::KeyboardModifier pinchModifier = Qt::ControlModifier;

QVector<QPointF> fingerPositions(int fingers, bool pinches, const QPointF &pressed,
                                 const QPointF &mouse)
{
    if (pinches)
        return {mouse, 2 * (pressed + pinchCentre) - mouse};
    QVector<QPointF> positions;
    for (int i = 0; i < fingers; ++i)
        positions += mouse + i * fingerDistance;
    return positions;
}

TouchSimulator::TouchSimulator(QWidget &target)
    : m_target(target)
{
    target.installEventFilter(this);
}

void TouchSimulator::setFingers(int fingers)
{
    m_fingers = fingers;
}

void TouchSimulator::setEnabled(bool enabled)
{
    m_isEnabled = enabled;
}

bool TouchSimulator::eventFilter(QObject *, QEvent *event)
{
    if (!m_isEnabled || (m_fingers == 0 && m_positions.isEmpty()))
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        return takeMouse(*static_cast<QMouseEvent *>(event));
    default:
        return false;
    }
}

// What the toolkit makes of the touches that nobody took is no mouse of a person.
bool TouchSimulator::takeMouse(const QMouseEvent &mouse)
{
    if (mouse.type() == QEvent::MouseMove) {
        move(mouse);
        return !m_positions.isEmpty();
    }
    if (mouse.button() != Qt::LeftButton)
        return false;
    if (mouse.type() == QEvent::MouseButtonRelease) {
        const bool isTouching = !m_positions.isEmpty();
        if (isTouching)
            release(mouse);
        return isTouching;
    }
    if (mouse.source() != Qt::MouseEventNotSynthesized)
        return false;
    press(mouse);
    return true;
}

void TouchSimulator::press(const QMouseEvent &event)
{
    m_pinches = event.modifiers() & pinchModifier;
    m_pressed = event.localPos();
    m_start = fingerPositions(m_fingers, m_pinches, m_pressed, m_pressed);
    m_positions = m_start;
    send(Qt::TouchPointPressed, m_positions);
}

void TouchSimulator::move(const QMouseEvent &event)
{
    if (m_positions.isEmpty())
        return;
    send(Qt::TouchPointMoved,
         fingerPositions(m_start.size(), m_pinches, m_pressed, event.localPos()));
}

void TouchSimulator::release(const QMouseEvent &event)
{
    send(Qt::TouchPointReleased,
         fingerPositions(m_start.size(), m_pinches, m_pressed, event.localPos()));
    m_positions.clear();
    Q_EMIT fingersMoved();
}

//! A touch screen that only this program knows of; the toolkit keeps pointers to devices.
static QTouchDevice *simulatedScreen()
{
    static QTouchDevice *const device = [] {
        auto *screen = new QTouchDevice;
        screen->setName(QStringLiteral("simulated touch screen"));
        screen->setType(QTouchDevice::TouchScreen);
        screen->setMaximumTouchPoints(3);
        screen->setCapabilities(QTouchDevice::Position);
        return screen;
    }();
    return device;
}

void TouchSimulator::send(Qt::TouchPointState state, const QVector<QPointF> &positions)
{
    static const QHash<int, QEvent::Type> types = {{Qt::TouchPointPressed, QEvent::TouchBegin},
                                                   {Qt::TouchPointMoved, QEvent::TouchUpdate},
                                                   {Qt::TouchPointReleased, QEvent::TouchEnd}};
    const QPointF toScreen = m_target.mapToGlobal(QPoint());
    QList<QTouchEvent::TouchPoint> points;
    for (int i = 0; i < positions.size(); ++i) {
        QTouchEvent::TouchPoint point(i);
        point.setState(state);
        point.setPos(positions[i]);
        point.setStartPos(m_start[i]);
        point.setLastPos(m_positions[i]);
        point.setScenePos(positions[i]);
        point.setStartScenePos(m_start[i]);
        point.setLastScenePos(m_positions[i]);
        point.setScreenPos(positions[i] + toScreen);
        point.setStartScreenPos(m_start[i] + toScreen);
        point.setLastScreenPos(m_positions[i] + toScreen);
        points += point;
    }
    m_positions = positions;
    QTouchEvent event(types[state], simulatedScreen(), Qt::NoModifier, state, points);
    event.setTarget(&m_target);
    QCoreApplication::sendEvent(&m_target, &event);
    Q_EMIT fingersMoved();
}

void TouchSimulator::paint(QPainter &painter) const
{
    painter.setPen(QPen(QColor(255, 255, 255, 220), 2));
    painter.setBrush(QColor(0, 90, 200, 140));
    for (const QPointF &position : m_positions)
        painter.drawEllipse(position, dotRadius, dotRadius);
}

} // namespace NARV::DEV
