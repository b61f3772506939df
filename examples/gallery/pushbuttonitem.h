#pragma once

#include "controlitem.h"

#include <QTimer>

//! Draws a button with a caption and an image, and writes its bit.
class PushButtonItem : public ControlItem
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit PushButtonItem(const NARV::GraphicsObjectData &data);

protected:
    void drawControl(QPainter &painter, const QRectF &area) override;
    ControlColors colors() override;
    QVector<QRectF> controlParts() override;
    void controlPressed(int part) override;
    void controlReleased(int part, bool isOver) override;
    bool controlKey(QKeyEvent *event) override;
    void controlLocked() override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    bool isMomentary();
    void write(bool value);
    //! Sets the bit for the hold time at least, until endHold() is called.
    void startHold();
    void endHold();
    //! Does what the mode says, for a button that is not held down.
    void execute();
    //! Draws the image and returns what it leaves of area to the caption.
    QRectF drawImage(QPainter &painter, const QRectF &area);

    QTimer m_hold; //!< runs until the bit has been set long enough
    bool m_isHeld = false;
    bool m_isSet = false; //!< by this button, which has to clear it
};
