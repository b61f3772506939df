#include "metadata/metadatahints.h"

#include "core/metadataerrors_p.h"

namespace ZPPluginTool {

namespace E = NARV::INTERNAL::MetaDataError;

static const char boolean[] = "true or false is needed";
static const char text[] = "a string is needed, or an array of two strings: text and comment";
static const char filledText[] =
    "a string that is not empty is needed, or an array of two: text and comment";
static const char language[] = "a language code such as \"en-US\" is needed";
static const char identifier[] = "a string of letters, digits and underscores is needed";
static const char version[] = "a string of three numbers such as \"1.0.0\" is needed";
static const char font[] =
    "an object is needed: family (Roboto, Roboto Black, Light, Medium or Thin), size (above 0), "
    "bold, underline (true or false), style (\"italic\" or left out)";

static const struct
{
    int code;
    const char *hint;
} hints[] = {
    {E::NameInvalid, text},
    {E::IdInvalid, "a UUID without braces is needed"},
    {E::AuthorInvalid, "a string is needed"},
    {E::VersionInvalid, version},
    {E::CopyrightInvalid, text},
    {E::DescriptionInvalid, text},
    {E::LicenseInvalid, text},
    {E::DefaultLanguageInvalid, language},
    {E::TranslationInvalid, "an array of language codes such as \"it-IT\" is needed"},
    {E::WidgetsInvalid, "an array of objects is needed"},
    {E::WidgetIdInvalid, identifier},
    {E::WidgetDisplayInvalid, filledText},
    {E::WidgetDescriptionInvalid, text},
    {E::WidgetVersionInvalid, version},
    {E::WidgetDefaultSizeInvalid, "a string WIDTHxHEIGHT such as \"200x100\" is needed"},
    {E::WidgetGalleryGroupNameInvalid, filledText},
    {E::WidgetShowInPageGalleryInvalid, boolean},
    {E::WidgetShowInProjectGalleryInvalid, boolean},
    {E::WidgetReceiveAlarmsEventsInvalid, boolean},
    {E::FieldsInvalid, "an array of objects is needed, each with an id of its own"},
    {E::FieldIdInvalid, identifier},
    {E::FieldDisplayInvalid, text},
    {E::FieldDisplayFontFamilyInvalid, text},
    {E::FieldDisplayFontSizeInvalid, text},
    {E::FieldDisplayFontBoldInvalid, text},
    {E::FieldDisplayFontStyleInvalid, text},
    {E::FieldDisplayFontUnderlineInvalid, text},
    {E::FieldDescriptionInvalid, text},
    {E::FieldTypeInvalid,
     "one of string, stringList, stringMap, integer, double, bool, option, color, font, image, "
     "tag and trend is needed"},
    {E::FieldTagCanBeAttachedInvalid,
     "true or false is needed; a tag field takes only true, a trend field neither"},
    {E::FieldDefaultValueInvalid,
     "a value of the field's type is needed, for an option field one of its indices; image, tag "
     "and trend fields take none"},
    {E::FieldReadOnlyInvalid, boolean},
    {E::FieldGroupInvalid, text},
    {E::FieldMinimumInvalid, "a number that is not above the maximum is needed"},
    {E::FieldMaximumInvalid, "a number is needed"},
    {E::FieldOptionsInvalid,
     "an array of objects is needed, each with a number \"index\" and a string \"option\""},
    {E::FieldPrivateInvalid, boolean},
    {E::FieldRequirementsInvalid,
     "terms joined by && or || are needed; a term is the id of an integer, double, bool or option "
     "field of this widget, alone or with ==, < or > and a constant"},
    {E::FieldDefaultFontInvalid, font},
    {E::FieldMultiLanguageInvalid, boolean},
    {E::FieldTagAcceptedTypesInvalid,
     "an array of tag types such as \"int\", or of groups such as \"numeric\", is needed"},
    {E::FieldTagOnDemandInvalid, boolean},
};

QString hintForMetaDataError(int code)
{
    for (const auto &entry : hints) {
        if (entry.code == code)
            return QString::fromLatin1(entry.hint);
    }
    return {};
}

} // namespace ZPPluginTool
