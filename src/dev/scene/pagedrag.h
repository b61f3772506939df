#pragma once

#include "scene/handlegeometry.h"
#include "scene/scenedocument.h"

#include <QPointer>
#include <QRectF>

namespace NARV::DEV {

//! What the mouse does to the page from press to release. Positions are in scene units.
class PageDrag
{
public:
    virtual ~PageDrag() = default;

    virtual void moveTo(const QPointF &position, Qt::KeyboardModifiers modifiers) = 0;
    //! Puts everything back.
    virtual void cancel() = 0;
    //! It is more than a click.
    virtual bool hasMoved() const = 0;
    //! What to show at the cursor, such as a size; empty for nothing.
    virtual QString label() const { return {}; }
    //! The rubber band to draw; null for none.
    virtual QRectF band() const { return {}; }
};

//! A drag that changes widgets' geometry, as one step of the undo stack.
class GeometryDrag : public PageDrag
{
public:
    GeometryDrag(SceneDocument &document, const QList<PlacedWidget *> &widgets,
                 const QPointF &start);

    void moveTo(const QPointF &position, Qt::KeyboardModifiers modifiers) override;
    void cancel() override;
    bool hasMoved() const override { return m_hasMoved; }
    QString label() const override { return m_label; }

protected:
    //! One widget's state after the drag from its start to there.
    virtual WidgetState dragged(const WidgetState &state, const QPointF &offset,
                                const QPointF &position, Qt::KeyboardModifiers modifiers) const = 0;
    virtual QString labelFor(const WidgetState &state) const = 0;
    virtual QString stepText() const = 0;
    //! From the last start of the drag to there, as it applies to all widgets.
    virtual QPointF offset(const QPointF &position, Qt::KeyboardModifiers modifiers) const;

    const QList<WidgetState> &states() const { return m_states; }
    const QString &title() const { return m_title; }

private:
    SceneDocument &m_document;
    QList<WidgetState> m_states; //!< at the start
    QString m_title;             //!< of the widgets
    QPointF m_start;
    int m_key;
    int m_stackIndex = 0; //!< after the last move
    bool m_hasMoved = false;
    QString m_label;
};

//! Moves the widgets; Shift keeps to one axis.
class MoveDrag : public GeometryDrag
{
public:
    using GeometryDrag::GeometryDrag;

protected:
    QPointF offset(const QPointF &position, Qt::KeyboardModifiers modifiers) const override;
    WidgetState dragged(const WidgetState &state, const QPointF &offset, const QPointF &position,
                        Qt::KeyboardModifiers modifiers) const override;
    QString labelFor(const WidgetState &state) const override;
    QString stepText() const override;
};

//! Resizes or rotates one widget by a handle; Shift keeps the proportions, or snaps the angle.
class HandleDrag : public GeometryDrag
{
public:
    HandleDrag(SceneDocument &document, PlacedWidget &widget, const Handle &handle,
               const QPointF &start);

protected:
    WidgetState dragged(const WidgetState &state, const QPointF &offset, const QPointF &position,
                        Qt::KeyboardModifiers modifiers) const override;
    QString labelFor(const WidgetState &state) const override;
    QString stepText() const override;

private:
    Handle m_handle;
    QPointF m_grip; //!< from the cursor to the handle at the start
};

//! Selects what a rubber band touches, beside what was selected if Ctrl or Shift is held.
class BandDrag : public PageDrag
{
public:
    BandDrag(SceneDocument &document, const QPointF &start, bool extends);

    void moveTo(const QPointF &position, Qt::KeyboardModifiers modifiers) override;
    void cancel() override;
    bool hasMoved() const override { return !m_band.isNull(); }
    QRectF band() const override { return m_band; }

private:
    QList<PlacedWidget *> selectedBefore() const;

    SceneDocument &m_document;
    QList<QPointer<PlacedWidget>> m_selectedBefore;
    bool m_extends;
    QPointF m_start;
    QRectF m_band;
};

} // namespace NARV::DEV
