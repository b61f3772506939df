#include "data/wheelguard.h"

#include <QEvent>
#include <QWidget>

namespace NARV::DEV {

WheelGuard::WheelGuard(QWidget *box)
    : QObject(box)
{
    box->setFocusPolicy(Qt::StrongFocus); // the wheel does not give the focus either
    box->installEventFilter(this);
}

WheelGuard::~WheelGuard() = default;

bool WheelGuard::eventFilter(QObject *watched, QEvent *event)
{
    const auto *box = qobject_cast<QWidget *>(watched);
    if (event->type() != QEvent::Wheel || !box || box->hasFocus())
        return QObject::eventFilter(watched, event);
    event->ignore();
    return true;
}

} // namespace NARV::DEV
