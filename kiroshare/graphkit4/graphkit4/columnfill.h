#pragma once

#include "curvetrace.h"

#include <QRect>
#include <QVector>

#include <vector>

/// The picture of a dense trace as rectangles of whole pixel columns, which costs the same at any density and
/// width of the pen; a stroked line does not. No pixel is covered twice within a run, so that translucent
/// pens stay even.
///
/// `width` is in device pixels. `dashes` are the lengths of strokes and gaps in turn, in pen widths, measured
/// along the line without its noise, from the left end of each run; none for a solid line. Nothing is given
/// beside `canvas`. The trace's x is monotonous within each run.
std::vector<QRect> columnsOf(const CurveTrace& trace, const QRect& canvas, double width,
                             const QVector<qreal>& dashes);
