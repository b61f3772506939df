#include "scene/widgetstate.h"

namespace NARV::DEV {

WidgetState WidgetState::of(
    const INTERNAL::WidgetLibraryPluginMetaInformation::WidgetMetaInformation &description)
{
    static const QSizeF usualSize(160, 120);
    WidgetState state;
    state.widgetId = description.id();
    state.version = description.version().version();
    state.size = description.defaultSize().isEmpty() ? usualSize : description.defaultSize();
    return state;
}

} // namespace NARV::DEV
