#include "console/logrelay.h"

#include <NARV/LogHandler>

#include <QDateTime>

namespace NARV::DEV {

static const int batchMs = 50;
static const size_t maxPending = 100000;
//! Stands between the category and what the pattern makes: the callback gets one text only.
static const QChar separator(0x1f);
static const QLatin1String libraryPattern(
    "[%{TIME}]%{IF-NOT-INFO}[%{TYPE}]%{ENDIF}%{IF-CATEGORY}[%{CATEGORY}]%{ENDIF}: %{MESSAGE}");

LogRelay::LogRelay(QObject *parent)
    : QObject(parent)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(batchMs);
    connect(&m_timer, &QTimer::timeout, this, &LogRelay::flush);
}

LogRelay::~LogRelay()
{
    uninstall();
}

void LogRelay::install()
{
    m_isInstalled = true;
    setPattern(m_pattern);
    narvInstallLogMessageHandlerPrivate(&LogRelay::handle, this);
}

void LogRelay::uninstall()
{
    if (!m_isInstalled)
        return;
    m_isInstalled = false;
    narvUninstallLogMessageHandlerPrivate();
    narvSetLogMessagePattern(libraryPattern);
}

void LogRelay::setPattern(const QString &pattern)
{
    m_pattern = pattern;
    if (m_isInstalled)
        narvSetLogMessagePattern(QLatin1String("%{CATEGORY}") + separator + pattern);
}

void LogRelay::handle(int type, const QString &source, const QString &message, void *relay)
{
    const int end = message.indexOf(separator);
    static_cast<LogRelay *>(relay)->add({QDateTime::currentMSecsSinceEpoch(), QtMsgType(type),
                                         message.left(qMax(0, end)), source, message.mid(end + 1)});
}

void LogRelay::add(const LogRecord &record)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_pending.push_back(record);
    if (m_pending.size() > maxPending)
        m_pending.pop_front();
    if (m_isAnnounced)
        return;
    m_isAnnounced = true;
    // The timer belongs to the relay's thread.
    QMetaObject::invokeMethod(&m_timer, QOverload<>::of(&QTimer::start), Qt::QueuedConnection);
}

void LogRelay::flush()
{
    QVector<LogRecord> records;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        records.reserve(static_cast<int>(m_pending.size()));
        std::move(m_pending.begin(), m_pending.end(), std::back_inserter(records));
        m_pending.clear();
        m_isAnnounced = false;
    }
    if (!records.isEmpty())
        Q_EMIT arrived(records);
}

} // namespace NARV::DEV
