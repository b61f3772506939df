#pragma once

#include <QString>

#include <zpplugin_export.h>

class QPluginLoader;

namespace NARV {
class Plugin;
}

namespace NARV::INTERNAL {

class PluginMetaInformation;
class WidgetLibraryPluginData;

//! What the loader keeps of one loaded plugin. The loader makes, owns and destroys the records;
//! destroying one frees the description and unloads the library, the plugin object with it.
//!
//! A copy shares everything with its source, and only one of the two may be destroyed: the
//! constructors are for the loader.
class ZPPLUGIN_EXPORT PluginData
{
public:
    enum class Type
    {
        WidgetLibrary = 1 //!< a widget library: the record is a WidgetLibraryPluginData
    };

    PluginData(const PluginData &other);
    PluginData &operator=(const PluginData &other);
    virtual ~PluginData();

    Type type() const { return m_type; }
    //! The absolute path of the library file.
    const QString &libraryPath() const { return m_libraryPath; }
    //! How long loading took, in milliseconds with fractions: reading the metadata, loading the
    //! library, making the plugin object and reading the description.
    double loadingTimeMs() const { return m_loadingTimeMs; }
    //! The library's root object. It lives as long as the library is loaded.
    NARV::Plugin *instance() const { return m_instance; }
    //! The description; the record owns it.
    PluginMetaInformation *metaInformation() const { return m_metaInformation; }

    //! The same record; every record that the loader makes is one of a widget library.
    WidgetLibraryPluginData *toWidgetLibraryPluginData();
    const WidgetLibraryPluginData *toWidgetLibraryPluginData() const;

protected:
    //! Takes ownership of loader and metaInformation, not of instance.
    PluginData(Type type, const QString &libraryPath, QPluginLoader *loader, NARV::Plugin *instance,
               PluginMetaInformation *metaInformation, double loadingTimeMs);

private:
    Type m_type;
    QString m_libraryPath;
    QPluginLoader *m_pluginLoader;
    double m_loadingTimeMs;
    NARV::Plugin *m_instance;
    PluginMetaInformation *m_metaInformation;
};

} // namespace NARV::INTERNAL
