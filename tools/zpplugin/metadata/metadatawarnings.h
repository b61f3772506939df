#pragma once

#include "metadata/finding.h"

#include <QJsonObject>

namespace ZPPluginTool {

//! What the metadata reader accepts but an author would regret. The object is what stands in the
//! metadata file; paths start in it.
Findings metaDataWarnings(const QJsonObject &metaData);

} // namespace ZPPluginTool
