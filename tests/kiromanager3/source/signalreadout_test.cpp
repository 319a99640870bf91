#include "signalreadout.h"

#include "plot.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{

/// Four samples of 10 ms each, 100 raw units a degree and 20 at 0 degrees.
Plot calibratedStrip()
{
    Plot plot;
    plot.setData(QVector<qint16>{20, 120, -30, 1270}, 0, -1);
    plot.setTimePerSample(0.01);
    plot.hasCalib = true;
    plot.useCalib = true;
    plot.calibFactor = 100.0;
    plot.calibOffset = 20.0;
    plot.setCalibUnit(QStringLiteral("deg"));
    plot.precision = 2;
    return plot;
}

} // namespace

TEST(SignalReadoutTest, OneDecimalMoreThanTheStripPrints)
{
    Plot plot;
    plot.precision = 0;
    EXPECT_EQ(readoutValue(plot, 1.26), QStringLiteral("1.3"));
    plot.precision = 3;
    EXPECT_EQ(readoutValue(plot, -1.26), QStringLiteral("-1.2600"));
    EXPECT_EQ(readoutValue(plot, 123456789.0), QStringLiteral("123456789.0000"));
}

TEST(SignalReadoutTest, TheSampleNearestInTime)
{
    const Plot plot = calibratedStrip();
    EXPECT_EQ(readoutAt(plot, 0.0), QStringLiteral("0.000 deg"));
    EXPECT_EQ(readoutAt(plot, 0.0149), QStringLiteral("1.000 deg"));
    EXPECT_EQ(readoutAt(plot, 0.0151), QStringLiteral("-0.500 deg"));
    EXPECT_EQ(readoutAt(plot, 0.034), QStringLiteral("12.500 deg"));
}

TEST(SignalReadoutTest, NothingOutsideOfWhatIsShown)
{
    Plot plot = calibratedStrip();
    EXPECT_EQ(readoutAt(plot, -0.006), QString());
    EXPECT_EQ(readoutAt(plot, 0.036), QString());
    ASSERT_TRUE(plot.setDataRange(1, 2));
    EXPECT_EQ(readoutAt(plot, 0.0), QString());
    EXPECT_EQ(readoutAt(plot, 0.01), QStringLiteral("1.000 deg"));
    EXPECT_EQ(readoutAt(plot, 0.03), QString());
    EXPECT_EQ(readoutAt(Plot(), 0.0), QString());
}

TEST(SignalReadoutTest, RawValuesHaveNoUnit)
{
    Plot plot = calibratedStrip();
    plot.useCalib = false;
    EXPECT_EQ(readoutAt(plot, 0.01), QStringLiteral("120.000"));
    plot.useCalib = true;
    plot.setCalibUnit(QString());
    EXPECT_EQ(readoutAt(plot, 0.01), QStringLiteral("1.000"));
}

TEST(SignalReadoutTest, AGapHasNoValue)
{
    constexpr double Gap = std::numeric_limits<double>::quiet_NaN();
    Plot plot;
    plot.setData(QVector<double>{1.0, Gap, std::numeric_limits<double>::infinity()}, 0, -1);
    EXPECT_EQ(readoutAt(plot, 0.0), QStringLiteral("1.000"));
    EXPECT_EQ(readoutAt(plot, 1.0), QString());
    EXPECT_EQ(readoutAt(plot, 2.0), QString());
}

TEST(SignalReadoutTest, StatusOfACalibratedStrip)
{
    EXPECT_EQ(statusText(calibratedStrip(), QStringLiteral("eyex"), 12.34567, 1.2344, 3),
              QStringLiteral("Signal: eyex, time: 12.3457 s, value: 1.234 deg"));
}

TEST(SignalReadoutTest, StatusOfARawStrip)
{
    Plot plot = calibratedStrip();
    plot.useCalib = false;
    plot.precision = 0;
    EXPECT_EQ(statusText(plot, QStringLiteral("eyex"), 0.5, 120.0, 0),
              QStringLiteral("Signal: eyex, time: 0.5 s, value: 120.0"));
}

TEST(SignalReadoutTest, NamesWithPlaceMarkersStayAsTheyAre)
{
    EXPECT_EQ(statusText(calibratedStrip(), QStringLiteral("%2 and %4"), 1.0, 2.0, 1),
              QStringLiteral("Signal: %2 and %4, time: 1.00 s, value: 2.000 deg"));
}

TEST(SignalReadoutTest, NumbersAreThoseOfTheLocaleWithoutGroups)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Polish, QLocale::Poland));
    EXPECT_EQ(readoutNumber(14405.5, 3), QStringLiteral("14405,500"));
    EXPECT_EQ(readoutAt(calibratedStrip(), 0.034), QStringLiteral("12,500 deg"));
    EXPECT_EQ(statusText(calibratedStrip(), QStringLiteral("eyex"), 12345.67891, 1.2344, 3),
              QStringLiteral("Signal: eyex, time: 12345,6789 s, value: 1,234 deg"));
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(readoutNumber(14405.5, 3), QStringLiteral("14405.500"));
    QLocale::setDefault(before);
}

TEST(SignalReadoutTest, AZeroHasNoSign)
{
    EXPECT_EQ(readoutNumber(-0.0004, 3), QStringLiteral("0.000"));
    EXPECT_EQ(readoutNumber(-0.0006, 3), QStringLiteral("-0.001"));
}
