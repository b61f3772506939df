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

#include <utility>
#include <vector>

namespace NARV::INTERNAL {

static constexpr char generalCategory[] = "GENERAL";
static constexpr char loadingCategory[] = "PLUGIN_LOADING";

using Level = Debug (LogHandler::*)() const;

static void log(Level level, const char *category, const QString &source, const QString &message)
{
    const LogHandler handler(source, nullptr, 0, nullptr, category);
    (handler.*level)().debug().noquote() << message;
}

class PluginLoaderPrivate
{
public:
    void tell(Level level, const QString &source, const QString &message);
    bool isDisabled(const QFileInfo &folder, const QStringList &disabledPluginIds);
    //! Load the library of a plugin; null if that fails, which has been reported then.
    std::unique_ptr<PluginLibrary> loadFolder(const QFileInfo &folder);
    std::unique_ptr<PluginLibrary> loadLibrary(const QString &libraryPath,
                                               const QString &expectedId);
    //! Reads the description of a library and keeps a record of its plugin. False if the library is
    //! null or malformed.
    bool keep(std::unique_ptr<PluginLibrary> library);
    //! False if one of those that wait is malformed.
    bool keepWaiting();

    bool inited = false;
    QMap<QString, PluginData *> pluginData;
    //! Loaded, but not yet described.
    std::vector<std::unique_ptr<PluginLibrary>> waiting;
    bool allAreKept = true; //!< of those that waited

private:
    bool refuse(const QString &message, const QString &source = {});
    bool carryOut(QString (PluginLibrary::*step)(), PluginLibrary &library);
};

// In the order of the folders: first what there is to say of the plugins that wait.
void PluginLoaderPrivate::tell(Level level, const QString &source, const QString &message)
{
    keepWaiting();
    log(level, loadingCategory, source, message);
}

//! Reports why a plugin is not loaded; always false.
bool PluginLoaderPrivate::refuse(const QString &message, const QString &source)
{
    tell(&LogHandler::critical, source, message);
    return false;
}

//! Carries out one step of loading a library and reports what went wrong.
bool PluginLoaderPrivate::carryOut(QString (PluginLibrary::*step)(), PluginLibrary &library)
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
bool PluginLoaderPrivate::isDisabled(const QFileInfo &folder, const QStringList &disabledPluginIds)
{
    const QString id = folder.fileName();
    if (!isUuidText(id) || !disabledPluginIds.contains(id))
        return false;
    tell(&LogHandler::info, id,
         QStringLiteral("The plugin with the id %1 (%2) will not be loaded (disabled by user)")
             .arg(id, folder.absoluteFilePath()));
    return true;
}

// Libraries first, then their descriptions: by turns, the code and data of either would push those
// of the other out of the processor's caches.
bool PluginLoader::loadFromDir(const QString &dirPath, const QStringList &disabledPluginIds)
{
    if (!canLoadFrom(dirPath))
        return false;
    bool result = true;
    d->allAreKept = true;
    QDirIterator folders(dirPath, QDir::Dirs | QDir::NoDotAndDotDot);
    while (folders.hasNext()) {
        folders.next();
        if (d->isDisabled(folders.fileInfo(), disabledPluginIds))
            continue;
        auto library = d->loadFolder(folders.fileInfo());
        if (library && library->hasExpectedId())
            d->waiting.push_back(std::move(library));
        else
            result &= d->keep(std::move(library));
    }
    return d->keepWaiting() && result;
}

bool PluginLoader::loadFromPluginDir(const QString &dirPath)
{
    // The name of a path such as "." or one that ends in a separator is that of the folder.
    return canLoadFrom(dirPath) && d->keep(d->loadFolder(QFileInfo(QDir(dirPath).absolutePath())));
}

bool PluginLoader::loadFromPluginPath(const QString &libraryPath, const QString &expectedId)
{
    return isNotInited() && d->keep(d->loadLibrary(libraryPath, expectedId));
}

std::unique_ptr<PluginLibrary> PluginLoaderPrivate::loadFolder(const QFileInfo &folder)
{
    const QString path = folder.absoluteFilePath();
    const QString id = folder.fileName();
    if (!isUuidText(id)) {
        refuse(QStringLiteral("The name of the folder %1 is not a valid UUID").arg(path));
        return nullptr;
    }
    if (const PluginData *loaded = pluginData.value(id)) {
        refuse(QStringLiteral("A plugin with the id %1 is already loaded from path %2. The folder "
                              "%3 has not been loaded")
                   .arg(id, loaded->libraryPath(), path),
               id);
        return nullptr;
    }
    return loadLibrary(PluginPlatform::running().libraryPath(path, id), id);
}

std::unique_ptr<PluginLibrary> PluginLoaderPrivate::loadLibrary(const QString &libraryPath,
                                                                const QString &expectedId)
{
    const QString path = QFileInfo(libraryPath).absoluteFilePath();
    auto library = std::make_unique<PluginLibrary>(path, expectedId);
    if (!carryOut(&PluginLibrary::readMetaData, *library))
        return nullptr;
    // What lies in a foreign folder must not get in the way of another's translations.
    if (!library->hasExpectedId())
        keepWaiting();
    return carryOut(&PluginLibrary::load, *library) ? std::move(library) : nullptr;
}

bool PluginLoaderPrivate::keep(std::unique_ptr<PluginLibrary> library)
{
    if (!library || !carryOut(&PluginLibrary::describe, *library))
        return false;
    auto data = library->takeData();
    const WidgetLibraryPluginMetaInformation &info = *data->metaInformation();
    const QString id = info.id();
    // Not before the new record stands: the old one may be of the same library.
    const std::unique_ptr<PluginData> replaced(pluginData.value(id));
    pluginData.insert(id, data.release());
    tell(&LogHandler::info, id,
         QStringLiteral("Plugin %1 (v%2) loaded, author %3")
             .arg(id, info.version().version(), info.author()));
    return true;
}

bool PluginLoaderPrivate::keepWaiting()
{
    for (auto &library : std::exchange(waiting, {}))
        allAreKept &= keep(std::move(library));
    return allAreKept;
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
