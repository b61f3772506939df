#pragma once

#include <NARV/INTERNAL/WidgetActionManagerImpl>

#include <QPointer>

namespace NARV {

//! The link between an action manager and the host.
class ZPPLUGIN_EXPORT WidgetActionManagerPrivate
{
public:
    explicit WidgetActionManagerPrivate(INTERNAL::WidgetActionManagerImpl *impl);

    //! The widget runs inside the test bench; false without host.
    bool isInsideDevProject() const;
    //! The manager itself; for null one that has no host.
    static const WidgetActionManager &orUnbound(const WidgetActionManager *actionManager);

    //! Owned by the host; null for none.
    QPointer<INTERNAL::WidgetActionManagerImpl> impl;
};

} // namespace NARV
