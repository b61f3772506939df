#pragma once

#include "indicatoritem.h"

//! Draws a bar that grows in one of four directions, its scale beside it and its value below.
class BarItem : public IndicatorItem
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit BarItem(const NARV::GraphicsObjectData &data);

protected:
    void draw(QPainter &painter, const QRectF &area) override;

private:
    enum Direction
    {
        Up,
        Down,
        Right,
        Left
    };

    bool isUpright();
    //! The part of the track between two fractions of the scale.
    QRectF segment(const QRectF &track, double from, double to);
    QRectF drawValue(QPainter &painter, const QRectF &area);
    //! Cuts the scale off area and draws it; what remains is the track.
    QRectF drawScale(QPainter &painter, const QRectF &area);
    qreal scaleExtent();
    void drawTicks(QPainter &painter, const QRectF &track);
    void drawTick(QPainter &painter, const QRectF &position, const Scale::Tick &tick,
                  bool hasLabel);
    void drawTickLabel(QPainter &painter, const QPointF &end, const Scale::Tick &tick);
    void drawBar(QPainter &painter, const QRectF &track);
    void drawLimits(QPainter &painter, const QRectF &track);
};
