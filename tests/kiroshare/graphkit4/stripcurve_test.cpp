#include "stripcomparison.h"

#include "stripsink.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace
{

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

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
/// A row that a single sample of a million stands on, in the midst of the others, is shown.
/// Samples that rest at few heights for long and jump between them: no row between is lit, also not where
/// most blocks of samples hold a jump.
/// The one sample at the edge of the scale is found among all others of its column.
/// Numbers so huge that places are not found by one multiplication.
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
