#include "stripcurve.h"

#include "stripsink.h"

#include "reference/plainpolyline.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace
{

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

using Values = std::vector<double>;

enum class Shape { Walk, Noise, Steps, Zigzag };
constexpr std::array<Shape, 4> AllShapes = {Shape::Walk, Shape::Noise, Shape::Steps, Shape::Zigzag};
constexpr std::array<const char*, 4> ShapeNames = {"walk", "noise", "steps", "zigzag"};

/// From -1 to 1.
Values valuesOf(Shape shape, int count)
{
    std::mt19937_64 generator(7);
    std::normal_distribution<double> normal;
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    Values values(std::size_t(count), 0.0);
    double value = 0.0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        switch (shape) {
        case Shape::Walk:
            value = 0.9995 * value + 0.008 * normal(generator);
            break;
        case Shape::Noise:
            value = 0.25 * normal(generator);
            break;
        case Shape::Steps:
            value = i % 37 == 0 && uniform(generator) > 0.3 ? 0.9 * uniform(generator) : value;
            break;
        case Shape::Zigzag:
            value = (i % 2 == 0 ? 0.9 : -0.9) * std::cos(6.0 * double(i) / count);
            break;
        }
        values[i] = std::clamp(value, -1.0, 1.0);
    }
    return values;
}

template <class T>
SampleArray arrayOf(const Values& values, double middle, double half)
{
    QVector<T> samples(int(values.size()));
    std::transform(values.begin(), values.end(), samples.begin(),
                   [=](double value) { return T(middle + half * value); });
    return samples;
}

/// Samples of an element type whose raw values for -1 to 1 lie `half` around `middle`.
struct ElementType
{
    SampleArray (*make)(const Values& values, double middle, double half);
    double middle;
    double half;
};

constexpr std::array<ElementType, 10> ElementTypes = {{
    {arrayOf<std::int8_t>, 0.0, 120.0},
    {arrayOf<std::uint8_t>, 128.0, 120.0},
    {arrayOf<std::int16_t>, -1000.0, 31000.0},
    {arrayOf<std::uint16_t>, 32768.0, 32000.0},
    {arrayOf<std::int32_t>, 0.0, 2.1e9},
    {arrayOf<std::uint32_t>, 2147483648.0, 2.1e9},
    {arrayOf<std::int64_t>, 0.0, 9.2e18},
    {arrayOf<std::uint64_t>, 9223372036854775808.0, 9.2e18},
    {arrayOf<float>, 3.0f, 1e30},
    {arrayOf<double>, -5.0, 0.125},
}};
constexpr const ElementType& Int16 = ElementTypes[2];
constexpr const ElementType& Double = ElementTypes[9];

/// What is drawn and how, but for the samples.
struct Setting
{
    double width = 1.0; ///< of the pen; 1 is a device pixel at any ratio
    double pixelRatio = 1.0;
    QSize size = QSize(433, 151);
    bool connected = true;
    double tolerance = 0.0;
    double factor = 1.0; ///< of the calibration
    double shown = 1.0;  ///< part of the scale around its middle that is shown
    QColor color = Qt::black;
};

/// All samples of a type from edge to edge, but none on the border of two columns, which may go either way.
StripView viewOf(const ElementType& type, int count, const Setting& setting)
{
    StripView view;
    view.rect = QRectF(9.0, 5.0, setting.size.width() - 20.0, setting.size.height() - 11.0);
    view.first = 0;
    view.count = count;
    view.timePerSample = 0.001;
    view.timeOffset = 0.5;
    view.horzMin = 0.4999123;
    view.horzMax = 0.4999123 + 0.001 * (count - 0.7);
    view.calibFactor = setting.factor;
    view.calibOffset = setting.factor == 1.0 ? 0.0 : type.middle + 0.25 * type.half;
    const auto drawn = [&](double part) {
        return (type.middle + part * type.half - view.calibOffset) / view.calibFactor;
    };
    view.scaleMin = std::min(drawn(-setting.shown), drawn(setting.shown));
    view.scaleMax = std::max(drawn(-setting.shown), drawn(setting.shown));
    view.connected = setting.connected;
    view.tolerance = setting.tolerance;
    return view;
}

QImage blankImage(const Setting& setting)
{
    QImage image(setting.size * setting.pixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(setting.pixelRatio);
    image.fill(Qt::transparent);
    return image;
}

double pixelWidth(const Setting& setting)
{
    return setting.width == 1.0 ? 1.0 : setting.width * setting.pixelRatio;
}

QPen penOf(const Setting& setting)
{
    return QPen(setting.color, setting.width == 1.0 ? 0.0 : setting.width);
}

QImage shippedPicture(const SampleStore& samples, const StripView& view, const Setting& setting)
{
    QImage image = blankImage(setting);
    QPainter painter(&image);
    drawStripCurve(painter, samples, view, penOf(setting));
    return image;
}

plain::Pixels plainPicture(const SampleStore& samples, const StripView& view, const Setting& setting)
{
    return plain::stripCurve(setting.size * setting.pixelRatio, setting.pixelRatio, samples, view,
                             pixelWidth(setting));
}

/// Which pixels of a picture are lit: covered by two fifths at least, since where a smooth line turns between
/// two rows it may cover each by less than half. Comparisons come out the same from a quarter on.
plain::Pixels litPixels(const QImage& image)
{
    constexpr int Lit = 102;
    plain::Pixels pixels(image.size());
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(line[x]) >= Lit)
                pixels.light(x, y);
        }
    }
    return pixels;
}

/// Whether a pixel is lit that is no more than `reach` columns and rows away.
bool isLitNear(const plain::Pixels& pixels, int x, int y, int reach)
{
    for (int j = std::max(y - reach, 0); j <= std::min(y + reach, pixels.height() - 1); ++j) {
        for (int i = std::max(x - reach, 0); i <= std::min(x + reach, pixels.width() - 1); ++i) {
            if (pixels.isLit(i, j))
                return true;
        }
    }
    return false;
}

/// First and last lit row of a column; the last is above the first if there is none.
std::pair<int, int> spanOf(const plain::Pixels& pixels, int column)
{
    int first = 0;
    while (first < pixels.height() && !pixels.isLit(column, first))
        ++first;
    int last = pixels.height() - 1;
    while (last >= first && !pixels.isLit(column, last))
        --last;
    return {first, first < pixels.height() ? last : -1};
}

/// Lit pixels of one picture that are farther than `reach` from those of the other.
long farPixels(const plain::Pixels& one, const plain::Pixels& other, int reach)
{
    long count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            if (one.isLit(x, y) && !other.isLit(x, y) && !isLitNear(other, x, y, reach))
                ++count;
        }
    }
    return count;
}

/// Rows by which the lit spans of a column differ beyond one; beside none, a span of one row differs by one.
long spanDifference(const std::pair<int, int>& one, const std::pair<int, int>& other)
{
    const bool isOne = one.first <= one.second;
    const bool isOther = other.first <= other.second;
    if (isOne && isOther)
        return std::max(std::abs(one.first - other.first) - 1, 0) +
               std::max(std::abs(one.second - other.second) - 1, 0);
    const auto& only = isOne ? one : other;
    return std::max(only.second - only.first, 0);
}

struct Difference
{
    long lit = 0;     ///< pixels of the plain picture
    long outside = 0; ///< pixels that break the rule
};

/// How far a picture is from showing the same curve as another: the lit spans of each column are the same to
/// within a pixel, and no lit pixel is more than one from the other picture's.
Difference differenceOf(const plain::Pixels& one, const plain::Pixels& other)
{
    Difference difference{other.litCount(), farPixels(one, other, 1) + farPixels(other, one, 1)};
    for (int column = 0; column < one.width(); ++column)
        difference.outside += spanDifference(spanOf(one, column), spanOf(other, column));
    return difference;
}

/// One pixel in a thousand may be outside.
bool isSameCurve(const Difference& difference)
{
    return difference.outside * 1000 <= difference.lit;
}

void expectSameCurve(const SampleStore& samples, const StripView& view, const Setting& setting,
                     const std::string& what)
{
    const plain::Pixels shipped = litPixels(shippedPicture(samples, view, setting));
    const plain::Pixels reference = plainPicture(samples, view, setting);
    const Difference difference = differenceOf(shipped, reference);
    EXPECT_TRUE(isSameCurve(difference))
        << what << ": " << difference.outside << " of " << difference.lit << " pixels are outside";
}

void expectSameCurve(const ElementType& type, const Values& values, const Setting& setting,
                     const std::string& what)
{
    const SampleStore samples(type.make(values, type.middle, type.half));
    expectSameCurve(samples, viewOf(type, samples.count(), setting), setting, what);
}

/// All shapes at these numbers of samples.
void expectSameCurves(const ElementType& type, const std::vector<int>& counts, const Setting& setting)
{
    for (std::size_t i = 0; i < AllShapes.size(); ++i) {
        for (const int count : counts) {
            const std::string what = std::string(ShapeNames[i]) + "-" + std::to_string(count) + "-w" +
                                     std::to_string(setting.width) + "-r" +
                                     std::to_string(setting.pixelRatio) + "-t" +
                                     std::to_string(type.make(Values{0.0}, 0.0, 0.0).index()) + "-c" +
                                     std::to_string(setting.connected);
            expectSameCurve(type, valuesOf(AllShapes[i], count), setting, what);
        }
    }
}

/// From a few pixels a sample to a hundred samples a pixel, of which some fall between the columns evenly.
const std::vector<int> SomeCounts = {3, 50, 130, 200, 350, 413, 600, 826, 3000, 40001};

TEST(StripCurve, ComparisonOfPicturesSeesAShift)
{
    const Setting setting;
    const Values values = valuesOf(Shape::Walk, 3000);
    const SampleStore samples(Int16.make(values, Int16.middle, Int16.half));
    const StripView view = viewOf(Int16, samples.count(), setting);
    const plain::Pixels reference = plainPicture(samples, view, setting);
    for (const QPointF& shift : {QPointF(3.0, 0.0), QPointF(0.0, 2.0), QPointF(0.0, -2.0)}) {
        StripView shifted = view;
        shifted.rect.translate(shift);
        EXPECT_FALSE(isSameCurve(differenceOf(plainPicture(samples, shifted, setting), reference)));
    }
    EXPECT_FALSE(isSameCurve(differenceOf(litPixels(blankImage(setting)), reference)));
    EXPECT_TRUE(isSameCurve(differenceOf(reference, reference)));
}

TEST(StripCurve, ComparisonOfPicturesSeesAMissingSample)
{
    const Setting setting;
    Values values = valuesOf(Shape::Steps, 3000);
    values[1234] = -1.0;
    const SampleStore samples(Int16.make(values, Int16.middle, Int16.half));
    values[1234] = values[1233];
    const SampleStore without(Int16.make(values, Int16.middle, Int16.half));
    const StripView view = viewOf(Int16, samples.count(), setting);
    EXPECT_FALSE(isSameCurve(
        differenceOf(plainPicture(without, view, setting), plainPicture(samples, view, setting))));
}

TEST(StripCurve, AllShapesLookLikeThePolyline)
{
    expectSameCurves(Int16, SomeCounts, Setting());
    expectSameCurves(Double, SomeCounts, Setting());
}

TEST(StripCurve, AllElementTypesLookLikeThePolyline)
{
    for (const ElementType& type : ElementTypes)
        expectSameCurves(type, {200, 9000}, Setting());
}

TEST(StripCurve, FractionsOfDevicePixelsLookLikeThePolyline)
{
    for (const double ratio : {1.5, 2.0}) {
        Setting setting;
        setting.pixelRatio = ratio;
        expectSameCurves(Int16, {50, 500, 1000, 3000, 70001}, setting);
    }
}

TEST(StripCurve, WidePensLookLikeThePolyline)
{
    for (const double width : {2.0, 3.0, 4.0, 8.0}) {
        Setting setting;
        setting.width = width;
        expectSameCurves(Int16, {3, 50, 180, 350, 1000, 5000}, setting);
    }
}

TEST(StripCurve, WidePensOnFractionsOfDevicePixelsLookLikeThePolyline)
{
    for (const double ratio : {1.5, 2.0}) {
        for (const double width : {1.5, 2.0, 3.0}) {
            Setting setting;
            setting.width = width;
            setting.pixelRatio = ratio;
            expectSameCurves(Int16, {50, 350, 2000}, setting);
        }
    }
}

TEST(StripCurve, PointsLookLikeAllPoints)
{
    Setting setting;
    setting.connected = false;
    for (const double ratio : {1.0, 1.5, 2.0}) {
        setting.pixelRatio = ratio;
        expectSameCurves(Int16, {1, 2, 50, 713, 3000, 50001}, setting);
    }
}

TEST(StripCurve, WidePointsLookLikeAllPoints)
{
    Setting setting;
    setting.connected = false;
    setting.width = 3.0;
    for (const double ratio : {1.0, 1.5, 2.0}) {
        setting.pixelRatio = ratio;
        expectSameCurves(Int16, {1, 50, 713, 5001, 50001}, setting);
    }
}

TEST(StripCurve, PointsOfAllElementTypesLookLikeAllPoints)
{
    Setting setting;
    setting.connected = false;
    for (const ElementType& type : ElementTypes)
        expectSameCurves(type, {200, 9001}, setting);
}

TEST(StripCurve, OddSizesLookLikeThePolyline)
{
    for (const QSize& size : {QSize(24, 151), QSize(101, 17), QSize(733, 13), QSize(1601, 57)}) {
        Setting setting;
        setting.size = size;
        expectSameCurves(Int16, {50, 777, 10007}, setting);
        setting.width = 3.0;
        expectSameCurves(Int16, {50, 777}, setting);
    }
}

TEST(StripCurve, MillionsOfSamplesLookLikeThePolyline)
{
    Setting setting;
    expectSameCurve(Int16, valuesOf(Shape::Noise, 2000003), setting, "noise");
    setting.connected = false;
    expectSameCurve(Int16, valuesOf(Shape::Steps, 1000003), setting, "points of steps");
}

TEST(StripCurve, TensOfThousandsOfSamplesAColumnLookLikeThePolyline)
{
    Setting setting;
    setting.size = QSize(36, 151);
    constexpr int Count = 300003;
    expectSameCurve(Int16, valuesOf(Shape::Noise, Count), setting, "noise");
    expectSameCurve(Int16, valuesOf(Shape::Walk, Count), setting, "walk");
    setting.width = 3.0;
    expectSameCurve(Int16, valuesOf(Shape::Walk, Count), setting, "wide walk");
}

/// From a few columns of hundred thousands of samples each to many of thousands, in low and high strips.
TEST(StripCurve, DensePointsLookLikeAllPoints)
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

TEST(StripCurve, PointsOfMillionsOfSamplesLookLikeAllPoints)
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

/// A row that a single sample of a million stands on, in the midst of the others, is shown.
TEST(StripCurve, ASinglePointBetweenOthersIsShown)
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
            const SampleStore samples(type.make(values, type.middle, type.half));
            const StripView view = viewOf(type, samples.count(), setting);
            const plain::Pixels shipped = litPixels(shippedPicture(samples, view, setting));
            const plain::Pixels reference = plainPicture(samples, view, setting);
            EXPECT_EQ(reference.litCount(), 3) << lonely;
            EXPECT_EQ(farPixels(reference, shipped, 0), 0) << lonely;
            EXPECT_EQ(farPixels(shipped, reference, 0), 0) << lonely;
        }
    }
}

/// Samples that rest at few heights for long and jump between them: no row between is lit, also not where
/// most blocks of samples hold a jump.
TEST(StripCurve, PointsOfJumpsLightNoRowBetween)
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
            const SampleStore samples(Int16.make(values, Int16.middle, Int16.half));
            const StripView view = viewOf(Int16, samples.count(), setting);
            const plain::Pixels shipped = litPixels(shippedPicture(samples, view, setting));
            const plain::Pixels reference = plainPicture(samples, view, setting);
            EXPECT_EQ(farPixels(shipped, reference, reach), 0) << middle << ' ' << rest;
            EXPECT_EQ(farPixels(reference, shipped, reach), 0) << middle << ' ' << rest;
            EXPECT_GT(reference.litCount(), 0) << middle << ' ' << rest;
        }
    }
}

/// The one sample at the edge of the scale is found among all others of its column.
TEST(StripCurve, PointsShowTheLeastAndGreatestOfEachColumn)
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
        const SampleStore samples(type.make(values, type.middle, type.half));
        const StripView view = viewOf(type, samples.count(), setting);
        const plain::Pixels shipped = litPixels(shippedPicture(samples, view, setting));
        const plain::Pixels reference = plainPicture(samples, view, setting);
        for (int column = 0; column < shipped.width(); ++column)
            EXPECT_EQ(spanDifference(spanOf(shipped, column), spanOf(reference, column)), 0) << column;
    }
}

/// Numbers so huge that places are not found by one multiplication.
TEST(StripCurve, PointsOfHugeNumbersLookLikeAllPoints)
{
    const ElementType huge = {arrayOf<double>, 0.0, 1e305};
    Setting setting;
    setting.connected = false;
    expectSameCurves(huge, {50, 3000, 40001}, setting);
}

TEST(StripCurve, ClippedPointsLookLikeAllPoints)
{
    for (const double shown : {0.5, 0.02}) {
        Setting setting;
        setting.connected = false;
        setting.shown = shown;
        expectSameCurves(Int16, {50, 1000, 40001}, setting);
        expectSameCurves(Double, {50, 1000, 40001}, setting);
    }
}

TEST(StripCurve, ClippedValuesLookLikeThePolyline)
{
    for (const double shown : {0.5, 0.02}) {
        for (const double width : {1.0, 3.0}) {
            Setting setting;
            setting.shown = shown;
            setting.width = width;
            expectSameCurves(Int16, {50, 350, 1000, 5000}, setting);
        }
    }
}

TEST(StripCurve, CalibratedValuesLookLikeThePolyline)
{
    for (const double factor : {8.5, -0.01, -3e5}) {
        for (const bool connected : {true, false}) {
            Setting setting;
            setting.factor = factor;
            setting.connected = connected;
            expectSameCurves(Int16, {50, 3000}, setting);
            expectSameCurves(Double, {50, 3000}, setting);
        }
    }
}

TEST(StripCurve, ANegativeCalibrationTurnsTheCurveOver)
{
    const Setting setting;
    const SampleStore samples(QVector<std::int16_t>{0, 0, 100, 100});
    StripView view = viewOf(Int16, samples.count(), setting);
    view.scaleMin = -100.0;
    view.scaleMax = 0.0;
    view.calibOffset = 0.0;
    view.calibFactor = -1.0;
    const plain::Pixels mask = litPixels(shippedPicture(samples, view, setting));
    const int top = int(view.rect.top());
    const int bottom = int(view.rect.bottom()) - 1;
    const auto left = spanOf(mask, int(view.rect.left()) + 20);
    const auto right = spanOf(mask, int(view.rect.right()) - 100);
    EXPECT_LE(std::abs(left.first - top), 1);
    EXPECT_LE(std::abs(right.second - bottom), 1);
}

TEST(StripCurve, ConstantsLookLikeThePolyline)
{
    for (const double width : {1.0, 3.0}) {
        for (const int count : {2, 50, 500, 3000, 50000}) {
            for (const double value : {-1.0, 0.3, 1.0}) {
                Setting setting;
                setting.width = width;
                const std::string what = "constant-" + std::to_string(value) + "-" + std::to_string(count) +
                                         "-w" + std::to_string(width);
                expectSameCurve(Double, Values(std::size_t(count), value), setting, what);
                setting.connected = false;
                if (width == 1.0 || count <= 3000)
                    expectSameCurve(Double, Values(std::size_t(count), value), setting, what + "-points");
            }
        }
    }
}

/// Replaces samples by NaN and infinite ones: stretches of up to `longest` of them, each after about `apart`.
void addGaps(Values& values, int apart, int longest)
{
    std::mt19937_64 generator(3);
    const std::array<double, 3> gaps = {NotANumber, Infinity, -Infinity};
    const auto upTo = [&](int greatest) { return 1 + std::size_t(generator() % std::size_t(greatest)); };
    for (std::size_t i = upTo(2 * apart); i < values.size(); i += upTo(2 * apart)) {
        const std::size_t end = std::min(i + upTo(longest), values.size());
        for (; i < end; ++i)
            values[i] = gaps[i % gaps.size()];
    }
}

TEST(StripCurve, GapsLookLikeThoseOfThePolyline)
{
    struct Gaps
    {
        int apart;
        int longest;
    };
    for (const Gaps& gaps : {Gaps{1, 1}, Gaps{3, 2}, Gaps{40, 30}, Gaps{1000, 400}, Gaps{5000, 20000}}) {
        for (std::size_t i = 0; i < AllShapes.size(); ++i) {
            for (const int count : {50, 350, 1000, 5000, 30000}) {
                Values values = valuesOf(AllShapes[i], count);
                addGaps(values, gaps.apart, gaps.longest);
                const std::string what = std::string(ShapeNames[i]) + "-" + std::to_string(count) + "-gaps" +
                                         std::to_string(gaps.apart);
                Setting setting;
                expectSameCurve(Double, values, setting, what);
                setting.connected = false;
                expectSameCurve(Double, values, setting, what + "-points");
                if (count > 5000)
                    continue;
                for (const double width : {3.0, 4.0}) {
                    setting.width = width;
                    setting.connected = false;
                    expectSameCurve(Double, values, setting, what + "-wide-points");
                    setting.connected = true;
                    expectSameCurve(Double, values, setting, what + "-wide");
                }
            }
        }
    }
}

TEST(StripCurve, AGapIsNotCrossed)
{
    for (const int count : {10, 1000, 100000}) {
        Values values(std::size_t(count), 0.0);
        for (int i = count * 2 / 5; i < count * 3 / 5; ++i)
            values[std::size_t(i)] = NotANumber;
        const Setting setting;
        const SampleStore samples(Double.make(values, Double.middle, Double.half));
        const plain::Pixels mask =
            litPixels(shippedPicture(samples, viewOf(Double, count, setting), setting));
        const int centre = setting.size.width() / 2;
        EXPECT_GT(spanOf(mask, centre).first, spanOf(mask, centre).second) << count;
        EXPECT_LE(spanOf(mask, centre / 2).first, spanOf(mask, centre / 2).second) << count;
        EXPECT_LE(spanOf(mask, centre * 3 / 2).first, spanOf(mask, centre * 3 / 2).second) << count;
    }
}

TEST(StripCurve, NothingIsDrawnOfNoFiniteSamples)
{
    for (const int count : {0, 1, 2, 1000, 200000}) {
        for (const bool connected : {true, false}) {
            Setting setting;
            setting.connected = connected;
            const SampleStore samples(QVector<double>(count, NotANumber));
            const QImage image = shippedPicture(samples, viewOf(Double, count, setting), setting);
            EXPECT_EQ(image, blankImage(setting)) << count;
        }
    }
}

TEST(StripCurve, ARangeWithoutSamplesDrawsNothing)
{
    const Setting setting;
    const SampleStore samples(QVector<double>(100, Double.middle));
    for (const int first : {0, 50, 100}) {
        StripView view = viewOf(Double, samples.count(), setting);
        view.first = first;
        view.count = 0;
        EXPECT_EQ(shippedPicture(samples, view, setting), blankImage(setting)) << first;
    }
}

TEST(StripCurve, OneSampleIsAPoint)
{
    for (const bool connected : {true, false}) {
        for (const double ratio : {1.0, 1.5, 2.0}) {
            for (const double width : {1.0, 3.0}) {
                Setting setting;
                setting.connected = connected;
                setting.pixelRatio = ratio;
                setting.width = width;
                const SampleStore samples(QVector<double>(7, Double.middle));
                StripView view = viewOf(Double, samples.count(), setting);
                view.first = 3;
                view.count = 1;
                expectSameCurve(samples, view, setting, "one sample");
            }
        }
    }
}

/// Only the samples of the range are drawn, and they stand at their own times.
TEST(StripCurve, PartsOfTheSamplesLookLikeTheirPolyline)
{
    std::mt19937_64 generator(11);
    const Values values = valuesOf(Shape::Walk, 400000);
    const SampleStore samples(Int16.make(values, Int16.middle, Int16.half));
    for (int round = 0; round < 40; ++round) {
        Setting setting;
        setting.size = QSize(300 + int(generator() % 400), 20 + int(generator() % 100));
        StripView view = viewOf(Int16, samples.count(), setting);
        view.count = 2 + int(std::pow(10.0, double(generator() % 5000) / 1000.0));
        view.first = int(generator() % std::size_t(samples.count() - view.count));
        // The range of times begins and ends off the samples and within or around them.
        const double seconds = view.count * view.timePerSample;
        const double part = double(generator() % 1000) / 1000.0;
        view.horzMin = view.timeOffset + view.first * view.timePerSample + (part - 0.5) * seconds;
        view.horzMax = view.horzMin + (0.3 + double(generator() % 1000) / 1000.0) * seconds;
        expectSameCurve(samples, view, setting,
                        "part-" + std::to_string(view.first) + "-" + std::to_string(view.count));
    }
}

/// What a sink is given, gaps as points that are not numbers.
class Recorder final : public StripSink
{
public:
    std::vector<QPointF> points;

    void lineTo(double x, double y) override { points.emplace_back(x, y); }
    void bar(double x, double high, double low) override
    {
        lineTo(x, high);
        lineTo(x, low);
    }
    void gap() override { lineTo(NotANumber, NotANumber); }
};

double distanceToLine(const QPointF& point, const QPointF& start, const QPointF& end)
{
    const QPointF step = end - start;
    const double length = QPointF::dotProduct(step, step);
    const double part = length > 0.0 ? QPointF::dotProduct(point - start, step) / length : 0.0;
    const QPointF aside = point - start - step * std::clamp(part, 0.0, 1.0);
    return std::hypot(aside.x(), aside.y());
}

/// Of the points of one polyline from the lines of another, both from left to right.
double greatestDistance(const std::vector<QPointF>& points, const std::vector<QPointF>& line, double reach)
{
    double greatest = 0.0;
    std::size_t from = 0;
    for (const QPointF& point : points) {
        while (from + 2 < line.size() && line[from + 1].x() < point.x() - reach)
            ++from;
        double least = Infinity;
        for (std::size_t i = from; i + 1 < line.size(); ++i) {
            if (line[i].x() > point.x() + reach)
                break;
            least = std::min(least, distanceToLine(point, line[i], line[i + 1]));
        }
        greatest = std::max(greatest, least);
    }
    return greatest;
}

/// Without its gap at the end, the only one.
std::vector<QPointF> lineOf(const Recorder& recorder)
{
    return {recorder.points.begin(), recorder.points.end() - 1};
}

TEST(StripCurveTolerance, KeptPointsStayWithinTheTolerance)
{
    for (const Shape shape : AllShapes) {
        for (const double tolerance : {0.0, 0.5, 2.0, 25.0}) {
            Recorder kept;
            ToleranceFilter filter(kept, tolerance);
            std::vector<QPointF> all;
            const Values values = valuesOf(shape, 2000);
            for (std::size_t i = 0; i < values.size(); ++i) {
                all.emplace_back(0.4 * double(i), 100.0 * values[i]);
                filter.lineTo(all.back().x(), all.back().y());
            }
            filter.gap();
            const std::vector<QPointF> line = lineOf(kept);
            EXPECT_EQ(line.front(), all.front());
            EXPECT_EQ(line.back(), all.back());
            EXPECT_LE(line.size(), all.size());
            EXPECT_LE(greatestDistance(all, line, tolerance + 1.0), tolerance + 1e-9);
        }
    }
}

TEST(StripCurveTolerance, FewPointsAreKeptOfSmoothCurves)
{
    Recorder kept;
    ToleranceFilter filter(kept, 0.5);
    for (int i = 0; i < 1000; ++i)
        filter.lineTo(i, 50.0 * std::sin(i * 0.01));
    filter.gap();
    EXPECT_LT(kept.points.size(), 100u);
    EXPECT_GT(kept.points.size(), 10u);
}

TEST(StripCurveTolerance, GapsAreKept)
{
    Recorder kept;
    ToleranceFilter filter(kept, 5.0);
    for (int i = 0; i < 6; ++i) {
        if (i == 3)
            filter.gap();
        filter.lineTo(i, 1.0);
    }
    filter.gap();
    ASSERT_EQ(kept.points.size(), 6u);
    EXPECT_EQ(kept.points[0], QPointF(0.0, 1.0));
    EXPECT_EQ(kept.points[1], QPointF(2.0, 1.0));
    EXPECT_TRUE(std::isnan(kept.points[2].x()));
    EXPECT_EQ(kept.points[3], QPointF(3.0, 1.0));
    EXPECT_EQ(kept.points[4], QPointF(5.0, 1.0));
    EXPECT_TRUE(std::isnan(kept.points[5].x()));
}

TEST(StripCurveTolerance, FastPicturesStayWithinTheTolerance)
{
    for (const Shape shape : AllShapes) {
        for (const int count : {50, 350, 1000, 5000, 70001}) {
            for (const double tolerance : {1.5, 4.0}) {
                Setting setting;
                setting.tolerance = tolerance;
                const SampleStore samples(Int16.make(valuesOf(shape, count), Int16.middle, Int16.half));
                const StripView view = viewOf(Int16, count, setting);
                const plain::Pixels fast = litPixels(shippedPicture(samples, view, setting));
                const plain::Pixels all = plainPicture(samples, view, setting);
                // A pixel more, since both are drawn on whole ones.
                const int reach = int(std::ceil(tolerance)) + 1;
                EXPECT_EQ(farPixels(fast, all, reach), 0) << int(shape) << ' ' << count << ' ' << tolerance;
                EXPECT_EQ(farPixels(all, fast, reach), 0) << int(shape) << ' ' << count << ' ' << tolerance;
            }
        }
    }
}

TEST(StripCurve, DrawsOnlyWithinItsRectangle)
{
    for (const double width : {1.0, 9.0}) {
        for (const int count : {50, 5000}) {
            Setting setting;
            setting.width = width;
            setting.shown = 0.3;
            const SampleStore samples(Int16.make(valuesOf(Shape::Noise, count), Int16.middle, Int16.half));
            StripView view = viewOf(Int16, count, setting);
            view.horzMin += 0.2 * count * view.timePerSample;
            view.horzMax -= 0.2 * count * view.timePerSample;
            QImage image = shippedPicture(samples, view, setting);
            QPainter painter(&image);
            painter.setCompositionMode(QPainter::CompositionMode_Clear);
            painter.fillRect(view.rect, Qt::black);
            painter.end();
            EXPECT_EQ(image, blankImage(setting));
        }
    }
}

TEST(StripCurve, TranslucentPensCoverNoPixelTwice)
{
    for (const int count : {713, 5000, 200000}) {
        Setting setting;
        setting.width = 3.0;
        setting.color = QColor(0, 0, 0, 100);
        const SampleStore samples(Int16.make(valuesOf(Shape::Noise, count), Int16.middle, Int16.half));
        const QImage image = shippedPicture(samples, viewOf(Int16, count, setting), setting);
        int greatest = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                greatest = std::max(greatest, qAlpha(image.pixel(x, y)));
        }
        EXPECT_EQ(greatest, 100) << count;
    }
}

TEST(StripCurve, ViewsWithoutExtentDrawNothing)
{
    const Setting setting;
    const SampleStore samples(QVector<double>(100, 0.0));
    const StripView good = viewOf({arrayOf<double>, 0.0, 1.0}, samples.count(), setting);
    ASSERT_NE(shippedPicture(samples, good, setting), blankImage(setting));
    const std::array<std::function<void(StripView&)>, 9> faults = {
        [](StripView& view) { view.horzMax = view.horzMin; },
        [](StripView& view) { view.scaleMax = view.scaleMin; },
        [](StripView& view) { view.horzMin = NotANumber; },
        [](StripView& view) { view.scaleMax = Infinity; },
        [](StripView& view) { view.calibFactor = 0.0; },
        [](StripView& view) { view.calibOffset = NotANumber; },
        [](StripView& view) { view.timePerSample = 0.0; },
        [](StripView& view) { view.timeOffset = Infinity; },
        [](StripView& view) { view.rect.setWidth(0.0); },
    };
    for (std::size_t i = 0; i < faults.size(); ++i) {
        StripView view = good;
        faults[i](view);
        EXPECT_EQ(shippedPicture(samples, view, setting), blankImage(setting)) << i;
    }
}

} // namespace
