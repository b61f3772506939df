#pragma once

#include <NARV/INTERNAL/WidgetActionManagerImpl>

#include "scene/scenedocument.h"

namespace NARV::DEV {

//! What the widgets of a page ask of their host, answered from the test data.
class SceneActionManager : public INTERNAL::WidgetActionManagerImpl
{
    Q_OBJECT

public:
    explicit SceneActionManager(SceneDocument &document);

    QVariant getTagValue(const QString &tagName) override;
    QVariant getTrendValue(const QString &name, const QDateTime &from, const QDateTime &to,
                           unsigned int count,
                           WidgetActionManager::TrendTimeFormat format) override;
    QVector<AlarmInfo> getAlarms() override;
    void resetAlarm(const QString &alarmName) override;
    void resetAllAlarms() override;
    void acknowAlarm(const QString &alarmName) override;
    void acknowAllAlarms() override;
    bool isInsideProjectEditor() const override;
    bool isInsideDevProject() const override;

private:
    SceneDocument &m_document;
};

} // namespace NARV::DEV
