#include "data/tagvalue.h"

#include "guardedtest.h"

#include <limits>

using namespace NARV::DEV;
using Library = NARV::INTERNAL::WidgetLibraryPluginMetaInformation;

class tst_TagValue : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void ranges_data();
    void ranges();
    void conversions_data();
    void conversions();
    void refusals_data();
    void refusals();
    void everyTypeReadsItsOwnText();
};

//! The least and the greatest value of each whole number type, and the neighbours beyond.
static const struct
{
    const char *name;
    const char *minimum;
    const char *below;
    const char *maximum;
    const char *above;
    int metaType;
} rangeRows[] = {
    {"byte", "-128", "-129", "127", "128", QMetaType::Int},
    {"short", "-32768", "-32769", "32767", "32768", QMetaType::Int},
    {"int", "-2147483648", "-2147483649", "2147483647", "2147483648", QMetaType::Int},
    {"ubyte", "0", "-1", "255", "256", QMetaType::Int},
    {"ushort", "0", "-1", "65535", "65536", QMetaType::Int},
    {"uint", "0", "-1", "4294967295", "4294967296", QMetaType::UInt},
    {"uint64", "0", "-1", "18446744073709551615", "18446744073709551616", QMetaType::ULongLong},
    {"int64", "-9223372036854775808", "-9223372036854775809", "9223372036854775807",
     "9223372036854775808", QMetaType::LongLong},
};

void tst_TagValue::ranges_data()
{
    addRows(rangeRows);
}

void tst_TagValue::ranges()
{
    const auto &row = currentRow(rangeRows);
    const TagType type = Library::tagTypeFromString(u(row.name));
    const TagType array = Library::tagTypeFromString(u("array") + u(row.name));
    for (const char *good : {row.minimum, row.maximum}) {
        QVariant value = u(good);
        QCOMPARE(toTagValue(type, value), QString());
        QCOMPARE(value.userType(), row.metaType);
        QCOMPARE(value.toString(), u(good));
    }
    for (const char *bad : {row.below, row.above}) {
        QVariant value = u(bad);
        QVERIFY(toTagValue(type, value).startsWith(u(bad)));
        QCOMPARE(value, QVariant(u(bad)));
        QVariant list = QVariantList{0, u(bad)};
        QVERIFY(toTagValue(array, list).startsWith(u("[1]: ") + u(bad)));
    }
}

static const struct
{
    const char *name;
    const char *type;
    QVariant from;
    QVariant to;
} conversionRows[] = {
    {"true as text", "bool", QStringLiteral(" True"), true},
    {"number as bool", "bool", 0.5, true},
    {"zero as bool", "bool", QStringLiteral("0"), false},
    {"fraction to whole", "int", 2.5, 3},
    {"negative fraction to whole", "short", -2.5, -3},
    {"fraction in a text", "ubyte", QStringLiteral("254.7"), 255},
    {"bool to whole", "uint", true, 1u},
    {"2^53 + 1 exactly", "int64", QStringLiteral("9007199254740993"), 9007199254740993LL},
    {"real to 64 bits", "uint64", 9.3e18, 9300000000000000000ULL},
    {"float", "float", 0.25, 0.25f},
    {"infinite float", "float", std::numeric_limits<double>::infinity(),
     std::numeric_limits<float>::infinity()},
    {"double from text", "double", QStringLiteral("-1e300"), -1e300},
    {"text from a number", "string", 0.1, QStringLiteral("0.1")},
    {"array from a text", "arrayint", QStringLiteral("1, 2 ,3"), QVariantList{1, 2, 3}},
    {"array from one value", "arraydouble", 4, QVariantList{4.0}},
    {"empty array", "arrayfloat", QStringLiteral(" "), QVariantList{}},
    {"array of bool", "arraybool", QVariantList{1, QStringLiteral("false")},
     QVariantList{true, false}},
};

void tst_TagValue::conversions_data()
{
    addRows(conversionRows);
}

void tst_TagValue::conversions()
{
    const auto &row = currentRow(conversionRows);
    QVariant value = row.from;
    QCOMPARE(toTagValue(Library::tagTypeFromString(u(row.type)), value), QString());
    QCOMPARE(value, row.to);
    QCOMPARE(value.userType(), row.to.userType());
}

static const struct
{
    const char *name;
    const char *type;
    QVariant value;
} refusalRows[] = {
    {"text for a bool", "bool", QStringLiteral("yes please")},
    {"NaN for a bool", "bool", std::numeric_limits<double>::quiet_NaN()},
    {"text for a whole", "int", QStringLiteral("12 apples")},
    {"empty text for a whole", "int", QStringLiteral("")},
    {"NaN for a whole", "int64", std::numeric_limits<double>::quiet_NaN()},
    {"infinity for a whole", "uint64", std::numeric_limits<double>::infinity()},
    {"too large for a float", "float", 1e39},
    {"text for a double", "double", QStringLiteral("1,5")},
    {"list for a number", "double", QVariantList{1}},
    {"list for a text", "string", QVariantList{1}},
    {"hole in an array", "arrayint", QStringLiteral("1,,3")},
    {"list in an array", "arrayint", QVariantList{QVariant(QVariantList{1})}},
    {"endless array", "arraybool", QString(QStringLiteral("1,")).repeated(5000)},
    {"no type", "nonsense", 1},
};

void tst_TagValue::refusals_data()
{
    addRows(refusalRows);
}

void tst_TagValue::refusals()
{
    const auto &row = currentRow(refusalRows);
    QVariant value = row.value;
    QVERIFY(!toTagValue(Library::tagTypeFromString(u(row.type)), value).isEmpty());
    QCOMPARE(value.userType(), row.value.userType());
}

void tst_TagValue::everyTypeReadsItsOwnText()
{
    QCOMPARE(tagTypes().size(), 23);
    for (const TagType type : tagTypes()) {
        QVariant value = isArrayType(type) ? QVariant(QVariantList{1, 0}) : QVariant(1);
        QCOMPARE(toTagValue(type, value), QString());
        QVariant again = tagValueText(value);
        QCOMPARE(toTagValue(type, again), QString());
        QCOMPARE(again, value);
        QVariant none;
        QCOMPARE(toTagValue(type, none), QString());
        QVERIFY(!none.isValid());
    }
}

QTEST_GUILESS_MAIN(tst_TagValue)
#include "tst_tagvalue.moc"
