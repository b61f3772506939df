#pragma once

#include "logrecord_p.h"

namespace NARV::INTERNAL {

//! Formats a complete record and hands it to the installed callback, if any; any thread.
void deliver(const LogRecord &record) noexcept;

} // namespace NARV::INTERNAL
