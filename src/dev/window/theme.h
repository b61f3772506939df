#pragma once

namespace NARV::DEV {

enum class Theme
{
    System, //!< as the desktop has it
    Light,
    Dark
};

//! Gives the whole program the colours of the theme.
void applyTheme(Theme theme);

} // namespace NARV::DEV
