#pragma once

#include "probe/probe.h"

namespace ZPPluginTool {

//! Loads the plugin in a process of its own; finds out its "description" with the texts in that
//! language, as descriptionToJson() writes it.
NARV::PROBE::ProbeResult describePlugin(const QString &path, const QString &language, int seconds);
//! The same, and runs the plugin's load functions to see its "registrations" and "translations".
NARV::PROBE::ProbeResult inspectPlugin(const QString &path, const QString &language, int seconds);

//! What that process runs: the hidden sub-command.
int runPluginProbe(int argc, char **argv);

} // namespace ZPPluginTool
