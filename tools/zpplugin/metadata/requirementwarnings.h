#pragma once

#include "metadata/warninglist.h"

#include <QJsonArray>

namespace ZPPluginTool {

//! Warns of conditions in the "requirements" of a widget's fields that can hardly be meant, such
//! as a comparison of a number with true.
void warnOfRequirements(const QJsonArray &fields, WarningList &warnings);

} // namespace ZPPluginTool
