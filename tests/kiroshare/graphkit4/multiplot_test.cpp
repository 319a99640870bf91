#include "multiplotfixture.h"

#include "support/translationbuilder.h"

#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QSignalSpy>
#include <QTranslator>
#include <QWheelEvent>

#include <cmath>
#include <memory>

namespace
{

/// (point, plot, value, button, modifiers) of a mouse signal.
void expectMouse(const QList<QVariant>& got, const QPoint& point, int strip, const QPointF& value,
                 const QPointF& tolerance, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    ASSERT_EQ(got.size(), 5);
    EXPECT_EQ(got[0].toPoint(), point);
    EXPECT_EQ(got[1].toInt(), strip);
    EXPECT_NEAR(got[2].toPointF().x(), value.x(), tolerance.x());
    EXPECT_NEAR(got[2].toPointF().y(), value.y(), tolerance.y());
    EXPECT_EQ(got[3].value<Qt::MouseButton>(), button);
    EXPECT_EQ(got[4].value<Qt::KeyboardModifiers>(), modifiers);
}

KiroLabel timeLine(uint ms, const QColor& color)
{
    KiroLabel label;
    label.setupTimeLine(ms, QString(), QString(), color);
    return label;
}

} // namespace

TEST(MultiPlotEmptyTest, NewWidgetHasNoStripsAndDrawsItsBackground)
{
    MultiPlot plot;
    EXPECT_EQ(plot.plotCount, 0);
    EXPECT_EQ(plot.plot(0), nullptr);
    EXPECT_EQ(plot.precision(), 3);
    EXPECT_EQ(plot.userMode, UserModeArrow);
    plot.resize(200, 100);
    plot.redraw(true);
    const QImage image = plot.grab().toImage();
    EXPECT_EQ(countAll(image, Qt::white), image.width() * image.height());
    EXPECT_EQ(plot.getScreenPoint(0, QPointF()), QPoint(-1, -1));
}

TEST(MultiPlotEmptyTest, FormPropertiesReadAndWrite)
{
    std::unique_ptr<QObject> object = std::make_unique<MultiPlot>();
    EXPECT_TRUE(object->setProperty("m_nPlotCount", 4));
    EXPECT_TRUE(object->setProperty("m_nPrecision", 5));
    EXPECT_TRUE(object->setProperty("m_fHorzGrid", 2.5));
    EXPECT_EQ(object->property("m_nPlotCount").toInt(), 4);
    EXPECT_EQ(object->property("m_nPrecision").toInt(), 5);
    EXPECT_EQ(object->property("m_fHorzGrid").toDouble(), 2.5);
    const auto* const plot = qobject_cast<MultiPlot*>(object.get());
    EXPECT_EQ(plot->plotCount, 4);
    EXPECT_EQ(plot->precision(), 5);
}

TEST(MultiPlotEmptyTest, HasNameAndDescriptionForScreenReaders)
{
    const MultiPlot plot;
    EXPECT_EQ(plot.accessibleName(), QStringLiteral("Signal strips"));
    EXPECT_FALSE(plot.accessibleDescription().isEmpty());
    EXPECT_EQ(plot.focusPolicy(), Qt::StrongFocus);
}

TEST(MultiPlotEmptyTest, PrecisionIsHeldBetweenNoneAndNine)
{
    MultiPlot plot;
    plot.setPrecision(9);
    plot.setPrecision(10);
    EXPECT_EQ(plot.precision(), 9);
    plot.setPrecision(0);
    plot.setPrecision(-1);
    EXPECT_EQ(plot.precision(), 0);
}

TEST(MultiPlotEmptyTest, TextsForScreenReadersFollowTheLanguageUnlessOthersWereSet)
{
    const std::string bytes = translationBytes({{"Signal strips", QStringLiteral("Paski")}});
    QTranslator translator;
    ASSERT_TRUE(translator.load(reinterpret_cast<const uchar*>(bytes.data()), int(bytes.size())));
    MultiPlot plot;
    MultiPlot named;
    named.setAccessibleName(QStringLiteral("Preview"));
    qApp->installTranslator(&translator);
    QApplication::processEvents();
    EXPECT_EQ(plot.accessibleName(), QStringLiteral("Paski"));
    EXPECT_EQ(named.accessibleName(), QStringLiteral("Preview"));
    qApp->removeTranslator(&translator);
    QApplication::processEvents();
    EXPECT_EQ(plot.accessibleName(), QStringLiteral("Signal strips"));
}

TEST_F(MultiPlotTest, PlotCountRebuildsAndRefusesNonsense)
{
    EXPECT_FALSE(plot.setPlotCount(-1));
    EXPECT_FALSE(plot.setPlotCount(std::numeric_limits<int>::max()));
    EXPECT_EQ(plot.plotCount, 3);
    EXPECT_EQ(plot.plot(0)->dataSize(), SampleCount);
    EXPECT_EQ(plot.plot(3), nullptr);
    EXPECT_EQ(plot.plot(-1), nullptr);
    EXPECT_TRUE(plot.setPlotCount(2));
    EXPECT_EQ(plot.plot(0)->dataSize(), 0);
    EXPECT_TRUE(plot.setPlotCount(0));
    plot.redraw(true);
    EXPECT_EQ(plot.plot(0), nullptr);
}

TEST_F(MultiPlotTest, EmptyDataDrawsNothingInItsStrip)
{
    plot.setPlotCount(1);
    EXPECT_TRUE(plot.plot(0)->setData(QVector<short>(), 0, -1));
    EXPECT_EQ(plot.plot(0)->dataSize(), 0);
    plot.redraw(true);
    EXPECT_EQ(countAll(picture(), plot.dataPen().color()), 0);
}

TEST_F(MultiPlotTest, DataIsDrawnInTheDataPen)
{
    MultiPlotScheme scheme;
    scheme.setData(QPen(QColor(1, 200, 3), 0));
    plot.setScheme(scheme);
    plot.setPlotCount(1);
    plot.plot(0)->setData(QVector<double>({5.0, 5.0}), 0, -1);
    plot.plot(0)->setTimePerSample(10.0);
    plot.redraw(true);
    const QPoint middle = at(0, 5.0, 5.0);
    const QImage image = picture();
    EXPECT_GT(countInColumn(image, middle.x(), QColor(1, 200, 3)), 0);
}

TEST_F(MultiPlotTest, ScreenPointsLieOnTheirStrips)
{
    EXPECT_LT(at(0, 5.0, 0.0).y(), at(1, 5.0, 200.0).y());
    EXPECT_LT(at(1, 5.0, 0.0).y(), at(2, 5.0, 0.0).y());
    EXPECT_LT(at(0, 5.0, 1000.0).y(), at(0, 5.0, 0.0).y());
    EXPECT_NEAR(at(0, 5.0, 0.0).x(), (at(0, 0.0, 0.0).x() + at(0, 10.0, 0.0).x()) / 2.0, 1.0);
    EXPECT_EQ(at(3, 5.0, 0.0), QPoint(-1, -1));
    EXPECT_EQ(at(unsigned(-1), 5.0, 0.0), QPoint(-1, -1));
    EXPECT_LE(std::abs(at(0, 1e300, NaN).x()), 30000);
}

TEST_F(MultiPlotTest, HidingAStripWaitsForTheNextRedraw)
{
    const QPoint before = at(2, 5.0, 0.0);
    plot.plot(0)->setShowPlot(false);
    EXPECT_EQ(at(2, 5.0, 0.0), before);
    plot.redraw(true);
    EXPECT_EQ(at(0, 5.0, 0.0), QPoint(-1, -1));
    EXPECT_LT(at(2, 5.0, -1.0).y() - at(2, 5.0, 0.0).y(), 420);
    EXPECT_NE(at(2, 5.0, 0.0), before);
}

TEST_F(MultiPlotTest, SchemeWaitsForTheNextRedrawOfAll)
{
    MultiPlotScheme scheme = plot.scheme();
    scheme.setBkg(QColor(10, 20, 30));
    scheme.setName(QStringLiteral("Night"));
    plot.setScheme(scheme);
    EXPECT_EQ(plot.scheme().name(), QStringLiteral("Night"));
    EXPECT_EQ(countAll(picture(), QColor(10, 20, 30)), 0);
    plot.redraw(false);
    EXPECT_EQ(countAll(picture(), QColor(10, 20, 30)), 0);
    plot.redraw(true);
    EXPECT_GT(countAll(picture(), QColor(10, 20, 30)), 100000);
    EXPECT_EQ(plot.bkgColor, QColor(10, 20, 30));
}

TEST_F(MultiPlotTest, PartsOfTheSchemeAreReadBack)
{
    MultiPlotScheme scheme;
    scheme.setFont(QFont(QStringLiteral("DejaVu Serif"), 13));
    scheme.setFrg(QPen(Qt::red, 2));
    scheme.setData(QPen(Qt::green, 3));
    scheme.setGrid(QPen(Qt::blue, 4));
    scheme.setMarker(QPen(Qt::cyan, 5));
    scheme.setPointer(QPen(Qt::magenta, 6));
    plot.setScheme(scheme);
    EXPECT_EQ(plot.font().pointSize(), 13);
    EXPECT_EQ(plot.frgPen(), scheme.frg());
    EXPECT_EQ(plot.dataPen(), scheme.data());
    EXPECT_EQ(plot.gridPen(), scheme.grid());
    EXPECT_EQ(plot.markerPen(), scheme.marker());
    EXPECT_EQ(plot.pointerPen(), scheme.pointer());
}

TEST_F(MultiPlotTest, HorzScaleIsOrderedAndRefusesNonsense)
{
    plot.setHorzScale(8.0, 3.0);
    EXPECT_EQ(plot.horzMin, 3.0);
    EXPECT_EQ(plot.horzMax, 8.0);
    plot.setHorzScale(NaN, 5.0);
    EXPECT_EQ(plot.horzMin, 3.0);
    plot.setHorzScale(4.0, 4.0);
    plot.redraw(true);
    EXPECT_EQ(plot.horzMax, 4.0);
}

TEST_F(MultiPlotTest, GridIsKeptOrChosen)
{
    plot.setHorzGrid(2.5);
    EXPECT_EQ(plot.horzGrid(), 2.5);
    plot.adjustHorzGrid();
    EXPECT_EQ(plot.horzGrid(), 1.0);
    plot.setHorzScale(0.0, 100.0);
    EXPECT_EQ(plot.horzGrid(), 10.0);
}

TEST_F(MultiPlotTest, GridLinesStandAtMultiplesWhenTheSchemeSaysSo)
{
    MultiPlotScheme scheme;
    const QColor grid(3, 250, 250);
    scheme.setGrid(QPen(grid, 0));
    scheme.setVertGrid(false);
    plot.setScheme(scheme);
    plot.setPlotCount(1);
    plot.setHorzGrid(4.0);
    plot.redraw(true);
    const QImage image = picture();
    QVector<int> columns;
    for (int x = 0; x < image.width(); ++x) {
        if (countInColumn(image, x, grid) > 100)
            columns.append(x);
    }
    EXPECT_EQ(columns, QVector<int>({at(0, 0.0, 0.0).x(), at(0, 4.0, 0.0).x(), at(0, 8.0, 0.0).x()}));
    scheme.setHorzGrid(false);
    plot.setScheme(scheme);
    plot.redraw(true);
    EXPECT_EQ(countAll(picture(), grid), 0);
}

TEST_F(MultiPlotTest, LeftPressAndReleaseTellStripTimeAndValue)
{
    QSignalSpy press(&plot, &MultiPlot::sigMouseLeftPress);
    QSignalSpy release(&plot, &MultiPlot::sigMouseLeftRelease);
    const QPoint point = at(1, 4.0, 120.0);
    const QPointF tolerance(pixelSeconds(), 3.0);
    QTest::mousePress(&plot, Qt::LeftButton, Qt::ShiftModifier, point);
    ASSERT_EQ(press.count(), 1);
    EXPECT_EQ(release.count(), 0);
    expectMouse(press[0], point, 1, QPointF(4.0, 120.0), tolerance, Qt::LeftButton, Qt::ShiftModifier);
    QTest::mouseRelease(&plot, Qt::LeftButton, Qt::ControlModifier, point);
    ASSERT_EQ(release.count(), 1);
    expectMouse(release[0], point, 1, QPointF(4.0, 120.0), tolerance, Qt::LeftButton, Qt::ControlModifier);
}

TEST_F(MultiPlotTest, OverNoStripThePlotIsMinusOneButTheTimeIsTold)
{
    QSignalSpy press(&plot, &MultiPlot::sigMouseLeftPress);
    const QPoint below(at(0, 6.0, 0.0).x(), plot.height() - 4);
    QTest::mousePress(&plot, Qt::LeftButton, {}, below);
    const QPoint left(4, at(1, 0.0, 100.0).y());
    QTest::mousePress(&plot, Qt::LeftButton, {}, left);
    ASSERT_EQ(press.count(), 2);
    expectMouse(press[0], below, -1, QPointF(6.0, 0.0), QPointF(pixelSeconds(), 0.0), Qt::LeftButton, {});
    expectMouse(press[1], left, -1, QPointF(0.0, 0.0), QPointF(0.0, 0.0), Qt::LeftButton, {});
}

TEST_F(MultiPlotTest, RightReleaseIsToldAndRightPressIsNot)
{
    QSignalSpy right(&plot, &MultiPlot::sigMouseRightRelease);
    QSignalSpy press(&plot, &MultiPlot::sigMouseLeftPress);
    QSignalSpy release(&plot, &MultiPlot::sigMouseLeftRelease);
    const QPoint point = at(2, 7.0, -500.0);
    QTest::mousePress(&plot, Qt::RightButton, Qt::AltModifier, point);
    EXPECT_EQ(right.count(), 0);
    QTest::mouseRelease(&plot, Qt::RightButton, Qt::AltModifier, point);
    ASSERT_EQ(right.count(), 1);
    expectMouse(right[0], point, 2, QPointF(7.0, -500.0), QPointF(pixelSeconds(), 15.0), Qt::RightButton,
                Qt::AltModifier);
    QTest::mouseClick(&plot, Qt::MiddleButton, {}, point);
    EXPECT_EQ(right.count(), 1);
    EXPECT_EQ(press.count() + release.count(), 0);
}

TEST_F(MultiPlotTest, DoubleClickIsPressReleaseDoubleClickRelease)
{
    QStringList order;
    QObject::connect(&plot, &MultiPlot::sigMouseLeftPress, &plot, [&] { order << QStringLiteral("press"); });
    QObject::connect(&plot, &MultiPlot::sigMouseLeftRelease, &plot,
                     [&] { order << QStringLiteral("release"); });
    QObject::connect(&plot, &MultiPlot::sigMouseLeftDoubleClick, &plot,
                     [&] { order << QStringLiteral("double"); });
    QObject::connect(&plot, &MultiPlot::sigPeriodSelected, &plot, [&] { order << QStringLiteral("period"); });
    QSignalSpy twice(&plot, &MultiPlot::sigMouseLeftDoubleClick);
    plot.setUserMode(UserModeTimeSelection);
    const QPoint point = at(0, 3.0, 500.0);
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
                            QEvent::MouseButtonRelease})
        send(type, point, Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(order, QStringList({QStringLiteral("press"), QStringLiteral("release"),
                                  QStringLiteral("double"), QStringLiteral("release")}));
    ASSERT_EQ(twice.count(), 1);
    expectMouse(twice[0], point, 0, QPointF(3.0, 500.0), QPointF(pixelSeconds(), 15.0), Qt::LeftButton,
                Qt::ControlModifier);
}

TEST_F(MultiPlotTest, MovesAreToldInEveryMode)
{
    for (int mode = UserModeArrow; mode <= UserModeTimeSelection; ++mode) {
        ASSERT_TRUE(plot.setUserMode(UserMode(mode)));
        EXPECT_EQ(plot.userMode, mode);
        QSignalSpy moved(&plot, &MultiPlot::sigMouseMove);
        const QPoint point = at(0, 2.0 + mode, 300.0);
        move(point);
        ASSERT_EQ(moved.count(), 1);
        EXPECT_EQ(moved[0][0].toPoint(), point);
        EXPECT_EQ(moved[0][1].toInt(), 0);
        EXPECT_NEAR(moved[0][2].toPointF().x(), 2.0 + mode, pixelSeconds());
    }
}

TEST_F(MultiPlotTest, MovesOverNoStripTellMinusOneAndTheTime)
{
    QSignalSpy moved(&plot, &MultiPlot::sigMouseMove);
    const QPoint below(at(0, 6.0, 0.0).x(), plot.height() - 4);
    move(below);
    move(at(1, 6.0, 120.0));
    ASSERT_EQ(moved.count(), 2);
    EXPECT_EQ(moved[0][0].toPoint(), below);
    EXPECT_EQ(moved[0][1].toInt(), -1);
    EXPECT_NEAR(moved[0][2].toPointF().x(), 6.0, pixelSeconds());
    EXPECT_EQ(moved[0][2].toPointF().y(), 0.0);
    EXPECT_EQ(moved[1][1].toInt(), 1);
    EXPECT_NEAR(moved[1][2].toPointF().y(), 120.0, 3.0);
}

TEST_F(MultiPlotTest, PointModeReportsTheSampleUnderTheMouse)
{
    plot.setUserMode(UserModePoint);
    QSignalSpy press(&plot, &MultiPlot::sigMouseLeftPress);
    plot.plot(1)->setDataRange(400, 11);
    plot.setHorzScale(4.0, 4.1);
    plot.redraw(true);
    QTest::mousePress(&plot, Qt::LeftButton, {}, at(1, 4.052, 81.3));
    ASSERT_EQ(press.count(), 1);
    EXPECT_EQ(press[0][2].toPointF(), QPointF(4.05, 81.0));
}

TEST_F(MultiPlotTest, WheelTellsEighthsOfADegree)
{
    QSignalSpy wheel(&plot, &MultiPlot::sigMouseWheelEvent);
    const QPointF point = at(0, 5.0, 0.0);
    const auto turn = [&](const QPoint& delta) {
        QWheelEvent event(point, plot.mapToGlobal(point.toPoint()), QPoint(), delta, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&plot, &event);
    };
    turn(QPoint(0, 120));
    turn(QPoint(0, -15));
    turn(QPoint(0, 0));
    ASSERT_EQ(wheel.count(), 2);
    EXPECT_EQ(wheel[0][0].toInt(), 120);
    EXPECT_EQ(wheel[1][0].toInt(), -15);
}

TEST_F(MultiPlotTest, SignalSelectionTellsStripAndPeriodBeforeTheRelease)
{
    plot.setUserMode(UserModeSignalSelection);
    QSignalSpy period(&plot, &MultiPlot::sigPeriodSelected);
    int periodsAtRelease = -1;
    QObject::connect(&plot, &MultiPlot::sigMouseLeftRelease, &plot,
                     [&] { periodsAtRelease = period.count(); });
    drag(at(1, 6.0, 100.0), at(2, 2.0, -100.0));
    ASSERT_EQ(period.count(), 1);
    EXPECT_EQ(period[0][0].toInt(), 1);
    EXPECT_NEAR(period[0][1].toDouble(), 2.0, pixelSeconds());
    EXPECT_NEAR(period[0][2].toDouble(), 6.0, pixelSeconds());
    EXPECT_EQ(periodsAtRelease, 1);
}

TEST_F(MultiPlotTest, TimeSelectionTellsMinusOneAndStaysInTheRange)
{
    plot.setUserMode(UserModeTimeSelection);
    QSignalSpy period(&plot, &MultiPlot::sigPeriodSelected);
    drag(at(1, 6.0, 100.0), QPoint(plot.width() + 300, 20));
    ASSERT_EQ(period.count(), 1);
    EXPECT_EQ(period[0][0].toInt(), -1);
    EXPECT_NEAR(period[0][1].toDouble(), 6.0, pixelSeconds());
    EXPECT_EQ(period[0][2].toDouble(), 10.0);
}

TEST_F(MultiPlotTest, DragsInOtherModesSelectNothing)
{
    QSignalSpy period(&plot, &MultiPlot::sigPeriodSelected);
    for (const UserMode mode : {UserModeArrow, UserModeLine, UserModePoint, UserModeMeasure}) {
        plot.setUserMode(mode);
        drag(at(0, 2.0, 100.0), at(0, 6.0, 100.0));
    }
    plot.setUserMode(UserModeSignalSelection);
    drag(QPoint(3, 30), at(0, 6.0, 100.0));
    EXPECT_EQ(period.count(), 0);
}

TEST_F(MultiPlotTest, UnknownUserModeIsRefused)
{
    plot.setUserMode(UserModeLine);
    EXPECT_FALSE(plot.setUserMode(static_cast<UserMode>(6)));
    EXPECT_EQ(plot.userMode, UserModeLine);
}

TEST_F(MultiPlotTest, ForcedTimeSelectionStartsAtItsPointWhileTheButtonIsDown)
{
    plot.setUserMode(UserModeMeasure);
    QSignalSpy period(&plot, &MultiPlot::sigPeriodSelected);
    QObject::connect(&plot, &MultiPlot::sigMouseLeftPress, &plot,
                     [&](const QPoint& point) { plot.forceModeTimeSelection(point); });
    drag(at(0, 2.0, 100.0), at(0, 6.0, 100.0));
    EXPECT_EQ(plot.userMode, UserModeTimeSelection);
    ASSERT_EQ(period.count(), 1);
    EXPECT_EQ(period[0][0].toInt(), -1);
    EXPECT_NEAR(period[0][1].toDouble(), 2.0, pixelSeconds());
    EXPECT_NEAR(period[0][2].toDouble(), 6.0, pixelSeconds());
}

TEST_F(MultiPlotTest, ForcedTimeSelectionInThatModeChangesOnlyTheStart)
{
    plot.setUserMode(UserModeTimeSelection);
    QSignalSpy period(&plot, &MultiPlot::sigPeriodSelected);
    QTest::mousePress(&plot, Qt::LeftButton, {}, at(0, 2.0, 100.0));
    move(at(0, 5.0, 100.0));
    plot.forceModeTimeSelection(at(0, 3.0, 100.0));
    EXPECT_EQ(plot.userMode, UserModeTimeSelection);
    QTest::mouseRelease(&plot, Qt::LeftButton, {}, at(0, 5.0, 100.0));
    ASSERT_EQ(period.count(), 1);
    EXPECT_NEAR(period[0][1].toDouble(), 3.0, pixelSeconds());
    EXPECT_NEAR(period[0][2].toDouble(), 5.0, pixelSeconds());
}

TEST_F(MultiPlotTest, LeavingTheModeGivesUpTheDrag)
{
    plot.setUserMode(UserModeTimeSelection);
    QSignalSpy period(&plot, &MultiPlot::sigPeriodSelected);
    QTest::mousePress(&plot, Qt::LeftButton, {}, at(0, 2.0, 100.0));
    move(at(0, 5.0, 100.0));
    plot.setUserMode(UserModeArrow);
    QTest::mouseRelease(&plot, Qt::LeftButton, {}, at(0, 5.0, 100.0));
    EXPECT_EQ(period.count(), 0);
}

TEST_F(MultiPlotTest, EscapeGivesUpTheDrag)
{
    plot.setUserMode(UserModeTimeSelection);
    QSignalSpy period(&plot, &MultiPlot::sigPeriodSelected);
    QTest::mousePress(&plot, Qt::LeftButton, {}, at(0, 2.0, 100.0));
    move(at(0, 5.0, 100.0));
    QTest::keyClick(&plot, Qt::Key_Escape);
    QTest::mouseRelease(&plot, Qt::LeftButton, {}, at(0, 5.0, 100.0));
    EXPECT_EQ(period.count(), 0);
}

TEST_F(MultiPlotTest, EscapeBelongsToTheDragAndElseToTheWindow)
{
    const auto overrides = [this] {
        QKeyEvent event(QEvent::ShortcutOverride, Qt::Key_Escape, Qt::NoModifier);
        event.ignore();
        QApplication::sendEvent(&plot, &event);
        return event.isAccepted();
    };
    plot.setUserMode(UserModeTimeSelection);
    EXPECT_FALSE(overrides());
    QTest::mousePress(&plot, Qt::LeftButton, {}, at(0, 2.0, 100.0));
    EXPECT_TRUE(overrides());
}

TEST_F(MultiPlotTest, HidingGivesUpTheDrag)
{
    plot.setUserMode(UserModeTimeSelection);
    QSignalSpy period(&plot, &MultiPlot::sigPeriodSelected);
    QTest::mousePress(&plot, Qt::LeftButton, {}, at(0, 2.0, 100.0));
    move(at(0, 5.0, 100.0));
    plot.hide();
    plot.show();
    QTest::mouseRelease(&plot, Qt::LeftButton, {}, at(0, 5.0, 100.0));
    EXPECT_EQ(period.count(), 0);
}

TEST_F(MultiPlotTest, ForcedTimeSelectionWorksWithoutAPressBefore)
{
    QSignalSpy period(&plot, &MultiPlot::sigPeriodSelected);
    plot.forceModeTimeSelection(at(0, 2.0, 100.0));
    EXPECT_EQ(plot.userMode, UserModeTimeSelection);
    move(at(0, 6.0, 100.0));
    QTest::mouseRelease(&plot, Qt::LeftButton, {}, at(0, 6.0, 100.0));
    ASSERT_EQ(period.count(), 1);
    EXPECT_EQ(period[0][0].toInt(), -1);
    EXPECT_NEAR(period[0][1].toDouble(), 2.0, pixelSeconds());
    EXPECT_NEAR(period[0][2].toDouble(), 6.0, pixelSeconds());
}

TEST_F(MultiPlotTest, LabelsAreKeptInOrderWithIdentifiers)
{
    EXPECT_EQ(plot.addLabel(timeLine(3000, Qt::red)), 1U);
    EXPECT_EQ(plot.addLabel(timeLine(1000, Qt::blue)), 2U);
    ASSERT_EQ(plot.labelsList().size(), 2);
    EXPECT_EQ(plot.labelsList()[1].time, 1000U);
    EXPECT_EQ(plot.label(1).time, 3000U);
    EXPECT_EQ(plot.findLabelByTime(0, 1.04, 0.05), 2U);
    EXPECT_EQ(plot.findLabelByTime(0, 2.0, 0.05), 0U);
    EXPECT_TRUE(plot.removeLabel(1));
    EXPECT_FALSE(plot.removeLabel(1));
    EXPECT_EQ(plot.addLabel(timeLine(1000, Qt::blue)), 3U);
    plot.clearAllLabels();
    EXPECT_TRUE(plot.labelsList().isEmpty());
}

TEST_F(MultiPlotTest, LabelsAreDrawnInTheirColour)
{
    const QColor color(250, 5, 250);
    plot.addLabel(timeLine(5005, color));
    plot.redraw(true);
    const int x = at(0, 5.005, 0.0).x();
    const int height = countInColumn(picture(), x, color);
    EXPECT_GT(height, 350);
    plot.clearAllLabels();
    KiroLabel label;
    label.setupSignalLine(1, 5005, QString(), QString(), color);
    plot.addLabel(label);
    plot.redraw(true);
    EXPECT_GT(countInColumn(picture(), x, color), height / 3 - 10);
    EXPECT_LT(countInColumn(picture(), x, color), height / 3 + 10);
}

TEST_F(MultiPlotTest, LabelsOfMissingStripsAndHostileTextsAreBorne)
{
    KiroLabel label;
    label.setupPoint(77, 5000, NaN, QString(5000, QLatin1Char('x')), QString(), QColor());
    plot.addLabel(label);
    label.setupPoint(0, 5000, NaN, QStringLiteral("a\nb\tc"), QString(), QColor());
    plot.addLabel(label);
    label.setupTimePeriod(9000, 1000, QString(5000, QLatin1Char('y')), QString(), Qt::green);
    plot.addLabel(label);
    plot.redraw(true);
    EXPECT_FALSE(picture().isNull());
}

TEST_F(MultiPlotTest, PlayMarkerNeedsItsFlagAndATime)
{
    const QColor color = plot.pointerPen().color();
    const int x = at(0, 4.5, 0.0).x();
    plot.playMarkerTime = 4.5;
    EXPECT_EQ(countInColumn(picture(), x, color), 0);
    plot.showPlayMarker = true;
    EXPECT_GT(countInColumn(picture(), x, color), 350);
    plot.setHorzScale(-5.0, 5.0);
    plot.playMarkerTime = -1.0;
    plot.redraw(true);
    EXPECT_EQ(countAll(picture(), color), 0);
    plot.playMarkerTime = NaN;
    EXPECT_EQ(countAll(picture(), color), 0);
}

TEST_F(MultiPlotTest, PointersAndBandsDoNotTouchThePictureOfTheCurves)
{
    plot.clearFocus();
    const QImage before = picture();
    plot.setUserMode(UserModeLine);
    move(at(0, 3.0, 100.0));
    EXPECT_NE(picture(), before);
    plot.setUserMode(UserModeMeasure);
    drag(at(0, 3.0, 100.0), at(0, 6.0, 300.0));
    EXPECT_NE(picture(), before);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&plot, &leave);
    plot.setUserMode(UserModeArrow);
    plot.clearFocus();
    EXPECT_EQ(picture(), before);
}

TEST_F(MultiPlotTest, KeysMoveTheLinePointerAndTellIt)
{
    plot.setUserMode(UserModeLine);
    move(at(1, 5.0, 100.0));
    QSignalSpy moved(&plot, &MultiPlot::sigMouseMove);
    QTest::keyClick(&plot, Qt::Key_Right);
    QTest::keyClick(&plot, Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyClick(&plot, Qt::Key_Up);
    QTest::keyClick(&plot, Qt::Key_Up);
    ASSERT_EQ(moved.count(), 4);
    EXPECT_EQ(moved[0][0].toPoint(), at(1, 5.0, 100.0) + QPoint(1, 0));
    EXPECT_EQ(moved[1][0].toPoint(), at(1, 5.0, 100.0) - QPoint(9, 0));
    EXPECT_EQ(moved[2][1].toInt(), 0);
    EXPECT_EQ(moved[3][1].toInt(), 0);
}

TEST_F(MultiPlotTest, KeysMoveThePointPointerBySamples)
{
    plot.setUserMode(UserModePoint);
    move(at(1, 5.0, 100.0));
    QSignalSpy moved(&plot, &MultiPlot::sigMouseMove);
    const double start = 0.01 * std::round(plot.plot(1)->sampleAt(5.0));
    EXPECT_DOUBLE_EQ(start, 5.0);
    QTest::keyClick(&plot, Qt::Key_Right);
    QTest::keyClick(&plot, Qt::Key_Right);
    QTest::keyClick(&plot, Qt::Key_Left, Qt::ShiftModifier);
    ASSERT_EQ(moved.count(), 3);
    const double first = moved[0][2].toPointF().x();
    EXPECT_NEAR(moved[1][2].toPointF().x(), first + 0.01, 1e-9);
    EXPECT_NEAR(moved[2][2].toPointF().x(), first - 0.09, 1e-9);
    EXPECT_NEAR(moved[2][2].toPointF().y(), (first - 0.09) * 100.0 * 2.0 / 10.0, 1e-6);
}

TEST_F(MultiPlotTest, SpaceSelectsAPeriodByKeys)
{
    plot.setUserMode(UserModeTimeSelection);
    QSignalSpy period(&plot, &MultiPlot::sigPeriodSelected);
    move(at(1, 5.0, 100.0));
    QTest::keyClick(&plot, Qt::Key_Space);
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(&plot, Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(&plot, Qt::Key_Space);
    ASSERT_EQ(period.count(), 1);
    EXPECT_EQ(period[0][0].toInt(), -1);
    EXPECT_NEAR(period[0][2].toDouble() - period[0][1].toDouble(), 30.0 * pixelSeconds(), 1e-6);
}

TEST_F(MultiPlotTest, ReturnActsAsDoubleClickAndMenuKeyAsRightClick)
{
    plot.setUserMode(UserModeLine);
    move(at(2, 5.0, -100.0));
    QSignalSpy twice(&plot, &MultiPlot::sigMouseLeftDoubleClick);
    QSignalSpy right(&plot, &MultiPlot::sigMouseRightRelease);
    QTest::keyClick(&plot, Qt::Key_Return);
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, QPoint(0, 0));
    QApplication::sendEvent(&plot, &menu);
    const QPointF tolerance(pixelSeconds(), 15.0);
    ASSERT_EQ(twice.count(), 1);
    expectMouse(twice[0], at(2, 5.0, -100.0), 2, QPointF(5.0, -100.0), tolerance, Qt::LeftButton, {});
    ASSERT_EQ(right.count(), 1);
    expectMouse(right[0], at(2, 5.0, -100.0), 2, QPointF(5.0, -100.0), tolerance, Qt::RightButton, {});
}

TEST_F(MultiPlotTest, OtherKeysAreLeftToTheParents)
{
    const auto isTaken = [this](int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(&plot, &event);
        return event.isAccepted();
    };
    plot.setUserMode(UserModeLine);
    EXPECT_TRUE(isTaken(Qt::Key_Left));
    for (const int key : {Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End, Qt::Key_Plus,
                          Qt::Key_Minus, Qt::Key_Escape})
        EXPECT_FALSE(isTaken(key)) << key;
    EXPECT_FALSE(isTaken(Qt::Key_Left, Qt::ControlModifier));
    plot.setUserMode(UserModeArrow);
    EXPECT_FALSE(isTaken(Qt::Key_Left));
    EXPECT_FALSE(isTaken(Qt::Key_Return));
}

TEST_F(MultiPlotTest, FocusIsSeen)
{
    plot.clearFocus();
    const QImage without = picture();
    plot.setFocus();
    plot.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&plot));
    const QColor highlight = plot.palette().color(QPalette::Highlight);
    EXPECT_EQ(picture().pixelColor(plot.width() / 2, 0), highlight);
    EXPECT_NE(without.pixelColor(plot.width() / 2, 0), highlight);
}

TEST_F(MultiPlotTest, FollowsTheWidgetFontUntilTheSchemeHasOne)
{
    const int before = at(0, 0.0, 0.0).x();
    QFont font = static_cast<QWidget&>(plot).font();
    font.setPointSize(font.pointSize() * 2);
    static_cast<QWidget&>(plot).setFont(font);
    EXPECT_GT(at(0, 0.0, 0.0).x(), before);
}

TEST_F(MultiPlotTest, PrintUsesTheSchemeAtOnceAndLeavesTheWidgetAlone)
{
    const QImage before = picture();
    plot.setFastDrawing(true);
    MultiPlotScheme scheme;
    scheme.setBkg(QColor(200, 255, 200));
    plot.setScheme(scheme);
    QImage paper(600, 400, QImage::Format_RGB32);
    paper.fill(Qt::black);
    QPainter painter(&paper);
    plot.print(painter, QRect(50, 40, 500, 300));
    painter.end();
    EXPECT_EQ(paper.pixelColor(49, 200), QColor(Qt::black));
    EXPECT_EQ(paper.pixelColor(300, 340), QColor(Qt::black));
    EXPECT_EQ(paper.pixelColor(51, 41), QColor(200, 255, 200));
    EXPECT_GT(countAll(paper, plot.dataPen().color()), 300);
    EXPECT_TRUE(plot.fastDrawing());
    plot.setFastDrawing(false);
    EXPECT_EQ(picture(), before);
}

TEST_F(MultiPlotTest, PrintKeepsThinLinesVisibleOnAPrinter)
{
    QImage paper(4000, 3000, QImage::Format_RGB32);
    paper.setDotsPerMeterX(23622);
    paper.setDotsPerMeterY(23622);
    paper.fill(Qt::white);
    plot.setPlotCount(1);
    plot.plot(0)->setData(QVector<double>({5.0, 5.0}), 0, -1);
    plot.plot(0)->setTimePerSample(10.0);
    QPainter painter(&paper);
    plot.print(painter, QRect(0, 0, 4000, 3000));
    painter.end();
    // Of the curve, the grid being lighter.
    int dark = 0;
    for (int y = 200; y < 2600; ++y)
        dark += qRed(paper.pixel(3000, y)) < 150 ? 1 : 0;
    EXPECT_GE(dark, 2);
    EXPECT_LE(dark, 4);
}

TEST_F(MultiPlotTest, AnySizeIsBorne)
{
    for (const QSize size : {QSize(1, 1), QSize(2, 300), QSize(300, 2), QSize(30, 20), QSize(3000, 50)}) {
        plot.resize(size);
        plot.redraw(true);
        EXPECT_EQ(picture().size(), size * plot.devicePixelRatio());
    }
}
