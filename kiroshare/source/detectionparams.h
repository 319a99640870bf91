#pragma once

#include "kirostring.h"

#include <cstdint>

/// Parameters of the saccade detection.
///
/// Velocities are in degrees per second, the acceleration in degrees per second squared; the detector wants
/// them per sample (see runDetection). The four counts are samples, which are milliseconds at 1000 Hz.
/// A new record is all zero, as a saccade file without a detection has it.
struct SaccadeDetectionParams
{
    std::int32_t local = 0;   ///< half width of the window of a velocity peak, in samples
    std::int32_t gap = 0;     ///< least fixation between two saccades
    std::int32_t minTime = 0; ///< least duration
    std::int32_t maxTime = 0; ///< greatest duration
    double initVel = 0.0;     ///< below it a saccade may begin or end
    double minSpeed = 0.0;    ///< least peak velocity
    double minSlope = 0.0;    ///< least acceleration
    double minAmp = 0.0;      ///< least amplitude, degrees
    double maxAmp = 0.0;      ///< greatest amplitude, degrees

    /// What a first run detects with.
    static SaccadeDetectionParams atStart();
    /// What the dialog's "Defaults" button gives. They differ from atStart() on purpose.
    static SaccadeDetectionParams defaults();
};

/// Parameters of the blink detection, in the units of SaccadeDetectionParams.
struct BlinkDetectionParams
{
    double peakVel1 = 0.0;             ///< least downward velocity of the first peak
    double peakVel2 = 0.0;             ///< least upward velocity of the second peak
    double minVel = 0.0;               ///< below it a blink begins and ends
    std::int32_t maxPeaksDistance = 0; ///< greatest distance of the two peaks, both included
    double minAmplitude = 0.0;         ///< least depth of the first stroke, degrees
    double minAmplitudeRelation = 0.0; ///< least second depth divided by the first
    double maxAmplitudeRelation = 0.0; ///< greatest second depth divided by the first
    std::int32_t minDuration = 0;      ///< least duration
    std::int32_t maxDuration = 0;      ///< greatest duration

    /// What a first run detects with.
    static BlinkDetectionParams atStart();
    /// What the dialog's "Defaults" button gives. They differ from atStart() on purpose.
    static BlinkDetectionParams defaults();
};
