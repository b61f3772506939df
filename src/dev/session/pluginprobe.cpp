#include "session/pluginprobe.h"

#include "probe/probeprocess.h"
#include "probe/probereport.h"

#include <NARV/GraphicsObject>
#include <NARV/INTERNAL/GraphicsObjectPrivateAccessor>
#include <NARV/INTERNAL/PluginLoader>
#include <NARV/INTERNAL/WidgetLibraryPluginData>
#include <NARV/INTERNAL/WidgetLibraryPluginPrivateAccessor>
#include <NARV/INTERNAL/WidgetPrivateAccessor>

#include <algorithm>

namespace NARV::DEV {

using INTERNAL::PluginLoader;
using INTERNAL::WidgetLibraryPluginData;
using INTERNAL::WidgetLibraryPluginMetaInformation;
using PROBE::ProbeReport;

//! Makes a widget as the page does, with its default values, and deletes it.
static void tryWidget(const WidgetLibraryPluginData &plugin,
                      const WidgetLibraryPluginMetaInformation::WidgetMetaInformation &description)
{
    const auto *maker = INTERNAL::WidgetLibraryPluginPrivateAccessor::priv(plugin.instance());
    const std::unique_ptr<Widget> widget(
        maker->newWidgetInstance(description.id(), description.version().version(),
                                 plugin.metaInformation()->id(), description.fieldInfo(), nullptr));
    if (!widget)
        return;
    WidgetPrivate *d = INTERNAL::WidgetPrivateAccessor::priv(widget.get());
    for (const auto &field : description.fields()) {
        if (!field.isMultiLanguageText())
            d->setFieldValue(field.id(), field.defaultValue(), true, false);
    }
    const std::unique_ptr<GraphicsObject> item(d->newGraphicsObjectInstance());
    if (item)
        INTERNAL::GraphicsObjectPrivateAccessor::priv(item.get())
            ->resize(description.defaultSize().isValid() ? description.defaultSize()
                                                         : QSizeF(100, 100));
    d->init();
    d->deinit();
}

static void examine(PluginLoader &loader, const WidgetLibraryPluginData &plugin,
                    const QStringList &, ProbeReport &report)
{
    report.stage(QStringLiteral("running its load functions"));
    loader.init();
    for (const auto &description : plugin.metaInformation()->widgets()) {
        report.stage(QStringLiteral("making the widget \"%1\" (%2)")
                         .arg(description.id(), description.version().version()));
        tryWidget(plugin, description);
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
