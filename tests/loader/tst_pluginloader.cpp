#include "guardedtest.h"

#include <NARV/INTERNAL/PluginLoader>
#include <NARV/INTERNAL/PluginPlatform>
#include <NARV/INTERNAL/WidgetLibraryPluginData>
#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>
#include <NARV/WidgetLibraryPlugin>

#include <QDirIterator>
#include <QLibraryInfo>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using NARV::INTERNAL::PluginLoader;
using NARV::INTERNAL::PluginPlatform;

static const QString idA = QStringLiteral("aaaaaaaa-0000-4000-8000-000000000001");
static const QString idB = QStringLiteral("bbbbbbbb-0000-4000-8000-000000000002");
static const QString loading = QStringLiteral("PLUGIN_LOADING");

//! Finding, checking, loading and notifying plugins.
class tst_PluginLoader : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void loadsAndNotifies();
    void refusesLibraries_data();
    void refusesLibraries();
    void refusesFolders_data();
    void refusesFolders();
    void skipsDisabled();
    void refusesSecondFolderOfAnId();
    void refusesMissingFolder();
    void refusesWhileInited();
    void loadsAnyIdByPath();
    void replacesRecordOfSameId();
    void survivesThrowingHooks();
    void checksPluginDir();
    void tellsResourcePaths();
    void refusesPluginsOfQt();

private:
    QString path(const QString &relative) const { return m_dir->filePath(relative); }
    QString libraryPath(const QString &folder) const
    {
        return PluginPlatform::running().libraryPath(path(folder), folder);
    }
    //! Puts a fixture into a plugin folder, as its library for this platform.
    QString place(const char *fixture, const QString &folder);
    void copyFile(const QString &from, const QString &to);
    //! What the library and the fixtures logged, but for the fixtures' hooks.
    QStringList messages(QtMsgType type);
    QStringList hooks();
    //! No library of the plugins folder is in memory.
    bool nothingIsMapped() const;

    std::optional<QTemporaryDir> m_dir;
};

void tst_PluginLoader::init()
{
    startGuard();
    m_dir.emplace();
}

void tst_PluginLoader::cleanup()
{
    for (const LogEntry &entry : takeLog())
        QCOMPARE(entry.category, QStringLiteral("FIXTURE")); // a loader is gone, its plugins too
    checkGuard();
}

void tst_PluginLoader::copyFile(const QString &from, const QString &to)
{
    QVERIFY(QDir().mkpath(QFileInfo(to).path()));
    QVERIFY2(QFile::copy(from, to), qPrintable(from));
}

QString tst_PluginLoader::place(const char *fixture, const QString &folder)
{
    copyFile(QStringLiteral(FIXTURES_DIR "/%1.so").arg(QLatin1String(fixture)),
             libraryPath(folder));
    return libraryPath(folder);
}

QStringList tst_PluginLoader::messages(QtMsgType type)
{
    QStringList texts;
    for (const LogEntry &entry : takeLog()) {
        if (entry.type == type && entry.category != QLatin1String("FIXTURE"))
            texts += entry.message;
    }
    return texts;
}

QStringList tst_PluginLoader::hooks()
{
    QStringList texts;
    for (const LogEntry &entry : takeLog()) {
        if (entry.category == QLatin1String("FIXTURE"))
            texts += entry.message;
    }
    return texts;
}

bool tst_PluginLoader::nothingIsMapped() const
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && !maps.readAll().contains(m_dir->path().toLocal8Bit());
}

void tst_PluginLoader::loadsAndNotifies()
{
    const QString libraryA = place("good_a", idA);
    place("good_b", idB);
    {
        PluginLoader loader;
        QVERIFY(!loader.init() && !loader.isInit() && !loader.deinit());
        QVERIFY(loader.loadFromDir(m_dir->path(), {}));
        QList<LogEntry> records;
        for (const LogEntry &entry : takeLog()) {
            if (entry.category == loading)
                records += entry;
        }
        QCOMPARE(records.size(), 2);
        QVERIFY(records.contains(
            LogEntry{QtInfoMsg, idA, loading,
                     QStringLiteral("Plugin %1 (v1.2.3) loaded, author ").arg(idA) +
                         QLatin1String("A%1%2")}));
        QCOMPARE(loader.pluginData().keys(), (QStringList{idA, idB}));
        QVERIFY(!loader.pluginDataByPluginId(QStringLiteral("absent")));
        const auto *data = loader.pluginDataByPluginId(idA)->toWidgetLibraryPluginData();
        QCOMPARE(data->libraryPath(), libraryA);
        QCOMPARE(int(data->type()), 1);
        QCOMPARE(data->metaInformation()->id(), idA);
        QVERIFY(data->instance() && data->instance()->inherits("FixturePlugin"));
        QVERIFY(data->loadingTimeMs() > 0 && data->loadingTimeMs() < 10000);

        QVERIFY(loader.init() && loader.isInit() && !loader.init());
        const QStringList start{QStringLiteral("aboutToLoad"), QStringLiteral("aboutToLoad"),
                                QStringLiteral("load"), QStringLiteral("load")};
        QCOMPARE(hooks(), start);
    }
    const QStringList stop{QStringLiteral("aboutToUnload"), QStringLiteral("aboutToUnload"),
                           QStringLiteral("unload"),        QStringLiteral("unload"),
                           QStringLiteral("destroyed"),     QStringLiteral("destroyed")};
    QCOMPARE(hooks(), stop);
    QVERIFY(nothingIsMapped());
}

void tst_PluginLoader::refusesLibraries_data()
{
    QTest::addColumn<QString>("reason");
    QTest::newRow("no_plugin") << QStringLiteral("the IID is not specified");
    QTest::newRow("no_iid") << QStringLiteral("the IID is not specified");
    QTest::newRow("foreign_iid") << QStringLiteral("the IID org.example.Other is not valid");
    QTest::newRow("no_entry") << QStringLiteral("Unknown error"); // the words of the toolkit
    QTest::newRow("no_interface") << QStringLiteral("invalid interface");
    QTest::newRow("no_name") << QStringLiteral("MetaData/name attribute not present");
    QTest::newRow("throwing") << QStringLiteral("the plugin threw an exception: no license");
    QTest::newRow("good_b")
        << QStringLiteral("the id %1 is not equal to the folder name %2").arg(idB, idA);
}

void tst_PluginLoader::refusesLibraries()
{
    QFETCH(QString, reason);
    const QString library = place(QTest::currentDataTag(), idA);
    PluginLoader loader;
    QVERIFY(!loader.loadFromPluginDir(path(idA)));
    const QString message = QStringLiteral("Error loading the plugin %1: %2").arg(library, reason);
    QCOMPARE(messages(QtCriticalMsg), QStringList{message});
    QVERIFY(loader.pluginData().isEmpty());
    QVERIFY(!loader.init());
    QVERIFY(nothingIsMapped());
}

void tst_PluginLoader::refusesFolders_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("message"); // %1: the folder, %2: the library
    const QString noUuid = QStringLiteral("The name of the folder %1 is not a valid UUID");
    const QString noIid = QStringLiteral("Error loading the plugin %2: the IID is not specified");
    QTest::newRow("a word") << QStringLiteral("gallery") << QByteArray() << noUuid;
    QTest::newRow("null UUID") << QStringLiteral("00000000-0000-0000-0000-000000000000")
                               << QByteArray() << noUuid;
    QTest::newRow("longer than a UUID") << idA + QStringLiteral("-old") << QByteArray() << noUuid;
    QTest::newRow("no library") << idA << QByteArray() << noIid;
    QTest::newRow("braces") << QStringLiteral("{%1}").arg(idA) << QByteArray() << noIid;
    QTest::newRow("empty library") << idA << QByteArray("") << noIid;
    QTest::newRow("text") << idA << QByteArray("#!/bin/sh\n") << noIid;
    QTest::newRow("half an ELF file") << idA
                                      << QByteArray("\x7f"
                                                    "ELF\2\1\1")
                                      << noIid;
}

void tst_PluginLoader::refusesFolders()
{
    QFETCH(QString, folder);
    QFETCH(QByteArray, content);
    QFETCH(QString, message);
    const QString library = libraryPath(folder);
    QVERIFY(QDir().mkpath(QFileInfo(library).path()));
    QFile file(library);
    QVERIFY(content.isNull() || (file.open(QIODevice::WriteOnly) && file.write(content) >= 0));
    file.close();
    place("good_b", idB);

    PluginLoader loader;
    QVERIFY(!loader.loadFromDir(m_dir->path(), {}));
    message.replace(QLatin1String("%1"), path(folder)).replace(QLatin1String("%2"), library);
    QCOMPARE(messages(QtCriticalMsg), QStringList{message});
    QCOMPARE(loader.pluginData().keys(), QStringList{idB}); // the other one is loaded
}

void tst_PluginLoader::skipsDisabled()
{
    place("good_a", idA);
    PluginLoader loader;
    QVERIFY(loader.loadFromDir(m_dir->path(), {idB, idA.toUpper(), idA}));
    const LogEntry skipped{QtInfoMsg, idA, loading,
                           QStringLiteral("The plugin with the id %1 (%2) will not be loaded "
                                          "(disabled by user)")
                               .arg(idA, path(idA))};
    QCOMPARE(takeLog(), QList<LogEntry>{skipped});
    QVERIFY(loader.pluginData().isEmpty());
    QVERIFY(loader.loadFromDir(m_dir->path(), {idA.toUpper()}));
    takeLog();
}

void tst_PluginLoader::refusesSecondFolderOfAnId()
{
    const QString library = place("good_a", idA);
    PluginLoader loader;
    QVERIFY(loader.loadFromDir(m_dir->path(), {}));
    takeLog();
    QVERIFY(!loader.loadFromPluginDir(path(idA) + QLatin1Char('/')));
    const LogEntry refused{QtCriticalMsg, idA, loading,
                           QStringLiteral("A plugin with the id %1 is already loaded from path %2. "
                                          "The folder %3 has not been loaded")
                               .arg(idA, library, path(idA))};
    QCOMPARE(takeLog(), QList<LogEntry>{refused});
}

void tst_PluginLoader::refusesMissingFolder()
{
    const QString absent = path(QStringLiteral("absent %1 %2"));
    const LogEntry warning{QtWarningMsg,
                           {},
                           QStringLiteral("GENERAL"),
                           QStringLiteral("The folder ") + absent +
                               QLatin1String(" doesn't exists")};
    PluginLoader loader;
    QVERIFY(!loader.loadFromDir(absent, {}));
    QVERIFY(!loader.loadFromPluginDir(absent));
    QCOMPARE(takeLog(), (QList<LogEntry>{warning, warning}));
    QVERIFY(loader.loadFromDir(m_dir->path(), {})); // nothing in it
}

void tst_PluginLoader::refusesWhileInited()
{
    const QString library = place("good_a", idA);
    PluginLoader loader;
    QVERIFY(loader.loadFromPluginDir(path(idA)));
    QVERIFY(loader.init());
    takeLog();
    QVERIFY(!loader.loadFromDir(m_dir->path(), {}));
    QVERIFY(!loader.loadFromPluginDir(path(idA)));
    QVERIFY(!loader.loadFromPluginPath(library, {}));
    const LogEntry warning{QtWarningMsg,
                           {},
                           QStringLiteral("GENERAL"),
                           QStringLiteral("The plugin loader is already inited")};
    QCOMPARE(takeLog(), (QList<LogEntry>{warning, warning, warning}));
    QVERIFY(loader.deinit() && !loader.deinit());
    place("good_b", idB);
    QVERIFY(loader.loadFromPluginDir(path(idB)));
    loader.unload();
    QVERIFY(loader.pluginData().isEmpty() && !loader.isInit());
    takeLog();
}

void tst_PluginLoader::loadsAnyIdByPath()
{
    const QString library = path(QStringLiteral("some library.so"));
    copyFile(QStringLiteral(FIXTURES_DIR "/good_a.so"), library);
    const QString current = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_dir->path()));
    PluginLoader loader;
    const bool ok = loader.loadFromPluginPath(QStringLiteral("some library.so"), {});
    QVERIFY(QDir::setCurrent(current));
    QVERIFY(ok);
    QCOMPARE(loader.pluginDataByPluginId(idA)->libraryPath(), library);
    QVERIFY(!loader.loadFromPluginPath(library, idB));
    QCOMPARE(loader.pluginData().size(), 1);
    loader.unload();
    takeLog();
    QVERIFY(nothingIsMapped());
}

void tst_PluginLoader::replacesRecordOfSameId()
{
    const QString library = place("good_a", idA);
    const QString other = place("other_build_of_a", idB);
    PluginLoader loader;
    QVERIFY(loader.loadFromPluginPath(library, {}));
    QVERIFY(loader.loadFromPluginPath(library, {})); // the same library again
    QCOMPARE(hooks(), QStringList{QStringLiteral("made")});
    QVERIFY(loader.loadFromPluginPath(other, {}));
    QCOMPARE(hooks(), (QStringList{QStringLiteral("made"), QStringLiteral("destroyed")}));
    QCOMPARE(loader.pluginData().size(), 1);
    QCOMPARE(loader.pluginDataByPluginId(idA)->libraryPath(), other);
    QVERIFY(loader.init());
    loader.unload();
    takeLog();
    QVERIFY(nothingIsMapped());
}

void tst_PluginLoader::survivesThrowingHooks()
{
    place("throwing_hooks", idA);
    place("good_b", idB);
    PluginLoader loader;
    QVERIFY(loader.loadFromDir(m_dir->path(), {}));
    takeLog();
    QVERIFY(loader.init());
    const QList<LogEntry> log = takeLog();
    const LogEntry thrown{QtCriticalMsg, idA, loading,
                          QStringLiteral("the plugin threw an exception of unknown type")};
    QCOMPARE(log.count(thrown), 1);
    QCOMPARE(log.size(), 5); // and both plugins heard both hooks
}

void tst_PluginLoader::checksPluginDir()
{
    const PluginLoader loader;
    const QString folder = path(idA);
    for (const PluginPlatform &platform : PluginPlatform::required()) {
        QVERIFY(!loader.checkPluginDir(folder));
        copyFile(QStringLiteral(FIXTURES_DIR "/no_plugin.so"), platform.libraryPath(folder, idA));
    }
    QVERIFY(loader.checkPluginDir(folder));
    QVERIFY(loader.checkPluginDir(folder + QLatin1Char('/')));
    QVERIFY(QDir(m_dir->path()).rename(idA, QStringLiteral("renamed")));
    QVERIFY(!loader.checkPluginDir(path(QStringLiteral("renamed"))));
    QVERIFY(
        QFileInfo(PluginPlatform::required()[3].libraryPath(path(QStringLiteral("renamed")), idA))
            .path()
            .endsWith(QLatin1String("linux/arm64")));
}

void tst_PluginLoader::tellsResourcePaths()
{
    place("good_a", idA);
    PluginLoader loader;
    QVERIFY(loader.loadFromDir(m_dir->path(), {}));
    takeLog();
    const auto *data = loader.pluginDataByPluginId(idA)->toWidgetLibraryPluginData();
    QCOMPARE(
        data->studioDefaultsPath(QStringLiteral("res")),
        QDir::current().absoluteFilePath(QStringLiteral("res/%1/studio_defaults.zpx").arg(idA)));
    QCOMPARE(data->studioPropertiesPath(QStringLiteral("/r")),
             QStringLiteral("/r/%1/studio_properties.xml").arg(idA));
}

void tst_PluginLoader::refusesPluginsOfQt()
{
    QDirIterator libraries(QLibraryInfo::location(QLibraryInfo::PluginsPath),
                           {QStringLiteral("*.so")}, QDir::Files, QDirIterator::Subdirectories);
    PluginLoader loader;
    int count = 0;
    while (libraries.hasNext()) {
        const QString library = libraries.next();
        QVERIFY(!loader.loadFromPluginPath(library, {}));
        const QStringList said = messages(QtCriticalMsg);
        QCOMPARE(said.size(), 1);
        QVERIFY2(said[0].startsWith(
                     QStringLiteral("Error loading the plugin %1: the IID org.qt").arg(library)) &&
                     said[0].endsWith(QLatin1String(" is not valid")),
                 qPrintable(said[0]));
        ++count;
    }
    QVERIFY(count > 0);
}

QTEST_MAIN(tst_PluginLoader)
#include "tst_pluginloader.moc"
