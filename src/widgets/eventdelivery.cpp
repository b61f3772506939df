#include "eventdelivery_p.h"

#include "core/currentexception_p.h"
#include "graphicsobject.h"
#include "widget_p.h"
#include "widgetprivateaccessor.h"

#include <NARV/LogHandler>

namespace NARV::INTERNAL {

void EventDelivery::logException(const QString &pluginId)
{
    const QString text = currentExceptionText();
    LogHandler(pluginId, nullptr, 0, nullptr, "NARV").critical().debug().noquote() << text;
}

QString EventDelivery::sourceOf(const Widget &widget)
{
    return widget.d_func()->pluginId;
}

QString EventDelivery::sourceOf(const GraphicsObject &item)
{
    return item.widget() ? sourceOf(*item.widget()) : QString();
}

} // namespace NARV::INTERNAL
