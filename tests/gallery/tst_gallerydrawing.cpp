#include "alarmfilter.h"
#include "dial.h"
#include "guardedtest.h"
#include "numbertext.h"
#include "scale.h"
#include "valuelimits.h"

#include <QtTest>

#include <cmath>

using NARV::AlarmInfo;

//! What the items draw, before it is drawn: numbers, scales, limits, points, rows.
class tst_GalleryDrawing : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::German)); }
    void numbers_data();
    void numbers();
    void fractions_data();
    void fractions();
    void ticks();
    void limits_data();
    void limits();
    void dial();
    void alarms_data();
    void alarms();
};

Q_DECLARE_METATYPE(NumberStyle)
Q_DECLARE_METATYPE(AlarmFilter)

void tst_GalleryDrawing::numbers_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<NumberStyle>("style");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, double value, const NumberStyle &style,
                        const char *text) {
        QTest::newRow(name) << value << style << QString::fromUtf8(text);
    };
    using F = NumberFormat;
    row("panel's decimal point", 1234.56, {F::Decimal, 1, 1, false}, "1234,6");
    row("leading zeros", 3.5, {F::Decimal, 1, 4, false}, "0003,5");
    row("sign before zeros", -3, {F::Decimal, 0, 3, false}, "-003");
    row("plus sign", 3, {F::Decimal, 0, 1, true}, "+3");
    row("no sign on zero", 0, {F::Decimal, 0, 1, true}, "0");
    row("no sign on rounded zero", -0.04, {F::Decimal, 1, 1, false}, "0,0");
    row("hexadecimal", 175, {F::Hexadecimal, 2, 4, false}, "00AF");
    row("negative hexadecimal", -255, {F::Hexadecimal, 0, 1, false}, "-FF");
    row("binary rounds", 4.6, {F::Binary, 0, 1, false}, "101");
    row("scientific", 12345, {F::Scientific, 2, 9, false}, "1,23e+04");
    row("digits without end", 1, {F::Decimal, -1, 1 << 30, false},
        "0000000000000000000000000000000000000000000000000000000000000001");
}

void tst_GalleryDrawing::numbers()
{
    QFETCH(double, value);
    QFETCH(NumberStyle, style);
    QTEST(numberText(value, style), "text");
}

void tst_GalleryDrawing::fractions_data()
{
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("fraction");
    QTest::newRow("inside") << -100.0 << 100.0 << 50.0 << 0.75;
    QTest::newRow("below") << 0.0 << 10.0 << -1.0 << 0.0;
    QTest::newRow("above") << 0.0 << 10.0 << 11.0 << 1.0;
    QTest::newRow("downwards") << 10.0 << 0.0 << 8.0 << 0.2;
    QTest::newRow("no length") << 5.0 << 5.0 << 5.0 << 0.0;
    QTest::newRow("no number") << 0.0 << 10.0 << qQNaN() << 0.0;
}

void tst_GalleryDrawing::fractions()
{
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(double, value);
    QTEST(Scale(minimum, maximum).fraction(value), "fraction");
}

void tst_GalleryDrawing::ticks()
{
    const QVector<Scale::Tick> ticks = Scale(-0.3, 0.7).ticks(10, 2);
    QCOMPARE(ticks.size(), 21);
    QCOMPARE(ticks[5].fraction, 0.25);
    QVERIFY(!ticks[5].isMajor);
    QVERIFY(ticks[6].isMajor);
    QCOMPARE(ticks[6].value, 0.0); // not a rounding error beside it
    QCOMPARE(ticks.last().value, 0.7);
    QCOMPARE(Scale(0, 1).ticks(-5, 0).size(), 2);
}

void tst_GalleryDrawing::limits_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QColor>("color");
    QTest::newRow("low alarm") << 5.0 << QColor(Qt::red);
    QTest::newRow("low warning") << 15.0 << QColor(Qt::yellow);
    QTest::newRow("normal") << 50.0 << QColor(Qt::blue);
    QTest::newRow("high warning") << 85.0 << QColor(Qt::yellow);
    QTest::newRow("high alarm") << 99.0 << QColor(Qt::red);
}

void tst_GalleryDrawing::limits()
{
    QFETCH(double, value);
    ValueLimits limits{5, 15, 85, 85, Qt::yellow, Qt::red, true};
    QCOMPARE(limits.bands(Scale(0, 100)).size(), 3); // no band between equal limits
    QCOMPARE(limits.bands(Scale(100, 0)).last().from, 0.15);
    limits.highAlarm = 95;
    QTEST(limits.colorOf(value, Qt::blue), "color");
    limits.areShown = false;
    QCOMPARE(limits.colorOf(value, Qt::blue), QColor(Qt::blue));
    QVERIFY(limits.bands(Scale(0, 100)).isEmpty());
}

void tst_GalleryDrawing::dial()
{
    const Dial dial(QRectF(0, 0, 300, 200));
    QCOMPARE(dial.at(0.5, 1), QPointF(150, 0));
    QCOMPARE(dial.at(1.0 / 6, 1), QPointF(50, 100));
    const qreal diagonal = 100 * std::sqrt(0.5);
    QCOMPARE(dial.at(0, 1), QPointF(150 - diagonal, 100 + diagonal));
    QCOMPARE(dial.arc(0, 0.5, 1).currentPosition(), dial.at(0.5, 1));
    QCOMPARE(dial.pointer(0.5, 0.8, 0.1)[1], QPointF(150, 20));
}

void tst_GalleryDrawing::alarms_data()
{
    QTest::addColumn<AlarmFilter>("filter");
    QTest::addColumn<QString>("names"); // in order
    const auto row = [](const char *name, const AlarmFilter &filter, const char *names) {
        QTest::newRow(name) << filter << QString::fromLatin1(names);
    };
    using A = AlarmInfo;
    row("all that are raised or not done with", {}, "65432");
    row("oldest first", {{}, 0, AlarmFilter::OldestFirst, -1, true, true}, "23456");
    row("most severe first", {{}, 0, AlarmFilter::MostSevereFirst, -1, true, true}, "53642");
    row("severity", {{}, A::SeverityNormal, 0, -1, true, true}, "53");
    row("group", {{QStringLiteral("odd"), QStringLiteral("no such")}, 0, 0, -1, true, true}, "53");
    row("not acknowledged", {{}, 0, 0, -1, false, true}, "532");
    row("raised", {{}, 0, 0, -1, true, false}, "432");
    row("rows", {{}, 0, 0, 2, true, true}, "65");
    row("no rows", {{}, 0, 0, 0, true, true}, "");
}

void tst_GalleryDrawing::alarms()
{
    // One alarm in each state, named by its number, each later than the one before.
    QVector<AlarmInfo> alarms;
    for (int state = AlarmInfo::StateDisabled; state <= AlarmInfo::StateNotTriggeredAcknowledged;
         ++state) {
        NARV::AlarmInfoData data;
        data.name = QString::number(state);
        data.state = AlarmInfo::State(state);
        data.severity = state % 2 == 0 ? AlarmInfo::SeverityLow : AlarmInfo::SeverityHigh;
        data.groups = QStringList(state % 2 == 0 ? QStringLiteral("even") : QStringLiteral("odd"));
        data.timestamp = QDateTime(QDate(2024, 5, 1), QTime(10, state));
        alarms.append(AlarmInfo(data));
    }
    QFETCH(AlarmFilter, filter);
    QString names;
    for (const AlarmInfo &alarm : filter.apply(alarms))
        names += alarm.name();
    QTEST(names, "names");
}

QTEST_GUILESS_MAIN(tst_GalleryDrawing)
#include "tst_gallerydrawing.moc"
