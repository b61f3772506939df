#include "virtualtime.h"

#include "systemclock.h"

#include <QCoreApplication>
#include <QTimerEvent>

#include <algorithm>

//! A timer without an interval goes off as often as time can pass at all.
static const int shortestInterval = 1;

void VirtualTime::start(qint64 msecsSinceEpoch)
{
    m_start = msecsSinceEpoch - m_now;
    setNow(m_now);
}

void VirtualTime::setNow(qint64 now)
{
    m_now = now;
    setSystemClock(m_start, m_now);
}

static void deliverPostedEvents()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void VirtualTime::advance(qint64 milliseconds)
{
    const qint64 end = m_now + milliseconds;
    deliverPostedEvents();
    while (fireNext(end))
        deliverPostedEvents();
    setNow(end);
}

bool VirtualTime::fireNext(qint64 until)
{
    const auto next =
        std::min_element(m_timers.begin(), m_timers.end(),
                         [](const Timer &a, const Timer &b) { return a.due < b.due; });
    if (next == m_timers.end() || next->due > until)
        return false;
    setNow(next->due);
    next->due += qMax(shortestInterval, next->interval);
    QTimerEvent event(next->id);
    QCoreApplication::sendEvent(next->object, &event); // which may change the timers
    return true;
}

// A loop of its own, as a dialogue has one: time passes until it ends.
bool VirtualTime::processEvents(QEventLoop::ProcessEventsFlags flags)
{
    deliverPostedEvents();
    return (flags & QEventLoop::WaitForMoreEvents) && fireNext(std::numeric_limits<qint64>::max());
}

bool VirtualTime::hasPendingEvents()
{
    return false;
}

void VirtualTime::registerSocketNotifier(QSocketNotifier *) {}

void VirtualTime::unregisterSocketNotifier(QSocketNotifier *) {}

void VirtualTime::registerTimer(int id, int interval, Qt::TimerType type, QObject *object)
{
    m_timers.append({id, interval, type, object, m_now + qMax(shortestInterval, interval)});
}

bool VirtualTime::unregisterTimer(int id)
{
    const auto timer = std::find_if(m_timers.begin(), m_timers.end(),
                                    [id](const Timer &other) { return other.id == id; });
    if (timer == m_timers.end())
        return false;
    m_timers.erase(timer);
    return true;
}

bool VirtualTime::unregisterTimers(QObject *object)
{
    const auto end = std::remove_if(m_timers.begin(), m_timers.end(), [object](const Timer &timer) {
        return timer.object == object;
    });
    const bool found = end != m_timers.end();
    m_timers.erase(end, m_timers.end());
    return found;
}

QList<VirtualTime::TimerInfo> VirtualTime::registeredTimers(QObject *object) const
{
    QList<TimerInfo> timers;
    for (const Timer &timer : m_timers) {
        if (timer.object == object)
            timers += TimerInfo(timer.id, timer.interval, timer.type);
    }
    return timers;
}

int VirtualTime::remainingTime(int id)
{
    for (const Timer &timer : qAsConst(m_timers)) {
        if (timer.id == id)
            return int(qMax(qint64(0), timer.due - m_now));
    }
    return -1;
}

void VirtualTime::wakeUp() {}

void VirtualTime::interrupt() {}

void VirtualTime::flush() {}
