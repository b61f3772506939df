#pragma once

#include <QString>

namespace NARV::INTERNAL {

//! Says what plugin code has thrown. To be called inside a catch (...) only.
QString currentExceptionText();

//! Runs plugin code, which may throw what it likes. The text says what was thrown; null if nothing.
template<typename Code>
QString exceptionOf(Code code)
{
    try {
        code();
    } catch (...) {
        return currentExceptionText();
    }
    return {};
}

} // namespace NARV::INTERNAL
