#pragma once

#include <QGraphicsItem>
#include <QHash>
#include <QObject>

class QGesture;

namespace NARV::DEV {

//! What a gesture said last, for people to read.
struct GestureReport
{
    QString name;    //!< such as "two-finger pan"
    QString state;   //!< "started", "updated", "finished" or "cancelled"
    QString values;  //!< such as "offset 12, 40"
    QPointF hotSpot; //!< where it happens, in scene units
};

//! An invisible item that sees the gestures on their way to other items and does not touch them.
class GestureMonitor : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)

public:
    //! Reports gestures for that item, which has to be in the same scene, under this name.
    void watch(QGraphicsItem *item, const QString &name);
    void forget(QGraphicsItem *item);

    QRectF boundingRect() const override { return {}; }
    void paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) override {}

Q_SIGNALS:
    //! A gesture has reached the widget of that name.
    void reported(const QString &widget, const NARV::DEV::GestureReport &report);

protected:
    bool sceneEventFilter(QGraphicsItem *watched, QEvent *event) override;

private:
    QHash<QGraphicsItem *, QString> m_names;
};

} // namespace NARV::DEV
