#include "numericinputitem.h"

#include "drawing.h"
#include "numbertext.h"
#include "popup.h"

#include <NARV/Event>

#include <QKeyEvent>
#include <QLocale>
#include <QPainter>
#include <QTimerEvent>

#include <cmath>

static constexpr qreal padding = 6;
static constexpr qreal widestButton = 64;
static constexpr qreal hintShare = 0.38;   // of the height, below the value
static constexpr qreal hintSize = 0.85;    // of the prompt's type
static constexpr int buttonDarkness = 112; // in percent, of the background
static constexpr qreal spentOpacity = 0.4;
static constexpr int longestEntry = 16;
static constexpr int tagPeriod = 500; // in milliseconds, as all that follow
static constexpr int firstRepeat = 500;
static constexpr int nextRepeats = 120;

enum Part
{
    Minus,
    Plus,
    Value
};

// A key of the keypad: a digit, or what it does.
static constexpr struct
{
    char character; // '-' changes the sign, '.' stands for the decimal point of the language
    Symbol symbol;
} keypad[] = {
    {'7', Symbol::None}, {'8', Symbol::None}, {'9', Symbol::None}, {0, Symbol::Erase},
    {'4', Symbol::None}, {'5', Symbol::None}, {'6', Symbol::None}, {0, Symbol::Undo},
    {'1', Symbol::None}, {'2', Symbol::None}, {'3', Symbol::None}, {0, Symbol::Reject},
    {'-', Symbol::None}, {'0', Symbol::None}, {'.', Symbol::None}, {0, Symbol::Accept},
};
static constexpr int keypadColumns = 4;
static constexpr QSizeF keySize(56, 48);

NumericInputItem::NumericInputItem(const NARV::GraphicsObjectData &data)
    : ControlItem(data)
{
}

NumericInputItem::~NumericInputItem()
{
    delete m_keypad;
}

NumericInputItem::Layout NumericInputItem::layout()
{
    Layout places;
    places.value = boundingRect();
    if (!text("prompt").isEmpty())
        places.prompt = takeTop(places.value, lineHeight(fontOf("prompt")));
    if (flag("showStepButtons")) {
        const qreal width = qMin(widestButton, places.value.width() / 4);
        places.minus = takeLeft(places.value, width);
        places.plus = takeRight(places.value, width);
    }
    return places;
}

QVector<QRectF> NumericInputItem::controlParts()
{
    const Layout places = layout();
    return {places.minus, places.plus, places.value};
}

void NumericInputItem::controlPressed(int part)
{
    if (part == Value)
        return;
    m_repeatDirection = part == Plus ? 1 : -1;
    if (!flag("confirm"))
        m_repeat.start(firstRepeat, this);
    step(m_repeatDirection);
}

void NumericInputItem::controlReleased(int part, bool isOver)
{
    m_repeat.stop();
    if (part == Value && isOver && !m_isTyping)
        startEntry();
}

void NumericInputItem::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_repeat.timerId())
        return ControlItem::timerEvent(event);
    m_repeat.start(nextRepeats, this);
    step(m_repeatDirection);
}

bool NumericInputItem::canStep(int direction)
{
    return direction > 0 ? number("value") < number("maximum")
                         : number("value") > number("minimum");
}

void NumericInputItem::step(int direction)
{
    const double target = number("value") + direction * number("step");
    endEntry();
    if (canStep(direction))
        apply(qMax(number("minimum"), qMin(target, number("maximum"))));
}

void NumericInputItem::apply(double target)
{
    const double value = number("value");
    const bool isWithin = target >= number("minimum") && target <= number("maximum");
    if (!isWithin || target == value)
        return;
    const auto write = [this, target, value] {
        setFieldValue(QStringLiteral("previousValue"), value);
        setFieldValue(QStringLiteral("value"), target);
    };
    request(write, withUnit(decimalText(target, integer("decimals")), text("unit")));
}

void NumericInputItem::undo()
{
    endEntry();
    if (m_canUndo)
        apply(number("previousValue"));
}

void NumericInputItem::fieldIsChangedEvent(NARV::FieldIsChangedEvent *event)
{
    if (event->fieldId() == QLatin1String("previousValue"))
        m_canUndo = true;
    ControlItem::fieldIsChangedEvent(event);
}

void NumericInputItem::startEntry()
{
    m_isTyping = true;
    m_entry.clear();
    openKeypad();
    update();
}

void NumericInputItem::endEntry()
{
    m_isTyping = false;
    if (m_keypad)
        m_keypad->close();
    update();
}

void NumericInputItem::openKeypad()
{
    if (!m_keypad) {
        m_keypad = new Popup(this);
        connect(m_keypad, &Popup::chosen, this, &NumericInputItem::pressKey);
        connect(m_keypad, &Popup::dismissed, this, &NumericInputItem::endEntry);
    }
    Popup::Style style;
    for (const auto &key : keypad) {
        const QChar sign = key.character == '-'   ? QChar(0x00b1)
                           : key.character == '.' ? QLocale().decimalPoint()
                                                  : QLatin1Char(key.character);
        style.keys.append({sign, key.symbol, key.symbol == Symbol::Accept});
    }
    style.columns = keypadColumns;
    style.keySize = keySize;
    style.font = font("valueFont");
    style.colors = colors();
    style.accent = color("focusColor");
    m_keypad->open(style, layout().value);
}

void NumericInputItem::pressKey(int key)
{
    switch (keypad[key].symbol) {
    case Symbol::Erase:
        return eraseLast();
    case Symbol::Undo:
        return undo();
    case Symbol::Accept:
        return accept();
    case Symbol::None:
        return enter(QLatin1Char(keypad[key].character));
    default:
        return endEntry();
    }
}

void NumericInputItem::enter(QChar character)
{
    const QChar point = QLocale().decimalPoint();
    if (character == QLatin1Char('-'))
        return changeSign();
    if (character.isDigit() && m_entry.size() < longestEntry)
        m_entry += character;
    else if (!character.isDigit() && !m_entry.contains(point) && integer("decimals") > 0)
        m_entry += point;
    update();
}

void NumericInputItem::eraseLast()
{
    m_entry.chop(1);
    update();
}

void NumericInputItem::changeSign()
{
    if (m_entry.startsWith(QLatin1Char('-')))
        m_entry.remove(0, 1);
    else
        m_entry.prepend(QLatin1Char('-'));
    update();
}

static double typedNumber(const QString &entry, int decimals)
{
    bool isNumber = false;
    const double number = QLocale().toDouble(entry, &isNumber);
    const double unit = std::pow(10, qBound(0, decimals, longestEntry));
    return isNumber ? std::round(number * unit) / unit : qQNaN();
}

bool NumericInputItem::isAcceptable()
{
    const double typed = typedNumber(m_entry, integer("decimals"));
    return typed >= number("minimum") && typed <= number("maximum");
}

void NumericInputItem::accept()
{
    if (!m_entry.isEmpty() && !isAcceptable())
        return;
    endEntry();
    if (!m_entry.isEmpty())
        apply(typedNumber(m_entry, integer("decimals")));
}

bool NumericInputItem::controlKey(QKeyEvent *event)
{
    const QChar character = event->text().isEmpty() ? QChar() : event->text().at(0);
    if (event->matches(QKeySequence::Undo)) {
        undo();
    } else if (character.isDigit() || QStringLiteral("-.,").contains(character)) {
        if (!m_isTyping)
            startEntry();
        enter(character);
    } else if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
        step(event->key() == Qt::Key_Up ? 1 : -1);
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        m_isTyping ? accept() : startEntry();
    } else if (m_isTyping && event->key() == Qt::Key_Backspace) {
        eraseLast();
    } else if (m_isTyping && event->key() == Qt::Key_Escape) {
        endEntry();
    } else {
        return false;
    }
    return true;
}

void NumericInputItem::controlLocked()
{
    m_repeat.stop();
    endEntry();
}

void NumericInputItem::focusOutEvent(QFocusEvent *event)
{
    if (event->reason() != Qt::ActiveWindowFocusReason)
        endEntry();
    ControlItem::focusOutEvent(event);
}

int NumericInputItem::beatPeriod()
{
    return text("actualValueTag").isEmpty() ? ControlItem::beatPeriod() : tagPeriod;
}

void NumericInputItem::beat()
{
    ControlItem::beat();
    if (hint() != m_hint)
        update();
}

ControlColors NumericInputItem::colors()
{
    return {color("backgroundColor").darker(buttonDarkness), color("valueColor"),
            color("frameColor")};
}

void NumericInputItem::drawControl(QPainter &painter, const QRectF &)
{
    const Layout places = layout();
    drawFittedText(painter, places.prompt, Qt::AlignLeft | Qt::AlignVCenter, text("prompt"),
                   fontOf("prompt"), color("promptColor"));
    if (!places.minus.isEmpty()) {
        drawStepButton(painter, places.minus, -1);
        drawStepButton(painter, places.plus, 1);
    }
    drawValue(painter, places.value);
}

void NumericInputItem::drawStepButton(QPainter &painter, const QRectF &area, int direction)
{
    const int part = direction > 0 ? Plus : Minus;
    drawButton(painter, area, colors().plate, 0, pressedPart() == part, false);
    painter.save();
    if (!canStep(direction))
        painter.setOpacity(painter.opacity() * spentOpacity);
    drawSymbol(painter, area, direction > 0 ? Symbol::Plus : Symbol::Minus, color("valueColor"));
    painter.restore();
}

QString NumericInputItem::hint()
{
    const int decimals = integer("decimals");
    if (m_isTyping)
        return QStringLiteral("%1 \u2013 %2")
            .arg(decimalText(number("minimum"), decimals),
                 decimalText(number("maximum"), decimals));
    const QVariant actual = isAtRunTime() ? tagOf("actualValueTag") : QVariant();
    return actual.isValid() ? withUnit(decimalText(actual.toDouble(), decimals), text("unit"))
                            : QString();
}

void NumericInputItem::drawValue(QPainter &painter, const QRectF &area)
{
    const bool isActive = isAtRunTime() && (m_isTyping || hasFocus());
    drawPlate(painter, area,
              {color("backgroundColor"), color(isActive ? "focusColor" : "frameColor"),
               isActive ? 2.0 : 1.0, 0});
    QRectF rest = area.adjusted(padding, 2, -padding, -2);
    m_hint = hint();
    if (!m_hint.isEmpty()) {
        QFont small = fontOf("prompt");
        small.setPointSizeF(small.pointSizeF() * hintSize);
        drawFittedText(painter, takeBottom(rest, rest.height() * hintShare),
                       Qt::AlignRight | Qt::AlignVCenter, m_hint, small, color("promptColor"));
    }
    const QString shown =
        m_isTyping ? m_entry + QLatin1Char('|')
                   : withUnit(decimalText(number("value"), integer("decimals")), text("unit"));
    const bool isWrong = m_isTyping && !m_entry.isEmpty() && !isAcceptable();
    drawFittedText(painter, rest, Qt::AlignRight | Qt::AlignVCenter, shown, font("valueFont"),
                   isWrong ? QColor(0xc62828) : color("valueColor"));
}
