#pragma once

#include "galleryitem.h"

#include <QVector>

class QDateTime;

//! Draws the frame of a trend chart: legend, axes and grid.
class TrendChartItem : public GalleryItem
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit TrendChartItem(const NARV::GraphicsObjectData &data);

protected:
    void draw(QPainter &painter, const QRectF &area) override;

private:
    //! What the legend tells of a pen.
    struct Pen
    {
        QString text;
        QColor color;
    };

    //! The pens that have a trend; in the project editor all that have a name.
    QVector<Pen> pens();
    QRectF drawLegend(QPainter &painter, const QRectF &area);
    void drawPen(QPainter &painter, const QRectF &area, const Pen &pen);
    //! The plot's place within area, beside the labels of both axes.
    QRectF plotArea(const QRectF &area);
    QString valueLabel(double value);
    QString timeLabel(const QDateTime &time);
    void drawValueAxis(QPainter &painter, const QRectF &plot);
    void drawTimeAxis(QPainter &painter, const QRectF &plot);
    void drawGridLine(QPainter &painter, const QPointF &from, const QPointF &to);
};
