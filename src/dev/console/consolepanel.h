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
    //! Shows what the relay hands out from now on. The relay outlives the panel.
    explicit ConsolePanel(LogRelay &relay, QWidget *parent = nullptr);

    LogModel &log() { return m_log; }

protected:
    void clearRecords() override;

private:
    ConsolePanel(LogFilterModel *filter, LogRelay &relay, QWidget *parent);

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
