#pragma once

#include "data/csvseries.h"
#include "data/tagvalue.h"

#include <QFlags>
#include <QStringList>

#include <zpplugin_dev_export.h>

#include <memory>

namespace NARV::DEV {

//! Where the values of a tag come from.
enum class GeneratorKind
{
    None, //!< by hand, or from a widget
    Constant,
    Ramp,
    Sine,
    Square,
    Noise,
    RandomWalk,
    Counter,
    TextList,
    CsvPlayback
};

//! What a person sets of a generator. Each kind uses some of it; the rest is kept for when the
//! person comes back to another kind.
struct ZPPLUGIN_DEV_EXPORT GeneratorSettings
{
    static constexpr int shortestPeriod = 10;
    static constexpr int longestPeriod = 24 * 60 * 60 * 1000;
    static constexpr int mostElements = 1000;

    GeneratorKind kind = GeneratorKind::None;
    int period = 10000; //!< milliseconds of one round, or between two values
    double minimum = 0;
    double maximum = 100;
    double step = 1;   //!< of the counter, greater than 0
    int seed = 1;      //!< another one gives another course of chance
    QString value;     //!< of the constant, as toTagValue() reads it
    QStringList texts; //!< of the text list
    QString file;      //!< of CSV playback; a relative path belongs to the scene's folder
    int elements = 8;  //!< of an array; they follow one another in phase
    Quality quality = Quality::Good; //!< of what is generated

    bool operator==(const GeneratorSettings &other) const;
    bool operator!=(const GeneratorSettings &other) const { return !(*this == other); }
};

enum class GeneratorParameter
{
    Period = 1,
    Limits = 2,
    Step = 4,
    Seed = 8,
    Value = 16,
    Texts = 32,
    File = 64
};
Q_DECLARE_FLAGS(GeneratorParameters, GeneratorParameter)
Q_DECLARE_OPERATORS_FOR_FLAGS(GeneratorParameters)

struct GeneratorSample
{
    QVariant value;
    Quality quality = Quality::Good;
};

//! One kind of generator. What it gives is a function of the time alone.
struct GeneratorInfo
{
    GeneratorKind kind;
    const char *name;        //!< in files
    const char *title;       //!< for a person, to be translated
    const char *description; //!< for a person, to be translated
    GeneratorParameters parameters;
    //! The series is null but for CSV playback. Time in milliseconds, not negative.
    GeneratorSample (*sample)(const GeneratorSettings &settings, const CsvSeries *series,
                              qint64 time);
};

//! All kinds, in the order of the enumerators.
ZPPLUGIN_DEV_EXPORT const QVector<GeneratorInfo> &generators();
ZPPLUGIN_DEV_EXPORT const GeneratorInfo &generatorInfo(GeneratorKind kind);
ZPPLUGIN_DEV_EXPORT QString generatorTitle(GeneratorKind kind);

//! What a tag of the type has at a time. Numbers are trimmed to the range of the type; a bool is
//! true in the upper half of the limits. A value that does not convert, such as a text for a
//! number, gives no value and bad quality.
ZPPLUGIN_DEV_EXPORT GeneratorSample generate(TagType type, const GeneratorSettings &settings,
                                             const CsvSeries *series, qint64 time);

} // namespace NARV::DEV
