#include "ratioreporter.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>

namespace {

//! Prints the aggregates as usual and keeps the time per item of every repetition: processor time,
//! or wall time where the benchmark asks for it.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    RatioReporter()
        : ConsoleReporter(OO_None)
    {
    }

    void ReportRuns(const std::vector<Run> &runs) override
    {
        std::vector<Run> printed;
        for (const Run &run : runs) {
            if (run.run_type == Run::RT_Iteration && !run.error_occurred)
                m_times[nameOf(run)].push_back(timePerItem(run));
            if (run.run_type == Run::RT_Aggregate || run.repetitions <= 1)
                printed.push_back(run);
        }
        ConsoleReporter::ReportRuns(printed);
    }

    void print(const Ratio &ratio)
    {
        const double numerator = median(ratio.numerator);
        const double denominator = median(ratio.denominator);
        if (numerator <= 0 || denominator <= 0) {
            std::printf("%s: not measured\n", ratio.label.c_str());
            return;
        }
        printMeasured(ratio.label, numerator / denominator, ratio.limit);
    }

private:
    static std::string nameOf(const Run &run)
    {
        benchmark::BenchmarkName name = run.run_name;
        name.repetitions.clear();
        name.time_type.clear();
        return name.str();
    }

    static double timePerItem(const Run &run)
    {
        // The rate is made of the right kind of time already.
        const auto rate = run.counters.find("items_per_second");
        if (rate != run.counters.end())
            return 1 / rate->second.value;
        return timeOf(run) / double(run.iterations);
    }

    static double timeOf(const Run &run)
    {
        return run.run_name.time_type.empty() ? run.cpu_accumulated_time
                                              : run.real_accumulated_time;
    }

    double median(const std::string &name)
    {
        std::vector<double> &times = m_times[name];
        if (times.empty())
            return 0;
        const auto middle = times.begin() + std::ptrdiff_t(times.size() / 2);
        std::nth_element(times.begin(), middle, times.end());
        return *middle;
    }

    std::map<std::string, std::vector<double>> m_times; // seconds an item, by benchmark name
};

} // namespace

int runBenchmarks(int argc, char **argv, const std::vector<Ratio> &ratios)
{
    std::string defaults[] = {"--benchmark_repetitions=9",
                              "--benchmark_enable_random_interleaving=true"};
    std::vector<char *> arguments{argv[0]};
    for (std::string &argument : defaults)
        arguments.push_back(argument.data());
    arguments.insert(arguments.end(), argv + 1, argv + argc); // the last one of a kind counts
    int count = int(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 1;

    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    for (const Ratio &ratio : ratios)
        reporter.print(ratio);
    return 0;
}

void printMeasured(const std::string &label, double measured, double limit)
{
    std::printf("%s: %.4g (%.4g)%s\n", label.c_str(), measured, limit,
                measured > limit ? "  <-- OVER THE LIMIT" : "");
}
