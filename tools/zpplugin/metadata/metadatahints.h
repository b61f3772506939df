#pragma once

#include <QString>

namespace ZPPluginTool {

//! What an attribute of the metadata has to look like, given the code of the fault that the
//! reader found. Empty where the reader's own text says it all.
QString hintForMetaDataError(int code);

} // namespace ZPPluginTool
