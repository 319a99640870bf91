#include "positionselector.h"

#include <QAccessible>
#include <QApplication>
#include <QEvent>
#include <QLocale>
#include <QSignalSpy>
#include <QStyle>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>
#include <QWindow>
#include <QtMath>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Largest = std::numeric_limits<double>::max();

/// Counts the warnings that are logged while it lives.
class WarningCounter
{
public:
    WarningCounter()
    {
        s_count = 0;
        m_before = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString&) {
            if (type == QtWarningMsg)
                ++s_count;
        });
    }
    ~WarningCounter() { qInstallMessageHandler(m_before); }
    int count() const { return s_count; }

private:
    static int s_count;
    QtMessageHandler m_before;
};
int WarningCounter::s_count = 0;

/// A selector of 0 to 100 seconds with the window 40 to 60, shown 800 wide, and what it emits.
class PositionSelectorTest : public testing::Test
{
protected:
    void SetUp() override
    {
        QLocale::setDefault(QLocale::c());
        m_selector.setTotalRange(0.0, 100.0);
        m_selector.setSelectorRange(20.0);
        m_selector.setSelectorPosition(50.0);
        m_selector.resize(800, m_selector.sizeHint().height());
        m_selector.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_selector));
        clearSignals();
    }

    SelectorLayout layout() const
    {
        return SelectorLayout(QRectF(m_selector.contentsRect()), m_selector.font(),
                              m_selector.devicePixelRatioF(), m_selector.totalFrom(), m_selector.totalTo());
    }
    SelectorWindow window() const
    {
        SelectorWindow window;
        window.setTotalRange(m_selector.totalFrom(), m_selector.totalTo());
        window.setRange(m_selector.selectorRange());
        window.setPosition(m_selector.selectorPosition());
        return window;
    }

    QPoint pointAt(double x) const { return QPoint(qRound(x), qRound(layout().bar().center().y())); }
    QPoint pointOfTime(double seconds) const { return pointAt(layout().xOf(seconds)); }
    /// The time of the middle of that pixel's left edge, where mouse events have it.
    double timeOf(const QPoint& point) const { return layout().timeOf(point.x()); }
    QPoint startHandle() const { return pointAt(layout().startHandle(window()).center().x()); }
    QPoint endHandle() const { return pointAt(layout().endHandle(window()).center().x()); }

    // Through the window system, so that buttons, tracking and cursors act as for a user.
    void press(const QPoint& point) { QTest::mousePress(handle(), Qt::LeftButton, {}, point); }
    void move(const QPoint& point) { QTest::mouseMove(handle(), point); }
    void release(const QPoint& point) { QTest::mouseRelease(handle(), Qt::LeftButton, {}, point); }
    void click(const QPoint& point)
    {
        press(point);
        release(point);
    }
    void wheel(const QPoint& angle)
    {
        const QPoint place = pointOfTime(10.0);
        QWheelEvent event(place, m_selector.mapToGlobal(place), QPoint(), angle, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&m_selector, &event);
    }
    void key(int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&m_selector, static_cast<Qt::Key>(code), modifiers);
    }

    void clearSignals()
    {
        m_moves.clear();
        m_positions.clear();
        m_ranges.clear();
    }
    /// What the spy has seen, and forgets.
    static QVector<double> taken(QSignalSpy& spy)
    {
        QVector<double> values;
        for (const QList<QVariant>& arguments : spy)
            values.append(arguments.at(0).toDouble());
        spy.clear();
        return values;
    }
    void expectSilence()
    {
        EXPECT_EQ(m_moves.count(), 0);
        EXPECT_EQ(m_positions.count(), 0);
        EXPECT_EQ(m_ranges.count(), 0);
    }
    void expectWindow(double position, double range) const
    {
        EXPECT_DOUBLE_EQ(m_selector.selectorPosition(), position);
        EXPECT_DOUBLE_EQ(m_selector.selectorRange(), range);
    }

    QWindow* handle() const { return m_selector.windowHandle(); }

    PositionSelector m_selector;
    QSignalSpy m_moves{&m_selector, &PositionSelector::selectorPositionMove};
    QSignalSpy m_positions{&m_selector, &PositionSelector::selectorPositionChange};
    QSignalSpy m_ranges{&m_selector, &PositionSelector::selectorRangeChange};
};

QVector<double> list(std::initializer_list<double> values)
{
    return QVector<double>(values);
}

} // namespace

TEST_F(PositionSelectorTest, SettersEmitNothing)
{
    m_selector.setTotalRange(0.0, 200.0);
    m_selector.setSelectorRange(50.0);
    m_selector.setSelectorPosition(100.0);
    m_selector.setMinimalSelection(80.0);
    m_selector.setStep(0.5);
    m_selector.setTotalRange(0.0, 60.0);
    expectSilence();
    expectWindow(30.0, 60.0);
}

TEST_F(PositionSelectorTest, PositionIsTheCentreAndKeepsTheWindowInside)
{
    m_selector.setSelectorPosition(1.0);
    expectWindow(10.0, 20.0);
    EXPECT_EQ(m_selector.selectorFrom(), 0.0);
    m_selector.setSelectorPosition(99.0);
    expectWindow(90.0, 20.0);
    EXPECT_EQ(m_selector.selectorTo(), 100.0);
}

TEST_F(PositionSelectorTest, HostileNumbersAreLoggedAndChangeNothing)
{
    int calls = 0;
    const WarningCounter warnings;
    for (const double bad : {NotANumber, Infinity, -Infinity}) {
        m_selector.setTotalRange(0.0, bad);
        m_selector.setTotalRange(bad, 100.0);
        m_selector.setSelectorRange(bad);
        m_selector.setSelectorPosition(bad);
        m_selector.setMinimalSelection(bad);
        m_selector.setStep(bad);
        m_selector.setOverview(SampleStore(), bad, 0.0);
        m_selector.setOverview(SampleStore(), 1.0, bad);
        calls += 8;
        m_selector.stepLeft(bad);
        m_selector.stepRight(bad);
    }
    m_selector.setTotalRange(100.0, 0.0);
    m_selector.setTotalRange(-Largest, Largest);
    m_selector.setSelectorRange(-1.0);
    m_selector.setMinimalSelection(0.0);
    m_selector.setStep(0.0);
    m_selector.setOverview(SampleStore(), 0.0, 0.0);
    calls += 6;
    EXPECT_EQ(warnings.count(), calls);
    EXPECT_EQ(m_selector.totalFrom(), 0.0);
    EXPECT_EQ(m_selector.totalTo(), 100.0);
    expectWindow(50.0, 20.0);
    expectSilence();
}

TEST_F(PositionSelectorTest, RangeOfZeroIsHeldAtTheMinimalSelection)
{
    m_selector.setMinimalSelection(0.1);
    m_selector.setSelectorRange(0.0);
    expectWindow(50.0, 0.1);
}

TEST_F(PositionSelectorTest, StepsEmitThePositionOnceEach)
{
    m_selector.setStep(0.25);
    m_selector.stepRight(1.0);
    m_selector.stepLeft(2.5);
    EXPECT_EQ(taken(m_positions), list({55.0, 42.5}));
    expectWindow(42.5, 20.0);
    expectSilence();
}

TEST_F(PositionSelectorTest, StepsAtTheEndEmitNothing)
{
    m_selector.stepRight(1000.0);
    EXPECT_EQ(taken(m_positions), list({90.0}));
    m_selector.stepRight(1.0);
    expectSilence();
}

TEST_F(PositionSelectorTest, ZoomHalvesAndDoublesAroundTheCentre)
{
    m_selector.zoomIn();
    expectWindow(50.0, 10.0);
    m_selector.zoomOut();
    m_selector.zoomOut();
    expectWindow(50.0, 40.0);
    EXPECT_EQ(taken(m_ranges), list({10.0, 20.0, 40.0}));
    expectSilence();
}

TEST_F(PositionSelectorTest, ZoomStopsAtItsLimitsAndIsSilentThere)
{
    m_selector.setMinimalSelection(15.0);
    m_selector.zoomIn();
    m_selector.zoomIn();
    EXPECT_EQ(taken(m_ranges), list({15.0}));
    for (int i = 0; i < 4; ++i)
        m_selector.zoomOut();
    EXPECT_EQ(taken(m_ranges), list({30.0, 60.0, 100.0}));
    expectWindow(50.0, 100.0);
    expectSilence();
}

TEST_F(PositionSelectorTest, DraggedWindowFollowsThePointer)
{
    const QPoint from = pointOfTime(45.0);
    const QPoint to = pointOfTime(65.0);
    const double target = 50.0 + timeOf(to) - timeOf(from);
    press(from);
    expectSilence();
    move(to);
    const QVector<double> moves = taken(m_moves);
    ASSERT_EQ(moves.size(), 1);
    EXPECT_DOUBLE_EQ(moves.first(), target);
    EXPECT_EQ(m_positions.count(), 0);
    release(to);
    EXPECT_EQ(taken(m_positions), moves);
    expectWindow(target, 20.0);
    expectSilence();
}

TEST_F(PositionSelectorTest, DragEmitsEachMovement)
{
    press(pointOfTime(50.0));
    QVector<double> expected;
    for (const double seconds : {52.0, 54.0, 40.0}) {
        move(pointOfTime(seconds));
        expected.append(m_selector.selectorPosition());
    }
    move(pointOfTime(40.0)); // the same place again
    EXPECT_EQ(taken(m_moves), expected);
    EXPECT_LT(expected.last(), 41.0);
    release(pointOfTime(40.0));
    EXPECT_EQ(taken(m_positions), list({expected.last()}));
}

TEST_F(PositionSelectorTest, DragStopsAtTheEnds)
{
    press(pointOfTime(50.0));
    move(QPoint(5000, 10));
    EXPECT_EQ(taken(m_moves), list({90.0}));
    move(QPoint(-5000, 10));
    EXPECT_EQ(taken(m_moves), list({10.0}));
    release(QPoint(-5000, 10));
    EXPECT_EQ(taken(m_positions), list({10.0}));
}

TEST_F(PositionSelectorTest, DragBackToItsStartEndsLikeAnyOther)
{
    const QPoint from = pointOfTime(50.0);
    press(from);
    move(pointOfTime(60.0));
    move(from);
    release(from);
    EXPECT_EQ(taken(m_moves).size(), 2);
    EXPECT_EQ(m_selector.selectorPosition(), 50.0);
    EXPECT_EQ(taken(m_positions), list({50.0}));
}

TEST_F(PositionSelectorTest, ClickBesideTheWindowJumpsThere)
{
    const QPoint place = pointOfTime(80.0);
    click(place);
    EXPECT_EQ(taken(m_moves), list({timeOf(place)}));
    EXPECT_EQ(taken(m_positions), list({timeOf(place)}));
    expectWindow(timeOf(place), 20.0);
    expectSilence();
}

TEST_F(PositionSelectorTest, ClickNearAnEndStopsThere)
{
    click(pointOfTime(0.5));
    EXPECT_EQ(taken(m_positions), list({10.0}));
}

TEST_F(PositionSelectorTest, PressBesideTheWindowGoesOnAsADrag)
{
    press(pointOfTime(80.0));
    move(pointOfTime(30.0));
    release(pointOfTime(30.0));
    EXPECT_EQ(taken(m_moves), list({timeOf(pointOfTime(80.0)), timeOf(pointOfTime(30.0))}));
    EXPECT_EQ(taken(m_positions), list({timeOf(pointOfTime(30.0))}));
}

TEST_F(PositionSelectorTest, ClickInTheWindowPutsItsCentreThere)
{
    const QPoint place = pointOfTime(56.0);
    click(place);
    EXPECT_EQ(taken(m_positions), list({timeOf(place)}));
    expectWindow(timeOf(place), 20.0);
    expectSilence();
}

TEST_F(PositionSelectorTest, UnsteadyClickIsStillAClick)
{
    const QPoint place = pointOfTime(56.0);
    press(place);
    move(place + QPoint(1, 0));
    release(place + QPoint(1, 0));
    EXPECT_EQ(taken(m_positions), list({timeOf(place)}));
    expectSilence();
}

TEST_F(PositionSelectorTest, ClickInAWindowOfAllDoesNothing)
{
    m_selector.setSelectorRange(100.0);
    click(pointOfTime(20.0));
    expectSilence();
    expectWindow(50.0, 100.0);
}

TEST_F(PositionSelectorTest, OtherButtonsDoNothing)
{
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton})
        QTest::mouseClick(handle(), button, {}, pointOfTime(80.0));
    expectSilence();
    expectWindow(50.0, 20.0);
}

TEST_F(PositionSelectorTest, StartHandleChangesTheRangeAgainstTheEnd)
{
    const QPoint from = startHandle();
    const QPoint to = from - QPoint(75, 0);
    const double range = 20.0 + timeOf(from) - timeOf(to);
    press(from);
    move(to);
    QVector<double> ranges = taken(m_ranges);
    ASSERT_EQ(ranges.size(), 1);
    EXPECT_NEAR(ranges.first(), range, 1e-9);
    EXPECT_EQ(m_positions.count(), 0);
    release(to);
    const QVector<double> positions = taken(m_positions);
    ASSERT_EQ(positions.size(), 1);
    EXPECT_NEAR(positions.first(), 60.0 - range * 0.5, 1e-9);
    EXPECT_NEAR(m_selector.selectorTo(), 60.0, 1e-9);
    expectSilence();
}

TEST_F(PositionSelectorTest, EndHandleChangesTheRangeAgainstTheStart)
{
    const QPoint from = endHandle();
    const QPoint to = from + QPoint(75, 0);
    const double range = 20.0 + timeOf(to) - timeOf(from);
    press(from);
    move(to);
    release(to);
    const QVector<double> ranges = taken(m_ranges);
    ASSERT_EQ(ranges.size(), 1);
    EXPECT_NEAR(ranges.first(), range, 1e-9);
    const QVector<double> positions = taken(m_positions);
    ASSERT_EQ(positions.size(), 1);
    EXPECT_NEAR(positions.first(), 40.0 + range * 0.5, 1e-9);
    EXPECT_NEAR(m_selector.selectorFrom(), 40.0, 1e-9);
    expectSilence();
}

TEST_F(PositionSelectorTest, HandlesStopAtTheMinimalSelectionAndTheEnds)
{
    m_selector.setMinimalSelection(5.0);
    press(startHandle());
    move(pointOfTime(95.0));
    EXPECT_EQ(taken(m_ranges), list({5.0}));
    move(QPoint(-500, 10));
    release(QPoint(-500, 10));
    EXPECT_EQ(taken(m_ranges), list({60.0}));
    EXPECT_EQ(m_selector.selectorFrom(), 0.0);
    EXPECT_EQ(m_selector.selectorTo(), 60.0);
}

TEST_F(PositionSelectorTest, PressOnAHandleAloneChangesNothing)
{
    click(startHandle());
    click(endHandle());
    expectSilence();
    expectWindow(50.0, 20.0);
}

TEST_F(PositionSelectorTest, HandlesOfATinyWindowAndOfTheWholeCanBeTaken)
{
    m_selector.setTotalRange(0.0, 28800.0);
    m_selector.setSelectorRange(0.1);
    for (const double position : {0.0, 14400.0, 28800.0}) {
        m_selector.setSelectorPosition(position);
        const SelectorLayout tiny = layout();
        EXPECT_EQ(tiny.partAt(startHandle().x(), window()), SelectorWindow::Part::Start);
        EXPECT_EQ(tiny.partAt(endHandle().x(), window()), SelectorWindow::Part::End);
        EXPECT_EQ(tiny.partAt(tiny.windowRect(window()).center().x(), window()), SelectorWindow::Part::Body);
        EXPECT_TRUE(QRectF(m_selector.rect()).contains(tiny.startHandle(window())));
        EXPECT_TRUE(QRectF(m_selector.rect()).contains(tiny.endHandle(window())));
    }
    m_selector.setSelectorRange(28800.0);
    EXPECT_TRUE(QRectF(m_selector.rect()).contains(layout().startHandle(window())));
    EXPECT_TRUE(QRectF(m_selector.rect()).contains(layout().endHandle(window())));
    press(endHandle());
    move(pointOfTime(14400.0));
    release(pointOfTime(14400.0));
    EXPECT_EQ(m_selector.selectorFrom(), 0.0);
    EXPECT_NEAR(m_selector.selectorTo(), 14400.0, 28800.0 * 10.0 / 700.0);
    EXPECT_EQ(m_ranges.count(), 1);
}

TEST_F(PositionSelectorTest, CursorTellsWhatCanBeDragged)
{
    move(startHandle());
    EXPECT_EQ(m_selector.cursor().shape(), Qt::SizeHorCursor);
    move(pointOfTime(50.0));
    EXPECT_EQ(m_selector.cursor().shape(), Qt::OpenHandCursor);
    move(endHandle());
    EXPECT_EQ(m_selector.cursor().shape(), Qt::SizeHorCursor);
    move(pointOfTime(80.0));
    EXPECT_EQ(m_selector.cursor().shape(), Qt::ArrowCursor);
    press(pointOfTime(50.0));
    EXPECT_EQ(m_selector.cursor().shape(), Qt::ClosedHandCursor);
    release(pointOfTime(50.0));
    EXPECT_EQ(m_selector.cursor().shape(), Qt::OpenHandCursor);
    m_selector.setSelectorRange(100.0);
    move(pointOfTime(40.0));
    EXPECT_EQ(m_selector.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(PositionSelectorTest, EscapeGivesADragUp)
{
    press(pointOfTime(50.0));
    move(pointOfTime(70.0));
    key(Qt::Key_Escape);
    expectWindow(50.0, 20.0);
    EXPECT_EQ(taken(m_positions), list({50.0}));
    clearSignals();
    move(pointOfTime(20.0));
    release(pointOfTime(20.0));
    expectSilence();

    press(endHandle());
    move(pointOfTime(90.0));
    clearSignals();
    key(Qt::Key_Escape);
    EXPECT_EQ(taken(m_ranges), list({20.0}));
    EXPECT_EQ(taken(m_positions), list({50.0}));
    release(pointOfTime(90.0));
    expectSilence();
}

TEST_F(PositionSelectorTest, NewTotalRangeEndsADrag)
{
    press(pointOfTime(50.0));
    m_selector.setTotalRange(0.0, 1000.0);
    move(pointOfTime(700.0));
    release(pointOfTime(700.0));
    expectSilence();
    expectWindow(50.0, 20.0);
}

TEST_F(PositionSelectorTest, DisablingEndsADrag)
{
    press(pointOfTime(50.0));
    move(pointOfTime(60.0));
    const QVector<double> moves = taken(m_moves);
    m_selector.setEnabled(false);
    EXPECT_EQ(taken(m_positions), moves);
    m_selector.setEnabled(true);
    move(pointOfTime(20.0));
    release(pointOfTime(20.0));
    expectSilence();
}

TEST_F(PositionSelectorTest, WheelMovesByStepsForwardsTowardsTheUser)
{
    wheel(QPoint(0, -120));
    EXPECT_EQ(taken(m_positions), list({52.0}));
    wheel(QPoint(0, 240));
    EXPECT_EQ(taken(m_positions), list({48.0}));
    wheel(QPoint(0, -30)); // a fine wheel
    EXPECT_EQ(taken(m_positions), list({48.5}));
    wheel(QPoint(-120, 0)); // a sideways one
    EXPECT_EQ(taken(m_positions), list({50.5}));
    wheel(QPoint(0, 0));
    expectSilence();
}

TEST_F(PositionSelectorTest, ArrowKeysMoveByAStep)
{
    key(Qt::Key_Right);
    key(Qt::Key_Down);
    key(Qt::Key_Left);
    key(Qt::Key_Up);
    EXPECT_EQ(taken(m_positions), list({52.0, 54.0, 52.0, 50.0}));
    expectSilence();
}

TEST_F(PositionSelectorTest, PageKeysMoveByAWindow)
{
    key(Qt::Key_PageDown);
    key(Qt::Key_PageUp);
    key(Qt::Key_PageUp);
    EXPECT_EQ(taken(m_positions), list({70.0, 50.0, 30.0}));
    expectSilence();
}

TEST_F(PositionSelectorTest, HomeAndEndGoToTheEnds)
{
    key(Qt::Key_Home);
    key(Qt::Key_Home);
    key(Qt::Key_End);
    EXPECT_EQ(taken(m_positions), list({10.0, 90.0}));
    expectSilence();
}

TEST_F(PositionSelectorTest, PlusAndMinusZoom)
{
    key(Qt::Key_Plus, Qt::ShiftModifier);
    key(Qt::Key_Plus, Qt::KeypadModifier);
    key(Qt::Key_Equal);
    key(Qt::Key_Minus);
    EXPECT_EQ(taken(m_ranges), list({10.0, 5.0, 2.5, 5.0}));
    expectSilence();
}

TEST_F(PositionSelectorTest, OtherKeysAndShortcutsAreLeftToOthers)
{
    const std::pair<Qt::Key, Qt::KeyboardModifiers> keys[] = {
        {Qt::Key_A, Qt::NoModifier},          {Qt::Key_Escape, Qt::NoModifier},
        {Qt::Key_Right, Qt::ControlModifier}, {Qt::Key_Left, Qt::AltModifier},
        {Qt::Key_Home, Qt::ControlModifier},
    };
    for (const auto& [code, modifiers] : keys) {
        QKeyEvent event(QEvent::KeyPress, code, modifiers);
        QApplication::sendEvent(&m_selector, &event);
        EXPECT_FALSE(event.isAccepted()) << code;
    }
    expectSilence();
}

TEST_F(PositionSelectorTest, EmptySelectorTakesNoMouse)
{
    m_selector.setTotalRange(0.0, 0.0);
    click(QPoint(400, 20));
    wheel(QPoint(0, 120));
    key(Qt::Key_End);
    key(Qt::Key_Plus);
    expectSilence();
    expectWindow(0.0, 0.0);
    EXPECT_FALSE(m_selector.grab().isNull());
}

TEST_F(PositionSelectorTest, TabReachesItAndFocusShows)
{
    EXPECT_EQ(m_selector.focusPolicy(), Qt::StrongFocus);
    m_selector.clearFocus();
    const QImage without = m_selector.grab().toImage();
    QApplication::setActiveWindow(&m_selector);
    m_selector.setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(m_selector.hasFocus());
    EXPECT_NE(m_selector.grab().toImage(), without);
}

TEST_F(PositionSelectorTest, HasRoomForItsNumbersAtItsLeastSize)
{
    const QSize least = m_selector.minimumSizeHint();
    const QSize good = m_selector.sizeHint();
    EXPECT_GE(good.width(), least.width());
    EXPECT_GE(good.height(), least.height());
    const SelectorLayout small(QRectF(QPointF(0, 0), QSizeF(least)), m_selector.font(), 1.0, 0.0, 100.0);
    EXPECT_GE(small.marks(MultiPlotScheme::Seconds).size(), 2);
    QFont large = m_selector.font();
    large.setPointSizeF(large.pointSizeF() * 2.0);
    m_selector.setFont(large);
    EXPECT_GT(m_selector.sizeHint().height(), good.height());
}

TEST_F(PositionSelectorTest, ColoursAreThoseOfThePalettesActiveGroup)
{
    QPalette palette;
    for (const QPalette::ColorGroup group : {QPalette::Inactive, QPalette::Disabled}) {
        for (const QPalette::ColorRole role :
             {QPalette::Base, QPalette::Highlight, QPalette::HighlightedText, QPalette::Text})
            palette.setColor(group, role, Qt::red);
    }
    palette.setColor(QPalette::Active, QPalette::Base, QColor(10, 20, 30));
    palette.setColor(QPalette::Active, QPalette::Highlight, QColor(40, 150, 60));
    palette.setColor(QPalette::Active, QPalette::HighlightedText, QColor(250, 240, 10));
    palette.setColor(QPalette::Active, QPalette::Text, QColor(200, 210, 220));
    m_selector.setPalette(palette);
    QApplication::setActiveWindow(nullptr);
    ASSERT_EQ(m_selector.palette().currentColorGroup(), QPalette::Inactive);
    const QImage image = m_selector.grab().toImage();
    const double ratio = image.devicePixelRatio();
    const auto at = [&image, ratio](const QPoint& point) { return image.pixelColor(point * ratio); };
    const double middle = layout().bar().center().y();
    EXPECT_EQ(at(pointOfTime(20.0)), QColor(10, 20, 30));
    EXPECT_EQ(at(pointOfTime(45.0)), QColor(40, 150, 60));
    EXPECT_EQ(at(QPointF(layout().centreLine(window()).left(), middle).toPoint()), QColor(250, 240, 10));
    int ofText = 0;
    const int below = qRound((layout().bar().bottom() + layout().tickLength()) * ratio);
    for (int y = below; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ofText += image.pixelColor(x, y) == QColor(200, 210, 220) ? 1 : 0;
    }
    EXPECT_GT(ofText, 20);
}

TEST_F(PositionSelectorTest, DisabledLooksPaler)
{
    const QPoint inside = pointOfTime(45.0) * m_selector.devicePixelRatioF();
    const QColor before = m_selector.grab().toImage().pixelColor(inside);
    m_selector.setEnabled(false);
    const QColor after = m_selector.grab().toImage().pixelColor(inside);
    const QColor base = m_selector.palette().color(QPalette::Active, QPalette::Base);
    const auto distance = [&base](const QColor& color) {
        return std::abs(color.red() - base.red()) + std::abs(color.green() - base.green()) +
               std::abs(color.blue() - base.blue());
    };
    EXPECT_LT(distance(after), distance(before));
    EXPECT_GT(distance(after), 0);
}

TEST_F(PositionSelectorTest, OverviewIsDrawnBehindAndWithinTheWindow)
{
    const QImage without = m_selector.grab().toImage();
    QVector<double> samples;
    for (int i = 0; i < 1000; ++i)
        samples.append(i % 2);
    m_selector.setOverview(SampleStore(SampleArray(samples)), 0.1, 0.0);
    const QImage with = m_selector.grab().toImage();
    const auto changedPixels = [&](double from, double to) {
        int changed = 0;
        const double ratio = with.devicePixelRatio();
        for (int x = qCeil(layout().xOf(from) * ratio); x < qFloor(layout().xOf(to) * ratio); ++x) {
            for (int y = 0; y < with.height(); ++y)
                changed += with.pixel(x, y) != without.pixel(x, y) ? 1 : 0;
        }
        return changed;
    };
    EXPECT_GT(changedPixels(5.0, 35.0), 1000);
    EXPECT_GT(changedPixels(42.0, 49.0), 200);
    m_selector.clearOverview();
    EXPECT_EQ(m_selector.grab().toImage(), without);
}

TEST_F(PositionSelectorTest, OverviewStandsAtItsTimes)
{
    const QImage without = m_selector.grab().toImage();
    QVector<float> samples;
    for (int i = 0; i < 100; ++i)
        samples.append(static_cast<float>(i % 2));
    // From 70 s to 80 s only.
    m_selector.setOverview(SampleStore(SampleArray(samples)), 0.1, 70.0);
    const QImage with = m_selector.grab().toImage();
    int least = with.width();
    int greatest = -1;
    for (int y = 0; y < with.height(); ++y) {
        for (int x = 0; x < with.width(); ++x) {
            if (with.pixel(x, y) != without.pixel(x, y)) {
                least = std::min(least, x);
                greatest = std::max(greatest, x);
            }
        }
    }
    const double ratio = with.devicePixelRatio();
    EXPECT_NEAR(least / ratio, layout().xOf(70.0), 2.0);
    EXPECT_NEAR(greatest / ratio, layout().xOf(79.9), 2.0);
}

TEST_F(PositionSelectorTest, OverviewFollowsThePalette)
{
    m_selector.setOverview(SampleStore(SampleArray(QVector<qint16>{0, 100, 0, 100, 0})), 20.0, 0.0);
    const QImage before = m_selector.grab().toImage();
    QPalette palette = m_selector.palette();
    palette.setColor(QPalette::Text, Qt::magenta);
    m_selector.setPalette(palette);
    const QImage after = m_selector.grab().toImage();
    int changed = 0;
    const QRectF bar = layout().bar().adjusted(4.0, 4.0, -4.0, -4.0);
    const double ratio = after.devicePixelRatio();
    for (int y = qCeil(bar.top() * ratio); y < bar.bottom() * ratio; ++y) {
        for (int x = qCeil(bar.left() * ratio); x < bar.right() * ratio; ++x)
            changed += before.pixel(x, y) != after.pixel(x, y) ? 1 : 0;
    }
    EXPECT_GT(changed, 100);
}

TEST_F(PositionSelectorTest, HostileOverviewsDoNoHarm)
{
    const double values[] = {NotANumber, Infinity, -Infinity, Largest, -Largest, 0.0};
    QVector<double> samples;
    for (int i = 0; i < 600; ++i)
        samples.append(values[i % 6]);
    const QVector<SampleArray> arrays = {QVector<double>(), QVector<double>{NotANumber, NotANumber},
                                         QVector<double>{Largest}, QVector<qint8>(500, 7), samples};
    for (const SampleArray& array : arrays) {
        for (const double timePerSample : {1e-300, 0.1, 1e300}) {
            for (const double offset : {-1e300, 0.0, 1e300}) {
                m_selector.setOverview(SampleStore(array), timePerSample, offset);
                EXPECT_FALSE(m_selector.grab().isNull());
            }
        }
    }
}

TEST_F(PositionSelectorTest, DrawsAtAnySizeAndRange)
{
    m_selector.setMinimumSize(1, 1);
    m_selector.setOverview(SampleStore(SampleArray(QVector<qint16>{0, 100, 0})), 1.0, 0.0);
    const std::pair<double, double> ranges[] = {{0.0, 1e-300},      {0.0, 1e300}, {-1e15, 1e15},
                                                {1e15, 1e15 + 1.0}, {-3.0, 7.0},  {0.1234567, 0.7654321}};
    for (const QSize& size : {QSize(1, 1), QSize(3, 200), QSize(30, 8), QSize(90, 30), QSize(3000, 90)}) {
        m_selector.resize(size);
        for (const auto& [from, to] : ranges) {
            m_selector.setTotalRange(from, to);
            for (const auto style : {MultiPlotScheme::Milliseconds, MultiPlotScheme::Hours}) {
                m_selector.setTimeStyle(style);
                EXPECT_FALSE(m_selector.grab().isNull());
            }
        }
    }
}

TEST_F(PositionSelectorTest, WindowIsToldInTheTimeStyle)
{
    EXPECT_EQ(m_selector.windowText(), QLatin1String("40.00 s to 60.00 s (20.00 s)"));
    m_selector.setTimeStyle(MultiPlotScheme::Milliseconds);
    EXPECT_EQ(m_selector.windowText(), QLatin1String("40000 ms to 60000 ms (20000 ms)"));
    m_selector.setTimeStyle(MultiPlotScheme::Hours);
    EXPECT_EQ(m_selector.windowText(), QLatin1String("0:00:40.00 to 0:01:00.00 (0:00:20.00)"));
}

TEST_F(PositionSelectorTest, ToolTipsTellTheTimes)
{
    const auto toolTipAt = [this](const QPoint& point) {
        QHelpEvent event(QEvent::ToolTip, point, m_selector.mapToGlobal(point));
        QApplication::sendEvent(&m_selector, &event);
        return QToolTip::text().toStdString();
    };
    EXPECT_EQ(toolTipAt(pointOfTime(50.0)), "40.00 s to 60.00 s (20.00 s)");
    EXPECT_EQ(toolTipAt(startHandle()), "Start: 40.00 s");
    EXPECT_EQ(toolTipAt(endHandle()), "End: 60.00 s");
    EXPECT_EQ(toolTipAt(QPoint(m_selector.width() - 2, 10)), "100.00 s");
}

TEST_F(PositionSelectorTest, ScreenReadersSeeASlider)
{
    QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&m_selector);
    ASSERT_NE(access, nullptr);
    EXPECT_EQ(access->role(), QAccessible::Slider);
    EXPECT_EQ(access->text(QAccessible::Name), QLatin1String("Position in the recording"));
    EXPECT_TRUE(access->text(QAccessible::Description).contains(QLatin1String("Home")));
    EXPECT_EQ(access->text(QAccessible::Value), m_selector.windowText());
    QAccessibleValueInterface* value = access->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue().toDouble(), 50.0);
    EXPECT_EQ(value->minimumValue().toDouble(), 10.0);
    EXPECT_EQ(value->maximumValue().toDouble(), 90.0);
    EXPECT_EQ(value->minimumStepSize().toDouble(), 2.0);
    value->setCurrentValue(70.0);
    EXPECT_EQ(taken(m_positions), list({70.0}));
    value->setCurrentValue(70.0);
    expectSilence();
}

TEST_F(PositionSelectorTest, ChosenNameStaysWhenTheLanguageChanges)
{
    m_selector.setAccessibleName(QStringLiteral("Window"));
    QEvent change(QEvent::LanguageChange);
    QApplication::sendEvent(&m_selector, &change);
    EXPECT_EQ(m_selector.accessibleName(), QLatin1String("Window"));
    EXPECT_FALSE(m_selector.accessibleDescription().isEmpty());
}

TEST_F(PositionSelectorTest, SlotThatSetsTheSelectorWhileItIsDraggedDoesNoHarm)
{
    QObject::connect(&m_selector, &PositionSelector::selectorPositionMove, &m_selector,
                     [this](double) { m_selector.setTotalRange(0.0, 50.0); });
    press(pointOfTime(50.0));
    move(pointOfTime(60.0));
    move(pointOfTime(30.0));
    release(pointOfTime(30.0));
    expectWindow(40.0, 20.0);
}
