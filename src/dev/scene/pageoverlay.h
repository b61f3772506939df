#pragma once

#include "scene/handlegeometry.h"

#include <QPolygonF>
#include <QRectF>

class QGraphicsView;
class QPainter;

namespace NARV::DEV {

class PageDrag;
class PlacedWidget;
class SceneDocument;

//! What lies over the widgets in editor mode: the frames of those that are selected, the handles of
//! a single one, and the label and the rubber band of a drag. Positions are in pixels of the view;
//! a drag may be null.
class PageOverlay
{
public:
    //! Both have to outlive this.
    PageOverlay(const SceneDocument &document, QGraphicsView &view);

    void paint(QPainter &painter, const PageDrag *drag) const;
    //! Paints anew where something was the last time and where something is now, not all over the
    //! page.
    void update(const PageDrag *drag);
    //! Null for none.
    const Handle *handleAt(const QPoint &position) const;
    //! A single selected widget that is too small to be hit is grasped there.
    bool isGrasped(const QPoint &position) const;

private:
    //! Null unless a single one is selected.
    const PlacedWidget *onlyWidget() const;
    double zoom() const;
    QPointF handlePoint(const PlacedWidget &widget, const Handle &handle) const;
    QRect labelBox(const PageDrag *drag) const;
    QRectF area(const PageDrag *drag) const;
    void paintFrames(QPainter &painter) const;
    void paintHandles(QPainter &painter) const;
    void paintLabel(QPainter &painter, const PageDrag &drag) const;
    void paintBand(QPainter &painter, const QRectF &band) const;

    const SceneDocument &m_document;
    QGraphicsView &m_view;
    QRectF m_area; //!< when it was updated last, in scene units
};

} // namespace NARV::DEV
