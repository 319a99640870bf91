#pragma once

#include "detectionparams.h"
#include "kirosaccade.h"
#include "slidingextreme.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

/// The search for the saccades of one eye in a trace of either form (eyetrace.h).
///
/// Whatever the parameters are, nothing outside the trace is looked at: a `local` below 1 makes every sample
/// at or above `minSpeed` a peak. The time is linear in the length of the trace, however long the candidates
/// are: neither onset nor offset moves back from one peak to the next.
template <class Trace>
class SaccadeScan
{
public:
    /// `trace` and `params` stay the caller's.
    SaccadeScan(Trace& trace, const SaccadeDetectionParams& params)
        : m_trace(trace)
        , m_params(params)
        , m_count(static_cast<std::int64_t>(trace.count()))
    {
        trace.setLeastSpeed(params.minSpeed);
    }

    /// Saccades in the order of time, fixations not yet set. Rejected candidates are kept, with `valid`
    /// unset, if `keepRejected` is set.
    std::vector<KiroSaccade> run(bool keepRejected);

private:
    double speed(std::int64_t i) const { return m_trace.speed11(at(i)); }
    bool isPeak(std::int64_t i) const;
    bool stops(std::int64_t next, std::int64_t i, bool forward) const;
    std::int64_t findOnset(std::int64_t peak);
    std::int64_t findOffset(std::int64_t peak);
    KiroSaccadeEye extent(std::int64_t onset, std::int64_t offset) const;
    void measure(KiroSaccadeEye& eye);
    bool isAccepted(std::int64_t peak, KiroSaccadeEye& eye);
    static std::size_t at(std::int64_t i) { return static_cast<std::size_t>(i); }

    const Trace& m_trace;
    const SaccadeDetectionParams& m_params;
    const std::int64_t m_count;
    std::int64_t m_searchedPeak = -1; // whose onset is m_onset
    std::int64_t m_onset = 0;
    std::int64_t m_offsetStop = -1; // first stop behind every peak searched so far
    SlidingMaximum m_speeds;
    SlidingMaximum m_speedChanges;
};

/// Removes every valid saccade that comes too soon after the valid one before it: `limitIsTooSoon` says
/// whether the limit itself is.
void mergeCloseSaccades(std::vector<KiroSaccade>& saccades, bool limitIsTooSoon, std::int32_t gap);

/// Sets the fixation before each saccade, from the end of the last valid one; 0 where they overlap.
void setFixations(std::vector<KiroSaccade>& saccades);

/// The last sample of a flat top is its peak. Neighbours are visited from the nearest on, on both sides in
/// turn: so the visits of a whole run stay within n log n, however wide the window is.
template <class Trace>
bool SaccadeScan<Trace>::isPeak(std::int64_t i) const
{
    if (!m_trace.mayReach(at(i)))
        return false;
    const double here = speed(i);
    if (!(here >= m_params.minSpeed))
        return false;
    const std::int64_t local = m_params.local;
    for (std::int64_t k = 1; k <= local; ++k) {
        if (speed(i - k) > here)
            return false;
        if (k < local && speed(i + k) >= here)
            return false;
    }
    return true;
}

/// Whether a search that has come to `i` stops before it goes on to `next`: there the direction is another
/// one, or the smooth speed stops falling while the speed at `i` is below the initial one.
template <class Trace>
bool SaccadeScan<Trace>::stops(std::int64_t next, std::int64_t i, bool forward) const
{
    return m_trace.isForward(at(next)) != forward ||
           (m_params.initVel > speed(i) && m_trace.speed15(at(next)) >= m_trace.speed15(at(i)));
}

/// The last place up to the peak where the search backward stops. It does not depend on the peak otherwise:
/// at the peak that was searched before, the answer is known.
template <class Trace>
std::int64_t SaccadeScan<Trace>::findOnset(std::int64_t peak)
{
    constexpr std::int64_t FirstStop = 2; // sample 0 is never compared
    const std::int64_t known = std::max(m_searchedPeak, FirstStop - 1);
    const bool forward = m_trace.isForward(at(peak));
    std::int64_t i = peak;
    while (i > known && !stops(i - 1, i, forward))
        --i;
    if (i > known)
        m_onset = i;
    m_searchedPeak = peak;
    return m_onset;
}

/// The place before the first stop of the search forward behind the peak; the last sample without one.
template <class Trace>
std::int64_t SaccadeScan<Trace>::findOffset(std::int64_t peak)
{
    const std::int64_t last = m_count - 1;
    if (m_offsetStop <= peak) {
        const bool forward = m_trace.isForward(at(peak));
        m_offsetStop = peak + 1;
        while (m_offsetStop < last && !stops(m_offsetStop, m_offsetStop - 1, forward))
            ++m_offsetStop;
    }
    return m_offsetStop < last ? m_offsetStop - 1 : last;
}

template <class Trace>
KiroSaccadeEye SaccadeScan<Trace>::extent(std::int64_t onset, std::int64_t offset) const
{
    KiroSaccadeEye eye;
    eye.start = static_cast<std::int32_t>(onset);
    eye.end = static_cast<std::int32_t>(offset);
    eye.duration = static_cast<std::int32_t>(offset - onset + 1);
    m_trace.measureAmplitude(at(onset), at(offset), eye);
    return eye;
}

/// What costs a walk over the candidate.
template <class Trace>
void SaccadeScan<Trace>::measure(KiroSaccadeEye& eye)
{
    const auto speedChange = [this](std::int64_t i) { return m_trace.speedChange(at(i)); };
    eye.peakVelocity = m_speeds.of(eye.start, eye.end, [this](std::int64_t i) { return speed(i); });
    eye.meanVelocity = std::abs(eye.amplitude) / eye.duration;
    eye.peakAcceleration = Trace::accelerationOf(m_speedChanges.of(eye.start, eye.end, speedChange));
    eye.velocityPerDuration = eye.peakVelocity / eye.duration;
}

/// Measures the candidate only if its limits but the last one hold.
template <class Trace>
bool SaccadeScan<Trace>::isAccepted(std::int64_t peak, KiroSaccadeEye& eye)
{
    const double size = std::abs(eye.amplitude);
    const bool fits = peak < eye.end && eye.duration >= m_params.minTime &&
                      eye.duration <= m_params.maxTime && size >= m_params.minAmp && m_params.maxAmp >= size;
    if (!fits)
        return false;
    measure(eye);
    return eye.peakAcceleration >= m_params.minSlope;
}

template <class Trace>
std::vector<KiroSaccade> SaccadeScan<Trace>::run(bool keepRejected)
{
    std::vector<KiroSaccade> saccades;
    const std::int64_t margin = std::max(m_params.local, 0);
    std::int64_t i = margin;
    while (i < m_count - margin) {
        if (!isPeak(i)) {
            ++i;
            continue;
        }
        KiroSaccade saccade;
        const std::int64_t onset = findOnset(i);
        saccade.main = extent(onset, findOffset(i));
        saccade.valid = isAccepted(i, saccade.main);
        if (saccade.valid || keepRejected) {
            if (!saccade.valid)
                measure(saccade.main);
            saccades.push_back(saccade);
            i = saccade.main.end + 1;
        } else {
            ++i;
        }
    }
    return saccades;
}
