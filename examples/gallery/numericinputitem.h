#pragma once

#include "controlitem.h"

//! Draws an input field: prompt above, step buttons at both sides of the value.
class NumericInputItem : public ControlItem
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit NumericInputItem(const NARV::GraphicsObjectData &data);

protected:
    void drawControl(QPainter &painter, const QRectF &area) override;

private:
    QRectF drawPrompt(QPainter &painter, const QRectF &area);
    QRectF drawStepButtons(QPainter &painter, const QRectF &area);
    void drawStepButton(QPainter &painter, const QRectF &area, QChar sign, bool canStep);
    void drawValue(QPainter &painter, const QRectF &area);
};
