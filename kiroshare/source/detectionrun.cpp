#include "detectionrun.h"

#include "eyesignals.h"
#include "kiroheader.h"
#include "kirosaccadedetector.h"
#include "kirosaccheader.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

SaccadeDetectionParams perSample(SaccadeDetectionParams params, double frequency)
{
    params.initVel /= frequency;
    params.minSpeed /= frequency;
    params.minSlope /= frequency * frequency;
    return params;
}

BlinkDetectionParams perSample(BlinkDetectionParams params, double frequency)
{
    params.peakVel1 /= frequency;
    params.peakVel2 /= frequency;
    params.minVel /= frequency;
    return params;
}

void makePerSecond(KiroSaccadeEye& eye, double frequency)
{
    eye.peakVelocity *= frequency;
    eye.meanVelocity *= frequency;
    eye.peakAcceleration *= frequency * frequency;
}

/// Length of a signal in milliseconds, cut; held at what the file's field can say.
std::uint32_t durationMs(const KiroHeader& recording, int signal)
{
    constexpr double Most = std::numeric_limits<std::uint32_t>::max();
    const double duration =
        static_cast<double>(recording.signalSampleCount(signal)) * recording.signalMSecs(signal);
    return std::isfinite(duration) ? static_cast<std::uint32_t>(std::clamp(duration, 0.0, Most)) : 0;
}

} // namespace

DetectedMovements runDetection(int detectionType, double frequency, const DetectionSettings& settings,
                               const EyeSignals& eyes)
{
    const SaccadeDetectionParams params = perSample(settings.saccades, frequency);
    const BlinkDetectionParams blinkParams = perSample(settings.blinks, frequency);
    const auto position = [&eyes](EyeAxis axis) -> const std::vector<double>& { return eyes[axis].position; };
    const std::vector<double>& horizontal = position(EyeAxis::RightHorizontal);
    const std::vector<double>& vertical = position(EyeAxis::RightVertical);
    KiroSaccadeDetector detector;
    DetectedMovements found;
    if (detectionType == 1)
        found.saccades = detector.detectOneSignal(params, horizontal);
    else if (detectionType == 2)
        found.saccades = detector.detectMonocular(params, blinkParams, horizontal, vertical, found.blinks,
                                                  settings.blinksHorizontal);
    else if (detectionType == 3)
        found.saccades = detector.detectBinocular(params, blinkParams, position(EyeAxis::LeftHorizontal),
                                                  position(EyeAxis::LeftVertical), horizontal, vertical,
                                                  found.blinks, settings.blinksHorizontal);
    for (KiroSaccade& saccade : found.saccades) {
        for (KiroSaccadeEye* eye : {&saccade.main, &saccade.left, &saccade.right})
            makePerSecond(*eye, frequency);
    }
    return found;
}

void describeDetection(KiroSaccHeader& header, const DetectedMovements& found,
                       const DetectionSettings& settings, const EyeSignals& eyes, const KiroHeader& recording,
                       const KiroString& path)
{
    header.clear();
    header.saccades = found.saccades;
    header.blinks = found.blinks;
    header.setDataFiles(path, KiroString());
    header.blinksHorizontal = settings.blinksHorizontal;
    header.detectionType = eyes.detectionType;
    header.params = settings.saccades;
    for (const EyeAxis axis : EyeAxes) {
        const EyeSignal& eye = eyes[axis];
        if (usesAxis(eyes.detectionType, axis))
            header.setSignal(saccadeFileRole(axis), eye.signalIndex, eye.factor, eye.offset);
    }
    KiroSignal first;
    if (!recording.getSignal(eyes[EyeAxis::RightHorizontal].signalIndex, first))
        return;
    header.ratePeriod = first.ratePeriod;
    header.samplesPerPeriod = first.samplesPerPeriod;
    header.durationMs = durationMs(recording, eyes[EyeAxis::RightHorizontal].signalIndex);
}
