#include "pushbuttonitem.h"

#include "drawing.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPixmap>

#include <iterator>

enum Mode
{
    Momentary,
    Toggle,
    Set,
    Reset
};

static constexpr qreal padding = 6;
static constexpr qreal imageShare = 0.5; // of the button, when the image stands beside the caption

PushButtonItem::PushButtonItem(const NARV::GraphicsObjectData &data)
    : ControlItem(data)
{
    m_hold.setSingleShot(true);
    connect(&m_hold, &QTimer::timeout, this, [this] {
        if (!m_isHeld)
            endHold();
    });
}

bool PushButtonItem::isMomentary()
{
    return integer("mode") == Momentary;
}

void PushButtonItem::write(bool value)
{
    setFieldValue(QStringLiteral("value"), value);
}

void PushButtonItem::startHold()
{
    m_isSet = true;
    m_hold.start(qMax(0, integer("holdTime")));
    write(true);
}

void PushButtonItem::endHold()
{
    if (!m_isSet || m_hold.isActive())
        return;
    m_isSet = false;
    write(false);
}

void PushButtonItem::execute()
{
    const int mode = integer("mode");
    if (mode == Momentary)
        startHold();
    else
        write(mode == Toggle ? !flag("value") : mode == Set);
}

QVector<QRectF> PushButtonItem::controlParts()
{
    return {boundingRect()};
}

void PushButtonItem::controlPressed(int)
{
    if (!isMomentary() || flag("confirm"))
        return;
    m_isHeld = true;
    startHold();
}

void PushButtonItem::controlReleased(int, bool isOver)
{
    if (m_isHeld) {
        m_isHeld = false;
        endHold();
    } else if (isOver) {
        request([this] { execute(); });
    }
}

//! A machine is not to go on because its button has gone.
void PushButtonItem::controlLocked()
{
    m_hold.stop();
    m_isHeld = false;
    endHold();
}

static bool isPressKey(const QKeyEvent *event)
{
    return event->key() == Qt::Key_Space || event->key() == Qt::Key_Return ||
           event->key() == Qt::Key_Enter;
}

bool PushButtonItem::controlKey(QKeyEvent *event)
{
    if (!isPressKey(event))
        return false;
    if (!event->isAutoRepeat())
        press(0);
    return true;
}

void PushButtonItem::keyReleaseEvent(QKeyEvent *event)
{
    if (isPressKey(event) && !event->isAutoRepeat())
        release(true);
    else
        ControlItem::keyReleaseEvent(event);
}

// The release of a key goes elsewhere now.
void PushButtonItem::focusOutEvent(QFocusEvent *event)
{
    cancelPress();
    ControlItem::focusOutEvent(event);
}

ControlColors PushButtonItem::colors()
{
    return {color("buttonColor"), color("textColor"), color("frameColor")};
}

void PushButtonItem::drawControl(QPainter &painter, const QRectF &area)
{
    const bool isPressed = pressedPart() != noPart;
    drawButton(painter, area, color(flag("value") ? "activeColor" : "buttonColor"),
               integer("cornerRadius"), isPressed, true);
    QRectF inside = area.adjusted(padding, padding, -padding, -padding);
    if (isPressed)
        inside.translate(0, 1);
    if (flag("showImage"))
        inside = drawImage(painter, inside);
    drawFittedText(painter, inside, Qt::AlignCenter, text("text"), fontOf("text"),
                   color("textColor"));
}

static QRectF takeAll(QRectF &area, qreal)
{
    return area;
}

QRectF PushButtonItem::drawImage(QPainter &painter, const QRectF &area)
{
    // In the order of the field's options: left, above, right, below, behind.
    static constexpr decltype(&takeLeft) cuts[] = {takeLeft, takeTop, takeRight, takeBottom,
                                                   takeAll};
    const QPixmap image(text("image"));
    if (image.isNull())
        return area;
    const int position = qBound(0, integer("imagePosition"), int(std::size(cuts)) - 1);
    const bool isVertical = position % 2 == 1;
    QRectF rest = area;
    const QRectF place =
        cuts[position](rest, (isVertical ? area.height() : area.width()) * imageShare);
    QRectF target(QPointF(), QSizeF(image.size()).scaled(place.size(), Qt::KeepAspectRatio));
    target.moveCenter(place.center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(target, image, image.rect());
    return rest;
}
