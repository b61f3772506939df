#pragma once

#include <QPainterPath>
#include <QRectF>

//! The round face of a gauge: a scale over three quarters of a circle, open at the bottom.
//! Distances from the centre are fractions of the radius.
class Dial
{
public:
    //! The largest dial within area.
    explicit Dial(const QRectF &area);

    const QPointF &center() const { return m_center; }
    //! In pixels.
    qreal radius() const { return m_radius; }
    //! A square around the centre, out to a distance.
    QRectF square(qreal distance) const;
    //! The point of a scale fraction, 0 to 1, at a distance.
    QPointF at(double fraction, qreal distance) const;
    //! The arc between two scale fractions at a distance.
    QPainterPath arc(double from, double to, qreal distance) const;
    //! A pointer from the centre to a distance, of a width at its foot.
    QPolygonF pointer(double fraction, qreal distance, qreal width) const;

private:
    QPointF m_center;
    qreal m_radius;
};
