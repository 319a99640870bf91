#include "rounding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr std::int32_t Greatest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();

} // namespace

TEST(RoundHalfUp, HalvesGoUpwardForBothSigns)
{
    EXPECT_EQ(roundHalfUp(2.5), 3);
    EXPECT_EQ(roundHalfUp(0.5), 1);
    EXPECT_EQ(roundHalfUp(-0.5), 0);
    EXPECT_EQ(roundHalfUp(-1.5), -1);
    EXPECT_EQ(roundHalfUp(-2.5), -2);
}

TEST(RoundHalfUp, OthersGoToTheNearest)
{
    EXPECT_EQ(roundHalfUp(2.4), 2);
    EXPECT_EQ(roundHalfUp(2.6), 3);
    EXPECT_EQ(roundHalfUp(-2.4), -2);
    EXPECT_EQ(roundHalfUp(-2.6), -3);
    EXPECT_EQ(roundHalfUp(-0.4), 0);
    EXPECT_EQ(roundHalfUp(-0.6), -1);
}

TEST(RoundHalfUp, WholeNumbersStay)
{
    for (const int number : {0, 1, -1, 384, -384, Greatest, Greatest - 1, Least, Least + 1})
        EXPECT_EQ(roundHalfUp(number), number);
    EXPECT_EQ(roundHalfUp(-0.0), 0);
}

TEST(RoundHalfUp, AddsTheHalfInDoubleArithmetic)
{
    EXPECT_EQ(roundHalfUp(std::nextafter(0.5, 0.0)), 1);
    EXPECT_EQ(roundHalfUp(std::nextafter(2.5, 0.0)), 2);
    EXPECT_EQ(roundHalfUp(std::nextafter(-2.5, -3.0)), -3);
    EXPECT_EQ(roundHalfUp(std::numeric_limits<double>::denorm_min()), 0);
    EXPECT_EQ(roundHalfUp(-std::numeric_limits<double>::denorm_min()), 0);
}

TEST(RoundHalfUp, RoundsUpToTheLimits)
{
    EXPECT_EQ(roundHalfUp(2147483646.5), 2147483647);
    EXPECT_EQ(roundHalfUp(2147483646.4), 2147483646);
    EXPECT_EQ(roundHalfUp(-2147483647.5), -2147483647);
    EXPECT_EQ(roundHalfUp(-2147483647.6), Least);
    EXPECT_EQ(roundHalfUp(-2147483648.5), Least);
}

TEST(RoundHalfUp, BeyondTheRangeIsTheNearestLimit)
{
    for (const double v : {2147483647.5, 2147483648.0, 1e18, 1e300, Infinity}) {
        EXPECT_EQ(roundHalfUp(v), Greatest) << v;
        EXPECT_EQ(roundHalfUp(-v - 1.0), Least) << v;
    }
}

TEST(RoundHalfUp, NanGivesZero)
{
    EXPECT_EQ(roundHalfUp(std::nan("")), 0);
}
