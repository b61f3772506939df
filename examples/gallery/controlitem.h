#pragma once

#include "confirmation.h"
#include "touchitem.h"

#include <functional>

//! An item with which the operator changes a value.
//!
//! It can be used while the field "enabled" is set and the tag of "interlockTag" is not true;
//! otherwise it is drawn pale, with a padlock when the tag is the reason. With "confirm" it asks
//! before it does anything.
class ControlItem : public TouchItem
{
    Q_OBJECT

public:
    using TouchItem::TouchItem;

protected:
    void draw(QPainter &painter, const QRectF &area) final;
    virtual void drawControl(QPainter &painter, const QRectF &area) = 0;
    virtual ControlColors colors() = 0;

    //! As parts(), partPressed() and partReleased() of TouchItem; heard only while the control can
    //! be used and asks nothing. A release is always heard after its press.
    virtual QVector<QRectF> controlParts() = 0;
    virtual void controlPressed(int part);
    virtual void controlReleased(int part, bool isOver) = 0;
    //! False for a key that means nothing to the control.
    virtual bool controlKey(QKeyEvent *event);
    //! The control cannot be used any more: let go of everything.
    virtual void controlLocked();

    bool canBeUsed();
    //! Does it, or asks before, with a word on what it is about in front of the question.
    void request(const std::function<void()> &action, const QString &subject = {});
    bool isAsking() const { return bool(m_action); }
    //! The value of the tag whose name a field holds; invalid if the field is empty.
    QVariant tagOf(const char *fieldId);
    //! A button in the fields' "frameColor", darker while it is pressed. The frame of the one that
    //! the keyboard acts on is as dark as the text.
    void drawButton(QPainter &painter, const QRectF &area, const QColor &fill, qreal radius,
                    bool isPressed, bool canHaveFocus);

    void initEvent(NARV::InitEvent *event) override;
    void deinitEvent(NARV::DeinitEvent *event) override;
    void fieldIsChangedEvent(NARV::FieldIsChangedEvent *event) override;
    int beatPeriod() override;
    void beat() override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    QVector<QRectF> parts() final;
    void partPressed(int part) final;
    void partReleased(int part, bool isOver) final;
    void answer(bool isYes);
    void readInterlock();
    void lockIfNeeded();
    void drawLock(QPainter &painter, const QRectF &area);

    bool m_isInterlocked = false;
    bool m_isHeard = false; //!< the press of the part that is held down went to the control
    std::function<void()> m_action;
    QString m_subject;
};
