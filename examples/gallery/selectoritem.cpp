#include "selectoritem.h"

#include "drawing.h"
#include "popup.h"

#include <QKeyEvent>
#include <QPainter>

enum Style
{
    Buttons,
    List
};

static constexpr qreal padding = 8;
static constexpr qreal lowestEntry = 44; // to be hit by a finger
static constexpr qreal gap = 4;

SelectorItem::SelectorItem(const NARV::GraphicsObjectData &data)
    : ControlItem(data)
{
}

SelectorItem::~SelectorItem()
{
    delete m_popup;
}

bool SelectorItem::isList()
{
    return integer("style") == List;
}

int SelectorItem::selected()
{
    const qint64 index = qint64(integer("value")) - integer("firstNumber");
    return index >= 0 && index < texts("entries").size() ? int(index) : -1;
}

void SelectorItem::choose(int index)
{
    const QStringList entries = texts("entries");
    if (index < 0 || index >= entries.size() || index == selected())
        return;
    request(
        [this, index] { setFieldValue(QStringLiteral("value"), integer("firstNumber") + index); },
        entries[index]);
}

QVector<QRectF> SelectorItem::controlParts()
{
    QRectF rest = boundingRect();
    if (isList())
        return {rest};
    const int count = texts("entries").size();
    const bool isVertical = integer("orientation") == 1;
    const qreal length = isVertical ? rest.height() : rest.width();
    const qreal size = (length + gap) / qMax(1, count) - gap;
    QVector<QRectF> buttons;
    for (int i = 0; i < count; ++i) {
        buttons.append(isVertical ? takeTop(rest, size) : takeLeft(rest, size));
        isVertical ? takeTop(rest, gap) : takeLeft(rest, gap);
    }
    return buttons;
}

void SelectorItem::controlReleased(int part, bool isOver)
{
    if (!isOver)
        return;
    if (isList())
        toggleList();
    else
        choose(part);
}

void SelectorItem::toggleList()
{
    if (!m_popup) {
        m_popup = new Popup(this);
        connect(m_popup, &Popup::chosen, this, [this](int index) {
            m_popup->close();
            if (canBeUsed())
                choose(index);
        });
    }
    if (m_popup->isVisible())
        return m_popup->close();
    Popup::Style style;
    for (const QString &entry : texts("entries"))
        style.keys.append({entry, Symbol::None, style.keys.size() == selected()});
    style.keySize = {boundingRect().width() - padding,
                     qMax(lowestEntry, lineHeight(fontOf("entries")))};
    style.font = fontOf("entries");
    style.colors = colors();
    style.accent = color("selectedColor");
    m_popup->open(style, boundingRect());
}

void SelectorItem::controlLocked()
{
    if (m_popup)
        m_popup->close();
}

bool SelectorItem::controlKey(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
        choose(selected() - 1);
        return true;
    case Qt::Key_Right:
    case Qt::Key_Down:
        choose(selected() + 1);
        return true;
    case Qt::Key_Space:
        if (isList())
            toggleList();
        return isList();
    default:
        return false;
    }
}

ControlColors SelectorItem::colors()
{
    return {color("buttonColor"), color("textColor"), color("frameColor")};
}

void SelectorItem::drawControl(QPainter &painter, const QRectF &area)
{
    if (isList())
        drawList(painter, area);
    else
        drawButtons(painter);
}

void SelectorItem::drawButtons(QPainter &painter)
{
    const QStringList entries = texts("entries");
    const QVector<QRectF> buttons = controlParts();
    for (int i = 0; i < entries.size(); ++i) {
        const bool isSelected = i == selected();
        drawButton(painter, buttons[i], color(isSelected ? "selectedColor" : "buttonColor"),
                   integer("cornerRadius"), i == pressedPart(), isSelected);
        drawFittedText(painter, buttons[i].adjusted(gap, 0, -gap, 0), Qt::AlignCenter, entries[i],
                       fontOf("entries"), color(isSelected ? "selectedTextColor" : "textColor"));
    }
}

void SelectorItem::drawList(QPainter &painter, const QRectF &area)
{
    drawButton(painter, area, color("buttonColor"), integer("cornerRadius"),
               pressedPart() != noPart, true);
    QRectF rest = area.adjusted(padding, 0, -padding, 0);
    drawSymbol(painter, takeRight(rest, qMin(area.height(), area.width() / 4)), Symbol::Down,
               color("selectedColor"));
    drawFittedText(painter, rest, Qt::AlignLeft | Qt::AlignVCenter,
                   texts("entries").value(selected()), fontOf("entries"), color("textColor"));
}
