#pragma once

#include <NARV/INTERNAL/PluginData>

namespace NARV {
class WidgetLibraryPlugin;
}

namespace NARV::INTERNAL {

class WidgetLibraryPluginMetaInformation;

//! The record of a widget library.
class ZPPLUGIN_EXPORT WidgetLibraryPluginData : public PluginData
{
public:
    WidgetLibraryPluginData(const WidgetLibraryPluginData &other);
    WidgetLibraryPluginData(WidgetLibraryPluginData &&other) noexcept;
    WidgetLibraryPluginData &operator=(const WidgetLibraryPluginData &other);
    WidgetLibraryPluginData &operator=(WidgetLibraryPluginData &&other) noexcept;
    ~WidgetLibraryPluginData() override;

    //! The library's root object; null if it is no widget library.
    NARV::WidgetLibraryPlugin *instance() const;
    //! The description; the record owns it.
    WidgetLibraryPluginMetaInformation *metaInformation() const;

    //! Where the editor's defaults document of this plugin lies below the root folder of the
    //! editor's resources, as an absolute path. The file need not exist.
    QString studioDefaultsPath(const QString &dirPath) const;
    //! The same for the properties document.
    QString studioPropertiesPath(const QString &dirPath) const;

private:
    friend class PluginLoader;

    WidgetLibraryPluginData(const QString &libraryPath, QPluginLoader *loader,
                            NARV::WidgetLibraryPlugin *instance,
                            WidgetLibraryPluginMetaInformation *metaInformation,
                            double loadingTimeMs);
};

} // namespace NARV::INTERNAL
