#include "session/pluginprobe.h"

#include "probe/probeprocess.h"
#include "probe/probereport.h"
#include "session/widgetsample.h"

#include <NARV/INTERNAL/PluginLoader>
#include <NARV/INTERNAL/WidgetLibraryPluginData>

#include <algorithm>

namespace NARV::DEV {

using INTERNAL::PluginLoader;
using INTERNAL::WidgetLibraryPluginData;
using PROBE::ProbeReport;

static void examine(PluginLoader &loader, const WidgetLibraryPluginData &plugin,
                    const QStringList &, ProbeReport &report)
{
    report.stage(QStringLiteral("running its load functions"));
    loader.init();
    const auto &library = *plugin.metaInformation();
    for (const auto &description : library.widgets()) {
        report.stage(QStringLiteral("making the widget \"%1\" (%2)")
                         .arg(description.id(), description.version().version()));
        const WidgetSample sample(*plugin.instance(), library, description,
                                  library.defaultLanguage());
    }
    report.stage(QStringLiteral("running its unload functions"));
    loader.deinit();
}

bool isPluginProbe(int argc, char **argv)
{
    return std::any_of(argv, argv + argc, [](const char *argument) {
        return QLatin1String(argument) == PROBE::probeCommand;
    });
}

int runPluginProbe(int argc, char **argv)
{
    return PROBE::runProbe(argc, argv, examine);
}

} // namespace NARV::DEV
