// Saccades browsers that get damaged files, and events when they least suit.

#include "saccadecenterfixture.h"

#include "kirosaccheader.h"
#include "messagerecorder.h"
#include "openevents.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QProgressDialog>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

namespace
{

constexpr int Most = std::numeric_limits<int>::max();
constexpr int Least = std::numeric_limits<int>::min();

KiroSaccade saccadeFrom(int start, int end)
{
    KiroSaccade saccade;
    for (KiroSaccadeEye* eye : {&saccade.main, &saccade.left, &saccade.right}) {
        eye->start = start;
        eye->end = end;
        eye->duration = int(std::clamp<std::int64_t>(std::int64_t(end) - start + 1, Least, Most));
        eye->amplitude = 5.0;
        eye->peakVelocity = 200.0;
    }
    return saccade;
}

class SaccadeCenterHostileTest : public SaccadeCenterTest
{
protected:
    /// A saved file of the detection after `change` of its header.
    QString changedFile(const std::function<void(KiroSaccHeader&)>& change)
    {
        QFile::remove(path("eye.sacc"));
        const QString file = savedFile();
        KiroSaccHeader header;
        EXPECT_TRUE(header.load(KiroString(file)));
        change(header);
        EXPECT_TRUE(header.save());
        return file;
    }

    /// Uses all that there is, which must do no harm.
    void useAll()
    {
        for (const char* name : {"radioPosConst", "radioVelConst", "radioPosFit", "radioVelFit",
                                 "radioPosAuto", "radioVelAuto", "buttonTimeZoomIn", "buttonTimeZoomOut",
                                 "buttonPosScaleZoomIn", "buttonVelScaleZoomOut", "buttonPosScaleReset"}) {
            find<QAbstractButton>(name).click();
            for (const char* step : {"actionSaccNext", "actionSaccLast", "actionSaccPrev", "actionSaccFirst"})
                trigger(step);
        }
        for (const int place : {0, scroll().maximum() / 2, scroll().maximum()}) {
            scroll().setValue(place);
            const QPoint centre(position().plotArea().center());
            QTest::mouseDClick(&position(), Qt::LeftButton, Qt::NoModifier, centre);
            QWheelEvent event(centre, position().mapToGlobal(centre), QPoint(), QPoint(0, -120), Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(&position(), &event);
            window().grab();
        }
    }

    QString onlyMessage(const QString& file)
    {
        ModalAnswers answers;
        answers.press(QMessageBox::Ok);
        window().openFile(file);
        return answers.seen().value(0).section(QLatin1Char('|'), 1);
    }

    void send(const QString& file) { QCoreApplication::postEvent(&window(), new OpenFileEvent(file)); }

    static bool hasMark(CurvePlot& plot)
    {
        for (int i = 0; i < plot.curveCount(); ++i) {
            if (plot.curve(i)->name() == QStringLiteral("new saccade"))
                return true;
        }
        return false;
    }
};

TEST_F(SaccadeCenterHostileTest, SaysThatTheHorizontalSignalIsMissingWhenNoneIsChosen)
{
    setOption("ask_for_signals_selection_confirmation", "1");
    ModalAnswers answers;
    answers.answer([](QWidget* dialog) {
        dialog->findChild<QComboBox*>(QStringLiteral("comboRole0"))->setCurrentIndex(0);
        qobject_cast<QDialog*>(dialog)->accept();
    });
    answers.press(QMessageBox::Ok);
    detect();
    EXPECT_EQ(answers.seen().last(),
              QStringLiteral("Saccades browser|Error while loading horizontal eye position samples!"));
    EXPECT_FALSE(document().hasRecording());
}

TEST_F(SaccadeCenterHostileTest, ShowsSaccadesThatAreNowhereInTheRecording)
{
    const QString file = changedFile([](KiroSaccHeader& header) {
        header.saccades = {saccadeFrom(5000, 5040),     saccadeFrom(-500, 20),   saccadeFrom(7990, 9000),
                           saccadeFrom(100000, 100040), saccadeFrom(300, 200),   saccadeFrom(Least, Most),
                           saccadeFrom(Most, Most),     saccadeFrom(Most, Least)};
        KiroBlink blink;
        blink.start = -7;
        blink.end = Most;
        header.blinks = {blink, KiroBlink()};
    });
    window().openFile(file);
    ASSERT_EQ(document().saccades().size(), 8);
    useAll();
    scroll().setValue(0);
    // Among those to be seen is what there is of the one that begins ahead of the recording.
    ASSERT_EQ(position().curve(1)->name(), QStringLiteral("1"));
    EXPECT_EQ(position().curve(1)->points().size(), 21);
    for (int i = 0; i < 8; ++i)
        trigger("actionSaccRemoveCurrent");
    EXPECT_TRUE(document().saccades().isEmpty());
    for (int i = 0; i < 8; ++i)
        trigger("actionEditUndo");
    EXPECT_EQ(document().saccades().size(), 8);
    EXPECT_FALSE(isDirty());
    trigger("actionFileRedetect");
    EXPECT_EQ(document().saccades().size(), SaccadeCount);
}

TEST_F(SaccadeCenterHostileTest, TakesAFileOfBothEyesThatNamesOneSignal)
{
    const QString file =
        changedFile([](KiroSaccHeader& header) { header.detectionType = KiroSaccHeader::Binocular; });
    window().openFile(file);
    EXPECT_EQ(document().saccades().size(), SaccadeCount);
    EXPECT_EQ(document().eyes().detectionType, 1);
    EXPECT_TRUE(position().isVisible());
    EXPECT_FALSE(find<CurvePlot>("plotRightVertPosition").isVisible());
    EXPECT_EQ(position().curveCount(), 4);
    useAll();
    scroll().setValue(0);
    drag(1.5, 1.56, Qt::ShiftModifier);
    EXPECT_EQ(document().saccades().size(), SaccadeCount + 1);
    trigger("actionSaccRemoveCurrent");
    ModalAnswers answers;
    answers.press(QMessageBox::Ok);
    trigger("actionFileRedetect");
    EXPECT_TRUE(answers.seen().last().endsWith(QStringLiteral("|No saccades found!")));
    trigger("actionEditUndo");
    EXPECT_EQ(document().saccades().size(), SaccadeCount);
}

TEST_F(SaccadeCenterHostileTest, SaysThatTheTypeIsUnknown)
{
    const QString file = changedFile([](KiroSaccHeader& header) { header.detectionType = 9; });
    window().openFile(file);
    EXPECT_EQ(document().saccades().size(), SaccadeCount);
    EXPECT_EQ(label("labelDetectedType"), QStringLiteral("Unknown"));
}

TEST_F(SaccadeCenterHostileTest, TakesRatesThatMakeNoSense)
{
    struct Rate
    {
        std::uint32_t period;
        std::uint32_t samples;
        double msPerSample;
    };
    const Rate rates[] = {
        {0, 4, 1.0}, {1000, 0, 1.0}, {0xffffffff, 1, 4294967295.0}, {1, 0xffffffff, 1.0 / 4294967295.0}};
    for (const Rate& rate : rates) {
        const QString file = changedFile([&](KiroSaccHeader& header) {
            header.ratePeriod = rate.period;
            header.samplesPerPeriod = rate.samples;
        });
        window().openFile(file);
        EXPECT_DOUBLE_EQ(document().msPerSample(), rate.msPerSample);
        EXPECT_EQ(document().saccades().size(), SaccadeCount);
        useAll();
        dropWindow();
    }
}

TEST_F(SaccadeCenterHostileTest, TakesCalibrationsThatMakeNoSense)
{
    for (const double factor : {0.0, std::nan(""), 1e-320, -1e-300, HUGE_VAL}) {
        const QString file = changedFile([&](KiroSaccHeader& header) {
            header.setSignalFactor(KiroSaccHeader::RightHorizontal, factor);
            header.setSignalOffset(KiroSaccHeader::RightHorizontal, factor);
        });
        const MessageRecorder log; // of scales that are none
        window().openFile(file);
        EXPECT_EQ(document().saccades().size(), SaccadeCount) << factor;
        useAll();
        dropWindow();
    }
}

TEST_F(SaccadeCenterHostileTest, SaysWhichSignalIsNotInTheRecording)
{
    struct Case
    {
        int right;
        int vertical;
        int left;
        int leftVertical;
        const char* text;
    };
    const Case cases[] = {{1, -1, -1, -1, "Error while loading horizontal eye position samples!"},
                          {-1, 0, 0, 0, "Error while loading horizontal eye position samples!"},
                          {Least, -1, -1, -1, "Error while loading horizontal eye position samples!"},
                          {0, Most, -1, -1, "Error while loading vertical eye position samples!"},
                          {0, 0, 9, 0, "Error while loading horizontal left eye position samples!"},
                          {0, 0, 0, 9, "Error while loading vertical left eye position samples!"}};
    for (const Case& each : cases) {
        const QString file = changedFile([&](KiroSaccHeader& header) {
            header.setSignalIndex(KiroSaccHeader::RightHorizontal, each.right);
            header.setSignalIndex(KiroSaccHeader::RightVertical, each.vertical);
            header.setSignalIndex(KiroSaccHeader::LeftHorizontal, each.left);
            header.setSignalIndex(KiroSaccHeader::LeftVertical, each.leftVertical);
        });
        EXPECT_EQ(onlyMessage(file), QLatin1String(each.text));
        EXPECT_FALSE(document().hasRecording());
        EXPECT_FALSE(action("actionFileSaveAs").isEnabled());
        dropWindow();
    }
}

TEST_F(SaccadeCenterHostileTest, KeepsItsSaccadesWhenAnotherFileCannotBeLoaded)
{
    const QString bad = changedFile(
        [](KiroSaccHeader& header) { header.setSignalIndex(KiroSaccHeader::RightHorizontal, 7); });
    ASSERT_TRUE(QFile::rename(bad, path("bad.sacc")));
    savedFile();
    window().openFile(path("eye.sacc"));
    trigger("actionSaccNext");
    onlyMessage(path("bad.sacc"));
    EXPECT_EQ(document().sampleCount(), 0);
    EXPECT_EQ(document().saccades().size(), SaccadeCount);
    EXPECT_EQ(document().state().saccadeFile, path("eye.sacc"));
    EXPECT_TRUE(position().curve(0)->points().isEmpty());
    EXPECT_FALSE(action("actionFileRedetect").isEnabled());
    useAll();
    window().openFile(path("eye.sacc"));
    EXPECT_EQ(document().sampleCount(), SampleCount);
    EXPECT_FALSE(isDirty());
}

TEST_F(SaccadeCenterHostileTest, WorksOnWhenTheRecordingIsGone)
{
    const QString file = savedFile();
    window().openFile(file);
    ASSERT_TRUE(QFile::remove(path("eye.kiro")));
    trigger("actionSaccRemoveCurrent");
    trigger("actionFileSave");
    EXPECT_FALSE(isDirty());
    trigger("actionFileRedetect");
    EXPECT_EQ(document().saccades().size(), SaccadeCount);
    KiroSaccHeader saved;
    ASSERT_TRUE(saved.load(KiroString(file)));
    EXPECT_EQ(saved.saccades.size(), std::size_t(SaccadeCount - 1));
    EXPECT_EQ(saved.dataFileName(true).toQString(), path("eye.kiro"));
}

TEST_F(SaccadeCenterHostileTest, ShowsWhatIsLeftOfAShortenedRecording)
{
    const QString file = savedFile();
    m_folder.write(QStringLiteral("eye.kiro"),
                   eyeRecording({{"eye position", jumpingEye(2400, {1000, 2000}, 10.0)}}));
    window().openFile(file);
    EXPECT_EQ(document().sampleCount(), 2400);
    EXPECT_EQ(document().saccades().size(), SaccadeCount);
    EXPECT_EQ(scroll().maximum(), 0);
    trigger("actionSaccLast");
    EXPECT_EQ(label("labelCurrent"), QStringLiteral("5 / 5"));
    useAll();
    trigger("actionFileRedetect");
    EXPECT_EQ(document().saccades().size(), 2);
}

TEST_F(SaccadeCenterHostileTest, TakesRecordingsThatAreHardlyAny)
{
    for (const int samples : {4, 8, 12, 20, 400}) {
        m_folder.write(QStringLiteral("short.kiro"),
                       eyeRecording({{"eye position", jumpingEye(samples, {samples / 2}, 10.0)},
                                     {"eye movement - vertical", jumpingEye(samples, {samples / 2}, 5.0)}}));
        ModalAnswers answers;
        if (samples < 400)
            answers.press(QMessageBox::Ok);
        detect("short.kiro");
        EXPECT_EQ(document().sampleCount(), samples);
        EXPECT_EQ(document().saccades().size(), samples < 400 ? 0 : 1);
        EXPECT_EQ(scroll().maximum(), 0);
        EXPECT_EQ(position().horzMax(), 3.0);
        useAll();
        if (samples < 12) {
            answers.press(QMessageBox::Ok);
            drag(0.0, 2.0, Qt::ShiftModifier);
            EXPECT_TRUE(answers.seen().last().contains(QStringLiteral("can't have duration shorter than")));
        }
        dropWindow();
        for (LeftEdits& edits : EditJournal::leftBehind(EditJournal::journalFolder()))
            edits.discard();
    }
}

TEST_F(SaccadeCenterHostileTest, ClosesAfterTheWorkThatWasUnderWay)
{
    QTimer::singleShot(0, &window(), [this] {
        EXPECT_FALSE(window().close());
        EXPECT_TRUE(window().isVisible());
    });
    detect();
    EXPECT_FALSE(document().hasRecording()) << "the work was given up";
    QTest::qWait(20);
    EXPECT_FALSE(window().isVisible());
}

TEST_F(SaccadeCenterHostileTest, StaysAsItWasWhenTheWorkIsCancelled)
{
    record("mono.kiro", {"eye movement - horizontal", "eye movement - vertical"});
    savedFile();
    window().openFile(path("eye.sacc"));
    QTimer::singleShot(0, &window(), [] {
        auto* const progress = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(progress);
        EXPECT_EQ(progress->maximum(), 2000);
        progress->cancel();
    });
    detect("mono.kiro");
    EXPECT_EQ(document().state().saccadeFile, path("eye.sacc"));
    EXPECT_EQ(document().eyes().detectionType, 1);
    EXPECT_FALSE(isDirty());
    EXPECT_FALSE(find<CurvePlot>("plotRightVertPosition").isVisible());
}

TEST_F(SaccadeCenterHostileTest, GivesADragUpWhenAnotherFileComes)
{
    record("mono.kiro", {"eye movement - horizontal", "eye movement - vertical"});
    savedFile();
    detect("mono.kiro");
    {
        ModalAnswers answers;
        answers.chooseFile(path("mono.sacc"));
        trigger("actionFileSaveAs");
    }
    CurvePlot& vertical = find<CurvePlot>("plotRightVertPosition");
    const QPoint start(vertical.horzScalePoints(1.5), vertical.height() / 2);
    QTest::mousePress(&vertical, Qt::LeftButton, Qt::ShiftModifier, start);
    moveTo(vertical, start + QPoint(30, 0), Qt::ShiftModifier);
    ASSERT_TRUE(hasMark(position()));
    send(path("eye.sacc"));
    QApplication::processEvents();
    ASSERT_EQ(document().state().saccadeFile, path("eye.sacc"));
    EXPECT_FALSE(hasMark(position()));
    EXPECT_EQ(position().cursor().shape(), Qt::ArrowCursor);
    // The button comes up over a chart that is no longer there.
    QTest::mouseRelease(&vertical, Qt::LeftButton, Qt::ShiftModifier, start + QPoint(30, 0));
    EXPECT_EQ(document().saccades().size(), SaccadeCount);
    EXPECT_FALSE(isDirty());
    drag(1.5, 1.56, Qt::ShiftModifier);
    EXPECT_EQ(document().saccades().size(), SaccadeCount + 1);
}

TEST_F(SaccadeCenterHostileTest, ScrollsInTheMiddleOfADrag)
{
    detect();
    CurvePlot& plot = position();
    const int y = plot.height() / 2;
    const QPoint start(plot.horzScalePoints(1.5), y);
    QTest::mousePress(&plot, Qt::LeftButton, Qt::ShiftModifier, start);
    moveTo(plot, start + QPoint(20, 0), Qt::ShiftModifier);
    scroll().setValue(900); // of fewer saccades, and then of more again
    scroll().setValue(3500);
    scroll().setValue(0);
    moveTo(plot, start + QPoint(20, 0), Qt::ShiftModifier);
    ASSERT_EQ(plot.curveCount(), 5);
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(plot.curve(i + 1)->points().size(), document().saccades()[i].main.duration) << i;
    EXPECT_EQ(plot.curve(4)->name(), QStringLiteral("new saccade"));
    EXPECT_FALSE(plot.curve(4)->points().isEmpty());
    trigger("actionSaccRemoveCurrent"); // which goes to the next one
    scroll().setValue(0);
    moveTo(plot, start + QPoint(21, 0), Qt::ShiftModifier);
    QTest::mouseRelease(&plot, Qt::LeftButton, Qt::ShiftModifier, start + QPoint(20, 0));
    EXPECT_FALSE(hasMark(plot));
    EXPECT_EQ(document().saccades().size(), SaccadeCount) << "one removed, one added";
}

TEST_F(SaccadeCenterHostileTest, StartsAnewWhenTheEndOfADragWasLost)
{
    detect();
    CurvePlot& plot = position();
    const int y = plot.height() / 2;
    QTest::mousePress(&plot, Qt::LeftButton, Qt::ShiftModifier, QPoint(plot.horzScalePoints(0.2), y));
    ASSERT_TRUE(hasMark(plot));
    drag(1.5, 1.56, Qt::ShiftModifier);
    EXPECT_EQ(document().saccades().size(), SaccadeCount + 1);
    EXPECT_EQ(document().currentSaccade(), 1);
    EXPECT_FALSE(hasMark(plot));
    EXPECT_FALSE(hasMark(velocity()));
}

TEST_F(SaccadeCenterHostileTest, UndoesWhatWasSaved)
{
    const QString file = savedFile();
    window().openFile(file);
    const QList<KiroSaccade> before = document().saccades();
    trigger("actionSaccRemoveCurrent");
    trigger("actionFileSave");
    EXPECT_FALSE(isDirty());
    trigger("actionEditUndo");
    EXPECT_TRUE(isDirty());
    EXPECT_TRUE(sameList(document().saccades(), before));
    trigger("actionFileSave");
    EXPECT_FALSE(isDirty());
    trigger("actionEditRedo");
    EXPECT_TRUE(isDirty());
    KiroSaccHeader saved;
    ASSERT_TRUE(saved.load(KiroString(file)));
    EXPECT_TRUE(sameList(before, QList<KiroSaccade>(saved.saccades.begin(), saved.saccades.end())));
}

TEST_F(SaccadeCenterHostileTest, ClearsTheDirtyStateAndSetsItWithTheOnlySaccade)
{
    const QString file = changedFile([](KiroSaccHeader& header) { header.saccades.resize(1); });
    window().openFile(file);
    ASSERT_EQ(document().saccades().size(), 1);
    ASSERT_FALSE(isDirty());
    EXPECT_EQ(position().curveCount(), 2);
    trigger("actionSaccRemoveCurrent");
    EXPECT_TRUE(document().saccades().isEmpty());
    EXPECT_TRUE(isDirty());
    EXPECT_EQ(position().curveCount(), 1);
    EXPECT_EQ(label("labelCurrent"), QStringLiteral("0 / 0"));
    EXPECT_EQ(label("labelBegin"), QStringLiteral("-"));
}

TEST_F(SaccadeCenterHostileTest, OffersNoLeftEditsInTheMiddleOfLoading)
{
    const QString file = savedFile();
    detect();
    trigger("actionSaccRemoveCurrent");
    dropWindow(); // as in a crash
    m_window = std::make_unique<SaccadeCenter>();
    m_window->show();
    ModalAnswers none;
    // Loading lets events be handled, of which the offer is one.
    QCoreApplication::sendEvent(&window(), std::make_unique<OpenFileEvent>(file).get());
    QTest::qWait(400);
    EXPECT_TRUE(none.seen().isEmpty()) << "they belong to another document";
    EXPECT_EQ(document().state().saccadeFile, file);
    EXPECT_FALSE(isDirty());
    EXPECT_EQ(EditJournal::leftBehind(EditJournal::journalFolder()).size(), 1u);
}

TEST_F(SaccadeCenterHostileTest, OpensAFileAfterTheQuestionThatIsOpen)
{
    const QString file = savedFile();
    detect();
    trigger("actionSaccRemoveCurrent");
    dropWindow(); // as in a crash
    m_window = std::make_unique<SaccadeCenter>();
    m_window->show();
    ModalAnswers answers;
    answers.answer([&](QWidget* question) {
        send(file);
        QApplication::processEvents();
        EXPECT_FALSE(document().hasRecording()) << "it waits";
        question->findChild<QPushButton*>(QStringLiteral("button0"))->click();
    });
    // The edits are unsaved, which is asked about before the file is opened.
    pressAnswer(answers, 2);
    QTest::qWait(400);
    EXPECT_EQ(document().saccades().size(), SaccadeCount - 1) << "the edits";
    EXPECT_TRUE(isDirty());
    EXPECT_EQ(answers.seen().size(), 2);
}

TEST_F(SaccadeCenterHostileTest, StepsQuicklyThroughFiftyThousandSaccades)
{
    constexpr int Count = 50000;
    const QString file = changedFile([](KiroSaccHeader& header) {
        header.saccades.clear();
        for (int i = 0; i < Count; ++i)
            header.saccades.push_back(saccadeFrom(i * 60, i * 60 + 40));
    });
    window().openFile(file);
    ASSERT_EQ(document().saccades().size(), Count);
    trigger("actionSaccLast");
    EXPECT_EQ(label("labelCurrent"), QStringLiteral("50000 / 50000"));
    trigger("actionSaccFirst");
    constexpr int Steps = 50;
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < Steps; ++i)
        trigger("actionSaccNext");
    RecordProperty("microsecondsOfAStep", int(clock.nsecsElapsed() / 1000 / Steps));
    EXPECT_LT(clock.elapsed() / Steps, 100);
    EXPECT_EQ(label("labelCurrent"), QStringLiteral("51 / 50000"));
    clock.restart();
    trigger("actionSaccRemoveCurrent");
    trigger("actionEditUndo");
    EXPECT_LT(clock.elapsed(), 2000);
    EXPECT_EQ(document().saccades().size(), Count);
}

} // namespace
