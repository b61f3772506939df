#pragma once

#include "console/eventlog.h"
#include "console/logrelay.h"
#include "data/testdata.h"
#include "scene/scenedocument.h"
#include "session/pluginsession.h"
#include "window/scenekeeper.h"
#include "window/theme.h"

#include <QHash>
#include <QUrl>

class QAction;
class QDockWidget;
class QLabel;
class QMainWindow;
class QMenu;
class QSettings;
class QStackedWidget;

namespace NARV::DEV {

class AlarmsPanel;
class FailureCard;
class MessageBar;
class PageView;
class PalettePanel;
class PropertyPanel;
class RecentPlugins;
class WelcomePage;
class WidgetLibraryPluginTestWidget;
struct ActionEntry;

//! The parts of the test bench and what connects them.
class WidgetLibraryPluginTestWidgetPrivate : public QObject
{
    Q_OBJECT
    Q_DECLARE_PUBLIC(WidgetLibraryPluginTestWidget)

public:
    explicit WidgetLibraryPluginTestWidgetPrivate(WidgetLibraryPluginTestWidget *q);
    ~WidgetLibraryPluginTestWidgetPrivate() override;

    //! Shows and hides the rows of the selected widget's fields as their requirements say.
    void updateFieldsRequirements();

    void openPlugin(const QString &path);
    //! A plugin folder, a library or a page; tells of anything else.
    void openDropped(const QList<QUrl> &urls);
    void chooseFolder();
    void chooseLibrary();
    void newScene();
    void chooseScene();
    //! Returns why that failed, which is shown too; empty if it did not.
    QString openSceneFile(const QString &path);
    void saveScene();
    void saveSceneAs();
    void exportPicture();
    void quit();
    void copy();
    void cut();
    void paste();
    void setRuntime(bool isRuntime);
    void setTheme(Theme theme);
    void chooseBackground();
    void choosePageSize();
    void setFingers(int fingers);
    void addLanguageActions(QMenu *menu);
    void offerUnsavedWork();
    void useSettings();
    void saveLayout();
    void offerToTakeBack();
    void findField();
    void showOutcome();
    //! From the card of a failure to what was there before.
    void leaveFailure();

    WidgetLibraryPluginTestWidget *q_ptr;
    LogRelay relay;
    PluginSession session;
    TestData data;
    EventLog events;
    SceneDocument document;
    SceneKeeper keeper;
    QSettings *settings = nullptr;

    QMainWindow *frame;
    QStackedWidget *pages;
    WelcomePage *welcome;
    FailureCard *failure;
    QWidget *failurePage;
    PageView *view;
    MessageBar *messages;
    PropertyPanel *properties = nullptr;
    PalettePanel *palette = nullptr;
    RecentPlugins *recent = nullptr;
    QHash<QString, QAction *> actions;
    QByteArray firstLayout; //!< of the panels
    Theme theme = Theme::System;
    bool hasBeenShown = false;

private:
    void buildFrame();
    void buildDocks();
    void buildMenus();
    void buildToolBar();
    void buildStatusBar();
    QLabel *newScenarioLabel();
    void connectParts();
    QDockWidget *addDock(const QString &name, const QString &title, QWidget *content,
                         Qt::DockWidgetArea area);
    void addGoTo(QDockWidget *dock);
    void addAction(QMenu *menu, const ActionEntry &entry);
    void addPageActions(QMenu *menu);
    void addThemeActions(QMenu *menu);
    void addScenarioActions(QMenu *menu);
    void placeInView(const QString &widgetId, const QString &version);
    void showContextMenu(const QPoint &position);
    void saveTo(const QString &path);
    void showProbing();
    void showFailure(const LoadFailure &reason);
    QString pageName() const;
    QString backText() const;
    QString libraryName() const;
    void showTitle();
    void updateActions();
};

} // namespace NARV::DEV
