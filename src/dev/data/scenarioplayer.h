#pragma once

#include "data/alarmtable.h"

#include <QObject>
#include <QStringList>
#include <QVector>

#include <zpplugin_dev_export.h>

namespace NARV::DEV {

class TestData;
struct Scenario;

//! Runs scenarios and undoes them. What they do is in no file.
class ZPPLUGIN_DEV_EXPORT ScenarioPlayer : public QObject
{
    Q_OBJECT

public:
    //! The data has to outlive the player.
    explicit ScenarioPlayer(TestData &data, QObject *parent = nullptr);
    ~ScenarioPlayer() override;

    //! To all tags if none is named. Returns how many tags or alarms it touched: 0 if it is for
    //! texts, say, and there is none.
    int run(const Scenario &scenario, const QStringList &tags = {});
    //! Tags show their own values again, added alarms go, and alarms are in the state of before.
    void restore();
    //! The titles of those whose doings last, in the order in which they were run.
    const QStringList &active() const { return m_active; }

Q_SIGNALS:
    void activeChanged();

private:
    void setActive(const QStringList &titles);

    TestData &m_data;
    QVector<Alarm> m_alarms; // as they were
    QStringList m_active;
};

} // namespace NARV::DEV
