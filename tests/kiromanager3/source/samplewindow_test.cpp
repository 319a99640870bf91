#include "samplewindow.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

constexpr double Infinite = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Largest = std::numeric_limits<double>::max();
constexpr int MostSamples = std::numeric_limits<int>::max();

struct Case
{
    const char* name;
    double position;
    double range;
    double secondsPerSample;
    int sampleCount;
    int first;
    int count;
};

void PrintTo(const Case& given, std::ostream* out)
{
    *out << given.name;
}

std::string nameOf(const testing::TestParamInfo<Case>& info)
{
    return info.param.name;
}

class SampleWindow : public testing::TestWithParam<Case>
{
};

TEST_P(SampleWindow, ShowsTheseSamples)
{
    const Case& given = GetParam();
    const SampleStretch shown =
        samplesInWindow(given.position, given.range, given.secondsPerSample, given.sampleCount);
    EXPECT_EQ(shown.first, given.first);
    EXPECT_EQ(shown.count, given.count);
}

// Samples of 0.25 s or 0.5 s, so that the arithmetic is exact.
INSTANTIATE_TEST_SUITE_P(Windows, SampleWindow,
                         testing::Values(Case{"Inside", 5.0, 2.0, 0.25, 100, 16, 10},
                                         Case{"BetweenSamples", 5.1, 2.0, 0.25, 100, 16, 10},
                                         Case{"OtherRate", 5.0, 2.0, 0.5, 50, 8, 6},
                                         Case{"WiderThanTheSignal", 12.5, 1000.0, 0.25, 100, 0, 100},
                                         Case{"WholeSignal", 12.5, 25.0, 0.25, 100, 0, 100},
                                         Case{"AtTheStart", 0.0, 2.0, 0.25, 100, 0, 6},
                                         Case{"LittleBeforeTheStart", -0.1, 0.0, 0.25, 100, 0, 2},
                                         Case{"AtTheEnd", 25.0, 2.0, 0.25, 100, 96, 4},
                                         Case{"OneBeforeTheEnd", 24.5, 0.0, 0.25, 100, 98, 2},
                                         Case{"LastSample", 24.75, 0.0, 0.25, 100, 99, 1},
                                         Case{"OneSample", 0.0, 100.0, 0.25, 1, 0, 1},
                                         Case{"PointInTime", 5.0, 0.0, 0.25, 100, 20, 2}),
                         nameOf);

INSTANTIATE_TEST_SUITE_P(
    Hostile, SampleWindow,
    testing::Values(
        Case{"BehindTheSignal", 40.0, 2.0, 0.25, 100, 0, 0},
        Case{"BeforeTheSignal", -40.0, 2.0, 0.25, 100, 0, 0},
        Case{"JustBehindTheSignal", 25.0, 0.0, 0.25, 100, 0, 0},
        Case{"NegativeRange", 5.0, -2.0, 0.25, 100, 0, 0}, Case{"NoSamples", 0.0, 10.0, 0.25, 0, 0, 0},
        Case{"LessThanNoSamples", 0.0, 10.0, 0.25, -5, 0, 0},
        Case{"LeastNumberOfSamples", 0.0, 10.0, 0.25, std::numeric_limits<int>::min(), 0, 0},
        Case{"MostSamples", 0.0, Infinite, 0.25, MostSamples, 0, MostSamples},
        Case{"EndOfMostSamples", MostSamples * 0.25, 1.0, 0.25, MostSamples, MostSamples - 2, 2},
        Case{"HugeRange", 0.0, Largest, 1e-300, 100, 0, 100},
        Case{"InfiniteRange", 5.0, Infinite, 0.25, 100, 0, 100},
        Case{"InfinitePosition", Infinite, 2.0, 0.25, 100, 0, 0},
        Case{"InfinitePositionAndRange", Infinite, Infinite, 0.25, 100, 0, 0},
        Case{"NoPosition", NotANumber, 2.0, 0.25, 100, 0, 0},
        Case{"NoRange", 5.0, NotANumber, 0.25, 100, 0, 0}, Case{"NoPeriod", 5.0, 2.0, NotANumber, 100, 0, 0},
        Case{"PeriodOfZero", 5.0, 2.0, 0.0, 100, 0, 0}, Case{"NegativePeriod", 5.0, 2.0, -0.25, 100, 0, 0},
        Case{"InfinitePeriod", 5.0, 2.0, Infinite, 100, 0, 2}),
    nameOf);

// 0.3 - 0.2 * 0.5 is 0.19999999999999998 in doubles.
TEST(SampleWindow, CutsQuotientsAsTheyAreInDoubles)
{
    const SampleStretch shown = samplesInWindow(0.3, 0.2, 0.001, 1000);
    EXPECT_EQ(shown.first, 199);
    EXPECT_EQ(shown.count, 401 - 199 + 1);
}

} // namespace
