#include "samplewindow.h"

#include <algorithm>
#include <cmath>

SampleStretch samplesInWindow(double positionSeconds, double rangeSeconds, double secondsPerSample,
                              int sampleCount)
{
    // In doubles until all is within the signal: a far window lies beyond the range of integers.
    const double start = std::trunc((positionSeconds - rangeSeconds * 0.5) / secondsPerSample);
    const double end = std::trunc((positionSeconds + rangeSeconds * 0.5) / secondsPerSample) + 1.0;
    if (std::isnan(start) || std::isnan(end) || !(secondsPerSample > 0.0))
        return {};
    const double first = std::max(start, 0.0);
    const double last = std::min(end, sampleCount - 1.0);
    if (last < first)
        return {};
    return {static_cast<int>(first), static_cast<int>(last - first) + 1};
}
