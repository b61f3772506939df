#pragma once

#include "loader/pluginloader.h"

namespace NARV::INTERNAL {

//! By plugin id, of which plugin the editor's resources are up to date.
using ResourceIndex = QMap<QString, PluginLoader::ExtraResourceData>;

//! Writes a critical record about the editor's resources.
void logResourceError(const QString &message);

//! Replaces the index in one step, and says in messages what went wrong. When the content could
//! not be written there is no index any more.
bool replaceResourceIndex(const QString &path, const ResourceIndex &index, QStringList &messages);

} // namespace NARV::INTERNAL
