#pragma once

#include <QColor>
#include <QVector>

class Scale;

//! Warning and alarm limits of a process value.
struct ValueLimits
{
    //! A part of a scale, as fractions of its length.
    struct Band
    {
        double from;
        double to;
        QColor color;
    };

    double lowAlarm = 0;
    double lowWarning = 0;
    double highWarning = 0;
    double highAlarm = 0;
    QColor warningColor;
    QColor alarmColor;
    bool areShown = false; //!< false: nothing is marked and every value is normal

    //! The colour of a value: of the worst limit that it has reached, else normal.
    QColor colorOf(double value, const QColor &normal) const;
    //! The parts of the scale beyond the limits.
    QVector<Band> bands(const Scale &scale) const;
};
