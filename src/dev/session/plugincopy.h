#pragma once

#include <QDir>
#include <QString>

#include <memory>

class QLockFile;
class QTemporaryDir;

namespace NARV::DEV {

//! A plugin on disk, as a person names it.
struct PluginFile
{
    //! path is a plugin folder or a library file.
    explicit PluginFile(const QString &path);

    bool isFolder = false;
    QString path;        //!< absolute
    QString libraryPath; //!< absolute; the file need not exist
};

//! Copies of one plugin's library, each under a path that no process has loaded yet. The folder
//! that they lie in goes with this object, and that of a process that crashed with the next object
//! made.
class PluginCopies
{
public:
    PluginCopies();
    ~PluginCopies();

    //! Makes a fresh copy. Gives what to open, a plugin folder or a library like the original;
    //! empty, and the reason in problem, if that fails.
    QString make(const PluginFile &original, QString &problem);
    //! Removes all copies but those.
    void keepOnly(const QStringList &copies);
    //! Words about a copy as words about the original.
    QString asOriginal(const PluginFile &original, const QString &words) const;

private:
    bool prepare(QString &problem);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QLockFile> m_lock;
    int m_count = 0;
};

} // namespace NARV::DEV
