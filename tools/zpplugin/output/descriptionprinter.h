#pragma once

#include "terminal/terminal.h"

#include <QJsonObject>

namespace ZPPluginTool {

//! Prints a description, made by descriptionToJson() with a language, for people to read. Leaves
//! out what is not set.
void printDescription(const QJsonObject &description, Terminal &terminal);

} // namespace ZPPluginTool
