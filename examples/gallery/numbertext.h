#pragma once

#include <QString>

//! How a number is written.
enum class NumberFormat
{
    Scientific,
    Decimal,
    Hexadecimal,
    Binary
};

//! A decimal number in the notation of the panel's language, without a sign on a zero.
QString decimalText(double value, int decimals);
//! A decimal number with as many decimals as it needs to be told from its neighbours on a scale.
QString labelText(double value);
//! The number with its unit behind it, if it has one.
QString withUnit(const QString &number, const QString &unit);

//! All that decides how a number is written.
struct NumberStyle
{
    NumberFormat format = NumberFormat::Decimal;
    int decimals = 0;      //!< behind the point, for Scientific and Decimal
    int digits = 1;        //!< at least, before the point; filled with leading zeros
    bool showSign = false; //!< also of positive numbers, for Decimal
};
QString numberText(double value, const NumberStyle &style);
