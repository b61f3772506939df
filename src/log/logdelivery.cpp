#include "logdelivery_p.h"
#include "processpattern_p.h"

#include <NARV/LogHandler>

#include <QScopedValueRollback>

#include <atomic>

namespace NARV {

using Handler = void (*)(int, const QString &, const QString &, void *);

static std::atomic<Handler> installedHandler{nullptr};
static std::atomic<void *> installedUserData{nullptr};
static thread_local bool delivering = false;

void narvInstallLogMessageHandlerPrivate(Handler handler, void *userData)
{
    installedHandler.exchange(handler);
    installedUserData.exchange(userData);
}

void narvUninstallLogMessageHandlerPrivate()
{
    narvInstallLogMessageHandlerPrivate(nullptr, nullptr);
}

bool INTERNAL::isHeard() noexcept
{
    return installedHandler.load() && !delivering;
}

void INTERNAL::deliver(const LogRecord &record) noexcept
{
    if (record.text.isEmpty())
        return;
    void *const userData = installedUserData.load(); // first: a removal clears it last
    const Handler handler = installedHandler.load();
    if (!handler || delivering)
        return;
    try {
        const QScopedValueRollback<bool> guard(delivering, true);
        handler(record.type, record.source, formatted(record), userData);
    } catch (...) {
        // A record ends in a destructor: there is nobody to hand the exception to.
    }
}

} // namespace NARV
