#include "loader/pluginloader.h"

#include "core/currentexception_p.h"
#include "core/uuidtext_p.h"
#include "loader/platform.h"
#include "loader/pluginlibrary_p.h"
#include "loader/widgetlibraryplugindata.h"

#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>
#include <NARV/INTERNAL/WidgetLibraryPluginUtils>
#include <NARV/LogHandler>
#include <NARV/WidgetLibraryPlugin>

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QPluginLoader>

namespace NARV::INTERNAL {

static constexpr char generalCategory[] = "GENERAL";
static constexpr char loadingCategory[] = "PLUGIN_LOADING";
static const QLatin1String interfaceIdKey("IID");
static const QLatin1String interfaceId("org.Mirt.NARV.WidgetLibrary");
static constexpr double millisecondsPerNanosecond = 0.000001;

class PluginLoaderPrivate
{
public:
    bool inited = false;
    QMap<QString, PluginData *> pluginData;
};

using Level = Debug (LogHandler::*)() const;

static void log(Level level, const char *category, const QString &source, const QString &message)
{
    const LogHandler handler(source, nullptr, 0, nullptr, category);
    (handler.*level)().debug().noquote() << message;
}

//! Reports why a library is not loaded; always false.
static bool refuse(const QString &message)
{
    log(&LogHandler::critical, loadingCategory, {}, message);
    return false;
}

//! Where the library of a plugin's folder lies.
static QString libraryPathIn(const QFileInfo &folder)
{
    return PluginPlatform::running().libraryPath(folder.absoluteFilePath(), folder.fileName());
}

PluginLoader::PluginLoader()
    : d(new PluginLoaderPrivate)
{
}

PluginLoader::~PluginLoader()
{
    unload();
}

bool PluginLoader::isNotInited() const
{
    if (d->inited)
        log(&LogHandler::warning, generalCategory, {},
            QStringLiteral("The plugin loader is already inited"));
    return !d->inited;
}

bool PluginLoader::canLoadFrom(const QString &dirPath) const
{
    if (!isNotInited())
        return false;
    if (QFileInfo(dirPath).isDir())
        return true;
    const LogHandler handler({}, nullptr, 0, nullptr, generalCategory);
    handler.warning().debug().noquote() << "The folder" << dirPath << "doesn't exists";
    return false;
}

bool PluginLoader::loadFromDir(const QString &dirPath, const QStringList &disabledPluginIds)
{
    if (!canLoadFrom(dirPath))
        return false;
    struct Candidate
    {
        QFileInfo folder;
        std::unique_ptr<PluginLibrary> library;
    };
    std::vector<Candidate> candidates;
    // To read the metadata of all in a row is a good deal faster than in turn with loading and
    // describing, which work on other memory.
    QDirIterator folders(dirPath, QDir::Dirs | QDir::NoDotAndDotDot);
    while (folders.hasNext()) {
        folders.next();
        const QFileInfo folder = folders.fileInfo();
        const bool isWanted =
            isUuidText(folder.fileName()) && !disabledPluginIds.contains(folder.fileName());
        candidates.push_back(
            {folder, isWanted ? std::make_unique<PluginLibrary>(libraryPathIn(folder)) : nullptr});
    }
    bool result = true;
    for (Candidate &candidate : candidates)
        result &= loadFolder(candidate.folder, disabledPluginIds, std::move(candidate.library));
    return result;
}

bool PluginLoader::loadFromPluginDir(const QString &dirPath)
{
    // The name of a path such as "." or one that ends in a separator is that of the folder.
    return canLoadFrom(dirPath) && loadFolder(QFileInfo(QDir(dirPath).absolutePath()), {}, nullptr);
}

bool PluginLoader::loadFolder(const QFileInfo &folder, const QStringList &disabledPluginIds,
                              std::unique_ptr<PluginLibrary> library)
{
    const QString path = folder.absoluteFilePath();
    const QString id = folder.fileName();
    if (!isUuidText(id))
        return refuse(QStringLiteral("The name of the folder %1 is not a valid UUID").arg(path));
    if (disabledPluginIds.contains(id)) {
        log(&LogHandler::info, loadingCategory, id,
            QStringLiteral("The plugin with the id %1 (%2) will not be loaded (disabled by user)")
                .arg(id, path));
        return true;
    }
    if (const PluginData *loaded = pluginDataByPluginId(id)) {
        log(&LogHandler::critical, loadingCategory, id,
            QStringLiteral("A plugin with the id %1 is already loaded from path %2. The folder %3 "
                           "has not been loaded")
                .arg(id, loaded->libraryPath(), path));
        return false;
    }
    if (!library)
        return loadFromPluginPath(libraryPathIn(folder), id);
    return isNotInited() && loadLibrary(*library, id);
}

bool PluginLoader::loadFromPluginPath(const QString &libraryPath, const QString &expectedId)
{
    if (!isNotInited())
        return false;
    PluginLibrary library(QFileInfo(libraryPath).absoluteFilePath());
    return loadLibrary(library, expectedId);
}

bool PluginLoader::loadLibrary(PluginLibrary &library, const QString &expectedId)
{
    QElapsedTimer timer;
    timer.start();
    const QString &path = library.path();
    const auto refuseWith = [&](const QString &reason) {
        return refuse(QStringLiteral("Error loading the plugin %1: %2").arg(path, reason));
    };
    const QJsonObject json = library.metaData();
    const QString iid = json.value(interfaceIdKey).toString();
    if (iid.isEmpty())
        return refuseWith(QStringLiteral("the IID is not specified"));
    if (iid != interfaceId)
        return refuseWith(QStringLiteral("the IID %1 is not valid").arg(iid));

    QString error;
    QObject *root = library.instance(error);
    if (!root)
        return refuseWith(error);
    auto *plugin = qobject_cast<NARV::WidgetLibraryPlugin *>(root);
    if (!plugin)
        return refuseWith(QStringLiteral("invalid interface"));

    auto info = std::make_unique<WidgetLibraryPluginMetaInformation>();
    const int code = WidgetLibraryPluginUtils::metaInformationFromMetaData(json, *info);
    if (code)
        return refuseWith(QLatin1String(WidgetLibraryPluginUtils::errorToString(code)));
    const QString id = info->id();
    if (!expectedId.isEmpty() && expectedId != id)
        return refuseWith(
            QStringLiteral("the id %1 is not equal to the folder name %2").arg(id, expectedId));

    const QString loaded = QStringLiteral("Plugin %1 (v%2) loaded, author %3")
                               .arg(id, info->version().version(), info->author());
    const qint64 nanoseconds = library.readingNanoseconds() + timer.nsecsElapsed();
    // Not before the new record stands: the old one may be of the same library.
    const std::unique_ptr<PluginData> replaced(d->pluginData.value(id));
    d->pluginData.insert(
        id, new WidgetLibraryPluginData(path, library.take(), plugin, info.release(),
                                        double(nanoseconds) * millisecondsPerNanosecond));
    log(&LogHandler::info, loadingCategory, id, loaded);
    return true;
}

bool PluginLoader::checkPluginDir(const QString &dirPath) const
{
    const QFileInfo folder(QDir(dirPath).absolutePath());
    const QString id = folder.fileName();
    const auto isThere = [&](const PluginPlatform &platform) {
        return QFileInfo(platform.libraryPath(folder.absoluteFilePath(), id)).isFile();
    };
    const QVector<PluginPlatform> &platforms = PluginPlatform::required();
    return isUuidText(id) && std::all_of(platforms.cbegin(), platforms.cend(), isThere);
}

void PluginLoader::notify(Hook hook)
{
    // A plugin must not keep the others from hearing.
    for (auto it = d->pluginData.cbegin(); it != d->pluginData.cend(); ++it) {
        NARV::Plugin *plugin = it.value()->instance();
        const QString error = exceptionOf([&] { (plugin->*hook)(); });
        if (!error.isNull())
            log(&LogHandler::critical, loadingCategory, it.key(), error);
    }
}

bool PluginLoader::init()
{
    if (d->inited || d->pluginData.isEmpty())
        return false;
    notify(&NARV::Plugin::aboutToLoad);
    notify(&NARV::Plugin::load);
    d->inited = true;
    return true;
}

bool PluginLoader::isInit() const
{
    return d->inited;
}

bool PluginLoader::deinit()
{
    if (!d->inited || d->pluginData.isEmpty())
        return false;
    notify(&NARV::Plugin::aboutToUnload);
    notify(&NARV::Plugin::unload);
    d->inited = false;
    return true;
}

void PluginLoader::unload()
{
    deinit();
    qDeleteAll(d->pluginData);
    d->pluginData.clear();
}

const QMap<QString, PluginData *> &PluginLoader::pluginData() const
{
    return d->pluginData;
}

const PluginData *PluginLoader::pluginDataByPluginId(const QString &id) const
{
    return d->pluginData.value(id);
}

} // namespace NARV::INTERNAL
