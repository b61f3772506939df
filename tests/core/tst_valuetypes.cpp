#include "guardedtest.h"

#include <NARV/INTERNAL/PluginMetaInformation>

#include <QVariant>

#include <atomic>
#include <thread>

using VersionType = NARV::INTERNAL::PluginMetaInformation::VersionType;
using TranslationStringType = NARV::INTERNAL::PluginMetaInformation::TranslationStringType;

static const struct
{
    const char *name;      // the text
    const char *canonical; // empty: invalid
} versionRows[] = {
    {"1.2.3", "1.2.3"},
    {"0.0.0", "0.0.0"},
    {"01.002.3", "1.2.3"},
    {"999999999.0.0", "999999999.0.0"},
    {"1000000000.0.0", ""},
    {"0.0.4294967296", ""},
    {"", ""},
    {"1.2", ""},
    {"1.2.", ""},
    {"1..2", ""},
    {".1.2", ""},
    {"1.2.3.4", ""},
    {"a.1.1", ""},
    {"1.1.1b", ""},
    {"-1.0.0", ""},
    {"0x1.0.0", ""},
    {"1,000.0.0", ""},
    {"1.0.1e3", ""},
};

//! Versions and translatable texts.
class tst_ValueTypes : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void versionFromText_data() { addRows(versionRows); }
    void versionFromText();
    void versionFromNumbers();
    void versionOrder();
    void translationLookUp();
    void translationContents();
    void translationsFromManyThreads();
};

void tst_ValueTypes::versionFromText()
{
    const auto &[text, canonical] = currentRow(versionRows);
    const VersionType version(u(text));
    QCOMPARE(version.version(), u(canonical));
    QCOMPARE(version.isValid(), qstrlen(canonical) > 0);
    if (!version.isValid())
        QVERIFY(version == VersionType(0, 0, 0));
}

void tst_ValueTypes::versionFromNumbers()
{
    const VersionType version(1000000000, 2, 4294967295);
    QVERIFY(version.isValid());
    QCOMPARE(version.version(), u("1000000000.2.4294967295"));
    QCOMPARE(version.versionMajor(), 1000000000u);
    QCOMPARE(version.versionMinor(), 2u);
    QCOMPARE(version.versionPatch(), 4294967295u);
    QVERIFY(VersionType() == VersionType(0, 0, 0) && !VersionType().isValid());
    QVERIFY(!VersionType(QString(1 << 20, QLatin1Char('.'))).isValid());
}

void tst_ValueTypes::versionOrder()
{
    const QList<VersionType> ascending{{0, 0, 0}, {0, 0, 1},  {0, 1, 0},         {1, 0, 0},
                                       {1, 9, 0}, {1, 10, 0}, {4294967295, 0, 0}};
    for (int i = 0; i < ascending.size(); ++i) {
        for (int j = 0; j < ascending.size(); ++j) {
            const VersionType &a = ascending[i];
            const VersionType &b = ascending[j];
            QCOMPARE(a == b, i == j);
            QCOMPARE(a != b, i != j);
            QCOMPARE(a < b, i < j);
            QCOMPARE(a <= b, i <= j);
            QCOMPARE(a > b, i > j);
            QCOMPARE(a >= b, i >= j);
        }
    }
}

void tst_ValueTypes::translationLookUp()
{
    const QString english = u("en-US");
    const QString italian = u("it-IT");
    TranslationStringType text;
    text.set(italian, u("Livello"));
    QVERIFY(text.get(english, true).isNull());
    text.set(english, u("Level"));
    QCOMPARE(text.get(u("de-DE"), true), u("Level"));
    QCOMPARE(text.get(u("de-DE"), false), QString());
    text.set(italian, QLatin1String(""));
    QCOMPARE(text.get(italian, true), QString());
    QVERIFY(text.contains(italian));
    QCOMPARE(text.keys(), (QList<QString>{english, italian}));
}

void tst_ValueTypes::translationContents()
{
    TranslationStringType text;
    text.setComment(u("of a tank"));
    QVERIFY(text.isEmpty());
    text.set(u("en-US"), u("Level"));
    QVERIFY(!text.isEmpty());

    TranslationStringType other = text;
    QVERIFY(other == text);
    other.setComment(QString());
    QVERIFY(other != text);
    other = text;
    other.set(u("de-DE"), QString());
    QVERIFY(other != text);
    QVERIFY(QVariant::fromValue(text).value<TranslationStringType>() == text);

    text.clear();
    QVERIFY(text.isEmpty() && text == TranslationStringType());
}

// The map of a text in one language is made when somebody asks for it, who may not be alone.
void tst_ValueTypes::translationsFromManyThreads()
{
    static constexpr int rounds = 200;
    static constexpr int readerCount = 4;
    const QMap<QString, QString> expected{{u("en-US"), u("Level")}};
    for (int round = 0; round < rounds; ++round) {
        TranslationStringType shared;
        shared.set(u("en-US"), u("Level"));
        const TranslationStringType &text = shared;
        std::atomic<int> waiting{readerCount};
        std::atomic<int> wrong{0};
        const auto read = [&] {
            for (--waiting; waiting > 0;)
                std::this_thread::yield();
            const TranslationStringType before = text;
            wrong += text.translations() != expected;
            const TranslationStringType after = text;
            wrong += before.translations() != expected;
            wrong += after.translations() != expected || !(after == text);
        };
        std::thread readers[readerCount];
        for (std::thread &reader : readers)
            reader = std::thread(read);
        for (std::thread &reader : readers)
            reader.join();
        QCOMPARE(wrong.load(), 0);
    }
}

QTEST_GUILESS_MAIN(tst_ValueTypes)
#include "tst_valuetypes.moc"
