#pragma once

#include <NARV/Widget>
#include <NARV/WidgetPrivate>

namespace NARV::INTERNAL {

//! Gives the host the private part of a widget.
class ZPPLUGIN_EXPORT WidgetPrivateAccessor
{
public:
    static WidgetPrivate *priv(Widget *widget) { return widget->d_func(); }
};

} // namespace NARV::INTERNAL
