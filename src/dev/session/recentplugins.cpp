#include "session/recentplugins.h"

#include "window/icons.h"
#include "window/menutext.h"

#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QSettings>

namespace NARV::DEV {

static const int maxPaths = 10;
static const int shownLetters = 60;
static const QLatin1String pathsKey("recentPlugins");
static const QLatin1String namesKey("recentPluginNames");

RecentPlugins::RecentPlugins(QSettings &settings, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
{
}

QStringList RecentPlugins::paths() const
{
    return m_settings.value(pathsKey).toStringList().mid(0, maxPaths);
}

QString RecentPlugins::name(const QString &path) const
{
    const QString name = m_settings.value(namesKey).toMap().value(path).toString();
    return name.isEmpty() ? QDir(path).dirName() : name;
}

void RecentPlugins::add(const QString &path, const QString &name)
{
    const QString absolute = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    QStringList all = paths();
    all.removeAll(absolute);
    all.prepend(absolute);
    QVariantMap names = m_settings.value(namesKey).toMap();
    names.insert(absolute, name);
    store(all.mid(0, maxPaths), names);
}

void RecentPlugins::clear()
{
    store({}, {});
}

void RecentPlugins::store(const QStringList &paths, const QVariantMap &names)
{
    QVariantMap kept;
    for (const QString &path : paths)
        kept.insert(path, names.value(path));
    m_settings.setValue(pathsKey, paths);
    m_settings.setValue(namesKey, kept);
    Q_EMIT changed();
}

void RecentPlugins::fill(QMenu &menu)
{
    connect(&menu, &QMenu::aboutToShow, this, [this, &menu] { refill(menu); });
    refill(menu);
}

//! The end of a path tells more than its beginning.
static QString menuText(int number, const QString &name, const QString &path)
{
    QString shown = QDir::toNativeSeparators(path);
    if (shown.size() > shownLetters)
        shown = QStringLiteral("...") + shown.right(shownLetters);
    const QString text = QStringLiteral("%1  (%2)").arg(name, shown);
    return QStringLiteral("&%1  %2").arg(QString::number(number % maxPaths), withoutShortcut(text));
}

void RecentPlugins::refill(QMenu &menu)
{
    menu.clear();
    const QStringList all = paths();
    for (int i = 0; i < all.size(); ++i) {
        const QString &path = all[i];
        const bool isThere = QFileInfo::exists(path);
        QAction *action = menu.addAction(menuText(i + 1, name(path), path), this,
                                         [this, path] { Q_EMIT openRequested(path); });
        action->setEnabled(isThere);
        action->setToolTip(isThere ? path : tr("%1 is no longer there").arg(path));
        action->setData(path);
    }
    menu.addSeparator();
    menu.addAction(benchIcon(QStringLiteral("clear")), tr("&Clear list"), this,
                   &RecentPlugins::clear)
        ->setEnabled(!all.isEmpty());
    menu.setToolTipsVisible(true);
}

} // namespace NARV::DEV
