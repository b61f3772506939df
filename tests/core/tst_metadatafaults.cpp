#include "guardedtest.h"

#include <NARV/INTERNAL/MetaDataChecker>
#include <NARV/INTERNAL/WidgetLibraryPluginUtils>

#include <QJsonDocument>
#include <QSet>

using namespace NARV::INTERNAL;

namespace {

struct FaultRow
{
    int code;
    const char *path; //!< below the object that the table is about
    const char *json;
    const char *log = nullptr; //!< the reader's own record, if it writes one
};

#define ID R"("id":"0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11",)"
#define COMMON ID R"("name":"N","author":"A","version":"1.0.0")"
#define TAIL R"("name":"N","author":"A","version":"1.0.0"})"

// The whole metadata object.
const FaultRow libraryRows[] = {
    {2, "MetaData", R"({})"},
    {3, "MetaData", R"({"MetaData":[]})"},
    {6, "MetaData.id", R"({"MetaData":{}})"},
    {7, "MetaData.id", R"({"MetaData":{"id":1}})"},
    {7, "MetaData.id", R"({"MetaData":{"id":"x"}})",
     R"(id "x" is invalid. Must be a valid UUIDv4)"},
    {7, "MetaData.id", R"({"MetaData":{"id":"{0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11}"}})",
     R"(id "{0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11}" is invalid. Must be a valid UUIDv4)"},
    {7, "MetaData.id", R"({"MetaData":{"id":"00000000-0000-0000-0000-000000000000"}})",
     R"(id "00000000-0000-0000-0000-000000000000" is invalid. Must be a valid UUIDv4)"},
    {7, "MetaData.id", R"({"MetaData":{"id":"0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11/../.."}})",
     R"(id "0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11/../.." is invalid. Must be a valid UUIDv4)"},
    {16, "MetaData.translation", "{\"MetaData\":{" ID R"("translation":"it-IT"}})"},
    {16, "MetaData.translation[1]", "{\"MetaData\":{" ID R"("translation":["it-IT",1]}})"},
    {16, "MetaData.translation[0]", "{\"MetaData\":{" ID R"("translation":[" it "]}})",
     R"(translation contains the invalid language code "it")"},
    {16, "MetaData.translation[0]", "{\"MetaData\":{" ID R"("translation":["it-it"]}})",
     R"(translation contains the invalid language code "it-it")"},
    {15, "MetaData.defaultLanguage", "{\"MetaData\":{" ID R"("defaultLanguage":1}})"},
    {15, "MetaData.defaultLanguage", "{\"MetaData\":{" ID R"("defaultLanguage":"EN-US"}})",
     R"(defaultLanguage "EN-US" is an invalid language code)"},
    {4, "MetaData.name", "{\"MetaData\":{" ID R"("version":"1.0.0"}})"},
    {5, "MetaData.name", "{\"MetaData\":{" ID R"("name":1}})"},
    {5, "MetaData.name", "{\"MetaData\":{" ID R"("name":["N"]}})"},
    {5, "MetaData.name", "{\"MetaData\":{" ID R"("name":["N",1]}})"},
    {8, "MetaData.author", "{\"MetaData\":{" ID R"("name":"N"}})"},
    {9, "MetaData.author", "{\"MetaData\":{" ID R"("name":"N","author":[]}})"},
    {10, "MetaData.version", "{\"MetaData\":{" ID R"("name":"N","author":"A"}})"},
    {11, "MetaData.version", "{\"MetaData\":{" ID R"("name":"N","author":"A","version":1}})"},
    {11, "MetaData.version", "{\"MetaData\":{" ID R"("name":"N","author":"A","version":"1.0"}})",
     R"(version "1.0" is invalid)"},
    {12, "MetaData.copyright", "{\"MetaData\":{" ID R"("copyright":1,)" TAIL "}"},
    {13, "MetaData.description", "{\"MetaData\":{" ID R"("description":{},)" TAIL "}"},
    {14, "MetaData.license", "{\"MetaData\":{" ID R"("license":["a","b","c"],)" TAIL "}"},
    {17, "MetaData.translation[0]", "{\"MetaData\":{" ID R"("translation":["xx-XX"],)" TAIL "}",
     R"(Error reading the translation file ":/0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11/resources/)"
     R"(translation/xx-XX.csv")"},
    {10000, "MetaData.widgets", "{\"MetaData\":{" ID R"("widgets":{},)" TAIL "}",
     "The 'widgets' item must be an array"},
};

// One widget.
const FaultRow widgetRows[] = {
    {10000, "", "1"},
    {10001, ".id", R"({"version":"1.0.0"})"},
    {10002, ".id", R"({"id":1})"},
    {10002, ".id", R"({"id":""})"},
    {10002, ".id", R"({"id":"a-b"})"},
    {10002, ".id", R"({"id":"a\n"})"},
    {10005, ".version", R"({"id":"w"})"},
    {10006, ".version", R"({"id":"w","version":1})"},
    {10006, ".version", R"({"id":"w","version":"1"})"},
    {10003, ".display", R"({"id":"w","version":"1.0.0","display":"  "})"},
    {10004, ".description", R"({"id":"w","version":"1.0.0","description":1})"},
    {10007, ".defaultSize", R"({"id":"w","version":"1.0.0","defaultSize":"100,50"})"},
    {10007, ".defaultSize", R"({"id":"w","version":"1.0.0","defaultSize":"100X50"})"},
    {10007, ".defaultSize", R"({"id":"w","version":"1.0.0","defaultSize":"100x"})"},
    {10007, ".defaultSize", R"({"id":"w","version":"1.0.0","defaultSize":"-1x5"})"},
    {10007, ".defaultSize", R"({"id":"w","version":"1.0.0","defaultSize":"1x2x3"})"},
    {10007, ".defaultSize", R"({"id":"w","version":"1.0.0","defaultSize":"nanxinf"})"},
    {10007, ".defaultSize", R"({"id":"w","version":"1.0.0","defaultSize":100})"},
    {10008, ".galleryGroupName", R"({"id":"w","version":"1.0.0","galleryGroupName":""})"},
    {10009, ".showInPageGallery", R"({"id":"w","version":"1.0.0","showInPageGallery":1})"},
    {10010, ".showInProjectGallery", R"({"id":"w","version":"1.0.0","showInProjectGallery":""})"},
    {10011, ".receiveAlarmsEvents", R"({"id":"w","version":"1.0.0","receiveAlarmsEvents":null})"},
    {10012, ".fields", R"({"id":"w","version":"1.0.0","fields":{}})"},
    {10012, ".fields[0]", R"({"id":"w","version":"1.0.0","fields":[1]})"},
    {10012, ".fields[1].id", R"({"id":"w","version":"1.0.0","fields":[
        {"id":"f","type":"bool","display":""},{"id":"f","type":"bool","display":""}]})"},
    {10038, ".fields[0].requirements", R"({"id":"w","version":"1.0.0","fields":[
        {"id":"f","type":"bool","display":"","requirements":"f && g"}]})"},
    {10038, ".fields[1].requirements", R"({"id":"w","version":"1.0.0","fields":[
        {"id":"f","type":"string","display":""},
        {"id":"g","type":"bool","display":"","requirements":"f"}]})"},
};

#define FIELD(type) R"({"id":"f","type":")" type R"(","display":"F",)"
#define OPTIONS R"("options":[{"index":1,"option":"a"}])"
#define LABELS(count) LABELS_##count
#define LABELS_1 R"("displayFontFamily":"",)"
#define LABELS_2 LABELS_1 R"("displayFontSize":"",)"
#define LABELS_3 LABELS_2 R"("displayFontBold":"",)"
#define LABELS_4 LABELS_3 R"("displayFontStyle":"",)"

// One field.
const FaultRow fieldRows[] = {
    {10013, ".id", R"({"type":"bool"})"},
    {10014, ".id", R"({"id":"ä"})"},
    {10028, ".type", R"({"id":"f"})"},
    {10029, ".type", R"({"id":"f","type":"undefined"})"},
    {10029, ".type", R"({"id":"f","type":4})"},
    {10015, ".display", R"({"id":"f","type":"bool"})"},
    {10016, ".display", R"({"id":"f","type":"bool","display":true})"},
    {10027, ".description", FIELD("bool") R"("description":[]})"},
    {10030, ".tagCanBeAttached", FIELD("bool") R"("tagCanBeAttached":"true"})"},
    {10030, ".tagCanBeAttached", FIELD("trend") R"("tagCanBeAttached":false})",
     "An error occurred reading field 'f': you can not specify tagCanBeAttached for trend field"},
    {10030, ".tagCanBeAttached", FIELD("tag") R"("tagCanBeAttached":false})",
     "An error occurred reading field 'f': you can not specify tagCanBeAttached as 'false' for tag "
     "field"},
    {10040, ".multiLanguage", FIELD("string") R"("multiLanguage":1,"defaultValue":1})"},
    {10031, ".defaultValue", FIELD("string") R"("defaultValue":1})"},
    {10031, ".defaultValue", FIELD("string") R"("defaultValue":["a","b"]})"},
    {10031, ".defaultValue", FIELD("string") R"("multiLanguage":true,"defaultValue":["a"]})"},
    {10031, ".defaultValue", FIELD("stringList") R"("defaultValue":"a"})"},
    {10031, ".defaultValue[1]", FIELD("stringList") R"("defaultValue":["a",["b","c"]]})"},
    {10031, ".defaultValue[0]", FIELD("stringMap") R"("defaultValue":[{"id":"1","value":""}]})"},
    {10031, ".defaultValue[0]", FIELD("stringMap") R"("defaultValue":[{"id":1}]})"},
    {10031, ".defaultValue", FIELD("integer") R"("defaultValue":"1"})"},
    {10031, ".defaultValue", FIELD("double") R"("defaultValue":true})"},
    {10031, ".defaultValue", FIELD("bool") R"("defaultValue":0})"},
    {10031, ".defaultValue", FIELD("color") R"("defaultValue":0})"},
    {10031, ".defaultValue", FIELD("font") R"("defaultValue":"Roboto"})"},
    {10031, ".defaultValue", FIELD("font") R"("defaultValue":{"family":"Arial"}})"},
    {10031, ".defaultValue", FIELD("font") R"("defaultValue":{"style":"normal"}})"},
    {10031, ".defaultValue", FIELD("font") R"("defaultValue":{"size":0}})"},
    {10031, ".defaultValue", FIELD("font") R"("defaultValue":{"bold":1}})"},
    {10031, ".defaultValue", FIELD("font") R"("defaultValue":{"underline":"no"}})"},
    {10031, ".defaultValue", FIELD("image") R"("defaultValue":"a"})"},
    {10031, ".defaultValue", FIELD("tag") R"("defaultValue":"a"})",
     "An error occurred reading field 'f': you can not specify defaultValue for tag field"},
    {10031, ".defaultValue", FIELD("trend") R"("defaultValue":null})",
     "An error occurred reading field 'f': you can not specify defaultValue for trend field"},
    {10031, ".defaultValue", FIELD("option") R"("defaultValue":"a",)" OPTIONS "}"},
    {10031, ".defaultValue", FIELD("option") R"("defaultValue":2,)" OPTIONS "}"},
    {10031, ".defaultValue", FIELD("option") OPTIONS "}"}, // the default is 0
    {10032, ".readOnly", FIELD("bool") R"("readOnly":0})"},
    {10033, ".group", FIELD("bool") R"("group":0})"},
    {10037, ".private", FIELD("bool") R"("private":0})"},
    {10038, ".requirements", FIELD("bool") R"("requirements":true})"},
    {10038, ".requirements", FIELD("bool") R"("requirements":""})"},
    {10038, ".requirements", FIELD("bool") R"("requirements":"f >= 1"})"},
    {10039, ".defaultFont", FIELD("string") R"("multiLanguage":true,"defaultFont":"Roboto"})"},
    {10039, ".defaultFont",
     FIELD("stringMap") R"("multiLanguage":true,"defaultFont":{"size":-1}})"},
    {10034, ".minimum", FIELD("integer") R"("minimum":"1"})"},
    {10035, ".maximum", FIELD("double") R"("maximum":"1"})"},
    {10034, ".minimum", FIELD("integer") R"("minimum":6,"maximum":5})"},
    {10034, ".minimum", FIELD("double") R"("minimum":0.2,"maximum":0.1})"},
    {10036, ".options", FIELD("option") R"("defaultValue":1})"},
    {10036, ".options", FIELD("option") R"("options":[]})"},
    {10036, ".options[0]", FIELD("option") R"("options":["a"]})"},
    {10036, ".options[0]", FIELD("option") R"("options":[{"index":"1","option":"a"}]})"},
    {10036, ".options[0]", FIELD("option") R"("options":[{"index":1,"option":2}]})"},
    {10041, ".tagAcceptedTypes", FIELD("tag") R"("tagAcceptedTypes":"int"})"},
    {10041, ".tagAcceptedTypes[1]", FIELD("tag") R"("tagAcceptedTypes":["int","Int"]})"},
    {10041, ".tagAcceptedTypes[0]", FIELD("tag") R"("tagAcceptedTypes":[1]})"},
    {10042, ".tagOnDemand", FIELD("tag") R"("tagOnDemand":0})"},
    {10017, ".displayFontFamily", FIELD("font") R"("group":""})"},
    {10018, ".displayFontFamily", FIELD("font") R"("displayFontFamily":0})"},
    {10019, ".displayFontSize", FIELD("font") LABELS(1) R"("group":""})"},
    {10020, ".displayFontSize", FIELD("font") LABELS(1) R"("displayFontSize":0})"},
    {10021, ".displayFontBold", FIELD("font") LABELS(2) R"("group":""})"},
    {10022, ".displayFontBold", FIELD("font") LABELS(2) R"("displayFontBold":0})"},
    {10023, ".displayFontStyle", FIELD("font") LABELS(3) R"("group":""})"},
    {10024, ".displayFontStyle", FIELD("font") LABELS(3) R"("displayFontStyle":0})"},
    {10025, ".displayFontUnderline", FIELD("font") LABELS(4) R"("group":""})"},
    {10026, ".displayFontUnderline", FIELD("font") LABELS(4) R"("displayFontUnderline":0})"},
    {10017, ".displayFontFamily", FIELD("stringList") R"("multiLanguage":true})"},
};

QJsonObject parsed(const QByteArray &json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error)
        qFatal("%s in %s", qPrintable(error.errorString()), json.constData());
    return document.object();
}

QByteArray libraryOf(const QByteArray &widget)
{
    return "{\"MetaData\":{" COMMON ",\"widgets\":[{\"id\":\"ok\",\"version\":\"1.0.0\"}," +
           widget + "]}}";
}

QByteArray widgetOf(const QByteArray &field)
{
    return R"({"id":"w","version":"1.0.0","fields":[{"id":"ok","type":"bool","display":""},)" +
           field + "]}";
}

} // namespace

//! Every fault that metadata can have: its code, its place, and what is logged of it.
class tst_MetaDataFaults : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void faults_data();
    void faults();
    void everyCodeHasARow();
    void errorTexts();
    void allProblems();
    void hostileInput();
};

void tst_MetaDataFaults::initTestCase()
{
    Q_INIT_RESOURCE(translations);
}

void tst_MetaDataFaults::faults_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QStringList>("log");
    const auto add = [](const FaultRow &row, const QString &path, const QByteArray &json,
                        bool isInWidget) {
        QStringList log;
        if (row.log)
            log += QString::fromLatin1(row.log);
        if (isInWidget)
            log += u("An error occurred reading the widget at index 1");
        QTest::addRow("%d %s", row.code, row.json)
            << row.code << path + QLatin1String(row.path) << json << log;
    };
    const QString widget = u("MetaData.widgets[1]");
    for (const FaultRow &row : libraryRows)
        add(row, {}, row.json, false);
    for (const FaultRow &row : widgetRows)
        add(row, widget, libraryOf(row.json), true);
    for (const FaultRow &row : fieldRows)
        add(row, widget + QLatin1String(".fields[1]"), libraryOf(widgetOf(row.json)), true);
}

void tst_MetaDataFaults::faults()
{
    QFETCH(int, code);
    QFETCH(QString, path);
    QFETCH(QByteArray, json);
    QFETCH(QStringList, log);
    const QJsonObject metaData = parsed(json);

    WidgetLibraryPluginMetaInformation info;
    QCOMPARE(WidgetLibraryPluginUtils::metaInformationFromMetaData(metaData, info), code);
    QVERIFY(info.widgets().isEmpty());
    QStringList logged;
    for (const LogEntry &entry : takeLog()) {
        QCOMPARE(entry.type, int(QtCriticalMsg));
        QCOMPARE(entry.category, u("METADATA"));
        const bool isAboutId = entry.message.startsWith(QLatin1String("id "));
        QCOMPARE(entry.source.isEmpty(), isAboutId); // the id is known from then on
        logged += entry.message;
    }
    QCOMPARE(logged, log);

    const QVector<MetaDataProblem> first = MetaDataChecker::firstProblem(metaData);
    QCOMPARE(first.size(), 1);
    QCOMPARE(first[0].code, code);
    QCOMPARE(first[0].path, path);
    const QVector<MetaDataProblem> all = MetaDataChecker::allProblems(metaData);
    QVERIFY(!all.isEmpty());
    QCOMPARE(all[0].code, code);
    QCOMPARE(all[0].path, path);
}

void tst_MetaDataFaults::everyCodeHasARow()
{
    QSet<int> codes{0, 1}; // no fault, and one that only callers use
    for (const FaultRow &row : libraryRows)
        codes.insert(row.code);
    for (const FaultRow &row : widgetRows)
        codes.insert(row.code);
    for (const FaultRow &row : fieldRows)
        codes.insert(row.code);
    const QByteArray undefined("error code undefined");
    for (int code = -1; code < 20000; ++code)
        QCOMPARE(WidgetLibraryPluginUtils::errorToString(code) != undefined, codes.contains(code));
}

void tst_MetaDataFaults::errorTexts()
{
    const std::pair<int, const char *> rows[] = {
        {0, "no error"},
        {1, "Generig error"},
        {17, "Errore reading translation files"},
        {10000, "MetaData/widgets attribute is not valid"},
        {10042, "MetaData/widgets/fields/tagOnDemand} is not valid"},
    };
    for (const auto &[code, text] : rows)
        QCOMPARE(WidgetLibraryPluginUtils::errorToString(code), text);
}

void tst_MetaDataFaults::allProblems()
{
    const QJsonObject metaData = parsed(R"({"MetaData":{"id":1,"author":2,"version":"1.0.0",
        "widgets":[{"version":"1","fields":[
            {"id":"f","type":"text","display":"","requirements":"g > 1 && f && h"},
            {"id":"g","type":"stringList","display":"","defaultValue":[1,"",2],"private":1},
            {"type":"option","display":"","defaultValue":"1","options":[{"index":1,"option":""}]},
            {"type":"bool","display":""},
            {"id":"s","type":"string","display":"","multiLanguage":"yes","defaultValue":["a","b"]}]},
        2]}})");
    QStringList paths;
    for (const MetaDataProblem &problem : MetaDataChecker::allProblems(metaData))
        paths += problem.path.mid(int(qstrlen("MetaData.")));
    const QStringList expected{
        u("id"),
        u("name"),
        u("author"),
        u("widgets[0].id"),
        u("widgets[0].version"),
        u("widgets[0].fields[0].type"),
        u("widgets[0].fields[1].defaultValue[0]"),
        u("widgets[0].fields[1].defaultValue[2]"),
        u("widgets[0].fields[1].private"),
        u("widgets[0].fields[2].id"),
        u("widgets[0].fields[2].defaultValue"),  // once
        u("widgets[0].fields[3].id"),            // two without id are not the same
        u("widgets[0].fields[4].multiLanguage"), // and nothing of its default value
        u("widgets[0].fields[0].requirements"),  // names g, a list of texts
        u("widgets[0].fields[0].requirements"),  // names h, which is not there
        u("widgets[1]"),
    };
    QCOMPARE(paths, expected);
}

// Sizes at which work that grows with the square takes minutes. Oddities are in the fuzz corpus.
void tst_MetaDataFaults::hostileInput()
{
    const QByteArray megabyte(1 << 20, 'x');
    QByteArray fields;
    for (int i = 0; i < 100000; ++i)
        fields += R"({"id":"f)" + QByteArray::number(i) +
                  R"(","type":"bool","display":"D","requirements":"f0"},)";
    const QByteArray last = R"({"id":"z","type":"bool","display":""})";
    const QByteArray widget = R"({"id":"w","version":"1.0.0","fields":[)";
    const std::pair<QByteArray, int> rows[] = {
        {R"({"id":")" + megabyte + R"(","version":"1.0.0"})", 0},
        {widgetOf(FIELD("bool") "\"requirements\":\"" + megabyte + "!\"}"), 10038},
        {widgetOf(FIELD("color") "\"defaultValue\":\"#" + megabyte + "\"}"), 0},
        {widget + fields + last + "]}", 0},
        {widget + fields + fields + last + "]}", 10012}, // each field twice
    };
    for (const auto &[json, code] : rows) {
        const QJsonObject metaData = parsed(libraryOf(json));
        WidgetLibraryPluginMetaInformation info;
        QCOMPARE(WidgetLibraryPluginUtils::metaInformationFromMetaData(metaData, info), code);
        QCOMPARE(MetaDataChecker::allProblems(metaData).isEmpty(), code == 0);
        takeLog();
    }
}

QTEST_GUILESS_MAIN(tst_MetaDataFaults)
#include "tst_metadatafaults.moc"
