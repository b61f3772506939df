#pragma once

#include <QMap>
#include <QObject>
#include <QStringList>

#include <memory>

#include <zpplugin_export.h>

class QFileInfo;

namespace NARV {
class Plugin;
}

namespace NARV::INTERNAL {

class PluginData;
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

    //! The records by plugin id. The loader owns them.
    const QMap<QString, PluginData *> &pluginData() const;
    //! The record of that plugin, or null. The loader owns it.
    const PluginData *pluginDataByPluginId(const QString &id) const;

private:
    Q_DISABLE_COPY(PluginLoader)

    using Hook = void (NARV::Plugin::*)();

    bool isNotInited() const;
    bool canLoadFrom(const QString &dirPath) const;
    bool loadFolder(const QFileInfo &folder, const QStringList &disabledPluginIds);
    void notify(Hook hook);

    const std::unique_ptr<PluginLoaderPrivate> d;
};

} // namespace NARV::INTERNAL
