#include "probe/process.h"

#include <csignal>
#include <cstdlib>
#include <memory>

#include <cxxabi.h>
#include <sys/resource.h>
#include <unistd.h>
#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif

// Sanitizers reserve more address space than any plugin should use.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
static constexpr bool isSanitized = true;
#else
static constexpr bool isSanitized = // where a compiler does not have this, Qt says 0
    __has_feature(address_sanitizer) || __has_feature(thread_sanitizer);
#endif

namespace NARV::PROBE {

FILE *takeStandardOutput()
{
    const int own = dup(STDOUT_FILENO);
    dup2(STDERR_FILENO, STDOUT_FILENO);
    return fdopen(own, "w");
}

template<typename Resource>
static void limit(Resource resource, rlim_t value)
{
    rlimit limits = {};
    if (getrlimit(resource, &limits) != 0)
        return;
    limits.rlim_cur = qMin(limits.rlim_max, value);
    setrlimit(resource, &limits);
}

void limitThisProcess(int seconds)
{
    limit(RLIMIT_CORE, 0);
    if (sizeof(void *) >= 8 && !isSanitized)
        limit(RLIMIT_AS, static_cast<rlim_t>(Q_UINT64_C(4) << 30));
#ifdef Q_OS_LINUX
    prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
    alarm(static_cast<unsigned>(seconds));
}

static const char *signalName(int signal)
{
    static const struct
    {
        int signal;
        const char *name;
    } names[] = {
        {SIGABRT, "SIGABRT"}, {SIGBUS, "SIGBUS"},   {SIGFPE, "SIGFPE"},   {SIGILL, "SIGILL"},
        {SIGKILL, "SIGKILL"}, {SIGPIPE, "SIGPIPE"}, {SIGSEGV, "SIGSEGV"}, {SIGSYS, "SIGSYS"},
        {SIGTERM, "SIGTERM"}, {SIGTRAP, "SIGTRAP"}, {SIGXCPU, "SIGXCPU"},
    };
    for (const auto &entry : names) {
        if (entry.signal == signal)
            return entry.name;
    }
    return "unknown";
}

QString crashText(int exitCode)
{
    return QStringLiteral("crashed with signal %1 (%2)")
        .arg(QString::number(exitCode), QLatin1String(signalName(exitCode)));
}

QString demangled(const QString &symbol)
{
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> text(
        abi::__cxa_demangle(symbol.toUtf8().constData(), nullptr, nullptr, &status), &std::free);
    return status == 0 ? QString::fromUtf8(text.get()) : symbol;
}

} // namespace NARV::PROBE
