#pragma once

#include <QAbstractEventDispatcher>
#include <QVector>

//! The time of a process that has to do the same each time: it passes only when advance() is
//! called. Timers then go off in their order without any waiting, and the clocks of the machine
//! show the virtual time to all code of the process, plugins included.
//!
//! Set it as the event dispatcher before there is an application object, whose event loop is never
//! to run. There are no sockets and no events of windows.
class VirtualTime : public QAbstractEventDispatcher
{
    Q_OBJECT

public:
    //! From now on the clocks stand still at that time.
    void start(qint64 msecsSinceEpoch);
    void advance(qint64 milliseconds);

    bool processEvents(QEventLoop::ProcessEventsFlags flags) override;
    bool hasPendingEvents() override;
    void registerSocketNotifier(QSocketNotifier *notifier) override;
    void unregisterSocketNotifier(QSocketNotifier *notifier) override;
    void registerTimer(int id, int interval, Qt::TimerType type, QObject *object) override;
    bool unregisterTimer(int id) override;
    bool unregisterTimers(QObject *object) override;
    QList<TimerInfo> registeredTimers(QObject *object) const override;
    int remainingTime(int id) override;
    void wakeUp() override;
    void interrupt() override;
    void flush() override;

private:
    struct Timer
    {
        int id;
        int interval;
        Qt::TimerType type;
        QObject *object;
        qint64 due;
    };

    void setNow(qint64 now);
    bool fireNext(qint64 until);

    qint64 m_start = 0;
    qint64 m_now = 0; //!< milliseconds since the start
    QVector<Timer> m_timers;
};
