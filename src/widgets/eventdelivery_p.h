#pragma once

#include <QString>

namespace NARV {

class GraphicsObject;
class Widget;

namespace INTERNAL {

//! Hands an event to a widget or a graphics object.
class EventDelivery
{
public:
    //! Calls narvEvent() and, if that declines, the handler. Either may delete the receiver, which
    //! isAlive() tells. What they throw is logged and goes no further.
    template<class Receiver, class E, class IsAlive>
    static void deliver(Receiver *receiver, E *event, void (Receiver::*handler)(E *),
                        IsAlive isAlive)
    {
        try {
            if (!receiver->narvEvent(event) && isAlive())
                (receiver->*handler)(event);
        } catch (...) {
            logException(isAlive() ? sourceOf(*receiver) : QString());
        }
    }

    //! Logs what is being thrown under a plugin's id. To be called inside a catch (...) only.
    static void logException(const QString &pluginId);

private:
    static QString sourceOf(const Widget &widget);
    static QString sourceOf(const GraphicsObject &item);
};

} // namespace INTERNAL
} // namespace NARV
