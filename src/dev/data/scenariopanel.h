#pragma once

#include <QWidget>

#include <zpplugin_dev_export.h>

class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;

namespace NARV::DEV {

class TestData;

//! The scenarios, to be run on all tags or on one, and the way back.
class ZPPLUGIN_DEV_EXPORT ScenarioPanel : public QWidget
{
    Q_OBJECT

public:
    //! The data has to outlive the panel.
    explicit ScenarioPanel(TestData &testData);
    ~ScenarioPanel() override;

private:
    void buildLayout();
    void fillTags();
    void fillScenarios();
    void showActive();
    void showScenario();
    void run();

    TestData &m_data;
    QComboBox *m_tags;
    QListWidget *m_list;
    QLabel *m_description;
    QPushButton *m_run;
    QPushButton *m_restore;
};

} // namespace NARV::DEV
