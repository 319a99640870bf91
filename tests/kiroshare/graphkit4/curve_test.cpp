#include "curve.h"

#include "windows/messagerecorder.h"

#include <gtest/gtest.h>

#include <limits>
#include <list>
#include <vector>

namespace
{

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

using Points = QVector<QPointF>;

} // namespace

TEST(CurveTest, NewCurveIsVisibleEmptyAndWithoutPen)
{
    const Curve curve(QStringLiteral("17"));
    EXPECT_EQ(curve.name().toInt(), 17);
    EXPECT_TRUE(curve.points().isEmpty());
    EXPECT_TRUE(curve.isVisible());
    EXPECT_FALSE(curve.hasPen());
    EXPECT_EQ(curve.style(), Curve::Plain);
    EXPECT_TRUE(curve.toolTip().isEmpty());
}

TEST(CurveTest, StylesHaveTheAgreedNumbers)
{
    EXPECT_EQ(int(Curve::Plain), 0);
    EXPECT_EQ(int(Curve::Characters), 2);
}

TEST(CurveTest, LookIsKept)
{
    Curve curve;
    curve.setPen(QPen(Qt::red, 3.0));
    QFont font;
    font.setPixelSize(31);
    curve.setStyle(Curve::Characters, QLatin1Char('x'), font);
    curve.setToolTip(QStringLiteral("Blink"));
    EXPECT_TRUE(curve.hasPen());
    EXPECT_EQ(curve.pen(), QPen(Qt::red, 3.0));
    EXPECT_EQ(curve.character(), QLatin1Char('x'));
    EXPECT_EQ(curve.font(), font);
    EXPECT_EQ(curve.toolTip(), QStringLiteral("Blink"));
}

TEST(CurveTest, DataFromIteratorsOfAnyContainers)
{
    Curve curve;
    const std::list<double> x{1.0, 2.0, 3.0};
    const std::vector<double> y{-1.0, -2.0, -3.0};
    EXPECT_TRUE(curve.setData(x.begin(), x.end(), y.begin(), y.end()));
    EXPECT_EQ(curve.points(), (Points{{1.0, -1.0}, {2.0, -2.0}, {3.0, -3.0}}));
    EXPECT_TRUE(curve.setData(y.begin(), y.begin() + 1, x.begin(), std::next(x.begin())));
    EXPECT_EQ(curve.points(), (Points{{-1.0, 1.0}}));
}

TEST(CurveTest, RangesOfDifferentLengthsAreRefused)
{
    Curve curve;
    curve.setData(Points{{5.0, 6.0}});
    const QVector<double> x{1.0, 2.0, 3.0};
    const QVector<double> y{1.0, 2.0};
    const MessageRecorder messages;
    EXPECT_FALSE(curve.setData(x.begin(), x.end(), y.begin(), y.end()));
    EXPECT_EQ(messages.texts(),
              QStringList{QStringLiteral("Curve::setData(...) - invalid table sizes (3 , 2)")});
    EXPECT_EQ(curve.points(), (Points{{5.0, 6.0}}));
}

TEST(CurveTest, RangesThatRunBackwardsAreRefused)
{
    Curve curve;
    const QVector<double> x{1.0, 2.0};
    const MessageRecorder messages;
    EXPECT_FALSE(curve.setData(x.end(), x.begin(), x.end(), x.begin()));
    EXPECT_EQ(messages.texts(),
              QStringList{QStringLiteral("Curve::setData(...) - invalid table sizes (-2 , -2)")});
    EXPECT_TRUE(curve.points().isEmpty());
}

TEST(CurveTest, DataFromArrays)
{
    Curve curve;
    const double x[] = {1.0, 2.0, 3.0};
    const double y[] = {4.0, 5.0, 6.0};
    EXPECT_TRUE(curve.setData(x, y, 2));
    EXPECT_EQ(curve.points(), (Points{{1.0, 4.0}, {2.0, 5.0}}));
    EXPECT_FALSE(curve.setData(x, y, -1));
    EXPECT_FALSE(curve.setData(x, nullptr, 2));
    EXPECT_FALSE(curve.setData(nullptr, y, 2));
    EXPECT_EQ(curve.points().size(), 2);
    EXPECT_TRUE(curve.setData(nullptr, nullptr, 0));
    EXPECT_TRUE(curve.points().isEmpty());
}

TEST(CurveTest, CopiesHaveTheirOwnData)
{
    Curve first(QStringLiteral("a"));
    first.setData(Points{{1.0, 2.0}});
    Curve second = first;
    second.clearData();
    EXPECT_EQ(first.points().size(), 1);
    EXPECT_TRUE(second.points().isEmpty());
    EXPECT_EQ(second.name(), QStringLiteral("a"));
}

TEST(CurveTest, ExtentCoversFinitePointsAlone)
{
    Curve curve;
    curve.setData(Points{{1.0, 7.0}, {2.0, NotANumber}, {3.0, -Infinity}, {4.0, -2.0}});
    const Curve::Extent extent = curve.extent();
    EXPECT_FALSE(extent.empty);
    EXPECT_EQ(extent.minX, 1.0);
    EXPECT_EQ(extent.maxX, 4.0);
    EXPECT_EQ(extent.minY, -2.0);
    EXPECT_EQ(extent.maxY, 7.0);
    EXPECT_TRUE(extent.ordered);
}

TEST(CurveTest, ExtentFollowsTheData)
{
    Curve curve;
    EXPECT_TRUE(curve.extent().empty);
    curve.setData(Points{{1.0, 1.0}, {1.0, 2.0}});
    EXPECT_EQ(curve.extent().maxY, 2.0);
    EXPECT_TRUE(curve.extent().ordered);
    curve.setData(Points{{2.0, 1.0}, {1.0, 5.0}});
    EXPECT_EQ(curve.extent().maxY, 5.0);
    EXPECT_FALSE(curve.extent().ordered);
    const double x[] = {1.0, NotANumber};
    const double y[] = {3.0, 4.0};
    curve.setData(x, y, 2);
    EXPECT_EQ(curve.extent().maxY, 3.0);
    EXPECT_FALSE(curve.extent().ordered);
    curve.clearData();
    EXPECT_TRUE(curve.extent().empty);
}
