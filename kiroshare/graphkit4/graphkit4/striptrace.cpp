#include "striptrace.h"

#include "pointrows.h"
#include "sampleblocks.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace
{

/// Up to so many samples a column each of them is looked at.
constexpr int SamplesPerColumn = 2;
/// The samples of so many columns ahead are fetched from memory.
constexpr std::size_t ColumnsAhead = 16;
/// So many samples of a column with gaps are looked at one by one.
constexpr int GapBudget = 1024;
/// Of so many samples a pixel, a block is no more than a 256th of one: places are taken to the next block, so
/// that no single sample has to be fetched from memory.
constexpr int DensePixel = 256 * SampleStore::BlockSize;

int denseColumn(const StripGeometry& geometry)
{
    return DensePixel / geometry.fineness();
}

/// Hands stretches of samples to a sink; a stretch that is taken together lies in one column.
class StripTracer
{
public:
    StripTracer(const SampleStore& samples, const StripGeometry& geometry, StripSink& sink)
        : m_samples(samples)
        , m_geometry(geometry)
        , m_sink(sink)
        , m_dense(denseColumn(geometry))
    {
    }

    void each(int first, int end)
    {
        m_passed = Heights();
        for (int i = first; i < end; ++i) {
            const double raw = m_samples.value(i);
            if (std::isfinite(raw))
                m_sink.lineTo(x(i), m_geometry.y(raw));
            else
                m_sink.gap();
        }
    }

    /// From here on samples are drawn where they stand.
    void beside()
    {
        m_left = -std::numeric_limits<double>::infinity();
        m_right = std::numeric_limits<double>::infinity();
    }

    /// Samples that are drawn in `column`, also if they stand a little beside it.
    void column(int column, int first, int end)
    {
        m_left = column;
        m_right = column + 1.0 - 1.0 / 1024;
        m_budget = GapBudget;
        stretch(first, end);
    }

private:
    /// Of none unless set: they have none in common with others.
    struct Heights
    {
        double high = std::numeric_limits<double>::infinity();
        double low = -std::numeric_limits<double>::infinity();
    };

    bool heights(int first, int end, Heights& found) const
    {
        Extremes extremes;
        if (!m_samples.extremes(first, end - first, extremes))
            return false;
        const double one = m_geometry.y(extremes.least);
        const double other = m_geometry.y(extremes.greatest);
        found = {std::min(one, other), std::max(one, other)};
        return true;
    }

    double x(int sample) const { return std::clamp(m_geometry.x(sample), m_left, m_right); }
    double middle(int first, int end) const { return (x(first) + x(end - 1)) * 0.5; }

    void stretch(int first, int end)
    {
        if (end - first <= SamplesPerColumn)
            each(first, end);
        else if (m_samples.hasGaps(first, end - first))
            broken(first, end);
        else
            whole(first, end);
    }

    void whole(int first, int end)
    {
        Heights all;
        if (!heights(first, end, all))
            return;
        if (end - first >= m_dense) {
            dense(first, end, all);
            return;
        }
        m_passed = Heights();
        const double begin = m_geometry.y(m_samples.value(first));
        const double last = m_geometry.y(m_samples.value(end - 1));
        m_sink.lineTo(x(first), begin);
        if (all.high < std::min(begin, last) || all.low > std::max(begin, last))
            m_sink.bar(middle(first, end), all.high, all.low);
        m_sink.lineTo(x(end - 1), last);
    }

    /// The curve comes from heights that it has passed before, so that where it enters does not matter unless
    /// the two stretches have none in common: then any sample of the first block does for the first one.
    void dense(int first, int end, const Heights& all)
    {
        double begin = std::clamp(m_last, all.high, all.low);
        Extremes block;
        const bool meet = all.high <= m_passed.low && all.low >= m_passed.high;
        if (!meet && m_samples.extremes(first, SampleStore::BlockSize, block))
            begin = m_geometry.y(block.least);
        m_sink.lineTo(x(first), begin);
        m_sink.bar(middle(first, end), all.high, all.low);
        m_last = begin;
        m_passed = all;
    }

    /// A stretch with gaps. Parts that would light nothing new are passed over, and beyond the budget the
    /// gaps between the samples of a part are not looked for.
    void broken(int first, int end)
    {
        Heights all;
        if (!heights(first, end, all)) {
            m_sink.gap();
            return;
        }
        const double x = middle(first, end);
        const bool known = m_sink.covers(x, all.high, all.low);
        if (known || m_budget <= 0) {
            each(first, first + 1);
            if (!known)
                m_sink.bar(x, all.high, all.low);
            m_sink.gap();
            each(end - 1, end);
            return;
        }
        if (end - first <= SampleStore::BlockSize) {
            m_budget -= end - first;
            each(first, end);
            return;
        }
        forEachBlock(first, end, [this](int from, int to) { stretch(from, to); });
    }

    const SampleStore& m_samples;
    const StripGeometry& m_geometry;
    StripSink& m_sink;
    int m_dense; ///< so many samples make a stretch dense
    double m_left = -std::numeric_limits<double>::infinity();
    double m_right = std::numeric_limits<double>::infinity();
    int m_budget = 0;
    Heights m_passed;    ///< of the stretch before if it is dense too
    double m_last = 0.0; ///< where that one began
};

/// Samples whose multiples may stand for the first sample of a column.
int edgeUnit(const StripGeometry& geometry)
{
    const QRect& canvas = geometry.canvas();
    const double samplesPerColumn = double(geometry.end() - geometry.first()) / canvas.width();
    return samplesPerColumn < denseColumn(geometry) ? 1 : SampleStore::BlockSize;
}

/// The first sample of each column of the canvas and the end of the last one's.
std::vector<int> columnEdges(const StripGeometry& geometry)
{
    const QRect& canvas = geometry.canvas();
    const int unit = edgeUnit(geometry);
    std::vector<int> edges{geometry.firstFrom(canvas.left())};
    for (int column = canvas.left(); column <= canvas.right() && edges.back() < geometry.end(); ++column) {
        const int exact = geometry.firstFrom(column + 1);
        edges.push_back(exact < geometry.end() ? std::max(edges.back(), exact - exact % unit) : exact);
    }
    return edges;
}

/// Calls `function(column, first, end)` for the samples of each column of the canvas that has any.
template <class Function>
void forEachColumn(const SampleStore& samples, const StripGeometry& geometry, Function function)
{
    const std::vector<int> edges = columnEdges(geometry);
    for (std::size_t i = 0; i + 1 < edges.size(); ++i) {
        if (i + ColumnsAhead < edges.size())
            samples.prefetch(edges[i + ColumnsAhead]);
        if (edges[i + 1] > edges[i])
            function(geometry.canvas().left() + int(i), edges[i], edges[i + 1]);
    }
}

} // namespace

void traceStrip(const SampleStore& samples, const StripGeometry& geometry, StripSink& sink)
{
    StripTracer tracer(samples, geometry, sink);
    const QRect& canvas = geometry.canvas();
    if (geometry.end() - geometry.first() <= SamplesPerColumn * canvas.width()) {
        tracer.each(geometry.first(), geometry.end());
    } else {
        tracer.each(geometry.first(), geometry.firstFrom(canvas.left()));
        forEachColumn(samples, geometry,
                      [&](int column, int first, int end) { tracer.column(column, first, end); });
        tracer.beside();
        tracer.each(geometry.firstFrom(canvas.right() + 1), geometry.end());
    }
    sink.gap();
}

std::vector<ColumnSpan> traceStripPoints(const SampleStore& samples, const StripGeometry& geometry)
{
    SpanList lit;
    PointRows rows(samples, geometry);
    forEachColumn(samples, geometry,
                  [&](int column, int first, int end) { rows.add(column, first, end, lit); });
    return lit.spans();
}
