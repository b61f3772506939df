#include "event.h"

#include <QDebug>

#include <utility>

namespace NARV {

Event::Event(const EventData &data)
    : d_ptr(new EventData(data))
{
}

Event::~Event() = default;

Event::Type Event::type() const
{
    return Type(d_ptr->type);
}

InitEvent::InitEvent(const InitEventData &data)
    : Event(EventData{Event::InitEvent})
    , d_ptr(new InitEventData(data))
{
}

InitEvent::~InitEvent() = default;

DeinitEvent::DeinitEvent(const DeinitEventData &data)
    : Event(EventData{Event::DeinitEvent})
    , d_ptr(new DeinitEventData(data))
{
}

DeinitEvent::~DeinitEvent() = default;

ResizeEvent::ResizeEvent(const ResizeEventData &data)
    : Event(EventData{Event::Resize})
    , d_ptr(new ResizeEventData(data))
{
}

ResizeEvent::~ResizeEvent() = default;

const QSizeF &ResizeEvent::size() const
{
    return d_ptr->size;
}

const QSizeF &ResizeEvent::oldSize() const
{
    return d_ptr->oldSize;
}

FieldIsChangedEvent::FieldIsChangedEvent(const FieldIsChangedEventData &data)
    : Event(EventData{Event::FieldIsChanged})
    , d_ptr(new FieldIsChangedEventData(data))
{
}

FieldIsChangedEvent::FieldIsChangedEvent(FieldIsChangedEventData &&data)
    : Event(EventData{Event::FieldIsChanged})
    , d_ptr(new FieldIsChangedEventData(std::move(data)))
{
}

FieldIsChangedEvent::~FieldIsChangedEvent() = default;

const QString &FieldIsChangedEvent::fieldId() const
{
    return d_ptr->fieldId;
}

const QVariant &FieldIsChangedEvent::value() const
{
    return d_ptr->value;
}

const QVariant &FieldIsChangedEvent::oldValue() const
{
    return d_ptr->oldValue;
}

AlarmStatusIsChangedEvent::AlarmStatusIsChangedEvent(const AlarmStatusIsChangedEventData &data)
    : Event(EventData{Event::AlarmStatusIsChanged})
    , d_ptr(new AlarmStatusIsChangedEventData(data))
{
}

AlarmStatusIsChangedEvent::~AlarmStatusIsChangedEvent() = default;

const AlarmInfo &AlarmStatusIsChangedEvent::alarmInfo() const
{
    return d_ptr->alarmInfo;
}

QDebug operator<<(QDebug debug, const InitEvent *)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "NARV::InitEvent()";
    return debug;
}

QDebug operator<<(QDebug debug, const DeinitEvent *)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "NARV::DeinitEvent()";
    return debug;
}

QDebug operator<<(QDebug debug, const ResizeEvent *event)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "NARV::ResizeEvent(size=" << event->size().width() << ", "
                    << event->size().height() << ",oldSize=" << event->oldSize().width() << ", "
                    << event->oldSize().height() << ")";
    return debug;
}

QDebug operator<<(QDebug debug, const FieldIsChangedEvent *event)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "NARV::FieldIsChangedEvent(fieldId=" << event->fieldId()
                    << ",value=" << event->value() << ",oldValue=" << event->oldValue() << ")";
    return debug;
}

QDebug operator<<(QDebug debug, const AlarmStatusIsChangedEvent *event)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "NARV::AlarmStatusIsChangedEvent(alarmInfo=" << event->alarmInfo() << ")";
    return debug;
}

} // namespace NARV
