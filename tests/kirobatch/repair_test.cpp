#include "batchprocess.h"

#include <QFile>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace
{

/// Of a header with one signal.
constexpr std::size_t PacketCountOffset = 2459;

class KirobatchRepair : public testing::Test
{
protected:
    /// One signal of two 16-bit samples a packet.
    void write(std::uint32_t packets, std::size_t dataBytes)
    {
        const KiroHeader header = batchHeader({makeSignal("a", KiroValue::SignedInt, 2, 2)}, packets);
        m_file = writeRecording(m_folder, header, std::string(dataBytes, 'x'));
        m_bytes = content();
        ASSERT_EQ(::stat(QFile::encodeName(m_file).constData(), &m_before), 0);
    }
    BatchRun repair(const QStringList& options = {}) const
    {
        return runBatch(QStringList{QStringLiteral("repair")} + options + QStringList{m_file});
    }
    std::string content() const { return fileBytes(KiroString(m_file)); }
    std::string name() const { return '\'' + m_file.toStdString() + '\''; }

    void expectRepairedTo(std::uint32_t packets) const
    {
        std::string expected = m_bytes;
        EXPECT_EQ(content(), expected.replace(PacketCountOffset, 4, bigEndian(packets, 4)));
    }
    void expectUntouched() const
    {
        struct stat now = {};
        ASSERT_EQ(::stat(QFile::encodeName(m_file).constData(), &now), 0);
        EXPECT_EQ(content(), m_bytes);
        EXPECT_EQ(now.st_mtim.tv_sec, m_before.st_mtim.tv_sec);
        EXPECT_EQ(now.st_mtim.tv_nsec, m_before.st_mtim.tv_nsec);
        EXPECT_EQ(now.st_ino, m_before.st_ino);
    }
    void expectRefused(const BatchRun& run, const std::string& reason) const
    {
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors, "kirobatch: " + reason + '\n');
        expectUntouched();
    }

    TestFolder m_folder;
    QString m_file;
    std::string m_bytes; // as written
    struct stat m_before = {};
};

} // namespace

TEST_F(KirobatchRepair, TellsWhatWasDeclaredAndWhatWasSet)
{
    write(0, 4000);
    const BatchRun run = repair();
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.output, name() + ": the header declared 0 packets and is now set to 1000.\n");
    expectRepairedTo(1000);
}

TEST_F(KirobatchRepair, TellsOfTheIncompletePacketThatStays)
{
    write(999, 4003);
    const BatchRun run = repair();
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, name() + ": the header declared 999 packets and is now set to 1000.\n"
                                   "Behind the last packet 3 bytes of an incomplete one stay.\n");
    expectRepairedTo(1000);
}

TEST_F(KirobatchRepair, RepairedFilePassesTheCheckAndNeedsNoMore)
{
    write(999, 4000);
    ASSERT_EQ(repair().status, 0);
    EXPECT_EQ(runBatch({QStringLiteral("check"), m_file}).status, 0);
    EXPECT_EQ(repair().output,
              name() + ": nothing to repair, the header declares 1000 packets and the file holds them.\n");
}

TEST_F(KirobatchRepair, DryRunTellsWhatItWouldDoAndChangesNothing)
{
    write(999, 4001);
    const BatchRun run = repair({QStringLiteral("--dry-run")});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.output, name() + ": the header declared 999 packets and would be set to 1000.\n"
                                   "Behind the last packet 1 byte of an incomplete one would stay.\n");
    expectUntouched();
}

TEST_F(KirobatchRepair, HealthyFileIsLeftAlone)
{
    write(1, 7);
    for (const QStringList& options : {QStringList(), QStringList{QStringLiteral("--dry-run")}}) {
        const BatchRun run = repair(options);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.errors, "");
        EXPECT_EQ(run.output,
                  name() + ": nothing to repair, the header declares 1 packet and the file holds it.\n");
        expectUntouched();
    }
}

TEST_F(KirobatchRepair, FileShorterThanDeclaredIsRefused)
{
    write(1000, 3999);
    for (const QStringList& options : {QStringList(), QStringList{QStringLiteral("--dry-run")}})
        expectRefused(repair(options),
                      "cannot repair " + name() +
                          ": its header declares 1000 packets and the file holds only 999, so that "
                          "samples are lost. Look for another copy of the file.");
}

TEST_F(KirobatchRepair, FileThatEndsInsideItsHeaderIsRefused)
{
    write(0, 0);
    ASSERT_TRUE(QFile::resize(m_file, qint64(PacketCountOffset)));
    m_bytes = content();
    ::stat(QFile::encodeName(m_file).constData(), &m_before);
    expectRefused(repair(), "cannot repair " + name() +
                                ": it ends inside its header. Look for another copy of the file.");
}

TEST_F(KirobatchRepair, FileWithoutAWholePacketIsRefused)
{
    write(0, 3);
    expectRefused(repair(), "cannot repair " + name() + ": it holds no whole packet.");
}

TEST_F(KirobatchRepair, FileThatMayNotBeWrittenIsRefused)
{
    write(0, 4000);
    ASSERT_TRUE(QFile::setPermissions(m_file, QFileDevice::ReadOwner));
    for (const QStringList& options : {QStringList(), QStringList{QStringLiteral("--dry-run")}})
        expectRefused(
            runBatchWithoutPrivilege(QStringList{QStringLiteral("repair")} + options + QStringList{m_file}),
            "cannot repair " + name() +
                ": it does not let itself be written. Check that you may write the file.");
}

TEST_F(KirobatchRepair, HealthyFileThatMayNotBeWrittenNeedsNothing)
{
    write(1000, 4000);
    ASSERT_TRUE(QFile::setPermissions(m_file, QFileDevice::ReadOwner));
    EXPECT_EQ(runBatchWithoutPrivilege({QStringLiteral("repair"), m_file}).status, 0);
}

TEST_F(KirobatchRepair, WhatIsNoRecordingIsRefused)
{
    write(0, 0);
    m_folder.write(QStringLiteral("recording.kiro"), "This is a text.\n");
    m_bytes = content();
    ::stat(QFile::encodeName(m_file).constData(), &m_before);
    expectRefused(repair(),
                  "cannot open " + name() +
                      ": it is no recording, or its header is damaged. Check that it is a .kiro file; "
                      "import files of other formats first.");
}

TEST_F(KirobatchRepair, MissingFileIsRefused)
{
    m_file = m_folder.path(QStringLiteral("missing.kiro"));
    const BatchRun run = repair();
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors,
              "kirobatch: cannot open " + name() + ": No such file or directory. Check the path.\n");
}

TEST_F(KirobatchRepair, FileOfTwoGibibytesIsRefused)
{
    write(0, 0);
    ASSERT_TRUE(QFile::resize(m_file, qint64(1) << 31)); // sparse
    const BatchRun run = repair();
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors,
              "kirobatch: cannot open " + name() +
                  ": it has 2147483648 bytes, and only files below 2147483648 can be read. Record or "
                  "save it in parts.\n");
}
