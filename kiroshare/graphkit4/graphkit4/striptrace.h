#pragma once

#include "stripgeometry.h"
#include "stripsink.h"

/// Hands the samples of a view to a sink: each of them where there are few, else of each column of pixels the
/// first and last, and the extremes where they go beyond (M4, see drawStripCurve()). The last call is a
/// gap(). Its cost depends on the columns.
void traceStrip(const SampleStore& samples, const StripGeometry& geometry, StripSink& sink);

/// The pixels that the samples themselves stand on. Where a column holds thousands of samples of more heights
/// than blocks of them can tell apart, rows that very few of them hit may be missing.
std::vector<ColumnSpan> traceStripPoints(const SampleStore& samples, const StripGeometry& geometry);
