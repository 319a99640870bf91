#include "saccadetimes.h"

#include <gtest/gtest.h>

namespace
{

TEST(SaccadeTimes, ArePlacesInTheChosenUnit)
{
    EXPECT_EQ(timeString(30750, 500.0, TimeUnit::Samples, false), QStringLiteral("30750"));
    EXPECT_EQ(timeString(30750, 500.0, TimeUnit::Seconds, false), QStringLiteral("61.500"));
    EXPECT_EQ(timeString(30750, 500.0, TimeUnit::Minutes, false), QStringLiteral("1:01.500"));
    EXPECT_EQ(timeString(30750, 500.0, TimeUnit::Hours, false), QStringLiteral("00:01:01.500"));
}

TEST(SaccadeTimes, CountMinutesAndHoursOn)
{
    const int twoHours = 7200000 + 5;
    EXPECT_EQ(timeString(twoHours, 1000.0, TimeUnit::Minutes, false), QStringLiteral("120:00.005"));
    EXPECT_EQ(timeString(twoHours, 1000.0, TimeUnit::Hours, false), QStringLiteral("02:00:00.005"));
    EXPECT_EQ(timeString(13 * twoHours, 1000.0, TimeUnit::Hours, false), QStringLiteral("26:00:00.065"));
}

TEST(SaccadeTimes, AreLengthsInMillisecondsOrSamples)
{
    EXPECT_EQ(timeString(45, 500.0, TimeUnit::Seconds, true), QStringLiteral("90"));
    EXPECT_EQ(timeString(45, 500.0, TimeUnit::Hours, true), QStringLiteral("90"));
    EXPECT_EQ(timeString(45, 500.0, TimeUnit::Samples, true), QStringLiteral("45"));
}

TEST(SaccadeTimes, AreRoundedHalfUp)
{
    EXPECT_EQ(timeString(1, 400.0, TimeUnit::Seconds, true), QStringLiteral("3"));
    EXPECT_EQ(timeString(1, 128.0, TimeUnit::Seconds, false), QStringLiteral("0.008"));
}

TEST(SaccadeTimes, HaveUnits)
{
    EXPECT_EQ(unitName(TimeUnit::Samples), QStringLiteral("smp"));
    EXPECT_EQ(unitName(TimeUnit::Seconds), QStringLiteral("s"));
    EXPECT_EQ(unitName(TimeUnit::Minutes), QStringLiteral("m"));
    EXPECT_EQ(unitName(TimeUnit::Hours), QStringLiteral("h"));
    EXPECT_EQ(durationUnitName(TimeUnit::Samples), QStringLiteral("smp"));
    EXPECT_EQ(durationUnitName(TimeUnit::Seconds), QStringLiteral("ms"));
}

} // namespace
