#pragma once

#include "metadata/warninglist.h"

#include <QJsonObject>

namespace ZPPluginTool {

//! The kinds of object in a plugin's metadata that have keys of their own.
enum class MetaDataObject
{
    Plugin,
    Widget,
    Option,
    TextOfMap,
    Font
};

//! Warns of keys that the reader does not know.
void warnOfUnknownKeys(const QJsonObject &object, MetaDataObject kind, WarningList &warnings);

//! Warns of keys that no field knows, and of those that have no effect on a field of this kind.
void warnOfFieldKeys(const QJsonObject &field, WarningList &warnings);

} // namespace ZPPluginTool
