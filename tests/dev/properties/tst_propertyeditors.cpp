#include "fieldsource.h"
#include "guardedtest.h"

#include "properties/propertyeditor.h"
#include "properties/propertypanel.h"
#include "properties/propertyview.h"
#include "properties/valuetexts.h"

#include <QAction>
#include <QApplication>
#include <QKeySequence>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolButton>

using namespace NARV::DEV;

static const QByteArray fonts = ",'displayFontFamily':'Family','displayFontSize':'Size',"
                                "'displayFontBold':'Bold','displayFontStyle':'Style',"
                                "'displayFontUnderline':'Underline'";

static const QByteArray fields =
    "[{'id':'text','type':'string','display':'A','defaultValue':'old'},"
    " {'id':'list','type':'stringList','display':'B','defaultValue':['p','q']},"
    " {'id':'map','type':'stringMap','display':'C','defaultValue':[{'id':1,'value':'one'}]},"
    " {'id':'integer','type':'integer','display':'D','defaultValue':5,'minimum':0,'maximum':9},"
    " {'id':'number','type':'double','display':'E','defaultValue':0.5,'tagCanBeAttached':true},"
    " {'id':'flag','type':'bool','display':'F','defaultValue':false},"
    " {'id':'option','type':'option','display':'G','defaultValue':1,'options':["
    "  {'index':1,'option':'Red'},{'index':3,'option':'Green'},{'index':9,'option':'Blue'}]},"
    " {'id':'color','type':'color','display':'H','defaultValue':'#102030'},"
    " {'id':'font','type':'font','display':'I','defaultValue':{'family':'Roboto','size':9}" +
    fonts +
    "}, {'id':'image','type':'image','display':'J'},"
    " {'id':'tag','type':'tag','display':'K','tagAcceptedTypes':['double','string']},"
    " {'id':'trend','type':'trend','display':'L'}]";

// Keys by name or letter, blanks between them.
static const struct
{
    const char *name;
    const char *field;
    const char *keys;
    const char *text; // of the value then
} keyRows[] = {
    {"text", "text", "F2 n e w Return", "new"},
    {"text over two lines", "text", "Return a Shift+Return b Return", "a ⏎ b"},
    {"text given up", "text", "F2 n e w Esc", "old"},
    {"typing begins to edit", "text", "z Return", "z"},
    {"list", "list", "F2 x Return y Return \\ n Ctrl+Return", "x, y,  ⏎ "},
    {"empty list", "list", "F2 Del Ctrl+Return", "(empty)"},
    {"map", "map", "F2 7 : Space x Return 3 : y Ctrl+Return", "3: y, 7: x"},
    {"integer", "integer", "F2 7 Return", "7"},
    {"integer stepped to its bound", "integer", "F2 PgUp Up Return", "9"},
    {"integer above its bound", "integer", "F2 4 2 Return", "9"},
    {"integer stepped and given up", "integer", "F2 Up Up Esc", "5"},
    {"double", "number", "2 . 2 5 Return", "2.25"},
    {"double with a comma", "number", "F2 - 1 , 5 Return", "-1.5"},
    {"bool in place", "flag", "Space", "true"},
    {"bool by its editor", "flag", "F2 Space Return", "true"},
    {"bool back again", "flag", "F2 Space Esc", "false"},
    {"option", "option", "F2 Down Return", "Green"},
    {"option from its row", "option", "Alt+Down Down Down Return", "Blue"},
    {"option given up", "option", "Return Down Esc", "Red"},
    {"option by letter", "option", "F2 b Return", "Blue"},
    {"color", "color", "F2 # 8 0 f f 0 0 0 1 Return", "#80FF0001"},
    {"color by name", "color", "r e d Return", "#FF0000"},
    {"font", "font", "F2 Tab 1 2 Tab Space Tab Tab Space Return", "Roboto, 12, bold, underlined"},
    {"image", "image", "F2 / n o / a . p n g Return", "a.png (missing)"},
    {"tag", "tag", "F2 Down Return", "level"},
    {"tag by type", "tag", "F2 s t r Return", "recipe"},
    {"trend", "trend", "F2 l o g Return", "log"},
    {"tag of any field", "number", "Ctrl+T b o o l Return", "0.5"},
};

// What cannot be taken stays in its editor.
static const struct
{
    const char *name;
    const char *field;
    const char *keys;
    const char *problem; // a part of it
} refusedRows[] = {
    {"integer", "integer", "F2 1 . 5 Return", "\"1.5\" is not a whole number"},
    {"too large an integer", "integer", "F2 3 0 0 0 0 0 0 0 0 0 Tab", "32 bits"},
    {"double", "number", "F2 x Return", "\"x\" is not a number"},
    {"color", "color", "F2 r e d d Return", "\"redd\" is no colour"},
    {"map", "map", "F2 1 : a Return b Ctrl+Return", "Line 2"},
    {"map with a key twice", "map", "F2 1 : a Return 1 : b Ctrl+Return", "Line 2"},
    {"tag of another type", "tag", "F2 r u n n i n g Return", "\"running\""},
};

class tst_PropertyEditors : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void keys_data() { addRows(keyRows); }
    void keys();
    void oneClickOpensTheChoices();
    void refused_data() { addRows(refusedRows); }
    void refused();
    void everyTypeIsEdited();
    void tabLeadsThroughAllFields();
    void resetByKey();
    void bindingByKey();
    void theWidgetWritesMeanwhile();
    void linesBeginAtTheFirst();
    void losingTheFocusTakesTheValue();
    void keysComeBeforeTheWindowsShortcuts();

private:
    struct Panel
    {
        Panel();
        void press(const char *keys);
        void choose(const char *field);
        QString text(const char *field)
        {
            return panel.model().indexOf(u(field)).data().toString();
        }
        PropertyEditor *editor() { return panel.findChild<PropertyEditor *>(); }
        QString info() { return panel.findChild<QLabel *>(u("propertyInfo"))->text(); }

        FieldSource source{fields};
        QWidget window; // of no size hints, which the platform without a display warns of
        PropertyPanel panel{source, &window};
        PropertyView &view = *panel.findChild<PropertyView *>();
    };
};

tst_PropertyEditors::Panel::Panel()
{
    window.resize(260, 600);
    panel.resize(window.size());
    window.show();
    QApplication::setActiveWindow(&window);
    view.setFocus();
}

void tst_PropertyEditors::Panel::choose(const char *field)
{
    const auto *filter = qobject_cast<PropertyFilter *>(view.model());
    view.setCurrentIndex(filter->mapFromSource(panel.model().indexOf(u(field))));
}

void tst_PropertyEditors::Panel::press(const char *keys)
{
    for (const QString &key : u(keys).split(QLatin1Char(' '))) {
        QWidget *focus = QApplication::focusWidget();
        QVERIFY(focus);
        if (key.size() == 1) {
            QTest::keyClicks(focus, key);
            continue;
        }
        const int code = QKeySequence(key)[0];
        QTest::keyClick(focus, Qt::Key(code & ~Qt::KeyboardModifierMask),
                        Qt::KeyboardModifiers(code & int(Qt::KeyboardModifierMask)));
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void tst_PropertyEditors::keys()
{
    const auto &row = currentRow(keyRows);
    Panel panel;
    panel.choose(row.field);
    panel.press(row.keys);
    QCOMPARE(panel.text(row.field), u(row.text));
    QVERIFY(!panel.editor());
    QCOMPARE(QApplication::focusWidget(), &panel.view);
}

void tst_PropertyEditors::oneClickOpensTheChoices()
{
    Panel panel;
    panel.choose("option");
    const QRect row = panel.view.visualRect(panel.view.currentIndex());
    panel.choose("text");
    QTest::mouseClick(panel.view.viewport(), Qt::LeftButton, {}, row.center());
    QWidget *list = QApplication::activePopupWidget();
    QVERIFY(list);
    QTest::keyClick(list->findChild<QAbstractItemView *>(), Qt::Key_Down);
    list->findChild<QAbstractItemView *>()->setFocus();
    panel.press("Return");
    QCOMPARE(panel.text("option"), u("Green"));
    QVERIFY(!panel.editor());
}

void tst_PropertyEditors::refused()
{
    const auto &row = currentRow(refusedRows);
    Panel panel;
    const QString before = panel.text(row.field);
    panel.choose(row.field);
    panel.press(row.keys);
    QVERIFY2(panel.info().contains(u(row.problem).toHtmlEscaped()), qPrintable(panel.info()));
    QVERIFY(panel.editor());
    QCOMPARE(panel.text(row.field), before);
    panel.press("Esc");
    QVERIFY(!panel.editor());
    QCOMPARE(panel.text(row.field), before);
}

void tst_PropertyEditors::everyTypeIsEdited()
{
    Panel panel;
    QSet<int> types;
    for (const auto &row : keyRows)
        types += panel.source.description(0).fields()[u(row.field)].type();
    QCOMPARE(types.size(), 12);
}

void tst_PropertyEditors::tabLeadsThroughAllFields()
{
    Panel panel;
    panel.choose("text");
    panel.press("F2");
    QStringList visited;
    for (; panel.editor() && visited.size() < 50; panel.press("Tab")) {
        const QString id = panel.view.currentIndex().data(PropertyModel::IdRole).toString();
        if (!visited.contains(id))
            visited += id;
    }
    QCOMPARE(visited.join(u(" ")),
             u("text list map integer number flag option color font image tag trend"));
    QCOMPARE(panel.source.writes, 0);
}

void tst_PropertyEditors::resetByKey()
{
    for (const char *key : {"Del", "Ctrl+Backspace"}) {
        Panel panel;
        panel.source.write(u("integer"), 8);
        panel.choose("integer");
        panel.press(key);
        QCOMPARE(panel.text("integer"), u("5"));
    }
    Panel panel;
    panel.source.write(u("text"), u("other"));
    panel.source.bind(u("number"), {u("level")});
    panel.panel.findChild<QToolButton *>(u("resetAll"))->click();
    QVERIFY(!panel.source.isChanged(0, u("text")) && !panel.source.isChanged(0, u("number")));
}

void tst_PropertyEditors::bindingByKey()
{
    Panel panel;
    panel.choose("number");
    panel.press("Ctrl+T r u n Return");
    QCOMPARE(panel.source.binding(0, u("number")), u("running"));
    panel.press("Ctrl+T Home Up Up Return");
    QCOMPARE(panel.source.binding(0, u("number")), QString());
    panel.source.bind(u("number"), {u("gone")});
    panel.press("Ctrl+T Return"); // a tag that is missing stays unless another is chosen
    QCOMPARE(panel.source.binding(0, u("number")), u("gone"));
    panel.press("Ctrl+Shift+T");
    QCOMPARE(panel.source.binding(0, u("number")), QString());
}

void tst_PropertyEditors::theWidgetWritesMeanwhile()
{
    Panel panel;
    panel.choose("text");
    panel.press("F2 n");
    panel.source.write(u("integer"), 3);
    panel.source.write(u("text"), u("written"));
    QCOMPARE(panel.text("integer"), u("3"));
    QCOMPARE(panel.text("text"), u("written"));
    panel.press("e w Return");
    QCOMPARE(panel.text("text"), u("new"));
    panel.press("F2");
    panel.source.write(u("text"), u("again")); // nothing is typed yet
    panel.press("Return");
    QCOMPARE(panel.text("text"), u("again"));
    panel.press("F2");
    panel.source.write(u("text"), u("last"));
    panel.press("Esc"); // gives up what was typed, and nothing was
    QCOMPARE(panel.text("text"), u("last"));
}

void tst_PropertyEditors::linesBeginAtTheFirst()
{
    Panel panel;
    panel.source.write(u("list"), u("a b c d e f g h i j k l").split(u(" ")));
    panel.choose("list");
    panel.press("F2");
    const auto *edit = panel.editor()->findChild<QPlainTextEdit *>();
    QTRY_VERIFY(edit->verticalScrollBar()->maximum() > 0);
    QCOMPARE(edit->verticalScrollBar()->value(), 0);
    panel.press("x Ctrl+Return");
    QCOMPARE(panel.text("list"), u("x"));
}

void tst_PropertyEditors::losingTheFocusTakesTheValue()
{
    Panel panel;
    panel.choose("number");
    panel.press("F2 4");
    panel.panel.search();
    QCOMPARE(panel.text("number"), u("4"));
    QVERIFY(!panel.editor() || !panel.editor()->isVisible());
}

void tst_PropertyEditors::keysComeBeforeTheWindowsShortcuts()
{
    Panel panel;
    QAction remove(&panel.window);
    remove.setShortcuts({QKeySequence(Qt::Key_Delete), QKeySequence(Qt::Key_Space)});
    panel.window.addAction(&remove);
    QSignalSpy removed(&remove, &QAction::triggered);
    panel.source.write(u("integer"), 8);
    panel.choose("integer");
    panel.press("Del");
    QCOMPARE(panel.text("integer"), u("5"));
    panel.choose("flag");
    panel.press("Space F2 Space Del");
    QCOMPARE(panel.text("flag"), u("false"));
    QCOMPARE(removed.size(), 0);
}

QTEST_MAIN(tst_PropertyEditors)

#include "tst_propertyeditors.moc"
