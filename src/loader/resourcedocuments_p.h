#pragma once

#include <QString>

#include <zpplugin_export.h>

#include <functional>

class QFileDevice;
class QXmlStreamWriter;

namespace NARV::INTERNAL {

class WidgetLibraryPluginMetaInformation;

//! Writes the function's document to an open file. False if the function returns a code other than
//! 0 or the file did not take all of it, the flushed rest included.
ZPPLUGIN_EXPORT bool writeXmlDocument(QFileDevice &file,
                                      const std::function<int(QXmlStreamWriter &writer)> &write);

//! Writes all documents of a library to a folder that is there. The text says what went wrong, with
//! the paths that they will have in their final folder; null if nothing did.
QString writeResourceDocuments(const WidgetLibraryPluginMetaInformation &library,
                               const QString &languageCode, const QString &folder,
                               const QString &finalFolder);

} // namespace NARV::INTERNAL
