#include "columnfill.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <tuple>

namespace
{

/// Which columns of a line get a stroke, from left to right.
class Dashes
{
public:
    Dashes(double width, const QVector<qreal>& lengths)
        : m_width(width)
        , m_lengths(lengths)
        , m_period(std::accumulate(lengths.begin(), lengths.end(), 0.0) * width)
    {
    }

    /// Whether the span lies in a gap. One higher than strokes and gaps together never does, so that steep
    /// parts are not lost.
    bool isGap(const ColumnSpan& span)
    {
        if (!(m_period > 0.0))
            return false;
        const double middle = (span.top + span.bottom) * 0.5;
        if (m_hasBefore && span.column != m_column) {
            // Ups and downs within the width of the pen are noise.
            const double rise = std::max(std::abs(middle - m_middle) - m_width, 0.0);
            m_place += std::hypot(span.column - m_column, rise);
        }
        m_hasBefore = true;
        m_column = span.column;
        m_middle = middle;
        return span.bottom - span.top + 1 < m_period + m_width && !isInStroke();
    }

private:
    bool isInStroke() const
    {
        double rest = std::fmod(m_place, m_period);
        for (int i = 0; i < m_lengths.size(); ++i) {
            rest -= m_lengths[i] * m_width;
            if (rest < 0.0)
                return i % 2 == 0;
        }
        return true;
    }

    double m_width;
    QVector<qreal> m_lengths;
    double m_period;
    double m_place = 0.0; ///< along the line
    bool m_hasBefore = false;
    int m_column = 0;
    double m_middle = 0.0;
};

/// Adds the line of a run to what is lit, without the width of its pen.
void addRun(const CurveTrace& trace, int run, ColumnRaster& raster)
{
    const QPointF* const points = trace.points().constData() + trace.runStart(run);
    const int count = trace.runEnd(run) - trace.runStart(run);
    const bool rightwards = points[count - 1].x() >= points[0].x();
    for (int i = 0; i < count; ++i) {
        const QPointF& point = points[rightwards ? i : count - 1 - i];
        raster.lineTo(point.x(), point.y());
    }
    raster.gap();
}

double leftEnd(const CurveTrace& trace, int run)
{
    return std::min(trace.points()[trace.runStart(run)].x(), trace.points()[trace.runEnd(run) - 1].x());
}

} // namespace

std::vector<QRect> columnsOf(const CurveTrace& trace, const QRect& canvas, double width,
                             const QVector<qreal>& dashes)
{
    const RoundPen pen(width);
    std::vector<QRect> columns;
    for (int run = 0; run < trace.runCount(); ++run) {
        ColumnRaster raster(canvas);
        addRun(trace, run, raster);
        std::vector<ColumnSpan> spans = pen.widened(raster.spans());
        Dashes dashing(width, dashes);
        const auto isGap = [&](const ColumnSpan& span) { return dashing.isGap(span); };
        spans.erase(std::remove_if(spans.begin(), spans.end(), isGap), spans.end());
        const std::vector<QRect> rects = rectsOf(spans);
        columns.insert(columns.end(), rects.begin(), rects.end());
    }
    return columns;
}

ColumnFill::ColumnFill(const QRect& canvas, double width)
    : m_canvas(canvas)
    , m_width(width)
    , m_raster(canvas)
{
}

void ColumnFill::add(const CurveTrace& trace)
{
    for (int run = 0; run < trace.runCount(); ++run) {
        const std::vector<ColumnSpan>& lit = m_raster.spans();
        if (!lit.empty() && leftEnd(trace, run) < lit.back().column) {
            m_before.insert(m_before.end(), lit.begin(), lit.end());
            m_raster = ColumnRaster(m_canvas);
        }
        addRun(trace, run, m_raster);
    }
}

std::vector<QRect> ColumnFill::rects() const
{
    const RoundPen pen(m_width);
    if (m_before.empty())
        return rectsOf(pen.widened(m_raster.spans()));
    std::vector<ColumnSpan> spans = m_before;
    spans.insert(spans.end(), m_raster.spans().begin(), m_raster.spans().end());
    const auto isBefore = [](const ColumnSpan& a, const ColumnSpan& b) {
        return std::tie(a.column, a.top) < std::tie(b.column, b.top);
    };
    std::sort(spans.begin(), spans.end(), isBefore);
    SpanList merged;
    for (const ColumnSpan& span : spans)
        merged.add(span);
    return rectsOf(pen.widened(merged.spans()));
}
