#include "core/objectreader_p.h"

#include "core/pluginutils.h"

namespace NARV::INTERNAL {

ObjectReader::ObjectReader(const QJsonObject &object, const JsonPath &path,
                           DescriptionContext &context)
    : m_path(path)
    , m_context(context)
{
    m_members.reserve(object.size());
    for (auto it = object.constBegin(); it != object.constEnd(); ++it)
        m_members.append({it.key(), it.value()});
}

const QJsonValue &ObjectReader::value(QLatin1String key) const
{
    static const QJsonValue undefined(QJsonValue::Undefined);
    for (const Member &member : m_members) {
        if (member.key.size() == key.size() && member.key == key)
            return member.value;
    }
    return undefined;
}

bool ObjectReader::flag(QLatin1String key, int invalid, bool &out)
{
    return optional(key, invalid, [&](const QJsonValue &value) {
        out = value.toBool();
        return value.isBool();
    });
}

bool ObjectReader::readText(const QJsonValue &value, TranslationStringType &out,
                            TextRule rule) const
{
    return PluginUtils::infoFromMetaDataParseTranslatableString(
        value, m_context, out, rule != AsWritten, rule == TrimmedNotEmpty);
}

bool ObjectReader::text(QLatin1String key, int invalid, TranslationStringType &out, TextRule rule)
{
    return optional(key, invalid,
                    [&](const QJsonValue &value) { return readText(value, out, rule); });
}

bool ObjectReader::requiredText(QLatin1String key, int missing, int invalid,
                                TranslationStringType &out, TextRule rule)
{
    return required(key, missing, invalid,
                    [&](const QJsonValue &value) { return readText(value, out, rule); });
}

} // namespace NARV::INTERNAL
