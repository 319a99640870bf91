#include "batchprocess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::StartsWith;

namespace
{

const QString Corpus = QStringLiteral(KIRO_TEST_DATA "/formats/bdf/");
const QString Real = QStringLiteral(KIRO_TEST_DATA "/real/");

class KirobatchImport : public testing::Test
{
protected:
    /// A copy in the test's folder of a file of the corpus.
    QString copy(const QString& original, const QString& name = QStringLiteral("a.b.bdf"))
    {
        const QString path = m_folder.path(name);
        EXPECT_TRUE(QFile::copy(original, path)) << original.toStdString();
        return path;
    }
    QString plain() { return copy(Corpus + QStringLiteral("plain.bdf")); }
    std::string bytes(const QString& name) const { return fileBytes(KiroString(m_folder.path(name))); }
    QStringList files() const { return QDir(m_folder.path(QString())).entryList(QDir::Files | QDir::Hidden); }

    static BatchRun import(const QString& file, const QStringList& options = {})
    {
        return runBatch(QStringList{QStringLiteral("import"), file} + options);
    }

    TestFolder m_folder;
};

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

std::string bytesOf(const QString& path)
{
    return fileBytes(KiroString(path));
}

} // namespace

TEST_F(KirobatchImport, WritesTheRecordingBesideTheFileAndSaysSo)
{
    const BatchRun run = import(plain());
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "'" + m_folder.path(QStringLiteral("a.b.kiro")).toStdString() +
                              "': written, with 2 signals and 3 packets.\n");
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(bytes(QStringLiteral("a.b.kiro")), bytesOf(Corpus + QStringLiteral("plain.bdf.0.convert.out")));
    EXPECT_EQ(files().size(), 2);
}

TEST_F(KirobatchImport, WritesWhereItIsTold)
{
    const QString out = m_folder.path(QStringLiteral("other.kiro"));
    const BatchRun run = import(plain(), {QStringLiteral("-o"), out});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(bytesOf(out), bytesOf(Corpus + QStringLiteral("plain.bdf.0.convert.out")));
    EXPECT_EQ(files().size(), 2);
}

TEST_F(KirobatchImport, TakesARangeOfRecords)
{
    const QString file = plain();
    const std::string whole = bytesOf(Corpus + QStringLiteral("plain.bdf.0.convert.out"));
    const std::string packets = whole.substr(whole.size() - 3 * 24);
    const auto packetsOf = [&](const char* options) {
        const BatchRun run = import(file, words(options) + words("--force"));
        EXPECT_EQ(run.status, 0) << run.errors;
        return bytes(QStringLiteral("a.b.kiro")).substr(whole.size() - 3 * 24);
    };
    EXPECT_TRUE(packetsOf("--first 1") == packets.substr(24));
    EXPECT_TRUE(packetsOf("--last 0") == packets.substr(0, 24));
    EXPECT_TRUE(packetsOf("--first 1 --last 1") == packets.substr(24, 24));
    EXPECT_TRUE(packetsOf("--first 2 --last 1") == packets.substr(48));
    EXPECT_TRUE(packetsOf("--last 2147483647") == packets);
}

TEST_F(KirobatchImport, FirstRecordBehindTheEndFails)
{
    const QString file = plain();
    const BatchRun run = import(file, words("--first 3"));
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "kirobatch: cannot import '" + file.toStdString() +
                              "': Incorrect value of first data record (3 of 3).\n");
    EXPECT_EQ(files().size(), 1);
}

TEST_F(KirobatchImport, TakesTheWidthThatItIsGiven)
{
    // The corpus has the same file with 3 bytes announced and with another reserved text.
    const QString file = copy(Corpus + QStringLiteral("bdf_16bit.bdf"));
    const BatchRun narrow = import(file);
    EXPECT_EQ(narrow.status, 0);
    EXPECT_EQ(
        narrow.errors,
        "kirobatch: The file is a BDF file, but its reserved field holds \"24 BIT\" and not \"24BIT\": its "
        "samples are read as 16-bit numbers. Give --sample-bytes 3 if they are 24-bit numbers.\n");
    EXPECT_EQ(bytes(QStringLiteral("a.b.kiro")),
              bytesOf(Corpus + QStringLiteral("bdf_16bit.bdf.0.convert.out")));
    const BatchRun wide = import(file, words("--force --sample-bytes 3"));
    EXPECT_EQ(wide.status, 0);
    EXPECT_EQ(wide.errors, "");
    // Two records of 6 samples behind a header with two signals, now of 4 bytes each.
    const std::string recording = bytes(QStringLiteral("a.b.kiro"));
    ASSERT_EQ(recording.size(), 2202u + 2 * 261 + 2 * 6 * 4);
    EXPECT_EQ(recording.substr(2198 + 176, 4), bigEndian(4, 4));
    const std::string data = bytesOf(file).substr(768);
    EXPECT_EQ(recording.substr(2724 + 1, 3), std::string({data[2], data[1], data[0]}));
}

TEST_F(KirobatchImport, PrintsTheRemarksOnARealFile)
{
    const QString out = m_folder.path(QStringLiteral("out.kiro"));
    const BatchRun run =
        import(Real + QStringLiteral("sleep_7ch_mixed_rates.edf"), {QStringLiteral("-o"), out});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "'" + out.toStdString() + "': written, with 7 signals and 10 packets.\n");
    EXPECT_EQ(run.errors,
              "kirobatch: The import keeps no offset, so that physical zero reads as another value in: "
              "EEG Pz-Oz (0.452015 uV), Temp rectal (-37.0634 DegC).\n");
}

TEST_F(KirobatchImport, ExistingRecordingIsReplacedOnlyByForce)
{
    const QString file = plain();
    m_folder.write(QStringLiteral("a.b.kiro"), "old");
    const BatchRun run = import(file);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "kirobatch: '" + m_folder.path(QStringLiteral("a.b.kiro")).toStdString() +
                              "' is there already. Give --force to replace it, or another path with -o.\n");
    EXPECT_EQ(bytes(QStringLiteral("a.b.kiro")), "old");
    EXPECT_EQ(import(file, words("--force")).status, 0);
    EXPECT_EQ(bytes(QStringLiteral("a.b.kiro")), bytesOf(Corpus + QStringLiteral("plain.bdf.0.convert.out")));
}

TEST_F(KirobatchImport, FileIsNeverReplacedByItsRecording)
{
    const QString file = copy(Corpus + QStringLiteral("plain.bdf"), QStringLiteral("x.kiro"));
    const QString link = m_folder.path(QStringLiteral("link.kiro"));
    ASSERT_TRUE(QFile::link(file, link));
    const std::string before = bytesOf(file);
    for (const QStringList& options :
         {words("--force"), QStringList{QStringLiteral("--force"), QStringLiteral("-o"), link}}) {
        const BatchRun run = import(file, options);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors,
                  "kirobatch: the output would replace FILE itself: give another path with -o.\nTry "
                  "'kirobatch import --help'.\n");
        EXPECT_TRUE(bytesOf(file) == before);
    }
}

TEST_F(KirobatchImport, RefusedFileGivesTheReasonAndWritesNothing)
{
    const QString file = copy(Corpus + QStringLiteral("refused_pmin_1.bdf"));
    const BatchRun run = import(file);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "kirobatch: cannot import '" + file.toStdString() +
                              "': Incorrect value of physical minimum (x) for channel A2 (no 2).\n");
    EXPECT_EQ(files().size(), 1);
}

TEST_F(KirobatchImport, MissingFileIsNamed)
{
    const QString file = m_folder.path(QStringLiteral("no such.edf"));
    const BatchRun run = import(file);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, "kirobatch: cannot import '" + file.toStdString() + "': Failed to open file " +
                              file.toStdString() + ".\n");
}

TEST_F(KirobatchImport, ControlCharactersOfAFileDoNotReachTheTerminal)
{
    const QString file = copy(Corpus + QStringLiteral("refused_first_low.bdf"));
    EXPECT_EQ(import(file).errors, "kirobatch: cannot import '" + file.toStdString() +
                                       "': Identification code not recognized (?, hex 0x05).\n");
}

TEST_F(KirobatchImport, FullDiskLeavesNothing)
{
    const QString file = copy(Real + QStringLiteral("biosemi_17ch_256hz.bdf"));
    const QString out = m_folder.path(QStringLiteral("a.b.kiro"));
    const BatchRun run = runShell(QStringLiteral("ulimit -f 100; exec \"$KIROBATCH\" import \"$1\""), {file});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_THAT(run.errors, StartsWith("kirobatch: cannot import '" + file.toStdString() +
                                       "': Failed to write file " + out.toStdString() + " ("));
    EXPECT_EQ(files().size(), 1);
}

TEST_F(KirobatchImport, InterruptLeavesNothing)
{
    // Sparse, and long enough to be caught in the middle.
    const QString file = plain();
    QFile source(file);
    ASSERT_TRUE(source.open(QIODevice::ReadWrite));
    ASSERT_TRUE(source.seek(236));
    ASSERT_EQ(source.write("80000000"), 8); // records of 18 bytes, packets of 24
    source.close();
    // Killed once it has a second file in the folder open, be it one without a name.
    const BatchRun run =
        runShell(QStringLiteral("\"$KIROBATCH\" import \"$1\" & job=$!; "
                                "until [ -n \"$(find /proc/$job/fd 2>/dev/null -lname \"$2/*\" ! -lname "
                                "\"$1\")\" ]; do sleep 0.01; done; kill -TERM $job; wait $job"),
                 {file, QFileInfo(file).path()});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors,
              "kirobatch: cannot import '" + file.toStdString() + "': interrupted, nothing was written.\n");
    EXPECT_EQ(files().size(), 1);
}

TEST_F(KirobatchImport, HelpNamesEveryOption)
{
    const BatchRun run = runBatch(words("import --help"));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output, StartsWith("Usage: kirobatch import [options] FILE\n"));
    for (const char* option :
         {"-o <OUT>", "--force", "--first <N>", "--last <N>", "--sample-bytes <2|3>", "--help"})
        EXPECT_THAT(run.output, HasSubstr(option));
}

namespace
{

struct WrongImport
{
    const char* name;
    const char* arguments; ///< divided at blanks
    const char* message;
};

/// Names the case in lists of tests.
void PrintTo(const WrongImport& test, std::ostream* stream)
{
    *stream << test.name;
}

class KirobatchImportUsage : public testing::TestWithParam<WrongImport>
{
};

} // namespace

TEST_P(KirobatchImportUsage, EndsWithStatus2AndPointsToTheHelp)
{
    const BatchRun run = runBatch(words("import") + words(GetParam().arguments));
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors,
              std::string("kirobatch: ") + GetParam().message + "\nTry 'kirobatch import --help'.\n");
}

INSTANTIATE_TEST_SUITE_P(
    Cases, KirobatchImportUsage,
    testing::Values(
        WrongImport{"FirstNegative", "a.bdf --first=-1",
                    "--first takes a whole number from 0 to 2147483647, not '-1'."},
        WrongImport{"FirstTooLarge", "a.bdf --first 2147483648",
                    "--first takes a whole number from 0 to 2147483647, not '2147483648'."},
        WrongImport{"LastNoNumber", "a.bdf --last end",
                    "--last takes a whole number from 0 to 2147483647, not 'end'."},
        WrongImport{"LastEmpty",
                    "a.bdf --last=", "--last takes a whole number from 0 to 2147483647, not ''."},
        WrongImport{"WidthOfFour", "a.bdf --sample-bytes 4", "--sample-bytes takes 2 or 3, not '4'."},
        WrongImport{"WidthInBits", "a.bdf --sample-bytes 24", "--sample-bytes takes 2 or 3, not '24'."},
        WrongImport{"EmptyOutput",
                    "a.bdf -o=", "the output is empty: give the path of a recording (.kiro) with -o."},
        WrongImport{"ForceWithValue", "a.bdf --force=yes", "Unexpected value after '--force'."},
        WrongImport{"NoFile", "--force", "the FILE is missing: give the path of a BDF or EDF file."},
        WrongImport{"OutputTwice", "a.bdf -o x -o y", "option -o is given more than once."},
        WrongImport{"TwoFiles", "a.bdf b.bdf",
                    "one FILE is read at a time, and 'b.bdf' is one argument too many."}),
    [](const auto& row) { return std::string(row.param.name); });
