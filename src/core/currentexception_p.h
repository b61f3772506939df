#pragma once

#include <QString>

namespace NARV::INTERNAL {

//! Says what plugin code has thrown. To be called inside a catch (...) only.
QString currentExceptionText();

} // namespace NARV::INTERNAL
