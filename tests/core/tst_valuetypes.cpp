#include "guardedtest.h"

#include <NARV/INTERNAL/PluginMetaInformation>

#include <QTest>
#include <QVariant>

using VersionType = NARV::INTERNAL::PluginMetaInformation::VersionType;
using TranslationStringType = NARV::INTERNAL::PluginMetaInformation::TranslationStringType;

//! Versions and translatable texts.
class tst_ValueTypes : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void versionFromText_data();
    void versionFromText();
    void versionFromNumbers();
    void versionOrder();
    void translationLookUp();
    void translationContents();
};

void tst_ValueTypes::versionFromText_data()
{
    QTest::addColumn<QString>("canonical"); // empty: invalid
    const struct
    {
        const char *text;
        const char *canonical;
    } rows[] = {
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
    for (const auto &row : rows)
        QTest::newRow(row.text) << QString::fromLatin1(row.canonical);
    QTest::newRow("megabyte of dots") << QString();
}

void tst_ValueTypes::versionFromText()
{
    QFETCH(QString, canonical);
    const bool isLong = QByteArray(QTest::currentDataTag()) == "megabyte of dots";
    const QString text =
        isLong ? QString(1 << 20, QLatin1Char('.')) : QString::fromLatin1(QTest::currentDataTag());
    const VersionType version(text);
    QCOMPARE(version.version(), canonical);
    QCOMPARE(version.isValid(), !canonical.isEmpty());
    if (canonical.isEmpty())
        QVERIFY(!version.versionMajor() && !version.versionMinor() && !version.versionPatch());
}

void tst_ValueTypes::versionFromNumbers()
{
    const VersionType version(1000000000, 2, 4294967295);
    QVERIFY(version.isValid());
    QCOMPARE(version.version(), QStringLiteral("1000000000.2.4294967295"));
    QCOMPARE(version.versionMajor(), 1000000000u);
    QCOMPARE(version.versionMinor(), 2u);
    QCOMPARE(version.versionPatch(), 4294967295u);
    QVERIFY(VersionType() == VersionType(0, 0, 0));
    QVERIFY(!VersionType().isValid());
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
    const QString english = QStringLiteral("en-US");
    const QString italian = QStringLiteral("it-IT");
    TranslationStringType text;
    QVERIFY(text.get(english, true).isNull());
    text.set(italian, QStringLiteral("Livello"));
    QCOMPARE(text.get(english, false), QString());
    QVERIFY(text.get(english, true).isNull());
    text.set(english, QStringLiteral("Level"));
    QCOMPARE(text.get(QStringLiteral("de-DE"), true), QStringLiteral("Level"));
    QCOMPARE(text.get(QStringLiteral("de-DE"), false), QString());
    text.set(italian, QLatin1String(""));
    QCOMPARE(text.get(italian, true), QString());
    QVERIFY(text.contains(italian));
    QCOMPARE(text.keys(), (QList<QString>{english, italian}));
}

void tst_ValueTypes::translationContents()
{
    TranslationStringType text;
    text.setComment(QStringLiteral("of a tank"));
    QVERIFY(text.isEmpty());
    text.set(QStringLiteral("en-US"), QStringLiteral("Level"));
    QVERIFY(!text.isEmpty());

    TranslationStringType other = text;
    QVERIFY(other == text);
    other.setComment(QString());
    QVERIFY(other != text);
    other = text;
    other.set(QStringLiteral("de-DE"), QString());
    QVERIFY(other != text);

    const QVariant travelling = QVariant::fromValue(text);
    QCOMPARE(travelling.typeName(), "NARV::INTERNAL::PluginMetaInformation::TranslationStringType");
    QVERIFY(travelling.value<TranslationStringType>() == text);

    text.clear();
    QVERIFY(text.isEmpty() && text.comment().isEmpty());
    QVERIFY(text == TranslationStringType());
}

QTEST_GUILESS_MAIN(tst_ValueTypes)
#include "tst_valuetypes.moc"
