#include "plot.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double Greatest = std::numeric_limits<double>::max();

Plot plotOf(const QVector<double>& data)
{
    Plot plot;
    plot.setData(data, 0, -1);
    return plot;
}

void expectLimits(const Plot& plot, double least, double greatest)
{
    const Extremes limits = plot.drawnLimits();
    EXPECT_EQ(limits.least, least);
    EXPECT_EQ(limits.greatest, greatest);
}

void expectUsable(const Plot& plot)
{
    const Extremes limits = plot.drawnLimits();
    EXPECT_LT(limits.least, limits.greatest);
    EXPECT_TRUE(std::isfinite(limits.greatest - limits.least));
}

template <class T>
class PlotTypeTest : public testing::Test
{
};

template <class T, int Type, QVector<T> (Plot::*Getter)() const>
struct Row
{
    using Element = T;
    static constexpr int Number = Type;
    static QVector<T> get(const Plot& plot) { return (plot.*Getter)(); }
};

using Rows =
    testing::Types<Row<std::int8_t, 0, &Plot::getDataInt8>, Row<std::uint8_t, 1, &Plot::getDataUInt8>,
                   Row<std::int16_t, 2, &Plot::getDataInt16>, Row<std::uint16_t, 3, &Plot::getDataUInt16>,
                   Row<std::int32_t, 4, &Plot::getDataInt32>, Row<std::uint32_t, 5, &Plot::getDataUInt32>,
                   Row<std::int64_t, 6, &Plot::getDataInt64>, Row<std::uint64_t, 7, &Plot::getDataUInt64>,
                   Row<float, 8, &Plot::getDataFloat>, Row<double, 9, &Plot::getDataDouble>>;
TYPED_TEST_SUITE(PlotTypeTest, Rows);

} // namespace

TYPED_TEST(PlotTypeTest, SamplesOfAStoreAreAsData)
{
    const QVector<typename TypeParam::Element> data{3, 1, 2};
    Plot given;
    ASSERT_TRUE(given.setData(data, 0, -1));
    Plot plot = plotOf({8.0, 9.0, 7.0, 5.0});
    plot.setDataRange(1, 1);
    plot.setSamples(given.samples());
    EXPECT_EQ(plot.dataType, TypeParam::Number);
    EXPECT_EQ(TypeParam::get(plot).constData(), data.constData());
    EXPECT_EQ(plot.rangeStart(), 0);
    EXPECT_EQ(plot.rangeCount(), 3);
    expectLimits(plot, 1.0, 3.0);
}

TYPED_TEST(PlotTypeTest, DataIsSharedAndKnowsItsType)
{
    using Element = typename TypeParam::Element;
    const QVector<Element> data{1, 2, 3};
    Plot plot;
    EXPECT_TRUE(plot.setData(data, 0, -1));
    EXPECT_EQ(plot.dataType, TypeParam::Number);
    EXPECT_EQ(plot.dataSize(), 3);
    const QVector<Element> got = TypeParam::get(plot);
    EXPECT_EQ(got, data);
    EXPECT_EQ(got.constData(), data.constData());
}

TEST(PlotTest, GettersOfOtherTypesGiveNothing)
{
    const Plot plot = plotOf({1.0, 2.0});
    EXPECT_TRUE(plot.getDataFloat().isEmpty());
    EXPECT_TRUE(plot.getDataInt64().isEmpty());
    EXPECT_EQ(plot.getDataDouble(), QVector<double>({1.0, 2.0}));
}

TEST(PlotTest, EmptyDataHasSizeZero)
{
    Plot plot;
    EXPECT_TRUE(plot.setData(QVector<float>(), 0, -1));
    EXPECT_EQ(plot.dataSize(), 0);
    EXPECT_EQ(plot.dataType, 8);
    EXPECT_TRUE(plot.setDataRange(0, 0));
    EXPECT_EQ(plot.sampleAt(0.0), -1);
    expectLimits(plot, 0.0, 1.0);
}

TEST(PlotTest, PartOfDataIsTaken)
{
    Plot plot;
    EXPECT_TRUE(plot.setData(QVector<int>({1, 2, 3, 4, 5}), 1, 3));
    EXPECT_EQ(plot.getDataInt32(), QVector<int>({2, 3, 4}));
    EXPECT_TRUE(plot.setData(QVector<int>({1, 2, 3, 4, 5}), 3, -1));
    EXPECT_EQ(plot.getDataInt32(), QVector<int>({4, 5}));
}

TEST(PlotTest, DataThatIsNotThereIsRefused)
{
    Plot plot = plotOf({7.0});
    const QVector<double> data{1.0, 2.0};
    EXPECT_FALSE(plot.setData(data, -1, 1));
    EXPECT_FALSE(plot.setData(data, 3, 0));
    EXPECT_FALSE(plot.setData(data, 0, 3));
    EXPECT_FALSE(plot.setData(data, 1, std::numeric_limits<int>::max()));
    EXPECT_FALSE(plot.setData(data, 0, -2));
    EXPECT_EQ(plot.getDataDouble(), QVector<double>({7.0}));
}

TEST(PlotTest, DataRangeOutsideIsRefusedAndKeepsTheOld)
{
    Plot plot = plotOf({1.0, 2.0, 3.0, 4.0});
    EXPECT_TRUE(plot.setDataRange(1, 2));
    EXPECT_FALSE(plot.setDataRange(-1, 2));
    EXPECT_FALSE(plot.setDataRange(2, 3));
    EXPECT_FALSE(plot.setDataRange(2, -1));
    EXPECT_FALSE(plot.setDataRange(1, std::numeric_limits<int>::max()));
    EXPECT_EQ(plot.rangeStart(), 1);
    EXPECT_EQ(plot.rangeCount(), 2);
    EXPECT_TRUE(plot.setDataRange(4, 0));
}

TEST(PlotTest, AutomaticScaleFollowsTheDataRange)
{
    Plot plot = plotOf({-5.0, 1.0, 3.0, 50.0});
    expectLimits(plot, -5.0, 50.0);
    plot.setDataRange(1, 2);
    expectLimits(plot, 1.0, 3.0);
    EXPECT_EQ(plot.scaleMin, 1.0);
    EXPECT_EQ(plot.scaleMax, 3.0);
}

TEST(PlotTest, AutomaticScaleIsDrawnInCalibratedUnits)
{
    Plot plot = plotOf({100.0, 300.0});
    plot.hasCalib = true;
    plot.useCalib = true;
    plot.calibFactor = 10.0;
    plot.calibOffset = 50.0;
    expectLimits(plot, 5.0, 25.0);
    plot.followData();
    EXPECT_EQ(plot.scaleMin, 100.0);
    EXPECT_EQ(plot.scaleMax, 300.0);
}

TEST(PlotTest, NegativeFactorKeepsTheLowerLimitBelow)
{
    Plot plot = plotOf({100.0, 300.0});
    plot.useCalib = true;
    plot.calibFactor = -10.0;
    expectLimits(plot, -30.0, -10.0);
}

TEST(PlotTest, FixedScaleIsGivenInRawUnits)
{
    Plot plot = plotOf({1.0, 2.0});
    plot.setScaleType(Plot::Fixed);
    plot.setScale(0.0, 100.0);
    expectLimits(plot, 0.0, 100.0);
    plot.useCalib = true;
    plot.calibFactor = 4.0;
    plot.calibOffset = 20.0;
    expectLimits(plot, -5.0, 20.0);
    plot.setDataRange(0, 1);
    EXPECT_EQ(plot.scaleMax, 100.0);
}

TEST(PlotTest, SwitchingToFixedKeepsWhatIsSeen)
{
    Plot plot = plotOf({100.0, 300.0});
    plot.useCalib = true;
    plot.calibFactor = 10.0;
    plot.setScaleType(Plot::Fixed);
    plot.setScale(plot.scaleMin, plot.scaleMax);
    expectLimits(plot, 10.0, 30.0);
}

TEST(PlotTest, TracingKeepsTheSpanAroundTheMiddleOfTheData)
{
    Plot plot = plotOf({10.0, 20.0, 90.0, 110.0});
    plot.setScaleType(Plot::Tracing);
    plot.setScale(0.0, 8.0);
    plot.setDataRange(0, 2);
    expectLimits(plot, 11.0, 19.0);
    plot.setDataRange(2, 2);
    expectLimits(plot, 96.0, 104.0);
    EXPECT_EQ(plot.scaleMin, 0.0);
    EXPECT_EQ(plot.scaleMax, 8.0);
    plot.setDataRange(4, 0);
    expectLimits(plot, -4.0, 4.0);
}

TEST(PlotTest, ConstantDataGetsRoom)
{
    expectLimits(plotOf({5.0, 5.0}), 4.5, 5.5);
    expectLimits(plotOf({0.0}), -1.0, 1.0);
    expectUsable(plotOf({1e300, 1e300}));
    expectUsable(plotOf({5e-324, 5e-324}));
}

TEST(PlotTest, LimitsStayFiniteForAnyData)
{
    expectLimits(plotOf({NaN, Infinity, -Infinity}), 0.0, 1.0);
    expectLimits(plotOf({NaN, 2.0, Infinity, 4.0}), 2.0, 4.0);
    expectUsable(plotOf({-Greatest, Greatest}));
    Plot plot = plotOf({-Greatest, Greatest});
    plot.useCalib = true;
    plot.calibFactor = 1e-300;
    expectUsable(plot);
}

TEST(PlotTest, ReversedFixedLimitsAreExchanged)
{
    Plot plot;
    plot.setScaleType(Plot::Fixed);
    plot.setScale(9.0, -1.0);
    expectLimits(plot, -1.0, 9.0);
}

TEST(PlotTest, NonsenseIsIgnored)
{
    Plot plot;
    plot.setScale(2.0, 4.0);
    plot.setScale(NaN, 5.0);
    plot.setScale(1.0, Infinity);
    EXPECT_EQ(plot.scaleMin, 2.0);
    EXPECT_EQ(plot.scaleMax, 4.0);
    plot.setTimePerSample(0.5);
    plot.setTimePerSample(0.0);
    plot.setTimePerSample(-1.0);
    plot.setTimePerSample(NaN);
    EXPECT_EQ(plot.timePerSample, 0.5);
    plot.setTimeOffset(3.0);
    plot.setTimeOffset(Infinity);
    EXPECT_EQ(plot.timeOffset, 3.0);
}

TEST(PlotTest, FactorOfZeroDrawsRawValues)
{
    Plot plot = plotOf({1.0, 2.0});
    plot.useCalib = true;
    plot.calibFactor = 0.0;
    plot.setCalibUnit(QStringLiteral("mV"));
    expectLimits(plot, 1.0, 2.0);
    EXPECT_EQ(plot.drawnUnit(), QString());
    plot.calibFactor = 2.0;
    EXPECT_EQ(plot.drawnUnit(), QStringLiteral("mV"));
    EXPECT_EQ(plot.drawnValue(5.0), 2.5);
    EXPECT_EQ(plot.rawValue(2.5), 5.0);
}

TEST(PlotTest, PrecisionTellsAHundredthOfTheRange)
{
    const auto precisionOf = [](double range) {
        Plot plot = plotOf({0.0, range});
        plot.adjustPrecision();
        return plot.precision;
    };
    EXPECT_EQ(precisionOf(100000.0), 0);
    EXPECT_EQ(precisionOf(100.0), 0);
    EXPECT_EQ(precisionOf(99.0), 0);
    EXPECT_EQ(precisionOf(50.0), 1);
    EXPECT_EQ(precisionOf(10.0), 1);
    EXPECT_EQ(precisionOf(1.0), 2);
    EXPECT_EQ(precisionOf(0.01), 4);
}

TEST(PlotTest, SampleAtIsTheNearestOfTheRange)
{
    Plot plot = plotOf({1.0, 2.0, 3.0, 4.0});
    plot.setTimePerSample(0.5);
    plot.setTimeOffset(10.0);
    EXPECT_EQ(plot.sampleAt(10.0), 0);
    EXPECT_EQ(plot.sampleAt(10.7), 1);
    EXPECT_EQ(plot.sampleAt(10.8), 2);
    EXPECT_EQ(plot.sampleAt(9.8), 0);
    EXPECT_EQ(plot.sampleAt(9.7), -1);
    EXPECT_EQ(plot.sampleAt(11.7), 3);
    EXPECT_EQ(plot.sampleAt(11.8), -1);
    EXPECT_EQ(plot.sampleAt(NaN), -1);
    EXPECT_EQ(plot.timeOfSample(3), 11.5);
    plot.setDataRange(1, 2);
    EXPECT_EQ(plot.sampleAt(10.0), -1);
    plot.timePerSample = 0.0;
    EXPECT_EQ(plot.sampleAt(10.0), -1);
}

TEST(PlotTest, TextsAndVisibilityReadBack)
{
    Plot plot;
    EXPECT_TRUE(plot.showPlot());
    plot.setShowPlot(false);
    EXPECT_FALSE(plot.show);
    plot.setTitle(QStringLiteral("Gyro X"));
    plot.setCalibUnit(QStringLiteral("deg/s"));
    EXPECT_EQ(plot.title(), QStringLiteral("Gyro X"));
    EXPECT_EQ(plot.calibUnit(), QStringLiteral("deg/s"));
}
