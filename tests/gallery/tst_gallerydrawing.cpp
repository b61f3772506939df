#include "alarmfilter.h"
#include "dial.h"
#include "drawing.h"
#include "guardedtest.h"
#include "numbertext.h"
#include "scale.h"
#include "timewindow.h"
#include "trendsamples.h"
#include "valuelimits.h"

#include <cmath>

using NARV::AlarmInfo;

using F = NumberFormat;
static const struct
{
    const char *name;
    double value;
    NumberStyle style;
    const char *text;
} numberRows[] = {
    {"panel's decimal point", 1234.56, {F::Decimal, 1, 1, false}, "1234,6"},
    {"leading zeros", 3.5, {F::Decimal, 1, 4, false}, "0003,5"},
    {"sign before zeros", -3, {F::Decimal, 0, 3, false}, "-003"},
    {"plus sign", 3, {F::Decimal, 0, 1, true}, "+3"},
    {"no sign on zero", 0, {F::Decimal, 0, 1, true}, "0"},
    {"no sign on rounded zero", -0.04, {F::Decimal, 1, 1, false}, "0,0"},
    {"hexadecimal", 175, {F::Hexadecimal, 2, 4, false}, "00AF"},
    {"negative hexadecimal", -255, {F::Hexadecimal, 0, 1, false}, "-FF"},
    {"binary rounds", 4.6, {F::Binary, 0, 1, false}, "101"},
    {"scientific", 12345, {F::Scientific, 2, 9, false}, "1,23e+04"},
    {"digits without end",
     1,
     {F::Decimal, -1, 1 << 30, false},
     "0000000000000000000000000000000000000000000000000000000000000001"},
};

static const struct
{
    const char *name;
    double minimum;
    double maximum;
    double value;
    double fraction;
} fractionRows[] = {
    {"inside", -100.0, 100.0, 50.0, 0.75}, {"below", 0.0, 10.0, -1.0, 0.0},
    {"above", 0.0, 10.0, 11.0, 1.0},       {"downwards", 10.0, 0.0, 8.0, 0.2},
    {"no length", 5.0, 5.0, 5.0, 0.0},     {"no number", 0.0, 10.0, qQNaN(), 0.0},
};

static const struct
{
    const char *name;
    double lowest;
    double highest;
    int divisions;
    RoundScale scale;
} roundRows[] = {
    {"outwards", 1.2, 8.9, 5, {0, 10, 5, 2}},
    {"round already", 0, 100, 5, {0, 100, 5, 20}},
    {"fractions", -0.31, 0.29, 10, {-0.4, 0.3, 7, 0.1}},
    {"large", 12000, 87000, 5, {0, 100000, 5, 20000}},
    {"constant", 50, 50, 5, {40, 60, 4, 5}},
    {"around zero in one", -1, 1, 1, {-100, 100, 2, 100}},
    {"without end", 0, qInf(), 5, {0, 1, 1, 1}},
};

// 2024-05-01 00:00 UTC.
static constexpr qint64 midnight = 1714521600000;
static const struct
{
    const char *name;
    TimeWindow window; // in seconds since midnight
    int most;
    QVector<qint64> ticks;
} tickRows[] = {
    {"ten seconds", {3, 13}, 5, {4, 6, 8, 10, 12}},
    {"ten minutes", {61, 661}, 5, {120, 240, 360, 480, 600}},
    {"a day", {0, 86400}, 4, {0, 21600, 43200, 64800, 86400}},
    {"one label", {30, 90}, 1, {60}},
};

using A = AlarmInfo;
static const struct
{
    const char *name;
    AlarmFilter filter;
    const char *names; // in order
} alarmRows[] = {
    {"all that are raised or not done with", {}, "65432"},
    {"oldest first", {{}, 0, AlarmFilter::OldestFirst, -1, true, true}, "23456"},
    {"most severe first", {{}, 0, AlarmFilter::MostSevereFirst, -1, true, true}, "53642"},
    {"severity", {{}, A::SeverityNormal, 0, -1, true, true}, "53"},
    {"group", {{u("odd"), u("no such")}, 0, 0, -1, true, true}, "53"},
    {"not acknowledged", {{}, 0, 0, -1, false, true}, "532"},
    {"raised", {{}, 0, 0, -1, true, false}, "432"},
    {"rows", {{}, 0, 0, 2, true, true}, "65"},
    {"no rows", {{}, 0, 0, 0, true, true}, ""},
};

//! What the items draw, before it is drawn: numbers, scales, limits, points, rows.
class tst_GalleryDrawing : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QLocale::setDefault(QLocale(QLocale::German));
        qputenv("TZ", "UTC"); // round times are those of the panel's clock
    }
    void numbers_data() { addRows(numberRows); }
    void numbers();
    void fractions_data() { addRows(fractionRows); }
    void fractions();
    void ticks();
    void limits();
    void dial();
    void roundScales_data() { addRows(roundRows); }
    void roundScales();
    void timeTicks_data() { addRows(tickRows); }
    void timeTicks();
    void timeWindows();
    void samples();
    void inkIsLegible();
    void alarms_data() { addRows(alarmRows); }
    void alarms();
};

void tst_GalleryDrawing::numbers()
{
    const auto &row = currentRow(numberRows);
    QCOMPARE(numberText(row.value, row.style), u(row.text));
}

void tst_GalleryDrawing::fractions()
{
    const auto &row = currentRow(fractionRows);
    QCOMPARE(Scale(row.minimum, row.maximum).fraction(row.value), row.fraction);
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

void tst_GalleryDrawing::limits()
{
    ValueLimits limits{5, 15, 85, 85, Qt::yellow, Qt::red, true};
    QCOMPARE(limits.bands(Scale(0, 100)).size(), 3); // no band between equal limits
    QCOMPARE(limits.bands(Scale(100, 0)).last().from, 0.15);
    limits.highAlarm = 95;
    const std::pair<double, Qt::GlobalColor> colors[] = {
        {5, Qt::red}, {15, Qt::yellow}, {50, Qt::blue}, {85, Qt::yellow}, {99, Qt::red}};
    for (const auto &[value, color] : colors)
        QCOMPARE(limits.colorOf(value, Qt::blue), QColor(color));
    limits.areShown = false;
    QCOMPARE(limits.colorOf(99, Qt::blue), QColor(Qt::blue));
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

void tst_GalleryDrawing::roundScales()
{
    const auto &row = currentRow(roundRows);
    const RoundScale found = RoundScale::around(row.lowest, row.highest, row.divisions);
    QCOMPARE(found.minimum, row.scale.minimum);
    QCOMPARE(found.maximum, row.scale.maximum);
    QCOMPARE(found.divisions, row.scale.divisions);
    QCOMPARE(found.step, row.scale.step);
}

void tst_GalleryDrawing::timeTicks()
{
    const auto &row = currentRow(tickRows);
    const auto inMs = [](qint64 seconds) { return midnight + seconds * 1000; };
    QVector<qint64> expected;
    for (qint64 tick : row.ticks)
        expected.append(inMs(tick));
    const TimeWindow window{inMs(row.window.from), inMs(row.window.to)};
    QCOMPARE(window.ticks(row.most), expected);
}

void tst_GalleryDrawing::timeWindows()
{
    const TimeWindow window{100000, 200000};
    const auto is = [](const TimeWindow &found, qint64 from, qint64 to) {
        return found.from == from && found.to == to;
    };
    QVERIFY(is(window.movedBack(0.5), 50000, 150000));
    QVERIFY(is(window.zoomed(2, 0.25), 112500, 162500));
    QVERIFY(is(window.zoomed(0.5, 1), 0, 200000));
    QCOMPARE(window.zoomed(1e9, 0.5).span(), 10000);
    QCOMPARE(window.zoomed(1e-9, 0.5).span(), 366 * 86400000LL);
    for (double factor : {0.0, -1.0, qQNaN()})
        QVERIFY(is(window.zoomed(factor, 0.5), 100000, 200000));
    QVERIFY(is(window.endingBy(150000), 50000, 150000));
    QVERIFY(is(window.endingBy(250000), 100000, 200000));
}

static QVariant sample(const QVariantList &parts)
{
    return parts;
}

void tst_GalleryDrawing::samples()
{
    const auto found = trendSamples(QVariantList{
        sample({5, 1.5}), sample({6, true}), sample({7, QVariant()}), sample({8, u("off")}),
        sample({9, 2, 1}), sample({10, 2, 2}), sample({11, qInf()}), sample({12}), 13,
        sample({u("late"), 3}), sample({14, 2, 99})});
    QVector<qint64> drawn;
    for (const TrendSample &any : found) {
        if (!any.isGap())
            drawn.append(any.time);
    }
    QCOMPARE(found.size(), 8); // the last but one, and those of one part, are no samples
    QCOMPARE(drawn, (QVector<qint64>{5, 6, 9}));
    QCOMPARE(found[1].value, 1.0);
    QCOMPARE(found[4].quality, TrendSample::Uncertain);
    QVERIFY(trendSamples({}).isEmpty());
    QVERIFY(trendSamples(u("none")).isEmpty());
}

void tst_GalleryDrawing::inkIsLegible()
{
    const QColor ink(0x2b3138);
    QCOMPARE(legible(ink, Qt::white), ink);
    QVERIFY(legible(QColor(0xe0a100), QColor(0xf4f5f7)).lightness() < 80);
    QVERIFY(legible(ink, QColor(0x1b1b1b)).lightness() > 120);
    QCOMPARE(legible(QColor(), Qt::white), QColor());
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
        data.groups = QStringList(state % 2 == 0 ? u("even") : u("odd"));
        data.timestamp = QDateTime(QDate(2024, 5, 1), QTime(10, state));
        alarms.append(AlarmInfo(data));
    }
    const auto &row = currentRow(alarmRows);
    QString names;
    for (const AlarmInfo &alarm : row.filter.apply(alarms))
        names += alarm.name();
    QCOMPARE(names, u(row.names));
}

QTEST_GUILESS_MAIN(tst_GalleryDrawing)
#include "tst_gallerydrawing.moc"
