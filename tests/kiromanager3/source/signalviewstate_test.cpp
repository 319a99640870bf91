#include "signalviewstate.h"

#include "eyerecording.h"
#include "filesizelimit.h"
#include "recordingbuilder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{

constexpr double Infinite = std::numeric_limits<double>::infinity();

SignalViewState stateOf(int signalCount)
{
    SignalViewState state;
    state.views.resize(signalCount);
    return state;
}

/// Of two signals, with no value as at first.
SignalViewState otherState()
{
    SignalViewState state;
    state.views = {{Plot::Fixed, false, true, -12.5, 4096.25, 200.0},
                   {Plot::Tracing, false, true, 0.0, 0.1, SignalView::NoUsefulRange}};
    state.videoFileName = QStringLiteral("/films/a = b.avi");
    state.videoKiroTime = 1500;
    state.videoVideoTime = -250;
    return state;
}

void expectSame(const SignalViewState& found, const SignalViewState& expected)
{
    ASSERT_EQ(found.views.size(), expected.views.size());
    for (int i = 0; i < found.views.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(found.views[i].scaleType, expected.views[i].scaleType);
        EXPECT_EQ(found.views[i].show, expected.views[i].show);
        EXPECT_EQ(found.views[i].useCalib, expected.views[i].useCalib);
        EXPECT_EQ(found.views[i].scaleMin, expected.views[i].scaleMin);
        EXPECT_EQ(found.views[i].scaleMax, expected.views[i].scaleMax);
        EXPECT_EQ(found.views[i].usefulRange, expected.views[i].usefulRange);
    }
    EXPECT_EQ(found.videoFileName, expected.videoFileName);
    EXPECT_EQ(found.videoKiroTime, expected.videoKiroTime);
    EXPECT_EQ(found.videoVideoTime, expected.videoVideoTime);
}

class SignalViewStoreTest : public testing::Test
{
protected:
    /// A recording that is there.
    QString recording(const char* name) const
    {
        return m_folder.write(QString::fromLatin1(name), "kiro").toQString();
    }
    QString path() const { return m_folder.path(QStringLiteral("kiromanager3.sig")); }
    void writeFile(const QString& text) const
    {
        m_folder.write(QStringLiteral("kiromanager3.sig"), text.toStdString());
    }
    QString content() const { return QString::fromStdString(fileBytes(KiroString(path()))); }
    /// What is read of one recording of as many signals from these lines of its section.
    SignalViewState read(const QString& lines, const SignalViewState& present) const
    {
        const QString file = recording("r.kiro");
        writeFile(QStringLiteral("[%1]\nsignal_count=%2\n").arg(file).arg(present.views.size()) + lines);
        SignalViewState state = present;
        EXPECT_TRUE(SignalViewStore(path()).load(file, state));
        return state;
    }
    SignalView readView(const char* lines, const SignalView& present = SignalView()) const
    {
        SignalViewState state;
        state.views = {present};
        return read(QString::fromLatin1(lines), state).views[0];
    }

    TestFolder m_folder;
};

} // namespace

// Strips

TEST(SignalViewTest, AFixedScaleGetsItsLimits)
{
    Plot plot;
    applyView({Plot::Fixed, false, true, -5.0, 10.0, 3.0}, plot);
    EXPECT_FALSE(plot.showPlot());
    EXPECT_TRUE(plot.useCalib);
    EXPECT_EQ(plot.scaleType, Plot::Fixed);
    EXPECT_EQ(plot.scaleMin, -5.0);
    EXPECT_EQ(plot.scaleMax, 10.0);
}

TEST(SignalViewTest, ATracingScaleGetsTheDistanceAsItsSpan)
{
    Plot plot;
    applyView({Plot::Tracing, true, false, -5.0, 10.0, 3.0}, plot);
    EXPECT_TRUE(plot.showPlot());
    EXPECT_FALSE(plot.useCalib);
    EXPECT_EQ(plot.scaleType, Plot::Tracing);
    EXPECT_EQ(plot.scaleMin, 0.0);
    EXPECT_EQ(plot.scaleMax, 15.0);
}

TEST(SignalViewTest, AnAutomaticScaleHasTheLimitsOfItsSamples)
{
    Plot plot;
    ASSERT_TRUE(plot.setData(QVector<qint16>{3, 7}, 0, -1));
    plot.setScaleType(Plot::Fixed);
    plot.setScale(-1.0, 1.0);
    applyView({Plot::Automatic, true, false, -5.0, 10.0, 3.0}, plot);
    EXPECT_EQ(plot.scaleType, Plot::Automatic);
    EXPECT_EQ(plot.scaleMin, 3.0);
    EXPECT_EQ(plot.scaleMax, 7.0);
}

TEST(SignalViewTest, WhatAStripShowsIsTakenFromItAndGivenBack)
{
    for (const SignalView& view : {SignalView{Plot::Fixed, false, true, -5.0, 10.0, 3.0},
                                   SignalView{Plot::Tracing, true, false, 0.0, 15.0, -1.0}}) {
        Plot plot;
        applyView(view, plot);
        SignalViewState found;
        found.views = {viewOf(plot, view.usefulRange)};
        SignalViewState expected;
        expected.views = {view};
        expectSame(found, expected);
    }
}

TEST(SignalViewTest, LimitsStayRawWithACalibration)
{
    Plot plot;
    plot.hasCalib = true;
    plot.calibFactor = 2.0;
    plot.calibOffset = 100.0;
    applyView({Plot::Fixed, true, true, 100.0, 120.0, -1.0}, plot);
    EXPECT_EQ(plot.scaleMin, 100.0);
    EXPECT_EQ(plot.scaleMax, 120.0);
    EXPECT_EQ(plot.drawnLimits().least, 0.0);
    EXPECT_EQ(plot.drawnLimits().greatest, 10.0);
    EXPECT_EQ(viewOf(plot, -1.0).scaleMax, 120.0);
}

// The file

TEST_F(SignalViewStoreTest, EveryKeyStandsInTheRecordingsSection)
{
    const QString file = recording("r.kiro");
    EXPECT_TRUE(SignalViewStore(path()).save(file, otherState()));
    EXPECT_EQ(content().toStdString(), QStringLiteral("[%1]\n"
                                                      "signal_count=2\n"
                                                      "sig0_scaletype=1\n"
                                                      "sig0_show=0\n"
                                                      "sig0_use_calib=1\n"
                                                      "sig0_scalemin=-12.5000000000\n"
                                                      "sig0_scalemax=4096.2500000000\n"
                                                      "sig0_sig_stat_range=200.0000000000\n"
                                                      "sig1_scaletype=2\n"
                                                      "sig1_show=0\n"
                                                      "sig1_use_calib=1\n"
                                                      "sig1_scalemin=0.0000000000\n"
                                                      "sig1_scalemax=0.1000000000\n"
                                                      "video_filename=/films/a = b.avi\n"
                                                      "video_kiro_time_msec=1500\n"
                                                      "video_video_time_msec=-250\n\n")
                                           .arg(file)
                                           .toStdString());
}

TEST_F(SignalViewStoreTest, StartValuesUnderTheirKeys)
{
    const QString file = recording("r.kiro");
    EXPECT_TRUE(SignalViewStore(path()).save(file, stateOf(1)));
    EXPECT_EQ(content().toStdString(), QStringLiteral("[%1]\n"
                                                      "signal_count=1\n"
                                                      "sig0_scaletype=0\n"
                                                      "sig0_show=1\n"
                                                      "sig0_use_calib=0\n"
                                                      "sig0_scalemin=0.0000000000\n"
                                                      "sig0_scalemax=1.0000000000\n"
                                                      "video_filename=\n"
                                                      "video_kiro_time_msec=0\n"
                                                      "video_video_time_msec=0\n\n")
                                           .arg(file)
                                           .toStdString());
}

TEST_F(SignalViewStoreTest, WhatIsSavedIsLoadedAgain)
{
    const QString file = recording("r.kiro");
    ASSERT_TRUE(SignalViewStore(path()).save(file, otherState()));
    SignalViewState state = stateOf(2);
    EXPECT_TRUE(SignalViewStore(path()).load(file, state));
    expectSame(state, otherState());
}

TEST_F(SignalViewStoreTest, WhatIsSavedIsLoadedAgainByTheSameStore)
{
    const QString file = recording("r.kiro");
    SignalViewStore store(path());
    SignalViewState state = stateOf(2);
    EXPECT_FALSE(store.load(file, state));
    ASSERT_TRUE(store.save(file, otherState()));
    EXPECT_TRUE(store.load(file, state));
    expectSame(state, otherState());
}

TEST_F(SignalViewStoreTest, AnAbsentSectionIsRefusedAndChangesNothing)
{
    const QString file = recording("r.kiro");
    ASSERT_TRUE(SignalViewStore(path()).save(file, stateOf(2)));
    SignalViewState state = otherState();
    EXPECT_FALSE(SignalViewStore(path()).load(recording("other.kiro"), state));
    expectSame(state, otherState());
}

TEST_F(SignalViewStoreTest, AnotherCountOfSignalsIsRefusedAsAWhole)
{
    const QString file = recording("r.kiro");
    ASSERT_TRUE(SignalViewStore(path()).save(file, otherState()));
    for (const int count : {0, 1, 3}) {
        SignalViewState state = stateOf(count);
        EXPECT_FALSE(SignalViewStore(path()).load(file, state)) << count;
        expectSame(state, stateOf(count));
    }
}

TEST_F(SignalViewStoreTest, ASectionWithoutCountIsRefused)
{
    const QString file = recording("r.kiro");
    for (const char* count : {"", "signal_count=\n", "signal_count=x\n", "signal_count=-1\n",
                              "signal_count=4294967297\n", "signal_count=2147483647\n"}) {
        writeFile(QStringLiteral("[%1]\n%2sig0_show=0\n").arg(file, QString::fromLatin1(count)));
        SignalViewState state = stateOf(1);
        EXPECT_FALSE(SignalViewStore(path()).load(file, state)) << count;
        EXPECT_TRUE(state.views[0].show);
    }
}

TEST_F(SignalViewStoreTest, ASectionOfTooManyKeysIsRefused)
{
    const QString file = recording("r.kiro");
    QString text = QStringLiteral("[%1]\nsignal_count=1\n").arg(file);
    text += QStringLiteral("sig0_show=0\n").repeated(5000);
    writeFile(text);
    SignalViewState state = stateOf(1);
    EXPECT_FALSE(SignalViewStore(path()).load(file, state));
    EXPECT_TRUE(state.views[0].show);
}

TEST_F(SignalViewStoreTest, TheGreatestRecordingIsKept)
{
    const QString file = recording("r.kiro");
    SignalViewState saved = stateOf(255);
    for (SignalView& view : saved.views)
        view = otherState().views[0];
    ASSERT_TRUE(SignalViewStore(path()).save(file, saved));
    SignalViewState state = stateOf(255);
    EXPECT_TRUE(SignalViewStore(path()).load(file, state));
    expectSame(state, saved);
}

TEST_F(SignalViewStoreTest, WhatTheSectionLacksKeepsItsValueButSignalsAreShown)
{
    SignalViewState expected = otherState();
    expected.views[0].show = true;
    expected.views[1].show = true;
    expected.videoFileName.clear();
    expected.videoKiroTime = 0;
    expected.videoVideoTime = 0;
    expectSame(read(QString(), otherState()), expected);
}

TEST_F(SignalViewStoreTest, ScaleTypesThatThereAreNotKeepTheirValue)
{
    for (const char* line : {"sig0_scaletype=3\n", "sig0_scaletype=-1\n", "sig0_scaletype=2147483647\n"}) {
        SignalView present;
        present.scaleType = Plot::Tracing;
        EXPECT_EQ(readView(line, present).scaleType, Plot::Tracing) << line;
    }
    EXPECT_EQ(readView("sig0_scaletype=1\n").scaleType, Plot::Fixed);
    EXPECT_EQ(readView("sig0_scaletype=2\n").scaleType, Plot::Tracing);
}

TEST_F(SignalViewStoreTest, LimitsThatAreNoNumbersKeepTheirValues)
{
    for (const char* lines :
         {"sig0_scalemin=nan\nsig0_scalemax=5\n", "sig0_scalemin=5\nsig0_scalemax=inf\n",
          "sig0_scalemin=-inf\nsig0_scalemax=5\n", "sig0_scalemin=-1e308\nsig0_scalemax=1e308\n",
          "sig0_scalemin=1e999\nsig0_scalemax=0\n"}) {
        SignalView present;
        present.scaleMin = 2.0;
        present.scaleMax = 3.0;
        const SignalView view = readView(lines, present);
        EXPECT_EQ(view.scaleMin, 2.0) << lines;
        EXPECT_EQ(view.scaleMax, 3.0) << lines;
    }
}

TEST_F(SignalViewStoreTest, UsefulRangesThatAreNoneAreNone)
{
    for (const char* line : {"sig0_sig_stat_range=nan\n", "sig0_sig_stat_range=inf\n",
                             "sig0_sig_stat_range=-3\n", "sig0_sig_stat_range=0\n"}) {
        EXPECT_EQ(readView(line).usefulRange, -1.0) << line;
    }
    EXPECT_EQ(readView("sig0_sig_stat_range=7.5\n").usefulRange, 7.5);
}

TEST_F(SignalViewStoreTest, UsefulRangesThatAreNoneAreNotWritten)
{
    for (const double range : {-1.0, 0.0, Infinite, std::nan("")}) {
        SignalViewState state = stateOf(1);
        state.views[0].usefulRange = range;
        ASSERT_TRUE(SignalViewStore(path()).save(recording("r.kiro"), state));
        EXPECT_FALSE(content().contains(QStringLiteral("sig_stat_range"))) << range;
    }
}

TEST_F(SignalViewStoreTest, VideoTimesOf32BitsComeBack)
{
    const auto timeOf = [this](const char* value) {
        return read(QStringLiteral("video_kiro_time_msec=%1\n").arg(QLatin1String(value)), stateOf(1))
            .videoKiroTime;
    };
    EXPECT_EQ(timeOf("2147483647"), 2147483647);
    EXPECT_EQ(timeOf("-2147483648"), -2147483648LL);
    EXPECT_EQ(timeOf("2147483648"), 0);
    EXPECT_EQ(timeOf("soon"), 0);
}

TEST_F(SignalViewStoreTest, SavingReplacesTheSectionAndNoOther)
{
    const QString file = recording("r.kiro");
    const QString other = recording("other.kiro");
    writeFile(QStringLiteral("[%1]\nold=1\nsig7_show=0\n[%2]\nkept=1\n").arg(file, other));
    ASSERT_TRUE(SignalViewStore(path()).save(file, stateOf(1)));
    EXPECT_FALSE(content().contains(QStringLiteral("old=1")));
    EXPECT_FALSE(content().contains(QStringLiteral("sig7_show")));
    EXPECT_TRUE(content().contains(QStringLiteral("[%1]\nkept=1\n").arg(other)));
}

TEST_F(SignalViewStoreTest, SavingTwiceLeavesTheSameText)
{
    const QString file = recording("r.kiro");
    SignalViewStore store(path());
    ASSERT_TRUE(store.save(file, otherState()));
    const QString once = content();
    ASSERT_TRUE(store.save(file, otherState()));
    EXPECT_EQ(content(), once);
    ASSERT_TRUE(QFile::remove(path()));
    ASSERT_TRUE(store.save(file, otherState()));
    EXPECT_EQ(content(), once);
}

TEST_F(SignalViewStoreTest, ARelativePathMeansTheFullOne)
{
    const QString file = recording("r.kiro");
    const QString relative = QDir::current().relativeFilePath(file);
    ASSERT_NE(relative, file);
    ASSERT_TRUE(SignalViewStore(path()).save(relative, otherState()));
    EXPECT_TRUE(content().startsWith(QStringLiteral("[%1]\n").arg(file)));
    SignalViewState state = stateOf(2);
    EXPECT_TRUE(SignalViewStore(path()).load(relative, state));
    expectSame(state, otherState());
}

TEST_F(SignalViewStoreTest, SectionsOfRecordingsThatAreGoneGoAtFirstUse)
{
    const QString file = recording("r.kiro");
    const QString gone = m_folder.path(QStringLiteral("gone.kiro"));
    writeFile(QStringLiteral("[%1]\nsignal_count=1\n[%2]\nsignal_count=1\n").arg(file, gone));
    SignalViewStore store(path());
    SignalViewState state = stateOf(1);
    EXPECT_FALSE(store.load(gone, state));
    EXPECT_TRUE(store.load(file, state));
    // The file changes with the next save.
    EXPECT_TRUE(content().contains(gone));
    ASSERT_TRUE(store.save(file, state));
    EXPECT_FALSE(content().contains(gone));
    EXPECT_TRUE(content().contains(file));
}

TEST_F(SignalViewStoreTest, RecordingsThatGoLaterKeepTheirSections)
{
    const QString file = recording("r.kiro");
    const QString other = recording("other.kiro");
    SignalViewStore store(path());
    ASSERT_TRUE(store.save(other, otherState()));
    ASSERT_TRUE(QFile::remove(other));
    ASSERT_TRUE(store.save(file, stateOf(1)));
    EXPECT_TRUE(content().contains(other));
}

TEST_F(SignalViewStoreTest, SectionsThatNameNoFullPathStay)
{
    const QString file = recording("r.kiro");
    writeFile(QStringLiteral("[GENERAL]\nlanguage=pl\n"));
    ASSERT_TRUE(SignalViewStore(path()).save(file, stateOf(1)));
    EXPECT_TRUE(content().contains(QStringLiteral("[GENERAL]\nlanguage=pl\n")));
}

TEST_F(SignalViewStoreTest, WindowsDoNotOverwriteEachOthersSections)
{
    const QString file = recording("r.kiro");
    const QString other = recording("other.kiro");
    SignalViewStore first(path());
    SignalViewStore second(path());
    ASSERT_TRUE(first.save(file, otherState()));
    ASSERT_TRUE(second.save(other, stateOf(1)));
    ASSERT_TRUE(first.save(file, otherState()));
    SignalViewState state = stateOf(1);
    EXPECT_TRUE(SignalViewStore(path()).load(other, state));
    state = stateOf(2);
    EXPECT_TRUE(SignalViewStore(path()).load(file, state));
}

TEST_F(SignalViewStoreTest, ASectionThatAnotherWindowMadeOfAPurgedOneStays)
{
    const QString file = recording("r.kiro");
    const QString lost = m_folder.path(QStringLiteral("lost.kiro"));
    writeFile(QStringLiteral("[%1]\nsignal_count=1\n").arg(lost));
    SignalViewStore store(path());
    SignalViewState state = stateOf(1);
    EXPECT_FALSE(store.load(lost, state));
    recording("lost.kiro");
    ASSERT_TRUE(SignalViewStore(path()).save(lost, otherState()));
    ASSERT_TRUE(store.save(file, stateOf(1)));
    state = stateOf(2);
    EXPECT_TRUE(SignalViewStore(path()).load(lost, state));
}

TEST_F(SignalViewStoreTest, AFileThatCannotBeReadIsNotReplaced)
{
    writeFile(QStringLiteral("[s]\nx=1\n"));
    ASSERT_TRUE(QFile::resize(path(), IniStore::FileSizeLimit + 1));
    const QString file = recording("r.kiro");
    SignalViewStore store(path());
    SignalViewState state = stateOf(2);
    EXPECT_FALSE(store.load(file, state));
    EXPECT_FALSE(store.save(file, otherState()));
    EXPECT_EQ(QFileInfo(path()).size(), IniStore::FileSizeLimit + 1);
    // The window knows it all the same.
    EXPECT_TRUE(store.load(file, state));
    expectSame(state, otherState());
}

TEST_F(SignalViewStoreTest, ARecordingIsNotReplaced)
{
    const QString signalsFile = writeRecording(m_folder, QStringLiteral("signals.kiro"));
    const std::string bytes = fileBytes(KiroString(signalsFile));
    SignalViewStore store(signalsFile);
    EXPECT_FALSE(store.save(recording("r.kiro"), otherState()));
    EXPECT_TRUE(fileBytes(KiroString(signalsFile)) == bytes);
}

TEST_F(SignalViewStoreTest, AFailedSaveLeavesTheOldFile)
{
    const QString file = recording("r.kiro");
    ASSERT_TRUE(SignalViewStore(path()).save(file, stateOf(1)));
    const QString before = content();
    {
        const FileSizeLimit full(16);
        ASSERT_TRUE(full.isSet());
        EXPECT_FALSE(SignalViewStore(path()).save(file, otherState()));
    }
    EXPECT_EQ(content(), before);
}

TEST_F(SignalViewStoreTest, AFileThatWentAwayIsWrittenAgainWhole)
{
    const QString file = recording("r.kiro");
    const QString other = recording("other.kiro");
    SignalViewStore store(path());
    ASSERT_TRUE(store.save(other, otherState()));
    ASSERT_TRUE(QFile::remove(path()));
    ASSERT_TRUE(store.save(file, stateOf(1)));
    SignalViewState state = stateOf(2);
    EXPECT_TRUE(SignalViewStore(path()).load(other, state));
    expectSame(state, otherState());
}

TEST_F(SignalViewStoreTest, WithoutAPathOrWithALineFeedNothingIsWritten)
{
    EXPECT_FALSE(SignalViewStore(QString()).save(recording("r.kiro"), stateOf(1)));
    EXPECT_FALSE(SignalViewStore(path()).save(QStringLiteral("/a\nb.kiro"), stateOf(1)));
    EXPECT_FALSE(QFile::exists(path()));
}
