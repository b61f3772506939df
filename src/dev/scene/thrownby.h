#pragma once

#include <QString>

#include <zpplugin_dev_export.h>

#include <functional>

namespace NARV::DEV {

//! Calls code of a plugin, which may throw what it likes. Returns what the exception says; empty
//! if none came.
ZPPLUGIN_DEV_EXPORT QString thrownBy(const std::function<void()> &call);

} // namespace NARV::DEV
