#include "graphicsobject_p.h"

#include "event.h"
#include "eventdelivery_p.h"
#include "widgetprivateaccessor.h"

#include <QGraphicsSceneMouseEvent>
#include <QTouchEvent>
#include <QWidget>
#include <QtNumeric>

#include <algorithm>

namespace NARV {

using INTERNAL::EventDelivery;
using INTERNAL::WidgetPrivateAccessor;

GraphicsObjectPrivate::GraphicsObjectPrivate(const GraphicsObjectData &data,
                                             GraphicsObject *publicObject)
    : graphicsObject(publicObject)
{
    data.copyTo(this);
}

static auto isAlive(GraphicsObject *object)
{
    return [alive = QPointer<GraphicsObject>(object)] { return !alive.isNull(); };
}

void GraphicsObjectPrivate::init()
{
    if (initialised)
        return;
    initialised = true;
    InitEvent event{InitEventData()};
    EventDelivery::deliver(graphicsObject, &event, &GraphicsObject::initEvent,
                           isAlive(graphicsObject));
}

void GraphicsObjectPrivate::deinit()
{
    if (!initialised)
        return;
    initialised = false;
    DeinitEvent event{DeinitEventData()};
    EventDelivery::deliver(graphicsObject, &event, &GraphicsObject::deinitEvent,
                           isAlive(graphicsObject));
}

void GraphicsObjectPrivate::resize(const QSizeF &newSize)
{
    // The scene would look for such an item for ever.
    if (!qIsFinite(newSize.width()) || !qIsFinite(newSize.height()))
        return;
    if (qFuzzyCompare(newSize.width(), size.width()) &&
        qFuzzyCompare(newSize.height(), size.height()))
        return;
    ResizeEvent event(ResizeEventData{newSize, size});
    graphicsObject->prepareGeometryChange();
    size = newSize;
    graphicsObject->update();
    EventDelivery::deliver(graphicsObject, &event, &GraphicsObject::resizeEvent,
                           isAlive(graphicsObject));
}

QVariant GraphicsObjectPrivate::getFieldValue(const QString &fieldId, bool internal) const
{
    if (!widget)
        return QVariant();
    return WidgetPrivateAccessor::priv(widget)->getFieldValue(fieldId, internal);
}

// NOLINTNEXTLINE(readability-make-member-function-const): it changes the widget
void GraphicsObjectPrivate::setFieldValue(const QString &fieldId, const QVariant &value,
                                          bool internal, bool sendEvent)
{
    if (widget)
        WidgetPrivateAccessor::priv(widget)->setFieldValue(fieldId, value, internal, sendEvent);
}

// What a touch event is turned into.
struct GraphicsObjectPrivate::MouseStep
{
    QEvent::Type touch;
    QEvent::Type mouse;
    Qt::MouseButton button;
    Qt::MouseButtons buttons;
    void (QGraphicsItem::*handler)(QGraphicsSceneMouseEvent *);
};

const GraphicsObjectPrivate::MouseStep *GraphicsObjectPrivate::mouseStep(QEvent::Type touch)
{
    static const MouseStep steps[] = {
        {QEvent::TouchBegin, QEvent::GraphicsSceneMousePress, Qt::LeftButton, Qt::LeftButton,
         &GraphicsObject::mousePressEvent},
        {QEvent::TouchUpdate, QEvent::GraphicsSceneMouseMove, Qt::NoButton, Qt::LeftButton,
         &GraphicsObject::mouseMoveEvent},
        {QEvent::TouchEnd, QEvent::GraphicsSceneMouseRelease, Qt::LeftButton, Qt::NoButton,
         &GraphicsObject::mouseReleaseEvent},
    };
    const auto found = std::find_if(std::begin(steps), std::end(steps),
                                    [touch](const MouseStep &step) { return step.touch == touch; });
    return found == std::end(steps) ? nullptr : found;
}

bool GraphicsObjectPrivate::emulateMouse(QEvent *event)
{
    if (event->type() == QEvent::GraphicsSceneMousePress)
        return swallowMousePress(event);
    if (event->type() == QEvent::TouchCancel)
        touchPointId = noTouchPoint; // there is no end of it
    const MouseStep *step = mouseStep(event->type());
    if (!step)
        return false;
    auto *touch = static_cast<QTouchEvent *>(event);
    if (touch->touchPoints().isEmpty())
        return false;
    if (step->touch == QEvent::TouchBegin && touch->touchPoints().constFirst().id() == touchPointId)
        return true;
    sendMouseEvent(*step, touch);
    return true;
}

// The system makes a mouse press of a touch, too.
bool GraphicsObjectPrivate::swallowMousePress(QEvent *event) const
{
    if (touchPointId == noTouchPoint || !event->spontaneous())
        return false;
    event->ignore();
    return true;
}

void GraphicsObjectPrivate::sendMouseEvent(const MouseStep &step, QTouchEvent *touch)
{
    const QTouchEvent::TouchPoint &point = touch->touchPoints().constFirst();
    QGraphicsSceneMouseEvent mouse(step.mouse);
    mouse.setButton(step.button);
    mouse.setButtons(step.buttons);
    mouse.setScenePos(point.scenePos());
    mouse.setScreenPos(point.screenPos().toPoint());
    mouse.setPos(point.pos());
    mouse.setLastScenePos(point.lastScenePos());
    mouse.setLastScreenPos(point.lastScreenPos().toPoint());
    mouse.setLastPos(point.lastPos());
    mouse.setWidget(qobject_cast<QWidget *>(touch->target()));
    // Before the handler: it may delete the object, or run an event loop in which touches go on.
    if (step.touch == QEvent::TouchBegin)
        touchPointId = point.id();
    else if (step.touch == QEvent::TouchEnd)
        touchPointId = noTouchPoint;
    QGraphicsItem *item = graphicsObject;
    (item->*step.handler)(&mouse);
    touch->setAccepted(mouse.isAccepted());
}

} // namespace NARV
