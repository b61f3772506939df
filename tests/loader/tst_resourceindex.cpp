#include "resourcefixture.h"
#include "resourceindexaccess.h"

#include <QDir>

//! An entry as it should be, but for what the rows change.
static QByteArray entry(const QByteArray &from = {}, const QByteArray &to = {})
{
    QByteArray text = R"({"id": "0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11", "languageId": "en-US",
        "modification": "2021-03-04T10:11:12.345", "libraryVersion": "01.1.0", "more": 1})";
    return from.isEmpty() ? text : text.replace(from, to);
}

static QByteArray list(const QByteArray &entries)
{
    return R"({"extraResourceInfo": [)" + entries + "]}";
}

static const char invalid[] = "One or more extraResourceInfo elements are invalid";
static const char uuid[] = "0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11";

static const struct
{
    const char *name;
    QByteArray content;
    int entries;
    QString message; // "%1" stands for the path, "%2" for the id
} readRows[] = {
    {"empty object", "{}", 0, {}},
    {"something else", R"({"a": [1]})", 0, {}},
    {"empty list", list(""), 0, {}},
    {"one", list(entry()), 1, {}},
    {"two", list(entry() + "," + entry("0b5f3c0e", "0B5F3C0E")), 2, {}},
    {"braces", list(entry("\"0b", "\"{0b").replace("11\"", "11}\"")), 1, {}},
    {"no milliseconds", list(entry(".345", "")), 1, {}},
    {"empty file", "", 0, u("%1:0: error 5 -> illegal value")},
    {"syntax", R"({"%1": %2})", 0, u("%1:7: error 7 -> illegal number")},
    {"deep", QByteArray(5000000, '['), 0, u("%1:1025: error 12 -> too deeply nested document")},
    {"array", "[]", 0, u("%1 must contains a json object")},
    {"no list", R"({"extraResourceInfo": {}})", 0, u("extraResourceInfo is not an array")},
    {"null", R"({"extraResourceInfo": null})", 0, u("extraResourceInfo is not an array")},
    {"no objects", list(entry() + ",[]"), 0, u("extraResourceInfo is not an array of objects")},
    {"no id", list(entry("\"id\"", "\"i\"")), 0, u(invalid)},
    {"language is a number", list(entry("\"en-US\"", "1")), 0, u(invalid)},
    {"no version", list(entry("libraryVersion", "l")), 0, u(invalid)},
    {"nil id", list(entry(uuid, "00000000-0000-0000-0000-000000000000")), 0,
     u("extraResourceInfo element with id 00000000-0000-0000-0000-000000000000 is invalid")},
    {"path behind the id", list(entry(uuid, QByteArray(uuid) + "/../..")), 0,
     u("extraResourceInfo element with id %2/../.. is invalid")},
    {"path as id", list(entry(uuid, "%1/..")), 0,
     u("extraResourceInfo element with id %1/.. is invalid")},
    {"twice", list(entry() + "," + entry()), 0,
     u("extraResourceInfo element with id %2 is duplicated")},
    {"yesterday", list(entry("2021-03-04T10:11:12.345", "yesterday")), 0,
     u("extraResourceInfo element with id %2 has an invalid \"modification\" time")},
    {"version", list(entry("01.1.0", "1.%1")), 0,
     u("extraResourceInfo element with id 1.%1 has an invalid \"libraryVersion\"")},
};

static const char twoEntries[] = "{\n"
                                 "    \"extraResourceInfo\": [\n"
                                 "        {\n"
                                 "            \"id\": \"a\",\n"
                                 "            \"languageId\": \"\",\n"
                                 "            \"libraryVersion\": \"\",\n"
                                 "            \"modification\": \"2021-03-04T10:11:12.345\"\n"
                                 "        },\n"
                                 "        {\n"
                                 "            \"id\": \"b\",\n"
                                 "            \"languageId\": \"\\\"%1\",\n"
                                 "            \"libraryVersion\": \"1.1.0\",\n"
                                 "            \"modification\": \"2021-03-04T10:11:12.345\"\n"
                                 "        }\n"
                                 "    ]\n"
                                 "}\n";

//! The file by which the editor's resources are known to be up to date.
class tst_ResourceIndex : public ResourceFixture
{
    Q_OBJECT

private Q_SLOTS:
    void reads_data() { addRows(readRows); }
    void reads();
    void writesInOrder();
    void replacesFolders();
    void leavesDevicesAlone();

private:
    QString path() { return out(u("index.json")); }
};

void tst_ResourceIndex::reads()
{
    const auto &[name, content, entries, message] = currentRow(readRows);
    const ResourceIndex before{{u("before"), {}}};
    ResourceIndex index = before;
    QVERIFY(readResourceIndex(path(), index)); // no file yet
    writeFile(path(), content);
    QCOMPARE(readResourceIndex(path(), index), message.isNull());
    const bool isPath = message.startsWith(u("%1"));
    QString expected = message;
    expected.replace(u("%2"), u(uuid));
    if (isPath)
        expected.replace(0, 2, path());
    QCOMPARE(errors(), message.isNull() ? QStringList() : QStringList{expected});
    if (!message.isNull()) {
        QCOMPARE(index.keys(), before.keys());
        return;
    }
    QCOMPARE(index.size(), entries);
    for (const auto &data : qAsConst(index)) {
        QCOMPARE(data.libraryVersion, u("1.1.0"));
        QCOMPARE(data.languageId, u("en-US"));
        QCOMPARE(data.modification.date(), QDate(2021, 3, 4));
    }
    QVERIFY(writeResourceIndex(path(), index));
    ResourceIndex again;
    QVERIFY(readResourceIndex(path(), again));
    QCOMPARE(again.keys(), index.keys());
}

void tst_ResourceIndex::writesInOrder()
{
    const QDateTime time(QDate(2021, 3, 4), QTime(10, 11, 12, 345));
    QDir().mkpath(out());
    QVERIFY(writeResourceIndex(
        path(), {{u("b"), {time, u("\"%1"), u("1.1.0")}}, {u("a"), {time, {}, {}}}}));
    QCOMPARE(treeOf(out()), (Tree{{u("index.json"), twoEntries}}));
    QVERIFY(writeResourceIndex(path(), {}));
    QCOMPARE(treeOf(out()).first().simplified(), QByteArray("{ \"extraResourceInfo\": [ ] }"));
}

void tst_ResourceIndex::replacesFolders()
{
    writeFile(path() + u("/full/file"), "content");
    ResourceIndex index;
    QVERIFY(!readResourceIndex(path(), index));
    QVERIFY(writeResourceIndex(path(), {}));
    QCOMPARE(errors(), (QStringList{u("Index %1 is not a file").arg(path()),
                                    u("%1 opening error").arg(path()),
                                    u("Index %1 is not a file. Will be deleted").arg(path())}));
    QVERIFY(readResourceIndex(path(), index));
    QVERIFY(!writeResourceIndex(out(u("absent/index.json")), {}));
    QCOMPARE(errors(), QStringList{u("%1 opening error").arg(out(u("absent/index.json")))});
}

// Reading from it would not end.
void tst_ResourceIndex::leavesDevicesAlone()
{
    QDir().mkpath(out());
    QVERIFY(QFile::link(u("/dev/zero"), path()));
    ResourceIndex index;
    QVERIFY(!readResourceIndex(path(), index));
    QVERIFY(writeResourceIndex(path(), {}));
    QVERIFY(QFileInfo(path()).isFile() && QFileInfo::exists(u("/dev/zero")));
    QCOMPARE(errors().size(), 3);
}

QTEST_GUILESS_MAIN(tst_ResourceIndex)
#include "tst_resourceindex.moc"
