#include "terminal/system.h"

#include <sys/ioctl.h>
#include <unistd.h>

namespace ZPPluginTool {

int terminalWidth(FILE *stream)
{
    if (!isatty(fileno(stream)))
        return 0;
    winsize size = {};
    if (ioctl(fileno(stream), TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
        return size.ws_col;
    return 80;
}

} // namespace ZPPluginTool
