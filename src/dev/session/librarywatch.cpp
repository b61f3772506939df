#include "session/librarywatch.h"

#include "probe/libraryfile.h"

#include <NARV/INTERNAL/PluginPlatform>

#include <QDir>
#include <QFileInfo>

namespace NARV::DEV {

static const int lookMs = 100;
static const int settledLooks = 2;    //!< unchanged for that long, a complete file is finished
static const int abandonedLooks = 20; //!< and one that is not complete stays that way

LibraryWatch::LibraryWatch(QObject *parent)
    : QObject(parent)
{
    m_timer.setInterval(lookMs);
    connect(&m_timer, &QTimer::timeout, this, &LibraryWatch::look);
    const auto begin = [this] {
        follow();
        m_quietLooks = 0;
        m_timer.start();
    };
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, begin);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, begin);
}

void LibraryWatch::watch(const QString &path)
{
    m_timer.stop();
    m_path = path;
    m_known = stamp();
    follow();
}

void LibraryWatch::watch(const QString &path, const Stamp &known)
{
    watch(path);
    m_known = known;
    m_quietLooks = 0;
    m_timer.start();
}

LibraryWatch::Stamp LibraryWatch::stamp() const
{
    const QFileInfo file(m_path);
    return file.isFile() ? Stamp{file.size(), file.lastModified()} : Stamp();
}

bool LibraryWatch::isComplete() const
{
    const auto &platform = INTERNAL::PluginPlatform::running();
    return PROBE::LibraryFile::read(m_path).whyNotFor(platform).isEmpty();
}

//! Watches the file and its folder, or the first folder above that exists: a linker deletes the
//! file before it writes the new one, and with the file its watch ends.
void LibraryWatch::follow()
{
    QStringList wanted;
    if (QFileInfo::exists(m_path))
        wanted += m_path;
    if (!m_path.isEmpty()) {
        QString folder = QFileInfo(m_path).path();
        while (!QFileInfo::exists(folder) && folder != QFileInfo(folder).path())
            folder = QFileInfo(folder).path();
        wanted += folder;
    }
    const QStringList watched = m_watcher.files() + m_watcher.directories();
    for (const QString &path : watched) {
        if (!wanted.contains(path))
            m_watcher.removePath(path);
    }
    for (const QString &path : qAsConst(wanted)) {
        if (!watched.contains(path))
            m_watcher.addPath(path);
    }
}

void LibraryWatch::look()
{
    follow();
    const Stamp now = stamp();
    m_quietLooks = now == m_seen ? m_quietLooks + 1 : 0;
    m_seen = now;
    if (m_quietLooks < settledLooks)
        return;
    if (now == m_known || now.size < 0) {
        m_timer.stop();
        return;
    }
    if (m_quietLooks < abandonedLooks && !isComplete())
        return;
    m_timer.stop();
    m_known = now;
    Q_EMIT replaced();
}

} // namespace NARV::DEV
