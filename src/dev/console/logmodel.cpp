#include "console/logmodel.h"

#include "console/recordtime.h"
#include "window/icons.h"

namespace NARV::DEV {

static const int logCapacity = 100000;

static const struct
{
    QtMsgType level;
    const char *name;
    const char *icon;
} levelNames[] = {
    {QtDebugMsg, QT_TRANSLATE_NOOP("NARV::DEV::LogModel", "Debug"), "more"},
    {QtInfoMsg, QT_TRANSLATE_NOOP("NARV::DEV::LogModel", "Info"), "info"},
    {QtWarningMsg, QT_TRANSLATE_NOOP("NARV::DEV::LogModel", "Warning"), "warning"},
    {QtCriticalMsg, QT_TRANSLATE_NOOP("NARV::DEV::LogModel", "Critical"), "error"},
    {QtFatalMsg, QT_TRANSLATE_NOOP("NARV::DEV::LogModel", "Fatal"), "error"},
};

static const char *const columnNames[] = {
    QT_TRANSLATE_NOOP("NARV::DEV::LogModel", "Time"),
    QT_TRANSLATE_NOOP("NARV::DEV::LogModel", "Level"),
    QT_TRANSLATE_NOOP("NARV::DEV::LogModel", "Category"),
    QT_TRANSLATE_NOOP("NARV::DEV::LogModel", "Source"),
    QT_TRANSLATE_NOOP("NARV::DEV::LogModel", "Text"),
};

LogModel::LogModel(LogRelay &relay, QObject *parent)
    : RecordTable(logCapacity, parent)
{
    connect(&relay, &LogRelay::arrived, this, &LogModel::take);
}

void LogModel::take(const QVector<LogRecord> &records)
{
    const int known = m_categories.size();
    for (const LogRecord &record : records)
        m_categories.insert(record.category);
    append(records);
    if (m_categories.size() != known)
        Q_EMIT categoriesChanged();
}

void LogModel::clear()
{
    removeAll();
}

QStringList LogModel::categories() const
{
    QStringList all = m_categories.values();
    all.sort(Qt::CaseInsensitive);
    return all;
}

const QVector<QtMsgType> &LogModel::levels()
{
    static const QVector<QtMsgType> all = [] {
        QVector<QtMsgType> list;
        for (const auto &entry : levelNames)
            list.append(entry.level);
        return list;
    }();
    return all;
}

QString LogModel::levelName(QtMsgType level)
{
    const int severe = severity(level);
    return severe < 0 ? QString::number(level) : tr(levelNames[severe].name);
}

int LogModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

static QIcon levelIcon(QtMsgType level)
{
    const int severity = LogModel::severity(level);
    return severity < 0 ? QIcon() : benchIcon(QLatin1String(levelNames[severity].icon));
}

static QString cellText(const LogRecord &record, int column)
{
    switch (column) {
    case LogModel::TimeColumn:
        return recordTime(record.time);
    case LogModel::LevelColumn:
        return LogModel::levelName(record.type);
    case LogModel::CategoryColumn:
        return record.category;
    case LogModel::SourceColumn:
        return record.source;
    default:
        return record.text;
    }
}

QVariant LogModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const LogRecord &shown = record(index.row());
    if (role == Qt::DisplayRole)
        return cellText(shown, index.column());
    if (role == Qt::ToolTipRole)
        return recordToolTip(
            {recordTime(shown.time), levelName(shown.type), shown.category, shown.source},
            shown.text);
    if (role == Qt::DecorationRole && index.column() == LevelColumn)
        return levelIcon(shown.type);
    return {};
}

QVariant LogModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section >= ColumnCount)
        return {};
    return tr(columnNames[section]);
}

} // namespace NARV::DEV
