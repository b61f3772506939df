#include "confirmation.h"

#include "drawing.h"

static constexpr qreal gap = 4;
static constexpr qreal wide = 4; // width over height
static constexpr qreal widestButton = 72;
static constexpr int pressedDarkness = 118; // in percent

void drawSymbolButton(QPainter &painter, const QRectF &area, Symbol symbol, bool isPressed,
                      const ControlColors &colors)
{
    const QColor plate = isPressed ? colors.plate.darker(pressedDarkness) : colors.plate;
    drawPlate(painter, area, {plate, colors.frame, 1, gap});
    drawSymbol(painter, area, symbol, legible(colors.ink, plate));
}

Confirmation::Confirmation(const QRectF &area)
    : m_area(area)
    , m_question(area.adjusted(gap, gap, -gap, -gap))
{
    if (area.width() >= area.height() * wide) {
        const qreal width = qMin(widestButton, m_question.width() / 5);
        m_yes = takeRight(m_question, width);
        takeRight(m_question, gap);
        m_no = takeRight(m_question, width);
        takeRight(m_question, gap);
        return;
    }
    QRectF row = takeBottom(m_question, m_question.height() / 2);
    m_no = takeLeft(row, (row.width() - gap) / 2);
    takeLeft(row, gap);
    m_yes = row;
}

void Confirmation::draw(QPainter &painter, const QString &question, const QFont &font,
                        const ControlColors &colors, int pressedPart) const
{
    drawPlate(painter, m_area, {colors.plate.lighter(110), colors.ink, 2, gap});
    drawWrappedText(painter, m_question, question, font,
                    legible(colors.ink, colors.plate.lighter(110)));
    drawSymbolButton(painter, m_no, Symbol::Reject, pressedPart == No, colors);
    drawSymbolButton(painter, m_yes, Symbol::Accept, pressedPart == Yes, colors);
}
