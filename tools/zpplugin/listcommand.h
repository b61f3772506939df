#pragma once

#include "commandline.h"

namespace ZPPluginTool {

extern const CommandHelp listHelp;

//! Runs "zpplugin list"; gives the code to end with.
int runList(const QStringList &arguments);

} // namespace ZPPluginTool
