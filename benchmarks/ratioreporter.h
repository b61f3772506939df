#ifndef ZPPLUGIN_BENCHMARKS_RATIOREPORTER_H
#define ZPPLUGIN_BENCHMARKS_RATIOREPORTER_H

#include <string>
#include <vector>

//! A promise: the numerator's time per item is at most limit times the denominator's. Both are
//! benchmark names as the run prints them, without "/real_time". The time is the processor's, which
//! other programs disturb least; that of a benchmark with UseRealTime() is the clock's.
struct Ratio
{
    std::string label;
    std::string numerator;
    std::string denominator;
    double limit;
};

//! Runs the registered benchmarks as the arguments say (nine repetitions unless they say
//! otherwise, shuffled so that a slow moment of the machine hits all alike) and then prints each
//! ratio of the medians as "label: measured (limit)". Returns the exit code: a missed limit is
//! marked, but is not an error.
int runBenchmarks(int argc, char **argv, const std::vector<Ratio> &ratios);

//! Prints a measured figure as runBenchmarks() prints a ratio.
void printMeasured(const std::string &label, double measured, double limit);

#endif
