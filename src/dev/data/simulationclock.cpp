#include "data/simulationclock.h"

#include <QTimerEvent>

#include <cmath>

namespace NARV::DEV {

//! After a pause of the whole computer the machine does not rush through the time lost.
static constexpr qint64 longestRealTick = 1000;

SimulationClock::SimulationClock(QObject *parent)
    : QObject(parent)
    , m_start(QDateTime::currentDateTime())
{
}

SimulationClock::~SimulationClock() = default;

void SimulationClock::setStartTime(const QDateTime &time)
{
    m_start = time;
    m_elapsed = 0;
    m_remainder = 0;
    m_followsRealTime = false;
    Q_EMIT advanced();
}

void SimulationClock::setRunning(bool running)
{
    if (running == isRunning())
        return;
    if (running) {
        catchUp();
        m_real.start();
        m_timer.start(tick, Qt::PreciseTimer, this);
    } else {
        m_timer.stop();
    }
    Q_EMIT stateChanged();
}

void SimulationClock::catchUp()
{
    const QDateTime before = now();
    const qint64 behind = before.msecsTo(QDateTime::currentDateTime());
    if (!m_followsRealTime || behind <= 0)
        return;
    m_start = m_start.addMSecs(behind);
    Q_EMIT jumped(before);
}

void SimulationClock::setSpeed(double speed)
{
    const double trimmed = std::isfinite(speed) ? qBound(slowest, speed, fastest) : 1;
    if (trimmed == m_speed)
        return;
    m_speed = trimmed;
    Q_EMIT stateChanged();
}

void SimulationClock::advance(qint64 milliseconds)
{
    for (; milliseconds > 0; milliseconds -= tick)
        moveOn(qMin(milliseconds, qint64(tick)));
}

void SimulationClock::moveOn(qint64 milliseconds)
{
    m_elapsed += milliseconds;
    Q_EMIT advanced();
}

void SimulationClock::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_timer.timerId())
        return QObject::timerEvent(event);
    const double passed = m_remainder + double(qMin(m_real.restart(), longestRealTick)) * m_speed;
    m_remainder = passed - std::floor(passed);
    if (passed >= 1)
        moveOn(qint64(passed));
}

} // namespace NARV::DEV
