#pragma once

#include <NARV/AlarmInfo>

#include <QAbstractTableModel>
#include <QMultiHash>
#include <QVector>

#include <zpplugin_dev_export.h>

namespace NARV::DEV {

class SimulationClock;
class TagTable;

//! When a tag raises its alarm and when the alarm is over.
struct AlarmLimit
{
    enum Kind
    {
        None, //!< only by hand
        High, //!< raised above the limit, over at limit - hysteresis or below
        Low   //!< raised below the limit, over at limit + hysteresis or above
    };

    Kind kind = None;
    double limit = 0;
    double hysteresis = 0; //!< not negative

    bool operator==(const AlarmLimit &other) const;
};

//! An alarm as the bench knows it. The tag of the limit is info.tagName.
struct Alarm
{
    AlarmInfoData info;
    AlarmLimit limit;
};

//! What can happen to an alarm.
enum class AlarmAction
{
    Raise,
    Clear, //!< the cause is gone
    Acknowledge,
    Reset,
    Disable,
    Enable
};

//! The state in which an alarm is after an action; the same one if the action has no place there,
//! such as acknowledging where acknowledgeEnabled is not set.
ZPPLUGIN_DEV_EXPORT AlarmInfo::State nextAlarmState(const AlarmInfoData &alarm, AlarmAction action);

//! The names of states and severities in files and for a person, in the order of the enumerators.
ZPPLUGIN_DEV_EXPORT const QStringList &alarmStateNames();
ZPPLUGIN_DEV_EXPORT const QStringList &alarmSeverityNames();

//! "none", "high" and "low", in the order of AlarmLimit::Kind.
ZPPLUGIN_DEV_EXPORT const QStringList &alarmLimitNames();

//! An alarm with colours for each state, to be acknowledged.
ZPPLUGIN_DEV_EXPORT Alarm defaultAlarm(const QString &name);

//! The alarms of the simulated machine, a row each.
class ZPPLUGIN_DEV_EXPORT AlarmTable : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        NameColumn,
        StateColumn,
        SeverityColumn,
        CauseColumn, //!< such as `level > 80`
        TimeColumn,
        ColumnCount
    };

    //! Tags and clock have to outlive the table.
    AlarmTable(const TagTable &tags, const SimulationClock &clock, QObject *parent = nullptr);
    ~AlarmTable() override;

    int find(const QString &name) const;
    bool contains(const QString &name) const { return find(name) >= 0; }
    const Alarm &alarm(int row) const;
    //! Every alarm but those disabled and those that never happened or are over and done with.
    QVector<AlarmInfo> active() const;

    //! The new row. A name that is taken gets a number.
    int add(const Alarm &alarm);
    void insert(int row, const Alarm &alarm);
    int duplicate(int row);
    //! An alarm that was active is told once more, as disabled.
    void remove(int row);
    //! Everything but state, time and tag value, which go on. Returns why nothing was changed,
    //! empty if all went well.
    QString edit(int row, const Alarm &alarm);
    void assign(int row, const Alarm &alarm) { edit(row, alarm); }
    void replaceAll(const QVector<Alarm> &alarms);
    void renameTag(const QString &from, const QString &to);

    //! False if the action has no place in the alarm's state.
    bool apply(int row, AlarmAction action);
    bool isPossible(int row, AlarmAction action) const;
    void applyToAll(AlarmAction action);
    //! What a widget asks for; an unknown name is logged.
    void acknowledge(const QString &name);
    void reset(const QString &name);
    void acknowledgeAll() { applyToAll(AlarmAction::Acknowledge); }
    void resetAll() { applyToAll(AlarmAction::Reset); }

    //! Raises and clears the alarms that have a limit for that tag, each time it passes one. No
    //! value, a text and NaN pass none.
    void check(const QString &tagName, const QVariant &value);

    //! What is there now, to be put back after a scenario: alarms added since go, and each state
    //! that is another one is told.
    QVector<Alarm> snapshot() const;
    void restore(const QVector<Alarm> &snapshot);
    //! Alarms that no file keeps and whose changes are no work of the user's: those of a scenario.
    void addPassing(const QVector<Alarm> &alarms);
    bool isPassing(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

Q_SIGNALS:
    void alarmChanged(const NARV::AlarmInfo &alarm);
    void modified();
    void refused(const QString &reason);

private:
    struct Entry
    {
        Alarm alarm;
        bool isBeyond = false; // the tag was beyond the limit when last seen
        bool isPassing = false;
    };

    QVariant display(const Alarm &alarm, int column) const;
    void setState(int row, AlarmInfo::State state, const QVariant &tagValue);
    void insert(int row, const Alarm &alarm, bool isPassing);
    void checkRow(int row, const QVariant &value);
    void rowHasChanged(int row);
    void rebuildIndex();
    void indexRow(int row);
    void applyByName(const QString &name, AlarmAction action);

    const TagTable &m_tags;
    const SimulationClock &m_clock;
    QVector<Entry> m_entries;
    QHash<QString, int> m_rows;
    QMultiHash<QString, int> m_limited; // rows by tag
};

} // namespace NARV::DEV
