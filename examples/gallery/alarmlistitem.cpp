#include "alarmlistitem.h"

#include "alarmlist.h"
#include "drawing.h"

#include <QLocale>
#include <QPainter>

#include <iterator>

static constexpr qreal padding = 6;
static constexpr qreal widestButton = 180;
// Of time, state, severity, name and description, in parts of the row.
static constexpr qreal columnShares[] = {0.21, 0.25, 0.14, 0.12, 0.28};

AlarmListItem::AlarmListItem(const NARV::GraphicsObjectData &data)
    : GalleryItem(data)
{
}

void AlarmListItem::draw(QPainter &painter, const QRectF &area)
{
    drawTable(painter, drawButtons(painter, drawTitle(painter, area)));
}

QRectF AlarmListItem::drawButtons(QPainter &painter, const QRectF &area)
{
    static constexpr struct
    {
        const char *isAllowed;
        const char *caption;
    } buttons[] = {{"allowReset", "resetText"}, {"allowAcknowledge", "acknowledgeText"}};

    QRectF rest = area;
    QRectF bar;
    for (const auto &button : buttons) {
        if (!flag(button.isAllowed))
            continue;
        if (bar.isNull())
            bar = takeBottom(rest, integer("rowHeight") + padding).adjusted(0, padding, 0, 0);
        const QRectF place = takeRight(bar, qMin(widestButton, area.width() / 2 - padding));
        takeRight(bar, padding);
        drawPlate(painter, place, {color("buttonColor"), color("frameColor"), 1, 4});
        drawFittedText(painter, place.adjusted(padding, 0, -padding, 0), Qt::AlignCenter,
                       text(button.caption), fontOf(button.caption), color("textColor"));
    }
    return rest;
}

void AlarmListItem::drawTable(QPainter &painter, const QRectF &area)
{
    QRectF rest = area;
    const QRectF header = takeTop(rest, lineHeight(fontOf("columnTitles")) + padding);
    painter.fillRect(area, color("rowColor"));
    painter.fillRect(header, color("headerColor"));
    drawCells(painter, header, texts("columnTitles"), fontOf("columnTitles"),
              color("headerTextColor"));
    drawRows(painter, rest);
    drawPlate(painter, area, {{}, color("frameColor"), 1, 0});
}

void AlarmListItem::drawRows(QPainter &painter, const QRectF &area)
{
    const auto *list = qobject_cast<const AlarmList *>(widget());
    if (!list || list->rows().isEmpty()) {
        drawFittedText(painter, area, Qt::AlignCenter, text("emptyText"), fontOf("emptyText"),
                       color("textColor"));
        return;
    }
    painter.save();
    painter.setClipRect(area, Qt::IntersectClip);
    QRectF rest = area;
    for (int i = 0; i < list->rows().size() && !rest.isEmpty(); ++i)
        drawAlarm(painter, takeTop(rest, qMax(1, integer("rowHeight"))), list->rows().at(i),
                  color(i % 2 == 0 ? "rowColor" : "alternateRowColor"));
    painter.restore();
}

//! The colour, or another one if it is invalid.
static QColor either(const QColor &color, const QColor &other)
{
    return color.isValid() ? color : other;
}

void AlarmListItem::drawAlarm(QPainter &painter, const QRectF &row, const NARV::AlarmInfo &alarm,
                              const QColor &ground)
{
    painter.fillRect(row, either(alarm.currentBackgroundColor(), ground));
    drawCells(painter, row,
              {QLocale().toString(alarm.timestamp(), text("timeFormat")),
               textMap("stateNames").value(alarm.state()),
               textMap("severityNames").value(alarm.severity()), alarm.name(), alarm.description()},
              font("rowFont"), either(alarm.currentForegroundColor(), color("textColor")));
}

void AlarmListItem::drawCells(QPainter &painter, const QRectF &row, const QStringList &cells,
                              const QFont &cellFont, const QColor &ink)
{
    QRectF rest = row;
    for (int i = 0; i < int(std::size(columnShares)); ++i) {
        const QRectF cell = takeLeft(rest, row.width() * columnShares[i]);
        drawElidedText(painter, cell.adjusted(padding, 0, -padding, 0), cells.value(i), cellFont,
                       ink);
    }
}
