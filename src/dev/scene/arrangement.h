#pragma once

#include "scene/widgetstate.h"

#include <QList>
#include <QStringList>

#include <zpplugin_dev_export.h>

namespace NARV::DEV {

//! The widgets moved so that their visible outlines meet at one edge or middle line of the outline
//! of all. One of Left, HCenter, Right, Top, VCenter and Bottom.
ZPPLUGIN_DEV_EXPORT QList<WidgetState> aligned(QList<WidgetState> states,
                                               Qt::AlignmentFlag alignment);

//! The widgets in rows, in their order and as high as their sizes make them, no wider than that
//! unless one widget is; room is the size that they take.
ZPPLUGIN_DEV_EXPORT QList<WidgetState> inRows(QList<WidgetState> states, double width,
                                              QSizeF &room);

//! The centre, nearest to the preferred one, for something of that size in the room that covers
//! nothing of what is taken; the preferred one if there is none.
ZPPLUGIN_DEV_EXPORT QPointF freeCentre(const QList<QRectF> &taken, const QSizeF &size,
                                       const QRectF &room, const QPointF &preferred);

//! Where in the stacking order widgets go.
enum class Stacking
{
    ToTop,
    Up, //!< above the next one that is not among them
    Down,
    ToBottom
};

//! All names in the new order; both orders with the lowest first.
ZPPLUGIN_DEV_EXPORT QStringList restacked(const QStringList &names, const QStringList &moved,
                                          Stacking where);

} // namespace NARV::DEV
