#include "nullgraphicsobject.h"

#include "libraryicon_p.h"
#include "widget.h"
#include "widgetactionmanager.h"

#include <QPainter>
#include <QStyleOptionGraphicsItem>

namespace NARV {

NullGraphicsObject::NullGraphicsObject(const GraphicsObjectData &data)
    : GraphicsObject(data)
{
}

NullGraphicsObject::~NullGraphicsObject() = default;

static QIcon iconOf(Widget *widget)
{
    const QIcon icon = widget ? widget->icon() : QIcon();
    return icon.isNull() ? INTERNAL::LibraryIcon::icon() : icon;
}

void NullGraphicsObject::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *)
{
    if (!widgetActionManager().isInsideProjectEditor())
        return;
    painter->setClipRect(option->exposedRect);
    painter->setRenderHint(QPainter::Antialiasing);
    const QIcon icon = iconOf(widget());
    if (icon.isNull())
        return;
    const QPixmap pixmap = icon.pixmap(size().toSize(), QIcon::Normal, QIcon::On);
    painter->drawPixmap(boundingRect(), pixmap, QRectF(QPointF(), pixmap.size()));
}

} // namespace NARV
