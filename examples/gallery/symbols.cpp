#include "symbols.h"

#include <QColor>
#include <QPainter>
#include <QPainterPath>

#include <iterator>

static constexpr qreal shareOfArea = 0.6;
static constexpr qreal lineWidth = 0.11;

// Lines in a square from -0.5 to 0.5. A letter says what to do with the point: M moves, L draws.
static constexpr struct
{
    Symbol symbol;
    struct
    {
        char step;
        qreal x;
        qreal y;
    } points[13];
} outlines[] = {
    {Symbol::Accept, {{'M', -0.4, 0.05}, {'L', -0.12, 0.33}, {'L', 0.42, -0.3}}},
    {Symbol::Reject,
     {{'M', -0.33, -0.33}, {'L', 0.33, 0.33}, {'M', 0.33, -0.33}, {'L', -0.33, 0.33}}},
    {Symbol::Erase,
     {{'M', -0.5, 0},
      {'L', -0.2, -0.33},
      {'L', 0.48, -0.33},
      {'L', 0.48, 0.33},
      {'L', -0.2, 0.33},
      {'L', -0.5, 0},
      {'M', -0.04, -0.14},
      {'L', 0.24, 0.14},
      {'M', 0.24, -0.14},
      {'L', -0.04, 0.14}}},
    {Symbol::Undo,
     {{'M', -0.22, -0.42},
      {'L', -0.44, -0.18},
      {'L', -0.22, 0.06},
      {'M', -0.44, -0.18},
      {'L', 0.2, -0.18},
      {'L', 0.42, 0.06},
      {'L', 0.2, 0.34},
      {'L', -0.2, 0.34}}},
    {Symbol::Padlock,
     {{'M', -0.34, -0.06},
      {'L', 0.34, -0.06},
      {'L', 0.34, 0.44},
      {'L', -0.34, 0.44},
      {'L', -0.34, -0.06},
      {'M', -0.2, -0.06},
      {'L', -0.2, -0.3},
      {'L', -0.1, -0.44},
      {'L', 0.1, -0.44},
      {'L', 0.2, -0.3},
      {'L', 0.2, -0.06}}},
    {Symbol::Down, {{'M', -0.36, -0.16}, {'L', 0, 0.2}, {'L', 0.36, -0.16}}},
    {Symbol::Minus, {{'M', -0.36, 0}, {'L', 0.36, 0}}},
    {Symbol::Plus, {{'M', -0.36, 0}, {'L', 0.36, 0}, {'M', 0, -0.36}, {'L', 0, 0.36}}},
    {Symbol::Latest,
     {{'M', -0.36, -0.34}, {'L', 0, 0}, {'L', -0.36, 0.34}, {'M', 0.3, -0.36}, {'L', 0.3, 0.36}}},
};

//! An arrow that goes round in a circle.
static QPainterPath restart()
{
    static const QRectF circle(-0.38, -0.38, 0.76, 0.76);
    QPainterPath path;
    path.arcMoveTo(circle, -15);
    path.arcTo(circle, -15, -300);
    const QPointF tip = path.currentPosition();
    path.moveTo(tip + QPointF(-0.27, -0.02));
    path.lineTo(tip);
    path.lineTo(tip + QPointF(-0.02, -0.27));
    return path;
}

static QPainterPath outlineOf(Symbol symbol)
{
    if (symbol == Symbol::Restart)
        return restart();
    QPainterPath path;
    for (const auto &outline : outlines) {
        if (outline.symbol != symbol)
            continue;
        for (const auto &point : outline.points) {
            if (point.step == 'M')
                path.moveTo(point.x, point.y);
            else if (point.step == 'L')
                path.lineTo(point.x, point.y);
        }
    }
    return path;
}

void drawSymbol(QPainter &painter, const QRectF &area, Symbol symbol, const QColor &ink,
                qreal largest)
{
    const qreal side = qMin(largest, qMin(area.width(), area.height()) * shareOfArea);
    if (side <= 0)
        return;
    painter.save();
    painter.translate(area.center());
    painter.scale(side, side);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ink, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(outlineOf(symbol));
    painter.restore();
}
