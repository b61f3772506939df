#ifndef ZPPLUGIN_TESTS_GUARDEDTEST_H
#define ZPPLUGIN_TESTS_GUARDEDTEST_H

#include "logrecorder.h"

#include <QObject>
#include <QRegularExpression>
#include <QStringList>

#include <mutex>

//! Base of the tests. A library log record that the test function did not take, a Qt warning that
//! it did not announce, and an announced one that did not come, each fail it.
//!
//! A test with an init() or a cleanup() of its own calls startGuard() or checkGuard() there.
class GuardedTest : public QObject
{
    Q_OBJECT

public:
    GuardedTest();
    ~GuardedTest() override;

protected:
    //! The library's records since the last call.
    QList<LogEntry> takeLog() { return m_log.take(); }
    //! Announces one Qt warning or critical message that is, or that matches, the given one.
    void expectQtWarning(const QString &message);
    void expectQtWarning(const QRegularExpression &message);

    void startGuard();
    void checkGuard();

private Q_SLOTS:
    void init() { startGuard(); }
    void cleanup() { checkGuard(); }

private:
    static void handleQtMessage(QtMsgType type, const QMessageLogContext &context,
                                const QString &message);
    bool isExpected(const QString &message);
    QStringList takeFaults();

    LogRecorder m_log;
    std::mutex m_mutex; // guards the next two
    QList<QRegularExpression> m_expected;
    QStringList m_unexpected;
    QtMessageHandler m_next = nullptr; // QtTest's own handler
};

#endif
