#include "data/scenarioplayer.h"

#include "data/scenario.h"
#include "data/tagtable.h"
#include "data/testdata.h"

namespace NARV::DEV {

ScenarioPlayer::ScenarioPlayer(TestData &data, QObject *parent)
    : QObject(parent)
    , m_data(data)
{
}

ScenarioPlayer::~ScenarioPlayer() = default;

int ScenarioPlayer::run(const Scenario &scenario, const QStringList &tags)
{
    if (m_active.isEmpty())
        m_alarms = m_data.alarms().snapshot();
    const int count = scenario.action(m_data, tags.isEmpty() ? m_data.tags().names() : tags);
    if (count > 0 && !m_active.contains(scenario.title()))
        setActive(m_active + QStringList(scenario.title()));
    return count;
}

void ScenarioPlayer::restore()
{
    if (m_active.isEmpty())
        return;
    m_data.tags().release(m_data.tags().names());
    m_data.alarms().restore(m_alarms);
    setActive({});
}

void ScenarioPlayer::setActive(const QStringList &titles)
{
    m_active = titles;
    Q_EMIT activeChanged();
}

} // namespace NARV::DEV
