#include "saccadecenterfixture.h"

#include "kiroreader.h"
#include "messagerecorder.h"
#include "openevents.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QInputDialog>
#include <QMimeData>
#include <QProcess>
#include <QRadioButton>
#include <QStackedWidget>

#include <algorithm>

namespace
{

const QString UnsavedTitle = QStringLiteral("Saccades browser - ");

void answerSignals(ModalAnswers& answers, const std::vector<int>& choices, bool doNotAsk = false)
{
    answers.answer([choices, doNotAsk](QWidget* dialog) {
        for (std::size_t i = 0; i < choices.size(); ++i) {
            auto* const combo = dialog->findChild<QComboBox*>(QStringLiteral("comboRole%1").arg(i));
            ASSERT_TRUE(combo);
            combo->setCurrentIndex(choices[i]);
        }
        if (doNotAsk)
            dialog->findChild<QCheckBox*>(QStringLiteral("checkDoNotAsk"))->setChecked(true);
        qobject_cast<QDialog*>(dialog)->accept();
    });
}

TEST_F(SaccadeCenterTest, SaysWhatToDoWhileItIsEmpty)
{
    EXPECT_EQ(find<QStackedWidget>("stackContent").currentWidget()->objectName(), QStringLiteral("pageHint"));
    EXPECT_EQ(window().windowTitle(), QStringLiteral("Saccades browser"));
    for (const char* name : {"actionFileSave", "actionFileSaveAs", "actionFileRedetect", "actionSaccNext",
                             "actionSaccRemoveCurrent", "actionFileExportText", "actionSaccPlotAll",
                             "actionSaccStatistic", "actionSaccMainSeq"})
        EXPECT_FALSE(action(name).isEnabled()) << name;
    for (const char* name : {"actionFileDetect", "actionFileOpen", "actionEditOptions", "actionFileClose"})
        EXPECT_TRUE(action(name).isEnabled()) << name;
}

TEST_F(SaccadeCenterTest, DetectsInTheOneSignalOfItsName)
{
    ModalAnswers answers;
    answers.chooseFile(path("eye.kiro"));
    trigger("actionFileDetect");
    EXPECT_EQ(document().saccades().size(), SaccadeCount);
    EXPECT_EQ(document().state().header.detectionType, 1);
    EXPECT_TRUE(isDirty());
    EXPECT_EQ(window().windowTitle(), UnsavedTitle + path("eye.kiro"));
    EXPECT_EQ(label("labelCurrent"), QStringLiteral("1 / 5"));
    EXPECT_TRUE(position().isVisible());
    EXPECT_TRUE(velocity().isVisible());
    EXPECT_FALSE(find<CurvePlot>("plotRightVertPosition").isVisible());
    EXPECT_EQ(position().vertTitle(), QStringLiteral("Right eye horizontal [deg]"));
    EXPECT_EQ(velocity().vertTitle(), QStringLiteral("Right eye horizontal [deg/s]"));
    EXPECT_EQ(answers.seen(), QStringList(QStringLiteral("Select kiro data file|") + QDir::homePath()));
}

TEST_F(SaccadeCenterTest, AsksForTheSignalsOfARecordingWithoutKnownNames)
{
    record("two.kiro", {"one", "other"});
    ModalAnswers answers;
    answers.answer([](QWidget* dialog) {
        EXPECT_FALSE(dialog->findChild<QCheckBox*>(QStringLiteral("checkDoNotAsk"))) << "the option is off";
        auto* const combo = dialog->findChild<QComboBox*>(QStringLiteral("comboRole0"));
        EXPECT_EQ(combo->count(), 3);
        EXPECT_EQ(combo->currentText(), QStringLiteral("no signal selected"));
        combo->setCurrentIndex(2);
        qobject_cast<QDialog*>(dialog)->accept();
    });
    detect("two.kiro");
    EXPECT_EQ(document().state().header.signalIndex(KiroSaccHeader::RightHorizontal), 1);
    EXPECT_EQ(document().state().header.detectionType, 1);
}

TEST_F(SaccadeCenterTest, TakesTheOnlySignalWhateverItsName)
{
    record("one.kiro", {"anything"});
    detect("one.kiro");
    EXPECT_EQ(document().saccades().size(), SaccadeCount);
}

TEST_F(SaccadeCenterTest, ComparesNamesWithCase)
{
    record("case.kiro", {"Eye Movement - Horizontal", "eye movement - vertical"});
    ModalAnswers answers;
    answers.reject();
    detect("case.kiro");
    EXPECT_EQ(answers.seen().size(), 1);
    EXPECT_FALSE(document().hasRecording());
}

TEST_F(SaccadeCenterTest, ProposesSignalsWhoseNamesBeginAsKnown)
{
    record("edf.kiro", {"noise", "eye position, search coil"});
    ModalAnswers answers;
    answers.answer([](QWidget* dialog) {
        EXPECT_EQ(dialog->findChild<QComboBox*>(QStringLiteral("comboRole0"))->currentIndex(), 2);
        qobject_cast<QDialog*>(dialog)->accept();
    });
    detect("edf.kiro");
    EXPECT_EQ(document().state().header.signalIndex(KiroSaccHeader::RightHorizontal), 1);
}

TEST_F(SaccadeCenterTest, StopsAskingForSignalsAtTheUsersWish)
{
    setOption("ask_for_signals_selection_confirmation", "1");
    record("both.kiro", {"right eye - horizontal", "right eye - vertical"});
    {
        ModalAnswers answers;
        answerSignals(answers, {1, 2, 0, 0}, true);
        detect("both.kiro");
    }
    EXPECT_EQ(document().state().header.detectionType, 2);
    ModalAnswers none;
    detect("both.kiro");
    EXPECT_TRUE(none.seen().isEmpty());
    EXPECT_EQ(document().state().header.detectionType, 2);
}

TEST_F(SaccadeCenterTest, ShowsTheChartsOfBothEyes)
{
    record("bino.kiro", {"right eye - horizontal", "left eye - horizontal", "right eye - vertical",
                         "left eye - vertical"});
    detect("bino.kiro");
    EXPECT_EQ(document().state().header.detectionType, 3);
    for (const char* name : {"plotRightVertVelocity", "plotLeftHorzPosition", "plotLeftVertVelocity"})
        EXPECT_TRUE(find<CurvePlot>(name).isVisible()) << name;
    EXPECT_EQ(find<CurvePlot>("plotLeftVertVelocity").vertTitle(),
              QStringLiteral("Left eye vertical [deg/s]"));
    EXPECT_EQ(document().saccades().size(), SaccadeCount);
}

TEST_F(SaccadeCenterTest, AsksForTheFactorOfASignalThatIsNotCalibrated)
{
    record("raw.kiro", {"eye position"}, false);
    ModalAnswers answers;
    answers.answer([](QWidget* window) {
        auto* const dialog = qobject_cast<QInputDialog*>(window);
        ASSERT_TRUE(dialog);
        EXPECT_EQ(dialog->labelText(),
                  QStringLiteral("Signal eye position is not calibrated!\nPlease enter calibration factor or "
                                 "use the default one (calibration unit: deg)."));
        EXPECT_EQ(dialog->doubleValue(), 100.0);
        EXPECT_EQ(dialog->doubleMinimum(), 1.0);
        EXPECT_EQ(dialog->doubleMaximum(), 10000.0);
        EXPECT_EQ(dialog->doubleDecimals(), 1);
        dialog->setDoubleValue(50.0);
        dialog->accept();
    });
    detect("raw.kiro");
    EXPECT_EQ(document().state().header.signalFactor(KiroSaccHeader::RightHorizontal), 50.0);
    EXPECT_EQ(document().state().header.signalOffset(KiroSaccHeader::RightHorizontal), 0.0);
    ASSERT_EQ(document().saccades().size(), SaccadeCount);
    EXPECT_NEAR(document().saccades()[0].main.amplitude, 20.0, 1.0);
}

TEST_F(SaccadeCenterTest, ShowsNoChartsAfterTheFactorWasNotEntered)
{
    record("raw.kiro", {"eye position"}, false);
    detect();
    ModalAnswers answers;
    answers.reject();
    answers.press(QMessageBox::Ok);
    detect("raw.kiro");
    EXPECT_EQ(answers.seen().last(), UnsavedTitle + path("eye.kiro") +
                                         QStringLiteral("|Calibration factor not entered. Cannot proceed."));
    EXPECT_EQ(document().sampleCount(), 0);
    EXPECT_EQ(document().state().dataFile, path("eye.kiro"));
    EXPECT_FALSE(action("actionFileRedetect").isEnabled());
    EXPECT_TRUE(isDirty());
}

TEST_F(SaccadeCenterTest, StaysAsItWasWhenADetectionIsCancelled)
{
    record("two.kiro", {"one", "other"});
    detect();
    trigger("actionSaccNext");
    const QList<KiroSaccade> before = document().saccades();
    const int place = scroll().value();
    {
        ModalAnswers answers; // of the question
        pressAnswer(answers, 2);
        trigger("actionFileDetect");
    }
    {
        ModalAnswers answers; // of the file
        pressAnswer(answers, 1);
        answers.reject();
        trigger("actionFileDetect");
    }
    {
        ModalAnswers answers; // of the signals
        pressAnswer(answers, 1);
        answers.chooseFile(path("two.kiro"));
        answers.reject();
        trigger("actionFileDetect");
    }
    EXPECT_TRUE(sameList(document().saccades(), before));
    EXPECT_EQ(document().state().dataFile, path("eye.kiro"));
    EXPECT_EQ(document().sampleCount(), SampleCount);
    EXPECT_EQ(scroll().value(), place);
    EXPECT_TRUE(isDirty());
}

TEST_F(SaccadeCenterTest, TellsWhichRecordingsItCannotTake)
{
    m_folder.write(QStringLiteral("bad.kiro"), "no recording");
    std::string none = eyeRecording({{"eye position", {}}});
    m_folder.write(QStringLiteral("none.kiro"), none);
    MessageRecorder log;
    ModalAnswers answers;
    answers.press(QMessageBox::Ok);
    answers.press(QMessageBox::Ok);
    detect("bad.kiro");
    detect("none.kiro");
    EXPECT_EQ(
        answers.seen(),
        QStringList(
            {QStringLiteral(
                 "Saccades browser|Cannot read header - probably this is not valid kiro binary data file"),
             QStringLiteral("Saccades browser|The file you are trying to open does not contain any data!")}));
    EXPECT_EQ(MessageRecorder::texts().filter(path("bad.kiro")).size(), 1);
}

TEST_F(SaccadeCenterTest, TellsThatNothingWasFoundYetShowsTheSignal)
{
    m_folder.write(QStringLiteral("still.kiro"),
                   eyeRecording({{"eye position", std::vector<double>(4000, 1.0)}}));
    ModalAnswers answers;
    answers.press(QMessageBox::Ok);
    detect("still.kiro");
    EXPECT_EQ(answers.seen(),
              QStringList(UnsavedTitle + path("still.kiro") + QStringLiteral("|No saccades found!")));
    EXPECT_TRUE(isDirty());
    EXPECT_EQ(position().curveCount(), 1);
    EXPECT_FALSE(find<QWidget>("groupSaccade").isEnabled());
    EXPECT_FALSE(action("actionSaccRemoveCurrent").isEnabled());
    EXPECT_TRUE(action("actionFileSaveAs").isEnabled());
    EXPECT_EQ(label("labelCurrent"), QStringLiteral("0 / 0"));
}

TEST_F(SaccadeCenterTest, FindsWhatTheCommandLineFinds)
{
    detect();
    const QString found = path("found.sacc");
    QProcess batch;
    batch.start(QStringLiteral(KIROBATCH),
                {QStringLiteral("detect"), path("eye.kiro"), QStringLiteral("-o"), found});
    ASSERT_TRUE(batch.waitForFinished());
    ASSERT_EQ(batch.exitCode(), 0) << batch.readAllStandardError().toStdString();
    KiroSaccHeader header;
    ASSERT_TRUE(header.load(KiroString(found)));
    ASSERT_EQ(header.saccades.size(), std::size_t(SaccadeCount));
    EXPECT_TRUE(
        sameList(document().saccades(), QList<KiroSaccade>(header.saccades.begin(), header.saccades.end())));
}

TEST_F(SaccadeCenterTest, AsksBeforeUnsavedSaccadesAreReplaced)
{
    const QString question =
        QStringLiteral("There are unsaved changes in the current data!\nWhat would you like to do?");
    detect();
    ModalAnswers answers;
    answers.answer([&](QWidget* dialog) {
        EXPECT_EQ(dialog->findChild<QPushButton*>(QStringLiteral("button0"))->text(),
                  QStringLiteral("   Save changes and detect"));
        EXPECT_EQ(dialog->findChild<QPushButton*>(QStringLiteral("button1"))->text(),
                  QStringLiteral("   Don't save changes and detect"));
        EXPECT_EQ(dialog->findChild<QPushButton*>(QStringLiteral("button2"))->text(),
                  QStringLiteral("   Cancel and go back to the current data"));
        bool asked = false;
        for (const QLabel* text : dialog->findChildren<QLabel*>())
            asked = asked || text->text() == question;
        EXPECT_TRUE(asked);
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    trigger("actionFileDetect");
    answers.answer([&](QWidget* dialog) {
        EXPECT_EQ(dialog->findChild<QPushButton*>(QStringLiteral("button0"))->text(),
                  QStringLiteral("   Save changes and open"));
        EXPECT_EQ(dialog->findChild<QPushButton*>(QStringLiteral("button1"))->text(),
                  QStringLiteral("   Don't save changes and open"));
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    trigger("actionFileOpen");
    EXPECT_TRUE(isDirty());
}

TEST_F(SaccadeCenterTest, SavesFirstAtTheUsersWish)
{
    detect();
    ModalAnswers answers;
    pressAnswer(answers, 0);
    answers.chooseFile(path("kept"));
    answers.chooseFile(path("eye.kiro"));
    trigger("actionFileDetect");
    KiroSaccHeader kept;
    ASSERT_TRUE(kept.load(KiroString(path("kept.sacc")))) << "the suffix is added";
    EXPECT_EQ(kept.saccades.size(), std::size_t(SaccadeCount));
}

TEST_F(SaccadeCenterTest, StopsWhenSavingFirstFails)
{
    detect();
    ModalAnswers answers;
    pressAnswer(answers, 0);
    answers.reject();
    trigger("actionFileDetect");
    EXPECT_TRUE(isDirty());
}

TEST_F(SaccadeCenterTest, OpensWhatItSavedByteForByte)
{
    const QString file = savedFile();
    const std::string bytes = fileBytes(KiroString(file));
    ModalAnswers answers;
    answers.chooseFile(file);
    trigger("actionFileOpen");
    EXPECT_EQ(document().saccades().size(), SaccadeCount);
    EXPECT_FALSE(isDirty());
    EXPECT_EQ(window().windowTitle(), UnsavedTitle + file);
    QCoreApplication::sendEvent(&window(), std::make_unique<OpenFileEvent>(file).get());
    trigger("actionSaccRemoveCurrent");
    trigger("actionEditUndo");
    EXPECT_FALSE(isDirty());
    answers.chooseFile(path("again.sacc"));
    trigger("actionFileSaveAs");
    EXPECT_EQ(fileBytes(KiroString(path("again.sacc"))), bytes);
}

TEST_F(SaccadeCenterTest, OpensAFileThatMovedTogetherWithItsRecording)
{
    const QString file = savedFile();
    ASSERT_TRUE(QDir().mkdir(path("moved")));
    ASSERT_TRUE(QFile::rename(file, path("moved/eye.sacc")));
    ASSERT_TRUE(QFile::rename(path("eye.kiro"), path("moved/eye.kiro")));
    window().openFile(path("moved/eye.sacc"));
    EXPECT_EQ(document().saccades().size(), SaccadeCount);
    EXPECT_EQ(QFileInfo(document().state().dataFile).canonicalFilePath(),
              QFileInfo(path("moved/eye.kiro")).canonicalFilePath());
}

TEST_F(SaccadeCenterTest, AsksWhereALostRecordingIs)
{
    const QString file = savedFile();
    ASSERT_TRUE(QFile::rename(path("eye.kiro"), path("renamed.kiro")));
    ModalAnswers answers;
    answers.press(QMessageBox::Cancel);
    window().openFile(file);
    EXPECT_EQ(
        answers.seen().last(),
        QStringLiteral("Saccades browser|Failed to locate kiro data file (eye)!\nPress OK to locate file "
                       "manually or cancel to break."));
    EXPECT_FALSE(document().hasRecording());
    answers.press(QMessageBox::Ok);
    answers.chooseFile(path("renamed.kiro"));
    window().openFile(file);
    EXPECT_EQ(document().saccades().size(), SaccadeCount);
    EXPECT_EQ(document().state().dataFile, path("renamed.kiro"));
}

TEST_F(SaccadeCenterTest, TellsWhichSaccadeFilesItCannotTake)
{
    const QString file = savedFile();
    m_folder.write(QStringLiteral("bad.sacc"), "no saccades");
    m_folder.write(QStringLiteral("eye.kiro"), "no recording");
    MessageRecorder log;
    ModalAnswers answers;
    answers.press(QMessageBox::Ok);
    answers.press(QMessageBox::Ok);
    answers.press(QMessageBox::Ok);
    window().openFile(path("bad.sacc"));
    window().openFile(file);
    m_folder.write(QStringLiteral("eye.kiro"), eyeRecording({{"eye position", {}}}));
    window().openFile(file);
    EXPECT_EQ(
        answers.seen(),
        QStringList(
            {QStringLiteral("Saccades browser|Failed to load saccades!"),
             QStringLiteral(
                 "Saccades browser|Cannot load kiro data file header - probably this is not valid format"),
             QStringLiteral("Saccades browser|The kiro data file does not contain any data!")}));
}

TEST_F(SaccadeCenterTest, LogsWhatACutFileLacks)
{
    const QString file = savedFile();
    const std::string bytes = fileBytes(KiroString(file));
    m_folder.write(QStringLiteral("eye.sacc"), bytes.substr(0, bytes.size() - 10));
    MessageRecorder log;
    window().openFile(file);
    EXPECT_EQ(MessageRecorder::texts().filter(QStringLiteral("bytes early")).size(), 1);
}

TEST_F(SaccadeCenterTest, DisablesSavingAfterAFailedSave)
{
    ASSERT_NO_FATAL_FAILURE(showWhatCannotBeSaved());
    ModalAnswers answers;
    answers.answer([](QWidget* box) {
        EXPECT_TRUE(
            qobject_cast<QMessageBox*>(box)->text().startsWith(QStringLiteral("Failed to save saccades (")));
        box->close();
    });
    trigger("actionFileSave");
    EXPECT_FALSE(isDirty());
    EXPECT_EQ(label("labelState"), QStringLiteral("Not saved: see Save as"));
}

TEST_F(SaccadeCenterTest, TellsWhySavingAsFailed)
{
    detect();
    ModalAnswers answers;
    answers.chooseFile(path("gone/x.sacc"));
    answers.answer([](QWidget* box) {
        EXPECT_TRUE(
            qobject_cast<QMessageBox*>(box)->text().startsWith(QStringLiteral("Unable to save saccades (")));
        box->close();
    });
    trigger("actionFileSaveAs");
    EXPECT_TRUE(isDirty());
    EXPECT_TRUE(document().state().saccadeFile.isEmpty());
}

TEST_F(SaccadeCenterTest, AsksBeforeANameWithAddedSuffixIsReplaced)
{
    detect();
    m_folder.write(QStringLiteral("there.sacc"), "something");
    ModalAnswers answers;
    answers.chooseFile(path("there"));
    answers.press(QMessageBox::No);
    trigger("actionFileSaveAs");
    EXPECT_EQ(fileBytes(KiroString(path("there.sacc"))), "something");
    EXPECT_TRUE(isDirty());
}

TEST_F(SaccadeCenterTest, StepsThroughTheSaccades)
{
    detect();
    EXPECT_EQ(scroll().value(), 0) << "the first one cannot be centred";
    trigger("actionSaccLast");
    const KiroSaccadeEye& last = document().saccades()[4].main;
    EXPECT_EQ(label("labelCurrent"), QStringLiteral("5 / 5"));
    EXPECT_EQ(scroll().value(), last.start - 1500);
    EXPECT_EQ(label("labelBegin"), QString::number(last.start / 1000.0, 'f', 3));
    EXPECT_EQ(label("labelEnd"), QString::number(last.end / 1000.0, 'f', 3));
    EXPECT_EQ(label("labelDuration"), QString::number(last.duration));
    EXPECT_EQ(label("labelFixation"), QString::number(last.fixation));
    EXPECT_EQ(label("labelAmplitude"), QString::number(last.amplitude, 'f', 1));
    EXPECT_EQ(label("labelPeakVelocity"), QString::number(last.peakVelocity, 'f', 1));
    trigger("actionSaccNext");
    EXPECT_EQ(document().currentSaccade(), 4);
    trigger("actionSaccPrev");
    EXPECT_EQ(document().currentSaccade(), 3);
    scroll().setValue(0);
    trigger("actionSaccCurrent");
    EXPECT_EQ(scroll().value(), document().saccades()[3].main.start - 1500);
    click("buttonFirst");
    EXPECT_EQ(document().currentSaccade(), 0);
    click("buttonNext");
    EXPECT_EQ(document().currentSaccade(), 1);
}

TEST_F(SaccadeCenterTest, StepsAndEditsByKeys)
{
    detect();
    window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    QTest::keyClick(&window(), Qt::Key_Right);
    EXPECT_EQ(document().currentSaccade(), 1);
    QTest::keyClick(&window(), Qt::Key_End);
    EXPECT_EQ(document().currentSaccade(), 4);
    QTest::keyClick(&window(), Qt::Key_Left);
    EXPECT_EQ(document().currentSaccade(), 3);
    QTest::keyClick(&window(), Qt::Key_Home);
    EXPECT_EQ(document().currentSaccade(), 0);
    QTest::keyClick(&window(), Qt::Key_Delete);
    EXPECT_EQ(document().saccades().size(), 4);
    QTest::keyClick(&window(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(document().saccades().size(), 5);
    QTest::keyClick(&window(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(document().saccades().size(), 4);
    QTest::keyClick(&window(), Qt::Key_PageDown);
    EXPECT_EQ(scroll().value(),
              std::min(document().saccades()[0].main.start - 1500 + 3000, scroll().maximum()));
}

TEST_F(SaccadeCenterTest, ZoomsTheTimeAroundTheMiddle)
{
    detect();
    scroll().setValue(2000);
    click("buttonTimeZoomIn");
    EXPECT_EQ(window().timeWindow().length(), 2750.0);
    EXPECT_EQ(label("labelTimeWindow"), QStringLiteral("2.75"));
    EXPECT_EQ(scroll().value(), 2125);
    EXPECT_EQ(scroll().maximum(), 7999 - 2750);
    EXPECT_EQ(scroll().pageStep(), 2750);
    EXPECT_EQ(position().horzMin(), 2.125);
    EXPECT_EQ(position().horzMax(), 4.875);
    click("buttonTimeZoomOut");
    click("buttonTimeZoomOut");
    EXPECT_EQ(window().timeWindow().length(), 3500.0);
    EXPECT_EQ(label("labelTimeWindow"), QStringLiteral("3.50"));
}

TEST_F(SaccadeCenterTest, DoesNotZoomBeyondTheLimits)
{
    detect();
    for (int i = 0; i < 20; ++i)
        click("buttonTimeZoomIn");
    EXPECT_EQ(window().timeWindow().length(), 500.0);
    EXPECT_FALSE(find<QToolButton>("buttonTimeZoomIn").isEnabled());
    for (int i = 0; i < 60; ++i)
        click("buttonTimeZoomOut");
    EXPECT_EQ(window().timeWindow().length(), 60000.0);
    EXPECT_FALSE(find<QToolButton>("buttonTimeZoomOut").isEnabled());
    EXPECT_EQ(scroll().maximum(), 0);
    EXPECT_EQ(position().horzMax(), 60.0);
}

TEST_F(SaccadeCenterTest, KeepsTheScalesWhileZoomingTheTime)
{
    detect();
    position().setVertMinMax(-1.0, 2.0);
    click("buttonTimeZoomIn");
    EXPECT_EQ(position().vertMin(), -1.0);
    EXPECT_EQ(position().vertMax(), 2.0);
}

TEST_F(SaccadeCenterTest, ScalesThePositionInEachMode)
{
    detect();
    trigger("actionSaccNext");
    const auto& samples = document().eyes()[EyeAxis::RightHorizontal].position;
    const auto extentOf = [&](int first, int last) {
        const auto [least, greatest] =
            std::minmax_element(samples.begin() + first, samples.begin() + last + 1);
        return std::make_pair(*least, *greatest);
    };
    const auto expectScale = [&](double middle, double width) {
        EXPECT_DOUBLE_EQ(position().vertMin(), middle - width / 2 - width / 10);
        EXPECT_DOUBLE_EQ(position().vertMax(), middle + width / 2 + width / 10);
        EXPECT_EQ(position().vertGridStart(), 0.0);
    };
    const auto shown = extentOf(scroll().value(), scroll().value() + 3000);
    expectScale((shown.first + shown.second) / 2, shown.second - shown.first);
    click("radioPosConst");
    expectScale((shown.first + shown.second) / 2, document().largestAmplitude());
    click("radioPosFit");
    const KiroSaccadeEye& eye = document().saccades()[1].main;
    const auto saccade = extentOf(eye.start, eye.end);
    expectScale((saccade.first + saccade.second) / 2, saccade.second - saccade.first);
    scroll().setValue(5000);
    const auto later = extentOf(5000, 7999);
    expectScale((later.first + later.second) / 2, later.second - later.first);
}

TEST_F(SaccadeCenterTest, ScalesTheVelocityInEachMode)
{
    detect();
    trigger("actionSaccNext");
    const auto& samples = document().eyes()[EyeAxis::RightHorizontal].velocity;
    const auto highest = [&](int first, int last) {
        return *std::max_element(samples.begin() + first, samples.begin() + last + 1);
    };
    const auto expectScale = [&](double width) {
        EXPECT_EQ(velocity().vertMin(), 0.0);
        EXPECT_DOUBLE_EQ(velocity().vertMax(), width + width / 10);
    };
    expectScale(highest(scroll().value(), scroll().value() + 3000));
    click("radioVelConst");
    expectScale(document().largestVelocity());
    click("radioVelFit");
    expectScale(highest(document().saccades()[1].main.start, document().saccades()[1].main.end));
    click("buttonVelScaleZoomIn");
    const double width = velocity().vertMax() - velocity().vertMin();
    click("buttonVelScaleZoomOut");
    EXPECT_DOUBLE_EQ(velocity().vertMax() - velocity().vertMin(), width * 2);
    click("buttonVelScaleReset");
    EXPECT_EQ(velocity().vertMin(), 0.0);
}

TEST_F(SaccadeCenterTest, ZoomsThePositionScaleAroundItsMiddle)
{
    detect();
    position().setVertMinMax(-10.0, 30.0);
    click("buttonPosScaleZoomIn");
    EXPECT_EQ(position().vertMin(), 0.0);
    EXPECT_EQ(position().vertMax(), 20.0);
    click("buttonPosScaleZoomOut");
    click("buttonPosScaleZoomOut");
    EXPECT_EQ(position().vertMin(), -30.0);
    EXPECT_EQ(position().vertMax(), 50.0);
    click("buttonPosScaleReset");
    EXPECT_NEAR(position().vertMax() - position().vertMin(), 12.0, 0.5);
}

TEST_F(SaccadeCenterTest, DetectsAgainWhereItIs)
{
    detect();
    trigger("actionSaccRemoveCurrent");
    scroll().setValue(3210);
    trigger("actionFileRedetect");
    EXPECT_EQ(scroll().value(), 3210);
    EXPECT_EQ(document().saccades().size(), SaccadeCount);
    EXPECT_TRUE(isDirty());
}

TEST_F(SaccadeCenterTest, ShowsWhatTheSaccadesWereDetectedWith)
{
    detect();
    const SaccadeDetectionParams params = SaccadeDetectionParams::atStart();
    EXPECT_EQ(label("labelDetectedType"), QStringLiteral("One signal"));
    EXPECT_EQ(label("labelDetectedMinSpeed"), QString::number(params.minSpeed));
    EXPECT_EQ(label("labelDetectedGap"), QString::number(params.gap));
}

TEST_F(SaccadeCenterTest, ClosesAtOnceWhenThereIsNothingToSave)
{
    const QString file = savedFile();
    window().openFile(file);
    EXPECT_TRUE(window().close());
}

TEST_F(SaccadeCenterTest, AsksBeforeClosingWithUnsavedChanges)
{
    detect();
    ModalAnswers answers;
    answers.answer([](QWidget* dialog) {
        EXPECT_EQ(dialog->findChild<QPushButton*>(QStringLiteral("button0"))->text(),
                  QStringLiteral("   Save changes and close"));
        EXPECT_EQ(dialog->findChild<QPushButton*>(QStringLiteral("button1"))->text(),
                  QStringLiteral("   Don't save changes and close"));
        EXPECT_EQ(dialog->findChild<QPushButton*>(QStringLiteral("button2"))->text(),
                  QStringLiteral("   Cancel and go back to saccades browser"));
        dialog->findChild<QPushButton*>(QStringLiteral("button2"))->click();
    });
    EXPECT_FALSE(window().close());
    pressAnswer(answers, 0);
    answers.reject();
    EXPECT_FALSE(window().close()) << "saving was cancelled";
    pressAnswer(answers, 1);
    EXPECT_TRUE(window().close());
    EXPECT_TRUE(EditJournal::leftBehind(EditJournal::journalFolder()).empty());
}

TEST_F(SaccadeCenterTest, SavesBeforeClosing)
{
    detect();
    ModalAnswers answers;
    pressAnswer(answers, 0);
    answers.chooseFile(path("kept.sacc"));
    EXPECT_TRUE(window().close());
    EXPECT_TRUE(QFile::exists(path("kept.sacc")));
}

TEST_F(SaccadeCenterTest, DoesNotCloseAfterAFailedSave)
{
    ASSERT_NO_FATAL_FAILURE(showWhatCannotBeSaved());
    ModalAnswers answers;
    pressAnswer(answers, 0);
    answers.press(QMessageBox::Ok);
    EXPECT_FALSE(window().close());
}

TEST_F(SaccadeCenterTest, FindsItsSettingsAgain)
{
    detect();
    click("buttonTimeZoomIn");
    ModalAnswers answers;
    pressAnswer(answers, 1);
    ASSERT_TRUE(window().close());
    dropWindow();
    EXPECT_EQ(window().timeWindow().length(), 2750.0);
    EXPECT_EQ(label("labelTimeWindow"), QStringLiteral("2.75"));
}

TEST_F(SaccadeCenterTest, TakesDroppedFiles)
{
    const QString file = savedFile();
    const auto drop = [this](const QString& dropped) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(dropped)});
        QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent event(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window(), &event);
        QApplication::processEvents();
    };
    drop(file);
    EXPECT_EQ(document().state().saccadeFile, file);
    drop(path("eye.kiro"));
    EXPECT_TRUE(document().state().saccadeFile.isEmpty());
    EXPECT_EQ(document().saccades().size(), SaccadeCount);
    ModalAnswers answers;
    pressAnswer(answers, 2);
    drop(file);
    EXPECT_TRUE(document().state().saccadeFile.isEmpty());
}

TEST_F(SaccadeCenterTest, OffersEditsThatACrashLeft)
{
    detect();
    trigger("actionSaccRemoveCurrent");
    const QList<KiroSaccade> edited = document().saccades();
    dropWindow();
    {
        ModalAnswers answers;
        pressAnswer(answers, 2);
        window();
        QTest::qWait(50);
        EXPECT_FALSE(document().hasRecording());
        dropWindow();
    }
    {
        ModalAnswers answers;
        pressAnswer(answers, 0);
        window();
        QTest::qWait(50);
        EXPECT_TRUE(sameList(document().saccades(), edited));
        EXPECT_TRUE(isDirty());
        EXPECT_EQ(document().sampleCount(), SampleCount);
    }
    ModalAnswers answers;
    pressAnswer(answers, 1);
    ASSERT_TRUE(window().close());
    EXPECT_TRUE(EditJournal::leftBehind(EditJournal::journalFolder()).empty());
}

TEST_F(SaccadeCenterTest, DiscardsLeftEditsAtTheUsersWish)
{
    detect();
    dropWindow();
    {
        ModalAnswers answers;
        pressAnswer(answers, 1);
        window();
        QTest::qWait(50);
    }
    EXPECT_FALSE(document().hasRecording());
    EXPECT_TRUE(EditJournal::leftBehind(EditJournal::journalFolder()).empty());
}

} // namespace
