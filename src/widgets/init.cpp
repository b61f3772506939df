#include "init.h"

#include "libraryicon_p.h"

#include <NARV/LogHandler>
#include <NARV/PanGestureRecognizer>
#include <NARV/PinchGestureRecognizer>
#include <NARV/SwipeGestureRecognizer>

#include <QApplication>

#include <atomic>

namespace NARV::INTERNAL {

static void registerRecognizer(QGestureRecognizer *recognizer, Qt::GestureType fixed)
{
    const Qt::GestureType given = QGestureRecognizer::registerRecognizer(recognizer);
    if (given == fixed)
        return;
    const LogHandler log(QString(), __FILE__, __LINE__, __func__, "GENERAL");
    log.warning().debug().noquote()
        << QStringLiteral("Gesture type %1 is taken, the recogniser got %2: "
                          "other recognisers were registered before narvInit")
               .arg(fixed)
               .arg(given);
}

// In this order: the toolkit counts, and the numbers are fixed.
static void registerRecognizers()
{
    for (int touchPoints = 1; touchPoints <= 3; ++touchPoints)
        registerRecognizer(new PanGestureRecognizer(touchPoints),
                           PanGestureRecognizer::type(touchPoints));
    for (int touchPoints = 1; touchPoints <= 3; ++touchPoints)
        registerRecognizer(new SwipeGestureRecognizer(touchPoints),
                           SwipeGestureRecognizer::type(touchPoints));
    registerRecognizer(new PinchGestureRecognizer, PinchGestureRecognizer::type());
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
