#include "reviewframefixture.h"

#include "signalitemdelegate.h"

#include <QInputDialog>
#include <QTimer>

namespace
{

struct ModeRow
{
    const char* button;
    const char* text;
    const char* toolTip;
    InteractionMode mode;
    UserMode userMode;
    bool enabled;
};

class ReviewFrameModes : public ReviewFrameTest
{
protected:
    void SetUp() override
    {
        ReviewFrameTest::SetUp();
        open();
    }
    void checkMode(const char* button, InteractionMode mode)
    {
        click(button);
        ASSERT_EQ(window().mode(), mode);
    }
};

TEST_F(ReviewFrameModes, EachButtonHasItsMode)
{
    const ModeRow rows[] = {
        {"buttonModeArrow", "", "Arrow pointer mode", InteractionMode::Arrow, UserModeArrow, true},
        {"buttonModeMeasure", "", "Signal measuring mode", InteractionMode::Measure, UserModeMeasure, true},
        {"buttonModeCalibrate", "Calib", "Signal calibration mode", InteractionMode::Calibrate, UserModePoint,
         false},
        {"buttonModePoint", "Point", "Point label mode", InteractionMode::Point, UserModePoint, true},
        {"buttonModeSignalLine", "Signal", "Signal line label mode", InteractionMode::SignalLine,
         UserModeLine, true},
        {"buttonModeTimeLine", "Time", "Time line label mode", InteractionMode::TimeLine, UserModeLine, true},
        {"buttonModeSignalPeriod", "Signal p.", "Signal period label mode", InteractionMode::SignalPeriod,
         UserModeSignalSelection, true},
        {"buttonModeTimePeriod", "Time p.", "Time period label mode", InteractionMode::TimePeriod,
         UserModeTimeSelection, true},
        {"buttonModeNoiseStat", "Noise", "Signal noise statistic mode", InteractionMode::NoiseStat,
         UserModeSignalSelection, false},
        {"buttonModeAudioPlayer", "Audio", "Audio player mode", InteractionMode::AudioPlayer, UserModeLine,
         false},
        {"buttonModeZoom", "Zoom", "Time scale selection mode", InteractionMode::Zoom, UserModeTimeSelection,
         true},
        {"buttonModeVideoPlayer", "Video", "Video player mode", InteractionMode::VideoPlayer, UserModeLine,
         false}};
    int number = 0;
    for (const ModeRow& row : rows) {
        EXPECT_EQ(int(row.mode), ++number);
        auto& button = find<QToolButton>(row.button);
        EXPECT_EQ(button.text(), QLatin1String(row.text));
        EXPECT_TRUE(button.toolTip().startsWith(QLatin1String(row.toolTip) + QStringLiteral(" (Ctrl+")));
        EXPECT_FALSE(button.accessibleName().isEmpty());
        EXPECT_EQ(button.isEnabled(), row.enabled) << row.button;
        EXPECT_EQ(userModeOf(row.mode), row.userMode);
        if (!row.enabled)
            continue;
        click(row.button);
        EXPECT_EQ(window().mode(), row.mode);
        EXPECT_EQ(strips().userMode, row.userMode) << row.button;
        EXPECT_FALSE(strips().showPlayMarker);
        EXPECT_TRUE(button.isChecked());
    }
}

TEST_F(ReviewFrameModes, KeysChooseModes)
{
    QTest::keyClick(&window(), Qt::Key_6, Qt::ControlModifier);
    EXPECT_EQ(window().mode(), InteractionMode::TimeLine);
    QTest::keyClick(&window(), Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(window().mode(), InteractionMode::Arrow);
    QTest::keyClick(&window(), Qt::Key_9, Qt::ControlModifier); // not there yet
    EXPECT_EQ(window().mode(), InteractionMode::Arrow);
}

TEST_F(ReviewFrameModes, CtrlDragZoomsAndRestoresTheMode)
{
    checkMode("buttonModePoint", InteractionMode::Point);
    drag(2.0, 4.0, Qt::ControlModifier);
    EXPECT_NEAR(selector().selectorRange(), 2.0, 0.02);
    EXPECT_NEAR(selector().selectorPosition(), 3.0, 0.02);
    EXPECT_NEAR(strips().horzMin, 2.0, 0.03);
    EXPECT_EQ(window().mode(), InteractionMode::Point);
    EXPECT_EQ(strips().userMode, UserModePoint);
}

TEST_F(ReviewFrameModes, CtrlReleasedBeforeTheButtonLeavesZoomingInForce)
{
    QTest::mousePress(&strips(), Qt::LeftButton, Qt::ControlModifier, pixelAt(2.0));
    EXPECT_EQ(window().mode(), InteractionMode::Zoom);
    moveTo(pixelAt(3.0), Qt::NoModifier, Qt::LeftButton);
    QTest::mouseRelease(&strips(), Qt::LeftButton, Qt::NoModifier, pixelAt(3.0));
    EXPECT_EQ(window().mode(), InteractionMode::Zoom);
    EXPECT_EQ(strips().userMode, UserModeTimeSelection);
}

TEST_F(ReviewFrameModes, CtrlPressWhileZoomingChangesAndRestoresNothing)
{
    checkMode("buttonModeZoom", InteractionMode::Zoom);
    QTest::mousePress(&strips(), Qt::LeftButton, Qt::ControlModifier, pixelAt(2.0));
    EXPECT_EQ(window().mode(), InteractionMode::Zoom);
    EXPECT_EQ(strips().userMode, UserModeTimeSelection);
    QTest::mouseRelease(&strips(), Qt::LeftButton, Qt::ControlModifier, pixelAt(2.0));
    EXPECT_EQ(window().mode(), InteractionMode::Zoom);
    EXPECT_EQ(strips().userMode, UserModeTimeSelection);
}

TEST_F(ReviewFrameModes, CtrlBesideTheStripsWhileZoomingRestoresNothing)
{
    checkMode("buttonModeZoom", InteractionMode::Zoom);
    const QPoint below(pixelAt(2.0).x(), strips().height() - 4);
    QTest::mouseClick(&strips(), Qt::LeftButton, Qt::ControlModifier, below);
    EXPECT_EQ(window().mode(), InteractionMode::Zoom);
    EXPECT_EQ(strips().userMode, UserModeTimeSelection);
    // Nor does a press with Ctrl in another mode before.
    checkMode("buttonModePoint", InteractionMode::Point);
    drag(2.0, 4.0, Qt::ControlModifier);
    checkMode("buttonModeZoom", InteractionMode::Zoom);
    QTest::mousePress(&strips(), Qt::LeftButton, Qt::NoModifier, pixelAt(2.5));
    QTest::mouseRelease(&strips(), Qt::LeftButton, Qt::ControlModifier, pixelAt(2.5));
    EXPECT_EQ(window().mode(), InteractionMode::Zoom);
}

TEST_F(ReviewFrameModes, DraggingInZoomModeShowsThatTime)
{
    checkMode("buttonModeZoom", InteractionMode::Zoom);
    drag(6.0, 5.0);
    EXPECT_NEAR(selector().selectorFrom(), 5.0, 0.02);
    EXPECT_NEAR(selector().selectorTo(), 6.0, 0.02);
    EXPECT_EQ(strips().plot(0)->rangeStart(), int(strips().horzMin * 1000.0));
}

TEST_F(ReviewFrameModes, DoubleClicksZoomAroundTheirTime)
{
    doubleClick(2.0, 0, Qt::ControlModifier);
    EXPECT_EQ(selector().selectorRange(), 4.0);
    EXPECT_NEAR(selector().selectorPosition(), 2.0, 0.02);
    doubleClick(2.0, 0, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(selector().selectorRange(), 8.0);
    checkMode("buttonModeZoom", InteractionMode::Zoom);
    doubleClick(3.0);
    EXPECT_EQ(selector().selectorRange(), 4.0);
}

TEST_F(ReviewFrameModes, ZoomingInStopsAtATenthOfASecond)
{
    checkMode("buttonModeZoom", InteractionMode::Zoom);
    for (int i = 0; i < 12; ++i)
        doubleClick(strips().horzMin + 0.5 * (strips().horzMax - strips().horzMin));
    EXPECT_DOUBLE_EQ(selector().selectorRange(), 0.1);
    for (int i = 0; i < 3; ++i)
        click("buttonZoomIn");
    EXPECT_DOUBLE_EQ(selector().selectorRange(), 0.1);
}

TEST_F(ReviewFrameModes, ZoomsBesideTheStripsToo)
{
    const QPoint below(pixelAt(2.0).x(), strips().height() - 4);
    QTest::mouseDClick(&strips(), Qt::LeftButton, Qt::NoModifier, below);
    EXPECT_EQ(selector().selectorRange(), 8.0); // only a zoom
    QTest::mouseDClick(&strips(), Qt::LeftButton, Qt::ControlModifier, below);
    EXPECT_EQ(selector().selectorRange(), 4.0);
    EXPECT_NEAR(selector().selectorPosition(), 2.0, 0.02);
}

TEST_F(ReviewFrameModes, ButtonsZoomByTwo)
{
    click("buttonZoomIn");
    EXPECT_EQ(selector().selectorRange(), 4.0);
    EXPECT_EQ(strips().horzMin, 2.0);
    EXPECT_EQ(strips().horzMax, 6.0);
    EXPECT_EQ(label("labelStatus"), QString());
    click("buttonZoomOut");
    EXPECT_EQ(selector().selectorRange(), 8.0);
}

TEST_F(ReviewFrameModes, TheWheelMovesByTenthsOfTheWindow)
{
    selector().setSelectorRange(2.0);
    selector().setSelectorPosition(4.0);
    const auto turn = [this](int delta) {
        QWheelEvent event(QPointF(pixelAt(4.0)), strips().mapToGlobal(pixelAt(4.0)), QPoint(),
                          QPoint(0, delta), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&strips(), &event);
    };
    turn(120);
    EXPECT_NEAR(selector().selectorPosition(), 3.8, 1e-9);
    EXPECT_NEAR(strips().horzMin, 2.8, 1e-9);
    turn(-240);
    EXPECT_NEAR(selector().selectorPosition(), 4.2, 1e-9);
}

TEST_F(ReviewFrameModes, KeysPageAndZoomFromTheStrips)
{
    selector().setSelectorRange(2.0);
    selector().setSelectorPosition(4.0);
    strips().setFocus();
    QTest::keyClick(&strips(), Qt::Key_PageDown);
    EXPECT_EQ(selector().selectorPosition(), 6.0);
    EXPECT_EQ(strips().horzMin, 5.0);
    QTest::keyClick(&strips(), Qt::Key_Left);
    EXPECT_NEAR(selector().selectorPosition(), 5.8, 1e-9);
    QTest::keyClick(&strips(), Qt::Key_Home);
    EXPECT_EQ(selector().selectorPosition(), 1.0);
    QTest::keyClick(&strips(), Qt::Key_End);
    EXPECT_EQ(selector().selectorPosition(), 7.0);
    QTest::keyClick(&strips(), Qt::Key_Plus);
    EXPECT_EQ(selector().selectorRange(), 1.0);
    QTest::keyClick(&strips(), Qt::Key_Minus);
    EXPECT_EQ(selector().selectorRange(), 2.0);
}

TEST_F(ReviewFrameModes, KeysWithModifiersAreLeftAlone)
{
    selector().setSelectorRange(2.0);
    selector().setSelectorPosition(4.0);
    strips().setFocus();
    for (const int key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home,
                          Qt::Key_End, Qt::Key_Plus, Qt::Key_Equal, Qt::Key_Minus}) {
        for (const Qt::KeyboardModifier modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier})
            QTest::keyClick(&strips(), Qt::Key(key), modifier);
    }
    EXPECT_EQ(selector().selectorPosition(), 4.0);
    EXPECT_EQ(selector().selectorRange(), 2.0);
}

TEST_F(ReviewFrameModes, AClickOnAButtonLeavesTheKeysToTheStrips)
{
    selector().setSelectorRange(1.0);
    selector().setSelectorPosition(1.0);
    for (const char* button : {"buttonModeZoom", "buttonModeArrow", "buttonSetupHorzGrid", "buttonZoomIn"}) {
        strips().setFocus();
        click(button);
        EXPECT_TRUE(strips().hasFocus()) << button;
    }
    ASSERT_EQ(selector().selectorRange(), 0.5);
    QTest::keyClick(window().focusWidget(), Qt::Key_PageDown);
    EXPECT_EQ(selector().selectorPosition(), 1.5);
    for (const QToolButton* button : window().findChildren<QToolButton*>())
        EXPECT_EQ(button->focusPolicy(), Qt::TabFocus) << button->objectName().toStdString();
}

TEST_F(ReviewFrameModes, AKeyOpensTheListOfFiles)
{
    // The key returns when the menu is closed.
    bool wasVisible = false;
    auto& menu = find<QMenu>("menuRecent");
    QTimer::singleShot(100, &menu, [&] {
        wasVisible = menu.isVisible();
        menu.close();
    });
    QTest::keyClick(&window(), Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(wasVisible);
}

TEST_F(ReviewFrameModes, TheReadoutGoesWhenTheWindowMoves)
{
    moveTo(pixelAt(0.5, 0));
    ASSERT_FALSE(list().item(0)->data(SignalItemDelegate::ValueRole).toString().isEmpty());
    click("buttonZoomIn");
    EXPECT_TRUE(list().item(0)->data(SignalItemDelegate::ValueRole).toString().isEmpty());
}

TEST_F(ReviewFrameModes, DraggingTheSelectorTellsWhereItIs)
{
    selector().setSelectorRange(2.0);
    selector().setSelectorPosition(4.0);
    emit selector().selectorPositionMove(4.0);
    EXPECT_EQ(label("labelSelection"), QStringLiteral("Position 4.000 s"));
    EXPECT_EQ(label("labelStatus"), QStringLiteral("New selector position 4.000 s with range 2.000 s"));
    emit selector().selectorPositionChange(4.0);
    EXPECT_EQ(label("labelStatus"), QString());
}

TEST_F(ReviewFrameModes, TimesAreInTheLocale)
{
    QLocale::setDefault(QLocale(QLocale::Polish, QLocale::Poland));
    selector().setSelectorRange(2.0);
    selector().setSelectorPosition(4.0);
    emit selector().selectorPositionMove(4.0);
    EXPECT_EQ(label("labelSelection"), QStringLiteral("Position 4,000 s"));
    EXPECT_EQ(label("labelStatus"), QStringLiteral("New selector position 4,000 s with range 2,000 s"));
}

TEST_F(ReviewFrameModes, TellsWhatIsUnderTheMouse)
{
    // Calibrated, 100 units a degree, and raw.
    moveTo(pixelAt(0.5, 0));
    EXPECT_TRUE(label("labelStatus").startsWith(QStringLiteral("Signal: first, time: 0.")));
    EXPECT_TRUE(label("labelStatus").endsWith(QStringLiteral(" deg")));
    moveTo(pixelAt(0.5, 2));
    EXPECT_TRUE(label("labelStatus").startsWith(QStringLiteral("Signal: third, time: 0.")));
    EXPECT_TRUE(label("labelStatus").contains(QStringLiteral(" s, value: ")));
    EXPECT_FALSE(label("labelStatus").endsWith(QStringLiteral("deg")));
    EXPECT_EQ(list().item(0)->data(SignalItemDelegate::ValueRole).toString().section(QLatin1Char(' '), 1),
              QStringLiteral("deg"));
    EXPECT_FALSE(list().item(2)->data(SignalItemDelegate::ValueRole).toString().isEmpty());
    moveTo(QPoint(strips().width() / 2, strips().height() - 2));
    EXPECT_TRUE(list().item(0)->data(SignalItemDelegate::ValueRole).toString().isEmpty());
}

TEST_F(ReviewFrameModes, TellsNothingOnceTheMouseHasLeft)
{
    moveTo(pixelAt(0.5, 0));
    ASSERT_FALSE(label("labelStatus").isEmpty());
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&strips(), &leave);
    EXPECT_EQ(label("labelStatus"), QString());
    EXPECT_TRUE(list().item(0)->data(SignalItemDelegate::ValueRole).toString().isEmpty());
}

TEST_F(ReviewFrameModes, TheReadoutIsTheSampleAtTheTime)
{
    // Jumps of 10 degrees begin at 1 and 2 seconds, and of 5 in the second signal.
    moveTo(pixelAt(1.5, 1));
    const auto value = [this](int row) {
        return list()
            .item(row)
            ->data(SignalItemDelegate::ValueRole)
            .toString()
            .section(QLatin1Char(' '), 0, 0);
    };
    EXPECT_EQ(value(0).toDouble(), 10.0);
    EXPECT_EQ(value(1).toDouble(), 5.0);
    EXPECT_EQ(value(2).toDouble(), 250.0);
    list().item(1)->setSelected(false);
    moveTo(pixelAt(0.5, 0));
    EXPECT_EQ(value(0).toDouble(), 0.0);
    EXPECT_EQ(value(1), QString());
}

TEST_F(ReviewFrameModes, GoesToATime)
{
    selector().setSelectorRange(2.0);
    ModalAnswers answers;
    answers.answer([](QWidget* dialog) {
        auto* const input = qobject_cast<QInputDialog*>(dialog);
        ASSERT_TRUE(input);
        EXPECT_EQ(input->labelText(), QStringLiteral("Enter time in seconds"));
        EXPECT_EQ(input->doubleDecimals(), 3);
        input->setDoubleValue(5.125);
        input->accept();
    });
    actionOf("menuSetup", QStringLiteral("Go to time...")).trigger();
    EXPECT_EQ(selector().selectorPosition(), 5.125);
    EXPECT_EQ(strips().horzMin, 4.125);
}

TEST_F(ReviewFrameModes, SetsTheLengthOfTheWindow)
{
    ModalAnswers answers;
    answers.answer([](QWidget* dialog) {
        auto* const input = qobject_cast<QInputDialog*>(dialog);
        ASSERT_TRUE(input);
        EXPECT_EQ(input->labelText(), QStringLiteral("Enter new selection time in seconds"));
        EXPECT_EQ(input->doubleMinimum(), 0.1);
        EXPECT_EQ(input->doubleDecimals(), 3);
        input->setDoubleValue(1.5);
        input->accept();
    });
    actionOf("menuSetup", QStringLiteral("Selection time")).trigger();
    EXPECT_EQ(selector().selectorRange(), 1.5);
    EXPECT_EQ(strips().horzMax - strips().horzMin, 1.5);
}

TEST_F(ReviewFrameModes, FastDrawingBeginsAtItsTime)
{
    EXPECT_FALSE(strips().fastDrawing()); // 8 of at least 30 seconds
    closeWindow();
    IniStore store;
    store.load(path("settings.ini"));
    store.setSection(ReviewFrame::section());
    store.setInt(QStringLiteral("fast_draw_time"), 8);
    ASSERT_TRUE(store.saveAs(path("settings.ini")));
    open();
    EXPECT_TRUE(strips().fastDrawing());
    click("buttonZoomIn");
    EXPECT_FALSE(strips().fastDrawing());
}

TEST_F(ReviewFrameModes, ContextMenuInEachMode)
{
    KiroLabel label;
    label.setupTimeLine(4000, QStringLiteral("a"), QString(), Qt::red);
    strips().addLabel(label);
    const QStringList calibration = {
        QStringLiteral("Mark calibration point"),       QStringLiteral("Delete calibration point"),
        QStringLiteral("Calculate calibration factor"), QStringLiteral("Clear calibration points"),
        QStringLiteral("Direct calibration"),           QStringLiteral("Clear signal calibration")};
    struct Row
    {
        const char* button;
        bool editsLabels;
    };
    for (const Row& row : {Row{"buttonModeArrow", true}, Row{"buttonModeMeasure", false},
                           Row{"buttonModePoint", true}, Row{"buttonModeSignalLine", true},
                           Row{"buttonModeTimeLine", true}, Row{"buttonModeSignalPeriod", true},
                           Row{"buttonModeTimePeriod", true}, Row{"buttonModeZoom", false}}) {
        click(row.button);
        // A two-hundredth of 8 seconds is 0.04.
        for (const double seconds : {4.03, 4.2}) {
            rightClick(seconds);
            auto& menu = find<QMenu>("menuContext");
            EXPECT_TRUE(menu.isVisible()) << row.button;
            for (const QString& text : calibration)
                EXPECT_FALSE(actionOf("menuContext", text).isVisible());
            for (const char* text : {"Edit label", "Delete label"}) {
                const QAction& action = actionOf("menuContext", QLatin1String(text));
                EXPECT_EQ(action.isVisible(), row.editsLabels) << row.button;
                EXPECT_EQ(action.isEnabled(), row.editsLabels && seconds < 4.1) << row.button;
            }
            menu.close();
        }
    }
}

TEST_F(ReviewFrameModes, ContextMenuIsInOrder)
{
    QStringList texts;
    for (const QAction* action : find<QMenu>("menuContext").actions())
        texts << (action->isSeparator() ? QStringLiteral("-") : action->text());
    EXPECT_EQ(texts.join(QLatin1Char('|')),
              QStringLiteral("Mark calibration point|Delete calibration point|Calculate calibration factor|"
                             "Clear calibration points|Direct calibration|Clear signal calibration|-|"
                             "Edit label|Delete label|-|Show all signals|Show only this signal|"
                             "Hide this signal|-|Change scale type to automatic|Change scale type to fixed|"
                             "Change scale type to tracing|Edit signal scale..."));
}

TEST_F(ReviewFrameModes, ScaleTypesOfAStrip)
{
    const auto trigger = [this](const char* text) {
        rightClick(4.0, 1);
        find<QMenu>("menuContext").close();
        actionOf("menuContext", QLatin1String(text)).trigger();
    };
    const auto isEnabled = [this](const char* text) {
        rightClick(4.0, 1);
        find<QMenu>("menuContext").close();
        return actionOf("menuContext", QLatin1String(text)).isEnabled();
    };
    Plot& strip = *strips().plot(1);
    EXPECT_FALSE(isEnabled("Change scale type to automatic"));
    EXPECT_TRUE(isEnabled("Change scale type to fixed"));
    // Of 0 to 5 degrees, 100 units each from 20 on.
    trigger("Change scale type to fixed");
    EXPECT_EQ(strip.scaleType, Plot::Fixed);
    EXPECT_EQ(strip.scaleMin, 20.0);
    EXPECT_EQ(strip.scaleMax, 520.0);
    EXPECT_FALSE(isEnabled("Change scale type to fixed"));
    trigger("Change scale type to tracing");
    EXPECT_EQ(strip.scaleType, Plot::Tracing);
    EXPECT_EQ(strip.scaleMin, 0.0);
    EXPECT_EQ(strip.scaleMax, 500.0);
    EXPECT_FALSE(isEnabled("Change scale type to tracing"));
    trigger("Change scale type to automatic");
    EXPECT_EQ(strip.scaleType, Plot::Automatic);
    EXPECT_EQ(strips().plot(0)->scaleType, Plot::Automatic);
}

TEST_F(ReviewFrameModes, ContextMenuShowsAndHidesSignals)
{
    const auto trigger = [this](const char* text, int plot) {
        rightClick(4.0, plot);
        find<QMenu>("menuContext").close();
        actionOf("menuContext", QLatin1String(text)).trigger();
    };
    trigger("Hide this signal", 1);
    EXPECT_EQ(shown(), "101");
    EXPECT_EQ(selected(), "101");
    trigger("Show only this signal", 2);
    EXPECT_EQ(shown(), "001");
    EXPECT_EQ(selected(), "001");
    trigger("Show all signals", 2);
    EXPECT_EQ(shown(), "111");
    EXPECT_EQ(selected(), "111");
}

TEST_F(ReviewFrameModes, NoMenuBesideTheStrips)
{
    QTest::mouseClick(&strips(), Qt::RightButton, Qt::NoModifier, QPoint(10, strips().height() - 4));
    EXPECT_FALSE(find<QMenu>("menuContext").isVisible());
}

} // namespace
