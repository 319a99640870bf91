#include "samplestatistics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <deque>
#include <forward_list>
#include <limits>
#include <list>
#include <random>
#include <vector>

namespace
{

using Samples = std::vector<double>;

constexpr double Infinity = std::numeric_limits<double>::infinity();
const double Nan = std::nan("");

double mean(const Samples& x, bool dropExtremes)
{
    return rangeMean(x.begin(), x.end(), dropExtremes);
}

double variance(const Samples& x, bool dropExtremes)
{
    return rangeVariance(x.begin(), x.end(), dropExtremes);
}

double minimum(const Samples& x)
{
    return rangeMin(x.begin(), x.end());
}

double maximum(const Samples& x)
{
    return rangeMax(x.begin(), x.end());
}

Samples randomSamples(std::size_t count)
{
    std::mt19937 generator(7);
    std::normal_distribution<double> noise(3.0, 1000.0);
    Samples samples(count);
    for (double& sample : samples)
        sample = noise(generator);
    return samples;
}

} // namespace

TEST(RangeMean, EmptyRangeGivesZero)
{
    EXPECT_EQ(mean({}, false), 0.0);
    EXPECT_EQ(mean({}, true), 0.0);
}

TEST(RangeMean, IsTheSumByTheCount)
{
    EXPECT_EQ(mean({1, 2, 9}, false), 4.0);
    EXPECT_EQ(mean({-7.5}, false), -7.5);
}

TEST(RangeMean, DropsOneMinimumAndOneMaximum)
{
    EXPECT_EQ(mean({1, 2, 9}, true), 2.0);
    EXPECT_EQ(mean({1, 1, 2, 9, 9}, true), 4.0);
    EXPECT_EQ(mean({5, 5, 5, 5}, true), 5.0);
}

TEST(RangeMean, KeepsExtremesBelowThreeNumbers)
{
    EXPECT_EQ(mean({1, 9}, true), 5.0);
    EXPECT_EQ(mean({9}, true), 9.0);
}

TEST(RangeMean, SumsFromTheFirstUpward)
{
    EXPECT_EQ(mean({1e16, 1.0, -1e16}, false), 0.0);
    EXPECT_EQ(mean({1e16, -1e16, 1.0}, false), 1.0 / 3.0);
}

TEST(RangeMean, TakesTheMinimumOffBeforeTheMaximum)
{
    // By hand: the sum is 1e16 + 6; less 1 it lies between two doubles and becomes 1e16 + 4. With the
    // maximum first 5 would be left.
    EXPECT_EQ(mean({1, 5, 1e16}, true), 4.0);
}

TEST(RangeVariance, EmptyRangeAndSingleNumberGiveZero)
{
    for (const bool dropExtremes : {false, true}) {
        EXPECT_EQ(variance({}, dropExtremes), 0.0);
        EXPECT_EQ(variance({4.0}, dropExtremes), 0.0);
        EXPECT_EQ(variance({Infinity}, dropExtremes), 0.0);
    }
}

TEST(RangeVariance, IsThatOfASample)
{
    EXPECT_EQ(variance({1, 2, 3}, false), 1.0);
    EXPECT_EQ(variance({2, 4}, false), 2.0);
    EXPECT_EQ(variance({1, 2, 3, 4}, false), 5.0 / 3.0);
}

TEST(RangeVariance, ThreeNumbersKeepTheirExtremesButNotInTheMean)
{
    EXPECT_EQ(variance({1, 2, 3}, true), 1.0);
    // By hand: the mean without extremes is 2, the squares are 1, 0 and 49.
    EXPECT_EQ(variance({1, 2, 9}, true), 25.0);
}

TEST(RangeVariance, DropsExtremesFromFourNumbersOn)
{
    // By hand: mean of 2 and 4 is 3; of the squares 9, 1, 1, 49 two ones stay.
    EXPECT_EQ(variance({0, 2, 4, 10}, true), 2.0);
    EXPECT_EQ(variance({10, 4, 2, 0}, true), 2.0);
    EXPECT_EQ(variance({1, 1, 5, 5}, true), 8.0);
}

TEST(RangeVariance, IsNeverBelowZero)
{
    std::mt19937 generator(3);
    std::uniform_real_distribution<double> exponent(-20.0, 20.0);
    int roundedToZero = 0;
    for (int i = 0; i < 20000; ++i) {
        const double inner = std::pow(10.0, exponent(generator));
        const double v = variance({-std::pow(10.0, exponent(generator)), inner, inner, 1e20}, true);
        ASSERT_GE(v, 0.0);
        roundedToZero += v == 0.0;
    }
    EXPECT_GT(roundedToZero, 0);
}

TEST(RangeExtremes, AreFoundAnywhere)
{
    EXPECT_EQ(minimum({3, 1, 2}), 1.0);
    EXPECT_EQ(maximum({3, 1, 2}), 3.0);
    EXPECT_EQ(minimum({-1}), -1.0);
    EXPECT_EQ(maximum({-1}), -1.0);
    EXPECT_EQ(minimum({1, 2, -Infinity}), -Infinity);
    EXPECT_EQ(maximum({-5, -4, -3}), -3.0);
}

TEST(RangeExtremes, EmptyRangeGivesZero)
{
    EXPECT_EQ(minimum({}), 0.0);
    EXPECT_EQ(maximum({}), 0.0);
}

TEST(RangeExtremes, PassOverANanThatIsNotTheFirst)
{
    EXPECT_EQ(minimum({2, Nan, 1}), 1.0);
    EXPECT_EQ(maximum({2, Nan, 1}), 2.0);
    EXPECT_TRUE(std::isnan(minimum({Nan, 1, 2})));
    EXPECT_TRUE(std::isnan(maximum({Nan, 1, 2})));
}

TEST(RangeStatistics, NanMakesMeanAndVarianceNan)
{
    const Samples x = {1, 2, Nan, 4, 5};
    for (const bool dropExtremes : {false, true}) {
        EXPECT_TRUE(std::isnan(mean(x, dropExtremes)));
        EXPECT_TRUE(std::isnan(variance(x, dropExtremes)));
    }
}

TEST(RangeStatistics, AreTheSameForAnyContainer)
{
    const Samples samples = randomSamples(1001);
    const std::deque<double> deque(samples.begin(), samples.end());
    const std::list<double> list(samples.begin(), samples.end());
    const std::forward_list<double> forward(samples.begin(), samples.end());
    for (const bool dropExtremes : {false, true}) {
        const double m = mean(samples, dropExtremes);
        const double v = variance(samples, dropExtremes);
        EXPECT_EQ(rangeMean(deque.begin(), deque.end(), dropExtremes), m);
        EXPECT_EQ(rangeMean(list.begin(), list.end(), dropExtremes), m);
        EXPECT_EQ(rangeMean(forward.begin(), forward.end(), dropExtremes), m);
        EXPECT_EQ(rangeVariance(deque.begin(), deque.end(), dropExtremes), v);
        EXPECT_EQ(rangeVariance(list.begin(), list.end(), dropExtremes), v);
        EXPECT_EQ(rangeVariance(forward.begin(), forward.end(), dropExtremes), v);
    }
    EXPECT_EQ(rangeMin(list.begin(), list.end()), minimum(samples));
    EXPECT_EQ(rangeMax(deque.begin(), deque.end()), maximum(samples));
}

TEST(RangeStatistics, WholeNumbersAreTakenAsDoubles)
{
    const std::vector<std::int16_t> x = {32767, 32767, 32766, -32768};
    EXPECT_EQ(rangeMean(x.begin(), x.end(), false), 16383.0);
    EXPECT_EQ(rangeMean(x.begin(), x.end(), true), 32766.5);
    EXPECT_EQ(rangeVariance(x.begin(), x.end(), true), 0.5);
    EXPECT_EQ(rangeMin(x.begin(), x.end()), -32768.0);
    const std::uint8_t bytes[] = {200, 100};
    EXPECT_EQ(rangeMean(bytes, bytes + 2, false), 150.0);
    EXPECT_EQ(rangeVariance(bytes, bytes + 2, false), 5000.0);
}
