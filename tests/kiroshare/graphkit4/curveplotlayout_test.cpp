#include "curveplotlayout.h"

#include <QFontMetricsF>
#include <QLocale>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{

QFont testFont(int pixels = 12)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(pixels);
    return font;
}

CurvePlotContents testContents(int width = 600, int height = 400)
{
    CurvePlotContents contents;
    contents.rect = QRect(0, 0, width, height);
    contents.horz = {0.0, 3.0, 0.5, 0.0, -1, QStringLiteral("Time [s]")};
    contents.vert = {-20.0, 20.0, 5.0, 0.0, -1, QStringLiteral("Right eye horizontal [deg]")};
    contents.title = QStringLiteral("Main sequence diagram");
    contents.titleFont = testFont(16);
    contents.axisFont = testFont();
    contents.axisTitleFont = testFont();
    return contents;
}

QStringList textsOf(const QVector<CurvePlotLayout::Number>& numbers)
{
    QStringList texts;
    for (const CurvePlotLayout::Number& number : numbers)
        texts << number.text;
    return texts;
}

QStringList texts(std::initializer_list<const char*> list)
{
    QStringList all;
    for (const char* text : list)
        all << QString::fromLatin1(text);
    return all;
}

/// All places with something in them, the area among them.
QVector<QRectF> placesOf(const CurvePlotLayout& layout)
{
    QVector<QRectF> places{QRectF(layout.area())};
    for (const auto* numbers : {&layout.horzNumbers(), &layout.vertNumbers()}) {
        for (const CurvePlotLayout::Number& number : *numbers)
            places << number.place;
    }
    for (const auto* title : {&layout.title(), &layout.horzTitle(), &layout.vertTitle()}) {
        if (!title->lines.isEmpty())
            places << title->place;
    }
    return places;
}

class CurvePlotLayoutTest : public testing::Test
{
protected:
    void SetUp() override { QLocale::setDefault(QLocale::c()); }
};

struct MappingRow
{
    const char* name;
    double min;
    double max;
    int first;
    int last;
};

class AxisMappingTest : public testing::TestWithParam<MappingRow>
{
};

} // namespace

TEST_P(AxisMappingTest, PixelsAndValuesUndoEachOther)
{
    const MappingRow& row = GetParam();
    const AxisMapping mapping(row.min, row.max, row.first, row.last);
    const int low = std::min(row.first, row.last) - 100;
    const int high = std::max(row.first, row.last) + 100;
    for (int pixel = low; pixel <= high; ++pixel)
        ASSERT_EQ(mapping.pixel(mapping.value(pixel)), pixel);
    EXPECT_EQ(mapping.value(row.first), row.min);
    EXPECT_EQ(mapping.value(row.last), row.max);
}

INSTANTIATE_TEST_SUITE_P(
    Ranges, AxisMappingTest,
    testing::Values(MappingRow{"Plain", 0.0, 3.0, 80, 1500}, MappingRow{"Upwards", -20.0, 20.0, 399, 10},
                    MappingRow{"Reversed", 5.0, -1.0, 3, 700},
                    MappingRow{"FarFromZero", 86400.0, 86400.1, 50, 3000},
                    MappingRow{"Tiny", 1e-200, 2e-200, 0, 800}, MappingRow{"Huge", -1e300, 1e300, 0, 800},
                    MappingRow{"OddThird", 0.0, 1.0 / 3.0, 7, 1008}, MappingRow{"TwoPixels", 0.0, 1.0, 0, 1}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(AxisMappingTest, ValuesLieAtTheCentresOfPixels)
{
    const AxisMapping mapping(0.0, 10.0, 100, 200);
    EXPECT_EQ(mapping.position(0.0), 100.5);
    EXPECT_EQ(mapping.position(10.0), 200.5);
    EXPECT_EQ(mapping.pixel(0.04), 100);
    EXPECT_EQ(mapping.pixel(0.05), 101);
    EXPECT_EQ(mapping.pixel(-0.06), 99);
    EXPECT_DOUBLE_EQ(mapping.value(150), 5.0);
    EXPECT_DOUBLE_EQ(mapping.valueAt(150.0), 4.95);
}

TEST(AxisMappingTest, DistancesKeepTheirSignOnAnyAxis)
{
    EXPECT_DOUBLE_EQ(AxisMapping(0.0, 10.0, 100, 200).distance(-20), -2.0);
    EXPECT_DOUBLE_EQ(AxisMapping(0.0, 10.0, 200, 100).distance(20), 2.0);
    EXPECT_DOUBLE_EQ(AxisMapping(10.0, 0.0, 100, 200).distance(20), 2.0);
}

TEST(AxisMappingTest, FarPixelsAreHeldWithinABillion)
{
    const AxisMapping mapping(0.0, 1e-9, 0, 1000);
    EXPECT_EQ(mapping.pixel(1e300), 1000000000);
    EXPECT_EQ(mapping.pixel(-std::numeric_limits<double>::infinity()), -1000000000);
    EXPECT_EQ(mapping.pixel(std::numeric_limits<double>::quiet_NaN()), -1000000000);
}

TEST(AxisMappingTest, RangeOfNothingIsWidenedAroundItsMiddle)
{
    const AxisMapping mapping(3.0, 3.0, 0, 100);
    EXPECT_EQ(mapping.min(), 2.5);
    EXPECT_EQ(mapping.max(), 3.5);
    EXPECT_EQ(mapping.pixel(3.0), 50);
    for (const double value : {1e300, -1e300, 1e-300, 86400.0}) {
        const AxisMapping other(value, value, 0, 100);
        EXPECT_LT(other.min(), value) << value;
        EXPECT_GT(other.max(), value) << value;
        EXPECT_EQ(other.pixel(value), 50) << value;
    }
}

TEST(CurvePlotAxisTest, GridDividesTheLimitsIntoFiveToTenParts)
{
    const auto gridOf = [](double min, double max) {
        CurvePlotAxis axis;
        axis.min = min;
        axis.max = max;
        return axis.roundGrid();
    };
    EXPECT_EQ(gridOf(0.0, 50.0), 5.0);
    EXPECT_EQ(gridOf(0.0, 500.0), 50.0);
    EXPECT_EQ(gridOf(0.0, 5.0), 0.5);
    EXPECT_EQ(gridOf(0.0, 37.3), 5.0);
    EXPECT_EQ(gridOf(12.0, -12.0), 5.0);
    EXPECT_EQ(gridOf(0.0, 0.012), 0.002);
    EXPECT_EQ(gridOf(0.0, 0.0), 0.1);
}

TEST_F(CurvePlotLayoutTest, NumbersStandAtTheGridWithAsManyDecimalsAsItNeeds)
{
    const CurvePlotLayout layout(testContents());
    EXPECT_EQ(textsOf(layout.horzNumbers()), texts({"0.0", "0.5", "1.0", "1.5", "2.0", "2.5", "3.0"}));
    EXPECT_EQ(textsOf(layout.vertNumbers()), texts({"-20", "-15", "-10", "-5", "0", "5", "10", "15", "20"}));
    EXPECT_EQ(layout.horzGridLines().size(), 7);
    EXPECT_EQ(layout.vertGridLines().size(), 9);
    for (const CurvePlotLayout::Number& number : layout.vertNumbers())
        EXPECT_NEAR(number.place.center().y(), layout.vert().position(number.value), 1e-9);
    for (const CurvePlotLayout::Number& number : layout.horzNumbers())
        EXPECT_NEAR(number.place.center().x(), layout.horz().position(number.value), 1e-9);
}

TEST_F(CurvePlotLayoutTest, LimitsAreAtTheOutermostPixels)
{
    const CurvePlotLayout layout(testContents());
    EXPECT_EQ(layout.horz().pixel(0.0), layout.area().left());
    EXPECT_EQ(layout.horz().pixel(3.0), layout.area().right());
    EXPECT_EQ(layout.vert().pixel(20.0), layout.area().top());
    EXPECT_EQ(layout.vert().pixel(-20.0), layout.area().bottom());
}

TEST_F(CurvePlotLayoutTest, WhereRoomIsShortNumbersStandAtRoundMultiplesOfTheGrid)
{
    CurvePlotContents contents = testContents(600, 80);
    contents.title.clear();
    contents.horz.title.clear();
    const CurvePlotLayout layout(contents);
    EXPECT_EQ(textsOf(layout.vertNumbers()), texts({"-20", "0", "20"}));
}

TEST_F(CurvePlotLayoutTest, MultiplesAreCountedFromTheStartOfTheGrid)
{
    CurvePlotContents contents = testContents();
    contents.vert.grid = 10.0;
    contents.vert.gridStart = 2.5;
    const CurvePlotLayout layout(contents);
    EXPECT_EQ(textsOf(layout.vertNumbers()), texts({"-17.5", "-7.5", "2.5", "12.5"}));
}

TEST_F(CurvePlotLayoutTest, GivenPrecisionHolds)
{
    CurvePlotContents contents = testContents();
    contents.horz.precision = 3;
    contents.vert.precision = 0;
    const CurvePlotLayout layout(contents);
    EXPECT_EQ(layout.horzNumbers()[1].text, QStringLiteral("0.500"));
    EXPECT_EQ(layout.vertNumbers()[0].text, QStringLiteral("-20"));
}

TEST_F(CurvePlotLayoutTest, GridThatIsTooFineGivesWayToTheNumbers)
{
    CurvePlotContents contents = testContents();
    contents.vert.grid = 0.01;
    const CurvePlotLayout layout(contents);
    EXPECT_GE(layout.vertNumbers().size(), 5);
    ASSERT_EQ(layout.vertGridLines().size(), layout.vertNumbers().size());
    for (int i = 0; i < layout.vertGridLines().size(); ++i)
        EXPECT_EQ(layout.vertGridLines()[i], layout.vertNumbers()[i].value);
}

TEST_F(CurvePlotLayoutTest, GridThatIsTooWideLeavesAReadableScale)
{
    CurvePlotContents contents = testContents();
    contents.vert.grid = 1000.0;
    const CurvePlotLayout layout(contents);
    EXPECT_GE(layout.vertNumbers().size(), 3);
    EXPECT_EQ(layout.vertGridLines().size(), layout.vertNumbers().size());
}

TEST_F(CurvePlotLayoutTest, WithoutGridThereAreNumbersAndNoLines)
{
    CurvePlotContents contents = testContents();
    contents.vert.grid = 0.0;
    contents.horz.grid = 0.0;
    const CurvePlotLayout layout(contents);
    EXPECT_GE(layout.vertNumbers().size(), 3);
    EXPECT_GE(layout.horzNumbers().size(), 3);
    EXPECT_TRUE(layout.vertGridLines().isEmpty());
    EXPECT_TRUE(layout.horzGridLines().isEmpty());
}

TEST_F(CurvePlotLayoutTest, ReversedAxisRunsTheOtherWay)
{
    CurvePlotContents contents = testContents();
    std::swap(contents.horz.min, contents.horz.max);
    const CurvePlotLayout layout(contents);
    EXPECT_EQ(textsOf(layout.horzNumbers()), texts({"0.0", "0.5", "1.0", "1.5", "2.0", "2.5", "3.0"}));
    EXPECT_GT(layout.horzNumbers().first().place.left(), layout.horzNumbers().last().place.left());
    EXPECT_EQ(layout.horz().pixel(3.0), layout.area().left());
}

TEST_F(CurvePlotLayoutTest, TemplateMakesChartsLineUp)
{
    CurvePlotContents first = testContents();
    first.vertScaleWidthTemplate = QStringLiteral("99 999.99");
    CurvePlotContents second = first;
    second.vert = {0.0, 0.5, 0.1, 0.0, -1, QStringLiteral("Velocity")};
    CurvePlotContents without = testContents();
    EXPECT_EQ(CurvePlotLayout(first).area().left(), CurvePlotLayout(second).area().left());
    const double room =
        CurvePlotLayout(first).area().left() - CurvePlotLayout(first).vertTitle().place.right();
    EXPECT_GE(room, QFontMetricsF(testFont()).horizontalAdvance(first.vertScaleWidthTemplate));
    EXPECT_GT(CurvePlotLayout(first).area().left(), CurvePlotLayout(without).area().left());
}

TEST_F(CurvePlotLayoutTest, NumbersWiderThanTheTemplateGetTheirRoom)
{
    CurvePlotContents contents = testContents();
    contents.vertScaleWidthTemplate = QStringLiteral("9");
    const CurvePlotLayout layout(contents);
    for (const CurvePlotLayout::Number& number : layout.vertNumbers())
        EXPECT_GE(number.place.left(), layout.vertTitle().place.right());
}

TEST_F(CurvePlotLayoutTest, LongTitlesAreBrokenAndShortened)
{
    CurvePlotContents contents = testContents(500, 150);
    contents.vert.title = QStringLiteral("Right eye horizontal [deg]");
    contents.title = QString(300, QLatin1Char('m'));
    const CurvePlotLayout layout(contents);
    EXPECT_EQ(layout.vertTitle().lines, texts({"Right eye", "horizontal [deg]"}));
    ASSERT_EQ(layout.title().lines.size(), 1);
    EXPECT_TRUE(layout.title().lines[0].endsWith(QChar(0x2026)));
    EXPECT_LE(QFontMetricsF(contents.titleFont).horizontalAdvance(layout.title().lines[0]), 500.0);
}

TEST_F(CurvePlotLayoutTest, LeastSizeShowsEverything)
{
    CurvePlotContents contents = testContents();
    contents.rect = QRect(QPoint(), CurvePlotLayout::leastSize(contents));
    const CurvePlotLayout layout(contents);
    EXPECT_EQ(layout.title().lines.size(), 1);
    EXPECT_EQ(layout.horzTitle().lines.size(), 1);
    EXPECT_FALSE(layout.vertTitle().lines.isEmpty());
    EXPECT_GE(layout.vertNumbers().size(), 2);
    EXPECT_GE(layout.horzNumbers().size(), 1);
}

TEST_F(CurvePlotLayoutTest, NothingOverlapsAtAnySize)
{
    const CurvePlotAxis axes[] = {
        {0.0, 3.0, 0.5, 0.0, -1, QStringLiteral("Time [s]")},
        {-20.0, 20.0, 0.001, 0.3, -1, QStringLiteral("A long title of an axis [deg/s]")},
        {1e6, 1e6 + 3.0, 0.01, 0.0, 5, QString()},
        {1e-12, -3e-12, 0.0, 0.0, -1, QStringLiteral("Tiny")},
        {-1e300, 1e300, 1e299, 0.0, -1, QStringLiteral("Huge")},
        {7.0, 7.0, 100.0, 0.0, -1, QStringLiteral("Point")}};
    for (const CurvePlotAxis& horz : axes) {
        for (const CurvePlotAxis& vert : axes) {
            for (int size = 1; size < 700; size += 37) {
                CurvePlotContents contents = testContents(size * 3 / 2, size);
                contents.horz = horz;
                contents.vert = vert;
                const CurvePlotLayout layout(contents);
                const QVector<QRectF> places = placesOf(layout);
                for (int i = 0; i < places.size(); ++i) {
                    for (int j = 0; j < i; ++j) {
                        ASSERT_FALSE(places[i].intersects(places[j]))
                            << size << ": " << i << ", " << j << " with " << qPrintable(horz.title) << ", "
                            << qPrintable(vert.title);
                    }
                    const bool isInside = QRectF(contents.rect).contains(places[i]);
                    ASSERT_TRUE(size < 50 || isInside) << size << ": " << i;
                }
            }
        }
    }
}
