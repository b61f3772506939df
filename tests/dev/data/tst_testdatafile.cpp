#include "data/alarmtable.h"
#include "data/tagtable.h"
#include "data/testdata.h"
#include "data/trendstore.h"

#include "guardedtest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>

#include <limits>

using namespace NARV;
using namespace NARV::DEV;

class tst_TestDataFile : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void whatWasWrittenIsRead();
    void faults_data();
    void faults();
};

static Tag tagOf(const char *name, TagType type, const QVariant &value)
{
    Tag tag;
    tag.name = u(name);
    tag.type = type;
    tag.value = value;
    return tag;
}

static void fill(TestData &data)
{
    data.loadDefaults();
    TagTable &tags = data.tags();
    tags.add(tagOf("large", TagType::UInt64, std::numeric_limits<quint64>::max()));
    tags.add(tagOf("nan", TagType::Double, std::numeric_limits<double>::infinity()));
    tags.add(tagOf("floats", TagType::ArrayFloat, QVariantList{0.1f, -2.0f}));
    tags.setQuality(tags.add(tagOf("none", TagType::Byte, {})), Quality::Uncertain);
    for (const GeneratorInfo &info : generators()) {
        Tag tag = tagOf("moving", TagType::ArrayShort, {});
        tag.generator = {info.kind,        77,         -1, 1,           0.5, 9, u("3"),
                         {u("4"), u("5")}, u("x.csv"), 3,  Quality::Bad};
        tags.add(tag);
    }
    data.trends().add({u("file"), {}, u("x.csv"), 77, 99});
    Alarm alarm = defaultAlarm(u("odd"));
    alarm.info.groups = QStringList{u("g")};
    alarm.info.acknowledgeEnabled = false;
    alarm.info.backgroundColors.remove(AlarmInfo::StateTriggered);
    alarm.info.foregroundColors[AlarmInfo::StateDisabled] = QColor(1, 2, 3, 4);
    alarm.info.state = AlarmInfo::StateTriggered;
    data.alarms().add(alarm);
}

void tst_TestDataFile::whatWasWrittenIsRead()
{
    TestData data;
    fill(data);
    const QJsonObject json = data.toJson();
    TestData other;
    QString problem;
    QVERIFY2(other.fromJson(json, problem), qPrintable(problem));
    QCOMPARE(QJsonDocument(other.toJson()).toJson(), QJsonDocument(json).toJson());
    QCOMPARE(other.tags().names(), data.tags().names());
    for (const char *name : {"large", "nan", "floats", "none", "setpoint"})
        QCOMPARE(other.tagValue(u(name)), data.tagValue(u(name)));
    const AlarmInfoData odd = other.alarms().alarm(other.alarms().find(u("odd"))).info;
    QCOMPARE(odd.foregroundColors.value(AlarmInfo::StateDisabled), QColor(1, 2, 3, 4));
    QVERIFY(!odd.backgroundColors.contains(AlarmInfo::StateTriggered));
    QCOMPARE(odd.state, AlarmInfo::StateTriggered);
    QVERIFY(other.fromJson({}, problem)); // nothing is something, too
    QVERIFY(other.toJson().value(u("tags")).toArray().isEmpty());
}

static const struct
{
    const char *name;
    const char *json;
    const char *problem; //!< its beginning
} faultRows[] = {
    {"no array", R"({"tags":1})", "tags: is not an array"},
    {"no object", R"({"tags":[{"name":"a","type":"int"},7]})", "tags[1]: is not an object"},
    {"no name", R"({"tags":[{"type":"int"}]})", "tags[0].name: is missing"},
    {"name twice", R"({"tags":[{"name":"a","type":"int"},{"name":"a","type":"int"}]})",
     "tags[1].name: “a” exists already"},
    {"unknown type", R"({"tags":[{"name":"a","type":"integer"}]})", "tags[0].type: is none of"},
    {"value out of range", R"({"tags":[{"name":"a","type":"byte","value":200}]})",
     "tags[0].value: 200 is out of the range"},
    {"value of a wrong type", R"({"tags":[{"name":"a","type":"arrayint","value":[1,"x"]}]})",
     "tags[0].value: [1]: “x” is not a whole number"},
    {"period", R"({"tags":[{"name":"a","type":"int","generator":{"kind":"sine","period":1}}]})",
     "tags[0].generator.period: is not a whole number from 10 to 86400000"},
    {"fraction", R"({"tags":[{"name":"a","type":"int","generator":{"kind":"sine","seed":1.5}}]})",
     "tags[0].generator.seed: is not a whole number"},
    {"limits",
     R"({"tags":[{"name":"a","type":"int","generator":{"kind":"sine","minimum":5,"maximum":4}}]})",
     "tags[0].generator.minimum: is greater than the maximum"},
    {"kind", R"({"tags":[{"name":"a","type":"int","generator":{}}]})",
     "tags[0].generator.kind: is missing"},
    {"texts",
     R"({"tags":[{"name":"a","type":"int","generator":{"kind":"textList","texts":["a",1]}}]})",
     "tags[0].generator.texts: is not an array of texts"},
    {"misspelt", R"({"tags":[{"name":"a","type":"int","vaule":1}]})",
     "tags[0].vaule: is not known here"},
    {"unknown part", R"({"tag":[]})", "tag: is not known here"},
    {"trend without source", R"({"trends":[{"name":"a"}]})",
     "trends[0]: a trend has either a tag or a file"},
    {"trend too long", R"({"trends":[{"name":"a","tag":"b","capacity":1e9}]})",
     "trends[0].capacity: is not a whole number from 1 to 100000"},
    {"severity", R"({"alarms":[{"name":"a","severity":5}]})", "alarms[0].severity: is none of"},
    {"flag", R"({"alarms":[{"name":"a","blink":"yes"}]})", "alarms[0].blink: is not true or false"},
    {"colour", R"({"alarms":[{"name":"a","backgroundColors":{"triggered":"reddish"}}]})",
     "alarms[0].backgroundColors.triggered: is not a colour"},
    {"hysteresis", R"({"alarms":[{"name":"a","limit":{"kind":"high","hysteresis":-1}}]})",
     "alarms[0].limit.hysteresis: is negative"},
};

void tst_TestDataFile::faults_data()
{
    addRows(faultRows);
}

void tst_TestDataFile::faults()
{
    const auto &row = currentRow(faultRows);
    TestData data;
    data.loadDefaults();
    const QJsonObject before = data.toJson();
    QSignalSpy modified(&data, &TestData::modified);
    QString problem;
    QJsonParseError error;
    const auto document = QJsonDocument::fromJson(row.json, &error);
    QCOMPARE(error.error, QJsonParseError::NoError);
    QVERIFY(!data.fromJson(document.object(), problem));
    QVERIFY2(problem.startsWith(u(row.problem)), qPrintable(problem));
    QCOMPARE(data.toJson(), before);
    QCOMPARE(modified.size(), 0);
}

QTEST_GUILESS_MAIN(tst_TestDataFile)
#include "tst_testdatafile.moc"
