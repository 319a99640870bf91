#include "chartscale.h"

#include <algorithm>
#include <cmath>

namespace
{

bool fitsSaccade(ScaleMode mode, bool saccadeDrawn)
{
    return mode == ScaleMode::Fit && saccadeDrawn;
}

const SampleExtent& fittedExtent(const ChartExtents& chart, bool saccade)
{
    return saccade ? chart.saccade : chart.shown;
}

} // namespace

void SampleExtent::add(double sample)
{
    if (!std::isfinite(sample))
        return;
    lowest = known ? std::min(lowest, sample) : sample;
    highest = known ? std::max(highest, sample) : sample;
    known = true;
}

std::vector<ScaleRange> positionRanges(const std::vector<ChartExtents>& charts, ScaleMode mode,
                                       bool saccadeDrawn, double largestAmplitude)
{
    const bool saccade = fitsSaccade(mode, saccadeDrawn);
    double width = 0.0;
    for (const ChartExtents& chart : charts)
        width = std::max(width, fittedExtent(chart, saccade).width());
    if (mode == ScaleMode::Const)
        width = largestAmplitude;
    const double margin = width / 10.0;
    std::vector<ScaleRange> ranges;
    for (const ChartExtents& chart : charts) {
        const double middle = fittedExtent(chart, saccade).middle();
        ranges.push_back({middle - width / 2.0 - margin, middle + width / 2.0 + margin});
    }
    return ranges;
}

ScaleRange velocityRange(const std::vector<ChartExtents>& charts, ScaleMode mode, bool saccadeDrawn,
                         double largestVelocity)
{
    const bool saccade = fitsSaccade(mode, saccadeDrawn);
    double highest = 0.0;
    for (const ChartExtents& chart : charts)
        highest = std::max(highest, fittedExtent(chart, saccade).highest);
    if (mode == ScaleMode::Const)
        highest = largestVelocity;
    return {0.0, highest + highest / 10.0};
}

ScaleRange zoomedRange(const ScaleRange& range, bool in)
{
    const double middle = (range.min + range.max) / 2.0;
    const double half = (range.max - range.min) * (in ? 0.25 : 1.0);
    return {middle - half, middle + half};
}
