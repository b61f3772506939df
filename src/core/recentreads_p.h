#pragma once

#include "core/jsonview_p.h"
#include "core/metadatakeys_p.h"

#include <NARV/INTERNAL/PluginMetaInformation>

namespace NARV::INTERNAL {

// Descriptions say the same again and again, and to compare a text is cheaper than to make a copy.

//! The short texts read last, so that the many fields with the same group or label share one.
class RecentTexts
{
public:
    using TranslationStringType = PluginMetaInformation::TranslationStringType;

    struct Entry
    {
        QString text;
        TranslationStringType value;
    };

    //! Where that text is if it was read lately; null for a text that is not kept.
    Entry *entry(const QString &text)
    {
        if (text.isEmpty() || text.size() > longest)
            return nullptr;
        return &m_entries[size_t(text.size() + 7 * text[0].unicode()) % count];
    }

private:
    static constexpr int longest = 16;
    static constexpr size_t count = 64;
    Entry m_entries[count];
};

//! The comment read last, which many texts have in a row.
class RecentComment
{
public:
    //! The text of the value, of which no copy is made if it is that of the comment before.
    const QString &text(JsonValue value)
    {
        if (value != m_value) {
            m_value = value;
            m_text = m_value.toString();
        }
        return m_text;
    }

private:
    QCborValue m_value;
    QString m_text;
};

//! The keys read last. Members come in the order of their keys, so that what stands behind a key is
//! mostly what stood behind it in the object before.
class RecentKeys
{
public:
    //! The key of that name, which stands behind the key before; Unknown for the first one.
    MetaDataKey key(const QCborValue &name, MetaDataKey before)
    {
        Entry &entry = m_behind[size_t(before)];
        if (entry.name != name)
            entry = {name, keyFromName(name.toString())};
        return entry.key;
    }

private:
    struct Entry
    {
        QCborValue name;
        MetaDataKey key = MetaDataKey::Unknown;
    };
    Entry m_behind[size_t(MetaDataKey::Unknown) + 1];
};

} // namespace NARV::INTERNAL
