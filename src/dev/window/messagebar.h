#pragma once

#include <QFrame>
#include <QStringList>

#include <functional>

class QLabel;
class QToolButton;

namespace NARV::DEV {

//! Tells something at the top of the window, without stopping anything. Further messages join what
//! is shown.
class MessageBar : public QFrame
{
    Q_OBJECT

public:
    explicit MessageBar(QWidget *parent = nullptr);

    void tell(const QString &text);
    //! Asks: the button does what is offered, and closing refuses it.
    void offer(const QString &text, const QString &buttonText, const std::function<void()> &action);
    void dismiss();
    //! The messages are no longer true; an offer stays.
    void dismissMessages();

private:
    void showAll();

    QLabel *m_text;
    QToolButton *m_button;
    QStringList m_messages;
    QString m_offer; //!< empty for none
    std::function<void()> m_action;
};

} // namespace NARV::DEV
