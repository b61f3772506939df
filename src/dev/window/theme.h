#pragma once

#include <QPalette>

namespace NARV::DEV {

enum class Theme
{
    System, //!< as the desktop has it
    Light,
    Dark
};

QPalette themePalette(Theme theme);

} // namespace NARV::DEV
