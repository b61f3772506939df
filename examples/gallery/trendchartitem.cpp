#include "trendchartitem.h"

#include "confirmation.h"
#include "drawing.h"
#include "numbertext.h"

#include <NARV/Event>
#include <NARV/PanGesture>
#include <NARV/PinchGesture>
#include <NARV/SwipeGesture>
#include <NARV/WidgetActionManager>

#include <QDateTime>
#include <QGestureEvent>
#include <QGraphicsSceneWheelEvent>
#include <QLocale>
#include <QPainter>
#include <QtMath>

#include <cmath>
#include <iterator>

static constexpr qreal padding = 6;
static constexpr qreal markWidth = 14;
static constexpr qreal latestSize = 36;
static constexpr int quickSwipe = 400;     // in milliseconds from press to release
static constexpr int shortestRefresh = 50; // in milliseconds
static constexpr double wheelZoom = 1.25;  // for one notch
static constexpr double farOutside = 10;   // of the plot, in its heights
static constexpr struct
{
    const char *trend;
    const char *color;
} penFields[] = {
    {"pen1", "pen1Color"}, {"pen2", "pen2Color"}, {"pen3", "pen3Color"}, {"pen4", "pen4Color"}};

TrendChartItem::TrendChartItem(const NARV::GraphicsObjectData &data)
    : TouchItem(data)
{
    if (!isAtRunTime())
        return;
    for (Qt::GestureType type :
         {pan1TouchGestureType(), swipe1TouchGestureType(), pinchGestureType()})
        grabGesture(type);
}

void TrendChartItem::initEvent(NARV::InitEvent *event)
{
    TouchItem::initEvent(event);
    followPresent();
}

void TrendChartItem::fieldIsChangedEvent(NARV::FieldIsChangedEvent *event)
{
    TouchItem::fieldIsChangedEvent(event);
    const QString &id = event->fieldId();
    if (m_window.span() == 0) // not initialised
        return;
    if (id == QLatin1String("timeSpan") || (id == QLatin1String("live") && isLive()))
        followPresent();
    else if (id != QLatin1String("live"))
        readCurves();
}

bool TrendChartItem::isLive()
{
    return flag("live");
}

int TrendChartItem::beatPeriod()
{
    return isLive() ? qMax(shortestRefresh, integer("refreshPeriod")) : 0;
}

void TrendChartItem::beat()
{
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    m_window = {now - m_window.span(), now};
    readCurves();
}

void TrendChartItem::followPresent()
{
    static const QDateTime sampleTime(QDate(2024, 5, 1), QTime(10, 20));
    const qint64 now =
        isAtRunTime() ? QDateTime::currentMSecsSinceEpoch() : sampleTime.toMSecsSinceEpoch();
    m_window = {now - qMax(1, integer("timeSpan")) * 1000LL, now};
    readCurves();
}

void TrendChartItem::showWindow(const TimeWindow &window)
{
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const bool isLatest = window.to >= now;
    m_window = window.endingBy(now);
    if (isLatest != isLive())
        setFieldValue(QStringLiteral("live"), isLatest);
    readCurves();
}

void TrendChartItem::showLatest()
{
    if (isLive())
        return followPresent();
    setFieldValue(QStringLiteral("live"), true);
}

QVector<TrendChartItem::Pen> TrendChartItem::pens()
{
    const QStringList names = texts("penNames");
    const QStringList units = texts("penUnits");
    QVector<Pen> found;
    for (int i = 0; i < int(std::size(penFields)); ++i) {
        const QString name = names.value(i);
        const QString trend = text(penFields[i].trend);
        if (isAtRunTime() ? trend.isEmpty() : name.isEmpty())
            continue;
        const QString unit = units.value(i);
        found.append({unit.isEmpty() ? name : QStringLiteral("%1 [%2]").arg(name, unit),
                      trend,
                      color(penFields[i].color),
                      {}});
    }
    return found;
}

void TrendChartItem::readCurves()
{
    m_pens = pens();
    for (int i = 0; i < m_pens.size(); ++i)
        m_pens[i].samples = isAtRunTime() ? read(m_pens[i].trend) : sample(i);
    update();
}

QVector<TrendSample> TrendChartItem::read(const QString &trend)
{
    using NARV::WidgetActionManager;
    return trendSamples(widgetActionManager().getTrendValue(
        trend, QDateTime::fromMSecsSinceEpoch(m_window.from),
        QDateTime::fromMSecsSinceEpoch(m_window.to), uint(qMax(1, integer("samples"))),
        WidgetActionManager::MillisecondsSinceEpoch));
}

//! A curve for the designer, in the middle of the axis.
QVector<TrendSample> TrendChartItem::sample(int pen)
{
    static constexpr int count = 120;
    const double middle = (number("minimum") + number("maximum")) / 2;
    const double swing = (number("maximum") - number("minimum")) / 4;
    QVector<TrendSample> samples;
    for (int i = 0; i <= count; ++i) {
        const double part = double(i) / count;
        const double wave = std::sin(part * (4 + pen) * 2 + pen) + 0.3 * std::sin(part * 31 + pen);
        samples.append({m_window.from + qint64(part * double(m_window.span())),
                        middle + swing * wave, TrendSample::Good});
    }
    return samples;
}

double TrendChartItem::timeFraction(const QPointF &point)
{
    const QRectF plot = layout().plot;
    return plot.width() > 0 ? (point.x() - plot.left()) / plot.width() : 0.5;
}

bool TrendChartItem::sceneEvent(QEvent *event)
{
    if (event->type() != QEvent::Gesture)
        return TouchItem::sceneEvent(event);
    auto *gestures = static_cast<QGestureEvent *>(event);
    pan(gestures);
    pinch(gestures);
    swipe(gestures);
    return true;
}

void TrendChartItem::pan(QGestureEvent *event)
{
    auto *gesture = static_cast<NARV::PanGesture *>(event->gesture(pan1TouchGestureType()));
    if (!gesture)
        return;
    const QPointF moved = m_pan.follow(this, event, gesture);
    if (m_pan.isDrag())
        cancelPress();
    const double parts = timeFraction(moved) - timeFraction({});
    if (parts != 0)
        showWindow(m_window.movedBack(parts));
}

void TrendChartItem::pinch(QGestureEvent *event)
{
    auto *gesture = static_cast<NARV::PinchGesture *>(event->gesture(pinchGestureType()));
    if (!gesture)
        return;
    if (gesture->state() == Qt::GestureStarted)
        m_pinched = 1;
    cancelPress();
    const double factor = gesture->totalScaleFactor() / m_pinched;
    m_pinched = gesture->totalScaleFactor();
    const double center = timeFraction(fromScreen(this, event, gesture->centerPoint()));
    if (factor != 1)
        showWindow(m_window.zoomed(factor, center));
}

// Slower or in another direction it is no more than a pan.
void TrendChartItem::swipe(QGestureEvent *event)
{
    using NARV::SwipeGesture;
    auto *gesture = static_cast<SwipeGesture *>(event->gesture(swipe1TouchGestureType()));
    if (!gesture || gesture->state() != Qt::GestureFinished)
        return;
    const bool isQuick = m_sincePress.isValid() && m_sincePress.elapsed() < quickSwipe;
    const qreal angle = qDegreesToRadians(gesture->mapSwipeAngleToGraphicsObject(event, this));
    if (isQuick && std::cos(angle) < -std::abs(std::sin(angle)))
        showLatest();
}

void TrendChartItem::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    m_sincePress.start();
    TouchItem::mousePressEvent(event);
}

void TrendChartItem::wheelEvent(QGraphicsSceneWheelEvent *event)
{
    static constexpr double notch = 120; // as wheels turn
    if (!isAtRunTime())
        return TouchItem::wheelEvent(event);
    showWindow(
        m_window.zoomed(std::pow(wheelZoom, event->delta() / notch), timeFraction(event->pos())));
    event->accept();
}

QVector<QRectF> TrendChartItem::parts()
{
    return {layout().latest};
}

void TrendChartItem::partReleased(int, bool isOver)
{
    if (isOver)
        showLatest();
}

TrendChartItem::ValueAxis TrendChartItem::valueAxis()
{
    if (flag("autoRange"))
        return roundAxis();
    return {Scale(number("minimum"), number("maximum")), integer("divisions"), integer("decimals")};
}

TrendChartItem::ValueAxis TrendChartItem::roundAxis()
{
    double lowest = qInf();
    double highest = -qInf();
    for (const Pen &pen : qAsConst(m_pens)) {
        for (const TrendSample &sample : pen.samples) {
            if (sample.isGap())
                continue;
            lowest = qMin(lowest, sample.value);
            highest = qMax(highest, sample.value);
        }
    }
    if (lowest > highest) {
        lowest = number("minimum");
        highest = number("maximum");
    }
    const RoundScale around = RoundScale::around(lowest, highest, integer("divisions"));
    const int needed = qMax(0, int(std::ceil(-std::log10(around.step))));
    return {Scale(around.minimum, around.maximum), around.divisions,
            qMax(integer("decimals"), needed)};
}

TrendChartItem::Layout TrendChartItem::layout()
{
    Layout places;
    QRectF rest = boundingRect().adjusted(padding, padding, -padding, -padding);
    if (!text("title").isEmpty())
        takeTop(rest, lineHeight(fontOf("title")));
    if (flag("showLegend") && !m_pens.isEmpty()) {
        const qreal height = lineHeight(fontOf("penNames"));
        places.legend =
            integer("legendPosition") == 0 ? takeBottom(rest, height) : takeTop(rest, height);
    }
    const QFont axisFont = font("axisFont");
    const ValueAxis axis = valueAxis();
    const qreal values =
        qMax(textWidth(axisFont, decimalText(axis.scale.lowest(), axis.decimals)),
             textWidth(axisFont, decimalText(axis.scale.highest(), axis.decimals)));
    const qreal halfTime = textWidth(axisFont, timeLabel(m_window.to)) / 2;
    const qreal height = lineHeight(axisFont);
    places.plot = rest.adjusted(qMin(values + padding, rest.width() / 3), height / 2,
                                -qMin(halfTime, rest.width() / 6), -height - padding);
    if (isAtRunTime() && !isLive() && !places.plot.isEmpty()) {
        QRectF plot = places.plot.adjusted(padding, padding, -padding, -padding);
        QRectF row = takeTop(plot, latestSize);
        places.latest = takeRight(row, latestSize);
    }
    return places;
}

void TrendChartItem::draw(QPainter &painter, const QRectF &area)
{
    drawPlate(painter, area, {color("backgroundColor"), color("frameColor"), 1, 0});
    drawTitle(painter, area.adjusted(padding, padding, -padding, -padding));
    const Layout places = layout();
    drawLegend(painter, places.legend);
    if (places.plot.isEmpty())
        return;
    const ValueAxis axis = valueAxis();
    drawPlate(painter, places.plot, {color("plotColor"), {}, 0, 0});
    drawValueAxis(painter, places.plot, axis);
    drawTimeAxis(painter, places.plot);
    drawCurves(painter, places.plot, axis.scale);
    drawPlate(painter, places.plot, {{}, color("frameColor"), 1, 0});
    if (!places.latest.isEmpty())
        drawSymbolButton(painter, places.latest, Symbol::Latest, pressedPart() != noPart,
                         {color("backgroundColor"), color("scaleColor"), color("frameColor")});
}

void TrendChartItem::drawLegend(QPainter &painter, const QRectF &area)
{
    if (area.isEmpty())
        return;
    QRectF line = area;
    const qreal width = line.width() / m_pens.size();
    for (const Pen &pen : qAsConst(m_pens))
        drawPen(painter, takeLeft(line, width), pen);
}

void TrendChartItem::drawPen(QPainter &painter, const QRectF &area, const Pen &pen)
{
    QRectF rest = area;
    const QPointF mark = takeLeft(rest, markWidth + padding).center();
    const QPointF half((markWidth - padding) / 2, 0);
    painter.setPen(QPen(pen.color, integer("penWidth")));
    painter.drawLine(mark - half, mark + half);
    drawElidedText(painter, rest, pen.text, fontOf("penNames"), color("scaleColor"));
}

QString TrendChartItem::timeLabel(qint64 time)
{
    return QLocale().toString(QDateTime::fromMSecsSinceEpoch(time), text("timeFormat"));
}

void TrendChartItem::drawGridLine(QPainter &painter, const QPointF &from, const QPointF &to)
{
    if (!flag("showGrid"))
        return;
    painter.setPen(QPen(color("gridColor"), 1));
    painter.drawLine(from, to);
}

void TrendChartItem::drawValueAxis(QPainter &painter, const QRectF &plot, const ValueAxis &axis)
{
    const QFont axisFont = font("axisFont");
    const qreal height = lineHeight(axisFont);
    const QVector<Scale::Tick> ticks = axis.scale.ticks(axis.divisions);
    const int interval = labelInterval(ticks.size() - 1, plot.height(), height);
    for (int i = 0; i < ticks.size(); ++i) {
        const Scale::Tick &tick = ticks[i];
        const qreal y = plot.bottom() - tick.fraction * plot.height();
        drawGridLine(painter, {plot.left(), y}, {plot.right(), y});
        if (i % interval != 0)
            continue;
        const QRectF label(0, y - height / 2, plot.left() - padding / 2, height);
        drawFittedText(painter, label, Qt::AlignRight | Qt::AlignVCenter,
                       decimalText(tick.value, axis.decimals), axisFont, color("scaleColor"));
    }
}

void TrendChartItem::drawTimeAxis(QPainter &painter, const QRectF &plot)
{
    const QFont axisFont = font("axisFont");
    // As many as there is room for.
    const qreal width = textWidth(axisFont, timeLabel(m_window.to)) + 2 * padding;
    const int most = qBound(1, int(plot.width() / width), qMax(1, integer("timeDivisions")));
    for (qint64 time : m_window.ticks(most)) {
        const qreal x = plot.left() + m_window.fraction(time) * plot.width();
        drawGridLine(painter, {x, plot.top()}, {x, plot.bottom()});
        const QRectF label(x - width / 2, plot.bottom() + padding / 2, width, lineHeight(axisFont));
        drawFittedText(painter, label, Qt::AlignCenter, timeLabel(time), axisFont,
                       color("scaleColor"));
    }
}

void TrendChartItem::drawCurves(QPainter &painter, const QRectF &plot, const Scale &scale)
{
    painter.save();
    painter.setClipRect(plot, Qt::IntersectClip);
    painter.setBrush(Qt::NoBrush);
    for (const Pen &pen : qAsConst(m_pens))
        drawCurve(painter, plot, scale, pen);
    painter.restore();
}

//! A point alone is a dot, points in a row are a line.
static void drawStroke(QPainter &painter, const QPolygonF &points)
{
    if (points.size() == 1)
        painter.drawPoint(points.first());
    else
        painter.drawPolyline(points);
}

void TrendChartItem::drawCurve(QPainter &painter, const QRectF &plot, const Scale &scale,
                               const Pen &pen)
{
    const QPen solid(pen.color, integer("penWidth"), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    const QPen dotted(pen.color, integer("penWidth"), Qt::DotLine, Qt::RoundCap, Qt::RoundJoin);
    QPolygonF stroke;
    TrendSample::Quality quality = TrendSample::Good;
    const auto finish = [&] {
        painter.setPen(quality == TrendSample::Uncertain ? dotted : solid);
        drawStroke(painter, stroke);
        stroke.clear();
    };
    for (const TrendSample &sample : pen.samples) {
        if (sample.isGap()) {
            finish();
            continue;
        }
        const double part = scale.position(sample.value);
        const QPointF point(plot.left() + m_window.fraction(sample.time) * plot.width(),
                            plot.bottom() - qBound(-farOutside, part, farOutside) * plot.height());
        if (sample.quality != quality && !stroke.isEmpty()) {
            const QPointF joint = stroke.last();
            finish();
            stroke.append(joint);
        }
        quality = sample.quality;
        stroke.append(point);
    }
    finish();
}
