#pragma once

#include <NARV/WidgetActionManager>
#include <NARV/WidgetActionManagerPrivate>

namespace NARV::INTERNAL {

//! Gives the host the private part of an action manager.
class ZPPLUGIN_EXPORT WidgetActionManagerPrivateAccessor
{
public:
    static WidgetActionManagerPrivate *priv(WidgetActionManager *actionManager)
    {
        return actionManager->d_func();
    }
};

} // namespace NARV::INTERNAL
