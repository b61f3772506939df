#include "core/widgetlibrarypluginmetainformation.h"

#include <iterator>
#include <tuple>

namespace NARV::INTERNAL {

using Library = WidgetLibraryPluginMetaInformation;

// The types that values of a field are converted to; UnknownType for those with a rule of their
// own. In the order of the field types.
static constexpr QMetaType::Type valueTypes[] = {
    QMetaType::UnknownType, QMetaType::QString, QMetaType::QStringList, QMetaType::UnknownType,
    QMetaType::Int,         QMetaType::Double,  QMetaType::Bool,        QMetaType::Int,
    QMetaType::QColor,      QMetaType::QFont,   QMetaType::UnknownType, QMetaType::UnknownType,
    QMetaType::UnknownType};
static_assert(std::size(valueTypes) == Library::FieldType::Trend + 1);

Library::FieldInfo::FieldInfo(bool setFieldValueIsEnabled, bool getFieldValueIsEnabled,
                              bool isAdditionalInformation, FieldType fieldType,
                              QMetaType::Type metaType)
    : m_setFieldValueIsEnabled(setFieldValueIsEnabled)
    , m_getFieldValueIsEnabled(getFieldValueIsEnabled)
    , m_isAdditionalInformation(isAdditionalInformation)
    , m_fieldType(fieldType)
    , m_metaType(metaType)
{
}

bool Library::FieldInfo::operator==(const FieldInfo &other) const
{
    const auto parts = [](const FieldInfo &info) {
        return std::tie(info.m_setFieldValueIsEnabled, info.m_getFieldValueIsEnabled,
                        info.m_isAdditionalInformation, info.m_fieldType, info.m_metaType);
    };
    return parts(*this) == parts(other);
}

bool Library::FieldInfo::convertToFieldType(QVariant &value) const
{
    if (m_isAdditionalInformation)
        return value.convert(m_metaType);
    switch (m_fieldType) {
    case FieldType::StringMap:
        return value.canConvert<QMap<int, QString>>();
    case FieldType::Image:
        return !value.isValid() || value.convert(QMetaType::QString);
    case FieldType::Tag:
    case FieldType::Trend:
        return true;
    default:
        break;
    }
    const int type = m_fieldType;
    const bool isKnown = type > FieldType::Undefined && type <= FieldType::Trend;
    return isKnown && value.convert(valueTypes[type]);
}

} // namespace NARV::INTERNAL
