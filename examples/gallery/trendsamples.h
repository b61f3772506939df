#pragma once

#include <QVariant>
#include <QVector>

struct TrendSample
{
    //! What the host thinks of a value, as it numbers it.
    enum Quality
    {
        Good,
        Uncertain,
        Bad
    };

    qint64 time; //!< in milliseconds since 1970-01-01 00:00 UTC
    double value;
    Quality quality;

    //! There is nothing to draw.
    bool isGap() const;
};

//! The samples of what a host gives for a trend with times in milliseconds; what is no sample is
//! left out.
QVector<TrendSample> trendSamples(const QVariant &trend);
