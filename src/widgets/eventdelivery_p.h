#pragma once

#include <QPointer>

namespace NARV::INTERNAL {

//! Hands an event to a widget or a graphics object.
class EventDelivery
{
public:
    //! Calls narvEvent() and, if that declines, the handler. Either may delete the receiver.
    template<class Receiver, class E>
    static void deliver(Receiver *receiver, E *event, void (Receiver::*handler)(E *))
    {
        const QPointer<Receiver> alive(receiver);
        if (!receiver->narvEvent(event) && alive)
            (receiver->*handler)(event);
    }
};

} // namespace NARV::INTERNAL
