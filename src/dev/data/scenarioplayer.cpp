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
    if (!m_isActive)
        m_alarms = m_data.alarms().snapshot();
    const int count = scenario.action(m_data, tags.isEmpty() ? m_data.tags().names() : tags);
    setActive(m_isActive || count > 0);
    return count;
}

void ScenarioPlayer::restore()
{
    if (!m_isActive)
        return;
    m_data.tags().release(m_data.tags().names());
    m_data.alarms().restore(m_alarms);
    setActive(false);
}

void ScenarioPlayer::setActive(bool active)
{
    if (active == m_isActive)
        return;
    m_isActive = active;
    Q_EMIT activeChanged();
}

} // namespace NARV::DEV
