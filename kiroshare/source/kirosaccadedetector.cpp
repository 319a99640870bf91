#include "kirosaccadedetector.h"

#include "blinkscan.h"
#include "eyetrace.h"
#include "saccadepairs.h"
#include "saccadescan.h"
#include "savitzkygolay.h"

#include <algorithm>
#include <cstddef>

namespace
{

/// Scan, merge and fixations of one eye.
template <class Trace>
std::vector<KiroSaccade> detectEye(Trace trace, const SaccadeDetectionParams& params, bool keepRejected)
{
    // Without any speed there is no peak, whatever the parameters let pass.
    if (trace.count() < SavitzkyGolay::Slope11::LeastCount)
        return {};
    std::vector<KiroSaccade> saccades = SaccadeScan<Trace>(trace, params).run(keepRejected);
    mergeCloseSaccades(saccades, Trace::LimitIsTooSoon, params.gap);
    setFixations(saccades);
    return saccades;
}

std::vector<double> prefix(const std::vector<double>& samples, std::size_t count)
{
    return {samples.begin(), samples.begin() + static_cast<std::ptrdiff_t>(count)};
}

} // namespace

std::vector<KiroSaccade> KiroSaccadeDetector::detectOneSignal(const SaccadeDetectionParams& saccadeParams,
                                                              const std::vector<double>& position)
{
    params = saccadeParams;
    std::vector<KiroSaccade> saccades = detectEye(OneSignalTrace(position), params, keepRejected);
    if (!saccades.empty() && saccades.front().main.fixation < params.gap)
        saccades.erase(saccades.begin());
    return saccades;
}

std::vector<KiroSaccade> KiroSaccadeDetector::detectMonocular(
    const SaccadeDetectionParams& saccadeParams, const BlinkDetectionParams& blinkDetectionParams,
    const std::vector<double>& horizontal, const std::vector<double>& vertical,
    std::vector<KiroBlink>& blinks, bool blinksHorizontal)
{
    if (horizontal.size() != vertical.size()) {
        const std::size_t count = std::min(horizontal.size(), vertical.size());
        return detectMonocular(saccadeParams, blinkDetectionParams, prefix(horizontal, count),
                               prefix(vertical, count), blinks, blinksHorizontal);
    }
    params = saccadeParams;
    blinkParams = blinkDetectionParams;
    std::vector<KiroSaccade> saccades = detectEye(TwoSignalTrace(horizontal, vertical), params, keepRejected);
    blinks = detectBlinks(blinksHorizontal ? horizontal : vertical);
    dropSaccadesTouchingBlinks(saccades, blinks);
    return saccades;
}

std::vector<KiroSaccade> KiroSaccadeDetector::detectBinocular(
    const SaccadeDetectionParams& saccadeParams, const BlinkDetectionParams& blinkDetectionParams,
    const std::vector<double>& leftHorizontal, const std::vector<double>& leftVertical,
    const std::vector<double>& rightHorizontal, const std::vector<double>& rightVertical,
    std::vector<KiroBlink>& blinks, bool blinksHorizontal)
{
    const auto [shortest, longest] = std::minmax(
        {leftHorizontal.size(), leftVertical.size(), rightHorizontal.size(), rightVertical.size()});
    if (shortest != longest)
        return detectBinocular(saccadeParams, blinkDetectionParams, prefix(leftHorizontal, shortest),
                               prefix(leftVertical, shortest), prefix(rightHorizontal, shortest),
                               prefix(rightVertical, shortest), blinks, blinksHorizontal);
    params = saccadeParams;
    blinkParams = blinkDetectionParams;
    // One after the other: the speeds of one eye take as much memory as its samples.
    const std::vector<KiroSaccade> left =
        detectEye(TwoSignalTrace(leftHorizontal, leftVertical), params, keepRejected);
    const std::vector<KiroSaccade> right =
        detectEye(TwoSignalTrace(rightHorizontal, rightVertical), params, keepRejected);
    std::vector<KiroSaccade> pairs = pairEyes(left, right);
    blinks = detectBlinks(blinksHorizontal ? rightHorizontal : rightVertical);
    dropPairsTouchingBlinks(pairs, blinks);
    setPairFixations(pairs);
    return pairs;
}

std::vector<KiroBlink> KiroSaccadeDetector::detectBlinks(const std::vector<double>& position) const
{
    return scanBlinks(position, blinkParams);
}
