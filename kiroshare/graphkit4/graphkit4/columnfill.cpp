#include "columnfill.h"

#include "columnspans.h"
#include "stripsink.h"

#include <algorithm>
#include <cmath>
#include <numeric>

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

/// What the line of a run lights, without the width of its pen.
std::vector<ColumnSpan> spansOf(const QPointF* points, int count, const QRect& canvas)
{
    ColumnRaster raster(canvas);
    const bool rightwards = points[count - 1].x() >= points[0].x();
    for (int i = 0; i < count; ++i) {
        const QPointF& point = points[rightwards ? i : count - 1 - i];
        raster.lineTo(point.x(), point.y());
    }
    raster.gap();
    return raster.spans();
}

} // namespace

std::vector<QRect> columnsOf(const CurveTrace& trace, const QRect& canvas, double width,
                             const QVector<qreal>& dashes)
{
    const RoundPen pen(width);
    std::vector<QRect> columns;
    for (int run = 0; run < trace.runCount(); ++run) {
        const int start = trace.runStart(run);
        std::vector<ColumnSpan> spans =
            pen.widened(spansOf(trace.points().constData() + start, trace.runEnd(run) - start, canvas));
        Dashes dashing(width, dashes);
        const auto isGap = [&](const ColumnSpan& span) { return dashing.isGap(span); };
        spans.erase(std::remove_if(spans.begin(), spans.end(), isGap), spans.end());
        const std::vector<QRect> rects = rectsOf(spans);
        columns.insert(columns.end(), rects.begin(), rects.end());
    }
    return columns;
}
