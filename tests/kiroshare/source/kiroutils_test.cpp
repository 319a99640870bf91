#include "kiroutils.h"

#include "fatalrecorder.h"

#include <QDateTime>
#include <QProcess>

#include <gtest/gtest.h>

#include <cstdlib>

namespace
{

struct DayCase
{
    int year;
    int month;
    int day;
    int expected;
};

class KiroDateTimeDay : public testing::TestWithParam<DayCase>
{
};

} // namespace

TEST_P(KiroDateTimeDay, IsHeldWithinTheMonth)
{
    KiroDateTime time;
    time.setYear(GetParam().year);
    time.setMonth(GetParam().month);
    time.setDay(GetParam().day);
    EXPECT_EQ(time.day(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Days, KiroDateTimeDay,
                         testing::Values(DayCase{2023, 1, 32, 31}, DayCase{2023, 2, 29, 28},
                                         DayCase{2024, 2, 30, 29}, DayCase{2000, 2, 29, 29},
                                         DayCase{1900, 2, 29, 28}, DayCase{2023, 4, 31, 30},
                                         DayCase{2023, 12, 31, 31}, DayCase{2023, 6, 0, 1},
                                         DayCase{2023, 6, -4, 1}));

TEST(KiroDateTimeTest, EveryPartIsHeldInItsRange)
{
    KiroDateTime low;
    low.setYear(1600);
    low.setMonth(0);
    low.setHour(-1);
    low.setMinute(-1);
    low.setSecond(-1);
    low.setMillisecond(-1);
    EXPECT_EQ(low.year(), 1601);
    EXPECT_EQ(low.month(), 1);
    EXPECT_EQ(low.hour(), 0);
    EXPECT_EQ(low.minute(), 0);
    EXPECT_EQ(low.second(), 0);
    EXPECT_EQ(low.millisecond(), 0);

    KiroDateTime high;
    high.setYear(30828);
    high.setMonth(13);
    high.setHour(24);
    high.setMinute(60);
    high.setSecond(60);
    high.setMillisecond(1000);
    EXPECT_EQ(high.year(), 30827);
    EXPECT_EQ(high.month(), 12);
    EXPECT_EQ(high.hour(), 23);
    EXPECT_EQ(high.minute(), 59);
    EXPECT_EQ(high.second(), 59);
    EXPECT_EQ(high.millisecond(), 999);
}

TEST(KiroDateTimeTest, AShorterMonthPullsTheDayBack)
{
    KiroDateTime time;
    time.setYear(2024);
    time.setMonth(1);
    time.setDay(31);
    time.setMonth(2);
    EXPECT_EQ(time.day(), 29);
    time.setYear(2023);
    EXPECT_EQ(time.day(), 28);
}

TEST(KiroDateTimeTest, NowIsTheLocalClock)
{
    const QDateTime before = QDateTime::currentDateTime();
    const KiroDateTime now = KiroDateTime::now();
    const QDateTime after = QDateTime::currentDateTime();
    const QDateTime taken(QDate(now.year(), now.month(), now.day()),
                          QTime(now.hour(), now.minute(), now.second(), now.millisecond()));
    EXPECT_LE(before, taken);
    EXPECT_LE(taken, after);
}

TEST(KiroErrorTest, PresenterGetsTheMessage)
{
    EXPECT_EQ(fatalErrorOf([] { KiroError::fatalError("lost %1"); }), "lost %1");
}

TEST(KiroErrorTest, MessageThenGoesToQtAsFatalFromThisSource)
{
    QProcess process;
    process.start(QStringLiteral(FATALPROCESS), QStringList());
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 7);
    EXPECT_EQ(process.readAllStandardOutput().toStdString(),
              "presented: 100 % wrong\ntype 3 file kiroshare/source/kiroutils.cpp text 100 % wrong\n");
}

TEST(KiroVersionTest, IsTheProgramsVersion)
{
    EXPECT_STREQ(kiroVersionText(), "3.12");
}
