#pragma once

#include <QString>

#include <functional>

namespace NARV::DEV {

//! Calls code of a plugin, which may throw what it likes. Returns what the exception says; empty
//! if none came.
QString thrownBy(const std::function<void()> &call);

} // namespace NARV::DEV
