#include "drawing.h"

#include <QFontMetricsF>
#include <QPainter>

static constexpr qreal smallestPointSize = 4;

void drawPlate(QPainter &painter, const QRectF &area, const PlateStyle &style)
{
    const qreal half = style.frameWidth / 2;
    painter.setPen(style.frameWidth > 0 ? QPen(style.frame, style.frameWidth) : QPen(Qt::NoPen));
    painter.setBrush(style.fill.isValid() ? QBrush(style.fill) : QBrush(Qt::NoBrush));
    const QRectF plate = area.adjusted(half, half, -half, -half);
    painter.drawRoundedRect(plate, style.radius, style.radius);
}

//! The font, made as small as it takes for the text to fit into size.
static QFont fitted(const QFont &font, const QString &text, const QSizeF &size)
{
    const QSizeF needed = QFontMetricsF(font).size(Qt::TextSingleLine, text);
    const qreal factor = qMin(size.width() / needed.width(), size.height() / needed.height());
    if (!(factor < 1) || font.pointSizeF() <= 0)
        return font;
    QFont smaller(font);
    smaller.setPointSizeF(qMax(smallestPointSize, font.pointSizeF() * factor));
    return smaller;
}

static void drawLine(QPainter &painter, const QRectF &area, int alignment, const QString &text,
                     const QFont &font, const QColor &color)
{
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(area, alignment | Qt::TextSingleLine, text);
}

void drawFittedText(QPainter &painter, const QRectF &area, int alignment, const QString &text,
                    const QFont &font, const QColor &color)
{
    if (!text.isEmpty())
        drawLine(painter, area, alignment, text, fitted(font, text, area.size()), color);
}

void drawElidedText(QPainter &painter, const QRectF &area, const QString &text, const QFont &font,
                    const QColor &color)
{
    const QString shown = QFontMetricsF(font).elidedText(text, Qt::ElideRight, area.width());
    drawLine(painter, area, Qt::AlignLeft | Qt::AlignVCenter, shown, font, color);
}

qreal lineHeight(const QFont &font)
{
    return QFontMetricsF(font).height() * 1.2;
}

qreal textWidth(const QFont &font, const QString &text)
{
    return QFontMetricsF(font).horizontalAdvance(text);
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
