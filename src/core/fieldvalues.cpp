#include "core/jsonnumbers_p.h"
#include "core/jsontexts_p.h"
#include "core/widgetlibrarypluginutils.h"

#include <QColor>

#include <iterator>

namespace NARV::INTERNAL {

using Library = WidgetLibraryPluginMetaInformation;
using StringMap = QMap<int, QString>;

static const QLatin1String mapKeyMember("i");
static const QLatin1String mapTextMember("v");
static const QLatin1String imageIsValidMember("isValid");
static const QLatin1String imageValueMember("value");

// QVariant compares values of types that it does not know by address.
static const bool stringMapsAreComparable = QMetaType::registerEqualsComparator<StringMap>();

static QVariant stringListFromString(const QString &text)
{
    QStringList list;
    const QJsonArray array = fromJson(text).array();
    for (const QJsonValue &element : array)
        list.append(element.toString());
    return list;
}

static QVariant stringMapFromString(const QString &text)
{
    StringMap map;
    const QJsonArray array = fromJson(text).array();
    for (const QJsonValue &element : array) {
        if (!element.isObject())
            continue;
        const QJsonObject entry = element.toObject();
        map.insert(toInt(entry.value(mapKeyMember)), entry.value(mapTextMember).toString());
    }
    return QVariant::fromValue(map);
}

static QVariant colorFromString(const QString &text)
{
    QColor color;
    if (QColor::isValidColor(text))
        color.setNamedColor(text);
    return color;
}

static QVariant imageFromString(const QString &text)
{
    const QJsonObject object = fromJson(text).object();
    const bool isValid = object.value(imageIsValidMember).toBool();
    return isValid ? object.value(imageValueMember).toVariant() : QVariant();
}

static QString stringMapToString(const QVariant &value)
{
    const StringMap map = value.value<StringMap>();
    QJsonArray array;
    for (auto it = map.constBegin(); it != map.constEnd(); ++it)
        array.append(QJsonObject{{mapKeyMember, it.key()}, {mapTextMember, it.value()}});
    return toCompactJson(array);
}

static QString imageToString(const QVariant &value)
{
    return toCompactJson(
        QJsonObject{{imageIsValidMember, value.isValid()},
                    {imageValueMember, value.isValid() ? value.toString() : QLatin1String("")}});
}

namespace {

//! How the values of one field type are read from and written as text.
struct TextForm
{
    QVariant (*read)(const QString &text);
    QString (*write)(const QVariant &value);
};

const TextForm integerForm = {
    [](const QString &text) { return QVariant(text.toInt()); },
    [](const QVariant &value) { return QString::number(value.toInt()); },
};

// In the order of the field types. Types without values have no text form.
const TextForm textForms[] = {
    {nullptr, nullptr}, // Undefined
    {[](const QString &text) { return QVariant(text); },
     [](const QVariant &value) { return value.toString(); }},
    {stringListFromString,
     [](const QVariant &value) {
         return toCompactJson(QJsonArray::fromStringList(value.toStringList()));
     }},
    {stringMapFromString, stringMapToString},
    integerForm,
    {[](const QString &text) { return QVariant(text.toDouble()); },
     [](const QVariant &value) { return QString::number(value.toDouble(), 'g', 6); }},
    {[](const QString &text) { return QVariant(text == QLatin1String("true")); },
     [](const QVariant &value) { return QVariant(value.toBool()).toString(); }},
    integerForm, // Option
    {colorFromString,
     [](const QVariant &value) { return value.value<QColor>().name(); }}, // #000000 if invalid
    {[](const QString &text) {
         return QVariant(WidgetLibraryPluginUtils::fieldFontFromString(text));
     },
     [](const QVariant &value) {
         return WidgetLibraryPluginUtils::fieldFontToString(value.value<QFont>());
     }},
    {imageFromString, imageToString},
    {nullptr, nullptr}, // Tag
    {nullptr, nullptr}, // Trend
};
static_assert(std::size(textForms) == Library::FieldType::Trend + 1);

const TextForm &textForm(int fieldType)
{
    const bool isKnown = fieldType >= 0 && fieldType < int(std::size(textForms));
    return textForms[isKnown ? fieldType : int(Library::FieldType::Undefined)];
}

template<typename Number>
QVariant clamped(const QVariant &value, const Library::FieldMetaInformation &field)
{
    auto number = value.value<Number>();
    if (field.minimum().isValid())
        number = std::max(number, field.minimum().value<Number>());
    // Last, so that with a minimum above the maximum every value ends at the maximum.
    if (field.maximum().isValid())
        number = std::min(number, field.maximum().value<Number>());
    return number;
}

//! A number that is neither negative nor infinite nor NaN.
bool isLength(double number)
{
    return number >= 0 && qIsFinite(number);
}

} // namespace

QVariant WidgetLibraryPluginUtils::fieldValueFromString(int fieldType, const QString &text)
{
    const TextForm &form = textForm(fieldType);
    return form.read ? form.read(text) : QVariant();
}

QString WidgetLibraryPluginUtils::fieldValueToString(int fieldType, const QVariant &value)
{
    const TextForm &form = textForm(fieldType);
    return form.write ? form.write(value) : QString();
}

QVariant WidgetLibraryPluginUtils::fieldValueCheckBeforeSet(int fieldType, const QVariant &value,
                                                            const QString &fieldId,
                                                            const WidgetMetaInformation &widget)
{
    const bool isNumber =
        fieldType == Library::FieldType::Integer || fieldType == Library::FieldType::Double;
    if (!widget.isValid() || !isNumber)
        return value;
    const auto field = widget.fields().constFind(fieldId);
    if (field == widget.fields().constEnd())
        return value;
    return fieldType == Library::FieldType::Integer ? clamped<int>(value, *field)
                                                    : clamped<double>(value, *field);
}

bool WidgetLibraryPluginUtils::convertStringTo(const QString &text, QSizeF &size)
{
    size = QSizeF();
    const int separator = text.indexOf(QLatin1Char('x'));
    if (separator < 0)
        return false;
    bool widthIsNumber = false;
    bool heightIsNumber = false;
    const double width = text.leftRef(separator).toDouble(&widthIsNumber);
    const double height = text.midRef(separator + 1).toDouble(&heightIsNumber);
    if (!widthIsNumber || !heightIsNumber || !isLength(width) || !isLength(height))
        return false;
    size = QSizeF(width, height);
    return true;
}

} // namespace NARV::INTERNAL
