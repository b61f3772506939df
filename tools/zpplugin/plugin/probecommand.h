#pragma once

#include <QLatin1String>

namespace ZPPluginTool {

//! The name of the hidden sub-command that loads a plugin in a process of its own.
const QLatin1String probeCommand("probe-plugin");

//! Runs that sub-command: "probe-plugin FOLDER|LIBRARY LANGUAGE SECONDS [inspect]". Reports on
//! standard output what it finds, with the texts in that language; with "inspect" also what the
//! plugin's code does.
int runProbe(int argc, char **argv);

} // namespace ZPPluginTool
