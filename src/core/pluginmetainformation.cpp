#include "core/pluginmetainformation.h"

#include "core/languages_p.h"
#include "core/translationtable_p.h"

namespace NARV::INTERNAL {

PluginMetaInformation::PluginMetaInformation()
    : m_defaultLanguage(defaultLanguageCode())
{
}

PluginMetaInformation::PluginMetaInformation(const PluginMetaInformation &other) = default;
PluginMetaInformation::PluginMetaInformation(PluginMetaInformation &&other) noexcept = default;
PluginMetaInformation &
PluginMetaInformation::operator=(const PluginMetaInformation &other) = default;
PluginMetaInformation &
PluginMetaInformation::operator=(PluginMetaInformation &&other) noexcept = default;
PluginMetaInformation::~PluginMetaInformation() = default;

void PluginMetaInformation::init(const TranslationStringType &name, const QString &id,
                                 const QString &author, const VersionType &version,
                                 const TranslationStringType &copyright,
                                 const TranslationStringType &description,
                                 const TranslationStringType &license,
                                 const QString &defaultLanguage, const QStringList &translation)
{
    m_name = name;
    m_id = id;
    m_author = author;
    m_version = version;
    m_copyright = copyright;
    m_description = description;
    m_license = license;
    m_defaultLanguage = defaultLanguage;
    m_translation = translation;
}

// Copyright, description and license stay: init() replaces them, and nothing else writes them.
void PluginMetaInformation::clear()
{
    m_name.clear();
    m_id.clear();
    m_author.clear();
    m_version = VersionType();
    m_defaultLanguage = defaultLanguageCode();
    m_translation.clear();
}

QList<PluginMetaInformation::TranslationStringType>
PluginMetaInformation::translatableStrings(const QString &languageCode) const
{
    TranslationTable list(languageCode);
    addTranslatableStringToList(list, m_name);
    return list.takeEntries();
}

void PluginMetaInformation::addTranslatableStringToList(TranslationTable &list,
                                                        const TranslationStringType &text)
{
    const QString entry = text.get(list.languageCode(), false);
    if (!entry.simplified().isEmpty())
        list.add(entry, text.comment());
}

} // namespace NARV::INTERNAL
