#pragma once

#include <QtGlobal>

class QColor;
class QPainter;
class QRectF;

//! Signs that need no words.
enum class Symbol
{
    None,
    Accept,
    Reject,
    Erase, //!< the last character
    Undo,
    Padlock,
    Down, //!< opens a list
    Minus,
    Plus,
    Latest, //!< to the newest data
    Restart //!< a reset
};

//! Draws a symbol in the middle of area, in lines of a width that goes with its size.
void drawSymbol(QPainter &painter, const QRectF &area, Symbol symbol, const QColor &ink,
                qreal largest = 24);
