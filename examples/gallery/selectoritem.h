#pragma once

#include "controlitem.h"

//! Draws the entries to choose from as a row or column of buttons, or as a drop-down list.
class SelectorItem : public ControlItem
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit SelectorItem(const NARV::GraphicsObjectData &data);

protected:
    void drawControl(QPainter &painter, const QRectF &area) override;

private:
    //! The index of the chosen entry; -1 if the value is the number of none.
    int selected();
    void drawButtons(QPainter &painter, const QRectF &area);
    void drawList(QPainter &painter, const QRectF &area);
};
