#pragma once

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

namespace NARV::DEV {

//! Tells when a library file was replaced or written anew and has come to rest.
//!
//! Sees a file come that is not there yet, also after its folder was deleted and made again.
class LibraryWatch : public QObject
{
    Q_OBJECT

public:
    //! How a file is told from one that was written later.
    struct Stamp
    {
        qint64 size = -1; //!< -1: no such file
        QDateTime time;

        bool operator==(const Stamp &other) const
        {
            return size == other.size && time == other.time;
        }
    };

    explicit LibraryWatch(QObject *parent = nullptr);

    //! Watches this file, as it is now, in place of the last one; none if the path is empty.
    void watch(const QString &path);
    //! As it was known before: tells too if it has been replaced since.
    void watch(const QString &path, const Stamp &known);
    //! The file as it was when the watch began, or when it was last told.
    const Stamp &known() const { return m_known; }

Q_SIGNALS:
    void replaced();

private:
    Stamp stamp() const;
    bool isComplete() const;
    void follow();
    void look();

    QString m_path;
    QFileSystemWatcher m_watcher;
    QTimer m_timer;
    Stamp m_known; //!< what was told last
    Stamp m_seen;  //!< at the last look
    int m_quietLooks = 0;
};

} // namespace NARV::DEV
