#include "drawing.h"

#include "textline.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

static constexpr qreal smallestPointSize = 4;
static constexpr double leastContrast = 4.5; // what small type needs, of 1 to 21

void drawPlate(QPainter &painter, const QRectF &area, const PlateStyle &style)
{
    const qreal half = style.frameWidth / 2;
    painter.setPen(style.frameWidth > 0 ? QPen(style.frame, style.frameWidth) : QPen(Qt::NoPen));
    painter.setBrush(style.fill.isValid() ? QBrush(style.fill) : QBrush(Qt::NoBrush));
    const QRectF plate = area.adjusted(half, half, -half, -half);
    painter.drawRoundedRect(plate, style.radius, style.radius);
}

//! The line, in type as small as it takes to fit into size.
static TextLine fitted(const QFont &font, const QString &text, const QSizeF &size)
{
    const TextLine line = TextLine::of(text, font);
    const QSizeF needed = line.size();
    const qreal factor = qMin(size.width() / needed.width(), size.height() / needed.height());
    if (!(factor < 1) || font.pointSizeF() <= 0)
        return line;
    QFont smaller(font);
    smaller.setPointSizeF(qMax(smallestPointSize, font.pointSizeF() * factor));
    return TextLine::of(text, smaller);
}

static void drawLine(QPainter &painter, const QRectF &area, int alignment, const TextLine &line,
                     const QColor &color)
{
    QRectF place({}, line.size());
    place.moveCenter(area.center());
    if (alignment & Qt::AlignLeft)
        place.moveLeft(area.left());
    else if (alignment & Qt::AlignRight)
        place.moveRight(area.right());
    painter.save();
    if (!area.contains(place))
        painter.setClipRect(area, Qt::IntersectClip);
    line.draw(painter, place.topLeft(), color);
    painter.restore();
}

void drawFittedText(QPainter &painter, const QRectF &area, int alignment, const QString &text,
                    const QFont &font, const QColor &color)
{
    if (!text.isEmpty())
        drawLine(painter, area, alignment, fitted(font, text, area.size()), color);
}

void drawWrappedText(QPainter &painter, const QRectF &area, const QString &text, const QFont &font,
                     const QColor &color)
{
    static constexpr int flags = int(Qt::AlignCenter) | Qt::TextWordWrap;
    if (!area.contains(QFontMetricsF(font).boundingRect(area, flags, text)))
        return drawFittedText(painter, area, Qt::AlignCenter, text, font, color);
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(area, flags, text);
}

void drawElidedText(QPainter &painter, const QRectF &area, const QString &text, const QFont &font,
                    const QColor &color)
{
    drawLine(painter, area, Qt::AlignLeft, TextLine::of(text, font, area.width()), color);
}

static double linear(qreal channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

static double luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

static double contrast(const QColor &one, const QColor &other)
{
    const double a = luminance(one);
    const double b = luminance(other);
    return (qMax(a, b) + 0.05) / (qMin(a, b) + 0.05);
}

//! A colour on the way from one to another; 0 is the first, 1 the second.
static QColor between(const QColor &from, const QColor &to, qreal part)
{
    const auto mixed = [part](qreal a, qreal b) { return a + (b - a) * part; };
    return QColor::fromRgbF(mixed(from.redF(), to.redF()), mixed(from.greenF(), to.greenF()),
                            mixed(from.blueF(), to.blueF()));
}

QColor legible(const QColor &ink, const QColor &ground)
{
    static constexpr int steps = 10;
    if (!ink.isValid() || !ground.isValid())
        return ink;
    const QColor black(Qt::black);
    const QColor white(Qt::white);
    const QColor end = contrast(black, ground) > contrast(white, ground) ? black : white;
    QColor found = ink;
    for (int i = 1; i <= steps && contrast(found, ground) < leastContrast; ++i)
        found = between(ink, end, qreal(i) / steps);
    return found;
}

qreal lineHeight(const QFont &font)
{
    return QFontMetricsF(font).height() * 1.2;
}

qreal textWidth(const QFont &font, const QString &text)
{
    return TextLine::of(text, font).size().width();
}

int labelInterval(int ticks, qreal length, qreal label)
{
    if (!(length > 0))
        return qMax(1, ticks);
    return qBound(1, int(std::ceil(ticks * label / length)), qMax(1, ticks));
}

QRectF takeTop(QRectF &area, qreal height)
{
    const QRectF strip(area.left(), area.top(), area.width(), qBound(0.0, height, area.height()));
    area.setTop(strip.bottom());
    return strip;
}

QRectF takeBottom(QRectF &area, qreal height)
{
    QRectF rest = area;
    area = takeTop(rest, area.height() - height);
    return rest;
}

QRectF takeLeft(QRectF &area, qreal width)
{
    const QRectF strip(area.left(), area.top(), qBound(0.0, width, area.width()), area.height());
    area.setLeft(strip.right());
    return strip;
}

QRectF takeRight(QRectF &area, qreal width)
{
    QRectF rest = area;
    area = takeLeft(rest, area.width() - width);
    return rest;
}
