#pragma once

#include "stripgeometry.h"
#include "stripsink.h"

/// Hands the samples of a view to a sink: each of them where there are few, else of each column of pixels the
/// first and last, and the extremes where they go beyond (M4, see drawStripCurve()). The last call is a
/// gap(). Its cost depends on the columns.
void traceStrip(const SampleStore& samples, const StripGeometry& geometry, StripSink& sink);

/// The pixels that the samples themselves stand on, to within one. Its cost depends on the columns where the
/// extremes of blocks of samples and a few of the blocks fill them, and is at most that of a look at all
/// samples.
std::vector<ColumnSpan> traceStripPoints(const SampleStore& samples, const StripGeometry& geometry);
