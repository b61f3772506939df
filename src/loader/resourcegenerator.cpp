#include "loader/resourcegenerator_p.h"

#include "loader/resourcedocuments_p.h"
#include "loader/widgetlibraryplugindata.h"

#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>

#include <QDir>
#include <QFileInfo>

namespace NARV::INTERNAL {

using ResourceStep = PluginLoader::ResourceStep;

//! The version of this library as far as the content of the documents is concerned.
static QString documentsVersion()
{
    static const QString text = PluginMetaInformation::VersionType(1, 1, 0).version();
    return text;
}

static QDateTime modificationOf(const PluginData &plugin)
{
    return QFileInfo(plugin.libraryPath()).lastModified();
}

static QString toText(const QDateTime &time)
{
    return time.toString(Qt::ISODateWithMs);
}

ResourceGenerator::ResourceGenerator(const QString &folder, const QString &languageCode,
                                     const QMap<QString, PluginData *> &plugins,
                                     const PluginLoader::ResourceListener &listener)
    : m_folder(folder)
    , m_languageCode(languageCode)
    , m_plugins(plugins)
    , m_listener(listener)
{
}

void ResourceGenerator::tell(const QString &name, ResourceStep step) const
{
    if (m_listener)
        m_listener(name, step);
}

void ResourceGenerator::fail(const QString &name, const QString &message)
{
    logResourceError(message);
    m_failed.insert(name);
    m_ok = false;
    tell(name, ResourceStep::Failed);
}

// The text of a local time in the hour that clocks run through twice stands for two times.
bool ResourceGenerator::isCurrent(const QString &id,
                                  const PluginLoader::ExtraResourceData &entry) const
{
    const PluginData *plugin = m_plugins.value(id);
    if (!plugin || entry.languageId != m_languageCode || entry.libraryVersion != documentsVersion())
        return false;
    const QDateTime modification = modificationOf(*plugin);
    return modification == entry.modification || toText(modification) == toText(entry.modification);
}

QStringList ResourceGenerator::staleIds(const ResourceIndex &index) const
{
    QStringList ids;
    for (auto it = index.cbegin(); it != index.cend(); ++it) {
        if (!isCurrent(it.key(), *it))
            ids.append(it.key());
    }
    return ids;
}

void ResourceGenerator::listFolders()
{
    const auto names = QDir(m_folder).entryList(QDir::Dirs | QDir::Hidden | QDir::NoSymLinks |
                                                QDir::NoDotAndDotDot);
    m_folders = QSet<QString>(names.cbegin(), names.cend());
}

ResourceWorkspace &ResourceGenerator::workspace()
{
    return m_workspace ? *m_workspace : m_workspace.emplace(m_folder);
}

// As long as a folder is gone, being made, or made but not recorded, a run that ends there must not
// leave an entry behind by which the next run would take the folder for what it was before.
bool ResourceGenerator::stopVouching(const ResourceIndex &index, const QStringList &stale,
                                     const QString &indexPath) const
{
    ResourceIndex kept = index;
    for (auto it = m_plugins.cbegin(); it != m_plugins.cend(); ++it) {
        if (stale.contains(it.key()) || !m_folders.contains(it.key()))
            kept.remove(it.key());
    }
    if ((m_ok && kept.size() == index.size()) || !QFileInfo(indexPath).isFile())
        return true;
    QStringList messages; // the same that come again when the final index is written
    return replaceResourceIndex(indexPath, kept, messages) || !isOccupied(indexPath) ||
           QFile::remove(indexPath);
}

void ResourceGenerator::remove(const QString &name)
{
    const QString place = path(name);
    if (!isOccupied(place))
        return;
    const bool isFolder = m_folders.remove(name);
    if (workspace().discard(place))
        tell(name, ResourceStep::Removed);
    else
        fail(name, (isFolder ? QStringLiteral("Error removing directory %1")
                             : QStringLiteral("Error removing file %1"))
                       .arg(place));
}

//! Makes the plugin's folder. The text says what went wrong; null if nothing did.
QString ResourceGenerator::makeFolder(const WidgetLibraryPluginData &plugin)
{
    const QString id = plugin.metaInformation()->id();
    const QString folder = path(id);
    const QString unmade = QStringLiteral("Error creating directory %1").arg(folder);
    const QString incomplete = workspace().path(id);
    if (isOccupied(folder) || !workspace().isValid() || !QDir().mkdir(incomplete))
        return unmade;
    const QString error =
        writeResourceDocuments(*plugin.metaInformation(), m_languageCode, incomplete, folder);
    if (!error.isNull())
        return error;
    return workspace().moveOut(id, folder) ? QString() : unmade;
}

// A time that has no text, such as that of a file that is gone, would spoil the whole index.
void ResourceGenerator::record(const WidgetLibraryPluginData &plugin, ResourceIndex &index) const
{
    const QString id = plugin.metaInformation()->id();
    const QDateTime modification = modificationOf(plugin);
    if (m_ok && !toText(modification).isEmpty())
        index.insert(id, {modification, m_languageCode, documentsVersion()});
    else
        index.remove(id); // the entry of what was there before
}

void ResourceGenerator::generate(const WidgetLibraryPluginData &plugin, ResourceIndex &index)
{
    const QString id = plugin.metaInformation()->id();
    if (m_folders.contains(id)) {
        tell(id, ResourceStep::Kept);
        return;
    }
    tell(id, ResourceStep::Started);
    const QString error = makeFolder(plugin);
    if (!error.isNull()) {
        fail(id, error);
        return;
    }
    record(plugin, index);
    tell(id, ResourceStep::Generated);
}

void ResourceGenerator::forgetFailed(ResourceIndex &index)
{
    for (const QString &name : qAsConst(m_failed)) {
        index.remove(name);
        if (isOccupied(path(name)))
            workspace().discard(path(name));
    }
}

bool ResourceGenerator::run(ResourceIndex &index, const QString &indexPath, bool isRead)
{
    m_ok = isRead;
    listFolders();
    const QStringList stale = staleIds(index);
    if (!stopVouching(index, stale, indexPath))
        return false;
    for (const QString &id : stale)
        remove(id);
    // What a crash has left of a workspace belongs to no entry either.
    QStringList folders = m_folders.values();
    folders.sort();
    for (const QString &name : qAsConst(folders)) {
        if (!index.contains(name))
            remove(name);
    }
    for (const PluginData *plugin : m_plugins) {
        const bool isWidgetLibrary = plugin->type() == PluginData::Type::WidgetLibrary;
        const auto *library = plugin->toWidgetLibraryPluginData();
        if (isWidgetLibrary && !m_failed.contains(library->metaInformation()->id()))
            generate(*library, index);
    }
    forgetFailed(index);
    return m_ok;
}

//! The folder is there, or has been made.
static bool isOutputFolder(const QString &dirPath)
{
    const QFileInfo info(dirPath);
    if (info.isDir())
        return true;
    if (info.exists()) {
        logResourceError(QStringLiteral("dirPath must be a directory"));
        return false;
    }
    const bool isMade = QDir().mkpath(dirPath);
    if (!isMade) // hosts match on the text with its empty place
        logResourceError(QStringLiteral("Error creating %1").arg(info.absoluteFilePath()) +
                         QLatin1String(": %2"));
    return isMade;
}

static bool canGenerate(bool isInit, const QString &dirPath)
{
    if (isInit && !dirPath.isEmpty())
        return isOutputFolder(dirPath);
    logResourceError(
        isInit ? QStringLiteral("dirPath must be not empty")
               : QStringLiteral("generateStudioExtraResources must be called after init function"));
    return false;
}

bool PluginLoader::generateStudioExtraResources(const QString &dirPath, const QString &languageCode,
                                                const ResourceListener &listener)
{
    if (!canGenerate(isInit(), dirPath)) {
        unload();
        return false;
    }
    const QString folder = QDir(dirPath).absolutePath();
    const QString indexPath = folder + QLatin1String("/index.json");
    ResourceIndex index;
    const bool isRead = readExtraResourcesIndexFile(indexPath, index);
    const bool ok = ResourceGenerator(folder, languageCode, pluginData(), listener)
                        .run(index, indexPath, isRead);
    return writeExtraResourcesIndexFile(indexPath, index) && ok;
}

} // namespace NARV::INTERNAL
