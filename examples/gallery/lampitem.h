#pragma once

#include "galleryitem.h"

//! Draws a lamp in the colour of its state, with the text of the state. Blinks in one of the
//! states.
class LampItem : public GalleryItem
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit LampItem(const NARV::GraphicsObjectData &data);

protected:
    void draw(QPainter &painter, const QRectF &area) override;
    int beatPeriod() override;

private:
    bool isBlinking();
    QColor stateColor();
    //! The colour of the state, dark every other half period while the lamp blinks.
    QColor shownColor();
    //! Cuts the text's place off area and draws the text there; what remains is the lamp.
    QRectF drawText(QPainter &painter, const QRectF &area);
    void drawLamp(QPainter &painter, const QRectF &area);
};
