#pragma once

#include <zpplugin_export.h>

class QIcon;

namespace NARV::INTERNAL {

//! Starts the library: keeps a copy of its icon and registers its gesture recognisers with the
//! toolkit, which owns them. On the main thread, once the QApplication is there, and before the
//! program registers recognisers of its own, since the gestures have fixed numbers.
//!
//! A second call changes nothing, not even the icon. Without a QApplication only the icon is kept.
ZPPLUGIN_EXPORT void narvInit(const QIcon &libraryIcon);

} // namespace NARV::INTERNAL
