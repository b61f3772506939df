#include "core/pluginutils.h"

#include "core/languages_p.h"
#include "core/metadataerrors_p.h"
#include "core/objectreader_p.h"
#include "core/uuidtext_p.h"

#include <QFileInfo>
#include <QSet>

#include <iterator>

namespace NARV::INTERNAL {

using Key = MetaDataKey;

// In the order of the codes.
static constexpr const char *errorTexts[] = {
    "no error",
    "Generig error",
    "MetaData attribute not present",
    "MetaData attribute not valid",
    "MetaData/name attribute not present",
    "MetaData/name attribute not valid",
    "MetaData/id attribute not present",
    "MetaData/id attribute not valid",
    "MetaData/author attribute not present",
    "MetaData/author attribute not valid",
    "MetaData/version attribute not present",
    "MetaData/version attribute not valid",
    "MetaData/copyright attribute not valid",
    "MetaData/description attribute not valid",
    "MetaData/license attribute not valid",
    "MetaData/defaultLanguage attribute is not valid",
    "MetaData/translation attribute is not valid",
    "Errore reading translation files",
};
static_assert(std::size(errorTexts) == MetaDataError::TranslationFileInvalid + 1);

const char *PluginUtils::errorToString(int code)
{
    const bool isKnown = code >= 0 && code < int(std::size(errorTexts));
    return isKnown ? errorTexts[code] : "error code undefined";
}

bool PluginUtils::isValidLanguageCode(const QString &code)
{
    static constexpr char ranges[][2] = {
        {'a', 'z'}, {'a', 'z'}, {'-', '-'}, {'A', 'Z'}, {'A', 'Z'}};
    if (code.size() != int(std::size(ranges)))
        return false;
    for (int i = 0; i < code.size(); ++i) {
        if (code[i] < QLatin1Char(ranges[i][0]) || code[i] > QLatin1Char(ranges[i][1]))
            return false;
    }
    return true;
}

static bool readTextAndComment(JsonValue value, RecentComment &recentComment, QString &text,
                               QString &comment)
{
    if (value.isString()) {
        text = value.toString();
        return true;
    }
    const JsonArray pair = value.toArray();
    if (pair.size() != 2)
        return false;
    const JsonValue first = *pair.constBegin();
    const JsonValue second = *(pair.constBegin() + 1);
    if (!first.isString() || !second.isString())
        return false;
    text = first.toString();
    comment = recentComment.text(second);
    return true;
}

bool PluginUtils::infoFromMetaDataParseTranslatableString(
    JsonValue value, DescriptionContext &context,
    PluginMetaInformation::TranslationStringType &result, bool trim, bool mustNotBeEmpty)
{
    QString text;
    QString comment;
    const bool isRead = readTextAndComment(value, context.recentComment, text, comment);
    if (trim)
        text = std::move(text).trimmed();
    if (!isRead || (mustNotBeEmpty && text.isEmpty())) {
        result.clear();
        return false;
    }
    RecentTexts::Entry *recent = comment.isEmpty() ? context.recentTexts.entry(text) : nullptr;
    if (recent && recent->text == text) {
        result = recent->value;
        return true;
    }
    if (const auto *translated = context.translations.find(text, comment))
        result = *translated;
    else
        result = PluginMetaInformation::TranslationStringType(context.translations.languageCode(),
                                                              text, std::move(comment));
    if (recent)
        *recent = {text, result};
    return true;
}

namespace {

// Each function reads one key. What is malformed ends up in the reader's faults.

QString readId(ObjectReader &in)
{
    QString id;
    const bool isString = in.required(Key::Id, MetaDataError::IdMissing, MetaDataError::IdInvalid,
                                      [&](JsonValue value) {
                                          id = value.toString();
                                          return value.isString();
                                      });
    if (!isString || isPlainUuidText(id))
        return id;
    in.fail(MetaDataError::IdInvalid, Key::Id,
            logText("id", id, "is invalid. Must be a valid UUIDv4"));
    return {};
}

QString readDefaultLanguage(ObjectReader &in, bool (*isValid)(const QString &))
{
    static constexpr Key key = Key::DefaultLanguage;
    QString language = defaultLanguageCode();
    in.optional(key, MetaDataError::DefaultLanguageInvalid, [&](JsonValue value) {
        const QString code = value.toString().trimmed();
        if (isValid(code))
            language = code;
        else if (value.isString())
            in.fail(MetaDataError::DefaultLanguageInvalid, key,
                    logText("defaultLanguage", code, "is an invalid language code"));
        return value.isString();
    });
    return language;
}

QString readString(ObjectReader &in, Key key, int missing, int invalid)
{
    QString text;
    in.required(key, missing, invalid, [&](JsonValue value) {
        text = value.toString();
        return value.isString();
    });
    return text;
}

PluginMetaInformation::VersionType readVersion(ObjectReader &in)
{
    static constexpr Key key = Key::Version;
    PluginMetaInformation::VersionType version;
    in.required(key, MetaDataError::VersionMissing, MetaDataError::VersionInvalid,
                [&](JsonValue value) {
                    version = PluginMetaInformation::VersionType(value.toString());
                    if (value.isString() && !version.isValid())
                        in.fail(MetaDataError::VersionInvalid, key,
                                logText("version", value.toString(), "is invalid"));
                    return value.isString();
                });
    return version;
}

} // namespace

QStringList PluginUtils::readTranslation(ObjectReader &in)
{
    static constexpr Key key = Key::Translation;
    QStringList codes;
    in.elements(key, MetaDataError::TranslationInvalid, [&](JsonValue value, int index) {
        const QString code = value.toString().trimmed();
        if (isValidLanguageCode(code))
            codes.append(code);
        else if (value.isString())
            in.context().faults.add(
                MetaDataError::TranslationInvalid, in.path(key, index),
                logText("translation contains the invalid language code", code));
        return value.isString();
    });
    return codes;
}

// The id is a plain UUID and the code a language code, so neither can lead out of the resources.
void PluginUtils::importTranslations(ObjectReader &in, const QString &id, const QStringList &codes,
                                     TranslationTable &translations)
{
    QSet<QString> imported; // a second time changes nothing
    for (int i = 0; i < codes.size() && !in.stopped() && !id.isEmpty(); ++i) {
        if (imported.contains(codes.at(i)))
            continue;
        imported.insert(codes.at(i));
        const QString path =
            QStringLiteral(":/%1/resources/translation/%2.csv").arg(id, codes.at(i));
        if (!QFileInfo::exists(path) || translations.importFile(path, codes.at(i), true))
            continue;
        in.context().faults.add(MetaDataError::TranslationFileInvalid, in.path(Key::Translation, i),
                                logText("Error reading the translation file", path));
    }
}

int PluginUtils::metaInformationFromMetaData(const JsonObject &json, PluginMetaInformation &info,
                                             JsonObject &metaData, DescriptionContext &context)
{
    info.clear();
    MetaDataFaults &faults = context.faults;
    const JsonPath path{nullptr, Key::MetaData};
    const QCborValue value = json.value(keyName(path.key).toString());
    if (!value.isMap()) {
        faults.add(value.isUndefined() ? MetaDataError::MetaDataMissing
                                       : MetaDataError::MetaDataInvalid,
                   path);
        return faults.code();
    }
    metaData = value.toMap();

    ObjectReader in(metaData, path, context);
    const QString id = readId(in);
    faults.setPluginId(id);
    const QStringList languages = readTranslation(in);
    const QString defaultLanguage = readDefaultLanguage(in, isValidLanguageCode);
    context.translations = TranslationTable(defaultLanguage);
    importTranslations(in, id, languages, context.translations);

    PluginMetaInformation::TranslationStringType name;
    PluginMetaInformation::TranslationStringType copyright;
    PluginMetaInformation::TranslationStringType description;
    PluginMetaInformation::TranslationStringType license;
    in.requiredText(Key::Name, MetaDataError::NameMissing, MetaDataError::NameInvalid, name,
                    ObjectReader::AsWritten);
    const QString author =
        readString(in, Key::Author, MetaDataError::AuthorMissing, MetaDataError::AuthorInvalid);
    const PluginMetaInformation::VersionType version = readVersion(in);
    in.text(Key::Copyright, MetaDataError::CopyrightInvalid, copyright, ObjectReader::AsWritten);
    in.text(Key::Description, MetaDataError::DescriptionInvalid, description,
            ObjectReader::AsWritten);
    in.text(Key::License, MetaDataError::LicenseInvalid, license, ObjectReader::AsWritten);
    if (!faults.code())
        info.init(name, id, author, version, copyright, description, license, defaultLanguage,
                  languages);
    return faults.code();
}

} // namespace NARV::INTERNAL
