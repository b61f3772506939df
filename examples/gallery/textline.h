#pragma once

#include <QFont>
#include <QStaticText>

class QColor;
class QPainter;

//! A text laid out in one line. To lay it out takes much longer than to draw it, so the lines that
//! were wanted last are kept, for all widgets.
class TextLine
{
public:
    static constexpr qreal endless = 1e6; //!< more room than any text needs

    //! The line of a text, cut off with dots if it needs more room than this, in pixels.
    static TextLine of(const QString &text, const QFont &font, qreal room = endless);

    QSizeF size() const { return m_text.size(); }
    void draw(QPainter &painter, const QPointF &topLeft, const QColor &color) const;

private:
    TextLine(const QString &text, const QFont &font, qreal room);

    QFont m_font;
    QStaticText m_text;
};
