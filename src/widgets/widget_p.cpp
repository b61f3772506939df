#include "widget_p.h"

#include "constructormatch.h"
#include "event.h"
#include "eventdelivery_p.h"
#include "graphicsobject.h"
#include "graphicsobjectprivateaccessor.h"
#include "widget.h"
#include "widgetactionmanagerprivateaccessor.h"

#include <NARV/LogHandler>

#include <QPointer>
#include <QVector>
#include <QtNumeric>

namespace NARV {

using INTERNAL::EventDelivery;
using INTERNAL::GraphicsObjectPrivateAccessor;
using INTERNAL::WidgetActionManagerPrivateAccessor;

WidgetPrivate::WidgetPrivate(const WidgetData &data, Widget *publicWidget)
    : widget(publicWidget)
{
    data.copyTo(this);
}

WidgetPrivate::~WidgetPrivate() = default;

// Delivers to the widget and to the graphics objects that there are now, less those that are gone
// by the time their turn comes; stops when the widget itself is gone.
template<class E, class TellItem>
void WidgetPrivate::deliverToAll(E *event, void (Widget::*handler)(E *), TellItem tellItem) const
{
    const QPointer<const WidgetPrivate> alive(this);
    const QVector<QPointer<GraphicsObject>> items(graphicsObjects.cbegin(), graphicsObjects.cend());
    EventDelivery::deliver(widget, event, handler);
    for (const QPointer<GraphicsObject> &item : items) {
        if (!alive)
            return;
        if (item)
            tellItem(item.data());
    }
}

void WidgetPrivate::init()
{
    if (initialised)
        return;
    initialised = true;
    InitEvent event{InitEventData()};
    deliverToAll(&event, &Widget::initEvent, [this](GraphicsObject *item) {
        if (initialised)
            GraphicsObjectPrivateAccessor::priv(item)->init();
    });
}

void WidgetPrivate::deinit()
{
    if (!initialised)
        return;
    initialised = false;
    DeinitEvent event{DeinitEventData()};
    deliverToAll(&event, &Widget::deinitEvent, [this](GraphicsObject *item) {
        if (!initialised)
            GraphicsObjectPrivateAccessor::priv(item)->deinit();
    });
}

// Tells the author of a widget what is wrong with its use of a field; hosts other than the test
// bench do not want to know.
template<class... Items>
void WidgetPrivate::warn(const Items &...items) const
{
    if (!widgetActionManager ||
        !WidgetActionManagerPrivateAccessor::priv(widgetActionManager)->isInsideDevProject())
        return;
    Debug record = LogHandler(pluginId, nullptr, 0, nullptr, "NARV").warning();
    (record.debug() << ... << items);
}

QVariant WidgetPrivate::getFieldValue(const QString &fieldId, bool internal)
{
    if (internal)
        return fieldValues.value(fieldId);
    const auto field = fieldsInfo.constFind(fieldId);
    if (field == fieldsInfo.constEnd()) {
        warn("getFieldValue called with an invalid fieldId:", fieldId);
        return QVariant();
    }
    if (!field->getFieldValueIsEnabled()) {
        warn("getFieldValue can not be used for the field", fieldId);
        return QVariant();
    }
    return fieldValues.value(fieldId);
}

void WidgetPrivate::setFieldValue(const QString &fieldId, const QVariant &value, bool internal,
                                  bool sendEvent)
{
    const auto field = fieldsInfo.constFind(fieldId);
    if (field == fieldsInfo.constEnd())
        return warn("setFieldValue called with an invalid fieldId:", fieldId);
    if (!internal && !field->setFieldValueIsEnabled())
        return warn("setFieldValue can not be used for the field", fieldId);
    FieldIsChangedEventData change{fieldId, value, QVariant()};
    if (!field->convertToFieldType(change.value))
        return warn("setFieldValue called with wrong value for the field ", fieldId, ": value is ",
                    value);

    const QPointer<WidgetPrivate> alive(this);
    const bool changed = store(change);
    if (!internal)
        Q_EMIT fieldIsChanged(change.fieldId, change.value);
    if (!alive || !changed || !sendEvent)
        return;
    FieldIsChangedEvent event(change);
    deliverToAll(&event, &Widget::fieldIsChangedEvent, [&event](GraphicsObject *item) {
        EventDelivery::deliver(item, &event, &GraphicsObject::fieldIsChangedEvent);
    });
}

// Not-a-number counts as equal to itself: a handler that writes it back would never come to an end.
static bool isSame(const QVariant &a, const QVariant &b)
{
    const auto isNan = [](const QVariant &value) {
        return value.userType() == QMetaType::Double && qIsNaN(value.toDouble());
    };
    return a == b || (isNan(a) && isNan(b));
}

// Stores the new value and notes the old one. False if they are equal.
bool WidgetPrivate::store(FieldIsChangedEventData &change)
{
    const auto stored = fieldValues.find(change.fieldId);
    if (stored == fieldValues.end()) {
        fieldValues.insert(change.fieldId, change.value);
        return true;
    }
    if (isSame(*stored, change.value))
        return false;
    change.oldValue = *stored;
    *stored = change.value;
    return true;
}

void WidgetPrivate::alarmEvent(const AlarmInfo &alarmInfo) const
{
    AlarmStatusIsChangedEvent event(AlarmStatusIsChangedEventData{alarmInfo});
    deliverToAll(&event, &Widget::alarmStatusIsChangedEvent, [&event](GraphicsObject *item) {
        EventDelivery::deliver(item, &event, &GraphicsObject::alarmStatusIsChangedEvent);
    });
}

GraphicsObject *WidgetPrivate::newGraphicsObjectInstance()
{
    const GraphicsObjectData data(id, version, widget, widgetActionManager);
    const auto constructor =
        INTERNAL::ConstructorMatch::forGraphicsObject(graphicsObjectMetaObject);
    auto *item = qobject_cast<GraphicsObject *>(constructor.newInstance(&data));
    if (!item)
        return nullptr;
    graphicsObjects.append(item);
    connect(item, &QObject::destroyed, this, [this, item] { graphicsObjects.removeAll(item); });
    return item;
}

} // namespace NARV
