#include "data/alarmtable.h"
#include "data/scenario.h"
#include "data/scenarioplayer.h"
#include "data/simulationclock.h"
#include "data/tagtable.h"
#include "data/testdata.h"

#include "guardedtest.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <cmath>
#include <limits>

using namespace NARV;
using namespace NARV::DEV;

class tst_TestData : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void writes();
    void tagsKeepDistinctNames();
    void fiveHundredTagsMoveInOneGo();
    void listenersMayChangeTheTags();
    void theClockRepeatsItself();
    void theRunningClockMovesTags();
    void scenariosReachTheTags_data();
    void scenariosReachTheTags();
    void scenariosAreUndone();
    void alarmScenarios();
};

void tst_TestData::writes()
{
    TestData data;
    TagTable &tags = data.tags();
    const QAbstractItemModelTester tester(&tags);
    tags.add({u("a"), TagType::Byte, {}, {}, {}});
    QSignalSpy changed(&data, &TestData::tagChanged);
    QSignalSpy modified(&data, &TestData::modified);
    QVERIFY(!data.tagValue(u("a")).isValid());
    QVERIFY(data.writeTag(u("a"), 100));
    QVERIFY(data.writeTag(u("a"), 100)); // is no change
    QCOMPARE(changed, (QList<QVariantList>{{u("a"), 100}}));
    QCOMPARE(modified.size(), 1);
    QVERIFY(!data.writeTag(u("a"), 128));
    QVERIFY(!data.writeTag(u("b"), 1));
    const auto log = takeLog();
    QCOMPARE(log.size(), 2);
    QVERIFY(log[0].message.contains(u("128")));
    QVERIFY(log[1].message.contains(u("no such tag")));
    QCOMPARE(data.tagValue(u("a")), QVariant(100));

    QSignalSpy refused(&tags, &TagTable::refused);
    QVERIFY(!tags.setData(tags.index(0, TagTable::ValueColumn), u("high")));
    QCOMPARE(refused.size(), 1);
    QVERIFY(tags.setData(tags.index(0, TagTable::TypeColumn), u("string")));
    QCOMPARE(data.tagValue(u("a")), QVariant(u("100")));
    QVERIFY(tags.setData(tags.index(0, TagTable::GeneratorColumn), u("Text list")));
    QVERIFY(!tags.problem(0).isEmpty());
    QCOMPARE(tags.quality(0), Quality::Bad);
    QCOMPARE(tags.write(0, QVariant()), QString());
    QVERIFY(!data.tagValue(u("a")).isValid());
}

void tst_TestData::tagsKeepDistinctNames()
{
    TestData data;
    TagTable &tags = data.tags();
    QSignalSpy tagsChanged(&data, &TestData::tagsChanged);
    tags.add({u("pump 1"), TagType::Bool, true, {}, {}});
    tags.duplicate(tags.duplicate(0));
    QCOMPARE(tags.names(), (QStringList{u("pump 1"), u("pump 2"), u("pump 3")}));
    for (const char *name : {"pump 1", "", "  ", " x"})
        QVERIFY(!tags.rename(1, u(name)).isEmpty());
    QVERIFY(!tags.rename(1, QString(300, QLatin1Char('x'))).isEmpty());
    QCOMPARE(tags.rename(1, u("fan")), QString());
    tags.remove(0);
    QCOMPARE(tags.find(u("fan")), 0);
    QCOMPARE(tags.find(u("pump 1")), -1);
    QCOMPARE(tagsChanged.size(), 5);
}

void tst_TestData::fiveHundredTagsMoveInOneGo()
{
    TestData data;
    QVector<Tag> tags;
    for (int i = 0; i < 500; ++i) {
        Tag tag{QStringLiteral("t%1").arg(i), TagType::Double, {}, {}, {}};
        tag.generator.kind = i % 5 == 0 ? GeneratorKind::None : GeneratorKind::Ramp;
        tags.append(tag);
    }
    data.tags().replaceAll(tags);
    QSignalSpy changed(&data, &TestData::tagChanged);
    QSignalSpy shown(&data.tags(), &TagTable::dataChanged);
    QSignalSpy modified(&data, &TestData::modified);
    data.clock().step();
    QCOMPARE(changed.size(), 400);
    QCOMPARE(shown.size(), 1);
    QCOMPARE(modified.size(), 0); // generated values are in no file
}

void tst_TestData::listenersMayChangeTheTags()
{
    TestData data;
    data.loadDefaults();
    connect(&data, &TestData::tagChanged, &data, [&data] {
        if (data.tags().rowCount() > 0)
            data.tags().remove(0);
    });
    data.clock().advance(1000);
    QCOMPARE(data.tags().rowCount(), 0);
}

void tst_TestData::theClockRepeatsItself()
{
    const auto run = [] {
        TestData data;
        data.clock().setStartTime(QDateTime::fromMSecsSinceEpoch(1714557600000));
        data.loadDefaults();
        QString course;
        QObject::connect(&data, &TestData::tagChanged, &data, [&](const QString &name, auto value) {
            course += name + tagValueText(value) + data.clock().now().toString(Qt::ISODateWithMs);
        });
        QObject::connect(&data, &TestData::alarmChanged, &data,
                         [&](const AlarmInfo &alarm) { course += alarm.name(); });
        data.clock().advance(20025);
        return course;
    };
    const QString course = run();
    QCOMPARE(run(), course);
    QVERIFY(course.contains(u("level high")));
    QVERIFY(course.contains(u("20.025")) || course.contains(u("20.000")));
}

void tst_TestData::theRunningClockMovesTags()
{
    TestData data;
    data.loadDefaults();
    QSignalSpy jumped(&data.clock(), &SimulationClock::jumped);
    QTest::qWait(20);
    data.clock().setRunning(true);
    QCOMPARE(jumped.size(), 1); // caught up with real time
    QVERIFY(qAbs(data.clock().now().msecsTo(QDateTime::currentDateTime())) < 10000);
    data.clock().setSpeed(1e9);
    QCOMPARE(data.clock().speed(), SimulationClock::fastest);
    QTRY_VERIFY(data.clock().elapsed() >= 4000);
    data.clock().setRunning(false);
    const qint64 elapsed = data.clock().elapsed();
    QTest::qWait(120);
    QCOMPARE(data.clock().elapsed(), elapsed);
}

static const struct
{
    const char *name;
    const char *id;
    const char *touched; //!< of the tags number, numbers, text and flag
    bool (*isSo)(const QVariant &value, Quality quality);
} scenarioRows[] = {
    {"no value", "noValue", "number numbers text flag",
     [](const QVariant &value, Quality quality) {
         return !value.isValid() && quality == Quality::Bad;
     }},
    {"wrong type", "wrongType", "number numbers text flag",
     [](const QVariant &value, Quality) {
         return value.toString() == u("no number") || value.toList().size() == 3;
     }},
    {"not a number", "nan", "number numbers",
     [](const QVariant &value, Quality) {
         return std::isnan(value.toDouble()) || std::isnan(value.toList().value(2).toDouble());
     }},
    {"infinity", "infinity", "number numbers",
     [](const QVariant &value, Quality) {
         return std::isinf(value.toDouble()) || std::isinf(value.toList().value(2).toDouble());
     }},
    {"out of range", "outOfRange", "number numbers",
     [](const QVariant &value, Quality) {
         return value == 255 || value.toList().value(0) == std::numeric_limits<double>::max();
     }},
    {"empty text", "emptyText", "text",
     [](const QVariant &value, Quality) { return value == u(""); }},
    {"long text", "longText", "text",
     [](const QVariant &value, Quality) { return value.toString().size() == 11200; }},
    {"uncertain quality", "uncertainQuality", "number numbers text flag",
     [](const QVariant &value, Quality quality) {
         return value.isValid() && quality == Quality::Uncertain;
     }},
    {"bad quality", "badQuality", "number numbers text flag",
     [](const QVariant &value, Quality quality) {
         return value.isValid() && quality == Quality::Bad;
     }},
};

static const Scenario &scenario(const char *id)
{
    for (const Scenario &each : scenarios()) {
        if (qstrcmp(each.id, id) == 0)
            return each;
    }
    qFatal("There is no scenario %s", id);
}

static void addFourTags(TestData &data)
{
    data.tags().add({u("number"), TagType::Byte, 5, {}, {}});
    data.tags().add({u("numbers"), TagType::ArrayDouble, QVariantList{1.0}, {}, {}});
    data.tags().add({u("text"), TagType::String, u("x"), {}, {}});
    data.tags().add({u("flag"), TagType::Bool, true, {}, {}});
}

void tst_TestData::scenariosReachTheTags_data()
{
    addRows(scenarioRows);
}

void tst_TestData::scenariosReachTheTags()
{
    const auto &row = currentRow(scenarioRows);
    const QStringList touched = u(row.touched).split(QLatin1Char(' '));
    TestData data;
    addFourTags(data);
    QStringList told;
    connect(&data, &TestData::tagChanged, &data,
            [&told](const QString &name) { told.append(name); });
    QSignalSpy modified(&data, &TestData::modified);
    QCOMPARE(scenario(row.id).run(data), touched.size());
    QCOMPARE(told, touched);
    for (const QString &name : touched)
        QVERIFY(row.isSo(data.tagValue(name), data.tags().quality(data.tags().find(name))));
    data.scenarios().restore();
    QCOMPARE(told, touched + touched);
    QCOMPARE(data.tagValue(u("number")), QVariant(5));
    QCOMPARE(data.tagValue(u("text")), QVariant(u("x")));
    QCOMPARE(modified.size(), 0);
}

void tst_TestData::scenariosAreUndone()
{
    TestData data;
    addFourTags(data);
    GeneratorSettings ramp;
    ramp.kind = GeneratorKind::Ramp;
    data.tags().setGenerator(0, ramp);
    QSignalSpy active(&data.scenarios(), &ScenarioPlayer::activeChanged);
    QCOMPARE(scenario("noValue").run(data, {u("number"), u("flag")}), 2);
    QCOMPARE(scenario("longText").run(data, {u("flag")}), 0);
    QVERIFY(data.tagValue(u("text")).isValid());
    data.clock().advance(5000);
    QVERIFY(!data.tagValue(u("number")).isValid()); // the generator goes on beneath
    QVERIFY(data.writeTag(u("flag"), true));        // a write puts the tag right
    QCOMPARE(data.tagValue(u("flag")), QVariant(true));
    data.scenarios().restore();
    QCOMPARE(data.tagValue(u("number")), QVariant(50));
    QCOMPARE(active.size(), 2);
    QVERIFY(data.scenarios().active().isEmpty());

    QSignalSpy changed(&data, &TestData::tagChanged);
    scenario("burst").run(data);
    QCOMPARE(changed.size(), 1004); // and each back to its own
    QCOMPARE(data.tagValue(u("number")), QVariant(50));
}

void tst_TestData::alarmScenarios()
{
    TestData data;
    data.loadDefaults();
    AlarmTable &alarms = data.alarms();
    const QAbstractItemModelTester tester(&alarms);
    const int door = alarms.find(u("door open"));
    QVERIFY(alarms.apply(door, AlarmAction::Raise));
    int told = 0;
    connect(&data, &TestData::alarmChanged, &data, [&told] { ++told; });
    const QJsonObject before = data.toJson();
    scenario("fiftyAlarms").run(data);
    QCOMPARE(told, 50);
    QCOMPARE(data.activeAlarms().size(), 51);
    QCOMPARE(data.toJson(), before);
    scenario("clearAlarms").run(data);
    scenario("clearAlarms").run(data);
    QCOMPARE(data.scenarios().active(),
             QStringList({scenario("fiftyAlarms").title(), scenario("clearAlarms").title()}));
    QVERIFY(data.activeAlarms().isEmpty());
    scenario("disableAlarms").run(data);
    QCOMPARE(alarms.alarm(door).info.state, AlarmInfo::StateDisabled);
    data.scenarios().restore();
    QCOMPARE(data.activeAlarms().size(), 1);
    QCOMPARE(alarms.rowCount(), 2);
    QCOMPARE(data.toJson(), before);
}

QTEST_GUILESS_MAIN(tst_TestData)
#include "tst_testdata.moc"
