#pragma once

#include "detectionparams.h"
#include "kirosaccade.h"

#include <cstddef>
#include <random>
#include <vector>

/// A saccade of which only the place is known, both ends included.
inline KiroSaccade between(int start, int end)
{
    KiroSaccade saccade;
    saccade.main.start = start;
    saccade.main.end = end;
    saccade.main.duration = end - start + 1;
    return saccade;
}

// Eye positions for tests of the detectors, in degrees at 1000 Hz.

/// `count` samples at `level`.
inline std::vector<double> flat(std::size_t count, double level = 0.0)
{
    return std::vector<double>(count, level);
}

/// Goes on by `degrees` over `count` samples.
inline void appendRamp(std::vector<double>& samples, double degrees, std::size_t count)
{
    const double from = samples.empty() ? 0.0 : samples.back();
    for (std::size_t i = 1; i <= count; ++i)
        samples.push_back(from + degrees * double(i) / double(count));
}

/// Stays for `count` samples where it is.
inline void appendRest(std::vector<double>& samples, std::size_t count)
{
    samples.insert(samples.end(), count, samples.empty() ? 0.0 : samples.back());
}

/// Down by `depth` degrees and back up by `rise`, each within 80 samples, with `bottom` samples between.
inline void appendDip(std::vector<double>& samples, double depth, double rise, std::size_t bottom = 40)
{
    appendRamp(samples, -depth, 80);
    appendRest(samples, bottom);
    appendRamp(samples, rise, 80);
}

/// The start values, per sample at 1000 Hz.
inline SaccadeDetectionParams saccadeParamsPerSample()
{
    SaccadeDetectionParams params = SaccadeDetectionParams::atStart();
    params.initVel /= 1000.0;
    params.minSpeed /= 1000.0;
    params.minSlope /= 1000.0 * 1000.0;
    return params;
}

inline BlinkDetectionParams blinkParamsPerSample()
{
    BlinkDetectionParams params = BlinkDetectionParams::atStart();
    params.peakVel1 /= 1000.0;
    params.peakVel2 /= 1000.0;
    params.minVel /= 1000.0;
    return params;
}

/// Rests, jumps, drifts and dips in random order, with noise in steps of a converter so that exact ties
/// occur.
inline std::vector<double> randomTrace(std::mt19937& random, std::size_t count, bool noisy)
{
    std::uniform_real_distribution<double> degrees(-25.0, 25.0);
    std::uniform_int_distribution<int> kind(0, 3);
    std::uniform_int_distribution<std::size_t> length(1, 120);
    std::uniform_int_distribution<int> step(-2, 2);
    std::vector<double> samples = {0.0};
    while (samples.size() < count) {
        switch (kind(random)) {
        case 0:
            appendRest(samples, length(random));
            break;
        case 1:
            appendRamp(samples, degrees(random), 10 + length(random) / 3);
            break;
        case 2:
            appendRamp(samples, degrees(random) / 20.0, length(random));
            break;
        default:
            appendDip(samples, 15.0 + degrees(random) / 2.0, 15.0 + degrees(random) / 2.0, length(random));
        }
    }
    samples.resize(count);
    if (noisy) {
        for (double& sample : samples)
            sample += step(random) * 0.03125;
    }
    return samples;
}
