// Median of three seconds over half an hour of a pulse signal at 1000 Hz, and the filters of fixed length.

#include "goals.h"
#include "repetitions.h"

#include "samplefilters.h"

#include "reference/plainfilters.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

namespace
{

using Samples = std::vector<double>;

constexpr std::size_t SampleCount = 30 * 60 * 1000;
constexpr std::int32_t MedianWindow = 3001;

/// A pulse of 72 beats a minute on a baseline that wanders, with noise, in steps of a converter.
const Samples& pulse()
{
    static const Samples samples = [] {
        std::mt19937_64 generator(1);
        std::normal_distribution<double> noise(0.0, 15.0);
        std::normal_distribution<double> wander(0.0, 4.0);
        Samples made(SampleCount);
        double baseline = 0.0;
        for (std::size_t i = 0; i < SampleCount; ++i) {
            baseline = 0.9999 * baseline + wander(generator);
            const double phase = 2.0 * 3.14159265358979 * 1.2 * static_cast<double>(i) / 1000.0;
            made[i] = std::round(baseline + 900.0 * std::sin(phase) + noise(generator));
        }
        return made;
    }();
    return samples;
}

/// The goals speak of forms that give the same: a difference ends the program.
void checkSame(const Samples& one, const Samples& other)
{
    if (one != other)
        stop("the two forms of a filter differ");
}

/// The last output of each median; empty before its benchmark has run.
Samples& shippedMedian()
{
    static Samples output;
    return output;
}

void RunningMedian(benchmark::State& state)
{
    const Samples& input = pulse();
    for (auto _ : state) {
        if (!runningMedian(input, shippedMedian(), MedianWindow))
            stop("the median was refused");
    }
}

void PlainRunningMedian(benchmark::State& state)
{
    const Samples& input = pulse();
    Samples output;
    for (auto _ : state) {
        if (!plain::runningMedian(input, output, MedianWindow))
            stop("the median was refused");
    }
    if (!shippedMedian().empty())
        checkSame(shippedMedian(), output);
}

void SmoothSavitzkyGolay11(benchmark::State& state)
{
    const Samples& input = pulse();
    Samples output;
    for (auto _ : state)
        smoothSavitzkyGolay11(input, output);
}

void VelocitySavitzkyGolay11(benchmark::State& state)
{
    const Samples& input = pulse();
    Samples output;
    for (auto _ : state)
        velocitySavitzkyGolay11(input, output, true);
}

void VelocitySavitzkyGolay15(benchmark::State& state)
{
    const Samples& input = pulse();
    Samples output;
    for (auto _ : state)
        velocitySavitzkyGolay15(input, output, true);
}

void MovingAverage(benchmark::State& state)
{
    const Samples& input = pulse();
    Samples output;
    for (auto _ : state)
        movingAverage(input, output, 11);
}

BENCHMARK(RunningMedian)->Apply(repeatedOnce<5>);
// Takes half a minute; of a single repetition no statistics would be made.
BENCHMARK(PlainRunningMedian)->Apply(repeatedOnce<2>);
BENCHMARK(SmoothSavitzkyGolay11)->Apply(repeatedOnce<5>);
BENCHMARK(VelocitySavitzkyGolay11)->Apply(repeatedOnce<5>);
BENCHMARK(VelocitySavitzkyGolay15)->Apply(repeatedOnce<5>);
BENCHMARK(MovingAverage)->Apply(repeatedOnce<5>);

const bool Goals[] = {
    registerGoal(
        {"plain-to-running-median", "PlainRunningMedian", "RunningMedian", Goal::Kind::AtLeast, 50.0}),
};

} // namespace
