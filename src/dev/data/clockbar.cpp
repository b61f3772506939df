#include "data/clockbar.h"

#include "data/simulationclock.h"
#include "window/icons.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace NARV::DEV {

static constexpr double speeds[] = {0.1, 0.25, 0.5, 1, 2, 5, 10, 25, 100};

ClockBar::ClockBar(SimulationClock &clock)
    : m_clock(clock)
    , m_run(newButton(QStringLiteral("play")))
    , m_step(newButton(QStringLiteral("step")))
    , m_speed(new QComboBox)
    , m_time(new QLabel)
{
    setObjectName(QStringLiteral("clockBar"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(2);
    for (QWidget *part : std::initializer_list<QWidget *>{m_run, m_step, m_speed, m_time})
        layout->addWidget(part);
    m_step->setAccessibleName(tr("One step of %1 ms").arg(SimulationClock::tick));
    m_step->setToolTip(m_step->accessibleName());
    m_speed->setObjectName(QStringLiteral("clock.speed"));
    m_speed->setAccessibleName(tr("Speed of time"));
    m_speed->setToolTip(tr("Speed of time"));
    for (const double speed : speeds)
        m_speed->addItem(tr("%1×").arg(speed), speed);
    m_time->setObjectName(QStringLiteral("clock.time"));
    m_time->setAccessibleName(tr("Time of the simulated machine"));
    connect(m_run, &QToolButton::clicked, this,
            [this] { m_clock.setRunning(!m_clock.isRunning()); });
    connect(m_step, &QToolButton::clicked, this, [this] { m_clock.step(); });
    connect(m_speed, QOverload<int>::of(&QComboBox::activated), this,
            [this](int index) { m_clock.setSpeed(speeds[index]); });
    connect(&clock, &SimulationClock::stateChanged, this, &ClockBar::showState);
    connect(&clock, &SimulationClock::advanced, this, &ClockBar::showTime);
    showState();
    showTime();
}

ClockBar::~ClockBar() = default;

QToolButton *ClockBar::newButton(const QString &name)
{
    auto *button = new QToolButton;
    button->setObjectName(QLatin1String("clock.") + name);
    button->setIcon(benchIcon(name));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

void ClockBar::showState()
{
    const bool isRunning = m_clock.isRunning();
    m_run->setIcon(benchIcon(isRunning ? QStringLiteral("pause") : QStringLiteral("play")));
    m_run->setAccessibleName(isRunning ? tr("Stop time") : tr("Let time run"));
    m_run->setToolTip(m_run->accessibleName());
    m_speed->setCurrentIndex(m_speed->findData(m_clock.speed()));
}

void ClockBar::showTime()
{
    const QString text = m_clock.now().toString(QStringLiteral("HH:mm:ss"));
    if (text != m_time->text())
        m_time->setText(text);
}

} // namespace NARV::DEV
