#include "recordingcheck.h"

#include "recordingfile.h"

#include <QFile>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{

using Grade = CheckFinding::Grade;

// Places in a version 12 header.
constexpr std::size_t Version = 4;
constexpr std::size_t HeaderSize = 8;
constexpr std::size_t StoringProgram = 12;
constexpr std::size_t Date = 2188; // day, month, year of two bytes
constexpr std::size_t Time = 2192; // hour, minute, second, millisecond of two bytes
constexpr std::size_t FirstSignal = 2198;
constexpr std::size_t SecondSignal = FirstSignal + 261;
constexpr std::size_t FrameCount = 2720; // of two signals
constexpr std::size_t DataStart = 2724;
// Within a signal.
constexpr std::size_t RatePeriod = 160;
constexpr std::size_t SamplesPerPeriod = 164;
constexpr std::size_t ValueType = 168;
constexpr std::size_t SamplesPerFrame = 172;
constexpr std::size_t SampleSize = 176;
constexpr std::size_t Factor = 180;
constexpr std::size_t Calibrated = 252;
constexpr std::size_t Offset = 253;

/// 10 frames of 12 bytes: four signed samples of 2 bytes and one float of 4. Nothing is wrong with it.
std::string soundRecording()
{
    const KiroSignal first = makeSignal("first", KiroValue::SignedInt, 2, 4, 1000);
    const KiroSignal second = makeSignal("second", KiroValue::Float, 4, 1, 250);
    KiroHeader header = makeHeader({first, second}, 10);
    header.setStoringProgram("Test recorder 1.0");
    return recordingBytes(header, noise(120));
}

std::string doubleBytes(double value)
{
    return ByteBuilder().f64(value).bytes();
}

class RecordingCheck : public testing::Test
{
protected:
    /// The sound recording with other bytes at one place.
    void put(std::size_t offset, const std::string& bytes) { m_bytes.replace(offset, bytes.size(), bytes); }
    void putU32(std::size_t offset, std::uint32_t value) { put(offset, bigEndian(value, 4)); }

    CheckResult check() const { return checkRecording(m_folder.write(QStringLiteral("r.kiro"), m_bytes)); }
    /// Grade and text of every finding, a line each.
    std::string lines() const { return linesOf(check()); }
    static std::string linesOf(const CheckResult& result)
    {
        EXPECT_TRUE(result.opened);
        std::string text;
        for (const CheckFinding& finding : result.findings) {
            text += finding.grade == Grade::Error ? "E " : finding.grade == Grade::Warning ? "W " : "N ";
            text += finding.text() + '\n';
        }
        return text;
    }

    TestFolder m_folder;
    std::string m_bytes = soundRecording();
};

} // namespace

TEST_F(RecordingCheck, SoundRecordingHasNoFindings)
{
    EXPECT_EQ(lines(), "");
}

TEST_F(RecordingCheck, MissingFileIsNotOpened)
{
    const CheckResult result = checkRecording(KiroString(m_folder.path(QStringLiteral("missing.kiro"))));
    EXPECT_FALSE(result.opened);
    EXPECT_TRUE(result.findings.empty());
}

TEST_F(RecordingCheck, FindingHasEveryPart)
{
    putU32(SecondSignal + SampleSize, 3);
    const CheckFinding finding = check().findings.at(0);
    EXPECT_EQ(finding.grade, Grade::Warning);
    EXPECT_EQ(finding.key, "sampleSize");
    EXPECT_EQ(finding.field, "sample size");
    EXPECT_EQ(finding.signal, 1);
    EXPECT_EQ(finding.offset, 2635);
    EXPECT_EQ(finding.found, "3");
    EXPECT_EQ(finding.expected, "1, 2, 4 or 8");
    EXPECT_EQ(finding.meaning, "its values read as 0");
}

TEST_F(RecordingCheck, OtherMarksAreNoRecording)
{
    m_bytes = "This is a text.\n";
    EXPECT_EQ(lines(),
              "E mark, at byte 0: found 54 68 69 73 (\"This\"), expected F9 D7 2C 0A, or FE FF FF FF in "
              "the oldest form; it is no recording\n");
    m_bytes = "\xf9\xd7\x2c";
    EXPECT_EQ(lines(),
              "E mark, at byte 0: found F9 D7 2C, expected F9 D7 2C 0A, or FE FF FF FF in the oldest "
              "form; it is no recording\n");
    m_bytes.clear();
    EXPECT_EQ(lines(),
              "E mark, at byte 0: found an empty file, expected F9 D7 2C 0A, or FE FF FF FF in the oldest "
              "form; it is no recording\n");
}

TEST_F(RecordingCheck, VersionBelow3BehindTheMark)
{
    putU32(Version, 2);
    EXPECT_EQ(lines(),
              "E version, at byte 4: found 2, expected 3 to 12 behind this mark; the file does not open\n");
}

TEST_F(RecordingCheck, VersionBeyond12)
{
    putU32(Version, 13);
    EXPECT_EQ(lines(),
              "W version, at byte 4: found 13, expected 3 to 12; it is read with the layout of version 12\n");
}

TEST_F(RecordingCheck, StoredHeaderSize)
{
    putU32(HeaderSize, 2723);
    EXPECT_EQ(lines(),
              "W header size, at byte 8: found 2723, expected 2724; this program goes by the latter, others "
              "may not\n");
}

TEST_F(RecordingCheck, TextThatFillsItsFieldIsANote)
{
    put(StoringProgram, std::string(128, 'x'));
    EXPECT_EQ(lines(),
              "N storing program, at byte 12: found 128 bytes without a zero byte, expected a zero byte at "
              "the end; the text fills its field and may have been cut\n");
}

TEST_F(RecordingCheck, BytesBehindTheEndOfATextAreANote)
{
    put(SecondSignal + 128 + 20, "a\0b");
    put(SecondSignal + 128 + 20 + 2, "b");
    EXPECT_EQ(lines(),
              "N signal 1, short name, at byte 2607: found 2 bytes other than zero behind the end of the "
              "text, expected zero bytes; they are not read\n");
}

TEST_F(RecordingCheck, PartsOfTheDateOutOfRange)
{
    put(Date, bigEndian(30, 1) + bigEndian(2, 1) + bigEndian(2012, 2));
    EXPECT_EQ(lines(), "W day, at byte 2188: found 30, expected 1 to 29\n");
    put(Date, bigEndian(32, 1) + bigEndian(13, 1) + bigEndian(1600, 2));
    EXPECT_EQ(lines(), "W day, at byte 2188: found 32, expected 1 to 31\n"
                       "W month, at byte 2189: found 13, expected 1 to 12\n"
                       "W year, at byte 2190: found 1600, expected 1601 to 30827\n");
}

TEST_F(RecordingCheck, DateOfZerosIsANote)
{
    put(Date, std::string(4, '\0'));
    EXPECT_EQ(lines(),
              "N day, at byte 2188: found a date of zeros, expected day, month and year; the date is not "
              "known\n");
}

TEST_F(RecordingCheck, PartsOfTheTimeOutOfRange)
{
    put(Time, bigEndian(24, 1) + bigEndian(60, 1) + bigEndian(60, 1) + bigEndian(1000, 2));
    EXPECT_EQ(lines(), "W hour, at byte 2192: found 24, expected 0 to 23\n"
                       "W minute, at byte 2193: found 60, expected 0 to 59\n"
                       "W second, at byte 2194: found 60, expected 0 to 59\n"
                       "W millisecond, at byte 2195: found 1000, expected 0 to 999\n");
}

TEST_F(RecordingCheck, UnknownValueType)
{
    putU32(SecondSignal + ValueType, 4);
    EXPECT_EQ(lines(), "W signal 1, value type, at byte 2627: found 4, expected 0 (object), 1 (signed int), "
                       "2 (unsigned int) or 3 (float); its values read as 0\n");
}

TEST_F(RecordingCheck, ObjectsAreANote)
{
    putU32(FirstSignal + ValueType, 0);
    EXPECT_EQ(lines(),
              "N signal 0, value type, at byte 2366: found 0 (object), expected a type of numbers; its "
              "values read as 0\n");
}

TEST_F(RecordingCheck, SampleLargerThanEightBytes)
{
    putU32(SecondSignal + SampleSize, 9);
    putU32(FrameCount, 7); // 17 bytes each in 120
    EXPECT_EQ(lines(),
              "E signal 1, sample size, at byte 2635: found 9, expected 1, 2, 4 or 8; the file does not "
              "open\n"
              "N data, at byte 2843: found 1 byte behind the last whole packet, expected packets of 17 "
              "bytes; an incomplete packet is not read\n");
}

TEST_F(RecordingCheck, FloatOfTwoBytes)
{
    putU32(SecondSignal + SampleSize, 2);
    putU32(FrameCount, 12);
    EXPECT_EQ(lines(),
              "W signal 1, sample size, at byte 2635: found 2, expected 4 or 8 for a float; its values read "
              "as 0\n");
}

TEST_F(RecordingCheck, SampleOfNoBytes)
{
    putU32(SecondSignal + SampleSize, 0);
    putU32(FrameCount, 15);
    EXPECT_EQ(
        lines(),
        "W signal 1, sample size, at byte 2635: found 0, expected 1, 2, 4 or 8; the signal has no samples\n");
}

TEST_F(RecordingCheck, NoSamplesInAFrame)
{
    putU32(SecondSignal + SamplesPerFrame, 0);
    putU32(FrameCount, 15);
    EXPECT_EQ(lines(),
              "W signal 1, samples per packet, at byte 2631: found 0, expected 1 or more; the signal has no "
              "samples\n");
}

TEST_F(RecordingCheck, RatePeriodOfZero)
{
    putU32(SecondSignal + RatePeriod, 0);
    EXPECT_EQ(
        lines(),
        "W signal 1, rate period, at byte 2619: found 0, expected 1 or more; its frequency is not finite\n");
}

TEST_F(RecordingCheck, NoSamplesInAPeriod)
{
    putU32(FirstSignal + SamplesPerPeriod, 0);
    putU32(SecondSignal + SamplesPerPeriod, 0);
    EXPECT_EQ(lines(),
              "W signal 0, samples per period, at byte 2362: found 0, expected 1 or more; its frequency is "
              "0\n"
              "W signal 1, samples per period, at byte 2623: found 0, expected 1 or more; its frequency is "
              "0\n");
}

TEST_F(RecordingCheck, FrameFrequencyOtherThanTheFirstSignals)
{
    putU32(SecondSignal + SamplesPerPeriod, 251);
    EXPECT_EQ(lines(),
              "W signal 1, samples per packet, at byte 2631: found 251 packets a second, expected 250 as of "
              "the first signal; its times are wrong\n");
}

TEST_F(RecordingCheck, SameFrameFrequencyOnAnotherWayIsNoFinding)
{
    putU32(FirstSignal + RatePeriod, 3000);
    putU32(FirstSignal + SamplesPerPeriod, 4000); // 4000 / 3 s / 4
    putU32(SecondSignal + RatePeriod, 3);
    putU32(SecondSignal + SamplesPerPeriod, 1); // 1 / 3 ms
    EXPECT_EQ(lines(), "");
}

TEST_F(RecordingCheck, CalibrationFactorThatCannotDivide)
{
    put(SecondSignal + Calibrated, "\1");
    put(SecondSignal + Factor, doubleBytes(0));
    EXPECT_EQ(lines(),
              "W signal 1, calibration factor, at byte 2639: found 0, expected a finite number other than 0; "
              "its calibrated values are not finite\n");
    put(SecondSignal + Factor, doubleBytes(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_EQ(lines(),
              "W signal 1, calibration factor, at byte 2639: found nan, expected a finite number other than "
              "0; its calibrated values are not finite\n");
    put(SecondSignal + Factor, doubleBytes(-1e-300));
    EXPECT_EQ(lines(), "");
}

TEST_F(RecordingCheck, CalibrationOffsetThatIsNotFinite)
{
    put(SecondSignal + Calibrated, "\1");
    put(SecondSignal + Offset, doubleBytes(-std::numeric_limits<double>::infinity()));
    EXPECT_EQ(lines(),
              "W signal 1, calibration offset, at byte 2712: found -inf, expected a finite number; its "
              "calibrated values are not finite\n");
}

TEST_F(RecordingCheck, BadCalibrationThatIsNotUsedIsANote)
{
    put(FirstSignal + Factor, doubleBytes(0));
    EXPECT_EQ(lines(),
              "N signal 0, calibration factor, at byte 2378: found 0, expected a finite number other than 0; "
              "the signal is not calibrated\n");
}

TEST_F(RecordingCheck, FewerFramesDeclaredThanStored)
{
    putU32(FrameCount, 9);
    EXPECT_EQ(
        lines(),
        "E packet count, at byte 2720: found 9, expected 10 as stored, in 120 bytes of data; repair can "
        "put it right\n");
}

TEST_F(RecordingCheck, MoreFramesDeclaredThanStoredAndAPart)
{
    m_bytes.resize(m_bytes.size() - 5);
    EXPECT_EQ(
        lines(),
        "E packet count, at byte 2720: found 10, expected 9 as stored, in 115 bytes of data; samples are "
        "missing and can't be brought back\n"
        "N data, at byte 2832: found 7 bytes behind the last whole packet, expected packets of 12 "
        "bytes; an incomplete packet is not read\n");
}

TEST_F(RecordingCheck, IncompleteFrameAloneIsANote)
{
    m_bytes += "12345";
    const CheckResult result = check();
    EXPECT_EQ(linesOf(result),
              "N data, at byte 2844: found 5 bytes behind the last whole packet, expected packets of "
              "12 bytes; an incomplete packet is not read\n");
    EXPECT_EQ(result.count(Grade::Note), 1);
    EXPECT_EQ(result.count(Grade::Error) + result.count(Grade::Warning), 0);
}

TEST_F(RecordingCheck, RecordingWithoutFrames)
{
    m_bytes.resize(DataStart);
    putU32(FrameCount, 0);
    EXPECT_EQ(lines(), "W packet count, at byte 2720: found 0, expected 1 or more; the recording is empty\n");
}

TEST_F(RecordingCheck, RecordingWithoutSignals)
{
    m_bytes = makeHeader({}, 0).toBytes();
    EXPECT_EQ(lines(),
              "W signal count, at byte 2197: found 0, expected at least one signal with samples; the packets "
              "are empty\n");
}

TEST_F(RecordingCheck, HeaderThatIsCut)
{
    m_bytes.resize(SecondSignal + Factor + 3);
    EXPECT_EQ(
        lines(),
        "E signal 1, calibration factor, at byte 2639: found the end of the file at byte 2642, expected "
        "8 bytes; the header is cut and there are no samples\n");
    m_bytes.resize(6);
    EXPECT_EQ(
        lines(),
        "E version, at byte 4: found the end of the file at byte 6, expected 4 bytes; the header is cut "
        "and there are no samples\n");
}

TEST_F(RecordingCheck, WhatComesBeforeACutIsCheckedAllTheSame)
{
    put(Time, "\x18");
    m_bytes.resize(FirstSignal);
    EXPECT_EQ(lines(),
              "W hour, at byte 2192: found 24, expected 0 to 23\n"
              "E signal 0, full name, at byte 2198: found the end of the file at byte 2198, expected 128 "
              "bytes; the header is cut and there are no samples\n");
}

TEST_F(RecordingCheck, FileOfTwoGibibytes)
{
    const KiroString file = m_folder.write(QStringLiteral("r.kiro"), m_bytes);
    ASSERT_TRUE(QFile::resize(file.toQString(), qint64(1) << 31)); // sparse
    EXPECT_EQ(linesOf(checkRecording(file)),
              "E file size: found 2147483648 bytes, expected less than 2147483648 "
              "bytes; the file does not open\n");
}

TEST_F(RecordingCheck, LegacyFileIsCheckedForItsFrames)
{
    const std::string mark = littleEndian(0xfffffffe, 4);
    m_bytes = mark + littleEndian(2, 4) + noise(2 * 136);
    EXPECT_EQ(lines(), "");
    m_bytes = mark + littleEndian(1, 4) + noise(2 * 136);
    EXPECT_EQ(
        lines(),
        "E packet count, at byte 4: found 1, expected 2 as stored, in 272 bytes of data; repair can put "
        "it right\n");
    m_bytes = mark + "ab";
    EXPECT_EQ(lines(),
              "E packet count, at byte 4: found the end of the file at byte 6, expected 4 bytes; the header "
              "is cut and there are no samples\n");
}

TEST_F(RecordingCheck, TextOfOddLengthMovesAllThatFollows)
{
    ByteBuilder bytes;
    bytes.u32(0xf9d72c0a).u32(4).u32(88).u32(3).raw(std::string("\0ab", 3)).wide("");
    bytes.u8(1).u8(2).u16(2008).u8(10).u8(20).u8(30).u8(1);
    bytes.wide("n").wide("").u32(250).u8(1).u8(1).u8(2).f64(1.0).wide("").u32(1).raw("xy");
    m_bytes = bytes.bytes();
    const CheckResult result = check();
    ASSERT_GE(result.findings.size(), 2u);
    EXPECT_EQ(result.findings[1].text(), "storing program, at byte 12: found a length of 3 bytes, expected "
                                         "an even number; all that follows, the "
                                         "samples too, is read a byte off");
    EXPECT_EQ(result.findings[1].grade, Grade::Error);
}

TEST_F(RecordingCheck, UnitMakesAnOldSignalCalibrated)
{
    const auto oldRecording = [](const std::string& unit) {
        ByteBuilder bytes;
        bytes.u32(0xf9d72c0a).u32(4).u32(0).wide("P").wide("");
        bytes.u8(1).u8(2).u16(2008).u8(10).u8(20).u8(30).u8(1);
        bytes.wide("n").wide("").u32(250).u8(1).u8(1).u8(2).f64(0.0).wide(unit).u32(1).raw("xy");
        std::string whole = bytes.bytes();
        return whole.replace(HeaderSize, 4, bigEndian(whole.size() - 2, 4));
    };
    m_bytes = oldRecording("mV");
    EXPECT_EQ(check().count(Grade::Warning), 1) << lines();
    m_bytes = oldRecording("");
    EXPECT_EQ(check().count(Grade::Warning), 0) << lines();
    EXPECT_EQ(check().count(Grade::Note), 1) << lines();
}
