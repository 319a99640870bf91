#include "recordingrepair.h"

#include "recordingfile.h"

#include <QFile>

#include <gtest/gtest.h>

#include <limits>

#include <sys/stat.h>

namespace
{

using Outcome = RepairResult::Outcome;

/// Of a version 12 header with one signal.
constexpr std::size_t FrameCountOffset = 2459;
constexpr std::size_t HeaderSize = 2463;

/// `bytes` with another declared frame count.
std::string withFrameCount(std::string bytes, std::uint32_t count, std::size_t offset = FrameCountOffset)
{
    return bytes.replace(offset, 4, bigEndian(count, 4));
}

class RecordingRepair : public testing::Test
{
protected:
    /// A recording with one signal of ten 16-bit samples a frame, and this much data behind its header.
    KiroString write(std::uint32_t declared, std::size_t dataBytes)
    {
        const KiroSignal signal = makeSignal("a", KiroValue::SignedInt, 2, 10);
        m_bytes = recordingBytes(makeHeader({signal}, declared), noise(dataBytes));
        return m_folder.write(QStringLiteral("r.kiro"), m_bytes);
    }
    KiroString path() const { return KiroString(m_folder.path(QStringLiteral("r.kiro"))); }
    std::string name() const { return path().bytes(); }

    void expectRefused(const RepairResult& result, Outcome outcome, const std::string& reason) const
    {
        EXPECT_FALSE(result.ok());
        EXPECT_EQ(result.outcome, outcome);
        EXPECT_EQ(result.logText.toStdString(), "DataFileCenter::repairFile(QString) - " + reason);
    }

    TestFolder m_folder;
    std::string m_bytes; // as written
};

} // namespace

TEST_F(RecordingRepair, ZeroDeclaredOfAThousandFramesBecomesAThousand)
{
    const RepairResult result = repairRecording(write(0, 20000));
    EXPECT_TRUE(result.ok());
    EXPECT_EQ(result.logText, QString());
    EXPECT_EQ(result.headerVersion, 12u);
    EXPECT_EQ(result.declaredFrames, 0u);
    EXPECT_EQ(result.calculatedFrames, 1000);
    EXPECT_EQ(result.dataBytes, 20000);
    EXPECT_EQ(result.declaredBytes, 0);
    EXPECT_EQ(result.tailBytes, 0);
    EXPECT_EQ(fileBytes(path()), withFrameCount(m_bytes, 1000));
}

TEST_F(RecordingRepair, IncompleteFrameStaysBehindTheLastWholeOne)
{
    const RepairResult result = repairRecording(write(999, 20013));
    EXPECT_TRUE(result.ok());
    EXPECT_EQ(result.declaredFrames, 999u);
    EXPECT_EQ(result.calculatedFrames, 1000);
    EXPECT_EQ(result.tailBytes, 13);
    EXPECT_EQ(fileBytes(path()), withFrameCount(m_bytes, 1000));
}

TEST_F(RecordingRepair, FileShorterThanDeclaredIsRefusedAndLeftAlone)
{
    const RepairResult result = repairRecording(write(1000, 19999));
    expectRefused(result, Outcome::DataTooShort,
                  "real data size (19999) is smaller than size declared in the header (20000), cannot repair "
                  "file (" +
                      name() + ")");
    EXPECT_EQ(result.calculatedFrames, 999);
    EXPECT_EQ(fileBytes(path()), m_bytes);
}

TEST_F(RecordingRepair, LessThanAFrameIsRefused)
{
    expectRefused(repairRecording(write(0, 19)), Outcome::NoWholeFrame,
                  "no calculated frames for the file " + name());
    EXPECT_EQ(fileBytes(path()), m_bytes);
}

TEST_F(RecordingRepair, SignalsWithoutSamplesAreRefused)
{
    const KiroSignal empty = makeSignal("a", KiroValue::SignedInt, 2, 0);
    m_folder.write(QStringLiteral("r.kiro"), recordingBytes(makeHeader({empty}, 0), "data"));
    expectRefused(repairRecording(path()), Outcome::NoWholeFrame,
                  "no calculated frames for the file " + name());
}

TEST_F(RecordingRepair, HeaderThatIsCutIsRefused)
{
    write(0, 0);
    m_folder.write(QStringLiteral("r.kiro"), m_bytes.substr(0, HeaderSize - 7));
    expectRefused(
        repairRecording(path()), Outcome::DataTooShort,
        "real data size (-7) is smaller than size declared in the header (0), cannot repair file (" + name() +
            ")");
    EXPECT_EQ(fileBytes(path()).size(), HeaderSize - 7);
}

TEST_F(RecordingRepair, HugeFramesDoNotOverflow)
{
    KiroSignal huge = makeSignal("a", KiroValue::SignedInt, 8, 0xffffffff);
    const std::vector<KiroSignal> table(255, huge);
    m_folder.write(QStringLiteral("r.kiro"), recordingBytes(makeHeader(table, 0xffffffff), "data"));
    const RepairResult result = repairRecording(path());
    EXPECT_EQ(result.outcome, Outcome::DataTooShort);
    EXPECT_EQ(result.declaredBytes, std::numeric_limits<std::int64_t>::max());
}

TEST_F(RecordingRepair, WhatIsNoRecordingIsRefused)
{
    m_folder.write(QStringLiteral("r.kiro"), "This is a text.\n");
    expectRefused(repairRecording(path()), Outcome::NoHeader, "can't load header for file " + name());
    m_folder.write(QStringLiteral("r.kiro"), "");
    expectRefused(repairRecording(path()), Outcome::NoHeader, "can't load header for file " + name());
}

TEST_F(RecordingRepair, MissingFileIsRefused)
{
    expectRefused(repairRecording(path()), Outcome::NoHeader, "can't load header for file " + name());
}

TEST_F(RecordingRepair, FileOfTwoGibibytesIsRefused)
{
    write(0, 0);
    ASSERT_TRUE(QFile::resize(path().toQString(), qint64(1) << 31)); // sparse
    expectRefused(repairRecording(path()), Outcome::TooLarge,
                  "file size 2147483648 is too large, sizes below 2147483648 can be repaired (" + name() +
                      ")");
}

TEST_F(RecordingRepair, CountOfAFileJustBelowTwoGibibytesIsRaised)
{
    write(5, 0);
    ASSERT_TRUE(QFile::resize(path().toQString(), (qint64(1) << 31) - 1)); // sparse
    const RepairResult result = repairRecording(path());
    EXPECT_TRUE(result.ok());
    EXPECT_EQ(result.calculatedFrames, 107374059); // (2147483647 - 2463) / 20
}

TEST_F(RecordingRepair, ANameWithPlaceholdersIsNoTrouble)
{
    const KiroString odd = m_folder.write(QStringLiteral("%1 %2 %3.kiro"), "no recording");
    expectRefused(repairRecording(odd), Outcome::NoHeader, "can't load header for file " + odd.bytes());
}

TEST_F(RecordingRepair, DryRunTellsTheSameAndLeavesTheFileAlone)
{
    write(0, 20013);
    struct stat before = {};
    ASSERT_EQ(::stat(path().c_str(), &before), 0);
    const RepairResult result = repairRecording(path(), {true});
    struct stat after = {};
    ASSERT_EQ(::stat(path().c_str(), &after), 0);
    EXPECT_TRUE(result.ok());
    EXPECT_FALSE(result.countIsRight());
    EXPECT_EQ(result.calculatedFrames, 1000);
    EXPECT_EQ(result.tailBytes, 13);
    EXPECT_EQ(fileBytes(path()), m_bytes);
    EXPECT_EQ(after.st_mtim.tv_sec, before.st_mtim.tv_sec);
    EXPECT_EQ(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
}

TEST_F(RecordingRepair, RightCountIsTold)
{
    const RepairResult result = repairRecording(write(1000, 20013), {true});
    EXPECT_TRUE(result.ok());
    EXPECT_TRUE(result.countIsRight());
}

TEST_F(RecordingRepair, RightCountIsConfirmedByTheSameBytes)
{
    EXPECT_TRUE(repairRecording(write(1000, 20013)).ok());
    EXPECT_EQ(fileBytes(path()), m_bytes);
}

TEST_F(RecordingRepair, LegacyFileKeepsItsFormOfEightBytes)
{
    const std::string data = noise(3 * 136 + 10);
    const KiroString file = m_folder.write(QStringLiteral("legacy.kiro"),
                                           littleEndian(0xfffffffe, 4) + littleEndian(1, 4) + data);
    const RepairResult result = repairRecording(file);
    EXPECT_TRUE(result.ok());
    EXPECT_EQ(result.headerVersion, 2u);
    EXPECT_EQ(result.declaredFrames, 1u);
    EXPECT_EQ(result.calculatedFrames, 3);
    EXPECT_EQ(fileBytes(file), littleEndian(0xfffffffe, 4) + littleEndian(3, 4) + data);
}

TEST_F(RecordingRepair, VersionWithTextsOfTheirOwnLengthKeepsIt)
{
    const auto bytesWith = [](std::uint32_t frames) {
        ByteBuilder header;
        header.u32(0xf9d72c0a).u32(3).u32(83).wide("Prog").wide("");
        header.u8(1).u8(2).u16(2008).u8(10).u8(20).u8(1);
        header.wide("Long").wide("s").u32(250).u8(1).u8(2).u8(2);
        header.u32(frames);
        return header.bytes() + noise(13);
    };
    const KiroString file = m_folder.write(QStringLiteral("v3.kiro"), bytesWith(0));
    const RepairResult result = repairRecording(file);
    EXPECT_TRUE(result.ok());
    EXPECT_EQ(result.headerVersion, 3u);
    EXPECT_EQ(result.calculatedFrames, 3); // 4 bytes each
    EXPECT_EQ(result.tailBytes, 1);
    const std::string repaired = fileBytes(file);
    const std::string expected = bytesWith(3);
    // The header size, which nothing trusts, is written as it is computed.
    EXPECT_EQ(repaired.substr(0, 8) + repaired.substr(12), expected.substr(0, 8) + expected.substr(12));
    EXPECT_EQ(repaired.substr(8, 4), bigEndian(expected.size() - 13, 4));
}
