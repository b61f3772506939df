#include "guardedtest.h"

#include <NARV/INTERNAL/PluginLoader>
#include <NARV/INTERNAL/PluginPlatform>
#include <NARV/INTERNAL/WidgetLibraryPluginData>
#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>
#include <NARV/WidgetLibraryPlugin>

#include <QDirIterator>
#include <QLibraryInfo>
#include <QTemporaryDir>

#include <optional>

using NARV::INTERNAL::PluginLoader;
using NARV::INTERNAL::PluginPlatform;

static const QString idA = u("aaaaaaaa-0000-4000-8000-000000000001");
static const QString idB = u("bbbbbbbb-0000-4000-8000-000000000002");
static const QString loading = u("PLUGIN_LOADING");

static const char noUuid[] = "The name of the folder %1 is not a valid UUID";
static const char noIid[] = "Error loading the plugin %2: the IID is not specified";

static const struct
{
    const char *name; // of the fixture
    QString reason;
} libraryRows[] = {
    {"no_plugin", u("the IID is not specified")},
    {"no_iid", u("the IID is not specified")},
    {"foreign_iid", u("the IID org.example.Other is not valid")},
    {"no_entry", u("Unknown error")}, // the words of the toolkit
    {"no_interface", u("invalid interface")},
    {"no_name", u("MetaData/name attribute not present")},
    {"throwing", u("the plugin threw an exception: no license")},
    {"good_b", u("the id %1 is not equal to the folder name %2").arg(idB, idA)},
};

static const struct
{
    const char *name;
    QString folder;
    QByteArray content;
    const char *message; // %1: the folder, %2: the library
} folderRows[] = {
    {"a word", u("gallery"), {}, noUuid},
    {"null UUID", u("00000000-0000-0000-0000-000000000000"), {}, noUuid},
    {"longer than a UUID", idA + u("-old"), {}, noUuid},
    {"no library", idA, {}, noIid},
    {"braces", u("{%1}").arg(idA), {}, noIid},
    {"empty library", idA, "", noIid},
    {"text", idA, "#!/bin/sh\n", noIid},
    {"half an ELF file", idA, "\x7f\x45LF\2\1\1", noIid},
};

//! Finding, checking, loading and notifying plugins.
class tst_PluginLoader : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void loadsAndNotifies();
    void refusesLibraries_data() { addRows(libraryRows); }
    void refusesLibraries();
    void refusesFolders_data() { addRows(folderRows); }
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
    //! What was logged of one type and source: the fixtures' hooks, or all else.
    QStringList messages(QtMsgType type, bool ofHooks = false);
    QStringList hooks() { return messages(QtDebugMsg, true); }
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
        QCOMPARE(entry.category, u("FIXTURE")); // a loader is gone, its plugins too
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

QStringList tst_PluginLoader::messages(QtMsgType type, bool ofHooks)
{
    QStringList texts;
    for (const LogEntry &entry : takeLog()) {
        if (entry.type == type && (entry.category == u("FIXTURE")) == ofHooks)
            texts += entry.message;
    }
    return texts;
}

bool tst_PluginLoader::nothingIsMapped() const
{
    QFile maps(u("/proc/self/maps"));
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
        const LogEntry loaded{QtInfoMsg, idA, loading,
                              u("Plugin ") + idA + u(" (v1.2.3) loaded, author A%1%2")};
        const QList<LogEntry> log = takeLog(); // the roots were made, and
        QCOMPARE(log.size(), 4);
        QCOMPARE(log.count(loaded), 1);
        QCOMPARE(loader.pluginData().keys(), (QStringList{idA, idB}));
        QVERIFY(!loader.pluginDataByPluginId(u("absent")));
        const auto *data = loader.pluginDataByPluginId(idA)->toWidgetLibraryPluginData();
        QCOMPARE(data->libraryPath(), libraryA);
        QCOMPARE(int(data->type()), 1);
        QCOMPARE(data->metaInformation()->id(), idA);
        QVERIFY(data->instance() && data->instance()->inherits("FixturePlugin"));
        QVERIFY(data->loadingTimeMs() > 0 && data->loadingTimeMs() < 10000);

        QVERIFY(loader.init() && loader.isInit() && !loader.init());
        QCOMPARE(hooks().join(QLatin1Char(' ')), u("aboutToLoad aboutToLoad load load"));
    }
    QCOMPARE(hooks().join(QLatin1Char(' ')),
             u("aboutToUnload aboutToUnload unload unload destroyed destroyed"));
    QVERIFY(nothingIsMapped());
}

void tst_PluginLoader::refusesLibraries()
{
    const auto &[fixture, reason] = currentRow(libraryRows);
    const QString library = place(fixture, idA);
    PluginLoader loader;
    QVERIFY(!loader.loadFromPluginDir(path(idA)));
    const QString message = u("Error loading the plugin %1: %2").arg(library, reason);
    QCOMPARE(messages(QtCriticalMsg), QStringList{message});
    QVERIFY(loader.pluginData().isEmpty());
    QVERIFY(!loader.init());
    QVERIFY(nothingIsMapped());
}

void tst_PluginLoader::refusesFolders()
{
    const auto &[name, folder, content, text] = currentRow(folderRows);
    const QString library = libraryPath(folder);
    QVERIFY(QDir().mkpath(QFileInfo(library).path()));
    QFile file(library);
    QVERIFY(content.isNull() || (file.open(QIODevice::WriteOnly) && file.write(content) >= 0));
    file.close();
    place("good_b", idB);

    PluginLoader loader;
    QVERIFY(!loader.loadFromDir(m_dir->path(), {}));
    QString message = u(text);
    message.replace(u("%1"), path(folder)).replace(u("%2"), library);
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
    const QString absent = path(u("absent %1 %2"));
    const LogEntry warning{QtWarningMsg,
                           {},
                           u("GENERAL"),
                           u("The folder ") + absent + QLatin1String(" doesn't exists")};
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
    const LogEntry warning{
        QtWarningMsg, {}, u("GENERAL"), u("The plugin loader is already inited")};
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
    const QString library = path(u("some library.so"));
    copyFile(QStringLiteral(FIXTURES_DIR "/good_a.so"), library);
    const QString current = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_dir->path()));
    PluginLoader loader;
    const bool ok = loader.loadFromPluginPath(u("some library.so"), {});
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
    QCOMPARE(hooks(), QStringList{u("made")});
    QVERIFY(loader.loadFromPluginPath(other, {}));
    QCOMPARE(hooks(), (QStringList{u("made"), u("destroyed")}));
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
                          u("the plugin threw an exception of unknown type")};
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
    QVERIFY(QDir(m_dir->path()).rename(idA, u("renamed")));
    QVERIFY(!loader.checkPluginDir(path(u("renamed"))));
    QVERIFY(QFileInfo(PluginPlatform::required()[3].libraryPath(path(u("renamed")), idA))
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
    QCOMPARE(data->studioDefaultsPath(u("res")),
             QDir::current().absoluteFilePath(u("res/%1/studio_defaults.zpx").arg(idA)));
    QCOMPARE(data->studioPropertiesPath(u("/r")), u("/r/%1/studio_properties.xml").arg(idA));
}

void tst_PluginLoader::refusesPluginsOfQt()
{
    QDirIterator libraries(QLibraryInfo::location(QLibraryInfo::PluginsPath), {u("*.so")},
                           QDir::Files, QDirIterator::Subdirectories);
    PluginLoader loader;
    int count = 0;
    while (libraries.hasNext()) {
        const QString library = libraries.next();
        QVERIFY(!loader.loadFromPluginPath(library, {}));
        const QStringList said = messages(QtCriticalMsg);
        QCOMPARE(said.size(), 1);
        QVERIFY2(
            said[0].startsWith(u("Error loading the plugin %1: the IID org.qt").arg(library)) &&
                said[0].endsWith(QLatin1String(" is not valid")),
            qPrintable(said[0]));
        ++count;
    }
    QVERIFY(count > 0);
}

QTEST_MAIN(tst_PluginLoader)
#include "tst_pluginloader.moc"
