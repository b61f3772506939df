#pragma once

#include "metadata/finding.h"

#include <QByteArray>
#include <QJsonObject>

namespace ZPPluginTool {

//! All errors and warnings of a plugin's metadata, given the object that a library carries.
Findings metaDataFindings(const QJsonObject &libraryMetaData);

//! The same for the text of a metadata file, with those of the text itself. Every finding has its
//! offset, and they are in the order of the offsets.
Findings metaDataFileFindings(const QByteArray &json);

} // namespace ZPPluginTool
