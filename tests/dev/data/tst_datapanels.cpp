#include "data/alarmspanel.h"
#include "data/alarmtable.h"
#include "data/clockbar.h"
#include "data/scenariopanel.h"
#include "data/simulationclock.h"
#include "data/tagspanel.h"
#include "data/tagtable.h"
#include "data/testdata.h"
#include "data/trendspanel.h"
#include "data/trendstore.h"

#include "guardedtest.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSlider>
#include <QTableView>
#include <QTemporaryDir>
#include <QWheelEvent>

using namespace NARV;
using namespace NARV::DEV;

class tst_DataPanels : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void aTagIsAddedAndMovedByKeyboard();
    void handsStopTheGenerator();
    void generatorsAreEdited();
    void whatIsTypedStaysWhileTagsMove();
    void everyTypeHasItsEditor();
    void anAlarmGoesThroughItsLife();
    void alarmsAreEdited();
    void trendsAreAdded();
    void scenariosAreRunAndUndone();
    void theClockBar();
    void whatIsRemovedIsTakenBack();
    void theWheelScrolls();
    void controlsHaveNamesAndFit();

private:
    void showPanel(QWidget &panel, const QSize &size = {400, 700});

    QWidget m_window; // without limits to its size, of which the offscreen platform complains
};

template<typename T>
static T *find(QWidget &panel, const char *name)
{
    T *found = panel.findChild<T *>(u(name));
    if (!found)
        qFatal("There is no %s", name);
    return found;
}

static void choose(QWidget &panel, const char *box, int index)
{
    auto *combo = find<QComboBox>(panel, box);
    combo->setCurrentIndex(index);
    Q_EMIT combo->activated(index); // what a choice by the user sends as well
}

static void type(QLineEdit *line, const char *text)
{
    line->setFocus();
    line->selectAll();
    QTest::keyClicks(line, u(text));
    QTest::keyClick(line, Qt::Key_Return);
}

void tst_DataPanels::showPanel(QWidget &panel, const QSize &size)
{
    panel.setParent(&m_window);
    panel.resize(size);
    panel.show();
    m_window.show();
    QApplication::setActiveWindow(&m_window);
}

void tst_DataPanels::aTagIsAddedAndMovedByKeyboard()
{
    TestData data;
    TagsPanel panel(data);
    showPanel(panel);
    auto *table = find<QTableView>(panel, "tagsTable");
    table->setFocus();
    QTest::keyClick(table, Qt::Key_Insert);
    QWidget *editor = QApplication::focusWidget(); // the name is asked for at once
    QTest::keyClicks(editor, u("pump"));
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(data.tags().names(), QStringList{u("pump")});
    auto *slider = find<QSlider>(panel, "tagSlider");
    slider->setFocus();
    QTest::keyClick(slider, Qt::Key_End);
    QCOMPARE(data.tagValue(u("pump")), QVariant(100.0));
    type(find<QLineEdit>(panel, "tagValue"), "12.5");
    QCOMPARE(data.tagValue(u("pump")), QVariant(12.5));
    type(find<QLineEdit>(panel, "tagValue"), "much");
    QCOMPARE(data.tagValue(u("pump")), QVariant(12.5));
    QVERIFY(find<QLabel>(panel, "tagsMessage")->text().contains(u("much")));
    find<QAbstractButton>(panel, "tagNone")->click();
    QVERIFY(!data.tagValue(u("pump")).isValid());
    find<QAbstractButton>(panel, "tags.duplicate")->click();
    QCOMPARE(panel.currentRow(), 1);
    find<QLineEdit>(panel, "tagsFilter")->setText(u("pump2"));
    QCOMPARE(table->model()->rowCount(), 1);
    table->setFocus();
    QTest::keyClick(table, Qt::Key_Delete);
    QCOMPARE(data.tags().names(), QStringList{u("pump")});
    QVERIFY(!find<QAbstractButton>(panel, "tags.remove")->isEnabled());
}

void tst_DataPanels::handsStopTheGenerator()
{
    TestData data;
    data.loadDefaults();
    TagsPanel panel(data);
    showPanel(panel);
    panel.setCurrentRow(data.tags().find(u("speed")));
    find<QSlider>(panel, "tagSlider")->setValue(500);
    data.clock().advance(1000);
    QCOMPARE(data.tagValue(u("speed")), QVariant(750));
    QCOMPARE(find<QComboBox>(panel, "generator.kind")->currentIndex(), int(GeneratorKind::None));
    choose(panel, "generator.kind", int(GeneratorKind::Ramp)); // with its limits as they were
    data.clock().advance(500);
    QCOMPARE(data.tagValue(u("speed")), QVariant(150));
    QCOMPARE(find<QSlider>(panel, "tagSlider")->value(), 100);
    panel.setCurrentRow(data.tags().find(u("running")));
    const bool before = data.tagValue(u("running")).toBool();
    find<QCheckBox>(panel, "tagSwitch")->click();
    QCOMPARE(data.tagValue(u("running")), QVariant(!before));
}

void tst_DataPanels::generatorsAreEdited()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u("v.csv")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("1\nx\n") > 0);
    file.close();
    TestData data;
    data.loadDefaults();
    TagsPanel panel(data);
    showPanel(panel);
    panel.setCurrentRow(data.tags().find(u("level")));
    find<QSpinBox>(panel, "generator.period")->setValue(4000);
    find<QDoubleSpinBox>(panel, "generator.maximum")->setValue(10);
    QVERIFY(find<QWidget>(panel, "generator.seed")->isHidden());
    choose(panel, "generator.quality", int(Quality::Uncertain));
    const GeneratorSettings &settings = data.tags().tag(panel.currentRow()).generator;
    QCOMPARE(settings.period, 4000);
    QCOMPARE(settings.maximum, 10.0);
    QCOMPARE(data.tags().quality(panel.currentRow()), Quality::Uncertain);
    const QVariant present = data.tagValue(u("level"));
    choose(panel, "generator.kind", int(GeneratorKind::Constant));
    QCOMPARE(data.tagValue(u("level")), present);
    choose(panel, "generator.kind", int(GeneratorKind::CsvPlayback));
    QCOMPARE(find<QLabel>(panel, "tagProblem")->text(), u("Choose a CSV file"));
    type(find<QLineEdit>(panel, "generator.filePath"), qPrintable(file.fileName()));
    auto *problem = find<QLabel>(panel, "tagProblem");
    QVERIFY(problem->isVisible());
    QCOMPARE(problem->text(), u("v.csv, line 2, column 1: “x” is not a number"));
    panel.setCurrentRow(data.tags().find(u("mode")));
    find<QPlainTextEdit>(panel, "generator.texts")->setPlainText(u("one\ntwo"));
    QCOMPARE(data.tagValue(u("mode")), QVariant(u("one")));
    QVERIFY(problem->isHidden());
}

void tst_DataPanels::whatIsTypedStaysWhileTagsMove()
{
    TestData data;
    data.loadDefaults();
    TagsPanel panel(data);
    showPanel(panel);
    for (const char *name : {"tagValue", "qt_spinbox_lineedit"}) {
        auto *line = find<QLineEdit>(panel, name);
        line->setFocus();
        line->selectAll();
        QTest::keyClicks(line, u("3"));
        data.clock().advance(500);
        QTest::keyClicks(line, u("7"));
        data.clock().advance(500);
        QCOMPARE(line->text(), u("37"));
    }
}

void tst_DataPanels::everyTypeHasItsEditor()
{
    TestData data;
    TagsPanel panel(data);
    showPanel(panel);
    for (const TagType type : tagTypes()) {
        panel.setCurrentRow(data.tags().add({u("t"), type, {}, {}, {}}));
        const bool isBool = type == TagType::Bool;
        const bool isSlid = !isBool && type < TagType::String;
        QCOMPARE(find<QSlider>(panel, "tagSlider")->isVisible(), isSlid);
        QCOMPARE(find<QCheckBox>(panel, "tagSwitch")->isVisible(), isBool);
        ::type(find<QLineEdit>(panel, "tagValue"), "1");
        QVERIFY(data.tags().value(panel.currentRow()).isValid());
    }
}

void tst_DataPanels::anAlarmGoesThroughItsLife()
{
    TestData data;
    AlarmsPanel panel(data);
    showPanel(panel);
    data.loadDefaults();
    QCOMPARE(panel.currentRow(), 0);
    panel.setCurrentRow(1);
    const struct
    {
        const char *button;
        AlarmInfo::State state;
    } steps[] = {{"alarms.alarm", AlarmInfo::StateTriggeredNotAcknowledged},
                 {"alarms.clear", AlarmInfo::StateNotTriggeredNotAcknowledged},
                 {"alarms.acknowledge", AlarmInfo::StateNotTriggeredAcknowledged},
                 {"alarms.reset", AlarmInfo::StateNotTriggered}};
    for (const auto &step : steps) {
        auto *button = find<QAbstractButton>(panel, step.button);
        QVERIFY(button->isEnabled());
        button->click();
        QCOMPARE(data.alarms().alarm(1).info.state, step.state);
        QVERIFY(!button->isEnabled());
    }
}

void tst_DataPanels::alarmsAreEdited()
{
    TestData data;
    data.loadDefaults();
    AlarmsPanel panel(data);
    showPanel(panel);
    panel.setCurrentRow(1);
    type(find<QLineEdit>(panel, "alarm.description"), "Somebody is inside");
    type(find<QLineEdit>(panel, "alarm.groups"), "a, b");
    choose(panel, "alarm.severity", AlarmInfo::SeverityLow);
    choose(panel, "alarm.tag", 1 + data.tags().find(u("setpoint")));
    find<QDoubleSpinBox>(panel, "alarm.limit")->setValue(60);
    choose(panel, "alarm.limitKind", AlarmLimit::High);
    find<QCheckBox>(panel, "alarm.acknowledge")->click();
    find<QAbstractButton>(panel, "alarm.noColors")->click();
    const AlarmInfoData info = data.alarms().alarm(1).info;
    QCOMPARE(info.description, u("Somebody is inside"));
    QCOMPARE(info.groups, (QStringList{u("a"), u("b")}));
    QCOMPARE(info.severity, AlarmInfo::SeverityLow);
    QVERIFY(!info.acknowledgeEnabled);
    QVERIFY(!info.backgroundColors.contains(AlarmInfo::StateTriggeredNotAcknowledged));
    QCOMPARE(info.state, AlarmInfo::StateNotTriggered);
    data.writeTag(u("setpoint"), 61);
    QCOMPARE(data.alarms().alarm(1).info.state, AlarmInfo::StateTriggered);
}

void tst_DataPanels::trendsAreAdded()
{
    TestData data;
    TrendsPanel panel(data);
    showPanel(panel);
    auto *add = find<QAbstractButton>(panel, "trends.add");
    add->click();
    QCOMPARE(data.trends().rowCount(), 0); // there is no tag
    data.loadDefaults();
    add->click();
    QCOMPARE(data.trends().trend(2).tagName, u("speed")); // the first one without a trend
    QCOMPARE(panel.currentRow(), 2);
    TagsPanel tags(data);
    find<QAbstractButton>(tags, "tags.trend")->click();
    QCOMPARE(data.trends().names().last(), u("level2"));
    const int bad = data.trends().add({u("bad"), {}, u("none.csv"), 100, 100});
    panel.setCurrentRow(bad);
    QCOMPARE(find<QWidget>(panel, "trendPlot")->accessibleDescription(),
             u("none.csv: There is no such file"));
    panel.setCurrentRow(2);
    data.clock().advance(2000);
    QVERIFY(find<QWidget>(panel, "trendPlot")->accessibleDescription().isEmpty());
    QVERIFY(data.trends().index(2, TrendStore::SamplesColumn).data().toInt() > 2);
    find<QAbstractButton>(panel, "trends.clear")->click();
    QCOMPARE(data.trends().index(2, TrendStore::SamplesColumn).data(), QVariant(0));
}

void tst_DataPanels::scenariosAreRunAndUndone()
{
    TestData data;
    data.loadDefaults();
    ScenarioPanel panel(data);
    showPanel(panel);
    auto *list = find<QListWidget>(panel, "scenarioList");
    auto *restore = find<QAbstractButton>(panel, "scenarioRestore");
    QVERIFY(!restore->isEnabled());
    const auto *description = find<QLabel>(panel, "scenarioDescription");
    const QString before = description->text();
    choose(panel, "scenarioTags", 1);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Return); // no value
    QVERIFY(description->text() != before);
    QVERIFY(list->item(0)->font().bold() && !list->item(1)->font().bold());
    QVERIFY(!data.tagValue(u("level")).isValid());
    QVERIFY(data.tagValue(u("speed")).isValid());
    restore->click();
    QVERIFY(data.tagValue(u("level")).isValid());
    QVERIFY(!restore->isEnabled() && !list->item(0)->font().bold());
    QCOMPARE(description->text(), before);
}

void tst_DataPanels::theClockBar()
{
    SimulationClock clock;
    ClockBar bar(clock);
    auto *play = find<QAbstractButton>(bar, "clock.play");
    play->click();
    QVERIFY(clock.isRunning());
    QCOMPARE(play->accessibleName(), u("Stop time"));
    play->click();
    const qint64 before = clock.elapsed();
    find<QAbstractButton>(bar, "clock.step")->click();
    QCOMPARE(clock.elapsed(), before + SimulationClock::tick);
    choose(bar, "clock.speed", 0);
    QCOMPARE(clock.speed(), SimulationClock::slowest);
    clock.setSpeed(25);
    QCOMPARE(find<QComboBox>(bar, "clock.speed")->currentText(), u("25×"));
}

void tst_DataPanels::whatIsRemovedIsTakenBack()
{
    TestData data;
    data.loadDefaults();
    TagsPanel tags(data);
    AlarmsPanel alarms(data);
    TrendsPanel trends(data);
    for (DataPanel *panel : std::initializer_list<DataPanel *>{&tags, &alarms, &trends}) {
        const QString name = panel->objectName();
        showPanel(*panel);
        panel->setCurrentRow(0);
        auto *table = find<QTableView>(*panel, qPrintable(name + u("Table")));
        auto *takeBack = find<QAbstractButton>(*panel, qPrintable(name + u("TakeBack")));
        const QVariant first = table->model()->index(0, 0).data();
        const int count = table->model()->rowCount();
        table->setFocus();
        QTest::keyClick(table, Qt::Key_Delete);
        QVERIFY(takeBack->isVisible());
        takeBack->click();
        QVERIFY(!takeBack->isVisible());
        QCOMPARE(table->model()->rowCount(), count);
        QCOMPARE(table->currentIndex().data(), first);
        find<QAbstractButton>(*panel, qPrintable(name + u(".remove")))->click();
        data.loadDefaults(); // in other data the row has no place
        QVERIFY(!takeBack->isVisible());
        QCOMPARE(table->model()->rowCount(), count);
    }
}

//! True if the widget made use of it.
static bool wheelOver(QWidget &widget)
{
    const QPointF middle = widget.rect().center();
    QWheelEvent wheel(middle, widget.mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, 120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &wheel);
    return wheel.isAccepted();
}

void tst_DataPanels::theWheelScrolls()
{
    TestData data;
    data.loadDefaults();
    TagsPanel tags(data);
    AlarmsPanel alarms(data);
    QSignalSpy changes(&data, &TestData::modified);
    for (DataPanel *panel : std::initializer_list<DataPanel *>{&alarms, &tags}) {
        showPanel(*panel);
        find<QTableView>(*panel, qPrintable(panel->objectName() + u("Table")))->setFocus();
        for (QWidget *box : panel->findChildren<QWidget *>()) {
            if (!qobject_cast<QComboBox *>(box) && !qobject_cast<QAbstractSpinBox *>(box))
                continue;
            QVERIFY2(!wheelOver(*box), qPrintable(box->objectName()));
            QVERIFY(box->focusPolicy() != Qt::WheelFocus);
        }
    }
    QVERIFY(!wheelOver(*find<QSlider>(tags, "tagSlider")));
    QVERIFY(changes.isEmpty());
    auto *period = find<QSpinBox>(tags, "generator.period");
    period->setFocus();
    QVERIFY(wheelOver(*period));
    QCOMPARE(changes.count(), 1);
}

void tst_DataPanels::controlsHaveNamesAndFit()
{
    TestData data;
    data.loadDefaults();
    TagsPanel tags(data);
    AlarmsPanel alarms(data);
    TrendsPanel trends(data);
    ScenarioPanel scenarios(data);
    ClockBar clock(data.clock());
    const QVector<QKeySequence> menuKeys{Qt::ALT + Qt::Key_F, Qt::ALT + Qt::Key_E,
                                         Qt::ALT + Qt::Key_A, Qt::ALT + Qt::Key_V,
                                         Qt::ALT + Qt::Key_R};
    const auto fits = [](QWidget &panel) {
        for (const auto *area : panel.findChildren<QScrollArea *>()) {
            if (area->widget()->width() > area->viewport()->width())
                return false;
        }
        return panel.minimumSizeHint().width() <= 260;
    };
    for (QWidget *panel : std::initializer_list<QWidget *>{&tags, &alarms, &trends, &scenarios}) {
        showPanel(*panel, {260, 620});
        QVERIFY2(fits(*panel), qPrintable(panel->objectName()));
    }
    showPanel(alarms, {935, 320});
    QCoreApplication::processEvents();
    const auto *table = find<QTableView>(alarms, "alarmsTable");
    QVERIFY(!table->horizontalScrollBar()->isVisible());
    QVERIFY(table->columnWidth(AlarmTable::StateColumn) >
            table->fontMetrics().horizontalAdvance(u("triggered, not acknowledged")));
    for (const GeneratorInfo &info : generators()) {
        choose(tags, "generator.kind", int(info.kind));
        QCoreApplication::processEvents();
        QVERIFY2(fits(tags), info.name);
    }
    for (QWidget *panel :
         std::initializer_list<QWidget *>{&tags, &alarms, &trends, &scenarios, &clock}) {
        for (QWidget *control : panel->findChildren<QWidget *>()) {
            const bool isControl = control->focusPolicy() & Qt::TabFocus;
            const auto *button = qobject_cast<QAbstractButton *>(control);
            const auto *label = qobject_cast<QLabel *>(control);
            const bool hasMnemonic = button || (label && label->buddy());
            const QString text = button ? button->text() : label ? label->text() : QString();
            QVERIFY2(!hasMnemonic || !menuKeys.contains(QKeySequence::mnemonic(text)),
                     qPrintable(text));
            const bool isInside = // a part of a control or of its popup
                control->window() != panel->window() || control->objectName().startsWith(u("qt_"));
            if (isControl && !isInside && !(button && !button->text().isEmpty()))
                QVERIFY2(!control->accessibleName().isEmpty(), control->metaObject()->className());
        }
    }
}

QTEST_MAIN(tst_DataPanels)
#include "tst_datapanels.moc"
