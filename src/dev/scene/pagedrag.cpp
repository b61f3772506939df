#include "scene/pagedrag.h"

#include <QCoreApplication>

#include <cmath>

namespace NARV::DEV {

static QString tr(const char *text)
{
    return QCoreApplication::translate("NARV::DEV::PageDrag", text);
}

//! A key for the steps of one drag that no other drag has.
static int freshKey()
{
    static int last = 0;
    return ++last;
}

GeometryDrag::GeometryDrag(SceneDocument &document, const QList<PlacedWidget *> &widgets,
                           const QPointF &start)
    : m_document(document)
    , m_title(document.titleOf(widgets))
    , m_start(start)
    , m_key(freshKey())
{
    for (const PlacedWidget *widget : widgets)
        m_states += widget->state();
}

QPointF GeometryDrag::offset(const QPointF &position, Qt::KeyboardModifiers) const
{
    return position - m_start;
}

void GeometryDrag::moveTo(const QPointF &position, Qt::KeyboardModifiers modifiers)
{
    const QPointF by = offset(position, modifiers);
    if (!m_hasMoved && by.isNull())
        return;
    m_hasMoved = true;
    QList<WidgetState> after;
    for (const WidgetState &state : qAsConst(m_states))
        after += dragged(state, by, position, modifiers);
    m_document.setGeometries(after, stepText(), m_key);
    m_stackIndex = m_document.undoStack().index();
    m_label = labelFor(after.last());
}

void GeometryDrag::cancel()
{
    // Unless it was undone already, or something else was done since.
    if (m_hasMoved && m_document.undoStack().index() == m_stackIndex)
        m_document.undoStack().undo();
}

QPointF MoveDrag::offset(const QPointF &position, Qt::KeyboardModifiers modifiers) const
{
    const QPointF by = GeometryDrag::offset(position, modifiers);
    const bool isAlongX = std::abs(by.x()) >= std::abs(by.y());
    const bool keepsAxis = modifiers & Qt::ShiftModifier;
    // To a whole position, so that lines stay sharp.
    const QPointF from = states().first().position;
    const QPointF whole = QPointF((from + by).toPoint()) - from;
    return {keepsAxis && !isAlongX ? 0 : whole.x(), keepsAxis && isAlongX ? 0 : whole.y()};
}

WidgetState MoveDrag::dragged(const WidgetState &state, const QPointF &offset, const QPointF &,
                              Qt::KeyboardModifiers) const
{
    WidgetState after = state;
    after.position += offset;
    return after;
}

QString MoveDrag::labelFor(const WidgetState &state) const
{
    return QStringLiteral("%1, %2").arg(qRound(state.position.x())).arg(qRound(state.position.y()));
}

QString MoveDrag::stepText() const
{
    return tr("Move %1").arg(title());
}

HandleDrag::HandleDrag(SceneDocument &document, PlacedWidget &widget, const Handle &handle,
                       const QPointF &start)
    : GeometryDrag(document, {&widget}, start)
    , m_handle(handle)
    , m_grip(handle.isRotation() ? QPointF() : handlePosition(widget.state(), handle, 0) - start)
{
}

WidgetState HandleDrag::dragged(const WidgetState &state, const QPointF &, const QPointF &position,
                                Qt::KeyboardModifiers modifiers) const
{
    const bool isShift = modifiers & Qt::ShiftModifier;
    return m_handle.isRotation() ? rotated(state, position, isShift)
                                 : resized(state, m_handle, position + m_grip, isShift);
}

QString HandleDrag::labelFor(const WidgetState &state) const
{
    return m_handle.isRotation()
               ? QStringLiteral("%1°").arg(state.rotation)
               : QStringLiteral("%1 × %2").arg(state.size.width()).arg(state.size.height());
}

QString HandleDrag::stepText() const
{
    return (m_handle.isRotation() ? tr("Rotate %1") : tr("Resize %1")).arg(title());
}

BandDrag::BandDrag(SceneDocument &document, const QPointF &start, bool extends)
    : m_document(document)
    , m_extends(extends)
    , m_start(start)
{
    for (PlacedWidget *widget : document.selection())
        m_selectedBefore += widget;
    if (!extends)
        document.select({});
}

//! Without those that have been removed since.
QList<PlacedWidget *> BandDrag::selectedBefore() const
{
    QList<PlacedWidget *> widgets;
    for (const QPointer<PlacedWidget> &widget : m_selectedBefore) {
        if (widget)
            widgets += widget;
    }
    return widgets;
}

void BandDrag::moveTo(const QPointF &position, Qt::KeyboardModifiers)
{
    m_band = QRectF(m_start, position).normalized();
    QList<PlacedWidget *> selected = m_extends ? selectedBefore() : QList<PlacedWidget *>();
    const QSet<PlacedWidget *> kept(selected.begin(), selected.end());
    for (PlacedWidget *widget : m_document.widgets()) {
        if (!kept.contains(widget) && cornersOf(widget->state()).intersects(QPolygonF(m_band)))
            selected += widget;
    }
    m_document.select(selected);
}

void BandDrag::cancel()
{
    m_document.select(selectedBefore());
}

} // namespace NARV::DEV
