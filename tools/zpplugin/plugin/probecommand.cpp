#include "plugin/probecommand.h"

#include "commandline.h"
#include "plugin/descriptionjson.h"
#include "plugin/inspection.h"
#include "plugin/pluginapplication.h"
#include "plugin/probereport.h"
#include "system.h"

#include <NARV/INTERNAL/PluginLoader>
#include <NARV/INTERNAL/PluginPlatform>
#include <NARV/INTERNAL/WidgetLibraryPluginData>
#include <NARV/LogHandler>

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QPluginLoader>

namespace ZPPluginTool {

using NARV::INTERNAL::PluginLoader;
using NARV::INTERNAL::WidgetLibraryPluginData;

//! How much longer than allowed the process lives if nobody ends it.
static const int patienceSeconds = 5;

//! Loads the plugin as a host does; null, and a log record, if that fails.
static const WidgetLibraryPluginData *load(PluginLoader &loader, const QString &path)
{
    const bool ok = QFileInfo(path).isDir() ? loader.loadFromPluginDir(path)
                                            : loader.loadFromPluginPath(path, {});
    return ok ? loader.pluginData().first()->toWidgetLibraryPluginData() : nullptr;
}

static void inspect(PluginLoader &loader, const WidgetLibraryPluginData &plugin,
                    ProbeReport &report)
{
    report.stage(QStringLiteral("running its load functions"));
    loader.init();
    report.stage(QStringLiteral("inspecting it"));
    report.value(QStringLiteral("registrations"), registrations(*plugin.instance()));
    report.value(QStringLiteral("translations"), translations(*plugin.metaInformation()));
}

static void probe(const QStringList &arguments, ProbeReport &report)
{
    PluginLoader loader;
    report.stage(QStringLiteral("loading"));
    const WidgetLibraryPluginData *plugin = load(loader, arguments[0]);
    if (!plugin)
        return;
    report.value(QStringLiteral("loadingTimeMs"), plugin->loadingTimeMs());
    report.value(QStringLiteral("description"),
                 descriptionToJson(*plugin->metaInformation(), arguments[1]));
    if (arguments.value(3) == QLatin1String("inspect"))
        inspect(loader, *plugin, report);
    report.stage(QStringLiteral("unloading"));
    loader.unload();
}

//! The path of the library that the loader loads.
static QString libraryPath(const QString &path)
{
    const QDir folder(path);
    const QString id = QDir(folder.absolutePath()).dirName();
    return folder.exists()
               ? NARV::INTERNAL::PluginPlatform::running().libraryPath(folder.absolutePath(), id)
               : QFileInfo(path).absoluteFilePath();
}

int runProbe(int argc, char **argv)
{
    ProbeReport report;
    const auto app = makePluginApplication(argc, argv);
    const QStringList arguments = QApplication::arguments().mid(2);
    if (arguments.size() < 3)
        return WrongUsage;
    limitThisProcess(arguments[2].toInt() + patienceSeconds);
    NARV::narvSetLogMessagePattern(QStringLiteral("%{MESSAGE}"));
    NARV::narvInstallLogMessageHandlerPrivate(&ProbeReport::log, &report);
    const QString path = libraryPath(arguments[0]);
    report.stage(QStringLiteral("reading its metadata"));
    report.value(QStringLiteral("libraryPath"), path);
    report.value(QStringLiteral("metaData"), QPluginLoader(path).metaData());
    probe(arguments, report);
    NARV::narvUninstallLogMessageHandlerPrivate();
    report.value(QStringLiteral("isFinished"), true);
    return Fine;
}

} // namespace ZPPluginTool
