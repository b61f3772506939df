#include "console/logrelay.h"
#include "guardedtest.h"
#include "session/failurecard.h"
#include "session/pluginprobe.h"
#include "session/pluginsession.h"
#include "session/recentplugins.h"

#include <NARV/WidgetLibraryPlugin>

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>

#ifdef Q_OS_LINUX
#include <link.h>
#endif

using namespace NARV::DEV;
using Kind = LoadFailure::Kind;

//! Longer than the session takes to see that a file has come to rest.
static const int patienceMs = 10000;

static QString faulty(int number)
{
    return u(FAULTY_DIR "/00000000-0000-4000-8000-00000000000") + QString::number(number);
}

static QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

static void write(const QString &path, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

//! As a linker does.
static void replace(const QString &path, const QByteArray &content)
{
    write(path + u(".new"), content);
    QFile::remove(path);
    QVERIFY(QFile::rename(path + u(".new"), path));
}

static QStringList copies()
{
    return QDir::temp().entryList({u("zpplugin-bench-*")}, QDir::Dirs);
}

//! Whether the probe finds out, or loading in this process.
enum Way
{
    Reading,
    Probing,
    Loading
};

static const struct
{
    const char *name;
    Way way;
    Kind kind;
    int number;         // of the faulty plugin; 0: a file in the test's own folder
    const char *file;   // in the plugin or in that folder
    const char *words;  // that are among the failure's
    const char *advice; // that is in the failure's
} failureRows[] = {
    {"missing", Reading, Kind::Missing, 0, "missing.so", "missing.so", "has been moved to"},
    {"no library", Reading, Kind::NoLibrary, 0, "empty", "Looked for ", "for this machine"},
    {"text", Reading, Kind::NoUsableFile, 0, "text.so", "no library", "no library"},
    {"cut off", Reading, Kind::NoUsableFile, 0, "cut.so", "cut off", "not written to its end"},
    {"other machine", Reading, Kind::OtherMachine, 0, "arm.so", "AArch64", "on which this program"},
    {"metadata", Reading, Kind::MetaData, 0, "metadata.so", "name", "zpplugin check"},
    {"no plugin", Reading, Kind::NoPlugin, 0, "other.so", "", "Q_PLUGIN_METADATA"},
    {"wrong id", Probing, Kind::WrongId, 0, "11111111-1111-4111-8111-111111111111",
     "is not equal to the folder name", "name of the id"},
    {"no id", Probing, Kind::NoPluginFolder, 0, "folder", "is not a valid UUID", "a UUID"},
    {"crash", Probing, Kind::Crash, 2, "", "SIGSEGV", "debugger"},
    {"hang", Probing, Kind::Hang, 3, "", "did not answer within 1 s while loading", "endless loop"},
    {"exit", Probing, Kind::Crash, 5, "", "exit code 3", "debugger"},
    {"throw, probed", Probing, Kind::Exception, 4, "", "license", "catch"},
    {"throw, loaded", Loading, Kind::Exception, 4, "", "license", "catch"},
};

class tst_PluginSession : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void failures_data() { addRows(failureRows); }
    void failures();
    void opensGallery();
    void followsTheFile();
    void leavesNoCopies();
    void falseSectionTable();
    void probeIsAbandoned();
    void failureCard();
    void recentPlugins();

private:
    QString path(const char *name) const { return m_dir.filePath(u(name)); }

    QTemporaryDir m_dir;
};

void tst_PluginSession::initTestCase()
{
    // Other processes may open plugins at the same time.
    QVERIFY(QDir(m_dir.path()).mkpath(u("temp")));
    qputenv("TMPDIR", QFile::encodeName(path("temp")));
    const QByteArray library = contentOf(u(BUILD_1));
    QByteArray other = library;
    other[0x12] = char(183);
    QByteArray nameless = library;
    nameless.replace("dname", "dnome");
    QVERIFY(nameless != library);
    write(path("text.so"), "INPUT(libm.so.6)");
    write(path("cut.so"), library.left(library.size() / 2));
    write(path("arm.so"), other);
    write(path("metadata.so"), nameless);
    write(path("other.so"), contentOf(u(NO_PLUGIN)));
    QVERIFY(QDir(m_dir.path()).mkpath(u("empty")));
    for (const char *name : {"folder", "11111111-1111-4111-8111-111111111111"})
        write(path(name) + u("/" PLATFORM "/lib") + u(name) + u(".so"), library);
}

void tst_PluginSession::failures()
{
    const auto &row = currentRow(failureRows);
    LogRelay relay;
    relay.install();
    PluginSession session;
    session.setLogRelay(&relay);
    QVERIFY(session.open(u(BUILD_1)));
    session.setProbeCommand(QCoreApplication::applicationFilePath(), {}, 1);
    QSignalSpy failed(&session, &PluginSession::failed);
    QSignalSpy opened(&session, &PluginSession::opened);
    const QString file = row.number > 0 ? faulty(row.number) : path(row.file);
    const bool isRunning = row.way == Loading ? session.openAnyway(file) : session.open(file);
    QCOMPARE(isRunning, row.way == Probing);
    QCOMPARE(session.isProbing(), row.way == Probing);
    QTRY_COMPARE_WITH_TIMEOUT(failed.size(), 1, patienceMs);
    const auto failure = failed[0][0].value<LoadFailure>();
    const QString words = failure.words.join(QLatin1Char('\n'));
    QCOMPARE(failure.kind, row.kind);
    QCOMPARE(failure.path, file);
    QVERIFY(!failure.title.isEmpty());
    QVERIFY2(words.contains(u(row.words)), qPrintable(words));
    QVERIFY2(!words.contains(u("zpplugin-bench-")), qPrintable(words));
    QVERIFY2(failure.advice.contains(u(row.advice)), qPrintable(failure.advice));
    QCOMPARE(failure.mayTry, row.kind == Kind::Crash || row.kind == Kind::Hang);
    // What was open before still is.
    QVERIFY(session.isLoaded() && !session.isProbing() && opened.isEmpty());
    QCOMPARE(session.plugin()->objectName(), u("1"));
    QCOMPARE(session.path(), file);
    session.giveUp();
    QCOMPARE(session.path(), u(BUILD_1));
    session.close();
    QVERIFY(!session.isLoaded() && !session.library() && !session.plugin());
    session.openAnyway(path("text.so"));
    session.giveUp();
    QCOMPARE(session.path(), QString());
}

void tst_PluginSession::opensGallery()
{
    const QString folder = QDir::cleanPath(QFileInfo(u(GALLERY_LIBRARY)).path() + u("/../.."));
    for (const QString &file : {folder, u(GALLERY_LIBRARY)}) {
        PluginSession session;
        session.setProbeCommand(QCoreApplication::applicationFilePath());
        QSignalSpy loaded(&session, &PluginSession::loaded);
        QSignalSpy unloading(&session, &PluginSession::aboutToUnload);
        QVERIFY(session.open(file));
        QVERIFY(!session.isLoaded());
        QTRY_COMPARE_WITH_TIMEOUT(loaded.size(), 1, patienceMs);
        QCOMPARE(session.path(), file);
        QVERIFY(session.plugin());
        QVERIFY(session.library()->widgets().contains({u("gauge"), u("1.1.0")}));
        // The texts in other languages come out of the library's own resources.
        const auto lamp = session.library()->widgetsLatestVersion().value(u("lamp"));
        QCOMPARE(lamp.display().get(u("it-IT"), false), u("Spia"));
        const QString resources = u(":/") + session.library()->id();
        QVERIFY(QFileInfo::exists(resources));
        QVERIFY(session.reload());
        QCOMPARE(unloading.size(), 0); // not before the outcome is known
        QTRY_COMPARE_WITH_TIMEOUT(loaded.size(), 2, patienceMs);
        QCOMPARE(unloading.size(), 1);
        session.close();
        QCOMPARE(unloading.size(), 2);
        QVERIFY(session.path().isEmpty() && !session.isLoaded() && !session.reload());
        QVERIFY(!QFileInfo::exists(resources));
    }
    takeLog();
}

void tst_PluginSession::followsTheFile()
{
    const QByteArray builds[] = {contentOf(u(BUILD_1)), contentOf(u(BUILD_2))};
    const QString file = path("build/librebuilt.so");
    PluginSession session;
    QSignalSpy loaded(&session, &PluginSession::loaded);
    QSignalSpy failed(&session, &PluginSession::failed);
    const auto isBuild = [&](const char *number) {
        return session.isLoaded() && session.plugin()->objectName() == u(number) &&
               session.library()->widgets().lastKey().first == u("widget") + u(number);
    };
    // Not there yet, not even its folder.
    QVERIFY(!session.open(file));
    write(file, builds[0]);
    QTRY_VERIFY_WITH_TIMEOUT(isBuild("1"), patienceMs);
    replace(file, builds[1]);
    QTRY_VERIFY_WITH_TIMEOUT(isBuild("2"), patienceMs);
    // Written in place, in two steps.
    write(file, builds[0].left(1000));
    QTest::qWait(500);
    QVERIFY(isBuild("2"));
    write(file, builds[0]);
    QTRY_VERIFY_WITH_TIMEOUT(isBuild("1"), patienceMs);
    QCOMPARE(failed.size(), 1);
    // A bad build leaves the former one open, until there is a good one again.
    replace(file, "no library");
    QTRY_COMPARE_WITH_TIMEOUT(failed.size(), 2, patienceMs);
    QVERIFY(isBuild("1"));
    QVERIFY(QDir(path("build")).removeRecursively());
    write(file, builds[1]);
    QTRY_VERIFY_WITH_TIMEOUT(isBuild("2"), patienceMs);
    // Built while another one was to be opened.
    QVERIFY(!session.open(path("text.so")));
    replace(file, builds[0]);
    QTest::qWait(500);
    QVERIFY(isBuild("2"));
    session.giveUp();
    QTRY_VERIFY_WITH_TIMEOUT(isBuild("1"), patienceMs);
    replace(file, builds[1]);
    QTRY_VERIFY_WITH_TIMEOUT(isBuild("2"), patienceMs);
    session.setAutoReload(false);
    replace(file, builds[0]);
    QTest::qWait(1000);
    QVERIFY(isBuild("2"));
    QVERIFY(session.reload() && isBuild("1"));
    takeLog();
}

void tst_PluginSession::leavesNoCopies()
{
    // What a process has left that crashed.
    const QString stale = QDir::temp().filePath(u("zpplugin-bench-stale"));
    write(stale + u("/1/library.so"), "library");
    write(stale + u("/lock"),
          "2147483647\ngone\n" + QSysInfo::machineHostName().toLocal8Bit() + '\n');
    {
        PluginSession session;
        QVERIFY(!QFileInfo::exists(stale));
        QVERIFY(session.open(u(BUILD_1)));
        QCOMPARE(copies().size(), 1);
        const PluginSession other; // leaves what is in use
        QCOMPARE(copies().size(), 1);
        QVERIFY(session.reload());
    }
    QCOMPARE(copies(), QStringList());
    takeLog();
}

// The system loads a library without looking at its sections.
void tst_PluginSession::falseSectionTable()
{
#ifdef Q_OS_LINUX
    QByteArray library = contentOf(u(BUILD_1));
    const auto *header = reinterpret_cast<const ElfW(Ehdr) *>(library.constData());
    auto *section = reinterpret_cast<ElfW(Shdr) *>(library.data() + header->e_shoff);
    while (section->sh_type != SHT_DYNSYM)
        ++section;
    section->sh_offset = ~quint64(0) / 4;
    write(path("sections.so"), library);
    PluginSession session;
    QVERIFY(session.open(path("sections.so")));
    session.close();
    QVERIFY(!session.isLoaded());
    QCOMPARE(takeLog().size(), 1);
#else
    QSKIP("libraries are other files here");
#endif
}

void tst_PluginSession::probeIsAbandoned()
{
    PluginSession session;
    session.setProbeCommand(QCoreApplication::applicationFilePath());
    QSignalSpy failed(&session, &PluginSession::failed);
    QSignalSpy loaded(&session, &PluginSession::loaded);
    QVERIFY(session.open(faulty(3)));
    QVERIFY(session.open(u(BUILD_1)));
    QTRY_COMPARE_WITH_TIMEOUT(loaded.size(), 1, patienceMs);
    QCOMPARE(failed.size(), 0);
    session.setProbeCommand(path("no program"));
    QVERIFY(session.reload());
    QTRY_COMPARE(failed.size(), 1);
    QVERIFY(failed[0][0].value<LoadFailure>().mayTry);
    QVERIFY(session.openAnyway(session.path()));
    takeLog();
}

void tst_PluginSession::failureCard()
{
    FailureCard card;
    QSignalSpy retry(&card, &FailureCard::retryRequested);
    QSignalSpy anyway(&card, &FailureCard::loadAnywayRequested);
    LoadFailure failure = LoadFailure::of(Kind::Crash, u("/a/b"), u("It crashed"), {u("signal")});
    card.setFailure(failure, u("&Back"));
    auto *button = card.findChild<QPushButton *>(u("loadAnyway"));
    QVERIFY(button->isHidden());
    failure.mayTry = true;
    card.setFailure(failure, u("&Back"));
    QVERIFY(!button->isHidden());
    button->click();
    QCOMPARE(anyway[0][0].toString(), u("/a/b"));
    card.findChild<QPushButton *>(u("retry"))->click();
    QCOMPARE(retry[0][0].toString(), u("/a/b"));
    QCOMPARE(card.findChild<QLabel *>(u("title"))->text(), u("It crashed"));
}

void tst_PluginSession::recentPlugins()
{
    QSettings settings(path("settings.ini"), QSettings::IniFormat);
    RecentPlugins recent(settings);
    for (int i = 0; i < 12; ++i)
        recent.add(u("/gone/") + QString::number(i));
    recent.add(u("/gone/5"));
    recent.add(m_dir.path());
    QCOMPARE(recent.paths().size(), 10);
    QCOMPARE(recent.paths().mid(0, 3), QStringList({m_dir.path(), u("/gone/5"), u("/gone/11")}));
    QMenu menu;
    recent.fill(menu);
    QVERIFY(menu.actions()[0]->isEnabled() && !menu.actions()[1]->isEnabled());
    QSignalSpy open(&recent, &RecentPlugins::openRequested);
    menu.actions()[0]->trigger();
    QCOMPARE(open[0][0].toString(), m_dir.path());
    QCOMPARE(RecentPlugins(settings).paths(), recent.paths());
    recent.clear();
    QVERIFY(recent.paths().isEmpty());
}

int main(int argc, char **argv)
{
    if (isPluginProbe(argc, argv))
        return runPluginProbe(argc, argv);
    QApplication app(argc, argv);
    tst_PluginSession test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_pluginsession.moc"
