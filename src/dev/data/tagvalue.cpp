#include "data/tagvalue.h"

#include <QCoreApplication>
#include <QLocale>

#include <cmath>
#include <limits>

namespace NARV::DEV {

static constexpr int mostElements = 4096;

static QString tr(const char *text)
{
    return QCoreApplication::translate("NARV::DEV::TestData", text);
}

//! The range of a whole number type.
struct WholeRange
{
    qint64 minimum = 0;
    quint64 maximum = 0;
    int metaType = QMetaType::UnknownType; //!< in which a tag holds it
};

template<typename T>
static constexpr WholeRange rangeOf(int metaType)
{
    return {std::numeric_limits<T>::min(), quint64(std::numeric_limits<T>::max()), metaType};
}

//! By TagType, from Bool to Int64.
static constexpr WholeRange wholeRanges[] = {
    {},
    {0, 1, QMetaType::Bool},
    rangeOf<qint8>(QMetaType::Int),
    rangeOf<qint16>(QMetaType::Int),
    rangeOf<qint32>(QMetaType::Int),
    rangeOf<quint8>(QMetaType::Int),
    rangeOf<quint16>(QMetaType::Int),
    {0, std::numeric_limits<quint32>::max(), QMetaType::UInt},
    {0, std::numeric_limits<quint64>::max(), QMetaType::ULongLong},
    rangeOf<qint64>(QMetaType::LongLong)};
static_assert(std::size(wholeRanges) == TagType::Int64 + 1);

const QVector<TagType> &tagTypes()
{
    static const QVector<TagType> types = [] {
        QVector<TagType> all;
        for (int type = TagType::Bool; type <= TagType::ArrayDouble; ++type)
            all.append(type);
        return all;
    }();
    return types;
}

bool isArrayType(TagType type)
{
    return type >= TagType::ArrayBool && type <= TagType::ArrayDouble;
}

TagType elementType(TagType type)
{
    return isArrayType(type) ? TagType(type - TagType::ArrayBool + TagType::Bool) : type;
}

TagRange tagRange(TagType type)
{
    const int element = elementType(type);
    if (element >= TagType::Bool && element <= TagType::Int64)
        return {double(wholeRanges[element].minimum), double(wholeRanges[element].maximum), true};
    if (element == TagType::Float)
        return {-std::numeric_limits<float>::max(), std::numeric_limits<float>::max(), false};
    if (element == TagType::Double)
        return {-std::numeric_limits<double>::max(), std::numeric_limits<double>::max(), false};
    return {0, 0, false};
}

static QString notA(const QVariant &value, const char *what)
{
    return tr("“%1” is not %2").arg(shortTagValueText(value), tr(what));
}

static QString outOfRange(const QVariant &value, const WholeRange &range)
{
    return tr("%1 is out of the range from %2 to %3")
        .arg(shortTagValueText(value), QString::number(range.minimum),
             QString::number(range.maximum));
}

static bool isText(const QVariant &value)
{
    return value.userType() == QMetaType::QString || value.userType() == QMetaType::QByteArray;
}

//! A number of any type, or a text that holds one.
static bool toNumber(const QVariant &value, double &number)
{
    bool isNumber = value.canConvert(QMetaType::Double);
    if (isNumber)
        number = value.toDouble(&isNumber);
    return isNumber;
}

//! A whole number exactly, as qlonglong or qulonglong; a fraction rounded. Invalid for none.
static QVariant toWhole(const QVariant &value)
{
    const int type = value.userType();
    bool isWhole = false;
    if (type != QMetaType::Double && type != QMetaType::Float) {
        const qlonglong number = value.toLongLong(&isWhole);
        if (isWhole && (type != QMetaType::ULongLong || number >= 0))
            return number;
        const qulonglong big = value.toULongLong(&isWhole);
        if (isWhole)
            return big;
    }
    double number = 0;
    if (!toNumber(value, number))
        return {};
    number = std::round(number);
    constexpr double twoTo63 = 9223372036854775808.0;
    // a text that rounds to the least number of 64 bits would have been read above if it were it
    const bool isTooLow = isText(value) ? number <= -twoTo63 : number < -twoTo63;
    if (!isTooLow && number < twoTo63)
        return qlonglong(number);
    return number >= twoTo63 && number < 2 * twoTo63 ? QVariant(qulonglong(number))
                                                     : QVariant(number);
}

static bool isInRange(const QVariant &whole, const WholeRange &range)
{
    if (whole.userType() == QMetaType::ULongLong)
        return whole.toULongLong() <= range.maximum;
    if (whole.userType() != QMetaType::LongLong)
        return false;
    const qint64 number = whole.toLongLong();
    return number >= range.minimum && (number < 0 || quint64(number) <= range.maximum);
}

static QString toWholeValue(TagType type, QVariant &value)
{
    const WholeRange &range = wholeRanges[type];
    QVariant whole = toWhole(value);
    if (!whole.isValid())
        return notA(value, QT_TRANSLATE_NOOP("NARV::DEV::TestData", "a whole number"));
    if (!isInRange(whole, range))
        return outOfRange(value, range);
    whole.convert(range.metaType);
    value = whole;
    return {};
}

static QString toBoolValue(TagType, QVariant &value)
{
    const QString text = isText(value) ? value.toString().trimmed().toLower() : QString();
    if (text == QLatin1String("true") || text == QLatin1String("false")) {
        value = text == QLatin1String("true");
        return {};
    }
    double number = 0;
    if (!toNumber(value, number) || std::isnan(number))
        return notA(value, QT_TRANSLATE_NOOP("NARV::DEV::TestData", "true or false"));
    value = number != 0;
    return {};
}

static QString toRealValue(TagType type, QVariant &value)
{
    double number = 0;
    if (!toNumber(value, number))
        return notA(value, QT_TRANSLATE_NOOP("NARV::DEV::TestData", "a number"));
    if (type == TagType::Double) {
        value = number;
        return {};
    }
    if (std::isfinite(number) && std::abs(number) > double(std::numeric_limits<float>::max()))
        return notA(value, QT_TRANSLATE_NOOP("NARV::DEV::TestData", "in the range of a float"));
    value = float(number);
    return {};
}

static QString toTextValue(TagType, QVariant &value)
{
    const bool isList = value.userType() == QMetaType::QVariantList;
    if (isList || !value.canConvert(QMetaType::QString))
        return notA(value, QT_TRANSLATE_NOOP("NARV::DEV::TestData", "a text"));
    value = tagValueText(value);
    return {};
}

static QString toElement(TagType type, QVariant &value)
{
    static constexpr QString (*const converters[])(TagType, QVariant &) = {
        toTextValue,  toBoolValue,  toWholeValue, toWholeValue, toWholeValue,
        toWholeValue, toWholeValue, toWholeValue, toWholeValue, toWholeValue,
        toRealValue,  toRealValue,  toTextValue};
    static_assert(std::size(converters) == TagType::String + 1);
    return converters[type](type, value);
}

static QVariantList elementsOf(const QVariant &value)
{
    if (!isText(value))
        return value.canConvert(QMetaType::QVariantList) ? value.toList() : QVariantList{value};
    const QString text = value.toString().trimmed();
    if (text.isEmpty())
        return {};
    QVariantList elements;
    for (const QString &element : text.split(QLatin1Char(',')))
        elements.append(element.trimmed());
    return elements;
}

static QString toArray(TagType type, QVariant &value)
{
    QVariantList elements = elementsOf(value);
    if (elements.size() > mostElements)
        return tr("An array has at most %1 elements").arg(mostElements);
    for (int i = 0; i < elements.size(); ++i) {
        const QString problem = toElement(type, elements[i]);
        if (!problem.isEmpty())
            return tr("[%1]: %2").arg(QString::number(i), problem);
    }
    value = elements;
    return {};
}

QString toTagValue(TagType type, QVariant &value)
{
    if (!value.isValid())
        return {};
    if (type < TagType::Bool || type > TagType::ArrayDouble)
        return tr("The tag has no type");
    return isArrayType(type) ? toArray(elementType(type), value) : toElement(type, value);
}

//! With that many digits of a float and of a double.
static QString valueText(const QVariant &value, int floatDigits, int doubleDigits)
{
    switch (value.userType()) {
    case QMetaType::Float:
        return QString::number(double(value.toFloat()), 'g', floatDigits);
    case QMetaType::Double:
        return QString::number(value.toDouble(), 'g', doubleDigits);
    case QMetaType::QVariantList: {
        QStringList texts;
        for (const QVariant &element : value.toList())
            texts.append(valueText(element, floatDigits, doubleDigits));
        return texts.join(QLatin1String(", "));
    }
    default:
        return value.toString();
    }
}

QString tagValueText(const QVariant &value)
{
    return valueText(value, std::numeric_limits<float>::max_digits10 - 1,
                     QLocale::FloatingPointShortest);
}

QString shortTagValueText(const QVariant &value)
{
    constexpr int digits = 6;
    constexpr int longest = 80;
    const QString text = valueText(value, digits, digits);
    return text.size() > longest ? text.left(longest) + QChar(0x2026) : text;
}

} // namespace NARV::DEV
