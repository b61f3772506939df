#pragma once

#include <zpplugin_dev_export.h>

namespace NARV::DEV {

//! Whether a program was called to try a plugin for a PluginSession: then it does nothing else than
//! to return what runPluginProbe() gives.
ZPPLUGIN_DEV_EXPORT bool isPluginProbe(int argc, char **argv);

//! Loads the plugin that the arguments name, makes one instance of each of its widgets and unloads
//! it; tells on standard output how far it got. Makes the application object itself.
ZPPLUGIN_DEV_EXPORT int runPluginProbe(int argc, char **argv);

} // namespace NARV::DEV
