#pragma once

#include <QDateTime>
#include <QMap>
#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>

#include <zpplugin_export.h>

class QFileInfo;

namespace NARV {
class Plugin;
}

namespace NARV::INTERNAL {

class PluginData;
class PluginLibrary;
class PluginLoaderPrivate;

//! Finds widget-library plugins on disk, checks and loads them, keeps one record per plugin, and
//! tells the plugins when the host starts and stops.
//!
//! A plugins folder has one folder per plugin, named by the plugin's id (a UUID); PluginPlatform
//! says where the library lies inside. What cannot be loaded leaves nothing behind but one log
//! record, in category "PLUGIN_LOADING", that says why. Lives on the host's main thread.
//!
//! A host calls one or more loadFrom... functions, then init(); at the end deinit() and unload(),
//! or destroys the loader. Delete what came out of a plugin's code (widgets, graphics objects)
//! before unloading: its library is really unmapped.
class ZPPLUGIN_EXPORT PluginLoader : public QObject
{
    Q_OBJECT

public:
    //! What the index of the editor's resources tells of one plugin.
    struct ExtraResourceData
    {
        QDateTime modification; //!< of the plugin's library when its resources were generated
        QString languageId;     //!< the language of the texts
        QString libraryVersion; //!< which version of the documents this library wrote
    };

    //! What becomes of a folder of the editor's resources.
    enum class ResourceStep
    {
        Removed,   //!< out of date, or of no plugin that is known
        Kept,      //!< up to date
        Started,   //!< is being generated
        Generated, //!< follows Started
        Failed     //!< could not be removed or generated; a log record tells why
    };
    //! Hears of each folder by its name, which is the id of its plugin.
    using ResourceListener = std::function<void(const QString &name, ResourceStep step)>;

    PluginLoader();
    //! Unloads everything.
    ~PluginLoader() override;

    //! Loads every plugin in a plugins folder but the disabled ones (ids, exactly as the folders
    //! are named). False if the folder does not exist or some plugin could not be loaded; the
    //! others are loaded all the same.
    bool loadFromDir(const QString &dirPath, const QStringList &disabledPluginIds = {});
    //! Loads the plugin of one plugin folder.
    bool loadFromPluginDir(const QString &dirPath);
    //! Loads one library file. Its plugin has to have the id expectedId unless that is empty. A
    //! record of the same id is replaced, which destroys the old one.
    bool loadFromPluginPath(const QString &libraryPath, const QString &expectedId);
    //! True if the folder is named by a UUID and holds a library for each required platform.
    bool checkPluginDir(const QString &dirPath) const;

    //! Calls aboutToLoad() on every plugin, then load() on every plugin, in the order of the ids.
    //! From then on nothing can be loaded. False if that was done already or there is no plugin.
    bool init();
    bool isInit() const;
    //! Calls aboutToUnload() on every plugin, then unload() on every plugin; loading is possible
    //! again. False if init() was not called or there is no plugin.
    bool deinit();
    //! Does what deinit() does and destroys all records.
    void unload();

    //! Writes what the editor needs to show the loaded plugins into the folder dirPath, which is
    //! made if missing: for each widget library one folder, named by the plugin's id, with texts
    //! in languageCode. Folders that are up to date stay as they are; all other folders in dirPath
    //! are removed. One call at a time may work on a folder. docs/file-formats.md describes the
    //! files.
    //!
    //! False if there was any error; each leaves a log record in category "RESOURCES_GENERATION".
    //! A plugin that failed has no folder then and is generated again by the next call, as is
    //! whatever a crash interrupted. When the call itself makes no sense (before init(), or with a
    //! dirPath that is no folder) all plugins are unloaded, too.
    bool generateStudioExtraResources(const QString &dirPath, const QString &languageCode,
                                      const ResourceListener &listener = {});

    //! The records by plugin id. The loader owns them.
    const QMap<QString, PluginData *> &pluginData() const;
    //! The record of that plugin, or null. The loader owns it.
    const PluginData *pluginDataByPluginId(const QString &id) const;

private:
    Q_DISABLE_COPY(PluginLoader)

    using Hook = void (NARV::Plugin::*)();

    //! Fills index from the file, which need not exist. False, and index is as it was, if the file
    //! is malformed.
    static bool readExtraResourcesIndexFile(const QString &path,
                                            QMap<QString, ExtraResourceData> &index);
    //! Replaces the file.
    static bool writeExtraResourcesIndexFile(const QString &path,
                                             const QMap<QString, ExtraResourceData> &index);

    bool isNotInited() const;
    bool canLoadFrom(const QString &dirPath) const;
    //! The library is that of the folder if it has been opened already, else null.
    bool loadFolder(const QFileInfo &folder, const QStringList &disabledPluginIds,
                    std::unique_ptr<PluginLibrary> library);
    bool loadLibrary(PluginLibrary &library, const QString &expectedId);
    void notify(Hook hook);

    const std::unique_ptr<PluginLoaderPrivate> d;
};

} // namespace NARV::INTERNAL
