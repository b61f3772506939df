#pragma once

#include "commandline.h"

namespace ZPPluginTool {

extern const CommandHelp describeHelp;

//! Runs "zpplugin describe"; gives the code to end with.
int runDescribe(const QStringList &arguments);

} // namespace ZPPluginTool
