#pragma once

#include "detectionparams.h"
#include "kirosaccade.h"

#include <vector>

class KiroHeader;
class KiroSaccHeader;
class KiroString;
struct EyeSignals;

/// What one detection is to do, in the user's units.
struct DetectionSettings
{
    SaccadeDetectionParams saccades = SaccadeDetectionParams::atStart();
    BlinkDetectionParams blinks = BlinkDetectionParams::atStart();
    bool blinksHorizontal = false; ///< whether blinks are found in the horizontal signal
};

/// What was found, in the order of time, in units per second.
struct DetectedMovements
{
    std::vector<KiroSaccade> saccades;
    std::vector<KiroBlink> blinks;
};

/// Detects with loaded eye signals of `frequency` Hz: of the right horizontal signal for `detectionType` 1,
/// of both right ones for 2, of all four for 3. Velocities and accelerations of the settings are divided by
/// the frequency and its square, those of the results multiplied; `velocityPerDuration` stays per sample.
DetectedMovements runDetection(int detectionType, double frequency, const DetectionSettings& settings,
                               const EyeSignals& eyes);

/// Makes `header` describe a detection that has just been run, not yet saved: what was found with which
/// settings, the signals that the detection type uses with their calibration, and rate and duration of the
/// right horizontal one. `path` is the recording's.
void describeDetection(KiroSaccHeader& header, const DetectedMovements& found,
                       const DetectionSettings& settings, const EyeSignals& eyes, const KiroHeader& recording,
                       const KiroString& path);
