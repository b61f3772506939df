#pragma once

#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>

#include <QJsonObject>
#include <QPluginLoader>

#include <memory>

namespace NARV {
class WidgetLibraryPlugin;
}

namespace NARV::INTERNAL {

class WidgetLibraryPluginData;

//! A plugin's library on its way in: readMetaData(), load(), describe(), takeData(). Unless its
//! data are taken it is unloaded and unmapped in the end.
class PluginLibrary
{
public:
    //! The path is absolute. The plugin has to have the id expectedId unless that is empty.
    PluginLibrary(const QString &path, const QString &expectedId);
    ~PluginLibrary();

    const QString &path() const { return m_path; }

    // Each step returns why it is not possible; null if it is.

    //! Reads what the library file says of itself, without running any of its code.
    QString readMetaData();
    //! The metadata name the id expected. Whether it is valid, describe() tells.
    bool hasExpectedId() const;
    //! Loads the library and makes its root object.
    QString load();
    //! Reads the description of the library that has been loaded.
    QString describe();
    //! The record of the plugin that has been described. To be called once; the caller owns it.
    std::unique_ptr<WidgetLibraryPluginData> takeData();

private:
    Q_DISABLE_COPY(PluginLibrary)

    template<typename Step>
    QString timed(Step step);
    QString makeInstance();

    QString m_path;
    QString m_expectedId;
    std::unique_ptr<QPluginLoader> m_loader;
    QJsonObject m_metaData;
    NARV::WidgetLibraryPlugin *m_instance = nullptr;
    std::unique_ptr<WidgetLibraryPluginMetaInformation> m_info;
    qint64 m_nanoseconds = 0; //!< that the steps took
};

} // namespace NARV::INTERNAL
