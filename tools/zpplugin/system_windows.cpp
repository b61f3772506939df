#include "system.h"

#include <fcntl.h>
#include <io.h>
#include <qt_windows.h>

namespace ZPPluginTool {

int terminalWidth(FILE *stream)
{
    const auto console = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
    CONSOLE_SCREEN_BUFFER_INFO info = {};
    if (!GetConsoleScreenBufferInfo(console, &info))
        return 0;
    SetConsoleOutputCP(CP_UTF8);
    SetConsoleMode(console, ENABLE_PROCESSED_OUTPUT | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
    return info.srWindow.Right - info.srWindow.Left + 1;
}

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

} // namespace ZPPluginTool
