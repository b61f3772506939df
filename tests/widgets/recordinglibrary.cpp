#include "recordinglibrary.h"

using NARV::INTERNAL::WidgetPrivateAccessor;

void RecordingItem::noteMouse(const char *what, QGraphicsSceneMouseEvent *event)
{
    mouse.append(QStringLiteral("%1 %2/%3 at %4,%5 from %6,%7 scene %8 screen %9")
                     .arg(QLatin1String(what))
                     .arg(event->button())
                     .arg(event->buttons())
                     .arg(event->pos().x())
                     .arg(event->pos().y())
                     .arg(event->lastPos().x())
                     .arg(event->lastPos().y())
                     .arg(event->scenePos().x())
                     .arg(event->screenPos().x()));
    event->setAccepted(acceptsMouse);
    const auto hook = onMouse; // outlives the item
    hook();
}

RecordingLibrary::RecordingLibrary()
{
    NARV::registerWidget<RecordingWidget, RecordingItem>(this, QStringLiteral("gauge"),
                                                         QStringLiteral("1.0.0"));
}

NARV::WidgetLibraryPluginPrivate *RecordingLibrary::priv()
{
    return NARV::INTERNAL::WidgetLibraryPluginPrivateAccessor::priv(this);
}

RecordingWidget *RecordingLibrary::newGauge(RecordingHost *host)
{
    return qobject_cast<RecordingWidget *>(priv()->newWidgetInstance(
        QStringLiteral("gauge"), QStringLiteral("1.0.0"), QStringLiteral("lib"), fields(), host));
}

QMap<QString, RecordingLibrary::FieldInfo> RecordingLibrary::fields()
{
    using Type = NARV::INTERNAL::WidgetLibraryPluginMetaInformation::FieldType;
    const auto field = [](Type type, bool enabled = true) {
        return FieldInfo(enabled, enabled, false, type, QMetaType::UnknownType);
    };
    return {{QStringLiteral("level"), field(Type::Integer)},
            {QStringLiteral("secret"), field(Type::Integer, false)},
            {QStringLiteral("ratio"), field(Type::Double)},
            {QStringLiteral("texts"), field(Type::StringMap)}};
}

GaugeFixture::GaugeFixture(int itemCount)
    : widget(library.newGauge(&host))
{
    widget->name = QStringLiteral("w");
    widget->journal = &journal;
    for (int i = 0; i < itemCount; ++i)
        addItem();
}

GaugeFixture::~GaugeFixture()
{
    for (const QPointer<RecordingItem> &item : qAsConst(items))
        delete item;
    delete widget;
}

RecordingItem *GaugeFixture::addItem()
{
    auto *item = qobject_cast<RecordingItem *>(priv()->newGraphicsObjectInstance());
    item->journal = &journal;
    items.append(item);
    item->name = QString::number(items.size());
    return item;
}

QString GaugeFixture::heard()
{
    return QStringList(std::exchange(journal, {})).join(QLatin1Char(' '));
}
