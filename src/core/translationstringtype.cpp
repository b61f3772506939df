#include "core/languages_p.h"
#include "core/pluginmetainformation.h"

namespace NARV::INTERNAL {

using TranslationStringType = PluginMetaInformation::TranslationStringType;

TranslationStringType::TranslationStringType()
    : m_fallbackLanguage(defaultLanguageCode())
{
}

TranslationStringType::TranslationStringType(const QString &languageCode, const QString &text,
                                             const QString &comment)
    : m_comment(comment)
    , m_fallbackLanguage(languageCode)
{
    m_translations.insert(languageCode, text);
}

QString TranslationStringType::get(const QString &languageCode, bool useFallback) const
{
    const auto it = m_translations.constFind(languageCode);
    if (it != m_translations.constEnd())
        return *it;
    return useFallback ? m_translations.value(m_fallbackLanguage) : QLatin1String("");
}

void TranslationStringType::set(const QString &languageCode, const QString &text)
{
    m_translations.insert(languageCode, text);
}

void TranslationStringType::clear()
{
    m_translations.clear();
    m_comment.clear();
}

bool TranslationStringType::operator==(const TranslationStringType &other) const
{
    return m_translations == other.m_translations && m_comment == other.m_comment &&
           m_fallbackLanguage == other.m_fallbackLanguage;
}

} // namespace NARV::INTERNAL
