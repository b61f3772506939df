#pragma once

#include "scene/widgetstate.h"

#include <QPolygonF>

#include <zpplugin_dev_export.h>

//! Where a widget is on the page and what its handles do to it. All points are in scene units.
namespace NARV::DEV {

//! One of the nine handles of a selected widget.
struct Handle
{
    //! The side that it moves: -1 for left or top, 1 for right or bottom, 0 for none.
    int horizontal = 0;
    int vertical = 0;

    //! The handle that turns the widget is above it and moves no side.
    bool isRotation() const { return horizontal == 0 && vertical == 0; }
    bool operator==(const Handle &other) const
    {
        return horizontal == other.horizontal && vertical == other.vertical;
    }
};

//! Eight handles that resize, then the one that rotates.
ZPPLUGIN_DEV_EXPORT const QVector<Handle> &allHandles();

ZPPLUGIN_DEV_EXPORT QPointF centreOf(const WidgetState &state);
//! The four corners, from the unrotated top left one clockwise.
ZPPLUGIN_DEV_EXPORT QPolygonF cornersOf(const WidgetState &state);
//! Where a handle is; the one that rotates has that distance to the widget.
ZPPLUGIN_DEV_EXPORT QPointF handlePosition(const WidgetState &state, const Handle &handle,
                                           double distance);

//! In pixels, so near to its middle a handle is taken hold of.
constexpr int handleReach = 7;
//! The frame with the handles: that of the widget, wider if it is so small on the screen that the
//! handles would cover its middle.
ZPPLUGIN_DEV_EXPORT WidgetState handleFrame(const WidgetState &state, double zoom);
//! Where the widget can be grasped to be moved: the widget itself, more if it is too small to hit.
ZPPLUGIN_DEV_EXPORT WidgetState graspFrame(const WidgetState &state, double zoom);

//! The widget after its handle was dragged to a point: the opposite side or corner stays where it
//! is, and sizes are whole numbers of at least 1. With keepRatio a corner keeps the proportions.
ZPPLUGIN_DEV_EXPORT WidgetState resized(const WidgetState &state, const Handle &handle,
                                        const QPointF &point, bool keepRatio);
//! The widget turned so that the handle above it points at a point, in whole degrees from -179 to
//! 180; with snap in steps of 15.
ZPPLUGIN_DEV_EXPORT WidgetState rotated(const WidgetState &state, const QPointF &point, bool snap);

} // namespace NARV::DEV
