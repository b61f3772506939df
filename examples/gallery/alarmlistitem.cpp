#include "alarmlistitem.h"

#include "alarmlist.h"
#include "confirmation.h"
#include "drawing.h"

#include <NARV/PanGesture>
#include <NARV/WidgetActionManager>

#include <QGestureEvent>
#include <QGraphicsSceneWheelEvent>
#include <QLocale>
#include <QPainter>

#include <algorithm>
#include <iterator>
#include <numeric>

static constexpr qreal padding = 6;
static constexpr qreal widestButton = 180;
static constexpr qreal markWidth = 6;
static constexpr qreal scrollBarWidth = 4;
static constexpr int blinkPeriod = 500;     // in milliseconds
static constexpr int pressedDarkness = 118; // in percent
static constexpr qreal idleOpacity = 0.45;
static constexpr int columnCount = 5;          // time, state, severity, name and description
static constexpr qreal nameShare = 0.12;       // of the row
static constexpr qreal descriptionShare = 0.2; // of the row, at least

enum Part
{
    Acknowledge,
    Reset,
    No, // as in Confirmation
    Yes,
    FirstOfRows // and from there on two a row, as the next two
};
enum RowPart
{
    AcknowledgeRow,
    ResetRow,
    PartsOfRow
};

AlarmListItem::AlarmListItem(const NARV::GraphicsObjectData &data)
    : TouchItem(data)
{
    if (isAtRunTime())
        grabGesture(pan1TouchGestureType());
    if (const AlarmList *alarms = list())
        connect(alarms, &AlarmList::rowsChanged, this, &AlarmListItem::rowsHaveChanged);
}

AlarmList *AlarmListItem::list() const
{
    return qobject_cast<AlarmList *>(widget());
}

void AlarmListItem::rowsHaveChanged()
{
    scroll(0);
    updateBeat();
    update();
}

qreal AlarmListItem::rowHeight()
{
    return qMax(1, integer("rowHeight"));
}

AlarmListItem::Layout AlarmListItem::layout()
{
    Layout places;
    QRectF rest = boundingRect();
    if (!text("title").isEmpty())
        places.title = takeTop(rest, lineHeight(fontOf("title")));
    if (flag("allowAcknowledge") || flag("allowReset")) {
        places.bar = takeBottom(rest, rowHeight() + padding).adjusted(0, padding, 0, 0);
        QRectF bar = places.bar;
        const qreal width = qMin(widestButton, (bar.width() - padding) / 2);
        if (flag("allowReset"))
            places.reset = takeRight(bar, width);
        takeRight(bar, padding);
        if (flag("allowAcknowledge"))
            places.acknowledge = takeRight(bar, width);
    }
    places.header = takeTop(rest, lineHeight(fontOf("columnTitles")) + padding);
    places.rows = rest;
    return places;
}

QRectF AlarmListItem::row(const Layout &places, int index)
{
    const qreal height = rowHeight();
    return {places.rows.left(), places.rows.top() + index * height - m_scroll, places.rows.width(),
            height};
}

qreal AlarmListItem::actionsWidth()
{
    const int count = int(flag("allowAcknowledge")) + int(flag("allowReset"));
    return count * qMin(rowHeight(), boundingRect().width() / 10);
}

QRectF AlarmListItem::acknowledgeButton(const QRectF &row, const NARV::AlarmInfo &alarm)
{
    if (!flag("allowAcknowledge") || !AlarmList::canAcknowledge(alarm))
        return {};
    QRectF actions = row;
    actions = takeRight(actions, actionsWidth());
    return takeLeft(actions, actions.width() / (flag("allowReset") ? 2 : 1)).adjusted(2, 2, -2, -2);
}

QRectF AlarmListItem::resetButton(const QRectF &row, const NARV::AlarmInfo &alarm)
{
    if (!flag("allowReset") || !AlarmList::canReset(alarm))
        return {};
    QRectF actions = row;
    return takeRight(actions, actionsWidth() / (flag("allowAcknowledge") ? 2 : 1))
        .adjusted(2, 2, -2, -2);
}

QVector<QRectF> AlarmListItem::parts()
{
    const Layout places = layout();
    if (m_isAsking)
        return QVector<QRectF>(2) + Confirmation(places.bar).parts();
    QVector<QRectF> all{places.acknowledge, places.reset, {}, {}};
    const AlarmList *alarms = list();
    for (int i = 0; alarms && i < alarms->rows().size(); ++i) {
        const QRectF place = row(places, i);
        const NARV::AlarmInfo &alarm = alarms->rows()[i];
        all.append(acknowledgeButton(place, alarm) & places.rows);
        all.append(resetButton(place, alarm) & places.rows);
    }
    return all;
}

void AlarmListItem::partReleased(int part, bool isOver)
{
    AlarmList *alarms = list();
    if (!isOver || !alarms)
        return;
    if (m_isAsking) {
        m_isAsking = false;
        if (part == Yes)
            alarms->acknowledgeAll();
    } else if (part == Acknowledge) {
        acknowledgeAll();
    } else if (part == Reset) {
        alarms->resetAll();
    } else {
        const int index = part - FirstOfRows;
        const QString name = alarms->rows().value(index / PartsOfRow).name();
        if (index % PartsOfRow == AcknowledgeRow)
            widgetActionManager().acknowAlarm(name);
        else
            widgetActionManager().resetAlarm(name);
    }
}

void AlarmListItem::acknowledgeAll()
{
    const QVector<NARV::AlarmInfo> &rows = list()->rows();
    if (std::none_of(rows.begin(), rows.end(), AlarmList::canAcknowledge))
        return;
    m_isAsking = flag("confirmAcknowledgeAll");
    if (!m_isAsking)
        list()->acknowledgeAll();
}

// A question that stays open when the page is left would surprise whoever comes next.
void AlarmListItem::deinitEvent(NARV::DeinitEvent *event)
{
    m_isAsking = false;
    TouchItem::deinitEvent(event);
}

void AlarmListItem::fieldIsChangedEvent(NARV::FieldIsChangedEvent *event)
{
    TouchItem::fieldIsChangedEvent(event);
    m_isAsking = m_isAsking && flag("allowAcknowledge");
    scroll(0);
}

qreal AlarmListItem::scrollRange(const Layout &places)
{
    const int count = list() ? list()->rows().size() : 0;
    return qMax(0.0, count * rowHeight() - places.rows.height());
}

void AlarmListItem::scroll(qreal distance)
{
    const qreal scrolled = qBound(0.0, m_scroll + distance, scrollRange(layout()));
    if (scrolled == m_scroll)
        return;
    m_scroll = scrolled;
    update();
}

void AlarmListItem::wheelEvent(QGraphicsSceneWheelEvent *event)
{
    if (!isAtRunTime())
        return TouchItem::wheelEvent(event);
    static constexpr qreal notch = 120; // as wheels turn
    scroll(-event->delta() / notch * rowHeight());
    event->accept();
}

void AlarmListItem::follow(QGestureEvent *event)
{
    auto *pan = static_cast<NARV::PanGesture *>(event->gesture(pan1TouchGestureType()));
    if (!pan)
        return;
    scroll(-m_pan.follow(this, event, pan).y());
    if (m_pan.isDrag())
        cancelPress();
}

bool AlarmListItem::sceneEvent(QEvent *event)
{
    if (event->type() != QEvent::Gesture)
        return TouchItem::sceneEvent(event);
    follow(static_cast<QGestureEvent *>(event));
    return true;
}

int AlarmListItem::beatPeriod()
{
    const auto blinks = [](const NARV::AlarmInfo &alarm) {
        return alarm.blinkEnabled() && AlarmList::canAcknowledge(alarm);
    };
    const AlarmList *alarms = list();
    return alarms && std::any_of(alarms->rows().begin(), alarms->rows().end(), blinks) ? blinkPeriod
                                                                                       : 0;
}

void AlarmListItem::draw(QPainter &painter, const QRectF &area)
{
    const Layout places = layout();
    drawTitle(painter, area);
    drawButtons(painter, places);
    const QRectF table = places.header | places.rows;
    painter.fillRect(table, color("rowColor"));
    painter.fillRect(places.header, color("headerColor"));
    drawCells(painter, places.header, texts("columnTitles"),
              QVector<QFont>(columnCount, fontOf("columnTitles")), color("headerTextColor"));
    drawRows(painter, places);
    drawPlate(painter, table, {{}, color("frameColor"), 1, 0});
}

void AlarmListItem::drawButtons(QPainter &painter, const Layout &places)
{
    const ControlColors colors{color("buttonColor"), color("textColor"), color("frameColor")};
    if (m_isAsking) {
        Confirmation(places.bar)
            .draw(painter, text("confirmText"), fontOf("confirmText"), colors, pressedPart() - No);
        return;
    }
    if (!places.acknowledge.isEmpty())
        drawButton(painter, places.acknowledge, "acknowledgeText", Acknowledge);
    if (!places.reset.isEmpty())
        drawButton(painter, places.reset, "resetText", Reset);
}

void AlarmListItem::drawButton(QPainter &painter, const QRectF &area, const char *caption, int part)
{
    const auto isConcerned = part == Acknowledge ? AlarmList::canAcknowledge : AlarmList::canReset;
    const QVector<NARV::AlarmInfo> rows = list() ? list()->rows() : QVector<NARV::AlarmInfo>();
    const QColor plate = color("buttonColor");
    painter.save();
    if (std::none_of(rows.begin(), rows.end(), isConcerned))
        painter.setOpacity(painter.opacity() * idleOpacity);
    drawPlate(
        painter, area,
        {pressedPart() == part ? plate.darker(pressedDarkness) : plate, color("frameColor"), 1, 4});
    drawFittedText(painter, area.adjusted(padding, 0, -padding, 0), Qt::AlignCenter, text(caption),
                   fontOf(caption), color("textColor"));
    painter.restore();
}

void AlarmListItem::drawRows(QPainter &painter, const Layout &places)
{
    const AlarmList *alarms = list();
    if (!alarms || alarms->rows().isEmpty()) {
        drawFittedText(painter, places.rows, Qt::AlignCenter, text("emptyText"),
                       fontOf("emptyText"), color("textColor"));
        return;
    }
    painter.save();
    painter.setClipRect(places.rows, Qt::IntersectClip);
    const int first = int(m_scroll / rowHeight());
    for (int i = first; i < alarms->rows().size(); ++i) {
        const QRectF place = row(places, i);
        if (place.top() >= places.rows.bottom())
            break;
        drawAlarm(painter, place, alarms->rows()[i], i);
    }
    drawScrollBar(painter, places);
    painter.restore();
}

void AlarmListItem::drawScrollBar(QPainter &painter, const Layout &places)
{
    const qreal range = scrollRange(places);
    if (range <= 0)
        return;
    const qreal visible = places.rows.height();
    const qreal length = visible * visible / (visible + range);
    const QRectF handle(places.rows.right() - scrollBarWidth - 1,
                        places.rows.top() + m_scroll / range * (visible - length), scrollBarWidth,
                        length);
    drawPlate(painter, handle, {color("frameColor"), {}, 0, scrollBarWidth / 2});
}

//! The colour, or another one if it is invalid.
static QColor either(const QColor &color, const QColor &other)
{
    return color.isValid() ? color : other;
}

void AlarmListItem::drawAlarm(QPainter &painter, const QRectF &row, const NARV::AlarmInfo &alarm,
                              int index)
{
    const QColor ground = either(alarm.currentBackgroundColor(),
                                 color(index % 2 == 0 ? "rowColor" : "alternateRowColor"));
    painter.fillRect(row, ground);
    QFont named = font("rowFont");
    named.setBold(named.bold() || AlarmList::canAcknowledge(alarm));
    drawMark(painter, row, alarm);
    drawCells(
        painter, row,
        {QLocale().toString(alarm.timestamp(), text("timeFormat")),
         textMap("stateNames").value(alarm.state()),
         textMap("severityNames").value(alarm.severity()), alarm.name(), alarm.description()},
        {font("rowFont"), fontOf("stateNames"), fontOf("severityNames"), named, font("rowFont")},
        legible(either(alarm.currentForegroundColor(), color("textColor")), ground));
    drawActions(painter, row, alarm, index);
}

void AlarmListItem::drawMark(QPainter &painter, const QRectF &row, const NARV::AlarmInfo &alarm)
{
    const bool isOff = alarm.blinkEnabled() && AlarmList::canAcknowledge(alarm) && beats() % 2 == 1;
    const QColor mark(textMap("severityColors").value(alarm.severity()));
    QRectF rest = row;
    if (mark.isValid() && !isOff)
        painter.fillRect(takeLeft(rest, markWidth).adjusted(1, 1, 0, -1), mark);
}

void AlarmListItem::drawActions(QPainter &painter, const QRectF &row, const NARV::AlarmInfo &alarm,
                                int index)
{
    const ControlColors colors{color("buttonColor"), color("textColor"), color("frameColor")};
    const int pressed = pressedPart() - FirstOfRows - index * PartsOfRow;
    const QRectF acknowledge = acknowledgeButton(row, alarm);
    if (!acknowledge.isEmpty())
        drawSymbolButton(painter, acknowledge, Symbol::Accept, pressed == AcknowledgeRow, colors);
    const QRectF reset = resetButton(row, alarm);
    if (!reset.isEmpty())
        drawSymbolButton(painter, reset, Symbol::Restart, pressed == ResetRow, colors);
}

//! The width for any of the texts.
static qreal widest(const QStringList &texts, const QFont &font)
{
    qreal width = 0;
    for (const QString &text : texts)
        width = qMax(width, textWidth(font, text));
    return width + 2 * padding;
}

// The description gets what the others leave, or they share what it leaves to them.
QVector<qreal> AlarmListItem::columnWidths(qreal width)
{
    const QFont titleFont = fontOf("columnTitles");
    const QStringList titles = texts("columnTitles");
    const QDateTime wide(QDate(2000, 10, 20), QTime(20, 0));
    const QStringList contents[] = {{QLocale().toString(wide, text("timeFormat"))},
                                    textMap("stateNames").values(),
                                    textMap("severityNames").values()};
    const QFont fonts[] = {font("rowFont"), fontOf("stateNames"), fontOf("severityNames")};
    QVector<qreal> widths;
    for (int i = 0; i < int(std::size(contents)); ++i)
        widths.append(qMax(widest(contents[i], fonts[i]), widest({titles.value(i)}, titleFont)));
    widths.append(qMax(width * nameShare, widest({titles.value(widths.size())}, titleFont)));
    const auto sum = [&widths] { return std::accumulate(widths.begin(), widths.end(), 0.0); };
    for (int dispensable : {2, 1}) { // the severity, which has a colour, then the state
        if (sum() > width * (1 - descriptionShare))
            widths[dispensable] = 0;
    }
    const qreal needed = sum();
    const qreal rest = qMax(width - needed, width * descriptionShare);
    for (qreal &column : widths)
        column *= qMin(1.0, (width - rest) / needed);
    return widths << rest;
}

void AlarmListItem::drawCells(QPainter &painter, const QRectF &row, const QStringList &cells,
                              const QVector<QFont> &fonts, const QColor &ink)
{
    QRectF rest = row.adjusted(markWidth, 0, -actionsWidth(), 0);
    const QVector<qreal> widths = columnWidths(rest.width());
    for (int i = 0; i < columnCount; ++i) {
        const QRectF cell = takeLeft(rest, widths[i]);
        if (cell.width() <= 2 * padding)
            continue;
        drawElidedText(painter, cell.adjusted(padding, 0, -padding, 0), cells.value(i), fonts[i],
                       ink);
    }
}
