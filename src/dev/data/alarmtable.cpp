#include "data/alarmtable.h"

#include "data/namechoice.h"
#include "data/simulationclock.h"
#include "data/tagtable.h"

#include <NARV/LogHandler>

#include <QCoreApplication>

#include <cmath>
#include <tuple>

namespace NARV::DEV {

bool AlarmLimit::operator==(const AlarmLimit &other) const
{
    return std::tie(kind, limit, hysteresis) == std::tie(other.kind, other.limit, other.hysteresis);
}

// The state machine. Two flags of the alarm choose between states: an alarm that is raised waits to
// be acknowledged only if that is enabled, and one that is over waits to be reset only if that is.
static constexpr int stay = -1;
static constexpr int raised = -2; // acknowledgeEnabled ? TriggeredNotAcknowledged : Triggered
static constexpr int over = -3;   // resetEnabled ? NotTriggeredAcknowledged : NotTriggered

static constexpr int off = AlarmInfo::StateDisabled;
static constexpr int calm = AlarmInfo::StateNotTriggered;

static constexpr int transitions[][6] = {
    // Raise, Clear, Acknowledge, Reset, Disable, Enable
    {stay, stay, stay, stay, stay, calm},  // Disabled
    {raised, stay, stay, stay, off, stay}, // NotTriggered
    {stay, over, stay, stay, off, stay},   // Triggered
    {stay, AlarmInfo::StateNotTriggeredNotAcknowledged, AlarmInfo::StateTriggeredAcknowledged, stay,
     off, stay},                            // TriggeredNotAcknowledged
    {stay, over, stay, stay, off, stay},    // TriggeredAcknowledged
    {raised, stay, over, stay, off, stay},  // NotTriggeredNotAcknowledged
    {raised, stay, stay, calm, off, stay}}; // NotTriggeredAcknowledged
static_assert(std::size(transitions) == AlarmInfo::StateNotTriggeredAcknowledged + 1);

static AlarmInfo::State chosen(int target, const AlarmInfoData &alarm)
{
    switch (target) {
    case stay:
        return alarm.state;
    case raised:
        return alarm.acknowledgeEnabled ? AlarmInfo::StateTriggeredNotAcknowledged
                                        : AlarmInfo::StateTriggered;
    case over:
        return alarm.resetEnabled ? AlarmInfo::StateNotTriggeredAcknowledged
                                  : AlarmInfo::StateNotTriggered;
    default:
        return AlarmInfo::State(target);
    }
}

AlarmInfo::State nextAlarmState(const AlarmInfoData &alarm, AlarmAction action)
{
    const bool isForbidden = (action == AlarmAction::Acknowledge && !alarm.acknowledgeEnabled) ||
                             (action == AlarmAction::Reset && !alarm.resetEnabled);
    return isForbidden ? alarm.state : chosen(transitions[alarm.state][int(action)], alarm);
}

//! Where an alarm goes whose flags no longer allow the state in which it is.
static AlarmInfo::State settled(const AlarmInfoData &alarm)
{
    struct Move
    {
        AlarmInfo::State from;
        bool isDue;
        int to;
    };
    const bool acknowledged = alarm.acknowledgeEnabled;
    const Move moves[] = {{AlarmInfo::StateTriggered, acknowledged, raised},
                          {AlarmInfo::StateTriggeredNotAcknowledged, !acknowledged, raised},
                          {AlarmInfo::StateTriggeredAcknowledged, !acknowledged, raised},
                          {AlarmInfo::StateNotTriggeredNotAcknowledged, !acknowledged, over},
                          {AlarmInfo::StateNotTriggeredAcknowledged, !alarm.resetEnabled, over}};
    for (const Move &move : moves) {
        if (move.from == alarm.state && move.isDue)
            return chosen(move.to, alarm);
    }
    return alarm.state;
}

const QStringList &alarmStateNames()
{
    static const QStringList names{QStringLiteral("disabled"),
                                   QStringLiteral("not triggered"),
                                   QStringLiteral("triggered"),
                                   QStringLiteral("triggered, not acknowledged"),
                                   QStringLiteral("triggered, acknowledged"),
                                   QStringLiteral("not triggered, not acknowledged"),
                                   QStringLiteral("not triggered, acknowledged")};
    return names;
}

const QStringList &alarmSeverityNames()
{
    static const QStringList names{QStringLiteral("not important"), QStringLiteral("low"),
                                   QStringLiteral("below normal"),  QStringLiteral("normal"),
                                   QStringLiteral("above normal"),  QStringLiteral("high"),
                                   QStringLiteral("critical")};
    return names;
}

const QStringList &alarmLimitNames()
{
    static const QStringList names{QStringLiteral("none"), QStringLiteral("high"),
                                   QStringLiteral("low")};
    return names;
}

Alarm defaultAlarm(const QString &name)
{
    static constexpr struct
    {
        AlarmInfo::State state;
        QRgb background;
        QRgb foreground;
    } colors[] = {{AlarmInfo::StateTriggered, 0xffc62828, 0xffffffff},
                  {AlarmInfo::StateTriggeredNotAcknowledged, 0xffc62828, 0xffffffff},
                  {AlarmInfo::StateTriggeredAcknowledged, 0xffef9a00, 0xff1c1c1c},
                  {AlarmInfo::StateNotTriggeredNotAcknowledged, 0xfffff176, 0xff1c1c1c},
                  {AlarmInfo::StateNotTriggeredAcknowledged, 0xffa5d6a7, 0xff1c1c1c}};
    Alarm alarm;
    alarm.info.name = name;
    alarm.info.severity = AlarmInfo::SeverityNormal;
    alarm.info.acknowledgeEnabled = true;
    for (const auto &color : colors) {
        alarm.info.backgroundColors.insert(color.state, QColor(color.background));
        alarm.info.foregroundColors.insert(color.state, QColor(color.foreground));
    }
    return alarm;
}

static bool isActive(const AlarmInfoData &alarm)
{
    return alarm.state != AlarmInfo::StateDisabled && alarm.state != AlarmInfo::StateNotTriggered;
}

AlarmTable::AlarmTable(const TagTable &tags, const SimulationClock &clock, QObject *parent)
    : QAbstractTableModel(parent)
    , m_tags(tags)
    , m_clock(clock)
{
}

AlarmTable::~AlarmTable() = default;

int AlarmTable::find(const QString &name) const
{
    return m_rows.value(name, -1);
}

const Alarm &AlarmTable::alarm(int row) const
{
    return m_entries.at(row).alarm;
}

QVector<AlarmInfo> AlarmTable::active() const
{
    QVector<AlarmInfo> active;
    for (const Entry &entry : m_entries) {
        if (isActive(entry.alarm.info))
            active.append(AlarmInfo(entry.alarm.info));
    }
    return active;
}

void AlarmTable::insert(int row, const Alarm &alarm, bool isPassing)
{
    Entry entry{alarm, false, isPassing};
    entry.alarm.info.name =
        freeName(alarm.info.name.trimmed(), [this](const QString &name) { return contains(name); });
    entry.alarm.info.timestamp = m_clock.now();
    beginInsertRows({}, row, row);
    m_entries.insert(row, entry);
    if (row == m_entries.size() - 1)
        indexRow(row);
    else
        rebuildIndex();
    endInsertRows();
    if (isActive(entry.alarm.info))
        Q_EMIT alarmChanged(AlarmInfo(entry.alarm.info));
}

int AlarmTable::add(const Alarm &alarm)
{
    const int row = m_entries.size();
    insert(row, alarm);
    return row;
}

void AlarmTable::insert(int row, const Alarm &alarm)
{
    insert(row, alarm, false);
    Q_EMIT modified();
    if (const int tagRow = m_tags.find(alarm.info.tagName); tagRow >= 0)
        checkRow(row, m_tags.value(tagRow));
}

int AlarmTable::duplicate(int row)
{
    Alarm copy = alarm(row);
    copy.info.state = AlarmInfo::StateNotTriggered;
    return add(copy);
}

void AlarmTable::remove(int row)
{
    const Entry entry = m_entries.at(row);
    beginRemoveRows({}, row, row);
    m_entries.removeAt(row);
    if (row == m_entries.size()) {
        m_rows.remove(entry.alarm.info.name);
        m_limited.remove(entry.alarm.info.tagName, row);
    } else {
        rebuildIndex();
    }
    endRemoveRows();
    if (!entry.isPassing)
        Q_EMIT modified();
    AlarmInfoData last = entry.alarm.info;
    if (!isActive(last))
        return;
    last.state = AlarmInfo::StateDisabled;
    last.timestamp = m_clock.now();
    Q_EMIT alarmChanged(AlarmInfo(last));
}

QString AlarmTable::edit(int row, const Alarm &alarm)
{
    Entry &entry = m_entries[row];
    const AlarmInfoData before = entry.alarm.info;
    const auto isTaken = [this, &before](const QString &name) {
        return name != before.name && contains(name);
    };
    QString problem = nameProblem(alarm.info.name, isTaken);
    if (!problem.isEmpty())
        return problem;
    const bool isOtherLimit =
        !(alarm.limit == entry.alarm.limit) || alarm.info.tagName != before.tagName;
    entry.alarm = alarm;
    AlarmInfoData &info = entry.alarm.info;
    info.state = before.state;
    info.timestamp = before.timestamp;
    info.tagValue = before.tagValue;
    if (info == before && !isOtherLimit)
        return {};
    rebuildIndex();
    rowHasChanged(row);
    Q_EMIT modified();
    if (const auto state = settled(info); state != info.state)
        setState(row, state, info.tagValue);
    else if (isActive(before))
        Q_EMIT alarmChanged(AlarmInfo(info));
    const int tagRow = m_tags.find(alarm.info.tagName);
    if (isOtherLimit && tagRow >= 0 && row < m_entries.size())
        checkRow(row, m_tags.value(tagRow));
    return {};
}

void AlarmTable::replaceAll(const QVector<Alarm> &alarms)
{
    while (!m_entries.isEmpty())
        remove(m_entries.size() - 1);
    for (const Alarm &alarm : alarms)
        add(alarm);
    Q_EMIT modified();
}

void AlarmTable::renameTag(const QString &from, const QString &to)
{
    for (int row = 0; row < m_entries.size(); ++row) {
        AlarmInfoData &info = m_entries[row].alarm.info;
        if (info.tagName != from)
            continue;
        info.tagName = to;
        rowHasChanged(row);
    }
    rebuildIndex();
}

bool AlarmTable::isPossible(int row, AlarmAction action) const
{
    const AlarmInfoData &info = alarm(row).info;
    return nextAlarmState(info, action) != info.state;
}

bool AlarmTable::apply(int row, AlarmAction action)
{
    if (!isPossible(row, action))
        return false;
    const AlarmInfoData &info = alarm(row).info;
    const int tagRow = m_tags.find(info.tagName);
    const bool isRaised = action == AlarmAction::Raise && tagRow >= 0;
    const QVariant tagValue = isRaised ? m_tags.value(tagRow) : info.tagValue;
    if (action == AlarmAction::Enable)
        m_entries[row].isBeyond = false;
    setState(row, nextAlarmState(info, action), tagValue);
    if (action == AlarmAction::Enable && tagRow >= 0 && row < m_entries.size())
        checkRow(row, m_tags.value(tagRow));
    return true;
}

void AlarmTable::applyToAll(AlarmAction action)
{
    QStringList names; // as a listener may change the table
    for (const Entry &entry : qAsConst(m_entries))
        names.append(entry.alarm.info.name);
    for (const QString &name : qAsConst(names)) {
        if (const int row = find(name); row >= 0)
            apply(row, action);
    }
}

void AlarmTable::applyByName(const QString &name, AlarmAction action)
{
    if (const int row = find(name); row >= 0)
        apply(row, action);
    else
        LogHandler({}, __FILE__, __LINE__, __func__, "DATA").warning().debug()
            << "There is no alarm" << name;
}

void AlarmTable::acknowledge(const QString &name)
{
    applyByName(name, AlarmAction::Acknowledge);
}

void AlarmTable::reset(const QString &name)
{
    applyByName(name, AlarmAction::Reset);
}

//! Scene files keep the state of alarms by hand, and whether one is disabled.
static bool keepsState(const Alarm &alarm, AlarmInfo::State before)
{
    return alarm.limit.kind == AlarmLimit::None || before == AlarmInfo::StateDisabled ||
           alarm.info.state == AlarmInfo::StateDisabled;
}

void AlarmTable::setState(int row, AlarmInfo::State state, const QVariant &tagValue)
{
    Entry &entry = m_entries[row];
    AlarmInfoData &info = entry.alarm.info;
    const AlarmInfo::State before = info.state;
    info.state = state;
    info.tagValue = tagValue;
    info.timestamp = m_clock.now();
    const bool isKept = !entry.isPassing && keepsState(entry.alarm, before);
    const AlarmInfo told(info);
    rowHasChanged(row);
    Q_EMIT alarmChanged(told);
    if (isKept)
        Q_EMIT modified();
}

void AlarmTable::check(const QString &tagName, const QVariant &value)
{
    if (!m_limited.contains(tagName))
        return;
    const QList<int> rows = m_limited.values(tagName);
    for (const int row : rows) {
        if (row < m_entries.size() && alarm(row).info.tagName == tagName)
            checkRow(row, value);
    }
}

void AlarmTable::checkRow(int row, const QVariant &value)
{
    Entry &entry = m_entries[row];
    const AlarmLimit limit = entry.alarm.limit;
    const bool isText = value.userType() == QMetaType::QString;
    bool isNumber = !isText && limit.kind != AlarmLimit::None;
    const double number = isNumber ? value.toDouble(&isNumber) : 0;
    if (!isNumber || std::isnan(number) || entry.alarm.info.state == AlarmInfo::StateDisabled)
        return;
    const double sign = limit.kind == AlarmLimit::High ? 1 : -1; // beyond is above, or else below
    const double excess = sign * (number - limit.limit);
    const bool isBeyond = entry.isBeyond ? excess > -limit.hysteresis : excess > 0;
    if (isBeyond == entry.isBeyond)
        return;
    entry.isBeyond = isBeyond;
    const auto action = isBeyond ? AlarmAction::Raise : AlarmAction::Clear;
    if (isPossible(row, action))
        setState(row, nextAlarmState(entry.alarm.info, action), value);
}

QVector<Alarm> AlarmTable::snapshot() const
{
    QVector<Alarm> alarms;
    for (const Entry &entry : m_entries) {
        if (!entry.isPassing)
            alarms.append(entry.alarm);
    }
    return alarms;
}

void AlarmTable::restore(const QVector<Alarm> &snapshot)
{
    for (int row = m_entries.size() - 1; row >= 0; --row) {
        if (isPassing(row))
            remove(row);
    }
    for (const Alarm &alarm : snapshot) {
        const int row = find(alarm.info.name);
        if (row >= 0 && this->alarm(row).info.state != alarm.info.state)
            setState(row, alarm.info.state, alarm.info.tagValue);
    }
}

void AlarmTable::addPassing(const QVector<Alarm> &alarms)
{
    for (const Alarm &alarm : alarms)
        insert(m_entries.size(), alarm, true);
}

bool AlarmTable::isPassing(int row) const
{
    return m_entries.at(row).isPassing;
}

void AlarmTable::rowHasChanged(int row)
{
    Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1));
}

void AlarmTable::rebuildIndex()
{
    m_rows.clear();
    m_limited.clear();
    for (int row = 0; row < m_entries.size(); ++row)
        indexRow(row);
}

void AlarmTable::indexRow(int row)
{
    const Alarm &alarm = m_entries.at(row).alarm;
    m_rows.insert(alarm.info.name, row);
    if (alarm.limit.kind != AlarmLimit::None)
        m_limited.insert(alarm.info.tagName, row);
}

// The item model

int AlarmTable::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_entries.size();
}

int AlarmTable::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

static QString causeText(const Alarm &alarm)
{
    static const QString signs[] = {QString(), QStringLiteral(" > "), QStringLiteral(" < ")};
    if (alarm.limit.kind == AlarmLimit::None)
        return AlarmTable::tr("by hand");
    return alarm.info.tagName + signs[alarm.limit.kind] + tagValueText(alarm.limit.limit);
}

QVariant AlarmTable::display(const Alarm &alarm, int column) const
{
    const AlarmInfoData &info = alarm.info;
    switch (column) {
    case NameColumn:
        return info.name;
    case StateColumn:
        return alarmStateNames().value(info.state);
    case SeverityColumn:
        return alarmSeverityNames().value(info.severity);
    case CauseColumn:
        return causeText(alarm);
    default:
        return info.timestamp.toString(QStringLiteral("HH:mm:ss"));
    }
}

QVariant AlarmTable::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Alarm &alarm = this->alarm(index.row());
    const AlarmInfoData &info = alarm.info;
    const QColor back = info.backgroundColors.value(info.state);
    const QColor fore = info.foregroundColors.value(info.state);
    const bool isColored = index.column() == StateColumn && back.isValid() && fore.isValid();
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return display(alarm, index.column());
    case Qt::ToolTipRole:
        return info.description.isEmpty() ? QVariant() : info.description;
    case Qt::BackgroundRole:
        return isColored ? QVariant(back) : QVariant();
    case Qt::ForegroundRole:
        return isColored ? QVariant(fore) : QVariant();
    case ChoicesRole:
        return index.column() == SeverityColumn ? QVariant(alarmSeverityNames()) : QVariant();
    default:
        return {};
    }
}

bool AlarmTable::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !(flags(index) & Qt::ItemIsEditable))
        return false;
    Alarm alarm = this->alarm(index.row());
    const int severity = alarmSeverityNames().indexOf(value.toString());
    if (index.column() == NameColumn)
        alarm.info.name = value.toString().trimmed();
    else if (severity >= 0)
        alarm.info.severity = AlarmInfo::Severity(severity);
    const QString problem = edit(index.row(), alarm);
    if (!problem.isEmpty())
        Q_EMIT refused(problem);
    return problem.isEmpty();
}

Qt::ItemFlags AlarmTable::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    const bool isEditable = index.column() == NameColumn || index.column() == SeverityColumn;
    return index.isValid() && isEditable ? flags | Qt::ItemIsEditable : flags;
}

QVariant AlarmTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    const QString titles[] = {tr("Name"), tr("State"), tr("Severity"), tr("Cause"), tr("Since")};
    const bool isTitle = orientation == Qt::Horizontal && role == Qt::DisplayRole;
    return isTitle && section >= 0 && section < ColumnCount
               ? titles[section]
               : QAbstractTableModel::headerData(section, orientation, role);
}

} // namespace NARV::DEV
