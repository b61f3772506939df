#include "widgetlibraryplugin.h"

#include "nullgraphicsobject.h"
#include "widgetlibraryplugin_p.h"

namespace NARV {

WidgetLibraryPlugin::WidgetLibraryPlugin(QObject *parent)
    : Plugin(parent)
    , d_ptr(new WidgetLibraryPluginPrivate)
{
}

WidgetLibraryPlugin::~WidgetLibraryPlugin() = default;

bool WidgetLibraryPlugin::event(QEvent *event)
{
    return Plugin::event(event);
}

bool WidgetLibraryPlugin::narvEvent(Event *)
{
    return false;
}

void WidgetLibraryPlugin::registerWidget(const QString &widgetId, const QString &version,
                                         const QMetaObject *widgetMetaObject,
                                         const QMetaObject *graphicsObjectMetaObject)
{
    Q_D(WidgetLibraryPlugin);
    d->registerWidget(widgetId, version, widgetMetaObject, graphicsObjectMetaObject);
}

void WidgetLibraryPlugin::registerProjectWidget(const QString &widgetId, const QString &version,
                                                const QMetaObject *widgetMetaObject)
{
    registerWidget(widgetId, version, widgetMetaObject, &NullGraphicsObject::staticMetaObject);
}

void registerWidget(WidgetLibraryPlugin *plugin, const QString &widgetId, const QString &version,
                    const QMetaObject *widgetMetaObject,
                    const QMetaObject *graphicsObjectMetaObject)
{
    plugin->registerWidget(widgetId, version, widgetMetaObject, graphicsObjectMetaObject);
}

void registerProjectWidget(WidgetLibraryPlugin *plugin, const QString &widgetId,
                           const QString &version, const QMetaObject *widgetMetaObject)
{
    plugin->registerProjectWidget(widgetId, version, widgetMetaObject);
}

} // namespace NARV
