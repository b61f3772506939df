#pragma once

#include "data/csvseries.h"

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QHash>
#include <QTimer>

#include <memory>

namespace NARV::DEV {

//! Reads each CSV file once for all who use it, and again when it has changed. A reading stays in
//! memory for as long as somebody holds it.
class ZPPLUGIN_DEV_EXPORT CsvShelf : public QObject
{
    Q_OBJECT

public:
    explicit CsvShelf(QObject *parent = nullptr);
    ~CsvShelf() override;

    //! Never null; a file that cannot be read is a series with problems.
    std::shared_ptr<const CsvSeries> series(const QString &filePath, CsvValues values);

Q_SIGNALS:
    //! Some file that is held is another one now. Told a moment after the first change, as files
    //! are often written in pieces.
    void changed();

private:
    using Key = QPair<QString, int>; // path and CsvValues
    struct Reading
    {
        std::weak_ptr<const CsvSeries> series;
        qint64 size;
        QDateTime modified;
        bool isFresh; //!< read so soon that the file may have changed without another time

        bool isOf(const QString &path) const;
    };

    void watch(const QString &path);
    void forgetUnused();
    void look();

    QHash<Key, Reading> m_readings;
    QFileSystemWatcher m_watcher;
    QTimer m_timer;
};

} // namespace NARV::DEV
