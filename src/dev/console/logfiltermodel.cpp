#include "console/logfiltermodel.h"

namespace NARV::DEV {

LogFilterModel::LogFilterModel(LogModel &log, QObject *parent)
    : TailFilterModel(log, parent)
    , m_log(log)
{
    startAnew();
}

void LogFilterModel::setLowestLevel(QtMsgType level)
{
    m_lowestSeverity = LogModel::severity(level);
    filterChanged();
}

void LogFilterModel::setCategory(const std::optional<QString> &category)
{
    m_category = category;
    filterChanged();
}

bool LogFilterModel::accepts(int sourceRow) const
{
    const LogRecord &record = m_log.record(sourceRow);
    return LogModel::severity(record.type) >= m_lowestSeverity &&
           (!m_category || *m_category == record.category) &&
           hasWords({record.text, record.category, record.source});
}

} // namespace NARV::DEV
