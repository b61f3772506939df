#include "terminal/system.h"

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

} // namespace ZPPluginTool
