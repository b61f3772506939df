#include "loader/resourceindex_p.h"

#include "core/uuidtext_p.h"
#include "loader/resourceworkspace_p.h"

#include <NARV/INTERNAL/PluginMetaInformation>
#include <NARV/LogHandler>

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <algorithm>
#include <iterator>

namespace NARV::INTERNAL {

static const QLatin1String entriesKey("extraResourceInfo");
static const QLatin1String idKey("id");
static const QLatin1String modificationKey("modification");
static const QLatin1String languageIdKey("languageId");
static const QLatin1String libraryVersionKey("libraryVersion");

//! Far above any index; a file that is larger is not read to its end.
static constexpr qint64 largestIndex = 64 << 20;

void logResourceError(const QString &message)
{
    const LogHandler handler({}, nullptr, 0, nullptr, "RESOURCES_GENERATION");
    handler.critical().debug().noquote() << message;
}

static bool hasAllMembers(const QJsonObject &object)
{
    const QLatin1String keys[] = {idKey, modificationKey, languageIdKey, libraryVersionKey};
    return std::all_of(std::begin(keys), std::end(keys),
                       [&](QLatin1String key) { return object.value(key).isString(); });
}

//! Adds one entry to index. The text says why that is not possible; null if it is.
static QString readEntry(const QJsonValue &value, ResourceIndex &index)
{
    if (!value.isObject())
        return QStringLiteral("extraResourceInfo is not an array of objects");
    const QJsonObject object = value.toObject();
    if (!hasAllMembers(object))
        return QStringLiteral("One or more extraResourceInfo elements are invalid");
    const auto wrong = [](const char *what, const QString &place) {
        return QStringLiteral("extraResourceInfo element with id %1 %2")
            .arg(place, QLatin1String(what));
    };
    const QString id = object.value(idKey).toString();
    if (!isUuidText(id))
        return wrong("is invalid", id);
    if (index.contains(id))
        return wrong("is duplicated", id);
    const QString timeText = object.value(modificationKey).toString();
    const QDateTime modification = QDateTime::fromString(timeText, Qt::ISODateWithMs);
    if (!modification.isValid())
        return wrong("has an invalid \"modification\" time", id);
    const QString versionText = object.value(libraryVersionKey).toString();
    const PluginMetaInformation::VersionType version(versionText);
    if (!version.isValid()) // told with the version where the others tell the id
        return wrong("has an invalid \"libraryVersion\"", versionText);
    index.insert(id, {modification, object.value(languageIdKey).toString(), version.version()});
    return {};
}

static QString readEntries(const QJsonObject &object, ResourceIndex &index)
{
    const QJsonValue entries = object.value(entriesKey);
    if (entries.isUndefined())
        return {};
    if (!entries.isArray())
        return QStringLiteral("extraResourceInfo is not an array");
    const QJsonArray array = entries.toArray();
    for (const QJsonValue &entry : array) {
        const QString error = readEntry(entry, index);
        if (!error.isNull())
            return error;
    }
    return {};
}

static QString readContent(const QByteArray &content, const QString &path, ResourceIndex &index)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(content, &error);
    if (document.isNull())
        return QStringLiteral("%1:%2: error %3 -> %4")
            .arg(path, QString::number(error.offset), QString::number(error.error),
                 error.errorString());
    if (!document.isObject())
        return QStringLiteral("%1 must contains a json object").arg(path);
    return readEntries(document.object(), index);
}

// What is no file is not opened: reading from a device or a pipe might never end.
bool PluginLoader::readExtraResourcesIndexFile(const QString &path, ResourceIndex &index)
{
    const QFileInfo info(path);
    if (!info.exists())
        return true;
    const QString absolutePath = info.absoluteFilePath();
    if (!info.isFile())
        logResourceError(QStringLiteral("Index %1 is not a file").arg(absolutePath));
    QFile file(absolutePath);
    if (!info.isFile() || !file.open(QIODevice::ReadOnly)) {
        logResourceError(QStringLiteral("%1 opening error").arg(absolutePath));
        return false;
    }
    ResourceIndex entries;
    const QString error = readContent(file.read(largestIndex), absolutePath, entries);
    if (error.isNull())
        index = entries;
    else
        logResourceError(error);
    return error.isNull();
}

static QByteArray toJson(const ResourceIndex &index)
{
    QJsonArray entries;
    for (auto it = index.cbegin(); it != index.cend(); ++it)
        entries.append(QJsonObject{{idKey, it.key()},
                                   {modificationKey, it->modification.toString(Qt::ISODateWithMs)},
                                   {languageIdKey, it->languageId},
                                   {libraryVersionKey, it->libraryVersion}});
    return QJsonDocument(QJsonObject{{entriesKey, entries}}).toJson();
}

static bool writeWhole(QSaveFile &file, const QByteArray &content)
{
    // The result of flush() is the only one that tells of a full disk.
    return file.write(content) == content.size() && file.flush() && file.commit();
}

bool replaceResourceIndex(const QString &path, const ResourceIndex &index, QStringList &messages)
{
    static const QString name = QStringLiteral("index.json");
    const ResourceWorkspace workspace(QFileInfo(path).path());
    // In a folder that takes no new files the one that is there may still be written to; one that
    // a link leads to is not.
    const bool isDirect = !workspace.isValid();
    QSaveFile file(isDirect ? path : workspace.path(name));
    file.setDirectWriteFallback(isDirect);
    if ((isDirect && QFileInfo(path).isSymLink()) || !file.open(QIODevice::WriteOnly)) {
        messages += QStringLiteral("%1 opening error").arg(path);
        return false;
    }
    if (writeWhole(file, toJson(index)) && (isDirect || workspace.moveOut(name, path)))
        return true;
    messages += QStringLiteral("%1 writing error").arg(path);
    if (isOccupied(path) && !QFile::remove(path))
        messages += QStringLiteral("%1 removing error").arg(path);
    return false;
}

bool PluginLoader::writeExtraResourcesIndexFile(const QString &path, const ResourceIndex &index)
{
    const QFileInfo info(path);
    const QString absolutePath = info.absoluteFilePath();
    if (info.exists() && !info.isFile()) {
        logResourceError(
            QStringLiteral("Index %1 is not a file. Will be deleted").arg(absolutePath));
        if (!ResourceWorkspace(info.absolutePath()).discard(absolutePath)) {
            logResourceError(QStringLiteral("%1 removing error").arg(absolutePath));
            return false;
        }
    }
    QStringList messages;
    const bool ok = replaceResourceIndex(absolutePath, index, messages);
    for (const QString &message : qAsConst(messages))
        logResourceError(message);
    return ok;
}

} // namespace NARV::INTERNAL
