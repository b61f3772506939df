#include "loader/pluginloader.h"

#include "core/currentexception_p.h"
#include "core/uuidtext_p.h"
#include "loader/platform.h"
#include "loader/pluginlibrary_p.h"
#include "loader/widgetlibraryplugindata.h"

#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>
#include <NARV/LogHandler>
#include <NARV/WidgetLibraryPlugin>

#include <QDir>
#include <QDirIterator>

#include <vector>

namespace NARV::INTERNAL {

static constexpr char generalCategory[] = "GENERAL";
static constexpr char loadingCategory[] = "PLUGIN_LOADING";

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

//! Reports why a plugin is not loaded; always false.
static bool refuse(const QString &message, const QString &source = {})
{
    log(&LogHandler::critical, loadingCategory, source, message);
    return false;
}

//! Carries out one step of loading a library and reports what went wrong.
static bool carryOut(QString (PluginLibrary::*step)(), PluginLibrary &library)
{
    const QString error = (library.*step)();
    return error.isNull() ||
           refuse(QStringLiteral("Error loading the plugin %1: %2").arg(library.path(), error));
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

//! Says so in the log when the user has disabled the plugin of that folder.
static bool isDisabled(const QFileInfo &folder, const QStringList &disabledPluginIds)
{
    const QString id = folder.fileName();
    if (!isUuidText(id) || !disabledPluginIds.contains(id))
        return false;
    log(&LogHandler::info, loadingCategory, id,
        QStringLiteral("The plugin with the id %1 (%2) will not be loaded (disabled by user)")
            .arg(id, folder.absoluteFilePath()));
    return true;
}

// All libraries first, then all descriptions: by turns, the code and data of either would push
// those of the other out of the processor's caches.
bool PluginLoader::loadFromDir(const QString &dirPath, const QStringList &disabledPluginIds)
{
    if (!canLoadFrom(dirPath))
        return false;
    bool result = true;
    std::vector<std::unique_ptr<PluginLibrary>> libraries;
    QDirIterator folders(dirPath, QDir::Dirs | QDir::NoDotAndDotDot);
    while (folders.hasNext()) {
        folders.next();
        if (isDisabled(folders.fileInfo(), disabledPluginIds))
            continue;
        auto library = loadFolder(folders.fileInfo());
        // What lies in a foreign folder is refused before its translations get in another's way.
        if (library && library->hasExpectedId())
            libraries.push_back(std::move(library));
        else
            result &= keep(std::move(library));
    }
    for (auto &library : libraries)
        result &= keep(std::move(library));
    return result;
}

bool PluginLoader::loadFromPluginDir(const QString &dirPath)
{
    // The name of a path such as "." or one that ends in a separator is that of the folder.
    return canLoadFrom(dirPath) && keep(loadFolder(QFileInfo(QDir(dirPath).absolutePath())));
}

bool PluginLoader::loadFromPluginPath(const QString &libraryPath, const QString &expectedId)
{
    return isNotInited() && keep(loadLibrary(libraryPath, expectedId));
}

std::unique_ptr<PluginLibrary> PluginLoader::loadFolder(const QFileInfo &folder) const
{
    const QString path = folder.absoluteFilePath();
    const QString id = folder.fileName();
    if (!isUuidText(id)) {
        refuse(QStringLiteral("The name of the folder %1 is not a valid UUID").arg(path));
        return nullptr;
    }
    if (const PluginData *loaded = pluginDataByPluginId(id)) {
        refuse(QStringLiteral("A plugin with the id %1 is already loaded from path %2. The folder "
                              "%3 has not been loaded")
                   .arg(id, loaded->libraryPath(), path),
               id);
        return nullptr;
    }
    return loadLibrary(PluginPlatform::running().libraryPath(path, id), id);
}

std::unique_ptr<PluginLibrary> PluginLoader::loadLibrary(const QString &libraryPath,
                                                         const QString &expectedId) const
{
    const QString path = QFileInfo(libraryPath).absoluteFilePath();
    auto library = std::make_unique<PluginLibrary>(path, expectedId);
    return carryOut(&PluginLibrary::load, *library) ? std::move(library) : nullptr;
}

bool PluginLoader::keep(std::unique_ptr<PluginLibrary> library)
{
    if (!library || !carryOut(&PluginLibrary::describe, *library))
        return false;
    auto data = library->takeData();
    const WidgetLibraryPluginMetaInformation &info = *data->metaInformation();
    const QString id = info.id();
    // Not before the new record stands: the old one may be of the same library.
    const std::unique_ptr<PluginData> replaced(d->pluginData.value(id));
    d->pluginData.insert(id, data.release());
    log(&LogHandler::info, loadingCategory, id,
        QStringLiteral("Plugin %1 (v%2) loaded, author %3")
            .arg(id, info.version().version(), info.author()));
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
