#include "data/testdatafile.h"

#include "data/jsonreader.h"
#include "data/namechoice.h"

#include <QColor>
#include <QCoreApplication>

namespace NARV::DEV {

using Library = INTERNAL::WidgetLibraryPluginMetaInformation;

static QString tr(const char *text)
{
    return QCoreApplication::translate("NARV::DEV::JsonReader", text);
}

static QLatin1String key(const char *text)
{
    return QLatin1String(text);
}

static void put(QJsonObject &json, const char *name, const QJsonValue &value,
                const QJsonValue &usual)
{
    if (value != usual)
        json.insert(key(name), value);
}

//! Numbers that JSON can not hold exactly go as texts, which toTagValue() reads as well.
static QJsonValue valueToJson(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::QVariantList: {
        QJsonArray array;
        for (const QVariant &element : value.toList())
            array.append(valueToJson(element));
        return array;
    }
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Int:
    case QMetaType::UInt:
        return value.toDouble();
    case QMetaType::Double:
        if (qIsFinite(value.toDouble()))
            return value.toDouble();
        break;
    default:
        break;
    }
    return tagValueText(value);
}

// Generators

static QStringList generatorNames()
{
    QStringList names;
    for (const GeneratorInfo &info : generators())
        names.append(QString::fromLatin1(info.name));
    return names;
}

static QJsonObject writeGenerator(const GeneratorSettings &settings, TagType type)
{
    using P = GeneratorParameter;
    const GeneratorSettings usual;
    const GeneratorInfo &info = generatorInfo(settings.kind);
    const struct
    {
        P parameter;
        const char *name;
        QJsonValue value;
    } members[] = {{P::Period, "period", settings.period},
                   {P::Limits, "minimum", settings.minimum},
                   {P::Limits, "maximum", settings.maximum},
                   {P::Step, "step", settings.step},
                   {P::Seed, "seed", settings.seed},
                   {P::Value, "value", settings.value},
                   {P::Texts, "texts", QJsonArray::fromStringList(settings.texts)},
                   {P::File, "file", settings.file}};
    QJsonObject json{{key("kind"), QString::fromLatin1(info.name)}};
    for (const auto &member : members) {
        if (info.parameters.testFlag(member.parameter))
            json.insert(key(member.name), member.value);
    }
    if (isArrayType(type))
        put(json, "elements", settings.elements, usual.elements);
    put(json, "quality", qualityName(settings.quality), qualityName(usual.quality));
    return json;
}

static void readGenerator(JsonReader &in, GeneratorSettings &settings)
{
    constexpr int anySeed = 1000000;
    in.need("kind").choice("kind", settings.kind, generatorNames());
    in.whole("period", settings.period, GeneratorSettings::shortestPeriod,
             GeneratorSettings::longestPeriod);
    in.number("minimum", settings.minimum);
    in.number("maximum", settings.maximum);
    in.number("step", settings.step);
    in.whole("seed", settings.seed, 0, anySeed);
    in.text("value", settings.value);
    in.texts("texts", settings.texts);
    in.text("file", settings.file);
    in.whole("elements", settings.elements, 1, GeneratorSettings::mostElements);
    in.choice("quality", settings.quality, qualityNames());
    if (settings.minimum > settings.maximum)
        in.fail("minimum", tr("is greater than the maximum"));
    if (settings.step <= 0)
        in.fail("step", tr("is not greater than 0"));
}

// Tags

static QJsonObject writeTag(const Tag &tag)
{
    QJsonObject json{{key("name"), tag.name}, {key("type"), Library::tagTypeToString(tag.type)}};
    const bool isMoving = tag.generator.kind != GeneratorKind::None;
    const GeneratorSettings usual;
    if (isMoving) {
        json.insert(key("generator"), writeGenerator(tag.generator, tag.type));
        return json;
    }
    put(json, "minimum", tag.generator.minimum, usual.minimum);
    put(json, "maximum", tag.generator.maximum, usual.maximum);
    put(json, "quality", qualityName(tag.quality), qualityName(Quality::Good));
    if (tag.value.isValid())
        json.insert(key("value"), valueToJson(tag.value));
    return json;
}

static void readType(JsonReader &in, TagType &type)
{
    QStringList names;
    for (const TagType each : tagTypes())
        names.append(Library::tagTypeToString(each));
    int index = 0;
    in.need("type").choice("type", index, names);
    type = tagTypes().at(index);
}

static Tag readTag(JsonReader &in)
{
    Tag tag;
    readType(in, tag.type);
    in.choice("quality", tag.quality, qualityNames());
    in.number("minimum", tag.generator.minimum);
    in.number("maximum", tag.generator.maximum);
    in.value("value", [&tag](const QJsonValue &value) {
        tag.value = value.isNull() ? QVariant() : value.toVariant();
        return toTagValue(tag.type, tag.value);
    });
    in.object("generator", [&tag](JsonReader &reader) { readGenerator(reader, tag.generator); });
    return tag;
}

// Trends

static QJsonObject writeTrend(const Trend &trend)
{
    const Trend usual;
    QJsonObject json{{key("name"), trend.name}};
    put(json, "tag", trend.tagName, usual.tagName);
    put(json, "file", trend.file, usual.file);
    put(json, "interval", trend.interval, usual.interval);
    put(json, "capacity", trend.capacity, usual.capacity);
    return json;
}

static Trend readTrend(JsonReader &in)
{
    Trend trend;
    in.text("tag", trend.tagName);
    in.text("file", trend.file);
    in.whole("interval", trend.interval, Trend::shortestInterval, Trend::longestInterval);
    in.whole("capacity", trend.capacity, 1, Trend::mostSamples);
    if (trend.tagName.isEmpty() == trend.file.isEmpty())
        in.fail(nullptr, tr("a trend has either a tag or a file"));
    return trend;
}

// Alarms

using Colors = QMap<AlarmInfo::State, QColor>;

static QJsonObject writeColors(const Colors &colors, const Colors &usual)
{
    QJsonObject json;
    for (int state = 0; state < alarmStateNames().size(); ++state) {
        const QColor color = colors.value(AlarmInfo::State(state));
        if (color != usual.value(AlarmInfo::State(state)))
            json.insert(alarmStateNames().at(state),
                        color.isValid() ? color.name(QColor::HexArgb) : QString());
    }
    return json;
}

//! An empty text stands for no colour.
static void readColors(JsonReader &in, Colors &colors)
{
    for (int state = 0; state < alarmStateNames().size(); ++state) {
        const QByteArray name = alarmStateNames().at(state).toLatin1();
        in.value(name.constData(), [&](const QJsonValue &value) {
            const QColor color(value.toString());
            if (!value.isString() || (!color.isValid() && !value.toString().isEmpty()))
                return JsonReader::isNo("a colour");
            if (color.isValid())
                colors.insert(AlarmInfo::State(state), color);
            else
                colors.remove(AlarmInfo::State(state));
            return QString();
        });
    }
}

static const struct
{
    const char *name;
    bool AlarmInfoData::*flag;
} alarmFlags[] = {{"acknowledge", &AlarmInfoData::acknowledgeEnabled},
                  {"reset", &AlarmInfoData::resetEnabled},
                  {"blink", &AlarmInfoData::blinkEnabled}};

static QJsonObject writeLimit(const AlarmLimit &limit)
{
    QJsonObject json{{key("kind"), alarmLimitNames().at(limit.kind)}, {key("value"), limit.limit}};
    put(json, "hysteresis", limit.hysteresis, AlarmLimit().hysteresis);
    return json;
}

static void readLimit(JsonReader &in, AlarmLimit &limit)
{
    in.need("kind").choice("kind", limit.kind, alarmLimitNames());
    in.number("value", limit.limit);
    in.number("hysteresis", limit.hysteresis);
    if (limit.hysteresis < 0)
        in.fail("hysteresis", tr("is negative"));
}

static QJsonObject writeAlarm(const Alarm &alarm)
{
    const Alarm usual = defaultAlarm(alarm.info.name);
    const AlarmInfoData &info = alarm.info;
    QJsonObject json{{key("name"), info.name}};
    put(json, "description", info.description, usual.info.description);
    put(json, "severity", alarmSeverityNames().at(info.severity),
        alarmSeverityNames().at(usual.info.severity));
    put(json, "groups", QJsonArray::fromStringList(info.groups), QJsonArray());
    put(json, "customFields", QJsonArray::fromStringList(info.customFields), QJsonArray());
    put(json, "tag", info.tagName, QString());
    for (const auto &member : alarmFlags)
        put(json, member.name, info.*member.flag, usual.info.*member.flag);
    put(json, "backgroundColors", writeColors(info.backgroundColors, usual.info.backgroundColors),
        QJsonObject());
    put(json, "foregroundColors", writeColors(info.foregroundColors, usual.info.foregroundColors),
        QJsonObject());
    if (alarm.limit.kind != AlarmLimit::None)
        json.insert(key("limit"), writeLimit(alarm.limit));
    if (alarm.limit.kind == AlarmLimit::None || info.state == AlarmInfo::StateDisabled)
        put(json, "state", alarmStateNames().at(info.state),
            alarmStateNames().at(usual.info.state));
    return json;
}

static Alarm readAlarm(JsonReader &in)
{
    Alarm alarm = defaultAlarm({});
    AlarmInfoData &info = alarm.info;
    in.text("description", info.description);
    in.choice("severity", info.severity, alarmSeverityNames());
    in.texts("groups", info.groups);
    in.texts("customFields", info.customFields);
    in.text("tag", info.tagName);
    for (const auto &member : alarmFlags)
        in.flag(member.name, info.*member.flag);
    in.object("backgroundColors",
              [&info](JsonReader &reader) { readColors(reader, info.backgroundColors); });
    in.object("foregroundColors",
              [&info](JsonReader &reader) { readColors(reader, info.foregroundColors); });
    in.object("limit", [&alarm](JsonReader &reader) { readLimit(reader, alarm.limit); });
    in.choice("state", info.state, alarmStateNames());
    return alarm;
}

// All of it

template<typename Item>
static QJsonArray writeAll(const QVector<Item> &items, QJsonObject (*write)(const Item &item))
{
    QJsonArray array;
    for (const Item &item : items)
        array.append(write(item));
    return array;
}

QJsonObject writeTestData(const TestDataContent &content)
{
    return {{key("tags"), writeAll(content.tags, writeTag)},
            {key("trends"), writeAll(content.trends, writeTrend)},
            {key("alarms"), writeAll(content.alarms, writeAlarm)}};
}

QString readTestData(const QJsonObject &json, TestDataContent &content)
{
    QString problem;
    JsonReader in(json, problem);
    const auto read = [&](const char *name, auto &items, auto readItem, auto nameOf) {
        QSet<QString> taken;
        in.objects(name, [&](JsonReader &reader) {
            QString itemName;
            reader.need("name").text("name", itemName);
            auto item = readItem(reader);
            nameOf(item) = itemName;
            const QString wrong = nameProblem(
                itemName, [&taken](const QString &wanted) { return taken.contains(wanted); });
            if (reader.isGood() && !wrong.isEmpty())
                reader.fail("name", wrong);
            taken.insert(itemName);
            items.append(item);
        });
    };
    read("tags", content.tags, readTag, [](Tag &tag) -> QString & { return tag.name; });
    read("trends", content.trends, readTrend, [](Trend &trend) -> QString & { return trend.name; });
    read("alarms", content.alarms, readAlarm,
         [](Alarm &alarm) -> QString & { return alarm.info.name; });
    in.finish();
    return problem;
}

} // namespace NARV::DEV
