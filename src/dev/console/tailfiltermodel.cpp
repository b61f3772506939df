#include "console/tailfiltermodel.h"

#include <algorithm>

namespace NARV::DEV {

TailFilterModel::TailFilterModel(QAbstractItemModel &source, QObject *parent)
    : QAbstractProxyModel(parent)
{
    setSourceModel(&source);
    connect(&source, &QAbstractItemModel::rowsInserted, this, [this] {
        if (m_isPaused)
            Q_EMIT waitingRowsChanged();
        else
            catchUp();
    });
    connect(&source, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [this](const QModelIndex &, int, int last) { dropRows(last); });
    connect(&source, &QAbstractItemModel::rowsRemoved, this,
            [this](const QModelIndex &, int, int last) {
                m_dropped += last + 1;
                m_next = std::max(m_next, m_dropped);
            });
    connect(&source, &QAbstractItemModel::modelReset, this, &TailFilterModel::startAnew);
}

void TailFilterModel::setWords(const QString &words)
{
    const QStringList list = words.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (list == m_words)
        return;
    m_words = list;
    filterChanged();
}

bool TailFilterModel::hasWords(std::initializer_list<QString> texts) const
{
    return std::all_of(m_words.cbegin(), m_words.cend(), [&](const QString &word) {
        return std::any_of(texts.begin(), texts.end(), [&](const QString &text) {
            return text.contains(word, Qt::CaseInsensitive);
        });
    });
}

void TailFilterModel::setPaused(bool isPaused)
{
    m_isPaused = isPaused;
    if (!isPaused)
        catchUp();
    Q_EMIT waitingRowsChanged();
}

int TailFilterModel::waitingRows() const
{
    return static_cast<int>(nextNumber() - m_next);
}

std::deque<TailFilterModel::Number> TailFilterModel::acceptedFrom(Number first) const
{
    std::deque<Number> rows;
    const Number end = nextNumber();
    for (Number number = first; number < end; ++number) {
        if (accepts(static_cast<int>(number - m_dropped)))
            rows.push_back(number);
    }
    return rows;
}

void TailFilterModel::catchUp()
{
    const std::deque<Number> rows = acceptedFrom(m_next);
    m_next = nextNumber();
    if (rows.empty())
        return;
    beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(rows.size()) - 1);
    m_rows.insert(m_rows.end(), rows.begin(), rows.end());
    endInsertRows();
}

void TailFilterModel::dropRows(int lastSourceRow)
{
    const auto end = std::upper_bound(m_rows.begin(), m_rows.end(), m_dropped + lastSourceRow);
    if (end == m_rows.begin())
        return;
    beginRemoveRows({}, 0, static_cast<int>(end - m_rows.begin()) - 1);
    m_rows.erase(m_rows.begin(), end);
    endRemoveRows();
}

void TailFilterModel::startAnew()
{
    beginResetModel();
    m_dropped = 0;
    m_rows = acceptedFrom(0);
    m_next = nextNumber();
    endResetModel();
    Q_EMIT waitingRowsChanged();
}

void TailFilterModel::filterChanged()
{
    beginResetModel();
    m_rows = acceptedFrom(m_dropped);
    while (!m_rows.empty() && m_rows.back() >= m_next) // those wait for the end of the pause
        m_rows.pop_back();
    endResetModel();
}

int TailFilterModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int TailFilterModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : sourceModel()->columnCount();
}

QModelIndex TailFilterModel::index(int row, int column, const QModelIndex &parent) const
{
    return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
}

QModelIndex TailFilterModel::parent(const QModelIndex &) const
{
    return {};
}

QModelIndex TailFilterModel::mapToSource(const QModelIndex &index) const
{
    if (!index.isValid())
        return {};
    const Number number = m_rows[static_cast<size_t>(index.row())];
    return sourceModel()->index(static_cast<int>(number - m_dropped), index.column());
}

QModelIndex TailFilterModel::mapFromSource(const QModelIndex &index) const
{
    const Number number = m_dropped + index.row();
    const auto it = std::lower_bound(m_rows.begin(), m_rows.end(), number);
    if (!index.isValid() || it == m_rows.end() || *it != number)
        return {};
    return createIndex(static_cast<int>(it - m_rows.begin()), index.column());
}

QVariant TailFilterModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return sourceModel()->headerData(section, orientation, role);
}

} // namespace NARV::DEV
