#pragma once

#include <QColor>
#include <QRectF>

class QFont;
class QPainter;
class QString;

//! How a plate looks. An invalid fill leaves the ground as it is.
struct PlateStyle
{
    QColor fill;
    QColor frame;
    qreal frameWidth = 1; //!< in pixels; 0 for no frame
    qreal radius = 0;     //!< of the corners, in pixels
};

//! Fills a rectangle and draws its frame inside it.
void drawPlate(QPainter &painter, const QRectF &area, const PlateStyle &style);

//! Draws one line of text at half the height of area, in smaller type if it would not fit. The
//! alignment is left, right or else centred.
void drawFittedText(QPainter &painter, const QRectF &area, int alignment, const QString &text,
                    const QFont &font, const QColor &color);
//! Draws a text in the middle of area, in several lines if there is room for them, else fitted.
void drawWrappedText(QPainter &painter, const QRectF &area, const QString &text, const QFont &font,
                     const QColor &color);
//! Draws one line of text at the left of area, cut off with dots if it would not fit.
void drawElidedText(QPainter &painter, const QRectF &area, const QString &text, const QFont &font,
                    const QColor &color);

//! The ink, or one as near to it as can be read on a ground.
QColor legible(const QColor &ink, const QColor &ground);

//! The height to reserve for one line of text.
qreal lineHeight(const QFont &font);
qreal textWidth(const QFont &font, const QString &text);
//! Of ticks in a row on a length, every how manieth has room for a label.
int labelInterval(int ticks, qreal length, qreal label);

//! Cut a strip off area and return it. What is asked for too much is not cut off.
QRectF takeTop(QRectF &area, qreal height);
QRectF takeBottom(QRectF &area, qreal height);
QRectF takeLeft(QRectF &area, qreal width);
QRectF takeRight(QRectF &area, qreal width);
