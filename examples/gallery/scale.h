#pragma once

#include <QVector>

//! A measuring scale: values on it as fractions of its length.
class Scale
{
public:
    struct Tick
    {
        double value;
        double fraction;
        bool isMajor;
    };

    //! A scale may run downwards; one of no length has everything at its start.
    Scale(double minimum, double maximum);

    double lowest() const { return qMin(m_minimum, m_maximum); }
    double highest() const { return qMax(m_minimum, m_maximum); }
    //! 0 at the minimum, 1 at the maximum, less and more beyond; 0 for what has no place.
    double position(double value) const;
    //! 0 at the minimum, 1 at the maximum; values beyond an end are at that end.
    double fraction(double value) const;
    //! The ticks from start to end: divisions with a label, each of so many subdivisions.
    QVector<Tick> ticks(int divisions, int subdivisions = 1) const;

private:
    double m_minimum;
    double m_maximum;
};

//! A scale with round values at all its ticks.
struct RoundScale
{
    double minimum;
    double maximum;
    int divisions;
    double step;

    //! The shortest around two values, of at most so many divisions (two if zero lies inside).
    static RoundScale around(double lowest, double highest, int mostDivisions);
};
