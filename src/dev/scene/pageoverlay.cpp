#include "scene/pageoverlay.h"

#include "scene/pagedrag.h"
#include "scene/scenedocument.h"

#include <QCursor>
#include <QGraphicsView>
#include <QPainter>

#include <cmath>

namespace NARV::DEV {

// In pixels of the view.
static const int handleSize = 8;
static const int rotationDistance = 24;

static const int fewWidgets = 20;

PageOverlay::PageOverlay(const SceneDocument &document, QGraphicsView &view)
    : m_document(document)
    , m_view(view)
{
}

const PlacedWidget *PageOverlay::onlyWidget() const
{
    return m_document.selection().size() == 1 ? m_document.currentWidget() : nullptr;
}

double PageOverlay::zoom() const
{
    return m_view.transform().m11();
}

QPointF PageOverlay::handlePoint(const PlacedWidget &widget, const Handle &handle) const
{
    const WidgetState frame = handleFrame(widget.state(), zoom());
    return m_view.viewportTransform().map(handlePosition(frame, handle, rotationDistance / zoom()));
}

const Handle *PageOverlay::handleAt(const QPoint &position) const
{
    const PlacedWidget *widget = onlyWidget();
    if (!widget)
        return nullptr;
    for (const Handle &handle : allHandles()) {
        const QPointF distance = handlePoint(*widget, handle) - position;
        if (qMax(std::abs(distance.x()), std::abs(distance.y())) <= handleReach)
            return &handle;
    }
    return nullptr;
}

bool PageOverlay::isGrasped(const QPoint &position) const
{
    const PlacedWidget *widget = onlyWidget();
    if (!widget)
        return false;
    const WidgetState area = graspFrame(widget->state(), zoom());
    return area.size != widget->state().size &&
           cornersOf(area).containsPoint(m_view.mapToScene(position), Qt::OddEvenFill);
}

void PageOverlay::paint(QPainter &painter, const PageDrag *drag) const
{
    paintFrames(painter);
    paintHandles(painter);
    if (drag) {
        paintLabel(painter, *drag);
        paintBand(painter, drag->band());
    }
}

// A pen takes as long for a thousand widgets as the widgets themselves.
static void fillOutline(QPainter &painter, const QPoint &from, const QPoint &to,
                        const QColor &color)
{
    for (const QRect &side :
         {QRect(from, QPoint(to.x(), from.y())), QRect(QPoint(from.x(), to.y()), to),
          QRect(from, QPoint(from.x(), to.y())), QRect(QPoint(to.x(), from.y()), to)})
        painter.fillRect(side, color);
}

void PageOverlay::paintFrames(QPainter &painter) const
{
    const QColor color = m_view.palette().color(QPalette::Highlight);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, onlyWidget() ? 1.5 : 1));
    for (const PlacedWidget *widget : m_document.selection()) {
        const bool isRotated = widget->state().rotation != 0;
        const QPolygonF corners = m_view.viewportTransform().map(cornersOf(widget->state()));
        painter.setRenderHint(QPainter::Antialiasing, isRotated);
        if (onlyWidget() || isRotated)
            painter.drawPolygon(corners);
        else
            fillOutline(painter, corners[0].toPoint(), corners[2].toPoint(), color);
    }
    painter.setRenderHint(QPainter::Antialiasing);
}

void PageOverlay::paintHandles(QPainter &painter) const
{
    const PlacedWidget *widget = onlyWidget();
    if (!widget)
        return;
    painter.setPen(QPen(m_view.palette().color(QPalette::Highlight), 1.5));
    painter.drawLine(handlePoint(*widget, {0, -1}), handlePoint(*widget, {0, 0}));
    painter.setBrush(m_view.palette().color(QPalette::Base));
    for (const Handle &handle : allHandles()) {
        QRectF square(0, 0, handleSize, handleSize);
        square.moveCenter(handlePoint(*widget, handle));
        if (handle.isRotation())
            painter.drawEllipse(square);
        else
            painter.drawRect(square);
    }
}

//! Null for no label.
QRect PageOverlay::labelBox(const PageDrag *drag) const
{
    const QString text = drag ? drag->label() : QString();
    if (text.isEmpty())
        return {};
    const QWidget &viewport = *m_view.viewport();
    QRect box = viewport.fontMetrics().boundingRect(text).adjusted(-6, -3, 6, 3);
    box.moveTopLeft(viewport.mapFromGlobal(QCursor::pos()) + QPoint(16, 16));
    return box;
}

void PageOverlay::paintLabel(QPainter &painter, const PageDrag &drag) const
{
    const QRect box = labelBox(&drag);
    if (box.isNull())
        return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_view.palette().color(QPalette::ToolTipBase));
    painter.drawRoundedRect(box, 3, 3);
    painter.setPen(m_view.palette().color(QPalette::ToolTipText));
    painter.drawText(box, Qt::AlignCenter, drag.label());
}

void PageOverlay::paintBand(QPainter &painter, const QRectF &band) const
{
    if (band.isNull())
        return;
    QColor fill = m_view.palette().color(QPalette::Highlight);
    painter.setPen(fill);
    fill.setAlpha(40);
    painter.setBrush(fill);
    painter.drawPolygon(m_view.viewportTransform().map(QPolygonF(band)));
}

//! In scene units, without what is measured in pixels. Of many widgets each tells that it has
//! moved, so they are not looked through each time.
QRectF PageOverlay::area(const PageDrag *drag) const
{
    if (m_document.mode() != SceneDocument::Mode::Editor)
        return {};
    if (m_document.selection().size() > fewWidgets)
        return m_view.mapToScene(m_view.viewport()->rect()).boundingRect();
    QRectF area = drag ? drag->band() : QRectF();
    for (const PlacedWidget *widget : m_document.selection())
        area |= cornersOf(widget->state()).boundingRect();
    return area | m_view.mapToScene(labelBox(drag)).boundingRect();
}

void PageOverlay::update(const PageDrag *drag)
{
    static const int reach = rotationDistance + 3 * handleSize;
    const QRectF now = area(drag);
    for (const QRectF &changed : {m_area, now}) {
        if (!changed.isNull())
            m_view.viewport()->update(
                m_view.mapFromScene(changed).boundingRect().adjusted(-reach, -reach, reach, reach));
    }
    m_area = now;
}

} // namespace NARV::DEV
