#pragma once

#include <NARV/INTERNAL/PluginMetaInformation>

#include <QMap>
#include <QVariant>

//! A default value as a widget takes it: texts in one language.
inline QVariant startValue(const QVariant &value, const QString &language)
{
    using Text = NARV::INTERNAL::PluginMetaInformation::TranslationStringType;
    const auto own = [&language](const Text &text) { return text.get(language, true); };
    if (value.userType() == qMetaTypeId<Text>())
        return own(value.value<Text>());
    if (value.userType() == qMetaTypeId<QList<Text>>()) {
        QStringList texts;
        for (const Text &text : value.value<QList<Text>>())
            texts += own(text);
        return texts;
    }
    if (value.userType() != qMetaTypeId<QMap<int, Text>>())
        return value;
    QMap<int, QString> texts;
    const auto all = value.value<QMap<int, Text>>();
    for (auto it = all.begin(); it != all.end(); ++it)
        texts.insert(it.key(), own(*it));
    return QVariant::fromValue(texts);
}
