#pragma once

#include "console/logmodel.h"
#include "console/tailfiltermodel.h"

#include <optional>

namespace NARV::DEV {

//! The log records that the console shows.
class ZPPLUGIN_DEV_EXPORT LogFilterModel : public TailFilterModel
{
    Q_OBJECT

public:
    explicit LogFilterModel(LogModel &log, QObject *parent = nullptr);

    LogModel &log() { return m_log; }

    //! Records of this level and of more severe ones.
    void setLowestLevel(QtMsgType level);
    //! Records of this category, or of all. The empty one is that of records without.
    void setCategory(const std::optional<QString> &category);

protected:
    bool accepts(int sourceRow) const override;

private:
    LogModel &m_log;
    int m_lowestSeverity = 0;
    std::optional<QString> m_category;
};

} // namespace NARV::DEV
