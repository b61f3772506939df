#include "probe/probeprocess.h"

#include "probe/pluginapplication.h"
#include "probe/probereport.h"
#include "probe/process.h"

#include <NARV/INTERNAL/PluginLoader>
#include <NARV/INTERNAL/PluginPlatform>
#include <NARV/INTERNAL/WidgetLibraryPluginData>
#include <NARV/LogHandler>

#include <QDir>
#include <QFileInfo>
#include <QPluginLoader>

namespace NARV::PROBE {

using INTERNAL::PluginLoader;
using INTERNAL::WidgetLibraryPluginData;

//! How much longer than allowed the process lives if nobody ends it.
static const int patienceSeconds = 5;
static const int wrongUsage = 2;

//! Loads the plugin as a host does; null, and a log record, if that fails.
static const WidgetLibraryPluginData *load(PluginLoader &loader, const QString &path)
{
    const bool ok = QFileInfo(path).isDir() ? loader.loadFromPluginDir(path)
                                            : loader.loadFromPluginPath(path, {});
    return ok ? loader.pluginData().first()->toWidgetLibraryPluginData() : nullptr;
}

static void probe(const QStringList &arguments, Examination examine, ProbeReport &report)
{
    PluginLoader loader;
    report.stage(QStringLiteral("loading"));
    const WidgetLibraryPluginData *plugin = load(loader, arguments[0]);
    if (!plugin)
        return;
    report.value(QStringLiteral("loadingTimeMs"), plugin->loadingTimeMs());
    examine(loader, *plugin, arguments.mid(2), report);
    report.stage(QStringLiteral("unloading"));
    loader.unload();
}

//! The path of the library that the loader loads.
static QString libraryPath(const QString &path)
{
    const QDir folder(path);
    const QString id = QDir(folder.absolutePath()).dirName();
    return folder.exists()
               ? INTERNAL::PluginPlatform::running().libraryPath(folder.absolutePath(), id)
               : QFileInfo(path).absoluteFilePath();
}

int runProbe(int argc, char **argv, Examination examine)
{
    ProbeReport report;
    const auto app = makePluginApplication(argc, argv);
    QStringList arguments = QApplication::arguments();
    arguments = arguments.mid(arguments.indexOf(probeCommand) + 1);
    if (arguments.size() < 2)
        return wrongUsage;
    limitThisProcess(arguments[1].toInt() + patienceSeconds);
    narvSetLogMessagePattern(QStringLiteral("%{MESSAGE}"));
    narvInstallLogMessageHandlerPrivate(&ProbeReport::log, &report);
    const QString path = libraryPath(arguments[0]);
    report.stage(QStringLiteral("reading its metadata"));
    report.value(QStringLiteral("libraryPath"), path);
    report.value(QStringLiteral("metaData"), QPluginLoader(path).metaData());
    probe(arguments, examine, report);
    narvUninstallLogMessageHandlerPrivate();
    report.value(QStringLiteral("isFinished"), true);
    return 0;
}

} // namespace NARV::PROBE
