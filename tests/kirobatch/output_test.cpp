#include "batchprocess.h"

#include <gtest/gtest.h>

#include <cctype>

namespace
{

/// Every way to print: overall and command help, version, texts and JSON.
const std::string Printing[] = {
    "--help",
    "--version",
    "dump --help",
    "info \"$1\"",
    "info --json \"$1\"",
    "signals \"$1\"",
    "signals --json \"$1\"",
    "dump --signal 0 \"$1\"",
    "dump --json --signal 0 \"$1\"",
};

class KirobatchOutput : public testing::TestWithParam<std::string>
{
protected:
    /// Runs the command with its output sent elsewhere, as the shell writes it behind a command.
    BatchRun runWithOutput(const char* redirection) const
    {
        return runShell(QStringLiteral("exec \"$KIROBATCH\" %1 %2")
                            .arg(QString::fromStdString(GetParam()), QLatin1String(redirection)),
                        {m_file});
    }

    static void expectCannotWrite(const BatchRun& run, const std::string& reason)
    {
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors, "kirobatch: cannot write to standard output: " + reason +
                                  ". The output is incomplete; run the command again with room for all of "
                                  "it.\n");
    }

    const QString& file() const { return m_file; }

private:
    TestFolder m_folder;
    QString m_file =
        writeRecording(m_folder, batchHeader({makeSignal("a", KiroValue::SignedInt, 2, 1)}, 3), "abcdef");
};

} // namespace

TEST_P(KirobatchOutput, FullDiskIsAFailure)
{
    expectCannotWrite(runWithOutput(">/dev/full"), "No space left on device");
}

TEST_P(KirobatchOutput, ClosedOutputIsAFailure)
{
    expectCannotWrite(runWithOutput(">&-"), "Bad file descriptor");
}

TEST_P(KirobatchOutput, ClosedPipeIsAFailure)
{
    expectCannotWrite(
        runShellIntoClosedPipe(
            QStringLiteral("exec \"$KIROBATCH\" %1").arg(QString::fromStdString(GetParam())), {file()}),
        "Broken pipe");
}

TEST_P(KirobatchOutput, ClosedInputAndErrorsDoNoHarm)
{
    const std::string before = fileBytes(KiroString(file()));
    const BatchRun run = runWithOutput("<&- 2>&-");
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.output, "");
    EXPECT_EQ(fileBytes(KiroString(file())), before);
}

INSTANTIATE_TEST_SUITE_P(Printing, KirobatchOutput, testing::ValuesIn(Printing), [](const auto& parameter) {
    std::string name;
    for (const char c : parameter.param) {
        if (std::isalnum(static_cast<unsigned char>(c)) && c != '1')
            name += c;
    }
    return name;
});

TEST(KirobatchLongOutput, StopsWhenItsReaderGoes)
{
    const TestFolder folder;
    const auto header = batchHeader({makeSignal("a", KiroValue::UnsignedInt, 1, 1)}, 3000000);
    const QString file = writeRecording(folder, header, std::string(3000000, 'A'));
    const BatchRun run = runShell(
        QStringLiteral("{ { \"$KIROBATCH\" dump --signal 0 \"$1\"; echo $? >&3; } | head -n 2; } 3>&1"),
        {file});
    EXPECT_EQ(run.output, "65\n65\n1\n");
    EXPECT_EQ(run.errors,
              "kirobatch: cannot write to standard output: Broken pipe. The output is incomplete; "
              "run the command again with room for all of it.\n");
}

TEST(KirobatchLongOutput, FileSizeLimitIsAFailure)
{
    const TestFolder folder;
    const auto header = batchHeader({makeSignal("a", KiroValue::UnsignedInt, 1, 1)}, 100000);
    const QString file = writeRecording(folder, header, std::string(100000, 'A'));
    // 8 blocks of 512 bytes.
    const BatchRun run =
        runShell(QStringLiteral("ulimit -f 8; exec \"$KIROBATCH\" dump --signal 0 \"$1\" >\"$2\""),
                 {file, folder.path(QStringLiteral("out.txt"))});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, "kirobatch: cannot write to standard output: File too large. The output is "
                          "incomplete; run the command again with room for all of it.\n");
}
