#pragma once

#include "controlitem.h"

//! Draws a button with its caption and its image, in the active colour while its bit is set.
class PushButtonItem : public ControlItem
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit PushButtonItem(const NARV::GraphicsObjectData &data);

protected:
    void drawControl(QPainter &painter, const QRectF &area) override;

private:
    //! Cuts the image's place off area and draws the image there; what remains is the caption's.
    QRectF drawImage(QPainter &painter, const QRectF &area);
};
