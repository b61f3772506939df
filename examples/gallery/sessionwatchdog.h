#pragma once

#include <NARV/Widget>

#include <QBasicTimer>
#include <QElapsedTimer>

//! A project widget without drawing that tells when nobody has used the panel for a while.
//!
//! Once a second it writes the seconds since the last touch, click, wheel turn or key press to
//! "idleTime", and what follows from it to "warning", "expired" and "statusText". In the project
//! editor it does nothing.
class SessionWatchdog : public NARV::Widget
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit SessionWatchdog(const NARV::WidgetData &data);

    QIcon icon() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void initEvent(NARV::InitEvent *event) override;
    void deinitEvent(NARV::DeinitEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    //! The numbers of the field "statusTexts".
    enum Status
    {
        Active,
        AboutToExpire,
        Expired
    };

    bool isInhibited();
    Status status(int idleSeconds);
    void report(int idleSeconds);
    void writeIfChanged(const char *fieldId, const QVariant &value);

    QBasicTimer m_tick;
    QElapsedTimer m_sinceLastInput;
};
