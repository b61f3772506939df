#pragma once

#include "confirmation.h"

#include <QEvent>
#include <QGraphicsObject>
#include <QVector>

//! Keys that an item opens above everything else on its scene, next to itself: a drop-down list, a
//! keypad. Laid out in rows from left to right, in the coordinates of the item.
//!
//! Kept by the item for later use when it is closed, and to be deleted by it.
class Popup : public QGraphicsObject
{
    Q_OBJECT

public:
    struct Key
    {
        QString text;
        Symbol symbol = Symbol::None; //!< drawn instead of the text
        bool isMarked = false;        //!< drawn in the accent colour
    };
    struct Style
    {
        QVector<Key> keys;
        int columns = 1;
        QSizeF keySize;
        QFont font;
        ControlColors colors;
        QColor accent;
    };

    explicit Popup(QGraphicsItem *owner);

    //! Shows the keys below the place in the owner, or above it where there is no room below.
    void open(const Style &style, const QRectF &place);
    void close();

    QRectF boundingRect() const override { return m_area; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

Q_SIGNALS:
    void chosen(int key);
    //! Something beside the popup has been pressed, which was not its owner; it is closed.
    void dismissed();

protected:
    bool sceneEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QRectF keyArea(int key) const;
    int keyAt(const QPointF &point) const;
    bool handlePointer(QEvent::Type type, const QPointF &point);
    bool isBeside(const QPointF &scenePoint) const;
    void setPressed(int key);

    QGraphicsItem *m_owner;
    Style m_style;
    QRectF m_area;
    int m_pressed = -1;
};
