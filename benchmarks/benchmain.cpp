#include "goals.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <iostream>

namespace
{

/// Prints Google Benchmark's table and keeps the least time of each benchmark.
class GoalReporter final : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.aggregate_name == "min")
                m_times[run.run_name.function_name] = run.GetAdjustedCPUTime();
        }
        ConsoleReporter::ReportRuns(runs);
    }

    const std::map<std::string, double>& times() const { return m_times; }

private:
    std::map<std::string, double> m_times;
};

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    GoalReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return reportGoals(reporter.times(), std::cout) ? 0 : 1;
}
