#include "scene/gesturemonitor.h"

#include <NARV/PanGesture>
#include <NARV/PinchGesture>
#include <NARV/SwipeGesture>

#include <QGestureEvent>
#include <QGraphicsScene>

namespace NARV::DEV {

static QString point(const QPointF &point)
{
    return QStringLiteral("%1, %2").arg(point.x(), 0, 'f', 0).arg(point.y(), 0, 'f', 0);
}

static QString panValues(const QGesture &gesture)
{
    const auto &pan = static_cast<const NARV::PanGesture &>(gesture);
    return GestureMonitor::tr("offset %1").arg(point(pan.offset()));
}

static QString swipeValues(const QGesture &gesture)
{
    const auto &swipe = static_cast<const NARV::SwipeGesture &>(gesture);
    return GestureMonitor::tr("angle %1°, velocity %2")
        .arg(swipe.swipeAngle(), 0, 'f', 0)
        .arg(swipe.velocity(), 0, 'f', 2);
}

static QString pinchValues(const QGesture &gesture)
{
    const auto &pinch = static_cast<const NARV::PinchGesture &>(gesture);
    return GestureMonitor::tr("scale %1, rotation %2°")
        .arg(pinch.totalScaleFactor(), 0, 'f', 2)
        .arg(pinch.totalRotationAngle(), 0, 'f', 0);
}

namespace {

struct GestureKind
{
    Qt::GestureType type;
    const char *name;
    QString (*values)(const QGesture &);
};

} // namespace

static const GestureKind kinds[] = {
    {Qt::GestureType(257), QT_TRANSLATE_NOOP("NARV::DEV::GestureMonitor", "one-finger pan"),
     panValues},
    {Qt::GestureType(258), QT_TRANSLATE_NOOP("NARV::DEV::GestureMonitor", "two-finger pan"),
     panValues},
    {Qt::GestureType(259), QT_TRANSLATE_NOOP("NARV::DEV::GestureMonitor", "three-finger pan"),
     panValues},
    {Qt::GestureType(260), QT_TRANSLATE_NOOP("NARV::DEV::GestureMonitor", "one-finger swipe"),
     swipeValues},
    {Qt::GestureType(261), QT_TRANSLATE_NOOP("NARV::DEV::GestureMonitor", "two-finger swipe"),
     swipeValues},
    {Qt::GestureType(262), QT_TRANSLATE_NOOP("NARV::DEV::GestureMonitor", "three-finger swipe"),
     swipeValues},
    {Qt::GestureType(263), QT_TRANSLATE_NOOP("NARV::DEV::GestureMonitor", "pinch"), pinchValues},
};

//! In the order of Qt::GestureState.
static const char *const states[] = {
    "",
    QT_TRANSLATE_NOOP("NARV::DEV::GestureMonitor", "started"),
    QT_TRANSLATE_NOOP("NARV::DEV::GestureMonitor", "updated"),
    QT_TRANSLATE_NOOP("NARV::DEV::GestureMonitor", "finished"),
    QT_TRANSLATE_NOOP("NARV::DEV::GestureMonitor", "cancelled"),
};

static GestureReport report(const QGesture &gesture, const QGestureEvent &event)
{
    GestureReport report;
    report.name = GestureMonitor::tr("gesture %1").arg(gesture.gestureType());
    report.state = GestureMonitor::tr(states[gesture.state()]);
    report.hotSpot = event.mapToGraphicsScene(gesture.hotSpot());
    for (const GestureKind &kind : kinds) {
        if (kind.type != gesture.gestureType())
            continue;
        report.name = GestureMonitor::tr(kind.name);
        report.values = kind.values(gesture);
    }
    return report;
}

void GestureMonitor::watch(QGraphicsItem *item, const QString &name)
{
    m_names.insert(item, name);
    item->installSceneEventFilter(this);
}

void GestureMonitor::forget(QGraphicsItem *item)
{
    if (m_names.remove(item))
        item->removeSceneEventFilter(this);
}

bool GestureMonitor::sceneEventFilter(QGraphicsItem *watched, QEvent *event)
{
    if (event->type() == QEvent::Gesture) {
        const auto *gestures = static_cast<QGestureEvent *>(event);
        const QString name = m_names.value(watched);
        for (const QGesture *gesture : gestures->gestures())
            Q_EMIT reported(name, report(*gesture, *gestures));
    }
    return false;
}

} // namespace NARV::DEV
