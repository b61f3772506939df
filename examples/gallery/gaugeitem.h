#pragma once

#include "indicatoritem.h"

class Dial;

//! Draws a round instrument: face, limits, scale, markers, needle and value.
class GaugeItem : public IndicatorItem
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit GaugeItem(const NARV::GraphicsObjectData &data);

protected:
    void draw(QPainter &painter, const QRectF &area) override;
    //! Draws what lies on the scale, beneath the needle; nothing here.
    virtual void drawMarkers(QPainter &painter, const Dial &dial);

private:
    //! How far the pointer reaches from the ticks inwards into the place of the labels, as a
    //! fraction of the radius.
    qreal pointerDepth(const Dial &dial);
    void drawFace(QPainter &painter, const Dial &dial);
    void drawLimits(QPainter &painter, const Dial &dial);
    void drawScale(QPainter &painter, const Dial &dial);
    void drawScaleLabels(QPainter &painter, const Dial &dial);
    void drawNeedle(QPainter &painter, const Dial &dial);
    void drawTriangle(QPainter &painter, const Dial &dial);
    void drawArc(QPainter &painter, const Dial &dial);
    void drawValue(QPainter &painter, const Dial &dial);
};
