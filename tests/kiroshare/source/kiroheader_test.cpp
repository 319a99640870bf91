#include "kiroheader.h"

#include "fatalrecorder.h"
#include "kirofile.h"
#include "recordingbuilder.h"

#include <QBuffer>
#include <QDataStream>
#include <QDateTime>
#include <QFile>

#include <gtest/gtest.h>

#include <cmath>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

constexpr std::uint32_t Magic = 0xf9d72c0a;

/// What distinguishes the files below; everything else is the same in each.
struct FileOptions
{
    std::uint32_t storedSize = 4711;
    double factor = 2.0;
    std::string unit = "deg";
    int calibratedFlag = 1;
    std::uint32_t frameCount = 3;
};

/// A header with one signal, laid out by hand from the table of fields.
std::string headerBytes(std::uint32_t version, const FileOptions& options = FileOptions())
{
    ByteBuilder b;
    const bool fixed = version >= 6;
    const auto text = [&](const std::string& t, std::size_t width) { fixed ? b.fixed(t, width) : b.wide(t); };
    const auto narrowOrWide = [&](std::uint32_t n) { version >= 9 ? b.u32(n) : b.u8(n); };
    b.u32(Magic).u32(version).u32(options.storedSize);
    text("program", 128);
    text("notes", 1024);
    if (version >= 12)
        b.fixed("Gain\t8\n", 1024);
    b.u8(31).u8(12).u16(2021).u8(23).u8(59);
    if (version >= 4)
        b.u8(58);
    if (version >= 11)
        b.u16(987);
    b.u8(1);
    text("Eye movement", 128);
    text("eyex", 32);
    if (version >= 5)
        b.u32(2000);
    b.u32(500);
    narrowOrWide(1);
    narrowOrWide(4);
    narrowOrWide(2);
    if (version >= 4) {
        b.f64(options.factor);
        text(options.unit, 64);
    }
    if (version >= 7)
        b.u8(static_cast<unsigned>(options.calibratedFlag));
    if (version >= 10)
        b.f64(-1.5);
    b.u32(options.frameCount);
    return b.bytes();
}

KiroHeader readBytes(const std::string& bytes)
{
    const TestFolder folder;
    KiroHeader header;
    EXPECT_TRUE(header.load(folder.write(QStringLiteral("r.kiro"), bytes)));
    return header;
}

bool loads(const std::string& bytes)
{
    const TestFolder folder;
    KiroHeader header;
    return header.load(folder.write(QStringLiteral("r.kiro"), bytes));
}

std::string writtenToFile(const KiroHeader& header)
{
    const TestFolder folder;
    const KiroString path = folder.write(QStringLiteral("w.kiro"), "");
    KiroFile file;
    EXPECT_TRUE(file.open(path, KiroFile::Create));
    EXPECT_TRUE(header.write(file));
    EXPECT_TRUE(file.close());
    return fileBytes(path);
}

std::string writtenToStream(const KiroHeader& header)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QDataStream stream(&buffer);
    EXPECT_TRUE(header.write(stream));
    return buffer.data().toStdString();
}

class EveryVersion : public testing::TestWithParam<std::uint32_t>
{
};

INSTANTIATE_TEST_SUITE_P(Versions, EveryVersion, testing::Range(3u, 14u));

} // namespace

TEST_P(EveryVersion, FieldsAreReadOrGetTheirDefaults)
{
    const std::uint32_t version = GetParam();
    const KiroHeader header = readBytes(headerBytes(version));
    EXPECT_EQ(header.version(), version);
    EXPECT_EQ(header.storingProgram().bytes(), "program");
    EXPECT_EQ(header.notes().bytes(), "notes");
    EXPECT_EQ(header.technicalParameters().bytes(), version >= 12 ? "Gain\t8\n" : "");
    EXPECT_EQ(header.day(), 31);
    EXPECT_EQ(header.month(), 12);
    EXPECT_EQ(header.year(), 2021);
    EXPECT_EQ(header.hour(), 23);
    EXPECT_EQ(header.minute(), 59);
    EXPECT_EQ(header.second(), version >= 4 ? 58 : 0);
    EXPECT_EQ(header.millisecond(), version >= 11 ? 987 : 0);
    EXPECT_EQ(header.frameCount(), 3u);
    ASSERT_EQ(header.signalCount(), 1);
    const KiroSignal signal = header.signal(0);
    EXPECT_EQ(signal.fullName.bytes(), "Eye movement");
    EXPECT_EQ(signal.shortName.bytes(), "eyex");
    EXPECT_EQ(signal.ratePeriod, version >= 5 ? 2000u : 1000u);
    EXPECT_EQ(signal.samplesPerPeriod, 500u);
    EXPECT_EQ(signal.valueType, KiroValue::SignedInt);
    EXPECT_EQ(signal.samplesPerFrame, 4u);
    EXPECT_EQ(signal.sampleSize, 2u);
    EXPECT_EQ(signal.calibrated, version >= 4);
    EXPECT_EQ(signal.calibrationFactor, version >= 4 ? 2.0 : 1.0);
    EXPECT_EQ(signal.calibrationOffset, version >= 10 ? -1.5 : 0.0);
    EXPECT_EQ(signal.calibrationUnit.bytes(), version >= 4 ? "deg" : "");
}

TEST_P(EveryVersion, WritesTheSameBytesToBothKindsOfStream)
{
    const std::uint32_t version = GetParam();
    FileOptions options;
    options.factor = 0.5; // stays as it is when an old version is read and written
    KiroHeader header = readBytes(headerBytes(version, options));
    options.storedSize = header.headerSize();
    if (version >= 4 && version < 8) {
        // 0.5 is read as 2 and written as 0.5 again.
        EXPECT_EQ(header.signal(0).calibrationFactor, 2.0);
    }
    const std::string expected = headerBytes(version, options);
    EXPECT_EQ(writtenToFile(header), expected);
    EXPECT_EQ(writtenToStream(header), expected);
    EXPECT_EQ(header.toBytes(), expected);
}

TEST_P(EveryVersion, HeaderSizeIsTheNumberOfBytes)
{
    const std::string bytes = headerBytes(GetParam());
    const KiroHeader header = readBytes(bytes);
    EXPECT_EQ(header.headerSize(), bytes.size());
}

TEST_P(EveryVersion, AHeaderCutInItsLastNumbersReadsThemAsZero)
{
    const std::string bytes = headerBytes(GetParam());
    const KiroHeader header = readBytes(bytes.substr(0, bytes.size() - 1));
    EXPECT_EQ(header.frameCount(), 0u);
    EXPECT_EQ(header.signal(0).samplesPerPeriod, 500u);
}

TEST_P(EveryVersion, NumbersBehindACutAreZeroWhateverTheirKind)
{
    // The texts and dates of a header without signals, cut before the day.
    const std::uint32_t version = GetParam();
    const std::string bytes = headerBytes(version);
    const std::string start = bytes.substr(0, bytes.find(std::string("\x1f\x0c\x07\xe5", 4)));
    const KiroHeader header = readBytes(start);
    EXPECT_EQ(header.day(), 0);
    EXPECT_EQ(header.month(), 0);
    EXPECT_EQ(header.year(), 0);
    EXPECT_EQ(header.hour(), 0);
    EXPECT_EQ(header.minute(), 0);
    EXPECT_EQ(header.second(), 0);
    EXPECT_EQ(header.millisecond(), 0);
    EXPECT_EQ(header.signalCount(), 0);
    EXPECT_EQ(header.notes().bytes(), "notes");
}

TEST_P(EveryVersion, EveryCutIsReadOrRefusedAndNeverRunsOver)
{
    const std::string bytes = headerBytes(GetParam());
    const TestFolder folder;
    for (std::size_t length = 0; length < bytes.size(); length += 3) {
        KiroHeader header;
        const bool loaded = header.load(folder.write(QStringLiteral("cut.kiro"), bytes.substr(0, length)));
        EXPECT_LE(header.signalCount(), 1) << length;
        if (!loaded) {
            EXPECT_EQ(header.version(), KiroHeader::CurrentVersion) << length;
        }
    }
}

TEST(KiroHeaderTest, NewHeaderIsOfTheCurrentVersionAndNow)
{
    const QDateTime before = QDateTime::currentDateTime();
    const KiroHeader header;
    const QDateTime after = QDateTime::currentDateTime();
    EXPECT_EQ(header.version(), 12u);
    EXPECT_EQ(header.signalCount(), 0);
    EXPECT_EQ(header.frameCount(), 0u);
    EXPECT_TRUE(header.notes().isEmpty() && header.storingProgram().isEmpty());
    EXPECT_TRUE(header.technicalParameters().isEmpty() && header.remark().isEmpty());
    const QDateTime taken(QDate(header.year(), header.month(), header.day()),
                          QTime(header.hour(), header.minute(), header.second(), header.millisecond()));
    EXPECT_LE(before, taken);
    EXPECT_LE(taken, after);
}

TEST(KiroHeaderTest, CurrentVersionHasItsFixedShape)
{
    KiroHeader header;
    header.setStoringProgram("P");
    header.setNotes("N");
    header.setTechnicalParameters("T");
    header.setDay(1);
    header.setMonth(2);
    header.setYear(0x0304);
    header.setHour(5);
    header.setMinute(6);
    header.setSecond(7);
    header.setMillisecond(0x0809);
    header.setFrameCount(0x0a0b0c0d);
    header.setSignalCount(2);
    KiroSignal signal = makeSignal("full", KiroValue::Unknown, 0x11121314, 0x21222324, 0x31323334);
    signal.shortName = "short";
    signal.ratePeriod = 0x41424344;
    signal.calibrationFactor = 1.0;
    signal.calibrationUnit = "u";
    signal.calibrated = true;
    signal.calibrationOffset = -1.0;
    header.setSignal(1, signal);

    const std::string bytes = writtenToFile(header);
    ASSERT_EQ(bytes.size(), 2202u + 261u * 2);
    const auto at = [&](std::size_t offset, std::size_t count) { return bytes.substr(offset, count); };
    EXPECT_EQ(at(0, 4), "\xf9\xd7\x2c\x0a");
    EXPECT_EQ(at(4, 4), bigEndian(12, 4));
    EXPECT_EQ(at(8, 4), bigEndian(2202 + 261 * 2, 4));
    EXPECT_EQ(at(12, 2), std::string("P\0", 2));
    EXPECT_EQ(at(140, 2), std::string("N\0", 2));
    EXPECT_EQ(at(1164, 2), std::string("T\0", 2));
    EXPECT_EQ(at(2188, 9), "\x01\x02\x03\x04\x05\x06\x07\x08\x09");
    EXPECT_EQ(at(2197, 1), "\x02");
    const std::size_t second = 2198 + 261;
    EXPECT_EQ(at(second, 5), std::string("full\0", 5));
    EXPECT_EQ(at(second + 128, 6), std::string("short\0", 6));
    EXPECT_EQ(at(second + 160, 4), "ABCD");
    EXPECT_EQ(at(second + 164, 4), "1234");
    EXPECT_EQ(at(second + 168, 4), bigEndian(255, 4));
    EXPECT_EQ(at(second + 172, 4), "!\"#$");
    EXPECT_EQ(at(second + 176, 4), "\x11\x12\x13\x14");
    EXPECT_EQ(at(second + 180, 8), std::string("\x3f\xf0\0\0\0\0\0\0", 8));
    EXPECT_EQ(at(second + 188, 2), std::string("u\0", 2));
    EXPECT_EQ(at(second + 252, 1), "\x01");
    EXPECT_EQ(at(second + 253, 8), std::string("\xbf\xf0\0\0\0\0\0\0", 8));
    EXPECT_EQ(at(second + 261, 4), "\x0a\x0b\x0c\x0d");
}

TEST(KiroHeaderTest, ZeroSignalsReadAndWrite)
{
    KiroHeader header;
    header.setFrameCount(9);
    const std::string bytes = writtenToFile(header);
    EXPECT_EQ(bytes.size(), 2202u);
    const KiroHeader again = readBytes(bytes);
    EXPECT_EQ(again.signalCount(), 0);
    EXPECT_EQ(again.frameCount(), 9u);
    EXPECT_EQ(again.frameSize(), 0);
    EXPECT_EQ(fatalErrorOf([&] { again.frameFrequency(); }), "KiroHeader::frameFrequency() - no signals");
    EXPECT_EQ(fatalErrorOf([&] { again.frameMSecs(); }), "KiroHeader::frameFrequency() - no signals");
}

TEST(KiroHeaderTest, ALongTextIsCutAtItsField)
{
    KiroHeader header = readBytes(headerBytes(6));
    header.setStoringProgram(KiroString::fromBytes(std::string(200, 'x')));
    const std::string bytes = writtenToFile(header);
    EXPECT_EQ(bytes.substr(12, 128), std::string(128, 'x'));
    EXPECT_EQ(bytes.substr(140, 6), std::string("notes\0", 6));
    EXPECT_EQ(readBytes(bytes).storingProgram().bytes(), std::string(128, 'x'));
}

TEST(KiroHeaderTest, BytesBehindAZeroAreNotRead)
{
    std::string bytes = headerBytes(12);
    bytes.replace(12, 9, std::string("ab\0cdefgh", 9));
    EXPECT_EQ(readBytes(bytes).storingProgram().bytes(), "ab");
}

TEST(KiroHeaderTest, OldFactorsAreTurnedWhenReadAndWritten)
{
    FileOptions options;
    options.factor = 0.001;
    KiroHeader header = readBytes(headerBytes(7, options));
    EXPECT_EQ(header.signal(0).calibrationFactor, 1000.0);
    options.storedSize = header.headerSize();
    EXPECT_EQ(writtenToFile(header), headerBytes(7, options));
}

TEST(KiroHeaderTest, FactorsAtTheLimitsStayAsTheyStand)
{
    FileOptions options;
    for (const double factor : {1e-8, 1e-7, 1.0, -0.5, 0.0, 25.0}) {
        options.factor = factor;
        EXPECT_EQ(readBytes(headerBytes(7, options)).signal(0).calibrationFactor, factor);
    }
    options.factor = 0.5;
    EXPECT_EQ(readBytes(headerBytes(8, options)).signal(0).calibrationFactor, 0.5);
}

// Reading turns factors below 1, writing those above 1: a stored 25 comes back as 0.04.
TEST(KiroHeaderTest, ReadingAndWritingOldFactorsAreNoMirrorImages)
{
    FileOptions options;
    options.factor = 25.0;
    KiroHeader header = readBytes(headerBytes(7, options));
    EXPECT_EQ(readBytes(writtenToFile(header)).signal(0).calibrationFactor, 25.0);
    options.factor = 1.0 / 25.0;
    options.storedSize = header.headerSize();
    EXPECT_EQ(writtenToFile(header), headerBytes(7, options));
}

TEST(KiroHeaderTest, CalibratedFollowsTheUnitBelowVersionSeven)
{
    FileOptions options;
    options.unit = "";
    EXPECT_FALSE(readBytes(headerBytes(6, options)).signal(0).calibrated);
    EXPECT_TRUE(readBytes(headerBytes(7, options)).signal(0).calibrated);
    options.unit = "deg";
    options.calibratedFlag = 0;
    EXPECT_TRUE(readBytes(headerBytes(6, options)).signal(0).calibrated);
    EXPECT_FALSE(readBytes(headerBytes(7, options)).signal(0).calibrated);
}

TEST(KiroHeaderTest, VersionThreeHasNoCalibrationPeriodAndSeconds)
{
    const KiroHeader header = readBytes(headerBytes(3));
    const KiroSignal signal = header.signal(0);
    EXPECT_FALSE(signal.calibrated);
    EXPECT_EQ(signal.calibrationFactor, 1.0);
    EXPECT_TRUE(signal.calibrationUnit.isEmpty());
    EXPECT_EQ(signal.ratePeriod, 1000u);
    EXPECT_EQ(header.second(), 0);
}

TEST(KiroHeaderTest, StoredHeaderSizeIsNeverTrusted)
{
    FileOptions options;
    for (const std::uint32_t stored : {0u, 12u, 0xffffffffu}) {
        options.storedSize = stored;
        EXPECT_EQ(readBytes(headerBytes(12, options)).headerSize(), 2202u + 261u);
    }
}

TEST(KiroHeaderTest, OldTextsKeepTheLowByteOfEachUnit)
{
    ByteBuilder b;
    b.u32(Magic).u32(3).u32(0);
    b.u32(6).raw(std::string("\x01\x41\x00\x42\xff\xe9", 6)); // storing program
    b.u32(0xffffffff);                                        // notes: empty, no body
    b.u8(1).u8(2).u16(2003).u8(4).u8(5).u8(0).u32(77);
    const KiroHeader header = readBytes(b.bytes());
    EXPECT_EQ(header.storingProgram().bytes(), "AB\xe9");
    EXPECT_TRUE(header.notes().isEmpty());
    EXPECT_EQ(header.frameCount(), 77u);
    EXPECT_EQ(header.headerSize(), 12u + 8 + 2 * 3 + 6 + 1 + 4);
}

TEST(KiroHeaderTest, OldTextsAreWrittenWithSignExtension)
{
    ByteBuilder b;
    b.u32(Magic).u32(3).u32(0).wide("").wide("").u8(1).u8(2).u16(2003).u8(4).u8(5).u8(0).u32(0);
    KiroHeader header = readBytes(b.bytes());
    header.setStoringProgram("A\xe9");
    EXPECT_EQ(writtenToFile(header).substr(12, 8), std::string("\0\0\0\x04\x00\x41\xff\xe9", 8));
}

TEST(KiroHeaderTest, AnnouncedTextsMustFitTheFile)
{
    for (const std::uint32_t length : {0x7fffffffu, 0xfffffffeu, 0x10000000u, 1000u}) {
        ByteBuilder b;
        b.u32(Magic).u32(4).u32(0).u32(length).raw("abcdef");
        EXPECT_FALSE(loads(b.bytes())) << length;
    }
}

TEST(KiroHeaderTest, ADescriptorCutInItsFactorReadsZero)
{
    const std::string bytes = headerBytes(12);
    const KiroSignal signal = readBytes(bytes.substr(0, 2198 + 180)).signal(0);
    EXPECT_EQ(signal.sampleSize, 2u);
    EXPECT_EQ(signal.calibrationFactor, 0.0);
    EXPECT_FALSE(signal.calibrated);
    const KiroSignal shorter = readBytes(bytes.substr(0, 2198 + 170)).signal(0);
    EXPECT_EQ(shorter.ratePeriod, 2000u);
    EXPECT_EQ(shorter.valueType, KiroValue::Object);
    EXPECT_EQ(shorter.sampleSize, 0u);
}

TEST(KiroHeaderTest, AllButTheLastDescriptorMustBeWhole)
{
    std::string bytes = headerBytes(12);
    bytes[2197] = '\x04';
    bytes += std::string(2 * 261, '\0'); // three whole descriptors, and the frame count as part of a fourth
    EXPECT_TRUE(loads(bytes));
    bytes[2197] = '\x05';
    EXPECT_FALSE(loads(bytes));
    EXPECT_FALSE(loads(bytes.substr(0, bytes.size() - 5)));
}

TEST(KiroHeaderTest, AnnouncedSignalsMustFitTheFile)
{
    std::string bytes = headerBytes(12);
    bytes[2197] = '\xff';
    EXPECT_FALSE(loads(bytes));
    bytes[2197] = '\x02'; // the second descriptor may be cut
    EXPECT_TRUE(loads(bytes));
}

TEST(KiroHeaderTest, TheMarkWithAVersionBelowThreeIsRefused)
{
    for (const unsigned version : {0u, 1u, 2u}) {
        std::string bytes = headerBytes(12);
        bytes[7] = static_cast<char>(version);
        EXPECT_FALSE(loads(bytes));
    }
}

TEST(KiroHeaderTest, OtherFilesAreRefused)
{
    EXPECT_FALSE(loads(""));
    EXPECT_FALSE(loads("\xf9\xd7\x2c"));
    EXPECT_FALSE(loads("This is a text and no recording"));
    EXPECT_FALSE(loads("\xff\xff\xff\xfe\0\0\0\x01"));
    KiroHeader header;
    EXPECT_FALSE(header.load("no/such/file.kiro"));
}

TEST(KiroHeaderTest, AFailedReadLeavesAClearHeader)
{
    const TestFolder folder;
    const KiroString path = folder.write(QStringLiteral("x"), "no recording");
    KiroFile file;
    ASSERT_TRUE(file.open(path, KiroFile::Read));
    for (const bool byLoad : {true, false}) {
        KiroHeader header;
        header.setSignalCount(3);
        header.setNotes("old");
        header.setRemark("old");
        EXPECT_FALSE(byLoad ? header.load(path) : header.read(file));
        EXPECT_EQ(header.signalCount(), 0);
        EXPECT_TRUE(header.notes().isEmpty());
        EXPECT_TRUE(header.remark().isEmpty());
        EXPECT_EQ(header.version(), 12u);
    }
}

TEST(KiroHeaderTest, FilesOfTwoGibibytesAreRefusedBeforeTheirTextsAreRead)
{
    const TestFolder folder;
    const std::string start = ByteBuilder().u32(Magic).u32(3).u32(0).u32(0xfffffff0).bytes();
    const KiroString path = folder.write(QStringLiteral("x"), start);
    ASSERT_TRUE(QFile::resize(path.toQString(), (qint64(1) << 32) + 100)); // sparse
    KiroHeader header;
    EXPECT_FALSE(header.load(path));
}

// A sanitizer needs the address space that this test takes away.
#ifndef __SANITIZE_ADDRESS__
// In a child with little memory: a text as long as a file of nearly 2 GiB.
TEST(KiroHeaderTest, ATextThatDoesNotFitTheMemoryIsRefused)
{
    const TestFolder folder;
    const std::string start = ByteBuilder().u32(Magic).u32(3).u32(0).u32(0x7fffff00).bytes();
    const KiroString path = folder.write(QStringLiteral("x"), start);
    ASSERT_TRUE(QFile::resize(path.toQString(), (qint64(1) << 31) - 1)); // sparse
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const struct rlimit limit = {rlim_t(1) << 30, rlim_t(1) << 30};
        ::setrlimit(RLIMIT_AS, &limit);
        KiroHeader header;
        ::_exit(header.load(path) ? 1 : 0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status)) << "killed by signal " << WTERMSIG(status);
    EXPECT_EQ(WEXITSTATUS(status), 0);
}
#endif

TEST(KiroHeaderTest, LegacyFormHasAFixedTable)
{
    const KiroHeader header = readBytes(std::string("\xfe\xff\xff\xff\x05\0\0\0", 8));
    EXPECT_EQ(header.version(), 2u);
    EXPECT_EQ(header.storingProgram().bytes(), "KiroMonitor ver. 2.0");
    EXPECT_EQ(header.notes().bytes(), "Kiro data converted from the file which was saved in format 2.0");
    EXPECT_EQ(header.frameCount(), 5u);
    EXPECT_EQ(header.headerSize(), 8u);
    EXPECT_EQ(header.frameSize(), 136);
    EXPECT_EQ(header.frameMSecs(), 4.0);
    EXPECT_EQ(header.dateString().bytes(), "00/00/0");
    EXPECT_EQ(header.timeString().bytes(), "00:00:00.000");
    struct Row
    {
        const char* fullName;
        const char* shortName;
        unsigned perPeriod;
        unsigned perFrame;
    };
    const Row rows[] = {{"Eye movement - horizontal", "eyex", 1000, 4},
                        {"Eye movement - vertical", "eyey", 1000, 4},
                        {"Oxygenated hemoglobine", "oxy", 250, 1},
                        {"Total hemoglobine", "hemo", 250, 1},
                        {"Acceleration x", "accx", 250, 1},
                        {"Acceleration y", "accy", 250, 1},
                        {"Battery power", "volt", 250, 1},
                        {"Ambient light", "lit", 250, 1},
                        {"Microphone", "mic", 4000, 16},
                        {"Conscious attention mode", "mode", 1000, 4}};
    ASSERT_EQ(header.signalCount(), 10);
    for (int i = 0; i < 10; ++i) {
        const KiroSignal signal = header.signal(static_cast<unsigned>(i));
        EXPECT_EQ(signal.index, i);
        EXPECT_EQ(signal.fullName.bytes(), rows[i].fullName);
        EXPECT_EQ(signal.shortName.bytes(), rows[i].shortName);
        EXPECT_EQ(signal.samplesPerPeriod, rows[i].perPeriod);
        EXPECT_EQ(signal.samplesPerFrame, rows[i].perFrame);
        EXPECT_EQ(signal.ratePeriod, 1000u);
        EXPECT_EQ(signal.valueType, KiroValue::SignedInt);
        EXPECT_EQ(signal.sampleSize, 4u);
        EXPECT_EQ(signal.calibrationFactor, 1.0);
        EXPECT_EQ(signal.calibrationOffset, 0.0);
        EXPECT_TRUE(signal.calibrationUnit.isEmpty());
        EXPECT_FALSE(signal.calibrated);
    }
}

TEST(KiroHeaderTest, LegacyFormIsWrittenInEightBytes)
{
    KiroHeader header = readBytes(std::string("\xfe\xff\xff\xff\x05\0\0\0", 8));
    header.setFrameCount(0x01020304);
    const std::string expected("\xfe\xff\xff\xff\x04\x03\x02\x01", 8);
    EXPECT_EQ(writtenToFile(header), expected);
    EXPECT_EQ(writtenToStream(header), expected);
}

TEST(KiroHeaderTest, WritingSetsTheByteOrderOfTheSamples)
{
    const TestFolder folder;
    KiroFile file;
    ASSERT_TRUE(file.open(folder.write(QStringLiteral("x"), ""), KiroFile::Create));
    readBytes(std::string("\xfe\xff\xff\xff\0\0\0\0", 8)).write(file);
    EXPECT_EQ(file.byteOrder(), KiroFile::ByteOrder::LittleEndian);
    KiroHeader().write(file);
    EXPECT_EQ(file.byteOrder(), KiroFile::ByteOrder::BigEndian);
}

TEST(KiroHeaderTest, VersionsAboveTwelveKeepTheirNumber)
{
    std::string bytes = headerBytes(12);
    bytes.replace(4, 4, bigEndian(4000000000u, 4));
    bytes.replace(8, 4, bigEndian(2202 + 261, 4));
    const KiroHeader header = readBytes(bytes);
    EXPECT_EQ(header.version(), 4000000000u);
    EXPECT_EQ(writtenToFile(header), bytes);
}

TEST(KiroHeaderTest, UnknownValueTypesAreKeptAsUnknown)
{
    std::string bytes = headerBytes(12);
    bytes.replace(2198 + 168, 4, bigEndian(0xdeadbeef, 4));
    const KiroHeader header = readBytes(bytes);
    EXPECT_EQ(header.signal(0).valueType, KiroValue::Unknown);
    EXPECT_EQ(writtenToFile(header).substr(2198 + 168, 4), bigEndian(255, 4));
}

TEST(KiroHeaderTest, RatesComeFromTheSignals)
{
    KiroHeader header;
    header.setFrameCount(10);
    header.setSignalCount(2);
    header.setSignal(0, makeSignal("a", KiroValue::SignedInt, 2, 4, 1000));
    KiroSignal slow = makeSignal("b", KiroValue::Float, 8, 3, 90);
    slow.ratePeriod = 60000;
    header.setSignal(1, slow);
    EXPECT_EQ(header.frameSize(), 4 * 2 + 3 * 8);
    EXPECT_EQ(header.frameFrequency(), 250.0);
    EXPECT_EQ(header.frameMSecs(), 4.0);
    EXPECT_EQ(header.signalFrequency(1), 1.5);
    EXPECT_EQ(header.signalMSecs(1), 1000.0 / 1.5);
    EXPECT_EQ(header.signalSampleCount(1), 30u);
}

TEST(KiroHeaderTest, SizesDoNotWrap)
{
    KiroHeader header;
    header.setFrameCount(0xffffffff);
    header.setSignalCount(255);
    for (int i = 0; i < 255; ++i)
        header.setSignal(i, makeSignal("a", KiroValue::SignedInt, 0xffffffff, 0xffffffff));
    EXPECT_EQ(header.frameSize(), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(header.signalSampleCount(0), 0xffffffffull * 0xffffffffull);
}

TEST(KiroHeaderTest, ZeroRatesDoNotStopTheProgram)
{
    KiroHeader header;
    header.setSignalCount(1);
    KiroSignal signal = makeSignal("a", KiroValue::SignedInt, 2, 0, 0);
    signal.ratePeriod = 0;
    header.setSignal(0, signal);
    EXPECT_TRUE(std::isnan(header.signalFrequency(0)));
    EXPECT_TRUE(std::isnan(header.frameFrequency()));
    EXPECT_EQ(header.signalSampleCount(0), 0u);
}

TEST(KiroHeaderTest, BadIndicesAreFatalOrRefused)
{
    KiroHeader header;
    header.setSignalCount(2);
    EXPECT_EQ(
        fatalErrorOf([&] { header.signal(2); }),
        "KiroHeader::signal(unsigned int) - invalid signal index (signal index is 2, signal count is 2)");
    EXPECT_EQ(fatalErrorOf([&] { header.signalFrequency(2); }),
              "KiroHeader::signalFrequency() - invalid signal index");
    EXPECT_EQ(fatalErrorOf([&] { header.signalMSecs(-1); }),
              "KiroHeader::signalMSecs() - invalid signal index");
    EXPECT_EQ(fatalErrorOf([&] { header.signalSampleCount(2); }),
              "KiroHeader::signalSampleCount() - invalid signal index");
    KiroSignal signal;
    EXPECT_FALSE(header.getSignal(2, signal));
    EXPECT_FALSE(header.getSignal(-1, signal));
    EXPECT_FALSE(header.setSignal(2, signal));
    EXPECT_TRUE(header.setSignal(1, signal));
}

TEST(KiroHeaderTest, SignalCountIsHeldToWhatAFileCanSay)
{
    KiroHeader header;
    EXPECT_TRUE(header.setSignalCount(255));
    EXPECT_EQ(header.signalCount(), 255);
    EXPECT_FALSE(header.setSignalCount(256));
    EXPECT_FALSE(header.setSignalCount(-1));
    EXPECT_EQ(header.signalCount(), 255);
}

TEST(KiroHeaderTest, DateAndTimeTextsAreZeroFilled)
{
    KiroHeader header;
    header.setDay(1);
    header.setMonth(2);
    header.setYear(987);
    header.setHour(3);
    header.setMinute(4);
    header.setSecond(5);
    header.setMillisecond(6);
    EXPECT_EQ(header.dateString().bytes(), "01/02/987");
    EXPECT_EQ(header.timeString().bytes(), "03:04:05.006");
}

TEST(KiroHeaderTest, FindSignalPrefersStartsThenSignalsThenNames)
{
    KiroHeader header;
    header.setSignalCount(3);
    header.setSignal(0, makeSignal("left eye - horizontal", KiroValue::SignedInt, 2, 1));
    header.setSignal(1, makeSignal("eye position", KiroValue::SignedInt, 2, 1));
    header.setSignal(2, makeSignal("Gyro x", KiroValue::SignedInt, 2, 1));
    EXPECT_EQ(header.findSignal({"eye"}), 1);
    EXPECT_EQ(header.findSignal({"Gyro", "left"}), 0);
    EXPECT_EQ(header.findSignal({"horizontal"}), 0);
    EXPECT_EQ(header.findSignal({"absent", "ro x"}), 2);
    EXPECT_EQ(header.findSignal({"gyro"}), -1);
    EXPECT_EQ(header.findSignal({}), -1);
}

namespace
{

struct FieldCase
{
    int id;
    std::uint32_t since; ///< 0 always, 99 never
};

class HeaderField : public testing::TestWithParam<FieldCase>
{
};

} // namespace

TEST_P(HeaderField, ExistsFromItsVersionOn)
{
    for (std::uint32_t version = 2; version <= 13; ++version) {
        const KiroHeader header =
            readBytes(version == 2 ? std::string("\xfe\xff\xff\xff\0\0\0\0", 8) : headerBytes(version));
        EXPECT_EQ(header.hasField(GetParam().id), version >= GetParam().since) << version;
    }
}

INSTANTIATE_TEST_SUITE_P(Ids, HeaderField,
                         testing::Values(FieldCase{0, 6}, FieldCase{1, 3}, FieldCase{2, 0}, FieldCase{3, 3},
                                         FieldCase{10, 3}, FieldCase{11, 4}, FieldCase{12, 11},
                                         FieldCase{13, 3}, FieldCase{16, 3}, FieldCase{17, 5},
                                         FieldCase{18, 5}, FieldCase{19, 3}, FieldCase{21, 3},
                                         FieldCase{22, 4}, FieldCase{23, 7}, FieldCase{24, 4},
                                         FieldCase{25, 10}, FieldCase{26, 4}, FieldCase{27, 3},
                                         FieldCase{28, 12}, FieldCase{29, 99}, FieldCase{-1, 99}));

TEST(KiroHeaderTest, TheRemarkNeverReachesAFile)
{
    KiroHeader header = readBytes(headerBytes(12));
    const std::string before = writtenToFile(header);
    header.setRemark("private");
    EXPECT_EQ(writtenToFile(header), before);
}

TEST(KiroHeaderTest, TechnicalRowsAreNameAndValueOfEachLine)
{
    KiroHeader header;
    header.setTechnicalParameters("Gain\t8\n\nNoTab\nA\tb\tc\n\t\nLast\t");
    using Row = std::pair<KiroString, KiroString>;
    const std::vector<Row> expected{Row("Gain", "8"), Row("NoTab", ""), Row("A", "b"), Row("", ""),
                                    Row("Last", "")};
    EXPECT_EQ(header.technicalRows(), expected);
    header.setTechnicalParameters("");
    EXPECT_TRUE(header.technicalRows().empty());
}

TEST(KiroHeaderTest, DurationIsCutToWholeMilliseconds)
{
    KiroHeader header;
    EXPECT_FALSE(header.durationMSecs());
    header.setSignalCount(1);
    header.setSignal(0, makeSignal("a", KiroValue::SignedInt, 2, 1, 300));
    header.setFrameCount(1); // 3.33 ms
    EXPECT_EQ(header.durationMSecs(), 3.0);
    header.setFrameCount(27000000); // 25 hours
    EXPECT_EQ(header.durationMSecs(), 90000000.0);
    header.setSignal(0, makeSignal("a", KiroValue::SignedInt, 2, 1, 0));
    EXPECT_FALSE(header.durationMSecs());
}
