#include "kiroreader.h"

#include "filesizelimit.h"
#include "kirofile.h"
#include "recordingfile.h"
#include "reference/headermove.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <memory>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

/// Header of version `version` (3 to 5, where texts have their own lengths) with one 2-byte signal.
std::string oldHeader(std::uint32_t version, const std::string& notes, std::uint32_t frames)
{
    ByteBuilder b;
    b.u32(0xf9d72c0a).u32(version).u32(0).wide("prog").wide(notes).u8(1).u8(1).u16(2000).u8(0).u8(0);
    if (version >= 4)
        b.u8(0);
    b.u8(1).wide("signal").wide("s");
    if (version >= 5)
        b.u32(1000);
    b.u32(250).u8(2).u8(1).u8(2);
    if (version >= 4)
        b.f64(1.0).wide("");
    return b.u32(frames).bytes();
}

ino_t inodeOf(const KiroString& path)
{
    struct stat status = {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_ino;
}

class UpdateHeader : public testing::Test
{
protected:
    /// Sets `notes` in a file of `header` and `data`; returns the whole file as it is then.
    std::string updated(const std::string& header, const std::string& data, const std::string& notes)
    {
        m_path = m_folder.write(QStringLiteral("u.kiro"), header + data);
        KiroReader reader;
        EXPECT_TRUE(reader.setFile(m_path));
        reader.header().setNotes(KiroString::fromBytes(notes));
        m_newHeader = reader.header().toBytes();
        EXPECT_TRUE(reader.updateHeader()) << reader.errorText().bytes();
        EXPECT_TRUE(reader.errorText().isEmpty());
        m_lastSample = reader.getSample(0, int(reader.header().frameCount()) - 1).toInt32();
        return fileBytes(m_path);
    }

    TestFolder m_folder;
    KiroString m_path;
    std::string m_newHeader;
    int m_lastSample = -1;
};

struct MoveCase
{
    std::uint32_t version;
    std::size_t oldNotes;
    std::size_t newNotes;
    int frames;
    std::size_t extraBytes; ///< behind the last whole frame
};

class MovedSamples : public UpdateHeader, public testing::WithParamInterface<MoveCase>
{
};

} // namespace

TEST_P(MovedSamples, StandAsAfterThePlainMoveInPlace)
{
    const MoveCase& c = GetParam();
    const std::string header = oldHeader(c.version, std::string(c.oldNotes, 'o'), std::uint32_t(c.frames));
    const std::string data = countingWords(c.frames) + noise(c.extraBytes);
    const std::string result = updated(header, data, std::string(c.newNotes, 'n'));
    EXPECT_TRUE(result == moveSamplesInPlace(header + data, header.size(), m_newHeader));
    EXPECT_EQ(m_lastSample, (c.frames - 1) & 0xffff);
    EXPECT_EQ(QDir(QFileInfo(m_path.toQString()).path()).entryList(QDir::Files).size(), 1);
}

INSTANTIATE_TEST_SUITE_P(Moves, MovedSamples,
                         testing::Values(MoveCase{3, 5, 90, 23, 0}, MoveCase{4, 5, 90, 23, 1},
                                         MoveCase{5, 90, 5, 23, 0}, MoveCase{5, 90, 5, 1, 0},
                                         MoveCase{3, 4000, 0, 10, 0}, MoveCase{4, 7, 7, 10, 1},
                                         MoveCase{3, 5, 90, 600000, 1},      // over 1 MiB
                                         MoveCase{5, 900, 5, 1100000, 1},    // over 2 MiB, shrinking
                                         MoveCase{4, 0, 524288, 1572864, 0}, // grows by just 1 MiB
                                         MoveCase{3, 0, 524287, 524288, 0}));

TEST_F(UpdateHeader, AHeaderThatGrowsByMoreThanAChunkLosesNothing)
{
    const std::string header = oldHeader(3, "", 2000000);
    const std::string data = countingWords(2000000);
    const std::string result = updated(header, data, std::string(3000000, 'n'));
    EXPECT_TRUE(result == m_newHeader + data);
}

TEST_F(UpdateHeader, FixedHeadersAreWrittenInPlace)
{
    const KiroHeader header = makeHeader({makeSignal("s", KiroValue::UnsignedInt, 2, 1)}, 7);
    const std::string data = countingWords(7) + "x";
    m_path = m_folder.write(QStringLiteral("u.kiro"), header.toBytes() + data);
    const ino_t inode = inodeOf(m_path);
    const std::string result = updated(header.toBytes(), data, "new notes");
    EXPECT_EQ(result, m_newHeader + data);
    EXPECT_EQ(inodeOf(m_path), inode);
    EXPECT_EQ(result.substr(140, 10), std::string("new notes\0", 10));
}

// What lies outside of the change is not written: other bytes put there meanwhile stay.
TEST_F(UpdateHeader, OnlyTheStretchThatDiffersIsWritten)
{
    const KiroHeader header = makeHeader({makeSignal("s", KiroValue::UnsignedInt, 2, 1)}, 7);
    m_path = m_folder.write(QStringLiteral("u.kiro"), header.toBytes() + countingWords(7));
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(m_path));
    reader.header().setNotes("abc");
    // A write of the whole header would go beyond this limit.
    auto disk = std::make_unique<FileSizeLimit>(150); // the notes begin at 140
    ASSERT_TRUE(disk->isSet());
    const bool updated = reader.updateHeader();
    disk.reset();
    EXPECT_TRUE(updated);
    EXPECT_EQ(fileBytes(m_path), reader.header().toBytes() + countingWords(7));
}

TEST_F(UpdateHeader, AHeaderThatIsTheSameWritesNothing)
{
    const KiroHeader header = makeHeader({makeSignal("s", KiroValue::UnsignedInt, 2, 1)}, 7);
    const std::string before = header.toBytes() + countingWords(7);
    m_path = m_folder.write(QStringLiteral("u.kiro"), before);
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(m_path));
    EXPECT_TRUE(reader.updateHeader());
    EXPECT_EQ(fileBytes(m_path), before);
}

// A name of bytes that are no text of the locale: Qt would write the new file under another name.
TEST_F(UpdateHeader, AFileWhoseNameQtCannotSpellIsNotReplaced)
{
    const std::string before = oldHeader(3, "abc", 2) + countingWords(2);
    const KiroString plain = m_folder.write(QStringLiteral("u.kiro"), before);
    const KiroString odd = KiroString(m_folder.path(QString())) + KiroString::fromBytes("/\xff\xfe.kiro");
    ASSERT_EQ(std::rename(plain.c_str(), odd.c_str()), 0);
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(odd));
    reader.header().setNotes("longer notes");
    EXPECT_FALSE(reader.updateHeader());
    EXPECT_EQ(reader.errorText().bytes(), "KiroReader::updateHeader() - opening file for writing failed");
    KiroReader again;
    ASSERT_TRUE(again.setFile(odd));
    EXPECT_EQ(again.header().notes().bytes(), "abc");
    EXPECT_EQ(again.getSample(0, 1).toInt32(), 1);
    std::remove(odd.c_str()); // the folder's own clean-up cannot spell it either
}

TEST_F(UpdateHeader, AFileThatWouldReachTwoGibibytesIsNotWritten)
{
    const std::string header = oldHeader(3, "abc", 2);
    m_path = m_folder.write(QStringLiteral("u.kiro"), header + countingWords(2));
    const qint64 size = (qint64(1) << 31) - 4;
    ASSERT_TRUE(QFile::resize(m_path.toQString(), size)); // sparse
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(m_path));
    reader.header().setNotes("longer notes");
    EXPECT_FALSE(reader.updateHeader());
    EXPECT_EQ(reader.errorText().bytes(), "KiroReader::updateHeader() - saving new header failed");
    EXPECT_EQ(QFileInfo(m_path.toQString()).size(), size);
}

TEST_F(UpdateHeader, OldHeadersOfTheSameSizeAreWrittenInPlace)
{
    const std::string header = oldHeader(4, "abc", 3);
    m_path = m_folder.write(QStringLiteral("u.kiro"), header + countingWords(3));
    const ino_t inode = inodeOf(m_path);
    const std::string result = updated(header, countingWords(3), "xyz");
    EXPECT_EQ(result, m_newHeader + countingWords(3));
    EXPECT_EQ(inodeOf(m_path), inode);
}

TEST_F(UpdateHeader, LegacyFilesKeepTheirEightBytes)
{
    const std::string data(136 * 2, '\x11');
    m_path = m_folder.write(QStringLiteral("u.kiro"), std::string("\xfe\xff\xff\xff\x01\0\0\0", 8) + data);
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(m_path));
    reader.header().setFrameCount(2);
    reader.header().setNotes("not stored");
    ASSERT_TRUE(reader.updateHeader());
    EXPECT_EQ(fileBytes(m_path), std::string("\xfe\xff\xff\xff\x02\0\0\0", 8) + data);
}

TEST_F(UpdateHeader, ANewFrameCountIsSeenByIntegrity)
{
    const KiroHeader header = makeHeader({makeSignal("s", KiroValue::UnsignedInt, 2, 1)}, 999);
    m_path = m_folder.write(QStringLiteral("u.kiro"), header.toBytes() + countingWords(1000) + "x");
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(m_path));
    EXPECT_FALSE(reader.checkIntegrity());
    reader.header().setFrameCount(1000);
    ASSERT_TRUE(reader.updateHeader());
    reader.close();
    ASSERT_TRUE(reader.setFile(m_path));
    EXPECT_TRUE(reader.checkIntegrity());
    EXPECT_EQ(reader.getSample(0, 999).toInt32(), 999);
}

TEST_F(UpdateHeader, WithoutFileIsRefused)
{
    KiroReader reader;
    EXPECT_FALSE(reader.updateHeader());
    EXPECT_EQ(reader.errorText().bytes(), "KiroReader::updateHeader() - file not open");
}

TEST_F(UpdateHeader, OfAVanishedFileIsRefused)
{
    m_path = m_folder.write(QStringLiteral("u.kiro"), oldHeader(3, "abc", 0));
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(m_path));
    ASSERT_TRUE(QFile::remove(m_path.toQString()));
    EXPECT_FALSE(reader.updateHeader());
    EXPECT_EQ(reader.errorText().bytes(), "KiroReader::updateHeader() - opening file for writing failed");
    EXPECT_FALSE(QFile::exists(m_path.toQString()));
}

TEST_F(UpdateHeader, AFixedHeaderOfAnotherSizeNeverRunsOverSamples)
{
    const KiroHeader header = makeHeader({makeSignal("s", KiroValue::UnsignedInt, 2, 1)}, 3);
    const std::string before = header.toBytes() + countingWords(3);
    m_path = m_folder.write(QStringLiteral("u.kiro"), before);
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(m_path));
    reader.header().setSignalCount(2);
    EXPECT_FALSE(reader.updateHeader());
    EXPECT_EQ(reader.errorText().bytes(), "KiroReader::updateHeader() - saving new header failed");
    EXPECT_TRUE(fileBytes(m_path) == before);
}

TEST_F(UpdateHeader, OfAFileThatBecameSomethingElseIsRefused)
{
    const KiroHeader header = makeHeader({makeSignal("s", KiroValue::UnsignedInt, 2, 1)}, 3);
    m_path = m_folder.write(QStringLiteral("u.kiro"), header.toBytes());
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(m_path));
    m_folder.write(QStringLiteral("u.kiro"), "a letter to a friend");
    EXPECT_FALSE(reader.updateHeader());
    EXPECT_EQ(fileBytes(m_path), "a letter to a friend");
}

// As root permissions do not bind, so the test runs in a child that has given its rights up.
TEST_F(UpdateHeader, ReadOnlyFilesOpenButRefuse)
{
    const KiroHeader header = makeHeader({makeSignal("s", KiroValue::UnsignedInt, 2, 1)}, 3);
    const std::string before = header.toBytes() + countingWords(3);
    m_path = m_folder.write(QStringLiteral("u.kiro"), before);
    ASSERT_EQ(::chmod(m_path.c_str(), 0444), 0);
    ASSERT_EQ(::chmod(qPrintable(m_folder.path(QString())), 0755), 0);
    EXPECT_EXIT(
        {
            if (::geteuid() == 0 && ::setuid(65534) != 0)
                ::_exit(9);
            KiroReader reader;
            const bool ok =
                reader.setFile(m_path) && !reader.isWritable() && reader.getSample(0, 2).toInt32() == 2 &&
                !reader.updateHeader() &&
                reader.errorText() == KiroString("KiroReader::updateHeader() - file has no write permission");
            ::_exit(ok ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
    EXPECT_EQ(fileBytes(m_path), before);
}

// A disk that takes no more bytes is imitated by a limit on the size of files.
TEST_F(UpdateHeader, AFullDiskLeavesTheOldFile)
{
    const std::string before = oldHeader(3, "abc", 500000) + countingWords(500000);
    m_path = m_folder.write(QStringLiteral("u.kiro"), before);
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(m_path));
    reader.header().setNotes("notes that move a million bytes");
    auto disk = std::make_unique<FileSizeLimit>(700000);
    ASSERT_TRUE(disk->isSet());
    const bool updated = reader.updateHeader();
    disk.reset();
    EXPECT_FALSE(updated);
    EXPECT_EQ(reader.errorText().bytes(), "KiroReader::updateHeader() - saving new header failed");
    EXPECT_TRUE(fileBytes(m_path) == before);
    EXPECT_EQ(QDir(QFileInfo(m_path.toQString()).path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

TEST_F(UpdateHeader, AKillInTheMiddleLeavesTheOldOrTheNewFile)
{
    const std::string oldFile = oldHeader(5, "abc", 4000000) + countingWords(4000000);
    m_path = m_folder.write(QStringLiteral("u.kiro"), oldFile);
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(m_path));
    reader.header().setNotes("notes that move eight million bytes");
    const std::string newFile = reader.header().toBytes() + countingWords(4000000);
    int killed = 0;
    for (int delayUs = 0; delayUs <= 12000; delayUs += 1500) {
        m_folder.write(QStringLiteral("u.kiro"), oldFile);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0)
            ::_exit(reader.updateHeader() ? 0 : 1);
        ::usleep(static_cast<useconds_t>(delayUs));
        ::kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        killed += WIFSIGNALED(status);
        const std::string now = fileBytes(m_path);
        EXPECT_TRUE(now == oldFile || now == newFile) << "after " << delayUs << " us";
    }
    EXPECT_GT(killed, 0);
}
