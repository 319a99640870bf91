#include "usermode.h"

#include <gtest/gtest.h>

namespace
{

constexpr int LeastPixels = 5;

StripPoint at(int plot, double seconds, double value = 0.0)
{
    return {plot, seconds, value};
}

} // namespace

TEST(UserDragTest, OnlySixModesAreModes)
{
    EXPECT_FALSE(isUserMode(-1));
    EXPECT_TRUE(isUserMode(UserModeArrow));
    EXPECT_TRUE(isUserMode(UserModeTimeSelection));
    EXPECT_FALSE(isUserMode(6));
}

TEST(UserDragTest, ModesWithoutDragMarkNothing)
{
    for (const UserMode mode : {UserModeArrow, UserModeLine, UserModePoint}) {
        UserDrag drag;
        drag.press(mode, at(0, 1.0), QPoint(10, 10));
        EXPECT_FALSE(drag.isActive());
        drag.move(at(0, 2.0), QPoint(50, 10));
        MarkedPeriod period;
        EXPECT_FALSE(drag.release(LeastPixels, period));
        EXPECT_FALSE(drag.showsDistance());
    }
}

TEST(UserDragTest, SignalSelectionStaysOnItsStrip)
{
    UserDrag drag;
    drag.press(UserModeSignalSelection, at(2, 1.0), QPoint(10, 10));
    drag.move(at(3, 2.5), QPoint(50, 90));
    EXPECT_TRUE(drag.showsPeriod());
    EXPECT_EQ(drag.plot(), 2);
    MarkedPeriod period;
    ASSERT_TRUE(drag.release(LeastPixels, period));
    EXPECT_EQ(period.plot, 2);
    EXPECT_EQ(period.from, 1.0);
    EXPECT_EQ(period.to, 2.5);
    EXPECT_FALSE(drag.isActive());
    EXPECT_FALSE(drag.showsPeriod());
}

TEST(UserDragTest, SelectionToTheLeftIsTurnedRound)
{
    UserDrag drag;
    drag.press(UserModeTimeSelection, at(2, 4.0), QPoint(80, 10));
    drag.move(at(2, 1.5), QPoint(10, 10));
    MarkedPeriod period;
    ASSERT_TRUE(drag.release(LeastPixels, period));
    EXPECT_EQ(period.plot, -1);
    EXPECT_EQ(period.from, 1.5);
    EXPECT_EQ(period.to, 4.0);
}

TEST(UserDragTest, SelectionOfASignalNeedsAStrip)
{
    UserDrag drag;
    drag.press(UserModeSignalSelection, at(-1, 1.0), QPoint(10, 10));
    EXPECT_FALSE(drag.isActive());
    drag.press(UserModeMeasure, at(-1, 1.0), QPoint(10, 10));
    EXPECT_FALSE(drag.isActive());
    drag.press(UserModeTimeSelection, at(-1, 1.0), QPoint(10, 10));
    EXPECT_TRUE(drag.isActive());
}

TEST(UserDragTest, TremblingMarksNothing)
{
    UserDrag drag;
    drag.press(UserModeTimeSelection, at(0, 1.0), QPoint(10, 10));
    drag.move(at(0, 1.1), QPoint(14, 60));
    MarkedPeriod period;
    EXPECT_FALSE(drag.release(LeastPixels, period));
    drag.press(UserModeTimeSelection, at(0, 1.0), QPoint(10, 10));
    drag.move(at(0, 1.1), QPoint(15, 10));
    EXPECT_TRUE(drag.release(LeastPixels, period));
}

TEST(UserDragTest, ReturnToTheStartMarksNothing)
{
    UserDrag drag;
    drag.press(UserModeTimeSelection, at(0, 1.0), QPoint(10, 10));
    drag.move(at(0, 9.0), QPoint(90, 10));
    drag.move(at(0, 1.0), QPoint(10, 10));
    MarkedPeriod period;
    EXPECT_FALSE(drag.release(LeastPixels, period));
}

TEST(UserDragTest, CancelledSelectionMarksNothing)
{
    UserDrag drag;
    drag.press(UserModeTimeSelection, at(0, 1.0), QPoint(10, 10));
    drag.move(at(0, 9.0), QPoint(90, 10));
    drag.cancel();
    MarkedPeriod period;
    EXPECT_FALSE(drag.release(LeastPixels, period));
}

TEST(UserDragTest, MeasuredDistanceStaysUntilTheNextPress)
{
    UserDrag drag;
    drag.press(UserModeMeasure, at(1, 1.0, 5.0), QPoint(10, 10));
    EXPECT_FALSE(drag.showsDistance());
    drag.move(at(1, 3.0, -2.0), QPoint(90, 10));
    MarkedPeriod period;
    EXPECT_FALSE(drag.release(LeastPixels, period));
    EXPECT_TRUE(drag.showsDistance());
    EXPECT_EQ(drag.start().value, 5.0);
    EXPECT_EQ(drag.end().seconds, 3.0);
    EXPECT_EQ(drag.end().value, -2.0);
    drag.press(UserModeMeasure, at(1, 1.0), QPoint(10, 10));
    EXPECT_FALSE(drag.showsDistance());
}

TEST(UserDragTest, RestartChangesOnlyTheStart)
{
    UserDrag drag;
    drag.press(UserModeTimeSelection, at(0, 1.0), QPoint(10, 10));
    drag.move(at(0, 5.0), QPoint(50, 10));
    drag.restart(UserModeTimeSelection, at(0, 2.0), QPoint(20, 10));
    EXPECT_TRUE(drag.isActive());
    EXPECT_EQ(drag.period().from, 2.0);
    EXPECT_EQ(drag.period().to, 5.0);
    EXPECT_EQ(drag.period().plot, -1);
}

TEST(UserDragTest, RestartInAnotherModeBeginsAnew)
{
    UserDrag drag;
    drag.press(UserModeMeasure, at(0, 1.0), QPoint(10, 10));
    drag.move(at(0, 5.0), QPoint(50, 10));
    drag.restart(UserModeTimeSelection, at(0, 2.0), QPoint(20, 10));
    EXPECT_TRUE(drag.showsPeriod());
    EXPECT_FALSE(drag.showsDistance());
    EXPECT_EQ(drag.period().to, 2.0);
}
