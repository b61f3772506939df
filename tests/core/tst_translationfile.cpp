#include "guardedtest.h"

#include <NARV/INTERNAL/PluginUtils>

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

using NARV::INTERNAL::PluginUtils;
using TranslationStringType = NARV::INTERNAL::PluginMetaInformation::TranslationStringType;
using Texts = QList<TranslationStringType>;

static const QString english = QStringLiteral("en-US");
static const QString italian = QStringLiteral("it-IT");

//! Importing translation files.
class tst_TranslationFile : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void rows_data();
    void rows();
    void merges();
    void keepsListOnFailure();
    void ignoresMissing();
    void translatesIntoItsOwnLanguage();
    void readsHostileFiles();
    void readsTextsMadeToCollide();

private:
    bool import(const QByteArray &content, Texts &list, const QString &language = italian,
                bool addMissing = true);

    QTemporaryDir m_dir;
};

bool tst_TranslationFile::import(const QByteArray &content, Texts &list, const QString &language,
                                 bool addMissing)
{
    QFile file(m_dir.filePath(QStringLiteral("texts.csv")));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    file.close();
    return PluginUtils::importTranslationFile(file.fileName(), list, english, language, addMissing);
}

static TranslationStringType entry(const QString &text, const QString &comment,
                                   const QString &translation)
{
    TranslationStringType result;
    result.set(english, text);
    result.set(italian, translation);
    result.setComment(comment);
    return result;
}

//! "source|comment|translation" of each entry.
static QStringList described(const Texts &list)
{
    QStringList lines;
    for (const TranslationStringType &text : list)
        lines +=
            QStringList{text.get(english, false), text.comment(), text.get(italian, false)}.join(
                QLatin1Char('|'));
    return lines;
}

void tst_TranslationFile::rows_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QStringList>("entries");
    const auto row = [](const char *name, const QByteArray &content, bool ok,
                        const QStringList &entries = {}) {
        QTest::newRow(name) << content << ok << entries;
    };
    const QStringList one{QStringLiteral("On|lamp|Acceso")};
    row("empty file", "", true);
    row("header only", "anything, at, all, here", true);
    row("one row", "h\nOn,lamp,Acceso\n", true, one);
    row("no final line feed", "h\nOn,lamp,Acceso", true, one);
    row("carriage returns", "h\r\nOn,lamp,Acceso\r\n", true, one);
    row("byte order mark", "\xef\xbb\xbfh\nOn,lamp,Acceso\n", true, one);
    row("blanks stay", "h\n On ,, x \n", true, {QStringLiteral(" On || x ")});
    row("quoted commas", "h\n\"a,b\",c,\"d,e\"\n", true, {QStringLiteral("a,b|c|d,e")});
    row("doubled quote", "h\n\"a\"\"b\",c,d\n", true, {QStringLiteral("a\"b|c|d")});
    row("quotes inside a field", "h\na\"b,c\"d,e,f\n", true, {QStringLiteral("ab,cd|e|f")});
    row("empty quoted field", "h\na,\"\",b\n", true, {QStringLiteral("a|\"|b")});
    row("open quote", "h\na,b,\"c\n", true, {QStringLiteral("a|b|c")});
    row("empty fields", "h\na,,\n", true, {QStringLiteral("a||")});
    row("comment makes the difference", "h\nOn,lamp,Acceso\nOn,power,Inserito\n", true,
        {QStringLiteral("On|lamp|Acceso"), QStringLiteral("On|power|Inserito")});
    row("same row twice", "h\nOn,lamp,Acceso\nOn,lamp,Acceso\n", true, one);
    row("translation filled in later", "h\nOn,lamp,\nOn,lamp,Acceso\n", true, one);
    row("contradiction", "h\nOn,lamp,Acceso\nOn,lamp,Attivo\n", false);
    row("two fields", "h\na,b\n", false);
    row("four fields", "h\na,b,c,d\n", false);
    row("blank line", "h\na,b,c\n\nd,e,f\n", false);
    row("carriage return inside", "h\na,\rb,c\n", true, {QStringLiteral("a|\rb|c")});
    row("utf-16", QByteArray("\xff\xfeh\0\n\0a\0,\0b\0,\0\xe8\0\n\0", 18), true,
        {QStringLiteral("a|b|è")});
    row("utf-8", "h\nä,€,è\n", true, {QStringLiteral("ä|€|è")});
}

void tst_TranslationFile::rows()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, ok);
    QFETCH(QStringList, entries);
    Texts list;
    QCOMPARE(import(content, list), ok);
    QCOMPARE(described(list), entries);
}

void tst_TranslationFile::merges()
{
    Texts list{entry(QStringLiteral("On"), QStringLiteral("lamp"), QString())};
    QVERIFY(import("h\nOff,,Spento\nOn,lamp,Acceso\n", list));
    QCOMPARE(list.size(), 2);
    QVERIFY(list[0] ==
            entry(QStringLiteral("On"), QStringLiteral("lamp"), QStringLiteral("Acceso")));
    QVERIFY(list[1] == entry(QStringLiteral("Off"), QString(), QStringLiteral("Spento")));
    QVERIFY(import("h\nOn,lamp,An\n", list, QStringLiteral("de-DE")));
    QCOMPARE(list.size(), 2);
    QCOMPARE(list[0].get(QStringLiteral("de-DE"), false), QStringLiteral("An"));
    QCOMPARE(list[1].get(QStringLiteral("de-DE"), true), QStringLiteral("Off"));
}

void tst_TranslationFile::keepsListOnFailure()
{
    const Texts before{entry(QStringLiteral("On"), {}, QString()),
                       entry(QStringLiteral("Off"), {}, QStringLiteral("Spento"))};
    Texts list = before;
    QVERIFY(!import("h\nNew,,Nuovo\nOn,,Acceso\nOff,,Chiuso\n", list));
    QVERIFY(list == before);
    QVERIFY(!import("h\nOn,,Acceso\n\n", list, QStringLiteral("de-DE")));
    QVERIFY(list == before);
    QVERIFY(!PluginUtils::importTranslationFile(m_dir.filePath(QStringLiteral("absent")), list,
                                                english, italian, true));
    QVERIFY(!PluginUtils::importTranslationFile(m_dir.path(), list, english, italian, true));
    QVERIFY(list == before);
}

void tst_TranslationFile::ignoresMissing()
{
    Texts list{entry(QStringLiteral("On"), {}, QString())};
    QVERIFY(import("h\nOn,,Acceso\nOff,,Spento\n", list, italian, false));
    QCOMPARE(described(list), QStringList{QStringLiteral("On||Acceso")});
}

// The one case in which a row changes the text by which entries are found.
void tst_TranslationFile::translatesIntoItsOwnLanguage()
{
    Texts list{entry({}, QStringLiteral("c"), {}), entry({}, QStringLiteral("c"), {})};
    QVERIFY(import("h\n,c,A\n,c,B\n,c,C\nC,c,C\n,c,A\n", list, english));
    QCOMPARE(described(list), (QStringList{QStringLiteral("A|c|"), QStringLiteral("B|c|"),
                                           QStringLiteral("A|c|"), QStringLiteral("C|c|")}));
    QVERIFY(!import("h\n,c,D\n,c,E\nA,c,B\n", list, english));
    QCOMPARE(list.size(), 4);
}

void tst_TranslationFile::readsHostileFiles()
{
    Texts list;
    QVERIFY(import(QByteArray(50 << 20, 'x'), list)); // one line: the header
    QVERIFY(!import("h\n" + QByteArray(20 << 20, ','), list));
    QVERIFY(!import("h\n" + QByteArray(20 << 20, '"'), list));
    QVERIFY(list.isEmpty());
    QVERIFY(import(QByteArray("h\na\0b,\xff\xfe,\xed\xa0\x80\n", 13), list));
    QCOMPARE(list.size(), 1);
    QCOMPARE(list[0].get(english, false), QString::fromLatin1("a\0b", 3));

    QByteArray many("h\n");
    for (int i = 0; i < 50000; ++i)
        many += ",c,t" + QByteArray::number(i) + '\n';
    list.clear();
    QVERIFY(import(many, list, english));
    QCOMPARE(list.size(), 25000);
}

// The two pieces have the same CRC-32C, which is the toolkit's hash of a text on most machines, and
// so have all the texts made of them, with any seed.
void tst_TranslationFile::readsTextsMadeToCollide()
{
    const auto importMilliseconds = [&](const QByteArray &piece, const QByteArray &otherPiece) {
        static constexpr int count = 20000;
        QByteArray content("h\n");
        for (int i = 0; i < count; ++i) {
            for (int bit = 1; bit < count; bit *= 2)
                content += i & bit ? piece : otherPiece;
            content += ",,\n";
        }
        Texts list;
        QElapsedTimer timer;
        timer.start();
        return import(content, list) && list.size() == count ? timer.elapsed() : -1;
    };
    const qint64 harmless = importMilliseconds("aaaaaaaaaaa", "bbbbbbbbbbb");
    const qint64 crafted = importMilliseconds("aaaaaaaaaaa", "gmccmkmekko");
    QVERIFY(harmless >= 0 && crafted >= 0);
    QVERIFY2(crafted < 10 * harmless + 100, qPrintable(QString::number(crafted)));
}

QTEST_GUILESS_MAIN(tst_TranslationFile)
#include "tst_translationfile.moc"
