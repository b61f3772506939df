#include "core/fieldmetainformation_p.h"

namespace NARV::INTERNAL {

using Library = WidgetLibraryPluginMetaInformation;
using TranslationStringType = PluginMetaInformation::TranslationStringType;
using FieldMetaInformation = Library::FieldMetaInformation;

static const QSharedDataPointer<FieldMetaInformationData> &invalidData()
{
    static const QSharedDataPointer<FieldMetaInformationData> data(new FieldMetaInformationData);
    return data;
}

static const FontInformationData &fontOf(const FieldMetaInformationData &field)
{
    static const FontInformationData none;
    return field.font ? *field.font : none;
}

FieldMetaInformation::FieldMetaInformation()
    : d(invalidData())
{
}

FieldMetaInformation::FieldMetaInformation(const QString &id, const TranslationStringType &display,
                                           const TranslationStringType &description, FieldType type,
                                           bool tagCanBeAttached, const QVariant &defaultValue,
                                           bool readOnly, const TranslationStringType &group,
                                           bool isPrivate, const QString &requirements,
                                           bool isMultiLanguage)
    : d(new FieldMetaInformationData)
{
    d->isValid = true;
    d->id = id;
    d->display = display;
    d->description = description;
    d->type = type;
    d->tagCanBeAttached = tagCanBeAttached;
    d->defaultValue = defaultValue;
    d->readOnly = readOnly;
    d->group = group;
    d->isPrivate = isPrivate;
    d->requirements = requirements;
    d->isMultiLanguage = isMultiLanguage;
}

FieldMetaInformation::FieldMetaInformation(QSharedDataPointer<FieldMetaInformationData> &&data)
    : d(std::move(data))
{
}

FieldMetaInformation::FieldMetaInformation(const FieldMetaInformation &other) = default;
FieldMetaInformation::FieldMetaInformation(FieldMetaInformation &&other) noexcept = default;
FieldMetaInformation &FieldMetaInformation::operator=(const FieldMetaInformation &other) = default;
FieldMetaInformation &
FieldMetaInformation::operator=(FieldMetaInformation &&other) noexcept = default;
FieldMetaInformation::~FieldMetaInformation() = default;

bool FieldMetaInformation::isValid() const
{
    return d->isValid;
}

const QString &FieldMetaInformation::id() const
{
    return d->id;
}

const TranslationStringType &FieldMetaInformation::display() const
{
    return d->display;
}

const TranslationStringType &FieldMetaInformation::description() const
{
    return d->description;
}

Library::FieldType FieldMetaInformation::type() const
{
    return d->type;
}

bool FieldMetaInformation::tagCanBeAttached() const
{
    return d->tagCanBeAttached;
}

const QVariant &FieldMetaInformation::defaultValue() const
{
    return d->defaultValue;
}

bool FieldMetaInformation::readOnly() const
{
    return d->readOnly;
}

const TranslationStringType &FieldMetaInformation::group() const
{
    return d->group;
}

bool FieldMetaInformation::isPrivate() const
{
    return d->isPrivate;
}

const QString &FieldMetaInformation::requirements() const
{
    return d->requirements;
}

const QVariant &FieldMetaInformation::minimum() const
{
    return d->minimum;
}

const QVariant &FieldMetaInformation::maximum() const
{
    return d->maximum;
}

const QFont &FieldMetaInformation::defaultFont() const
{
    return fontOf(*d).defaultFont;
}

bool FieldMetaInformation::defaultFontSpecified() const
{
    return fontOf(*d).defaultFontSpecified;
}

bool FieldMetaInformation::isMultiLanguage() const
{
    return d->isMultiLanguage;
}

const QList<QPair<int, QString>> &FieldMetaInformation::options() const
{
    return d->options;
}

const TranslationStringType &FieldMetaInformation::displayFontFamily() const
{
    return fontOf(*d).displayFontFamily;
}

const TranslationStringType &FieldMetaInformation::displayFontSize() const
{
    return fontOf(*d).displayFontSize;
}

const TranslationStringType &FieldMetaInformation::displayFontBold() const
{
    return fontOf(*d).displayFontBold;
}

const TranslationStringType &FieldMetaInformation::displayFontStyle() const
{
    return fontOf(*d).displayFontStyle;
}

const TranslationStringType &FieldMetaInformation::displayFontUnderline() const
{
    return fontOf(*d).displayFontUnderline;
}

const QVector<Library::TagType> &FieldMetaInformation::tagAcceptedTypes() const
{
    return d->tagAcceptedTypes;
}

bool FieldMetaInformation::tagOnDemand() const
{
    return d->tagOnDemand;
}

bool FieldMetaInformation::isMultiLanguageText() const
{
    const bool isText = d->type == FieldType::String || d->type == FieldType::StringList ||
                        d->type == FieldType::StringMap;
    return isText && d->isMultiLanguage;
}

QList<TranslationStringType> FieldMetaInformation::defaultTexts() const
{
    if (!d->isMultiLanguage)
        return {};
    switch (d->type) {
    case FieldType::String:
        return {d->defaultValue.value<TranslationStringType>()};
    case FieldType::StringList:
        return d->defaultValue.value<QList<TranslationStringType>>();
    case FieldType::StringMap:
        return d->defaultValue.value<QMap<int, TranslationStringType>>().values();
    default:
        return {};
    }
}

bool FieldMetaInformation::hasFontLabels() const
{
    return d->type == FieldType::Font || isMultiLanguageText();
}

} // namespace NARV::INTERNAL
