#include "data/csvshelf.h"

#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace NARV::DEV {

// Milliseconds.
static constexpr int settlingTime = 200;
static constexpr int freshTime = 1000;

CsvShelf::CsvShelf(QObject *parent)
    : QObject(parent)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(settlingTime);
    const auto lookLater = [this] {
        if (!m_timer.isActive())
            m_timer.start();
    };
    connect(&m_timer, &QTimer::timeout, this, &CsvShelf::look);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, lookLater);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, lookLater);
}

CsvShelf::~CsvShelf() = default;

bool CsvShelf::Reading::isOf(const QString &path) const
{
    const QFileInfo file(path);
    return file.size() == size && file.lastModified() == modified;
}

std::shared_ptr<const CsvSeries> CsvShelf::series(const QString &filePath, CsvValues values)
{
    if (filePath.isEmpty())
        return std::make_shared<CsvSeries>(readCsvSeries(filePath, values));
    const QFileInfo file(filePath);
    const Key key(file.absoluteFilePath(), int(values));
    const Reading known = m_readings.value(key);
    const auto held = known.series.lock();
    if (held && known.isOf(key.first))
        return held;
    forgetUnused();
    auto read = std::make_shared<const CsvSeries>(readCsvSeries(key.first, values));
    const bool isFresh =
        file.exists() && file.lastModified().msecsTo(QDateTime::currentDateTime()) < freshTime;
    m_readings.insert(key, {read, file.size(), file.lastModified(), isFresh});
    watch(key.first);
    return read;
}

// The folder tells of a file that comes, or takes the place of another.
void CsvShelf::watch(const QString &path)
{
    const QFileInfo file(path);
    for (const QString &watched : {path, file.absolutePath()}) {
        if (QFileInfo::exists(watched))
            m_watcher.addPath(watched);
    }
}

void CsvShelf::forgetUnused()
{
    for (auto it = m_readings.begin(); it != m_readings.end();) {
        if (!it->series.expired()) {
            ++it;
            continue;
        }
        const QString path = it.key().first;
        it = m_readings.erase(it);
        // Its texts and its numbers may be held by different ones.
        if (std::none_of(m_readings.keyBegin(), m_readings.keyEnd(),
                         [&path](const Key &key) { return key.first == path; }))
            m_watcher.removePath(path);
    }
}

void CsvShelf::look()
{
    forgetUnused();
    const int before = m_readings.size();
    for (auto it = m_readings.begin(); it != m_readings.end();) {
        const bool isKept = it->isOf(it.key().first) && !it->isFresh;
        it = isKept ? std::next(it) : m_readings.erase(it);
    }
    if (m_readings.size() != before)
        Q_EMIT changed();
}

} // namespace NARV::DEV
