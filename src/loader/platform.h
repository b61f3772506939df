#pragma once

#include <QString>
#include <QVector>

#include <zpplugin_export.h>

namespace NARV::INTERNAL {

//! A kind of machine that plugin libraries are built for, and where a plugin folder keeps its
//! library for it.
struct PluginPlatform
{
    const char *system;  //!< the outer folder, such as "linux"
    const char *machine; //!< the inner folder, such as "arm64"
    const char *prefix;  //!< of the library's file name, before the plugin id
    const char *suffix;

    //! The path of the library of plugin id in its folder, with the system's separators.
    ZPPLUGIN_EXPORT QString libraryPath(const QString &pluginFolder, const QString &id) const;

    //! The platforms for which a complete plugin folder holds a library.
    ZPPLUGIN_EXPORT static const QVector<PluginPlatform> &required();
    //! The platform that this library was built for.
    ZPPLUGIN_EXPORT static const PluginPlatform &running();
};

} // namespace NARV::INTERNAL
