#include "samplepoints.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace
{

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr int SampleCount = 3000;
/// For windows of a minute with a sample every 2 ms.
constexpr int BucketSize = 30;
constexpr double Pixels = 500.0;

TimeWindow minute()
{
    TimeWindow window;
    window.setSamples(SampleCount, 2.0);
    window.setLength(60000.0);
    return window;
}

/// In steps, so that the least and the greatest of a bucket are there more than once.
std::vector<double> noise(unsigned seed)
{
    std::mt19937 generator(seed);
    std::uniform_int_distribution<int> steps(-6, 6);
    std::vector<double> samples;
    for (int i = 0; i < SampleCount; ++i)
        samples.push_back(steps(generator) * 0.25);
    return samples;
}

/// The places that SamplePoints gives, found the plain way.
std::vector<int> keptPlaces(const std::vector<double>& samples, const TimeWindow::Range& range, int size)
{
    std::vector<int> kept;
    for (int first = range.first; first <= range.last; first = (first / size + 1) * size) {
        const int last = std::min((first / size + 1) * size - 1, range.last);
        int least = first;
        int greatest = first;
        bool finite = true;
        for (int i = first; i <= last; ++i) {
            finite = finite && std::isfinite(samples[std::size_t(i)]);
            if (samples[std::size_t(i)] < samples[std::size_t(least)])
                least = i;
            if (samples[std::size_t(i)] > samples[std::size_t(greatest)])
                greatest = i;
        }
        for (int i = first; i <= last; ++i) {
            if (!finite || i == first || i == least || i == greatest || i == last)
                kept.push_back(i);
        }
    }
    return kept;
}

bool isSame(double a, double b)
{
    return std::memcmp(&a, &b, sizeof(double)) == 0;
}

void expectPlaces(const QVector<QPointF>& points, const std::vector<int>& places,
                  const std::vector<double>& samples, const TimeWindow& window)
{
    ASSERT_EQ(std::size_t(points.size()), places.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
        const QPointF& point = points[int(i)];
        EXPECT_EQ(point.x(), window.secondsOf(places[i])) << i;
        EXPECT_TRUE(isSame(point.y(), samples[std::size_t(places[i])])) << i;
    }
}

void expectAsPlain(const std::vector<double>& samples, const TimeWindow::Range& range)
{
    const TimeWindow window = minute();
    const SamplePoints points(samples, window, Pixels);
    ASSERT_EQ(points.bucketSize(), BucketSize);
    SampleExtent extent;
    expectPlaces(points.of(range, extent), keptPlaces(samples, range, BucketSize), samples, window);
    SampleExtent plain;
    for (int i = range.first; i <= range.last; ++i)
        plain.add(samples[std::size_t(i)]);
    EXPECT_EQ(extent.known, plain.known);
    EXPECT_TRUE(isSame(extent.lowest, plain.lowest));
    EXPECT_TRUE(isSame(extent.highest, plain.highest));
}

class SamplePointsTest : public testing::TestWithParam<TimeWindow::Range>
{
};

TEST_P(SamplePointsTest, BucketsAndExtentAreThoseOfThePlainLoop)
{
    for (unsigned seed = 0; seed < 20; ++seed)
        expectAsPlain(noise(seed), GetParam());
}

TEST_P(SamplePointsTest, ZerosKeepTheirSigns)
{
    std::vector<double> samples(SampleCount, 0.0);
    for (std::size_t i = 0; i < samples.size(); i += 3)
        samples[i] = -0.0;
    expectAsPlain(samples, GetParam());
}

TEST_P(SamplePointsTest, BucketsWithSamplesThatAreNotFiniteStayWhole)
{
    std::vector<double> samples = noise(7);
    for (std::size_t i = 5; i < samples.size(); i += 97)
        samples[i] = i % 3 == 0 ? NoNumber : i % 3 == 1 ? Infinity : -Infinity;
    expectAsPlain(samples, GetParam());
}

INSTANTIATE_TEST_SUITE_P(Ranges, SamplePointsTest,
                         testing::Values(TimeWindow::Range{0, SampleCount - 1}, TimeWindow::Range{1, 2998},
                                         TimeWindow::Range{29, 30}, TimeWindow::Range{31, 33},
                                         TimeWindow::Range{44, 44}, TimeWindow::Range{60, 89},
                                         TimeWindow::Range{100, 139}));

TEST(SamplePoints, BucketsKeepTheirFirstLeastGreatestAndLast)
{
    std::vector<double> samples(SampleCount, 1.0);
    samples[37] = 5.0;
    samples[50] = -5.0;
    const TimeWindow window = minute();
    expectPlaces(SamplePoints(samples, window, Pixels).of({30, 59}), {30, 37, 50, 59}, samples, window);
}

TEST(SamplePoints, BucketsBeginAtMultiplesOfTheirSizeWhereverTheWindowBegins)
{
    const std::vector<double> samples = noise(3);
    const TimeWindow window = minute();
    const SamplePoints points(samples, window, Pixels);
    const QVector<QPointF> all = points.of({0, 299});
    const QVector<QPointF> later = points.of({37, 299});
    const double border = window.secondsOf(60);
    const auto isBefore = [border](const QPointF& point) { return point.x() < border; };
    const QVector<QPointF> allBehind(std::partition_point(all.begin(), all.end(), isBefore), all.end());
    const QVector<QPointF> laterBehind(std::partition_point(later.begin(), later.end(), isBefore),
                                       later.end());
    EXPECT_FALSE(allBehind.isEmpty());
    EXPECT_EQ(allBehind, laterBehind);
}

TEST(SamplePoints, NothingOfAnEmptyRange)
{
    const std::vector<double> samples = noise(1);
    const TimeWindow window = minute();
    SampleExtent extent;
    EXPECT_TRUE(SamplePoints(samples, window, Pixels).of({5, 4}, extent).isEmpty());
    EXPECT_TRUE(SamplePoints(samples, window).of({5, 4}, extent).isEmpty());
    EXPECT_FALSE(extent.known);
}

TEST(SamplePoints, ShortWindowsAndUnknownPixelsLeaveNothingOut)
{
    const std::vector<double> samples = noise(2);
    TimeWindow window = minute();
    EXPECT_EQ(SamplePoints(samples, window).of({0, 999}).size(), 1000);
    EXPECT_EQ(SamplePoints(samples, window, NoNumber).of({0, 999}).size(), 1000);
    window.setLength(3000.0);
    const SamplePoints points(samples, window, Pixels);
    EXPECT_EQ(points.bucketSize(), 1);
    SampleExtent extent;
    EXPECT_EQ(points.of({10, 999}, extent).size(), 990);
    EXPECT_EQ(extent.lowest, -1.5);
    EXPECT_EQ(extent.highest, 1.5);
}

} // namespace
