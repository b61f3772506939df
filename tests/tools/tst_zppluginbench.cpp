#include "guardedtest.h"

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

static const char *const plugin = GALLERY_DIR;
static const char *const example = PROJECT_DIR "/docs/gallery-page.json"; // of the pages to read

//! A scene file: the widgets are in line 2, the test data begins in line 3.
static QByteArray scene(const QByteArray &widgets, const QByteArray &data)
{
    return R"({"format": "zpplugin-bench-page", "version": 1, "plugin": ")" GALLERY_ID
           R"(", "page": {"size": [300, 200], "background": "#ff102030"},
"widgets": [)" +
           widgets + "],\n\"data\": {" + data + "}}";
}

static QByteArray gauge(const QByteArray &more = {})
{
    return R"({"name": "g", "widget": "gauge", "version": "1.1.0", "position": [50, 0], "size": [200, 200])" +
           more + "}";
}

static const struct
{
    const char *name;
    QByteArray text;
} files[] = {
    {"page.json", scene(gauge(R"(, "bindings": {"value": "level"})"),
                        R"("tags": [{"name": "level", "type": "double",
"generator": {"kind": "ramp", "period": 40000, "minimum": 0, "maximum": 100}}])")},
    {"syntax.json", "{\"format\": \"zpplugin-bench-page\",\n \"version\": 1,}"},
    {"key.json", scene(R"({"nam": "g"})", "")},
    {"twice.json", scene(gauge() + ",\n" + gauge(), "")},
    {"tag.json", scene("", "\n\"tags\": [{\"name\": \"t\", \"type\": \"decimal\"}]")},
    {"field.json", scene(gauge(R"(, "fields": {"gone": 1})"), "")},
    {"widget.json", scene(R"({"name": "p", "widget": "teapot", "version": "1.0.0",
"position": [0, 0], "size": [10, 10]})",
                          "")},
    {"text.so", "no library"},
};

static const struct
{
    const char *name; // the arguments; PLUGIN is the gallery
    int exitCode;
    const char *text;
} usageRows[] = {
    {"--help", 0, "--render <OUT.png>"},
    {"--version", 0, "zpplugin-bench "},
    {"", 2, "There is no display."},
    {"PLUGIN", 2, "'zpplugin-bench --render OUT.png PLUGIN' needs none."},
    {"--help-all", 2, "help-all"},
    {"--frobnicate", 2, "frobnicate"},
    {"a b", 2, "'b'"},
    {"--render", 2, "Missing value"},
    {"--render o.png", 2, "needs a file and a plugin"},
    {"--render o.png no/such/folder", 2, "'no/such/folder'"},
    {"--render o.png --scene no.json PLUGIN", 2, "'no.json'"},
    {"--render o.png --scene page.json --widget gauge PLUGIN", 2, "--scene or --widget"},
    {"--render o.png --size 800 PLUGIN", 2, "from 1 to 16384, as in 800x480, not '800'"},
    {"--render o.png --size 0x10 PLUGIN", 2, "not '0x10'"},
    {"--render o.png --size 10x16385 PLUGIN", 2, "not '10x16385'"},
    {"--render o.png --mode both PLUGIN", 2, "not 'both'"},
    {"--render o.png --at soon PLUGIN", 2, "from 0 to 86400, not 'soon'"},
    {"--render o.png --at -1 PLUGIN", 2, "not '-1'"},
    {"--render o.png --at nan PLUGIN", 2, "not 'nan'"},
    {"--render o.png --language it PLUGIN", 2, "as in it-IT, not 'it'"},
    {"--at 1 PLUGIN", 2, "--at needs --render"},
    {"--size 1x1 PLUGIN", 2, "--size needs --render"},
    {"--widget gauge PLUGIN", 2, "--widget needs --render"},
    {"--render o.png --widget dial PLUGIN", 1, "no widget 'dial'; there are alarmList, bar, "},
    {"--render no/such/o.png PLUGIN", 1, "no/such/o.png cannot be written"},
    {"--render . PLUGIN", 1, ". cannot be written"},
    {"--render o.png .", 1, "The folder has no library for this machine\n"},
    {"--render o.png text.so", 1, "The file is no usable library\n"},
    {"--render o.png --scene syntax.json PLUGIN", 1, "syntax.json:2:16: object is missing"},
    {"--render o.png --scene key.json PLUGIN", 1, "key.json:2:13: widgets[0].name: is missing"},
    {"--render o.png --scene twice.json PLUGIN", 1, "twice.json:3:10: widgets[1].name: another"},
    {"--render o.png --scene tag.json PLUGIN", 1, "tag.json:4:32: data.tags[0].type: is none of"},
    {"--render o.png --language fr-FR PLUGIN", 1, "no texts in fr-FR, but in en-US"},
    {"--render o.png --scene widget.json PLUGIN", 1, "p: the library has no widget \"teapot\""},
    {"--render o.png --scene field.json PLUGIN", 1, "g: there is no field \"gone\" any more"},
};

//! The same arguments give the same picture at any time, others give another one.
static const struct
{
    const char *name; // the arguments
    QSize size;       // empty for any
    const char *otherArguments;
} pictureRows[] = {
    {"", {}, "--mode runtime"},
    {"--mode runtime --at 20", {}, "--mode runtime --at 0"},
    {"--scene page.json --mode runtime --at 10.4",
     {300, 200},
     "--scene page.json --mode runtime --at 10"},
    {"--language it-IT", {}, "--language de-DE"},
    {"--widget gauge", {200, 200}, "--widget bar"},
    {"--widget gauge --size 320x240", {320, 240}, "--widget gauge --size 240x320"},
    {"--size 400x300", {400, 300}, "--size 401x300"},
    {"--scene page.json --mode runtime --at 10", {300, 200}, "--scene page.json --mode runtime"},
    {"--scene EXAMPLE --mode runtime --at 27", {800, 480}, "--scene EXAMPLE"},
    {"--scene page.json --size 60x50", {60, 50}, "--scene page.json"},
};

namespace {

struct Outcome
{
    int exitCode = -1;
    QString out;
    QString err;
};

} // namespace

//! The program zpplugin-bench, as it runs on a machine without a display.
class tst_ZppluginBench : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void usage_data() { addRows(usageRows); }
    void usage();
    void pictures_data() { addRows(pictureRows); }
    void pictures();
    void picturesAgain_data() { addRows(pictureRows); }
    void picturesAgain();
    void sceneIsDrawn();

private:
    Outcome run(const QString &arguments) const;
    QByteArray picture(const char *arguments) const;

    QTemporaryDir m_dir;
    QHash<QByteArray, QByteArray> m_pictures; // by arguments
};

void tst_ZppluginBench::initTestCase()
{
    for (const auto &[name, text] : files) {
        QFile file(m_dir.filePath(u(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.write(text) > 0);
    }
}

Outcome tst_ZppluginBench::run(const QString &arguments) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(u(name));
    QStringList words = arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    words.replaceInStrings(u("PLUGIN"), u(plugin));
    words.replaceInStrings(u("EXAMPLE"), u(example));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(m_dir.path());
    process.start(QStringLiteral(ZPPLUGIN_BENCH), words);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

//! The bytes of the file, empty if there is a word on what is wrong with it.
QByteArray tst_ZppluginBench::picture(const char *arguments) const
{
    QFile file(m_dir.filePath(u("picture.png")));
    file.remove();
    const Outcome outcome = run(u("--render picture.png %1 PLUGIN").arg(u(arguments)));
    const bool isGood = outcome.exitCode == 0 && outcome.err.isEmpty() && outcome.out.isEmpty();
    return isGood && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_ZppluginBench::usage()
{
    const auto &[arguments, exitCode, text] = currentRow(usageRows);
    const Outcome outcome = run(u(arguments));
    QCOMPARE(outcome.exitCode, exitCode);
    const QString &expected = exitCode == 0 ? outcome.out : outcome.err;
    QVERIFY2(expected.contains(u(text)), qPrintable(expected));
    QCOMPARE(exitCode == 0 ? outcome.err : outcome.out, QString());
    QVERIFY(exitCode == 0 || expected.startsWith(u("zpplugin-bench: ")));
}

void tst_ZppluginBench::pictures()
{
    const auto &[arguments, size, otherArguments] = currentRow(pictureRows);
    const QByteArray first = picture(arguments);
    const QImage image = QImage::fromData(first, "PNG");
    QVERIFY(!image.isNull());
    QVERIFY(size.isEmpty() || image.size() == size);
    const QByteArray other = picture(otherArguments);
    QVERIFY(!other.isEmpty() && other != first);
    m_pictures.insert(arguments, first);
}

// The clocks have gone on since they were drawn.
void tst_ZppluginBench::picturesAgain()
{
    const auto &[arguments, size, otherArguments] = currentRow(pictureRows);
    QVERIFY(m_pictures.contains(arguments));
    QVERIFY(m_pictures[arguments] == picture(arguments));
}

void tst_ZppluginBench::sceneIsDrawn()
{
    const QImage image = QImage::fromData(picture("--scene page.json"));
    QCOMPARE(image.pixelColor(0, 0), QColor(0x10, 0x20, 0x30));
    QVERIFY(image.pixelColor(image.rect().center()) != image.pixelColor(0, 0));
}

QTEST_GUILESS_MAIN(tst_ZppluginBench)

#include "tst_zppluginbench.moc"
