#include "columnfill.h"
#include "curvetrace.h"
#include "linecanvas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <random>

namespace
{

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

using Points = QVector<QPointF>;

/// Values are pixels, 100 by 50 of them; upwards is upwards.
DeviceView testView()
{
    DeviceView view;
    view.horz = {0.0, 0.0, 1.0};
    view.vert = {0.0, 50.0, -1.0};
    view.clip = QRectF(0.0, 0.0, 100.0, 50.0);
    return view;
}

Curve curveOf(const Points& points)
{
    Curve curve;
    curve.setData(points);
    return curve;
}

QVector<Points> runsOf(const CurveTrace& trace)
{
    QVector<Points> runs;
    for (int run = 0; run < trace.runCount(); ++run)
        runs << trace.points().mid(trace.runStart(run), trace.runEnd(run) - trace.runStart(run));
    return runs;
}

struct Span
{
    double top = Infinity;
    double bottom = -Infinity;
};
using Spans = std::map<int, Span>;

/// What a polyline covers of each pixel column, from the crossings of its lines with the columns' borders.
void addSpans(Spans& spans, const Points& line)
{
    for (int i = 0; i < line.size(); ++i) {
        QPointF from = line[std::max(i - 1, 0)];
        QPointF to = line[i];
        if (from.x() > to.x())
            std::swap(from, to);
        for (int column = int(std::floor(from.x())); column <= int(std::floor(to.x())); ++column) {
            for (const double border : {double(column), column + 1.0}) {
                const double x = std::clamp(border, from.x(), to.x());
                const double share = to.x() > from.x() ? (x - from.x()) / (to.x() - from.x()) : 0.0;
                for (const double y : to.x() > from.x()
                                          ? std::vector<double>{from.y() + share * (to.y() - from.y())}
                                          : std::vector<double>{from.y(), to.y()}) {
                    spans[column].top = std::min(spans[column].top, y);
                    spans[column].bottom = std::max(spans[column].bottom, y);
                }
            }
        }
    }
}

/// How often pixels are covered by rectangles.
class Coverage
{
public:
    explicit Coverage(const std::vector<QRect>& rects)
    {
        for (const QRect& rect : rects) {
            for (int y = rect.top(); y <= rect.bottom(); ++y) {
                for (int x = rect.left(); x <= rect.right(); ++x)
                    ++m_counts[{x, y}];
            }
        }
    }
    int at(int x, int y) const
    {
        const auto found = m_counts.find({x, y});
        return found == m_counts.end() ? 0 : found->second;
    }
    int most() const
    {
        int most = 0;
        for (const auto& entry : m_counts)
            most = std::max(most, entry.second);
        return most;
    }
    int inColumn(int x) const
    {
        int count = 0;
        for (const auto& entry : m_counts)
            count += entry.first.first == x ? 1 : 0;
        return count;
    }

private:
    std::map<std::pair<int, int>, int> m_counts;
};

struct DenseRow
{
    const char* name;
    std::function<double(int)> value;
};

class DenseTraceTest : public testing::TestWithParam<DenseRow>
{
};

} // namespace

TEST(CurveTraceTest, PointsBecomePixels)
{
    const CurveTrace trace(curveOf({{0.5, 10.0}, {50.0, 20.0}, {99.0, 1.0}}), testView());
    EXPECT_EQ(runsOf(trace), (QVector<Points>{{{0.5, 40.0}, {50.0, 30.0}, {99.0, 49.0}}}));
    EXPECT_FALSE(trace.isDense());
    EXPECT_EQ(trace.ink(), 49.5 + 49.0);
}

TEST(CurveTraceTest, NonFinitePointsAreGaps)
{
    const CurveTrace trace(curveOf({{1.0, 10.0},
                                    {5.0, 10.0},
                                    {7.0, NotANumber},
                                    {9.0, 20.0},
                                    {11.0, Infinity},
                                    {NotANumber, 5.0},
                                    {20.0, 30.0},
                                    {25.0, 30.0}}),
                           testView());
    EXPECT_EQ(runsOf(trace),
              (QVector<Points>{{{1.0, 40.0}, {5.0, 40.0}}, {{9.0, 30.0}}, {{20.0, 20.0}, {25.0, 20.0}}}));
}

TEST(CurveTraceTest, LinesAreCutAtTheClip)
{
    const CurveTrace trace(curveOf({{-100.0, 25.0}, {50.0, 25.0}, {50.0, 75.0}, {60.0, 75.0}, {60.0, 0.0}}),
                           testView());
    EXPECT_EQ(runsOf(trace),
              (QVector<Points>{{{0.0, 25.0}, {50.0, 25.0}, {50.0, 0.0}}, {{60.0, 0.0}, {60.0, 50.0}}}));
}

TEST(CurveTraceTest, FarPointsKeepTheDirectionOfTheirLines)
{
    const CurveTrace trace(curveOf({{-1e9, -1e9}, {1e9, 1e9}}), testView());
    ASSERT_EQ(trace.runCount(), 1);
    ASSERT_EQ(trace.points().size(), 2);
    EXPECT_NEAR(trace.points()[0].x(), 0.0, 1e-3);
    EXPECT_NEAR(trace.points()[0].y(), 50.0, 1e-3);
    EXPECT_NEAR(trace.points()[1].x(), 50.0, 1e-3);
    EXPECT_NEAR(trace.points()[1].y(), 0.0, 1e-3);
}

TEST(CurveTraceTest, HugeValuesAreHarmless)
{
    const double largest = std::numeric_limits<double>::max();
    const CurveTrace trace(curveOf({{-largest, -largest}, {largest, largest}, {50.0, 25.0}, {0.0, -largest}}),
                           testView());
    for (const QPointF& point : trace.points())
        EXPECT_TRUE(testView().clip.adjusted(-1, -1, 1, 1).contains(point));
}

TEST(CurveTraceTest, OutOfViewIsEmpty)
{
    EXPECT_EQ(CurveTrace(curveOf({{10.0, 100.0}, {20.0, 120.0}}), testView()).runCount(), 0);
    EXPECT_EQ(CurveTrace(curveOf({{-10.0, 10.0}, {-20.0, 10.0}}), testView()).runCount(), 0);
    EXPECT_EQ(CurveTrace(curveOf({}), testView()).runCount(), 0);
    EXPECT_EQ(CurveTrace(curveOf({{NotANumber, 1.0}}), testView()).runCount(), 0);
    EXPECT_EQ(CurveTrace(curveOf({{-5.0, 1.0}, {200.0, 90.0}}), testView()).runCount(), 1);
}

TEST(CurveTraceTest, PointsWithinHalfAPixelAreLeftOutOfALoop)
{
    Points points;
    for (int i = 0; i <= 100000; ++i) {
        const double angle = i * 6.283185307179586 / 100000.0;
        points << QPointF(50.0 + 20.0 * std::cos(angle), 25.0 + 20.0 * std::sin(angle));
    }
    const CurveTrace trace(curveOf(points), testView());
    EXPECT_EQ(trace.runCount(), 1);
    EXPECT_LT(trace.points().size(), 300);
    EXPECT_NEAR(trace.ink(), 20.0 * 6.283 * 0.9, 10.0);
    for (const QPointF& point : trace.points())
        EXPECT_NEAR(std::hypot(point.x() - 50.0, point.y() - 25.0), 20.0, 1e-9);
}

TEST(CurveTraceTest, OnlyPointsInViewAndTheirNeighboursAreLookedAt)
{
    Points points;
    for (int i = 0; i < 1000; ++i)
        points << QPointF(i, 0.0);
    const Curve curve = curveOf(points);
    PointRange range = pointsInView(curve, testView().horz, 100.0, 199.0);
    EXPECT_EQ(range.first, 99);
    EXPECT_EQ(range.last, 201);
    range = pointsInView(curve, {0.0, 999.0, -1.0}, 100.0, 199.0);
    EXPECT_EQ(range.first, 799);
    EXPECT_EQ(range.last, 901);
    range = pointsInView(curve, testView().horz, 5000.0, 6000.0);
    EXPECT_EQ(range.first, 999);
    EXPECT_EQ(range.last, 1000);
}

TEST_P(DenseTraceTest, EachColumnIsThatOfTheWholeLineToWithinAPixel)
{
    Points points;
    for (int i = 0; i < 20000; ++i)
        points << QPointF(i * 0.005, GetParam().value(i));
    for (const double direction : {1.0, -1.0}) {
        DeviceView view = testView();
        view.horz = {0.0, direction > 0.0 ? 0.0 : 100.0, direction};
        view.clip.adjust(-2.0, 0.0, 2.0, 0.0);
        const Curve curve = curveOf(points);
        const CurveTrace trace(curve, view);
        EXPECT_TRUE(trace.isDense());
        EXPECT_LE(trace.points().size(), 104 * 4);
        Spans reduced;
        for (const Points& run : runsOf(trace))
            addSpans(reduced, run);
        Spans whole;
        Points line;
        for (const QPointF& point : points) {
            if (std::isfinite(point.y())) {
                line << view.at(point);
            } else {
                addSpans(whole, line);
                line.clear();
            }
        }
        addSpans(whole, line);
        for (const auto& [column, span] : whole) {
            if (column < 0 || column > 99)
                continue;
            ASSERT_TRUE(reduced.count(column)) << column;
            EXPECT_NEAR(std::max(reduced[column].top, 0.0), std::max(span.top, 0.0), 1.0) << column;
            EXPECT_NEAR(std::min(reduced[column].bottom, 50.0), std::min(span.bottom, 50.0), 1.0) << column;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Signals, DenseTraceTest,
    testing::Values(DenseRow{"Constant", [](int) { return 25.0; }},
                    DenseRow{"Slope", [](int i) { return i * 0.002; }},
                    DenseRow{"Sine", [](int i) { return 25.0 + 20.0 * std::sin(i * 0.001); }},
                    DenseRow{"Zigzag", [](int i) { return i % 2 ? 5.0 : 45.0; }},
                    DenseRow{"Spikes", [](int i) { return i % 777 == 0 ? 45.0 : 10.0; }},
                    DenseRow{"Gaps", [](int i) { return i / 1500 % 2 ? NotANumber : 10.0 + i * 0.001; }},
                    DenseRow{"Noise",
                             [](int i) {
                                 std::minstd_rand generator(unsigned(i) + 1);
                                 generator.discard(3);
                                 return std::uniform_real_distribution<double>(1.0, 49.0)(generator);
                             }}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(PixelsOfPointsTest, FewPointsAreAllGiven)
{
    const QVector<QPointF> pixels =
        pixelsOfPoints(curveOf({{1.2, 10.0}, {1.3, 10.0}, {NotANumber, 1.0}, {500.0, 1.0}}), testView());
    EXPECT_EQ(pixels, (Points{{1.5, 40.5}, {1.5, 40.5}}));
}

TEST(PixelsOfPointsTest, OfManyPointsEachPixelIsGivenOnce)
{
    Points points;
    for (int i = 0; i < 100000; ++i)
        points << QPointF(i * 37 % 100 + 0.25, i / 7 % 50 + 0.25);
    QVector<QPointF> pixels = pixelsOfPoints(curveOf(points), testView());
    std::sort(pixels.begin(), pixels.end(), [](const QPointF& a, const QPointF& b) {
        return a.x() != b.x() ? a.x() < b.x() : a.y() < b.y();
    });
    EXPECT_EQ(std::adjacent_find(pixels.begin(), pixels.end()), pixels.end());
    QVector<bool> expected(100 * 50, false);
    for (const QPointF& point : points)
        expected[int(point.x()) * 50 + int(50.0 - point.y())] = true;
    EXPECT_EQ(pixels.size(), expected.count(true));
}

TEST(ColumnFillTest, WidePenCoversItsWidth)
{
    Points points;
    for (int i = 0; i <= 4000; ++i)
        points << QPointF(20.0 + i * 0.01, 25.2);
    const CurveTrace trace(curveOf(points), testView());
    ASSERT_TRUE(trace.isDense());
    const Coverage coverage(columnsOf(trace, QRect(0, 0, 100, 50), 5.0, {}));
    EXPECT_EQ(coverage.most(), 1);
    for (int x = 0; x < 100; ++x) {
        // The ends are round.
        const int height = coverage.inColumn(x);
        EXPECT_TRUE(x < 20 || x > 60 || height == 5) << x;
        EXPECT_TRUE((x >= 18 && x <= 62) || height == 0) << x;
        EXPECT_TRUE(x != 18 || (height >= 1 && height < 5));
    }
    for (int y = 22; y <= 26; ++y)
        EXPECT_EQ(coverage.at(40, y), 1) << y;
}

TEST(ColumnFillTest, NothingIsCoveredTwice)
{
    Points points;
    for (int i = 0; i < 10000; ++i)
        points << QPointF(i * 0.01, i % 3 == 0 ? 10.0 : i % 500 * 0.08);
    const CurveTrace trace(curveOf(points), testView());
    const Coverage coverage(columnsOf(trace, QRect(0, 0, 100, 50), 6.0, {}));
    EXPECT_EQ(coverage.most(), 1);
    EXPECT_EQ(coverage.at(52, 25), 1);
}

TEST(ColumnFillTest, DashesLeaveGapsOfTheirLength)
{
    Points points;
    for (int i = 0; i <= 10000; ++i)
        points << QPointF(i * 0.01, i % 2 ? 25.2 : 25.8);
    const CurveTrace trace(curveOf(points), testView());
    const Coverage coverage(columnsOf(trace, QRect(0, 0, 100, 50), 2.0, {4.0, 2.0}));
    int first = -5;
    while (coverage.inColumn(first) == 0 && first < 5)
        ++first;
    // Eight pixels of stroke and four of gap in turn, from the first column on.
    for (int x = first; x < 95; ++x)
        EXPECT_EQ(coverage.inColumn(x) > 0, (x - first) % 12 < 8) << x;
}

TEST(ColumnFillTest, SteepPartsAreNotLostInGaps)
{
    Points points;
    for (int i = 0; i <= 10000; ++i)
        points << QPointF(i * 0.01, i < 5050 ? 5.0 : 45.0);
    for (int shift = 0; shift < 12; ++shift) {
        const CurveTrace trace(curveOf(points.mid(shift * 100)), testView());
        EXPECT_GE(Coverage(columnsOf(trace, QRect(0, 0, 100, 50), 2.0, {4.0, 2.0})).inColumn(50), 40)
            << shift;
    }
}

class ColumnFillOfManyTest : public testing::TestWithParam<double>
{
};

/// Narrow and wide lines, some beside the canvas, from left to right or in any order.
TEST_P(ColumnFillOfManyTest, LightsWhatTheLinesLightOneByOne)
{
    const QRect canvas(0, 0, 100, 50);
    for (unsigned seed = 0; seed < 40; ++seed) {
        std::minstd_rand generator(seed + 1);
        std::uniform_real_distribution<double> heights(-10.0, 60.0);
        std::uniform_real_distribution<double> places(-5.0, 105.0);
        std::uniform_real_distribution<double> widths(0.1, seed % 5 == 0 ? 20.0 : 2.0);
        ColumnFill fill(canvas, GetParam());
        std::vector<QRect> oneByOne;
        for (int line = 0; line < 60; ++line) {
            const double start = seed % 2 == 0 ? line * 1.7 : places(generator);
            const double width = widths(generator);
            Points points;
            for (int i = 0; i < 80; ++i)
                points << QPointF(start + width * i / 80.0, i == 40 ? NotANumber : heights(generator));
            const CurveTrace trace(curveOf(points), testView());
            fill.add(trace);
            const std::vector<QRect> columns = columnsOf(trace, canvas, GetParam(), {});
            oneByOne.insert(oneByOne.end(), columns.begin(), columns.end());
        }
        const Coverage together(fill.rects());
        const Coverage expected(oneByOne);
        EXPECT_EQ(together.most(), 1);
        EXPECT_GT(expected.most(), 1);
        for (int y = -10; y < 60; ++y) {
            for (int x = -10; x < 110; ++x)
                ASSERT_EQ(together.at(x, y) > 0, expected.at(x, y) > 0) << seed << ": " << x << ", " << y;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Widths, ColumnFillOfManyTest, testing::Values(1.0, 2.0, 3.0, 4.0, 7.5));

TEST(ColumnFillTest, WithoutLinesThereIsNothing)
{
    EXPECT_TRUE(ColumnFill(QRect(0, 0, 100, 50), 2.0).rects().empty());
}

TEST(LineCanvasTest, LightsOnePixelOfEachColumnOrRow)
{
    LineCanvas canvas(QRect(10, 10, 8, 6));
    const QPointF line[] = {{10.5, 11.5}, {17.5, 15.5}};
    canvas.drawPolyline(line, 2, 1, qRgb(255, 0, 0));
    for (int x = 0; x < 8; ++x) {
        int lit = 0;
        for (int y = 0; y < 6; ++y) {
            if (canvas.image().pixel(x, y) == 0)
                continue;
            ++lit;
            EXPECT_EQ(canvas.image().pixel(x, y), qRgb(255, 0, 0));
            EXPECT_NEAR(y + 0.5, 1.5 + x * 4.0 / 7.0, 0.5001);
        }
        EXPECT_EQ(lit, 1) << x;
    }
}

TEST(LineCanvasTest, WideLinesAreAsThickAsThePen)
{
    LineCanvas canvas(QRect(0, 0, 40, 40));
    const QPointF corner[] = {{10.5, 30.5}, {10.5, 10.5}, {30.5, 10.5}};
    canvas.drawPolyline(corner, 3, 3, qRgb(0, 0, 255));
    for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 40; ++x) {
            const bool upright = x >= 9 && x <= 11 && y >= 9 && y <= 31;
            const bool flat = y >= 9 && y <= 11 && x >= 9 && x <= 31;
            EXPECT_EQ(canvas.image().pixel(x, y) != 0, upright || flat) << x << " " << y;
        }
    }
}

TEST(LineCanvasTest, LinesBesideItAreHarmless)
{
    LineCanvas canvas(QRect(5, 5, 10, 10));
    const QPointF line[] = {{-300.0, -200.0}, {400.0, 500.0}, {400.0, -100.0},
                            {-50.0, 8.5},     {8.5, -50.0},   {9.5, 400.0}};
    canvas.drawPolyline(line, 6, 1, qRgb(0, 255, 0));
    canvas.drawPolyline(line, 6, 7, qRgb(0, 255, 0));
    const QPointF dot[] = {{9.5, 9.5}};
    canvas.drawPolyline(dot, 1, 1, qRgb(1, 2, 3));
    EXPECT_EQ(canvas.image().pixel(4, 4), qRgb(1, 2, 3));
}

TEST(LineCanvasTest, LinesAreTheSameWhereverTheCanvasEnds)
{
    std::mt19937 generator(5);
    std::uniform_real_distribution<double> place(10.0, 190.0);
    for (int i = 0; i < 300; ++i) {
        const QPointF line[] = {{place(generator), place(generator)}, {place(generator), place(generator)}};
        const int width = 1 + i % 4;
        LineCanvas whole(QRect(0, 0, 200, 200));
        LineCanvas part(QRect(60, 70, 50, 40)); // nearly every line leaves it
        whole.drawPolyline(line, 2, width, qRgb(255, 0, 0));
        part.drawPolyline(line, 2, width, qRgb(255, 0, 0));
        ASSERT_EQ(whole.image().copy(part.rect()), part.image()) << i;
    }
}
