#pragma once

#include <NARV/INTERNAL/PluginMetaInformation>

class QCborMap;
class QCborValueRef;

namespace NARV::INTERNAL {

struct DescriptionContext;
class ObjectReader;

//! Reads what all plugins have in common: the "MetaData" object and the translation files.
class ZPPLUGIN_EXPORT PluginUtils
{
public:
    //! Merges the rows of a translation file into list.
    //!
    //! The file is comma-separated text (UTF-8 unless it starts with another byte-order mark): one
    //! header line, then rows of source text in defaultLanguage, comment for translators, and text
    //! in languageCode. A row finds its entry by source text and comment; one that finds none is
    //! added when addMissing is set and ignored otherwise. False, and list is as it was, when the
    //! file cannot be opened, a row has not exactly three fields, or a row contradicts a
    //! translation already there.
    static bool importTranslationFile(const QString &filePath,
                                      QList<PluginMetaInformation::TranslationStringType> &list,
                                      const QString &defaultLanguage, const QString &languageCode,
                                      bool addMissing);

private:
    friend class ObjectReader;
    friend class WidgetLibraryPluginUtils;

    static int metaInformationFromMetaData(const QCborMap &json, PluginMetaInformation &info,
                                           QCborMap &metaData, DescriptionContext &context);
    static bool
    infoFromMetaDataParseTranslatableString(QCborValueRef value, DescriptionContext &context,
                                            PluginMetaInformation::TranslationStringType &result,
                                            bool trim, bool mustNotBeEmpty);
    static QStringList readTranslation(ObjectReader &in);
    static void importTranslations(ObjectReader &in, const QString &id, const QStringList &codes,
                                   TranslationTable &translations);
    static bool isValidLanguageCode(const QString &code);
    static const char *errorToString(int code);
};

} // namespace NARV::INTERNAL
