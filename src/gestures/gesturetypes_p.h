#pragma once

#include <QGesture>

namespace NARV::INTERNAL {

// The numbers that the toolkit gives the recognisers, which are registered in this order before
// any other.
enum GestureNumber
{
    Pan1Touch = Qt::CustomGesture + 1,
    Swipe1Touch = Pan1Touch + 3,
    Pinch = Swipe1Touch + 3,
    UnsupportedGesture = 1256
};
static_assert(Pan1Touch == 257 && Pinch == 263, "hosts and plugins rely on these numbers");

//! The type of a gesture made with so many fingers; that with one finger has the number given.
constexpr Qt::GestureType gestureType(GestureNumber oneTouch, int touchPoints)
{
    const bool supported = touchPoints >= 1 && touchPoints <= 3;
    return Qt::GestureType(supported ? oneTouch + touchPoints - 1 : UnsupportedGesture);
}

//! The type of a gesture, which the toolkit fills in only when it makes one for an item.
inline Qt::GestureType gestureType(const QGesture &gesture, Qt::GestureType fixed)
{
    const Qt::GestureType given = gesture.gestureType();
    return given == Qt::CustomGesture ? fixed : given;
}

} // namespace NARV::INTERNAL
