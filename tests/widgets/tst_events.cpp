#include "guardedtest.h"

#include <NARV/DataRole>
#include <NARV/Event>

#include <QDebug>

using namespace NARV;
using Colors = QMap<AlarmInfo::State, QColor>;

static const struct
{
    const char *name;
    const char *key;
    QVariant value;
    int state;
    int severity;
} mapRows[] = {
    {"nothing known", "State", 4, 1, 0},
    {"enumerator", "state", QVariant::fromValue(AlarmInfo::StateTriggered), 2, 0},
    {"number", "state", 4, 4, 0},
    {"unknown number", "state", 99, 99, 0},
    {"no state", "state", u("burning"), 0, 0},
    {"invalid", "state", {}, 0, 0},
    {"severity", "severity", 6, 1, 6},
    {"no severity", "severity", u("burning"), 1, 0},
};

//! Events, roles and the alarms that they tell of.
class tst_Events : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void types();
    void alarmStates();
    void alarmFromMap_data() { addRows(mapRows); }
    void alarmFromMap();
    void alarmFromUnusableMap();
    void alarmEquality();
    void alarmColours();
    void debugOutput();
};

void tst_Events::types()
{
    QCOMPARE(int(InitEvent(InitEventData()).type()), 0);
    QCOMPARE(int(DeinitEvent(DeinitEventData()).type()), 1);
    QCOMPARE(int(ResizeEvent(ResizeEventData()).type()), 2);
    QCOMPARE(int(FieldIsChangedEvent(FieldIsChangedEventData()).type()), 3);
    QCOMPARE(int(AlarmStatusIsChangedEvent(AlarmStatusIsChangedEventData()).type()), 4);
    QCOMPARE(int(IconDataRole().type()), 1);
}

void tst_Events::alarmStates()
{
    QStringList found;
    for (int state = 0; state <= 6; ++state) {
        AlarmInfoData data;
        data.state = AlarmInfo::State(state);
        const AlarmInfo alarm(data);
        found += QStringLiteral("%1%2%3")
                     .arg(int(alarm.triggered()))
                     .arg(int(alarm.acknowledged()))
                     .arg(int(alarm.enabled()));
    }
    QCOMPARE(found.join(QLatin1Char(' ')), u("000 001 101 101 111 001 011"));
}

void tst_Events::alarmFromMap()
{
    const auto &row = currentRow(mapRows);
    const AlarmInfo alarm = AlarmInfo::createAlarmInfo({{u(row.key), row.value}});
    QVERIFY(alarm.isValid());
    QCOMPARE(int(alarm.state()), row.state);
    QCOMPARE(int(alarm.severity()), row.severity);
}

//! Every key there is, none with its default value.
static QVariantMap fullMap()
{
    const auto colors = [](const Colors &of) { return QVariant::fromValue(of); };
    return {{u("name"), u("n")},
            {u("description"), u("d")},
            {u("state"), AlarmInfo::StateTriggeredNotAcknowledged},
            {u("timestamp"), QDateTime({2024, 5, 1}, {10, 20, 30}, Qt::OffsetFromUTC, 7200)},
            {u("groups"), QStringList{u("g")}},
            {u("customFields"), QStringList{u("c")}},
            {u("backgroundColor"), colors({{AlarmInfo::StateTriggered, Qt::red}})},
            {u("foregroundColor"), colors({{AlarmInfo::StateTriggeredNotAcknowledged, Qt::blue}})},
            {u("acknowledgeEnabled"), true},
            {u("blinkEnabled"), u("true")},
            {u("resetEnabled"), 1},
            {u("tagName"), u("t")},
            {u("tagValue"), 5},
            {u("severity"), AlarmInfo::SeverityHigh}};
}

void tst_Events::alarmFromUnusableMap()
{
    QVariantMap unusable = fullMap();
    for (QVariant &value : unusable)
        value = QVariant::fromValue<QObject *>(nullptr);
    AlarmInfoData expected;
    expected.state = AlarmInfo::StateDisabled;
    expected.tagValue = unusable[u("tagValue")];
    QVERIFY(AlarmInfo::createAlarmInfo(unusable) == AlarmInfo(expected));
}

void tst_Events::alarmEquality()
{
    const AlarmInfo original = AlarmInfo::createAlarmInfo(fullMap());
    AlarmInfo copy;
    QVERIFY(!copy.isValid() && copy == AlarmInfo() && copy != AlarmInfo(AlarmInfoData()));
    copy = original;
    QVERIFY(copy == original && copy.isValid());
    const QStringList keys = fullMap().keys();
    for (const QString &key : keys) {
        QVariantMap others = fullMap();
        others.remove(key);
        QVERIFY2(AlarmInfo::createAlarmInfo(others) != original, qPrintable(key));
    }
}

void tst_Events::alarmColours()
{
    const AlarmInfo alarm = AlarmInfo::createAlarmInfo(fullMap());
    QCOMPARE(alarm.backgroundColor(AlarmInfo::StateTriggered), QColor(Qt::red));
    QVERIFY(!alarm.currentBackgroundColor().isValid());
    QCOMPARE(alarm.currentForegroundColor(), QColor(Qt::blue));
    QVERIFY(!alarm.foregroundColor(AlarmInfo::StateTriggered).isValid());
}

template<class T>
static QString printed(const T &value)
{
    QString text;
    QDebug(&text).noquote() << value << 1;
    return text.trimmed();
}

void tst_Events::debugOutput()
{
    QVariantMap map = fullMap();
    const AlarmInfo alarm = AlarmInfo::createAlarmInfo(map);
    const QString expected =
        u("NARV::AlarmInfo(isValid=true,name=n,description=d,"
          "severity=NARV::AlarmInfo::SeverityHigh,groups=(g),groups=(c),"
          "state=NARV::AlarmInfo::StateTriggeredNotAcknowledged,triggered=true,acknowledged=false,"
          "enabled=true,timestamp=2024-05-01T10:20:30.000+02:00 +7200,"
          "currentBackgroundColor=QColor(Invalid),"
          "currentForegroundColor=QColor(ARGB 1, 0, 0, 1),"
          "backgroundColor=QMap((NARV::AlarmInfo::StateTriggered, QColor(ARGB 1, 1, 0, 0))),"
          "foregroundColor=QMap((NARV::AlarmInfo::StateTriggeredNotAcknowledged, "
          "QColor(ARGB 1, 0, 0, 1))),acknowledgeEnabled=true,blinkEnabled=true,"
          "resetEnabled=true,tagName=t,tagValue=QVariant(int, 5)) 1");
    QCOMPARE(printed(alarm), expected);
    QCOMPARE(printed(&alarm), expected);
    map[u("timestamp")] = QDateTime({2024, 5, 1}, {10, 20, 30}, Qt::OffsetFromUTC, -3600);
    QVERIFY(printed(AlarmInfo::createAlarmInfo(map)).contains(u(".000-01:00 -3600,")));

    const InitEvent init{InitEventData()};
    const DeinitEvent deinit{DeinitEventData()};
    const ResizeEvent resize({QSizeF(100, 50), QSizeF(80, 40)});
    const FieldIsChangedEvent change({u("a"), 2, QVariant()});
    const AlarmStatusIsChangedEvent alarmChange({alarm});
    const IconDataRole role;
    QCOMPARE(printed(&init), u("NARV::InitEvent() 1"));
    QCOMPARE(printed(&deinit), u("NARV::DeinitEvent() 1"));
    QCOMPARE(printed(&resize), u("NARV::ResizeEvent(size=100, 50,oldSize=80, 40) 1"));
    QCOMPARE(printed(&change), u("NARV::FieldIsChangedEvent(fieldId=a,value=QVariant(int, 2),"
                                 "oldValue=QVariant(Invalid)) 1"));
    QVERIFY(printed(&alarmChange).startsWith(u("NARV::AlarmStatusIsChangedEvent(alarmInfo=NARV")));
    QCOMPARE(printed(&role), u("NARV::IconDataRole() 1"));
}

QTEST_GUILESS_MAIN(tst_Events)
#include "tst_events.moc"
