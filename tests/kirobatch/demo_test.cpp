#include "batchprocess.h"

#include "demorecording.h"
#include "jobprogress.h"
#include "kirosaccheader.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace
{

class KirobatchDemo : public testing::Test
{
protected:
    QString path(const char* name) const { return m_folder.path(QString::fromLatin1(name)); }
    std::string bytes(const char* name) const { return fileBytes(KiroString(path(name))); }
    QStringList files() const { return QDir(m_folder.path(QString())).entryList(QDir::Files | QDir::Hidden); }

    /// Runs the command for a short recording "x.kiro" in the test's folder.
    BatchRun demo(const QStringList& options = {}) const
    {
        return runBatch(QStringList{QStringLiteral("demo"), QStringLiteral("-o"), path("x.kiro"),
                                    QStringLiteral("--minutes"), QStringLiteral("0.1")} +
                        options);
    }

    TestFolder m_folder;
};

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

TEST_F(KirobatchDemo, WritesAMinuteIntoTheWorkingFolderAndSaysSo)
{
    const BatchRun run =
        runShell(QStringLiteral("cd \"$1\" && exec \"$KIROBATCH\" demo"), {m_folder.path(QString())});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output, StartsWith("'demo.kiro': written, with 16 signals and 3000 packets.\n"
                                       "'demo.json': written, with "));
    EXPECT_EQ(files(), (QStringList{QStringLiteral("demo.json"), QStringLiteral("demo.kiro")}));
    const QJsonObject truth = QJsonDocument::fromJson(QByteArray::fromStdString(bytes("demo.json"))).object();
    EXPECT_EQ(truth.value(QStringLiteral("seed")), QJsonValue(1));
    const int saccades = truth.value(QStringLiteral("saccades")).toArray().size();
    const int blinks = truth.value(QStringLiteral("blinks")).toArray().size();
    EXPECT_GT(saccades, 80);
    EXPECT_THAT(run.output, HasSubstr("written, with " + std::to_string(saccades) + " saccades, " +
                                      std::to_string(blinks) + " blinks, "));
}

TEST_F(KirobatchDemo, WritesWhatTheLibraryWrites)
{
    ASSERT_EQ(demo({QStringLiteral("--seed"), QStringLiteral("4294967295")}).status, 0);
    const std::string recording = bytes("x.kiro");
    const std::string truth = bytes("x.json");
    NoProgress progress;
    ASSERT_TRUE(makeDemoRecording(path("x.kiro"), {0.1, 4294967295}, progress).ok());
    EXPECT_TRUE(recording == bytes("x.kiro"));
    EXPECT_TRUE(truth == bytes("x.json"));
}

TEST_F(KirobatchDemo, ItsRecordingHasNothingWrong)
{
    ASSERT_EQ(demo().status, 0);
    const BatchRun run = runBatch({QStringLiteral("check"), path("x.kiro")});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "Nothing wrong was found.\n");
}

TEST_F(KirobatchDemo, DetectFindsWhatIsInIt)
{
    NoProgress progress;
    const DemoResult made = makeDemoRecording(path("x.kiro"), {}, progress);
    ASSERT_TRUE(made.ok());
    const BatchRun run = runBatch({QStringLiteral("detect"), path("x.kiro")});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output, HasSubstr("(Binocular, 1000 Hz)"));
    KiroSaccHeader header;
    ASSERT_TRUE(header.load(KiroString(path("x.sacc"))));
    EXPECT_EQ(static_cast<int>(header.blinks.size()), made.blinks);
    EXPECT_GE(static_cast<int>(header.saccades.size()), made.saccades * 93 / 100);
    EXPECT_LE(static_cast<int>(header.saccades.size()), made.saccades);
}

TEST_F(KirobatchDemo, ExistingFilesAreReplacedOnlyByForce)
{
    for (const char* name : {"x.kiro", "x.json"}) {
        m_folder.write(QString::fromLatin1(name), "mine");
        const BatchRun run = demo();
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors,
                  "kirobatch: '" + path(name).toStdString() +
                      "' is there already. Give --force to replace it, or another path with -o.\n");
        EXPECT_EQ(bytes(name), "mine");
        EXPECT_EQ(files().size(), 1);
        EXPECT_EQ(demo({QStringLiteral("--force")}).status, 0);
        EXPECT_THAT(bytes(name), Not(StartsWith("mine")));
        QFile::remove(path("x.kiro"));
        QFile::remove(path("x.json"));
    }
}

TEST_F(KirobatchDemo, AFolderThatIsNotThereIsNamed)
{
    const QString file = path("no/such/x.kiro");
    const BatchRun run = runBatch({QStringLiteral("demo"), QStringLiteral("-o"), file});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_THAT(run.errors, StartsWith("kirobatch: cannot write '" + file.toStdString() + "': "));
    EXPECT_THAT(run.errors, HasSubstr("Check that the folder is there, may be written and has room.\n"));
}

TEST_F(KirobatchDemo, FullDiskLeavesNothing)
{
    const BatchRun run =
        runShell(QStringLiteral("ulimit -f 100; exec \"$KIROBATCH\" demo -o \"$1\""), {path("x.kiro")});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_THAT(run.errors, StartsWith("kirobatch: cannot write '" + path("x.kiro").toStdString() + "': "));
    EXPECT_EQ(files(), QStringList());
}

TEST_F(KirobatchDemo, InterruptLeavesNothing)
{
    // Long enough to be caught in the middle: killed once it has a file in the folder open, be it one without
    // a name.
    const BatchRun run = runShell(
        QStringLiteral("\"$KIROBATCH\" demo --minutes 120 -o \"$1/x.kiro\" & job=$!; "
                       "until [ -n \"$(find /proc/$job/fd 2>/dev/null -lname \"$1/*\")\" ]; do sleep 0.01; "
                       "done; kill -TERM $job; wait $job"),
        {m_folder.path(QString())});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, "kirobatch: cannot make the recording: interrupted, nothing was written.\n");
    EXPECT_EQ(files(), QStringList());
}

TEST_F(KirobatchDemo, HelpNamesEveryOptionWithin80Columns)
{
    const BatchRun run = runBatch(words("demo --help"));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output, StartsWith("Usage: kirobatch demo [options]\n"));
    for (const char* option : {"-o <FILE>", "--minutes <N>", "--seed <N>", "--force", "--help"})
        EXPECT_THAT(run.output, HasSubstr(option));
    for (const QString& line : QString::fromStdString(run.output).split(QLatin1Char('\n')))
        EXPECT_LE(line.size(), 80) << line.toStdString();
}

TEST(KirobatchHelpCommand, IsTheHelpAndListsDemo)
{
    const BatchRun run = runBatch({QStringLiteral("help")});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.output, runBatch({QStringLiteral("--help")}).output);
    EXPECT_THAT(run.output, HasSubstr("  demo          Writes a recording for trying the program out.\n"));
}

namespace
{

struct WrongDemo
{
    const char* name;
    const char* arguments; ///< divided at blanks
    const char* message;
};

/// Names the case in lists of tests.
void PrintTo(const WrongDemo& test, std::ostream* stream)
{
    *stream << test.name;
}

class KirobatchDemoUsage : public testing::TestWithParam<WrongDemo>
{
};

} // namespace

TEST_P(KirobatchDemoUsage, EndsWithStatus2AndPointsToTheHelp)
{
    const BatchRun run = runBatch(words("demo") + words(GetParam().arguments));
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors,
              std::string("kirobatch: ") + GetParam().message + "\nTry 'kirobatch demo --help'.\n");
}

INSTANTIATE_TEST_SUITE_P(
    Cases, KirobatchDemoUsage,
    testing::Values(
        WrongDemo{"NoMinutes", "--minutes 0", "--minutes takes a number from 0.1 to 120, not '0'."},
        WrongDemo{"TooLong", "--minutes 120.5", "--minutes takes a number from 0.1 to 120, not '120.5'."},
        WrongDemo{"MinutesNoNumber", "--minutes nan", "--minutes takes a number from 0.1 to 120, not 'nan'."},
        WrongDemo{"MinutesComma", "--minutes 1,5", "--minutes takes a number from 0.1 to 120, not '1,5'."},
        WrongDemo{"MinutesEmpty", "--minutes=", "--minutes takes a number from 0.1 to 120, not ''."},
        WrongDemo{"SeedNegative", "--seed=-1", "--seed takes a whole number from 0 to 4294967295, not '-1'."},
        WrongDemo{"SeedTooLarge", "--seed 4294967296",
                  "--seed takes a whole number from 0 to 4294967295, not '4294967296'."},
        WrongDemo{"SeedFraction", "--seed 1.5",
                  "--seed takes a whole number from 0 to 4294967295, not '1.5'."},
        WrongDemo{"SeedTwice", "--seed 1 --seed 2", "option --seed is given more than once."},
        WrongDemo{"OutputTwice", "-o a -o b", "option -o is given more than once."},
        WrongDemo{"EmptyOutput", "-o=", "the output is empty: give the path of a recording (.kiro) with -o."},
        WrongDemo{"ForceWithValue", "--force=yes", "Unexpected value after '--force'."},
        WrongDemo{"ValueMissing", "--seed", "Missing value after '--seed'."},
        WrongDemo{"UnknownOption", "--signals 3", "Unknown option 'signals'."},
        WrongDemo{"File", "x.kiro",
                  "'x.kiro' is one argument too many: demo reads no FILE, and takes options only."}),
    [](const auto& row) { return std::string(row.param.name); });
