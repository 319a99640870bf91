#pragma once

#include "detectionparams.h"
#include "kirosaccade.h"
#include "kirostring.h"

#include <vector>

/// Finds saccades and blinks in arrays of calibrated eye positions (degrees).
///
/// Parameters are per sample (see runDetection for the conversion), and so are the results' velocities and
/// accelerations. Of arrays with different lengths only the length of the shortest is looked at. Lists are in
/// the order of time. A detector serves one call; nothing fails, and arrays that are too short give empty
/// lists.
class KiroSaccadeDetector
{
public:
    /// Of one position array: saccades in `main` with signed amplitudes, no blinks.
    std::vector<KiroSaccade> detectOneSignal(const SaccadeDetectionParams& params,
                                             const std::vector<double>& position);
    /// Of both position arrays of one eye: saccades in `main`. Saccades that overlap a blink are left out.
    /// Blinks are found in the vertical array, or in the horizontal one if `blinksHorizontal` is set.
    std::vector<KiroSaccade> detectMonocular(const SaccadeDetectionParams& params,
                                             const BlinkDetectionParams& blinkParams,
                                             const std::vector<double>& horizontal,
                                             const std::vector<double>& vertical,
                                             std::vector<KiroBlink>& blinks, bool blinksHorizontal);
    /// Of both eyes: each right saccade with the left one that it overlaps, `main` being the right one's
    /// block. Blinks are those of the right eye.
    std::vector<KiroSaccade>
    detectBinocular(const SaccadeDetectionParams& params, const BlinkDetectionParams& blinkParams,
                    const std::vector<double>& leftHorizontal, const std::vector<double>& leftVertical,
                    const std::vector<double>& rightHorizontal, const std::vector<double>& rightVertical,
                    std::vector<KiroBlink>& blinks, bool blinksHorizontal);

    /// Blinks of one position array, with the detector's blink parameters.
    std::vector<KiroBlink> detectBlinks(const std::vector<double>& position) const;

    SaccadeDetectionParams params;
    BlinkDetectionParams blinkParams;
    KiroString error;
    bool keepRejected = false; ///< whether candidates beyond the limits stay, with `valid` unset
};
