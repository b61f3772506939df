#include "libraryicon_p.h"

#include <QAtomicPointer>
#include <QScopedPointer>

namespace NARV::INTERNAL {

static QBasicAtomicPointer<const QIcon> keptIcon = Q_BASIC_ATOMIC_INITIALIZER(nullptr);

void LibraryIcon::keep(const QIcon &icon)
{
    if (keptIcon.loadAcquire())
        return;
    QScopedPointer<const QIcon> copy(new QIcon(icon));
    if (keptIcon.testAndSetOrdered(nullptr, copy.data()))
        copy.take();
}

QIcon LibraryIcon::icon()
{
    const QIcon *kept = keptIcon.loadAcquire();
    return kept ? *kept : QIcon();
}

} // namespace NARV::INTERNAL
