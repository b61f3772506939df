#include "guardedtest.h"

#include <QTest>

#include <algorithm>

static GuardedTest *guardedTest = nullptr;

GuardedTest::GuardedTest()
{
    guardedTest = this;
}

GuardedTest::~GuardedTest()
{
    guardedTest = nullptr;
}

void GuardedTest::expectQtWarning(const QString &message)
{
    expectQtWarning(QRegularExpression(
        QRegularExpression::anchoredPattern(QRegularExpression::escape(message))));
}

void GuardedTest::expectQtWarning(const QRegularExpression &message)
{
    const std::lock_guard lock(m_mutex);
    m_expected.append(message);
}

void GuardedTest::startGuard()
{
    m_log.install();
    m_next = qInstallMessageHandler(handleQtMessage);
}

void GuardedTest::checkGuard()
{
    qInstallMessageHandler(m_next);
    const QStringList faults = takeFaults();
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
}

void GuardedTest::handleQtMessage(QtMsgType type, const QMessageLogContext &context,
                                  const QString &message)
{
    GuardedTest *self = guardedTest;
    const bool isWarning = type == QtWarningMsg || type == QtCriticalMsg;
    if (isWarning && self->isExpected(message))
        return;
    if (isWarning) {
        const std::lock_guard lock(self->m_mutex);
        self->m_unexpected.append(QStringLiteral("Qt: ") + message);
    }
    self->m_next(type, context, message);
}

bool GuardedTest::isExpected(const QString &message)
{
    const std::lock_guard lock(m_mutex);
    const auto it = std::find_if(m_expected.begin(), m_expected.end(), [&](const auto &expected) {
        return expected.match(message).hasMatch();
    });
    if (it == m_expected.end())
        return false;
    m_expected.erase(it);
    return true;
}

QStringList GuardedTest::takeFaults()
{
    const QList<LogEntry> log = takeLog();
    const std::lock_guard lock(m_mutex);
    QStringList faults = std::exchange(m_unexpected, {});
    for (const QRegularExpression &expected : std::exchange(m_expected, {}))
        faults.append(QStringLiteral("never came: ") + expected.pattern());
    for (const LogEntry &entry : log)
        faults.append(QStringLiteral("log: ") + describe(entry));
    return faults;
}
