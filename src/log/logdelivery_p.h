#ifndef ZPPLUGIN_LOG_LOGDELIVERY_P_H
#define ZPPLUGIN_LOG_LOGDELIVERY_P_H

#include "logrecord_p.h"

namespace NARV::INTERNAL {

//! Formats a complete record and hands it to the installed callback, if any; any thread.
void deliver(const LogRecord &record) noexcept;

} // namespace NARV::INTERNAL

#endif
