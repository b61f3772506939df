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
    const WidgetData record(widgetId, WidgetData::VersionType(version), QString(), {},
                            graphicsObjectMetaObject, nullptr);
    m_registrations.insert_or_assign(
        {widgetId, version},
        Registration{widgetMetaObject, graphicsObjectMetaObject,
                     INTERNAL::ConstructorMatch::forWidget(widgetMetaObject), record, nullptr});
}

const WidgetLibraryPluginPrivate::Registration *
WidgetLibraryPluginPrivate::find(const QString &widgetId, const QString &version) const
{
    const auto *last = m_lastFound.entry;
    if (last && last->first.first == widgetId && last->first.second == version)
        return &last->second;
    const std::pair<const QString &, const QString &> key(widgetId, version);
    const auto found = m_registrations.find(key);
    if (found == m_registrations.cend())
        return nullptr;
    m_lastFound.entry = &*found;
    return &found->second;
}

Widget *WidgetLibraryPluginPrivate::newWidgetInstance(
    const QString &widgetId, const QString &version, const QString &pluginId,
    const QMap<QString, FieldInfo> &fieldsInfo,
    INTERNAL::WidgetActionManagerImpl *actionManagerImpl) const
{
    const Registration *found = find(widgetId, version);
    if (!found)
        return nullptr;
    const Registration &registration = *found;
    FieldIndex::update(registration.fieldIndex, fieldsInfo);
    if (!registration.record.widgetActionManager)
        return make(registration, registration.record, pluginId, actionManagerImpl);
    // The constructor of a widget makes another one of its class.
    WidgetData record = registration.record;
    return make(registration, record, pluginId, actionManagerImpl);
}

Widget *WidgetLibraryPluginPrivate::make(const Registration &registration, WidgetData &record,
                                         const QString &pluginId,
                                         INTERNAL::WidgetActionManagerImpl *actionManagerImpl)
{
    if (record.pluginId != pluginId)
        record.pluginId = pluginId;
    record.fieldsInfo = registration.fieldIndex->fields();
    auto *actionManager = new WidgetActionManager(actionManagerImpl, nullptr);
    QScopedPointer<QObject> owner(actionManager);
    record.widgetActionManager = actionManager;
    auto *widget =
        static_cast<Widget *>(registration.widgetConstructor.newInstance(&record, pluginId));
    record.widgetActionManager = nullptr;
    if (!widget)
        return nullptr;
    WidgetPrivate *priv = INTERNAL::WidgetPrivateAccessor::priv(widget);
    priv->m_ownActionManager.swap(owner);
    if (!priv->m_fieldIndex)
        priv->m_fieldIndex = registration.fieldIndex;
    return widget;
}

} // namespace NARV
