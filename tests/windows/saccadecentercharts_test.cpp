// What the charts of a saccades browser show, in all numbers of charts, and how the mouse moves them.

#include "saccadecenterfixture.h"

#include "kirosaccheader.h"
#include "rounding.h"
#include "saccadeselection.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QProcess>
#include <QRadioButton>
#include <QSpinBox>
#include <QWheelEvent>

#include <algorithm>

namespace
{

constexpr const char* PlotNames[EyeCharts::Count] = {
    "plotRightHorzPosition", "plotRightHorzVelocity", "plotRightVertPosition", "plotRightVertVelocity",
    "plotLeftHorzPosition",  "plotLeftHorzVelocity",  "plotLeftVertPosition",  "plotLeftVertVelocity"};

void pressOk(QWidget* dialog)
{
    QTest::mouseClick(dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
}

class SaccadeCenterChartsTest : public SaccadeCenterTest
{
protected:
    CurvePlot& plot(int slot) { return find<CurvePlot>(PlotNames[slot]); }
    const std::vector<double>& samples(int slot)
    {
        const EyeSignal& eye = document().eyes()[EyeAxes[std::size_t(slot / 2)]];
        return slot % 2 == 0 ? eye.position : eye.velocity;
    }
    std::pair<double, double> extent(int slot, int first, int last)
    {
        const std::vector<double>& all = samples(slot);
        const auto [least, greatest] = std::minmax_element(all.begin() + first, all.begin() + last + 1);
        return {*least, *greatest};
    }
    /// The position scales around `middles` must all be as wide as `width` and a tenth on both sides.
    void expectPositions(const std::vector<std::pair<double, double>>& extents, double width)
    {
        for (std::size_t i = 0; i < extents.size(); ++i) {
            CurvePlot& chart = plot(int(i) * 2);
            const double middle = (extents[i].first + extents[i].second) / 2.0;
            EXPECT_DOUBLE_EQ(chart.vertMin(), middle - width / 2 - width / 10) << i;
            EXPECT_DOUBLE_EQ(chart.vertMax(), middle + width / 2 + width / 10) << i;
            EXPECT_EQ(chart.vertGridStart(), 0.0) << i;
        }
    }
    void expectVelocities(int used, double highest)
    {
        for (int slot = 1; slot < used; slot += 2) {
            EXPECT_EQ(plot(slot).vertMin(), 0.0) << slot;
            EXPECT_DOUBLE_EQ(plot(slot).vertMax(), highest + highest / 10.0) << slot;
        }
    }
    static double widest(const std::vector<std::pair<double, double>>& extents)
    {
        double width = 0.0;
        for (const auto& [least, greatest] : extents)
            width = std::max(width, greatest - least);
        return width;
    }

    void checkScales(const char* file, int used);

    QString recordBothEyes()
    {
        return record("bino.kiro", {"right eye - horizontal", "left eye - horizontal", "right eye - vertical",
                                    "left eye - vertical"});
    }

    /// Detects in both eyes, saves, and puts these saccades and blinks in the place of those found.
    QString fileOfBothEyes(const std::vector<KiroSaccade>& saccades, const std::vector<KiroBlink>& blinks)
    {
        recordBothEyes();
        detect("bino.kiro");
        ModalAnswers answers;
        answers.chooseFile(path("bino.sacc"));
        trigger("actionFileSaveAs");
        dropWindow();
        KiroSaccHeader header;
        EXPECT_TRUE(header.load(KiroString(path("bino.sacc"))));
        header.saccades = saccades;
        header.blinks = blinks;
        EXPECT_TRUE(header.save());
        return path("bino.sacc");
    }

    static KiroSaccade bothEyes(int start, int end, int leftStart, int leftEnd)
    {
        KiroSaccade saccade;
        saccade.main.start = start;
        saccade.main.end = end;
        saccade.main.duration = end - start + 1;
        saccade.main.amplitude = 7.25;
        saccade.main.peakVelocity = 250.0;
        saccade.right = saccade.main;
        saccade.left = saccade.main;
        saccade.left.start = leftStart;
        saccade.left.end = leftEnd;
        saccade.left.duration = leftEnd - leftStart + 1;
        return saccade;
    }

    void wheel(int delta)
    {
        const QPointF place(position().rect().center());
        QWheelEvent event(place, position().mapToGlobal(place.toPoint()), QPoint(), QPoint(0, delta),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&position(), &event);
    }
};

void SaccadeCenterChartsTest::checkScales(const char* file, int used)
{
    detect(file);
    ASSERT_EQ(document().saccades().size(), SaccadeCount);
    trigger("actionSaccNext");
    trigger("actionSaccNext");
    const int first = scroll().value();
    ASSERT_EQ(first, document().saccades()[2].main.start - 1500);
    std::vector<std::pair<double, double>> shown;
    std::vector<std::pair<double, double>> saccade;
    double fastest = 0.0;
    double fastestInSaccade = 0.0;
    for (int slot = 0; slot < used; ++slot) {
        const KiroSaccade& current = document().saccades()[2];
        const KiroSaccadeEye& eye = used < 8 ? current.main : slot < 4 ? current.right : current.left;
        if (slot % 2 == 0) {
            shown.push_back(extent(slot, first, first + 3000));
            saccade.push_back(extent(slot, eye.start, eye.end));
        } else {
            fastest = std::max(fastest, extent(slot, first, first + 3000).second);
            fastestInSaccade = std::max(fastestInSaccade, extent(slot, eye.start, eye.end).second);
        }
    }
    expectPositions(shown, widest(shown));
    expectVelocities(used, fastest);
    find<QRadioButton>("radioPosConst").click();
    find<QRadioButton>("radioVelConst").click();
    double amplitude = 0.0;
    double velocityOfAll = 0.0;
    for (const KiroSaccade& each : document().saccades()) {
        amplitude = std::max(amplitude, std::abs(each.main.amplitude));
        velocityOfAll = std::max(velocityOfAll, each.main.peakVelocity);
    }
    expectPositions(shown, amplitude);
    expectVelocities(used, velocityOfAll);
    find<QRadioButton>("radioPosFit").click();
    find<QRadioButton>("radioVelFit").click();
    expectPositions(saccade, widest(saccade));
    expectVelocities(used, fastestInSaccade);
    // The position and velocity scales of all charts are zoomed together.
    click("buttonPosScaleZoomOut");
    click("buttonVelScaleZoomIn");
    for (int slot = 0; slot < used; ++slot) {
        const double width = plot(slot).vertMax() - plot(slot).vertMin();
        if (slot % 2 == 0)
            EXPECT_NEAR(width, 2 * 1.2 * widest(saccade), 1e-9) << slot;
        else
            EXPECT_NEAR(width, 0.5 * 1.1 * fastestInSaccade, 1e-9) << slot;
    }
    // Where the current saccade is not to be seen, its modes go by the window.
    scroll().setValue(0);
    trigger("actionSaccLast");
    scroll().setValue(1);
    shown.clear();
    for (int slot = 0; slot < used; slot += 2)
        shown.push_back(extent(slot, 1, 3001));
    expectPositions(shown, widest(shown));
}

TEST_F(SaccadeCenterChartsTest, HaveTheirTitlesAndScalesBeforeThereIsData)
{
    const QStringList titles = {
        QStringLiteral("Right eye h position [deg]"), QStringLiteral("Right eye h velocity [deg/s]"),
        QStringLiteral("Right eye v position [deg]"), QStringLiteral("Right eye v velocity [deg/s]"),
        QStringLiteral("Left eye h position [deg]"),  QStringLiteral("Left eye h velocity [deg/s]"),
        QStringLiteral("Left eye v position [deg]"),  QStringLiteral("Left eye v velocity [deg/s]")};
    for (int slot = 0; slot < EyeCharts::Count; ++slot) {
        EXPECT_EQ(plot(slot).vertTitle(), titles[slot]);
        EXPECT_EQ(plot(slot).vertMin(), 0.0);
        EXPECT_EQ(plot(slot).vertMax(), slot % 2 == 0 ? 50.0 : 500.0);
        EXPECT_EQ(plot(slot).horzMin(), 0.0);
        EXPECT_EQ(plot(slot).horzMax(), 5.0);
    }
}

TEST_F(SaccadeCenterChartsTest, GetTheirTitlesFromTheData)
{
    recordBothEyes();
    detect("bino.kiro");
    const QStringList titles = {
        QStringLiteral("Right eye horizontal [deg]"), QStringLiteral("Right eye horizontal [deg/s]"),
        QStringLiteral("Right eye vertical [deg]"),   QStringLiteral("Right eye vertical [deg/s]"),
        QStringLiteral("Left eye horizontal [deg]"),  QStringLiteral("Left eye horizontal [deg/s]"),
        QStringLiteral("Left eye vertical [deg]"),    QStringLiteral("Left eye vertical [deg/s]")};
    for (int slot = 0; slot < EyeCharts::Count; ++slot)
        EXPECT_EQ(plot(slot).vertTitle(), titles[slot]);
}

TEST_F(SaccadeCenterChartsTest, AreTwoFourOrEight)
{
    record("mono.kiro", {"eye movement - horizontal", "eye movement - vertical"});
    recordBothEyes();
    const auto visible = [this] {
        int count = 0;
        for (int slot = 0; slot < EyeCharts::Count; ++slot)
            count += plot(slot).isVisible() ? 1 : 0;
        return count;
    };
    const auto detectAnew = [this](const char* file) {
        dropWindow();
        ModalAnswers answers; // of the edits of the window before
        pressAnswer(answers, 1);
        window();
        QTest::qWait(30);
        detect(file);
    };
    detect("bino.kiro");
    EXPECT_EQ(visible(), 8);
    detectAnew("mono.kiro");
    EXPECT_EQ(document().state().header.detectionType, 2);
    EXPECT_EQ(visible(), 4);
    detectAnew("eye.kiro");
    EXPECT_EQ(document().state().header.detectionType, 1);
    EXPECT_EQ(visible(), 2);
    detect("bino.kiro");
    EXPECT_EQ(visible(), 8) << "in the same window";
    detect("mono.kiro");
    EXPECT_EQ(visible(), 4);
}

TEST_F(SaccadeCenterChartsTest, AreDrawnForTheWidthThatTheyGet)
{
    detect();
    QTest::qWait(50);
    const int shown = position().curve(0)->points().size();
    trigger("actionSaccCurrent");
    EXPECT_EQ(position().curve(0)->points().size(), shown);
    recordBothEyes();
    {
        ModalAnswers answers;
        answers.chooseFile(path("eye.sacc"));
        trigger("actionFileSaveAs");
    }
    for (int i = 0; i < 30; ++i)
        click("buttonTimeZoomOut");
    detect("bino.kiro");
    QTest::qWait(50);
    const int shownOfBoth = position().curve(0)->points().size();
    trigger("actionSaccCurrent");
    EXPECT_EQ(position().curve(0)->points().size(), shownOfBoth);
}

TEST_F(SaccadeCenterChartsTest, FitTheScalesOfTwoCharts)
{
    checkScales("eye.kiro", 2);
}

TEST_F(SaccadeCenterChartsTest, FitTheScalesOfFourCharts)
{
    record("mono.kiro", {"eye movement - horizontal", "eye movement - vertical"});
    checkScales("mono.kiro", 4);
}

TEST_F(SaccadeCenterChartsTest, FitTheScalesOfEightCharts)
{
    recordBothEyes();
    checkScales("bino.kiro", 8);
}

TEST_F(SaccadeCenterChartsTest, MarkTheSaccadesOfEachEyeByItsOwnEnds)
{
    const QString file = fileOfBothEyes(
        {bothEyes(100, 140, 110, 160), bothEyes(2000, 2040, 2010, 2060), bothEyes(2990, 3030, 3050, 3090)},
        {});
    window().openFile(file);
    // The third one overlaps the window with its right block only, by less than it has samples.
    ASSERT_EQ(scroll().value(), 0);
    ASSERT_EQ(position().curveCount(), 4);
    CurvePlot& left = plot(4);
    ASSERT_EQ(left.curveCount(), 4);
    const auto ends = [](CurvePlot& chart, int curve) {
        const auto points = chart.curve(curve)->points();
        return std::make_pair(points.first().x(), points.last().x());
    };
    EXPECT_EQ(ends(position(), 2), std::make_pair(2.000, 2.040));
    EXPECT_EQ(ends(left, 2), std::make_pair(2.010, 2.060));
    EXPECT_EQ(ends(position(), 3), std::make_pair(2.990, 3.000));
    EXPECT_TRUE(left.curve(3)->points().isEmpty());
    for (CurvePlot* chart : {&position(), &left}) {
        EXPECT_EQ(chart->curve(0)->pen().color(), QColor(Qt::black));
        EXPECT_EQ(chart->curve(1)->pen().color(), QColor(Qt::blue));
        EXPECT_EQ(chart->curve(1)->pen().width(), 4);
    }
    EXPECT_EQ(position().curve(2)->pen().color(), QColor(Qt::green));
    EXPECT_EQ(left.curve(2)->pen().color(), QColor(Qt::red));
    EXPECT_EQ(left.curve(2)->pen().width(), 2);
    EXPECT_EQ(left.curve(2)->name(), QStringLiteral("1"));
}

TEST_F(SaccadeCenterChartsTest, NameTheBlinksAndTellOfThem)
{
    KiroBlink ahead;
    ahead.start = 5000;
    ahead.end = 5100;
    KiroBlink blink;
    blink.start = 1200;
    blink.end = 1399;
    blink.duration = 200;
    blink.peaksDistance = 151;
    blink.amp1 = 12.34;
    blink.amp2 = 10.0;
    blink.ampRelation = 0.814;
    const QString file = fileOfBothEyes({bothEyes(100, 140, 110, 160)}, {ahead, blink});
    window().openFile(file);
    for (int slot = 0; slot < EyeCharts::Count; ++slot) {
        ASSERT_EQ(plot(slot).curveCount(), 3) << slot;
        const auto curve = plot(slot).curve(2);
        EXPECT_EQ(curve->name(), QStringLiteral("BLINK_1"));
        EXPECT_EQ(curve->toolTip(),
                  QStringLiteral("Blink\nDuration 200 ms\nPeaks distance 151 ms\nAmplitude 12.3 deg\n"
                                 "Amplitude relation 0.81"));
        EXPECT_EQ(curve->pen().color(), QColor(Qt::magenta));
        EXPECT_EQ(curve->pen().width(), 2);
        EXPECT_EQ(curve->pen().style(), Qt::DashLine);
        EXPECT_EQ(curve->points().first().x(), 1.2);
        EXPECT_EQ(curve->points().last().x(), 1.399);
    }
}

TEST_F(SaccadeCenterChartsTest, FollowADragOfOneOfTheirKind)
{
    recordBothEyes();
    detect("bino.kiro");
    scroll().setValue(2000);
    std::vector<std::pair<double, double>> before;
    for (int slot = 0; slot < EyeCharts::Count; ++slot)
        before.emplace_back(plot(slot).vertMin(), plot(slot).vertMax());
    CurvePlot& dragged = plot(4);
    const QPoint start(dragged.plotArea().center());
    QTest::mousePress(&dragged, Qt::LeftButton, Qt::NoModifier, start);
    moveTo(dragged, start + QPoint(-40, 15));
    moveTo(dragged, start + QPoint(-60, 10));
    EXPECT_EQ(scroll().value(), 2000 + roundHalfUp(dragged.horzPoints2Scale(60) * 1000.0));
    const double up = dragged.vertPoints2Scale(10);
    EXPECT_GT(up, 0.0);
    for (int slot = 0; slot < EyeCharts::Count; ++slot) {
        const double moved = slot % 2 == 0 ? up : 0.0;
        EXPECT_NEAR(plot(slot).vertMin(), before[std::size_t(slot)].first + moved, 1e-9) << slot;
        EXPECT_NEAR(plot(slot).vertMax(), before[std::size_t(slot)].second + moved, 1e-9) << slot;
        EXPECT_EQ(plot(slot).horzMin(), scroll().value() / 1000.0) << slot;
    }
    QTest::mouseRelease(&dragged, Qt::LeftButton, Qt::NoModifier, start + QPoint(-60, 10));
    EXPECT_FALSE(action("actionEditUndo").isEnabled());
}

TEST_F(SaccadeCenterChartsTest, LeaveTheChoiceWhenADoubleClickFindsNoSaccade)
{
    detect();
    trigger("actionSaccNext");
    scroll().setValue(scroll().maximum());
    for (int i = 0; i < 2; ++i)
        click("buttonTimeZoomIn");
    scroll().setValue(scroll().maximum());
    ASSERT_GT(scroll().value(), document().saccades().last().main.end);
    ASSERT_EQ(position().curveCount(), 1);
    QTest::mouseDClick(&position(), Qt::LeftButton, Qt::NoModifier, position().plotArea().center());
    EXPECT_EQ(document().currentSaccade(), 1);
    EXPECT_EQ(label("labelCurrent"), QStringLiteral("2 / 5"));
    QTest::mouseDClick(&position(), Qt::RightButton, Qt::NoModifier, position().plotArea().center());
    EXPECT_EQ(document().currentSaccade(), 1);
}

TEST_F(SaccadeCenterChartsTest, ChooseTheNearestSaccadeFromAnyDistance)
{
    detect();
    QTest::mouseDClick(&position(), Qt::RightButton, Qt::NoModifier,
                       QPoint(position().horzScalePoints(2.9), position().plotArea().top() + 1));
    EXPECT_EQ(document().currentSaccade(), 0) << "another button";
    QTest::mouseDClick(&position(), Qt::LeftButton, Qt::NoModifier,
                       QPoint(position().horzScalePoints(2.9), position().plotArea().center().y()));
    EXPECT_EQ(document().currentSaccade(), 2);
}

TEST_F(SaccadeCenterChartsTest, MoveByTheWheelInWholeMilliseconds)
{
    detect();
    click("buttonTimeZoomIn");
    ASSERT_EQ(window().timeWindow().length(), 2750.0);
    scroll().setValue(2000);
    wheel(1);
    EXPECT_EQ(scroll().value(), 2000 - 4) << "of 4.58";
    wheel(-1);
    EXPECT_EQ(scroll().value(), 2000) << "cut toward 0 for both directions";
    position().setVertMinMax(-100.0, 100.0);
    wheel(-120);
    EXPECT_EQ(scroll().value(), 2550);
    EXPECT_LT(position().vertMax(), 100.0) << "the scales are fitted";
}

TEST_F(SaccadeCenterChartsTest, StayWhereTheyAreWhenNewParametersDetectAgain)
{
    detect();
    trigger("actionSaccRemoveCurrent");
    scroll().setValue(3210);
    ModalAnswers answers;
    answers.answer([](QWidget* dialog) {
        dialog->findChild<QSpinBox*>(QStringLiteral("spinGap"))->setValue(77);
        pressOk(dialog);
    });
    trigger("actionEditDetectParams");
    EXPECT_NE(document().state().header.params.gap, 77) << "they wait for the next detection";
    trigger("actionFileRedetect");
    EXPECT_EQ(document().state().header.params.gap, 77);
    EXPECT_EQ(label("labelDetectedGap"), QStringLiteral("77"));
    EXPECT_EQ(document().saccades().size(), SaccadeCount);
    EXPECT_EQ(scroll().value(), 3210);
    EXPECT_EQ(position().horzMin(), 3.21);
    EXPECT_TRUE(isDirty());
}

TEST_F(SaccadeCenterChartsTest, ShowNothingButTheSignalWhenDetectingAgainFindsNothing)
{
    detect();
    scroll().setValue(3210);
    ModalAnswers answers;
    answers.answer([](QWidget* dialog) {
        dialog->findChild<QSpinBox*>(QStringLiteral("spinMinTime"))->setValue(400);
        dialog->findChild<QSpinBox*>(QStringLiteral("spinMaxTime"))->setValue(500);
        pressOk(dialog);
    });
    trigger("actionEditDetectParams");
    answers.press(QMessageBox::Ok);
    trigger("actionFileRedetect");
    EXPECT_TRUE(answers.seen().last().endsWith(QStringLiteral("|No saccades found!")));
    EXPECT_TRUE(document().saccades().isEmpty());
    EXPECT_EQ(position().curveCount(), 1);
    EXPECT_EQ(scroll().value(), 3210);
    EXPECT_FALSE(action("actionSaccRemoveCurrent").isEnabled());
}

TEST_F(SaccadeCenterChartsTest, FollowTheOptionsThatAreAccepted)
{
    detect();
    const KiroSaccadeEye eye = document().saccades()[0].main;
    EXPECT_EQ(label("captionBegin"), QStringLiteral("Begin [s]"));
    EXPECT_EQ(label("captionDuration"), QStringLiteral("Duration [ms]"));
    QTest::qWait(20); // until the charts have their places
    position().setVertMinMax(-1.0, 2.0);
    position().setCurveCount(0);
    const auto choose = [](int unit, QDialogButtonBox::StandardButton button) {
        return [unit, button](QWidget* dialog) {
            dialog->findChild<QComboBox*>(QStringLiteral("comboTimeUnits"))->setCurrentIndex(unit);
            auto* const buttons = dialog->findChild<QDialogButtonBox*>();
            QTest::mouseClick(buttons->button(button), Qt::LeftButton);
        };
    };
    ModalAnswers answers;
    answers.answer(choose(0, QDialogButtonBox::Cancel));
    trigger("actionEditOptions");
    EXPECT_EQ(label("captionBegin"), QStringLiteral("Begin [s]"));
    EXPECT_EQ(position().curveCount(), 0);
    answers.answer(choose(0, QDialogButtonBox::Ok));
    trigger("actionEditOptions");
    EXPECT_EQ(label("captionBegin"), QStringLiteral("Begin [smp]"));
    EXPECT_EQ(label("captionEnd"), QStringLiteral("End [smp]"));
    EXPECT_EQ(label("captionDuration"), QStringLiteral("Duration [smp]"));
    EXPECT_EQ(label("labelBegin"), QString::number(eye.start));
    EXPECT_EQ(label("labelEnd"), QString::number(eye.end));
    EXPECT_EQ(position().curveCount(), 4) << "drawn anew";
    EXPECT_EQ(position().vertMax(), 2.0) << "with the scales as they were";
    answers.answer(choose(2, QDialogButtonBox::Ok));
    trigger("actionEditOptions");
    EXPECT_EQ(label("captionEnd"), QStringLiteral("End [m]"));
    EXPECT_EQ(label("labelBegin"),
              QStringLiteral("0:%1").arg(eye.start / 1000.0, 6, 'f', 3, QLatin1Char('0')));
    answers.answer(choose(3, QDialogButtonBox::Ok));
    trigger("actionEditOptions");
    EXPECT_EQ(label("captionEnd"), QStringLiteral("End [h]"));
    EXPECT_EQ(label("labelBegin"),
              QStringLiteral("00:00:%1").arg(eye.start / 1000.0, 6, 'f', 3, QLatin1Char('0')));
    EXPECT_EQ(label("captionFixation"), QStringLiteral("Fixation [ms]"));
}

TEST_F(SaccadeCenterChartsTest, KeepTheSettingsWhenTheWindowCloses)
{
    {
        ModalAnswers answers;
        answers.chooseFile(path("eye.kiro"));
        trigger("actionFileDetect");
        answers.answer([](QWidget* dialog) {
            dialog->findChild<QSpinBox*>(QStringLiteral("spinGap"))->setValue(77);
            pressOk(dialog);
        });
        trigger("actionEditDetectParams");
        answers.answer([](QWidget* dialog) {
            dialog->findChild<QComboBox*>(QStringLiteral("comboTimeUnits"))->setCurrentIndex(3);
            pressOk(dialog);
        });
        trigger("actionEditOptions");
        click("buttonTimeZoomOut");
        pressAnswer(answers, 1);
        ASSERT_TRUE(window().close());
    }
    IniStore store;
    ASSERT_TRUE(store.load(path("settings.ini")));
    const QString section = SaccadeCenter::section();
    const QString folder = QFileInfo(path("eye.kiro")).path();
    EXPECT_EQ(store.value(section, QStringLiteral("dir_open"), QString()), folder);
    EXPECT_EQ(store.doubleValue(section, QStringLiteral("time_window"), 0.0), 3500.0);
    EXPECT_EQ(store.intValue(section, QStringLiteral("time_units"), 0), 3);
    EXPECT_FALSE(store.boolValue(section, QStringLiteral("ask_for_signals_selection_confirmation"), true));
    dropWindow();
    EXPECT_EQ(window().timeWindow().length(), 3500.0);
    EXPECT_EQ(label("captionEnd"), QStringLiteral("End [h]"));
    EXPECT_EQ(document().state().saccadeParams.gap, 77);
    ModalAnswers answers;
    answers.reject();
    trigger("actionFileOpen");
    EXPECT_EQ(answers.seen().last(), QStringLiteral("Select file with saccades|") + folder);
}

TEST(SaccadeColumns, NameTheUnitsOfAllFourChoices)
{
    const auto heads = [](TimeUnit unit) { return saccadeColumns(unit).mid(0, 4); };
    EXPECT_EQ(heads(TimeUnit::Samples),
              QStringList({QStringLiteral("No"), QStringLiteral("Begin [sample]"),
                           QStringLiteral("Duration [sample]"), QStringLiteral("Fixation [sample]")}));
    EXPECT_EQ(heads(TimeUnit::Seconds),
              QStringList({QStringLiteral("No"), QStringLiteral("Begin [s]"), QStringLiteral("Duration [ms]"),
                           QStringLiteral("Fixation [ms]")}));
    EXPECT_EQ(heads(TimeUnit::Minutes),
              QStringList({QStringLiteral("No"), QStringLiteral("Begin [min]"),
                           QStringLiteral("Duration [ms]"), QStringLiteral("Fixation [ms]")}));
    EXPECT_EQ(heads(TimeUnit::Hours),
              QStringList({QStringLiteral("No"), QStringLiteral("Begin [hour]"),
                           QStringLiteral("Duration [ms]"), QStringLiteral("Fixation [ms]")}));
    for (const TimeUnit unit : {TimeUnit::Samples, TimeUnit::Hours})
        EXPECT_EQ(saccadeColumns(unit).mid(4),
                  QStringList({QStringLiteral("Amplitude [deg]"), QStringLiteral("Peak velocity [deg/s]")}));
}

TEST(SaccadeRow, WritesTheTimesInTheUnit)
{
    KiroSaccadeEye eye;
    eye.start = 61234;
    eye.duration = 42;
    eye.fixation = 900;
    eye.amplitude = -7.26;
    eye.peakVelocity = 312.04;
    const auto row = [&](TimeUnit unit) { return saccadeRow(3, eye, 500.0, unit); };
    EXPECT_EQ(row(TimeUnit::Samples), QStringLiteral("3\t61234\t42\t900\t-7.3\t312.0"));
    EXPECT_EQ(row(TimeUnit::Seconds), QStringLiteral("3\t122.468\t84\t1800\t-7.3\t312.0"));
    EXPECT_EQ(row(TimeUnit::Minutes), QStringLiteral("3\t2:02.468\t84\t1800\t-7.3\t312.0"));
    EXPECT_EQ(row(TimeUnit::Hours), QStringLiteral("3\t00:02:02.468\t84\t1800\t-7.3\t312.0"));
}

// The system's locale is settled once in a process, so this test runs itself in another one.
TEST(SaccadeRowSystemLocale, IsWhatAllNumbersAreWrittenIn)
{
    const char* const childMark = "KIRO_TEST_CHILD";
    if (!qEnvironmentVariableIsSet(childMark)) {
        QProcess child;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("pl_PL.UTF-8"));
        environment.insert(QString::fromLatin1(childMark), QStringLiteral("1"));
        child.setProcessEnvironment(environment);
        child.start(QCoreApplication::applicationFilePath(),
                    {QStringLiteral("--gtest_filter=SaccadeRowSystemLocale.*")});
        ASSERT_TRUE(child.waitForFinished());
        EXPECT_EQ(child.exitCode(), 0) << child.readAllStandardOutput().toStdString();
        return;
    }
    KiroSaccadeEye eye;
    eye.start = 61234;
    eye.duration = 42;
    eye.fixation = 61234;
    eye.amplitude = -7.26;
    eye.peakVelocity = 1312.04;
    EXPECT_EQ(saccadeRow(1003, eye, 500.0, TimeUnit::Seconds),
              QStringLiteral("1003\t122,468\t84\t122468\t-7,3\t1312,0"));
}

} // namespace
