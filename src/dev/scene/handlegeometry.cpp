#include "scene/handlegeometry.h"

#include <QTransform>
#include <QtMath>

#include <cmath>

namespace NARV::DEV {

static const int snapDegrees = 15;

const QVector<Handle> &allHandles()
{
    static const QVector<Handle> handles = {{-1, -1}, {0, -1}, {1, -1}, {1, 0}, {1, 1},
                                            {0, 1},   {-1, 1}, {-1, 0}, {0, 0}};
    return handles;
}

QPointF centreOf(const WidgetState &state)
{
    return state.position + QPointF(state.size.width() / 2, state.size.height() / 2);
}

//! From coordinates about the widget's centre, along its sides, to the scene.
static QTransform frameOf(const WidgetState &state)
{
    const QPointF centre = centreOf(state);
    return QTransform::fromTranslate(centre.x(), centre.y()).rotate(state.rotation);
}

QPolygonF cornersOf(const WidgetState &state)
{
    const double x = state.size.width() / 2;
    const double y = state.size.height() / 2;
    return frameOf(state).map(QPolygonF({{-x, -y}, {x, -y}, {x, y}, {-x, y}}));
}

QPointF handlePosition(const WidgetState &state, const Handle &handle, double distance)
{
    const double x = handle.horizontal * state.size.width() / 2;
    const double y = handle.isRotation() ? -state.size.height() / 2 - distance
                                         : handle.vertical * state.size.height() / 2;
    return frameOf(state).map(QPointF(x, y));
}

static double wholeLength(double length)
{
    return qMax(1.0, std::round(length));
}

WidgetState resized(const WidgetState &state, const Handle &handle, const QPointF &point,
                    bool keepRatio)
{
    const QTransform frame = frameOf(state);
    const QPointF local = frame.inverted().map(point);
    const QPointF fixed(-handle.horizontal * state.size.width() / 2,
                        -handle.vertical * state.size.height() / 2);
    WidgetState after = state;
    if (handle.horizontal)
        after.size.setWidth(wholeLength(handle.horizontal * (local.x() - fixed.x())));
    if (handle.vertical)
        after.size.setHeight(wholeLength(handle.vertical * (local.y() - fixed.y())));
    if (keepRatio && handle.horizontal && handle.vertical && !state.size.isEmpty()) {
        const double scale = qMax(after.size.width() / state.size.width(),
                                  after.size.height() / state.size.height());
        after.size = {wholeLength(scale * state.size.width()),
                      wholeLength(scale * state.size.height())};
    }
    const QPointF centre = frame.map(fixed + QPointF(handle.horizontal * after.size.width() / 2,
                                                     handle.vertical * after.size.height() / 2));
    after.position = centre - QPointF(after.size.width() / 2, after.size.height() / 2);
    return after;
}

WidgetState rotated(const WidgetState &state, const QPointF &point, bool snap)
{
    const QPointF direction = point - centreOf(state);
    const double degrees = qRadiansToDegrees(std::atan2(direction.x(), -direction.y()));
    const double step = snap ? snapDegrees : 1;
    WidgetState after = state;
    after.rotation = std::round(degrees / step) * step;
    if (after.rotation <= -180)
        after.rotation += 360;
    return after;
}

} // namespace NARV::DEV
