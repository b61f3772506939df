#include "resourcefixture.h"

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QThread>

#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

using NARV::INTERNAL::PluginLoader;

static const QString english = u("en-US");
static const QString italian = u("it-IT");
static const QByteArray otherId("11111111-0000-4000-8000-000000000000");

//! Generating the editor's resources: what is done, and that nothing is lost or half done.
class tst_ResourceGenerator : public ResourceFixture
{
    Q_OBJECT

private Q_SLOTS:
    void decides_data();
    void decides();
    void refusesCalls_data();
    void refusesCalls();
    void recordsNothingAfterAnError();
    void writesOnlyTheIndexAgain();
    void stopsAtLinks();
    void survivesFullDisk_data();
    void survivesFullDisk();
    void survivesMissingRights();
    void survivesKills();

private:
    struct Decision;
    static const Decision decisions[];

    QByteArray index() const { return treeOf(out()).value(u("index.json")); }
    void changeIndex(const QByteArray &from, const QByteArray &to);
    void checkFolders(const QVector<Tree> &clean);
    bool killOnce(const QString &language, qint64 longest);
};

struct tst_ResourceGenerator::Decision
{
    const char *name;
    void (*change)(tst_ResourceGenerator &test); // after a first call
    QString language;                            // of the second call
    const char *steps;
    QStringList more; // paths of what is there beside the result of a clean run
};

void tst_ResourceGenerator::changeIndex(const QByteArray &from, const QByteArray &to)
{
    QByteArray content = index();
    const int place = content.indexOf(from); // in the first entry
    QVERIFY(place >= 0);
    writeFile(out(u("index.json")), content.replace(place, from.size(), to));
}

using Test = tst_ResourceGenerator;
const Test::Decision Test::decisions[] = {
    {"nothing changed", [](Test &) {}, english, "kept 1, kept 2, kept 3", {}},
    {"another language",
     [](Test &) {},
     italian,
     "removed 1, removed 2, removed 3, generated 1, generated 2, generated 3",
     {}},
    {"other case of the language",
     [](Test &test) { test.changeIndex("en-US", "en-us"); },
     english,
     "removed 1, generated 1, kept 2, kept 3",
     {}},
    {"touched library",
     [](Test &test) {
         QFile file(test.library(2));
         QVERIFY(file.open(QIODevice::ReadWrite));
         const QDateTime later = QDateTime::currentDateTime().addSecs(5);
         QVERIFY(file.setFileTime(later, QFileDevice::FileModificationTime));
     },
     english,
     "removed 2, kept 1, generated 2, kept 3",
     {}},
    {"other version",
     [](Test &test) { test.changeIndex("1.1.0", "1.2.0"); },
     english,
     "removed 1, generated 1, kept 2, kept 3",
     {}},
    {"folder is gone",
     [](Test &test) { QVERIFY(QDir(test.out(id(3))).removeRecursively()); },
     english,
     "kept 1, kept 2, generated 3",
     {}},
    {"file instead of a folder of another language",
     [](Test &test) {
         test.changeIndex("en-US", "de-DE");
         QVERIFY(QDir(test.out(id(1))).removeRecursively());
         writeFile(test.out(id(1)), "file");
     },
     english,
     "removed 1, generated 1, kept 2, kept 3",
     {}},
    {"no index",
     [](Test &test) { QVERIFY(QFile::remove(test.out(u("index.json")))); },
     english,
     "removed 1, removed 2, removed 3, generated 1, generated 2, generated 3",
     {}},
    {"foreign folders and files",
     [](Test &test) {
         writeFile(test.out(u("foreign/deep/file")), "text");
         writeFile(test.out(u(".hidden/file")), "text");
         writeFile(test.out(u("file")), {});
     },
     english,
     "removed .hidden, removed foreign, kept 1, kept 2, kept 3",
     {u("file")}},
};

void tst_ResourceGenerator::decides_data()
{
    addRows(decisions);
}

void tst_ResourceGenerator::decides()
{
    const Decision &row = currentRow(decisions);
    QVERIFY(generate(english)); // makes the folder
    QCOMPARE(steps(), u("generated 1, generated 2, generated 3"));
    row.change(*this);
    QVERIFY(generate(row.language));
    QCOMPARE(steps(), u(row.steps));
    Tree tree = treeOf(out());
    for (const QString &path : row.more)
        QVERIFY(tree.remove(path));
    QVERIFY(tree == cleanTree(row.language));
    QCOMPARE(index().count(qPrintable(row.language)), 3);
    QCOMPARE(index().count("\"1.1.0\""), 3);
}

// Entries of plugins that are not loaded are found stale by each call, and stay.
void tst_ResourceGenerator::refusesCalls_data()
{
    QTest::addColumn<bool>("isInit");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("message");
    QTest::newRow("before init") << false << u("new")
                                 << u("generateStudioExtraResources must be called after init "
                                      "function");
    QTest::newRow("no path") << true << QString() << u("dirPath must be not empty");
    QTest::newRow("file") << true << u("file %2") << u("dirPath must be a directory");
    QTest::newRow("below a file") << true << u("file %2/new") << u("Error creating %1: %2");
}

void tst_ResourceGenerator::refusesCalls()
{
    QFETCH(bool, isInit);
    QFETCH(QString, folder);
    QFETCH(QString, message);
    writeFile(out(u("file %2")), {});
    PluginLoader loader;
    loadPlugins(loader);
    if (!isInit)
        loader.deinit();
    const QString path = folder.isEmpty() ? QString() : out(folder);
    QVERIFY(!loader.generateStudioExtraResources(path, english));
    QVERIFY(loader.pluginData().isEmpty() && !loader.isInit());
    QCOMPARE(errors(), QStringList{message.replace(u("%1"), path)});
    QCOMPARE(treeOf(out()).keys(), QStringList{u("file %2")});
}

void tst_ResourceGenerator::recordsNothingAfterAnError()
{
    QVERIFY(generate(english));
    writeFile(out(u("index.json")), "{");
    QVERIFY(!generate(english));
    QCOMPARE(errors().size(), 1);
    QCOMPARE(steps(), u("removed 1, removed 2, removed 3, generated 1, generated 2, generated 3"));
    QVERIFY(!index().contains("en-US"));

    // What was generated without being recorded is not taken for what an older entry tells of.
    QVERIFY(generate(english));
    changeIndex(id(1).toUtf8(), otherId);
    QVERIFY(QDir(out(id(1))).removeRecursively());
    writeFile(out(id(1)), "in the way");
    QVERIFY(!generate(italian));
    QCOMPARE(steps(), u("removed 2, removed 3, failed 1, generated 2, generated 3"));
    QCOMPARE(errors(), QStringList{u("Error creating directory %1").arg(out(id(1)))});
    QCOMPARE(index().count(otherId), 1);
    QVERIFY(generate(english));
    Tree tree = treeOf(out());
    const Tree clean = cleanTree(english);
    tree[u("index.json")] = clean[u("index.json")]; // has the other entry beside
    QVERIFY(tree == clean);

    // The entry of a plugin that is not there any more stays, its folder does not.
    QVERIFY(QDir(plugins() + QLatin1Char('/') + id(2)).removeRecursively());
    for (const char *expected : {"removed 2, kept 1, kept 3", "kept 1, kept 3"}) {
        QVERIFY(generate(english));
        QCOMPARE(steps(), u(expected));
        QVERIFY(index().contains(id(2).toUtf8()) && !QFileInfo::exists(out(id(2))));
    }
}

void tst_ResourceGenerator::writesOnlyTheIndexAgain()
{
    QVERIFY(generate(english));
    QMap<QString, QDateTime> times;
    const auto timeOf = [this](const QString &path) {
        return QFileInfo(out(path)).metadataChangeTime();
    };
    const QStringList paths = treeOf(out()).keys();
    for (const QString &path : paths)
        times[path] = timeOf(path);
    QTest::qSleep(20);
    QVERIFY(generate(english));
    QCOMPARE(treeOf(out()).keys(), paths);
    for (const QString &path : paths)
        QVERIFY2((timeOf(path) == times[path]) == (path != u("index.json")), qPrintable(path));
}

void tst_ResourceGenerator::stopsAtLinks()
{
    const QString outside = QFileInfo(out()).path() + u("/outside");
    writeFile(outside + u("/deep/file"), "precious");
    QVERIFY(generate(english));
    writeFile(outside + u("/index.json"), index());
    const Tree before = treeOf(outside);

    // in the place of a folder that is current, of one that is not, and inside of a foreign one
    changeIndex("\"en-US\"", "\"de-DE\""); // of the first
    for (const int number : {1, 2}) {
        QVERIFY(QDir(out(id(number))).removeRecursively());
        QVERIFY(QFile::link(outside, out(id(number))));
    }
    QVERIFY(QDir(out()).mkdir(u("foreign")));
    QVERIFY(QFile::link(outside, out(u("foreign/link"))));
    QVERIFY(QFile::link(outside, out(u("link"))));
    QVERIFY(!generate(english));
    QCOMPARE(steps(), u("removed 1, removed foreign, generated 1, failed 2, kept 3"));
    QCOMPARE(errors(), QStringList{u("Error creating directory %1").arg(out(id(2)))});

    // in the place of the index, to a file, to a folder and to nothing
    for (const char *target : {"/index.json", "", "/absent"}) {
        QVERIFY(QFile::remove(out(u("index.json"))));
        QVERIFY(QFile::link(outside + u(target), out(u("index.json"))));
        QCOMPARE(generate(english), *target != 0);
        QCOMPARE(errors().size(), *target ? 0 : 3);
        QVERIFY(!QFileInfo(out(u("index.json"))).isSymLink());
    }
    QVERIFY(generate(english));
    QVERIFY(treeOf(outside) == before);
    QVERIFY(QFile::remove(out(u("link")))); // of no interest to anybody
    QVERIFY(treeOf(out()) == cleanTree(english));
}

void tst_ResourceGenerator::survivesFullDisk_data()
{
    QTest::addColumn<int>("bytes");
    QTest::addColumn<QStringList>("messages"); // of each plugin, and of the index
    const QString noProperties = u("Error generating studio_properties of %1");
    QTest::newRow("nothing fits") << 0 << QStringList{noProperties, u("%1 writing error")};
    QTest::newRow("the index fits") << 1000 << QStringList{noProperties};
    QTest::newRow("all but one page fits")
        << 7500 << QStringList{u("Error generating file %1/gallery_page_1.zpx")};
}

void tst_ResourceGenerator::survivesFullDisk()
{
    QFETCH(int, bytes);
    QFETCH(QStringList, messages);
    QVERIFY(generate(english));
    rlimit limit = {};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlimit small = {rlim_t(bytes), limit.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN); // what remains is that no more can be written
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
    const bool ok = generate(italian);
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &limit), 0);
    QVERIFY(!ok);
    QStringList expected;
    for (int i = 1; i <= pluginCount; ++i)
        expected += QString(messages[0]).replace(u("%1"), out(id(i)));
    if (messages.size() > 1)
        expected += QString(messages[1]).replace(u("%1"), out(u("index.json")));
    QCOMPARE(errors(), expected);
    const QStringList left = messages.size() > 1 ? QStringList() : QStringList{u("index.json")};
    QCOMPARE(treeOf(out()).keys(), left);
    QVERIFY(generate(italian));
    QVERIFY(treeOf(out()) == cleanTree(italian));
}

namespace {

//! Has the rights of an ordinary user, also where the tests run as root.
class OrdinaryUser
{
public:
    OrdinaryUser() { m_ok = geteuid() != 0 || seteuid(65534) == 0; }
    ~OrdinaryUser() { m_ok = geteuid() == getuid() || seteuid(getuid()) == 0; }
    Q_DISABLE_COPY(OrdinaryUser)

    bool isOk() const { return m_ok; }

private:
    bool m_ok;
};

} // namespace

void tst_ResourceGenerator::survivesMissingRights()
{
    const auto setRights = [](const QString &path, int rights) {
        QVERIFY(QFile::setPermissions(path, QFileDevice::Permissions(rights)));
    };
    QVERIFY(generate(english));
    const Tree before = treeOf(out());
    setRights(QFileInfo(out()).path(), 0x7755);
    for (int i = 1; i <= pluginCount; ++i)
        setRights(out(id(i)), 0x5555);

    // Nothing at all may be written: nothing is changed.
    setRights(out(), 0x5555);
    setRights(out(u("index.json")), 0x4444);
    {
        const OrdinaryUser user;
        QVERIFY(user.isOk());
        QVERIFY(!generate(italian));
    }
    QCOMPARE(errors(), QStringList{u("%1 opening error").arg(out(u("index.json")))});
    QVERIFY(treeOf(out()) == before);

    // The folders cannot be removed.
    setRights(out(), 0x7777);
    {
        const OrdinaryUser user;
        QVERIFY(user.isOk());
        QVERIFY(!generate(italian));
    }
    QStringList expected;
    for (int i = 1; i <= pluginCount; ++i)
        expected += u("Error removing directory %1").arg(out(id(i)));
    QCOMPARE(errors(), expected);
    QCOMPARE(steps(), u("failed 1, failed 2, failed 3"));
    QVERIFY(!index().contains("it-IT") && !index().contains("en-US"));

    for (int i = 1; i <= pluginCount; ++i)
        setRights(out(id(i)), 0x7755);
    QVERIFY(generate(italian));
    QVERIFY(treeOf(out()) == cleanTree(italian));
}

//! Each folder of a plugin is as one of the clean runs made it.
void tst_ResourceGenerator::checkFolders(const QVector<Tree> &clean)
{
    const Tree tree = treeOf(out());
    for (int i = 1; i <= pluginCount; ++i) {
        const auto folderOf = [&](const Tree &all) {
            Tree folder;
            for (const QString &path : all.keys()) {
                if (path.startsWith(id(i)))
                    folder[path] = all[path];
            }
            return folder;
        };
        const Tree folder = folderOf(tree);
        QVERIFY2(folder.isEmpty() || folder == folderOf(clean[0]) || folder == folderOf(clean[1]),
                 qPrintable(folder.keys().join(u("\n"))));
    }
}

//! False if the call was over first.
bool tst_ResourceGenerator::killOnce(const QString &language, qint64 longest)
{
    QProcess writer;
    writer.start(QStringLiteral(RESOURCEWRITER), {plugins(), out(), language});
    writer.waitForReadyRead();
    QElapsedTimer timer;
    timer.start();
    const qint64 delay = qint64(QRandomGenerator::global()->generateDouble() * double(longest));
    while (timer.nsecsElapsed() < delay)
        QThread::yieldCurrentThread();
    writer.kill();
    writer.waitForFinished();
    return writer.exitStatus() == QProcess::CrashExit;
}

// ZPPLUGIN_KILLS in the environment is the number of kills.
void tst_ResourceGenerator::survivesKills()
{
    const int given = qEnvironmentVariableIntValue("ZPPLUGIN_KILLS");
    const int kills = given > 0 ? given : 20;
    const QStringList languages{english, italian};
    const QVector<Tree> clean{cleanTree(english), cleanTree(italian)};
    QVERIFY(generate(english));
    QElapsedTimer timer;
    timer.start();
    QVERIFY(generate(italian));
    qint64 longest = timer.nsecsElapsed(); // with loading
    int killed = 0;
    for (int i = 0; i < kills; ++i) {
        if (killOnce(languages[i % 2], longest))
            ++killed;
        else
            longest -= longest / 16;
        checkFolders(clean);
        const int next = QRandomGenerator::global()->bounded(2);
        QVERIFY(generate(languages[next]));
        QVERIFY(treeOf(out()) == clean[next]);
    }
    qInfo("%d of %d were killed before they ended", killed, kills);
    QVERIFY(killed > 0);
}

QTEST_GUILESS_MAIN(tst_ResourceGenerator)
#include "tst_resourcegenerator.moc"
