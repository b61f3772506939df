#pragma once

#include "indicatoritem.h"

//! Draws a number in a box.
class NumericDisplayItem : public IndicatorItem
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit NumericDisplayItem(const NARV::GraphicsObjectData &data);

protected:
    void draw(QPainter &painter, const QRectF &area) override;
};
