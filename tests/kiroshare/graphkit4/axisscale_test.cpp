#include "axisscale.h"

#include <QFont>
#include <QLocale>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Largest = std::numeric_limits<double>::max();
constexpr double Denormal = std::numeric_limits<double>::denorm_min();

/// Sets the default locale for one test.
class LocaleSetter
{
public:
    explicit LocaleSetter(const QLocale& locale) { QLocale::setDefault(locale); }
    ~LocaleSetter() { QLocale::setDefault(m_before); }

private:
    QLocale m_before;
};

std::string number(double value, int decimals)
{
    return numberText(value, decimals).toStdString();
}

std::string time(double seconds, MultiPlotScheme::TimeStyle style, int decimals)
{
    return timeText(seconds, style, decimals).toStdString();
}

/// Texts of these widths, one after another at these left edges.
QVector<QRectF> row(const QVector<double>& lefts, double width)
{
    QVector<QRectF> places;
    for (const double left : lefts)
        places.append(QRectF(left, 0.0, width, 10.0));
    return places;
}

} // namespace

TEST(RoundStepTest, IsTheNextOfOneTwoFive)
{
    EXPECT_EQ(roundStep(1.0), 1.0);
    EXPECT_EQ(roundStep(1.1), 2.0);
    EXPECT_EQ(roundStep(2.0), 2.0);
    EXPECT_EQ(roundStep(2.1), 5.0);
    EXPECT_EQ(roundStep(5.1), 10.0);
    EXPECT_EQ(roundStep(999.0), 1000.0);
    EXPECT_EQ(roundStep(0.03), 0.05);
}

TEST(RoundStepTest, IsTheDoubleThatTheDecimalNumberStandsFor)
{
    // 5 times 1e-6 is 4.9999999999999996e-06.
    EXPECT_EQ(roundStep(4e-6), 5e-6);
    EXPECT_EQ(roundStep(0.0015), 0.002);
    EXPECT_EQ(roundStep(3e-14), 5e-14);
    EXPECT_EQ(roundStep(3e21), 5e21);
}

TEST(RoundStepTest, KeepsAStepThatIsAboveByRoundingOnly)
{
    EXPECT_EQ(roundStep(0.1 + 0.2), 0.5);
    EXPECT_EQ(roundStep(0.1 + 0.1 + 1e-17), 0.2);
    EXPECT_EQ(roundStep(std::nextafter(0.2, 1.0)), 0.2);
    EXPECT_EQ(roundStep(std::nextafter(1000.0, 0.0)), 1000.0);
}

TEST(RoundStepTest, HostileNumbersGiveNone)
{
    for (const double least : {0.0, -0.0, -1.0, Infinity, -Infinity, NotANumber})
        EXPECT_EQ(roundStep(least), 0.0) << least;
    EXPECT_EQ(roundStep(Largest), 0.0); // 2e308 is none
    EXPECT_EQ(roundStep(0.9e308), 1e308);
}

TEST(RoundStepTest, TinyNumbersGiveAStepNotBelowThem)
{
    EXPECT_GE(roundStep(Denormal), Denormal);
    EXPECT_LE(roundStep(Denormal), 10.0 * Denormal);
    EXPECT_EQ(roundStep(1e-300), 1e-300);
}

TEST(StepForScaleTest, KeepsMarksApart)
{
    EXPECT_EQ(stepForScale(100.0, 500.0, 50.0), 10.0);
    EXPECT_EQ(stepForScale(100.0, 499.0, 50.0), 20.0);
    EXPECT_EQ(stepForScale(-100.0, 500.0, 50.0), 10.0);
}

TEST(StepForScaleTest, WithoutRoomOrRangeThereIsNone)
{
    EXPECT_EQ(stepForScale(0.0, 500.0, 50.0), 0.0);
    EXPECT_EQ(stepForScale(NotANumber, 500.0, 50.0), 0.0);
    EXPECT_EQ(stepForScale(Infinity, 500.0, 50.0), 0.0);
    for (const double bad : {0.0, -1.0, NotANumber}) {
        EXPECT_EQ(stepForScale(100.0, bad, 50.0), 0.0);
        EXPECT_EQ(stepForScale(100.0, 500.0, bad), 0.0);
    }
}

TEST(StepForScaleTest, HugeRangeDoesNotOverflow)
{
    EXPECT_EQ(stepForScale(1e308, 500.0, 50.0), 1e307);
}

TEST(TimeStepForScaleTest, MinutesAndHoursHaveStepsThatDivideThem)
{
    const MultiPlotScheme::TimeStyle styles[] = {MultiPlotScheme::Minutes, MultiPlotScheme::Hours};
    const std::pair<double, double> expected[] = {
        {0.03, 0.05},  {0.9, 1.0},      {1.5, 2.0},       {11.0, 20.0},     {20.0, 20.0},      {21.0, 60.0},
        {61.0, 120.0}, {601.0, 1200.0}, {1201.0, 3600.0}, {3601.0, 7200.0}, {18001.0, 36000.0}};
    for (const MultiPlotScheme::TimeStyle style : styles) {
        for (const auto& [least, step] : expected)
            EXPECT_EQ(timeStepForScale(least, 1.0, 1.0, style), step) << least;
    }
}

TEST(TimeStepForScaleTest, SecondsAndMillisecondsHaveDecimalSteps)
{
    EXPECT_EQ(timeStepForScale(21.0, 1.0, 1.0, MultiPlotScheme::Seconds), 50.0);
    EXPECT_EQ(timeStepForScale(601.0, 1.0, 1.0, MultiPlotScheme::Milliseconds), 1000.0);
}

TEST(TimeStepForScaleTest, HostileNumbersGiveNone)
{
    EXPECT_EQ(timeStepForScale(NotANumber, 1.0, 1.0, MultiPlotScheme::Hours), 0.0);
    EXPECT_EQ(timeStepForScale(Infinity, 1.0, 1.0, MultiPlotScheme::Hours), 0.0);
    EXPECT_EQ(timeStepForScale(10.0, 0.0, 1.0, MultiPlotScheme::Hours), 0.0);
    EXPECT_TRUE(std::isfinite(timeStepForScale(0.9e308, 1.0, 1.0, MultiPlotScheme::Hours)));
}

TEST(DecimalsOfStepTest, AreThoseThatMultiplesNeed)
{
    EXPECT_EQ(decimalsOfStep(1.0), 0);
    EXPECT_EQ(decimalsOfStep(500.0), 0);
    EXPECT_EQ(decimalsOfStep(0.5), 1);
    EXPECT_EQ(decimalsOfStep(0.25), 2);
    EXPECT_EQ(decimalsOfStep(2.5), 1);
    EXPECT_EQ(decimalsOfStep(0.002), 3);
    EXPECT_EQ(decimalsOfStep(1e-14), 14);
}

TEST(DecimalsOfStepTest, AreHeldBetweenNoneAndFifteen)
{
    EXPECT_EQ(decimalsOfStep(1e-20), 15);
    EXPECT_EQ(decimalsOfStep(1.0 / 3.0), 9);
    EXPECT_EQ(decimalsOfStep(Largest), 0);
    for (const double step : {0.0, -0.1, Infinity, NotANumber})
        EXPECT_EQ(decimalsOfStep(step), 0) << step;
}

TEST(GridValuesTest, AreTheMultiplesWithinTheLimits)
{
    EXPECT_THAT(gridValues(-1.0, 2.5, 1.0), ElementsAre(-1.0, 0.0, 1.0, 2.0));
    EXPECT_THAT(gridValues(0.5, 0.9, 1.0), IsEmpty());
    EXPECT_THAT(gridValues(3.0, 3.0, 1.0), ElementsAre(3.0));
}

TEST(GridValuesTest, CountFromTheOrigin)
{
    EXPECT_THAT(gridValues(0.0, 10.0, 4.0, 1.0), ElementsAre(1.0, 5.0, 9.0));
    EXPECT_THAT(gridValues(0.0, 10.0, 4.0, -3.0), ElementsAre(1.0, 5.0, 9.0));
}

TEST(GridValuesTest, AreTheDoublesThatDecimalNumbersStandFor)
{
    // 3 times 0.1 is 0.30000000000000004.
    EXPECT_THAT(gridValues(0.0, 0.7, 0.1), ElementsAre(0.0, 0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7));
    EXPECT_THAT(gridValues(-0.006, 0.006, 0.002),
                ElementsAre(-0.006, -0.004, -0.002, 0.0, 0.002, 0.004, 0.006));
}

TEST(GridValuesTest, ZeroHasNoSign)
{
    const QVector<double> aroundZero = gridValues(-0.3, 0.05, 0.1);
    ASSERT_EQ(aroundZero.size(), 4);
    EXPECT_EQ(aroundZero.last(), 0.0);
    EXPECT_FALSE(std::signbit(aroundZero.last()));
}

TEST(GridValuesTest, RestOfRoundingIsZero)
{
    // 0.3 - 3 * 0.1 leaves 5.6e-17 where steps count from 0.3.
    EXPECT_THAT(gridValues(-0.05, 0.05, 0.1, 0.1 + 0.2), ElementsAre(0.0));
}

TEST(GridValuesTest, HostileNumbersGiveNone)
{
    for (const double bad : {Infinity, -Infinity, NotANumber}) {
        EXPECT_THAT(gridValues(bad, 1.0, 1.0), IsEmpty());
        EXPECT_THAT(gridValues(0.0, bad, 1.0), IsEmpty());
        EXPECT_THAT(gridValues(0.0, 1.0, bad), IsEmpty());
        EXPECT_THAT(gridValues(0.0, 1.0, 1.0, bad), IsEmpty());
    }
    EXPECT_THAT(gridValues(0.0, 1.0, 0.0), IsEmpty());
    EXPECT_THAT(gridValues(0.0, 1.0, -1.0), IsEmpty());
    EXPECT_THAT(gridValues(1.0, 0.0, 0.1), IsEmpty());
    EXPECT_THAT(gridValues(0.0, 1.0, Denormal), IsEmpty());
    EXPECT_THAT(gridValues(-Largest, Largest, 1.0), IsEmpty());
}

TEST(GridValuesTest, TenThousandAreTheMost)
{
    EXPECT_EQ(gridValues(1.0, 10000.0, 1.0).size(), 10000);
    EXPECT_THAT(gridValues(0.0, 10000.0, 1.0), IsEmpty());
}

TEST(GridValuesTest, RiseEvenWhereTheStepIsFinerThanDoublesAre)
{
    // Doubles are 2 apart here.
    EXPECT_THAT(gridValues(1e16, 1e16 + 4.0, 0.5), ElementsAre(1e16, 1e16 + 2.0, 1e16 + 4.0));
}

TEST(TextsThatFitTest, AllFitIfTheyAreApart)
{
    EXPECT_THAT(textsThatFit(row({0.0, 20.0, 40.0}, 15.0), 5.0), ElementsAre(0, 1, 2));
}

TEST(TextsThatFitTest, EveryNthIsKeptFromTheFirst)
{
    EXPECT_THAT(textsThatFit(row({0.0, 20.0, 40.0, 60.0, 80.0}, 16.0), 5.0), ElementsAre(0, 2, 4));
    EXPECT_THAT(textsThatFit(row({0.0, 20.0, 40.0, 60.0, 80.0}, 45.0), 5.0), ElementsAre(0, 3));
}

TEST(TextsThatFitTest, OnlyTheFirstIsKeptWithoutRoom)
{
    EXPECT_THAT(textsThatFit(row({0.0, 20.0, 40.0}, 100.0), 0.0), ElementsAre(0));
    EXPECT_THAT(textsThatFit(row({7.0, 7.0}, 10.0), 0.0), ElementsAre(0));
}

TEST(TextsThatFitTest, WorksDownwardsToo)
{
    const QVector<QRectF> places = {QRectF(0, 0, 50, 10), QRectF(0, 8, 50, 10), QRectF(0, 16, 50, 10)};
    EXPECT_THAT(textsThatFit(places, 2.0), ElementsAre(0, 2));
}

TEST(TextsThatFitTest, NoTextsGiveNone)
{
    EXPECT_THAT(textsThatFit({}, 5.0), IsEmpty());
}

TEST(NumberTextTest, HasTheDecimalsThatAreAskedFor)
{
    const LocaleSetter locale(QLocale::c());
    EXPECT_EQ(number(1.26, 1), "1.3");
    EXPECT_EQ(number(-1.5, 2), "-1.50");
    EXPECT_EQ(number(3.0, 0), "3");
    EXPECT_EQ(number(0.1, -3), "0");
    EXPECT_EQ(number(1.0, 99), "1.000000000000000");
}

TEST(NumberTextTest, IsNeverMinusZero)
{
    const LocaleSetter locale(QLocale::c());
    EXPECT_EQ(number(-0.0, 0), "0");
    EXPECT_EQ(number(-0.0, 2), "0.00");
    EXPECT_EQ(number(-0.004, 2), "0.00");
    EXPECT_EQ(number(-0.4, 0), "0");
    EXPECT_EQ(number(-Denormal, 15), "0.000000000000000");
    EXPECT_EQ(number(-0.006, 2), "-0.01");
    // Halves may be rounded either way, but not to a zero with a sign.
    EXPECT_NE(number(-0.5, 0), "-0");
    EXPECT_NE(number(-0.125, 2), "-0.00");
    EXPECT_NE(number(-0.00048828125, 3), "-0.000");
}

TEST(NumberTextTest, FollowsTheLocale)
{
    {
        const LocaleSetter locale(QLocale(QLocale::German, QLocale::Germany));
        EXPECT_EQ(number(12345.5, 2), "12.345,50");
        EXPECT_EQ(number(-0.001, 2), "0,00");
    }
    const LocaleSetter locale(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(number(12345.5, 2), "12,345.50");
}

TEST(NumberTextTest, HostileNumbersStayShort)
{
    const LocaleSetter locale(QLocale::c());
    EXPECT_EQ(number(NotANumber, 2), "nan");
    EXPECT_EQ(number(Infinity, 2), "inf");
    EXPECT_EQ(number(-Infinity, 2), "-inf");
    EXPECT_EQ(number(1e300, 2), "1e+300");
    EXPECT_EQ(number(-2.5e15, 0), "-2.5e+15");
    EXPECT_EQ(number(999999999999999.0, 0), "999999999999999");
}

TEST(TimeTextTest, IsWrittenInEachStyle)
{
    const LocaleSetter locale(QLocale::c());
    EXPECT_EQ(time(3805.5, MultiPlotScheme::Milliseconds, 3), "3805500");
    EXPECT_EQ(time(3805.5, MultiPlotScheme::Seconds, 3), "3805.500");
    EXPECT_EQ(time(3805.5, MultiPlotScheme::Minutes, 3), "63:25.500");
    EXPECT_EQ(time(3805.5, MultiPlotScheme::Hours, 3), "1:03:25.500");
    EXPECT_EQ(time(0.0, MultiPlotScheme::Minutes, 0), "0:00");
    EXPECT_EQ(time(0.0, MultiPlotScheme::Hours, 1), "0:00:00.0");
}

TEST(TimeTextTest, MillisecondsHaveThreeDecimalsFewer)
{
    const LocaleSetter locale(QLocale::c());
    EXPECT_EQ(time(1.2345678, MultiPlotScheme::Milliseconds, 0), "1235");
    EXPECT_EQ(time(1.2345678, MultiPlotScheme::Milliseconds, 3), "1235");
    EXPECT_EQ(time(1.2345678, MultiPlotScheme::Milliseconds, 5), "1234.57");
}

TEST(TimeTextTest, DecimalsAreHeldBetweenNoneAndNine)
{
    const LocaleSetter locale(QLocale::c());
    EXPECT_EQ(time(61.5, MultiPlotScheme::Minutes, 42), "1:01.500000000");
    EXPECT_EQ(time(61.25, MultiPlotScheme::Minutes, -2), "1:01");
}

TEST(TimeTextTest, RoundedSecondsCarryOver)
{
    EXPECT_EQ(time(59.9996, MultiPlotScheme::Minutes, 3), "1:00.000");
    EXPECT_EQ(time(59.9994, MultiPlotScheme::Minutes, 3), "0:59.999");
    EXPECT_EQ(time(59.9996, MultiPlotScheme::Hours, 3), "0:01:00.000");
    EXPECT_EQ(time(3599.9996, MultiPlotScheme::Hours, 3), "1:00:00.000");
    EXPECT_EQ(time(3599.9996, MultiPlotScheme::Minutes, 3), "60:00.000");
    EXPECT_EQ(time(59.6, MultiPlotScheme::Minutes, 0), "1:00");
}

TEST(TimeTextTest, NegativeTimesHaveOneSign)
{
    EXPECT_EQ(time(-65.25, MultiPlotScheme::Minutes, 2), "-1:05.25");
    EXPECT_EQ(time(-0.5, MultiPlotScheme::Hours, 1), "-0:00:00.5");
    EXPECT_EQ(time(-59.9996, MultiPlotScheme::Minutes, 3), "-1:00.000");
}

TEST(TimeTextTest, IsNeverMinusZero)
{
    const LocaleSetter locale(QLocale::c());
    EXPECT_EQ(time(-0.0, MultiPlotScheme::Minutes, 1), "0:00.0");
    EXPECT_EQ(time(-0.0004, MultiPlotScheme::Minutes, 3), "0:00.000");
    EXPECT_EQ(time(-0.0004, MultiPlotScheme::Hours, 3), "0:00:00.000");
    EXPECT_EQ(time(-0.0004, MultiPlotScheme::Seconds, 3), "0.000");
    EXPECT_EQ(time(-0.0004, MultiPlotScheme::Milliseconds, 3), "0");
}

TEST(TimeTextTest, HoursGoBeyondADay)
{
    EXPECT_EQ(time(90000.0, MultiPlotScheme::Hours, 0), "25:00:00");
    EXPECT_EQ(time(3600.0 * 1000.0 + 59.0, MultiPlotScheme::Hours, 0), "1000:00:59");
    EXPECT_EQ(time(90000.0, MultiPlotScheme::Minutes, 0), "1500:00");
}

TEST(TimeTextTest, LocaleWritesMillisecondsAndSecondsOnly)
{
    const LocaleSetter locale(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(time(12345.678, MultiPlotScheme::Milliseconds, 3), "12.345.678");
    EXPECT_EQ(time(12345.678, MultiPlotScheme::Seconds, 3), "12.345,678");
    EXPECT_EQ(time(12345.678, MultiPlotScheme::Minutes, 3), "205:45.678");
    EXPECT_EQ(time(12345.678, MultiPlotScheme::Hours, 3), "3:25:45.678");
}

TEST(TimeTextTest, HostileTimesAreWrittenAsSeconds)
{
    const LocaleSetter locale(QLocale::c());
    for (const MultiPlotScheme::TimeStyle style :
         {MultiPlotScheme::Seconds, MultiPlotScheme::Minutes, MultiPlotScheme::Hours}) {
        EXPECT_EQ(time(NotANumber, style, 3), "nan");
        EXPECT_EQ(time(-Infinity, style, 3), "-inf");
        EXPECT_EQ(time(1e300, style, 3), "1e+300");
    }
    EXPECT_EQ(time(Infinity, MultiPlotScheme::Milliseconds, 3), "inf");
    EXPECT_EQ(time(999999999999999.0, MultiPlotScheme::Minutes, 0), "16666666666666:39");
}
