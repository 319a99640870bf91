#include "striptrace.h"

#include "pointrows.h"
#include "sampleblocks.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

/// Up to so many samples a column each of them is looked at.
constexpr int SamplesPerColumn = 2;
/// So many samples of a column with gaps are looked at one by one.
constexpr int GapBudget = 1024;
/// Columns begin with a block where that moves their edge by no more than this part of a pixel, so that no
/// sample in the depth of the memory has to be looked at.
constexpr double EdgePart = 1.0 / 16;

/// Hands stretches of samples to a sink; a stretch that is taken together lies in one column.
class StripTracer
{
public:
    StripTracer(const SampleStore& samples, const StripGeometry& geometry, StripSink& sink)
        : m_samples(samples)
        , m_geometry(geometry)
        , m_sink(sink)
    {
    }

    void each(int first, int end)
    {
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
    struct Heights
    {
        double high = 0.0;
        double low = 0.0;
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

    /// Of a finite sample; the last one is remembered, since columns may share one.
    double height(int sample)
    {
        if (sample != m_known) {
            m_known = sample;
            m_knownHeight = m_geometry.y(m_samples.value(sample));
        }
        return m_knownHeight;
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
        const double begin = height(first);
        const double last = height(end - 1);
        m_sink.lineTo(x(first), begin);
        if (all.high < std::min(begin, last) || all.low > std::max(begin, last))
            m_sink.bar(middle(first, end), all.high, all.low);
        m_sink.lineTo(x(end - 1), last);
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
    double m_left = -std::numeric_limits<double>::infinity();
    double m_right = std::numeric_limits<double>::infinity();
    int m_budget = 0;
    int m_known = -1;
    double m_knownHeight = 0.0;
};

/// Samples whose multiples may stand for the first sample of a column.
int edgeUnit(const StripGeometry& geometry)
{
    const QRect& canvas = geometry.canvas();
    const double samplesPerColumn = double(geometry.end() - geometry.first()) / canvas.width();
    return samplesPerColumn * EdgePart < SampleStore::BlockSize ? 1 : SampleStore::BlockSize;
}

/// Calls `function(column, first, end)` for the samples of each column of the canvas that has any.
template <class Function>
void forEachColumn(const StripGeometry& geometry, Function function)
{
    const QRect& canvas = geometry.canvas();
    const int unit = edgeUnit(geometry);
    int first = geometry.firstFrom(canvas.left());
    for (int column = canvas.left(); column <= canvas.right() && first < geometry.end(); ++column) {
        const int exact = geometry.firstFrom(column + 1);
        const int end = exact < geometry.end() ? std::max(first, exact - exact % unit) : exact;
        if (end > first)
            function(column, first, end);
        first = end;
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
        forEachColumn(geometry, [&](int column, int first, int end) { tracer.column(column, first, end); });
        tracer.beside();
        tracer.each(geometry.firstFrom(canvas.right() + 1), geometry.end());
    }
    sink.gap();
}

std::vector<ColumnSpan> traceStripPoints(const SampleStore& samples, const StripGeometry& geometry)
{
    SpanList lit;
    PointRows rows(samples, geometry);
    forEachColumn(geometry, [&](int column, int first, int end) { rows.add(column, first, end, lit); });
    return lit.spans();
}
