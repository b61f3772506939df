#pragma once

#include <QBasicTimer>
#include <QDateTime>
#include <QElapsedTimer>
#include <QObject>

#include <zpplugin_dev_export.h>

namespace NARV::DEV {

//! The time of the simulated machine. It moves only here: by its timer while running, by step()
//! and by advance(). The timer waits for the event loop, so that time never passes inside a call.
class ZPPLUGIN_DEV_EXPORT SimulationClock : public QObject
{
    Q_OBJECT

public:
    static constexpr int tick = 50; //!< milliseconds of a step and between two timer events
    static constexpr double slowest = 0.1;
    static constexpr double fastest = 100;

    //! Stands still at the present time.
    explicit SimulationClock(QObject *parent = nullptr);
    ~SimulationClock() override;

    //! Milliseconds since the start; what generators are a function of.
    qint64 elapsed() const { return m_elapsed; }
    QDateTime startTime() const { return m_start; }
    QDateTime now() const { return m_start.addMSecs(m_elapsed); }
    bool isRunning() const { return m_timer.isActive(); }
    //! Simulated seconds a real second.
    double speed() const { return m_speed; }

    //! Begins anew: nothing has elapsed. From now on the clock no longer catches up with real time
    //! when it is started, so that the same calls give the same times.
    void setStartTime(const QDateTime &time);
    //! On starting, a clock behind real time that was never given a start time catches up: now()
    //! jumps, elapsed() does not.
    void setRunning(bool running);
    //! Trimmed to the range from slowest to fastest.
    void setSpeed(double speed);
    //! One tick further, running or not.
    void step() { moveOn(tick); }
    //! That many milliseconds further, in ticks; running or not.
    void advance(qint64 milliseconds);

Q_SIGNALS:
    void advanced();
    //! now() has made a jump forward from this time.
    void jumped(const QDateTime &from);
    //! Running or speed.
    void stateChanged();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void moveOn(qint64 milliseconds);
    void catchUp();

    QDateTime m_start;
    qint64 m_elapsed = 0;
    double m_speed = 1;
    double m_remainder = 0; // of a millisecond that slow motion has left over
    bool m_followsRealTime = true;
    QBasicTimer m_timer;
    QElapsedTimer m_real;
};

} // namespace NARV::DEV
