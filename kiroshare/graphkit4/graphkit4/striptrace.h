#pragma once

#include "stripgeometry.h"
#include "stripsink.h"

/// Hands the samples of a view to a sink: each of them where there are few, else of each column of pixels the
/// first and last, and the extremes where they go beyond (M4, see drawStripCurve()). The last call is a
/// gap(). Its cost depends on the columns.
void traceStrip(const SampleStore& samples, const StripGeometry& geometry, StripSink& sink);

/// The pixels that the samples themselves stand on, to within one; its cost depends on the columns. Where a
/// column holds hundreds of samples, those of a row that very few of them stand on may be missed.
std::vector<ColumnSpan> traceStripPoints(const SampleStore& samples, const StripGeometry& geometry);
