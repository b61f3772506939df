#pragma once

#include "data/datapanel.h"

#include <zpplugin_dev_export.h>

class QLabel;

namespace NARV::DEV {

class GeneratorEditor;
class TagValueEditor;
class TestData;

//! The tags: add, rename, move by hand, let a generator move them, record a trend of them.
class ZPPLUGIN_DEV_EXPORT TagsPanel : public DataPanel
{
    Q_OBJECT

public:
    //! The data has to outlive the panel.
    explicit TagsPanel(TestData &testData);
    ~TagsPanel() override;

protected:
    void showCurrent() override;

private:
    void addButtons();
    void addDetails();
    void addTag();
    void removeTag();
    void moveByHand(const QVariant &value);
    void recordTrend();

    QLabel *m_name;
    TagValueEditor *m_value;
    GeneratorEditor *m_generator;
    QLabel *m_problem;
    QWidget *m_details;
};

} // namespace NARV::DEV
