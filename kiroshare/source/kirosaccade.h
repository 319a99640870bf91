#pragma once

#include <cstdint>

/// One eye's or one view's measures of one saccade.
///
/// Positions are indices of samples of the eye signals, from 0. The unit of amplitudes and positions is
/// that of the calibrated eye signal, degrees in practice.
struct KiroSaccadeEye
{
    std::int32_t start = 0;
    std::int32_t end = 0;             ///< last sample, inclusive
    std::int32_t duration = 0;        ///< end - start + 1
    std::int32_t fixation = 0;        ///< samples between the end of the previous saccade and start
    std::int32_t reserved = 0;        ///< stored and loaded as it stands
    double amplitude = 0.0;           ///< one signal: signed; two signals: Euclidean
    double peakVelocity = 0.0;        ///< per second
    double meanVelocity = 0.0;        ///< absolute amplitude by duration, per second
    double peakAcceleration = 0.0;    ///< per second squared
    double velocityPerDuration = 0.0; ///< highest speed per sample by duration; never rescaled to seconds
    double amplitudeHorz = 0.0;       ///< endHorz - startHorz
    double startHorz = 0.0;
    double endHorz = 0.0;
    double amplitudeVert = 0.0; ///< endVert - startVert; 0 in one-signal detection, as the next two
    double startVert = 0.0;
    double endVert = 0.0;
};

/// One saccade.
struct KiroSaccade
{
    KiroSaccadeEye main;  ///< as the program shows it; in binocular detection the right eye's block
    KiroSaccadeEye left;  ///< binocular detection only, else all zero
    KiroSaccadeEye right; ///< binocular detection only, else all zero
    bool valid = true;    ///< accepted by the detector; not stored in a file
};

/// One blink: a stroke downward and a stroke back up.
struct KiroBlink
{
    std::int32_t start = 0;
    std::int32_t end = 0;           ///< last sample, inclusive
    std::int32_t duration = 0;      ///< end - start + 1
    std::int32_t peaksDistance = 0; ///< samples from the first velocity peak to the second, both included
    double amp1 = 0.0;              ///< depth of the lowest position below that at start
    double amp2 = 0.0;              ///< depth of the lowest position below that at end
    double ampRelation = 0.0;       ///< amp2 / amp1
};
