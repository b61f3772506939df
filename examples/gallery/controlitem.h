#pragma once

#include "galleryitem.h"

//! An item that the operator touches. One that is not enabled is drawn pale.
class ControlItem : public GalleryItem
{
    Q_OBJECT

public:
    using GalleryItem::GalleryItem;

protected:
    void draw(QPainter &painter, const QRectF &area) final;
    virtual void drawControl(QPainter &painter, const QRectF &area) = 0;

    //! A button in the fields' "frameColor".
    void drawButton(QPainter &painter, const QRectF &area, const QColor &fill, qreal radius);
};
