#include "guardedtest.h"

#include "properties/propertymodel.h"
#include "properties/propertyview.h"
#include "scene/pageview.h"
#include "window/widgetlibraryplugintestwidget.h"

#include <NARV/GraphicsObject>
#include <NARV/INTERNAL/Init>

#include <QAction>
#include <QComboBox>
#include <QDockWidget>
#include <QDropEvent>
#include <QFileDialog>
#include <QGraphicsScene>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QSpinBox>
#include <QStatusBar>
#include <QTabBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QToolButton>
#include <QTreeView>
#include <QUrl>

#include <functional>
#include <memory>

using namespace NARV::DEV;
using Bench = WidgetLibraryPluginTestWidget;

static void replace(const QString &with, const QString &path)
{
    QFile::remove(path);
    QVERIFY(QFile::copy(with, path));
}

static const struct
{
    const char *name;
    const char *file; // in the test's folder; "*": two of them
    const char *told; // with a message; empty: the drop is taken
} dropRows[] = {
    {"library", "library.so", ""},
    {"page", "page.JSON", ""},
    {"picture", "picture.png", "“picture.png” is neither a plugin folder"},
    {"text", "notes & more.txt", "“notes & more.txt” is neither"},
    {"faulty page", "faulty.json", "faulty.json:1:"},
    {"gone", "gone.so", "“gone.so” is not a file or folder on this machine."},
    {"two", "*", "Drop one file or folder at a time."},
};

//! The window as a person uses it: by mouse and keys.
class tst_TestBenchWindow : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { NARV::INTERNAL::narvInit(QIcon()); }
    void init();
    void cleanup();
    void firstMinute();
    void keysBelongToWhatHasTheFocus();
    void undoReachesThePageFromABox();
    void tabLeadsThroughTheWindow();
    void failedLoad();
    void drops_data() { addRows(dropRows); }
    void drops();
    void reloadKeepsThePage();
    void unsavedWorkIsOfferedAgain();
    void replacedWorkIsOfferedAgain();
    void remembersTheWindow();
    void everythingHasANameAndAnIcon();

private:
    void openBench();
    template<class T>
    T &part(const char *name)
    {
        T *found = *name ? m_bench->findChild<T *>(u(name)) : m_bench->findChild<T *>();
        if (!found)
            qFatal("the window has no %s", name);
        return *found;
    }
    QAction &action(const char *name) { return part<QAction>(name); }
    void showDock(const char *title);
    void press(const char *keys);
    PropertyView &properties() { return part<PropertyView>("propertyTree"); }
    void selectProperty(const char *field);
    void typeInto(const QString &text);
    QImage picture() const { return m_bench->renderPage(); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<Bench> m_bench;
};

void tst_TestBenchWindow::init()
{
    startGuard();
    m_folder = std::make_unique<QTemporaryDir>();
    m_settings =
        std::make_unique<QSettings>(m_folder->filePath(u("settings.ini")), QSettings::IniFormat);
    openBench();
}

void tst_TestBenchWindow::cleanup()
{
    m_bench.reset();
    m_settings.reset();
    takeLog();
    checkGuard();
}

void tst_TestBenchWindow::openBench()
{
    m_bench.reset();
    m_bench = std::make_unique<Bench>();
    m_bench->resize(1280, 800);
    m_bench->setSettings(m_settings.get(), m_folder->filePath(u("unsaved")));
    m_bench->show();
    m_bench->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_bench.get()));
}

//! By a click on its tab.
void tst_TestBenchWindow::showDock(const char *title)
{
    for (QTabBar *bar : m_bench->findChildren<QTabBar *>()) {
        for (int i = 0; i < bar->count(); ++i) {
            if (bar->tabText(i) == u(title))
                QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(i).center());
        }
    }
}

void tst_TestBenchWindow::press(const char *keys)
{
    const QKeySequence sequence = QKeySequence::fromString(u(keys));
    const int key = sequence[0];
    QTest::keyClick(QApplication::focusWidget(), Qt::Key(key & ~Qt::KeyboardModifierMask),
                    Qt::KeyboardModifiers(key & Qt::KeyboardModifierMask));
}

void tst_TestBenchWindow::selectProperty(const char *field)
{
    PropertyView &tree = properties();
    auto &search = part<QLineEdit>("propertySearch");
    search.setFocus();
    search.clear();
    QTest::keyClicks(&search, u(field));
    press("Down");
    QCOMPARE(QApplication::focusWidget(), &tree);
    QVERIFY(tree.selectionModel()->isSelected(tree.currentIndex()));
    for (int i = 0; i < 20 && tree.currentIndex().data(PropertyModel::IdRole) != u(field); ++i)
        press("Down");
    QCOMPARE(tree.currentIndex().data(PropertyModel::IdRole).toString(), u(field));
}

//! Into the editor that is open, and closes it.
void tst_TestBenchWindow::typeInto(const QString &text)
{
    QTest::keyClicks(QApplication::focusWidget(), text);
    press("Return");
}

// What a new user does, with nothing but what the window shows.
void tst_TestBenchWindow::firstMinute()
{
    press("Space"); // the first button of the welcome page
    auto &path = *part<QFileDialog>("").findChild<QLineEdit *>(u("fileNameEdit"));
    path.setFocus();
    path.setText(QDir::cleanPath(QStringLiteral(GALLERY_LIBRARY) + u("/../../..")));
    QTest::keyClick(&path, Qt::Key_Return);
    QTRY_VERIFY(m_bench->isPluginLoaded());
    m_bench->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_bench.get()));

    // Place a widget from the palette by keys, another one by a double click.
    auto &words = *part<QWidget>("palettePanel").findChild<QLineEdit *>(u("words"));
    QTest::mouseClick(&words, Qt::LeftButton);
    QTest::keyClicks(&words, u("gauge"));
    press("Return");
    QCOMPARE(m_bench->widgetNames(), QStringList(u("gauge")));
    words.clear();
    QTest::keyClicks(&words, u("alarm list"));
    auto &tree = part<QTreeView>("widgets");
    QModelIndex item = tree.model()->index(0, 0);
    while (tree.model()->hasChildren(item))
        item = tree.model()->index(0, 0, item);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(item).center());
    QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(item).center());
    QCOMPARE(m_bench->widgetNames(), QStringList({u("gauge"), u("alarmList")}));

    // Select the gauge on the page, change a field.
    auto &page = part<PageView>("page");
    const QRectF gauge = m_bench->widgetGeometry(u("gauge"));
    m_bench->setWidgetGeometry(u("alarmList"), QRectF(0, 400, 800, 320));
    QTest::mouseClick(page.viewport(), Qt::LeftButton, {}, page.mapFromScene(gauge.center()));
    const QImage before = picture();
    selectProperty("value");
    press("F2");
    typeInto(u("75"));
    QCOMPARE(m_bench->fieldValue(u("gauge"), u("value")), QVariant(75.0));
    QVERIFY(picture() != before);
    page.setFocus();
    press("Ctrl+Z");
    QCOMPARE(picture(), before);
    press("Ctrl+Shift+Z");

    // Attach a tag and move it.
    selectProperty("value");
    press("Ctrl+T");
    typeInto(u("level"));
    showDock("Tags");
    auto &value = part<QLineEdit>("tagValue");
    QTest::mouseClick(&value, Qt::LeftButton);
    value.selectAll();
    typeInto(u("33"));
    QTRY_COMPARE(m_bench->fieldValue(u("gauge"), u("value")), QVariant(33.0));

    // Run the page, raise an alarm.
    page.setFocus();
    press("F5");
    QVERIFY(m_bench->isRuntimeMode() && m_bench->isTimeRunning());
    action("play").trigger();
    const QImage quiet = picture();
    showDock("Alarms");
    auto &alarms = part<QTableView>("alarmsTable");
    alarms.selectRow(1);
    QTest::mouseClick(&part<QToolButton>("alarms.alarm"), Qt::LeftButton);
    QTRY_VERIFY(picture() != quiet);
    QCOMPARE(alarms.model()->index(1, 1).data().toString(), u("triggered, not acknowledged"));
}

// Deleting a tag does not delete the selected widget.
void tst_TestBenchWindow::keysBelongToWhatHasTheFocus()
{
    m_bench->openPlugin(QStringLiteral(GALLERY_LIBRARY));
    m_bench->placeWidget(u("lamp"), {}, {100, 100});
    showDock("Tags");
    auto &tags = part<QTableView>("tagsTable");
    const int count = tags.model()->rowCount();
    tags.setFocus();
    press("Del");
    QCOMPARE(m_bench->widgetNames().size(), 1);
    press("Ctrl+D");
    QCOMPARE(m_bench->widgetNames().size(), 1);
    QVERIFY(tags.model()->rowCount() != count || tags.currentIndex().isValid());
    part<PageView>("page").setFocus();
    press("Ctrl+D");
    QCOMPARE(m_bench->widgetNames().size(), 2);
    press("Del");
    QCOMPARE(m_bench->widgetNames().size(), 1);

    auto &dock = part<QDockWidget>("tag"); // a window of its own has the keys of the bench
    dock.setFloating(true);
    dock.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dock));
    tags.setFocus();
    press("F5");
    QVERIFY(m_bench->isRuntimeMode());
    press("Alt+1");
    QTRY_COMPARE(QApplication::activeWindow(), m_bench.get());
    QVERIFY(part<QWidget>("palettePanel").isAncestorOf(QApplication::focusWidget()));
}

// What is being typed is taken back in the box, what was taken over on the page.
void tst_TestBenchWindow::undoReachesThePageFromABox()
{
    m_bench->openPlugin(QStringLiteral(GALLERY_LIBRARY));
    auto &period = part<QSpinBox>("generator.period");
    period.setFocus();
    const int before = period.value();
    press("Up");
    QVERIFY(period.value() > before);
    press("Ctrl+Z");
    QCOMPARE(period.value(), before);
    press("Ctrl+Shift+Z");
    QVERIFY(period.value() > before);
    period.selectAll();
    typeInto(u("777"));
    QTest::qWait(1);
    QTest::keyClicks(&period, u("12"));
    press("Ctrl+Z");
    QCOMPARE(period.value(), 777);
    press("Return");
    QTest::qWait(1);
    press("Ctrl+Z");
    QVERIFY(period.value() != 777);
    press("Ctrl+Z");
    QCOMPARE(period.value(), before);
}

// With the property panel empty and full; not behind the tabs of the panels.
void tst_TestBenchWindow::tabLeadsThroughTheWindow()
{
    m_bench->openPlugin(QStringLiteral(GALLERY_LIBRARY));
    auto &words = *part<QWidget>("palettePanel").findChild<QLineEdit *>(u("words"));
    auto &tags = part<QTableView>("tagsTable");
    for (int widgets = 0; widgets < 2; ++widgets) {
        words.setFocus();
        bool meetsTags = false;
        for (int i = 0; i < 200 && !(meetsTags && words.hasFocus()); ++i) {
            press("Tab");
            meetsTags |= tags.hasFocus();
            QVERIFY2(!QApplication::focusWidget()->visibleRegion().isEmpty(),
                     qPrintable(QApplication::focusWidget()->objectName()));
        }
        QVERIFY(meetsTags && words.hasFocus());
        m_bench->placeWidget(u("lamp"), {}, {100, 100});
    }
}

void tst_TestBenchWindow::failedLoad()
{
    QSignalSpy failed(m_bench.get(), &Bench::pluginFailed);
    m_bench->openPlugin(QStringLiteral(NO_PLUGIN));
    QCOMPARE(failed.count(), 1);
    takeLog();
    QVERIFY(part<QPlainTextEdit>("words").isVisible());
    QVERIFY(!part<QPlainTextEdit>("words").toPlainText().isEmpty());
    QVERIFY(part<QPushButton>("openAnother").isVisible());
    press("Escape");
    QVERIFY(part<QWidget>("welcome").isVisible());
    const QString library = m_folder->filePath(u("library.so"));
    replace(QStringLiteral(BUILD_1), library);
    m_bench->openPlugin(library);
    QVERIFY(m_bench->isPluginLoaded() && part<PageView>("page").isVisible());
    // What was open before is still at work, whether another one fails or its own new build.
    const QString name = m_bench->placeWidget(u("sign"), {}, {200, 200});
    part<PageView>("page").setFocus();
    const QImage before = picture();
    const QString broken = m_folder->filePath(u("broken.so"));
    replace(QStringLiteral(NO_PLUGIN), broken);
    const auto failAndLeave = [&](const char *back, const std::function<void()> &leave) {
        auto &button = part<QPushButton>("back");
        QTRY_VERIFY_WITH_TIMEOUT(button.isVisible(), 10000);
        QVERIFY(button.hasFocus() && !action("place-all").isEnabled());
        QCOMPARE(button.text(), u(back));
        leave();
        QVERIFY(part<PageView>("page").isVisible() && part<PageView>("page").hasFocus());
        QCOMPARE(picture(), before);
        QVERIFY(m_bench->setFieldValue(name, u("level"), 5.5));
        action("undo").trigger();
    };
    m_bench->openPlugin(broken);
    failAndLeave("Back to Rebuilt", [this] { press("Return"); });
    replace(broken, library);
    failAndLeave("Back to Rebuilt as it was before", [this] { press("Escape"); });
    takeLog();
}

// As a file manager hands them over, which must not come to mean that the file is moved.
void tst_TestBenchWindow::drops()
{
    const auto &row = currentRow(dropRows);
    QVERIFY(m_bench->saveScene(m_folder->filePath(u("page.JSON"))));
    replace(QStringLiteral(BUILD_1), m_folder->filePath(u("library.so")));
    for (const char *file : {"picture.png", "notes & more.txt", "faulty.json"})
        QVERIFY(QFile::copy(QStringLiteral(":/zpplugin-bench/icons/open.svg"),
                            m_folder->filePath(u(file))));
    QList<QUrl> urls{QUrl::fromLocalFile(m_folder->filePath(u(row.file)))};
    if (*row.file == '*')
        urls += urls;
    QMimeData data;
    data.setUrls(urls);
    const QPoint place(600, 300);
    QDragEnterEvent enter(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(m_bench.get(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(m_bench.get(), &drop);
    QVERIFY(drop.isAccepted());
    QCOMPARE(drop.dropAction(), Qt::CopyAction);
    const auto &bar = part<QWidget>("messageBar");
    QCOMPARE(bar.isVisible(), *row.told != '\0');
    QVERIFY2(bar.accessibleDescription().contains(u(row.told)),
             qPrintable(bar.accessibleDescription()));
    QCOMPARE(m_bench->isPluginLoaded(), u(row.name) == u("library"));
    QVERIFY(!part<QPushButton>("back").isVisible());
}

// Built anew by the author, with one field less: the bench sees it by itself.
void tst_TestBenchWindow::reloadKeepsThePage()
{
    const QString library = m_folder->filePath(u("library.so"));
    replace(QStringLiteral(BUILD_1), library);
    m_bench->openPlugin(library);
    const QString name = m_bench->placeWidget(u("sign"), {}, {200, 200});
    m_bench->setWidgetGeometry(name, {20, 30, 40, 50}, 30);
    QVERIFY(m_bench->setFieldValue(name, u("level"), 5.5));
    QVERIFY(m_bench->setFieldValue(name, u("note1"), u("kept?")));
    QVERIFY(m_bench->bindField(name, u("level"), u("level")));
    QVERIFY(m_bench->setTagValue(u("level"), 7.0));
    auto &page = part<PageView>("page");
    page.setZoom(1.5);
    QSignalSpy loaded(m_bench.get(), &Bench::pluginLoaded);
    QSignalSpy notices(m_bench.get(), &Bench::notice);
    replace(QStringLiteral(BUILD_2), library);
    QTRY_COMPARE_WITH_TIMEOUT(loaded.count(), 1, 10000);
    QVERIFY(part<QStatusBar>("").currentMessage().contains(u("was loaded at")));
    QCOMPARE(page.zoom(), 1.5);
    QCOMPARE(m_bench->widgetGeometry(name), QRectF(20, 30, 40, 50));
    QTRY_COMPARE(m_bench->fieldValue(name, u("level")), QVariant(7.0));
    QVERIFY(properties().model()->rowCount() > 0); // it is still selected
    bool isNew = false;
    for (QGraphicsItem *item : page.scene()->items()) {
        const QGraphicsObject *object = item->toGraphicsObject();
        isNew |= object && object->objectName() == u("2");
    }
    QVERIFY(isNew);
    QCOMPARE(notices.count(), 1);
    QVERIFY(notices.first().first().toString().contains(u("note1")));
    QVERIFY(part<QWidget>("messageBar").isVisible());
    action("undo").trigger(); // what was done before can still be undone
}

void tst_TestBenchWindow::unsavedWorkIsOfferedAgain()
{
    m_bench->openPlugin(QStringLiteral(GALLERY_LIBRARY));
    m_bench->placeWidget(u("lamp"), {}, {100, 100});
    QVERIFY(m_bench->isWindowModified());
    m_bench->close();
    openBench();
    auto &offer = part<QToolButton>("messageAction");
    QVERIFY(offer.isVisible());
    QTest::mouseClick(&offer, Qt::LeftButton);
    QCOMPARE(m_bench->widgetNames(), QStringList(u("lamp")));
    const QString page = m_folder->filePath(u("page.json"));
    QVERIFY(m_bench->saveScene(page));
    QVERIFY(!m_bench->isWindowModified());
    m_bench->openPlugin(QStringLiteral(GALLERY_LIBRARY));
    m_bench->placeWidget(u("lamp"), {}, {300, 300}); // lost without these files
    m_bench->close();
    openBench();
    QTest::mouseClick(&part<QToolButton>("messageAction"), Qt::LeftButton);
    QCOMPARE(m_bench->widgetNames().size(), 2);
    action("save").trigger(); // into its own file again
    QVERIFY(!m_bench->isWindowModified());
    openBench();
    QVERIFY(!part<QToolButton>("messageAction").isVisible());
    QVERIFY(m_bench->openScene(page));
    QCOMPARE(m_bench->widgetNames().size(), 2);
}

// Neither a new page nor another one throws away what was not saved.
void tst_TestBenchWindow::replacedWorkIsOfferedAgain()
{
    const QString page = m_folder->filePath(u("page.json"));
    QVERIFY(m_bench->saveScene(page));
    m_bench->openPlugin(QStringLiteral(GALLERY_LIBRARY));
    const auto &offer = part<QToolButton>("messageAction");
    const auto replaceAndTakeBack = [&](const std::function<void()> &replacePage) {
        m_bench->placeWidget(u("lamp"), {}, {100, 100});
        const QStringList names = m_bench->widgetNames();
        replacePage();
        QCOMPARE(m_bench->widgetNames(), QStringList());
        QVERIFY(offer.isVisible());
        QTest::mouseClick(part<QWidget>("messageBar").findChild<QToolButton *>(u("messageAction")),
                          Qt::LeftButton);
        QCOMPARE(m_bench->widgetNames(), names);
        QVERIFY(m_bench->isWindowModified() && !offer.isVisible());
    };
    replaceAndTakeBack([this] { action("new").trigger(); });
    replaceAndTakeBack([&] { QVERIFY(m_bench->openScene(page)); });
}

void tst_TestBenchWindow::remembersTheWindow()
{
    m_bench->openPlugin(QStringLiteral(GALLERY_LIBRARY));
    m_bench->setLanguage(u("de-DE"));
    part<QDockWidget>("trend").close();
    m_bench->resize(1000, 760);
    m_bench->close();
    openBench();
    QCOMPARE(m_bench->language(), u("de-DE"));
    QCOMPARE(m_bench->size(), QSize(1000, 760));
    QVERIFY(part<QDockWidget>("trend").isHidden());
    QCOMPARE(action("recent").menu()->actions().first()->data().toString(),
             QStringLiteral(GALLERY_LIBRARY));
}

// A drawing that is missing is a warning, which fails the test; this is about the rest.
void tst_TestBenchWindow::everythingHasANameAndAnIcon()
{
    m_bench->openPlugin(QStringLiteral(GALLERY_LIBRARY));
    QSet<QString> shortcuts;
    for (QAction *menu : m_bench->findChild<QMenuBar *>()->actions()) {
        for (QAction *entry : menu->menu()->actions()) {
            if (entry->isSeparator())
                continue;
            QVERIFY2(!entry->icon().isNull(), qPrintable(entry->text()));
            const QString keys = entry->shortcut().toString();
            QVERIFY2(keys.isEmpty() || !shortcuts.contains(keys), qPrintable(keys));
            shortcuts.insert(keys);
        }
    }
    for (const char *table : {"tagsTable", "trendsTable", "alarmsTable"}) {
        for (const QAction *entry : part<QTableView>(table).actions())
            QVERIFY2(!entry->icon().isNull() && (entry->menu() || !entry->shortcut().isEmpty()),
                     qPrintable(entry->text()));
    }
    for (QWidget *widget : m_bench->findChildren<QWidget *>()) {
        // A label's text is its name; the rest is inside the toolkit's controls.
        const bool isOwn = !qobject_cast<QLabel *>(widget) &&
                           !widget->objectName().startsWith(u("qt_")) &&
                           !qobject_cast<QTabBar *>(widget) && !qobject_cast<QMenu *>(widget) &&
                           !widget->parentWidget()->inherits("QComboBoxPrivateContainer");
        if (widget->focusPolicy() == Qt::NoFocus || widget->isHidden() || !isOwn)
            continue;
        const auto *button = qobject_cast<QAbstractButton *>(widget);
        const bool hasText = button && (!button->text().isEmpty() || !button->toolTip().isEmpty());
        QVERIFY2(hasText || !widget->accessibleName().isEmpty(),
                 qPrintable(u(widget->metaObject()->className()) + u(" ") + widget->objectName() +
                            u(" in ") + u(widget->parent()->metaObject()->className())));
    }
}

QTEST_MAIN(tst_TestBenchWindow)
#include "tst_testbenchwindow.moc"
