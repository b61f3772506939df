#include "scene/authoredvalue.h"

#include <NARV/INTERNAL/WidgetLibraryPluginUtils>

#include <QColor>
#include <QCoreApplication>
#include <QFont>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace NARV::DEV {

using Text = INTERNAL::PluginMetaInformation::TranslationStringType;
using Texts = QList<Text>;
using TextMap = QMap<int, Text>;
using StringMap = QMap<int, QString>;
using FieldType = INTERNAL::WidgetLibraryPluginMetaInformation::FieldType;
using Utils = INTERNAL::WidgetLibraryPluginUtils;

QString fontId(const QString &fieldId)
{
    return fieldId + QLatin1String(".font");
}

QString fieldLabel(const FieldMetaInformation &field, bool isFont, const QString &languageCode)
{
    const QString label = field.display().get(languageCode, true);
    return isFont ? QCoreApplication::translate("NARV::DEV::AuthoredValue", "%1: font").arg(label)
                  : label;
}

template<typename T>
static bool holds(const QVariant &value)
{
    return value.userType() == qMetaTypeId<T>();
}

QVariant inLanguage(const QVariant &value, const QString &languageCode)
{
    const auto plain = [&](const Text &text) { return text.get(languageCode, true); };
    if (holds<Text>(value))
        return plain(value.value<Text>());
    if (holds<Texts>(value)) {
        QStringList list;
        for (const Text &text : value.value<Texts>())
            list += plain(text);
        return list;
    }
    if (!holds<TextMap>(value))
        return value;
    StringMap map;
    const auto texts = value.value<TextMap>();
    for (auto it = texts.begin(); it != texts.end(); ++it)
        map.insert(it.key(), plain(*it));
    return QVariant::fromValue(map);
}

static Text changed(Text text, const QString &languageCode, const QString &written)
{
    text.set(languageCode, written);
    return text;
}

QVariant withLanguage(const QVariant &authored, const QVariant &written,
                      const QString &languageCode)
{
    if (holds<Text>(authored))
        return QVariant::fromValue(
            changed(authored.value<Text>(), languageCode, written.toString()));
    if (holds<Texts>(authored)) {
        const auto before = authored.value<Texts>();
        Texts after;
        for (const QString &text : written.toStringList())
            after += changed(before.value(after.size()), languageCode, text);
        return QVariant::fromValue(after);
    }
    if (!holds<TextMap>(authored))
        return written;
    const auto before = authored.value<TextMap>();
    const auto texts = written.value<StringMap>();
    TextMap after;
    for (auto it = texts.begin(); it != texts.end(); ++it)
        after.insert(it.key(), changed(before.value(it.key()), languageCode, *it));
    return QVariant::fromValue(after);
}

bool isSameValue(const QVariant &a, const QVariant &b)
{
    if (a.userType() != b.userType())
        return false;
    if (holds<Text>(a))
        return a.value<Text>() == b.value<Text>();
    if (holds<Texts>(a))
        return a.value<Texts>() == b.value<Texts>();
    if (holds<TextMap>(a))
        return a.value<TextMap>() == b.value<TextMap>();
    return a == b;
}

namespace {

// JSON of the parts of values.

QJsonValue json(const QString &text)
{
    return text;
}

QJsonValue json(const Text &text)
{
    QJsonObject object;
    const QMap<QString, QString> &texts = text.translations();
    for (auto it = texts.begin(); it != texts.end(); ++it)
        object.insert(it.key(), *it);
    return object;
}

bool read(const QJsonValue &value, QString &text)
{
    text = value.toString();
    return value.isString();
}

bool read(const QJsonValue &value, Text &text)
{
    const QJsonObject object = value.toObject();
    for (auto it = object.begin(); it != object.end(); ++it) {
        if (!it.value().isString())
            return false;
        text.set(it.key(), it.value().toString());
    }
    return value.isObject();
}

template<typename List>
QJsonValue listJson(const List &list)
{
    QJsonArray array;
    for (const auto &element : list)
        array += json(element);
    return array;
}

template<typename Element>
QJsonValue mapJson(const QMap<int, Element> &map)
{
    QJsonObject object;
    for (auto it = map.begin(); it != map.end(); ++it)
        object.insert(QString::number(it.key()), json(*it));
    return object;
}

//! Reads a value of type T into a QVariant.
using Read = bool (*)(const QJsonValue &, QVariant &);

template<typename T>
bool readOne(const QJsonValue &value, QVariant &out)
{
    T content;
    if (!read(value, content))
        return false;
    out = QVariant::fromValue(content);
    return true;
}

template<typename List>
bool readList(const QJsonValue &value, QVariant &out)
{
    List list;
    for (const QJsonValue element : value.toArray()) {
        typename List::value_type content;
        if (!read(element, content))
            return false;
        list += content;
    }
    out = QVariant::fromValue(list);
    return value.isArray();
}

template<typename Element>
bool readMap(const QJsonValue &value, QVariant &out)
{
    QMap<int, Element> map;
    const QJsonObject object = value.toObject();
    for (auto it = object.begin(); it != object.end(); ++it) {
        bool isNumber = false;
        const int key = it.key().toInt(&isNumber);
        if (!isNumber || !read(it.value(), map[key]))
            return false;
    }
    out = QVariant::fromValue(map);
    return value.isObject();
}

bool readInteger(const QJsonValue &value, QVariant &out)
{
    const double number = value.toDouble();
    if (!value.isDouble() || number != std::floor(number) ||
        std::abs(number) > double(std::numeric_limits<int>::max()))
        return false;
    out = int(number);
    return true;
}

bool readDouble(const QJsonValue &value, QVariant &out)
{
    out = value.toDouble();
    return value.isDouble();
}

bool readBool(const QJsonValue &value, QVariant &out)
{
    out = value.toBool();
    return value.isBool();
}

bool readColor(const QJsonValue &value, QVariant &out)
{
    const QColor color(value.toString());
    out = color;
    return color.isValid();
}

// Utils checks for another form than the one that it writes.
bool isFont(const QJsonObject &object)
{
    static const std::pair<QLatin1String, QJsonValue::Type> members[] = {
        {QLatin1String("family"), QJsonValue::String},
        {QLatin1String("size"), QJsonValue::Double},
        {QLatin1String("bold"), QJsonValue::Bool},
        {QLatin1String("style"), QJsonValue::String},
        {QLatin1String("underline"), QJsonValue::Bool},
    };
    return std::all_of(std::begin(members), std::end(members), [&](const auto &member) {
        return object.value(member.first).type() == member.second;
    });
}

bool readFont(const QJsonValue &value, QVariant &out)
{
    const QByteArray text = QJsonDocument(value.toObject()).toJson(QJsonDocument::Compact);
    out = Utils::fieldFontFromString(QString::fromUtf8(text));
    return isFont(value.toObject());
}

bool readImage(const QJsonValue &value, QVariant &out)
{
    out = value.isNull() ? QVariant() : QVariant(value.toString());
    return value.isNull() || value.isString();
}

struct ValueReaders
{
    Read plain;
    Read multiLanguage;
};

// In the order of the field types. What is bound to tags and trends is no value.
const ValueReaders valueReaders[] = {
    {nullptr, nullptr},
    {readOne<QString>, readOne<Text>},
    {readList<QStringList>, readList<Texts>},
    {readMap<QString>, readMap<Text>},
    {readInteger, readInteger},
    {readDouble, readDouble},
    {readBool, readBool},
    {readInteger, readInteger},
    {readColor, readColor},
    {readFont, readFont},
    {readImage, readImage},
    {nullptr, nullptr},
    {nullptr, nullptr},
};
static_assert(std::size(valueReaders) == FieldType::Trend + 1);

QJsonValue colorJson(const QVariant &value)
{
    return value.value<QColor>().name(QColor::HexArgb);
}

QJsonValue fontJson(const QVariant &value)
{
    return QJsonDocument::fromJson(Utils::fieldFontToString(value.value<QFont>()).toUtf8())
        .object();
}

} // namespace

QJsonValue toJson(const QVariant &value)
{
    using Write = QJsonValue (*)(const QVariant &);
    static const QHash<int, Write> writers = {
        {QMetaType::QColor, colorJson},
        {QMetaType::QFont, fontJson},
        {qMetaTypeId<StringMap>(), [](const QVariant &v) { return mapJson(v.value<StringMap>()); }},
        {qMetaTypeId<Text>(), [](const QVariant &v) { return json(v.value<Text>()); }},
        {qMetaTypeId<Texts>(), [](const QVariant &v) { return listJson(v.value<Texts>()); }},
        {qMetaTypeId<TextMap>(), [](const QVariant &v) { return mapJson(v.value<TextMap>()); }},
    };
    const Write write = writers.value(value.userType());
    return write ? write(value) : QJsonValue::fromVariant(value);
}

QString briefText(const QVariant &value)
{
    static const int longest = 80;
    if (!value.isValid())
        return QStringLiteral("(no value)");
    QString text = value.toString();
    if (!value.canConvert<QString>() || text.isEmpty()) {
        const QJsonValue json = toJson(value);
        const QJsonDocument document =
            json.isArray() ? QJsonDocument(json.toArray()) : QJsonDocument(json.toObject());
        text = json.isString() ? QLatin1Char('"') + json.toString() + QLatin1Char('"')
                               : QString::fromUtf8(document.toJson(QJsonDocument::Compact));
    }
    return text.size() > longest ? text.left(longest - 1) + QChar(0x2026) : text;
}

bool fromJson(const FieldMetaInformation &field, bool isFont, const QJsonValue &json,
              QVariant &value)
{
    if (isFont)
        return readFont(json, value);
    const ValueReaders &readers = valueReaders[field.type()];
    const Read readValue = field.isMultiLanguageText() ? readers.multiLanguage : readers.plain;
    return readValue && readValue(json, value);
}

} // namespace NARV::DEV
