#include "guardedtest.h"

#include <NARV/INTERNAL/WidgetLibraryPluginUtils>

#include <QColor>
#include <QTest>

using namespace NARV::INTERNAL;
using Library = WidgetLibraryPluginMetaInformation;
using Utils = WidgetLibraryPluginUtils;
using FieldType = Library::FieldType;
using TagType = Library::TagType;
using StringMap = QMap<int, QString>;

static QString u(const char *text)
{
    return QString::fromUtf8(text);
}

//! Field and tag types, the text form of values, and fonts.
class tst_FieldValues : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void typeNames();
    void textForms_data();
    void textForms();
    void fallbacks_data();
    void fallbacks();
    void conversions_data();
    void conversions();
    void mapsAreComparable();
    void fonts();
    void checkedFonts_data();
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

void tst_FieldValues::textForms_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");
    const auto row = [](FieldType type, const QVariant &value, const char *text) {
        QTest::newRow(text) << int(type) << value << u(text);
    };
    row(FieldType::String, u("ä \"\n"), "ä \"\n");
    row(FieldType::StringList, QStringList(), "[]");
    row(FieldType::StringList, QStringList{u("a"), u("\""), u("ж")}, R"(["a","\"","ж"])");
    row(FieldType::StringMap, QVariant::fromValue(StringMap()), "[]");
    row(FieldType::StringMap, QVariant::fromValue(StringMap{{2, u("b")}, {-1, u("a")}}),
        R"([{"i":-1,"v":"a"},{"i":2,"v":"b"}])");
    row(FieldType::Integer, -2147483647 - 1, "-2147483648");
    row(FieldType::Option, 3, "3");
    row(FieldType::Double, 0.1, "0.1");
    row(FieldType::Double, 1.23457e6, "1.23457e+06");
    row(FieldType::Bool, true, "true");
    row(FieldType::Bool, false, "false");
    row(FieldType::Color, QColor(18, 52, 255), "#1234ff");
    row(FieldType::Image, u("images/pump.svg"), R"({"isValid":true,"value":"images/pump.svg"})");
    row(FieldType::Image, QVariant(), R"({"isValid":false,"value":""})");
    for (FieldType type : {FieldType::Undefined, FieldType::Tag, FieldType::Trend})
        row(type, QVariant(), "");
}

void tst_FieldValues::textForms()
{
    QFETCH(int, type);
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    QCOMPARE(Utils::fieldValueToString(type, value), text);
    const QVariant readBack = Utils::fieldValueFromString(type, text);
    QCOMPARE(readBack, value);
    QCOMPARE(readBack.userType(), value.userType());
}

// Texts that no writer makes, and values that do not fit their type.
void tst_FieldValues::fallbacks_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("rewritten");
    const auto row = [](FieldType type, const QByteArray &text, const char *rewritten) {
        QTest::addRow("%d %s", int(type), text.left(40).constData())
            << int(type) << QString::fromUtf8(text) << u(rewritten);
    };
    row(FieldType::StringList, "no JSON", "[]");
    row(FieldType::StringList, R"({"a":1})", "[]");
    row(FieldType::StringList, R"(["a",1])", R"(["a",""])");
    row(FieldType::StringList, QByteArray(100000, '['), "[]");
    row(FieldType::StringMap, R"([{"i":1,"v":"a"},7,{"i":1,"v":"b"}])", R"([{"i":1,"v":"b"}])");
    row(FieldType::StringMap, R"([{"i":1e99,"v":"a"}])", R"([{"i":2147483647,"v":"a"}])");
    row(FieldType::Integer, "12a", "0");
    row(FieldType::Integer, "99999999999", "0");
    row(FieldType::Double, "1,5", "0");
    row(FieldType::Double, "1234567.0", "1.23457e+06");
    row(FieldType::Bool, "TRUE", "false");
    row(FieldType::Bool, "1", "false");
    row(FieldType::Color, "#80ff0000", "#ff0000");
    row(FieldType::Color, "#f00", "#ff0000");
    row(FieldType::Color, "red", "#ff0000");
    row(FieldType::Color, "no colour", "#000000");
    row(FieldType::Image, "[]", R"({"isValid":false,"value":""})");
    row(FieldType::Image, R"({"isValid":1,"value":"a"})", R"({"isValid":false,"value":""})");
    row(99, "anything", "");
    row(-1, "anything", "");
}

void tst_FieldValues::fallbacks()
{
    QFETCH(int, type);
    QFETCH(QString, text);
    QFETCH(QString, rewritten);
    QCOMPARE(Utils::fieldValueToString(type, Utils::fieldValueFromString(type, text)), rewritten);
}

void tst_FieldValues::conversions_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QVariant>("converted");
    const auto row = [](const char *name, FieldType type, const QVariant &value, bool ok,
                        const QVariant &converted) {
        QTest::addRow("%d %s", int(type), name) << int(type) << value << ok << converted;
    };
    row("number", FieldType::String, 5, true, u("5"));
    row("text", FieldType::StringList, u("a"), true, QStringList{u("a")});
    row("map", FieldType::StringMap, QVariant::fromValue(StringMap{{1, u("a")}}), true,
        QVariant::fromValue(StringMap{{1, u("a")}}));
    row("text", FieldType::StringMap, u("a"), false, u("a"));
    row("text", FieldType::Integer, u("7"), true, 7);
    row("no number", FieldType::Integer, u("x"), false, 0);
    row("text", FieldType::Option, u("7"), true, 7);
    row("number", FieldType::Double, 7, true, 7.0);
    row("text", FieldType::Bool, u("true"), true, true);
    row("name", FieldType::Color, u("red"), true, QColor(Qt::red));
    row("list", FieldType::Font, QStringList(), false, QFont());
    row("text", FieldType::Image, u("a.svg"), true, u("a.svg"));
    row("none", FieldType::Image, QVariant(), true, QVariant());
    row("list", FieldType::Image, QVariant::fromValue(StringMap()), false, QString());
    row("anything", FieldType::Tag, 5, true, 5);
    row("anything", FieldType::Trend, 5, true, 5);
    row("anything", FieldType::Undefined, 5, false, 5);
    row("anything", 13, 5, false, 5);
    row("anything", -1, 5, false, 5);
}

void tst_FieldValues::conversions()
{
    QFETCH(int, type);
    QFETCH(QVariant, value);
    QFETCH(bool, ok);
    QFETCH(QVariant, converted);
    const Library::FieldInfo info(true, true, false, type, QMetaType::UnknownType);
    QCOMPARE(info.convertToFieldType(value), ok);
    if (ok)
        QCOMPARE(value, converted);

    QVariant number = 5;
    QVERIFY(
        Library::FieldInfo(false, true, true, type, QMetaType::QString).convertToFieldType(number));
    QCOMPARE(number, QVariant(u("5")));
    QVariant list = QStringList();
    QVERIFY(
        !Library::FieldInfo(false, true, true, type, QMetaType::QFont).convertToFieldType(list));
}

void tst_FieldValues::mapsAreComparable()
{
    QCOMPARE(QMetaType::typeName(qMetaTypeId<StringMap>()), "QMap<int,QString>");
    const auto map = [](const char *text) { return QVariant::fromValue(StringMap{{1, u(text)}}); };
    QVERIFY(map("a") == map("a"));
    QVERIFY(map("a") != map("b"));
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

void tst_FieldValues::checkedFonts_data()
{
    QTest::addColumn<bool>("isOk");
    QTest::newRow(R"({"bold":1,"family":"F","size":12,"style":"italic","underline":1})") << true;
    QTest::newRow(R"({"bold":true,"family":"F","size":12,"style":"italic","underline":1})")
        << false;
    QTest::newRow(R"({"bold":1,"family":1,"size":12,"style":"italic","underline":1})") << false;
    QTest::newRow(R"({"bold":1,"family":"F","size":"12","style":"italic","underline":1})") << false;
    QTest::newRow(R"({"bold":1,"family":"F","size":12,"underline":1})") << false;
    QTest::newRow(R"({"bold":1,"family":"F","size":12,"style":"italic","underline":false})")
        << false;
    QTest::newRow("no JSON") << false;
}

void tst_FieldValues::checkedFonts()
{
    QFETCH(bool, isOk);
    bool ok = !isOk;
    const QFont font = Utils::fieldFontFromString(u(QTest::currentDataTag()), &ok);
    QCOMPARE(ok, isOk);
    QCOMPARE(font.italic(), isOk);
    QCOMPARE(font.pointSize() == 12 && font.family() == u("F"), isOk);
    QVERIFY(!font.bold() && !font.underline()); // numbers read as booleans
}

QTEST_MAIN(tst_FieldValues)
#include "tst_fieldvalues.moc"
