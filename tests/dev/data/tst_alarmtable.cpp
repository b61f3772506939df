#include "data/alarmtable.h"
#include "data/simulationclock.h"
#include "data/tagtable.h"

#include "guardedtest.h"

#include <QSignalSpy>

#include <cmath>

using namespace NARV;
using namespace NARV::DEV;

class tst_AlarmTable : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void lives_data();
    void lives();
    void limits_data();
    void limits();
    void flagsThatForbidTheStateMoveIt();
    void changesAreToldAsTheyHappen();
    void editsAreChecked();
    void unknownNamesAreLogged();
};

//! What happens to an alarm, a letter an action: Raise, Clear, Acknowledge, reseT, Disable, Enable;
//! and the number of its state after each.
static const struct
{
    const char *name;
    bool acknowledge;
    bool reset;
    const char *actions;
    const char *states;
} lifeRows[] = {
    {"plain", false, false, "RRATCCR", "2222112"},
    {"acknowledged while raised", true, false, "RTAATCAT", "33444111"},
    {"acknowledged when over", true, false, "RCCTRCA", "3555351"},
    {"reset", false, true, "RTCAT", "22661"},
    {"acknowledged and reset", true, true, "RACATRCTAT", "3466135561"},
    {"raised again before the reset", true, true, "RCAR", "3563"},
    {"raised again, not to be acknowledged", false, true, "RCRC", "2626"},
    {"nothing to do", true, true, "CATE", "1111"},
    {"disabled", true, true, "DRCATDE", "0000001"},
    {"disabled while raised", true, true, "RDERCDERACDE", "301350134601"},
};

void tst_AlarmTable::lives_data()
{
    addRows(lifeRows);
}

void tst_AlarmTable::lives()
{
    const auto &row = currentRow(lifeRows);
    static const QString letters = QStringLiteral("RCATDE");
    AlarmInfoData alarm;
    alarm.acknowledgeEnabled = row.acknowledge;
    alarm.resetEnabled = row.reset;
    QString states;
    for (const char action : QByteArray(row.actions)) {
        const int index = letters.indexOf(QLatin1Char(action));
        alarm.state = nextAlarmState(alarm, AlarmAction(index));
        states += QString::number(alarm.state);
    }
    QCOMPARE(states, u(row.states));
}

static constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

static const struct
{
    const char *name;
    AlarmLimit limit;
    QVector<QVariant> values;
    const char *states;
} limitRows[] = {
    {"high", {AlarmLimit::High, 80, 0}, {80, 80.1, 90, 80, 79}, "12211"},
    {"high with hysteresis", {AlarmLimit::High, 80, 10}, {81, 79, 70.1, 70, 75, 81}, "222112"},
    {"low", {AlarmLimit::Low, 20, 0}, {20, 19.9, 20}, "121"},
    {"low with hysteresis", {AlarmLimit::Low, 20, 5}, {19, 24, 25, 21}, "2211"},
    {"what is no number passes nothing",
     {AlarmLimit::High, 80, 0},
     {notANumber, QVariant(), QStringLiteral("99"), 99, notANumber, QVariant(),
      QStringLiteral("1")},
     "1112222"},
    {"infinity", {AlarmLimit::High, 80, 0}, {HUGE_VAL, -HUGE_VAL}, "21"},
    {"bool", {AlarmLimit::High, 0.5, 0}, {true, false}, "21"},
    {"none", {AlarmLimit::None, 80, 0}, {99, 1}, "11"},
};

void tst_AlarmTable::limits_data()
{
    addRows(limitRows);
}

void tst_AlarmTable::limits()
{
    const auto &row = currentRow(limitRows);
    TagTable tags;
    SimulationClock clock;
    AlarmTable alarms(tags, clock);
    Alarm alarm;
    alarm.info.name = u("a");
    alarm.info.tagName = u("level");
    alarm.limit = row.limit;
    alarms.add(alarm);
    QString states;
    for (const QVariant &value : row.values) {
        alarms.check(u("other"), 1000);
        alarms.check(u("level"), value);
        states += QString::number(alarms.alarm(0).info.state);
    }
    QCOMPARE(states, u(row.states));
}

void tst_AlarmTable::flagsThatForbidTheStateMoveIt()
{
    TagTable tags;
    SimulationClock clock;
    AlarmTable alarms(tags, clock);
    Alarm alarm = defaultAlarm(u("a"));
    alarm.info.resetEnabled = true;
    alarms.add(alarm);
    QVERIFY(alarms.apply(0, AlarmAction::Raise));
    QVERIFY(alarms.apply(0, AlarmAction::Clear));
    alarm.info.acknowledgeEnabled = false;
    QCOMPARE(alarms.edit(0, alarm), QString());
    QCOMPARE(alarms.alarm(0).info.state, AlarmInfo::StateNotTriggeredAcknowledged);
    alarm.info.resetEnabled = false;
    QCOMPARE(alarms.edit(0, alarm), QString());
    QCOMPARE(alarms.alarm(0).info.state, AlarmInfo::StateNotTriggered);
    alarms.apply(0, AlarmAction::Raise);
    alarm.info.acknowledgeEnabled = true;
    QCOMPARE(alarms.edit(0, alarm), QString());
    QCOMPARE(alarms.alarm(0).info.state, AlarmInfo::StateTriggeredNotAcknowledged);
}

void tst_AlarmTable::changesAreToldAsTheyHappen()
{
    TagTable tags;
    tags.write(tags.add({u("level"), TagType::Int, 5, {}, {}}), 7);
    SimulationClock clock;
    clock.setStartTime(QDateTime::fromMSecsSinceEpoch(1000000));
    AlarmTable alarms(tags, clock);
    Alarm alarm = defaultAlarm(u("a"));
    alarm.info.tagName = u("level");
    alarms.add(alarm);
    QVector<AlarmInfo> told;
    connect(&alarms, &AlarmTable::alarmChanged, &alarms,
            [&told](const AlarmInfo &info) { told.append(info); });
    clock.advance(250);
    alarms.apply(alarms.duplicate(0), AlarmAction::Raise);
    QCOMPARE(told.size(), 1);
    QCOMPARE(told[0].name(), u("a2"));
    QCOMPARE(told[0].tagValue(), QVariant(7));
    QCOMPARE(told[0].timestamp().toMSecsSinceEpoch(), 1000250);
    QVERIFY(told[0].currentBackgroundColor().isValid());
    QCOMPARE(alarms.active(), told);

    QVERIFY(!alarms.apply(1, AlarmAction::Raise));
    alarms.acknowledgeAll();
    alarms.resetAll(); // is not enabled
    QCOMPARE(told.size(), 2);
    QCOMPARE(told[1].state(), AlarmInfo::StateTriggeredAcknowledged);
    alarms.remove(1);
    QCOMPARE(told.size(), 3);
    QCOMPARE(told[2].state(), AlarmInfo::StateDisabled);
    alarms.remove(0); // was not active
    QCOMPARE(told.size(), 3);
    QVERIFY(alarms.active().isEmpty());
}

void tst_AlarmTable::editsAreChecked()
{
    TagTable tags;
    tags.add({u("level"), TagType::Int, 95, {}, {}});
    SimulationClock clock;
    AlarmTable alarms(tags, clock);
    alarms.add(defaultAlarm(u("a")));
    Alarm second = defaultAlarm(u("b"));
    alarms.add(second);
    QSignalSpy refused(&alarms, &AlarmTable::refused);
    QVERIFY(!alarms.setData(alarms.index(1, AlarmTable::NameColumn), u("a")));
    QVERIFY(!alarms.setData(alarms.index(1, AlarmTable::NameColumn), u(" ")));
    QCOMPARE(refused.size(), 2);
    QVERIFY(!alarms.setData(alarms.index(1, AlarmTable::StateColumn), u("triggered")));
    QVERIFY(alarms.setData(alarms.index(1, AlarmTable::SeverityColumn), u("critical")));
    QCOMPARE(alarms.alarm(1).info.severity, AlarmInfo::SeverityCritical);

    second.info.tagName = u("level"); // a limit that is passed already raises at once
    second.limit = {AlarmLimit::High, 90, 0};
    QCOMPARE(alarms.edit(1, second), QString());
    QCOMPARE(alarms.alarm(1).info.state, AlarmInfo::StateTriggeredNotAcknowledged);
}

void tst_AlarmTable::unknownNamesAreLogged()
{
    TagTable tags;
    SimulationClock clock;
    AlarmTable alarms(tags, clock);
    alarms.acknowledge(u("ghost"));
    alarms.reset(u("ghost"));
    const auto log = takeLog();
    QCOMPARE(log.size(), 2);
    QVERIFY(log[0].message.contains(u("ghost")));
}

QTEST_GUILESS_MAIN(tst_AlarmTable)
#include "tst_alarmtable.moc"
