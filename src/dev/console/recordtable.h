#pragma once

#include <QAbstractTableModel>
#include <QVector>

#include <algorithm>
#include <deque>

namespace NARV::DEV {

//! A table of records, of which it keeps the newest: they come in batches at the end, and go one
//! after the other at the front. Views hear of a batch once.
template<class Record>
class RecordTable : public QAbstractTableModel
{
public:
    RecordTable(int capacity, QObject *parent)
        : QAbstractTableModel(parent)
        , m_capacity(capacity)
    {
    }

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_records.size());
    }
    const Record &record(int row) const { return m_records[static_cast<size_t>(row)]; }
    int capacity() const { return m_capacity; }

protected:
    void append(const QVector<Record> &batch)
    {
        if (batch.isEmpty())
            return;
        const int count = qMin(batch.size(), m_capacity);
        const int excess = rowCount() + count - m_capacity;
        if (excess > 0) {
            beginRemoveRows({}, 0, excess - 1);
            m_records.erase(m_records.begin(), m_records.begin() + excess);
            endRemoveRows();
        }
        beginInsertRows({}, rowCount(), rowCount() + count - 1);
        m_records.insert(m_records.end(), batch.end() - count, batch.end());
        endInsertRows();
    }

    void removeAll()
    {
        beginResetModel();
        m_records.clear();
        endResetModel();
    }

private:
    const int m_capacity;
    std::deque<Record> m_records;
};

} // namespace NARV::DEV
