#include "logrecorder.h"

#include <NARV/LogHandler>

#include <QTest>

#include <algorithm>

// Between the category and the message: nothing that either would hold.
static constexpr QChar separator(0x1f);

bool operator==(const LogEntry &a, const LogEntry &b)
{
    return a.type == b.type && a.source == b.source && a.category == b.category &&
           a.message == b.message;
}

QString describe(const LogEntry &entry)
{
    static const char *const types[] = {"debug", "warning", "critical", "fatal", "info"};
    return QStringLiteral("%1 [%2] <%3> \"%4\"")
        .arg(QLatin1String(types[entry.type]), entry.category, entry.source, entry.message);
}

char *toString(const LogEntry &entry)
{
    return QTest::toString(describe(entry));
}

LogRecorder::LogRecorder()
{
    install();
}

LogRecorder::~LogRecorder()
{
    NARV::narvUninstallLogMessageHandlerPrivate();
}

void LogRecorder::install()
{
    NARV::narvSetLogMessagePattern(QStringLiteral("%{CATEGORY}") + separator +
                                   QStringLiteral("%{MESSAGE}"));
    NARV::narvInstallLogMessageHandlerPrivate(record, this);
}

QList<LogEntry> LogRecorder::take()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_entries, {});
}

void LogRecorder::record(int type, const QString &source, const QString &message, void *self)
{
    auto *recorder = static_cast<LogRecorder *>(self);
    const int end = message.indexOf(separator);
    const std::lock_guard lock(recorder->m_mutex);
    recorder->m_entries.append(
        {type, source, message.left(std::max(end, 0)), message.mid(end + 1)});
}
