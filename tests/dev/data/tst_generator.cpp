#include "data/generator.h"

#include "guardedtest.h"

#include <QTemporaryDir>

#include <cmath>

using namespace NARV::DEV;

class tst_Generator : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void courses_data();
    void courses();
    void chanceStaysInTheLimitsAndDependsOnTheSeed();
    void valuesFitTheType();
    void everyKindIsListed();
    void playback();
    void csvFaults_data();
    void csvFaults();
    void csvFilesOfAnySize();
};

static GeneratorSettings settingsOf(GeneratorKind kind)
{
    GeneratorSettings settings;
    settings.kind = kind;
    settings.period = 1000;
    settings.minimum = 10;
    settings.maximum = 20;
    return settings;
}

//! What a generator gives at 0, 250, 500, 750, 1000 and 2000 ms.
static const struct
{
    const char *name;
    GeneratorKind kind;
    double values[6];
} courseRows[] = {
    {"ramp", GeneratorKind::Ramp, {10, 12.5, 15, 17.5, 10, 10}},
    {"sine", GeneratorKind::Sine, {15, 20, 15, 10, 15, 15}},
    {"square", GeneratorKind::Square, {10, 10, 20, 20, 10, 10}},
    {"counter", GeneratorKind::Counter, {10, 10, 10, 10, 14, 18}},
};

void tst_Generator::courses_data()
{
    addRows(courseRows);
}

void tst_Generator::courses()
{
    const auto &row = currentRow(courseRows);
    GeneratorSettings settings = settingsOf(row.kind);
    settings.step = 4;
    settings.quality = Quality::Uncertain;
    const int times[] = {0, 250, 500, 750, 1000, 2000};
    for (int i = 0; i < 6; ++i) {
        const auto sample = generate(TagType::Double, settings, nullptr, times[i]);
        QVERIFY2(std::abs(sample.value.toDouble() - row.values[i]) < 1e-9, row.name);
        QCOMPARE(sample.quality, Quality::Uncertain);
    }
    const auto wrapped = generate(TagType::Double, settings, nullptr, 3000);
    QVERIFY(std::abs(wrapped.value.toDouble() - row.values[0]) < 1e-9);
}

void tst_Generator::chanceStaysInTheLimitsAndDependsOnTheSeed()
{
    for (const auto kind : {GeneratorKind::Noise, GeneratorKind::RandomWalk}) {
        GeneratorSettings settings = settingsOf(kind);
        GeneratorSettings other = settings;
        other.seed = 2;
        double least = 20, greatest = 10, jump = 0, before = 15;
        int differing = 0;
        for (int i = 0; i < 5000; ++i) {
            const double value =
                generate(TagType::Double, settings, nullptr, i * 1000).value.toDouble();
            QCOMPARE(generate(TagType::Double, settings, nullptr, i * 1000 + 999).value, value);
            differing += generate(TagType::Double, other, nullptr, i * 1000).value != value;
            least = qMin(least, value);
            greatest = qMax(greatest, value);
            jump = qMax(jump, i > 0 ? std::abs(value - before) : 0);
            before = value;
        }
        QVERIFY(least >= 10 && greatest <= 20 && greatest - least > 6);
        QVERIFY(differing > 4900);
        QCOMPARE(jump < 5, kind == GeneratorKind::RandomWalk); // a walk makes small steps
    }
}

void tst_Generator::valuesFitTheType()
{
    GeneratorSettings settings = settingsOf(GeneratorKind::Ramp);
    settings.minimum = -1000;
    settings.maximum = 1000;
    QCOMPARE(generate(TagType::UByte, settings, nullptr, 0).value, QVariant(0));
    QCOMPARE(generate(TagType::UByte, settings, nullptr, 999).value, QVariant(255));
    QCOMPARE(generate(TagType::Bool, settings, nullptr, 499).value, QVariant(false));
    QCOMPARE(generate(TagType::Bool, settings, nullptr, 501).value, QVariant(true));
    QCOMPARE(generate(TagType::String, settings, nullptr, 500).value, QVariant(u("0")));
    settings.elements = 4; // a quarter of a period apart
    QCOMPARE(generate(TagType::ArrayInt, settings, nullptr, 0).value,
             QVariant(QVariantList{-1000, -500, 0, 500}));

    settings = settingsOf(GeneratorKind::TextList);
    settings.texts = QStringList{u("7"), u("seven")};
    QCOMPARE(generate(TagType::String, settings, nullptr, 3000).value, QVariant(u("seven")));
    QCOMPARE(generate(TagType::Int, settings, nullptr, 2000).value, QVariant(7));
    const auto bad = generate(TagType::Int, settings, nullptr, 1000);
    QVERIFY(!bad.value.isValid());
    QCOMPARE(bad.quality, Quality::Bad);

    settings = settingsOf(GeneratorKind::Constant);
    settings.value = u("1, 2");
    QCOMPARE(generate(TagType::ArrayUInt64, settings, nullptr, 0).value,
             QVariant(QVariantList{1ULL, 2ULL}));
}

void tst_Generator::everyKindIsListed()
{
    QCOMPARE(generators().size(), int(GeneratorKind::CsvPlayback) + 1);
    for (const GeneratorInfo &info : generators()) {
        QCOMPARE(&generatorInfo(info.kind), &info);
        for (const TagType type : tagTypes()) // none falls over, however odd the settings
            generate(type, {info.kind, 0, 5, -5, -1, 0, {}, {}, {}, 0, {}}, nullptr, 1);
    }
}

void tst_Generator::playback()
{
    const auto valueAt = [](const CsvSeries &series, qint64 time) {
        return generate(TagType::Double, settingsOf(GeneratorKind::CsvPlayback), &series, time);
    };
    const auto plain = parseCsvSeries("1\n2\n\n3\n", u("f"), CsvValues::Numbers);
    QCOMPARE(plain.problems, QStringList());
    QCOMPARE(valueAt(plain, 2500).value, QVariant(3.0));
    QCOMPARE(valueAt(plain, 3000).value, QVariant(1.0));

    const auto timed = parseCsvSeries("time,value,quality\r\n-1,1,\r\n0.5,,good\r\n2,\"3\",bad\r\n",
                                      u("f"), CsvValues::Numbers);
    QCOMPARE(timed.problems, QStringList());
    QCOMPARE(valueAt(timed, 1499).value, QVariant(1.0));
    QVERIFY(!valueAt(timed, 1500).value.isValid());
    QCOMPARE(valueAt(timed, 3000).quality, Quality::Bad);
    QCOMPARE(valueAt(timed, 4499).value, QVariant(3.0)); // lasts as long as the one before
    QCOMPARE(valueAt(timed, 4500).value, QVariant(1.0));

    const auto dates = parseCsvSeries("2024-05-01T10:00:00Z,1\n2024-05-01T10:00:01.500Z,2\n",
                                      u("f"), CsvValues::Numbers);
    QCOMPARE(dates.times, CsvSeries::Times::Absolute);
    QCOMPARE(dates.points.value(1).time, 1714557601500);
    const auto texts = parseCsvSeries("\"a, \"\"b\"\"\"\nc", u("f"), CsvValues::Texts);
    QCOMPARE(texts.points.value(0).value, QVariant(u("a, \"b\"")));
}

static const struct
{
    const char *name;
    const char *content;
    const char *problem;
} csvRows[] = {
    {"empty", "", "f.csv: The file holds no values"},
    {"heading only", "time,value\n", "f.csv: The file holds no values"},
    {"no number", "1\n2\nabc\n", "f.csv, line 3, column 1: “abc” is not a number"},
    {"no number behind a time", "0,1\n1,x\n", "f.csv, line 2, column 2: “x” is not a number"},
    {"no time", "0,1\nsoon,2\n",
     "f.csv, line 2, column 1: “soon” is no time: seconds or an ISO 8601 date and time"},
    {"infinite time", "0,1\ninf,2\n",
     "f.csv, line 2, column 1: “inf” is no time: seconds or an ISO 8601 date and time"},
    {"backwards", "0,1\n5,2\n5,3\n",
     "f.csv, line 3, column 1: The time is not later than that of the row before"},
    {"mixed times", "0,1\n2024-05-01T10:00:00,2\n",
     "f.csv, line 2, column 1: Seconds and dates are mixed"},
    {"quality", "0,1,fine\n",
     "f.csv, line 1, column 3: “fine” is no quality: good, uncertain or bad"},
    {"too many cells", "0,1,good,x\n",
     "f.csv, line 1, column 4: A row is a time, a value and a quality, no more"},
    {"other width", "0,1\n2\n", "f.csv, line 2: The row has 1 cells, the rows before have 2"},
    {"open quote", "0,\"1\n", "f.csv, line 1, column 2: A double quote is not closed"},
    {"not UTF-8", "1\n\xff\n", "f.csv: The file is not in UTF-8"},
};

void tst_Generator::csvFaults_data()
{
    addRows(csvRows);
}

void tst_Generator::csvFaults()
{
    const auto &row = currentRow(csvRows);
    const CsvSeries series = parseCsvSeries(row.content, u("f.csv"), CsvValues::Numbers);
    QCOMPARE(series.problems.value(0), u(row.problem));
    QVERIFY(series.points.isEmpty());
}

void tst_Generator::csvFilesOfAnySize()
{
    const auto faults =
        parseCsvSeries(QByteArray("x\n").repeated(10000), u("f"), CsvValues::Numbers);
    QCOMPARE(faults.problems.size(), 20);
    const auto rows =
        parseCsvSeries(QByteArray("1\n").repeated(200001), u("f"), CsvValues::Numbers);
    QCOMPARE(rows.problems, QStringList{u("f, line 200001: There are more than 200000 rows")});
    const auto line = parseCsvSeries(QByteArray(5000, '1'), u("f"), CsvValues::Numbers);
    QCOMPARE(line.problems, QStringList{u("f, line 1: The line has more than 4096 characters")});

    const QTemporaryDir folder;
    QFile file(folder.filePath(u("big.csv")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(17 * 1024 * 1024));
    QCOMPARE(readCsvSeries(file.fileName(), CsvValues::Numbers).problems,
             QStringList{u("big.csv: The file is larger than 16 MiB")});
    QCOMPARE(readCsvSeries(folder.filePath(u("none.csv")), CsvValues::Numbers).problems,
             QStringList{u("none.csv: There is no such file")});
    QCOMPARE(readCsvSeries({}, CsvValues::Numbers).problems, QStringList{u("Choose a CSV file")});
    QCOMPARE(readCsvSeries(folder.path(), CsvValues::Numbers).problems.size(), 1);
}

QTEST_GUILESS_MAIN(tst_Generator)
#include "tst_generator.moc"
