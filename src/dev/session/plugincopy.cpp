#include "session/plugincopy.h"

#include <NARV/INTERNAL/PluginPlatform>

#include <QCoreApplication>
#include <QFileInfo>
#include <QLockFile>
#include <QTemporaryDir>

#include <algorithm>

namespace NARV::DEV {

static const QLatin1String copiesName("zpplugin-bench-");
static const QLatin1String lockName("/lock");

PluginFile::PluginFile(const QString &path_)
    : isFolder(QFileInfo(path_).isDir())
    , path(QDir::cleanPath(QFileInfo(path_).absoluteFilePath()))
    , libraryPath(path)
{
    if (isFolder)
        libraryPath = QDir::fromNativeSeparators(
            INTERNAL::PluginPlatform::running().libraryPath(path, QFileInfo(path).fileName()));
}

//! Removes what processes have left that did not come to their end.
static void removeStaleCopies()
{
    const auto folders = QDir::temp().entryInfoList(
        {copiesName + QLatin1Char('*')}, QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks);
    for (const QFileInfo &folder : folders) {
        const QString path = folder.absoluteFilePath();
        if (!QFile::exists(path + lockName)) // its owner is about to make one
            continue;
        QLockFile lock(path + lockName);
        lock.setStaleLockTime(0); // only the end of its process frees it
        if (!lock.tryLock())
            continue;
        for (const QFileInfo &copy : QDir(path).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot))
            QDir(copy.absoluteFilePath()).removeRecursively();
        lock.unlock();
        QDir(path).removeRecursively();
    }
}

PluginCopies::PluginCopies()
{
    removeStaleCopies();
}

PluginCopies::~PluginCopies() = default;

bool PluginCopies::prepare(QString &problem)
{
    if (m_folder)
        return true;
    auto folder = std::make_unique<QTemporaryDir>(QDir::temp().filePath(copiesName) +
                                                  QLatin1String("XXXXXX"));
    if (!folder->isValid()) {
        problem = folder->errorString();
        return false;
    }
    m_folder = std::move(folder);
    m_lock = std::make_unique<QLockFile>(m_folder->path() + lockName);
    m_lock->setStaleLockTime(0);
    m_lock->tryLock();
    return true;
}

//! A library may look for others beside itself.
static void linkNeighbours(const QFileInfo &library, const QDir &target)
{
    const QStringList libraries{QStringLiteral("*.so"), QStringLiteral("*.so.*")};
    for (const QFileInfo &file : library.dir().entryInfoList(libraries, QDir::Files)) {
        if (file.fileName() != library.fileName())
            QFile::link(file.absoluteFilePath(), target.filePath(file.fileName()));
    }
}

QString PluginCopies::make(const PluginFile &original, QString &problem)
{
    if (!prepare(problem))
        return {};
    const QFileInfo source(original.path);
    const QFileInfo library(original.libraryPath);
    const QString root = m_folder->filePath(QString::number(++m_count));
    const QString path = root + QLatin1Char('/') + source.fileName();
    const QString target =
        original.isFolder ? path + original.libraryPath.mid(original.path.size()) : path;
    QDir().mkpath(QFileInfo(target).path());
    QFile file(original.libraryPath);
    if (!file.copy(target)) {
        problem = file.errorString();
        QDir(root).removeRecursively();
        return {};
    }
    linkNeighbours(library, QFileInfo(target).dir());
    return path;
}

void PluginCopies::keepOnly(const QStringList &copies)
{
    if (!m_folder)
        return;
    const auto folders =
        QDir(m_folder->path()).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks);
    for (const QFileInfo &folder : folders) {
        const QString path = folder.absoluteFilePath();
        const bool isKept = std::any_of(copies.begin(), copies.end(), [&](const QString &copy) {
            return copy.startsWith(path + QLatin1Char('/'));
        });
        if (!isKept)
            QDir(path).removeRecursively();
    }
}

QString PluginCopies::asOriginal(const PluginFile &original, const QString &words) const
{
    if (!m_folder)
        return words;
    QString result = words;
    const QString name = QLatin1Char('/') + QFileInfo(original.path).fileName();
    for (int i = m_count; i > 0; --i)
        result.replace(m_folder->filePath(QString::number(i)) + name, original.path);
    return result;
}

} // namespace NARV::DEV
