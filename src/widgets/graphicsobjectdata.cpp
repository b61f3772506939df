#include "graphicsobjectdata.h"

#include "graphicsobject_p.h"

namespace NARV {

GraphicsObjectData::GraphicsObjectData(const QString &widgetId, const VersionType &widgetVersion,
                                       Widget *ownWidget, WidgetActionManager *actionManager)
    : id(widgetId)
    , version(widgetVersion)
    , widget(ownWidget)
    , widgetActionManager(actionManager)
{
}

void GraphicsObjectData::copyTo(GraphicsObjectPrivate *graphicsObject) const
{
    graphicsObject->id = id;
    graphicsObject->version = version;
    graphicsObject->widget = widget;
    graphicsObject->widgetActionManager = widgetActionManager;
}

} // namespace NARV
