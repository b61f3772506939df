#include "widgetlibraryplugin_p.h"

#include "fieldindex_p.h"
#include "widget.h"
#include "widgetactionmanager.h"
#include "widgetprivateaccessor.h"

namespace NARV {

using INTERNAL::FieldIndex;

void WidgetLibraryPluginPrivate::registerWidget(const QString &widgetId, const QString &version,
                                                const QMetaObject *widgetMetaObject,
                                                const QMetaObject *graphicsObjectMetaObject)
{
    m_registrations[{widgetId, version}] = {widgetMetaObject, graphicsObjectMetaObject,
                                            INTERNAL::ConstructorMatch::forWidget(widgetMetaObject),
                                            WidgetData::VersionType(version), nullptr};
}

Widget *WidgetLibraryPluginPrivate::newWidgetInstance(
    const QString &widgetId, const QString &version, const QString &pluginId,
    const QMap<QString, FieldInfo> &fieldsInfo,
    INTERNAL::WidgetActionManagerImpl *actionManagerImpl) const
{
    const std::pair<const QString &, const QString &> key(widgetId, version);
    const auto found = m_registrations.find(key);
    if (found == m_registrations.cend())
        return nullptr;

    const Registration &registration = found->second;
    FieldIndex::update(registration.fieldIndex, fieldsInfo);
    auto fieldIndex = registration.fieldIndex;
    auto *actionManager = new WidgetActionManager(actionManagerImpl, nullptr);
    QScopedPointer<QObject> owner(actionManager);
    const WidgetData data(widgetId, registration.parsedVersion, pluginId, fieldIndex->fields(),
                          registration.graphicsObjectMetaObject, actionManager);
    auto *widget =
        static_cast<Widget *>(registration.widgetConstructor.newInstance(&data, pluginId));
    if (!widget)
        return nullptr;
    WidgetPrivate *priv = INTERNAL::WidgetPrivateAccessor::priv(widget);
    priv->m_ownActionManager.swap(owner);
    if (!priv->m_fieldIndex)
        priv->m_fieldIndex = std::move(fieldIndex);
    return widget;
}

} // namespace NARV
