#include "guardedtest.h"
#include "palette/palettemodel.h"
#include "palette/palettepanel.h"
#include "scene/pageview.h"
#include "session/pluginsession.h"
#include "window/icons.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QSignalSpy>
#include <QTreeView>

using namespace NARV::DEV;

//! Names and versions, children in brackets.
static QString outline(const QAbstractItemModel &model, const QModelIndex &parent = {})
{
    QStringList rows;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        QString text = index.data().toString();
        if (index.data(PaletteModel::IdRole).isValid())
            text += u(" ") + index.siblingAtColumn(PaletteModel::VersionColumn).data().toString();
        if (model.hasChildren(index))
            text += u(" (") + outline(model, index) + u(")");
        rows += text;
    }
    return rows.join(u(", "));
}

static const struct
{
    const char *name;
    const char *language;
    const char *words;
    const char *outline;
} rows[] = {
    {"all", "", "",
     "Page widgets ("
     "Indicators (Bar 1.0.0, Gauge 1.1.0 (Gauge 1.0.0), Lamp 1.0.0, Numeric display 1.0.0), "
     "Operator controls (Numeric input 1.0.0, Push button 1.0.0, Selector 1.0.0), "
     "Other widgets (Alarm list 1.0.0, Label 1.0.0, Trend chart 1.0.0)), "
     "Project widgets (Other widgets (Session watchdog 1.0.0))"},
    {"name, any case", "", "LAMP", "Page widgets (Indicators (Lamp 1.0.0))"},
    {"id", "", "alarmList", "Page widgets (Other widgets (Alarm list 1.0.0))"},
    {"version", "", "gauge 1.0.0", "Page widgets (Indicators (Gauge 1.1.0 (Gauge 1.0.0)))"},
    {"group and name", "", "operator push", "Page widgets (Operator controls (Push button 1.0.0))"},
    {"nothing", "", "no such widget", ""},
    {"other language", "it-IT", "spia", "Page widgets (Indicatori (Spia 1.0.0))"},
    {"unknown language", "xx-XX", "lamp", "Page widgets (Indicators (Lamp 1.0.0))"},
};

class tst_Palette : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void structure_data() { addRows(rows); }
    void structure();
    void emptyStates();
    void placing();
    void dragging();
    void icons();
    void drawnIcons();

private:
    PluginSession m_session;
};

void tst_Palette::initTestCase()
{
    QVERIFY(m_session.open(u(GALLERY_LIBRARY)));
    takeLog();
}

void tst_Palette::structure()
{
    const auto &row = currentRow(rows);
    PalettePanel panel(m_session);
    panel.setLanguage(u(row.language));
    QTest::keyClicks(panel.findChild<QLineEdit *>(u("words")), u(row.words));
    QCOMPARE(outline(*panel.findChild<QTreeView *>()->model()), u(row.outline));
    QCOMPARE(panel.findChild<QLabel *>(u("empty"))->isHidden(), row.outline[0] != '\0');
}

void tst_Palette::emptyStates()
{
    PluginSession session;
    PalettePanel panel(session);
    const auto *tree = panel.findChild<QTreeView *>();
    const auto *empty = panel.findChild<QLabel *>(u("empty"));
    QVERIFY(tree->isHidden() && empty->text().contains(u("Open a plugin")));
    QVERIFY(session.open(u(GALLERY_LIBRARY)));
    QVERIFY(!tree->isHidden());
    session.close();
    QVERIFY(tree->isHidden());
    QCOMPARE(tree->model()->rowCount(), 0);
    takeLog();
}

void tst_Palette::placing()
{
    QWidget window;
    PalettePanel panel(m_session, &window);
    panel.resize(260, 600);
    window.resize(260, 600);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QSignalSpy placed(&panel, &PalettePanel::placeRequested);
    auto *words = panel.findChild<QLineEdit *>(u("words"));
    auto *tree = panel.findChild<QTreeView *>();
    QTest::keyClicks(words, u("gauge"));
    QTest::keyClick(words, Qt::Key_Return);
    QCOMPARE(placed.takeFirst(), QVariantList({u("gauge"), u("1.1.0")}));
    const int found = tree->model()->rowCount();
    QTest::keyClick(words, Qt::Key_Escape);
    QVERIFY(words->text().isEmpty() && tree->model()->rowCount() > found);
    QTest::keyClicks(words, u("gauge"));
    for (const int width : {160, 260}) {
        panel.resize(width, 600);
        QCOMPARE(tree->isColumnHidden(PaletteModel::VersionColumn), width < 200);
    }
    const QModelIndex group = tree->model()->index(0, 0, tree->model()->index(0, 0));
    const QModelIndex gauge = tree->model()->index(0, 0, group);
    const QPoint centre = tree->visualRect(gauge).center();
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, centre);
    QCOMPARE(placed.size(), 0);
    QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, centre);
    QCOMPARE(placed.takeFirst(), QVariantList({u("gauge"), u("1.1.0")}));
    // The older version by keyboard alone.
    tree->setFocus();
    QTest::keyClick(tree, Qt::Key_Right);
    QTest::keyClick(tree, Qt::Key_Down);
    QTest::keyClick(tree, Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(placed.takeFirst(), QVariantList({u("gauge"), u("1.0.0")}));
    tree->setCurrentIndex(group);
    QTest::keyClick(tree, Qt::Key_Return);
    QVERIFY(!tree->isExpanded(group));
    QCOMPARE(placed.size(), 0);
}

void tst_Palette::dragging()
{
    PaletteModel model(m_session);
    const QModelIndex group = model.index(0, 0, model.index(0, 0));
    QVERIFY(!(group.flags() & Qt::ItemIsDragEnabled));
    const QModelIndex bar = model.index(0, 0, group);
    QVERIFY(bar.flags() & Qt::ItemIsDragEnabled);
    const std::unique_ptr<QMimeData> data(model.mimeData({bar}));
    QCOMPARE(data->data(PageView::widgetMimeType()), QByteArray("bar\n1.0.0"));
}

static QImage imageOf(const QModelIndex &index)
{
    return index.data(Qt::DecorationRole).value<QIcon>().pixmap(32).toImage();
}

void tst_Palette::icons()
{
    PaletteModel model(m_session);
    QSignalSpy changed(&model, &PaletteModel::dataChanged);
    const QModelIndex group = model.index(0, 0, model.index(0, 0));
    const QImage before = imageOf(model.index(0, 0, group));
    QCOMPARE(imageOf(model.index(1, 0, group)), before);
    QTRY_COMPARE(changed.size(), 2); // none that was not asked for
    const QImage bar = imageOf(model.index(0, 0, group));
    QVERIFY(bar != before);
    QCOMPARE(bar.pixelColor(1, 16), QColor(0xf3, 0xf4, 0xf6)); // dark trees need it behind
    QVERIFY(imageOf(model.index(1, 0, group)) != bar);
    // One that draws nothing has an icon of its own.
    const QModelIndex watchdog = model.index(0, 0, model.index(0, 0, model.index(1, 0)));
    QCOMPARE(imageOf(watchdog), before);
    QTRY_COMPARE(changed.size(), 3);
    const QImage own = imageOf(watchdog);
    QImage blank(own.size(), own.format());
    blank.fill(Qt::transparent);
    QVERIFY(own != before && own != blank);
    QVERIFY(m_session.reload());
    QCOMPARE(imageOf(model.index(0, 0, model.index(0, 0, model.index(0, 0)))), before);
    takeLog();
}

//! Each of the bench's own drawings is there, in the colour of the text, paler when disabled.
void tst_Palette::drawnIcons()
{
    const QStringList files = QDir(u(":/zpplugin-bench/icons")).entryList();
    QVERIFY(files.size() > 60);
    const auto darkest = [](const QImage &image) {
        int value = 255;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor colour = image.pixelColor(x, y);
                if (colour.alpha() > 250)
                    value = qMin(value, colour.value());
            }
        }
        return value;
    };
    for (const QString &file : files) {
        const QIcon icon = benchIcon(file.chopped(4));
        const int normal = darkest(icon.pixmap(48).toImage());
        QVERIFY2(normal < 60, qPrintable(file));
        QVERIFY2(darkest(icon.pixmap(48, QIcon::Disabled).toImage()) > normal, qPrintable(file));
    }
}

QTEST_MAIN(tst_Palette)
#include "tst_palette.moc"
