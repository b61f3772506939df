#include "graphicsobject.h"

#include "datarole.h"
#include "event.h"
#include "graphicsobject_p.h"
#include "widget.h"
#include "widgetactionmanager_p.h"
#include "widgetprivateaccessor.h"

#include <NARV/PanGestureRecognizer>
#include <NARV/PinchGestureRecognizer>
#include <NARV/SwipeGestureRecognizer>

#include <QPainterPath>

namespace NARV {

GraphicsObject::GraphicsObject(const GraphicsObjectData &data)
    : d_ptr(new GraphicsObjectPrivate(data, this))
{
    setAcceptTouchEvents(true);
}

// The widget is to forget the object before the toolkit takes its part of it down: that sends
// signals, on which events may follow. destroyed() comes too late.
GraphicsObject::~GraphicsObject()
{
    Q_D(GraphicsObject);
    if (d->owner)
        d->owner->forget(this);
}

const QString &GraphicsObject::id() const
{
    Q_D(const GraphicsObject);
    return d->id;
}

const QString &GraphicsObject::version() const
{
    Q_D(const GraphicsObject);
    return d->version.version();
}

unsigned int GraphicsObject::versionMajor() const
{
    Q_D(const GraphicsObject);
    return d->version.versionMajor();
}

unsigned int GraphicsObject::versionMinor() const
{
    Q_D(const GraphicsObject);
    return d->version.versionMinor();
}

unsigned int GraphicsObject::versionPatch() const
{
    Q_D(const GraphicsObject);
    return d->version.versionPatch();
}

const QSizeF &GraphicsObject::size() const
{
    Q_D(const GraphicsObject);
    return d->size;
}

Widget *GraphicsObject::widget() const
{
    Q_D(const GraphicsObject);
    return d->widget;
}

const WidgetActionManager &GraphicsObject::widgetActionManager() const
{
    Q_D(const GraphicsObject);
    return WidgetActionManagerPrivate::orUnbound(d->widgetActionManager);
}

GraphicsObject::Options GraphicsObject::options() const
{
    Q_D(const GraphicsObject);
    return d->options;
}

void GraphicsObject::setOption(OptionFlag option, bool on)
{
    Q_D(GraphicsObject);
    d->options.setFlag(option, on);
}

void GraphicsObject::setOptions(Options options)
{
    Q_D(GraphicsObject);
    d->options = options;
}

void GraphicsObject::setAcceptTouchAndMouseEvents(bool on)
{
    setFlag(QGraphicsItem::ItemIsSelectable, on);
    setFlag(QGraphicsItem::ItemIsFocusable, on);
    setAcceptTouchEvents(on);
}

Qt::GestureType GraphicsObject::pan1TouchGestureType()
{
    return PanGestureRecognizer::type(1);
}

Qt::GestureType GraphicsObject::pan2TouchesGestureType()
{
    return PanGestureRecognizer::type(2);
}

Qt::GestureType GraphicsObject::pan3TouchesGestureType()
{
    return PanGestureRecognizer::type(3);
}

Qt::GestureType GraphicsObject::swipe1TouchGestureType()
{
    return SwipeGestureRecognizer::type(1);
}

Qt::GestureType GraphicsObject::swipe2TouchesGestureType()
{
    return SwipeGestureRecognizer::type(2);
}

Qt::GestureType GraphicsObject::swipe3TouchesGestureType()
{
    return SwipeGestureRecognizer::type(3);
}

Qt::GestureType GraphicsObject::pinchGestureType()
{
    return PinchGestureRecognizer::type();
}

QRectF GraphicsObject::boundingRect() const
{
    Q_D(const GraphicsObject);
    return QRectF(QPointF(), d->size);
}

void GraphicsObject::advance(int phase)
{
    QGraphicsObject::advance(phase);
}

QPainterPath GraphicsObject::shape() const
{
    return QGraphicsObject::shape();
}

bool GraphicsObject::contains(const QPointF &point) const
{
    return QGraphicsObject::contains(point);
}

bool GraphicsObject::collidesWithItem(const QGraphicsItem *other, Qt::ItemSelectionMode mode) const
{
    return QGraphicsObject::collidesWithItem(other, mode);
}

bool GraphicsObject::collidesWithPath(const QPainterPath &path, Qt::ItemSelectionMode mode) const
{
    return QGraphicsObject::collidesWithPath(path, mode);
}

bool GraphicsObject::isObscuredBy(const QGraphicsItem *item) const
{
    return QGraphicsObject::isObscuredBy(item);
}

QPainterPath GraphicsObject::opaqueArea() const
{
    return QGraphicsObject::opaqueArea();
}

int GraphicsObject::type() const
{
    return QGraphicsObject::type();
}

bool GraphicsObject::narvEvent(Event *)
{
    return false;
}

void GraphicsObject::initEvent(InitEvent *) {}

void GraphicsObject::deinitEvent(DeinitEvent *) {}

void GraphicsObject::resizeEvent(ResizeEvent *) {}

void GraphicsObject::fieldIsChangedEvent(FieldIsChangedEvent *) {}

void GraphicsObject::alarmStatusIsChangedEvent(AlarmStatusIsChangedEvent *) {}

QVariant GraphicsObject::data(DataRole *role)
{
    Q_D(GraphicsObject);
    if (role->type() != DataRole::Icon || !d->widget)
        return QVariant();
    return QVariant::fromValue(d->widget->icon());
}

QVariant GraphicsObject::getFieldValue(const QString &fieldId)
{
    Q_D(GraphicsObject);
    return d->getFieldValue(fieldId, false);
}

void GraphicsObject::setFieldValue(const QString &fieldId, const QVariant &value)
{
    Q_D(GraphicsObject);
    d->setFieldValue(fieldId, value, false, true);
}

bool GraphicsObject::sceneEvent(QEvent *event)
{
    Q_D(GraphicsObject);
    if (d->options.testFlag(TouchToMouseEmulation) && d->emulateMouse(event))
        return true;
    return QGraphicsObject::sceneEvent(event);
}

bool GraphicsObject::sceneEventFilter(QGraphicsItem *watched, QEvent *event)
{
    return QGraphicsObject::sceneEventFilter(watched, event);
}

QVariant GraphicsObject::itemChange(GraphicsItemChange change, const QVariant &value)
{
    return QGraphicsObject::itemChange(change, value);
}

QVariant GraphicsObject::inputMethodQuery(Qt::InputMethodQuery query) const
{
    return QGraphicsObject::inputMethodQuery(query);
}

bool GraphicsObject::supportsExtension(Extension extension) const
{
    return QGraphicsObject::supportsExtension(extension);
}

void GraphicsObject::setExtension(Extension extension, const QVariant &variant)
{
    QGraphicsObject::setExtension(extension, variant);
}

QVariant GraphicsObject::extension(const QVariant &variant) const
{
    return QGraphicsObject::extension(variant);
}

} // namespace NARV
