#pragma once

#include <cstdint>
#include <vector>

/// How well detected movements agree with the true ones.

/// Samples from `start` to `end`, both included.
struct Stretch
{
    std::int64_t start = 0;
    std::int64_t end = 0;
};

/// Median and the 5th and 95th percentile (nearest rank) of differences in samples; all 0 without any.
struct Spread
{
    double median = 0.0;
    double low = 0.0;
    double high = 0.0;
};

struct DetectionScore
{
    int trueCount = 0;
    int foundCount = 0;
    int hits = 0;    ///< pairs of a true and a found stretch
    double f1 = 0.0; ///< 2 hits / (trueCount + foundCount); 1 if there is nothing to find and nothing found
    double kappa = 0.0;  ///< Cohen's kappa of the labels of all samples
    Spread onsetErrors;  ///< found minus true start of the hits
    Spread offsetErrors; ///< found minus true end of the hits
};

Spread spreadOf(std::vector<double> values);

/// Each true stretch takes the found one that it shares most samples with, in the order of time; a found one
/// is taken once. One shared sample is enough. Both lists are in the order of time; `sampleCount` is the
/// length of the signal. Kappa after J. Cohen, Educ. Psychol. Meas. 20, 37 (1960); samples within several
/// stretches count once.
DetectionScore scoreDetection(const std::vector<Stretch>& truth, const std::vector<Stretch>& found,
                              std::int64_t sampleCount);
