#include "guardedtest.h"

#include <NARV/AlarmInfo>

#include <QDebug>
#include <QTest>

using NARV::AlarmInfo;
using NARV::AlarmInfoData;
using Colors = QMap<AlarmInfo::State, QColor>;

class tst_AlarmInfo : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void derivedStates();
    void fromMap_data();
    void fromMap();
    void fromFullMap();
    void equality();
    void colours();
    void debugOutput();
};

void tst_AlarmInfo::derivedStates()
{
    QStringList found;
    for (int state = 0; state <= 6; ++state) {
        AlarmInfoData data;
        data.state = AlarmInfo::State(state);
        const AlarmInfo alarm(data);
        found.append(QStringLiteral("%1%2%3")
                         .arg(int(alarm.triggered()))
                         .arg(int(alarm.acknowledged()))
                         .arg(int(alarm.enabled())));
    }
    QCOMPARE(found.join(QLatin1Char(' ')), QStringLiteral("000 001 101 101 111 001 011"));
}

void tst_AlarmInfo::fromMap_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("severity");
    const QString state = QStringLiteral("state");
    const QString severity = QStringLiteral("severity");
    const QVariant word(QStringLiteral("burning"));
    const QVariant triggered = QVariant::fromValue(AlarmInfo::StateTriggered);
    QTest::newRow("nothing known") << QStringLiteral("State") << QVariant(4) << 1 << 0;
    QTest::newRow("enumerator") << state << triggered << 2 << 0;
    QTest::newRow("number") << state << QVariant(4) << 4 << 0;
    QTest::newRow("unknown number") << state << QVariant(99) << 99 << 0;
    QTest::newRow("no state") << state << word << 0 << 0;
    QTest::newRow("invalid") << state << QVariant() << 0 << 0;
    QTest::newRow("severity") << severity << QVariant(6) << 1 << 6;
    QTest::newRow("no severity") << severity << word << 1 << 0;
}

void tst_AlarmInfo::fromMap()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    const AlarmInfo alarm = AlarmInfo::createAlarmInfo({{key, value}});
    QVERIFY(alarm.isValid());
    QTEST(int(alarm.state()), "state");
    QTEST(int(alarm.severity()), "severity");
}

static AlarmInfoData fullData()
{
    AlarmInfoData data;
    data.name = QStringLiteral("n");
    data.description = QStringLiteral("d");
    data.severity = AlarmInfo::SeverityHigh;
    data.state = AlarmInfo::StateTriggeredNotAcknowledged;
    data.groups = QStringList{QStringLiteral("g")};
    data.customFields = QStringList{QStringLiteral("c")};
    data.timestamp = QDateTime(QDate(2024, 5, 1), QTime(10, 20, 30), Qt::OffsetFromUTC, 7200);
    data.backgroundColors = Colors{{AlarmInfo::StateTriggered, Qt::red}};
    data.foregroundColors = Colors{{AlarmInfo::StateTriggeredNotAcknowledged, Qt::blue}};
    data.acknowledgeEnabled = data.blinkEnabled = data.resetEnabled = true;
    data.tagName = QStringLiteral("t");
    data.tagValue = 5;
    return data;
}

void tst_AlarmInfo::fromFullMap()
{
    const AlarmInfoData data = fullData();
    const auto colors = [](const Colors &of) { return QVariant::fromValue(of); };
    const std::pair<const char *, QVariant> entries[] = {
        {"name", data.name},
        {"description", data.description},
        {"state", data.state},
        {"timestamp", data.timestamp},
        {"groups", data.groups},
        {"customFields", data.customFields},
        {"backgroundColor", colors(data.backgroundColors)},
        {"foregroundColor", colors(data.foregroundColors)},
        {"acknowledgeEnabled", true},
        {"blinkEnabled", QStringLiteral("true")},
        {"resetEnabled", 1},
        {"tagName", data.tagName},
        {"tagValue", data.tagValue},
        {"severity", data.severity}};
    QVariantMap map, unusable;
    for (const auto &[key, value] : entries) {
        map.insert(QLatin1String(key), value);
        unusable.insert(QLatin1String(key), QVariant::fromValue<QObject *>(nullptr));
    }
    QVERIFY(AlarmInfo::createAlarmInfo(map) == AlarmInfo(data));

    const AlarmInfo zero = AlarmInfo::createAlarmInfo(unusable);
    AlarmInfoData expected;
    expected.state = AlarmInfo::StateDisabled;
    expected.tagValue = zero.tagValue();
    QVERIFY(zero == AlarmInfo(expected));
    QCOMPARE(zero.tagValue().userType(), int(QMetaType::QObjectStar));
}

void tst_AlarmInfo::equality()
{
    const AlarmInfo original(fullData());
    AlarmInfo copy;
    QVERIFY(!copy.isValid() && copy == AlarmInfo() && copy != AlarmInfo(AlarmInfoData()));
    copy = original;
    QVERIFY(copy == original && copy.isValid());
    static void (*const changes[])(AlarmInfoData &) = {
        [](AlarmInfoData &data) { data.name.clear(); },
        [](AlarmInfoData &data) { data.description.clear(); },
        [](AlarmInfoData &data) { data.severity = AlarmInfo::SeverityLow; },
        [](AlarmInfoData &data) { data.state = AlarmInfo::StateDisabled; },
        [](AlarmInfoData &data) { data.groups.clear(); },
        [](AlarmInfoData &data) { data.customFields.clear(); },
        [](AlarmInfoData &data) { data.timestamp = QDateTime(); },
        [](AlarmInfoData &data) { data.backgroundColors.clear(); },
        [](AlarmInfoData &data) { data.foregroundColors.clear(); },
        [](AlarmInfoData &data) { data.acknowledgeEnabled = false; },
        [](AlarmInfoData &data) { data.blinkEnabled = false; },
        [](AlarmInfoData &data) { data.resetEnabled = false; },
        [](AlarmInfoData &data) { data.tagName.clear(); },
        [](AlarmInfoData &data) { data.tagValue = 6; }};
    for (const auto change : changes) {
        AlarmInfoData data = fullData();
        change(data);
        QVERIFY(AlarmInfo(data) != original);
    }
}

void tst_AlarmInfo::colours()
{
    const AlarmInfo alarm(fullData());
    QCOMPARE(alarm.backgroundColor(AlarmInfo::StateTriggered), QColor(Qt::red));
    QVERIFY(!alarm.currentBackgroundColor().isValid());
    QCOMPARE(alarm.currentForegroundColor(), QColor(Qt::blue));
    QVERIFY(!alarm.foregroundColor(AlarmInfo::StateTriggered).isValid());
    QCOMPARE(&AlarmInfo().currentBackgroundColor(), &alarm.currentBackgroundColor());
}

template<class T>
static QString printed(const T &value)
{
    QString text;
    QDebug(&text).noquote() << value << 1;
    return text.trimmed();
}

void tst_AlarmInfo::debugOutput()
{
    AlarmInfoData data = fullData();
    const AlarmInfo alarm(data);
    const QString expected = QStringLiteral(
        "NARV::AlarmInfo(isValid=true,name=n,description=d,"
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
    data.timestamp.setOffsetFromUtc(-3600);
    QVERIFY(printed(AlarmInfo(data)).contains(QLatin1String(".000-01:00 -3600,")));
}

QTEST_GUILESS_MAIN(tst_AlarmInfo)
#include "tst_alarminfo.moc"
