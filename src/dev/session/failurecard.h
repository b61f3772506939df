#pragma once

#include "session/loadfailure.h"

#include <QFrame>

class QBoxLayout;
class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace NARV::DEV {

//! Shows why a plugin could not be opened, and what can be done.
class ZPPLUGIN_DEV_EXPORT FailureCard : public QFrame
{
    Q_OBJECT

public:
    explicit FailureCard(QWidget *parent = nullptr);

    //! The text of the button that leads back says to what.
    void setFailure(const LoadFailure &failure, const QString &backText);
    //! Gives the focus to the button that a person may want first.
    void takeFocus();

Q_SIGNALS:
    void retryRequested(const QString &path);
    void loadAnywayRequested(const QString &path);
    void openAnotherRequested();
    void backRequested();

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void showIcon();
    void elidePath();

    LoadFailure m_failure;
    QLabel *m_icon;
    QLabel *m_title;
    QLabel *m_path;
    QPlainTextEdit *m_words;
    QLabel *m_advice;
    QBoxLayout *m_buttons;
    QPushButton *m_retry;
    QPushButton *m_anyway;
    QPushButton *m_another;
    QPushButton *m_back;
};

} // namespace NARV::DEV
