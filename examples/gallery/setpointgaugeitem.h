#pragma once

#include "gaugeitem.h"

//! The gauge from version 1.1.0 on: also marks a setpoint on the scale.
class SetpointGaugeItem : public GaugeItem
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit SetpointGaugeItem(const NARV::GraphicsObjectData &data);

protected:
    void drawMarkers(QPainter &painter, const Dial &dial) override;
};
