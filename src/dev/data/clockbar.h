#pragma once

#include <QWidget>

#include <zpplugin_dev_export.h>

class QComboBox;
class QLabel;
class QToolButton;

namespace NARV::DEV {

class SimulationClock;

//! Runs, stops and steps the clock, and sets its speed.
class ZPPLUGIN_DEV_EXPORT ClockBar : public QWidget
{
    Q_OBJECT

public:
    //! The clock has to outlive the bar.
    explicit ClockBar(SimulationClock &clock);
    ~ClockBar() override;

private:
    QToolButton *newButton(const QString &name);
    void showState();
    void showTime();

    SimulationClock &m_clock;
    QToolButton *m_run;
    QToolButton *m_step;
    QComboBox *m_speed;
    QLabel *m_time;
};

} // namespace NARV::DEV
