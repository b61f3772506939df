#pragma once

#include "logrecord_p.h"

namespace NARV::INTERNAL {

//! The record's text with the message pattern of this process; any thread. When the process is
//! shutting down and the pattern is gone, the bare text.
QString formatted(const LogRecord &record);

} // namespace NARV::INTERNAL
