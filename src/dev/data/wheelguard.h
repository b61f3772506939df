#pragma once

#include <QObject>

class QWidget;

namespace NARV::DEV {

//! Keeps the wheel of a person who only scrolls from changing a box: without the focus the box
//! leaves the wheel to what it lies in.
class WheelGuard : public QObject
{
    Q_OBJECT

public:
    //! The box owns its guard.
    explicit WheelGuard(QWidget *box);
    ~WheelGuard() override;

    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace NARV::DEV
