#include "data/simulationclock.h"
#include "data/tagtable.h"
#include "data/testdata.h"
#include "data/trendstore.h"

#include "guardedtest.h"

#include <QSaveFile>
#include <QTemporaryDir>

using namespace NARV;
using namespace NARV::DEV;

class tst_TrendStore : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void decimation_data();
    void decimation();
    void timeFormats();
    void history();
    void fromAFile();
    void filesAreShared();
    void editsAreChecked();
};

//! Points a millisecond apart, of which decimate() keeps those at the given places. A letter is a
//! text, a blank a gap.
static const struct
{
    const char *name;
    const char *points;
    unsigned int count;
    QVector<int> kept;
} decimationRows[] = {
    {"none wanted", "123", 0, {}},
    {"one wanted", "123", 1, {2}},
    {"enough room", "123", 3, {0, 1, 2}},
    {"nothing there", "", 5, {}},
    {"the extremes in their order", "15942867", 2, {0, 2}},
    {"of each part", "15942867", 4, {0, 2, 4, 5}},
    {"odd count", "15942867", 5, {0, 2, 4, 5}},
    {"level", "3333", 2, {0}},
    {"a gap is kept", "19 4", 2, {1, 2}},
    {"NaN is a gap", "n194", 2, {0, 2}},
    {"all gaps", "    ", 2, {0, 3}},
    {"texts", "abcd", 2, {0, 3}},
    {"gap among texts", "ab d", 2, {0, 2}},
};

void tst_TrendStore::decimation_data()
{
    addRows(decimationRows);
}

void tst_TrendStore::decimation()
{
    const auto &row = currentRow(decimationRows);
    QVector<CsvSeries::Point> points;
    for (const QChar letter : u(row.points)) {
        const QVariant value = letter == QLatin1Char(' ')   ? QVariant()
                               : letter == QLatin1Char('n') ? QVariant(qQNaN())
                               : letter.isDigit()           ? QVariant(letter.digitValue())
                                                            : QVariant(QString(letter));
        points.append({points.size(), value, Quality::Good});
    }
    QVector<int> kept;
    for (const auto &point : decimate(points, row.count))
        kept.append(int(point.time));
    QCOMPARE(kept, row.kept);
    QVERIFY(kept.size() <= int(row.count));
}

static QVariantList pair(const QVariantList &samples, int index)
{
    return samples.value(index).toList();
}

void tst_TrendStore::timeFormats()
{
    TestData data;
    const qint64 start = 1714557600000;
    data.clock().setStartTime(QDateTime::fromMSecsSinceEpoch(start));
    data.tags().add({u("a"), TagType::Int, 5, {}, {}});
    data.trends().add({u("t"), u("a"), {}, 1000, 10});
    data.clock().advance(1100);
    const auto first = [&](WidgetActionManager::TrendTimeFormat format) {
        return pair(data.trendValue(u("t"), {}, {}, 10, format).toList(), 0);
    };
    const qint64 time = start + 50;
    QCOMPARE(first(WidgetActionManager::DateTime),
             (QVariantList{QDateTime::fromMSecsSinceEpoch(time), 5}));
    QCOMPARE(first(WidgetActionManager::MillisecondsSinceEpoch), (QVariantList{time, 5}));
    QCOMPARE(first(WidgetActionManager::SecondsSinceEpoch), (QVariantList{double(time) / 1000, 5}));
    const QString text = first(WidgetActionManager::IsoText).value(0).toString();
    QVERIFY2(text.contains(u(".050")) && text.size() > 23, qPrintable(text)); // with the offset
    QCOMPARE(QDateTime::fromString(text, Qt::ISODateWithMs).toMSecsSinceEpoch(), time);
}

void tst_TrendStore::history()
{
    TestData data;
    const QDateTime start = QDateTime::fromMSecsSinceEpoch(0);
    data.clock().setStartTime(start);
    Tag tag{u("a"), TagType::Int, {}, {}, {}};
    tag.generator.kind = GeneratorKind::Counter;
    tag.generator.period = 100;
    data.tags().add(tag);
    data.trends().add({u("t"), u("a"), {}, 100, 20});
    const auto samples = [&](qint64 from, qint64 to, unsigned int count = 1000) {
        return data
            .trendValue(u("t"), start.addMSecs(from), start.addMSecs(to), count,
                        WidgetActionManager::MillisecondsSinceEpoch)
            .toList();
    };
    data.clock().advance(5000);
    QCOMPARE(samples(0, 5000).size(), 20); // the latest
    QCOMPARE(pair(samples(0, 5000), 19), (QVariantList{4950, 49}));
    QCOMPARE(samples(4750, 4850).size(), 2); // both ends belong to it
    QCOMPARE(samples(0, 5000, 6).size(), 6);
    QVERIFY(samples(5000, 0).isEmpty());
    QVERIFY(!data.trendValue(u("none"), {}, {}, 9, WidgetActionManager::DateTime).isValid());

    data.tags().setQuality(0, Quality::Bad);
    data.clock().advance(50);
    QCOMPARE(pair(samples(0, 9000), 19), (QVariantList{5050, QVariant(), 2})); // a gap
    data.tags().rename(0, u("b"));
    data.clock().advance(100);
    QCOMPARE(pair(samples(0, 9000), 19).value(0), QVariant(5150));
    data.trends().addGap(start.addMSecs(5160));
    QCOMPARE(pair(samples(0, 9000), 19), (QVariantList{5160, QVariant(), 2}));
    data.clock().setStartTime(start); // what comes later is no longer known
    QVERIFY(samples(1, 9000).isEmpty());
}

void tst_TrendStore::fromAFile()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u("t.csv")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("-1,5,\n0,,\n1,7,uncertain\n") > 0);
    file.close();
    TestData data;
    data.clock().setStartTime(QDateTime::fromMSecsSinceEpoch(60000));
    data.trends().add({u("t"), {}, u("t.csv"), 100, 100});
    QVERIFY(data.trends().problem(0).contains(u("no such file")));
    data.setBaseFolder(folder.path());
    QCOMPARE(data.trends().problem(0), QString());
    data.clock().advance(1000);
    const auto samples =
        data.trendValue(u("t"), {}, {}, 10, WidgetActionManager::MillisecondsSinceEpoch).toList();
    QCOMPARE(samples.size(), 3);
    QCOMPARE(pair(samples, 0), (QVariantList{59000, 5.0}));
    QCOMPARE(pair(samples, 1), (QVariantList{60000, QVariant()}));
    QCOMPARE(pair(samples, 2), (QVariantList{61000, 7.0, 1}));
}

// Tags and trends share what was read of a file, which is read again when it has changed.
void tst_TrendStore::filesAreShared()
{
    const QTemporaryDir folder;
    const auto write = [&folder](const QByteArray &content) {
        QSaveFile file(folder.filePath(u("t.csv")));
        return file.open(QIODevice::WriteOnly) && file.write(content) > 0 && file.commit();
    };
    QVERIFY(write("1\n2\n"));
    TestData data;
    data.setBaseFolder(folder.path());
    Tag tag;
    tag.generator.kind = GeneratorKind::CsvPlayback;
    tag.generator.file = u("t.csv");
    for (const char *name : {"a", "b"}) {
        tag.name = u(name);
        data.tags().add(tag);
    }
    data.trends().add({u("t"), {}, u("t.csv"), 100, 100});
    std::weak_ptr<const CsvSeries> before = data.tags().series(u("t.csv"), CsvValues::Numbers);
    QCOMPARE(before.use_count(), 3L);
    const auto texts = data.tags().series(u("t.csv"), CsvValues::Texts);
    QCOMPARE(texts->points[0].value.userType(), int(QMetaType::QString));
    QVERIFY(write("7\nx\n"));
    QTRY_VERIFY(before.expired());
    QVERIFY(data.tags().problem(1).contains(u("line 2")));
    QVERIFY(data.trends().problem(0).contains(u("line 2")));
    QVERIFY(write("9\n8\n7\n"));
    QTRY_COMPARE(data.tagValue(u("b")), QVariant(9.0)); // although no time passes
    QCOMPARE(data.trends().problem(0), QString());
    QVERIFY(QFile::remove(folder.filePath(u("t.csv"))));
    QTRY_VERIFY(data.tags().problem(0).contains(u("no such file")));
    QVERIFY(write("4\n"));
    QTRY_COMPARE(data.tagValue(u("a")), QVariant(4.0));
    // Also when those who wanted its texts have gone.
    data.tags().series(u("t.csv"), CsvValues::Texts);
    data.tags().series(u("other.csv"), CsvValues::Texts);
    QFile file(folder.filePath(u("t.csv")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("6\n") > 0);
    file.close();
    QTRY_COMPARE(data.tagValue(u("a")), QVariant(6.0));
}

void tst_TrendStore::editsAreChecked()
{
    TestData data;
    TrendStore &trends = data.trends();
    trends.add({u("t"), u("ghost"), {}, 100, 100});
    trends.add({u("t"), u("ghost"), {}, 100, 100});
    QCOMPARE(trends.names(), (QStringList{u("t"), u("t2")}));
    QVERIFY(trends.problem(0).contains(u("ghost")));
    const struct
    {
        int column;
        QVariant value;
        bool isGood;
    } edits[] = {
        {TrendStore::NameColumn, u("t2"), false}, {TrendStore::NameColumn, u("u"), true},
        {TrendStore::IntervalColumn, 49, false},  {TrendStore::IntervalColumn, 50, true},
        {TrendStore::CapacityColumn, 0, false},   {TrendStore::CapacityColumn, u("x"), false},
        {TrendStore::SourceColumn, u(""), false}, {TrendStore::SourceColumn, u("a"), true}};
    for (const auto &edit : edits) {
        QCOMPARE(trends.setData(trends.index(0, edit.column), edit.value), edit.isGood);
        QCOMPARE(trends.index(0, edit.column).data() == edit.value, edit.isGood);
    }
}

QTEST_GUILESS_MAIN(tst_TrendStore)
#include "tst_trendstore.moc"
