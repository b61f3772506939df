#include "core/objectreader_p.h"

#include "core/pluginutils.h"

namespace NARV::INTERNAL {

ObjectReader::ObjectReader(const JsonObject &object, const JsonPath &path,
                           DescriptionContext &context)
    : m_object(object)
    , m_path(path)
    , m_context(context)
{
    m_positions.fill(-1);
    const auto end = object.constEnd();
    int position = 0;
    MetaDataKey key = MetaDataKey::Unknown;
    for (auto it = object.constBegin(); it != end; ++it) {
        key = context.recentKeys.key(it.key(), key);
        m_positions[size_t(key)] = position++;
    }
}

bool ObjectReader::flag(MetaDataKey key, int invalid, bool &out)
{
    return optional(key, invalid, [&](JsonValue value) {
        out = value.toBool();
        return value.isBool();
    });
}

bool ObjectReader::readText(JsonValue value, TranslationStringType &out, TextRule rule) const
{
    return PluginUtils::infoFromMetaDataParseTranslatableString(
        value, m_context, out, rule != AsWritten, rule == TrimmedNotEmpty);
}

bool ObjectReader::text(MetaDataKey key, int invalid, TranslationStringType &out, TextRule rule)
{
    return optional(key, invalid, [&](JsonValue value) { return readText(value, out, rule); });
}

bool ObjectReader::requiredText(MetaDataKey key, int missing, int invalid,
                                TranslationStringType &out, TextRule rule)
{
    return required(key, missing, invalid,
                    [&](JsonValue value) { return readText(value, out, rule); });
}

} // namespace NARV::INTERNAL
