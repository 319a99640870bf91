#include "goals.h"

#include <QApplication>

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
                m_times[run.run_name.function_name] = timeOf(run);
        }
        ConsoleReporter::ReportRuns(runs);
    }

    const std::map<std::string, double>& times() const { return m_times; }

private:
    /// Time of this thread, which other work on the machine does not lengthen; of work that waits for another
    /// process the time on the clock.
    static double timeOf(const Run& run)
    {
        const bool waits = !run.run_name.time_type.empty();
        return waits ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime();
    }

    std::map<std::string, double> m_times;
};

} // namespace

int main(int argc, char** argv)
{
    // Windows are painted in memory. The programs that are measured still come to the real screen.
    QByteArray platform[] = {argv[0], "-platform", "offscreen"};
    char* platformArguments[] = {platform[0].data(), platform[1].data(), platform[2].data(), nullptr};
    int platformCount = 3;
    const QApplication application(platformCount, platformArguments);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    GoalReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return reportGoals(reporter.times(), std::cout) ? 0 : 1;
}
