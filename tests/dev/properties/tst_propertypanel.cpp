#include "guardedtest.h"

#include "console/eventlog.h"
#include "data/simulationclock.h"
#include "data/tagtable.h"
#include "data/testdata.h"
#include "properties/propertypanel.h"
#include "properties/propertyview.h"
#include "scene/scenedocument.h"
#include "session/pluginsession.h"

#include <NARV/WidgetPrivate>

#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>

#include <memory>

using namespace NARV::DEV;

//! The panel on the page of the bench, with the widgets of the gallery.
class tst_PropertyPanel : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void showsEveryWidget();
    void followsTheSelection();
    void writesCanBeUndone();
    void theWidgetsOwnWrites();
    void requirementsFollowValues();
    void tagsOfTheMachine();
    void severalWidgets();
    void differentWidgets();
    void searchWithoutMatch();

private:
    struct Bench
    {
        PluginSession session;
        TestData data;
        EventLog events;
        SceneDocument document{session, data, events};
        PropertyPanel panel{document};

        PropertyModel &model() { return panel.model(); }
        PlacedWidget &place(const char *id)
        {
            return *document.place(u(id), u("1.0.0"), {100, 100});
        }
        QString text(const char *field) { return model().indexOf(u(field)).data().toString(); }
        bool set(const char *field, const QVariant &value)
        {
            return model().setData(model().indexOf(u(field)), value, Qt::EditRole);
        }
    };
    std::unique_ptr<Bench> m_bench;
};

void tst_PropertyPanel::init()
{
    startGuard();
    m_bench = std::make_unique<Bench>();
    QVERIFY(m_bench->session.open(QStringLiteral(GALLERY_LIBRARY)));
    QTRY_VERIFY(m_bench->session.isLoaded());
    takeLog();
}

void tst_PropertyPanel::cleanup()
{
    m_bench.reset();
    checkGuard();
}

void tst_PropertyPanel::showsEveryWidget()
{
    m_bench->document.setLanguage(u("de-DE"));
    m_bench->model().setShowPrivate(true);
    for (const WidgetMetaInformation &widget : m_bench->session.library()->widgets()) {
        const QString version = widget.version().version();
        const PlacedWidget *placed = m_bench->document.place(widget.id(), version, {});
        QVERIFY(placed);
        for (const FieldMetaInformation &field : widget.fields()) {
            const QModelIndex row = m_bench->model().indexOf(field.id(), PropertyModel::NameColumn);
            QCOMPARE(row.data().toString(), field.display().get(u("de-DE"), true));
            QCOMPARE(row.parent().data().toString(), field.group().get(u("de-DE"), true));
            QVERIFY(!m_bench->text(field.id().toLatin1().constData()).isEmpty() ||
                    placed->fieldValue(field.id()).toString().isEmpty());
            const bool hasFont = m_bench->model().indexOf(field.id() + u(".font")).isValid();
            QCOMPARE(hasFont, field.isMultiLanguageText());
        }
    }
}

void tst_PropertyPanel::followsTheSelection()
{
    auto *empty = m_bench->panel.findChild<QLabel *>(u("propertyEmptyState"));
    QVERIFY(empty->isVisibleTo(&m_bench->panel));
    PlacedWidget &gauge = m_bench->place("gauge");
    QVERIFY(!empty->isVisibleTo(&m_bench->panel));
    QVERIFY(m_bench->model().indexOf(u("needleStyle")).isValid());
    m_bench->place("lamp");
    QVERIFY(!m_bench->model().indexOf(u("needleStyle")).isValid());
    m_bench->document.select({&gauge});
    QVERIFY(m_bench->model().indexOf(u("needleStyle")).isValid());
    const auto *name = m_bench->panel.findChild<QLabel *>(u("widgetName"));
    QCOMPARE(name->text(), gauge.name());
    m_bench->document.select(m_bench->document.widgets());
    QCOMPARE(name->text(), u("2 widgets"));
    m_bench->document.remove({&gauge});
    QCOMPARE(name->text(), u("lamp"));
    QVERIFY(!m_bench->model().indexOf(u("needleStyle")).isValid());
    m_bench->document.select({});
    QVERIFY(empty->isVisibleTo(&m_bench->panel));
}

void tst_PropertyPanel::writesCanBeUndone()
{
    PlacedWidget &gauge = m_bench->place("gauge");
    QVERIFY(m_bench->set("divisions", 99)); // 20 at most
    QCOMPARE(gauge.widget()->getFieldValue(u("divisions"), true), QVariant(20));
    m_bench->document.undoStack().undo();
    QCOMPARE(m_bench->text("divisions"), u("10"));
    const QModelIndex x =
        m_bench->model().index(0, PropertyModel::ValueColumn, m_bench->model().index(0, 0));
    const double before = x.data(Qt::EditRole).toDouble();
    QVERIFY(m_bench->model().setData(x, 33, Qt::EditRole));
    QCOMPARE(gauge.state().position.x(), 33.0);
    m_bench->document.undoStack().undo();
    QCOMPARE(x.data(Qt::EditRole).toDouble(), before);
    const int steps = m_bench->document.undoStack().index();
    for (const int width : {60, 61, 62})
        QVERIFY(m_bench->model().setData(x.siblingAtRow(2), width, Qt::EditRole));
    QVERIFY(m_bench->model().setData(x, 70, Qt::EditRole));
    QCOMPARE(m_bench->document.undoStack().index(), steps + 2);
}

void tst_PropertyPanel::theWidgetsOwnWrites()
{
    PlacedWidget &gauge = m_bench->place("gauge");
    gauge.widget()->setFieldValue(u("value"), 42.5, false, true);
    QCOMPARE(m_bench->text("value"), u("42.5"));
    QVERIFY(m_bench->model().indexOf(u("value")).data(PropertyModel::ChangedRole).toBool());
}

void tst_PropertyPanel::requirementsFollowValues()
{
    m_bench->place("gauge");
    const auto isHidden = [this](const char *field) {
        return m_bench->model().indexOf(u(field)).data(PropertyModel::HiddenRole).toBool();
    };
    QVERIFY(isHidden("arcWidth"));
    QVERIFY(!isHidden("lowAlarm"));
    QVERIFY(m_bench->set("needleStyle", 2));
    QVERIFY(m_bench->set("showLimits", false));
    QVERIFY(!isHidden("arcWidth"));
    QVERIFY(isHidden("lowAlarm"));
    QCOMPARE(m_bench->model().reason(u("lowAlarm")),
             u("\"showLimits\" is \"false\", not \"true\""));
    m_bench->document.undoStack().undo();
    QVERIFY(!isHidden("lowAlarm"));
}

void tst_PropertyPanel::tagsOfTheMachine()
{
    for (const TagType::Value type : {TagType::Double, TagType::Bool}) {
        Tag tag;
        tag.name = u(type == TagType::Bool ? "running" : "level");
        tag.type = type;
        m_bench->data.tags().add(tag);
    }
    const PlacedWidget &selector = m_bench->place("selector");
    const QModelIndex interlock = m_bench->model().indexOf(u("interlockTag"));
    const auto kind = interlock.data(PropertyModel::KindRole).value<ValueKind>();
    QCOMPARE(kind.choices.size(), 1);
    QCOMPARE(kind.choices[0].text, u("running"));
    QVERIFY(m_bench->set("interlockTag", u("running")));
    QCOMPARE(selector.binding(u("interlockTag")), u("running"));
    m_bench->place("gauge");
    QVERIFY(m_bench->set("value", 3));
    m_bench->document.bind(*m_bench->document.currentWidget(), u("value"), u("level"));
    GeneratorSettings sine;
    sine.kind = GeneratorKind::Sine;
    QSignalSpy notices(&m_bench->model(), &PropertyModel::notice);
    for (const bool isRunning : {false, true}) {
        m_bench->data.tags().setGenerator(m_bench->data.tags().find(u("level")), sine);
        m_bench->data.clock().setRunning(isRunning);
        QVERIFY(m_bench->set("value", 4));
        QCOMPARE(notices.size(), isRunning ? 1 : 0);
    }
}

// What all have in common is edited as one.
void tst_PropertyPanel::severalWidgets()
{
    PlacedWidget &first = m_bench->place("gauge");
    PlacedWidget &second = m_bench->place("gauge");
    SceneDocument &document = m_bench->document;
    document.setFieldValue(first, u("divisions"), 5);
    document.bind(first, u("value"), u("level"));
    document.select({&first, &second});
    const auto is = [this](const char *field, int role, int column = PropertyModel::ValueColumn) {
        return m_bench->model().indexOf(u(field), column).data(role).toBool();
    };
    QCOMPARE(m_bench->text("divisions"), u("(different)"));
    QVERIFY(is("divisions", PropertyModel::ChangedRole));
    QVERIFY(!is("maximum", PropertyModel::DifferentRole));
    QVERIFY(is("value", PropertyModel::DifferentRole, PropertyModel::TagColumn));
    const int steps = document.undoStack().count();
    QVERIFY(m_bench->set("divisions", 7));
    QCOMPARE(m_bench->text("divisions"), u("7"));
    QCOMPARE(document.undoStack().count(), steps + 1);
    QCOMPARE(document.undoStack().undoText(), u("Set Divisions of 2 widgets"));
    document.undoStack().undo();
    QTRY_COMPARE(m_bench->text("divisions"), u("(different)"));
    QCOMPARE(first.fieldValue(u("divisions")), QVariant(5));
    // Only what was edited of a value becomes the same.
    const QModelIndex geometry = m_bench->model().index(0, 0);
    const QModelIndex width = m_bench->model().index(2, PropertyModel::ValueColumn, geometry);
    document.setGeometry(first, {1, 2}, {30, 40}, 0);
    QTRY_VERIFY(width.data(PropertyModel::DifferentRole).toBool());
    QVERIFY(m_bench->model().setData(width, 55, Qt::EditRole));
    QCOMPARE(first.state().size, QSizeF(55, 40));
    QCOMPARE(second.state().size, QSizeF(55, second.state().size.height()));
    QVERIFY(m_bench->model().setData(m_bench->model().indexOf(u("value"), PropertyModel::TagColumn),
                                     u("flow"), Qt::EditRole));
    QCOMPARE(first.binding(u("value")) + second.binding(u("value")), u("flowflow"));
    m_bench->model().resetAll();
    QVERIFY(first.state().values.isEmpty() && second.state().bindings.isEmpty());
    document.undoStack().undo();
    QCOMPARE(second.binding(u("value")), u("flow"));
    // A row is hidden if one of the widgets does not meet the requirements.
    document.setFieldValue(first, u("showLimits"), false);
    QTRY_VERIFY(is("lowAlarm", PropertyModel::HiddenRole));
    QCOMPARE(m_bench->model().reason(u("lowAlarm")),
             u("gauge: \"showLimits\" is \"false\", not \"true\""));
}

void tst_PropertyPanel::differentWidgets()
{
    m_bench->place("gauge");
    m_bench->place("lamp");
    m_bench->document.select(m_bench->document.widgets());
    const auto &fields = m_bench->document.widget(u("gauge"))->description().fields();
    const auto &others = m_bench->document.widget(u("lamp"))->description().fields();
    m_bench->model().setShowPrivate(true);
    for (const FieldMetaInformation &field : fields) {
        const bool isShared =
            others.contains(field.id()) && others[field.id()].type() == field.type() &&
            others[field.id()].isMultiLanguageText() == field.isMultiLanguageText();
        QCOMPARE(m_bench->model().indexOf(field.id()).isValid(), isShared);
    }
}

// The search stays for the next widget, which may have nothing that fits.
void tst_PropertyPanel::searchWithoutMatch()
{
    const auto *hint = m_bench->panel.findChild<QLabel *>(u("noMatch"));
    m_bench->place("gauge");
    QTest::keyClicks(m_bench->panel.findChild<QLineEdit *>(u("propertySearch")), u("needle"));
    QVERIFY(hint->isHidden());
    m_bench->place("lamp");
    QVERIFY(!hint->isHidden());
    QCOMPARE(hint->text(), u("No field fits \"needle\"."));
    m_bench->panel.findChild<QLineEdit *>(u("propertySearch"))->clear();
    QVERIFY(hint->isHidden());
}

QTEST_MAIN(tst_PropertyPanel)

#include "tst_propertypanel.moc"
