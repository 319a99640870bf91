// A user's way from a laboratory's recording to corrected saccades, by keyboard and mouse alone.

#include "kirosaccheader.h"
#include "support/recordingbuilder.h"
#include "virtualdisplay.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace
{

constexpr int PatienceMs = 60000;
const std::string Launcher = "KiroManager 3.12";

/// Start and end of saccades, in samples, which are milliseconds in this recording.
struct Stretch
{
    int start;
    int end;

    bool operator==(const Stretch& other) const { return start == other.start && end == other.end; }
    bool operator<(const Stretch& other) const { return start < other.start; }
};

void PrintTo(const Stretch& stretch, std::ostream* out)
{
    *out << stretch.start << " to " << stretch.end;
}

using Stretches = std::vector<Stretch>;

Stretches without(Stretches stretches, const Stretches& others)
{
    const auto isOther = [&others](const Stretch& stretch) {
        return std::find(others.begin(), others.end(), stretch) != others.end();
    };
    stretches.erase(std::remove_if(stretches.begin(), stretches.end(), isOther), stretches.end());
    return stretches;
}

/// Where times are in the chart of a window that shows three seconds with a saccade's start in the middle.
struct Columns
{
    double middle; ///< column of that start
    double msPerColumn;

    int at(double msFromStart) const { return int(std::lround(middle + msFromStart / msPerColumn)); }
};

class SaccadeJourneyTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_display.isRunning());
        ASSERT_TRUE(QFile::copy(QStringLiteral(KIRO_TEST_DATA "/real/eye_1000hz_S6.edf"), path("eye.edf")));
    }

    QString path(const char* name) const { return m_folder.path(QLatin1String(name)); }
    std::string browser(const char* file) const { return "Saccades browser - " + path(file).toStdString(); }

    void start(const QStringList& files = {})
    {
        m_display.start(QStringLiteral(KIROMANAGER),
                        QStringList{QStringLiteral("-config"), path("k.ini"), QStringLiteral("-signals"),
                                    path("k.sig"), QStringLiteral("-log"), path("k.txt")} +
                            files);
        ASSERT_TRUE(m_display.waitForTitle(Launcher));
    }

    /// Types the path of a file into a file dialog and accepts it.
    void chooseFile(const std::string& dialog, const char* file)
    {
        ASSERT_TRUE(m_display.waitForTitle(dialog));
        m_display.press(dialog, "ctrl+a");
        m_display.type(dialog, path(file));
        m_display.press(dialog, "Return");
        ASSERT_TRUE(m_display.waitForTitleToGo(dialog));
    }

    void import()
    {
        m_display.press(Launcher, "ctrl+o");
        ASSERT_TRUE(m_display.waitForTitle("File browser"));
        m_display.press("File browser", "ctrl+i");
        ASSERT_NO_FATAL_FAILURE(chooseFile("Select BDF/EDF file", "eye.edf"));
        const std::string shown = "File browser - " + path("eye.kiro").toStdString();
        ASSERT_TRUE(m_display.waitForTitle(shown));
        m_display.press(shown, "ctrl+w");
        ASSERT_TRUE(m_display.waitForTitleToGo(shown));
    }

    void detect()
    {
        m_display.press(Launcher, "Tab", 2);
        m_display.press(Launcher, "space");
        ASSERT_TRUE(m_display.waitForTitle("Saccades browser"));
        m_display.press("Saccades browser", "ctrl+d");
        ASSERT_NO_FATAL_FAILURE(chooseFile("Select kiro data file", "eye.kiro"));
        // The name of the horizontal signal only begins as known: it is proposed.
        ASSERT_TRUE(m_display.waitForTitle("Select signals"));
        m_display.press("Select signals", "Return");
        ASSERT_TRUE(m_display.waitForTitle(browser("eye.kiro")));
    }

    /// What the command line tool finds in the imported recording.
    void detectByTool(Stretches& found)
    {
        QProcess batch;
        batch.start(QStringLiteral(KIROBATCH),
                    {QStringLiteral("detect"), QStringLiteral("--right-h"), QStringLiteral("0"),
                     path("eye.kiro"), QStringLiteral("-o"), path("tool.sacc")});
        ASSERT_TRUE(batch.waitForFinished(PatienceMs));
        ASSERT_EQ(batch.exitCode(), 0) << batch.readAllStandardError().toStdString();
        found = stretchesIn("tool.sacc");
        ASSERT_GT(found.size(), 50u);
    }

    Stretches stretchesIn(const char* file) const
    {
        KiroSaccHeader header;
        Stretches stretches;
        if (QFileInfo::exists(path(file)) && header.load(KiroString(path(file)))) {
            for (const KiroSaccade& saccade : header.saccades)
                stretches.push_back({saccade.main.start, saccade.main.end});
        }
        return stretches;
    }

    /// The content of a file once it has so many saccades.
    Stretches waitForSaccades(const char* file, std::size_t count) const
    {
        QElapsedTimer clock;
        clock.start();
        Stretches stretches = stretchesIn(file);
        while (stretches.size() != count && clock.elapsed() < PatienceMs) {
            QThread::msleep(50);
            stretches = stretchesIn(file);
        }
        EXPECT_EQ(stretches.size(), count) << "in " << file;
        return stretches;
    }

    void goTo(const std::string& window, int saccade)
    {
        m_display.press(window, "Home");
        m_display.press(window, "Right", saccade);
    }

    void drag(const std::string& window, int from, int to)
    {
        const int y = m_display.sizeOf(window).height() / 3;
        m_display.drag(window, QPoint(from, y), QPoint(to, y), "shift");
    }

    TestFolder m_folder;
    VirtualDisplay m_display;
};

/// The saccades ahead of which the eye rests longest, in the order of that.
std::vector<int> afterLongRests(const Stretches& saccades)
{
    std::vector<int> order;
    for (int i = 1; i < int(saccades.size()); ++i)
        order.push_back(i);
    const auto rest = [&saccades](int i) {
        return saccades[std::size_t(i)].start - saccades[std::size_t(i) - 1].end;
    };
    std::sort(order.begin(), order.end(), [&rest](int a, int b) { return rest(a) > rest(b); });
    return order;
}

} // namespace

TEST_F(SaccadeJourneyTest, FromARecordingOfALaboratoryToCorrectedSaccades)
{
    ASSERT_NO_FATAL_FAILURE(start());
    ASSERT_NO_FATAL_FAILURE(import());
    ASSERT_NO_FATAL_FAILURE(detect());
    m_display.press(browser("eye.kiro"), "ctrl+s");
    ASSERT_NO_FATAL_FAILURE(chooseFile("Select output file name", "eye"));
    const std::string window = browser("eye.sacc");
    ASSERT_TRUE(m_display.waitForTitle(window));
    Stretches detected;
    ASSERT_NO_FATAL_FAILURE(detectByTool(detected));
    ASSERT_EQ(stretchesIn("eye.sacc"), detected);

    // Where times are in the window shows in a saccade that is added in the longest rest, and undone. It is
    // left of the middle of the charts, which take most of the window.
    const std::vector<int> places = afterLongRests(detected);
    const QSize size = m_display.sizeOf(window);
    const int left = size.width() / 5;
    const int right = left + size.width() / 10;
    goTo(window, places[0]);
    drag(window, left, right);
    m_display.press(window, "ctrl+s");
    const Stretches tried = without(waitForSaccades("eye.sacc", detected.size() + 1), detected);
    ASSERT_EQ(tried.size(), 1u);
    const double msPerColumn = double(tried[0].end - tried[0].start) / (right - left);
    const int shownStart = detected[std::size_t(places[0])].start;
    const Columns columns{left + (shownStart - tried[0].start) / msPerColumn, msPerColumn};
    m_display.press(window, "ctrl+z");

    // One more in the middle of another rest, and one less.
    const Stretch& after = detected[std::size_t(places[1])];
    const int middle = (detected[std::size_t(places[1]) - 1].end + after.start) / 2;
    const Stretch wanted{middle - 100, middle + 100};
    goTo(window, places[1]);
    drag(window, columns.at(wanted.start - after.start), columns.at(wanted.end - after.start));
    m_display.press(window, "Home");
    m_display.press(window, "Delete");
    m_display.press(window, "ctrl+s");
    waitForSaccades("eye.sacc", detected.size());
    m_display.press(window, "ctrl+q");
    ASSERT_EQ(m_display.exitCode(), 0);

    ASSERT_NO_FATAL_FAILURE(start({path("eye.sacc")}));
    EXPECT_EQ(m_display.waitForTitles(2), Launcher + "; " + window);
    m_display.press(window, "ctrl+q");
    ASSERT_EQ(m_display.exitCode(), 0);
    const Stretches corrected = stretchesIn("eye.sacc");
    ASSERT_EQ(corrected.size(), detected.size());
    EXPECT_TRUE(std::is_sorted(corrected.begin(), corrected.end()));
    EXPECT_EQ(without(detected, corrected), Stretches({detected[0]}));
    const Stretches added = without(corrected, detected);
    ASSERT_EQ(added.size(), 1u);
    EXPECT_NEAR(added[0].start, wanted.start, 2.0 * msPerColumn);
    EXPECT_NEAR(added[0].end, wanted.end, 2.0 * msPerColumn);
}
