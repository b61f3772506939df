#pragma once

#include "galleryitem.h"

//! Draws a text, with a background and a frame if wanted.
class LabelItem : public GalleryItem
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit LabelItem(const NARV::GraphicsObjectData &data);

protected:
    void draw(QPainter &painter, const QRectF &area) override;
};
