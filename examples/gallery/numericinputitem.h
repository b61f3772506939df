#pragma once

#include "controlitem.h"

#include <QBasicTimer>
#include <QPointer>

class Popup;

//! Draws a number and lets the operator change it: in steps, or typed on a keypad or a keyboard.
class NumericInputItem : public ControlItem
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit NumericInputItem(const NARV::GraphicsObjectData &data);
    ~NumericInputItem() override;

protected:
    void drawControl(QPainter &painter, const QRectF &area) override;
    ControlColors colors() override;
    QVector<QRectF> controlParts() override;
    void controlPressed(int part) override;
    void controlReleased(int part, bool isOver) override;
    bool controlKey(QKeyEvent *event) override;
    void controlLocked() override;

    void fieldIsChangedEvent(NARV::FieldIsChangedEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    int beatPeriod() override;
    void beat() override;
    void timerEvent(QTimerEvent *event) override;

private:
    struct Layout
    {
        QRectF prompt;
        QRectF minus;
        QRectF plus;
        QRectF value;
    };

    Layout layout();
    //! 1 for plus, -1 for minus.
    void step(int direction);
    bool canStep(int direction);
    //! Makes the number the value, if it is within the bounds.
    void apply(double number);
    void undo();

    void startEntry();
    void endEntry();
    void enter(QChar character);
    void eraseLast();
    void changeSign();
    //! Applies what has been typed; what cannot be applied stays, to be corrected.
    void accept();
    void pressKey(int key);
    bool isAcceptable();
    void openKeypad();

    void drawStepButton(QPainter &painter, const QRectF &area, int direction);
    void drawValue(QPainter &painter, const QRectF &area);
    //! The line below the value: the bounds while a number is typed, else the measured value.
    QString hint();

    bool m_isTyping = false;
    QString m_entry;
    QString m_hint; //!< as it was drawn
    bool m_canUndo = false;
    QBasicTimer m_repeat;
    int m_repeatDirection = 0;
    QPointer<Popup> m_keypad; //!< null until it is needed
};
