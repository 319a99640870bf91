#include "blinkscan.h"

#include "samplefilters.h"
#include "savitzkygolay.h"
#include "slidingextreme.h"

#include <cmath>
#include <cstdint>

namespace
{

class BlinkScan
{
public:
    BlinkScan(const std::vector<double>& position, const BlinkDetectionParams& params);

    std::vector<KiroBlink> run();

private:
    bool isFirstPeak(std::int64_t i) const { return -m_params.peakVel1 > m_velocity11[at(i)]; }
    std::int64_t findSecondPeak(std::int64_t i);
    std::int64_t widenLeft(std::int64_t i);
    std::int64_t widenRight(std::int64_t e) const;
    bool measure(std::int64_t i, std::int64_t e, KiroBlink& blink);
    /// Over 15 samples; it only counts around a figure.
    double velocity15(std::int64_t i) const
    {
        return SavitzkyGolay::slopeAt<SavitzkyGolay::Slope15>(m_position.data(), m_position.size(), at(i));
    }
    static std::size_t at(std::int64_t i) { return static_cast<std::size_t>(i); }

    const std::vector<double>& m_position;
    const BlinkDetectionParams& m_params;
    const std::int64_t m_count;
    std::vector<double> m_velocity11;
    std::int64_t m_secondPeak = -1; ///< first sample with the second velocity behind all that were searched
    std::int64_t m_widenedFrom = -1;
    std::int64_t m_widenedTo = -1;
    SlidingMinimum m_lowest;
};

BlinkScan::BlinkScan(const std::vector<double>& position, const BlinkDetectionParams& params)
    : m_position(position)
    , m_params(params)
    , m_count(static_cast<std::int64_t>(position.size()))
{
    if (!velocitySavitzkyGolay11(position, m_velocity11, false))
        m_velocity11.assign(position.size(), 0.0);
}

/// The first sample from `i` on that has the second peak's velocity, or the number of samples. Calls come
/// with rising `i`, so that what was found once serves all calls before it.
std::int64_t BlinkScan::findSecondPeak(std::int64_t i)
{
    if (m_secondPeak < i)
        m_secondPeak = i;
    while (m_secondPeak < m_count && m_params.peakVel2 > m_velocity11[at(m_secondPeak)])
        ++m_secondPeak;
    return m_secondPeak;
}

/// The sample before `i` from which on the eye moves downward. Where the last walk began its end is known.
std::int64_t BlinkScan::widenLeft(std::int64_t i)
{
    const std::int64_t from = i;
    while (i > 0 && -m_params.minVel > velocity15(i)) {
        --i;
        if (i == m_widenedFrom) {
            i = m_widenedTo;
            break;
        }
    }
    m_widenedFrom = from;
    m_widenedTo = i;
    return i;
}

std::int64_t BlinkScan::widenRight(std::int64_t e) const
{
    while (e < m_count - 1 && velocity15(e) > m_params.minVel)
        ++e;
    return e;
}

/// Sets the depths of the strokes; false if they are none of a blink. Without a first stroke the relation
/// is no number or infinite, and the test of it fails.
bool BlinkScan::measure(std::int64_t i, std::int64_t e, KiroBlink& blink)
{
    const double lowest = m_lowest.of(i, e, [this](std::int64_t j) { return m_position[at(j)]; });
    blink.amp1 = std::abs(m_position[at(i)] - lowest);
    blink.amp2 = std::abs(m_position[at(e)] - lowest);
    blink.ampRelation = blink.amp2 / blink.amp1;
    return blink.amp1 >= m_params.minAmplitude && blink.ampRelation >= m_params.minAmplitudeRelation &&
           m_params.maxAmplitudeRelation >= blink.ampRelation;
}

std::vector<KiroBlink> BlinkScan::run()
{
    std::vector<KiroBlink> blinks;
    std::int64_t i = 0;
    while (i < m_count) {
        if (!isFirstPeak(i)) {
            ++i;
            continue;
        }
        const std::int64_t second = findSecondPeak(i);
        const std::int64_t distance = second - i + 1;
        if (second >= m_count || distance > m_params.maxPeaksDistance) {
            while (i < m_count && isFirstPeak(i))
                ++i;
            continue;
        }
        const std::int64_t start = widenLeft(i);
        const std::int64_t end = widenRight(second);
        const std::int64_t duration = end - start + 1;
        i = end + 1;
        if (duration < m_params.minDuration || duration > m_params.maxDuration)
            continue;
        KiroBlink blink;
        if (!measure(start, end, blink))
            continue;
        blink.start = static_cast<std::int32_t>(start);
        blink.end = static_cast<std::int32_t>(end);
        blink.duration = static_cast<std::int32_t>(duration);
        blink.peaksDistance = static_cast<std::int32_t>(distance);
        blinks.push_back(blink);
    }
    return blinks;
}

} // namespace

std::vector<KiroBlink> scanBlinks(const std::vector<double>& position, const BlinkDetectionParams& params)
{
    return BlinkScan(position, params).run();
}
