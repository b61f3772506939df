#pragma once

#include <QString>

namespace NARV::DEV {

//! A text from outside for a button or a menu, where an ampersand would make a shortcut.
inline QString withoutShortcut(QString text)
{
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace NARV::DEV
