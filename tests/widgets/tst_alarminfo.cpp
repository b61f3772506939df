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
    void equality_data();
    void equality();
    void colours();
    void debugOutput();
};

void tst_AlarmInfo::derivedStates()
{
    const auto inState = [](int state) {
        AlarmInfoData data;
        data.state = AlarmInfo::State(state);
        const AlarmInfo alarm(data);
        return QStringLiteral("%1%2%3")
            .arg(int(alarm.triggered()))
            .arg(int(alarm.acknowledged()))
            .arg(int(alarm.enabled()));
    };
    QStringList found;
    for (int state = 0; state <= 6; ++state)
        found.append(inState(state));
    QCOMPARE(found.join(QLatin1Char(' ')), QStringLiteral("000 001 101 101 111 001 011"));
}

void tst_AlarmInfo::fromMap_data()
{
    QTest::addColumn<QVariantMap>("map");
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("severity");
    const auto state = [](const QVariant &value) {
        return QVariantMap{{QStringLiteral("state"), value}};
    };
    const auto severity = [](const QVariant &value) {
        return QVariantMap{{QStringLiteral("severity"), value}};
    };
    QTest::newRow("empty") << QVariantMap() << 1 << 0;
    QTest::newRow("enumerator") << state(QVariant::fromValue(AlarmInfo::StateTriggered)) << 2 << 0;
    QTest::newRow("number") << state(4) << 4 << 0;
    QTest::newRow("no state") << state(QStringLiteral("burning")) << 0 << 0;
    QTest::newRow("invalid state") << state(QVariant()) << 0 << 0;
    QTest::newRow("severity") << severity(6) << 1 << 6;
    QTest::newRow("no severity") << severity(QColor(Qt::red)) << 1 << 0;
    QTest::newRow("other case") << QVariantMap{{QStringLiteral("State"), 4}} << 1 << 0;
}

void tst_AlarmInfo::fromMap()
{
    QFETCH(QVariantMap, map);
    const AlarmInfo alarm = AlarmInfo::createAlarmInfo(map);
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
    const QVariantMap map{
        {QStringLiteral("name"), data.name},
        {QStringLiteral("description"), data.description},
        {QStringLiteral("state"), int(data.state)},
        {QStringLiteral("timestamp"), data.timestamp},
        {QStringLiteral("groups"), data.groups},
        {QStringLiteral("customFields"), data.customFields},
        {QStringLiteral("backgroundColor"), QVariant::fromValue(data.backgroundColors)},
        {QStringLiteral("foregroundColor"), QVariant::fromValue(data.foregroundColors)},
        {QStringLiteral("acknowledgeEnabled"), true},
        {QStringLiteral("blinkEnabled"), QStringLiteral("true")},
        {QStringLiteral("resetEnabled"), 1},
        {QStringLiteral("tagName"), data.tagName},
        {QStringLiteral("tagValue"), data.tagValue},
        {QStringLiteral("severity"), int(data.severity)}};
    QVERIFY(AlarmInfo::createAlarmInfo(map) == AlarmInfo(data));

    QVariantMap unusable;
    for (auto it = map.begin(); it != map.end(); ++it)
        unusable.insert(it.key(), QVariant::fromValue<QObject *>(nullptr));
    const AlarmInfo zero = AlarmInfo::createAlarmInfo(unusable);
    AlarmInfoData expected;
    expected.state = AlarmInfo::StateDisabled;
    expected.tagValue = zero.tagValue();
    QVERIFY(zero == AlarmInfo(expected));
    QCOMPARE(zero.tagValue().userType(), int(QMetaType::QObjectStar));
}

using Change = std::function<void(AlarmInfoData &)>;
Q_DECLARE_METATYPE(Change)

void tst_AlarmInfo::equality_data()
{
    QTest::addColumn<Change>("change");
    const auto row = [](const char *name, const Change &change) { QTest::newRow(name) << change; };
    row("name", [](AlarmInfoData &data) { data.name.clear(); });
    row("description", [](AlarmInfoData &data) { data.description.clear(); });
    row("severity", [](AlarmInfoData &data) { data.severity = AlarmInfo::SeverityLow; });
    row("state", [](AlarmInfoData &data) { data.state = AlarmInfo::StateDisabled; });
    row("groups", [](AlarmInfoData &data) { data.groups.clear(); });
    row("customFields", [](AlarmInfoData &data) { data.customFields.clear(); });
    row("timestamp", [](AlarmInfoData &data) { data.timestamp = QDateTime(); });
    row("backgroundColors", [](AlarmInfoData &data) { data.backgroundColors.clear(); });
    row("foregroundColors", [](AlarmInfoData &data) { data.foregroundColors.clear(); });
    row("acknowledgeEnabled", [](AlarmInfoData &data) { data.acknowledgeEnabled = false; });
    row("blinkEnabled", [](AlarmInfoData &data) { data.blinkEnabled = false; });
    row("resetEnabled", [](AlarmInfoData &data) { data.resetEnabled = false; });
    row("tagName", [](AlarmInfoData &data) { data.tagName.clear(); });
    row("tagValue", [](AlarmInfoData &data) { data.tagValue = 6; });
}

void tst_AlarmInfo::equality()
{
    QFETCH(Change, change);
    const AlarmInfo original(fullData());
    AlarmInfo copy;
    QVERIFY(!copy.isValid() && copy == AlarmInfo() && copy != AlarmInfo(AlarmInfoData()));
    copy = original;
    QVERIFY(copy == original && copy.isValid());
    AlarmInfoData data = fullData();
    change(data);
    QVERIFY(AlarmInfo(data) != original);
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

void tst_AlarmInfo::debugOutput()
{
    const AlarmInfo alarm(fullData());
    QString text;
    QDebug(&text).noquote() << alarm << 1;
    QCOMPARE(text.trimmed(),
             QStringLiteral(
                 "NARV::AlarmInfo(isValid=true,name=n,description=d,"
                 "severity=NARV::AlarmInfo::SeverityHigh,groups=(g),groups=(c),"
                 "state=NARV::AlarmInfo::StateTriggeredNotAcknowledged,triggered=true,"
                 "acknowledged=false,enabled=true,"
                 "timestamp=2024-05-01T10:20:30.000+02:00 +7200,"
                 "currentBackgroundColor=QColor(Invalid),"
                 "currentForegroundColor=QColor(ARGB 1, 0, 0, 1),"
                 "backgroundColor=QMap((NARV::AlarmInfo::StateTriggered, QColor(ARGB 1, 1, 0, 0))),"
                 "foregroundColor=QMap((NARV::AlarmInfo::StateTriggeredNotAcknowledged, "
                 "QColor(ARGB 1, 0, 0, 1))),acknowledgeEnabled=true,blinkEnabled=true,"
                 "resetEnabled=true,tagName=t,tagValue=QVariant(int, 5)) 1"));
    QString throughPointer;
    QDebug(&throughPointer).noquote() << &alarm << 1;
    QCOMPARE(throughPointer, text);

    AlarmInfoData west;
    west.timestamp = QDateTime(QDate(2024, 5, 1), QTime(10, 20, 30, 5), Qt::OffsetFromUTC, -3600);
    text.clear();
    QDebug(&text) << AlarmInfo(west);
    QVERIFY(text.contains(QLatin1String("2024-05-01T10:20:30.005-01:00 -3600")));
}

QTEST_GUILESS_MAIN(tst_AlarmInfo)
#include "tst_alarminfo.moc"
