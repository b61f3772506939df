#include "guardedtest.h"

#include <QDir>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#ifdef Q_OS_UNIX
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace {

struct Outcome
{
    int exitCode = -1;
    QString out;
    QString err;
};

QString id(int number)
{
    return u("00000000-0000-4000-8000-00000000000%1").arg(number);
}

QString pluginsFolder()
{
    return QStringLiteral(PLUGINS_DIR);
}

QString folder(int number)
{
    return pluginsFolder() + QLatin1Char('/') + id(number);
}

//! The library in a plugin folder, whichever platform it is for.
QString library(int number)
{
    const QDir system(folder(number) + u("/linux"));
    const QString machine = system.entryList(QDir::Dirs | QDir::NoDotAndDotDot).value(0);
    return u("%1/%2/lib%3.so").arg(system.path(), machine, id(number));
}

//! Metadata of a plugin with one widget that has these fields.
QByteArray metaData(const QByteArray &fields, const QByteArray &more = {})
{
    return R"({"id": "0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11", "name": "N", "author": "A",
"version": "1.0.0", "widgets": [{"id": "w", "version": "1.0.0", "fields": [
)" + fields +
           "\n]}]" + more + "}";
}

} // namespace

static const QByteArray named = R"({"id": "b", "type": "bool", "display": ""},
{"id": "i", "type": "integer", "display": ""}, {"id": "d", "type": "double", "display": ""},
{"id": "o", "type": "option", "display": "", "options": [{"index": 0, "option": ""}]},
{"id": "r", "type": "string", "display": "", "requirements": ")";
static const QString lastWords = u("\n    | last record\n    | last words");

static const struct
{
    const char *name; // the arguments
    int exitCode;
    const char *text;
} usageRows[] = {
    {"--help", 0, "list"},
    {"--version", 0, "zpplugin "},
    {"check --help", 0, "Exit code"},
    {"list -h", 0, "--disabled <ID>"},
    {"", 2, "Which command?"},
    {"descibe", 2, "did you mean \"describe\"?"},
    {"list", 2, "DIR is missing"},
    {"list a b", 2, "'b'"},
    {"list no/such/folder", 2, "'no/such/folder'"},
    {"list . --disabled", 2, "Missing value"},
    {"check --frobnicate x", 2, "frobnicate"},
    {"check nothing.json", 2, "'nothing.json'"},
    {"check /dev/zero", 2, "'/dev/zero'"},
    {"check . --timeout 0", 2, "from 1 to 3600"},
    {"describe . --language it", 2, "it-IT"},
    {"resources . out --language ../x", 2, "it-IT"},
    {"resources no/such/folder out", 2, "'no/such/folder'"},
    {"resources .", 2, "OUT is missing"},
};

static const struct
{
    const char *name;
    QByteArray json;      // fields start in line 3
    const char *findings; // "line:column code"; a warning ends in "?"
} fileRows[] = {
    {"fine", metaData(""), ""},
    {"empty", "", "1:1 json"},
    {"no object", "[1]", "1:1 json"},
    {"trailing comma", "{\n  \"a\": 1,\n}", "3:1 json"},
    {"after a character of two bytes", "{\"\xc3\xa4\" 1}", "1:6 json"},
    {"invalid text encoding", "{\"a\": \"\xff\"}", "1:8 json"},
    {"zero byte", QByteArray("{\"a\": \0 1}", 10), "1:7 json"},
    {"content behind the end", "{}\n{}", "2:1 json"},
    {"too deep", QByteArray(5000000, '['), "1:1025 json"},
    {"number too big", "{\"a\": 1e999}", "1:7 json"},
    {"only Qt accepts", metaData("", ",\n\"license\": \"a\tb\""), "5:14 json?"},
    {"missing keys", "\n {}", "2:2 6, 2:2 4, 2:2 8, 2:2 10"},
    {"byte-order mark", "\xef\xbb\xbf" + metaData("", ", \"copyright\": 1"), "4:19 12"},
    {"duplicate key", metaData("", ",\n\"name\": \"M\""), "5:1 duplicate-key"},
    {"fault in the later one of two", metaData("", ",\n\"license\": \"L\", \"license\": 1"),
     "5:17 duplicate-key, 5:28 14"},
    {"fault in the lost one of two", metaData("", ",\n\"license\": 1, \"license\": \"L\""),
     "5:15 duplicate-key"},
    {"missing in the later one of two",
     "{\"widgets\": [{\"id\": \"a\", \"version\": \"1.0.0\"}], \"id\": "
     "\"0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11\",\n"
     "\"name\": \"N\", \"author\": \"A\", \"version\": \"1.0.0\", \"widgets\": [{\"id\": "
     "\"a\"}]}",
     "2:49 duplicate-key, 2:61 10005"},
    {"unknown keys", metaData("", ", \"$schema\": \"x\",\n\"a.b[0]\": 1, \"licens\": \"L\""),
     "5:1 unknown-key?, 5:14 unknown-key?"},
    {"same widget", R"({"id": "0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11", "name": "N",
"author": "A", "version": "1.0.0", "widgets": [{"id": "w", "version": "1.0.0"},
{"id": "w", "version": "1.0.1"}, {"id": "w", "version": "01.0.0"}]})",
     "3:41 duplicate-widget?"},

    {"every fault of a field",
     metaData(R"({"id": "-", "type": "integer", "display": 1, "minimum": "1", "private": 0})"),
     "3:8 10014, 3:43 10016, 3:57 10034, 3:73 10037"},
    {"fields without effect", metaData(R"({"id": "a", "type": "bool", "display": "", "minimum": 1},
{"id": "b", "type": "string", "display": "", "defaultFont": {}, "mulitLanguage": true})"),
     "3:44 ignored-key?, 4:46 ignored-key?, 4:65 unknown-key?"},
    {"numbers", metaData(R"({"id": "a", "type": "integer", "display": "", "maximum": 1e10},
{"id": "b", "type": "double", "display": "", "maximum": 1e10, "defaultValue": 0.5},
{"id": "c", "type": "integer", "display": "", "maximum": 7.0, "minimum": -0.5})"),
     "3:58 number?, 5:74 number?"},
    {"default outside the bounds",
     metaData(R"({"id": "a", "type": "integer", "display": "", "minimum": 1, "defaultValue": 0},
{"id": "b", "type": "double", "display": "", "maximum": -1},
{"id": "c", "type": "double", "display": "", "maximum": 1, "minimum": 1, "defaultValue": 1})"),
     "3:77 default-value?, 4:1 default-value?"},
    {"options", metaData(R"({"id": "a", "type": "option", "display": "", "options": [
{"index": 0, "option": "A"}, {"index": 0.5, "option": "B", "text": ""}]})"),
     "4:40 number?, 4:40 duplicate-option?, 4:60 unknown-key?"},
    {"colours", metaData(R"({"id": "a", "type": "color", "display": "", "defaultValue": "rot"},
{"id": "b", "type": "color", "display": "", "defaultValue": "#80ff0000"})"),
     "3:61 color?"},
    {"texts by number",
     metaData(R"({"id": "a", "type": "stringMap", "display": "", "defaultValue": [
{"id": 1, "value": "a"}, {"id": 1, "value": "b"}]})"),
     "4:33 duplicate-id?"},
    {"requirements", metaData(named + "b && b==true && i>-1 || d<0.5 && o==0 && o>3\"}"), ""},
    {"number for bool", metaData(named + "b==1\"}"), "6:62 requirements?"},
    {"bool in an order", metaData(named + "b<true\"}"), "6:62 requirements?"},
    {"integer for bool", metaData(named + "i\"}"), "6:62 requirements?"},
    {"bool for integer", metaData(named + "i==true\"}"), "6:62 requirements?"},
    {"fraction for integer", metaData(named + "i>0.5\"}"), "6:62 requirements?"},
    {"bool for double", metaData(named + "d==false\"}"), "6:62 requirements?"},
    {"no such option", metaData(named + "o==1\"}"), "6:62 requirements?"},
};

static const struct
{
    const char *name;
    int number;
    QStringList findings;
} pluginRows[] = {
    {"prints", 1, {}},
    {"crashes",
     2,
     {u("error: crashed with signal 11 (SIGSEGV) while loading [crash]") + lastWords}},
    {"hangs", 3, {u("error: did not answer within 2 s while loading [timeout]") + lastWords}},
    {"throws",
     4,
     {u("error: the plugin threw an exception: no \\u001b[31mlicense [load]") + lastWords}},
    {"exits",
     5,
     {u("error: ended the process with exit code 3 while loading [crash]") + lastWords}},
    {"lacks symbols",
     6,
     {u("error: unresolved symbol: Elsewhere::defined(int) [symbol]"),
      u("error: unresolved symbol: elsewhere() [symbol]")}},
    {"throws in load()", 7, {u("error: the plugin threw an exception: no database [log]")}},
    {"crashes late", 8, {u("error: crashed with signal 11 (SIGSEGV) while unloading [crash]")}},
    {"is not what it says",
     9,
     {u("warning: widgets[0].fields[0].mininum: unknown key"),
      QStringLiteral("error: widget \"declared\" 1.0.0 is declared in the metadata but not "
                     "registered [registration]"),
      QStringLiteral("error: widget \"gauge\" 1.0.0 is declared in the metadata but not "
                     "registered, registered is version 1.0 [registration]"),
      u("error: widget \"extra\" 1.0.0 is registered but not declared"),
      u("error: widget \"gauge\" 1.0 is registered but not declared"),
      u("error: widget class of widget \"extra\" 1.0.0: none is registered"),
      QStringLiteral("Gauge can not be constructed: found Gauge(WidgetData), needed Q_INVOKABLE "
                     "Gauge(const NARV::WidgetData &) [constructor]"),
      QStringLiteral("GaugeItem can not be constructed: found no invokable constructor, needed "
                     "Q_INVOKABLE GaugeItem(const NARV::GraphicsObjectData &) [constructor]"),
      u("error: there is no translation file for de-DE"),
      QStringLiteral("warning: no it-IT translation of \"Untranslated\" with the comment \"C\"")}},
};

class tst_Zpplugin : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void usage_data() { addRows(usageRows); }
    void usage();
    void metaDataFile_data() { addRows(fileRows); }
    void metaDataFile();
    void metaDataFileTexts();
    void strictAndQuiet();
    void largeMetaDataFile_data();
    void largeMetaDataFile();
    void list();
    void checkPlugin_data() { addRows(pluginRows); }
    void checkPlugin();
    void checkPatchedLibrary_data();
    void checkPatchedLibrary();
    void checkPlatforms();
    void describe();
    void describeJson();
    void describeWithoutLoading();
    void resources();
    void colours();

private:
    Outcome run(const QStringList &arguments);
    QString writeFile(const QString &name, const QByteArray &content);

    QTemporaryDir m_dir;
};

Outcome tst_Zpplugin::run(const QStringList &arguments)
{
    QProcess process;
    process.setWorkingDirectory(m_dir.path());
    // Without a display, and with a platform that would need one.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(u("DISPLAY"));
    environment.insert(u("QT_QPA_PLATFORM"), u("xcb"));
    // Qt's JSON reader leaks the first of two arrays under the same key.
    environment.insert(u("LSAN_OPTIONS"), u("detect_leaks=0"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(ZPPLUGIN), arguments);
    process.waitForFinished(100000);
    Outcome outcome;
    if (process.exitStatus() == QProcess::NormalExit)
        outcome.exitCode = process.exitCode();
    outcome.out = QString::fromUtf8(process.readAllStandardOutput());
    outcome.err = QString::fromUtf8(process.readAllStandardError());
    return outcome;
}

QString tst_Zpplugin::writeFile(const QString &name, const QByteArray &content)
{
    QFile file(m_dir.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("can not write %s", qPrintable(file.fileName()));
    return file.fileName();
}

// Help goes to standard output, complaints to standard error.
void tst_Zpplugin::usage()
{
    const auto &[arguments, exitCode, text] = currentRow(usageRows);
    const Outcome outcome = run(u(arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts));
    QCOMPARE(outcome.exitCode, exitCode);
    const QString &expected = exitCode == 0 ? outcome.out : outcome.err;
    const QString &other = exitCode == 0 ? outcome.err : outcome.out;
    QVERIFY2(expected.contains(u(text)), qPrintable(expected));
    QCOMPARE(other, QString());
}

void tst_Zpplugin::metaDataFile()
{
    const auto &row = currentRow(fileRows);
    const QString file = writeFile(u("a.json"), row.json);
    const Outcome outcome = run({u("check"), u("--quiet"), file});

    QStringList found;
    bool hasErrors = false;
    static const QRegularExpression pattern(
        u("^(.*/a\\.json):(\\d+:\\d+): (error|warning): .+ \\[([a-z0-9-]+)\\]$"));
    for (const QString &line : outcome.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const QRegularExpressionMatch match = pattern.match(line);
        QVERIFY2(match.hasMatch(), qPrintable(line));
        QCOMPARE(match.captured(1), file);
        const bool isError = match.captured(3) == QLatin1String("error");
        found += match.captured(2) + QLatin1Char(' ') + match.captured(4) +
                 QLatin1String(isError ? "" : "?");
        hasErrors |= isError;
    }
    QCOMPARE(found.join(u(", ")), u(row.findings));
    QCOMPARE(outcome.exitCode, hasErrors ? 1 : 0);
    QCOMPARE(outcome.err, QString());
}

void tst_Zpplugin::metaDataFileTexts()
{
    const QString file = writeFile(
        u("a.json"),
        metaData(R"({"id": "a", "type": "integer", "display": "", "minimun": 1, "maximum": true},
{"id": "\u001b[31m\u202e", "type": "trend", "display": "", "tagCanBeAttached": true})"));
    const Outcome outcome = run({u("check"), u("a.json")});
    const QStringList expected{
        QStringLiteral("a.json:3:47: warning: unknown key \"minimun\", did you mean \"minimum\"? "
                       "[unknown-key]"),
        QStringLiteral("a.json:3:72: error: MetaData/widgets/fields/maximum attribute is not "
                       "valid: a number is needed [10035]"),
        u("a.json: 3 errors, 1 warning"),
    };
    for (const QString &line : expected)
        QVERIFY2(outcome.out.split(QLatin1Char('\n')).contains(line), qPrintable(outcome.out));
    QVERIFY(!outcome.out.contains(QLatin1Char('\033')));
    QVERIFY(!outcome.out.contains(QChar(0x202e)));
}

void tst_Zpplugin::strictAndQuiet()
{
    const QString fine = writeFile(u("fine.json"), metaData(""));
    const QString doubtful = writeFile(u("doubtful.json"), metaData("", ",\"x\":1"));
    const QString check = u("check");
    const QString strict = u("--strict");
    QCOMPARE(run({check, u("--quiet"), fine}).out, QString());
    QVERIFY(run({check, fine}).out.endsWith(QLatin1String(": no errors, no warnings\n")));
    QCOMPARE(run({check, strict, fine}).exitCode, 0);
    QCOMPARE(run({check, doubtful}).exitCode, 0);
    QCOMPARE(run({check, strict, doubtful}).exitCode, 1);
}

void tst_Zpplugin::largeMetaDataFile_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<int>("findings");
    const int count = 20000;
    QByteArray fields;
    QByteArray duplicates;
    for (int i = 0; i < count; ++i) {
        const QByteArray number = QByteArray::number(i);
        fields += R"({"id": "f)" + number + R"(", "type": "bool", "display": "", "x": 1},)";
        duplicates += ",\"name\": \"N\"";
    }
    fields.chop(1);
    QTest::newRow("fields in one line") << metaData(fields) << count;
    QTest::newRow("duplicate keys in one line") << metaData("", duplicates) << count;
    QTest::newRow("long unknown key")
        << metaData("", ",\"" + QByteArray(5000000, 'k') + "\": 1") << 1;
}

// Work that grows with the square of the size takes minutes here.
void tst_Zpplugin::largeMetaDataFile()
{
    QFETCH(QByteArray, json);
    QFETCH(int, findings);
    const QString file = writeFile(u("large.json"), json);
    QElapsedTimer timer;
    timer.start();
    const Outcome outcome = run({u("check"), u("--quiet"), file});
    QCOMPARE(outcome.out.count(QLatin1Char('\n')), findings);
    QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
}

void tst_Zpplugin::list()
{
    const Outcome outcome = run({u("list"), pluginsFolder(), u("--timeout"), u("2"),
                                 u("--disabled"), id(6), u("--disabled"), id(7)});
    const QStringList expected{
        u("ID +NAME +VERSION +AUTHOR +WIDGETS +LOADED IN"),
        id(1) + u("  PRINT +1\\.0\\.0 +A\\\\u001b\\[31m +0 +[0-9.]+ ms"),
        id(9) + u("  CONTENT +1\\.0\\.0 +A\\\\u001b\\[31m +2 +[0-9.]+ ms"),
        QString(),
        id(2) + u("  FAILED  crashed with signal 11 \\(SIGSEGV\\) while loading"),
        id(3) + u("  FAILED  did not answer within 2 s while loading"),
        id(4) + u("  FAILED  the plugin threw an exception: no \\\\u001b.*license"),
        id(5) + u("  FAILED  ended the process with exit code 3 while loading"),
        id(8) + u("  FAILED  crashed with signal 11 \\(SIGSEGV\\) while unloading"),
        QString(),
        u(".*/plugins: 2 plugins loaded, 5 failed, 2 disabled"),
        QString(),
    };
    const QStringList lines = outcome.out.split(QLatin1Char('\n'));
    QVERIFY2(lines.size() == expected.size(), qPrintable(outcome.out));
    for (int i = 0; i < lines.size(); ++i) {
        const QRegularExpression pattern(QRegularExpression::anchoredPattern(expected[i]));
        QVERIFY2(pattern.match(lines[i]).hasMatch(), qPrintable(lines[i]));
    }
    QCOMPARE(outcome.exitCode, 1);
}

void tst_Zpplugin::checkPlugin()
{
    const auto &[name, number, findings] = currentRow(pluginRows);
    const Outcome outcome = run({u("check"), library(number), u("--timeout"), u("2")});
    for (const QString &finding : findings)
        QVERIFY2(outcome.out.contains(finding), qPrintable(finding + outcome.out));
    const QRegularExpression line(u("\\.so: (error|warning): "));
    QCOMPARE(outcome.out.count(line), findings.size());
    QVERIFY(outcome.out.contains(u("interface      org.Mirt.NARV.WidgetLibrary\n")));
    QVERIFY(outcome.out.contains(u("built with Qt  5.15, ")));
    QCOMPARE(outcome.exitCode, findings.isEmpty() ? 0 : 1);
}

void tst_Zpplugin::checkPatchedLibrary_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("size"); // -1 for that of the library
    QTest::addColumn<QString>("text");

    const auto row = [](const char *name, int offset, const QByteArray &bytes, int size,
                        const char *text) {
        QTest::newRow(name) << offset << bytes << size << QString::fromLatin1(text);
    };
    // The number of another processor than this one's.
    const bool isArm = QSysInfo::buildCpuArchitecture().startsWith(QLatin1String("arm"));
    row("other machine", 18, QByteArray(isArm ? "\x3e\0" : "\xb7\0", 2), -1,
        isArm ? "it is ELF, x86-64, " : "it is ELF, AArch64, ");
    row("unknown machine", 18, "\xff\x7f", -1, "it is ELF, processor number 32767, ");
    row("cut off", 0, {}, 3000, "the file is cut off");
    row("cut off in the header", 0, {}, 20, "the file is cut off");
    row("section table beyond any end", 0x28, QByteArray(8, '\xff'), -1, "the file is cut off");
    row("no library", 0, "text", -1, "the file is no library");
    row("empty", 0, {}, 0, "the file is empty");
    QByteArray dll(0x100, '\0');
    dll.replace(0, 2, "MZ");
    dll[0x3c] = '\x80';
    dll.replace(0x80, 6, QByteArray("PE\0\0\x64\xaa", 6));
    dll.replace(0x80 + 22, 4, QByteArray("\x00\x20\x0b\x02", 4));
    row("for Windows", 0, dll, -1, "it is PE, AArch64, 64 bit");
    row("Windows header only", 0, "MZ", 64, "the file is no library");
}

void tst_Zpplugin::checkPatchedLibrary()
{
    QFETCH(int, offset);
    QFETCH(QByteArray, bytes);
    QFETCH(int, size);
    QFETCH(QString, text);
    QFile original(library(1));
    QVERIFY(original.open(QIODevice::ReadOnly));
    const QByteArray content = original.readAll().replace(offset, bytes.size(), bytes).mid(0, size);
    const QString patched = writeFile(u("patched.so"), content);
    const Outcome outcome = run({u("check"), u("--quiet"), patched});
    const QStringList lines = outcome.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QVERIFY2(lines.value(0).contains(text), qPrintable(outcome.out));
    QVERIFY(lines.value(0).endsWith(QLatin1String(" [architecture]")));
    QCOMPARE(lines.size(), 1);
    QCOMPARE(outcome.exitCode, 1);
}

void tst_Zpplugin::checkPlatforms()
{
    const QString plugin = m_dir.filePath(id(1));
    QVERIFY(QDir().mkpath(plugin + u("/win32/x64")));
    const QStringList check{u("check"), u("--quiet"), id(1)};
    const Outcome none = run(check);
    QVERIFY2(none.out.contains(u(": error: no library for win32/x86, win32/x64, ")),
             qPrintable(none.out));
    QCOMPARE(none.exitCode, 1);

    QVERIFY(QFile::copy(library(1), plugin + u("/win32/x64/%1.dll").arg(id(1))));
    const Outcome one = run(check);
    QVERIFY2(one.out.contains(u("win32/x64 is PE, x86-64, 64 bit [architecture]")),
             qPrintable(one.out));
    QVERIFY(one.out.contains(u(": warning: no library for win32/x86, linux/arm32")));
    QVERIFY(one.out.contains(u("the plugin's code was not checked")));
}

void tst_Zpplugin::describe()
{
    const QStringList describe{u("describe"), folder(9)};
    const QString own = run(describe).out;
    for (const char *line : {"CONTENT 1.0.0\n", "  translations          it-IT, de-DE\n",
                             "Widget gauge 1.0.0: Gauge\n", "  Field level (integer): Level\n",
                             "    default               0\n"})
        QVERIFY2(own.contains(QLatin1String(line)), qPrintable(own));

    const QStringList language{u("--language"), u("it-IT")};
    const Outcome italian = run(describe + language);
    QVERIFY2(italian.out.contains(u("Field level (integer): Livello\n")), qPrintable(italian.out));
    QVERIFY(italian.out.contains(u("Widget declared 1.0.0: Untranslated\n")));
    QCOMPARE(italian.err, QString());
    QCOMPARE(italian.exitCode, 0);
    const Outcome french = run(describe + QStringList{language[0], u("fr-FR")});
    QVERIFY2(french.err.contains(u("no texts in fr-FR")), qPrintable(french.err));
}

void tst_Zpplugin::describeJson()
{
    const QStringList arguments{u("describe"), u("--json"), library(9)};
    const auto fieldOf = [](const Outcome &outcome) {
        const QJsonObject plugin = QJsonDocument::fromJson(outcome.out.toUtf8()).object();
        return plugin[QLatin1String("widgets")][0][QLatin1String("fields")][0].toObject();
    };
    const QJsonObject all = fieldOf(run(arguments));
    const QJsonObject texts{{u("en-US"), u("Level")}, {u("it-IT"), u("Livello")}};
    QCOMPARE(all[QLatin1String("display")].toObject(), texts);
    QCOMPARE(all[QLatin1String("defaultValue")], QJsonValue(0));
    const QStringList italian{u("--language"), u("it-IT")};
    const QJsonObject one = fieldOf(run(arguments + italian));
    QCOMPARE(one[QLatin1String("display")].toString(), u("Livello"));

    // What the plugin prints is not taken for what the program that loads it reports.
    const Outcome printing = run({u("describe"), folder(1)});
    QVERIFY2(printing.out.startsWith(QLatin1String("PRINT 1.0.0\n")), qPrintable(printing.out));
}

void tst_Zpplugin::describeWithoutLoading()
{
    const Outcome crashing = run({u("describe"), folder(2)});
    QVERIFY2(crashing.out.startsWith(QLatin1String("CRASH 1.0.0\n")), qPrintable(crashing.out));
    QVERIFY(crashing.err.contains(u("(SIGSEGV) while loading")));
    QCOMPARE(crashing.exitCode, 1);
}

// What was done is told folder by folder, then what went wrong, then how much of each.
void tst_Zpplugin::resources()
{
    const QString plugins = m_dir.filePath(u("plugins"));
    const QString out = m_dir.filePath(u("out"));
    const auto check = [&](const QString &place, int exitCode, const QStringList &lines) {
        const Outcome outcome = run({u("resources"), plugins, place, u("--language"), u("it-IT")});
        QCOMPARE(outcome.out, lines.join(QLatin1Char('\n')) + QLatin1Char('\n'));
        QCOMPARE(outcome.exitCode, exitCode);
    };
    const QString line = u("%1 ") + id(9) + u(" Contenuto");
    QVERIFY(QDir().mkpath(plugins));
    check(out, 1,
          {u("error: no plugin was loaded from ") + plugins, out + u(": nothing was done")});
    QVERIFY(QFile::link(folder(9), plugins + QLatin1Char('/') + id(9)));
    check(out, 0, {line.arg(u("generated")), out + u(": 1 generated")});
    QVERIFY(QFile(out + QLatin1Char('/') + id(9) + u("/studio_properties.xml")).size() > 0);
    QVERIFY(QDir(out).mkdir(u("a\033b")));
    check(out, 0,
          {line.arg(u("kept     ")), u("removed   a\\u001bb"), out + u(": 1 kept, 1 removed")});
    QVERIFY(QFile::link(folder(4), plugins + QLatin1Char('/') + id(4)));
    const QString file = writeFile(u("file"), {});
    const Outcome failing = run({u("resources"), plugins, file});
    QCOMPARE(failing.exitCode, 1);
    QVERIFY(failing.out.contains(u("\nerror: dirPath must be a directory\n")));
    QVERIFY(failing.out.contains(u("threw an exception: no \\u001b")));
}

void tst_Zpplugin::colours()
{
#ifdef Q_OS_UNIX
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    QVERIFY(terminal >= 0 && grantpt(terminal) == 0 && unlockpt(terminal) == 0);
    const QString file = writeFile(u("a.json"), "{\n}");
    const auto output = [&](const QString &noColour) {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u("NO_COLOR"), noColour);
        environment.insert(u("TERM"), u("xterm"));
        process.setProcessEnvironment(environment);
        process.setStandardOutputFile(QString::fromLatin1(ptsname(terminal)));
        process.start(QStringLiteral(ZPPLUGIN), {u("check"), file});
        process.waitForFinished();
        char bytes[4096];
        const auto size = read(terminal, bytes, sizeof bytes);
        return QByteArray(bytes, qMax(0, static_cast<int>(size)));
    };
    QVERIFY(output({}).contains("\033[1;31merror:\033[0m "));
    const QByteArray plain = output(u("1"));
    QVERIFY(plain.contains(": error: ") && !plain.contains('\033'));
    close(terminal);
#else
    QSKIP("a pseudo terminal is needed");
#endif
}

QTEST_GUILESS_MAIN(tst_Zpplugin)

#include "tst_zpplugin.moc"
