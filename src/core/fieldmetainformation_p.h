#pragma once

#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>

#include <QSharedData>

namespace NARV::INTERNAL {

class FieldMetaInformationData : public QSharedData
{
public:
    using Library = WidgetLibraryPluginMetaInformation;
    using TranslationStringType = PluginMetaInformation::TranslationStringType;

    bool isValid = false;
    QString id;
    TranslationStringType display;
    TranslationStringType description;
    Library::FieldType type;
    bool tagCanBeAttached = false;
    QVariant defaultValue;
    bool readOnly = false;
    TranslationStringType group;
    bool isPrivate = false;
    QString requirements;
    QVariant minimum;
    QVariant maximum;
    QFont defaultFont = toolkitFont();
    bool defaultFontSpecified = false;
    bool isMultiLanguage = false;
    QList<QPair<int, QString>> options;
    TranslationStringType displayFontFamily;
    TranslationStringType displayFontSize;
    TranslationStringType displayFontBold;
    TranslationStringType displayFontStyle;
    TranslationStringType displayFontUnderline;
    QVector<Library::TagType> tagAcceptedTypes;
    bool tagOnDemand = false;

private:
    //! Making a font takes a lock of the toolkit's; copying one does not.
    static const QFont &toolkitFont()
    {
        static const QFont font;
        return font;
    }
};

} // namespace NARV::INTERNAL
