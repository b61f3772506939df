#include "console/eventlog.h"

#include "console/recordtime.h"

#include <QDateTime>

namespace NARV::DEV {

static const int eventCapacity = 10000;
static const int batchMs = 50;

static const struct
{
    EventLog::Kind kind;
    const char *name;
} kindNames[] = {
    {EventLog::Kind::FieldWrite, QT_TRANSLATE_NOOP("NARV::DEV::EventLog", "Field write")},
    {EventLog::Kind::FieldChange, QT_TRANSLATE_NOOP("NARV::DEV::EventLog", "Field change")},
    {EventLog::Kind::Alarm, QT_TRANSLATE_NOOP("NARV::DEV::EventLog", "Alarm")},
    {EventLog::Kind::Gesture, QT_TRANSLATE_NOOP("NARV::DEV::EventLog", "Gesture")},
    {EventLog::Kind::TagWrite, QT_TRANSLATE_NOOP("NARV::DEV::EventLog", "Tag write")},
    {EventLog::Kind::Life, QT_TRANSLATE_NOOP("NARV::DEV::EventLog", "Life")},
};

static const char *const columnNames[] = {
    QT_TRANSLATE_NOOP("NARV::DEV::EventLog", "Time"),
    QT_TRANSLATE_NOOP("NARV::DEV::EventLog", "Kind"),
    QT_TRANSLATE_NOOP("NARV::DEV::EventLog", "Widget"),
    QT_TRANSLATE_NOOP("NARV::DEV::EventLog", "Text"),
};

EventLog::EventLog(QObject *parent)
    : RecordTable(eventCapacity, parent)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(batchMs);
    connect(&m_timer, &QTimer::timeout, this, &EventLog::flush);
}

EventLog::~EventLog() = default;

void EventLog::add(Kind kind, const QString &widget, const QString &text)
{
    m_pending.append({QDateTime::currentMSecsSinceEpoch(), kind, widget, text});
    if (m_pending.size() >= capacity())
        flush();
    else if (!m_timer.isActive())
        m_timer.start();
}

void EventLog::flush()
{
    m_timer.stop();
    append(std::exchange(m_pending, {}));
}

void EventLog::clear()
{
    m_pending.clear();
    removeAll();
}

QVector<EventLog::Kind> EventLog::kinds()
{
    QVector<Kind> all;
    for (const auto &entry : kindNames)
        all.append(entry.kind);
    return all;
}

QString EventLog::kindName(Kind kind)
{
    for (const auto &entry : kindNames) {
        if (entry.kind == kind)
            return tr(entry.name);
    }
    return {};
}

int EventLog::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant EventLog::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const EventRecord &event = record(index.row());
    if (role == Qt::ToolTipRole)
        return recordToolTip({recordTime(event.time), kindName(event.kind), event.widget},
                             event.text);
    if (role != Qt::DisplayRole)
        return {};
    switch (index.column()) {
    case TimeColumn:
        return recordTime(event.time);
    case KindColumn:
        return kindName(event.kind);
    case WidgetColumn:
        return event.widget;
    default:
        return event.text;
    }
}

QVariant EventLog::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section >= ColumnCount)
        return {};
    return tr(columnNames[section]);
}

} // namespace NARV::DEV
