// How recordings come into a signals browser and leave it.

#include "reviewframefilesfixture.h"

#include "recordingfile.h"

#include <QRegularExpression>
#include <QSpinBox>

#include <functional>

namespace
{

const QString CaptionOfWarnings = QStringLiteral("Signals browser");

TEST_F(ReviewFrameFilesTest, AFailureIsToldAndLeavesTheOldFile)
{
    const std::string whole = fileBytes(KiroString(path("eye.kiro")));
    m_folder.write(QStringLiteral("empty.kiro"),
                   eyeRecording({{"first", {}}, {"second", {}}, {"third", {}, false, 1.0, 0.0}}));
    m_folder.write(QStringLiteral("cut.kiro"), whole.substr(0, whole.size() - 24)); // a packet
    m_folder.write(QStringLiteral("text.kiro"), "no recording at all");
    open();
    showTime(3.0, 2.0);
    makeTimeLine(3.0);
    list().item(1)->setSelected(false);
    const QStringList before = everything();
    const std::pair<const char*, const char*> rows[] = {
        {"empty.kiro", "The file you are trying to open does not contain any data!"},
        {"cut.kiro", "The file you are trying to open is the valid kiro file but the header is corrupted.\n"
                     "Use DataFileCenter module to reconstruct it."},
        {"text.kiro", "Failed to load file header"},
        {"vanished.kiro", "Failed to load file header"}};
    for (const auto& [file, warning] : rows) {
        ModalAnswers answers;
        answers.press(QMessageBox::Ok);
        window().loadFile(path(file));
        EXPECT_EQ(answers.seen(),
                  QStringList(window().windowTitle() + QLatin1Char('|') + QLatin1String(warning)))
            << file;
        EXPECT_EQ(everything(), before) << file;
    }
    click("buttonZoomOut");
    EXPECT_EQ(selector().selectorRange(), 4.0);
}

TEST_F(ReviewFrameFilesTest, AFailureInAnEmptyWindowLeavesItEmpty)
{
    m_folder.write(QStringLiteral("text.kiro"), "no recording at all");
    {
        ModalAnswers answers;
        answers.press(QMessageBox::Ok);
        window().loadFile(path("text.kiro"));
        EXPECT_EQ(answers.seen(),
                  QStringList(CaptionOfWarnings + QStringLiteral("|Failed to load file header")));
    }
    EXPECT_TRUE(find<QLabel>("labelHint").isVisible());
    EXPECT_FALSE(find<QWidget>("frameSettings").isEnabled());
    EXPECT_EQ(window().windowTitle(), CaptionOfWarnings);
    EXPECT_EQ(recentFiles(), QStringList());
}

TEST_F(ReviewFrameFilesTest, TheDialogBeginsInTheFolderOfTheLastFile)
{
    const QString folder = path("data");
    ASSERT_TRUE(QDir().mkpath(folder));
    recordShort(QStringLiteral("data/one.kiro"));
    window().loadFile(folder + QStringLiteral("/one.kiro"));
    ModalAnswers answers;
    answers.chooseFile(path("eye.kiro"));
    click("buttonLoad");
    EXPECT_EQ(window().recording().currentFile, path("eye.kiro"));
    // A file that cannot be opened tells the folder too.
    answers.press(QMessageBox::Ok);
    window().loadFile(folder + QStringLiteral("/none.kiro"));
    answers.reject();
    window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    QTest::keyClick(&window(), Qt::Key_O, Qt::ControlModifier);
    ASSERT_EQ(answers.seen().size(), 3);
    EXPECT_EQ(answers.seen()[0], QStringLiteral("Select kiro data file|") + folder);
    EXPECT_EQ(answers.seen()[2], QStringLiteral("Select kiro data file|") + folder);
    EXPECT_EQ(window().recording().currentFile, path("eye.kiro"));
    closeWindow();
    EXPECT_TRUE(
        entriesOf("settings.ini", ReviewFrame::section()).contains(QStringLiteral("dir_load=") + folder));
}

TEST_F(ReviewFrameFilesTest, TellsTheStepsOfLoading)
{
    QStringList steps{QStringLiteral("Loading data header..."),
                      QStringLiteral("Checking selected file integrity..."),
                      QStringLiteral("Loading favorite views..."),
                      QStringLiteral("Initializing internal data..."),
                      QStringLiteral("Loading file settings..."),
                      QStringLiteral("Looking for audio data..."),
                      QStringLiteral("Loading data signals..."),
                      QStringLiteral("Initializing audio player..."),
                      QStringLiteral("Initializing user interface..."),
                      QStringLiteral("Data file loaded!")};
    {
        const ProgressWatch watch;
        open();
        EXPECT_EQ(watch.texts(), steps);
        EXPECT_EQ(watch.maximum(), 12);
        EXPECT_EQ(watch.values(), QVector<int>({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
    }
    const ProgressWatch watch;
    open();
    steps.insert(2, QStringLiteral("Storing display settings for current file..."));
    steps.insert(3, QStringLiteral("Closing current file..."));
    EXPECT_EQ(watch.texts(), steps);
    EXPECT_EQ(watch.maximum(), 14);
    EXPECT_EQ(watch.values(), QVector<int>({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14}));
}

TEST_F(ReviewFrameFilesTest, CancelledAtAnyStepTheOldFileStays)
{
    record("other.kiro", {"A", "B", "C"});
    open();
    showTime(3.0, 2.0);
    makeTimeLine(3.0);
    list().item(1)->setSelected(false);
    const QStringList before = everything();
    const ModalAnswers nothingIsSaid;
    constexpr int StepCount = 14;
    for (int step = 1; step <= StepCount; ++step) {
        const ProgressWatch watch(step);
        window().loadFile(path("other.kiro"));
        EXPECT_TRUE(watch.hasActed()) << step;
        EXPECT_EQ(everything(), before) << step;
    }
    // Each strip still draws its own samples, and the next file opens.
    EXPECT_EQ(strips().plot(0)->samples().value(1500), 1020.0);
    click("buttonZoomOut");
    EXPECT_EQ(strips().plot(0)->rangeStart(), 1000);
    window().loadFile(path("other.kiro"));
    EXPECT_EQ(window().recording().currentFile, path("other.kiro"));
    EXPECT_EQ(strips().labelsList().size(), 0);
}

TEST_F(ReviewFrameFilesTest, CancelledInAnEmptyWindowItStaysEmpty)
{
    const ProgressWatch watch(5);
    window().loadFile(path("eye.kiro"));
    EXPECT_TRUE(watch.hasActed());
    EXPECT_EQ(strips().plotCount, 0);
    EXPECT_TRUE(find<QLabel>("labelHint").isVisible());
    EXPECT_FALSE(find<QWidget>("frameSettings").isEnabled());
    EXPECT_EQ(window().windowTitle(), CaptionOfWarnings);
}

TEST_F(ReviewFrameFilesTest, ClosingTheWindowEndsTheLoading)
{
    record("other.kiro", {"A", "B", "C"});
    for (const int step : {2, 4, 9, 14}) {
        open();
        const ProgressWatch watch(step, [this] { EXPECT_FALSE(window().close()) << "in the midst of it"; });
        window().loadFile(path("other.kiro"));
        EXPECT_TRUE(watch.hasActed());
        EXPECT_EQ(window().recording().currentFile, path("eye.kiro")) << step;
        EXPECT_TRUE(QTest::qWaitFor([this] { return !window().isVisible(); })) << step;
        m_window.reset();
    }
    EXPECT_EQ(entriesOf("signals.ini", path("eye.kiro")).value(0), QStringLiteral("signal_count=3"));
    EXPECT_EQ(entriesOf("signals.ini", path("other.kiro")), QStringList());
}

TEST_F(ReviewFrameFilesTest, ViewsOfOtherSignalsAreKeptButNotOffered)
{
    keepViews({{QStringLiteral("pair"),
                {QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")},
                {QStringLiteral("first"), QStringLiteral("third")}}});
    // The same names, but not in this order, and one less.
    record("turned.kiro", {"second", "first", "third"});
    record("less.kiro", {"first", "second"});
    open();
    EXPECT_EQ(views().count(), 2);
    for (const char* other : {"turned.kiro", "less.kiro"}) {
        open(other);
        EXPECT_EQ(views().count(), 1) << other;
        EXPECT_EQ(views().currentText(), QStringLiteral("Custom view"));
        EXPECT_EQ(shown().find('0'), std::string::npos) << other;
    }
    closeWindow();
    const QStringList kept = entriesOf("settings.ini", ReviewFrame::section());
    for (const char* line :
         {"views_count=1", "view_0=pair", "view_allsignals_0=first<<;;;>>second<<;;;>>third",
          "view_viewsignals_0=first<<;;;>>third", "view_signalscount_0=3"})
        EXPECT_TRUE(kept.contains(QLatin1String(line))) << line;
    open();
    EXPECT_EQ(views().itemText(1), QStringLiteral("pair"));
}

TEST_F(ReviewFrameFilesTest, ANewFileShowsTheFirstFavouriteView)
{
    const QStringList names{QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")};
    keepViews({{QStringLiteral("other"), {QStringLiteral("x")}, {QStringLiteral("x")}},
               {QStringLiteral("pair"), names, {QStringLiteral("first"), QStringLiteral("third")}},
               {QStringLiteral("last"), names, {QStringLiteral("third")}}});
    open();
    EXPECT_EQ(shown(), "101");
    EXPECT_EQ(selected(), "101");
    EXPECT_EQ(views().currentIndex(), 1);
    EXPECT_EQ(views().currentText(), QStringLiteral("pair"));
}

TEST_F(ReviewFrameFilesTest, TheStateOfAFileIsRestored)
{
    writeSection("signals.ini", path("eye.kiro"),
                 {QStringLiteral("signal_count=3"), QStringLiteral("sig0_scaletype=1"),
                  QStringLiteral("sig0_scalemin=-100"), QStringLiteral("sig0_scalemax=300"),
                  QStringLiteral("sig0_use_calib=0"), QStringLiteral("sig1_scaletype=2"),
                  QStringLiteral("sig1_scalemin=50"), QStringLiteral("sig1_scalemax=450"),
                  QStringLiteral("sig1_use_calib=1"), QStringLiteral("sig2_show=0")});
    open();
    EXPECT_EQ(shown(), "110");
    EXPECT_EQ(selected(), "110");
    const Plot& fixed = *strips().plot(0);
    EXPECT_EQ(fixed.scaleType, Plot::Fixed);
    EXPECT_EQ(fixed.scaleMin, -100.0);
    EXPECT_EQ(fixed.scaleMax, 300.0);
    EXPECT_FALSE(fixed.useCalib);
    EXPECT_TRUE(fixed.hasCalib);
    const Plot& tracing = *strips().plot(1);
    EXPECT_EQ(tracing.scaleType, Plot::Tracing);
    EXPECT_EQ(tracing.scaleMin, 0.0);
    EXPECT_EQ(tracing.scaleMax, 400.0);
    EXPECT_TRUE(tracing.useCalib);
    EXPECT_EQ(strips().plot(2)->scaleType, Plot::Automatic);
}

TEST_F(ReviewFrameFilesTest, WhatWasShownIsShownAgain)
{
    open();
    const auto trigger = [this](const char* text, int plot) {
        rightClick(4.0, plot);
        find<QMenu>("menuContext").close();
        actionOf("menuContext", QLatin1String(text)).trigger();
    };
    trigger("Change scale type to fixed", 1);
    trigger("Change scale type to tracing", 2);
    trigger("Hide this signal", 0);
    open(); // stores it and reads it back
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(shown(), "011") << round;
        EXPECT_EQ(strips().plot(0)->scaleType, Plot::Automatic);
        EXPECT_EQ(strips().plot(1)->scaleType, Plot::Fixed);
        EXPECT_EQ(strips().plot(1)->scaleMin, 20.0);
        EXPECT_EQ(strips().plot(1)->scaleMax, 520.0);
        EXPECT_EQ(strips().plot(2)->scaleType, Plot::Tracing);
        EXPECT_EQ(strips().plot(2)->scaleMin, 0.0);
        EXPECT_EQ(strips().plot(2)->scaleMax, 250.0);
        closeWindow();
        open();
    }
    EXPECT_TRUE(entriesOf("signals.ini", path("eye.kiro")).contains(QStringLiteral("sig0_show=0")));
}

TEST_F(ReviewFrameFilesTest, TheStateOfAnotherNumberOfSignalsIsNotTaken)
{
    const QStringList names{QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")};
    keepViews({{QStringLiteral("pair"), names, {QStringLiteral("first"), QStringLiteral("third")}}});
    writeSection("signals.ini", path("eye.kiro"),
                 {QStringLiteral("signal_count=2"), QStringLiteral("sig0_scaletype=1"),
                  QStringLiteral("sig0_scalemin=-100"), QStringLiteral("sig0_scalemax=300"),
                  QStringLiteral("sig0_show=0"), QStringLiteral("sig0_use_calib=0")});
    open();
    EXPECT_EQ(shown(), "101");
    EXPECT_EQ(views().currentText(), QStringLiteral("pair"));
    EXPECT_EQ(strips().plot(0)->scaleType, Plot::Automatic);
    EXPECT_TRUE(strips().plot(0)->useCalib);
}

TEST_F(ReviewFrameFilesTest, TheBoxCountsTheShownViewAmongAllThatAreStored)
{
    const QStringList names{QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")};
    keepViews({{QStringLiteral("other"), {QStringLiteral("x")}, {QStringLiteral("x")}},
               {QStringLiteral("pair"), names, {QStringLiteral("first"), QStringLiteral("third")}},
               {QStringLiteral("last"), names, {QStringLiteral("third")}}});
    const QStringList state{QStringLiteral("signal_count=3"), QStringLiteral("sig0_show=1"),
                            QStringLiteral("sig1_show=0"), QStringLiteral("sig2_show=1")};
    writeSection("signals.ini", path("eye.kiro"), state);
    open();
    EXPECT_EQ(views().count(), 3);
    EXPECT_EQ(shown(), "101"); // "pair", the second of all, is the first in the box
    EXPECT_EQ(views().currentIndex(), 2);
    // What fits no view leaves the box at its first entry.
    list().item(0)->setSelected(false);
    list().item(1)->setSelected(true);
    open();
    EXPECT_EQ(shown(), "011");
    EXPECT_EQ(views().currentIndex(), 0);
}

TEST_F(ReviewFrameFilesTest, ACountBeyondTheBoxLeavesItWithoutAChoice)
{
    const QStringList names{QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")};
    keepViews({{QStringLiteral("other"), {QStringLiteral("x")}, {QStringLiteral("x")}},
               {QStringLiteral("pair"), names, {QStringLiteral("first"), QStringLiteral("third")}}});
    writeSection("signals.ini", path("eye.kiro"),
                 {QStringLiteral("signal_count=3"), QStringLiteral("sig1_show=0")});
    open();
    EXPECT_EQ(shown(), "101");
    EXPECT_EQ(views().count(), 2);
    EXPECT_EQ(views().currentIndex(), -1);
    ModalAnswers answers;
    answers.press(QMessageBox::Ok);
    click("buttonFavoriteViewRemove");
    EXPECT_EQ(views().count(), 2);
    QTest::keyClick(&views(), Qt::Key_Down);
    EXPECT_EQ(shown(), "111");
}

TEST_F(ReviewFrameFilesTest, TenRecentFilesTheLatestFirst)
{
    QStringList expected;
    for (int i = 0; i < 12; ++i) {
        const QString file = recordShort(QStringLiteral("r%1.kiro").arg(i));
        window().loadFile(file);
        expected.prepend(file);
    }
    expected = expected.mid(0, 10);
    EXPECT_EQ(recentFiles(), expected);
    // One of them is opened from the menu.
    const QString sixth = expected.takeAt(5);
    find<QMenu>("menuRecent").actions()[5]->trigger();
    EXPECT_EQ(window().recording().currentFile, sixth);
    expected.prepend(sixth);
    EXPECT_EQ(recentFiles(), expected);
    // One is gone.
    const QString gone = expected.takeAt(3);
    ASSERT_TRUE(QFile::remove(gone));
    {
        ModalAnswers answers;
        answers.press(QMessageBox::Ok);
        find<QMenu>("menuRecent").actions()[3]->trigger();
        EXPECT_EQ(answers.seen(), QStringList(window().windowTitle() +
                                              QStringLiteral("|The file %1 could not be found!").arg(gone)));
    }
    EXPECT_EQ(window().recording().currentFile, sixth);
    EXPECT_EQ(recentFiles(), expected);
    closeWindow();
    window();
    EXPECT_EQ(recentFiles(), expected);
    find<QMenu>("menuRecent").actions()[8]->trigger();
    EXPECT_EQ(window().recording().currentFile, expected[8]);
}

TEST_F(ReviewFrameFilesTest, ARecentFileThatIsNotOpenedStaysFirst)
{
    const QString first = recordShort(QStringLiteral("a & b.kiro"));
    window().loadFile(first);
    open();
    makeTimeLine(3.0);
    ModalAnswers answers;
    answers.reject(); // the question for the labels
    find<QMenu>("menuRecent").actions()[1]->trigger();
    EXPECT_EQ(window().recording().currentFile, path("eye.kiro"));
    EXPECT_EQ(strips().labelsList().size(), 1);
    // An ampersand is no mnemonic.
    EXPECT_EQ(recentFiles(), QStringList({path("a && b.kiro"), path("eye.kiro")}));
}

TEST_F(ReviewFrameFilesTest, AFileThatChangesBehindTheWindowChangesNothingInIt)
{
    const auto shorten = [this] { return QFile::resize(path("eye.kiro"), 100); };
    const auto replace = [this] {
        m_folder.write(QStringLiteral("eye.kiro"), "no recording at all");
        return true;
    };
    const auto remove = [this] { return QFile::remove(path("eye.kiro")); };
    for (const std::function<bool()>& change : {std::function<bool()>(shorten), {replace}, {remove}}) {
        record("eye.kiro", {"first", "second", "third"});
        open();
        for (int i = 0; i < list().count(); ++i)
            list().item(i)->setSelected(true);
        const QStringList before = everything();
        const QImage picture = strips().grab().toImage();
        ASSERT_TRUE(change());
        strips().redraw(true);
        EXPECT_EQ(everything(), before);
        EXPECT_EQ(strips().grab().toImage(), picture);
        showTime(3.0, 2.0);
        EXPECT_EQ(strips().plot(0)->rangeStart(), 2000);
        EXPECT_EQ(strips().plot(0)->samples().value(2500), 20.0);
        list().item(1)->setSelected(false);
        closeWindow();
        EXPECT_TRUE(entriesOf("signals.ini", path("eye.kiro")).contains(QStringLiteral("sig1_show=0")));
    }
}

TEST_F(ReviewFrameFilesTest, AnEventOpensAFile)
{
    QCoreApplication::postEvent(&window(), new OpenFileEvent(path("eye.kiro")));
    EXPECT_TRUE(waitFor("eye.kiro"));
    EXPECT_EQ(recentFiles(), QStringList(path("eye.kiro")));
}

TEST_F(ReviewFrameFilesTest, AnEventAsksForUnsavedLabelsFirst)
{
    record("other.kiro", {"A", "B", "C"});
    open();
    makeTimeLine(3.0);
    ModalAnswers answers;
    answers.answer(
        [](QWidget* dialog) { dialog->findChild<QPushButton*>(QStringLiteral("button2"))->click(); });
    QCoreApplication::postEvent(&window(), new OpenFileEvent(path("other.kiro")));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !answers.seen().isEmpty(); }));
    QCoreApplication::processEvents();
    EXPECT_EQ(window().recording().currentFile, path("eye.kiro"));
    answers.answer(
        [](QWidget* dialog) { dialog->findChild<QPushButton*>(QStringLiteral("button1"))->click(); });
    QCoreApplication::postEvent(&window(), new OpenFileEvent(path("other.kiro")));
    EXPECT_TRUE(waitFor("other.kiro"));
}

TEST_F(ReviewFrameFilesTest, AnEventWaitsForTheEndOfADialog)
{
    record("other.kiro", {"A", "B", "C"});
    open();
    ModalAnswers answers;
    answers.answer([this](QWidget* dialog) {
        QCoreApplication::postEvent(&window(), new OpenFileEvent(path("other.kiro")));
        QTest::qWait(350);
        EXPECT_EQ(window().recording().currentFile, path("eye.kiro"));
        EXPECT_TRUE(dialog->isVisible());
        dialog->close();
    });
    actionOf("menuSetup", QStringLiteral("Go to time...")).trigger();
    EXPECT_EQ(window().recording().currentFile, path("eye.kiro"));
    EXPECT_TRUE(waitFor("other.kiro"));
}

TEST_F(ReviewFrameFilesTest, AFileThatComesWhileAnotherIsLoadedIsOpenedAfterIt)
{
    record("other.kiro", {"A", "B", "C"});
    window();
    QCoreApplication::postEvent(&window(), new OpenFileEvent(path("eye.kiro")));
    QCoreApplication::postEvent(&window(), new OpenFileEvent(path("other.kiro")));
    EXPECT_TRUE(waitFor("other.kiro"));
    EXPECT_EQ(recentFiles(), QStringList({path("other.kiro"), path("eye.kiro")}));
}

TEST_F(ReviewFrameFilesTest, TakesOneDroppedFile)
{
    record("other.kiro", {"A", "B", "C"});
    open();
    EXPECT_FALSE(drop({path("other.kiro"), path("eye.kiro")}));
    EXPECT_FALSE(drop({}));
    QTest::qWait(50);
    EXPECT_EQ(window().recording().currentFile, path("eye.kiro"));
    EXPECT_TRUE(drop({path("other.kiro")}));
    EXPECT_EQ(window().recording().currentFile, path("eye.kiro")) << "opened within the drop";
    EXPECT_TRUE(waitFor("other.kiro"));
}

/// Recordings of 8 seconds, the signals of which have 1000, 250 and 500 samples a second.
class ReviewFrameRatesTest : public ReviewFrameFilesTest
{
protected:
    void SetUp() override
    {
        ReviewFrameFilesTest::SetUp();
        constexpr int Frames = 2000;
        const std::vector<KiroSignal> signalTable{makeSignal("thousand", KiroValue::SignedInt, 2, 4, 1000),
                                                  makeSignal("quarter", KiroValue::SignedInt, 2, 1, 250),
                                                  makeSignal("half", KiroValue::SignedInt, 2, 2, 500)};
        // Each sample is its own time in milliseconds.
        std::string data;
        for (int frame = 0; frame < Frames; ++frame) {
            for (const int step : {1, 4, 2}) {
                for (int i = 0; i < 4; i += step)
                    data += bigEndian(std::uint64_t(frame * 4 + i), 2);
            }
        }
        m_folder.write(QStringLiteral("rates.kiro"), recordingBytes(makeHeader(signalTable, Frames), data));
        open("rates.kiro");
    }

    /// "first-last" of the samples that each strip shows.
    QString ranges()
    {
        QStringList all;
        for (int i = 0; i < strips().plotCount; ++i) {
            const Plot& strip = *strips().plot(i);
            all << QStringLiteral("%1-%2")
                       .arg(strip.rangeStart())
                       .arg(strip.rangeStart() + strip.rangeCount() - 1);
        }
        return all.join(QLatin1Char(' '));
    }
};

TEST_F(ReviewFrameRatesTest, StripsOfDifferentRatesShowTheSameTime)
{
    EXPECT_EQ(ranges(), QStringLiteral("0-7999 0-1999 0-3999"));
    showTime(3.0, 2.0);
    EXPECT_EQ(strips().horzMin, 2.0);
    EXPECT_EQ(strips().horzMax, 4.0);
    EXPECT_EQ(ranges(), QStringLiteral("2000-4001 500-1001 1000-2001"));
    showTime(1.05, 0.1);
    // From 1.0 to 1.1 seconds.
    EXPECT_EQ(ranges(), QStringLiteral("1000-1101 250-276 500-551"));
    showTime(8.0, 2.0); // held at the end
    EXPECT_EQ(ranges(), QStringLiteral("6000-7999 1500-1999 3000-3999"));
    // The same time of all of them stands in the same column, and is the value there.
    for (int i = 0; i < 3; ++i) {
        const Plot& strip = *strips().plot(i);
        EXPECT_EQ(strip.samples().value(strip.sampleAt(7.0)), 7000.0);
        EXPECT_EQ(strip.timeOfSample(strip.sampleAt(7.0)), 7.0);
        EXPECT_EQ(pixelAt(7.0, i).x(), pixelAt(7.0, 0).x());
    }
}

TEST_F(ReviewFrameRatesTest, AWindowWiderThanTheFileShowsAllOfIt)
{
    window().loadFile(recordShort(QStringLiteral("short.kiro")));
    EXPECT_EQ(selector().totalTo(), 1.0);
    EXPECT_EQ(strips().horzMax, 1.0);
    EXPECT_EQ(ranges(), QStringLiteral("0-399 0-399 0-399"));
    EXPECT_EQ(label("labelStatus"), QStringLiteral("New selector position 0.500 s with range 1.000 s"));
}

TEST_F(ReviewFrameFilesTest, SettingsOfOneWindowAreThoseOfTheNext)
{
    const QString font = QFont(QStringLiteral("Serif"), 17).toString();
    QStringList given{QStringLiteral("video_dialog_size=320,200"),
                      QStringLiteral("video_dialog_pos=21,22"),
                      QStringLiteral("markers_manager_size=901,401"),
                      QStringLiteral("markers_manager_position=31,32"),
                      QStringLiteral("video_dialog_time_format=2"),
                      QStringLiteral("label_export_filter=CSV file (*.csv)"),
                      QStringLiteral("label_name=N"),
                      QStringLiteral("label_description=D"),
                      QStringLiteral("label_color=1,2,3"),
                      QStringLiteral("label_templates_dir_path=/templates"),
                      QStringLiteral("label_templates_count=1"),
                      QStringLiteral("label_template_name_0=T"),
                      QStringLiteral("label_template_labelname_0=N"),
                      QStringLiteral("label_template_labeldescription_0=D"),
                      QStringLiteral("label_template_labelcolor_0=1,2,3"),
                      QStringLiteral("dir_load=/data"),
                      QStringLiteral("use_custom_print_scheme=1"),
                      QStringLiteral("print_font=") + font,
                      QStringLiteral("print_bkg_color=13,14,15"),
                      QStringLiteral("print_frg_pen=16,17,18,2,2"),
                      QStringLiteral("print_data_pen=19,20,21,4,3"),
                      QStringLiteral("print_grid_pen=22,23,24,5,4"),
                      QStringLiteral("print_marker_pen=25,26,27,6,5"),
                      QStringLiteral("print_pointer_pen=28,29,30,99,0"),
                      QStringLiteral("print_draw_style=points"),
                      QStringLiteral("print_draw_horz_grid=0"),
                      QStringLiteral("print_draw_vert_grid=0"),
                      QStringLiteral("sig_stat_window=200"),
                      QStringLiteral("sig_stat_usecalib=0"),
                      QStringLiteral("fast_draw_enable=0"),
                      QStringLiteral("fast_draw_time=12"),
                      QStringLiteral("fast_draw_precision_double=2.2500000000"),
                      QStringLiteral("printer_paper_source=3"),
                      QStringLiteral("printer_page_size=8"),
                      QStringLiteral("printer_orientation=0"),
                      QStringLiteral("range_bkg_color=41,42,43"),
                      QStringLiteral("range_frg_color=44,45,46"),
                      QStringLiteral("Range_center_color=47,48,49"),
                      QStringLiteral("range_text_font=") + font,
                      QStringLiteral("range_text_color=50,51,52"),
                      QStringLiteral("screenshot_width=256"),
                      QStringLiteral("screenshot_height=300"),
                      QStringLiteral("screenshot_format=PNG"),
                      QStringLiteral("screenshot_folder=/pictures"),
                      QStringLiteral("list_width=222"),
                      QStringLiteral("mru_count=2"),
                      QStringLiteral("mru_0=/a.kiro"),
                      QStringLiteral("mru_1=/b.kiro"),
                      QStringLiteral("views_count=1"),
                      QStringLiteral("view_0=pair"),
                      QStringLiteral("view_allsignals_0=a<<;;;>>b"),
                      QStringLiteral("view_viewsignals_0=b"),
                      QStringLiteral("view_signalscount_0=2"),
                      QStringLiteral("schemes_count=1"),
                      QStringLiteral("scheme_name_0=night"),
                      QStringLiteral("scheme_font_0=") + font,
                      QStringLiteral("scheme_bkg_0=61,62,63"),
                      QStringLiteral("scheme_frg_0=64,65,66,1,1"),
                      QStringLiteral("scheme_data_0=67,68,69,4,1"),
                      QStringLiteral("scheme_grid_0=70,71,72,0,3"),
                      QStringLiteral("scheme_marker_0=73,74,75,2,2"),
                      QStringLiteral("scheme_pointer_0=76,77,78,1,1"),
                      QStringLiteral("scheme_drawstyle_0=points"),
                      QStringLiteral("scheme_horzgrid_0=0"),
                      QStringLiteral("scheme_vertgrid_0=0"),
                      QStringLiteral("scheme_horzunittype_0=samples"),
                      QStringLiteral("scheme_horztimestyle_0=minutes"),
                      QStringLiteral("current_multiplot_scheme=night")};
    writeSection("settings.ini", ReviewFrame::section(), given);
    given.sort();
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(find<QToolButton>("buttonSetupLines").isChecked(), false);
        EXPECT_EQ(find<QToolButton>("buttonSetupHorzGrid").isChecked(), false);
        EXPECT_EQ(find<QToolButton>("buttonSetupVertGrid").isChecked(), false);
        EXPECT_EQ(find<QSpinBox>("spinDataWidth").value(), 4);
        EXPECT_EQ(strips().bkgColor, QColor(61, 62, 63));
        EXPECT_EQ(selector().timeStyle(), MultiPlotScheme::Minutes);
        EXPECT_EQ(selector().palette().color(QPalette::Base), QColor(41, 42, 43));
        EXPECT_EQ(recentFiles(), QStringList({QStringLiteral("/a.kiro"), QStringLiteral("/b.kiro")}));
        closeWindow();
        QStringList written = entriesOf("settings.ini", ReviewFrame::section());
        written = written.filter(QRegularExpression(QStringLiteral("^(?!win_)")));
        written.sort();
        EXPECT_EQ(written.join(QLatin1Char('\n')).toStdString(), given.join(QLatin1Char('\n')).toStdString());
    }
}

} // namespace
