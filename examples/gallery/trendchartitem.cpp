#include "trendchartitem.h"

#include "drawing.h"
#include "numbertext.h"
#include "scale.h"

#include <NARV/WidgetActionManager>

#include <QDateTime>
#include <QLocale>
#include <QPainter>

#include <iterator>

static constexpr qreal padding = 6;
static constexpr qreal markWidth = 14;
static constexpr struct
{
    const char *trend;
    const char *color;
} penFields[] = {
    {"pen1", "pen1Color"}, {"pen2", "pen2Color"}, {"pen3", "pen3Color"}, {"pen4", "pen4Color"}};

TrendChartItem::TrendChartItem(const NARV::GraphicsObjectData &data)
    : GalleryItem(data)
{
}

void TrendChartItem::draw(QPainter &painter, const QRectF &area)
{
    drawPlate(painter, area, {color("backgroundColor"), color("frameColor"), 1, 0});
    QRectF rest = area.adjusted(padding, padding, -padding, -padding);
    rest = drawLegend(painter, drawTitle(painter, rest));
    const QRectF plot = plotArea(rest);
    if (plot.isEmpty())
        return;
    drawPlate(painter, plot, {color("plotColor"), {}, 0, 0});
    drawValueAxis(painter, plot);
    drawTimeAxis(painter, plot);
    drawPlate(painter, plot, {{}, color("frameColor"), 1, 0});
}

QVector<TrendChartItem::Pen> TrendChartItem::pens()
{
    const bool isDesign = widgetActionManager().isInsideProjectEditor();
    const QStringList names = texts("penNames");
    const QStringList units = texts("penUnits");
    QVector<Pen> pens;
    for (int i = 0; i < int(std::size(penFields)); ++i) {
        const QString name = names.value(i);
        if (isDesign ? name.isEmpty() : text(penFields[i].trend).isEmpty())
            continue;
        const QString unit = units.value(i);
        pens.append({unit.isEmpty() ? name : QStringLiteral("%1 [%2]").arg(name, unit),
                     color(penFields[i].color)});
    }
    return pens;
}

QRectF TrendChartItem::drawLegend(QPainter &painter, const QRectF &area)
{
    const QVector<Pen> shown = pens();
    if (!flag("showLegend") || shown.isEmpty())
        return area;
    const qreal height = lineHeight(fontOf("penNames"));
    QRectF rest = area;
    QRectF line = integer("legendPosition") == 0 ? takeBottom(rest, height) : takeTop(rest, height);
    const qreal width = line.width() / shown.size();
    for (const Pen &pen : shown)
        drawPen(painter, takeLeft(line, width), pen);
    return rest;
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

QRectF TrendChartItem::plotArea(const QRectF &area)
{
    const QFont axisFont = font("axisFont");
    const qreal values = qMax(textWidth(axisFont, valueLabel(number("minimum"))),
                              textWidth(axisFont, valueLabel(number("maximum"))));
    const qreal halfTime = textWidth(axisFont, timeLabel(QDateTime::currentDateTime())) / 2;
    const qreal height = lineHeight(axisFont);
    return area.adjusted(qMax(values + padding, halfTime), height / 2, -halfTime,
                         -height - padding);
}

QString TrendChartItem::valueLabel(double value)
{
    return decimalText(value, integer("decimals"));
}

QString TrendChartItem::timeLabel(const QDateTime &time)
{
    return QLocale().toString(time, text("timeFormat"));
}

void TrendChartItem::drawGridLine(QPainter &painter, const QPointF &from, const QPointF &to)
{
    if (!flag("showGrid"))
        return;
    painter.setPen(QPen(color("gridColor"), 1));
    painter.drawLine(from, to);
}

void TrendChartItem::drawValueAxis(QPainter &painter, const QRectF &plot)
{
    const QFont axisFont = font("axisFont");
    const qreal height = lineHeight(axisFont);
    const Scale scale(number("minimum"), number("maximum"));
    for (const Scale::Tick &tick : scale.ticks(integer("divisions"))) {
        const qreal y = plot.bottom() - tick.fraction * plot.height();
        drawGridLine(painter, {plot.left(), y}, {plot.right(), y});
        const QRectF label(0, y - height / 2, plot.left() - padding / 2, height);
        drawFittedText(painter, label, Qt::AlignRight | Qt::AlignVCenter, valueLabel(tick.value),
                       axisFont, color("scaleColor"));
    }
}

void TrendChartItem::drawTimeAxis(QPainter &painter, const QRectF &plot)
{
    const QFont axisFont = font("axisFont");
    const QDateTime now = QDateTime::currentDateTime();
    const Scale seconds(-number("timeSpan"), 0);
    const int divisions = qMax(1, integer("timeDivisions"));
    const qreal width = plot.width() / divisions;
    for (const Scale::Tick &tick : seconds.ticks(divisions)) {
        const qreal x = plot.left() + tick.fraction * plot.width();
        drawGridLine(painter, {x, plot.top()}, {x, plot.bottom()});
        const QRectF label(x - (width - padding) / 2, plot.bottom() + padding, width - padding,
                           lineHeight(axisFont));
        drawFittedText(painter, label, Qt::AlignCenter, timeLabel(now.addSecs(qint64(tick.value))),
                       axisFont, color("scaleColor"));
    }
}
