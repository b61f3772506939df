#include "popup.h"

#include "drawing.h"

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>
#include <QTouchEvent>

static constexpr qreal aboveAll = 1e9;
static constexpr qreal gap = 4;
static constexpr int pressedDarkness = 118; // in percent

Popup::Popup(QGraphicsItem *owner)
    : m_owner(owner)
{
    setZValue(aboveAll);
    setFlag(ItemStopsFocusHandling); // the keyboard stays with the owner
    setAcceptTouchEvents(true);
    setAcceptedMouseButtons(Qt::LeftButton);
    hide();
}

void Popup::open(const Style &style, const QRectF &place)
{
    QGraphicsScene *scene = m_owner->scene();
    if (!scene || style.keys.isEmpty())
        return;
    prepareGeometryChange();
    m_style = style;
    const int rows = (style.keys.size() + style.columns - 1) / style.columns;
    const QSizeF size(style.columns * style.keySize.width() + 2 * gap,
                      rows * style.keySize.height() + 2 * gap);
    const QRectF below(place.bottomLeft(), size);
    const QRectF above(place.topLeft() - QPointF(0, size.height()), size);
    const QTransform toScene = m_owner->sceneTransform();
    const auto fits = [&](const QRectF &area) {
        return scene->sceneRect().contains(toScene.mapRect(area));
    };
    m_area = !fits(below) && fits(above) ? above : below;
    setTransform(toScene);
    if (this->scene() != scene)
        scene->addItem(this);
    scene->installEventFilter(this);
    show();
    update();
}

void Popup::close()
{
    setPressed(-1);
    hide();
    if (scene())
        scene()->removeEventFilter(this);
}

QRectF Popup::keyArea(int key) const
{
    const QSizeF &size = m_style.keySize;
    const QPointF corner((key % m_style.columns) * size.width() + gap,
                         int(key / m_style.columns) * size.height() + gap);
    return {m_area.topLeft() + corner, size};
}

int Popup::keyAt(const QPointF &point) const
{
    for (int i = 0; i < m_style.keys.size(); ++i) {
        if (keyArea(i).contains(point))
            return i;
    }
    return -1;
}

void Popup::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->setRenderHint(QPainter::Antialiasing);
    drawPlate(*painter, m_area, {m_style.colors.plate.darker(106), m_style.colors.frame, 1, gap});
    for (int i = 0; i < m_style.keys.size(); ++i) {
        const Key &key = m_style.keys[i];
        const QColor plate = key.isMarked ? m_style.accent : m_style.colors.plate;
        const QColor shown = i == m_pressed ? plate.darker(pressedDarkness) : plate;
        const QRectF area = keyArea(i).adjusted(gap / 2, gap / 2, -gap / 2, -gap / 2);
        const QColor ink = legible(m_style.colors.ink, shown);
        drawPlate(*painter, area, {shown, m_style.colors.frame, 1, gap});
        if (key.symbol != Symbol::None)
            drawSymbol(*painter, area, key.symbol, ink);
        else
            drawFittedText(*painter, area.adjusted(gap, 0, -gap, 0), Qt::AlignCenter, key.text,
                           m_style.font, ink);
    }
}

void Popup::setPressed(int key)
{
    m_pressed = key;
    update();
}

bool Popup::handlePointer(QEvent::Type type, const QPointF &point)
{
    const int key = keyAt(point);
    if (type == QEvent::TouchBegin || type == QEvent::GraphicsSceneMousePress) {
        setPressed(key);
    } else if (type == QEvent::TouchEnd || type == QEvent::GraphicsSceneMouseRelease) {
        const int pressed = m_pressed;
        setPressed(-1);
        if (key >= 0 && key == pressed)
            Q_EMIT chosen(key);
    }
    return true;
}

bool Popup::sceneEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd: {
        const auto &points = static_cast<QTouchEvent *>(event)->touchPoints();
        event->accept();
        return points.isEmpty() || handlePointer(event->type(), points.constFirst().pos());
    }
    case QEvent::GraphicsSceneMousePress:
    case QEvent::GraphicsSceneMouseMove:
    case QEvent::GraphicsSceneMouseRelease:
        event->accept();
        return handlePointer(event->type(), static_cast<QGraphicsSceneMouseEvent *>(event)->pos());
    case QEvent::TouchCancel:
        setPressed(-1);
        return true;
    default:
        return QGraphicsObject::sceneEvent(event);
    }
}

bool Popup::isBeside(const QPointF &scenePoint) const
{
    return !contains(mapFromScene(scenePoint)) &&
           !m_owner->contains(m_owner->mapFromScene(scenePoint));
}

bool Popup::eventFilter(QObject *watched, QEvent *event)
{
    bool isDismissing = false;
    if (event->type() == QEvent::GraphicsSceneMousePress) {
        isDismissing = isBeside(static_cast<QGraphicsSceneMouseEvent *>(event)->scenePos());
    } else if (event->type() == QEvent::TouchBegin) {
        const auto &points = static_cast<QTouchEvent *>(event)->touchPoints();
        isDismissing = !points.isEmpty() && isBeside(points.constFirst().scenePos());
    }
    if (isDismissing) {
        close();
        Q_EMIT dismissed();
    }
    return QGraphicsObject::eventFilter(watched, event);
}
