// Detection with both eyes over one hour at 1000 Hz.

#include "goals.h"
#include "repetitions.h"

#include "detectionrun.h"
#include "eyesignals.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <random>

namespace
{

constexpr std::size_t SampleCount = 60 * 60 * 1000;

/// About two saccades a second of up to 20 degrees, a blink every ten seconds, and noise in steps of a
/// converter.
EyeSignals makeEyes()
{
    std::mt19937_64 generator(1);
    std::uniform_real_distribution<double> degrees(-20.0, 20.0);
    std::uniform_int_distribution<int> rest(250, 700);
    std::normal_distribution<double> noise(0.0, 0.03);
    EyeSignals eyes;
    eyes.detectionType = 3;
    for (EyeSignal& eye : eyes.axes)
        eye.position.reserve(SampleCount);
    double from[EyeAxisCount / 2] = {};
    int events = 0;
    while (eyes.axes.front().position.size() < SampleCount) {
        const bool blink = ++events % 20 == 0;
        const double to[EyeAxisCount / 2] = {blink ? from[0] : degrees(generator), degrees(generator)};
        const int moving = blink ? 240 : 45;
        const int count = moving + rest(generator);
        for (int i = 0; i < count && eyes.axes.front().position.size() < SampleCount; ++i) {
            const double done = std::min(1.0, double(i) / moving);
            const double share = 0.5 - 0.5 * std::cos(3.14159265358979 * done);
            const double lid = blink && i < moving ? -30.0 * std::sin(3.14159265358979 * done) : 0.0;
            for (std::size_t axis = 0; axis < EyeAxisCount; ++axis) {
                const bool vertical = axis % 2 == 1;
                const double end = blink ? from[axis % 2] : to[axis % 2];
                const double position = from[axis % 2] + (end - from[axis % 2]) * share +
                                        (vertical ? lid : 0.0) + noise(generator);
                eyes.axes[axis].position.push_back(std::round(position * 40.0) / 40.0);
            }
        }
        if (!blink)
            std::copy(to, to + EyeAxisCount / 2, from);
    }
    return eyes;
}

const EyeSignals& eyes()
{
    static const EyeSignals made = makeEyes();
    return made;
}

void DetectBinocular(benchmark::State& state)
{
    const EyeSignals& input = eyes();
    std::size_t found = 0;
    for (auto _ : state)
        found = runDetection(3, 1000.0, DetectionSettings(), input).saccades.size();
    if (found < 1000)
        stop("too few saccades were found");
    state.counters["saccades"] = double(found);
}

/// The four arrays once, each into fresh memory.
void CopyFourArrays(benchmark::State& state)
{
    const EyeSignals& input = eyes();
    for (auto _ : state) {
        for (const EyeSignal& eye : input.axes) {
            std::vector<double> copy(eye.position);
            benchmark::DoNotOptimize(copy.data());
            benchmark::ClobberMemory();
        }
    }
}

/// The four arrays once, into memory that is there.
void CopyFourArraysInPlace(benchmark::State& state)
{
    const EyeSignals& input = eyes();
    std::vector<double> copy(SampleCount);
    for (auto _ : state) {
        for (const EyeSignal& eye : input.axes) {
            std::memcpy(copy.data(), eye.position.data(), SampleCount * sizeof(double));
            benchmark::ClobberMemory();
        }
    }
}

BENCHMARK(DetectBinocular)->Apply(repeatedOnce<5>);
BENCHMARK(CopyFourArrays)->Apply(repeatedOnce<5>);
BENCHMARK(CopyFourArraysInPlace)->Apply(repeatedOnce<5>);

const bool Goals[] = {
    registerGoal({"binocular-detection-to-copy", "DetectBinocular", "CopyFourArraysInPlace",
                  Goal::Kind::AtMost, 15.0}),
    registerGoal(
        {"binocular-detection-to-fresh-copy", "DetectBinocular", "CopyFourArrays", Goal::Kind::Shown, 0.0}),
};

} // namespace
