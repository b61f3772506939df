#pragma once

#include <NARV/WidgetLibraryPlugin>
#include <NARV/WidgetLibraryPluginPrivate>

namespace NARV::INTERNAL {

//! Gives the host the private part of a widget library.
class ZPPLUGIN_EXPORT WidgetLibraryPluginPrivateAccessor
{
public:
    static WidgetLibraryPluginPrivate *priv(WidgetLibraryPlugin *plugin)
    {
        return plugin->d_func();
    }
};

} // namespace NARV::INTERNAL
