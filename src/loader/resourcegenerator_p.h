#pragma once

#include "loader/resourceindex_p.h"
#include "loader/resourceworkspace_p.h"

#include <QSet>

#include <optional>

namespace NARV::INTERNAL {

class WidgetLibraryPluginData;

//! One run that brings the folder of the editor's resources up to date.
class ResourceGenerator
{
public:
    ResourceGenerator(const QString &folder, const QString &languageCode,
                      const QMap<QString, PluginData *> &plugins,
                      const PluginLoader::ResourceListener &listener);

    //! Makes the folders and index agree with the plugins; isRead tells whether the index could be
    //! read from indexPath. False if that was not the case or something failed.
    bool run(ResourceIndex &index, const QString &indexPath, bool isRead);

private:
    bool isCurrent(const QString &id, const PluginLoader::ExtraResourceData &entry) const;
    QStringList staleIds(const ResourceIndex &index) const;
    void listFolders();
    bool stopVouching(const ResourceIndex &index, const QStringList &stale,
                      const QString &indexPath) const;
    ResourceWorkspace &workspace();
    void remove(const QString &name);
    void generate(const WidgetLibraryPluginData &plugin, ResourceIndex &index);
    QString makeFolder(const WidgetLibraryPluginData &plugin);
    void record(const WidgetLibraryPluginData &plugin, ResourceIndex &index) const;
    void forgetFailed(ResourceIndex &index);
    void fail(const QString &name, const QString &message);
    void tell(const QString &name, PluginLoader::ResourceStep step) const;
    QString path(const QString &name) const { return m_folder + QLatin1Char('/') + name; }

    const QString m_folder;
    const QString m_languageCode;
    const QMap<QString, PluginData *> &m_plugins;
    const PluginLoader::ResourceListener &m_listener;
    std::optional<ResourceWorkspace> m_workspace; //!< made when there is something to do
    QSet<QString> m_folders;                      //!< that are there
    QSet<QString> m_failed;
    bool m_ok = true;
};

} // namespace NARV::INTERNAL
