#pragma once

#include <QString>

namespace NARV::INTERNAL {

class WidgetLibraryPluginMetaInformation;

//! Writes all documents of a library to a folder that is there. The text says what went wrong, with
//! the paths that they will have in their final folder; null if nothing did.
QString writeResourceDocuments(const WidgetLibraryPluginMetaInformation &library,
                               const QString &languageCode, const QString &folder,
                               const QString &finalFolder);

} // namespace NARV::INTERNAL
