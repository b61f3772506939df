#include "guardedtest.h"

#include "console/eventlog.h"
#include "data/alarmtable.h"
#include "data/simulationclock.h"
#include "data/tagtable.h"
#include "data/testdata.h"
#include "data/trendstore.h"
#include "scene/scenedocument.h"
#include "scene/sceneediting.h"
#include "session/pluginsession.h"

#include <NARV/GraphicsObject>
#include <NARV/WidgetPrivate>

#include <QMimeData>
#include <QSignalSpy>

#include <memory>

using namespace NARV::DEV;
using Text = NARV::INTERNAL::PluginMetaInformation::TranslationStringType;

class tst_SceneDocument : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void placingIsUndone();
    void fieldWritesMerge();
    void boundTagsReachTheWidget();
    void theWidgetsOwnWrites();
    void textsInLanguages();
    void modeAndReloadKeepValues();
    void whatTheLibraryLacks();
    void removedWidgetsComeBackInPlace();
    void textsInWords();
    void editsOfTheData_data();
    void editsOfTheData();
    void editsOfTheDataMerge();
    void editing();

private:
    PlacedWidget &gauge(const QPointF &centre = {200, 200});

    struct Bench
    {
        PluginSession session;
        TestData data;
        EventLog events;
        SceneDocument document{session, data, events};
    };
    std::unique_ptr<Bench> m_bench;
};

void tst_SceneDocument::init()
{
    startGuard();
    m_bench = std::make_unique<Bench>();
    QVERIFY(m_bench->session.open(QStringLiteral(GALLERY_LIBRARY)));
    QTRY_VERIFY(m_bench->session.isLoaded());
    takeLog();
}

void tst_SceneDocument::cleanup()
{
    m_bench.reset();
    checkGuard();
}

PlacedWidget &tst_SceneDocument::gauge(const QPointF &centre)
{
    return *m_bench->document.place(u("gauge"), u("1.0.0"), centre);
}

void tst_SceneDocument::placingIsUndone()
{
    SceneDocument &document = m_bench->document;
    QCOMPARE(document.place(u("no such widget"), u("1.0.0"), {}), nullptr);
    PlacedWidget &first = gauge({200, 150});
    QCOMPARE(first.name(), u("gauge"));
    QVERIFY(first.item());
    QCOMPARE(first.item()->sceneBoundingRect().center(), QPointF(200, 150));
    QCOMPARE(gauge().name(), u("gauge 2"));
    QCOMPARE(document.currentWidget()->name(), u("gauge 2"));
    document.undoStack().undo();
    document.undoStack().undo();
    QVERIFY(document.widgets().isEmpty());
    QCOMPARE(document.currentWidget(), nullptr);
    document.undoStack().redo();
    QVERIFY(document.widget(u("gauge"))->item());
    QVERIFY(document.isModified());
}

void tst_SceneDocument::fieldWritesMerge()
{
    PlacedWidget &widget = gauge();
    SceneDocument &document = m_bench->document;
    const QVariant start = widget.fieldValue(u("value"));
    const int steps = document.undoStack().count();
    for (const double value : {10.0, 11.0, 12.0})
        document.setFieldValue(widget, u("value"), value);
    QCOMPARE(document.undoStack().count(), steps + 1);
    QCOMPARE(widget.widget()->getFieldValue(u("value"), true), QVariant(12.0));
    QVERIFY(widget.isFieldChanged(u("value")));
    document.setFieldValue(widget, u("value"), 12.0);
    document.setFieldValue(widget, u("maximum"), 50.0);
    document.resetFields({&widget}, {u("minimum")});
    document.bind(widget, u("minimum"), {});
    QCOMPARE(document.undoStack().count(), steps + 2);
    document.resetFields({&widget}, {u("value"), u("maximum")});
    QCOMPARE(widget.fieldValue(u("value")), start);
    document.undoStack().undo();
    QCOMPARE(widget.fieldValue(u("value")), QVariant(12.0));
    document.undoStack().undo();
    document.undoStack().undo();
    QCOMPARE(widget.fieldValue(u("value")), start);
    QVERIFY(!widget.isFieldChanged(u("value")));
}

void tst_SceneDocument::boundTagsReachTheWidget()
{
    PlacedWidget &widget = gauge();
    SceneDocument &document = m_bench->document;
    Tag tag;
    tag.name = u("level");
    tag.value = 33.0;
    m_bench->data.tags().add(tag);
    document.bind(widget, u("value"), u("level"));
    QCOMPARE(widget.fieldValue(u("value")), QVariant(33.0));
    document.deliverPending();
    QSignalSpy changed(&widget, &PlacedWidget::fieldChanged);
    m_bench->data.writeTag(u("level"), 44);
    QTRY_COMPARE(widget.fieldValue(u("value")), QVariant(44.0));
    QCOMPARE(changed.count(), 1);
    m_bench->data.tags().rename(0, u("height"));
    QCOMPARE(widget.binding(u("value")), u("height"));
    m_bench->data.writeTag(u("height"), 50);
    QTRY_COMPARE(widget.fieldValue(u("value")), QVariant(50.0));
    m_bench->data.tags().rename(0, u("level"));
    document.undoStack().setIndex(document.undoStack().index() - 3); // two names and the tag
    m_bench->data.writeTag(u("level"), 55);
    document.deliverPending();
    QVERIFY(widget.fieldValue(u("value")) != QVariant(55.0));
}

// Plugin code writes: a bound field writes its tag, an unbound one its state.
void tst_SceneDocument::theWidgetsOwnWrites()
{
    PlacedWidget &widget = gauge();
    Tag tag;
    tag.name = u("level");
    tag.value = 33.0;
    m_bench->data.tags().add(tag);
    Q_EMIT widget.widget()->fieldIsChanged(u("value"), 7.0);
    QCOMPARE(widget.state().values.value(u("value")), QVariant(7.0));
    m_bench->document.bind(widget, u("value"), u("level"));
    Q_EMIT widget.widget()->fieldIsChanged(u("value"), 8.0);
    QCOMPARE(m_bench->data.tagValue(u("level")), QVariant(8.0));
    QCOMPARE(widget.state().values.value(u("value")), QVariant(7.0));
}

void tst_SceneDocument::textsInLanguages()
{
    SceneDocument &document = m_bench->document;
    PlacedWidget &label = *document.place(u("label"), u("1.0.0"), {});
    Text text = label.fieldValue(u("text")).value<Text>();
    QVERIFY(!text.isEmpty());
    text.set(u("de-DE"), u("Kessel"));
    document.setFieldValue(label, u("text"), QVariant::fromValue(text));
    document.setLanguage(u("de-DE"));
    QCOMPARE(label.widget()->getFieldValue(u("text"), true), QVariant(u("Kessel")));
    Q_EMIT label.widget()->fieldIsChanged(u("text"), u("Tank"));
    QCOMPARE(label.fieldValue(u("text")).value<Text>().get(u("de-DE"), false), u("Tank"));
    QCOMPARE(label.fieldValue(u("text")).value<Text>().get(u("en-US"), false),
             text.get(u("en-US"), false));
}

void tst_SceneDocument::modeAndReloadKeepValues()
{
    PlacedWidget &widget = gauge();
    m_bench->document.setFieldValue(widget, u("value"), 42.0);
    QPointer<NARV::GraphicsObject> before = widget.item();
    m_bench->document.setMode(SceneDocument::Mode::Runtime);
    QVERIFY(!before && widget.item());
    QCOMPARE(widget.fieldValue(u("value")), QVariant(42.0));
    QSignalSpy loaded(&m_bench->session, &PluginSession::loaded);
    m_bench->session.reload();
    QTRY_COMPARE(loaded.count(), 1);
    takeLog();
    QVERIFY(widget.item());
    QCOMPARE(widget.fieldValue(u("value")), QVariant(42.0));
    before = widget.item();
    QVERIFY(!m_bench->session.open(u("missing.so")));
    QVERIFY(before && widget.item() == before); // it knows nothing of that
    m_bench->session.close();
    QVERIFY(!widget.item() && widget.shownItem());
    QCOMPARE(widget.state().values.value(u("value")), QVariant(42.0));
}

// A widget and a field that the library does not have keep what the file says of them.
void tst_SceneDocument::whatTheLibraryLacks()
{
    WidgetState unknown;
    unknown.name = unknown.widgetId = u("teapot");
    unknown.version = u("1.0.0");
    unknown.size = {50, 50};
    unknown.values = {{u("lid"), QVariant(QJsonValue(true))}};
    WidgetState gauge = unknown;
    gauge.name = gauge.widgetId = u("gauge");
    gauge.values.insert(u("value"), QVariant(QJsonValue(u("hot"))));
    gauge.values.insert(u("maximum"), QVariant(QJsonValue(9.5)));
    QSignalSpy notices(&m_bench->document, &SceneDocument::notice);
    WidgetState other = gauge;
    other.name = u("other");
    const QJsonObject font{{u("family"), u("Roboto")},
                           {u("size"), 20},
                           {u("bold"), true},
                           {u("style"), u("italic")},
                           {u("underline"), false}};
    other.values = {{u("valueFont"), QVariant(QJsonValue(font))}};
    m_bench->document.reset({}, {unknown, gauge, other});
    QCOMPARE(notices.count(), 3);
    const QFont read =
        m_bench->document.widget(u("other"))->fieldValue(u("valueFont")).value<QFont>();
    QVERIFY(read.pointSize() == 20 && read.bold() && read.italic());
    const PlacedWidget &placed = *m_bench->document.widget(u("gauge"));
    QCOMPARE(placed.fieldValue(u("maximum")), QVariant(9.5));
    QCOMPARE(placed.fieldValue(u("value")), placed.defaultValue(u("value")));
    QCOMPARE(placed.state().values, gauge.values);
    QCOMPARE(m_bench->document.widget(u("teapot"))->state().values, unknown.values);
    QVERIFY(m_bench->document.widget(u("teapot"))->shownItem());
}

void tst_SceneDocument::removedWidgetsComeBackInPlace()
{
    SceneDocument &document = m_bench->document;
    for (int i = 0; i < 5; ++i)
        gauge();
    const auto names = [&] {
        QStringList list;
        for (const PlacedWidget *widget : document.widgets())
            list += widget->name();
        return list;
    };
    const QStringList before = names();
    document.remove({document.widgets()[3], document.widgets()[0], document.widgets()[1]});
    QCOMPARE(names(), QStringList({u("gauge 3"), u("gauge 5")}));
    document.undoStack().undo();
    QCOMPARE(names(), before);
    QCOMPARE(document.selection().size(), 3);
    document.select({document.widgets()[1]});
    SceneEditing::restack(document, Stacking::ToTop);
    QCOMPARE(names().last(), u("gauge 2"));
    QCOMPARE(document.widgets().last()->item()->zValue(), 4.0);
    document.undoStack().undo();
    QCOMPARE(names(), before);
}

// A person reads titles, not ids.
void tst_SceneDocument::textsInWords()
{
    SceneDocument &document = m_bench->document;
    m_bench->data.loadDefaults();
    gauge();
    PlacedWidget &widget = gauge();
    const QUndoStack &steps = document.undoStack();
    QCOMPARE(steps.undoText(), u("Place Gauge"));
    document.setFieldValue(widget, u("value"), 3.0);
    QCOMPARE(steps.undoText(), u("Set Value of Gauge 2"));
    document.bind(widget, u("value"), u("level"));
    QCOMPARE(steps.undoText(), u("Attach Value of Gauge 2 to level"));
    QVERIFY(document.place(u("alarmList"), u("1.0.0"), {}));
    m_bench->data.alarms().apply(1, AlarmAction::Raise);
    Q_EMIT widget.widget()->fieldIsChanged(u("maximum"), 7.0);
    document.setLanguage(u("it-IT"));
    document.setFieldValue(widget, u("value"), 4.0);
    QCOMPARE(steps.undoText(), u("Set Valore of Indicatore a lancetta 2"));
    document.remove(document.widgets());
    QCOMPARE(steps.undoText(), u("Delete 3 widgets"));
    m_bench->events.flush();
    QStringList texts;
    for (int row = 0; row < m_bench->events.rowCount(); ++row)
        texts += m_bench->events.record(row).text;
    QVERIFY(texts.contains(u("door open: triggered, not acknowledged")));
    QVERIFY(texts.contains(u("Maximum = 7")));
}

static const struct
{
    const char *name; // of the step
    void (*edit)(TestData &data);
} dataRows[] = {
    {"Add the tag new",
     [](TestData &data) {
         data.tags().add({u("new"), TagType::Bool, {}, {}, {}});
     }},
    {"Remove the tag temperature", [](TestData &data) { data.tags().remove(1); }},
    {"Rename the tag level to height", [](TestData &data) { data.tags().rename(0, u("height")); }},
    {"Change the tag setpoint",
     [](TestData &data) { data.tags().setType(data.tags().find(u("setpoint")), TagType::Bool); }},
    {"Change the tag level",
     [](TestData &data) {
         data.tags().setGenerator(0, {});
         data.tags().write(0, 12.5);
     }},
    {"Add the trend new",
     [](TestData &data) {
         data.trends().add({u("new"), u("speed"), {}});
     }},
    {"Remove the trend level", [](TestData &data) { data.trends().remove(0); }},
    {"Change the trend level",
     [](TestData &data) {
         data.trends().setData(data.trends().index(0, TrendStore::IntervalColumn), 70);
     }},
    {"Remove the alarm level high", [](TestData &data) { data.alarms().remove(0); }},
    {"Rename the alarm door open to gate",
     [](TestData &data) {
         data.alarms().setData(data.alarms().index(1, AlarmTable::NameColumn), u("gate"));
     }},
};

void tst_SceneDocument::editsOfTheData_data()
{
    addRows(dataRows);
}

void tst_SceneDocument::editsOfTheData()
{
    const auto &row = currentRow(dataRows);
    TestData &data = m_bench->data;
    QUndoStack &steps = m_bench->document.undoStack();
    data.loadDefaults();
    data.clock().advance(1000);
    PlacedWidget &widget = gauge();
    m_bench->document.bind(widget, u("value"), u("level"));
    const auto all = [&] {
        m_bench->document.deliverPending();
        return QVariantList{data.toJson(), widget.binding(u("value")),
                            widget.fieldValue(u("value"))};
    };
    const QVariantList before = all();
    m_bench->document.setUnmodified();
    const int count = steps.count();
    data.edit([&] { row.edit(data); });
    const QVariantList after = all();
    QVERIFY(before != after);
    QCOMPARE(steps.count(), count + 1);
    QCOMPARE(steps.undoText(), u(row.name));
    for (int i = 0; i < 2; ++i) {
        steps.undo();
        QCOMPARE(all(), before);
        QVERIFY(!m_bench->document.isModified());
        steps.redo();
        QCOMPARE(all(), after);
    }
}

// What tags have at the moment and how alarms are is not undone; quick steps of an edit are one.
void tst_SceneDocument::editsOfTheDataMerge()
{
    TestData &data = m_bench->data;
    QUndoStack &steps = m_bench->document.undoStack();
    data.loadDefaults();
    data.edit([&] { data.tags().write(data.tags().find(u("setpoint")), 7); });
    data.edit([&] { data.alarms().apply(1, AlarmAction::Raise); });
    QCOMPARE(steps.count(), 0);
    QVERIFY(m_bench->document.isModified());
    const GeneratorSettings before = data.tags().tag(0).generator;
    for (const double maximum : {101.0, 102.0, 103.0}) {
        GeneratorSettings settings = before;
        settings.maximum = maximum;
        data.edit([&] { data.tags().setGenerator(0, settings); });
    }
    QCOMPARE(steps.count(), 1);
    data.clock().advance(700);
    steps.undo();
    QVERIFY(data.tags().tag(0).generator == before);
    QCOMPARE(data.tagValue(u("setpoint")), QVariant(7.0));
}

void tst_SceneDocument::editing()
{
    SceneDocument &document = m_bench->document;
    QVERIFY(!SceneEditing::copy(document));
    document.setFieldValue(gauge(), u("value"), 5.0);
    const std::unique_ptr<QMimeData> copied(SceneEditing::copy(document));
    QString problem;
    QVERIFY(SceneEditing::paste(document, *copied, problem));
    QCOMPARE(document.currentWidget()->name(), u("gauge 2"));
    QCOMPARE(document.currentWidget()->fieldValue(u("value")), QVariant(5.0));
    SceneEditing::selectAll(document);
    SceneEditing::duplicate(document);
    QCOMPARE(document.widgets().size(), 4);
    SceneEditing::align(document, Qt::AlignLeft);
    QCOMPARE(document.widgets()[2]->state().position.x(),
             document.widgets()[3]->state().position.x());
    SceneEditing::remove(document);
    QCOMPARE(document.widgets().size(), 2);
    QMimeData foreign;
    foreign.setText(u("hello"));
    QVERIFY(!SceneEditing::paste(document, foreign, problem));
    QVERIFY(problem.isEmpty());
}

QTEST_MAIN(tst_SceneDocument)

#include "tst_scenedocument.moc"
