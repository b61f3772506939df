#include "init.h"

#include "libraryicon_p.h"

#include <NARV/LogHandler>
#include <NARV/PanGestureRecognizer>
#include <NARV/PinchGestureRecognizer>
#include <NARV/SwipeGestureRecognizer>

#include <QApplication>

#include <atomic>

namespace NARV::INTERNAL {

static bool registerRecognizer(QGestureRecognizer *recognizer, Qt::GestureType fixed)
{
    return QGestureRecognizer::registerRecognizer(recognizer) == fixed;
}

// In this order: the toolkit counts, and the numbers are fixed.
static void registerRecognizers()
{
    bool asFixed = true;
    for (int touchPoints = 1; touchPoints <= 3; ++touchPoints)
        asFixed &= registerRecognizer(new PanGestureRecognizer(touchPoints),
                                      PanGestureRecognizer::type(touchPoints));
    for (int touchPoints = 1; touchPoints <= 3; ++touchPoints)
        asFixed &= registerRecognizer(new SwipeGestureRecognizer(touchPoints),
                                      SwipeGestureRecognizer::type(touchPoints));
    asFixed &= registerRecognizer(new PinchGestureRecognizer, PinchGestureRecognizer::type());
    if (asFixed)
        return;
    const LogHandler log(QString(), __FILE__, __LINE__, __func__, "GENERAL");
    log.warning().debug() << "Gesture recognisers were registered before narvInit: the library's "
                             "gestures do not get their fixed types, 257 to 263";
}

void narvInit(const QIcon &libraryIcon)
{
    static std::atomic<bool> registered{false};
    LibraryIcon::keep(libraryIcon);
    if (!qobject_cast<QApplication *>(QCoreApplication::instance()) || registered.exchange(true))
        return;
    registerRecognizers();
}

} // namespace NARV::INTERNAL
