#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// The heart of the demo recording, as a pulse oximeter sees it. Samples are those of the oximeter
// (PulseRateHz).

constexpr int PulseRateHz = 250;

/// When the pulse wave reaches its peaks, and the rate that they make.
///
/// The rate goes up and down with the breath (0.25 Hz) and with blood pressure (0.1 Hz), as in a person at
/// rest.
struct HeartPlan
{
    std::vector<double> beatsMs; ///< peaks of the pulse wave, in milliseconds from the start

    /// Beats within `durationMs`.
    static HeartPlan make(std::uint32_t seed, double durationMs);
    /// Beats per minute from the first to the last beat; 0 with fewer than two.
    double meanRate() const;
};

struct PulseSample
{
    double wave = 0.0;   ///< 0 at rest, about 1 at the peak
    double breath = 0.0; ///< -1 to 1
};

/// The pulse wave at successive samples, without noise. The plan must outlive it.
class PulseTrace
{
public:
    explicit PulseTrace(const HeartPlan& plan)
        : m_plan(plan)
    {
    }

    /// At sample 0 in the first call, then one sample further in each.
    PulseSample next();

private:
    const HeartPlan& m_plan;
    std::int64_t m_sample = 0;
    std::size_t m_firstBeat = 0; // the first whose wave is not over
};
