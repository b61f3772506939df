#include "data/datacommand.h"

#include "data/testdata.h"

#include <QCoreApplication>
#include <QSet>

#include <algorithm>
#include <tuple>

namespace NARV::DEV {

static constexpr int mergeableId = 2;
static constexpr int mergeTime = 1000; // milliseconds

static const QString &nameOf(const Tag &tag)
{
    return tag.name;
}

static const QString &nameOf(const Trend &trend)
{
    return trend.name;
}

static const QString &nameOf(const Alarm &alarm)
{
    return alarm.info.name;
}

static bool isSame(const Tag &a, const Tag &b)
{
    return std::tie(a.name, a.type, a.generator) == std::tie(b.name, b.type, b.generator);
}

static bool isSame(const Trend &a, const Trend &b)
{
    const auto all = [](const Trend &trend) {
        return std::tie(trend.name, trend.tagName, trend.file, trend.interval, trend.capacity);
    };
    return all(a) == all(b);
}

static bool isSame(const Alarm &a, Alarm b)
{
    b.info.state = a.info.state;
    b.info.timestamp = a.info.timestamp;
    b.info.tagValue = a.info.tagValue;
    return a.info == b.info && a.limit == b.limit;
}

//! What is in the first list, but by name not in the second, with its row.
template<typename Item, typename Take>
static void eachMissing(const QVector<Item> &from, const QVector<Item> &in, Take take)
{
    QSet<QString> names;
    for (const Item &item : in)
        names += nameOf(item);
    for (int row = 0; row < from.size(); ++row) {
        if (!names.contains(nameOf(from[row])))
            take(from[row], row);
    }
}

template<typename Item>
DataCommand::Changes<Item> DataCommand::difference(const QVector<Item> &before,
                                                   const QVector<Item> &after)
{
    Changes<Item> changes;
    if (before.size() != after.size()) {
        eachMissing(before, after, [&](const Item &item, int row) {
            changes.append({item, {}, row});
        });
        eachMissing(after, before, [&](const Item &item, int row) {
            changes.append({{}, item, row});
        });
        return changes;
    }
    for (int row = 0; row < before.size(); ++row) {
        if (!isSame(before[row], after[row]))
            changes.append({before[row], after[row], row});
    }
    return changes;
}

// Add, remove, rename, change.
static const char *const tagTexts[] = {
    QT_TRANSLATE_NOOP("NARV::DEV::DataCommand", "Add the tag %1"),
    QT_TRANSLATE_NOOP("NARV::DEV::DataCommand", "Remove the tag %1"),
    QT_TRANSLATE_NOOP("NARV::DEV::DataCommand", "Rename the tag %1 to %2"),
    QT_TRANSLATE_NOOP("NARV::DEV::DataCommand", "Change the tag %1")};
static const char *const trendTexts[] = {
    QT_TRANSLATE_NOOP("NARV::DEV::DataCommand", "Add the trend %1"),
    QT_TRANSLATE_NOOP("NARV::DEV::DataCommand", "Remove the trend %1"),
    QT_TRANSLATE_NOOP("NARV::DEV::DataCommand", "Rename the trend %1 to %2"),
    QT_TRANSLATE_NOOP("NARV::DEV::DataCommand", "Change the trend %1")};
static const char *const alarmTexts[] = {
    QT_TRANSLATE_NOOP("NARV::DEV::DataCommand", "Add the alarm %1"),
    QT_TRANSLATE_NOOP("NARV::DEV::DataCommand", "Remove the alarm %1"),
    QT_TRANSLATE_NOOP("NARV::DEV::DataCommand", "Rename the alarm %1 to %2"),
    QT_TRANSLATE_NOOP("NARV::DEV::DataCommand", "Change the alarm %1")};

template<typename Item>
QString DataCommand::describe(const Changes<Item> &changes, const char *const (&texts)[4])
{
    if (changes.isEmpty())
        return {};
    const auto text = [&texts](int which) {
        return QCoreApplication::translate("NARV::DEV::DataCommand", texts[which]);
    };
    const auto &[before, after, row] = changes.first();
    if (!before)
        return text(0).arg(nameOf(*after));
    if (!after)
        return text(1).arg(nameOf(*before));
    return nameOf(*before) == nameOf(*after) ? text(3).arg(nameOf(*after))
                                             : text(2).arg(nameOf(*before), nameOf(*after));
}

DataCommand::DataCommand(TestData &data, const TestDataContent &before,
                         const TestDataContent &after)
    : m_data(data)
    , m_tags(difference(before.tags, after.tags))
    , m_trends(difference(before.trends, after.trends))
    , m_alarms(difference(before.alarms, after.alarms))
{
    // A tag that is renamed takes its trends and alarms along.
    for (const QString &text : {describe(m_alarms, alarmTexts), describe(m_trends, trendTexts),
                                describe(m_tags, tagTexts)}) {
        if (!text.isEmpty())
            setText(text);
    }
    m_age.start();
}

template<typename Table, typename Item>
void DataCommand::apply(Table &table, const Changes<Item> &changes)
{
    for (const auto &[from, to, row] : changes) {
        const int present = from ? table.find(nameOf(*from)) : -1;
        if (to && present >= 0)
            table.assign(present, *to);
        else if (to)
            table.insert(qBound(0, row, table.rowCount()), *to);
        else if (present >= 0)
            table.remove(present);
    }
}

template<typename Item>
DataCommand::Changes<Item> DataCommand::reversed(const Changes<Item> &changes)
{
    Changes<Item> reversed;
    for (auto it = changes.crbegin(); it != changes.crend(); ++it)
        reversed.append({it->after, it->before, it->row});
    return reversed;
}

void DataCommand::undo()
{
    m_isDone = false;
    m_data.replay([this] {
        apply(m_data.tags(), reversed(m_tags));
        apply(m_data.trends(), reversed(m_trends));
        apply(m_data.alarms(), reversed(m_alarms));
    });
}

void DataCommand::redo()
{
    if (std::exchange(m_isDone, true))
        return;
    m_data.replay([this] {
        apply(m_data.tags(), m_tags);
        apply(m_data.trends(), m_trends);
        apply(m_data.alarms(), m_alarms);
    });
}

int DataCommand::id() const
{
    return mergeableId;
}

template<typename Item>
void DataCommand::merge(Changes<Item> &changes, const Changes<Item> &next)
{
    for (int i = 0; i < changes.size(); ++i)
        changes[i].after = next[i].after;
}

// The same text is about the same item: one that is added or removed can not be so again.
bool DataCommand::mergeWith(const QUndoCommand *other)
{
    const auto *next = static_cast<const DataCommand *>(other);
    if (next->text() != text() || m_age.elapsed() > mergeTime ||
        next->m_tags.size() != m_tags.size() || next->m_trends.size() != m_trends.size() ||
        next->m_alarms.size() != m_alarms.size())
        return false;
    merge(m_tags, next->m_tags);
    merge(m_trends, next->m_trends);
    merge(m_alarms, next->m_alarms);
    m_age.restart();
    return true;
}

} // namespace NARV::DEV
