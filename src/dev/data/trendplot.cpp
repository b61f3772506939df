#include "data/trendplot.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <limits>

namespace NARV::DEV {

TrendPlot::TrendPlot(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("trendPlot"));
    setAccessibleName(tr("Curve of the trend"));
    setMinimumSize(80, 60);
}

TrendPlot::~TrendPlot() = default;

void TrendPlot::show(const QVariantList &samples, const QString &problem)
{
    m_points.clear();
    for (const QVariant &sample : samples) {
        const QVariantList pair = sample.toList();
        bool isNumber = false;
        const double value = pair.value(1).toDouble(&isNumber);
        m_points.append({pair.value(0).toDouble(),
                         isNumber ? value : std::numeric_limits<double>::quiet_NaN()});
    }
    m_message = problem.isEmpty() ? tr("Nothing recorded yet: let time run") : problem;
    setAccessibleDescription(m_points.isEmpty() ? m_message : QString());
    update();
}

QSize TrendPlot::sizeHint() const
{
    return {200, 120};
}

//! Left and right in time, top and bottom in value; null if there is nothing to draw.
QRectF TrendPlot::bounds() const
{
    double least = std::numeric_limits<double>::max();
    double greatest = -least;
    for (const QPointF &point : m_points) {
        if (!std::isfinite(point.y()))
            continue;
        least = qMin(least, point.y());
        greatest = qMax(greatest, point.y());
    }
    if (least > greatest)
        return {};
    return QRectF(QPointF(m_points.first().x(), least), QPointF(m_points.last().x(), greatest));
}

void TrendPlot::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(palette().base());
    painter.drawRect(area);
    const QRectF values = bounds();
    painter.setPen(palette().color(QPalette::Text));
    const QRectF inside = area.adjusted(4, 2, -4, -2);
    if (m_points.isEmpty()) {
        painter.drawText(inside, Qt::AlignCenter | Qt::TextWordWrap, m_message);
        return;
    }
    painter.drawText(inside, Qt::AlignLeft | Qt::AlignTop,
                     QString::number(values.bottom(), 'g', 5));
    painter.drawText(inside, Qt::AlignLeft | Qt::AlignBottom,
                     QString::number(values.top(), 'g', 5));
    const qreal margin = fontMetrics().height() + 4;
    drawCurve(painter, area.adjusted(6, margin, -6, -margin));
}

void TrendPlot::drawCurve(QPainter &painter, const QRectF &area) const
{
    const QRectF values = bounds();
    const double time = qMax(1.0, values.width());
    const double span = values.height() > 0 ? values.height() : 1;
    QPainterPath curve;
    bool isDown = false; // the pen, as long as there is no gap
    for (const QPointF &point : m_points) {
        const bool isGap = !std::isfinite(point.y());
        const QPointF place(area.left() + (point.x() - values.left()) / time * area.width(),
                            area.bottom() - (point.y() - values.top()) / span * area.height());
        if (!isGap && isDown)
            curve.lineTo(place);
        else if (!isGap)
            curve.moveTo(place);
        isDown = !isGap;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(curve);
}

} // namespace NARV::DEV
