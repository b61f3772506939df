#pragma once

#include <QColor>
#include <QSizeF>

namespace NARV::DEV {

//! The page that the widgets are placed on.
struct Page
{
    QSizeF size{1280, 800}; //!< in scene units, which are a panel's pixels
    QColor background{0xf3, 0xf4, 0xf6};
    bool checkerboard = false; //!< shows what the widgets leave transparent

    bool operator==(const Page &other) const
    {
        return size == other.size && background == other.background &&
               checkerboard == other.checkerboard;
    }
    bool operator!=(const Page &other) const { return !(*this == other); }
};

} // namespace NARV::DEV
