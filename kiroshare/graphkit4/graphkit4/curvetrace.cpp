#include "curvetrace.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace
{

constexpr double FarPixel = 1e12;
/// A line of points this much closer than pixels is reduced column by column.
constexpr double DensePointsPerColumn = 2.0;
/// So is one that hardly goes aside: as columns it is crisp, and many of them cost little.
constexpr double NarrowPixels = 1.5;
constexpr int PointsOfAColumn = 4;
constexpr int MostPointsReserved = 4096;
constexpr double TooNear = 0.5;
/// Fewer points are not worth a look at what was drawn before.
constexpr int ManyPoints = 2000;
/// Larger clips, which no screen has, go without it.
constexpr double MostPixelsKnown = 1e9;

bool isFinite(const QPointF& point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

bool isWithin(const QRectF& rect, const QPointF& point)
{
    return point.x() >= rect.left() && point.x() <= rect.right() && point.y() >= rect.top() &&
           point.y() <= rect.bottom();
}

/// Cuts [from, to], shares of a line, at one edge: `step` is how fast the line goes outwards, `room` how far
/// the edge is.
bool cut(double step, double room, double& from, double& to)
{
    if (step == 0.0)
        return room >= 0.0;
    const double share = room / step;
    if (step > 0.0)
        to = std::min(to, share);
    else
        from = std::max(from, share);
    return from <= to;
}

/// Which pixels of a rectangle were met before.
class PixelSet
{
public:
    explicit PixelSet(const QRectF& rect)
        : m_left(std::floor(rect.left()))
        , m_top(std::floor(rect.top()))
        , m_width(std::ceil(rect.width()) + 2.0)
        , m_bits(static_cast<std::size_t>(m_width * (std::ceil(rect.height()) + 2.0)))
    {
    }

    /// Whether the pixel is new.
    bool insert(const QPointF& pixel)
    {
        const double index = (std::floor(pixel.y()) - m_top) * m_width + std::floor(pixel.x()) - m_left;
        std::vector<bool>::reference bit = m_bits[static_cast<std::size_t>(index)];
        const bool isNew = !bit;
        bit = true;
        return isNew;
    }

private:
    double m_left;
    double m_top;
    double m_width;
    std::vector<bool> m_bits;
};

} // namespace

double DeviceAxis::at(double value) const
{
    return std::clamp(origin + (value - base) * scale, -FarPixel, FarPixel);
}

bool DeviceView::shows(const Curve::Extent& extent) const
{
    if (extent.empty)
        return false;
    const QPointF first = at(QPointF(extent.minX, extent.minY));
    const QPointF second = at(QPointF(extent.maxX, extent.maxY));
    return std::max(first.x(), second.x()) >= clip.left() &&
           std::min(first.x(), second.x()) <= clip.right() && std::max(first.y(), second.y()) >= clip.top() &&
           std::min(first.y(), second.y()) <= clip.bottom();
}

bool clipLine(const QRectF& rect, QPointF& from, QPointF& to)
{
    if (isWithin(rect, from) && isWithin(rect, to))
        return true;
    const QPointF step = to - from;
    double start = 0.0;
    double end = 1.0;
    if (!cut(-step.x(), from.x() - rect.left(), start, end) ||
        !cut(step.x(), rect.right() - from.x(), start, end) ||
        !cut(-step.y(), from.y() - rect.top(), start, end) ||
        !cut(step.y(), rect.bottom() - from.y(), start, end))
        return false;
    const QPointF origin = from;
    if (start > 0.0)
        from = origin + step * start;
    if (end < 1.0)
        to = origin + step * end;
    return true;
}

PointRange pointsInView(const Curve& curve, const DeviceAxis& horz, double left, double right)
{
    const QVector<QPointF>& points = curve.points();
    if (!curve.extent().ordered)
        return {0, points.size()};
    const bool rising = horz.scale > 0.0;
    const auto isBefore = [&](const QPointF& point) {
        const double x = horz.at(point.x());
        return rising ? x < left : x > right;
    };
    const auto isNotBehind = [&](const QPointF& point) {
        const double x = horz.at(point.x());
        return rising ? x <= right : x >= left;
    };
    const auto first = std::partition_point(points.begin(), points.end(), isBefore);
    const auto last = std::partition_point(first, points.end(), isNotBehind);
    const int firstIndex = static_cast<int>(first - points.begin());
    const int lastIndex = static_cast<int>(last - points.begin());
    return {std::max(firstIndex - 1, 0), std::min(lastIndex + 1, points.size())};
}

/// Builds a CurveTrace point by point.
class CurveTracer
{
public:
    CurveTracer(CurveTrace& trace, const QRectF& clip)
        : m_trace(trace)
        , m_clip(clip)
    {
    }

    /// The next point of the line; one too near to the last is left out, unless the line leaves from there.
    void add(const QPointF& point)
    {
        if (!m_open) {
            m_open = true;
            m_alone = true;
            m_hasSkipped = false;
            m_last = point;
            return;
        }
        if (areNear(point, m_last)) {
            m_skipped = point;
            m_hasSkipped = true;
            return;
        }
        if (m_hasSkipped && !areNear(point, m_skipped))
            goTo(m_skipped);
        goTo(point);
        m_alone = false;
    }
    /// The line ends here; the next point begins another.
    void endLine()
    {
        if (m_open && m_alone && m_clip.contains(m_last))
            m_trace.m_points.append(m_last);
        else if (m_open && m_hasSkipped && !m_alone)
            goTo(m_skipped);
        m_open = false;
        endRun();
    }

private:
    static bool areNear(const QPointF& a, const QPointF& b)
    {
        return std::abs(a.x() - b.x()) < TooNear && std::abs(a.y() - b.y()) < TooNear;
    }
    void goTo(const QPointF& point)
    {
        addLine(m_last, point);
        m_last = point;
        m_hasSkipped = false;
    }
    void addLine(const QPointF& from, const QPointF& to)
    {
        QPointF start = from;
        QPointF end = to;
        if (!clipLine(m_clip, start, end)) {
            endRun();
            return;
        }
        if (start != from)
            endRun();
        if (!isInRun())
            m_trace.m_points.append(start);
        m_trace.m_points.append(end);
        m_trace.m_ink += std::max(std::abs(end.x() - start.x()), std::abs(end.y() - start.y()));
        if (end != to)
            endRun();
    }
    bool isInRun() const
    {
        const int start = m_trace.m_runEnds.isEmpty() ? 0 : m_trace.m_runEnds.last();
        return m_trace.m_points.size() > start;
    }
    void endRun()
    {
        if (isInRun())
            m_trace.m_runEnds.append(m_trace.m_points.size());
    }

    CurveTrace& m_trace;
    QRectF m_clip;
    QPointF m_last;
    QPointF m_skipped;
    bool m_hasSkipped = false;
    bool m_open = false;
    bool m_alone = false;
};

namespace
{

/// The first, least, greatest and last point of a pixel column.
class Column
{
public:
    void add(const QPointF& point)
    {
        if (m_empty) {
            m_first = m_least = m_greatest = point;
            m_leastIsLater = false;
            m_empty = false;
        } else if (point.y() < m_least.y()) {
            m_least = point;
            m_leastIsLater = true;
        } else if (point.y() > m_greatest.y()) {
            m_greatest = point;
            m_leastIsLater = false;
        }
        m_last = point;
    }
    void give(CurveTracer& tracer)
    {
        if (m_empty)
            return;
        tracer.add(m_first);
        tracer.add(m_leastIsLater ? m_greatest : m_least);
        tracer.add(m_leastIsLater ? m_least : m_greatest);
        tracer.add(m_last);
        m_empty = true;
    }

private:
    bool m_empty = true;
    bool m_leastIsLater = false;
    QPointF m_first;
    QPointF m_least;
    QPointF m_greatest;
    QPointF m_last;
};

void traceColumns(const Curve& curve, const DeviceView& view, PointRange range, CurveTracer& tracer)
{
    const QPointF* points = curve.points().constData();
    Column column;
    double number = 0.0;
    for (int i = range.first; i < range.last; ++i) {
        const bool isGap = !std::isfinite(points[i].y());
        const double x = view.horz.at(points[i].x());
        if (isGap || std::floor(x) != number) {
            column.give(tracer);
            number = std::floor(x);
        }
        if (isGap)
            tracer.endLine();
        else
            column.add(QPointF(x, view.vert.at(points[i].y())));
    }
    column.give(tracer);
}

void tracePoints(const Curve& curve, const DeviceView& view, PointRange range, CurveTracer& tracer)
{
    const QPointF* points = curve.points().constData();
    for (int i = range.first; i < range.last; ++i) {
        if (isFinite(points[i]))
            tracer.add(view.at(points[i]));
        else
            tracer.endLine();
    }
}

} // namespace

CurveTrace::CurveTrace(const Curve& curve, const DeviceView& view)
{
    const Curve::Extent& extent = curve.extent();
    if (!view.shows(extent))
        return;
    const PointRange range = pointsInView(curve, view.horz, view.clip.left(), view.clip.right());
    const QPointF* points = curve.points().constData();
    CurveTracer tracer(*this, view.clip);
    int mostPoints = range.last - range.first;
    if (extent.ordered && range.last > range.first) {
        const double from =
            std::clamp(view.horz.at(points[range.first].x()), view.clip.left(), view.clip.right());
        const double to =
            std::clamp(view.horz.at(points[range.last - 1].x()), view.clip.left(), view.clip.right());
        const double width = std::abs(to - from);
        m_dense = range.last - range.first > DensePointsPerColumn * (width + 1.0) ||
                  (range.last - range.first > 1 && width < NarrowPixels);
        if (m_dense)
            mostPoints = static_cast<int>(std::min<double>(mostPoints, PointsOfAColumn * (width + 2.0)));
    }
    m_points.reserve(std::min(mostPoints, MostPointsReserved) + 2);
    if (m_dense)
        traceColumns(curve, view, range, tracer);
    else
        tracePoints(curve, view, range, tracer);
    tracer.endLine();
}

QVector<QPointF> pixelsOfPoints(const Curve& curve, const DeviceView& view)
{
    QVector<QPointF> pixels;
    if (!view.shows(curve.extent()))
        return pixels;
    const PointRange range = pointsInView(curve, view.horz, view.clip.left(), view.clip.right());
    const double size = view.clip.width() * view.clip.height();
    const bool once = range.last - range.first > ManyPoints && size < MostPixelsKnown;
    PixelSet known(once ? view.clip : QRectF());
    for (int i = range.first; i < range.last; ++i) {
        const QPointF& point = curve.points()[i];
        if (!isFinite(point))
            continue;
        const QPointF pixel = view.at(point);
        if (view.clip.contains(pixel) && (!once || known.insert(pixel)))
            pixels.append(QPointF(std::floor(pixel.x()) + 0.5, std::floor(pixel.y()) + 0.5));
    }
    return pixels;
}
