#pragma once

#include "symbols.h"

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QString>
#include <QVector>

class QPainter;

//! The colours of what the operator presses.
struct ControlColors
{
    QColor plate;
    QColor ink;
    QColor frame;
};

//! Draws a button with a symbol.
void drawSymbolButton(QPainter &painter, const QRectF &area, Symbol symbol, bool isPressed,
                      const ControlColors &colors);

//! A question with two buttons, laid out in an area: beside it if the area is wide, else below.
class Confirmation
{
public:
    enum Part
    {
        No,
        Yes
    };

    explicit Confirmation(const QRectF &area);

    QVector<QRectF> parts() const { return {m_no, m_yes}; }
    //! pressedPart is a Part, or any other number for none.
    void draw(QPainter &painter, const QString &question, const QFont &font,
              const ControlColors &colors, int pressedPart) const;

private:
    QRectF m_area;
    QRectF m_question;
    QRectF m_no;
    QRectF m_yes;
};
