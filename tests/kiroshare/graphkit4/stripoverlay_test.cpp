#include "stripoverlay.h"

#include <gtest/gtest.h>

#include <QLocale>

#include <limits>

namespace
{

StripPoint pointAt(double seconds, double value)
{
    StripPoint point;
    point.plot = 0;
    point.seconds = seconds;
    point.value = value;
    return point;
}

/// The lines of the display, between two points of a strip with two decimals.
QStringList textsOf(const StripPoint& start, const StripPoint& end, const QString& unit = QString())
{
    QLocale::setDefault(QLocale::c());
    Plot plot;
    plot.precision = 2;
    plot.useCalib = true;
    plot.setCalibUnit(unit);
    return distanceTexts(plot, start, end, 3);
}

} // namespace

TEST(DistanceTextsTest, TellTimeValueAndRate)
{
    EXPECT_EQ(textsOf(pointAt(1.0, 10.0), pointAt(1.25, 7.5), QStringLiteral("deg")),
              QStringList({QStringLiteral("\u0394t = 0.250 s"), QStringLiteral("\u0394y = -2.500 deg"),
                           QStringLiteral("1/\u0394t = 4 Hz")}));
}

TEST(DistanceTextsTest, BackwardsTheTimeIsNegativeAndTheRateIsNot)
{
    EXPECT_EQ(textsOf(pointAt(3.0, 0.0), pointAt(0.0, 1.0)),
              QStringList({QStringLiteral("\u0394t = -3.000 s"), QStringLiteral("\u0394y = 1.000"),
                           QStringLiteral("1/\u0394t = 0.3333 Hz")}));
}

TEST(DistanceTextsTest, WithoutATimeThereIsNoRate)
{
    EXPECT_EQ(textsOf(pointAt(2.0, 1.0), pointAt(2.0, 4.0)),
              QStringList({QStringLiteral("\u0394t = 0.000 s"), QStringLiteral("\u0394y = 3.000")}));
}
