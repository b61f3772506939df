#pragma once

#include <QObject>
#include <QStringList>

#include <zpplugin_dev_export.h>

class QMenu;
class QSettings;

namespace NARV::DEV {

//! The plugins opened last, the newest first, kept in the settings of the program.
class ZPPLUGIN_DEV_EXPORT RecentPlugins : public QObject
{
    Q_OBJECT

public:
    //! The settings are not owned and outlive this object.
    explicit RecentPlugins(QSettings &settings, QObject *parent = nullptr);

    QStringList paths() const;
    //! Puts a path on top; the oldest goes when there are more than ten.
    void add(const QString &path);
    void clear();
    //! Has the menu filled each time it opens: an action a path, disabled when nothing is there any
    //! more, and one that clears the list.
    void fill(QMenu &menu);

Q_SIGNALS:
    void openRequested(const QString &path);
    void changed();

private:
    void refill(QMenu &menu);
    void store(const QStringList &paths);

    QSettings &m_settings;
};

} // namespace NARV::DEV
