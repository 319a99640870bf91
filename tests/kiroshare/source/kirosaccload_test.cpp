// Loading of saccade files: versions, conversions, refusals and damage.

#include "kirosaccheader.h"

#include "recordingbuilder.h"
#include "saccbuilder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

#include <sys/stat.h>

namespace
{

const KiroString Load = "KiroSaccHeader::load(const KiroString&) - ";
constexpr std::size_t HeaderSize = 16541;

class KiroSaccLoad : public testing::Test
{
protected:
    KiroString write(const std::string& bytes) const
    {
        return m_folder.write(QStringLiteral("a.sacc"), bytes);
    }
    bool load(const std::string& bytes) { return header.load(write(bytes)); }
    bool load(const SaccFields& fields) { return load(fields.bytes()); }

    /// Loads into an object that has content, which a refusal must leave alone.
    void expectRefusal(const std::string& bytes, const KiroString& text)
    {
        header.comment = "old";
        header.fileName = "old.sacc";
        header.saccades.resize(3);
        const std::string before = header.toBytes();
        EXPECT_FALSE(load(bytes));
        EXPECT_EQ(header.error.bytes(), (Load + text).bytes());
        EXPECT_EQ(header.toBytes(), before);
        EXPECT_EQ(header.fileName, "old.sacc");
    }
    void expectRefusal(const SaccFields& fields, const KiroString& text)
    {
        expectRefusal(fields.bytes(), text);
    }

    TestFolder m_folder;
    KiroSaccHeader header;
};

class KiroSaccVersion : public KiroSaccLoad, public testing::WithParamInterface<std::uint32_t>
{
protected:
    SaccFields fields() const
    {
        SaccFields result;
        result.version = GetParam();
        return result;
    }
};

SaccFields ofVersion(std::uint32_t version)
{
    SaccFields fields;
    fields.version = version;
    return fields;
}

/// A file of a version below 17 with one saccade.
SaccFields withOldSaccade(std::uint32_t version, bool raw, const OldSaccadeFields& saccade = {})
{
    SaccFields fields = ofVersion(version);
    fields.raw = raw ? 1 : 0;
    fields.saccadeCount = 1;
    fields.records = saccade.bytes(version);
    return fields;
}

/// A file of version 19 with one saccade and one blink.
SaccFields withRecords()
{
    SaccFields fields;
    fields.saccadeCount = 1;
    fields.blinkCount = 1;
    const std::string block = SaccBlockFields().bytes();
    fields.records = block + block + block + blinkBytes();
    return fields;
}

} // namespace

TEST_P(KiroSaccVersion, IsReadByItsLayout)
{
    const std::uint32_t version = GetParam();
    ASSERT_TRUE(load(fields())) << header.error.bytes();
    EXPECT_EQ(header.error, "");
    EXPECT_EQ(header.missingBytes(), 0);
    EXPECT_EQ(header.version, 19u);
    EXPECT_EQ(header.dataFile, version >= 11 ? "/data/rec.kiro" : "");
    EXPECT_EQ(header.relativeDataFile, "../rec.kiro");
    EXPECT_EQ(header.comment, "a comment");
    EXPECT_EQ(header.blinksHorizontal, version == 19);
    EXPECT_TRUE(header.saccades.empty());
    EXPECT_TRUE(header.blinks.empty());
    EXPECT_EQ(header.ratePeriod, version >= 10 ? 2000u : 1000000u);
    EXPECT_EQ(header.samplesPerPeriod, version >= 10 ? 501u : 250000u);
    EXPECT_EQ(header.durationMs, version >= 4 ? 600123u : 0u);
    const SaccadeDetectionParams& params = header.params;
    EXPECT_EQ(params.local, 7);
    EXPECT_EQ(params.gap, 50);
    EXPECT_EQ(params.minTime, 20);
    EXPECT_EQ(params.maxTime, 300);
    EXPECT_EQ(params.initVel, version >= 14 ? 35.5 : 0.0);
    EXPECT_EQ(params.minSpeed, version >= 7 ? 100.0 : 10.0); // 100 / (5 * 2)
    EXPECT_EQ(params.minSlope, 15000.5);
    EXPECT_EQ(params.minAmp, 0.0);
    EXPECT_EQ(params.maxAmp, 0.0);
}

TEST_P(KiroSaccVersion, HasItsSignals)
{
    const bool all = GetParam() >= 17;
    ASSERT_TRUE(load(fields()));
    EXPECT_EQ(header.detectionType, all ? 3 : 1);
    EXPECT_EQ(header.rightHorizontal.signalIndex, all ? 6 : 3);
    EXPECT_EQ(header.rightHorizontal.factor, all ? 12.5 : GetParam() <= 6 ? 0.125 : 8.0);
    EXPECT_EQ(header.rightHorizontal.offset, all ? -3.25 : 0.0);
    EXPECT_EQ(header.rightVertical.factor, all ? 13.5 : 1.0);
    EXPECT_EQ(header.rightVertical.offset, all ? -4.25 : 0.0);
    EXPECT_EQ(header.leftHorizontal.signalIndex, all ? 4 : -1);
    EXPECT_EQ(header.leftHorizontal.factor, all ? 10.5 : 1.0);
    EXPECT_EQ(header.leftVertical.signalIndex, all ? 5 : -1);
    EXPECT_EQ(header.leftVertical.offset, all ? -2.25 : 0.0);
}

TEST_P(KiroSaccVersion, HasItsSizeCheck)
{
    SaccFields damaged = fields();
    damaged.sizeCheck = SaccFields::sizeCheckOf(GetParam()) + 1;
    expectRefusal(damaged, KiroString("invalid header size (%1), should be %2")
                               .arg(damaged.sizeCheck)
                               .arg(damaged.sizeCheck - 1));
}

INSTANTIATE_TEST_SUITE_P(All, KiroSaccVersion, testing::Range(1u, 20u),
                         [](const auto& row) { return "Version" + std::to_string(row.param); });

TEST_F(KiroSaccLoad, StoresThePath)
{
    const KiroString path = write(withRecords().bytes());
    ASSERT_TRUE(header.load(path));
    EXPECT_EQ(header.fileName, path);
    ASSERT_TRUE(header.load(header.fileName));
    EXPECT_EQ(header.fileName, path);
    EXPECT_EQ(header.saccades.size(), 1u);
    EXPECT_EQ(header.blinks.size(), 1u);
}

TEST_F(KiroSaccLoad, EveryFieldOfTheRecordsIsRead)
{
    ASSERT_TRUE(load(withRecords()));
    const KiroSaccadeEye& eye = header.saccades.at(0).left;
    EXPECT_EQ(eye.start, 100);
    EXPECT_EQ(eye.end, 119);
    EXPECT_EQ(eye.duration, 20);
    EXPECT_EQ(eye.fixation, 80);
    EXPECT_EQ(eye.amplitude, 4.5);
    EXPECT_EQ(eye.peakVelocity, 310.25);
    EXPECT_EQ(eye.meanVelocity, 225.5);
    EXPECT_EQ(eye.peakAcceleration, 9000.75);
    EXPECT_EQ(eye.velocityPerDuration, 0.0625);
    EXPECT_EQ(eye.amplitudeHorz, 3.25);
    EXPECT_EQ(eye.startHorz, -1.5);
    EXPECT_EQ(eye.endHorz, 1.75);
    EXPECT_EQ(eye.amplitudeVert, 2.5);
    EXPECT_EQ(eye.startVert, 0.5);
    EXPECT_EQ(eye.endVert, 3.0);
    const KiroBlink& blink = header.blinks.at(0);
    EXPECT_EQ(blink.start, 400);
    EXPECT_EQ(blink.end, 599);
    EXPECT_EQ(blink.duration, 200);
    EXPECT_EQ(blink.peaksDistance, 90);
    EXPECT_EQ(blink.amp1, 20.5);
    EXPECT_EQ(blink.amp2, 16.5);
    EXPECT_EQ(blink.ampRelation, 0.75);
}

TEST_F(KiroSaccLoad, Version17HasNoBlinksAndIsSavedWithThem)
{
    SaccFields fields = ofVersion(17);
    fields.saccadeCount = 1;
    fields.records = withRecords().records; // what follows the saccade is no blink
    header.blinks.resize(4);
    ASSERT_TRUE(load(fields));
    EXPECT_EQ(header.saccades.size(), 1u);
    EXPECT_TRUE(header.blinks.empty());
    EXPECT_EQ(header.version, 19u);
    header.blinks.resize(1);
    ASSERT_TRUE(header.save());
    EXPECT_EQ(fileBytes(header.fileName).size(), HeaderSize + 324 + 40);
}

TEST_F(KiroSaccLoad, FactorOfVersion6IsTurnedUnlessTiny)
{
    struct Row
    {
        std::uint32_t version;
        double stored;
        double loaded;
    };
    for (const Row& row : {Row{6, 50.0, 0.02}, Row{6, 0.000001, 0.000001}, Row{6, 0.00001, 0.00001},
                           Row{6, -3.0, -3.0}, Row{1, 4.0, 0.25}, Row{7, 50.0, 50.0}}) {
        SaccFields fields = ofVersion(row.version);
        fields.oldFactor = row.stored;
        ASSERT_TRUE(load(fields));
        EXPECT_EQ(header.signalFactor(5), row.loaded) << row.version << ' ' << row.stored;
    }
}

TEST_F(KiroSaccLoad, FrequencyBecomesARateAndIsHeldAtItsLimits)
{
    struct Row
    {
        std::uint32_t version;
        double frequency;
        std::uint32_t samples;
    };
    constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
    for (const Row& row :
         {Row{7, 249.9999, 249999}, Row{9, 128.0, 128000}, Row{7, 0.0009, 0}, Row{7, -1.0, 0}, Row{7, NaN, 0},
          Row{8, 1e300, 4294967295u}, Row{7, 4294967.2959, 4294967295u}, Row{6, 1000.0, 1000000},
          Row{6, 4294967295.0, 4294967295u}, Row{1, 0.0, 0}}) {
        SaccFields fields = ofVersion(row.version);
        fields.frequency = row.frequency;
        ASSERT_TRUE(load(fields));
        EXPECT_EQ(header.ratePeriod, 1000000u);
        EXPECT_EQ(header.samplesPerPeriod, row.samples) << row.version << ' ' << row.frequency;
    }
}

TEST_F(KiroSaccLoad, OldSaccadeWithoutTheRawFlagKeepsItsValues)
{
    for (const std::uint32_t version : {7u, 8u, 11u, 12u, 16u}) {
        ASSERT_TRUE(load(withOldSaccade(version, false)));
        const KiroSaccade& saccade = header.saccades.at(0);
        EXPECT_EQ(saccade.main.start, 100);
        EXPECT_EQ(saccade.main.end, 119);
        EXPECT_EQ(saccade.main.duration, 20);
        EXPECT_EQ(saccade.main.fixation, 80);
        EXPECT_EQ(saccade.main.amplitudeHorz, 400.0);
        EXPECT_EQ(saccade.main.startHorz, -100.0);
        EXPECT_EQ(saccade.main.endHorz, 300.0);
        EXPECT_EQ(saccade.main.peakVelocity, 3000.0);
        EXPECT_EQ(saccade.main.meanVelocity, 2000.0);
        EXPECT_EQ(saccade.main.peakAcceleration, 500.0);
        EXPECT_EQ(saccade.main.velocityPerDuration, 0.25);
        EXPECT_EQ(saccade.main.amplitude, 0.0);
        EXPECT_EQ(saccade.main.amplitudeVert, 0.0);
        EXPECT_EQ(saccade.main.startVert, 0.0);
        EXPECT_EQ(saccade.main.endVert, 0.0);
        EXPECT_EQ(saccade.right.start, 0);
        EXPECT_EQ(saccade.left.end, 0);
        EXPECT_TRUE(saccade.valid);
    }
}

TEST_F(KiroSaccLoad, RawSaccadeIsConverted)
{
    // Factor 8; 501 samples in 2 s.
    ASSERT_TRUE(load(withOldSaccade(16, true)));
    const KiroSaccadeEye& eye = header.saccades.at(0).main;
    EXPECT_EQ(eye.amplitudeHorz, 50.0);
    EXPECT_EQ(eye.startHorz, -12.5);
    EXPECT_EQ(eye.endHorz, 37.5);
    EXPECT_EQ(eye.amplitude, 50.0);
    EXPECT_EQ(eye.amplitudeVert, 50.0);
    EXPECT_EQ(eye.startVert, -12.5);
    EXPECT_EQ(eye.endVert, 37.5);
    EXPECT_EQ(eye.peakVelocity, 93937.5);         // 3000 / 8 * 250.5
    EXPECT_EQ(eye.meanVelocity, 62625.0);         // 2000 / 8 * 250.5
    EXPECT_EQ(eye.peakAcceleration, 3921890.625); // 500 / 8 * 250.5 * 250.5
    EXPECT_EQ(eye.velocityPerDuration, 0.25);
}

TEST_F(KiroSaccLoad, SpeedsOfVersion6AreDividedByTwiceTheBaseBeforeTheConversion)
{
    // Base 5; the factor 8 is turned into 0.125; 250 Hz.
    ASSERT_TRUE(load(withOldSaccade(6, false)));
    EXPECT_EQ(header.saccades.at(0).main.peakVelocity, 300.0);
    EXPECT_EQ(header.saccades.at(0).main.meanVelocity, 200.0);
    EXPECT_EQ(header.saccades.at(0).main.peakAcceleration, 500.0);
    ASSERT_TRUE(load(withOldSaccade(6, true)));
    EXPECT_EQ(header.saccades.at(0).main.peakVelocity, 600000.0);
    EXPECT_EQ(header.saccades.at(0).main.meanVelocity, 400000.0);
    EXPECT_EQ(header.saccades.at(0).main.peakAcceleration, 250000000.0);
    EXPECT_EQ(header.saccades.at(0).main.startHorz, -800.0);
}

TEST_F(KiroSaccLoad, SpeedOfVersion6IsUnsignedAndItsPositionsAreSigned)
{
    OldSaccadeFields saccade;
    saccade.peakVelocity = 4294967290.0;
    saccade.positions[0] = -1.0;
    ASSERT_TRUE(load(withOldSaccade(6, false, saccade)));
    EXPECT_EQ(header.saccades.at(0).main.peakVelocity, 429496729.0);
    EXPECT_EQ(header.saccades.at(0).main.amplitudeHorz, -1.0);
}

TEST_F(KiroSaccLoad, VelocityPerDurationBeginsWithVersion3)
{
    ASSERT_TRUE(load(withOldSaccade(2, false)));
    EXPECT_EQ(header.saccades.at(0).main.velocityPerDuration, 0.0);
    ASSERT_TRUE(load(withOldSaccade(3, false)));
    EXPECT_EQ(header.saccades.at(0).main.velocityPerDuration, 0.25);
}

TEST_F(KiroSaccLoad, AnyRawFlagButZeroCounts)
{
    SaccFields fields = withOldSaccade(13, true);
    fields.raw = 2;
    ASSERT_TRUE(load(fields));
    EXPECT_EQ(header.saccades.at(0).main.amplitude, 50.0);
}

TEST_F(KiroSaccLoad, BaseOfZeroGivesNoFiniteSpeedAndNoCrash)
{
    SaccFields fields = withOldSaccade(6, true);
    fields.base = 0;
    ASSERT_TRUE(load(fields));
    EXPECT_TRUE(std::isinf(header.params.minSpeed));
    EXPECT_TRUE(std::isinf(header.saccades.at(0).main.peakVelocity));
}

TEST_F(KiroSaccLoad, RatePeriodOfZeroGivesNoFiniteFrequency)
{
    SaccFields fields;
    fields.ratePeriod = 0;
    ASSERT_TRUE(load(fields));
    EXPECT_TRUE(std::isinf(header.frequency()));
}

TEST_F(KiroSaccLoad, TextThatFillsItsFieldHasNoZeroByte)
{
    SaccFields fields;
    fields.dataFile = std::string(4096, 'd');
    fields.comment = std::string(8192, 'c');
    ASSERT_TRUE(load(fields));
    EXPECT_EQ(header.dataFile.bytes(), std::string(4096, 'd'));
    EXPECT_EQ(header.relativeDataFile, "../rec.kiro");
    EXPECT_EQ(header.comment.bytes(), std::string(8192, 'c'));
}

TEST_F(KiroSaccLoad, TextEndsAtItsFirstZeroByte)
{
    SaccFields fields;
    fields.comment = std::string("ab\0cd", 5);
    ASSERT_TRUE(load(fields));
    EXPECT_EQ(header.comment.bytes(), "ab");
}

TEST_F(KiroSaccLoad, BytesBehindTheRecordsAreIgnored)
{
    ASSERT_TRUE(load(withRecords().bytes() + std::string(1000, 'x')));
    EXPECT_EQ(header.toBytes(), withRecords().bytes());
    EXPECT_EQ(header.missingBytes(), 0);
}

TEST_F(KiroSaccLoad, WrongMarkIsShownInAFieldOfEight)
{
    SaccFields fields;
    fields.mark = 0xabc;
    expectRefusal(fields, "invalid magic number (0x     abc)");
    fields.mark = 0xa0c27d9e;
    expectRefusal(fields, "invalid magic number (0xa0c27d9e)");
}

TEST_F(KiroSaccLoad, VersionsFrom1To19AreKnown)
{
    for (const std::uint32_t version : {0u, 20u, 4294967295u}) {
        SaccFields fields = ofVersion(version);
        fields.sizeCheck = 12445;
        expectRefusal(fields, KiroString("unknown header version (%1)").arg(version));
    }
}

TEST_F(KiroSaccLoad, TrueLengthOfTheHeaderIsNoSizeCheck)
{
    SaccFields fields;
    fields.sizeCheck = 16541;
    expectRefusal(fields, "invalid header size (16541), should be 12445");
}

TEST_F(KiroSaccLoad, FileThatEndsBeforeItsHeaderIsRefused)
{
    const std::string bytes = SaccFields().bytes();
    expectRefusal("", "invalid magic number (0x       0)");
    expectRefusal(bytes.substr(0, 3), "invalid magic number (0x       0)");
    expectRefusal(bytes.substr(0, 4), "unknown header version (0)");
    expectRefusal(bytes.substr(0, 8), "invalid header size (0), should be 12445");
    expectRefusal(bytes.substr(0, 11), "invalid header size (0), should be 12445");
}

TEST_F(KiroSaccLoad, WhatIsNoFileIsRefused)
{
    const QString pipe = m_folder.path(QStringLiteral("pipe"));
    ASSERT_EQ(::mkfifo(qPrintable(pipe), 0600), 0);
    for (const QString& name : {pipe, m_folder.path(QString()), m_folder.path(QStringLiteral("absent.sacc")),
                                m_folder.path(QStringLiteral("absent%1.sacc")), QString()}) {
        EXPECT_FALSE(header.load(KiroString(name)));
        EXPECT_EQ(header.error, Load + KiroString("can't open file (") + KiroString(name) + KiroString(")"));
    }
}

TEST_F(KiroSaccLoad, SuccessClearsTheError)
{
    EXPECT_FALSE(load(std::string()));
    ASSERT_TRUE(load(withRecords()));
    EXPECT_EQ(header.error, "");
}

namespace
{

/// Where a number of a file like withRecords() ends, in bytes from its start. Texts are cut between bytes.
std::set<std::size_t> numberEnds()
{
    std::set<std::size_t> ends;
    std::size_t position = 0;
    const auto numbers = [&](int count, std::size_t width) {
        for (int i = 0; i < count; ++i)
            ends.insert(position += width);
    };
    numbers(3, 4);
    numbers(4096 + 4096 + 8192 + 1, 1);
    numbers(5 + 4, 4);
    numbers(8, 8);
    numbers(4, 4);
    numbers(3, 8);
    numbers(1, 4);
    for (int block = 0; block < 3; ++block) {
        numbers(5, 4);
        numbers(11, 8);
    }
    numbers(4, 4);
    numbers(3, 8);
    return ends;
}

/// What a file like withRecords() is worth when only `count` bytes of it are left: a number that is not
/// there whole is 0, and so is a count.
std::string worthOf(const std::string& bytes, std::size_t count, const std::set<std::size_t>& ends)
{
    std::string result = bytes;
    const std::size_t whole = *std::prev(ends.upper_bound(count));
    std::fill(result.begin() + std::ptrdiff_t(whole), result.end(), '\0');
    const std::size_t saccades = result[16400] != 0 ? 324 : 0;
    const std::size_t blinks = result[16404] != 0 ? 40 : 0;
    result.resize(HeaderSize + saccades + blinks);
    return result;
}

} // namespace

TEST_F(KiroSaccLoad, FileCutAnywhereReadsZeroForWhatIsMissing)
{
    const std::string bytes = withRecords().bytes();
    const std::set<std::size_t> ends = numberEnds();
    ASSERT_EQ(*ends.rbegin(), bytes.size());
    constexpr std::size_t TextsEnd = 16396;
    // Every offset beyond the texts, and some within them.
    for (std::size_t count = 12; count < bytes.size(); count += count + 997 < TextsEnd ? 997 : 1) {
        ASSERT_TRUE(load(bytes.substr(0, count))) << count;
        const std::string worth = worthOf(bytes, count, ends);
        ASSERT_EQ(header.toBytes(), worth) << count;
        ASSERT_EQ(header.error, "") << count;
        ASSERT_EQ(header.missingBytes(), std::int64_t(worth.size() - count)) << count;
        ASSERT_EQ(header.missingSaccades(), header.saccades.empty() || count >= HeaderSize + 324 ? 0 : 1);
        ASSERT_EQ(header.missingBlinks(), header.blinks.empty() ? 0 : 1) << count;
    }
}

TEST_F(KiroSaccLoad, CutFileOfEveryVersionLoads)
{
    for (std::uint32_t version = 1; version <= 18; ++version) {
        SaccFields fields = withOldSaccade(std::min(version, 16u), true);
        fields.version = version;
        fields.records = version >= 17 ? withRecords().records.substr(0, 324) : fields.records;
        const std::string bytes = fields.bytes();
        const std::size_t headerSize = bytes.size() - fields.records.size();
        // From behind the counts on, whatever the version.
        for (std::size_t count = headerSize - 78; count < bytes.size(); ++count) {
            ASSERT_TRUE(load(bytes.substr(0, count))) << version << ' ' << count;
            ASSERT_EQ(header.missingBytes(), std::int64_t(bytes.size() - count)) << version;
            ASSERT_EQ(header.missingSaccades(), 1);
            ASSERT_EQ(header.saccades.size(), 1u);
        }
    }
}

TEST_F(KiroSaccLoad, CountsBeyondTheFileAreRefused)
{
    SaccFields fields = withRecords();
    fields.saccadeCount = fields.blinkCount = 0xffffffff;
    // (2^32 - 1) * (324 + 40), less what is there.
    expectRefusal(fields, "too many records announced (4294967295 saccades, 4294967295 blinks, "
                          "1563368095016 bytes missing)");
    SaccFields old = withOldSaccade(10, true);
    old.saccadeCount = 0x10000000;
    // 2^28 - 1 records of 84 bytes.
    expectRefusal(old,
                  "too many records announced (268435456 saccades, 0 blinks, 22548578220 bytes missing)");
}

TEST_F(KiroSaccLoad, AShortFileMayMiss4MiBAndNoMore)
{
    SaccFields fields;
    fields.saccadeCount = 6;
    fields.blinkCount = 104809; // 6 * 324 + 104809 * 40 = 4194304
    ASSERT_TRUE(load(fields));
    EXPECT_EQ(header.saccades.size(), 6u);
    EXPECT_EQ(header.blinks.size(), 104809u);
    EXPECT_EQ(header.missingBytes(), 4194304);
    EXPECT_EQ(header.missingSaccades(), 6);
    EXPECT_EQ(header.missingBlinks(), 104809);
    ++fields.blinkCount;
    expectRefusal(fields, "too many records announced (6 saccades, 104810 blinks, 4194344 bytes missing)");
}

TEST_F(KiroSaccLoad, ALongFileMayMissAsMuchAsItHolds)
{
    SaccFields fields;
    fields.records = std::string(std::size_t(20000) * 324, '\1');
    fields.saccadeCount = 40051; // (40051 - 20000) * 324 = 6496524, and the file has 6496541 bytes
    ASSERT_TRUE(load(fields));
    EXPECT_EQ(header.missingSaccades(), 20051);
    EXPECT_EQ(header.saccades.at(19999).right.reserved, 0x01010101);
    EXPECT_EQ(header.saccades.at(20000).main.start, 0);
    ++fields.saccadeCount;
    expectRefusal(fields, "too many records announced (40052 saccades, 0 blinks, 6496848 bytes missing)");
}

TEST_F(KiroSaccLoad, ManyRecordsAreReadInOrder)
{
    constexpr int Count = 3000; // more than one block
    SaccFields fields;
    fields.saccadeCount = fields.blinkCount = Count;
    const std::string blank(324 - 4, '\0');
    for (int i = 0; i < Count; ++i)
        fields.records += bigEndian(std::uint64_t(i), 4) + blank;
    for (int i = 0; i < Count; ++i)
        fields.records += bigEndian(std::uint64_t(i), 4) + std::string(36, '\0');
    ASSERT_TRUE(load(fields));
    ASSERT_EQ(header.saccades.size(), std::size_t(Count));
    ASSERT_EQ(header.blinks.size(), std::size_t(Count));
    for (int i = 0; i < Count; ++i) {
        ASSERT_EQ(header.saccades[std::size_t(i)].main.start, i);
        ASSERT_EQ(header.blinks[std::size_t(i)].start, i);
    }
    EXPECT_EQ(header.toBytes(), fields.bytes());
}
