#include "loader/widgetlibraryplugindata.h"

#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>
#include <NARV/WidgetLibraryPlugin>

#include <QFileInfo>

namespace NARV::INTERNAL {

WidgetLibraryPluginData::WidgetLibraryPluginData(
    const QString &libraryPath, QPluginLoader *loader, NARV::WidgetLibraryPlugin *instance,
    WidgetLibraryPluginMetaInformation *metaInformation, double loadingTimeMs)
    : PluginData(Type::WidgetLibrary, libraryPath, loader, instance, metaInformation, loadingTimeMs)
{
}

WidgetLibraryPluginData::WidgetLibraryPluginData(const WidgetLibraryPluginData &other) = default;
WidgetLibraryPluginData::WidgetLibraryPluginData(WidgetLibraryPluginData &&other) noexcept =
    default;
WidgetLibraryPluginData &
WidgetLibraryPluginData::operator=(const WidgetLibraryPluginData &other) = default;
WidgetLibraryPluginData &
WidgetLibraryPluginData::operator=(WidgetLibraryPluginData &&other) noexcept = default;
WidgetLibraryPluginData::~WidgetLibraryPluginData() = default;

NARV::WidgetLibraryPlugin *WidgetLibraryPluginData::instance() const
{
    return dynamic_cast<NARV::WidgetLibraryPlugin *>(PluginData::instance());
}

WidgetLibraryPluginMetaInformation *WidgetLibraryPluginData::metaInformation() const
{
    return dynamic_cast<WidgetLibraryPluginMetaInformation *>(PluginData::metaInformation());
}

static QString absoluteFilePath(const QString &dirPath, const QString &id, const char *fileName)
{
    return QFileInfo(dirPath + QLatin1Char('/') + id + QLatin1Char('/') + QLatin1String(fileName))
        .absoluteFilePath();
}

QString WidgetLibraryPluginData::studioDefaultsPath(const QString &dirPath) const
{
    return absoluteFilePath(dirPath, metaInformation()->id(), "studio_defaults.zpx");
}

QString WidgetLibraryPluginData::studioPropertiesPath(const QString &dirPath) const
{
    return absoluteFilePath(dirPath, metaInformation()->id(), "studio_properties.xml");
}

} // namespace NARV::INTERNAL
