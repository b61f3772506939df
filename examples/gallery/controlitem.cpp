#include "controlitem.h"

#include "drawing.h"

#include <NARV/WidgetActionManager>

#include <QKeyEvent>
#include <QPainter>

static constexpr qreal disabledOpacity = 0.45;
static constexpr qreal largestPadlock = 18;
static constexpr qreal focusWidth = 2;
static constexpr int pressedDarkness = 118; // in percent
static constexpr int tagPeriod = 250;       // in milliseconds

bool ControlItem::canBeUsed()
{
    return flag("enabled") && !m_isInterlocked;
}

QVariant ControlItem::tagOf(const char *fieldId)
{
    const QString tag = text(fieldId);
    return tag.isEmpty() ? QVariant() : widgetActionManager().getTagValue(tag);
}

// Nobody tells of a tag that is bound by its name.
int ControlItem::beatPeriod()
{
    return text("interlockTag").isEmpty() ? 0 : tagPeriod;
}

void ControlItem::beat()
{
    readInterlock();
}

void ControlItem::readInterlock()
{
    const bool isInterlocked = isAtRunTime() && tagOf("interlockTag").toBool();
    if (isInterlocked != m_isInterlocked) {
        m_isInterlocked = isInterlocked;
        update();
    }
    lockIfNeeded();
}

void ControlItem::lockIfNeeded()
{
    if (canBeUsed())
        return;
    cancelPress();
    m_action = nullptr;
    controlLocked();
}

void ControlItem::initEvent(NARV::InitEvent *event)
{
    TouchItem::initEvent(event);
    readInterlock();
}

void ControlItem::deinitEvent(NARV::DeinitEvent *event)
{
    TouchItem::deinitEvent(event);
    m_action = nullptr;
    controlLocked();
}

void ControlItem::fieldIsChangedEvent(NARV::FieldIsChangedEvent *event)
{
    TouchItem::fieldIsChangedEvent(event);
    readInterlock();
}

void ControlItem::request(const std::function<void()> &action, const QString &subject)
{
    if (!flag("confirm"))
        return action();
    m_action = action;
    m_subject = subject;
    update();
}

void ControlItem::answer(bool isYes)
{
    const std::function<void()> action = m_action;
    m_action = nullptr;
    update();
    if (isYes)
        action();
}

QVector<QRectF> ControlItem::parts()
{
    return isAsking() ? Confirmation(boundingRect()).parts() : controlParts();
}

void ControlItem::partPressed(int part)
{
    readInterlock();
    m_isHeard = canBeUsed() && !isAsking();
    if (m_isHeard)
        controlPressed(part);
}

void ControlItem::partReleased(int part, bool isOver)
{
    if (m_isHeard) {
        m_isHeard = false;
        controlReleased(part, isOver);
    } else if (isAsking() && isOver) {
        answer(part == Confirmation::Yes);
    }
}

void ControlItem::controlPressed(int) {}

bool ControlItem::controlKey(QKeyEvent *)
{
    return false;
}

void ControlItem::controlLocked() {}

void ControlItem::keyPressEvent(QKeyEvent *event)
{
    readInterlock();
    if (!isAtRunTime() || !canBeUsed())
        return TouchItem::keyPressEvent(event);
    if (isAsking()) {
        const bool isYes = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (isYes || event->key() == Qt::Key_Escape)
            answer(isYes);
    } else if (!controlKey(event)) {
        TouchItem::keyPressEvent(event);
    }
}

void ControlItem::focusInEvent(QFocusEvent *event)
{
    update();
    TouchItem::focusInEvent(event);
}

void ControlItem::focusOutEvent(QFocusEvent *event)
{
    update();
    TouchItem::focusOutEvent(event);
}

void ControlItem::draw(QPainter &painter, const QRectF &area)
{
    if (isAsking()) {
        const QString subject = m_subject.isEmpty() ? m_subject : m_subject + QLatin1String(": ");
        Confirmation(area).draw(painter, subject + text("confirmText"), fontOf("confirmText"),
                                colors(), pressedPart());
        return;
    }
    const qreal opacity = painter.opacity();
    if (!canBeUsed())
        painter.setOpacity(opacity * disabledOpacity);
    drawControl(painter, area);
    painter.setOpacity(opacity);
    if (m_isInterlocked)
        drawLock(painter, area);
}

void ControlItem::drawLock(QPainter &painter, const QRectF &area)
{
    QRectF rest = area;
    const qreal side = qMin(largestPadlock * 1.6, qMin(area.width(), area.height()) / 2);
    QRectF row = takeTop(rest, side);
    const ControlColors shades = colors();
    const QRectF place = takeRight(row, side);
    drawPlate(painter, place, {shades.plate, {}, 0, side / 4});
    drawSymbol(painter, place, Symbol::Padlock, legible(shades.ink, shades.plate), largestPadlock);
}

void ControlItem::drawButton(QPainter &painter, const QRectF &area, const QColor &fill,
                             qreal radius, bool isPressed, bool canHaveFocus)
{
    const bool isFocused = canHaveFocus && hasFocus() && isAtRunTime();
    drawPlate(painter, area,
              {isPressed ? fill.darker(pressedDarkness) : fill,
               isFocused ? colors().ink : color("frameColor"), isFocused ? focusWidth : 1, radius});
}
