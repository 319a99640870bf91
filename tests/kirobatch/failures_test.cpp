#include "batchprocess.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace
{

/// A command with what it needs besides the file.
struct BatchCommand
{
    const char* name;
    QStringList arguments;
};

const BatchCommand Commands[] = {
    {"info", {QStringLiteral("info")}},
    {"infoJson", {QStringLiteral("info"), QStringLiteral("--json")}},
    {"signals", {QStringLiteral("signals")}},
    {"signalsJson", {QStringLiteral("signals"), QStringLiteral("--json")}},
    {"dump", {QStringLiteral("dump"), QStringLiteral("--signal"), QStringLiteral("0")}},
    {"dumpJson",
     {QStringLiteral("dump"), QStringLiteral("--json"), QStringLiteral("--signal"), QStringLiteral("0")}},
};

/// Names the case in lists of tests.
void PrintTo(const BatchCommand& command, std::ostream* stream)
{
    *stream << command.name;
}

class KirobatchFailure : public testing::TestWithParam<BatchCommand>
{
protected:
    QString path(const char* name) const { return folder.path(QString::fromLatin1(name)); }

    /// The command on `file` ends with status 1, prints nothing and gives this reason.
    void expectCannotOpen(const QString& file, const std::string& reason) const
    {
        expectFailure(runBatch(GetParam().arguments + QStringList{file}), file, reason);
    }

    static void expectFailure(const BatchRun& run, const QString& file, const std::string& reason)
    {
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors,
                  "kirobatch: cannot open '" + file.toLocal8Bit().toStdString() + "': " + reason + "\n");
    }

    TestFolder folder;
};

constexpr const char* NoRecording = "it is no recording, or its header is damaged. Check that it is a .kiro "
                                    "file; import files of other formats first.";

} // namespace

TEST_P(KirobatchFailure, MissingFile)
{
    expectCannotOpen(path("missing.kiro"), "No such file or directory. Check the path.");
}

TEST_P(KirobatchFailure, FolderInPlaceOfAFile)
{
    ASSERT_TRUE(QDir().mkdir(path("folder.kiro")));
    expectCannotOpen(path("folder.kiro"), "it is a folder. Give the path of a recording (.kiro) in it.");
}

TEST_P(KirobatchFailure, PipeThatNobodyFeeds)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    expectCannotOpen(path("pipe"), "it is a pipe or device. Save the recording as a file first.");
}

TEST_P(KirobatchFailure, FileThatMayNotBeRead)
{
    folder.write(QStringLiteral("secret.kiro"), batchHeader({}, 0).toBytes());
    ASSERT_TRUE(QFile::setPermissions(path("secret.kiro"), QFileDevice::Permissions()));
    expectFailure(runBatchWithoutPrivilege(GetParam().arguments + QStringList{path("secret.kiro")}),
                  path("secret.kiro"), "Permission denied. Check that you may read the file.");
}

TEST_P(KirobatchFailure, EmptyFile)
{
    folder.write(QStringLiteral("empty.kiro"), "");
    expectCannotOpen(path("empty.kiro"), "it is empty. Check that the recording was copied whole.");
}

TEST_P(KirobatchFailure, TextFile)
{
    folder.write(QStringLiteral("text.kiro"), "This is a text, not a recording.\n");
    expectCannotOpen(path("text.kiro"), NoRecording);
}

TEST_P(KirobatchFailure, HeaderCutBeforeItsSignalTable)
{
    const auto signal = makeSignal("a", KiroValue::SignedInt, 2, 5);
    const auto header = batchHeader({signal, signal, signal}, 3);
    folder.write(QStringLiteral("cut.kiro"), header.toBytes().substr(0, 2198));
    expectCannotOpen(path("cut.kiro"), NoRecording);
}

TEST_P(KirobatchFailure, SamplesLargerThanANumber)
{
    const auto header = batchHeader(
        {makeSignal("a", KiroValue::SignedInt, 2, 5), makeSignal("b", KiroValue::Object, 9, 1)}, 0);
    expectCannotOpen(writeRecording(folder, header, ""),
                     "its header is damaged: samples of signal 1 have 9 bytes, and at most 8 are possible. "
                     "Look for another copy of the file.");
}

TEST_P(KirobatchFailure, FileOfTwoGibibytes)
{
    const auto header = batchHeader({makeSignal("a", KiroValue::SignedInt, 2, 5)}, 3);
    const QString file = writeRecording(folder, header, "");
    ASSERT_TRUE(QFile::resize(file, qint64(1) << 31)); // sparse
    expectCannotOpen(file, "it has 2147483648 bytes, and only files below 2147483648 can be read. Record or "
                           "save it in parts.");
}

TEST_P(KirobatchFailure, NamesAFileOutsideAscii)
{
    expectCannotOpen(folder.path(QStringLiteral("\u017c\u00f3\u0142w.kiro")),
                     "No such file or directory. Check the path.");
}

TEST_P(KirobatchFailure, OpensAFileWhoseNameIsNoUtf8)
{
    const auto header = batchHeader({makeSignal("a", KiroValue::SignedInt, 2, 1)}, 1);
    const QString file = writeRecording(folder, header, "ab");
    const BatchRun run =
        runShell(QStringLiteral("name=$2/$(printf 'caf\\351'); mv \"$1\" \"$name\"; shift 2; "
                                "\"$KIROBATCH\" \"$@\" \"$name\"; status=$?; rm \"$name\"; exit $status"),
                 QStringList{file, folder.path(QString())} + GetParam().arguments);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_NE(run.output, "");
}

INSTANTIATE_TEST_SUITE_P(Commands, KirobatchFailure, testing::ValuesIn(Commands),
                         [](const auto& parameter) { return std::string(parameter.param.name); });
