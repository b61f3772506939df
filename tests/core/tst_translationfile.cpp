#include "guardedtest.h"

#include <NARV/INTERNAL/PluginUtils>

#include <QTemporaryDir>

using NARV::INTERNAL::PluginUtils;
using TranslationStringType = NARV::INTERNAL::PluginMetaInformation::TranslationStringType;
using Texts = QList<TranslationStringType>;

static const QString english = u("en-US");
static const QString italian = u("it-IT");

static const QStringList one{u("On|lamp|Acceso")};
static const struct
{
    const char *name;
    QByteArray content;
    bool ok;
    QStringList entries = {};
} fileRows[] = {
    {"empty file", "", true},
    {"header only", "anything, at, all, here", true},
    {"one row", "h\nOn,lamp,Acceso\n", true, one},
    {"no final line feed", "h\nOn,lamp,Acceso", true, one},
    {"carriage returns", "h\r\nOn,lamp,Acceso\r\n", true, one},
    {"byte order mark", "\xef\xbb\xbfh\nOn,lamp,Acceso\n", true, one},
    {"blanks stay", "h\n On ,, x \n", true, {u(" On || x ")}},
    {"quoted commas", "h\n\"a,b\",c,\"d,e\"\n", true, {u("a,b|c|d,e")}},
    {"doubled quote", "h\n\"a\"\"b\",c,d\n", true, {u("a\"b|c|d")}},
    {"quotes inside a field", "h\na\"b,c\"d,e,f\n", true, {u("ab,cd|e|f")}},
    {"empty quoted field", "h\na,\"\",b\n", true, {u("a|\"|b")}},
    {"open quote", "h\na,b,\"c\n", true, {u("a|b|c")}},
    {"empty fields", "h\na,,\n", true, {u("a||")}},
    {"comment makes the difference",
     "h\nOn,lamp,Acceso\nOn,power,Inserito\n",
     true,
     {u("On|lamp|Acceso"), u("On|power|Inserito")}},
    {"same row twice", "h\nOn,lamp,Acceso\nOn,lamp,Acceso\n", true, one},
    {"translation filled in later", "h\nOn,lamp,\nOn,lamp,Acceso\n", true, one},
    {"contradiction", "h\nOn,lamp,Acceso\nOn,lamp,Attivo\n", false},
    {"two fields", "h\na,b\n", false},
    {"four fields", "h\na,b,c,d\n", false},
    {"blank line", "h\na,b,c\n\nd,e,f\n", false},
    {"carriage return inside", "h\na,\rb,c\n", true, {u("a|\rb|c")}},
    {"utf-16", QByteArray("\xff\xfeh\0\n\0a\0,\0b\0,\0\xe8\0\n\0", 18), true, {u("a|b|è")}},
    {"utf-8", "h\nä,€,è\n", true, {u("ä|€|è")}},
};

//! Importing translation files.
class tst_TranslationFile : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void rows_data() { addRows(fileRows); }
    void rows();
    void merges();
    void keepsListOnFailure();
    void ignoresMissing();
    void translatesIntoItsOwnLanguage();
    void readsHostileFiles();

private:
    bool import(const QByteArray &content, Texts &list, const QString &language = italian,
                bool addMissing = true);

    QTemporaryDir m_dir;
};

bool tst_TranslationFile::import(const QByteArray &content, Texts &list, const QString &language,
                                 bool addMissing)
{
    QFile file(m_dir.filePath(u("texts.csv")));
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
            text.get(english, false) + u("|") + text.comment() + u("|") + text.get(italian, false);
    return lines;
}

void tst_TranslationFile::rows()
{
    const auto &row = currentRow(fileRows);
    Texts list;
    QCOMPARE(import(row.content, list), row.ok);
    QCOMPARE(described(list), row.entries);
}

void tst_TranslationFile::merges()
{
    Texts list{entry(u("On"), u("lamp"), QString())};
    QVERIFY(import("h\nOff,,Spento\nOn,lamp,Acceso\n", list));
    QCOMPARE(described(list), (QStringList{u("On|lamp|Acceso"), u("Off||Spento")}));
    QVERIFY(import("h\nOn,lamp,An\n", list, u("de-DE")));
    QCOMPARE(list.size(), 2);
    QCOMPARE(list[0].get(u("de-DE"), false), u("An"));
    QCOMPARE(list[1].get(u("de-DE"), true), u("Off"));
}

void tst_TranslationFile::keepsListOnFailure()
{
    const Texts before{entry(u("On"), {}, QString()), entry(u("Off"), {}, u("Spento"))};
    Texts list = before;
    QVERIFY(!import("h\nNew,,Nuovo\nOn,,Acceso\nOff,,Chiuso\n", list));
    QVERIFY(list == before);
    QVERIFY(!import("h\nOn,,Acceso\n\n", list, u("de-DE")));
    QVERIFY(list == before);
    QVERIFY(!PluginUtils::importTranslationFile(m_dir.filePath(u("absent")), list, english, italian,
                                                true));
    QVERIFY(!PluginUtils::importTranslationFile(m_dir.path(), list, english, italian, true));
    QVERIFY(list == before);
}

void tst_TranslationFile::ignoresMissing()
{
    Texts list{entry(u("On"), {}, QString())};
    QVERIFY(import("h\nOn,,Acceso\nOff,,Spento\n", list, italian, false));
    QCOMPARE(described(list), QStringList{u("On||Acceso")});
}

// The one case in which a row changes the text by which entries are found.
void tst_TranslationFile::translatesIntoItsOwnLanguage()
{
    Texts list{entry({}, u("c"), {}), entry({}, u("c"), {})};
    QVERIFY(import("h\n,c,A\n,c,B\n,c,C\nC,c,C\n,c,A\n", list, english));
    QCOMPARE(described(list), (QStringList{u("A|c|"), u("B|c|"), u("A|c|"), u("C|c|")}));
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

QTEST_GUILESS_MAIN(tst_TranslationFile)
#include "tst_translationfile.moc"
