#include "widgetdata.h"

#include "widget_p.h"

namespace NARV {

WidgetData::WidgetData(const QString &widgetId, const VersionType &widgetVersion,
                       const QString &widgetPluginId,
                       const QMap<QString, FieldInfo> &widgetFieldsInfo,
                       const QMetaObject *graphicsObjectClass, WidgetActionManager *actionManager)
    : id(widgetId)
    , version(widgetVersion)
    , pluginId(widgetPluginId)
    , fieldsInfo(widgetFieldsInfo)
    , graphicsObjectMetaObject(graphicsObjectClass)
    , widgetActionManager(actionManager)
{
}

void WidgetData::copyTo(WidgetPrivate *widget) const
{
    widget->id = id;
    widget->version = version;
    widget->pluginId = pluginId;
    widget->graphicsObjectMetaObject = graphicsObjectMetaObject;
    if (!widget->fieldsInfo.isSharedWith(fieldsInfo))
        widget->fieldsInfo = fieldsInfo;
    widget->widgetActionManager = widgetActionManager;
}

} // namespace NARV
