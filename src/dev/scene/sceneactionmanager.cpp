#include "scene/sceneactionmanager.h"

#include "data/alarmtable.h"
#include "data/testdata.h"

namespace NARV::DEV {

SceneActionManager::SceneActionManager(SceneDocument &document)
    : m_document(document)
{
}

QVariant SceneActionManager::getTagValue(const QString &tagName)
{
    return m_document.testData().tagValue(tagName);
}

QVariant SceneActionManager::getTrendValue(const QString &name, const QDateTime &from,
                                           const QDateTime &to, unsigned int count,
                                           WidgetActionManager::TrendTimeFormat format)
{
    return m_document.testData().trendValue(name, from, to, count, format);
}

QVector<AlarmInfo> SceneActionManager::getAlarms()
{
    return m_document.testData().activeAlarms();
}

void SceneActionManager::resetAlarm(const QString &alarmName)
{
    m_document.testData().alarms().reset(alarmName);
}

void SceneActionManager::resetAllAlarms()
{
    m_document.testData().alarms().applyToAll(AlarmAction::Reset);
}

void SceneActionManager::acknowAlarm(const QString &alarmName)
{
    m_document.testData().alarms().acknowledge(alarmName);
}

void SceneActionManager::acknowAllAlarms()
{
    m_document.testData().alarms().applyToAll(AlarmAction::Acknowledge);
}

bool SceneActionManager::isInsideProjectEditor() const
{
    return m_document.mode() == SceneDocument::Mode::Editor;
}

bool SceneActionManager::isInsideDevProject() const
{
    return true;
}

} // namespace NARV::DEV
