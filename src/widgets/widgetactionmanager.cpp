#include "widgetactionmanager.h"

#include "widgetactionmanager_p.h"

namespace NARV {

using INTERNAL::WidgetActionManagerImpl;

// Calls the host's function. Without a host the answer is the default of its type.
template<class R, class... Parameters, class... Arguments>
static R ask(WidgetActionManagerImpl *impl, R (WidgetActionManagerImpl::*function)(Parameters...),
             const Arguments &...arguments)
{
    return impl ? (impl->*function)(arguments...) : R();
}

template<class R>
static R ask(const WidgetActionManagerImpl *impl, R (WidgetActionManagerImpl::*function)() const)
{
    return impl ? (impl->*function)() : R();
}

WidgetActionManagerPrivate::WidgetActionManagerPrivate(WidgetActionManagerImpl *hostImpl)
    : impl(hostImpl)
{
}

bool WidgetActionManagerPrivate::isInsideDevProject() const
{
    return ask(impl.data(), &WidgetActionManagerImpl::isInsideDevProject);
}

const WidgetActionManager &
WidgetActionManagerPrivate::orUnbound(const WidgetActionManager *actionManager)
{
    if (actionManager)
        return *actionManager;
    static const WidgetActionManager unbound(nullptr, nullptr);
    return unbound;
}

WidgetActionManager::WidgetActionManager(WidgetActionManagerImpl *impl, QObject *parent)
    : QObject(parent)
    , d_ptr(new WidgetActionManagerPrivate(impl))
{
}

WidgetActionManager::~WidgetActionManager() = default;

QVariant WidgetActionManager::getTagValue(const QString &tagName) const
{
    Q_D(const WidgetActionManager);
    return ask(d->impl.data(), &WidgetActionManagerImpl::getTagValue, tagName);
}

QVariant WidgetActionManager::getTrendValue(const QString &name, const QDateTime &from,
                                            const QDateTime &to, unsigned int count,
                                            TrendTimeFormat format) const
{
    Q_D(const WidgetActionManager);
    return ask(d->impl.data(), &WidgetActionManagerImpl::getTrendValue, name, from, to, count,
               format);
}

QVector<AlarmInfo> WidgetActionManager::getAlarms() const
{
    Q_D(const WidgetActionManager);
    return ask(d->impl.data(), &WidgetActionManagerImpl::getAlarms);
}

void WidgetActionManager::acknowAlarm(const QString &alarmName) const
{
    Q_D(const WidgetActionManager);
    ask(d->impl.data(), &WidgetActionManagerImpl::acknowAlarm, alarmName);
}

void WidgetActionManager::acknowAllAlarms() const
{
    Q_D(const WidgetActionManager);
    ask(d->impl.data(), &WidgetActionManagerImpl::acknowAllAlarms);
}

void WidgetActionManager::resetAlarm(const QString &alarmName) const
{
    Q_D(const WidgetActionManager);
    ask(d->impl.data(), &WidgetActionManagerImpl::resetAlarm, alarmName);
}

void WidgetActionManager::resetAllAlarms() const
{
    Q_D(const WidgetActionManager);
    ask(d->impl.data(), &WidgetActionManagerImpl::resetAllAlarms);
}

bool WidgetActionManager::isInsideProjectEditor() const
{
    Q_D(const WidgetActionManager);
    return ask(d->impl.data(), &WidgetActionManagerImpl::isInsideProjectEditor);
}

bool WidgetActionManager::event(QEvent *event)
{
    return QObject::event(event);
}

} // namespace NARV
