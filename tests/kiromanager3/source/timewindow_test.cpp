#include "timewindow.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

TimeWindow windowOf(double length, int sampleCount = 60000, double msPerSample = 1.0)
{
    TimeWindow window;
    window.setLength(length);
    window.setSamples(sampleCount, msPerSample);
    return window;
}

struct ZoomStep
{
    double length;
    double shorter;
    double longer;
};

class TimeWindowZoom : public testing::TestWithParam<ZoomStep>
{
};

TEST(TimeWindow, ShowsThreeSecondsAtFirst)
{
    EXPECT_EQ(TimeWindow().length(), 3000.0);
}

TEST_P(TimeWindowZoom, GoesInStepsThatGrowWithTheLength)
{
    TimeWindow shorter = windowOf(GetParam().length);
    EXPECT_TRUE(shorter.zoomIn());
    EXPECT_EQ(shorter.length(), GetParam().shorter);
    TimeWindow longer = windowOf(GetParam().length);
    EXPECT_TRUE(longer.zoomOut());
    EXPECT_EQ(longer.length(), GetParam().longer);
}

INSTANTIATE_TEST_SUITE_P(
    Lengths, TimeWindowZoom,
    testing::Values(ZoomStep{750.0, 500.0, 1000.0}, ZoomStep{2750.0, 2500.0, 3000.0},
                    ZoomStep{3000.0, 2750.0, 3500.0}, ZoomStep{3500.0, 3000.0, 4000.0},
                    ZoomStep{9500.0, 9000.0, 10000.0}, ZoomStep{10000.0, 9500.0, 11000.0},
                    ZoomStep{11000.0, 10000.0, 12000.0}, ZoomStep{19000.0, 18000.0, 20000.0},
                    ZoomStep{20000.0, 19000.0, 25000.0}, ZoomStep{25000.0, 20000.0, 30000.0},
                    ZoomStep{55000.0, 50000.0, 60000.0}));

TEST(TimeWindow, DoesNotGetShorterThanHalfASecond)
{
    TimeWindow window = windowOf(500.0);
    EXPECT_FALSE(window.zoomIn());
    EXPECT_EQ(window.length(), 500.0);
}

TEST(TimeWindow, DoesNotGetLongerThanAMinute)
{
    TimeWindow window = windowOf(60000.0);
    EXPECT_FALSE(window.zoomOut());
    EXPECT_EQ(window.length(), 60000.0);
}

TEST(TimeWindow, GoesFromOneLimitToTheOtherAndBack)
{
    TimeWindow window = windowOf(500.0);
    int steps = 0;
    while (window.zoomOut())
        ++steps;
    EXPECT_EQ(steps, 10 + 14 + 10 + 8);
    EXPECT_EQ(window.length(), 60000.0);
    while (window.zoomIn())
        --steps;
    EXPECT_EQ(steps, 0);
    EXPECT_EQ(window.length(), 500.0);
}

TEST(TimeWindow, HoldsALengthWithinTheLimits)
{
    EXPECT_EQ(windowOf(1.0).length(), 500.0);
    EXPECT_EQ(windowOf(1e9).length(), 60000.0);
    EXPECT_EQ(windowOf(std::numeric_limits<double>::quiet_NaN()).length(), 3000.0);
}

TEST(TimeWindow, ScrollsInMillisecondsToTheLastSample)
{
    EXPECT_EQ(windowOf(3000.0, 10001).scrollMaximum(), 7000);
    EXPECT_EQ(windowOf(3000.0, 5001, 2.0).scrollMaximum(), 7000);
    EXPECT_EQ(windowOf(3000.0, 1002, 2.5).scrollMaximum(), 2503 - 3000);
    EXPECT_EQ(windowOf(3000.0).pageStep(), 3000);
}

TEST(TimeWindow, KeepsItsMiddleAfterZooming)
{
    TimeWindow window = windowOf(3000.0);
    window.zoomIn();
    EXPECT_EQ(window.scrollAfterZoom(10000, 3000.0), 10000 + 1500 - 1375);
    window.zoomOut();
    EXPECT_EQ(window.scrollAfterZoom(10125, 2750.0), 10000);
}

TEST(TimeWindow, CentresASample)
{
    EXPECT_EQ(windowOf(3000.0).scrollToCentre(5000), 3500);
    EXPECT_EQ(windowOf(3000.0, 60000, 2.5).scrollToCentre(1001), 2503 - 1500);
    EXPECT_EQ(windowOf(3000.0).scrollToCentre(10), -1490);
}

TEST(TimeWindow, MovesByAFifthForANotchOfTheWheel)
{
    EXPECT_EQ(windowOf(3000.0).scrollAfterWheel(5000, 120), 4400);
    EXPECT_EQ(windowOf(3000.0).scrollAfterWheel(5000, -120), 5600);
    EXPECT_EQ(windowOf(500.0).scrollAfterWheel(5000, 1), 5000);
}

TEST(TimeWindow, ShowsTheSamplesFromTheScrolledPlaceOn)
{
    const TimeWindow::Range range = windowOf(3000.0).range(1000);
    EXPECT_EQ(range.first, 1000);
    EXPECT_EQ(range.last, 4000);
    EXPECT_EQ(range.count(), 3001);
}

TEST(TimeWindow, CutsThePlaceToAWholeSample)
{
    const TimeWindow::Range range = windowOf(3000.0, 60000, 4.0).range(1003);
    EXPECT_EQ(range.first, 250);
    EXPECT_EQ(range.last, 1000);
}

TEST(TimeWindow, EndsWithTheLastSample)
{
    const TimeWindow window = windowOf(3000.0, 2000);
    EXPECT_EQ(window.range(0).last, 1999);
    EXPECT_EQ(window.range(1500).first, 1500);
    EXPECT_EQ(window.range(1500).last, 1999);
    EXPECT_EQ(window.room(), 3000);
}

TEST(TimeWindow, ReachesTheEndOfADayAtAThousandHertz)
{
    constexpr int Day = 86400000;
    TimeWindow window = windowOf(60000.0, Day);
    EXPECT_EQ(window.scrollMaximum(), Day - 1 - 60000);
    EXPECT_EQ(window.range(window.scrollMaximum()).last, Day - 1);
    EXPECT_EQ(window.scrollToCentre(Day - 1), Day - 1 - 30000);
    EXPECT_EQ(window.scrollAfterWheel(Day - 60001, 120), Day - 60001 - 12000);
    EXPECT_EQ(window.secondsOf(Day - 1), 86399.999);
}

TEST(TimeWindow, ShowsNothingWithoutSamples)
{
    const TimeWindow window = windowOf(3000.0, 0);
    EXPECT_TRUE(window.range(0).isEmpty());
    EXPECT_EQ(window.range(700).count(), 0);
}

} // namespace
