#include "data/trendstore.h"

#include "data/namechoice.h"
#include "data/simulationclock.h"
#include "data/tagtable.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace NARV::DEV {

using Point = CsvSeries::Point;

static bool isGap(const Point &point)
{
    const bool isNaN = (point.value.userType() == QMetaType::Double ||
                        point.value.userType() == QMetaType::Float) &&
                       std::isnan(point.value.toDouble());
    return !point.value.isValid() || isNaN || point.quality == Quality::Bad;
}

static bool isNumber(const Point &point)
{
    return !isGap(point) && point.value.userType() != QMetaType::QString &&
           point.value.canConvert(QMetaType::Double);
}

//! The two points of a part that have to be seen, in their order.
static std::pair<int, int> telling(const QVector<Point> &points, int begin, int end)
{
    int least = -1;
    int greatest = -1;
    int gap = -1;
    for (int i = begin; i < end; ++i) {
        const Point &point = points.at(i);
        if (isGap(point))
            gap = i;
        if (!isNumber(point))
            continue;
        const double value = point.value.toDouble();
        if (least < 0 || value < points.at(least).value.toDouble())
            least = i;
        if (greatest < 0 || value > points.at(greatest).value.toDouble())
            greatest = i;
    }
    if (gap >= 0)
        return std::minmax(gap, greatest < 0 ? begin : greatest);
    if (least < 0)
        return {begin, end - 1};
    return std::minmax(least, greatest);
}

QVector<Point> decimate(const QVector<Point> &points, unsigned int count)
{
    if (qint64(count) >= points.size())
        return points;
    if (count < 2)
        return count == 0 ? QVector<Point>() : QVector<Point>{points.last()};
    const int parts = int(count / 2);
    QVector<Point> result;
    result.reserve(int(count));
    for (int part = 0; part < parts; ++part) {
        const int begin = int(qint64(points.size()) * part / parts);
        const int end = int(qint64(points.size()) * (part + 1) / parts);
        const std::pair<int, int> both = telling(points, begin, end);
        result.append(points.at(both.first));
        if (both.second != both.first)
            result.append(points.at(both.second));
    }
    return result;
}

static QVariant timeInFormat(qint64 time, WidgetActionManager::TrendTimeFormat format)
{
    switch (format) {
    case WidgetActionManager::MillisecondsSinceEpoch:
        return time;
    case WidgetActionManager::SecondsSinceEpoch:
        return double(time) / 1000;
    case WidgetActionManager::DateTime:
        return QDateTime::fromMSecsSinceEpoch(time);
    case WidgetActionManager::IsoText:
        break;
    }
    const QDateTime local = QDateTime::fromMSecsSinceEpoch(time);
    return local.toOffsetFromUtc(local.offsetFromUtc()).toString(Qt::ISODateWithMs);
}

TrendStore::TrendStore(const TagTable &tags, const SimulationClock &clock, QObject *parent)
    : QAbstractTableModel(parent)
    , m_tags(tags)
    , m_clock(clock)
{
    connect(&tags, &TagTable::filesChanged, this, &TrendStore::reload);
}

TrendStore::~TrendStore() = default;

int TrendStore::find(const QString &name) const
{
    for (int row = 0; row < m_entries.size(); ++row) {
        if (m_entries.at(row).trend.name == name)
            return row;
    }
    return -1;
}

QStringList TrendStore::names() const
{
    QStringList names;
    for (const Entry &entry : m_entries)
        names.append(entry.trend.name);
    return names;
}

const Trend &TrendStore::trend(int row) const
{
    return m_entries.at(row).trend;
}

QString TrendStore::problem(int row) const
{
    const Entry &entry = m_entries.at(row);
    if (entry.series)
        return entry.series->problems.join(QLatin1Char('\n'));
    return m_tags.contains(entry.trend.tagName)
               ? QString()
               : tr("There is no tag “%1”").arg(entry.trend.tagName);
}

void TrendStore::load(Entry &entry) const
{
    entry.series =
        entry.trend.file.isEmpty() ? nullptr : m_tags.series(entry.trend.file, CsvValues::Numbers);
}

int TrendStore::add(const Trend &trend)
{
    const int row = m_entries.size();
    insert(row, trend);
    return row;
}

void TrendStore::insert(int row, const Trend &trend)
{
    Entry entry{trend, {}, {}};
    entry.trend.name =
        freeName(trend.name.trimmed(), [this](const QString &name) { return contains(name); });
    load(entry);
    beginInsertRows({}, row, row);
    m_entries.insert(row, entry);
    endInsertRows();
    trendsHaveChanged();
}

void TrendStore::assign(int row, const Trend &trend)
{
    Entry &entry = m_entries[row];
    const bool isOtherFile = trend.file != entry.trend.file;
    if (trend.tagName != entry.trend.tagName)
        entry.history.clear();
    entry.trend = trend;
    if (isOtherFile)
        load(entry);
    Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1));
    trendsHaveChanged();
}

void TrendStore::remove(int row)
{
    beginRemoveRows({}, row, row);
    m_entries.removeAt(row);
    endRemoveRows();
    trendsHaveChanged();
}

void TrendStore::clear(int row)
{
    m_entries[row].history.clear();
    Q_EMIT dataChanged(index(row, SamplesColumn), index(row, SamplesColumn));
}

void TrendStore::replaceAll(const QVector<Trend> &trends)
{
    beginResetModel();
    m_entries.clear();
    for (const Trend &trend : trends) {
        m_entries.append({trend, {}, {}});
        load(m_entries.last());
    }
    endResetModel();
    trendsHaveChanged();
}

void TrendStore::trendsHaveChanged()
{
    Q_EMIT trendsChanged();
    Q_EMIT modified();
}

void TrendStore::renameTag(const QString &from, const QString &to)
{
    for (int row = 0; row < m_entries.size(); ++row) {
        if (m_entries.at(row).trend.tagName != from)
            continue;
        m_entries[row].trend.tagName = to;
        Q_EMIT dataChanged(index(row, SourceColumn), index(row, SourceColumn));
    }
}

void TrendStore::append(Entry &entry, const Point &point)
{
    entry.history.push_back(point);
    while (entry.history.size() > size_t(qMax(1, entry.trend.capacity)))
        entry.history.pop_front();
}

void TrendStore::record()
{
    const qint64 now = m_clock.now().toMSecsSinceEpoch();
    bool isAny = false;
    for (Entry &entry : m_entries) {
        const int row = entry.series ? -1 : m_tags.find(entry.trend.tagName);
        const auto &history = entry.history;
        if (!history.empty() && now < history.back().time)
            entry.history.clear(); // the clock began anew
        if (row < 0 || (!history.empty() && now - history.back().time < entry.trend.interval))
            continue;
        append(entry, {now, m_tags.value(row), m_tags.quality(row)});
        isAny = true;
    }
    if (isAny)
        Q_EMIT dataChanged(index(0, SamplesColumn), index(m_entries.size() - 1, SamplesColumn));
}

void TrendStore::addGap(const QDateTime &from)
{
    const qint64 time = from.toMSecsSinceEpoch();
    for (Entry &entry : m_entries) {
        if (!entry.history.empty())
            append(entry, {qMax(time, entry.history.back().time + 1), {}, Quality::Bad});
    }
}

void TrendStore::reload()
{
    for (Entry &entry : m_entries)
        load(entry);
    if (!m_entries.isEmpty())
        Q_EMIT dataChanged(index(0, 0), index(m_entries.size() - 1, ColumnCount - 1));
}

qint64 TrendStore::fileOffset(const Entry &entry) const
{
    return entry.series->times == CsvSeries::Times::Absolute
               ? 0
               : m_clock.startTime().toMSecsSinceEpoch();
}

template<typename Points>
static QVector<Point> between(const Points &points, qint64 from, qint64 to, qint64 offset)
{
    auto it = std::lower_bound(
        points.begin(), points.end(), from,
        [offset](const Point &point, qint64 time) { return point.time + offset < time; });
    QVector<Point> result;
    for (; it != points.end() && it->time + offset <= to; ++it)
        result.append({it->time + offset, it->value, it->quality});
    return result;
}

QVector<Point> TrendStore::pointsBetween(const Entry &entry, qint64 from, qint64 to) const
{
    return entry.series ? between(entry.series->points, from, to, fileOffset(entry))
                        : between(entry.history, from, to, 0);
}

static QVariantList sampleOf(const Point &point, WidgetActionManager::TrendTimeFormat format)
{
    QVariantList sample{timeInFormat(point.time, format), isGap(point) ? QVariant() : point.value};
    if (point.quality != Quality::Good)
        sample.append(int(point.quality));
    return sample;
}

QVariant TrendStore::samples(const QString &name, const QDateTime &from, const QDateTime &to,
                             unsigned int count, WidgetActionManager::TrendTimeFormat format) const
{
    const int row = find(name);
    if (row < 0)
        return {};
    using Limits = std::numeric_limits<qint64>;
    const qint64 begin = from.isValid() ? from.toMSecsSinceEpoch() : Limits::min();
    const qint64 end = to.isValid() ? to.toMSecsSinceEpoch() : Limits::max();
    const auto points = decimate(pointsBetween(m_entries.at(row), begin, end), count);
    QVariantList samples;
    samples.reserve(points.size());
    for (const Point &point : points)
        samples.append(QVariant(sampleOf(point, format)));
    return samples;
}

// The item model

int TrendStore::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_entries.size();
}

int TrendStore::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant TrendStore::display(int row, int column) const
{
    const Entry &entry = m_entries.at(row);
    const Trend &trend = entry.trend;
    switch (column) {
    case NameColumn:
        return trend.name;
    case SourceColumn:
        return entry.series ? trend.file : trend.tagName;
    case IntervalColumn:
        return entry.series ? QVariant() : trend.interval;
    case CapacityColumn:
        return entry.series ? QVariant() : trend.capacity;
    default:
        return int(entry.series ? size_t(entry.series->points.size()) : entry.history.size());
    }
}

QVariant TrendStore::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const int row = index.row();
    const bool isSource = index.column() == SourceColumn;
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return display(row, index.column());
    if ((role == ProblemRole || role == Qt::ToolTipRole) && isSource && !problem(row).isEmpty())
        return problem(row);
    if (role == ChoicesRole && isSource && !m_entries.at(row).series)
        return m_tags.names();
    return {};
}

//! A whole number within the limits, or why it is none.
static QString readNumber(const QVariant &value, int minimum, int maximum, int &number)
{
    bool isNumber = false;
    const int wanted = value.toInt(&isNumber);
    if (!isNumber || wanted < minimum || wanted > maximum)
        return TrendStore::tr("“%1” is not a whole number from %2 to %3")
            .arg(value.toString(), QString::number(minimum), QString::number(maximum));
    number = wanted;
    return {};
}

QString TrendStore::edit(Trend &trend, int column, const QVariant &value) const
{
    const QString text = value.toString().trimmed();
    switch (column) {
    case NameColumn: {
        const auto isTaken = [this, &trend](const QString &name) {
            return name != trend.name && contains(name);
        };
        QString problem = nameProblem(text, isTaken);
        trend.name = text;
        return problem;
    }
    case SourceColumn:
        (trend.file.isEmpty() ? trend.tagName : trend.file) = text;
        return text.isEmpty() ? tr("A trend needs a source") : QString();
    case IntervalColumn:
        return readNumber(value, Trend::shortestInterval, Trend::longestInterval, trend.interval);
    case CapacityColumn:
        return readNumber(value, 1, Trend::mostSamples, trend.capacity);
    default:
        return tr("The number of samples can not be edited");
    }
}

bool TrendStore::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return false;
    Trend trend = this->trend(index.row());
    const QString problem = edit(trend, index.column(), value);
    if (!problem.isEmpty()) {
        Q_EMIT refused(problem);
        return false;
    }
    assign(index.row(), trend);
    return true;
}

Qt::ItemFlags TrendStore::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (!index.isValid() || index.column() == SamplesColumn)
        return flags;
    const bool isFile = m_entries.at(index.row()).series != nullptr;
    return isFile && index.column() > SourceColumn ? flags : flags | Qt::ItemIsEditable;
}

QVariant TrendStore::headerData(int section, Qt::Orientation orientation, int role) const
{
    const QString titles[] = {tr("Name"), tr("Source"), tr("Every (ms)"), tr("Keep"),
                              tr("Samples")};
    const bool isTitle = orientation == Qt::Horizontal && role == Qt::DisplayRole;
    return isTitle && section >= 0 && section < ColumnCount
               ? titles[section]
               : QAbstractTableModel::headerData(section, orientation, role);
}

} // namespace NARV::DEV
