#include "kirofile.h"

#include "filesizelimit.h"
#include "recordingbuilder.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include <sys/stat.h>
#include <unistd.h>

namespace
{

const std::string EightBytes("\x01\x02\x03\x04\x05\x06\x07\x08", 8);

} // namespace

TEST(KiroFileTest, NewFileIsClosedAndBigEndian)
{
    KiroFile file;
    EXPECT_FALSE(file.isOpen());
    EXPECT_EQ(file.byteOrder(), KiroFile::ByteOrder::BigEndian);
    EXPECT_FALSE(file.isMachineOrder());
    EXPECT_EQ(file.size(), 0);
}

TEST(KiroFileTest, OpenTwiceKeepsTheFirstFile)
{
    const TestFolder folder;
    const KiroString first = folder.write(QStringLiteral("first"), "abc");
    const KiroString second = folder.write(QStringLiteral("second"), "defgh");
    KiroFile file;
    ASSERT_TRUE(file.open(first, KiroFile::Read));
    EXPECT_FALSE(file.open(second, KiroFile::Read));
    EXPECT_TRUE(file.isOpen());
    EXPECT_EQ(file.name().bytes(), first.bytes());
    EXPECT_EQ(file.size(), 3);
}

TEST(KiroFileTest, ReadsBigEndianNumbers)
{
    const TestFolder folder;
    KiroFile file;
    ASSERT_TRUE(file.open(folder.write(QStringLiteral("n"), EightBytes), KiroFile::Read));
    std::uint8_t byte = 0;
    std::uint16_t word = 0;
    std::uint32_t number = 0;
    ASSERT_TRUE(file.readU8(byte));
    ASSERT_TRUE(file.readU16(word));
    ASSERT_TRUE(file.readU32(number));
    EXPECT_EQ(byte, 0x01);
    EXPECT_EQ(word, 0x0203);
    EXPECT_EQ(number, 0x04050607u);
}

TEST(KiroFileTest, LittleEndianOrderReadsWithoutReversal)
{
    const TestFolder folder;
    KiroFile file;
    ASSERT_TRUE(file.open(folder.write(QStringLiteral("n"), EightBytes), KiroFile::Read));
    file.setByteOrder(KiroFile::ByteOrder::LittleEndian);
    EXPECT_TRUE(file.isMachineOrder());
    std::uint64_t number = 0;
    ASSERT_TRUE(file.readU64(number));
    std::uint64_t inMemory;
    std::memcpy(&inMemory, EightBytes.data(), 8);
    EXPECT_EQ(number, inMemory);
    EXPECT_EQ(number, 0x0807060504030201u);
}

TEST(KiroFileTest, WritesBothOrders)
{
    const TestFolder folder;
    const KiroString path = folder.write(QStringLiteral("n"), "");
    KiroFile file;
    ASSERT_TRUE(file.open(path, KiroFile::Create));
    EXPECT_TRUE(file.writeU8(0xab));
    EXPECT_TRUE(file.writeU16(0x1234));
    EXPECT_TRUE(file.writeU32(0x12345678));
    EXPECT_TRUE(file.writeF64(1.0));
    EXPECT_TRUE(file.writeF32(-2.0f));
    file.setByteOrder(KiroFile::ByteOrder::LittleEndian);
    EXPECT_TRUE(file.writeU16(0x1234));
    EXPECT_TRUE(file.writeU64(0x0102030405060708));
    EXPECT_TRUE(file.close());
    const std::string expected("\xab\x12\x34\x12\x34\x56\x78\x3f\xf0\0\0\0\0\0\0\xc0\0\0\0\x34\x12"
                               "\x08\x07\x06\x05\x04\x03\x02\x01",
                               29);
    EXPECT_EQ(fileBytes(path), expected);
}

TEST(KiroFileTest, ReadsFloatingNumbers)
{
    const TestFolder folder;
    const KiroString path = folder.write(QStringLiteral("n"), ByteBuilder().f64(-0.1).bytes());
    KiroFile file;
    ASSERT_TRUE(file.open(path, KiroFile::Read));
    double number = 0.0;
    ASSERT_TRUE(file.readF64(number));
    EXPECT_EQ(number, -0.1);
}

TEST(KiroFileTest, ReadingPastTheEndLeavesTheTarget)
{
    const TestFolder folder;
    KiroFile file;
    ASSERT_TRUE(file.open(folder.write(QStringLiteral("n"), "abc"), KiroFile::Read));
    std::uint32_t number = 0xdeadbeef;
    EXPECT_FALSE(file.readU32(number));
    EXPECT_EQ(number, 0xdeadbeefu);
}

TEST(KiroFileTest, ShortRawReadAtTheEndGivesMinusOne)
{
    const TestFolder folder;
    KiroFile file;
    ASSERT_TRUE(file.open(folder.write(QStringLiteral("n"), "abc"), KiroFile::Read));
    char buffer[4] = {};
    EXPECT_EQ(file.readRaw(buffer, 3), 3);
    EXPECT_EQ(std::string(buffer), "abc");
    EXPECT_EQ(file.readRaw(buffer, 0), 0);
    EXPECT_EQ(file.readRaw(buffer, 1), -1);
    EXPECT_EQ(file.readRaw(buffer, -1), -1);
}

TEST(KiroFileTest, AReadThatFailsForAnotherReasonThanTheEndGivesItsCount)
{
    const TestFolder folder;
    KiroFile file;
    ASSERT_TRUE(file.open(folder.write(QStringLiteral("n"), ""), KiroFile::Create)); // for writing only
    char c = 0;
    EXPECT_EQ(file.readRaw(&c, 1), 0);
}

TEST(KiroFileTest, RawCallsOnAClosedFileGiveMinusOne)
{
    KiroFile file;
    char buffer[1] = {};
    std::uint8_t number = 5;
    EXPECT_EQ(file.readRaw(buffer, 1), -1);
    EXPECT_EQ(file.writeRaw(buffer, 1), -1);
    EXPECT_FALSE(file.readU8(number));
    EXPECT_EQ(number, 5);
    EXPECT_FALSE(file.writeU8(1));
    EXPECT_FALSE(file.seek(0));
    EXPECT_FALSE(file.flush());
    EXPECT_FALSE(file.close());
}

TEST(KiroFileTest, ModesOpenAsTheirStreams)
{
    const TestFolder folder;
    const KiroString path = folder.write(QStringLiteral("n"), "abc");
    const KiroString missing(folder.path(QStringLiteral("missing")));
    KiroFile file;
    EXPECT_FALSE(file.open(missing, KiroFile::Read));
    EXPECT_FALSE(file.open(missing, KiroFile::Update));

    ASSERT_TRUE(file.open(path, KiroFile::Update));
    EXPECT_EQ(file.writeRaw("X", 1), 1);
    EXPECT_TRUE(file.close());
    EXPECT_EQ(fileBytes(path), "Xbc");

    ASSERT_TRUE(file.open(path, 17)); // any other mode appends
    EXPECT_EQ(file.writeRaw("d", 1), 1);
    EXPECT_TRUE(file.close());
    EXPECT_EQ(fileBytes(path), "Xbcd");

    ASSERT_TRUE(file.open(path, KiroFile::Create));
    EXPECT_TRUE(file.close());
    EXPECT_EQ(fileBytes(path), "");
}

TEST(KiroFileTest, SeeksToAbsolutePositions)
{
    const TestFolder folder;
    KiroFile file;
    ASSERT_TRUE(file.open(folder.write(QStringLiteral("n"), "abcdef"), KiroFile::Read));
    ASSERT_TRUE(file.seek(4));
    EXPECT_EQ(file.position(), 4);
    char c = 0;
    EXPECT_EQ(file.readRaw(&c, 1), 1);
    EXPECT_EQ(c, 'e');
    EXPECT_FALSE(file.seek(-1));
}

TEST(KiroFileTest, PipesAndFoldersAreRefusedAtOnce)
{
    const TestFolder folder;
    const KiroString pipe(folder.path(QStringLiteral("pipe")));
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    KiroFile file;
    EXPECT_FALSE(file.open(pipe, KiroFile::Read));
    EXPECT_FALSE(file.open(KiroString(folder.path(QString())), KiroFile::Read));
}

TEST(KiroFileTest, AFailedWriteIsReportedAtTheLatestByClose)
{
    const TestFolder folder;
    const KiroString path = folder.write(QStringLiteral("n"), "");
    auto disk = std::make_unique<FileSizeLimit>(100);
    ASSERT_TRUE(disk->isSet());

    KiroFile file;
    const bool opened = file.open(path, KiroFile::Create);
    const std::string block(500, 'x');
    const bool written = file.writeRaw(block.data(), 500) == 500 && file.flush();
    const bool closed = file.close();

    disk.reset();
    EXPECT_TRUE(opened);
    EXPECT_FALSE(written);
    EXPECT_FALSE(closed);
}
