#pragma once

#include <QStringView>

namespace NARV::INTERNAL {

//! The whole text is a UUID other than the null one, without braces:
//! "0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11". Nothing may follow, so such a text is safe as a path.
bool isPlainUuidText(QStringView text);

//! The same, where one pair of braces around the UUID is allowed.
bool isUuidText(QStringView text);

} // namespace NARV::INTERNAL
