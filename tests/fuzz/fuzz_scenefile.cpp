// A page's file: the scene with its test data. The same bytes are also read as a series of values.

#include "fuzztarget.h"

#include "data/csvseries.h"
#include "data/testdata.h"
#include "scene/scenefile.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QRegularExpression>

using namespace NARV::DEV;

//! Line, column, the place in the file and what is wrong there.
static void checkProblem(const QByteArray &bytes, const QString &problem)
{
    static const QRegularExpression form(QStringLiteral("^(\\d+):(\\d+): [^\\0]+$"),
                                         QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = form.match(problem);
    FUZZ_REQUIRE(match.hasMatch());
    FUZZ_REQUIRE(match.captured(1).toInt() <= bytes.count('\n') + 1);
    FUZZ_REQUIRE(match.captured(2).toInt() <= bytes.size() + 1);
}

//! What is read is written so that it reads the same again.
static void checkRoundTrip(const Scene &scene)
{
    const QByteArray text = SceneFile::toText(scene);
    Scene again;
    QString problem;
    FUZZ_REQUIRE(SceneFile::fromText(text, again, problem));
    FUZZ_REQUIRE(SceneFile::toText(again) == text);
}

static void checkTestData(const QByteArray &bytes, const QJsonObject &json)
{
    TestData data;
    const QJsonObject before = data.toJson();
    QString problem;
    if (!data.fromJson(json, problem)) {
        checkProblem(bytes, SceneFile::withPosition(bytes, QStringLiteral("data.") + problem));
        FUZZ_REQUIRE(data.toJson() == before);
        return;
    }
    const QJsonObject written = data.toJson();
    TestData again;
    FUZZ_REQUIRE(again.fromJson(written, problem));
    FUZZ_REQUIRE(again.toJson() == written);
}

static void checkScene(const QByteArray &bytes)
{
    Scene scene;
    scene.pluginId = QStringLiteral("untouched");
    QString problem;
    if (SceneFile::fromText(bytes, scene, problem)) {
        FUZZ_REQUIRE(problem.isEmpty());
        checkRoundTrip(scene);
        checkTestData(bytes, scene.testData);
    } else {
        checkProblem(bytes, problem);
        FUZZ_REQUIRE(scene.pluginId == QLatin1String("untouched") && scene.widgets.isEmpty());
    }
}

//! Values in the order of time, or what is wrong and where.
static void checkSeries(const QByteArray &bytes, CsvValues values)
{
    const CsvSeries series = parseCsvSeries(bytes, QStringLiteral("series.csv"), values);
    FUZZ_REQUIRE(series.points.isEmpty() != series.problems.isEmpty());
    FUZZ_REQUIRE(series.problems.size() <= 20);
    for (const QString &problem : series.problems)
        FUZZ_REQUIRE(problem.startsWith(QLatin1String("series.csv")));
    for (int i = 1; i < series.points.size(); ++i)
        FUZZ_REQUIRE(series.points[i - 1].time < series.points[i].time);
}

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_scenefile";
    static char *argv[] = {name, nullptr};
    static const QCoreApplication app(argc, argv); // timers
    const QByteArray bytes = fuzzBytes(data, size);
    checkScene(bytes);
    checkSeries(bytes, CsvValues::Numbers);
    checkSeries(bytes, CsvValues::Texts);
    return 0;
}
