#pragma once

#include <QJsonValue>

#include <limits>

namespace NARV::INTERNAL {

//! A JSON number as an int: the fraction is cut off, and a number beyond the range of int becomes
//! the nearest int.
inline int toInt(double number)
{
    if (!(number > std::numeric_limits<int>::min()))
        return number < 0 ? std::numeric_limits<int>::min() : 0;
    return number < std::numeric_limits<int>::max() ? int(number) : std::numeric_limits<int>::max();
}

//! The same; 0 for any other JSON type.
inline int toInt(const QJsonValue &value)
{
    return toInt(value.toDouble());
}

} // namespace NARV::INTERNAL
