#include "recordinglibrary.h"

#include <QGraphicsSceneMouseEvent>

void RecordingItem::hearMouse(const char *what, QGraphicsSceneMouseEvent *event)
{
    const QString buttons = QStringLiteral(" %1/%2").arg(event->button()).arg(event->buttons());
    QString places;
    for (const QPointF &place :
         {event->pos(), event->lastPos(), event->scenePos(), event->lastScenePos(),
          QPointF(event->screenPos()), QPointF(event->lastScreenPos())})
        places += QStringLiteral(" %1,%2").arg(place.x()).arg(place.y());
    mouse.append(QLatin1String(what) + buttons + places);
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

QMap<QString, NARV::WidgetData::FieldInfo> RecordingLibrary::fields()
{
    using Type = NARV::INTERNAL::WidgetLibraryPluginMetaInformation::FieldType;
    const auto field = [](Type type, bool enabled = true) {
        return NARV::WidgetData::FieldInfo(enabled, enabled, false, type, QMetaType::UnknownType);
    };
    return {{QStringLiteral("level"), field(Type::Integer)},
            {QStringLiteral("secret"), field(Type::Integer, false)},
            {QStringLiteral("ratio"), field(Type::Double)},
            {QStringLiteral("texts"), field(Type::StringMap)},
            {QStringLiteral("picture"), field(Type::Image)}};
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
    qDeleteAll(items);
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

QString GaugeFixture::heard(const char *commonWord)
{
    const QString all = QStringList(std::exchange(journal, {})).join(QLatin1Char(' '));
    return QString(all).remove(QLatin1String(commonWord));
}
