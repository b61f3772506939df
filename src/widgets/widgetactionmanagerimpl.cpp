#include "widgetactionmanagerimpl.h"

namespace NARV::INTERNAL {

WidgetActionManagerImpl::WidgetActionManagerImpl(QObject *parent)
    : QObject(parent)
{
}

WidgetActionManagerImpl::~WidgetActionManagerImpl() = default;

} // namespace NARV::INTERNAL
