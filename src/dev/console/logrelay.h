#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <QVector>

#include <zpplugin_dev_export.h>

#include <deque>
#include <mutex>

namespace NARV::DEV {

//! A log record as the console keeps it.
struct LogRecord
{
    qint64 time = 0; //!< milliseconds since the epoch
    QtMsgType type = QtInfoMsg;
    QString category;
    QString source; //!< the id of the plugin concerned; may be empty
    QString text;   //!< made with the message pattern
};

//! Takes the log records of this process, from any thread, and hands them out in batches on its
//! own.
//!
//! Takes nothing before install(), which a program calls that has no callback of its own. A program
//! that has one passes the records on with add().
class ZPPLUGIN_DEV_EXPORT LogRelay : public QObject
{
    Q_OBJECT

public:
    explicit LogRelay(QObject *parent = nullptr);
    //! Uninstalls.
    ~LogRelay() override;

    //! Becomes the callback of the library's log, and sets the message pattern, in place of what is
    //! there. No other thread may be logging.
    void install();
    //! Removes the callback; the message pattern becomes the library's own.
    void uninstall();
    bool isInstalled() const { return m_isInstalled; }

    //! How the text of a record is made, as narvSetLogMessagePattern() tells; "%{MESSAGE}" at
    //! first.
    void setPattern(const QString &pattern);
    const QString &pattern() const { return m_pattern; }

    //! Any thread. Of records that nobody fetches for long the oldest are dropped.
    void add(const LogRecord &record);
    //! Hands out at once what has come; on the relay's own thread.
    void flush();

Q_SIGNALS:
    void arrived(const QVector<NARV::DEV::LogRecord> &records);

private:
    static void handle(int type, const QString &source, const QString &message, void *relay);

    std::mutex m_mutex; // guards the next two
    std::deque<LogRecord> m_pending;
    bool m_isAnnounced = false;
    QTimer m_timer;
    QString m_pattern = QStringLiteral("%{MESSAGE}");
    bool m_isInstalled = false;
};

} // namespace NARV::DEV
