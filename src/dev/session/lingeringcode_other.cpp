#include "session/lingeringcode.h"

namespace NARV::DEV {

void unloadButKeepMemory(const QString &, const std::function<void()> &unload)
{
    unload();
}

} // namespace NARV::DEV
