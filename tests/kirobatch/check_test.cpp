#include "batchprocess.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace
{

BatchRun check(const QString& file, const QStringList& options = {})
{
    return runBatch(QStringList{QStringLiteral("check")} + options + QStringList{file});
}

QJsonArray jsonOf(const BatchRun& run)
{
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(run.output));
    EXPECT_TRUE(document.isArray()) << run.output;
    return document.array();
}

class KirobatchCheck : public testing::Test
{
protected:
    /// One signal of two 16-bit samples a packet.
    QString write(std::uint32_t packets, std::size_t dataBytes) const
    {
        const KiroHeader header = batchHeader({makeSignal("a", KiroValue::SignedInt, 2, 2)}, packets);
        return writeRecording(folder, header, std::string(dataBytes, 'x'));
    }
    static std::string errorLine(const QString& file, const std::string& text)
    {
        return "kirobatch: '" + file.toStdString() + "' " + text + '\n';
    }

    TestFolder folder;
    const std::string tailLine =
        "note: data, at byte 2475: found 3 bytes behind the last whole packet, expected "
        "packets of 4 bytes; an incomplete packet is not read\n";
};

} // namespace

TEST_F(KirobatchCheck, SoundRecordingEndsWithStatus0)
{
    const BatchRun run = check(write(3, 12));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "Nothing wrong was found.\n");
    EXPECT_EQ(run.errors, "");
}

TEST_F(KirobatchCheck, NotesDoNotChangeTheStatus)
{
    const BatchRun run = check(write(3, 15));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, tailLine);
    EXPECT_EQ(run.errors, "");
}

TEST_F(KirobatchCheck, EveryFindingIsALineAndErrorsEndWithStatus1)
{
    const QString file = write(5, 15);
    const BatchRun run = check(file);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output,
              "error: packet count, at byte 2459: found 5, expected 3 as stored, in 15 bytes of data; "
              "samples are missing and can't be brought back\n" +
                  tailLine);
    EXPECT_EQ(run.errors, errorLine(file, "has 1 error and 0 warnings."));
}

TEST_F(KirobatchCheck, WarningsEndWithStatus1)
{
    const QString file = write(0, 0);
    const BatchRun run = check(file);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output,
              "warning: packet count, at byte 2459: found 0, expected 1 or more; the recording is empty\n");
    EXPECT_EQ(run.errors, errorLine(file, "has 0 errors and 1 warning."));
}

TEST_F(KirobatchCheck, FileThatIsNoRecordingIsAFinding)
{
    folder.write(QStringLiteral("text"), "abcdef");
    const BatchRun run = check(folder.path(QStringLiteral("text")));
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output,
              "error: mark, at byte 0: found 61 62 63 64 (\"abcd\"), expected F9 D7 2C 0A, or FE FF FF "
              "FF in the oldest form; it is no recording\n");
}

TEST_F(KirobatchCheck, JsonOfASoundRecordingIsAnEmptyArray)
{
    const BatchRun run = check(write(3, 12), {QStringLiteral("--json")});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "[\n]\n");
}

TEST_F(KirobatchCheck, JsonHasEveryPartOfAFinding)
{
    KiroSignal signal = makeSignal("a", KiroValue::Float, 2, 2);
    const QString file = writeRecording(folder, batchHeader({signal}, 1), "abcd12");
    const BatchRun run = check(file, {QStringLiteral("--json")});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, errorLine(file, "has 0 errors and 1 warning."));
    const QJsonArray findings = jsonOf(run);
    ASSERT_EQ(findings.size(), 2);
    const QJsonObject warning{
        {QStringLiteral("grade"), QStringLiteral("warning")},
        {QStringLiteral("field"), QStringLiteral("sampleSize")},
        {QStringLiteral("signal"), 0},
        {QStringLiteral("offset"), 2374},
        {QStringLiteral("found"), QStringLiteral("2")},
        {QStringLiteral("expected"), QStringLiteral("4 or 8 for a float")},
        {QStringLiteral("meaning"), QStringLiteral("its values read as 0")},
        {QStringLiteral("text"),
         QStringLiteral("signal 0, sample size, at byte 2374: found 2, expected 4 or 8 for a "
                        "float; its values read as 0")}};
    EXPECT_EQ(findings[0].toObject(), warning) << run.output;
    EXPECT_EQ(findings[1].toObject().value(QStringLiteral("grade")), QJsonValue(QStringLiteral("note")));
    EXPECT_EQ(findings[1].toObject().value(QStringLiteral("signal")), QJsonValue(QJsonValue::Null));
}

TEST_F(KirobatchCheck, JsonOfAFileOfTwoGibibytesHasNoOffset)
{
    const QString file = write(3, 12);
    ASSERT_TRUE(QFile::resize(file, qint64(1) << 31)); // sparse
    const BatchRun run = check(file, {QStringLiteral("--json")});
    EXPECT_EQ(run.status, 1);
    const QJsonObject finding = jsonOf(run).at(0).toObject();
    EXPECT_EQ(finding.value(QStringLiteral("field")), QJsonValue(QStringLiteral("fileSize")));
    EXPECT_EQ(finding.value(QStringLiteral("offset")), QJsonValue(QJsonValue::Null));
}

TEST_F(KirobatchCheck, FilesThatCannotBeReadAreFailures)
{
    const QString missing = folder.path(QStringLiteral("missing.kiro"));
    const BatchRun run = check(missing);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "kirobatch: cannot open '" + missing.toStdString() +
                              "': No such file or directory. Check the path.\n");

    ASSERT_TRUE(QDir().mkdir(folder.path(QStringLiteral("folder"))));
    EXPECT_EQ(check(folder.path(QStringLiteral("folder"))).status, 1);
    ASSERT_EQ(::mkfifo(QFile::encodeName(folder.path(QStringLiteral("pipe"))).constData(), 0600), 0);
    EXPECT_EQ(check(folder.path(QStringLiteral("pipe"))).status, 1);
}

TEST_F(KirobatchCheck, LeavesTheFileAlone)
{
    const QString file = write(1, 15);
    const std::string before = fileBytes(KiroString(file));
    struct stat old = {};
    ASSERT_EQ(::stat(QFile::encodeName(file).constData(), &old), 0);
    check(file);
    struct stat now = {};
    ASSERT_EQ(::stat(QFile::encodeName(file).constData(), &now), 0);
    EXPECT_EQ(fileBytes(KiroString(file)), before);
    EXPECT_EQ(now.st_mtim.tv_nsec, old.st_mtim.tv_nsec);
}

TEST_F(KirobatchCheck, LostOutputIsAFailure)
{
    const BatchRun run = runShell(QStringLiteral("\"$KIROBATCH\" check \"$1\" >/dev/full"), {write(3, 12)});
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.errors.find("cannot write to standard output"), std::string::npos) << run.errors;
}
