#include "data/generator.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <tuple>

namespace NARV::DEV {

bool GeneratorSettings::operator==(const GeneratorSettings &other) const
{
    const auto all = [](const GeneratorSettings &s) {
        return std::tie(s.kind, s.period, s.minimum, s.maximum, s.step, s.seed, s.value, s.texts,
                        s.file, s.elements, s.quality);
    };
    return all(*this) == all(other);
}

static qint64 rounds(const GeneratorSettings &settings, qint64 time)
{
    return time / qMax(1, settings.period);
}

//! The part of the present round that is over, from 0 to 1.
static double phase(const GeneratorSettings &settings, qint64 time)
{
    const int period = qMax(1, settings.period);
    return double(time % period) / period;
}

//! The number between the limits for a level from 0 to 1.
static GeneratorSample atLevel(const GeneratorSettings &settings, double level)
{
    const double value = settings.minimum * (1 - level) + settings.maximum * level;
    return {value, settings.quality};
}

//! A number from 0 to 1 by chance, the same each time for the same place. The mixing steps are
//! those of the 64-bit finaliser known as splitmix.
static double chance(int seed, qint64 place)
{
    quint64 bits = quint64(place) + quint64(quint32(seed)) * 0x9e3779b97f4a7c15u;
    bits = (bits ^ (bits >> 30)) * 0xbf58476d1ce4e5b9u;
    bits = (bits ^ (bits >> 27)) * 0x94d049bb133111ebu;
    return double((bits ^ (bits >> 31)) >> 11) / double(1ull << 53);
}

//! A walk as a function of the step: between two fixed places 256 steps apart it is refined by
//! halves, each with less play, which takes eight halvings however late it is.
static double walkLevel(int seed, qint64 step)
{
    qint64 begin = step - step % 256;
    qint64 end = begin + 256;
    double first = chance(seed, begin);
    double last = chance(seed, end);
    double play = 0.4;
    while (end - begin > 1) {
        const qint64 middle = (begin + end) / 2;
        const double level = (first + last) / 2 + play * (chance(seed, middle) - 0.5);
        (step < middle ? end : begin) = middle;
        (step < middle ? last : first) = level;
        play *= 0.7071;
    }
    return first < 0 ? -first : first > 1 ? 2 - first : first; // reflected at the limits
}

static GeneratorSample byHand(const GeneratorSettings &settings, const CsvSeries *, qint64)
{
    return {{}, settings.quality};
}

static GeneratorSample constant(const GeneratorSettings &settings, const CsvSeries *, qint64)
{
    return {settings.value, settings.quality};
}

static GeneratorSample ramp(const GeneratorSettings &settings, const CsvSeries *, qint64 time)
{
    return atLevel(settings, phase(settings, time));
}

static GeneratorSample sine(const GeneratorSettings &settings, const CsvSeries *, qint64 time)
{
    constexpr double twoPi = 6.283185307179586;
    return atLevel(settings, 0.5 + std::sin(twoPi * phase(settings, time)) / 2);
}

static GeneratorSample square(const GeneratorSettings &settings, const CsvSeries *, qint64 time)
{
    return atLevel(settings, phase(settings, time) < 0.5 ? 0 : 1);
}

static GeneratorSample noise(const GeneratorSettings &settings, const CsvSeries *, qint64 time)
{
    return atLevel(settings, chance(settings.seed, rounds(settings, time)));
}

static GeneratorSample randomWalk(const GeneratorSettings &settings, const CsvSeries *, qint64 time)
{
    return atLevel(settings, walkLevel(settings.seed, rounds(settings, time)));
}

static GeneratorSample counter(const GeneratorSettings &settings, const CsvSeries *, qint64 time)
{
    const double step = settings.step > 0 ? settings.step : 1;
    const double steps = std::floor((settings.maximum - settings.minimum) / step + 1e-9) + 1;
    const double count = steps >= 1 ? std::fmod(double(rounds(settings, time)), steps) : 0;
    return {settings.minimum + step * count, settings.quality};
}

static GeneratorSample textList(const GeneratorSettings &settings, const CsvSeries *, qint64 time)
{
    if (settings.texts.isEmpty())
        return {{}, Quality::Bad};
    return {settings.texts.at(int(rounds(settings, time) % settings.texts.size())),
            settings.quality};
}

//! The time inside a series that begins anew behind its last value, which lasts as long as the one
//! before.
static qint64 playbackTime(const GeneratorSettings &settings, const CsvSeries &series, qint64 time)
{
    const auto &points = series.points;
    if (series.times == CsvSeries::Times::None)
        return rounds(settings, time) % points.size();
    const qint64 last = points.last().time;
    const qint64 lasts = points.size() > 1 ? last - points.at(points.size() - 2).time : 1;
    return points.first().time + time % (last - points.first().time + lasts);
}

static GeneratorSample csvPlayback(const GeneratorSettings &settings, const CsvSeries *series,
                                   qint64 time)
{
    if (!series || series->points.isEmpty())
        return {{}, Quality::Bad};
    const auto next = std::upper_bound(
        series->points.cbegin(), series->points.cend(), playbackTime(settings, *series, time),
        [](qint64 wanted, const CsvSeries::Point &point) { return wanted < point.time; });
    const CsvSeries::Point &point = *std::prev(next);
    return {point.value, qMax(point.quality, settings.quality)};
}

#define ZP_GENERATOR_TEXT(text) QT_TRANSLATE_NOOP("NARV::DEV::Generator", text)

const QVector<GeneratorInfo> &generators()
{
    using P = GeneratorParameter;
    static const QVector<GeneratorInfo> all{
        {GeneratorKind::None,
         "none",
         ZP_GENERATOR_TEXT("By hand"),
         ZP_GENERATOR_TEXT("Stays as you or a widget set it"),
         {},
         byHand},
        {GeneratorKind::Constant, "constant", ZP_GENERATOR_TEXT("Constant"),
         ZP_GENERATOR_TEXT("Always the same value, whatever a widget writes"), P::Value, constant},
        {GeneratorKind::Ramp, "ramp", ZP_GENERATOR_TEXT("Ramp"),
         ZP_GENERATOR_TEXT("Rises from the minimum to the maximum in a period"),
         P::Period | P::Limits, ramp},
        {GeneratorKind::Sine, "sine", ZP_GENERATOR_TEXT("Sine"),
         ZP_GENERATOR_TEXT("Swings between minimum and maximum"), P::Period | P::Limits, sine},
        {GeneratorKind::Square, "square", ZP_GENERATOR_TEXT("Square"),
         ZP_GENERATOR_TEXT("Half a period minimum, half a period maximum"), P::Period | P::Limits,
         square},
        {GeneratorKind::Noise, "noise", ZP_GENERATOR_TEXT("Noise"),
         ZP_GENERATOR_TEXT("Any value within the limits, a new one each period"),
         P::Period | P::Limits | P::Seed, noise},
        {GeneratorKind::RandomWalk, "randomWalk", ZP_GENERATOR_TEXT("Random walk"),
         ZP_GENERATOR_TEXT("Wanders within the limits, a step each period"),
         P::Period | P::Limits | P::Seed, randomWalk},
        {GeneratorKind::Counter, "counter", ZP_GENERATOR_TEXT("Counter"),
         ZP_GENERATOR_TEXT("A step more each period, from minimum to maximum and again"),
         P::Period | P::Limits | P::Step, counter},
        {GeneratorKind::TextList, "textList", ZP_GENERATOR_TEXT("Text list"),
         ZP_GENERATOR_TEXT("One of the texts after the other, one a period"), P::Period | P::Texts,
         textList},
        {GeneratorKind::CsvPlayback, "csv", ZP_GENERATOR_TEXT("CSV playback"),
         ZP_GENERATOR_TEXT("Rows of a file again and again: value, or time,value[,quality]"),
         P::Period | P::File, csvPlayback}};
    return all;
}

const GeneratorInfo &generatorInfo(GeneratorKind kind)
{
    return generators().at(int(kind));
}

QString generatorTitle(GeneratorKind kind)
{
    return QCoreApplication::translate("NARV::DEV::Generator", generatorInfo(kind).title);
}

//! A number as a tag of the type can hold it.
static QVariant fitted(TagType type, const GeneratorSettings &settings, double number)
{
    const bool hasLimits =
        generatorInfo(settings.kind).parameters.testFlag(GeneratorParameter::Limits);
    if (type == TagType::Bool && hasLimits)
        return number > (settings.minimum + settings.maximum) / 2;
    const TagRange range = tagRange(type);
    if (!std::isfinite(number) || range.minimum == range.maximum)
        return number;
    return qBound(range.minimum, number, range.maximum);
}

static GeneratorSample generateElement(TagType type, const GeneratorSettings &settings,
                                       const CsvSeries *series, qint64 time)
{
    GeneratorSample sample = generatorInfo(settings.kind).sample(settings, series, time);
    if (sample.value.userType() == QMetaType::Double)
        sample.value = fitted(type, settings, sample.value.toDouble());
    if (!toTagValue(type, sample.value).isEmpty())
        return {{}, Quality::Bad};
    return sample;
}

GeneratorSample generate(TagType type, const GeneratorSettings &settings, const CsvSeries *series,
                         qint64 time)
{
    const bool isConstant = settings.kind == GeneratorKind::Constant;
    if (!isArrayType(type) || isConstant)
        return generateElement(type, settings, series, time);
    const int count = qBound(1, settings.elements, GeneratorSettings::mostElements);
    const bool goesRound = settings.kind < GeneratorKind::Noise;
    QVariantList elements;
    Quality quality = Quality::Good;
    for (int i = 0; i < count; ++i) {
        const qint64 shift =
            goesRound ? qint64(settings.period) * i / count : qint64(settings.period) * i;
        const GeneratorSample sample =
            generateElement(elementType(type), settings, series, time + shift);
        if (!sample.value.isValid())
            return {{}, Quality::Bad};
        elements.append(sample.value);
        quality = qMax(quality, sample.quality);
    }
    return {elements, quality};
}

} // namespace NARV::DEV
