#pragma once

#include <QLatin1String>
#include <QStringList>

namespace NARV::INTERNAL {
class PluginLoader;
class WidgetLibraryPluginData;
} // namespace NARV::INTERNAL

namespace NARV::PROBE {

class ProbeReport;

//! The argument that makes a program load a plugin for its parent, and do nothing else.
const QLatin1String probeCommand("probe-plugin");

//! What a program wants to know of a plugin that has just been loaded; unloading it is not its
//! task.
using Examination = void (*)(INTERNAL::PluginLoader &loader,
                             const INTERNAL::WidgetLibraryPluginData &plugin,
                             const QStringList &details, ProbeReport &report);

//! The program's main function when it was called with "probe-plugin FOLDER|LIBRARY SECONDS
//! [DETAILS...]", by a Probe. Reports on standard output what it finds.
int runProbe(int argc, char **argv, Examination examine);

} // namespace NARV::PROBE
