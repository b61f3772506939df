#ifndef ZPPLUGIN_TESTS_GUARDEDTEST_H
#define ZPPLUGIN_TESTS_GUARDEDTEST_H

#include <QStringList>
#include <QTest>

#include <mutex>

//! A library log record as the host's callback got it. Under a message pattern of the test's own
//! the message is all of the text and the category is empty.
struct LogEntry
{
    int type;
    QString source;
    QString category;
    QString message;
};

bool operator==(const LogEntry &a, const LogEntry &b);
//! For example: warning [GENERAL] <source> "message"
QString describe(const LogEntry &entry);
//! Found by QCOMPARE.
char *toString(const LogEntry &entry);

inline QString u(const char *text)
{
    return QString::fromUtf8(text);
}

//! Each row of a table, named by its member name, becomes a row of the test function's data.
template<class Row, size_t count>
void addRows(const Row (&rows)[count])
{
    QTest::addColumn<int>("row");
    for (const Row &row : rows)
        QTest::newRow(row.name) << int(&row - rows);
}

//! The row that the test function runs with.
template<class Row, size_t count>
const Row &currentRow(const Row (&rows)[count])
{
    QFETCH(int, row);
    return rows[row];
}

//! Base of the tests. A library log record that the test function did not take and a Qt warning
//! each fail it.
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
    QList<LogEntry> takeLog();
    void startGuard();
    void checkGuard();

private Q_SLOTS:
    void init() { startGuard(); }
    void cleanup() { checkGuard(); }

private:
    static void record(int type, const QString &source, const QString &message, void *self);
    static void handleQtMessage(QtMsgType type, const QMessageLogContext &context,
                                const QString &message);

    std::mutex m_mutex; // guards the next two
    QList<LogEntry> m_log;
    QStringList m_warnings;
    QtMessageHandler m_next = nullptr; // QtTest's own handler
};

#endif
