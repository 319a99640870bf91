#include "striplayout.h"

#include <gtest/gtest.h>

#include <QFont>

#include <cmath>
#include <limits>

namespace
{

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();
const QRectF Contents(2.0, 3.0, 900.0, 500.0);

QFontMetricsF metrics()
{
    return QFontMetricsF(QFont(QStringLiteral("DejaVu Sans"), 10));
}

StripContent strip(int plot, double least = -1.0, double greatest = 1.0)
{
    return {plot, {least, greatest}, 0.0, QStringLiteral("Signal"), QStringLiteral("mV")};
}

QVector<StripContent> strips(int count)
{
    QVector<StripContent> made;
    for (int i = 0; i < count; ++i)
        made.append(strip(i, -1.3 * (i + 1), 0.9 * (i + 1)));
    return made;
}

TimeAxis seconds(double min = 0.0, double max = 10.0)
{
    TimeAxis axis;
    axis.min = min;
    axis.max = max;
    axis.title = QStringLiteral("Time");
    axis.units = QStringLiteral("s");
    return axis;
}

QStringList textsOf(const QVector<AxisMark>& marks)
{
    QStringList texts;
    for (const AxisMark& mark : marks) {
        if (!mark.text.isEmpty())
            texts.append(mark.text);
    }
    return texts;
}

/// Every rectangle in which a text stands.
QVector<QRectF> textRects(const StripLayout& layout)
{
    QVector<QRectF> rects;
    for (const StripBox& box : layout.strips()) {
        if (!box.titleLines.isEmpty())
            rects.append(box.titleRect);
        for (const AxisMark& mark : box.marks) {
            if (!mark.text.isEmpty())
                rects.append(mark.textRect);
        }
    }
    for (const AxisMark& mark : layout.timeMarks()) {
        if (!mark.text.isEmpty())
            rects.append(mark.textRect);
    }
    if (!layout.timeTitle().isEmpty())
        rects.append(layout.timeTitleRect());
    return rects;
}

void expectNothingMeets(const StripLayout& layout)
{
    const QVector<QRectF> rects = textRects(layout);
    for (int i = 0; i < rects.size(); ++i) {
        EXPECT_TRUE(layout.contents().adjusted(-1, -1, 1, 1).contains(rects[i])) << i;
        EXPECT_FALSE(rects[i].intersects(layout.plotArea())) << i;
        for (int k = i + 1; k < rects.size(); ++k)
            EXPECT_FALSE(rects[i].intersects(rects[k])) << i << " and " << k;
    }
}

} // namespace

TEST(StripLayoutTest, NoStripsHaveNoPlotArea)
{
    const StripLayout layout(Contents, metrics(), {}, seconds());
    EXPECT_TRUE(layout.plotArea().isNull());
    EXPECT_EQ(layout.boxAt(Contents.center()), nullptr);
    EXPECT_EQ(layout.boxOf(0), nullptr);
    EXPECT_TRUE(textRects(layout).isEmpty());
}

TEST(StripLayoutTest, StripsShareTheHeightWithoutHoles)
{
    const StripLayout layout(Contents, metrics(), strips(7), seconds());
    ASSERT_EQ(layout.strips().size(), 7);
    double top = Contents.top();
    for (const StripBox& box : layout.strips()) {
        EXPECT_EQ(box.rect.top(), top);
        EXPECT_EQ(box.rect.left(), layout.plotArea().left());
        EXPECT_EQ(box.rect.right(), layout.plotArea().right());
        top = box.rect.bottom() + 1.0;
    }
    EXPECT_EQ(top, layout.plotArea().bottom());
    EXPECT_LT(layout.plotArea().bottom() + metrics().height(), Contents.bottom());
}

TEST(StripLayoutTest, PixelsAndTimesCorrespond)
{
    const StripLayout layout(Contents, metrics(), strips(2), seconds(5.0, 25.0));
    EXPECT_EQ(layout.xAt(5.0), layout.plotArea().left());
    EXPECT_EQ(layout.xAt(25.0), layout.plotArea().right());
    EXPECT_EQ(layout.xAt(15.0), layout.plotArea().center().x());
    EXPECT_DOUBLE_EQ(layout.secondsAt(layout.xAt(7.25)), 7.25);
    EXPECT_EQ(layout.secondsAt(-100.0), 5.0);
    EXPECT_EQ(layout.secondsAt(5000.0), 25.0);
}

TEST(StripLayoutTest, PixelsAndValuesCorrespond)
{
    const StripLayout layout(Contents, metrics(), {strip(3, 10.0, 20.0)}, seconds());
    const StripBox* const box = layout.boxOf(3);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(layout.boxOf(0), nullptr);
    EXPECT_DOUBLE_EQ(layout.yAt(*box, 15.0), box->rect.center().y());
    EXPECT_DOUBLE_EQ(layout.valueAt(*box, layout.yAt(*box, 12.5)), 12.5);
    EXPECT_GT(layout.yAt(*box, 20.0), box->rect.top());
    EXPECT_LT(layout.yAt(*box, 10.0), box->rect.bottom());
}

TEST(StripLayoutTest, BoxAtKnowsStripsByTheirPlot)
{
    const StripLayout layout(Contents, metrics(), {strip(4), strip(9)}, seconds());
    const QRectF first = layout.strips()[0].rect;
    const QRectF second = layout.strips()[1].rect;
    EXPECT_EQ(layout.boxAt(first.center())->plot, 4);
    EXPECT_EQ(layout.boxAt(QPointF(first.left(), first.bottom()))->plot, 4);
    EXPECT_EQ(layout.boxAt(second.topLeft())->plot, 9);
    EXPECT_EQ(layout.boxAt(QPointF(first.left() - 1.0, first.center().y())), nullptr);
    EXPECT_EQ(layout.boxAt(QPointF(first.center().x(), Contents.bottom() - 1.0)), nullptr);
}

TEST(StripLayoutTest, NumbersAreMultiplesOfRoundSteps)
{
    const StripLayout layout(QRectF(0, 0, 900, 160), metrics(), {strip(0, 0.0, 100.0)}, seconds());
    EXPECT_EQ(textsOf(layout.strips()[0].marks),
              QStringList({QStringLiteral("100"), QStringLiteral("50"), QStringLiteral("0")}));
    EXPECT_EQ(textsOf(layout.timeMarks()).first(), QStringLiteral("0"));
    EXPECT_EQ(layout.timeStep(), 1.0);
}

TEST(StripLayoutTest, GivenGridStepsAreKept)
{
    TimeAxis axis = seconds(0.0, 100.0);
    axis.grid = 10.0;
    StripContent content = strip(0, 0.0, 100.0);
    content.vertGrid = 25.0;
    const StripLayout layout(Contents, metrics(), {content}, axis);
    EXPECT_EQ(layout.timeStep(), 10.0);
    EXPECT_EQ(layout.timeMarks().size(), 11);
    ASSERT_EQ(layout.strips()[0].marks.size(), 5);
    EXPECT_EQ(layout.strips()[0].marks[1].value, 75.0);
}

TEST(StripLayoutTest, GridOfLinesSideBySideIsReplaced)
{
    TimeAxis axis = seconds(0.0, 3600.0);
    axis.grid = 0.001;
    const StripLayout layout(Contents, metrics(), strips(2), axis);
    EXPECT_EQ(layout.timeStep(), 500.0);
}

TEST(StripLayoutTest, TimeStylesWriteTheirUnit)
{
    TimeAxis axis = seconds(0.0, 10.0);
    EXPECT_EQ(axis.fullTitle(), QStringLiteral("Time [s]"));
    EXPECT_EQ(axis.markText(2.5, 0.5), QStringLiteral("2.5"));
    axis.timeStyle = MultiPlotScheme::Milliseconds;
    EXPECT_EQ(axis.fullTitle(), QStringLiteral("Time [ms]"));
    EXPECT_EQ(axis.markText(0.5, 0.5), QStringLiteral("500"));
    axis.timeStyle = MultiPlotScheme::Minutes;
    EXPECT_EQ(axis.fullTitle(), QStringLiteral("Time [min:s]"));
    EXPECT_EQ(axis.markText(65.0, 5.0), QStringLiteral("1:05"));
    axis.timeStyle = MultiPlotScheme::Hours;
    EXPECT_EQ(axis.fullTitle(), QStringLiteral("Time [h:min:s]"));
    EXPECT_EQ(axis.markText(3665.0, 5.0), QStringLiteral("1:01:05"));
    axis.title = QStringLiteral("Time [s]");
    axis.units.clear();
    EXPECT_EQ(axis.fullTitle(), QStringLiteral("Time [h:min:s]"));
    axis.timeStyle = MultiPlotScheme::Seconds;
    EXPECT_EQ(axis.fullTitle(), QStringLiteral("Time [s]"));
}

TEST(StripLayoutTest, SamplesAreCountedFromTheOffsetOfTheStrip)
{
    TimeAxis axis = seconds(1.0, 2.0);
    axis.unitType = MultiPlotScheme::Samples;
    axis.timePerSample = 0.004;
    axis.timeOffset = 0.5;
    EXPECT_EQ(axis.fullTitle(), QStringLiteral("Time [samples]"));
    EXPECT_EQ(axis.markText(1.5, 0.4), QStringLiteral("250"));
    const double step = axis.suitableStep(800.0, metrics());
    EXPECT_DOUBLE_EQ(step, 20 * 0.004);
    const StripLayout layout(Contents, metrics(), {strip(0)}, axis);
    EXPECT_EQ(textsOf(layout.timeMarks())[1], QStringLiteral("160"));
}

TEST(StripLayoutTest, SamplesHaveNoStepBelowOne)
{
    TimeAxis axis = seconds(0.0, 0.01);
    axis.unitType = MultiPlotScheme::Samples;
    axis.timePerSample = 0.005;
    EXPECT_DOUBLE_EQ(axis.suitableStep(800.0, metrics()), 0.005);
}

TEST(StripLayoutTest, ShortTitlesAreShownWhole)
{
    QVector<StripContent> contents{strip(0), strip(1)};
    for (StripContent& content : contents) {
        content.title = QStringLiteral("S");
        content.unit.clear();
    }
    const StripLayout layout(Contents, metrics(), contents, seconds());
    for (const StripBox& box : layout.strips())
        EXPECT_EQ(box.titleLines, QStringList(QStringLiteral("S")));
    EXPECT_EQ(layout.timeTitle(), QStringLiteral("Time [s]"));
}

TEST(StripLayoutTest, NoTextMeetsAnotherAtAnySize)
{
    for (const int count : {1, 2, 5, 16, 60, 140}) {
        for (const QSizeF size : {QSizeF(1, 1), QSizeF(40, 30), QSizeF(90, 60), QSizeF(220, 160),
                                  QSizeF(333, 77), QSizeF(900, 320), QSizeF(1301, 761), QSizeF(3000, 40)}) {
            SCOPED_TRACE(testing::Message()
                         << count << " strips on " << size.width() << "x" << size.height());
            expectNothingMeets(
                StripLayout(QRectF(QPointF(3.0, 2.0), size), metrics(), strips(count), seconds()));
        }
    }
}

TEST(StripLayoutTest, TimeNumbersKeepApartAtAnyRangeAndStyle)
{
    for (const auto style : {MultiPlotScheme::Milliseconds, MultiPlotScheme::Seconds,
                             MultiPlotScheme::Minutes, MultiPlotScheme::Hours}) {
        for (const double range : {1e-9, 0.01, 0.37, 10.0, 59.0, 3599.0, 36000.0, 1e7, 1e15}) {
            SCOPED_TRACE(testing::Message() << "style " << style << ", " << range << " s");
            TimeAxis axis = seconds(123.4, 123.4 + range);
            axis.timeStyle = style;
            expectNothingMeets(StripLayout(Contents, metrics(), strips(3), axis));
            axis.grid = range / 150.0;
            expectNothingMeets(StripLayout(Contents, metrics(), strips(3), axis));
        }
    }
}

TEST(StripLayoutTest, UnusableTimeAxisHasNoMarks)
{
    for (const auto& axis : {seconds(1.0, 1.0), seconds(2.0, 1.0), seconds(NaN, 1.0), seconds(0.0, Infinity),
                             seconds(-1.7e308, 1.7e308)}) {
        const StripLayout layout(Contents, metrics(), strips(2), axis);
        EXPECT_TRUE(layout.timeMarks().isEmpty());
        EXPECT_EQ(layout.xAt(5.0), layout.plotArea().left());
    }
}

TEST(StripLayoutTest, FarPlacesStayWithinWhatAPainterBears)
{
    const StripLayout layout(Contents, metrics(), strips(1), seconds());
    for (const double far : {1e300, -1e300, Infinity, -Infinity, NaN}) {
        EXPECT_LE(std::abs(layout.xAt(far)), 30000.0);
        EXPECT_LE(std::abs(layout.yAt(layout.strips()[0], far)), 30000.0);
    }
}

TEST(StripLayoutTest, LongTitleIsCutButKeepsItsUnit)
{
    const QString longTitle = QStringLiteral("A title of many words ").repeated(14);
    const QStringList lines = titleLines(longTitle, QStringLiteral("mV"), 120.0, 3, metrics());
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines.last().endsWith(QStringLiteral(" [mV]")));
    EXPECT_TRUE(lines.last().contains(QChar(0x2026)));
    for (const QString& line : lines)
        EXPECT_LE(metrics().horizontalAdvance(line), 120.0);
}

TEST(StripLayoutTest, TitleBreaksBetweenWords)
{
    const double width = metrics().horizontalAdvance(QStringLiteral("Right eye"));
    EXPECT_EQ(titleLines(QStringLiteral("Right eye horizontal"), QString(), width * 1.3, 3, metrics()),
              QStringList({QStringLiteral("Right eye"), QStringLiteral("horizontal")}));
}

TEST(StripLayoutTest, TitleWithoutSpacesIsCut)
{
    const QStringList lines = titleLines(QString(300, QLatin1Char('W')), QString(), 100.0, 3, metrics());
    ASSERT_EQ(lines.size(), 1);
    EXPECT_LE(metrics().horizontalAdvance(lines[0]), 100.0);
    EXPECT_TRUE(titleLines(QString(), QString(), 100.0, 3, metrics()).isEmpty());
    EXPECT_TRUE(titleLines(QStringLiteral("x"), QString(), 0.0, 3, metrics()).isEmpty());
    EXPECT_EQ(titleLines(QStringLiteral("a\nb"), QString(), 100.0, 3, metrics()),
              QStringList(QStringLiteral("a b")));
}

TEST(StripLayoutTest, ExtremeNumbersAreWrittenWithExponent)
{
    EXPECT_EQ(valueText(2.5, 0.5), QStringLiteral("2.5"));
    EXPECT_EQ(valueText(0.0, 1e9), QStringLiteral("0"));
    EXPECT_EQ(valueText(2e9, 1e9), QStringLiteral("2e+09"));
    EXPECT_EQ(valueText(1.5e300, 5e299), QStringLiteral("1.5e+300"));
    EXPECT_EQ(valueText(3e-12, 1e-12), QStringLiteral("3e-12"));
}
