#include "data/scenario.h"

#include "data/alarmtable.h"
#include "data/scenarioplayer.h"
#include "data/tagtable.h"
#include "data/testdata.h"

#include <QCoreApplication>

#include <cmath>
#include <limits>

namespace NARV::DEV {

//! Puts value(row) into each of the tags that it is meant for.
template<typename IsMeant, typename Value>
static int force(TestData &data, const QStringList &tags, Quality quality, IsMeant isMeant,
                 Value value)
{
    int count = 0;
    for (const QString &name : tags) {
        const int row = data.tags().find(name);
        if (row < 0 || !isMeant(data.tags().tag(row).type))
            continue;
        data.tags().force(row, value(row), quality);
        ++count;
    }
    return count;
}

static bool isAny(TagType)
{
    return true;
}

static bool isTextType(TagType type)
{
    return type == TagType::String;
}

static bool isNumberType(TagType type)
{
    return type != TagType::String && elementType(type) != TagType::Bool;
}

//! The value itself, or an array of it.
static QVariant shaped(TagType type, const QVariant &value)
{
    return isArrayType(type) ? QVariantList{value, value, value} : value;
}

static int giveNumber(TestData &data, const QStringList &tags, double number)
{
    return force(data, tags, Quality::Good, isNumberType,
                 [&](int row) { return shaped(data.tags().tag(row).type, number); });
}

static int giveText(TestData &data, const QStringList &tags, const QString &text)
{
    return force(data, tags, Quality::Good, isTextType, [&](int) { return text; });
}

static int noValue(TestData &data, const QStringList &tags)
{
    return force(data, tags, Quality::Bad, isAny, [](int) { return QVariant(); });
}

static int wrongType(TestData &data, const QStringList &tags)
{
    return force(data, tags, Quality::Good, isAny, [&](int row) {
        return isTextType(data.tags().tag(row).type) ? QVariant(QVariantList{1, 2, 3})
                                                     : QVariant(QStringLiteral("no number"));
    });
}

static int notANumber(TestData &data, const QStringList &tags)
{
    return giveNumber(data, tags, std::numeric_limits<double>::quiet_NaN());
}

static int infinity(TestData &data, const QStringList &tags)
{
    return giveNumber(data, tags, std::numeric_limits<double>::infinity());
}

static int outOfRange(TestData &data, const QStringList &tags)
{
    return force(data, tags, Quality::Good, isNumberType, [&](int row) {
        const TagType type = data.tags().tag(row).type;
        const TagRange range = tagRange(type);
        const double beyond = range.isWhole                         ? range.maximum * 2 + 1
                              : elementType(type) == TagType::Float ? range.maximum * 10
                                                                    : range.maximum;
        return shaped(type, beyond);
    });
}

static int emptyText(TestData &data, const QStringList &tags)
{
    return giveText(data, tags, QStringLiteral(""));
}

static int longText(TestData &data, const QStringList &tags)
{
    return giveText(data, tags, QStringLiteral("A text that goes on and on. ").repeated(400));
}

static int withQuality(TestData &data, const QStringList &tags, Quality quality)
{
    return force(data, tags, quality, isAny, [&](int row) { return data.tags().value(row); });
}

static int uncertainQuality(TestData &data, const QStringList &tags)
{
    return withQuality(data, tags, Quality::Uncertain);
}

static int badQuality(TestData &data, const QStringList &tags)
{
    return withQuality(data, tags, Quality::Bad);
}

//! A value that differs from the one of the step before, of the tag's type.
static QVariant burstValue(const Tag &tag, int step)
{
    GeneratorSettings settings = tag.generator;
    settings.kind = GeneratorKind::Noise;
    settings.period = GeneratorSettings::shortestPeriod;
    if (elementType(tag.type) == TagType::Bool)
        return shaped(tag.type, step % 2 == 0);
    return generate(tag.type, settings, nullptr, qint64(step) * settings.period).value;
}

static int burst(TestData &data, const QStringList &tags)
{
    constexpr int changes = 1000;
    TagTable &table = data.tags();
    for (int i = 0; i < changes && !tags.isEmpty(); ++i) {
        const int row = table.find(tags.at(i % tags.size()));
        if (row >= 0)
            table.force(row, burstValue(table.tag(row), i / tags.size()), Quality::Good);
    }
    table.release(tags);
    return tags.size();
}

static int fiftyAlarms(TestData &data, const QStringList &)
{
    constexpr int count = 50;
    QVector<Alarm> alarms;
    for (int i = 0; i < count; ++i) {
        Alarm alarm =
            defaultAlarm(QStringLiteral("scenario %1").arg(i + 1, 2, 10, QLatin1Char('0')));
        alarm.info.description = QStringLiteral("One of %1 alarms at once").arg(count);
        alarm.info.severity = AlarmInfo::Severity(i % (AlarmInfo::SeverityCritical + 1));
        alarm.info.state = AlarmInfo::StateTriggeredNotAcknowledged;
        alarm.info.groups = QStringList{QStringLiteral("scenario")};
        alarms.append(alarm);
    }
    data.alarms().addPassing(alarms);
    return count;
}

static int clearAlarms(TestData &data, const QStringList &)
{
    const int count = data.alarms().active().size();
    for (const auto action : {AlarmAction::Clear, AlarmAction::Acknowledge, AlarmAction::Reset})
        data.alarms().applyToAll(action);
    return count;
}

static int disableAlarms(TestData &data, const QStringList &)
{
    data.alarms().applyToAll(AlarmAction::Disable);
    return data.alarms().rowCount();
}

#define ZP_SCENARIO_TEXT(text) QT_TRANSLATE_NOOP("NARV::DEV::Scenario", text)

const QVector<Scenario> &scenarios()
{
    static const QVector<Scenario> all{
        {"noValue", ZP_SCENARIO_TEXT("No value"),
         ZP_SCENARIO_TEXT("Tags lose their value, as after a broken connection"), true, noValue},
        {"wrongType", ZP_SCENARIO_TEXT("Wrong type"),
         ZP_SCENARIO_TEXT("A text where a number is due, a list where a text is due"), true,
         wrongType},
        {"nan", ZP_SCENARIO_TEXT("Not a number"), ZP_SCENARIO_TEXT("Number tags give NaN"), true,
         notANumber},
        {"infinity", ZP_SCENARIO_TEXT("Infinity"),
         ZP_SCENARIO_TEXT("Number tags give an infinite value"), true, infinity},
        {"outOfRange", ZP_SCENARIO_TEXT("Out of range"),
         ZP_SCENARIO_TEXT("Number tags give more than their type can hold"), true, outOfRange},
        {"emptyText", ZP_SCENARIO_TEXT("Empty text"),
         ZP_SCENARIO_TEXT("Text tags give an empty text"), true, emptyText},
        {"longText", ZP_SCENARIO_TEXT("Very long text"),
         ZP_SCENARIO_TEXT("Text tags give 11,200 characters"), true, longText},
        {"uncertainQuality", ZP_SCENARIO_TEXT("Uncertain quality"),
         ZP_SCENARIO_TEXT("Tags freeze, with values not to be relied on"), true, uncertainQuality},
        {"badQuality", ZP_SCENARIO_TEXT("Bad quality"),
         ZP_SCENARIO_TEXT("Tags freeze, with values of no use; trends get a gap"), true,
         badQuality},
        {"burst", ZP_SCENARIO_TEXT("Burst of a thousand changes"),
         ZP_SCENARIO_TEXT("A thousand tag changes at once; then all is as before"), true, burst},
        {"fiftyAlarms", ZP_SCENARIO_TEXT("Fifty alarms at once"),
         ZP_SCENARIO_TEXT("Fifty new alarms of all severities are raised"), false, fiftyAlarms},
        {"clearAlarms", ZP_SCENARIO_TEXT("All alarms cleared"),
         ZP_SCENARIO_TEXT("Every alarm is over, acknowledged and reset"), false, clearAlarms},
        {"disableAlarms", ZP_SCENARIO_TEXT("All alarms disabled"),
         ZP_SCENARIO_TEXT("Every alarm is switched off"), false, disableAlarms}};
    return all;
}

QString Scenario::title() const
{
    return QCoreApplication::translate("NARV::DEV::Scenario", untranslatedTitle);
}

QString Scenario::description() const
{
    return QCoreApplication::translate("NARV::DEV::Scenario", untranslatedDescription);
}

int Scenario::run(TestData &data, const QStringList &tags) const
{
    return data.scenarios().run(*this, tags);
}

} // namespace NARV::DEV
