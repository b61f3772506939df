#include "guardedtest.h"

#include <NARV/INTERNAL/WidgetLibraryPluginUtils>

#include <QColor>
#include <QJsonDocument>

using namespace NARV::INTERNAL;
using Library = WidgetLibraryPluginMetaInformation;
using Utils = WidgetLibraryPluginUtils;
using Text = Library::TranslationStringType;
using FieldType = Library::FieldType;
using TagType = Library::TagType;

static const QString english = u("en-US");

static const struct
{
    const char *name; // of the field, some members
    QVariant value;
} defaultRows[] = {
    {R"("type":"string")", QString()},
    {R"("type":"STRING","defaultValue":" a ")", u(" a ")},
    {R"("type":"stringList")", QStringList()},
    {R"("type":"stringList","defaultValue":["a",""])", QStringList{u("a"), QString()}},
    {R"("type":"stringMap")", QVariant::fromValue(QMap<int, QString>())},
    {R"("type":"stringMap","defaultValue":[{"id":2,"value":"b"},{"id":-1,"value":"a"}])",
     QVariant::fromValue(QMap<int, QString>{{-1, u("a")}, {2, u("b")}})},
    {R"("type":"integer")", 0},
    {R"("type":"integer","defaultValue":-7)", -7},
    {R"("type":"integer","defaultValue":7.9)", 7},
    {R"("type":"integer","defaultValue":1e10)", 2147483647},
    {R"("type":"double")", 0.0},
    {R"("type":"double","defaultValue":7)", 7.0},
    {R"("type":"bool")", false},
    {R"("type":"bool","defaultValue":true)", true},
    {R"("type":"option","defaultValue":5,"options":[{"index":3,"option":""},{"index":5,"option":"é"}])",
     5},
    {R"("type":"option","options":[{"index":0,"option":"a"}])", 0},
    {R"("type":"color")", QColor(Qt::black)},
    {R"("type":"color","defaultValue":"#80ff0000")", QColor(255, 0, 0, 128)},
    {R"("type":"color","defaultValue":"none")", QColor()},
    {R"("type":"image")", QVariant()},
    {R"("type":"tag")", QVariant()},
    {R"("type":"trend")", QVariant()},
};

static const struct
{
    const char *name; // the names
    QVector<TagType> types;
} tagRows[] = {
    {"", {}},
    {R"("bool","arraydouble","bool")", {TagType::Bool, TagType::ArrayDouble, TagType::Bool}},
    {R"("numeric")", {2, 3, 4, 5, 6, 7, 8, 9, 10, 11}},
    {R"("signednumeric")", {2, 3, 4, 9, 10, 11}},
    {R"("unsignednumeric","string")", {5, 6, 7, 8, 12}},
    {R"("real")", {10, 11}},
    {R"("arraynumeric")", {14, 15, 16, 17, 18, 19, 20, 21, 22, 23}},
    {R"("arraysignednumeric")", {14, 15, 16, 21, 22, 23}},
    {R"("arrayunsignednumeric")", {17, 18, 19, 20}},
    {R"("arrayreal")", {22, 23}},
};

static const struct
{
    const char *name; // of the field
    QVariant value;
    QVariant clamped;
} boundRows[] = {
    {"integer", -3, 0},       {"integer", 11, 10},  {"integer", u("7"), 7},
    {"integer", u("x"), 0},   {"double", -1, -0.5}, {"double", u("1.5"), 1.5},
    {"double", 1e300, 1e300}, {"option", 99, 99},   {"absent", -3, -3},
};

//! What the reader makes of metadata without a fault.
class tst_MetaDataReader : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void commonPart();
    void leavesInfoClearedOnFailure();
    void widgetDefaults();
    void widgetVersionsAndGroups();
    void defaultValues_data() { addRows(defaultRows); }
    void defaultValues();
    void fieldDetails();
    void acceptedTagTypes_data() { addRows(tagRows); }
    void acceptedTagTypes();
    void multiLanguageFields();
    void translations();
    void translatableStrings();
    void fieldInfo();
    void clampsToBounds_data() { addRows(boundRows); }
    void clampsToBounds();

private:
    //! Reads a library of these widgets.
    Library read(const QByteArray &widgets, const QByteArray &more = {});
    //! Reads one widget "w" with these fields.
    Library::WidgetMetaInformation readWidget(const QByteArray &fields,
                                              const QByteArray &more = {});
};

Library tst_MetaDataReader::read(const QByteArray &widgets, const QByteArray &more)
{
    const QByteArray json = R"({"MetaData":{"id":"0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11",
        "name":"Tanks","author":" Me ","version":"01.2.3")" +
                            more + ",\"widgets\":[" + widgets + "]}}";
    QJsonParseError error;
    const QJsonObject object = QJsonDocument::fromJson(json, &error).object();
    if (error.error)
        qFatal("%s in %s", qPrintable(error.errorString()), json.constData());
    Library info;
    const int code = Utils::metaInformationFromMetaData(object, info);
    if (code)
        qFatal("%s in %s", Utils::errorToString(code), json.constData());
    return info;
}

Library::WidgetMetaInformation tst_MetaDataReader::readWidget(const QByteArray &fields,
                                                              const QByteArray &more)
{
    return read(R"({"id":"w","version":"1.0.0","fields":[)" + fields + "]}", more)
        .widgets()
        .first();
}

void tst_MetaDataReader::initTestCase()
{
    Q_INIT_RESOURCE(translations);
}

void tst_MetaDataReader::commonPart()
{
    const Library info = read({}, R"(,"copyright":["C","note"],"description":"D","license":"",
        "defaultLanguage":" de-DE ","translation":[" it-IT ","fr-FR","it-IT"])");
    QCOMPARE(info.id(), u("0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11"));
    QCOMPARE(info.author(), u(" Me "));
    QCOMPARE(info.version().version(), u("1.2.3"));
    QCOMPARE(info.defaultLanguage(), u("de-DE"));
    QCOMPARE(info.translation(), (QStringList{u("it-IT"), u("fr-FR"), u("it-IT")}));
    QCOMPARE(info.name().get(u("xx-XX"), true), u("Tanks")); // falls back on the default language
    QCOMPARE(info.name().keys(), QList<QString>{u("de-DE")});
    QCOMPARE(info.copyright().comment(), u("note"));
    QCOMPARE(info.description().get(u("de-DE"), false), u("D"));
    QVERIFY(info.license().contains(u("de-DE")));
    QVERIFY(info.widgets().isEmpty());

    const Library plain = read({});
    QCOMPARE(plain.defaultLanguage(), english);
    QVERIFY(plain.copyright().isEmpty() && plain.description().isEmpty());
}

void tst_MetaDataReader::leavesInfoClearedOnFailure()
{
    Library info = read(R"({"id":"w","version":"1.0.0"})", R"(,"copyright":"C")");
    QCOMPARE(Utils::metaInformationFromMetaData({}, info), 2);
    QVERIFY(info.id().isEmpty() && info.author().isEmpty() && info.name().isEmpty());
    QVERIFY(!info.version().isValid());
    QCOMPARE(info.defaultLanguage(), english);
    QVERIFY(info.widgets().isEmpty());
    QVERIFY(!info.copyright().isEmpty()); // which only a next success replaces
}

void tst_MetaDataReader::widgetDefaults()
{
    const Library::WidgetMetaInformation none;
    QVERIFY(!none.isValid() && none.fields().isEmpty());
    QVERIFY(!none.defaultSize().isValid());
    QVERIFY(!Library::FieldMetaInformation().isValid());

    const Library info = read(R"({"id":"a","version":"1.0.0"},
        {"id":"b","version":"2.0.0","display":" B ","description":"  ","defaultSize":"0x1.5",
         "galleryGroupName":" G ","showInPageGallery":false,"showInProjectGallery":true,
         "receiveAlarmsEvents":true})",
                              R"(,"defaultLanguage":"de-DE")");
    const auto a = info.widgets().value({u("a"), u("1.0.0")});
    QVERIFY(a.isValid());
    QCOMPARE(a.display().get(english, false), u("a"));
    QCOMPARE(a.defaultSize(), QSizeF(100, 100));
    QVERIFY(a.description().isEmpty() && a.galleryGroupName().isEmpty());
    QVERIFY(a.showInPageGallery() && !a.showInProjectGallery() && !a.receiveAlarmsEvents());
    const auto b = info.widgets().value({u("b"), u("2.0.0")});
    QCOMPARE(b.display().get(u("de-DE"), false), u("B"));
    QCOMPARE(b.description().translations(), (QMap<QString, QString>{{u("de-DE"), QString()}}));
    QCOMPARE(b.defaultSize(), QSizeF(0, 1.5));
    QCOMPARE(b.galleryGroupName().get(u("de-DE"), false), u("G"));
    QVERIFY(!b.showInPageGallery() && b.showInProjectGallery() && b.receiveAlarmsEvents());
}

void tst_MetaDataReader::widgetVersionsAndGroups()
{
    const Library info = read(R"({"id":"b","version":"1.9.0","galleryGroupName":"Y"},
        {"id":"b","version":"1.10.0","galleryGroupName":"X","showInProjectGallery":true},
        {"id":"b","version":"1.9.0","galleryGroupName":"Z"},
        {"id":"a","version":"1.0.0","galleryGroupName":"X"},
        {"id":"c","version":"01.0.0","showInPageGallery":false,"showInProjectGallery":true})");
    QCOMPARE(info.widgets().size(), 4);
    QVERIFY(info.widgets().contains({u("c"), u("1.0.0")}));
    QCOMPARE(info.widgetsLatestVersion().size(), 3);
    QCOMPARE(info.widgetsLatestVersion().value(u("b")).version().version(), u("1.10.0"));
    QStringList groups;
    for (const Text &group : info.pageWidgetsGalleryGroups())
        groups += group.get(english, false);
    QCOMPARE(groups, (QStringList{u("X"), u("Z")}));
    QCOMPARE(info.projectWidgetsGalleryGroups().size(), 1);
    QVERIFY(!info.pageWidgetsDefaultGalleryGroupIsUsed());
    QVERIFY(info.projectWidgetsDefaultGalleryGroupIsUsed());
}

void tst_MetaDataReader::defaultValues()
{
    const auto &row = currentRow(defaultRows);
    const QByteArray field = QByteArray(R"({"id":"f","display":"",)") + row.name + "}";
    const QVariant read = readWidget(field).fields().value(u("f")).defaultValue();
    QCOMPARE(read, row.value);
    QCOMPARE(read.userType(), row.value.userType());
}

void tst_MetaDataReader::fieldDetails()
{
    const auto fields = readWidget(R"(
        {"id":"full","type":"integer","display":" L ","description":["D","c"],"tagCanBeAttached":true,
         "readOnly":true,"group":"G","private":true,"requirements":"n == 1 && on","minimum":5,
         "maximum":5,"multiLanguage":7},
        {"id":"n","type":"double","display":"","minimum":-0.5},
        {"id":"on","type":"bool","display":""},
        {"id":"o","type":"option","display":"","options":[{"index":1,"option":"b"},{"index":0,"option":"a"}]},
        {"id":"t","type":"tag","display":"","tagOnDemand":true},
        {"id":"font","type":"font","display":"","defaultValue":{"family":"ROBOTO thin","size":12.9,
         "bold":true,"style":"ITALIC","underline":true},"displayFontFamily":"1","displayFontSize":"2",
         "displayFontBold":"3","displayFontStyle":"4","displayFontUnderline":"5"})")
                            .fields();
    const auto full = fields.value(u("full"));
    QVERIFY(full.isValid() && full.tagCanBeAttached() && full.readOnly() && full.isPrivate());
    QVERIFY(!full.isMultiLanguage() && !full.defaultFontSpecified());
    QCOMPARE(full.display().get(english, false), u(" L "));
    QCOMPARE(full.description().comment(), u("c"));
    QCOMPARE(full.group().get(english, false), u("G"));
    QCOMPARE(full.requirements(), u("n == 1 && on"));
    QCOMPARE(full.minimum(), QVariant(5));
    QCOMPARE(full.maximum(), QVariant(5));
    QCOMPARE(fields.value(u("n")).minimum(), QVariant(-0.5));
    QVERIFY(!fields.value(u("n")).maximum().isValid());
    QVERIFY(!fields.value(u("n")).tagCanBeAttached());
    const QList<QPair<int, QString>> options{{1, u("b")}, {0, u("a")}};
    QCOMPARE(fields.value(u("o")).options(), options);
    QVERIFY(fields.value(u("t")).tagCanBeAttached() && fields.value(u("t")).tagOnDemand());
    const auto font = fields.value(u("font"));
    QCOMPARE(
        Utils::fieldFontToString(font.defaultValue().value<QFont>()),
        u(R"({"bold":true,"family":"ROBOTO thin","size":12,"style":"italic","underline":true})"));
    QCOMPARE(font.displayFontFamily().get(english, false), u("1"));
    QCOMPARE(font.displayFontSize().get(english, false), u("2"));
    QCOMPARE(font.displayFontBold().get(english, false), u("3"));
    QCOMPARE(font.displayFontStyle().get(english, false), u("4"));
    QCOMPARE(font.displayFontUnderline().get(english, false), u("5"));
}

void tst_MetaDataReader::acceptedTagTypes()
{
    const auto &[names, types] = currentRow(tagRows);
    const QByteArray field = R"({"id":"f","type":"tag","display":"","tagAcceptedTypes":[)";
    QCOMPARE(readWidget(field + names + "]}").fields().first().tagAcceptedTypes(), types);
}

#define LABELS                                                                                       \
    R"("displayFontFamily":"F","displayFontSize":"S","displayFontBold":"B","displayFontStyle":"T",)" \
    R"("displayFontUnderline":"U","multiLanguage":true)"

static const QByteArray multiLanguageFields = R"(
    {"id":"l","type":"stringList","display":"List","defaultValue":["On",["Level","of a tank"]],)" LABELS
                                              R"(},
    {"id":"m","type":"stringMap","display":"Map","defaultValue":[{"id":3,"value":["On","x"]}],)" LABELS
                                              R"(},
    {"id":"s","type":"string","display":["Text","c"],"group":"Appearance","defaultValue":" Level",
     "defaultFont":{"size":20},)" LABELS "}";

void tst_MetaDataReader::multiLanguageFields()
{
    const auto fields = readWidget(::multiLanguageFields).fields();
    const auto list = fields.value(u("l")).defaultValue().value<QList<Text>>();
    QCOMPARE(list.size(), 2);
    QCOMPARE(list[1].comment(), u("of a tank"));
    const auto map = fields.value(u("m")).defaultValue().value<QMap<int, Text>>();
    QCOMPARE(map.value(3).get(english, false), u("On"));
    const auto field = fields.value(u("s"));
    QCOMPARE(field.defaultValue().value<Text>().get(english, false), u(" Level"));
    QVERIFY(field.isMultiLanguage() && field.defaultFontSpecified());
    QCOMPARE(field.defaultFont().pointSize(), 20);
    QVERIFY(!fields.value(u("m")).defaultFontSpecified());
    QCOMPARE(fields.value(u("m")).defaultFont().family(), u("Roboto"));

    const auto bare =
        readWidget(R"({"id":"s","type":"stringList","display":"",)" LABELS "}").fields();
    QVERIFY(bare.first().defaultValue().value<QList<Text>>().isEmpty());
    QCOMPARE(bare.first().defaultValue().userType(), qMetaTypeId<QList<Text>>());
}

void tst_MetaDataReader::translations()
{
    const auto widget = readWidget(R"({"id":"a","type":"bool","display":["Level","of a tank"]},
        {"id":"b","type":"bool","display":["Level","of noise"]},
        {"id":"c","type":"bool","display":" Level"})",
                                   R"(,"translation":["it-IT","fr-FR"])");
    const auto italian = [&](const char *id) {
        return widget.fields().value(u(id)).display().get(u("it-IT"), true);
    };
    QCOMPARE(italian("a"), u("Livello del serbatoio"));
    QCOMPARE(italian("b"), u("Level"));
    QCOMPARE(italian("c"), u(" Level"));
}

void tst_MetaDataReader::translatableStrings()
{
    const Library info = read(R"({"id":"w","version":"1.0.0","display":"Widget","description":" ",
            "galleryGroupName":"Tanks","fields":[)" +
                                  ::multiLanguageFields + "]}",
                              R"(,"copyright":"never offered")");
    QStringList texts;
    for (const Text &text : info.translatableStrings(english)) {
        QCOMPARE(text.keys(), QList<QString>{english});
        texts += text.get(english, false) + QLatin1Char('|') + text.comment();
    }
    const QStringList expected{
        u("Tanks|"), u("Widget|"), u("List|"),  u("F|"),          u("S|"),
        u("B|"),     u("T|"),      u("U|"),     u("On|"),         u("Level|of a tank"),
        u("Map|"),   u("On|x"),    u("Text|c"), u("Appearance|"), u(" Level|")};
    QCOMPARE(texts, expected);
    QVERIFY(info.translatableStrings(u("it-IT")).isEmpty());
}

void tst_MetaDataReader::fieldInfo()
{
    const auto entries = readWidget(QByteArray(R"({"id":"n","type":"integer","display":""},
        {"id":"p","type":"string","display":""},)") +
                                    ::multiLanguageFields)
                             .fieldInfo();
    QStringList described;
    for (auto it = entries.cbegin(); it != entries.cend(); ++it)
        described +=
            QString::asprintf("%s %d%d%d %d %d", qPrintable(it.key()), it->setFieldValueIsEnabled(),
                              it->getFieldValueIsEnabled(), it->isAdditionalInformation(),
                              int(it->fieldType()), int(it->metaType()));
    const QStringList expected{u("l 010 2 0"),       u("l.font 011 2 64"), u("m 010 3 0"),
                               u("m.font 011 3 64"), u("n 110 4 0"),       u("p 110 1 0"),
                               u("s 010 1 0"),       u("s.font 011 1 64")};
    QCOMPARE(described, expected);
}

void tst_MetaDataReader::clampsToBounds()
{
    const auto &[name, value, clamped] = currentRow(boundRows);
    const auto widget = readWidget(R"(
        {"id":"integer","type":"integer","display":"","minimum":0,"maximum":10},
        {"id":"double","type":"double","display":"","minimum":-0.5},
        {"id":"option","type":"option","display":"","options":[{"index":0,"option":""}]})");
    const int named = Library::fieldTypeFromString(u(name));
    const int type = named ? named : int(FieldType::Integer);
    const QVariant result = Utils::fieldValueCheckBeforeSet(type, value, u(name), widget);
    QCOMPARE(result, clamped);
    QCOMPARE(result.userType(), clamped.userType());
    QCOMPARE(Utils::fieldValueCheckBeforeSet(type, value, u(name), {}), value);
}

QTEST_MAIN(tst_MetaDataReader)
#include "tst_metadatareader.moc"
