#include "graphicsobject.h"

#include "datarole.h"
#include "event.h"
#include "graphicsobject_p.h"
#include "widget.h"
#include "widgetactionmanager_p.h"
#include "widgetprivateaccessor.h"

#include <QPainterPath>

namespace NARV {

namespace {

// The numbers that the toolkit gives the recognisers, which are registered in this order before
// any other.
enum GestureNumber
{
    Pan1Touch = Qt::CustomGesture + 1,
    Pan2Touches,
    Pan3Touches,
    Swipe1Touch,
    Swipe2Touches,
    Swipe3Touches,
    Pinch
};
static_assert(Pan1Touch == 257 && Pinch == 263, "hosts and plugins rely on these numbers");

} // namespace

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
    return Qt::GestureType(Pan1Touch);
}

Qt::GestureType GraphicsObject::pan2TouchesGestureType()
{
    return Qt::GestureType(Pan2Touches);
}

Qt::GestureType GraphicsObject::pan3TouchesGestureType()
{
    return Qt::GestureType(Pan3Touches);
}

Qt::GestureType GraphicsObject::swipe1TouchGestureType()
{
    return Qt::GestureType(Swipe1Touch);
}

Qt::GestureType GraphicsObject::swipe2TouchesGestureType()
{
    return Qt::GestureType(Swipe2Touches);
}

Qt::GestureType GraphicsObject::swipe3TouchesGestureType()
{
    return Qt::GestureType(Swipe3Touches);
}

Qt::GestureType GraphicsObject::pinchGestureType()
{
    return Qt::GestureType(Pinch);
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
