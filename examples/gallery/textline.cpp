#include "textline.h"

#include <QCache>
#include <QFontMetricsF>
#include <QPainter>

static constexpr int mostLines = 2000;

namespace {

//! All that decides how a line is laid out.
struct Key
{
    QString text;
    QFont font;
    qreal room;
};

bool operator==(const Key &one, const Key &other)
{
    return one.room == other.room && one.text == other.text && one.font == other.font;
}

uint qHash(const Key &key, uint seed)
{
    return qHash(key.text, seed);
}

} // namespace

TextLine::TextLine(const QString &text, const QFont &font, qreal room)
    : m_font(font)
{
    const QString line = QString(text).replace(QLatin1Char('\n'), QLatin1Char(' '));
    m_text.setText(QFontMetricsF(font).elidedText(line, Qt::ElideRight, room));
    m_text.setTextFormat(Qt::PlainText);
    m_text.prepare({}, font);
}

TextLine TextLine::of(const QString &text, const QFont &font, qreal room)
{
    static QCache<Key, TextLine> lines(mostLines);
    const Key key{text, font, room};
    if (const TextLine *known = lines.object(key))
        return *known;
    const TextLine line(text, font, room);
    lines.insert(key, new TextLine(line));
    return line;
}

void TextLine::draw(QPainter &painter, const QPointF &topLeft, const QColor &color) const
{
    painter.setFont(m_font);
    painter.setPen(color);
    painter.drawStaticText(topLeft, m_text);
}
