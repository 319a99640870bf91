// Any parameters and any positions: the detectors stay within the arrays, come back soon, and answer in
// order.

#include "memoryfile.h"

#include "kirosaccadedetector.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace
{

/// Hands out the bytes of the input in turn, zeros behind its end.
class Input
{
public:
    Input(const std::uint8_t* bytes, std::size_t count)
        : m_bytes(bytes)
        , m_left(count)
    {
    }

    template <class Value>
    Value take()
    {
        Value value = {};
        const std::size_t size = std::min(sizeof(value), m_left);
        if (size > 0)
            std::memcpy(&value, m_bytes, size);
        m_bytes += size;
        m_left -= size;
        return value;
    }
    bool isOver() const { return m_left == 0; }

private:
    const std::uint8_t* m_bytes;
    std::size_t m_left;
};

SaccadeDetectionParams takeSaccadeParams(Input& input)
{
    SaccadeDetectionParams params;
    for (std::int32_t* number : {&params.local, &params.gap, &params.minTime, &params.maxTime})
        *number = input.take<std::int32_t>();
    for (double* number :
         {&params.initVel, &params.minSpeed, &params.minSlope, &params.minAmp, &params.maxAmp})
        *number = input.take<double>();
    return params;
}

BlinkDetectionParams takeBlinkParams(Input& input)
{
    BlinkDetectionParams params;
    for (double* number : {&params.peakVel1, &params.peakVel2, &params.minVel, &params.minAmplitude,
                           &params.minAmplitudeRelation, &params.maxAmplitudeRelation})
        *number = input.take<double>();
    for (std::int32_t* number : {&params.maxPeaksDistance, &params.minDuration, &params.maxDuration})
        *number = input.take<std::int32_t>();
    return params;
}

/// Steps of a converter, two bytes a sample; every 32768th value is no number.
std::vector<double> takePositions(Input& input)
{
    std::vector<double> positions;
    while (!input.isOver()) {
        const auto step = input.take<std::int16_t>();
        positions.push_back(step == -32768 ? std::nan("") : step / 64.0);
    }
    return positions;
}

void checkEye(const KiroSaccadeEye& eye, std::size_t count)
{
    require(eye.start >= 0 && eye.start <= eye.end && std::size_t(eye.end) < count);
    require(eye.duration == eye.end - eye.start + 1);
}

void checkAll(const std::vector<KiroSaccade>& saccades, const std::vector<KiroBlink>& blinks,
              std::size_t count, bool bothEyes)
{
    for (const KiroSaccade& saccade : saccades) {
        checkEye(saccade.main, count);
        if (bothEyes) {
            checkEye(saccade.left, count);
            checkEye(saccade.right, count);
        }
    }
    for (std::size_t i = 0; i < blinks.size(); ++i) {
        const KiroBlink& blink = blinks[i];
        require(blink.start >= 0 && blink.start <= blink.end && std::size_t(blink.end) < count);
        require(i == 0 || blinks[i - 1].end < blink.end);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
    Input input(bytes, count);
    const auto flags = input.take<std::uint8_t>();
    const SaccadeDetectionParams params = takeSaccadeParams(input);
    const BlinkDetectionParams blinkParams = takeBlinkParams(input);
    const std::vector<double> positions = takePositions(input);
    std::vector<double> others(positions.rbegin(), positions.rend());
    KiroSaccadeDetector detector;
    detector.keepRejected = (flags & 1) != 0;
    const bool blinksHorizontal = (flags & 2) != 0;

    checkAll(detector.detectOneSignal(params, positions), {}, positions.size(), false);
    std::vector<KiroBlink> blinks;
    auto saccades =
        detector.detectMonocular(params, blinkParams, positions, others, blinks, blinksHorizontal);
    checkAll(saccades, blinks, positions.size(), false);
    if ((flags & 4) != 0)
        others.resize(others.size() / 2);
    saccades = detector.detectBinocular(params, blinkParams, positions, others, positions, positions, blinks,
                                        blinksHorizontal);
    checkAll(saccades, blinks, positions.size(), true);
    return 0;
}
