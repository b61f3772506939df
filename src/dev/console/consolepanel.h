#pragma once

#include "console/recordpanel.h"

namespace NARV::DEV {

class LogFilterModel;
class LogModel;
class LogRelay;

//! The log of this process as a table.
class ZPPLUGIN_DEV_EXPORT ConsolePanel : public RecordPanel
{
    Q_OBJECT

public:
    //! Both outlive the panel.
    ConsolePanel(LogModel &log, LogRelay &relay, QWidget *parent = nullptr);

protected:
    void clearRecords() override;

private:
    ConsolePanel(LogModel &log, LogRelay &relay, LogFilterModel *filter, QWidget *parent);

    void buildLevels();
    void fillCategories();
    void buildPattern();
    void checkPattern(const QString &pattern);

    LogModel &m_log;
    LogRelay &m_relay;
    LogFilterModel *m_filter;
    QComboBox *m_categories;
    QLabel *m_patternProblem;
};

} // namespace NARV::DEV
