#pragma once

#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>

#include <QJsonValue>
#include <QVariant>

#include <zpplugin_dev_export.h>

//! Values as an author gives them: multi-language fields hold their texts in all languages.
namespace NARV::DEV {

using FieldMetaInformation = INTERNAL::WidgetLibraryPluginMetaInformation::FieldMetaInformation;
using WidgetMetaInformation = INTERNAL::WidgetLibraryPluginMetaInformation::WidgetMetaInformation;

//! The id under which a widget gets the font of a multi-language field.
ZPPLUGIN_DEV_EXPORT QString fontId(const QString &fieldId);

//! What a person calls a field, or its font, in that language.
QString fieldLabel(const FieldMetaInformation &field, bool isFont, const QString &languageCode);

//! What the widget gets of the value: of texts in several languages the one in that language.
ZPPLUGIN_DEV_EXPORT QVariant inLanguage(const QVariant &value, const QString &languageCode);
//! The authored value after the widget itself has written a text, list or map in that language.
ZPPLUGIN_DEV_EXPORT QVariant withLanguage(const QVariant &authored, const QVariant &written,
                                          const QString &languageCode);
//! Equal type and content, texts in several languages included.
ZPPLUGIN_DEV_EXPORT bool isSameValue(const QVariant &a, const QVariant &b);

//! The value in a few words, for lists and logs.
ZPPLUGIN_DEV_EXPORT QString briefText(const QVariant &value);

//! The value as a scene file has it. What is no value of a field is kept as it is if it is JSON.
ZPPLUGIN_DEV_EXPORT QJsonValue toJson(const QVariant &value);
//! Reads a value of that field, or of its font; false if the JSON holds none.
ZPPLUGIN_DEV_EXPORT bool fromJson(const FieldMetaInformation &field, bool isFont,
                                  const QJsonValue &json, QVariant &value);

} // namespace NARV::DEV
