#include "metadata/fieldwarnings.h"

#include "metadata/keywarnings.h"

#include "core/jsonnumbers_p.h"

#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>

#include <QColor>
#include <QJsonArray>
#include <QMap>

#include <cmath>

namespace ZPPluginTool {

using Key = QLatin1String;
using FieldType = NARV::INTERNAL::WidgetLibraryPluginMetaInformation::FieldType;

static const Key defaultValueKey("defaultValue");
static const Key minimumKey("minimum");
static const Key maximumKey("maximum");

static QString numberText(double number)
{
    return QString::number(number, 'g', 12);
}

//! Warns of a number that is not stored as it is written.
static void warnOfInteger(const QJsonObject &object, Key key, WarningList &warnings)
{
    const QJsonValue value = object.value(key);
    const double number = value.toDouble();
    const int stored = NARV::INTERNAL::toInt(value);
    if (number == stored || std::isnan(number))
        return;
    const QString reason = std::abs(number - stored) < 1
                               ? QStringLiteral("%1 is no whole number")
                               : QStringLiteral("%1 does not fit into 32 bits");
    warnings.addAt(QString(key), "number",
                   reason.arg(numberText(number)) +
                       QStringLiteral(", it is stored as %1").arg(stored));
}

//! Warns of elements with the same number under key; tells what becomes of them.
static void warnOfNumbers(const QJsonArray &elements, Key key, const char *code,
                          const QString &consequence, MetaDataObject kind, WarningList &warnings)
{
    QMap<int, int> firstElements;
    for (int i = 0; i < elements.size(); ++i) {
        const QJsonObject element = elements.at(i).toObject();
        const WarningList::Step into(warnings, i);
        warnOfUnknownKeys(element, kind, warnings);
        warnOfInteger(element, key, warnings);
        const int number = NARV::INTERNAL::toInt(element.value(key));
        if (!element.value(key).isDouble())
            continue;
        if (!firstElements.contains(number))
            firstElements.insert(number, i);
        else
            warnings.addAt(QString(key), code, consequence.arg(number).arg(firstElements[number]));
    }
}

static void warnOfOptions(const QJsonObject &field, WarningList &warnings)
{
    warnOfInteger(field, defaultValueKey, warnings);
    const WarningList::Step into(warnings, QStringLiteral("options"));
    warnOfNumbers(field.value(Key("options")).toArray(), Key("index"), "duplicate-option",
                  QStringLiteral("index %1 is that of options[%2] too, so the two can not be told "
                                 "apart"),
                  MetaDataObject::Option, warnings);
}

static void warnOfTextMap(const QJsonObject &field, WarningList &warnings)
{
    const WarningList::Step into(warnings, QString(defaultValueKey));
    warnOfNumbers(field.value(defaultValueKey).toArray(), Key("id"), "duplicate-id",
                  QStringLiteral("id %1 is that of element %2 too, whose text is lost"),
                  MetaDataObject::TextOfMap, warnings);
}

static void warnOfFont(const QJsonObject &field, Key key, WarningList &warnings)
{
    const QJsonObject font = field.value(key).toObject();
    const WarningList::Step into(warnings, QString(key));
    warnOfUnknownKeys(font, MetaDataObject::Font, warnings);
    warnOfInteger(font, Key("size"), warnings);
}

static void warnOfColor(const QJsonObject &field, WarningList &warnings)
{
    const QJsonValue value = field.value(defaultValueKey);
    if (!value.isString() || QColor(value.toString()).isValid())
        return;
    warnings.addAt(QString(defaultValueKey), "color",
                   QStringLiteral("\"%1\" names no colour; write \"#rrggbb\", \"#aarrggbb\" or an "
                                  "SVG colour name")
                       .arg(value.toString()));
}

//! What is wrong with the value that a field starts with; empty when it is within the bounds.
static QString outOfBounds(double value, const QJsonValue &minimum, const QJsonValue &maximum)
{
    if (minimum.isDouble() && value < minimum.toDouble())
        return QStringLiteral("below the minimum %1").arg(numberText(minimum.toDouble()));
    if (maximum.isDouble() && value > maximum.toDouble())
        return QStringLiteral("above the maximum %1").arg(numberText(maximum.toDouble()));
    return {};
}

static void warnOfStartValue(const QJsonObject &field, WarningList &warnings)
{
    const QJsonValue given = field.value(defaultValueKey);
    const QJsonValue minimum = field.value(minimumKey);
    const QJsonValue maximum = field.value(maximumKey);
    const bool isReversed =
        minimum.isDouble() && maximum.isDouble() && minimum.toDouble() > maximum.toDouble();
    const QString fault = outOfBounds(given.toDouble(), minimum, maximum);
    if (isReversed || fault.isEmpty())
        return;
    if (given.isUndefined())
        warnings.add(
            "default-value",
            QStringLiteral("without a \"defaultValue\" the field starts with 0, which is ") +
                fault);
    else if (given.isDouble())
        warnings.addAt(
            QString(defaultValueKey), "default-value",
            QStringLiteral("the default value %1 is %2").arg(numberText(given.toDouble()), fault));
}

static void warnOfIntegers(const QJsonObject &field, WarningList &warnings)
{
    for (Key key : {defaultValueKey, minimumKey, maximumKey})
        warnOfInteger(field, key, warnings);
}

void warnOfFieldValues(const QJsonObject &field, WarningList &warnings)
{
    using NARV::INTERNAL::WidgetLibraryPluginMetaInformation;
    switch (WidgetLibraryPluginMetaInformation::fieldTypeFromString(
        field.value(Key("type")).toString())) {
    case FieldType::Integer:
        warnOfIntegers(field, warnings);
        return warnOfStartValue(field, warnings);
    case FieldType::Double:
        return warnOfStartValue(field, warnings);
    case FieldType::Option:
        return warnOfOptions(field, warnings);
    case FieldType::Color:
        return warnOfColor(field, warnings);
    case FieldType::Font:
        return warnOfFont(field, defaultValueKey, warnings);
    case FieldType::StringMap:
        warnOfTextMap(field, warnings);
        return warnOfFont(field, Key("defaultFont"), warnings);
    case FieldType::String:
    case FieldType::StringList:
        return warnOfFont(field, Key("defaultFont"), warnings);
    default:
        return;
    }
}

} // namespace ZPPluginTool
