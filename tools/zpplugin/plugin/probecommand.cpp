#include "plugin/probecommand.h"

#include "plugin/descriptionjson.h"
#include "plugin/inspection.h"
#include "probe/probeprocess.h"
#include "probe/probereport.h"

#include <NARV/INTERNAL/PluginLoader>
#include <NARV/INTERNAL/WidgetLibraryPluginData>

#include <QCoreApplication>

namespace ZPPluginTool {

using NARV::INTERNAL::PluginLoader;
using NARV::INTERNAL::WidgetLibraryPluginData;
using NARV::PROBE::ProbeReport;
using NARV::PROBE::ProbeResult;

static const QLatin1String inspectDetail("inspect");

static ProbeResult probe(const QString &path, int seconds, const QStringList &details)
{
    return NARV::PROBE::Probe({QCoreApplication::applicationFilePath(), {}, path, seconds, details})
        .run();
}

ProbeResult describePlugin(const QString &path, const QString &language, int seconds)
{
    return probe(path, seconds, {language});
}

ProbeResult inspectPlugin(const QString &path, const QString &language, int seconds)
{
    return probe(path, seconds, {language, inspectDetail});
}

static void examine(PluginLoader &loader, const WidgetLibraryPluginData &plugin,
                    const QStringList &details, ProbeReport &report)
{
    report.value(QStringLiteral("description"),
                 descriptionToJson(*plugin.metaInformation(), details.value(0)));
    if (!details.contains(inspectDetail))
        return;
    report.stage(QStringLiteral("running its load functions"));
    loader.init();
    report.stage(QStringLiteral("inspecting it"));
    report.value(QStringLiteral("registrations"), registrations(*plugin.instance()));
    report.value(QStringLiteral("translations"), translations(*plugin.metaInformation()));
}

int runPluginProbe(int argc, char **argv)
{
    return NARV::PROBE::runProbe(argc, argv, examine);
}

} // namespace ZPPluginTool
