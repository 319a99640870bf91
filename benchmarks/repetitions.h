#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

/// What the benchmarks share: goals compare the least of several times, which others on the machine disturb
/// least.

inline double leastOf(const std::vector<double>& times)
{
    return *std::min_element(times.begin(), times.end());
}

/// Times `Repetitions` rounds, each as long as the library thinks fit; the least is reported as "min".
template <int Repetitions>
void repeated(benchmark::internal::Benchmark* bench)
{
    bench->Unit(benchmark::kMillisecond)
        ->Repetitions(Repetitions)
        ->DisplayAggregatesOnly()
        ->ComputeStatistics("min", leastOf);
}

/// The same for what takes long: one run a round.
template <int Repetitions>
void repeatedOnce(benchmark::internal::Benchmark* bench)
{
    repeated<Repetitions>(bench);
    bench->Iterations(1);
}

/// Ends the program: without its files or with wrong results there is nothing to measure.
[[noreturn]] inline void stop(const char* why)
{
    std::fprintf(stderr, "%s\n", why);
    std::exit(1);
}
