#include "dial.h"

#include <QtMath>

static constexpr qreal startAngle = 225; // in degrees, anticlockwise from the right
static constexpr qreal spanAngle = -270;

static qreal angleOf(double fraction)
{
    return startAngle + fraction * spanAngle;
}

Dial::Dial(const QRectF &area)
    : m_center(area.center())
    , m_radius(qMin(area.width(), area.height()) / 2)
{
}

QRectF Dial::square(qreal distance) const
{
    const qreal half = m_radius * distance;
    return {m_center.x() - half, m_center.y() - half, 2 * half, 2 * half};
}

QPointF Dial::at(double fraction, qreal distance) const
{
    const qreal angle = qDegreesToRadians(angleOf(fraction));
    return m_center + QPointF(qCos(angle), -qSin(angle)) * m_radius * distance;
}

QPainterPath Dial::arc(double from, double to, qreal distance) const
{
    QPainterPath path;
    path.arcMoveTo(square(distance), angleOf(from));
    path.arcTo(square(distance), angleOf(from), (to - from) * spanAngle);
    return path;
}

QPolygonF Dial::pointer(double fraction, qreal distance, qreal width) const
{
    const QPointF tip = at(fraction, distance);
    const QPointF along = (tip - m_center) / (m_radius * distance);
    const QPointF across = QPointF(-along.y(), along.x()) * m_radius * width / 2;
    return QPolygonF({m_center + across, tip, m_center - across});
}
