#pragma once

#include "console/logrelay.h"
#include "console/recordtable.h"

#include <QSet>

namespace NARV::DEV {

//! The log records that a relay hands out: a table of the newest hundred thousand.
class ZPPLUGIN_DEV_EXPORT LogModel : public RecordTable<LogRecord>
{
    Q_OBJECT

public:
    enum Column
    {
        TimeColumn,
        LevelColumn,
        CategoryColumn,
        SourceColumn,
        TextColumn,
        ColumnCount
    };

    explicit LogModel(LogRelay &relay, QObject *parent = nullptr);

    void clear();
    //! Those met since the model was made, in alphabetical order.
    QStringList categories() const;

    //! The levels from the least severe to the most severe one.
    static const QVector<QtMsgType> &levels();
    static QString levelName(QtMsgType level);
    static int severity(QtMsgType level) { return levels().indexOf(level); }

    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

Q_SIGNALS:
    void categoriesChanged();

private:
    void take(const QVector<LogRecord> &records);

    QSet<QString> m_categories;
};

} // namespace NARV::DEV
