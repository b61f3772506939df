#include "core/languages_p.h"
#include "core/pluginmetainformation.h"

#include <QMutex>

#include <utility>

namespace NARV::INTERNAL {

using TranslationStringType = PluginMetaInformation::TranslationStringType;

TranslationStringType::TranslationStringType()
    : m_fallbackLanguage(defaultLanguageCode())
{
}

TranslationStringType::TranslationStringType(const QString &languageCode, QString text,
                                             QString comment)
    : m_text(std::move(text))
    , m_comment(std::move(comment))
    , m_fallbackLanguage(languageCode)
    , m_isSingle(true)
{
}

// The map of a single text is not touched: another thread may be about to fill it.
TranslationStringType::TranslationStringType(const TranslationStringType &other)
    : m_text(other.m_text)
    , m_comment(other.m_comment)
    , m_fallbackLanguage(other.m_fallbackLanguage)
    , m_isSingle(other.m_isSingle)
{
    if (!m_isSingle)
        m_translations = other.m_translations;
}

TranslationStringType::TranslationStringType(TranslationStringType &&other) noexcept
    : m_text(std::move(other.m_text))
    , m_comment(std::move(other.m_comment))
    , m_fallbackLanguage(std::move(other.m_fallbackLanguage))
    , m_translations(std::move(other.m_translations))
    , m_isListed(other.m_isListed)
    , m_isSingle(other.m_isSingle)
{
}

TranslationStringType &TranslationStringType::operator=(const TranslationStringType &other)
{
    return *this = TranslationStringType(other);
}

TranslationStringType &TranslationStringType::operator=(TranslationStringType &&other) noexcept
{
    m_text.swap(other.m_text);
    m_comment.swap(other.m_comment);
    m_fallbackLanguage.swap(other.m_fallbackLanguage);
    m_translations.swap(other.m_translations);
    const int isListed = m_isListed.loadRelaxed();
    m_isListed.storeRelaxed(other.m_isListed.loadRelaxed());
    other.m_isListed.storeRelaxed(isListed);
    std::swap(m_isSingle, other.m_isSingle);
    return *this;
}

QString TranslationStringType::get(const QString &languageCode, bool useFallback) const
{
    if (m_isSingle && (useFallback || languageCode == m_fallbackLanguage))
        return m_text;
    if (m_isSingle)
        return QLatin1String("");
    const auto it = m_translations.constFind(languageCode);
    if (it != m_translations.constEnd())
        return *it;
    return useFallback ? m_translations.value(m_fallbackLanguage) : QLatin1String("");
}

bool TranslationStringType::contains(const QString &languageCode) const
{
    return m_isSingle ? languageCode == m_fallbackLanguage : m_translations.contains(languageCode);
}

void TranslationStringType::set(const QString &languageCode, const QString &text)
{
    if (isEmpty() && languageCode == m_fallbackLanguage) {
        m_text = text;
        m_isSingle = true;
        return;
    }
    toMap();
    m_translations.insert(languageCode, text);
}

void TranslationStringType::remove(const QString &languageCode)
{
    toMap();
    m_translations.remove(languageCode);
}

//! From now on all texts are in the map and only there.
void TranslationStringType::toMap()
{
    if (!m_isSingle)
        return;
    m_translations.insert(m_fallbackLanguage, m_text);
    m_text.clear();
    m_isSingle = false;
    m_isListed.storeRelaxed(false);
}

void TranslationStringType::listSingle() const
{
    static QBasicMutex mutex; // for all texts: hardly any is ever listed
    const QMutexLocker lock(&mutex);
    if (m_isListed.loadAcquire())
        return;
    m_translations.insert(m_fallbackLanguage, m_text);
    m_isListed.storeRelease(true);
}

const QMap<QString, QString> &TranslationStringType::translations() const
{
    if (m_isSingle && !m_isListed.loadAcquire())
        listSingle();
    return m_translations;
}

void TranslationStringType::clear()
{
    m_text.clear();
    m_comment.clear();
    m_translations.clear();
    m_isListed.storeRelaxed(false);
    m_isSingle = false;
}

bool TranslationStringType::operator==(const TranslationStringType &other) const
{
    if (m_comment != other.m_comment || m_fallbackLanguage != other.m_fallbackLanguage)
        return false;
    if (m_isSingle && other.m_isSingle)
        return m_text == other.m_text;
    return translations() == other.translations();
}

} // namespace NARV::INTERNAL
