#pragma once

#include "metadata/warninglist.h"

#include <QJsonObject>

namespace ZPPluginTool {

//! Warns of a field's values that do not become what is written there.
void warnOfFieldValues(const QJsonObject &field, WarningList &warnings);

} // namespace ZPPluginTool
