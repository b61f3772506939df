#pragma once

#include <QString>

namespace NARV::INTERNAL {

//! The language of metadata that names no other: "en-US". The text is shared, never allocated.
inline QString defaultLanguageCode()
{
    return QStringLiteral("en-US");
}

} // namespace NARV::INTERNAL
