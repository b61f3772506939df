#ifndef ZPPLUGIN_TESTS_LOGRECORDER_H
#define ZPPLUGIN_TESTS_LOGRECORDER_H

#include <QList>
#include <QString>

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

//! Collects the library's log records, from any thread, for as long as it lives.
class LogRecorder
{
public:
    LogRecorder();
    ~LogRecorder();

    //! Takes the callback and the message pattern (back) to this recorder.
    void install();
    //! What was recorded since the last call.
    QList<LogEntry> take();

private:
    static void record(int type, const QString &source, const QString &message, void *self);

    std::mutex m_mutex;
    QList<LogEntry> m_entries;

    Q_DISABLE_COPY(LogRecorder)
};

#endif
