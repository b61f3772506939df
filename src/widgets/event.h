#pragma once

#include <NARV/AlarmInfo>

#include <QObject>
#include <QScopedPointer>
#include <QSizeF>
#include <QString>
#include <QVariant>

class QDebug;

namespace NARV {

struct EventData;
struct InitEventData;
struct DeinitEventData;
struct ResizeEventData;
struct FieldIsChangedEventData;
struct AlarmStatusIsChangedEventData;

//! What the library tells a widget or a graphics object. Lives for one delivery: a receiver copies
//! what it wants to keep. All events print to QDebug through a pointer to them.
class ZPPLUGIN_EXPORT Event
{
    Q_GADGET

public:
    enum Type : quint16
    {
        InitEvent = 0,           //!< the widget is ready: initial values are set
        DeinitEvent = 1,         //!< the widget is about to go
        Resize = 2,              //!< the host has resized a graphics object
        FieldIsChanged = 3,      //!< the value of a field has changed
        AlarmStatusIsChanged = 4 //!< the status of one of the host's alarms has changed
    };
    Q_ENUM(Type)

    explicit Event(const EventData &data);
    virtual ~Event();

    Type type() const;

private:
    Q_DISABLE_COPY(Event)
    const QScopedPointer<const EventData> d_ptr;
};

class ZPPLUGIN_EXPORT InitEvent : public Event
{
public:
    explicit InitEvent(const InitEventData &data);
    ~InitEvent() override;

private:
    const QScopedPointer<const InitEventData> d_ptr;
};

class ZPPLUGIN_EXPORT DeinitEvent : public Event
{
public:
    explicit DeinitEvent(const DeinitEventData &data);
    ~DeinitEvent() override;

private:
    const QScopedPointer<const DeinitEventData> d_ptr;
};

class ZPPLUGIN_EXPORT ResizeEvent : public Event
{
public:
    explicit ResizeEvent(const ResizeEventData &data);
    ~ResizeEvent() override;

    const QSizeF &size() const;
    //! The size before; invalid (-1, -1) the first time.
    const QSizeF &oldSize() const;

private:
    const QScopedPointer<const ResizeEventData> d_ptr;
};

class ZPPLUGIN_EXPORT FieldIsChangedEvent : public Event
{
public:
    explicit FieldIsChangedEvent(const FieldIsChangedEventData &data);
    explicit FieldIsChangedEvent(FieldIsChangedEventData &&data);
    ~FieldIsChangedEvent() override;

    const QString &fieldId() const;
    //! The value as stored, of the type of the field.
    const QVariant &value() const;
    //! The value before; invalid the first time.
    const QVariant &oldValue() const;

private:
    const QScopedPointer<const FieldIsChangedEventData> d_ptr;
};

class ZPPLUGIN_EXPORT AlarmStatusIsChangedEvent : public Event
{
public:
    explicit AlarmStatusIsChangedEvent(const AlarmStatusIsChangedEventData &data);
    ~AlarmStatusIsChangedEvent() override;

    const AlarmInfo &alarmInfo() const;

private:
    const QScopedPointer<const AlarmStatusIsChangedEventData> d_ptr;
};

//! What each event is made from.
struct EventData
{
    quint16 type = Event::InitEvent;
};

struct InitEventData
{
};

struct DeinitEventData
{
};

struct ResizeEventData
{
    QSizeF size;
    QSizeF oldSize;
};

struct FieldIsChangedEventData
{
    QString fieldId;
    QVariant value;
    QVariant oldValue;
};

struct AlarmStatusIsChangedEventData
{
    AlarmInfo alarmInfo;
};

ZPPLUGIN_EXPORT QDebug operator<<(QDebug debug, const InitEvent *event);
ZPPLUGIN_EXPORT QDebug operator<<(QDebug debug, const DeinitEvent *event);
ZPPLUGIN_EXPORT QDebug operator<<(QDebug debug, const ResizeEvent *event);
ZPPLUGIN_EXPORT QDebug operator<<(QDebug debug, const FieldIsChangedEvent *event);
ZPPLUGIN_EXPORT QDebug operator<<(QDebug debug, const AlarmStatusIsChangedEvent *event);

} // namespace NARV
