#pragma once

#include <QWidget>

class QVBoxLayout;

namespace NARV::DEV {

//! What the window shows while no plugin is open: what to do next.
class WelcomePage : public QWidget
{
    Q_OBJECT

public:
    explicit WelcomePage(QWidget *parent = nullptr);

    //! Paths of plugins opened before, the last first.
    void setRecent(const QStringList &paths);

Q_SIGNALS:
    void openFolderRequested();
    void openLibraryRequested();
    void recentRequested(const QString &path);

private:
    QVBoxLayout *m_recent;
};

} // namespace NARV::DEV
