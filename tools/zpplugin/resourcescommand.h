#pragma once

#include "commandline.h"

namespace ZPPluginTool {

extern const CommandHelp resourcesHelp;

//! Runs "zpplugin resources"; gives the code to end with. Needs a QApplication, since it runs the
//! plugins' code in this process.
int runResources(const QStringList &arguments);

} // namespace ZPPluginTool
