#pragma once

#include <QIcon>

namespace NARV::INTERNAL {

//! The icon of the library, one for the process, never released. Safe from any thread.
class LibraryIcon
{
public:
    //! Keeps a copy of the first icon; later ones are ignored.
    static void keep(const QIcon &icon);
    //! The icon kept, or an empty one.
    static QIcon icon();
};

} // namespace NARV::INTERNAL
