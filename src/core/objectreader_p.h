#pragma once

#include "core/metadatafaults_p.h"
#include "core/recentreads_p.h"
#include "core/translationtable_p.h"

#include <array>

namespace NARV::INTERNAL {

//! What the readers of one plugin's descriptions share.
struct DescriptionContext
{
    explicit DescriptionContext(MetaDataFaults &where)
        : faults(where)
    {
    }

    MetaDataFaults &faults;
    TranslationTable translations; //!< in whose language the metadata's own texts are written
    RecentTexts recentTexts;
    RecentComment recentComment;
    RecentKeys recentKeys;
};

//! Takes typed values out of one JSON object and reports those that are missing or malformed.
//!
//! Once the faults have stopped the reading, every call is without effect.
class ObjectReader
{
public:
    using TranslationStringType = PluginMetaInformation::TranslationStringType;

    //! How a translatable text is read.
    enum TextRule
    {
        AsWritten, //!< may be empty, blanks stay
        Trimmed,   //!< may be empty
        TrimmedNotEmpty
    };

    //! The object, path and context have to outlive the reader.
    ObjectReader(const JsonObject &object, const JsonPath &path, DescriptionContext &context);

    bool contains(MetaDataKey key) const { return find(key) >= 0; }

    //! Hands the value under key, if there is one, to take(value); where that says false, the
    //! value is reported as invalid. True when a value was taken.
    template<typename Take>
    bool optional(MetaDataKey key, int invalid, Take take)
    {
        return takeValue(key, find(key), invalid, take);
    }

    //! The same, where a value that is not there is reported as missing.
    template<typename Take>
    bool required(MetaDataKey key, int missing, int invalid, Take take)
    {
        const int found = find(key);
        if (found < 0)
            fail(missing, key);
        return takeValue(key, found, invalid, take);
    }

    bool flag(MetaDataKey key, int invalid, bool &out);
    bool text(MetaDataKey key, int invalid, TranslationStringType &out, TextRule rule);
    bool requiredText(MetaDataKey key, int missing, int invalid, TranslationStringType &out,
                      TextRule rule);

    //! Hands every element of the array under key, if there is one, to take(element, index); where
    //! that says false, the element is reported as invalid, as is a value that is no array.
    template<typename Take>
    bool elements(MetaDataKey key, int invalid, Take take)
    {
        return optional(key, invalid, [&](JsonValue value) {
            return value.isArray() && takeElements(key, value.toArray(), invalid, take);
        });
    }

    template<typename Take>
    bool takeElements(MetaDataKey key, const JsonArray &array, int invalid, Take take)
    {
        for (int i = 0; i < array.size() && !stopped(); ++i) {
            if (!take(*(array.constBegin() + i), i))
                fail(invalid, key, i);
        }
        return true;
    }

    bool readText(JsonValue value, TranslationStringType &out, TextRule rule) const;

    bool stopped() const { return m_context.faults.stopped(); }
    JsonPath path(MetaDataKey key, int index = -1) const { return {&m_path, key, index}; }
    void fail(int code, MetaDataKey key, int index = -1)
    {
        m_context.faults.add(code, path(key, index));
    }
    void fail(int code, MetaDataKey key, const QString &message)
    {
        m_context.faults.add(code, path(key), message);
    }
    DescriptionContext &context() { return m_context; }

private:
    template<typename Take>
    bool takeValue(MetaDataKey key, int found, int invalid, Take take)
    {
        if (found < 0 || stopped())
            return false;
        if (take((m_object.constBegin() + found).value()))
            return true;
        fail(invalid, key);
        return false;
    }

    //! The position of key among the members; -1 if it is not there.
    int find(MetaDataKey key) const { return m_positions[size_t(key)]; }

    //! A JSON object finds a member by comparing keys letter by letter, each time anew.
    std::array<int, size_t(MetaDataKey::Unknown) + 1> m_positions;
    const JsonObject &m_object;
    const JsonPath &m_path;
    DescriptionContext &m_context;
};

} // namespace NARV::INTERNAL
