#pragma once

#include <QObject>
#include <QPointF>
#include <QVector>

#include <zpplugin_dev_export.h>

class QMouseEvent;
class QPainter;
class QWidget;

namespace NARV::DEV {

//! Where the fingers of a simulated hand are while the mouse is at one point after it was pressed
//! at another.
//!
//! Without pinching the fingers lie side by side and move with the mouse. With pinching there are
//! two, opposite of each other about a centre near the pressed point, so that the mouse draws them
//! apart and turns them.
ZPPLUGIN_DEV_EXPORT QVector<QPointF> fingerPositions(int fingers, bool pinches,
                                                     const QPointF &pressed, const QPointF &mouse);

//! Makes touches of the mouse on a widget that accepts touch, such as the viewport of a view, and
//! shows the fingers as dots. Real touch passes as it comes.
class ZPPLUGIN_DEV_EXPORT TouchSimulator : public QObject
{
    Q_OBJECT

public:
    //! The target has to outlive the simulator.
    explicit TouchSimulator(QWidget &target);

    //! 0 leaves the mouse a mouse.
    void setFingers(int fingers);
    int fingers() const { return m_fingers; }
    void setEnabled(bool enabled);

    //! Draws the fingers, in the target's coordinates.
    void paint(QPainter &painter) const;

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void fingersMoved();

private:
    bool takeMouse(const QMouseEvent &mouse);
    void press(const QMouseEvent &event);
    void move(const QMouseEvent &event);
    void release(const QMouseEvent &event);
    void send(Qt::TouchPointState state, const QVector<QPointF> &positions);

    QWidget &m_target;
    int m_fingers = 0;
    bool m_isEnabled = false;
    bool m_pinches = false;
    QPointF m_pressed;
    QVector<QPointF> m_start;     //!< of each finger, in the target's coordinates
    QVector<QPointF> m_positions; //!< empty while no finger is down
};

} // namespace NARV::DEV
