#include "widgetlibraryplugin_p.h"

#include "widget.h"
#include "widgetactionmanager.h"
#include "widgetprivateaccessor.h"

namespace NARV {

void WidgetLibraryPluginPrivate::registerWidget(const QString &widgetId, const QString &version,
                                                const QMetaObject *widgetMetaObject,
                                                const QMetaObject *graphicsObjectMetaObject)
{
    m_registrations.insert({widgetId, version},
                           {widgetMetaObject, graphicsObjectMetaObject,
                            INTERNAL::ConstructorMatch::forWidget(widgetMetaObject),
                            WidgetData::VersionType(version)});
}

Widget *WidgetLibraryPluginPrivate::newWidgetInstance(
    const QString &widgetId, const QString &version, const QString &pluginId,
    const QMap<QString, FieldInfo> &fieldsInfo,
    INTERNAL::WidgetActionManagerImpl *actionManagerImpl) const
{
    const auto found = m_registrations.constFind({widgetId, version});
    if (found == m_registrations.constEnd())
        return nullptr;

    auto *actionManager = new WidgetActionManager(actionManagerImpl, nullptr);
    QScopedPointer<QObject> owner(actionManager);
    const WidgetData data(widgetId, found->parsedVersion, pluginId, fieldsInfo,
                          found->graphicsObjectMetaObject, actionManager);
    auto *widget = static_cast<Widget *>(found->widgetConstructor.newInstance(&data, pluginId));
    if (widget)
        INTERNAL::WidgetPrivateAccessor::priv(widget)->m_ownActionManager.swap(owner);
    return widget;
}

} // namespace NARV
