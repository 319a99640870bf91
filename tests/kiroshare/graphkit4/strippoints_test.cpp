// The points-only style of strips.

#include "stripcomparison.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace
{

/// What is drawn, and what the plain renderer draws of the same.
struct Pictures
{
    plain::Pixels shipped;
    plain::Pixels reference;

    Pictures(const ElementType& type, const Values& values, const Setting& setting)
        : Pictures(SampleStore(type.make(values, type.middle, type.half)), type, setting)
    {
    }

private:
    Pictures(const SampleStore& samples, const ElementType& type, const Setting& setting)
        : shipped(litPixels(shippedPicture(samples, viewOf(type, samples.count(), setting), setting)))
        , reference(plainPicture(samples, viewOf(type, samples.count(), setting), setting))
    {
    }
};

TEST(StripPoints, PointsLookLikeAllPoints)
{
    Setting setting;
    setting.connected = false;
    for (const double ratio : {1.0, 1.5, 2.0}) {
        setting.pixelRatio = ratio;
        expectSameCurves(Int16, {1, 2, 50, 713, 3000, 50001}, setting);
    }
}

TEST(StripPoints, WidePointsLookLikeAllPoints)
{
    Setting setting;
    setting.connected = false;
    setting.width = 3.0;
    for (const double ratio : {1.0, 1.5, 2.0}) {
        setting.pixelRatio = ratio;
        expectSameCurves(Int16, {1, 50, 713, 5001, 50001}, setting);
    }
}

TEST(StripPoints, PointsOfAllElementTypesLookLikeAllPoints)
{
    Setting setting;
    setting.connected = false;
    for (const ElementType& type : ElementTypes)
        expectSameCurves(type, {200, 9001}, setting);
}

TEST(StripPoints, DensePointsLookLikeAllPoints)
{
    Setting setting;
    setting.connected = false;
    for (const int count : {300000, 1000003}) {
        for (const Shape shape : AllShapes) {
            const SampleStore samples(Int16.make(valuesOf(shape, count), Int16.middle, Int16.half));
            for (const QSize& size :
                 {QSize(21, 151), QSize(24, 151), QSize(24, 911), QSize(36, 151), QSize(101, 911)}) {
                setting.size = size;
                expectSameCurve(samples, viewOf(Int16, count, setting), setting,
                                std::string(ShapeNames[std::size_t(shape)]) + "-" + std::to_string(count) +
                                    "-" + std::to_string(size.width()) + "x" + std::to_string(size.height()));
            }
        }
    }
}

TEST(StripPoints, PointsOfMillionsOfSamplesLookLikeAllPoints)
{
    constexpr int Count = 2000003;
    Setting setting;
    setting.connected = false;
    for (const Shape shape : {Shape::Walk, Shape::Noise}) {
        const Values values = valuesOf(shape, Count);
        for (const QSize& size : {QSize(24, 151), QSize(36, 151), QSize(433, 911)}) {
            setting.size = size;
            expectSameCurve(Int16, values, setting,
                            std::string(ShapeNames[std::size_t(shape)]) + "-" + std::to_string(size.width()));
        }
        setting.size = QSize(24, 151);
        expectSameCurve(Double, values, setting, std::string("doubles of ") + ShapeNames[std::size_t(shape)]);
    }
}

TEST(StripPoints, ASinglePointBetweenOthersIsShown)
{
    constexpr int Count = 1000003;
    Setting setting;
    setting.connected = false;
    setting.size = QSize(21, 151);
    for (const int lonely : {777, 400031, 999983}) {
        Values values(Count);
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = i % 2 == 0 ? 0.9 : -0.9;
        values[std::size_t(lonely)] = 0.25;
        for (const ElementType& type : {Int16, Double}) {
            const auto [shipped, reference] = Pictures(type, values, setting);
            EXPECT_EQ(reference.litCount(), 3) << lonely;
            EXPECT_EQ(farPixels(reference, shipped, 0), 0) << lonely;
            EXPECT_EQ(farPixels(shipped, reference, 0), 0) << lonely;
        }
    }
}

TEST(StripPoints, PointsOfJumpsLightNoRowBetween)
{
    Setting setting;
    setting.connected = false;
    setting.size = QSize(30, 151);
    // Within rows; and, in the middle of the strip, on the border of two, where either may be lit.
    for (const double middle : {0.011, 0.0}) {
        const int reach = middle == 0.0 ? 1 : 0;
        for (const int rest : {3, 40, 400}) {
            Values values(200000);
            for (std::size_t i = 0; i < values.size(); ++i)
                values[i] = 0.77 * double(int(i / std::size_t(rest)) % 3 - 1) + middle;
            const auto [shipped, reference] = Pictures(Int16, values, setting);
            EXPECT_EQ(farPixels(shipped, reference, reach), 0) << middle << ' ' << rest;
            EXPECT_EQ(farPixels(reference, shipped, reach), 0) << middle << ' ' << rest;
            EXPECT_GT(reference.litCount(), 0) << middle << ' ' << rest;
        }
    }
}

TEST(StripPoints, PointsShowTheLeastAndGreatestOfEachColumn)
{
    Values values = valuesOf(Shape::Noise, 500000);
    for (double& value : values)
        value *= 0.5;
    for (std::size_t i = 123; i < values.size(); i += 9999)
        values[i] = i % 2 == 0 ? 0.95 : -0.95;
    Setting setting;
    setting.connected = false;
    setting.size = QSize(30, 151);
    for (const ElementType& type : {Int16, Double}) {
        const auto [shipped, reference] = Pictures(type, values, setting);
        for (int column = 0; column < shipped.width(); ++column)
            EXPECT_EQ(spanDifference(spanOf(shipped, column), spanOf(reference, column)), 0) << column;
    }
}

TEST(StripPoints, PointsOfHugeNumbersLookLikeAllPoints)
{
    const ElementType huge = {arrayOf<double>, 0.0, 1e305};
    Setting setting;
    setting.connected = false;
    expectSameCurves(huge, {50, 3000, 40001}, setting);
}

TEST(StripPoints, ClippedPointsLookLikeAllPoints)
{
    for (const double shown : {0.5, 0.02}) {
        Setting setting;
        setting.connected = false;
        setting.shown = shown;
        expectSameCurves(Int16, {50, 1000, 40001}, setting);
        expectSameCurves(Double, {50, 1000, 40001}, setting);
    }
}

/// Points at `one` and `other` in turn, and a single one at `lonely`, all of the same column.
Values lonelyBetween(double one, double other, double lonely, int place, int count)
{
    Values values(std::size_t(count), 0.0);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = i % 2 == 0 ? one : other;
    values[std::size_t(place)] = lonely;
    return values;
}

/// The rows beside the strip are not shown: points there stand in for none on the strip's first or last row.
TEST(StripPoints, PointsOnTheOuterRowsOfAClippedScaleAreShown)
{
    Setting setting;
    setting.connected = false;
    setting.shown = 0.5;
    setting.size = QSize(21, 151);
    constexpr int Rows = 140;
    // The middle of a row, counted from the edge of the scale.
    const auto valueOf = [&](int row) { return 0.5 - (row + 0.5) / Rows; };
    for (const int sign : {1, -1}) {
        // All rows but the first two, and the one just out of sight; only one point on the first.
        Values values(100000);
        for (std::size_t i = 0; i < values.size(); ++i) {
            const int row = int(i) % Rows;
            values[i] = sign * valueOf(row < 2 ? -1 : row);
        }
        values[54321] = sign * valueOf(0);
        const auto [shipped, reference] = Pictures(Double, values, setting);
        EXPECT_EQ(reference.litCount(), Rows - 1) << sign;
        EXPECT_EQ(farPixels(reference, shipped, 1), 0) << sign;
    }
}

/// Blocks that hold a row in sight and one beside the strip are looked at, however near the two are.
TEST(StripPoints, SlowPointsAcrossTheEdgeOfAClippedScaleLookLikeAllPoints)
{
    Setting setting;
    setting.connected = false;
    setting.size = QSize(433, 15);
    setting.shown = 0.05;
    for (const double length : {600.0, 1800.0, 5000.0}) {
        Values values(300000);
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = std::sin(6.283185307 * double(i) / length);
        expectSameCurve(Int16, values, setting, "sine of " + std::to_string(length));
    }
}

/// Whole numbers beyond those that doubles tell apart: where the next one is rows away.
TEST(StripPoints, PointsOfNumbersThatAreRowsApartLookLikeAllPoints)
{
    Setting setting;
    setting.connected = false;
    for (const int factor : {1, -1}) {
        setting.factor = factor == 1 ? 1.0 : -0.05;
        for (const double half : {3000.0, 20000.0}) {
            const ElementType large = {arrayOf<std::uint64_t>, 9223372036854775808.0, half};
            for (const int height : {61, 641}) {
                setting.size = QSize(101, height);
                expectSameCurve(large, valuesOf(Shape::Noise, 30000), setting,
                                std::to_string(half) + ' ' + std::to_string(height));
            }
        }
    }
    // Doubles close to 1, a few times apart what is the least.
    const ElementType close = {arrayOf<double>, 1.0, 2e-14};
    setting.factor = 1.0;
    setting.size = QSize(101, 911);
    expectSameCurve(close, valuesOf(Shape::Noise, 30000), setting, "doubles");
}

/// The first and the last of the blocks whose extremes are looked up together.
TEST(StripPoints, ASinglePointInAnyBlockIsShown)
{
    Setting setting;
    setting.connected = false;
    setting.size = QSize(21, 151);
    constexpr int Count = 100000;
    for (const int block : {0, 1, 31, 32, 510, 511, 512, 513, 1022, 1023, 1024, 1561}) {
        const Values values = lonelyBetween(0.9, -0.9, 0.25, block * SampleStore::BlockSize + 17, Count);
        const auto [shipped, reference] = Pictures(Int16, values, setting);
        EXPECT_EQ(reference.litCount(), 3) << block;
        EXPECT_EQ(farPixels(reference, shipped, 0), 0) << block;
    }
}

/// In high strips rows are told apart in words of 64: a lonely row at and beside the border of two of them.
TEST(StripPoints, ASinglePointOnAnyRowIsShown)
{
    Setting setting;
    setting.connected = false;
    setting.size = QSize(21, 311);
    constexpr int Rows = 300;
    for (int row = 0; row < Rows; ++row) {
        const double lonely = 1.0 - (row + 0.5) * 2.0 / Rows;
        // Neighbours that light rows two away from the lonely one, on either side of it.
        for (const int away : {2, 3}) {
            const double step = away * 2.0 / Rows;
            Values values = lonelyBetween(0.995, -0.995, lonely, 5000, 10000);
            values[7] = std::clamp(lonely + step, -0.995, 0.995);
            values[9999] = std::clamp(lonely - step, -0.995, 0.995);
            const auto [shipped, reference] = Pictures(Double, values, setting);
            EXPECT_EQ(farPixels(reference, shipped, 1), 0) << row << ' ' << away;
            EXPECT_EQ(farPixels(shipped, reference, 1), 0) << row << ' ' << away;
        }
    }
}

/// Rows that are open only amid a high strip, far from the extremes of each block of samples.
TEST(StripPoints, ASinglePointInTheMiddleOfAHighStripIsShown)
{
    Setting setting;
    setting.connected = false;
    setting.size = QSize(21, 311);
    constexpr int Rows = 300;
    constexpr int Outer = 72; // that are full, at the top and at the bottom
    const auto valueOf = [&](int row) { return 1.0 - (row + 0.5) * 2.0 / Rows; };
    for (const int row : {100, 150, 200}) {
        Values values(20000);
        for (std::size_t i = 0; i < values.size(); ++i) {
            const int place = int(i / 2) % Outer;
            values[i] = valueOf(i % 2 == 0 ? place : Rows - 1 - place);
        }
        values[12345] = valueOf(row);
        const auto [shipped, reference] = Pictures(Double, values, setting);
        EXPECT_EQ(reference.litCount(), 2 * Outer + 1) << row;
        EXPECT_EQ(farPixels(reference, shipped, 1), 0) << row;
        EXPECT_EQ(farPixels(shipped, reference, 1), 0) << row;
    }
}

/// The least distance at which two rows have one between them that is near neither.
TEST(StripPoints, ASinglePointTwoRowsFromItsNeighboursIsShown)
{
    Setting setting;
    setting.connected = false;
    setting.size = QSize(21, 111);
    constexpr int Rows = 100;
    const auto valueOf = [&](int row) { return 1.0 - (row + 0.5) * 2.0 / Rows; };
    for (int row = 2; row < Rows - 2; ++row) {
        const Values values = lonelyBetween(valueOf(row - 2), valueOf(row + 2), valueOf(row), 4321, 10000);
        const auto [shipped, reference] = Pictures(Double, values, setting);
        EXPECT_EQ(reference.litCount(), 3) << row;
        EXPECT_EQ(farPixels(reference, shipped, 1), 0) << row;
    }
}

/// Whole numbers that are many rows apart, all of which stand often but one.
TEST(StripPoints, ASingleWholeNumberAmongAllOthersIsShown)
{
    Setting setting;
    setting.connected = false;
    setting.size = QSize(21, 311);
    setting.shown = 0.5;
    const ElementType few = {arrayOf<std::int16_t>, 0.0, 10.0};
    for (const double factor : {1.0, -0.3}) {
        setting.factor = factor;
        for (int lonely = -5; lonely <= 5; ++lonely) {
            Values values(20000);
            for (std::size_t i = 0; i < values.size(); ++i) {
                const int number = int(i) % 19 - 9;
                values[i] = (number == lonely ? 9 : number) / 10.0;
            }
            values[4321] = lonely / 10.0;
            const auto [shipped, reference] = Pictures(few, values, setting);
            EXPECT_GE(reference.litCount(), 10) << factor << ' ' << lonely;
            EXPECT_EQ(farPixels(reference, shipped, 1), 0) << factor << ' ' << lonely;
        }
    }
}

} // namespace
