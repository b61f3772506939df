#include "core/objectreader_p.h"

#include "core/pluginutils.h"

namespace NARV::INTERNAL {

//! The same for equal keys and different for most others.
template<typename Text>
static quint32 keyPrint(const Text &key)
{
    if (key.isEmpty())
        return 0;
    return quint32(key.size()) << 16 ^ quint32(QChar(key.front()).unicode()) << 8 ^
           quint32(QChar(key.back()).unicode());
}

ObjectReader::ObjectReader(const QJsonObject &object, const JsonPath &path,
                           DescriptionContext &context)
    : m_object(object)
    , m_path(path)
    , m_context(context)
{
    const int size = object.size();
    m_keys.reserve(size);
    m_keyPrints.reserve(size);
    const auto end = object.constEnd();
    for (auto it = object.constBegin(); it != end; ++it) {
        const QString key = it.key();
        m_keyPrints.append(keyPrint(key));
        m_keys.append(key);
    }
}

int ObjectReader::find(QLatin1String key) const
{
    const quint32 print = keyPrint(key);
    for (int i = 0; i < m_keys.size(); ++i) {
        if (m_keyPrints[i] == print && m_keys[i] == key)
            return i;
    }
    return -1;
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
