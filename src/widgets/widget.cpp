#include "widget.h"

#include "datarole.h"
#include "event.h"
#include "libraryicon_p.h"
#include "widget_p.h"
#include "widgetactionmanager_p.h"

namespace NARV {

Widget::Widget(const WidgetData &data)
    : d_ptr(new WidgetPrivate(data, this))
{
}

Widget::~Widget() = default;

const QString &Widget::id() const
{
    Q_D(const Widget);
    return d->id;
}

const QString &Widget::version() const
{
    Q_D(const Widget);
    return d->version.version();
}

unsigned int Widget::versionMajor() const
{
    Q_D(const Widget);
    return d->version.versionMajor();
}

unsigned int Widget::versionMinor() const
{
    Q_D(const Widget);
    return d->version.versionMinor();
}

unsigned int Widget::versionPatch() const
{
    Q_D(const Widget);
    return d->version.versionPatch();
}

const QList<GraphicsObject *> &Widget::graphicsObjectsList() const
{
    Q_D(const Widget);
    return d->graphicsObjects;
}

const WidgetActionManager &Widget::widgetActionManager() const
{
    Q_D(const Widget);
    return WidgetActionManagerPrivate::orUnbound(d->widgetActionManager);
}

QIcon Widget::icon()
{
    return INTERNAL::LibraryIcon::icon();
}

bool Widget::event(QEvent *event)
{
    return QObject::event(event);
}

bool Widget::narvEvent(Event *)
{
    return false;
}

void Widget::initEvent(InitEvent *) {}

void Widget::deinitEvent(DeinitEvent *) {}

void Widget::fieldIsChangedEvent(FieldIsChangedEvent *) {}

void Widget::alarmStatusIsChangedEvent(AlarmStatusIsChangedEvent *) {}

QVariant Widget::data(DataRole *role)
{
    if (role->type() != DataRole::Icon)
        return QVariant();
    return QVariant::fromValue(icon());
}

QVariant Widget::getFieldValue(const QString &fieldId)
{
    Q_D(Widget);
    return d->getFieldValue(fieldId, false);
}

void Widget::setFieldValue(const QString &fieldId, const QVariant &value)
{
    Q_D(Widget);
    d->setFieldValue(fieldId, value, false, true);
}

} // namespace NARV
