#include "scene/handlegeometry.h"

#include <QTransform>
#include <QtMath>

#include <cmath>

namespace NARV::DEV {

static const int snapDegrees = 15;

// In pixels of the screen.
static const int leastGrasp = 12;
static const int usualGrasp = 26; // between handles that stand on the widget's own frame

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

//! The same about the centre, with other lengths in pixels.
static WidgetState withLengths(const WidgetState &state, double zoom, double (*length)(double))
{
    WidgetState after = state;
    after.size = {length(state.size.width() * zoom) / zoom,
                  length(state.size.height() * zoom) / zoom};
    after.position = centreOf(state) - QPointF(after.size.width() / 2, after.size.height() / 2);
    return after;
}

WidgetState graspFrame(const WidgetState &state, double zoom)
{
    return withLengths(state, zoom, [](double length) { return qMax<double>(length, leastGrasp); });
}

WidgetState handleFrame(const WidgetState &state, double zoom)
{
    return withLengths(state, zoom, [](double length) {
        const double grasp = qBound<double>(leastGrasp, length, usualGrasp);
        return qMax(length, grasp + 2 * handleReach);
    });
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
