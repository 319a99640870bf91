#include "timewindow.h"

#include "rounding.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>

namespace
{

/// A window up to this length, in milliseconds, is made shorter or longer by the step; one of just this
/// length is made longer by the next step.
struct ZoomStep
{
    double upTo;
    double step;
};

constexpr ZoomStep ZoomSteps[] = {
    {3000.0, 250.0}, {10000.0, 500.0}, {20000.0, 1000.0}, {std::numeric_limits<double>::infinity(), 5000.0}};

int held(std::int64_t value)
{
    using Limits = std::numeric_limits<int>;
    return int(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

} // namespace

void TimeWindow::setLength(double length)
{
    m_length = std::isfinite(length) ? std::clamp(length, LeastLength, GreatestLength) : LengthAtStart;
}

void TimeWindow::setSamples(int sampleCount, double msPerSample)
{
    m_sampleCount = std::max(sampleCount, 0);
    m_msPerSample = msPerSample;
}

bool TimeWindow::zoomIn()
{
    if (!(m_length > LeastLength))
        return false;
    const auto* const step = std::find_if(std::begin(ZoomSteps), std::end(ZoomSteps),
                                          [this](const ZoomStep& s) { return m_length <= s.upTo; });
    m_length -= step->step;
    return true;
}

bool TimeWindow::zoomOut()
{
    if (!(GreatestLength > m_length))
        return false;
    const auto* const step = std::find_if(std::begin(ZoomSteps), std::end(ZoomSteps),
                                          [this](const ZoomStep& s) { return m_length < s.upTo; });
    m_length += step->step;
    return true;
}

int TimeWindow::scrollMaximum() const
{
    const std::int64_t end = roundHalfUp(m_msPerSample * (m_sampleCount - 1));
    return held(end - roundHalfUp(m_length));
}

int TimeWindow::pageStep() const
{
    return roundHalfUp(m_length);
}

int TimeWindow::scrollAfterZoom(int scroll, double oldLength) const
{
    return held(std::int64_t(scroll) + roundHalfUp(oldLength / 2.0) - roundHalfUp(m_length / 2.0));
}

int TimeWindow::scrollToCentre(int sample) const
{
    return held(std::int64_t(roundHalfUp(m_msPerSample * sample)) - roundHalfUp(m_length / 2.0));
}

int TimeWindow::scrollAfterWheel(int scroll, int delta) const
{
    constexpr std::int64_t DeltaOfAWindow = 600;
    return held(scroll - std::int64_t(delta) * roundHalfUp(m_length) / DeltaOfAWindow);
}

int TimeWindow::room() const
{
    return roundHalfUp(m_length / m_msPerSample);
}

TimeWindow::Range TimeWindow::range(int scroll) const
{
    Range range;
    const double first = std::max(scroll, 0) / m_msPerSample;
    range.first = int(std::min(first, double(m_sampleCount)));
    range.last = held(std::min(std::int64_t(range.first) + room(), std::int64_t(m_sampleCount) - 1));
    return range;
}
