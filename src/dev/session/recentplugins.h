#pragma once

#include <QObject>
#include <QStringList>
#include <QVariant>

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
    //! The name of the library that was there; the last part of the path if it is unknown.
    QString name(const QString &path) const;
    //! Puts a path on top; the oldest goes when there are more than ten.
    void add(const QString &path, const QString &name = {});
    void clear();
    //! Has the menu filled each time it opens: an action a plugin, disabled when nothing is there
    //! any more, and one that clears the list.
    void fill(QMenu &menu);

Q_SIGNALS:
    void openRequested(const QString &path);
    void changed();

private:
    void refill(QMenu &menu);
    void store(const QStringList &paths, const QVariantMap &names);

    QSettings &m_settings;
};

} // namespace NARV::DEV
