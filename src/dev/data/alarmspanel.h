#pragma once

#include "data/alarmtable.h"
#include "data/datapanel.h"

#include <zpplugin_dev_export.h>

namespace NARV::DEV {

class AlarmEditor;
class TestData;

//! The alarms: raise, clear, acknowledge, reset, and what each is.
class ZPPLUGIN_DEV_EXPORT AlarmsPanel : public DataPanel
{
    Q_OBJECT

public:
    //! The data has to outlive the panel.
    explicit AlarmsPanel(TestData &testData);
    ~AlarmsPanel() override;

protected:
    void showCurrent() override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void addMenu();
    void addEditButtons();
    void addActionButtons();
    void addAlarm();
    void duplicateAlarm();
    void removeAlarm();
    void toggleEnabled();

    AlarmEditor *m_editor;
};

} // namespace NARV::DEV
