#include "scene/arrangement.h"

#include "scene/handlegeometry.h"

#include <QLineF>

#include <algorithm>
#include <functional>
#include <limits>

namespace NARV::DEV {

static QPointF shift(const QRectF &from, const QRectF &to, Qt::AlignmentFlag alignment)
{
    switch (alignment) {
    case Qt::AlignLeft:
        return {to.left() - from.left(), 0};
    case Qt::AlignHCenter:
        return {to.center().x() - from.center().x(), 0};
    case Qt::AlignRight:
        return {to.right() - from.right(), 0};
    case Qt::AlignTop:
        return {0, to.top() - from.top()};
    case Qt::AlignVCenter:
        return {0, to.center().y() - from.center().y()};
    case Qt::AlignBottom:
        return {0, to.bottom() - from.bottom()};
    default:
        return {};
    }
}

QList<WidgetState> aligned(QList<WidgetState> states, Qt::AlignmentFlag alignment)
{
    QRectF all;
    for (const WidgetState &state : qAsConst(states))
        all |= cornersOf(state).boundingRect();
    for (WidgetState &state : states)
        state.position += shift(cornersOf(state).boundingRect(), all, alignment);
    return states;
}

QList<WidgetState> inRows(QList<WidgetState> states, double width, QSizeF &room)
{
    static const double gap = 16;
    QPointF next(gap, gap);
    room = QSizeF(gap, gap);
    for (WidgetState &state : states) {
        if (next.x() > gap && next.x() + state.size.width() + gap > width)
            next = QPointF(gap, room.height());
        state.position = next;
        next.rx() += state.size.width() + gap;
        room = room.expandedTo(QSizeF(next.x(), next.y() + state.size.height() + gap));
    }
    return states;
}

QPointF freeCentre(const QList<QRectF> &taken, const QSizeF &size, const QRectF &room,
                   const QPointF &preferred)
{
    static const double step = 16;
    QRectF place(QPointF(), size);
    const auto isFree = [&taken, &place] {
        return std::none_of(taken.begin(), taken.end(),
                            [&place](const QRectF &other) { return other.intersects(place); });
    };
    place.moveCenter(preferred);
    if (isFree())
        return preferred;
    QPointF best = preferred;
    double least = std::numeric_limits<double>::max();
    for (double y = room.top() + step; y + size.height() <= room.bottom(); y += step) {
        for (double x = room.left() + step; x + size.width() <= room.right(); x += step) {
            place.moveTopLeft({x, y});
            const double distance = QLineF(place.center(), preferred).length();
            if (distance < least && isFree()) {
                least = distance;
                best = place.center();
            }
        }
    }
    return best;
}

//! Moves each of them one place up, past one that stays.
static void raise(QStringList &names, const QStringList &moved)
{
    for (int i = names.size() - 2; i >= 0; --i) {
        if (moved.contains(names[i]) && !moved.contains(names[i + 1]))
            names.swapItemsAt(i, i + 1);
    }
}

QStringList restacked(const QStringList &names, const QStringList &moved, Stacking where)
{
    QStringList order = names;
    const auto isMoved = [&](const QString &name) { return moved.contains(name); };
    const bool isDownward = where == Stacking::Down || where == Stacking::ToBottom;
    if (isDownward)
        std::reverse(order.begin(), order.end());
    if (where == Stacking::Up || where == Stacking::Down)
        raise(order, moved);
    else
        std::stable_partition(order.begin(), order.end(), std::not_fn(isMoved));
    if (isDownward)
        std::reverse(order.begin(), order.end());
    return order;
}

} // namespace NARV::DEV
