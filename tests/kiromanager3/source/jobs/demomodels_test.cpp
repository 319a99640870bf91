#include "demorandom.h"
#include "movementshape.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

TEST(DemoRandomTest, NumbersAreThoseOfTheStandardsGenerator)
{
    std::mt19937_64 generator(std::uint64_t(5) << 32 | 9);
    DemoRandom random(9, 5);
    for (int i = 0; i < 1000; ++i)
        EXPECT_EQ(random.uniform(), std::ldexp(static_cast<double>(generator() >> 11), -53));
}

TEST(DemoRandomTest, WholeNumbersReachBothEnds)
{
    DemoRandom random(1, 1);
    int counts[4] = {};
    for (int i = 0; i < 4000; ++i) {
        const std::int64_t number = random.whole(-1, 2);
        ASSERT_GE(number, -1);
        ASSERT_LE(number, 2);
        ++counts[number + 1];
    }
    for (const int count : counts)
        EXPECT_NEAR(count, 1000, 120); // four deviations of sqrt(4000 * 1/4 * 3/4)
}

TEST(DemoRandomTest, BellHasMeanZeroAndDeviationOne)
{
    constexpr int Count = 100000;
    DemoRandom random(1, 2);
    double sum = 0.0;
    double squares = 0.0;
    double greatest = 0.0;
    for (int i = 0; i < Count; ++i) {
        const double number = random.bell();
        sum += number;
        squares += number * number;
        greatest = std::max(greatest, std::abs(number));
    }
    EXPECT_NEAR(sum / Count, 0.0, 0.015);
    EXPECT_NEAR(squares / Count, 1.0, 0.02);
    EXPECT_LT(greatest, 3.47);
    EXPECT_GT(greatest, 3.0);
}

TEST(DemoRandomTest, StreamsAndSeedsDiffer)
{
    const double first = DemoRandom(1, 1).uniform();
    EXPECT_NE(DemoRandom(1, 2).uniform(), first);
    EXPECT_NE(DemoRandom(2, 1).uniform(), first);
    EXPECT_EQ(DemoRandom(1, 1).uniform(), first);
}

TEST(MovementShape, MinimumJerkGoesFromRestToRest)
{
    EXPECT_EQ(minimumJerk(-1.0), 0.0);
    EXPECT_EQ(minimumJerk(0.0), 0.0);
    EXPECT_EQ(minimumJerk(0.5), 0.5);
    EXPECT_EQ(minimumJerk(1.0), 1.0);
    EXPECT_EQ(minimumJerk(2.0), 1.0);
    EXPECT_EQ(minimumJerkSpeed(-0.1), 0.0);
    EXPECT_EQ(minimumJerkSpeed(0.5), 1.875);
    EXPECT_EQ(minimumJerkSpeed(1.1), 0.0);
}

TEST(MovementShape, ASkewedMovementOnlyRisesAndPeaksEarly)
{
    EXPECT_DOUBLE_EQ(skewedPeakSpeed(0.0), 1.875);
    for (const double skew : {0.0, 0.15, 0.35}) {
        double before = 0.0;
        double steepest = 0.0;
        double place = 0.0;
        for (int i = 1; i <= 1000; ++i) {
            const double now = skewedMovement(i / 1000.0, skew);
            ASSERT_GE(now, before);
            if (now - before > steepest) {
                steepest = now - before;
                place = i / 1000.0;
            }
            before = now;
        }
        EXPECT_EQ(before, 1.0);
        EXPECT_NEAR(steepest * 1000.0, skewedPeakSpeed(skew), 0.001);
        EXPECT_NEAR(place, 0.5 - 0.3 * skew, 0.02);
    }
}

TEST(MovementShape, SineIsThatOfTheLibrary)
{
    for (int i = -3000; i <= 3000; ++i) {
        const double turns = i / 777.0;
        EXPECT_NEAR(sineOfTurns(turns), std::sin(2.0 * std::acos(-1.0) * turns), 1e-9) << turns;
    }
}

TEST(MovementShape, HumpIsOneInTheMiddleAndNothingOutside)
{
    EXPECT_EQ(hump(0.0), 1.0);
    EXPECT_EQ(hump(0.5), hump(-0.5));
    EXPECT_EQ(hump(0.5), 0.5625);
    EXPECT_EQ(hump(1.0), 0.0);
    EXPECT_EQ(hump(-7.0), 0.0);
}
