#include "guardedtest.h"

#include "scene/authoredvalue.h"
#include "scene/scenefile.h"

#include <QColor>
#include <QFont>
#include <QJsonArray>
#include <QJsonObject>

using namespace NARV::DEV;

class tst_SceneFile : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void roundTrip();
    void faults_data();
    void faults();
    void tooMuch();
};

static Scene sampleScene()
{
    WidgetState gauge;
    gauge.name = u("gauge 2");
    gauge.widgetId = u("gauge");
    gauge.version = u("1.0.0");
    gauge.position = {-12.5, 40};
    gauge.size = {200, 180};
    gauge.rotation = -30;
    gauge.values = {
        {u("value"), 12.345678901},
        {u("color"), QColor(1, 2, 3, 4)},
        {u("list"), QStringList{u("a"), u("\"")}},
        {u("unknown"), QVariant(QJsonValue(QJsonArray{1, QJsonObject{{u("k"), true}}}))}};
    gauge.bindings = {{u("value"), u("boiler.level")}};
    Scene scene;
    scene.pluginId = u("0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11");
    scene.page = {{800, 480}, QColor(0x11, 0x22, 0x33, 0x44), true};
    scene.widgets = {gauge};
    scene.testData = {{u("tags"), QJsonArray()}};
    return scene;
}

// The text is the same again after reading: nothing is lost, unknown fields included.
void tst_SceneFile::roundTrip()
{
    const Scene scene = sampleScene();
    const QByteArray text = SceneFile::toText(scene);
    Scene read;
    QString problem;
    QVERIFY2(SceneFile::fromText(text, read, problem), qPrintable(problem));
    QCOMPARE(SceneFile::toText(read), text);
    QCOMPARE(read.widgets.first().position, QPointF(-12.5, 40));
    QCOMPARE(read.page, scene.page);
    QCOMPARE(read.widgets.first().bindings, scene.widgets.first().bindings);
}

static const struct
{
    const char *name;
    const char *replace; //!< in the text of the sample
    const char *by;
    const char *problem; //!< without line and column
} faultRows[] = {
    {"no JSON", "\"format\"", "format", ": unterminated object"},
    {"other format", "zpplugin-bench-page", "drawing", "format: is not \"zpplugin-bench-page\""},
    {"later version", "\"version\": 1,", "\"version\": 2,", "version: "},
    {"no widgets", "\"widgets\"", "\"Widgets\"", "widgets: "},
    {"page without area", "800,", "0,", "page.size: two numbers from 1 to"},
    {"no colour", "#44112233", "dark", "page.background: a colour such as"},
    {"nameless", "gauge 2", "", "widgets[0].name: is empty"},
    {"huge", "-12.5", "1e300", "widgets[0].position: two numbers from"},
    {"whirling", "\"rotation\": -30", "\"rotation\": 1e300", "widgets[0].rotation: a number from"},
    {"bound to a number", "\"boiler.level\"", "3", "widgets[0].bindings: \"value\" is no text"},
    {"misspelt", "\"rotation\"", "\"rotate\"", "widgets[0].rotate: "},
};

void tst_SceneFile::faults_data()
{
    addRows(faultRows);
}

void tst_SceneFile::faults()
{
    const auto &row = currentRow(faultRows);
    QByteArray text = SceneFile::toText(sampleScene());
    QVERIFY(text.contains(row.replace));
    const int line = text.left(text.indexOf(row.replace)).count('\n') + 1;
    text.replace(row.replace, row.by);
    Scene scene;
    scene.pluginId = u("untouched");
    QString problem;
    QVERIFY(!SceneFile::fromText(text, scene, problem));
    QVERIFY2(problem.contains(u(row.problem)), qPrintable(problem));
    QCOMPARE(scene.pluginId, u("untouched"));
    // The line is that of the fault or, for what is missing, of the object it is missing in.
    const int told = problem.section(QLatin1Char(':'), 0, 0).toInt();
    QVERIFY2(told >= 1 && told <= line, qPrintable(problem));
}

// What would keep the program busy for minutes is not begun.
void tst_SceneFile::tooMuch()
{
    Scene scene = sampleScene();
    for (int i = scene.widgets.size(); i <= 10000; ++i) {
        scene.widgets += scene.widgets.first();
        scene.widgets.last().name = QString::number(i);
    }
    const QByteArray text = SceneFile::toText(scene);
    Scene read;
    QString problem;
    QVERIFY(!SceneFile::fromText(text, read, problem));
    QVERIFY2(problem.endsWith(u(": widgets[10000]: a page holds at most 10000 widgets")),
             qPrintable(problem));
    QVERIFY(!SceneFile::fromText(text + QByteArray(SceneFile::mostBytes, ' '), read, problem));
    QVERIFY2(problem.endsWith(u(": more than 64 MiB are not read")), qPrintable(problem));
}

QTEST_MAIN(tst_SceneFile)

#include "tst_scenefile.moc"
