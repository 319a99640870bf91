#pragma once

#include <vector>

/// The vertical scales of eye charts: how a reset fits them to what is shown.

/// Lowest and highest of some samples, without those that are not finite.
struct SampleExtent
{
    bool known = false; ///< there is a finite sample
    double lowest = 0.0;
    double highest = 0.0;

    void add(double sample);
    double width() const { return highest - lowest; }
    double middle() const { return (lowest + highest) / 2.0; }
};

/// What a reset makes the scales fit.
enum class ScaleMode {
    Auto,  ///< the samples in the window
    Const, ///< the largest saccade of all
    Fit    ///< the current saccade, or as Auto where it is not in the window
};

/// What a redraw notes of one chart.
struct ChartExtents
{
    SampleExtent shown;   ///< of the samples in the window
    SampleExtent saccade; ///< of the current saccade's
};

struct ScaleRange
{
    double min = 0.0;
    double max = 0.0;
};

/// The ranges of position charts, in the order of `charts`: all as wide as the widest of them needs, with a
/// tenth more on both sides, around the middle of the chart's own samples. `saccadeDrawn` says whether the
/// current saccade is in the window.
std::vector<ScaleRange> positionRanges(const std::vector<ChartExtents>& charts, ScaleMode mode,
                                       bool saccadeDrawn, double largestAmplitude);

/// The one range of all velocity charts: from 0 to the highest velocity and a tenth more.
ScaleRange velocityRange(const std::vector<ChartExtents>& charts, ScaleMode mode, bool saccadeDrawn,
                         double largestVelocity);

/// Half as wide around the same middle if `in` is set, else twice as wide.
ScaleRange zoomedRange(const ScaleRange& range, bool in);
