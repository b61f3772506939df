#include "numbertext.h"

#include <QLocale>

static constexpr double largestInteger = 9007199254740992; // 2^53: what a double holds exactly
static constexpr int mostDecimals = 15;
static constexpr int mostDigits = 64;

static QLocale locale()
{
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale;
}

QString decimalText(double value, int decimals)
{
    return numberText(value, {NumberFormat::Decimal, decimals, 1, false});
}

QString labelText(double value)
{
    return locale().toString(value, 'g', 6);
}

QString withUnit(const QString &number, const QString &unit)
{
    return unit.isEmpty() ? number : number + QChar(QChar::Nbsp) + unit;
}

static QString integerText(double magnitude, int base)
{
    return QString::number(qRound64(qMin(magnitude, largestInteger)), base).toUpper();
}

//! The number without its sign.
static QString magnitudeText(double magnitude, const NumberStyle &style)
{
    const int decimals = qBound(0, style.decimals, mostDecimals);
    switch (style.format) {
    case NumberFormat::Scientific:
        return locale().toString(magnitude, 'e', decimals);
    case NumberFormat::Hexadecimal:
        return integerText(magnitude, 16);
    case NumberFormat::Binary:
        return integerText(magnitude, 2);
    case NumberFormat::Decimal:
        break;
    }
    return locale().toString(magnitude, 'f', decimals);
}

static QString signText(double value, const QString &digits, const NumberStyle &style)
{
    if (digits == magnitudeText(0, style)) // also a number that is rounded to zero
        return {};
    if (value < 0)
        return locale().negativeSign();
    return style.showSign ? QString(locale().positiveSign()) : QString();
}

QString numberText(double value, const NumberStyle &style)
{
    QString digits = magnitudeText(qAbs(value), style);
    const QString sign = signText(value, digits, style);
    const int point = digits.indexOf(locale().decimalPoint());
    const int leading = point < 0 ? digits.size() : point;
    const int wanted = qMin(style.digits, mostDigits);
    if (style.format != NumberFormat::Scientific && leading < wanted)
        digits.prepend(QString(wanted - leading, locale().zeroDigit()));
    return sign + digits;
}
