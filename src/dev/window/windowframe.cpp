// Builds the window: menus, tool bar, panels and status bar.

#include "console/consolepanel.h"
#include "console/eventspanel.h"
#include "data/alarmspanel.h"
#include "data/clockbar.h"
#include "data/scenariopanel.h"
#include "data/scenarioplayer.h"
#include "data/simulationclock.h"
#include "data/tagspanel.h"
#include "data/trendspanel.h"
#include "palette/palettepanel.h"
#include "properties/propertypanel.h"
#include "scene/gesturemonitor.h"
#include "scene/pageview.h"
#include "session/failurecard.h"
#include "session/recentplugins.h"
#include "window/actiontable.h"
#include "window/icons.h"
#include "window/messagebar.h"
#include "window/welcomepage.h"
#include "window/widgetlibraryplugintestwidget.h"
#include "window/widgetlibraryplugintestwidget_p.h"

#include <QAbstractItemView>
#include <QActionGroup>
#include <QDockWidget>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QShortcut>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace NARV::DEV {

using Private = WidgetLibraryPluginTestWidgetPrivate;

static QWidget *centred(QWidget *content)
{
    auto *page = new QWidget;
    auto *column = new QVBoxLayout(page);
    auto *row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(content, 100);
    row->addStretch(1);
    column->addStretch(1);
    column->addLayout(row);
    column->addStretch(2);
    return page;
}

void Private::buildFrame()
{
    frame->setWindowFlags(Qt::Widget);
    frame->setDockOptions(QMainWindow::AnimatedDocks | QMainWindow::AllowNestedDocks |
                          QMainWindow::AllowTabbedDocks);
    frame->setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    pages->addWidget(welcome);
    failurePage = centred(failure);
    pages->addWidget(failurePage);
    auto *leave = new QShortcut(Qt::Key_Escape, failurePage);
    connect(leave, &QShortcut::activated, this, &Private::leaveFailure);
    pages->addWidget(view);
    auto *central = new QWidget;
    auto *column = new QVBoxLayout(central);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(messages);
    column->addWidget(pages, 1);
    frame->setCentralWidget(central);
    buildMenus();
    buildToolBar();
    buildDocks();
    buildStatusBar();
}

QDockWidget *Private::addDock(const QString &name, const QString &title, QWidget *content,
                              Qt::DockWidgetArea area)
{
    auto *dock = new QDockWidget(title);
    dock->setObjectName(name);
    dock->setWidget(content);
    frame->addDockWidget(area, dock);
    QAction *toggle = dock->toggleViewAction();
    toggle->setIcon(benchIcon(name));
    actions[QStringLiteral("docks")]->menu()->addAction(toggle);
    addGoTo(dock);
    return dock;
}

//! What a person works with: the list of the panel, if there is something in it.
static QWidget *mainControl(QWidget *panel)
{
    for (auto *list : panel->findChildren<QAbstractItemView *>()) {
        if (list->isVisibleTo(panel) && list->model() && list->model()->rowCount() > 0)
            return list;
    }
    for (QWidget *control : panel->findChildren<QWidget *>()) {
        if ((control->focusPolicy() & Qt::TabFocus) && control->isVisibleTo(panel))
            return control;
    }
    return panel;
}

//! Alt and the number of the panel lead to it.
void Private::addGoTo(QDockWidget *dock)
{
    const int number = frame->findChildren<QDockWidget *>().size();
    auto *goTo = new QAction(dock);
    goTo->setShortcut(Qt::ALT + Qt::Key_0 + number);
    goTo->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    frame->addAction(goTo);
    connect(goTo, &QAction::triggered, dock, [dock] {
        dock->show();
        dock->raise();
        dock->activateWindow();
        mainControl(dock->widget())->setFocus(Qt::ShortcutFocusReason);
    });
}

void Private::buildDocks()
{
    palette = new PalettePanel(session);
    properties = new PropertyPanel(document);
    addDock(QStringLiteral("palette"), tr("Widgets"), palette, Qt::LeftDockWidgetArea);
    addDock(QStringLiteral("properties"), tr("Properties"), properties, Qt::RightDockWidgetArea);
    QDockWidget *tags =
        addDock(QStringLiteral("tag"), tr("Tags"), new TagsPanel(data), Qt::BottomDockWidgetArea);
    QDockWidget *last = tags;
    const auto addTab = [&](const char *name, const QString &title, QWidget *content) {
        QDockWidget *dock = addDock(QLatin1String(name), title, content, Qt::BottomDockWidgetArea);
        frame->tabifyDockWidget(last, dock);
        last = dock;
    };
    addTab("trend", tr("Trends"), new TrendsPanel(data));
    addTab("alarm", tr("Alarms"), new AlarmsPanel(data));
    addTab("scenario", tr("Scenarios"), new ScenarioPanel(data));
    addTab("console", tr("Log"), new ConsolePanel(relay));
    addTab("events", tr("Events"), new EventsPanel(events));
    tags->raise();
    for (auto *dock : frame->findChildren<QDockWidget *>())
        dock->addActions(frame->actions()); // a panel that floats is a window of its own
    frame->resizeDocks({frame->findChild<QDockWidget *>(QStringLiteral("palette")),
                        frame->findChild<QDockWidget *>(QStringLiteral("properties"))},
                       {240, 340}, Qt::Horizontal);
    frame->resizeDocks({tags}, {230}, Qt::Vertical);
    firstLayout = frame->saveState();
    QMenu *menu = actions[QStringLiteral("docks")]->menu();
    menu->addSeparator();
    connect(menu->addAction(tr("&Back to their places")), &QAction::triggered, this,
            [this] { frame->restoreState(firstLayout); });
}

void Private::buildMenus()
{
    for (const MenuEntry &entry : benchMenus()) {
        QMenu *menu = frame->menuBar()->addMenu(tr(entry.title));
        for (int i = 0; i < entry.count; ++i)
            addAction(menu, entry.entries[i]);
    }
    auto *touch = new QActionGroup(this);
    for (const char *name : {"touch-none", "touch-one", "touch-two", "touch-three"})
        touch->addAction(actions[QLatin1String(name)]);
    actions[QStringLiteral("touch-none")]->setChecked(true);
    addLanguageActions(actions[QStringLiteral("language")]->menu());
    addThemeActions(actions[QStringLiteral("theme")]->menu());
    addPageActions(actions[QStringLiteral("page")]->menu());
    addScenarioActions(actions[QStringLiteral("scenario")]->menu());
}

void Private::addAction(QMenu *menu, const ActionEntry &entry)
{
    if (!entry.name) {
        menu->addSeparator();
        return;
    }
    const QString name = QLatin1String(entry.name);
    QAction *action = menu->addAction(benchIcon(name), tr(entry.text));
    action->setObjectName(name);
    action->setShortcut(QKeySequence::fromString(QLatin1String(entry.shortcut)));
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    action->setCheckable(entry.isCheckable);
    // In the tables of the panels these keys mean something else.
    const bool belongsToPage = entry.need == ActionEntry::Page ||
                               entry.need == ActionEntry::Selection ||
                               entry.need == ActionEntry::Several;
    (belongsToPage ? static_cast<QWidget *>(view) : frame)->addAction(action);
    actions.insert(name, action);
    const auto trigger = entry.trigger;
    if (trigger)
        connect(action, &QAction::triggered, this,
                [this, trigger](bool isOn) { trigger(*this, isOn); });
    else if (name != QLatin1String("undo") && name != QLatin1String("redo"))
        action->setMenu(new QMenu(menu));
}

namespace {

struct PageSize
{
    const char *name;
    int width;
    int height;
};

} // namespace

static const PageSize pageSizes[] = {
    {"4.3\"", 480, 272},    {"7\"", 800, 480},       {"10.1\"", 1280, 800}, {"15.6\"", 1366, 768},
    {"21.5\"", 1920, 1080}, {"portrait", 800, 1280}, {"4K", 3840, 2160},
};

void Private::addPageActions(QMenu *menu)
{
    for (const PageSize &size : pageSizes) {
        const QString text = QStringLiteral("%1 × %2  (%3)")
                                 .arg(size.width)
                                 .arg(size.height)
                                 .arg(QLatin1String(size.name));
        connect(menu->addAction(text), &QAction::triggered, this, [this, size] {
            document.setPageSize(QSizeF(size.width, size.height));
            view->zoomToFit();
        });
    }
    menu->addSeparator();
    connect(menu->addAction(tr("&Other size…")), &QAction::triggered, this,
            &Private::choosePageSize);
}

void Private::addThemeActions(QMenu *menu)
{
    auto *group = new QActionGroup(menu);
    const QStringList names = {tr("As the desktop"), tr("Light"), tr("Dark")};
    for (int i = 0; i < names.size(); ++i) {
        QAction *action = menu->addAction(names[i]);
        action->setCheckable(true);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, i] { setTheme(Theme(i)); });
        connect(menu, &QMenu::aboutToShow, action,
                [this, action, i] { action->setChecked(int(theme) == i); });
    }
}

void Private::buildToolBar()
{
    auto *bar = new QToolBar(tr("Tools"));
    bar->setObjectName(QStringLiteral("tools"));
    frame->addToolBar(bar);
    actions[QStringLiteral("docks")]->menu()->addAction(bar->toggleViewAction());
    actions[QStringLiteral("docks")]->menu()->addSeparator();
    for (const char *name : {"open", "reload", "", "undo", "redo", "", "zoom-out", "zoom-in",
                             "zoom-fit", "zoom-original", "", "runtime-mode", "touch-none",
                             "touch-one", "touch-two", "touch-three", ""}) {
        if (*name)
            bar->addAction(actions[QLatin1String(name)]);
        else
            bar->addSeparator();
    }
    auto *clock = new ClockBar(data.clock());
    for (QToolButton *button : clock->findChildren<QToolButton *>())
        button->setIconSize(bar->iconSize());
    bar->addWidget(clock);
}

//! Tells while a scenario has its hands in the data.
QLabel *Private::newScenarioLabel()
{
    auto *label = new QLabel;
    label->setObjectName(QStringLiteral("activeScenario"));
    label->setAccessibleName(tr("Active scenarios"));
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    label->hide();
    connect(&data.scenarios(), &ScenarioPlayer::activeChanged, label, [this, label] {
        const QStringList &active = data.scenarios().active();
        label->setVisible(!active.isEmpty());
        label->setToolTip(active.join(QLatin1Char('\n')));
        if (!active.isEmpty())
            label->setText(
                tr("Scenario: %1").arg(active.last()) +
                (active.size() > 1 ? tr(" and %1 more").arg(active.size() - 1) : QString()));
    });
    return label;
}

void Private::buildStatusBar()
{
    QStatusBar *bar = frame->statusBar();
    auto *gesture = new QLabel;
    gesture->setObjectName(QStringLiteral("gestureReport"));
    gesture->setAccessibleName(tr("Last gesture"));
    connect(&document.gestureMonitor(), &GestureMonitor::reported, gesture,
            [gesture](const QString &widget, const GestureReport &report) {
                gesture->setText(QStringLiteral("%1: %2 %3, %4")
                                     .arg(widget, report.name, report.state, report.values));
            });
    auto *zoom = new QLabel;
    zoom->setAccessibleName(tr("Zoom"));
    const auto showZoom = [zoom](double value) {
        zoom->setText(QStringLiteral("%1 %").arg(qRound(100 * value)));
    };
    connect(view, &PageView::zoomChanged, zoom, showZoom);
    showZoom(view->zoom());
    auto *mode = new QLabel;
    mode->setAccessibleName(tr("Mode"));
    const auto showMode = [this, mode] {
        mode->setText(document.mode() == SceneDocument::Mode::Runtime ? tr("Running")
                                                                      : tr("Editing"));
    };
    connect(&document, &SceneDocument::modeChanged, mode, showMode);
    showMode();
    bar->addWidget(gesture, 1);
    for (QLabel *label : {newScenarioLabel(), mode, zoom}) {
        label->setMargin(4);
        bar->addPermanentWidget(label);
    }
}

} // namespace NARV::DEV
