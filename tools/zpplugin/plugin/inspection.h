#pragma once

#include <QJsonArray>
#include <QJsonObject>

namespace NARV {
class WidgetLibraryPlugin;
}
namespace NARV::INTERNAL {
class WidgetLibraryPluginMetaInformation;
}

namespace ZPPluginTool {

//! The widgets that a loaded plugin has registered: "id", "version", and of each of their classes
//! what is wrong with it ("widgetFault", "graphicsObjectFault"; empty for nothing).
QJsonArray registrations(NARV::WidgetLibraryPlugin &plugin);

//! The translation files of a loaded plugin by language: whether there "isFile", and the texts that
//! are "missing" in it.
QJsonObject translations(const NARV::INTERNAL::WidgetLibraryPluginMetaInformation &info);

} // namespace ZPPluginTool
