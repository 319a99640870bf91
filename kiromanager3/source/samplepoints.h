#pragma once

#include "chartscale.h"
#include "timewindow.h"

#include <QPointF>
#include <QVector>

#include <vector>

/// The samples of a signal as the points of a curve over seconds.
///
/// Where there are many samples to a pixel, a curve gets the first, least, greatest and last of each bucket
/// of less than half a pixel: its picture is the same to within a pixel (U. Jugel, Z. Jerzak, G.
/// Hackenbroich, V. Markl: M4, Proc. VLDB Endowment 7(10), 797-808, 2014). Buckets with a sample that is not
/// finite stay whole.
class SamplePoints
{
public:
    /// `pixels` is how many columns the window is shown in; without it no sample is left out. `samples` must
    /// outlive the object.
    SamplePoints(const std::vector<double>& samples, const TimeWindow& window, double pixels = 0.0);

    /// The points of a range of samples, which must be there.
    QVector<QPointF> of(const TimeWindow::Range& range) const;
    /// The same in one pass with the extent of all samples of the range, which are added to `extent`.
    QVector<QPointF> of(const TimeWindow::Range& range, SampleExtent& extent) const;
    /// Samples of a bucket; 1 if none is left out.
    int bucketSize() const { return m_bucketSize; }

private:
    QPointF pointOf(int i) const { return {m_window.secondsOf(i), m_samples[std::size_t(i)]}; }
    void addAll(int first, int last, QVector<QPointF>& points, SampleExtent& extent) const;
    void addBucket(int first, int last, QVector<QPointF>& points, SampleExtent& extent) const;

    const std::vector<double>& m_samples;
    const TimeWindow& m_window;
    int m_bucketSize = 1;
};
