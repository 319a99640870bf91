#include "selectorwindow.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Largest = std::numeric_limits<double>::max();
using Part = SelectorWindow::Part;

/// A window within 0 to 100 seconds.
SelectorWindow windowOf(double position, double range)
{
    SelectorWindow window;
    window.setTotalRange(0.0, 100.0);
    window.setRange(range);
    window.setPosition(position);
    return window;
}

void expectWindow(const SelectorWindow& window, double from, double to)
{
    EXPECT_DOUBLE_EQ(window.from(), from);
    EXPECT_DOUBLE_EQ(window.to(), to);
    EXPECT_DOUBLE_EQ(window.range(), to - from);
    EXPECT_DOUBLE_EQ(window.position(), (from + to) * 0.5);
}

} // namespace

TEST(SelectorWindowTest, NewWindowIsEmpty)
{
    const SelectorWindow window;
    expectWindow(window, 0.0, 0.0);
    EXPECT_EQ(window.totalRange(), 0.0);
    EXPECT_TRUE(window.isWhole());
}

TEST(SelectorWindowTest, FirstTotalRangeIsSelectedWhole)
{
    SelectorWindow window;
    EXPECT_TRUE(window.setTotalRange(10.0, 30.0));
    expectWindow(window, 10.0, 30.0);
}

TEST(SelectorWindowTest, WindowIsKeptInANewTotalRangeAsFarAsItFits)
{
    SelectorWindow window = windowOf(50.0, 20.0);
    window.setTotalRange(0.0, 200.0);
    expectWindow(window, 40.0, 60.0);
    window.setTotalRange(0.0, 50.0);
    expectWindow(window, 30.0, 50.0);
    window.setTotalRange(0.0, 10.0);
    expectWindow(window, 0.0, 10.0);
    window.setTotalRange(5.0, 5.0);
    expectWindow(window, 5.0, 5.0);
}

TEST(SelectorWindowTest, BadTotalRangesChangeNothing)
{
    SelectorWindow window = windowOf(50.0, 20.0);
    EXPECT_FALSE(window.setTotalRange(30.0, 10.0));
    EXPECT_FALSE(window.setTotalRange(NotANumber, 10.0));
    EXPECT_FALSE(window.setTotalRange(0.0, NotANumber));
    EXPECT_FALSE(window.setTotalRange(0.0, Infinity));
    EXPECT_FALSE(window.setTotalRange(-Infinity, Infinity));
    EXPECT_FALSE(window.setTotalRange(-Largest, Largest));
    EXPECT_EQ(window.totalFrom(), 0.0);
    EXPECT_EQ(window.totalTo(), 100.0);
    expectWindow(window, 40.0, 60.0);
}

TEST(SelectorWindowTest, RangeChangesAroundTheCentre)
{
    SelectorWindow window = windowOf(50.0, 20.0);
    EXPECT_TRUE(window.setRange(30.0));
    expectWindow(window, 35.0, 65.0);
}

TEST(SelectorWindowTest, WideWindowIsPushedInside)
{
    SelectorWindow window = windowOf(90.0, 20.0);
    window.setRange(40.0);
    expectWindow(window, 60.0, 100.0);
    window.setRange(1000.0);
    expectWindow(window, 0.0, 100.0);
}

TEST(SelectorWindowTest, RangeIsHeldAtTheMinimum)
{
    SelectorWindow window = windowOf(50.0, 20.0);
    EXPECT_TRUE(window.setMinimalRange(2.0));
    EXPECT_TRUE(window.setRange(0.0));
    expectWindow(window, 49.0, 51.0);
}

TEST(SelectorWindowTest, NewMinimumWidensANarrowerWindow)
{
    SelectorWindow window = windowOf(0.0, 2.0);
    window.setMinimalRange(10.0);
    expectWindow(window, 0.0, 10.0);
}

TEST(SelectorWindowTest, MinimumAboveTheTotalRangeSelectsAll)
{
    SelectorWindow window = windowOf(50.0, 20.0);
    window.setMinimalRange(1000.0);
    expectWindow(window, 0.0, 100.0);
    EXPECT_EQ(window.minimalRange(), 100.0);
}

TEST(SelectorWindowTest, WithoutAMinimumABillionthIsTheLeast)
{
    SelectorWindow window = windowOf(50.0, 20.0);
    window.setRange(0.0);
    EXPECT_DOUBLE_EQ(window.range(), 1e-7);
}

TEST(SelectorWindowTest, BadNumbersChangeNothing)
{
    SelectorWindow window = windowOf(50.0, 20.0);
    window.setMinimalRange(1.0);
    EXPECT_FALSE(window.setRange(-1.0));
    EXPECT_FALSE(window.setMinimalRange(0.0));
    EXPECT_FALSE(window.setMinimalRange(-1.0));
    EXPECT_FALSE(window.setStep(0.0));
    EXPECT_FALSE(window.setStep(-0.1));
    for (const double bad : {NotANumber, Infinity, -Infinity}) {
        EXPECT_FALSE(window.setRange(bad));
        EXPECT_FALSE(window.setPosition(bad));
        EXPECT_FALSE(window.setMinimalRange(bad));
        EXPECT_FALSE(window.setStep(bad));
        EXPECT_FALSE(window.moveSteps(bad));
        EXPECT_FALSE(window.moveWindows(bad));
        EXPECT_FALSE(window.zoom(bad == Infinity ? NotANumber : bad));
        window.beginDrag(Part::Body, 50.0);
        EXPECT_FALSE(window.dragTo(bad));
        window.endDrag();
    }
    EXPECT_EQ(window.step(), 0.1);
    EXPECT_EQ(window.minimalRange(), 1.0);
    expectWindow(window, 40.0, 60.0);
}

TEST(SelectorWindowTest, PositionIsHeldWithinTheTotalRange)
{
    SelectorWindow window = windowOf(50.0, 20.0);
    window.setPosition(-1e300);
    expectWindow(window, 0.0, 20.0);
    window.setPosition(1e300);
    expectWindow(window, 80.0, 100.0);
}

TEST(SelectorWindowTest, WindowAtTheEndEndsExactlyThere)
{
    for (const double total : {0.3, 1234.567, 28800.1, 1e9 / 3.0}) {
        SelectorWindow window;
        window.setTotalRange(0.1, total);
        for (const double range : {0.1 / 3.0, 0.07, 0.11}) {
            window.setRange(range);
            window.moveToEnd();
            EXPECT_EQ(window.to(), total);
            window.moveToStart();
            EXPECT_EQ(window.from(), 0.1);
        }
    }
}

TEST(SelectorWindowTest, StepsMoveByAFractionOfTheWindow)
{
    SelectorWindow window = windowOf(50.0, 20.0);
    EXPECT_TRUE(window.moveSteps(1.0));
    expectWindow(window, 42.0, 62.0);
    EXPECT_TRUE(window.moveSteps(-2.5));
    expectWindow(window, 37.0, 57.0);
    window.setStep(0.5);
    EXPECT_TRUE(window.moveSteps(1.0));
    expectWindow(window, 47.0, 67.0);
}

TEST(SelectorWindowTest, StepsStopAtTheEnds)
{
    SelectorWindow window = windowOf(50.0, 20.0);
    EXPECT_TRUE(window.moveSteps(1e308));
    expectWindow(window, 80.0, 100.0);
    EXPECT_FALSE(window.moveSteps(1.0));
    EXPECT_TRUE(window.moveWindows(-1e308));
    expectWindow(window, 0.0, 20.0);
    EXPECT_FALSE(window.moveToStart());
    EXPECT_FALSE(window.moveSteps(0.0));
}

TEST(SelectorWindowTest, PageMovesByAWindow)
{
    SelectorWindow window = windowOf(50.0, 20.0);
    EXPECT_TRUE(window.moveWindows(1.0));
    expectWindow(window, 60.0, 80.0);
    EXPECT_TRUE(window.moveWindows(-1.0));
    expectWindow(window, 40.0, 60.0);
}

TEST(SelectorWindowTest, ZoomKeepsTheCentre)
{
    SelectorWindow window = windowOf(50.0, 20.0);
    EXPECT_TRUE(window.zoom(0.5));
    expectWindow(window, 45.0, 55.0);
    EXPECT_TRUE(window.zoom(2.0));
    EXPECT_TRUE(window.zoom(2.0));
    expectWindow(window, 30.0, 70.0);
}

TEST(SelectorWindowTest, ZoomStopsAtItsLimits)
{
    SelectorWindow window = windowOf(50.0, 60.0);
    EXPECT_TRUE(window.zoom(2.0));
    expectWindow(window, 0.0, 100.0);
    EXPECT_FALSE(window.zoom(2.0));
    window.setMinimalRange(30.0);
    EXPECT_TRUE(window.zoom(0.5));
    EXPECT_TRUE(window.zoom(0.5));
    expectWindow(window, 35.0, 65.0);
    EXPECT_FALSE(window.zoom(0.5));
}

TEST(SelectorWindowTest, ZoomOfAHugeRangeDoesNotOverflow)
{
    SelectorWindow window;
    window.setTotalRange(0.0, Largest);
    window.setRange(Largest * 0.75);
    EXPECT_TRUE(window.zoom(2.0));
    EXPECT_EQ(window.range(), Largest);
}

TEST(SelectorWindowTest, DraggedBodyKeepsItsDistanceFromThePointer)
{
    SelectorWindow window = windowOf(50.0, 20.0);
    window.beginDrag(Part::Body, 45.0);
    EXPECT_EQ(window.draggedPart(), Part::Body);
    EXPECT_TRUE(window.dragTo(55.0));
    expectWindow(window, 50.0, 70.0);
    EXPECT_FALSE(window.dragTo(55.0));
    EXPECT_TRUE(window.dragTo(1000.0));
    expectWindow(window, 80.0, 100.0);
    window.endDrag();
    EXPECT_FALSE(window.dragTo(0.0));
    expectWindow(window, 80.0, 100.0);
}

TEST(SelectorWindowTest, DraggedStartLeavesTheEndInPlace)
{
    SelectorWindow window = windowOf(50.0, 20.0);
    window.setMinimalRange(5.0);
    window.beginDrag(Part::Start, 39.0); // a second beside the edge
    EXPECT_FALSE(window.dragTo(39.0));
    EXPECT_TRUE(window.dragTo(29.0));
    expectWindow(window, 30.0, 60.0);
    EXPECT_TRUE(window.dragTo(-500.0));
    expectWindow(window, 0.0, 60.0);
    EXPECT_TRUE(window.dragTo(99.0)); // beyond the other edge
    expectWindow(window, 55.0, 60.0);
}

TEST(SelectorWindowTest, DraggedEndLeavesTheStartInPlace)
{
    SelectorWindow window = windowOf(50.0, 20.0);
    window.setMinimalRange(5.0);
    window.beginDrag(Part::End, 61.0);
    EXPECT_TRUE(window.dragTo(71.0));
    expectWindow(window, 40.0, 70.0);
    EXPECT_TRUE(window.dragTo(500.0));
    expectWindow(window, 40.0, 100.0);
    EXPECT_TRUE(window.dragTo(0.0));
    expectWindow(window, 40.0, 45.0);
}

TEST(SelectorWindowTest, CancelledDragRestoresTheWindow)
{
    SelectorWindow window = windowOf(50.0, 20.0);
    window.beginDrag(Part::End, 60.0);
    window.dragTo(90.0);
    EXPECT_TRUE(window.cancelDrag());
    expectWindow(window, 40.0, 60.0);
    EXPECT_EQ(window.draggedPart(), Part::None);
    EXPECT_FALSE(window.cancelDrag());
}

TEST(SelectorWindowTest, NewTotalRangeEndsADrag)
{
    SelectorWindow window = windowOf(50.0, 20.0);
    window.beginDrag(Part::Start, 40.0);
    window.setTotalRange(0.0, 1000.0);
    EXPECT_EQ(window.draggedPart(), Part::None);
    EXPECT_FALSE(window.dragTo(0.0));
}

TEST(SelectorWindowTest, EmptyRangeDoesNotMove)
{
    SelectorWindow window;
    window.setTotalRange(7.0, 7.0);
    EXPECT_FALSE(window.moveSteps(3.0));
    EXPECT_FALSE(window.zoom(0.5));
    EXPECT_FALSE(window.zoom(2.0));
    EXPECT_FALSE(window.moveToEnd());
    expectWindow(window, 7.0, 7.0);
}
