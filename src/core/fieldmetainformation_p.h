#pragma once

#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>

#include <QSharedData>

namespace NARV::INTERNAL {

//! What only fonts and texts in several languages have.
class FontInformationData : public QSharedData
{
public:
    using TranslationStringType = PluginMetaInformation::TranslationStringType;

    QFont defaultFont;
    bool defaultFontSpecified = false;
    TranslationStringType displayFontFamily;
    TranslationStringType displayFontSize;
    TranslationStringType displayFontBold;
    TranslationStringType displayFontStyle;
    TranslationStringType displayFontUnderline;
};

class FieldMetaInformationData : public QSharedData
{
public:
    using Library = WidgetLibraryPluginMetaInformation;
    using TranslationStringType = PluginMetaInformation::TranslationStringType;

    bool isValid = false;
    bool tagCanBeAttached = false;
    bool readOnly = false;
    bool isPrivate = false;
    bool isMultiLanguage = false;
    bool tagOnDemand = false;
    Library::FieldType type;
    QString id;
    TranslationStringType display;
    TranslationStringType description;
    TranslationStringType group;
    QVariant defaultValue;
    QString requirements;
    QVariant minimum;
    QVariant maximum;
    QList<QPair<int, QString>> options;
    QVector<Library::TagType> tagAcceptedTypes;
    QSharedDataPointer<FontInformationData> font; //!< null for most fields
};

} // namespace NARV::INTERNAL
