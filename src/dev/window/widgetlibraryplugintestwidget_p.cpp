#include "window/widgetlibraryplugintestwidget_p.h"

#include "data/scenario.h"
#include "data/scenarioplayer.h"
#include "data/simulationclock.h"
#include "palette/palettepanel.h"
#include "properties/propertypanel.h"
#include "scene/pageview.h"
#include "scene/sceneediting.h"
#include "session/failurecard.h"
#include "session/recentplugins.h"
#include "touch/touchsimulator.h"
#include "window/actiontable.h"
#include "window/menutext.h"
#include "window/messagebar.h"
#include "window/undokeys.h"
#include "window/welcomepage.h"
#include "window/widgetlibraryplugintestwidget.h"

#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QDateTime>
#include <QDir>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLibrary>
#include <QLocale>
#include <QMainWindow>
#include <QMenu>
#include <QMimeData>
#include <QRegularExpression>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>

#include <memory>

namespace NARV::DEV {

using Private = WidgetLibraryPluginTestWidgetPrivate;

static constexpr int loadedTime = 5000;

static QString tr(const char *text)
{
    return WidgetLibraryPluginTestWidget::tr(text);
}

Private::WidgetLibraryPluginTestWidgetPrivate(WidgetLibraryPluginTestWidget *q)
    : q_ptr(q)
    , document(session, data, events)
    , keeper(document)
    , frame(new QMainWindow)
    , pages(new QStackedWidget)
    , welcome(new WelcomePage)
    , failure(new FailureCard)
    , view(new PageView(document))
    , messages(new MessageBar)
{
    session.setLogRelay(&relay);
    data.loadDefaults();
    document.setUnmodified();
    buildFrame();
    new UndoKeys(q);
    connectParts();
    showTitle();
    updateActions();
}

// The widgets of the window look at the parts, so they go first.
Private::~WidgetLibraryPluginTestWidgetPrivate()
{
    keeper.keepUnsaved();
    for (QObject *part : std::initializer_list<QObject *>{&session, &document, &keeper,
                                                          &document.undoStack(), &data.clock()})
        part->disconnect(this);
    delete frame;
}

void Private::connectParts()
{
    connect(&session, &PluginSession::opened, this, [this] {
        if (recent)
            recent->add(session.path(), libraryName());
        showOutcome();
        const QString time = QTime::currentTime().toString(QStringLiteral("HH:mm:ss"));
        frame->statusBar()->showMessage(
            tr("%1 was loaded at %2").arg(withoutShortcut(libraryName()), time), loadedTime);
        Q_EMIT q_ptr->pluginLoaded();
    });
    connect(&session, &PluginSession::failed, this, &Private::showFailure);
    connect(&session, &PluginSession::probingChanged, this, &Private::showProbing);
    connect(&session, &PluginSession::closed, this, &Private::showOutcome);
    connect(welcome, &WelcomePage::openFolderRequested, this, &Private::chooseFolder);
    connect(welcome, &WelcomePage::openLibraryRequested, this, &Private::chooseLibrary);
    connect(welcome, &WelcomePage::recentRequested, this, &Private::openPlugin);
    connect(failure, &FailureCard::retryRequested, &session, &PluginSession::open);
    connect(failure, &FailureCard::loadAnywayRequested, this, [this](const QString &path) {
        keeper.keepUnsaved(); // it may be the last that this program does
        session.openAnyway(path);
    });
    connect(failure, &FailureCard::openAnotherRequested, this, &Private::chooseFolder);
    connect(failure, &FailureCard::backRequested, this, &Private::leaveFailure);
    connect(palette, &PalettePanel::placeRequested, this, &Private::placeInView);
    connect(view, &PageView::menuRequested, this, &Private::showContextMenu);
    connect(&document, &SceneDocument::notice, messages, &MessageBar::tell);
    connect(&document, &SceneDocument::notice, q_ptr, &WidgetLibraryPluginTestWidget::notice);
    connect(&document, &SceneDocument::selectionChanged, this, &Private::updateActions);
    connect(&document, &SceneDocument::modeChanged, this, &Private::updateActions);
    connect(&document, &SceneDocument::languageChanged, this,
            [this] { palette->setLanguage(document.language()); });
    connect(&document, &SceneDocument::modifiedChanged, this, &Private::showTitle);
    connect(&document, &SceneDocument::pageChanged, this, &Private::updateActions);
    connect(&keeper, &SceneKeeper::pathChanged, this, &Private::showTitle);
    connect(&data.clock(), &SimulationClock::stateChanged, this, &Private::updateActions);
    QUndoStack &undo = document.undoStack();
    connect(actions[QStringLiteral("undo")], &QAction::triggered, &undo, &QUndoStack::undo);
    connect(actions[QStringLiteral("redo")], &QAction::triggered, &undo, &QUndoStack::redo);
    connect(&undo, &QUndoStack::indexChanged, this, &Private::updateActions);
}

void Private::updateFieldsRequirements()
{
    properties->updateRequirements();
}

void Private::updateActions()
{
    const bool isEditor = document.mode() == SceneDocument::Mode::Editor;
    const bool isEdited = isEditor && pages->currentWidget() != failurePage;
    const int selected = document.selection().size();
    const bool isMet[] = {true,
                          session.isLoaded(),
                          isEdited,
                          isEdited && selected > 0,
                          isEdited && selected > 1,
                          isEdited && session.isLoaded()};
    for (const MenuEntry &menu : benchMenus()) {
        for (int i = 0; i < menu.count; ++i) {
            if (menu.entries[i].name)
                actions[QLatin1String(menu.entries[i].name)]->setEnabled(
                    isMet[menu.entries[i].need]);
        }
    }
    const QUndoStack &undo = document.undoStack();
    QAction *undoAction = actions[QStringLiteral("undo")];
    undoAction->setEnabled(undo.canUndo());
    undoAction->setText(tr("&Undo %1").arg(undo.undoText()));
    QAction *redoAction = actions[QStringLiteral("redo")];
    redoAction->setEnabled(undo.canRedo());
    redoAction->setText(tr("&Redo %1").arg(undo.redoText()));
    actions[QStringLiteral("runtime-mode")]->setChecked(!isEditor);
    actions[QStringLiteral("checker")]->setChecked(document.page().checkerboard);
    actions[QStringLiteral("play")]->setChecked(data.clock().isRunning());
    actions[QStringLiteral("reload")]->setEnabled(!session.path().isEmpty());
}

// Plugins

static bool isSceneFile(const QFileInfo &file)
{
    return file.isFile() && file.suffix().compare(QLatin1String("json"), Qt::CaseInsensitive) == 0;
}

void Private::openPlugin(const QString &path)
{
    session.open(path);
}

static const char *whyNotDropped(const QList<QUrl> &urls)
{
    if (urls.size() != 1)
        return QT_TR_NOOP("Drop one file or folder at a time.");
    const QFileInfo file(urls.first().toLocalFile());
    if (!file.exists())
        return QT_TR_NOOP("“%1” is not a file or folder on this machine.");
    const bool isUsable = file.isDir() || isSceneFile(file) || QLibrary::isLibrary(file.filePath());
    return isUsable ? nullptr
                    : QT_TR_NOOP("“%1” is neither a plugin folder, a library nor a page (.json).");
}

void Private::openDropped(const QList<QUrl> &urls)
{
    messages->dismissMessages();
    const QString path = urls.value(0).toLocalFile();
    if (const char *reason = whyNotDropped(urls))
        messages->tell(tr(reason).replace(QLatin1String("%1"), urls.value(0).fileName()));
    else if (isSceneFile(QFileInfo(path)))
        openSceneFile(path);
    else
        openPlugin(path);
}

void Private::showOutcome()
{
    if (session.isLoaded())
        palette->setLanguage(document.language());
    const bool hasPage = session.isLoaded() || !document.widgets().isEmpty();
    if (hasPage)
        pages->setCurrentWidget(view);
    else
        pages->setCurrentWidget(welcome);
    showTitle();
    updateActions();
}

void Private::leaveFailure()
{
    session.giveUp();
    showOutcome();
    pages->currentWidget()->setFocus();
}

QString Private::backText() const
{
    if (!session.isLoaded())
        return document.widgets().isEmpty() ? tr("Back to the start") : tr("Back to the page");
    const QString name = withoutShortcut(libraryName());
    return session.path() == session.loadedPath() ? tr("Back to %1 as it was before").arg(name)
                                                  : tr("Back to %1").arg(name);
}

void Private::showFailure(const LoadFailure &reason)
{
    const QWidget *focused = QApplication::focusWidget();
    const bool wasOnPage = !focused || pages->isAncestorOf(focused);
    failure->setFailure(reason, backText());
    showTitle();
    pages->setCurrentWidget(failurePage);
    if (wasOnPage && failure->isVisible())
        failure->takeFocus();
    updateActions();
    QStringList lines = QStringList(reason.title) + reason.words;
    lines += reason.advice;
    lines.removeAll(QString());
    Q_EMIT q_ptr->pluginFailed(lines.join(QLatin1Char('\n')));
}

void Private::showProbing()
{
    if (session.isProbing())
        frame->statusBar()->showMessage(
            tr("Trying %1 in a process of its own…").arg(QDir::toNativeSeparators(session.path())));
    else
        frame->statusBar()->clearMessage();
}

//! A dialogue for files that does not stop the program.
static QFileDialog *fileDialog(QWidget *parent, const QString &title, QFileDialog::FileMode mode)
{
    auto *dialog = new QFileDialog(parent, title);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(mode);
    return dialog;
}

void Private::chooseFolder()
{
    QFileDialog *dialog = fileDialog(q_ptr, tr("Open plugin folder"), QFileDialog::Directory);
    connect(dialog, &QFileDialog::fileSelected, this, &Private::openPlugin);
    dialog->open();
}

void Private::chooseLibrary()
{
    QFileDialog *dialog = fileDialog(q_ptr, tr("Open library file"), QFileDialog::ExistingFile);
    dialog->setNameFilter(tr("Shared libraries (*.so *.dll)"));
    connect(dialog, &QFileDialog::fileSelected, this, &Private::openPlugin);
    dialog->open();
}

void Private::addLanguageActions(QMenu *menu)
{
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        menu->clear();
        for (const QString &code : q_ptr->languages()) {
            QAction *action = menu->addAction(code);
            action->setCheckable(true);
            action->setChecked(code == document.language());
            connect(action, &QAction::triggered, this,
                    [this, code] { document.setLanguage(code); });
        }
    });
}

void Private::addScenarioActions(QMenu *menu)
{
    for (const Scenario &scenario : scenarios()) {
        QAction *action = menu->addAction(scenario.title());
        action->setToolTip(scenario.description());
        connect(action, &QAction::triggered, this,
                [this, &scenario] { data.scenarios().run(scenario); });
    }
    menu->setToolTipsVisible(true);
    menu->addSeparator();
    connect(menu->addAction(tr("Back to normal")), &QAction::triggered, &data.scenarios(),
            &ScenarioPlayer::restore);
}

void Private::placeInView(const QString &widgetId, const QString &version)
{
    if (pages->currentWidget() == failurePage)
        leaveFailure();
    setRuntime(false);
    const QPointF centre = view->mapToScene(view->viewport()->rect().center());
    if (SceneEditing::placeFree(document, widgetId, version, centre))
        showOutcome();
}

void Private::findField()
{
    if (auto *dock = frame->findChild<QDockWidget *>(QStringLiteral("properties"))) {
        dock->show();
        dock->raise();
    }
    properties->search();
}

void Private::showContextMenu(const QPoint &position)
{
    auto *menu = new QMenu(frame);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const char *name : {"cut", "copy", "paste", "duplicate", "delete", "", "raise", "lower",
                             "to-top", "to-bottom"}) {
        if (*name)
            menu->addAction(actions[QLatin1String(name)]);
        else
            menu->addSeparator();
    }
    menu->popup(position);
}

// The page

void Private::newScene()
{
    keeper.clear();
    data.loadDefaults();
    document.setUnmodified();
    showOutcome();
    view->zoomToFit();
    offerToTakeBack();
}

void Private::offerToTakeBack()
{
    messages->dismissMessages();
    if (keeper.canTakeBack())
        messages->offer(tr("The page that was here before was not saved."), tr("Take it back"),
                        [this] {
                            keeper.takeBack();
                            showOutcome();
                        });
}

static const QString sceneFilter()
{
    return tr("Pages of the test bench (*.json)");
}

void Private::chooseScene()
{
    QFileDialog *dialog = fileDialog(q_ptr, tr("Open page"), QFileDialog::ExistingFile);
    dialog->setNameFilter(sceneFilter());
    connect(dialog, &QFileDialog::fileSelected, this, &Private::openSceneFile);
    dialog->open();
}

QString Private::openSceneFile(const QString &path)
{
    QString problem;
    const bool isOpen = keeper.open(path, problem);
    if (isOpen)
        offerToTakeBack();
    else
        messages->tell(problem);
    showOutcome();
    if (isOpen)
        view->zoomToFit();
    return problem;
}

void Private::saveTo(const QString &path)
{
    QString problem;
    if (!keeper.save(path, problem))
        messages->tell(problem);
}

//! The path without its suffix, to be proposed.
QString Private::pageName() const
{
    const QFileInfo file(keeper.path());
    return keeper.path().isEmpty() ? tr("page") : file.dir().filePath(file.completeBaseName());
}

void Private::saveScene()
{
    if (keeper.path().isEmpty())
        saveSceneAs();
    else
        saveTo(keeper.path());
}

void Private::saveSceneAs()
{
    QFileDialog *dialog = fileDialog(q_ptr, tr("Save page"), QFileDialog::AnyFile);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("json"));
    dialog->setNameFilter(sceneFilter());
    dialog->selectFile(pageName() + QLatin1String(".json"));
    connect(dialog, &QFileDialog::fileSelected, this, &Private::saveTo);
    dialog->open();
}

void Private::exportPicture()
{
    QFileDialog *dialog = fileDialog(q_ptr, tr("Save picture"), QFileDialog::AnyFile);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("png"));
    dialog->setNameFilter(tr("Pictures (*.png)"));
    dialog->selectFile(pageName() + QLatin1String(".png"));
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &path) {
        if (!q_ptr->renderPage().save(path))
            messages->tell(tr("%1 cannot be written").arg(path));
    });
    dialog->open();
}

void Private::quit()
{
    q_ptr->window()->close();
}

void Private::copy()
{
    if (QMimeData *copied = SceneEditing::copy(document))
        QGuiApplication::clipboard()->setMimeData(copied);
}

void Private::cut()
{
    copy();
    SceneEditing::remove(document);
}

void Private::paste()
{
    const QMimeData *copied = QGuiApplication::clipboard()->mimeData();
    QString problem;
    if (copied && !SceneEditing::paste(document, *copied, problem) && !problem.isEmpty())
        messages->tell(problem);
}

void Private::setRuntime(bool isRuntime)
{
    document.setMode(isRuntime ? SceneDocument::Mode::Runtime : SceneDocument::Mode::Editor);
    data.clock().setRunning(isRuntime);
    updateActions();
}

void Private::setFingers(int fingers)
{
    view->touchSimulator().setFingers(fingers);
}

static QSize sizeFrom(const QString &text)
{
    static const int greatestSide = 16384;
    static const QRegularExpression pattern(
        QStringLiteral("\\A\\s*(\\d{1,5})\\s*[x\u00d7, ]\\s*(\\d{1,5})\\s*\\z"));
    const QRegularExpressionMatch match = pattern.match(text);
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    return size.boundedTo(QSize(greatestSide, greatestSide)) == size ? size : QSize();
}

void Private::choosePageSize()
{
    auto *dialog = new QInputDialog(q_ptr);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(tr("Page size"));
    dialog->setLabelText(tr("Width × height in pixels:"));
    const QSize size = document.page().size.toSize();
    dialog->setTextValue(QStringLiteral("%1 × %2").arg(size.width()).arg(size.height()));
    connect(dialog, &QInputDialog::textValueSelected, this, [this](const QString &text) {
        const QSize chosen = sizeFrom(text);
        if (chosen.isEmpty())
            return messages->tell(tr("“%1” is no size such as 1280 × 800.").arg(text));
        document.setPageSize(chosen);
        view->zoomToFit();
    });
    dialog->open();
}

void Private::chooseBackground()
{
    auto *dialog = new QColorDialog(document.page().background, q_ptr);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(tr("Background colour"));
    dialog->setOption(QColorDialog::ShowAlphaChannel);
    connect(dialog, &QColorDialog::colorSelected, this, [this](const QColor &color) {
        Page page = document.page();
        page.background = color;
        document.setPage(page);
    });
    dialog->open();
}

// The window

QString Private::libraryName() const
{
    return session.library()->name().get(document.language(), true);
}

void Private::showTitle()
{
    QStringList parts;
    if (session.isLoaded())
        parts += libraryName();
    parts += keeper.path().isEmpty() ? tr("new page") : QFileInfo(keeper.path()).fileName();
    parts += tr("Test bench");
    q_ptr->setWindowTitle(parts.join(QStringLiteral(" – ")) + QLatin1String("[*]"));
    q_ptr->setWindowModified(document.isModified());
}

void Private::setTheme(Theme chosen)
{
    theme = chosen;
    applyTheme(chosen);
    if (settings)
        settings->setValue(QStringLiteral("theme"), int(chosen));
}

void Private::useSettings()
{
    recent = new RecentPlugins(*settings, this);
    welcome->showRecent(*recent);
    recent->fill(*actions[QStringLiteral("recent")]->menu());
    connect(recent, &RecentPlugins::openRequested, this, &Private::openPlugin);
    connect(recent, &RecentPlugins::changed, this, [this] { welcome->showRecent(*recent); });
    const int chosen = settings->value(QStringLiteral("theme")).toInt();
    if (chosen > 0)
        setTheme(Theme(qMin(chosen, int(Theme::Dark))));
    document.setLanguage(
        settings->value(QStringLiteral("language"), document.language()).toString());
    connect(&document, &SceneDocument::languageChanged, this,
            [this] { settings->setValue(QStringLiteral("language"), document.language()); });
    q_ptr->restoreGeometry(settings->value(QStringLiteral("geometry")).toByteArray());
    frame->restoreState(settings->value(QStringLiteral("panels")).toByteArray());
}

void Private::saveLayout()
{
    if (!settings)
        return;
    settings->setValue(QStringLiteral("geometry"), q_ptr->saveGeometry());
    settings->setValue(QStringLiteral("panels"), frame->saveState());
}

void Private::offerUnsavedWork()
{
    const QString unsaved = keeper.findUnsaved();
    if (unsaved.isEmpty())
        return;
    const QString page = QFileInfo(SceneKeeper::pathOf(unsaved)).fileName();
    const QString time =
        QLocale().toString(QFileInfo(unsaved).lastModified(), QLocale::ShortFormat);
    messages->offer(page.isEmpty() ? tr("There is unsaved work of %1.").arg(time)
                                   : tr("There is unsaved work on %1 of %2.").arg(page, time),
                    tr("Open it"), [this, unsaved] {
                        QString problem;
                        if (!keeper.recover(unsaved, problem))
                            messages->tell(problem);
                        showOutcome();
                    });
}

} // namespace NARV::DEV
