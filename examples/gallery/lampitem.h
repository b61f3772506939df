#pragma once

#include "galleryitem.h"

//! Draws a lamp in the colour of its state, with the text of the state.
class LampItem : public GalleryItem
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit LampItem(const NARV::GraphicsObjectData &data);

protected:
    void draw(QPainter &painter, const QRectF &area) override;

private:
    QColor stateColor();
    //! Cuts the text's place off area and draws the text there; what remains is the lamp.
    QRectF drawText(QPainter &painter, const QRectF &area);
    void drawLamp(QPainter &painter, const QRectF &area);
};
