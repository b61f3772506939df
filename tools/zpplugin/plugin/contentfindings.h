#pragma once

#include "metadata/finding.h"

#include <QJsonArray>
#include <QJsonObject>

namespace ZPPluginTool {

//! Where the widgets that a plugin registers, as given by registrations(), are not those that its
//! description declares, or can not be made.
Findings registrationFindings(const QJsonArray &declaredWidgets, const QJsonArray &registrations);

//! Where a plugin's translations, as given by translations(), are incomplete.
Findings translationFindings(const QJsonObject &translations);

} // namespace ZPPluginTool
