#ifndef ZPPLUGIN_TESTS_RESOURCEINDEXACCESS_H
#define ZPPLUGIN_TESTS_RESOURCEINDEXACCESS_H

#include "privateaccess.h"

#include <NARV/INTERNAL/PluginLoader>

using ResourceIndex = QMap<QString, NARV::INTERNAL::PluginLoader::ExtraResourceData>;

using ReadResourceIndex = bool (*)(const QString &path, ResourceIndex &index);
ReadResourceIndex privateMember(PrivateAccess<ReadResourceIndex>);
template struct PrivateMember<ReadResourceIndex,
                              &NARV::INTERNAL::PluginLoader::readExtraResourcesIndexFile>;

using WriteResourceIndex = bool (*)(const QString &path, const ResourceIndex &index);
WriteResourceIndex privateMember(PrivateAccess<WriteResourceIndex>);
template struct PrivateMember<WriteResourceIndex,
                              &NARV::INTERNAL::PluginLoader::writeExtraResourcesIndexFile>;

static const ReadResourceIndex readResourceIndex =
    privateMember(PrivateAccess<ReadResourceIndex>());
static const WriteResourceIndex writeResourceIndex =
    privateMember(PrivateAccess<WriteResourceIndex>());

#endif
