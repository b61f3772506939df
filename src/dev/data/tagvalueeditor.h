#pragma once

#include "data/tagtable.h"

#include <QWidget>

class QCheckBox;
class QLineEdit;
class QSlider;
class QToolButton;

namespace NARV::DEV {

//! Moves one tag by hand: a slider between the tag's limits for a number, a switch for a bool, and
//! a line for what is typed.
class TagValueEditor : public QWidget
{
    Q_OBJECT

public:
    explicit TagValueEditor(QWidget *parent = nullptr);
    ~TagValueEditor() override;

    //! What the user is doing right now is left alone.
    void show(const Tag &tag, const QVariant &value);

Q_SIGNALS:
    //! By the user; invalid for no value.
    void edited(const QVariant &value);

private:
    void showSlider(double value);
    void slide(int position);

    QSlider *m_slider;
    QCheckBox *m_switch;
    QLineEdit *m_line;
    QToolButton *m_none;
    double m_minimum = 0;
    double m_maximum = 0;
    bool m_isWhole = false;
};

} // namespace NARV::DEV
