#include "plugin.h"

namespace NARV {

// Empty: room for state without a change of the size of Plugin.
class PluginPrivate
{
};

Plugin::Plugin(QObject *parent)
    : QObject(parent)
    , d_ptr(new PluginPrivate)
{
}

Plugin::~Plugin() = default;

void Plugin::aboutToLoad() {}

void Plugin::load() {}

void Plugin::aboutToUnload() {}

void Plugin::unload() {}

bool Plugin::event(QEvent *event)
{
    return QObject::event(event);
}

} // namespace NARV
