#pragma once

#include "controlitem.h"

#include <QPointer>

class Popup;

//! Draws the entries to choose from as a row or column of buttons, or as a drop-down list.
class SelectorItem : public ControlItem
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit SelectorItem(const NARV::GraphicsObjectData &data);
    ~SelectorItem() override;

protected:
    void drawControl(QPainter &painter, const QRectF &area) override;
    ControlColors colors() override;
    QVector<QRectF> controlParts() override;
    void controlReleased(int part, bool isOver) override;
    bool controlKey(QKeyEvent *event) override;
    void controlLocked() override;

private:
    bool isList();
    //! The index of the chosen entry; -1 if the value is the number of none.
    int selected();
    void choose(int index);
    void toggleList();
    void drawButtons(QPainter &painter);
    void drawList(QPainter &painter, const QRectF &area);

    QPointer<Popup> m_popup; //!< null until it is needed
};
