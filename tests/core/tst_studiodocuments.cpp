#include "guardedtest.h"
#include "privateaccess.h"

#include <NARV/INTERNAL/WidgetLibraryPluginUtils>

#include <QBuffer>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <functional>

using namespace NARV::INTERNAL;
using Library = WidgetLibraryPluginMetaInformation;
using Utils = WidgetLibraryPluginUtils;
using Text = Library::TranslationStringType;

using Init = void (Library::*)(const Library::WidgetMap &);
Init privateMember(PrivateAccess<Init>);
template struct PrivateMember<Init, &Library::init>;

static const QString english = u("en-US");
static const QString italian = u("it-IT"); // see it-IT.csv
static const QByteArray pluginId = "0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11";

static const char labels[] = R"(,"displayFontFamily":"F","displayFontSize":"S",
    "displayFontBold":"B","displayFontStyle":"Y","displayFontUnderline":"U")";

//! The element of a property, but for its end.
static QString property(const char *rest, const char *suffix = "", const char *display = "D")
{
    return u(R"(<text attributeName="f%1" display="%2" read_only="false" adv="no" )")
               .arg(u(suffix), u(display)) +
           u(rest);
}

//! The properties of the parts of a font, of which all but the first have that attachTag.
static QStringList fontParts(const char *attachTag, const char *conditions)
{
    static const struct
    {
        const char *suffix;
        const char *display;
        const char *attributes;
        const char *text;
    } parts[] = {
        {"-font-family", "F", R"("fontList" sort="false")", "D font family."},
        {"-font-size", "S", R"("integer")", "D font size."},
        {"-font-bold", "B", R"("bool")", "D font bold."},
        {"-font-style", "Y", R"("list:normal,italic")", "D font style."},
        {"-font-underline", "U", R"("bool")", "D font underline."},
    };
    QStringList texts;
    for (const auto &part : parts)
        texts += property("", part.suffix, part.display) +
                 u(R"(attachTag="%1" attributeType=%2%3>%4)")
                     .arg(u(texts.isEmpty() ? "no" : attachTag), u(part.attributes), u(conditions),
                          u(part.text));
    return texts;
}

static const struct
{
    const char *name; // members of the field, after id and display
    QStringList expected;
} propertyRows[] = {
    {R"("type":"string","description":"What")",
     {property(R"(attachTag="no" attributeType="string">What)")}},
    {R"("type":"stringList")",
     {property(R"(attachTag="no" attributeType="mlStringList" canBeUsedAsParameter="false">)")}},
    {R"("type":"stringMap")",
     {property(R"(attachTag="no" attributeType="mlStringList" canBeUsedAsParameter="false">)")}},
    {R"("type":"integer","tagCanBeAttached":true,"requirements":"on && f > 1","group":"G")",
     {property(R"(attachTag="yes" requiredFeatures="on &amp;&amp; f &gt; 1" layer="G" )"
               R"(attributeType="integer">)")}},
    {R"("type":"double","group":"")", {property(R"(attachTag="no" attributeType="float">)")}},
    {R"("type":"bool","group":"Appearance")",
     {property(R"(attachTag="no" layer="Aspetto" attributeType="bool">)")}},
    {R"("type":"option","options":[{"index":0,"option":"a %1"},{"index":-1,"option":"%2=,"}])",
     {property(R"(attachTag="no" attributeType="mapidx:a %1=0,%2=,=-1">)")}},
    {R"("type":"color")", {property(R"(attachTag="no" attributeType="color">)")}},
    {R"("type":"image")", {property(R"(attachTag="no" attributeType="image">)")}},
    {R"("type":"tag")",
     {property(R"(attachTag="yes" attributeType="datalinkOnly" attachToDlgOptions="tabs=tag">)")}},
    {R"("type":"tag","tagAcceptedTypes":["real","string"])",
     {property(R"(attachTag="yes" attributeType="datalinkOnly" )"
               R"(attachToDlgOptions="tabs=tag,tagtype=float|double|string">)")}},
    {R"("type":"trend")",
     {property(R"(attachTag="no" attributeType="datalinkOnly" attachToDlgOptions=)"
               R"("tabs=widgets,xforms=!*,rw=r,wgtId=this,onlyDynamicProperties">)")}},
    {R"("type":"bool","private":true)", {}},
    {R"("type":"font","tagCanBeAttached":true,"requirements":"on","group":"G")",
     fontParts("yes", R"( requiredFeatures="on" layer="G")")},
    {R"("type":"string","multiLanguage":true)",
     QStringList{property(R"(attachTag="no" attributeType="mlStringList">)")} +
         fontParts("no", "")},
};

static const struct
{
    const char *name; // of each widget its id, then > and < for page and project, then its group
    const char *language;
    const char *page;
    const char *project;
} galleryRows[] = {
    {"", "it-IT", "", ""},
    {"a>", "it-IT", "Basic", ""},
    {"a<", "it-IT", "", "Basic"},
    {"a><,b>Appearance,c>Other,d>Appearance", "it-IT", "Aspetto Other Basic", "Basic"},
    {"a>Basic,b>", "en-US", "Basic", ""}, // equal to the default group
    {"a>Basic,b>", "it-IT", "Basic Basic", ""},
    {"a>%1", "it-IT", "%1", ""},
};

static const struct
{
    const char *name;
    QString text;
    QString readBack; // null: the text itself
} textRows[] = {
    {"markup", u("<a b=\"c\" d='e'>&amp;]]></a>"), {}},
    {"white space", u(" \ta\n b\r\n\rc "), {}},
    {"beyond the first plane", u("\xf0\x9f\x98\x80 \xf0\xa0\x80\x80"), {}},
    {"right to left", u("\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d \xd8\xb3\xd9\x84\xd8\xa7\xd9\x85"), {}},
    {"last of a plane", u("\xf0\x9f\xbf\xbf\xee\x80\x80\xef\xbf\xbd"), {}},
    {"places", u("%1 %2 %3"), {}},
    {"controls", u("a\x01") + QChar(0) + u("\x1f\x7f"), u("a\ufffd\ufffd\ufffd\x7f")},
    {"no characters", u("a") + QChar(0xfffe) + QChar(0xffff), u("a\ufffd\ufffd")},
    {"half pairs", QString(QChar(0xdc00)) + u("a") + QChar(0xd83d), u("\ufffda\ufffd")},
};

//! What the editor reads about a library.
class tst_StudioDocuments : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void writesProperties_data() { addRows(propertyRows); }
    void writesProperties();
    void writesEveryVersion();
    void stopsAtUnknownTypes();
    void registersGalleries_data() { addRows(galleryRows); }
    void registersGalleries();
    void showsLatestVersionsOfGroup();
    void numbersTexts();
    void leavesOtherLanguagesAsTheyAre();
    void keepsTexts_data() { addRows(textRows); }
    void keepsTexts();

private:
    static Library library(const QByteArray &widgets, const QByteArray &name = "\"Appearance\"");
    static QString written(const std::function<int(QXmlStreamWriter &)> &write);
    static QString properties(const Library &library);
    static QString defaults(const Library &library, const QString &language = italian);
    static QString gallery(const Library &library, const Text &group, int type = 0,
                           const QString &language = italian);
    static QStringList all(const QString &document, const char *pattern);
};

Library tst_StudioDocuments::library(const QByteArray &widgets, const QByteArray &name)
{
    Library library;
    const QByteArray json =
        R"({"MetaData":{"id":")" + pluginId + R"(","name":)" + name + R"(,"author":)" + name +
        R"(,"version":"1.2.3","translation":["it-IT"],"widgets":[)" + widgets + "]}}";
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    if (const int code = Utils::metaInformationFromMetaData(object, library))
        qFatal("%s in %s", Utils::errorToString(code), json.constData());
    return library;
}

QString tst_StudioDocuments::written(const std::function<int(QXmlStreamWriter &)> &write)
{
    QByteArray bytes;
    QXmlStreamWriter writer(&bytes);
    return write(writer) == 0 && !writer.hasError() ? QString::fromUtf8(bytes) : QString();
}

QString tst_StudioDocuments::properties(const Library &library)
{
    return written([&](QXmlStreamWriter &writer) {
        return Utils::studioPropertiesFromMetaInformation(library, writer, italian);
    });
}

QString tst_StudioDocuments::defaults(const Library &library, const QString &language)
{
    return written([&](QXmlStreamWriter &writer) {
        return Utils::studioDefaultsFromMetaInformation(library, writer, language,
                                                        u("page %1 of %1"), u("project %2 %1"));
    });
}

QString tst_StudioDocuments::gallery(const Library &library, const Text &group, int type,
                                     const QString &language)
{
    return written([&](QXmlStreamWriter &writer) {
        return Utils::studioGalleryFromMetaInformation(library, writer, language, group,
                                                       Utils::GalleryType(type));
    });
}

//! What the pattern captures, of all places where it matches.
QStringList tst_StudioDocuments::all(const QString &document, const char *pattern)
{
    QStringList texts;
    auto matches = QRegularExpression(u(pattern)).globalMatch(document);
    while (matches.hasNext())
        texts += matches.next().capturedTexts().mid(1).join(QLatin1Char(' '));
    return texts;
}

void tst_StudioDocuments::writesProperties()
{
    const auto &[members, expected] = currentRow(propertyRows);
    const QByteArray more =
        QByteArray(members).contains("font") || QByteArray(members).contains("multiLanguage")
            ? labels
            : "";
    // Where the field stands in the order of the ids: behind this one.
    const QString document = properties(library(
        R"({"id":"w","version":"1.0.0","fields":[{"id":"f","display":"D",)" + QByteArray(members) +
        more + R"(},{"id":"on","private":true,"type":"bool","display":""}]})"));
    const int begin = document.indexOf(u("Widget version.</text>")) + 22;
    const int end = document.indexOf(u("<text attributeName=\"onDataUpdate\""));
    const QString elementEnd = u("</text>");
    QCOMPARE(document.mid(begin, end - begin).split(elementEnd), expected + QStringList{QString()});
}

void tst_StudioDocuments::writesEveryVersion()
{
    const QString document = properties(library(R"({"id":"w","version":"1.10.0"},
        {"id":"w","version":"1.9.0"},{"id":"v","version":"01.0.0"})"));
    const QString id = u("custombuiltwgt_") + u(pluginId) + u("_%1_%2_properties");
    QCOMPARE(all(document, "<g id=\"([^\"]*)\""),
             (QStringList{id.arg(u("v"), u("1.0.0")), id.arg(u("w"), u("1.10.0")),
                          id.arg(u("w"), u("1.9.0"))}));
    QCOMPARE(all(document, "<text attributeName=\"([^\"]*)\"").size(), 3 * 7);
}

void tst_StudioDocuments::stopsAtUnknownTypes()
{
    for (const int type : {0, 13, -1}) {
        const Library::FieldMetaInformation field(u("f"), {}, {}, type, false, {}, false, {}, false,
                                                  {}, false);
        const Library::WidgetMetaInformation widget(u("w"), Library::VersionType(1, 0, 0), {}, {},
                                                    {}, {}, true, false, false,
                                                    {{field.id(), field}});
        Library info;
        (info.*privateMember(PrivateAccess<Init>()))({{{u("w"), u("1.0.0")}, widget}});
        QByteArray bytes;
        QXmlStreamWriter writer(&bytes);
        QCOMPARE(Utils::studioPropertiesFromMetaInformation(info, writer, english), 10029);
        QVERIFY(!bytes.contains("</g>") && !bytes.contains("onDataUpdate"));
    }
}

//! A widget as the rows tell of it.
static QByteArray widgetOf(const QByteArray &text)
{
    const QByteArray id = text.left(1);
    const QByteArray group = text.mid(text.lastIndexOf(text.contains('<') ? '<' : '>') + 1);
    return R"({"id":")" + id + R"(","version":"1.0.0","showInPageGallery":)" +
           (text.contains('>') ? "true" : "false") + R"(,"showInProjectGallery":)" +
           (text.contains('<') ? "true" : "false") +
           (group.isEmpty() ? "}" : R"(,"galleryGroupName":")" + group + "\"}");
}

void tst_StudioDocuments::registersGalleries()
{
    const auto &[widgets, language, page, project] = currentRow(galleryRows);
    QByteArray json;
    for (const QByteArray &widget : QByteArray(widgets).split(','))
        json += widget.isEmpty() ? QByteArray() : (json.isEmpty() ? "" : ",") + widgetOf(widget);
    const QString document = defaults(library(json), u(language));
    const QStringList managers =
        all(document, "id=\"(_[^\"]*)\" class=\"GalleryMgrWgt\" label=\"([^\"]*)\"");
    const QString label = u(language) == italian ? u("Aspetto") : u("Appearance");
    QStringList expectedManagers;
    QStringList expectedPages;
    const auto expect = [&](const char *groups, const QString &name, const QString &file) {
        const QStringList names = u(groups).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        if (!names.isEmpty())
            expectedManagers += name + u(pluginId) + QLatin1Char(' ') + label;
        for (int i = 0; i < names.size(); ++i)
            expectedPages += names.at(i) + QLatin1Char(' ') +
                             QString(file).replace(u("%1"), QString::number(i)) + QLatin1Char(' ') +
                             names.at(i);
    };
    expect(page, u("_CustomBuiltWgt_"), u("page %1 of %1"));
    expect(project, u("_CustomBuiltWgtProject_"), u("project %2 %1"));
    QCOMPARE(managers, expectedManagers);
    const char pattern[] = "<page name=\"([^\"]*)\" file=\"([^\"]*)\" displayName=\"([^\"]*)\"/>";
    QCOMPARE(all(document, pattern), expectedPages);
    QCOMPARE(document.contains(u("isGlobal=\"true\" type=\"Project\"><pages>")), *project != 0);
}

void tst_StudioDocuments::showsLatestVersionsOfGroup()
{
    const Library info = library(
        R"({"id":"b","version":"1.9.0","display":"Appearance","galleryGroupName":"G","defaultSize":"1x2"},
           {"id":"b","version":"1.10.0","display":"Appearance","description":"About","defaultSize":
            "1234567.25x0.1","galleryGroupName":"G","showInProjectGallery":true},
           {"id":"a","version":"1.0.0","galleryGroupName":"G"},
           {"id":"c","version":"1.0.0"},
           {"id":"d","version":"1.0.0","galleryGroupName":"G","showInPageGallery":false},
           {"id":"e","version":"1.0.0","galleryGroupName":["G","other comment"]})");
    const Text group = info.pageWidgetsGalleryGroups().first();
    const QString page = gallery(info, group);
    QCOMPARE(
        all(page, "<item icon=\"\" tooltip=\"(.*?)\" idx=\"(.*?)\" label=\"(.*?)\" id=\"(.*?)\"/>"),
        (QStringList{u(" 0 a a"), u("About 1 Aspetto b")}));
    QCOMPARE(all(page, "class=\"CustomBuiltWgt\" id=\"(.*?)\""), (QStringList{u("a"), u("b")}));
    QVERIFY(page.contains(
        u("<wgtStyle widgetId=\"b\" widgetVersion=\"1.10.0\" libraryId=\"") + u(pluginId) +
        u("\" libraryName=\"Appearance\" libraryVersion=\"1.2.3\" libraryAuthor=\"Appearance\" "
          "width=\"1234567.25\" height=\"0.1\" x=\"0\" y=\"0\" cx=\"1234567.25\" cy=\"0.1\" "
          "wgtStaticOpt=\"dynamic\"><userfields/></wgtStyle><links/>")));
    QVERIFY(page.contains(u("width=\"100\" height=\"100\" x=\"0\" y=\"0\" cx=\"100\" cy=\"100\"")));

    const char ids[] = "<item .*?id=\"([^\"]*)\"/>";
    QCOMPARE(all(gallery(info, group, 1), ids), QStringList{u("_b")});
    QCOMPARE(all(gallery(info, Text()), ids), QStringList{u("c")});
    QCOMPARE(all(gallery(info, Text(), 1), ids), QStringList());
    QVERIFY(gallery(info, group, 2).contains(u("<items/>")));
}

static const QByteArray textFields = R"({"id":"w","version":"1.0.0","fields":[
    {"id":"a","type":"string","multiLanguage":true,"defaultValue":"Appearance","display":"","defaultFont":
        {"family":"Roboto Thin","size":7})" +
                                     QByteArray(labels) + R"(},
    {"id":"b","type":"stringList","multiLanguage":true,"defaultValue":["x","Appearance",["x","2"],"y"],
        "display":"")" + labels + R"(},
    {"id":"c","type":"stringMap","multiLanguage":true,"defaultValue":[{"id":1,"value":"map"}],
        "display":"")" + labels + R"(},
    {"id":"d","type":"stringList","defaultValue":["plain"],"display":"","private":true},
    {"id":"e","type":"string","multiLanguage":true,"display":"")" +
                                     labels + R"(}
    ]},{"id":"x","version":"1.0.0","fields":[
    {"id":"a","type":"string","multiLanguage":true,"defaultValue":"y","display":"")" +
                                     labels + "}]}";

void tst_StudioDocuments::numbersTexts()
{
    const QString page = gallery(library(textFields), Text());
    QCOMPARE(all(page, "<MLText (.*?)/>"),
             (QStringList{u("id=\"0\" en-US=\"Appearance\" it-IT=\"Aspetto\""),
                          u("id=\"1\" en-US=\"x\" it-IT=\"x\""),
                          u("id=\"2\" en-US=\"y\" it-IT=\"y\""), u("id=\"3\" it-IT=\"\"")}));
    QCOMPARE(all(page, "<textid val=\"(.*?)\" idx=\"(.*?)\"/>"),
             (QStringList{u("0 0"), u("1 0"), u("0 0"), u("1 0"), u("2 0"), u("3 0"), u("2 1")}));
    QCOMPARE(
        all(page, "<lang class=\"(MLMsgLink.*?)\"><MLFontFamily "
                  "useAttributeNameForFontProperties=\"true\" L1=\"(.*?)\"/>(.*?)</lang>"),
        (QStringList{u("MLMsgLink:a: Roboto Thin <textid idx=\"0\" val=\"0\"/>"),
                     u("MLMsgLink:b: Roboto <textid idx=\"0\" val=\"1\"/><textid idx=\"1\" "
                       "val=\"0\"/><textid idx=\"2\" val=\"1\"/><textid idx=\"3\" val=\"2\"/>"),
                     u("MLMsgLink:e: Roboto <textid idx=\"0\" val=\"3\"/>"),
                     u("MLMsgLink:a: Roboto <textid idx=\"0\" val=\"2\"/>")}));
    QCOMPARE(all(page, "<field (.*?)/>").mid(1),
             (QStringList{u("id=\"b\""), u("id=\"c\""), u("id=\"d\" value=\"[&quot;plain&quot;]\""),
                          u("id=\"e\""), u("id=\"a\"")}));
    QVERIFY(page.contains(u("<field id=\"a\" font=\"{&quot;bold&quot;:false,&quot;family&quot;:"
                            "&quot;Roboto Thin&quot;,&quot;size&quot;:7,")));
}

// Any text names the language that the host asks for; not any text is the name of an attribute.
void tst_StudioDocuments::leavesOtherLanguagesAsTheyAre()
{
    const QString page = gallery(library(textFields), Text(), 0, u("a=\"b\" <c"));
    QVERIFY(page.contains(u("langCode=\"a=&quot;b&quot; &lt;c\"")));
    QCOMPARE(all(page, "<MLText (.*?)/>").mid(1),
             (QStringList{u("id=\"1\" en-US=\"x\""), u("id=\"2\" en-US=\"y\""), u("id=\"3\"")}));
}

//! All values of attributes and all texts, as a reader of XML sees them.
static QStringList valuesOf(QString document)
{
    document.replace(u("attrib=\"text\" "), QString()); // what no reader takes
    QXmlStreamReader reader(u("<all>") + document + u("</all>"));
    QStringList values;
    while (!reader.atEnd()) {
        reader.readNext();
        for (const QXmlStreamAttribute &attribute : reader.attributes())
            values += attribute.value().toString();
        if (reader.isCharacters())
            values += reader.text().toString();
    }
    return reader.hasError() ? QStringList{reader.errorString()} : values;
}

void tst_StudioDocuments::keepsTexts()
{
    const auto &[name, text, readBack] = currentRow(textRows);
    const QString expected = readBack.isNull() ? text : readBack;
    // Written into the records, since JSON cannot carry all of it.
    Text translated;
    translated.set(italian, text);
    Library::FieldMetaInformation option(u("o"), translated, translated, 7, false, 0, false,
                                         translated, false, text, false);
    Library::FieldMetaInformation string(u("s"), translated, translated, 1, false, text, false,
                                         translated, false, {}, false);
    Library::FieldMetaInformation multi(u("t"), {}, {}, 1, false, QVariant::fromValue(translated),
                                        false, {}, false, {}, true);
    const Library::WidgetMetaInformation widget(
        u("w"), Library::VersionType(1, 0, 0), translated, translated, {1, 1}, translated, true,
        true, false, {{u("o"), option}, {u("s"), string}, {u("t"), multi}});
    Library info;
    (info.*privateMember(PrivateAccess<Init>()))({{{u("w"), u("1.0.0")}, widget}});

    // display, requirements, group and description of two fields
    QCOMPARE(valuesOf(properties(info)).count(expected), 7);
    // name and displayName in each gallery
    QCOMPARE(valuesOf(defaults(info)).count(expected), 4);
    // label and tooltip, the plain default, the translation
    QCOMPARE(valuesOf(gallery(info, translated)).count(expected), 4);
}

QTEST_APPLESS_MAIN(tst_StudioDocuments)
#include "tst_studiodocuments.moc"
