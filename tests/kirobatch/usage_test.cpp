#include "batchprocess.h"

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::StartsWith;

namespace
{

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

TEST(KirobatchHelp, NamesEveryCommandAndTheExitStatuses)
{
    const BatchRun run = runBatch(words("--help"));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output, StartsWith("Usage: kirobatch [options] COMMAND ...\n"));
    EXPECT_THAT(run.output, HasSubstr("  info FILE "));
    EXPECT_THAT(run.output, HasSubstr("  signals FILE "));
    EXPECT_THAT(run.output, HasSubstr("  dump FILE "));
    EXPECT_THAT(run.output, HasSubstr("  check FILE "));
    EXPECT_THAT(run.output, HasSubstr("  repair FILE "));
    EXPECT_THAT(run.output, HasSubstr("  import FILE "));
    EXPECT_THAT(run.output, HasSubstr("  detect FILE "));
    EXPECT_THAT(run.output, HasSubstr("  sacc FILE "));
    EXPECT_THAT(run.output, HasSubstr("0 after success, 1 if the job failed and 2 after wrong usage"));
}

TEST(KirobatchHelp, FitsATerminalOf80Columns)
{
    for (const char* arguments :
         {"--help", "info --help", "signals --help", "dump --help", "import --help", "check --help",
          "repair --help", "detect --help", "sacc --help", "demo --help"}) {
        const QString help = QString::fromStdString(runBatch(words(arguments)).output);
        for (const QString& line : help.split(QLatin1Char('\n')))
            EXPECT_LE(line.size(), 80) << arguments << ": " << line.toStdString();
    }
}

TEST(KirobatchHelp, ShortOptionPrintsTheSame)
{
    EXPECT_EQ(runBatch(words("-h")).output, runBatch(words("--help")).output);
    EXPECT_EQ(runBatch(words("dump -h")).output, runBatch(words("dump --help")).output);
}

TEST(KirobatchVersion, IsPrintedAsOneLine)
{
    const BatchRun run = runBatch(words("--version"));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "kirobatch 3.12\n");
    EXPECT_EQ(run.errors, "");
}

class KirobatchCommandHelp : public testing::TestWithParam<std::string>
{
};

TEST_P(KirobatchCommandHelp, NeedsNoFileAndTellsHowJsonHoldsTexts)
{
    const BatchRun run = runBatch(words(GetParam().c_str()) + words("--help"));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output, StartsWith("Usage: kirobatch " + GetParam() + " [options] FILE\n"));
    EXPECT_THAT(run.output, HasSubstr("--json"));
    EXPECT_THAT(run.output, HasSubstr("Latin-1"));
}

INSTANTIATE_TEST_SUITE_P(Commands, KirobatchCommandHelp,
                         testing::Values("info", "signals", "dump", "detect", "sacc"),
                         [](const auto& parameter) { return parameter.param; });

TEST(KirobatchHelp, OfDumpNamesEveryOption)
{
    const std::string help = runBatch(words("dump --help")).output;
    for (const char* option :
         {"--signal <NAME|INDEX>", "--first <N>", "--count <N>", "--calibrated", "--json", "--help"})
        EXPECT_THAT(help, HasSubstr(option));
}

TEST(KirobatchHelp, OfCheckAndRepairNamesTheirOptions)
{
    EXPECT_THAT(runBatch(words("check --help")).output, HasSubstr("--json"));
    EXPECT_THAT(runBatch(words("repair --help")).output, HasSubstr("--dry-run"));
}

struct WrongUsage
{
    const char* name;
    const char* arguments; ///< divided at blanks
    const char* message;
    const char* help; ///< which help the user is sent to
};

/// Names the case in lists of tests.
void PrintTo(const WrongUsage& test, std::ostream* stream)
{
    *stream << test.name;
}

class KirobatchWrongUsage : public testing::TestWithParam<WrongUsage>
{
};

TEST_P(KirobatchWrongUsage, EndsWithStatus2AndPointsToTheHelp)
{
    const BatchRun run = runBatch(words(GetParam().arguments));
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors,
              std::string("kirobatch: ") + GetParam().message + "\nTry '" + GetParam().help + "'.\n");
}

INSTANTIATE_TEST_SUITE_P(
    Cases, KirobatchWrongUsage,
    testing::Values(
        WrongUsage{
            "NoCommand", "",
            "the command is missing: give info, signals, dump, import, check, repair, detect, sacc or demo.",
            "kirobatch --help"},
        WrongUsage{"UnknownCommand", "frobnicate x.kiro", "there is no command 'frobnicate'.",
                   "kirobatch --help"},
        WrongUsage{"UnknownOverallOption", "--frobnicate", "Unknown option 'frobnicate'.",
                   "kirobatch --help"},
        WrongUsage{"InfoWithoutFile", "info", "the FILE is missing: give the path of a recording (.kiro).",
                   "kirobatch info --help"},
        WrongUsage{"SignalsWithoutFile", "signals --json",
                   "the FILE is missing: give the path of a recording (.kiro).", "kirobatch signals --help"},
        WrongUsage{"DumpWithoutFile", "dump --signal 0",
                   "the FILE is missing: give the path of a recording (.kiro).", "kirobatch dump --help"},
        WrongUsage{"CheckWithoutFile", "check", "the FILE is missing: give the path of a recording (.kiro).",
                   "kirobatch check --help"},
        WrongUsage{"RepairWithoutFile", "repair --dry-run",
                   "the FILE is missing: give the path of a recording (.kiro).", "kirobatch repair --help"},
        WrongUsage{"RepairOfTwoFiles", "repair a.kiro b.kiro",
                   "one FILE is read at a time, and 'b.kiro' is one argument too many.",
                   "kirobatch repair --help"},
        WrongUsage{"TwoFiles", "info a.kiro b.kiro",
                   "one FILE is read at a time, and 'b.kiro' is one argument too many.",
                   "kirobatch info --help"},
        WrongUsage{"FileOfACommandWithoutOne", "demo x.kiro",
                   "'x.kiro' is one argument too many: demo reads no FILE, and takes options only.",
                   "kirobatch demo --help"},
        WrongUsage{"UnknownCommandOption", "signals --signal 0 a.kiro", "Unknown option 'signal'.",
                   "kirobatch signals --help"},
        WrongUsage{"FlagWithValue", "info --json=yes a.kiro", "Unexpected value after '--json'.",
                   "kirobatch info --help"},
        WrongUsage{"DumpWithoutSignal", "dump a.kiro",
                   "the signal is missing: give its name or index with --signal.", "kirobatch dump --help"},
        WrongUsage{"EmptySignal", "dump --signal= a.kiro",
                   "the signal is missing: give its name or index with --signal.", "kirobatch dump --help"},
        WrongUsage{"ValueMissing", "dump a.kiro --signal", "Missing value after '--signal'.",
                   "kirobatch dump --help"},
        WrongUsage{"SignalTwice", "dump a.kiro --signal 0 --signal 1",
                   "option --signal is given more than once.", "kirobatch dump --help"},
        WrongUsage{"FirstNegative", "dump a.kiro --signal 0 --first -1",
                   "--first takes a whole number from 0 on, not '-1'.", "kirobatch dump --help"},
        WrongUsage{"FirstNoNumber", "dump a.kiro --signal 0 --first 1x",
                   "--first takes a whole number from 0 on, not '1x'.", "kirobatch dump --help"},
        WrongUsage{"FirstEmpty", "dump a.kiro --signal 0 --first=",
                   "--first takes a whole number from 0 on, not ''.", "kirobatch dump --help"},
        WrongUsage{"FirstTooLarge", "dump a.kiro --signal 0 --first 9223372036854775808",
                   "--first takes a whole number from 0 on, not '9223372036854775808'.",
                   "kirobatch dump --help"},
        WrongUsage{"CountZero", "dump a.kiro --signal 0 --count 0",
                   "--count takes a whole number from 1 on, not '0'.", "kirobatch dump --help"},
        WrongUsage{"CountNegative", "dump a.kiro --signal 0 --count=-3",
                   "--count takes a whole number from 1 on, not '-3'.", "kirobatch dump --help"},
        WrongUsage{"CountFraction", "dump a.kiro --signal 0 --count 1.5",
                   "--count takes a whole number from 1 on, not '1.5'.", "kirobatch dump --help"}),
    [](const auto& parameter) { return std::string(parameter.param.name); });

TEST(KirobatchUsage, DashesEndTheOptionsBeforeAFileNamedLikeOne)
{
    const TestFolder folder;
    writeRecording(folder, batchHeader({}, 0), "", QStringLiteral("-x.kiro"));
    const BatchRun run =
        runShell(QStringLiteral("cd \"$1\" && exec \"$KIROBATCH\" signals --json -- -x.kiro"),
                 {folder.path(QString())});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "[\n]\n");
}
