// The text form of field values. The first byte chooses the field type, its highest bit UTF-16.

#include "fuzztarget.h"

#include <NARV/INTERNAL/WidgetLibraryPluginUtils>

#include <QColor>

using NARV::INTERNAL::WidgetLibraryPluginMetaInformation;
using NARV::INTERNAL::WidgetLibraryPluginUtils;
using FieldType = WidgetLibraryPluginMetaInformation::FieldType;
using StringMap = QMap<int, QString>;

//! What is written reads back as the same value, or, where the text loses digits, the alpha or a
//! font's weight, at least as one that is written the same.
static void checkRoundTrip(int type, const QVariant &value)
{
    const QString text = WidgetLibraryPluginUtils::fieldValueToString(type, value);
    const QVariant again = WidgetLibraryPluginUtils::fieldValueFromString(type, text);
    FUZZ_REQUIRE(WidgetLibraryPluginUtils::fieldValueToString(type, again) == text);
    const bool losesDetail = type == FieldType::Double || type == FieldType::Color ||
                             type == FieldType::Font || type == FieldType::Image;
    FUZZ_REQUIRE(losesDetail || again == value);
}

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const int type = data[0] & 0x7f;
    const QString text = fuzzText(fuzzBytes(data + 1, size - 1), data[0] & 0x80);

    static const QMap<int, int> valueTypes{{FieldType::String, QMetaType::QString},
                                           {FieldType::Option, QMetaType::Int},
                                           {FieldType::StringList, QMetaType::QStringList},
                                           {FieldType::Double, QMetaType::Double},
                                           {FieldType::StringMap, qMetaTypeId<StringMap>()},
                                           {FieldType::Bool, QMetaType::Bool},
                                           {FieldType::Integer, QMetaType::Int},
                                           {FieldType::Color, QMetaType::QColor},
                                           {FieldType::Font, QMetaType::QFont}};
    QVariant value = WidgetLibraryPluginUtils::fieldValueFromString(type, text);
    checkRoundTrip(type, value);
    if (type != FieldType::Image) {
        FUZZ_REQUIRE(value.userType() == valueTypes.value(type, QMetaType::UnknownType));
        const WidgetLibraryPluginMetaInformation::FieldInfo info(true, true, false, type,
                                                                 QMetaType::UnknownType);
        const bool isKnown = type > FieldType::Undefined && type <= FieldType::Trend;
        FUZZ_REQUIRE(info.convertToFieldType(value) == isKnown);
    }
    checkRoundTrip(FieldType::String, text);
    checkRoundTrip(FieldType::StringList, QStringList{text, QString()});
    checkRoundTrip(FieldType::StringMap, QVariant::fromValue(StringMap{{type - 64, text}}));
    checkRoundTrip(FieldType::Image, text);
    return 0;
}
