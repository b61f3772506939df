#pragma once

#include "commandline.h"

namespace ZPPluginTool {

extern const CommandHelp checkHelp;
int runCheck(const QStringList &arguments);

} // namespace ZPPluginTool
