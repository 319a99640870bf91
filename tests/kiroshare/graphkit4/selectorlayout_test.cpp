#include "selectorlayout.h"

#include <QApplication>
#include <QLocale>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace
{

std::vector<std::string> textsOf(const QVector<SelectorMark>& marks)
{
    std::vector<std::string> texts;
    for (const SelectorMark& mark : marks)
        texts.push_back(mark.text.toStdString());
    return texts;
}

class SelectorLayoutTest : public testing::Test
{
protected:
    SelectorLayout layout(double width, double from, double to, double devicePixels = 1.0) const
    {
        const double height = SelectorLayout::goodSize(m_font).height();
        return SelectorLayout(QRectF(0.0, 0.0, width, height), m_font, devicePixels, from, to);
    }

    /// The width of so many average letters.
    double letters(int count) const { return QFontMetricsF(m_font).averageCharWidth() * count; }

    QFont m_font = QApplication::font();

private:
    void SetUp() override { QLocale::setDefault(QLocale::c()); }
};

} // namespace

TEST_F(SelectorLayoutTest, TimesAndPlacesAreEachOthersInverse)
{
    const SelectorLayout bar = layout(800.0, 10.0, 30.0);
    EXPECT_DOUBLE_EQ(bar.xOf(10.0), bar.bar().left());
    EXPECT_DOUBLE_EQ(bar.xOf(30.0), bar.bar().right());
    EXPECT_DOUBLE_EQ(bar.xOf(20.0), bar.bar().center().x());
    EXPECT_DOUBLE_EQ(bar.timeOf(bar.xOf(17.5)), 17.5);
    EXPECT_DOUBLE_EQ(bar.xOf(-1000.0), bar.bar().left());
    EXPECT_DOUBLE_EQ(bar.xOf(1000.0), bar.bar().right());
}

TEST_F(SelectorLayoutTest, EdgesLieOnThePixelsOfTheDevice)
{
    SelectorWindow window;
    window.setTotalRange(0.0, 97.0);
    window.setRange(13.0);
    window.setPosition(31.0);
    for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        const SelectorLayout bar = layout(777.0, 0.0, 97.0, ratio);
        const QRectF rects[] = {bar.bar(), bar.windowRect(window), bar.startHandle(window),
                                bar.endHandle(window), bar.centreLine(window)};
        for (const QRectF& rect : rects) {
            for (const double edge : {rect.left(), rect.right(), rect.top(), rect.bottom()})
                EXPECT_NEAR(edge * ratio, std::round(edge * ratio), 1e-9) << ratio;
        }
    }
}

TEST_F(SelectorLayoutTest, TinyWindowIsWideEnoughToBeSeenAndStaysInTheBar)
{
    const SelectorLayout bar = layout(800.0, 0.0, 28800.0);
    SelectorWindow window;
    window.setTotalRange(0.0, 28800.0);
    window.setRange(0.1);
    for (const double position : {0.0, 3.0, 14400.0, 28797.0, 28800.0}) {
        window.setPosition(position);
        const QRectF rect = bar.windowRect(window);
        EXPECT_GE(rect.width(), 3.0) << position;
        EXPECT_GE(rect.left(), bar.bar().left()) << position;
        EXPECT_LE(rect.right(), bar.bar().right()) << position;
        EXPECT_GE(bar.centreLine(window).left(), rect.left()) << position;
        EXPECT_LE(bar.centreLine(window).right(), rect.right()) << position;
    }
}

TEST_F(SelectorLayoutTest, MarksStandAtStartRoundStepsAndEnd)
{
    EXPECT_THAT(textsOf(layout(letters(130), 0.0, 100.0).marks(MultiPlotScheme::Seconds)),
                testing::ElementsAre("0", "10", "20", "30", "40", "50", "60", "70", "80", "90", "100"));
}

TEST_F(SelectorLayoutTest, StartAndEndShowTheirDecimals)
{
    const QVector<SelectorMark> marks = layout(letters(200), 0.5, 12.345).marks(MultiPlotScheme::Seconds);
    ASSERT_GE(marks.size(), 3);
    EXPECT_EQ(marks.first().text, QLatin1String("0.5"));
    EXPECT_EQ(marks[2].text, QLatin1String("2"));
    EXPECT_EQ(marks.last().text, QLatin1String("12.345"));
}

TEST_F(SelectorLayoutTest, HoursHaveStepsOfHours)
{
    const QVector<SelectorMark> marks = layout(letters(130), 0.0, 28800.0).marks(MultiPlotScheme::Hours);
    EXPECT_THAT(textsOf(marks), testing::ElementsAre("0:00:00", "1:00:00", "2:00:00", "3:00:00", "4:00:00",
                                                     "5:00:00", "6:00:00", "7:00:00", "8:00:00"));
}

TEST_F(SelectorLayoutTest, NumbersNeverTouchAndStayInside)
{
    const std::pair<double, double> ranges[] = {{0.0, 100.0},     {0.0, 28800.0},      {-5.0, 5.0},
                                                {0.001, 0.00345}, {99999.0, 100001.0}, {0.0, 1e14}};
    for (int width = 1; width < 1500; width = width * 11 / 10 + 1) {
        for (const auto& [from, to] : ranges) {
            for (int style = 0; style < 4; ++style) {
                const SelectorLayout bar = layout(width, from, to);
                double before = -1.0;
                for (const SelectorMark& mark : bar.marks(static_cast<MultiPlotScheme::TimeStyle>(style))) {
                    EXPECT_GE(mark.x, bar.bar().left());
                    EXPECT_LE(mark.x + bar.lineWidth(), bar.bar().right() + 1e-9);
                    if (mark.text.isEmpty())
                        continue;
                    EXPECT_GT(mark.place.left(), before) << width << " " << to << " " << style;
                    EXPECT_LE(mark.place.right(), width);
                    before = mark.place.right();
                }
            }
        }
    }
}

TEST_F(SelectorLayoutTest, OnlyNumbersBesideTheStartsAndTheEndsAreLeftOut)
{
    for (int width = 20; width < 300; width += 3) {
        const QVector<SelectorMark> marks =
            layout(letters(width), 0.0, 86400.0).marks(MultiPlotScheme::Hours);
        for (int i = 2; i < marks.size() - 2; ++i)
            EXPECT_FALSE(marks[i].text.isEmpty()) << width << " " << i;
        EXPECT_FALSE(marks.first().text.isEmpty()) << width;
        EXPECT_FALSE(marks.last().text.isEmpty()) << width;
    }
}

TEST_F(SelectorLayoutTest, LowContentsHaveABarWithoutNumbers)
{
    const SelectorLayout low(QRectF(0.0, 0.0, 500.0, 18.0), m_font, 1.0, 0.0, 100.0);
    EXPECT_TRUE(low.marks(MultiPlotScheme::Seconds).isEmpty());
    EXPECT_GT(low.bar().height(), 8.0);
}

TEST_F(SelectorLayoutTest, NothingCanBeTakenOfAnEmptyRange)
{
    const SelectorLayout empty = layout(500.0, 3.0, 3.0);
    SelectorWindow window;
    window.setTotalRange(3.0, 3.0);
    for (int x = 0; x < 500; ++x)
        ASSERT_EQ(empty.partAt(x, window), SelectorWindow::Part::None);
    EXPECT_EQ(empty.xOf(3.0), empty.bar().left());
    EXPECT_EQ(empty.timeOf(250.0), 3.0);
    EXPECT_TRUE(empty.marks(MultiPlotScheme::Seconds).isEmpty());
}
