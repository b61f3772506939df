#include "galleryitem.h"

#include "drawing.h"

#include <NARV/WidgetActionManager>

#include <QPainter>
#include <QTimerEvent>

GalleryItem::GalleryItem(const NARV::GraphicsObjectData &data)
    : NARV::GraphicsObject(data)
{
}

void GalleryItem::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    const QRectF area = boundingRect();
    if (area.isEmpty())
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    draw(*painter, area);
    painter->restore();
}

void GalleryItem::initEvent(NARV::InitEvent *)
{
    m_isInitialised = true;
    updateBeat();
}

void GalleryItem::deinitEvent(NARV::DeinitEvent *)
{
    m_isInitialised = false;
    updateBeat();
}

void GalleryItem::fieldIsChangedEvent(NARV::FieldIsChangedEvent *)
{
    update();
    updateBeat();
}

QVariant GalleryItem::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemVisibleHasChanged || change == ItemSceneHasChanged)
        updateBeat();
    return NARV::GraphicsObject::itemChange(change, value);
}

bool GalleryItem::isAtRunTime() const
{
    return !widgetActionManager().isInsideProjectEditor();
}

int GalleryItem::beatPeriod()
{
    return 0;
}

void GalleryItem::beat()
{
    update();
}

void GalleryItem::updateBeat()
{
    const bool isSeen = m_isInitialised && isVisible() && scene();
    const int period = isSeen && isAtRunTime() ? beatPeriod() : 0;
    if (period == m_period)
        return;
    m_period = period;
    m_beats = 0;
    m_beat.stop();
    if (period > 0)
        m_beat.start(period, this);
}

void GalleryItem::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_beat.timerId())
        return NARV::GraphicsObject::timerEvent(event);
    ++m_beats;
    beat();
}

bool GalleryItem::flag(const char *fieldId)
{
    return value(fieldId).toBool();
}

int GalleryItem::integer(const char *fieldId)
{
    return value(fieldId).toInt();
}

double GalleryItem::number(const char *fieldId)
{
    return value(fieldId).toDouble();
}

QColor GalleryItem::color(const char *fieldId)
{
    return value(fieldId).value<QColor>();
}

QFont GalleryItem::font(const char *fieldId)
{
    return value(fieldId).value<QFont>();
}

QString GalleryItem::text(const char *fieldId)
{
    return value(fieldId).toString();
}

QStringList GalleryItem::texts(const char *fieldId)
{
    return value(fieldId).toStringList();
}

QMap<int, QString> GalleryItem::textMap(const char *fieldId)
{
    return value(fieldId).value<QMap<int, QString>>();
}

QFont GalleryItem::fontOf(const char *textFieldId)
{
    return font(QByteArray(textFieldId).append(".font").constData());
}

Qt::Alignment GalleryItem::horizontalAlignment()
{
    static constexpr Qt::Alignment alignments[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    return alignments[qBound(0, integer("horizontalAlignment"), 2)];
}

Qt::Alignment GalleryItem::verticalAlignment()
{
    static constexpr Qt::Alignment alignments[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
    return alignments[qBound(0, integer("verticalAlignment"), 2)];
}

QRectF GalleryItem::drawTitle(QPainter &painter, const QRectF &area)
{
    const QString title = text("title");
    if (title.isEmpty())
        return area;
    const QFont titleFont = fontOf("title");
    QRectF rest = area;
    const QRectF line = takeTop(rest, lineHeight(titleFont));
    drawFittedText(painter, line, Qt::AlignCenter, title, titleFont, color("titleColor"));
    return rest;
}

QRectF GalleryItem::drawBox(QPainter &painter, const QRectF &area)
{
    const qreal width = flag("showFrame") ? qMax(1, integer("frameWidth")) : 0;
    const QColor fill = flag("showBackground") ? color("backgroundColor") : QColor();
    drawPlate(painter, area, {fill, color("frameColor"), width, 0});
    return area.adjusted(width, width, -width, -width);
}
