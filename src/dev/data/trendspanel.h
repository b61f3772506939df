#pragma once

#include "data/datapanel.h"

#include <zpplugin_dev_export.h>

namespace NARV::DEV {

class TestData;
class TrendPlot;

//! The trends: which tags are recorded, what files are trends, and what they look like.
class ZPPLUGIN_DEV_EXPORT TrendsPanel : public DataPanel
{
    Q_OBJECT

public:
    //! The data has to outlive the panel.
    explicit TrendsPanel(TestData &testData);
    ~TrendsPanel() override;

protected:
    void showCurrent() override;

private:
    void addButtons();
    void addOfTag();
    void addOfFile();
    void removeTrend();

    TrendPlot *m_plot;
};

} // namespace NARV::DEV
