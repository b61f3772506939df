#pragma once

#include "galleryitem.h"

#include <QVector>

//! An item with parts that the operator presses, with a finger or with the mouse.
//!
//! In the project editor nothing can be pressed, and the mouse is left to the editor.
class TouchItem : public GalleryItem
{
    Q_OBJECT

public:
    explicit TouchItem(const NARV::GraphicsObjectData &data);

protected:
    static constexpr int noPart = -1;

    //! The places of the parts by their numbers, as they are drawn; an empty place for a part that
    //! is not there.
    virtual QVector<QRectF> parts() = 0;
    virtual void partPressed(int part);
    //! isOver tells whether the finger was still on the part; if not, it was taken away.
    virtual void partReleased(int part, bool isOver) = 0;

    //! The part that is held down, with the finger still on it.
    int pressedPart() const { return m_isOver ? m_part : noPart; }
    void press(int part);
    void release(bool isOver);
    //! As if the finger had been taken away from the part, if one is held down.
    void cancelPress() { release(false); }

    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    bool sceneEvent(QEvent *event) override;
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;
    void deinitEvent(NARV::DeinitEvent *event) override;

private:
    int partAt(const QPointF &point);

    int m_part = noPart;
    bool m_isOver = false;
};
