#include "guardedtest.h"

#include <NARV/INTERNAL/WidgetLibraryPluginUtils>

#include <QColor>

using namespace NARV::INTERNAL;
using Library = WidgetLibraryPluginMetaInformation;
using Utils = WidgetLibraryPluginUtils;
using FieldType = Library::FieldType;
using TagType = Library::TagType;
using StringMap = QMap<int, QString>;

static const struct
{
    const char *name; // the text
    int type;
    QVariant value;
} textRows[] = {
    {"ä \"\n", FieldType::String, u("ä \"\n")},
    {"[]", FieldType::StringList, QStringList()},
    {R"(["a","\"","ж"])", FieldType::StringList, QStringList{u("a"), u("\""), u("ж")}},
    {"[]", FieldType::StringMap, QVariant::fromValue(StringMap())},
    {R"([{"i":-1,"v":"a"},{"i":2,"v":"b"}])", FieldType::StringMap,
     QVariant::fromValue(StringMap{{2, u("b")}, {-1, u("a")}})},
    {"-2147483648", FieldType::Integer, -2147483647 - 1},
    {"3", FieldType::Option, 3},
    {"0.1", FieldType::Double, 0.1},
    {"1.23457e+06", FieldType::Double, 1.23457e6},
    {"true", FieldType::Bool, true},
    {"false", FieldType::Bool, false},
    {"#1234ff", FieldType::Color, QColor(18, 52, 255)},
    {R"({"isValid":true,"value":"images/pump.svg"})", FieldType::Image, u("images/pump.svg")},
    {R"({"isValid":false,"value":""})", FieldType::Image, {}},
    {"", FieldType::Undefined, {}},
    {"", FieldType::Tag, {}},
    {"", FieldType::Trend, {}},
};

// Texts that no writer makes, and values that do not fit their type.
static const struct
{
    const char *name; // the text
    int type;
    const char *rewritten;
} fallbackRows[] = {
    {"no JSON", FieldType::StringList, "[]"},
    {R"({"a":1})", FieldType::StringList, "[]"},
    {R"(["a",1])", FieldType::StringList, R"(["a",""])"},
    {R"([{"i":1,"v":"a"},7,{"i":1,"v":"b"}])", FieldType::StringMap, R"([{"i":1,"v":"b"}])"},
    {R"([{"i":1e99,"v":"a"}])", FieldType::StringMap, R"([{"i":2147483647,"v":"a"}])"},
    {"12a", FieldType::Integer, "0"},
    {"99999999999", FieldType::Integer, "0"},
    {"1,5", FieldType::Double, "0"},
    {"1234567.0", FieldType::Double, "1.23457e+06"},
    {"TRUE", FieldType::Bool, "false"},
    {"1", FieldType::Bool, "false"},
    {"#80ff0000", FieldType::Color, "#ff0000"},
    {"#f00", FieldType::Color, "#ff0000"},
    {"red", FieldType::Color, "#ff0000"},
    {"no colour", FieldType::Color, "#000000"},
    {"[]", FieldType::Image, R"({"isValid":false,"value":""})"},
    {R"({"isValid":1,"value":"a"})", FieldType::Image, R"({"isValid":false,"value":""})"},
    {"anything", 99, ""},
    {"anything", -1, ""},
};

static const struct
{
    const char *name;
    int type;
    QVariant value;
    bool ok;
    QVariant converted;
} conversionRows[] = {
    {"number", FieldType::String, 5, true, u("5")},
    {"text", FieldType::StringList, u("a"), true, QStringList{u("a")}},
    {"map", FieldType::StringMap, QVariant::fromValue(StringMap{{1, u("a")}}), true,
     QVariant::fromValue(StringMap{{1, u("a")}})},
    {"text", FieldType::StringMap, u("a"), false, u("a")},
    {"text", FieldType::Integer, u("7"), true, 7},
    {"no number", FieldType::Integer, u("x"), false, 0},
    {"text", FieldType::Option, u("7"), true, 7},
    {"number", FieldType::Double, 7, true, 7.0},
    {"text", FieldType::Bool, u("true"), true, true},
    {"name", FieldType::Color, u("red"), true, QColor(Qt::red)},
    {"list", FieldType::Font, QStringList(), false, {}},
    {"text", FieldType::Image, u("a.svg"), true, u("a.svg")},
    {"none", FieldType::Image, QVariant(), true, QVariant()},
    {"list", FieldType::Image, QVariant::fromValue(StringMap()), false, QString()},
    {"anything", FieldType::Tag, 5, true, 5},
    {"anything", FieldType::Trend, 5, true, 5},
    {"anything", FieldType::Undefined, 5, false, 5},
    {"anything", 13, 5, false, 5},
    {"anything", -1, 5, false, 5},
};

static const struct
{
    const char *name;
    bool isOk;
} fontRows[] = {
    {R"({"bold":1,"family":"F","size":12,"style":"italic","underline":1})", true},
    {R"({"bold":true,"family":"F","size":12,"style":"italic","underline":1})", false},
    {R"({"bold":1,"family":1,"size":12,"style":"italic","underline":1})", false},
    {R"({"bold":1,"family":"F","size":"12","style":"italic","underline":1})", false},
    {R"({"bold":1,"family":"F","size":12,"underline":1})", false},
    {R"({"bold":1,"family":"F","size":12,"style":"italic","underline":false})", false},
    {"no JSON", false},
};

//! Field and tag types, the text form of values, and fonts.
class tst_FieldValues : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void typeNames();
    void textForms_data() { addRows(textRows); }
    void textForms();
    void fallbacks_data() { addRows(fallbackRows); }
    void fallbacks();
    void conversions_data() { addRows(conversionRows); }
    void conversions();
    void fonts();
    void checkedFonts_data() { addRows(fontRows); }
    void checkedFonts();
};

void tst_FieldValues::typeNames()
{
    for (int type = FieldType::String; type <= FieldType::Trend; ++type) {
        const QString name = Library::fieldTypeToString(type);
        QCOMPARE(int(Library::fieldTypeFromString(name)), type);
        QCOMPARE(int(Library::fieldTypeFromString(name.toUpper())), type);
    }
    QCOMPARE(Library::fieldTypeToString(FieldType::Undefined), u("undefined"));
    QCOMPARE(Library::fieldTypeToString(FieldType::StringMap), u("stringMap"));
    for (int type : {-1, 13, 1000})
        QVERIFY(Library::fieldTypeToString(type).isEmpty());
    for (const char *name : {"", "undefined", "text", "strin", "strings"})
        QCOMPARE(int(Library::fieldTypeFromString(u(name))), 0);

    for (int type = TagType::Bool; type <= TagType::ArrayDouble; ++type)
        QCOMPARE(int(Library::tagTypeFromString(Library::tagTypeToString(type))), type);
    QCOMPARE(Library::tagTypeToString(TagType::ArrayUInt64), u("arrayuint64"));
    for (int type : {std::numeric_limits<int>::min(), -1, 0, 24})
        QVERIFY(Library::tagTypeToString(type).isEmpty());
    for (const char *name : {"", "Int", "arraystring"})
        QCOMPARE(int(Library::tagTypeFromString(u(name))), 0);

    const QVector<int> usable{FieldType::Integer, FieldType::Double, FieldType::Bool,
                              FieldType::Option};
    for (int type = -1; type < 14; ++type)
        QCOMPARE(Library::fieldTypeCanBeUsedInARequirementsExpression(type), usable.contains(type));
}

void tst_FieldValues::textForms()
{
    const auto &[text, type, value] = currentRow(textRows);
    QCOMPARE(Utils::fieldValueToString(type, value), u(text));
    const QVariant readBack = Utils::fieldValueFromString(type, u(text));
    QCOMPARE(readBack, value);
    QCOMPARE(readBack.userType(), value.userType());
}

void tst_FieldValues::fallbacks()
{
    const auto &[text, type, rewritten] = currentRow(fallbackRows);
    const QVariant value = Utils::fieldValueFromString(type, u(text));
    QCOMPARE(Utils::fieldValueToString(type, value), u(rewritten));
}

void tst_FieldValues::conversions()
{
    const auto &row = currentRow(conversionRows);
    const Library::FieldInfo info(true, true, false, row.type, QMetaType::UnknownType);
    QVariant value = row.value;
    QCOMPARE(info.convertToFieldType(value), row.ok);
    if (row.ok)
        QCOMPARE(value, row.converted);

    QVariant number = 5;
    const Library::FieldInfo text(false, true, true, row.type, QMetaType::QString);
    QVERIFY(text.convertToFieldType(number));
    QCOMPARE(number, QVariant(u("5")));
    const Library::FieldInfo font(false, true, true, row.type, QMetaType::QFont);
    QVariant list = QStringList();
    QVERIFY(!font.convertToFieldType(list));
}

void tst_FieldValues::fonts()
{
    QFont font(u("Roboto"), 10, QFont::Normal);
    QCOMPARE(Utils::fieldFontToString(font),
             u(R"({"bold":false,"family":"Roboto","size":10,"style":"normal","underline":false})"));
    for (int weight : {57, 58}) {
        font.setWeight(weight);
        QCOMPARE(Utils::fieldFontToString(font).contains(u(R"("bold":true)")), weight == 58);
    }
    font.setStyle(QFont::StyleOblique);
    QVERIFY(Utils::fieldFontToString(font).contains(u(R"("style":"normal")")));
    font.setStyle(QFont::StyleItalic);
    font.setUnderline(true);
    font.setFamily(u("Roboto \"Thin\""));
    const QString text = Utils::fieldFontToString(font);
    const QFont readBack = Utils::fieldFontFromString(text);
    QCOMPARE(Utils::fieldFontToString(readBack), text);
    QCOMPARE(readBack.weight(), int(QFont::Bold));
    QCOMPARE(Utils::fieldValueFromString(FieldType::Font, text).userType(), int(QMetaType::QFont));
    QCOMPARE(Utils::fieldValueToString(FieldType::Font, font), text);
    for (const char *odd : {"", "[]", R"({"size":-4})", R"({"size":1e300,"bold":"x"})"})
        QCOMPARE(Utils::fieldFontFromString(u(odd)).weight(), int(QFont::Normal));
}

void tst_FieldValues::checkedFonts()
{
    const auto &[text, isOk] = currentRow(fontRows);
    bool ok = !isOk;
    const QFont font = Utils::fieldFontFromString(u(text), &ok);
    QCOMPARE(ok, isOk);
    QCOMPARE(font.italic(), isOk);
    QCOMPARE(font.pointSize() == 12 && font.family() == u("F"), isOk);
    QVERIFY(!font.bold() && !font.underline()); // numbers read as booleans
}

QTEST_MAIN(tst_FieldValues)
#include "tst_fieldvalues.moc"
