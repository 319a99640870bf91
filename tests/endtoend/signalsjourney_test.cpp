// A user's look through a recording, with labels on what is found there, by keyboard and mouse alone.

#include "inistore.h"
#include "kirolabel.h"
#include "support/recordingbuilder.h"
#include "virtualdisplay.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QThread>

#include <gtest/gtest.h>

namespace
{

constexpr int PatienceMs = 30000;
constexpr int SignalCount = 16; // of the demonstration recording
constexpr double TotalMs = 30000.0;
const std::string Launcher = "KiroManager 3.12";
const std::string LabelDialog = "Kiro label settings";

class SignalsJourneyTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_display.isRunning());
        m_window = "Signals browser - " + recording().toStdString();
    }

    QString recording() const { return path("r.kiro"); }
    /// Has the command line make the recording.
    void make(const QStringList& arguments) const
    {
        QProcess batch;
        batch.start(QStringLiteral(KIROBATCH), arguments);
        ASSERT_TRUE(batch.waitForFinished(PatienceMs));
        ASSERT_EQ(batch.exitCode(), 0) << batch.readAllStandardError().toStdString();
    }

    QString path(const char* name) const { return m_folder.path(QLatin1String(name)); }

    /// Starts the program with the recording, as from a file manager.
    void start()
    {
        m_display.start(QStringLiteral(KIROMANAGER),
                        {QStringLiteral("-config"), path("k.ini"), QStringLiteral("-signals"), path("k.sig"),
                         QStringLiteral("-log"), path("k.txt"), recording()});
        // It has loaded the recording once its progress is gone.
        ASSERT_TRUE(m_display.waitForTitle(m_window));
        ASSERT_EQ(m_display.waitForTitles(2), Launcher + "; " + m_window);
        const QSize size = m_display.sizeOf(m_window);
        m_row = size.height() * 27 / 100; // below the two rows of buttons and the selector
        m_columns = size.width();
    }
    void closeBrowser()
    {
        m_display.press(m_window, "ctrl+w");
        ASSERT_TRUE(m_display.waitForTitleToGo(m_window));
        m_display.press(Launcher, "ctrl+q");
        ASSERT_EQ(m_display.exitCode(), 0);
    }

    void press(const char* keys) { m_display.press(m_window, keys); }
    /// The uppermost strip at that part of the window's width.
    QPoint at(double part) const { return {int(part * m_columns), m_row}; }

    /// Makes a label there by a double click, in the mode that is on.
    void makeLabel(double part, const char* name)
    {
        m_display.doubleClick(m_window, at(part));
        ASSERT_TRUE(m_display.waitForTitle(LabelDialog));
        m_display.type(LabelDialog, QLatin1String(name));
        m_display.press(LabelDialog, "Return");
        ASSERT_TRUE(m_display.waitForTitleToGo(LabelDialog));
    }
    /// Saves the labels into a file that there is none of yet, and reads them.
    void saveLabels(const char* file, QList<KiroLabel>& saved)
    {
        press("ctrl+shift+s");
        const std::string dialog = "Select destination file";
        ASSERT_TRUE(m_display.waitForTitle(dialog));
        m_display.press(dialog, "ctrl+a");
        m_display.type(dialog, path(file));
        m_display.press(dialog, "Return");
        ASSERT_TRUE(m_display.waitForTitleToGo(dialog));
        QElapsedTimer clock;
        clock.start();
        const QString labelFile = path(file) + QStringLiteral(".lab");
        while (!QFileInfo::exists(labelFile) && clock.elapsed() < PatienceMs)
            QThread::msleep(20);
        saved = KiroLabel::load(labelFile);
    }

    /// Which strips the program keeps as shown, such as "0111".
    std::string shownStrips() const
    {
        IniStore store;
        store.load(path("k.sig"));
        std::string shown;
        for (int i = 0; i < store.intValue(recording(), QStringLiteral("signal_count"), 0); ++i)
            shown += store.boolValue(recording(), QStringLiteral("sig%1_show").arg(i), true) ? '1' : '0';
        return shown;
    }

    TestFolder m_folder;
    VirtualDisplay m_display;
    std::string m_window;
    int m_row = 0;
    int m_columns = 0;
};

} // namespace

TEST_F(SignalsJourneyTest, LabelsARecordingAndFindsItAgainAsItWas)
{
    constexpr double Left = 0.5;
    constexpr double Right = 0.7;
    ASSERT_NO_FATAL_FAILURE(make({QStringLiteral("demo"), QStringLiteral("--minutes"), QStringLiteral("0.5"),
                                  QStringLiteral("-o"), recording()}));
    ASSERT_NO_FATAL_FAILURE(start());
    press("ctrl+4");
    ASSERT_NO_FATAL_FAILURE(makeLabel(Left, "a"));
    ASSERT_NO_FATAL_FAILURE(makeLabel(Right, "b"));
    m_display.drag(m_window, at(Left), at(Right), "ctrl"); // shows the time between the labels
    press("Home");
    ASSERT_NO_FATAL_FAILURE(makeLabel(Left, "c"));
    press("Next");
    ASSERT_NO_FATAL_FAILURE(makeLabel(Left, "d"));
    QList<KiroLabel> saved;
    ASSERT_NO_FATAL_FAILURE(saveLabels("demo", saved));
    ASSERT_EQ(saved.size(), 4);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(saved[i].type, KiroLabel::Point);
        EXPECT_EQ(saved[i].name(), QString(QLatin1Char("abcd"[i])));
        EXPECT_EQ(saved[i].signal, 0u);
    }
    const double shownMs = double(saved[1].time) - saved[0].time;
    EXPECT_GT(shownMs, 0.2 * TotalMs);
    EXPECT_LT(shownMs, 0.3 * TotalMs);
    // The page keys move by what is shown, and Home to the beginning.
    const double columnMs = shownMs / ((Right - Left) * m_columns);
    EXPECT_NEAR(double(saved[3].time) - saved[2].time, shownMs, 3.0 * columnMs);
    EXPECT_NEAR(double(saved[2].time) / shownMs, double(saved[0].time) / TotalMs, 0.01);

    // The list of signals stands ahead of the strips; its first one is hidden.
    press("shift+Tab");
    press("Home");
    press("space");
    ASSERT_NO_FATAL_FAILURE(closeBrowser());
    const std::string allButFirst = "0" + std::string(SignalCount - 1, '1');
    EXPECT_EQ(shownStrips(), allButFirst);

    // The uppermost strip is the second signal's now. There are no labels, until they are opened.
    ASSERT_NO_FATAL_FAILURE(start());
    press("ctrl+4");
    ASSERT_NO_FATAL_FAILURE(makeLabel(Left, "again"));
    QList<KiroLabel> later;
    ASSERT_NO_FATAL_FAILURE(saveLabels("later", later));
    ASSERT_NO_FATAL_FAILURE(closeBrowser());
    ASSERT_EQ(later.size(), 1);
    EXPECT_EQ(later[0].signal, 1u);
    EXPECT_NEAR(double(later[0].time), double(saved[0].time), 60.0);
    EXPECT_EQ(shownStrips(), allButFirst);
    EXPECT_EQ(KiroLabel::load(path("demo.lab")).size(), 4);
}

TEST_F(SignalsJourneyTest, MeasuresAnImportedRecordingAndFindsItAgainAsItWas)
{
    ASSERT_NO_FATAL_FAILURE(make({QStringLiteral("import"), QStringLiteral("-o"), recording(),
                                  QStringLiteral(KIRO_TEST_DATA "/real/biosemi_17ch_256hz.bdf")}));
    const std::string bytes = fileBytes(KiroString(recording()));
    ASSERT_NO_FATAL_FAILURE(start());
    press("ctrl+3");
    m_display.drag(m_window, at(0.4), at(0.6), "shift");
    press("End");
    press("Prior");
    press("ctrl+2");
    m_display.drag(m_window, at(0.4), at(0.8), "shift");
    press("Escape");
    press("ctrl+6");
    ASSERT_NO_FATAL_FAILURE(makeLabel(0.6, "found"));
    QList<KiroLabel> saved;
    ASSERT_NO_FATAL_FAILURE(saveLabels("found", saved));
    ASSERT_EQ(saved.size(), 1);
    EXPECT_EQ(saved[0].type, KiroLabel::TimeLine);
    press("shift+Tab");
    press("Home");
    press("space");
    ASSERT_NO_FATAL_FAILURE(closeBrowser());
    const std::string shown = shownStrips();
    ASSERT_EQ(shown.size(), 17u);
    EXPECT_EQ(shown, "0" + std::string(16, '1'));

    ASSERT_NO_FATAL_FAILURE(start());
    ASSERT_NO_FATAL_FAILURE(closeBrowser());
    EXPECT_EQ(shownStrips(), shown);
    EXPECT_TRUE(fileBytes(KiroString(recording())) == bytes);
}
