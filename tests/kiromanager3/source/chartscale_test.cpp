#include "chartscale.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

SampleExtent extent(double lowest, double highest)
{
    SampleExtent extent;
    extent.add(lowest);
    extent.add(highest);
    return extent;
}

/// Two charts: samples of widths 4 and 10, a saccade of widths 2 and 6.
const std::vector<ChartExtents> Charts = {{extent(1.0, 5.0), extent(2.0, 4.0)},
                                          {extent(-20.0, -10.0), extent(-18.0, -12.0)}};

void expectRange(const ScaleRange& range, double min, double max)
{
    EXPECT_DOUBLE_EQ(range.min, min);
    EXPECT_DOUBLE_EQ(range.max, max);
}

TEST(SampleExtent, PassesOverWhatIsNotFinite)
{
    SampleExtent extent;
    extent.add(std::numeric_limits<double>::quiet_NaN());
    extent.add(std::numeric_limits<double>::infinity());
    EXPECT_FALSE(extent.known);
    extent.add(-3.0);
    extent.add(-std::numeric_limits<double>::infinity());
    EXPECT_TRUE(extent.known);
    EXPECT_EQ(extent.lowest, -3.0);
    EXPECT_EQ(extent.highest, -3.0);
}

TEST(PositionRanges, AreAsWideAsTheWidestChartAndATenthMoreOnBothSides)
{
    const auto ranges = positionRanges(Charts, ScaleMode::Auto, true, 99.0);
    ASSERT_EQ(ranges.size(), 2u);
    expectRange(ranges[0], 3.0 - 6.0, 3.0 + 6.0);
    expectRange(ranges[1], -15.0 - 6.0, -15.0 + 6.0);
}

TEST(PositionRanges, FitTheCurrentSaccade)
{
    const auto ranges = positionRanges(Charts, ScaleMode::Fit, true, 99.0);
    expectRange(ranges[0], 3.0 - 3.6, 3.0 + 3.6);
    expectRange(ranges[1], -15.0 - 3.6, -15.0 + 3.6);
}

TEST(PositionRanges, FitTheWindowWhereTheSaccadeIsNotDrawn)
{
    const auto ranges = positionRanges(Charts, ScaleMode::Fit, false, 99.0);
    expectRange(ranges[0], -3.0, 9.0);
}

TEST(PositionRanges, AreAsWideAsTheLargestSaccadeAroundTheSamplesShown)
{
    const auto ranges = positionRanges(Charts, ScaleMode::Const, true, 20.0);
    expectRange(ranges[0], 3.0 - 12.0, 3.0 + 12.0);
    expectRange(ranges[1], -15.0 - 12.0, -15.0 + 12.0);
}

TEST(VelocityRange, GoesFromZeroToTheHighestAndATenthMore)
{
    const std::vector<ChartExtents> charts = {{extent(1.0, 100.0), extent(1.0, 40.0)},
                                              {extent(3.0, 300.0), extent(3.0, 20.0)}};
    expectRange(velocityRange(charts, ScaleMode::Auto, true, 700.0), 0.0, 330.0);
    expectRange(velocityRange(charts, ScaleMode::Fit, true, 700.0), 0.0, 44.0);
    expectRange(velocityRange(charts, ScaleMode::Fit, false, 700.0), 0.0, 330.0);
    expectRange(velocityRange(charts, ScaleMode::Const, true, 700.0), 0.0, 770.0);
}

TEST(ZoomedRange, HalvesOrDoublesAroundTheMiddle)
{
    expectRange(zoomedRange({10.0, 30.0}, true), 15.0, 25.0);
    expectRange(zoomedRange({10.0, 30.0}, false), 0.0, 40.0);
}

} // namespace
