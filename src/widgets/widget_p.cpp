#include "widget_p.h"

#include "constructormatch.h"
#include "deliveryround_p.h"
#include "event.h"
#include "eventdelivery_p.h"
#include "fieldindex_p.h"
#include "graphicsobject.h"
#include "graphicsobjectprivateaccessor.h"
#include "widget.h"
#include "widgetactionmanagerprivateaccessor.h"

#include <NARV/LogHandler>

#include <QtNumeric>

#include <utility>

namespace NARV {

using INTERNAL::DeliveryRound;
using INTERNAL::EventDelivery;
using INTERNAL::FieldIndex;
using INTERNAL::GraphicsObjectPrivateAccessor;
using INTERNAL::WidgetActionManagerPrivateAccessor;

WidgetPrivate::WidgetPrivate(const WidgetData &data, Widget *publicWidget)
    : widget(publicWidget)
{
    data.copyTo(this);
}

WidgetPrivate::~WidgetPrivate()
{
    for (GraphicsObject *item : qAsConst(graphicsObjects))
        GraphicsObjectPrivateAccessor::priv(item)->owner = nullptr;
    if (m_round)
        m_round->forgetWidget();
}

// Delivers to the widget and to the graphics objects that there are now, less those that are gone
// by the time their turn comes; stops when the widget itself is gone.
template<class E, class TellItem>
void WidgetPrivate::deliverToAll(DeliveryRound &round, E *event, void (Widget::*handler)(E *),
                                 TellItem tellItem) const
{
    round.start();
    EventDelivery::deliver(widget, event, handler, [&round] { return round.isWidgetAlive(); });
    while (GraphicsObject *item = round.next())
        tellItem(item);
}

template<class E>
void WidgetPrivate::deliverToAll(DeliveryRound &round, E *event, void (Widget::*handler)(E *),
                                 void (GraphicsObject::*itemHandler)(E *)) const
{
    deliverToAll(round, event, handler, [&round, event, itemHandler](GraphicsObject *item) {
        EventDelivery::deliver(item, event, itemHandler, [&round] { return round.isItemAlive(); });
    });
}

void WidgetPrivate::init()
{
    if (initialised)
        return;
    initialised = true;
    InitEvent event{InitEventData()};
    DeliveryRound round(this);
    deliverToAll(round, &event, &Widget::initEvent, [this](GraphicsObject *item) {
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
    DeliveryRound round(this);
    deliverToAll(round, &event, &Widget::deinitEvent, [this](GraphicsObject *item) {
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
    const FieldIndex::Entry *field = fieldIndex().find(fieldId);
    if (!field) {
        warn("getFieldValue called with an invalid fieldId:", fieldId);
        return QVariant();
    }
    if (!field->info.getFieldValueIsEnabled()) {
        warn("getFieldValue can not be used for the field", fieldId);
        return QVariant();
    }
    return fieldValues.value(fieldId);
}

void WidgetPrivate::setFieldValue(const QString &fieldId, const QVariant &value, bool internal,
                                  bool sendEvent)
{
    const FieldIndex::Entry *field = fieldIndex().find(fieldId);
    if (!field)
        return warn("setFieldValue called with an invalid fieldId:", fieldId);
    if (!internal && !field->info.setFieldValueIsEnabled())
        return warn("setFieldValue can not be used for the field", fieldId);
    FieldIsChangedEventData change{QString(), value, QVariant()};
    if (!field->info.convertToFieldType(change.value))
        return warn("setFieldValue called with wrong value for the field ", fieldId, ": value is ",
                    value);

    if (!store(fieldId, field->position, change.value, change.oldValue) || !sendEvent) {
        if (!internal)
            Q_EMIT fieldIsChanged(fieldId, change.value);
        return;
    }
    change.fieldId = fieldId; // a copy: the caller's own may go with the signal
    FieldIsChangedEvent event(std::move(change));
    DeliveryRound round(this);
    if (!internal)
        Q_EMIT fieldIsChanged(event.fieldId(), event.value());
    if (round.isWidgetAlive())
        deliverToAll(round, &event, &Widget::fieldIsChangedEvent,
                     &GraphicsObject::fieldIsChangedEvent);
}

// Not-a-number counts as equal to itself: a handler that writes it back would never come to an end.
static bool isSame(const QVariant &a, const QVariant &b)
{
    const auto isNan = [](const QVariant &value) {
        return value.userType() == QMetaType::Double && qIsNaN(value.toDouble());
    };
    return a == b || (isNan(a) && isNan(b));
}

// Of the descriptions as they are now.
const FieldIndex &WidgetPrivate::fieldIndex()
{
    if (!m_fieldIndex || !m_fieldIndex->fields().isSharedWith(fieldsInfo)) {
        m_fieldIndex = std::make_shared<const FieldIndex>(fieldsInfo);
        m_stored.clear();
    }
    return *m_fieldIndex;
}

// Stores the value and gives the old one. False if they are equal.
bool WidgetPrivate::store(const QString &fieldId, int position, const QVariant &value,
                          QVariant &oldValue)
{
    if (m_stored.isEmpty() || !m_fieldValues.isDetached()) { // the entries have other places
        m_stored.fill(nullptr, m_fieldIndex->fields().size());
        m_fieldValues.detach();
    }
    QVariant *&stored = m_stored[position];
    if (!stored) {
        const int count = m_fieldValues.size();
        stored = &m_fieldValues[fieldId];
        if (count != m_fieldValues.size()) {
            *stored = value;
            return true;
        }
    }
    if (isSame(*stored, value))
        return false;
    oldValue = std::exchange(*stored, value);
    return true;
}

void WidgetPrivate::alarmEvent(const AlarmInfo &alarmInfo) const
{
    AlarmStatusIsChangedEvent event(AlarmStatusIsChangedEventData{alarmInfo});
    DeliveryRound round(this);
    deliverToAll(round, &event, &Widget::alarmStatusIsChangedEvent,
                 &GraphicsObject::alarmStatusIsChangedEvent);
}

GraphicsObject *WidgetPrivate::newGraphicsObjectInstance()
{
    const GraphicsObjectData data(id, version, widget, widgetActionManager);
    const auto constructor =
        INTERNAL::ConstructorMatch::forGraphicsObject(graphicsObjectMetaObject);
    auto *item = static_cast<GraphicsObject *>(constructor.newInstance(&data, pluginId));
    if (!item)
        return nullptr;
    graphicsObjects.append(item);
    GraphicsObjectPrivateAccessor::priv(item)->owner = this;
    return item;
}

void WidgetPrivate::forget(GraphicsObject *item)
{
    const int position = graphicsObjects.indexOf(item);
    if (position < 0)
        return;
    if (m_round)
        m_round->forgetItem(position);
    graphicsObjects.removeAt(position);
}

} // namespace NARV
