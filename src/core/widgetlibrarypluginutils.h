#pragma once

#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>

#include <QJsonObject>

class QCborMap;
class QCborValueRef;
class QXmlStreamWriter;

namespace NARV::INTERNAL {

class MetaDataFaults;
struct DescriptionContext;
struct JsonPath;

//! Reads widget libraries' descriptions, writes and reads the text form of field values, and
//! writes the documents from which the editor shows a library.
//!
//! The conversions share no state and may be called from any thread.
class ZPPLUGIN_EXPORT WidgetLibraryPluginUtils
{
public:
    using FieldMetaInformation = WidgetLibraryPluginMetaInformation::FieldMetaInformation;
    using WidgetMetaInformation = WidgetLibraryPluginMetaInformation::WidgetMetaInformation;

    //! The galleries in which the editor offers widgets.
    enum class GalleryType : int
    {
        Page = 0,   //!< widgets for pages
        Project = 1 //!< widgets for the project as a whole
    };

    //! Reads the whole metadata object of a plugin's library file (the one that holds "MetaData")
    //! into info. Returns 0, or the code of the first error, which errorToString() puts into
    //! words; info then holds no widgets.
    static int metaInformationFromMetaData(const QJsonObject &metaData,
                                           WidgetLibraryPluginMetaInformation &info);
    //! The English text of a code of metaInformationFromMetaData(); never null.
    static const char *errorToString(int code);

    //! The value that a text stands for, typed as FieldType tells. An unreadable text gives the
    //! type's neutral value (0, false, an empty list, an invalid colour); a field type without
    //! values gives an invalid QVariant.
    static QVariant fieldValueFromString(int fieldType, const QString &text);
    //! The text form of a value, which fieldValueFromString() reads back. Lists, maps, fonts and
    //! images are compact JSON; a double has six significant digits; a colour loses its alpha.
    static QString fieldValueToString(int fieldType, const QVariant &value);
    //! Clamps an integer or double to the bounds of the widget's field, and converts it to int or
    //! double. Other types, unknown fields and an invalid widget leave the value as it is.
    static QVariant fieldValueCheckBeforeSet(int fieldType, const QVariant &value,
                                             const QString &fieldId,
                                             const WidgetMetaInformation &widget);

    //! A font as compact JSON with the members "bold", "family", "size", "style", "underline".
    static QString fieldFontToString(const QFont &font);
    //! Reads a font. Without ok every member is optional. With ok all five must be there, "bold"
    //! and "underline" as numbers, else *ok becomes false and the toolkit's default font is
    //! returned.
    static QFont fieldFontFromString(const QString &text, bool *ok = nullptr);

    //! Writes the definitions of all widgets' properties into the root element that is open.
    //! Returns 0, or 10029 at a field of unknown type; what was opened is then left open.
    //!
    //! As in all documents, texts are in languageCode or in the language that they fall back on,
    //! and the writer tells whether the device took all of it.
    static int studioPropertiesFromMetaInformation(const WidgetLibraryPluginMetaInformation &meta,
                                                   QXmlStreamWriter &writer,
                                                   const QString &languageCode);
    //! Writes the document that tells the editor of the library's gallery pages. In the patterns
    //! of their file names "%1" stands for the number of the page, from 0. Returns 0.
    static int studioDefaultsFromMetaInformation(const WidgetLibraryPluginMetaInformation &meta,
                                                 QXmlStreamWriter &writer,
                                                 const QString &languageCode,
                                                 const QString &galleryFileNamePattern,
                                                 const QString &projectGalleryFileNamePattern);
    //! Writes a gallery page: an instance of each widget, in its latest version, of the group that
    //! is shown in that gallery. An empty group name stands for the default group. Returns 0.
    static int
    studioGalleryFromMetaInformation(const WidgetLibraryPluginMetaInformation &meta,
                                     QXmlStreamWriter &writer, const QString &languageCode,
                                     const PluginMetaInformation::TranslationStringType &groupName,
                                     GalleryType galleryType);

private:
    friend class FieldDescriptionReader;
    friend class MetaDataChecker;

    static int metaInformationFromMetaData(const QJsonObject &metaData,
                                           WidgetLibraryPluginMetaInformation &info,
                                           MetaDataFaults &faults);
    static int infoFromMetaDataParseWidget(QCborValueRef value, WidgetMetaInformation &widget,
                                           const JsonPath &path, DescriptionContext &context);
    static QFont defaultFont();
    static bool fontFamilyIsValid(const QString &family);
    static bool infoFromMetaDataParseFontObject(const QCborMap &object, QFont &font);
    static bool convertStringTo(const QString &text, QSizeF &size);
};

} // namespace NARV::INTERNAL
