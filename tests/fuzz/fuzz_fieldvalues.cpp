// The text form of field values. The first byte chooses the field type, its highest bit UTF-16.

#include "fuzztarget.h"

#include <NARV/INTERNAL/WidgetLibraryPluginUtils>

#include <QColor>

using NARV::INTERNAL::WidgetLibraryPluginMetaInformation;
using NARV::INTERNAL::WidgetLibraryPluginUtils;
using FieldInfo = WidgetLibraryPluginMetaInformation::FieldInfo;
using FieldType = WidgetLibraryPluginMetaInformation::FieldType;
using StringMap = QMap<int, QString>;

static QString toText(int type, const QVariant &value)
{
    return WidgetLibraryPluginUtils::fieldValueToString(type, value);
}

static QVariant fromText(int type, const QString &text)
{
    return WidgetLibraryPluginUtils::fieldValueFromString(type, text);
}

//! The type of the values of a field; UnknownType where there are none, or of any type.
static int valueType(int type)
{
    switch (type) {
    case FieldType::String:
        return QMetaType::QString;
    case FieldType::StringList:
        return QMetaType::QStringList;
    case FieldType::StringMap:
        return qMetaTypeId<StringMap>();
    case FieldType::Integer:
    case FieldType::Option:
        return QMetaType::Int;
    case FieldType::Double:
        return QMetaType::Double;
    case FieldType::Bool:
        return QMetaType::Bool;
    case FieldType::Color:
        return QMetaType::QColor;
    case FieldType::Font:
        return QMetaType::QFont;
    default:
        return QMetaType::UnknownType;
    }
}

//! Types whose text form says all of a value. Others lose digits, the alpha or a font's weight.
static bool isWrittenInFull(int type)
{
    return type == FieldType::String || type == FieldType::StringList ||
           type == FieldType::StringMap || type == FieldType::Integer ||
           type == FieldType::Option || type == FieldType::Bool;
}

//! What is written reads back as the same value, or at least as one that is written the same.
static void checkRoundTrip(int type, const QVariant &value)
{
    const QString text = toText(type, value);
    const QVariant again = fromText(type, text);
    FUZZ_REQUIRE(toText(type, again) == text);
    FUZZ_REQUIRE(!isWrittenInFull(type) || again == value);
}

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const int type = data[0] & 0x7f;
    const QString text = fuzzText(fuzzBytes(data + 1, size - 1), data[0] & 0x80);

    QVariant value = fromText(type, text);
    const bool isOfType = value.userType() == valueType(type);
    FUZZ_REQUIRE(isOfType || type == FieldType::Image);
    checkRoundTrip(type, value);
    const FieldInfo info(true, true, false, type, QMetaType::UnknownType);
    const bool isKnown = type > FieldType::Undefined && type <= FieldType::Trend;
    if (type != FieldType::Image)
        FUZZ_REQUIRE(info.convertToFieldType(value) == isKnown);

    checkRoundTrip(FieldType::String, text);
    checkRoundTrip(FieldType::StringList, QStringList{text, QString()});
    checkRoundTrip(FieldType::StringMap, QVariant::fromValue(StringMap{{type - 64, text}}));
    checkRoundTrip(FieldType::Image, text);
    return 0;
}
