#include "probe/process.h"

#include <io.h>
#include <qt_windows.h>

namespace NARV::PROBE {

FILE *takeStandardOutput()
{
    const int own = _dup(_fileno(stdout));
    _dup2(_fileno(stderr), _fileno(stdout));
    return _fdopen(own, "wb");
}

void limitThisProcess(int)
{
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
}

QString crashText(int exitCode)
{
    return QStringLiteral("crashed with exception 0x%1").arg(static_cast<uint>(exitCode), 0, 16);
}

QString demangled(const QString &symbol)
{
    return symbol;
}

} // namespace NARV::PROBE
