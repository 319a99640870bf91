#include "samplepoints.h"

#include <algorithm>
#include <utility>

namespace
{

constexpr int BucketsOfAPixel = 2;
/// What a bucket becomes.
constexpr int PointsOfABucket = 4;

/// Between what values samples lie. Without branches; 0 times a sample that is not finite is NaN.
struct Bounds
{
    explicit Bounds(double sample)
        : least(sample)
        , greatest(sample)
    {
    }

    void add(double sample)
    {
        least = sample < least ? sample : least;
        greatest = sample > greatest ? sample : greatest;
        zeros += sample * 0.0;
    }
    void add(const Bounds& other)
    {
        least = std::min(least, other.least);
        greatest = std::max(greatest, other.greatest);
        zeros += other.zeros;
    }
    /// Whether all samples are; else the others say nothing.
    bool isFinite() const { return zeros == 0.0; }

    double least;
    double greatest;
    double zeros = 0.0;
};

/// `count` is above 0. Four at a time, as none has to wait for the one before.
Bounds boundsOf(const double* samples, int count)
{
    Bounds first(samples[0]);
    Bounds second = first;
    Bounds third = first;
    Bounds fourth = first;
    int i = 0;
    for (; i + 4 <= count; i += 4) {
        first.add(samples[i]);
        second.add(samples[i + 1]);
        third.add(samples[i + 2]);
        fourth.add(samples[i + 3]);
    }
    for (; i < count; ++i)
        first.add(samples[i]);
    first.add(second);
    third.add(fourth);
    first.add(third);
    return first;
}

} // namespace

SamplePoints::SamplePoints(const std::vector<double>& samples, const TimeWindow& window, double pixels)
    : m_samples(samples)
    , m_window(window)
{
    if (!(pixels > 0.0))
        return;
    const double size = window.room() / (BucketsOfAPixel * pixels);
    if (size >= 2 * PointsOfABucket)
        m_bucketSize = int(std::min(size, 1e6));
}

QVector<QPointF> SamplePoints::of(const TimeWindow::Range& range) const
{
    SampleExtent extent;
    return of(range, extent);
}

QVector<QPointF> SamplePoints::of(const TimeWindow::Range& range, SampleExtent& extent) const
{
    QVector<QPointF> points;
    points.reserve(m_bucketSize == 1 ? range.count() : (range.count() / m_bucketSize + 2) * PointsOfABucket);
    if (m_bucketSize == 1) {
        addAll(range.first, range.last, points, extent);
        return points;
    }
    // Buckets begin at multiples of their size, so that nothing flickers while the window moves.
    for (int first = range.first; first <= range.last;) {
        const int next = std::min((first / m_bucketSize + 1) * m_bucketSize, range.last + 1);
        addBucket(first, next - 1, points, extent);
        first = next;
    }
    return points;
}

void SamplePoints::addAll(int first, int last, QVector<QPointF>& points, SampleExtent& extent) const
{
    for (int i = first; i <= last; ++i) {
        points.append(pointOf(i));
        extent.add(m_samples[std::size_t(i)]);
    }
}

void SamplePoints::addBucket(int first, int last, QVector<QPointF>& points, SampleExtent& extent) const
{
    const double* const begin = m_samples.data() + first;
    const double* const end = m_samples.data() + last + 1;
    const Bounds bounds = boundsOf(begin, last + 1 - first);
    if (!bounds.isFinite()) {
        addAll(first, last, points, extent);
        return;
    }
    const int least = first + int(std::find(begin, end, bounds.least) - begin);
    const int greatest = first + int(std::find(begin, end, bounds.greatest) - begin);
    extent.add(m_samples[std::size_t(least)]);
    extent.add(m_samples[std::size_t(greatest)]);
    const auto [one, other] = std::minmax(least, greatest);
    points.append(pointOf(first));
    if (one != first)
        points.append(pointOf(one));
    if (other != one && other != first)
        points.append(pointOf(other));
    if (last != other && last != first)
        points.append(pointOf(last));
}
