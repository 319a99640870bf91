#pragma once

#include "columnspans.h"
#include "curvetrace.h"
#include "stripsink.h"

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

/// The columns of many dense solid lines with one pen, taken together: what several of them light is given
/// once, so that lines close to each other cost little more than one. No pixel is covered twice.
///
/// `width` and `canvas` as for columnsOf().
class ColumnFill
{
public:
    ColumnFill(const QRect& canvas, double width);

    void add(const CurveTrace& trace);
    /// What columnsOf() lights for all traces.
    std::vector<QRect> rects() const;

private:
    QRect m_canvas;
    double m_width;
    ColumnRaster m_raster;            ///< lines that go on to the right of each other
    std::vector<ColumnSpan> m_before; ///< of the lines before those, in any order
};
