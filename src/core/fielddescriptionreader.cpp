#include "core/fielddescriptionreader_p.h"

#include "core/jsonnumbers_p.h"
#include "core/metadataerrors_p.h"
#include "core/requirements_p.h"
#include "core/widgetlibrarypluginutils.h"

#include <QColor>

#include <iterator>

namespace NARV::INTERNAL {

using Key = MetaDataKey;
using Library = WidgetLibraryPluginMetaInformation;

template<typename Number>
static Number number(JsonValue value);

template<>
int number<int>(JsonValue value)
{
    return toInt(value.toDouble());
}

template<>
double number<double>(JsonValue value)
{
    return value.toDouble();
}

FieldDescriptionReader::FieldDescriptionReader(const JsonObject &object, const JsonPath &path,
                                               DescriptionContext &context)
    : m_in(object, path, context)
    , m_data(new FieldMetaInformationData)
    , m_field(*m_data)
{
}

const FieldDescriptionReader::TypeRules &FieldDescriptionReader::typeRules(FieldType type)
{
    using R = FieldDescriptionReader;
    // In the order of the field types.
    static constexpr TypeRules rules[] = {
        {nullptr, nullptr}, // Undefined
        {&R::readDefaultString, &R::infoFromMetaDataParseStringFieldCommon},
        {&R::readDefaultStringList, &R::infoFromMetaDataParseStringFieldCommon},
        {&R::readDefaultStringMap, &R::infoFromMetaDataParseStringFieldCommon},
        {&R::readDefaultInteger, &R::readBounds<int>},
        {&R::readDefaultDouble, &R::readBounds<double>},
        {&R::readDefaultBool, nullptr},
        {&R::readDefaultInteger, &R::readOptions}, // Option
        {&R::readDefaultColor, nullptr},
        {&R::readDefaultFont, nullptr},
        {nullptr, nullptr}, // Image
        {nullptr, &R::readTagRules},
        {nullptr, nullptr}, // Trend
    };
    static_assert(std::size(rules) == FieldType::Trend + 1);
    return rules[type];
}

Library::FieldMetaInformation FieldDescriptionReader::infoFromMetaDataParseField()
{
    readId();
    readType();
    m_in.requiredText(Key::Display, MetaDataError::FieldDisplayMissing,
                      MetaDataError::FieldDisplayInvalid, m_field.display, ObjectReader::AsWritten);
    m_in.text(Key::Description, MetaDataError::FieldDescriptionInvalid, m_field.description,
              ObjectReader::AsWritten);
    readTagCanBeAttached();
    infoFromMetaDataParseStringFieldIsMultiLanguage();
    readDefaultValue();
    m_in.flag(Key::ReadOnly, MetaDataError::FieldReadOnlyInvalid, m_field.readOnly);
    m_in.text(Key::Group, MetaDataError::FieldGroupInvalid, m_field.group, ObjectReader::AsWritten);
    m_in.flag(Key::Private, MetaDataError::FieldPrivateInvalid, m_field.isPrivate);
    readRequirements();
    readRest();

    m_field.isValid = true;
    return FieldMetaInformation(std::move(m_data));
}

void FieldDescriptionReader::readId()
{
    m_in.required(Key::Id, MetaDataError::FieldIdMissing, MetaDataError::FieldIdInvalid,
                  [&](JsonValue value) {
                      m_field.id = value.toString();
                      return isIdentifier(m_field.id);
                  });
}

void FieldDescriptionReader::readType()
{
    m_in.required(Key::Type, MetaDataError::FieldTypeMissing, MetaDataError::FieldTypeInvalid,
                  [&](JsonValue value) {
                      m_field.type = Library::fieldTypeFromString(value.toString());
                      return m_field.type != FieldType::Undefined;
                  });
}

QString FieldDescriptionReader::refusal(const char *text) const
{
    return QStringLiteral("An error occurred reading field '%1': you can not specify %2")
        .arg(m_field.id, QLatin1String(text));
}

// A tag field always takes a tag, a trend field never does.
void FieldDescriptionReader::readTagCanBeAttached()
{
    if (m_field.type == FieldType::Trend && m_in.contains(Key::TagCanBeAttached)) {
        m_in.fail(MetaDataError::FieldTagCanBeAttachedInvalid, Key::TagCanBeAttached,
                  refusal("tagCanBeAttached for trend field"));
        return;
    }
    m_field.tagCanBeAttached = m_field.type == FieldType::Tag;
    const bool isGiven =
        m_in.flag(Key::TagCanBeAttached, MetaDataError::FieldTagCanBeAttachedInvalid,
                  m_field.tagCanBeAttached);
    if (isGiven && m_field.type == FieldType::Tag && !m_field.tagCanBeAttached)
        m_in.fail(MetaDataError::FieldTagCanBeAttachedInvalid, Key::TagCanBeAttached,
                  refusal("tagCanBeAttached as 'false' for tag field"));
}

bool FieldDescriptionReader::isText() const
{
    return m_field.type == FieldType::String || m_field.type == FieldType::StringList ||
           m_field.type == FieldType::StringMap;
}

void FieldDescriptionReader::infoFromMetaDataParseStringFieldIsMultiLanguage()
{
    if (!isText() || !m_in.contains(Key::MultiLanguage))
        return;
    m_hasDefaultValueRules = m_in.flag(Key::MultiLanguage, MetaDataError::FieldMultiLanguageInvalid,
                                       m_field.isMultiLanguage);
}

//! The value of a field whose description gives none.
static QVariant neutralValue(Library::FieldType type, bool isMultiLanguage, const QFont &font)
{
    using TranslationStringType = PluginMetaInformation::TranslationStringType;
    switch (type) {
    case Library::FieldType::String:
        return isMultiLanguage ? QVariant::fromValue(TranslationStringType()) : QString();
    case Library::FieldType::StringList:
        return isMultiLanguage ? QVariant::fromValue(QList<TranslationStringType>())
                               : QStringList();
    case Library::FieldType::StringMap:
        return isMultiLanguage ? QVariant::fromValue(QMap<int, TranslationStringType>())
                               : QVariant::fromValue(QMap<int, QString>());
    case Library::FieldType::Integer:
    case Library::FieldType::Option:
        return 0;
    case Library::FieldType::Double:
        return 0.0;
    case Library::FieldType::Bool:
        return false;
    case Library::FieldType::Color:
        return QColor(Qt::black);
    case Library::FieldType::Font:
        return font;
    default:
        return {};
    }
}

void FieldDescriptionReader::readDefaultValue()
{
    if (m_field.type == FieldType::Undefined || !m_hasDefaultValueRules)
        return;
    const DefaultValueReader read = typeRules(m_field.type).readDefaultValue;
    const bool isGiven = m_in.optional(
        Key::DefaultValue, MetaDataError::FieldDefaultValueInvalid, [&](JsonValue value) {
            if (read) {
                m_defaultValueIsReported = !(this->*read)(value);
                return !m_defaultValueIsReported;
            }
            // Of the types that take no default value, two say so.
            if (m_field.type == FieldType::Image)
                return false;
            m_in.fail(MetaDataError::FieldDefaultValueInvalid, Key::DefaultValue,
                      refusal(m_field.type == FieldType::Tag ? "defaultValue for tag field"
                                                             : "defaultValue for trend field"));
            return true;
        });
    if (!isGiven)
        m_field.defaultValue = neutralValue(m_field.type, m_field.isMultiLanguage,
                                            WidgetLibraryPluginUtils::defaultFont());
}

bool FieldDescriptionReader::readText(JsonValue value, QString &out) const
{
    out = value.toString();
    return value.isString();
}

bool FieldDescriptionReader::readText(JsonValue value, TranslationStringType &out) const
{
    return m_in.readText(value, out, ObjectReader::AsWritten);
}

bool FieldDescriptionReader::readDefaultString(JsonValue value)
{
    if (!m_field.isMultiLanguage) {
        m_field.defaultValue = value.toString();
        return value.isString();
    }
    TranslationStringType text;
    const bool ok = readText(value, text);
    m_field.defaultValue = QVariant::fromValue(text);
    return ok;
}

bool FieldDescriptionReader::readDefaultStringList(JsonValue value)
{
    return m_field.isMultiLanguage ? readTextList<TranslationStringType>(value)
                                   : readTextList<QString>(value);
}

bool FieldDescriptionReader::readDefaultStringMap(JsonValue value)
{
    return m_field.isMultiLanguage ? readTextMap<TranslationStringType>(value)
                                   : readTextMap<QString>(value);
}

static QVariant toVariant(const QList<QString> &texts)
{
    return QStringList(texts);
}

template<typename Texts>
static QVariant toVariant(const Texts &texts)
{
    return QVariant::fromValue(texts);
}

template<typename Text>
bool FieldDescriptionReader::readTextList(JsonValue value)
{
    QList<Text> texts;
    m_in.takeElements(Key::DefaultValue, value.toArray(), MetaDataError::FieldDefaultValueInvalid,
                      [&](JsonValue element, int) {
                          Text text;
                          const bool ok = readText(element, text);
                          texts.append(std::move(text));
                          return ok;
                      });
    m_field.defaultValue = toVariant(texts);
    return value.isArray();
}

template<typename Text>
bool FieldDescriptionReader::readTextMap(JsonValue value)
{
    QMap<int, Text> texts;
    m_in.takeElements(Key::DefaultValue, value.toArray(), MetaDataError::FieldDefaultValueInvalid,
                      [&](JsonValue element, int) {
                          const JsonObject entry = element.toMap();
                          const auto text = entry.constFind(QLatin1String("value"));
                          const QCborValue id = entry.value(QLatin1String("id"));
                          return isNumber(id) && text != entry.constEnd() &&
                                 readText(text.value(), texts[toInt(id.toDouble())]);
                      });
    m_field.defaultValue = QVariant::fromValue(texts);
    return value.isArray();
}

// Of an option field, too: the index of one of its options.
bool FieldDescriptionReader::readDefaultInteger(JsonValue value)
{
    m_field.defaultValue = toInt(value.toDouble());
    return isNumber(value);
}

bool FieldDescriptionReader::readDefaultDouble(JsonValue value)
{
    m_field.defaultValue = value.toDouble();
    return isNumber(value);
}

bool FieldDescriptionReader::readDefaultBool(JsonValue value)
{
    m_field.defaultValue = value.toBool();
    return value.isBool();
}

bool FieldDescriptionReader::readDefaultColor(JsonValue value)
{
    m_field.defaultValue =
        WidgetLibraryPluginUtils::fieldValueFromString(FieldType::Color, value.toString());
    return value.isString();
}

bool FieldDescriptionReader::readDefaultFont(JsonValue value)
{
    QFont font = WidgetLibraryPluginUtils::defaultFont();
    const bool ok = value.isMap() &&
                    WidgetLibraryPluginUtils::infoFromMetaDataParseFontObject(value.toMap(), font);
    m_field.defaultValue = font;
    return ok;
}

void FieldDescriptionReader::readRequirements()
{
    const auto take = [&](JsonValue value) {
        m_field.requirements = value.toString();
        QVector<RequirementsTerm> terms;
        const bool ok = INTERNAL::readRequirements(m_field.requirements, terms);
        for (const RequirementsTerm &term : qAsConst(terms))
            m_requirementsFieldIds.append(term.fieldId.toString());
        return ok;
    };
    m_in.optional(Key::Requirements, MetaDataError::FieldRequirementsInvalid, take);
}

void FieldDescriptionReader::readRest()
{
    if (const auto read = typeRules(m_field.type).readRest)
        (this->*read)();
    if (m_field.type == FieldType::Font || (isText() && m_field.isMultiLanguage))
        readFontLabels();
}

FontInformationData &FieldDescriptionReader::fontInformation()
{
    if (!m_field.font)
        m_field.font = new FontInformationData;
    return *m_field.font;
}

void FieldDescriptionReader::infoFromMetaDataParseStringFieldCommon()
{
    if (!m_field.isMultiLanguage)
        return;
    FontInformationData &font = fontInformation();
    font.defaultFont = WidgetLibraryPluginUtils::defaultFont();
    font.defaultFontSpecified = m_in.optional(
        Key::DefaultFont, MetaDataError::FieldDefaultFontInvalid, [&](JsonValue value) {
            return value.isMap() && WidgetLibraryPluginUtils::infoFromMetaDataParseFontObject(
                                        value.toMap(), font.defaultFont);
        });
}

template<typename Number>
void FieldDescriptionReader::readBounds()
{
    const auto takeNumber = [](QVariant &bound) {
        return [&bound](JsonValue value) {
            bound = number<Number>(value);
            return isNumber(value);
        };
    };
    const bool hasMinimum = m_in.optional(Key::Minimum, MetaDataError::FieldMinimumInvalid,
                                          takeNumber(m_field.minimum));
    const bool hasMaximum = m_in.optional(Key::Maximum, MetaDataError::FieldMaximumInvalid,
                                          takeNumber(m_field.maximum));
    const bool isInOrder = m_field.minimum.value<Number>() <= m_field.maximum.value<Number>();
    if (hasMinimum && hasMaximum && !isInOrder)
        m_in.fail(MetaDataError::FieldMinimumInvalid, Key::Minimum);
}

// The text of an option may be any text.
void FieldDescriptionReader::readOptions()
{
    const auto takeOption = [&](JsonValue value, int) {
        const JsonObject option = value.toMap();
        const QCborValue index = option.value(QLatin1String("index"));
        const QCborValue text = option.value(QLatin1String("option"));
        m_field.options.append({toInt(index.toDouble()), text.toString()});
        return isNumber(index) && text.isString();
    };
    m_in.required(Key::Options, MetaDataError::FieldOptionsInvalid,
                  MetaDataError::FieldOptionsInvalid, [&](JsonValue value) {
                      return !value.toArray().isEmpty() &&
                             m_in.takeElements(Key::Options, value.toArray(),
                                               MetaDataError::FieldOptionsInvalid, takeOption);
                  });
    const int defaultIndex = m_field.defaultValue.toInt();
    const bool isOption = std::any_of(
        m_field.options.cbegin(), m_field.options.cend(),
        [=](const QPair<int, QString> &option) { return option.first == defaultIndex; });
    if (!m_field.options.isEmpty() && !isOption && !m_defaultValueIsReported)
        m_in.fail(MetaDataError::FieldDefaultValueInvalid, Key::DefaultValue);
}

void FieldDescriptionReader::readTagRules()
{
    m_in.elements(Key::TagAcceptedTypes, MetaDataError::FieldTagAcceptedTypesInvalid,
                  [&](JsonValue value, int) {
                      return value.isString() && addAcceptedType(value.toString());
                  });
    m_in.flag(Key::TagOnDemand, MetaDataError::FieldTagOnDemandInvalid, m_field.tagOnDemand);
}

//! Adds the tag type of that name, or all types of the group of that name.
bool FieldDescriptionReader::addAcceptedType(const QString &name)
{
    using T = Library::TagType;
    using Name = QLatin1String;
    struct Group
    {
        Name name;
        QVector<Library::TagType> types;
    };
    static const Group groups[] = {
        {Name("numeric"),
         {T::Byte, T::Short, T::Int, T::UByte, T::UShort, T::UInt, T::UInt64, T::Int64, T::Float,
          T::Double}},
        {Name("signednumeric"), {T::Byte, T::Short, T::Int, T::Int64, T::Float, T::Double}},
        {Name("unsignednumeric"), {T::UByte, T::UShort, T::UInt, T::UInt64}},
        {Name("real"), {T::Float, T::Double}},
        {Name("arraynumeric"),
         {T::ArrayByte, T::ArrayShort, T::ArrayInt, T::ArrayUByte, T::ArrayUShort, T::ArrayUInt,
          T::ArrayUInt64, T::ArrayInt64, T::ArrayFloat, T::ArrayDouble}},
        {Name("arraysignednumeric"),
         {T::ArrayByte, T::ArrayShort, T::ArrayInt, T::ArrayInt64, T::ArrayFloat, T::ArrayDouble}},
        {Name("arrayunsignednumeric"),
         {T::ArrayUByte, T::ArrayUShort, T::ArrayUInt, T::ArrayUInt64}},
        {Name("arrayreal"), {T::ArrayFloat, T::ArrayDouble}},
    };
    if (const Library::TagType type = Library::tagTypeFromString(name)) {
        m_field.tagAcceptedTypes.append(type);
        return true;
    }
    for (const Group &group : groups) {
        if (name != group.name)
            continue;
        m_field.tagAcceptedTypes += group.types;
        return true;
    }
    return false;
}

void FieldDescriptionReader::readFontLabels()
{
    FontInformationData &font = fontInformation();
    const struct
    {
        Key key;
        int missing;
        int invalid;
        TranslationStringType &label;
    } labels[] = {
        {Key::DisplayFontFamily, MetaDataError::FieldDisplayFontFamilyMissing,
         MetaDataError::FieldDisplayFontFamilyInvalid, font.displayFontFamily},
        {Key::DisplayFontSize, MetaDataError::FieldDisplayFontSizeMissing,
         MetaDataError::FieldDisplayFontSizeInvalid, font.displayFontSize},
        {Key::DisplayFontBold, MetaDataError::FieldDisplayFontBoldMissing,
         MetaDataError::FieldDisplayFontBoldInvalid, font.displayFontBold},
        {Key::DisplayFontStyle, MetaDataError::FieldDisplayFontStyleMissing,
         MetaDataError::FieldDisplayFontStyleInvalid, font.displayFontStyle},
        {Key::DisplayFontUnderline, MetaDataError::FieldDisplayFontUnderlineMissing,
         MetaDataError::FieldDisplayFontUnderlineInvalid, font.displayFontUnderline},
    };
    for (const auto &row : labels)
        m_in.requiredText(row.key, row.missing, row.invalid, row.label, ObjectReader::AsWritten);
}

} // namespace NARV::INTERNAL
