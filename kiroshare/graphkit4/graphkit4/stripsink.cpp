#include "stripsink.h"

#include <algorithm>
#include <cmath>
#include <limits>

bool StripSink::covers(double, double, double) const
{
    return false;
}

namespace
{

int rowOf(double y)
{
    return int(std::floor(y));
}

} // namespace

ColumnRaster::ColumnRaster(const QRect& canvas)
    : m_canvas(canvas)
{
}

int ColumnRaster::columnOf(double x) const
{
    return int(std::floor(std::clamp(x, m_canvas.left() - 1.0, m_canvas.right() + 1.0)));
}

ColumnSpan ColumnRaster::clipped(int top, int bottom) const
{
    return {m_column, std::max(top, m_canvas.top()), std::min(bottom, m_canvas.bottom())};
}

ColumnSpan ColumnRaster::litRows() const
{
    int top = int(std::ceil(m_high - 0.5));
    int bottom = int(std::floor(m_low - 0.5));
    if (top > bottom)
        top = bottom = rowOf((m_high + m_low) * 0.5);
    return clipped(std::min(top, m_topTurn), std::max(bottom, m_bottomTurn));
}

void ColumnRaster::enterColumn(int column, double y)
{
    m_column = column;
    m_high = m_low = y;
    m_topTurn = std::numeric_limits<int>::max();
    m_bottomTurn = std::numeric_limits<int>::min();
}

/// Lights the row of the last point.
void ColumnRaster::turn()
{
    m_topTurn = std::min(m_topTurn, rowOf(m_y));
    m_bottomTurn = std::max(m_bottomTurn, rowOf(m_y));
}

void ColumnRaster::closeColumn()
{
    const ColumnSpan rows = litRows();
    if (rows.top <= rows.bottom && m_column >= m_canvas.left() && m_column <= m_canvas.right())
        m_list.add(rows);
}

void ColumnRaster::lineTo(double x, double y)
{
    const int column = columnOf(x);
    if (!m_drawing) {
        m_drawing = true;
        enterColumn(column, y);
        m_y = y;
        m_step = 0.0;
    }
    const double step = y - m_y;
    if (step * m_step <= 0.0)
        turn();
    const double slope = column > m_column ? step / (x - m_x) : 0.0;
    while (m_column < column) {
        const double border =
            std::clamp(m_y + (m_column + 1 - m_x) * slope, std::min(m_y, y), std::max(m_y, y));
        m_high = std::min(m_high, border);
        m_low = std::max(m_low, border);
        closeColumn();
        enterColumn(m_column + 1, border);
    }
    m_high = std::min(m_high, y);
    m_low = std::max(m_low, y);
    m_x = x;
    m_y = y;
    m_step = step;
}

void ColumnRaster::bar(double x, double high, double low)
{
    if (!m_drawing)
        lineTo(x, high);
    m_high = std::min(m_high, high);
    m_low = std::max(m_low, low);
    m_topTurn = std::min(m_topTurn, rowOf(high));
    m_bottomTurn = std::max(m_bottomTurn, rowOf(low));
}

void ColumnRaster::gap()
{
    if (m_drawing) {
        turn();
        closeColumn();
    }
    m_drawing = false;
}

bool ColumnRaster::covers(double x, double high, double low) const
{
    if (columnOf(x) != m_column)
        return false;
    const ColumnSpan rows = clipped(rowOf(high), rowOf(low));
    if (rows.top > rows.bottom || m_list.covers(rows))
        return true;
    const ColumnSpan open = litRows();
    return m_drawing && open.top <= rows.top && open.bottom >= rows.bottom;
}

RunEnds::RunEnds(StripSink& target, const QRect& canvas, double scale, double shift)
    : m_target(target)
    , m_canvas(canvas)
    , m_scale(scale)
    , m_shift(shift)
{
}

void RunEnds::light(double x, double y)
{
    const double column = std::floor(x * m_scale + m_shift);
    const double row = std::floor(y * m_scale + m_shift);
    if (column >= m_canvas.left() && column <= m_canvas.right() && row >= m_canvas.top() &&
        row <= m_canvas.bottom())
        m_list.add({int(column), int(row), int(row)});
}

void RunEnds::begin(double x, double y)
{
    if (!m_drawing)
        light(x, y);
    m_drawing = true;
}

void RunEnds::lineTo(double x, double y)
{
    begin(x, y);
    m_x = x;
    m_y = y;
    m_target.lineTo(x, y);
}

void RunEnds::bar(double x, double high, double low)
{
    if (!m_drawing) {
        m_x = x;
        m_y = low;
    }
    begin(x, high);
    m_target.bar(x, high, low);
}

void RunEnds::gap()
{
    if (m_drawing)
        light(m_x, m_y);
    m_drawing = false;
    m_target.gap();
}

bool RunEnds::covers(double x, double high, double low) const
{
    return m_target.covers(x, high, low);
}

PolylineSink::PolylineSink(const QRectF& area)
    : m_area(area)
{
}

namespace
{

/// Narrows the part [from, to] of a line to where start + part * step is at least 0.
void cut(double start, double step, double& from, double& to)
{
    if (step > 0.0)
        from = std::max(from, -start / step);
    else if (step < 0.0)
        to = std::min(to, -start / step);
    else if (start < 0.0)
        to = -1.0;
}

} // namespace

void PolylineSink::lineTo(double x, double y)
{
    const QPointF next(x, y);
    ++m_samples;
    if (m_drawing && next != m_last) {
        const QPointF step = next - m_last;
        double from = 0.0;
        double to = 1.0;
        cut(m_last.x() - m_area.left(), step.x(), from, to);
        cut(m_area.right() - m_last.x(), -step.x(), from, to);
        cut(m_last.y() - m_area.top(), step.y(), from, to);
        cut(m_area.bottom() - m_last.y(), -step.y(), from, to);
        if (from > 0.0 || from > to)
            endLine();
        if (from <= to) {
            if (m_line.isEmpty())
                m_line.append(m_last + step * from);
            m_line.append(to < 1.0 ? m_last + step * to : next);
        }
        if (to < 1.0)
            endLine();
    }
    m_drawing = true;
    m_last = next;
}

void PolylineSink::bar(double x, double high, double low)
{
    const bool highFirst = !m_drawing || std::abs(m_last.y() - high) <= std::abs(m_last.y() - low);
    lineTo(x, highFirst ? high : low);
    lineTo(x, highFirst ? low : high);
}

void PolylineSink::gap()
{
    if (m_drawing && m_line.isEmpty() && m_area.contains(m_last) && m_samples > 0)
        m_points.append(m_last);
    endLine();
    m_drawing = false;
    m_samples = 0;
}

void PolylineSink::endLine()
{
    if (!m_line.isEmpty())
        m_lines.append(m_line);
    m_line.clear();
}

SteepFilter::SteepFilter(StripSink& gentle, StripSink& steep, double scale)
    : m_gentle(gentle)
    , m_steep(steep)
    , m_scale(scale)
{
}

void SteepFilter::lineTo(double x, double y)
{
    const QPointF next(x, y);
    if (m_drawing) {
        const bool isSteep = std::abs(y - m_last.y()) > GreatestSlope * (x - m_last.x());
        StripSink* sink = isSteep ? &m_steep : &m_gentle;
        if (sink != m_current) {
            endLine();
            m_current = sink;
            handOn(m_last);
        }
        handOn(next);
    }
    m_drawing = true;
    m_last = next;
}

void SteepFilter::bar(double x, double high, double low)
{
    const bool highFirst = !m_drawing || std::abs(m_last.y() - high) <= std::abs(m_last.y() - low);
    lineTo(x, highFirst ? high : low);
    lineTo(x, highFirst ? low : high);
}

void SteepFilter::gap()
{
    if (m_drawing && !m_current) {
        m_current = &m_gentle;
        handOn(m_last);
    }
    endLine();
    m_drawing = false;
}

void SteepFilter::handOn(const QPointF& point)
{
    const double scale = m_current == &m_steep ? m_scale : 1.0;
    m_current->lineTo(point.x() * scale, point.y() * scale);
}

void SteepFilter::endLine()
{
    if (m_current)
        m_current->gap();
    m_current = nullptr;
}

ToleranceFilter::ToleranceFilter(StripSink& target, double tolerance)
    : m_target(target)
    , m_tolerance(tolerance)
{
}

void ToleranceFilter::keep(const QPointF& point)
{
    m_target.lineTo(point.x(), point.y());
    m_anchor = point;
    m_pending = false;
}

void ToleranceFilter::lineTo(double x, double y)
{
    const QPointF next(x, y);
    if (!m_drawing) {
        m_drawing = true;
        keep(next);
        return;
    }
    if (m_pending) {
        const double slope = (y - m_anchor.y()) / (x - m_anchor.x());
        if (slope < m_least || slope > m_greatest)
            keep(m_candidate);
    }
    const double dx = x - m_anchor.x();
    if (!(dx > 0.0)) {
        keep(next);
        return;
    }
    const double least = (y - m_tolerance - m_anchor.y()) / dx;
    const double greatest = (y + m_tolerance - m_anchor.y()) / dx;
    m_least = m_pending ? std::max(m_least, least) : least;
    m_greatest = m_pending ? std::min(m_greatest, greatest) : greatest;
    m_candidate = next;
    m_pending = true;
}

void ToleranceFilter::bar(double x, double high, double low)
{
    const double last = m_pending ? m_candidate.y() : m_anchor.y();
    const bool highFirst = !m_drawing || std::abs(last - high) <= std::abs(last - low);
    lineTo(x, highFirst ? high : low);
    lineTo(x, highFirst ? low : high);
}

void ToleranceFilter::gap()
{
    if (m_pending)
        keep(m_candidate);
    if (m_drawing)
        m_target.gap();
    m_drawing = false;
    m_pending = false;
}
