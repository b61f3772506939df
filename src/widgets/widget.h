#pragma once

#include <NARV/WidgetData>

#include <QIcon>
#include <QObject>
#include <QScopedPointer>
#include <QVariant>

namespace NARV {

class AlarmStatusIsChangedEvent;
class DataRole;
class DeinitEvent;
class Event;
class FieldIsChangedEvent;
class GraphicsObject;
class InitEvent;
class WidgetActionManager;
class WidgetPrivate;

namespace INTERNAL {
class EventDelivery;
class WidgetPrivateAccessor;
} // namespace INTERNAL

//! One placed widget: its field values and its graphics objects. Base of a library's widgets.
//!
//! Made, driven and deleted by the host on its main thread. A widget does not own its graphics
//! objects. Before it deletes a widget, the host calls deinit() and deletes the graphics objects.
//!
//! Event handlers may write fields, make and delete graphics objects and end the widget's life as
//! initialised; an event goes to the graphics objects that there were when it was sent, less the
//! deleted ones. A write inside a handler sends its own event at once, so a receiver further down
//! the list hears of the later write first: ask getFieldValue() for the current value.
//! What a handler throws is logged and goes no further.
class ZPPLUGIN_EXPORT Widget : public QObject
{
    Q_OBJECT

public:
    //! A widget class declares: Q_INVOKABLE Gauge(const NARV::WidgetData &data);
    explicit Widget(const WidgetData &data);
    ~Widget() override;

    //! The widget id, as registered.
    const QString &id() const;
    //! The version as text, such as "1.2.0"; empty if it was registered under a text that is none.
    const QString &version() const;
    unsigned int versionMajor() const;
    unsigned int versionMinor() const;
    unsigned int versionPatch() const;
    //! In the order in which they were made. The host owns them.
    const QList<GraphicsObject *> &graphicsObjectsList() const;
    //! The way to the host's tags, trends and alarms; shared with the graphics objects.
    const WidgetActionManager &widgetActionManager() const;

    //! The widget's icon; in the base the library icon of the host, an empty icon if it set none.
    virtual QIcon icon();

    bool event(QEvent *event) override;

protected:
    //! Hears every event first; true when the event is dealt with, false to have the handler of its
    //! type called. An event lives for the duration of the call only.
    virtual bool narvEvent(Event *event);
    //! The host has set the initial field values.
    virtual void initEvent(InitEvent *event);
    virtual void deinitEvent(DeinitEvent *event);
    //! The value of a field has changed, also by this widget's own doing.
    virtual void fieldIsChangedEvent(FieldIsChangedEvent *event);
    //! Sent to widgets whose description asks for alarm events.
    virtual void alarmStatusIsChangedEvent(AlarmStatusIsChangedEvent *event);
    //! What the role asks for; the base answers Icon and gives an invalid value for others.
    virtual QVariant data(DataRole *role);

    //! The value of a field; invalid if it was never set, or the field does not exist or may not be
    //! read. A failure is logged inside the test bench only, here and in setFieldValue().
    QVariant getFieldValue(const QString &fieldId);
    //! Converts the value to the type of the field, stores it and tells the host. If the value
    //! differs from the stored one, the widget and then its graphics objects hear of it before this
    //! returns. Does nothing if the field does not exist or may not be set, or if the value does
    //! not convert.
    void setFieldValue(const QString &fieldId, const QVariant &value);

private:
    friend class INTERNAL::EventDelivery;
    friend class INTERNAL::WidgetPrivateAccessor;

    Q_DISABLE_COPY(Widget)
    Q_DECLARE_PRIVATE(Widget)
    const QScopedPointer<WidgetPrivate> d_ptr;
};

} // namespace NARV
