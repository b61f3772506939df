#include "guardedtest.h"

#include <NARV/LogHandler>

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

static GuardedTest *guardedTest = nullptr;

GuardedTest::GuardedTest()
{
    guardedTest = this;
}

GuardedTest::~GuardedTest()
{
    NARV::narvUninstallLogMessageHandlerPrivate();
    guardedTest = nullptr;
}

void GuardedTest::record(int type, const QString &source, const QString &message, void *self)
{
    auto *test = static_cast<GuardedTest *>(self);
    const int end = message.indexOf(separator);
    const std::lock_guard lock(test->m_mutex);
    test->m_log.append({type, source, message.left(std::max(end, 0)), message.mid(end + 1)});
}

QList<LogEntry> GuardedTest::takeLog()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_log, {});
}

void GuardedTest::startGuard()
{
    NARV::narvSetLogMessagePattern(QStringLiteral("%{CATEGORY}") + separator +
                                   QStringLiteral("%{MESSAGE}"));
    NARV::narvInstallLogMessageHandlerPrivate(record, this);
    m_next = qInstallMessageHandler(handleQtMessage);
}

void GuardedTest::checkGuard()
{
    qInstallMessageHandler(m_next);
    QStringList faults;
    for (const LogEntry &entry : takeLog())
        faults += QStringLiteral("log: ") + describe(entry);
    const std::lock_guard lock(m_mutex);
    faults += std::exchange(m_warnings, {});
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
}

void GuardedTest::handleQtMessage(QtMsgType type, const QMessageLogContext &context,
                                  const QString &message)
{
    GuardedTest *self = guardedTest;
    // Said of each window and popup where there is no display.
    if (message.startsWith(QLatin1String("This plugin does not support ")))
        return;
    if (type == QtWarningMsg || type == QtCriticalMsg) {
        const std::lock_guard lock(self->m_mutex);
        self->m_warnings += QStringLiteral("Qt: ") + message;
    }
    self->m_next(type, context, message);
}
