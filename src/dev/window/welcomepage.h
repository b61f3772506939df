#pragma once

#include <QScrollArea>

class QVBoxLayout;

namespace NARV::DEV {

class RecentPlugins;

//! What the window shows while no plugin is open: what to do next.
class WelcomePage : public QScrollArea
{
    Q_OBJECT

public:
    explicit WelcomePage(QWidget *parent = nullptr);

    void showRecent(const RecentPlugins &recent);

Q_SIGNALS:
    void openFolderRequested();
    void openLibraryRequested();
    void recentRequested(const QString &path);

private:
    QVBoxLayout *m_recent;
};

} // namespace NARV::DEV
