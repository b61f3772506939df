#pragma once

#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>

#include <QJsonObject>

namespace ZPPluginTool {

//! Stands for the language in which a plugin's own texts are written, whichever that is.
const QLatin1String ownLanguage("own");

//! Everything that the description of a plugin holds, under the names that its metadata uses, with
//! the defaults filled in. With a language a text is a string in that language, or in the plugin's
//! own if missing; without one it is an object of texts by language code, and "comment".
QJsonObject descriptionToJson(const NARV::INTERNAL::WidgetLibraryPluginMetaInformation &info,
                              const QString &language);

//! The plugin's own language and those of its translations.
QStringList languagesOf(const QJsonObject &description);

} // namespace ZPPluginTool
