#include "loader/plugindata.h"

#include "loader/widgetlibraryplugindata.h"

#include <NARV/INTERNAL/PluginMetaInformation>

#include <QPluginLoader>

namespace NARV::INTERNAL {

PluginData::PluginData(Type type, const QString &libraryPath, QPluginLoader *loader,
                       NARV::Plugin *instance, PluginMetaInformation *metaInformation,
                       double loadingTimeMs)
    : m_type(type)
    , m_libraryPath(libraryPath)
    , m_pluginLoader(loader)
    , m_loadingTimeMs(loadingTimeMs)
    , m_instance(instance)
    , m_metaInformation(metaInformation)
{
}

PluginData::PluginData(const PluginData &other) = default;
PluginData &PluginData::operator=(const PluginData &other) = default;

// The description goes first: its texts may lie in the library's own memory.
PluginData::~PluginData()
{
    delete m_metaInformation;
    m_metaInformation = nullptr;
    m_instance = nullptr;
    if (m_pluginLoader && m_pluginLoader->isLoaded())
        m_pluginLoader->unload();
    delete m_pluginLoader;
    m_pluginLoader = nullptr;
}

WidgetLibraryPluginData *PluginData::toWidgetLibraryPluginData()
{
    return static_cast<WidgetLibraryPluginData *>(this);
}

const WidgetLibraryPluginData *PluginData::toWidgetLibraryPluginData() const
{
    return static_cast<const WidgetLibraryPluginData *>(this);
}

} // namespace NARV::INTERNAL
