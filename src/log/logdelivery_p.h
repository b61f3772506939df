#pragma once

#include "logrecord_p.h"

namespace NARV::INTERNAL {

//! Formats a complete record and hands it to the installed callback, if any; any thread.
void deliver(const LogRecord &record) noexcept;

//! A record completed now on this thread would reach a callback; what costs much to put into words
//! can be left out otherwise.
bool isHeard() noexcept;

} // namespace NARV::INTERNAL
