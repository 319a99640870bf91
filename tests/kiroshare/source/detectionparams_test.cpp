#include "detectionparams.h"

#include "detectionline.h"
#include "detectionprofile.h"
#include "filesizelimit.h"
#include "recordingfile.h"

#include <QFile>
#include <QLocale>

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

#include <sys/stat.h>

namespace
{

const std::string NewHead = "!!! Saccade detection parameters file - DO NOT EDIT MANUALLY !!!\n";
const std::string OldHead = "!!! Saccade detection parameters file - do not change !!!\n";
const std::string BlinkHead = "!!! Blinks detection parameters file - DO NOT EDIT MANUALLY !!!\n";

/// All fields in one text, so that a test compares whole records: local, gap, ... as the record has them.
std::string textOf(const SaccadeDetectionParams& p)
{
    std::ostringstream out;
    out.precision(17);
    out << p.local << ' ' << p.gap << ' ' << p.minTime << ' ' << p.maxTime << ' ' << p.initVel << ' '
        << p.minSpeed << ' ' << p.minSlope << ' ' << p.minAmp << ' ' << p.maxAmp;
    return out.str();
}

std::string textOf(const BlinkDetectionParams& p)
{
    std::ostringstream out;
    out.precision(17);
    out << p.peakVel1 << ' ' << p.peakVel2 << ' ' << p.minVel << ' ' << p.maxPeaksDistance << ' '
        << p.minAmplitude << ' ' << p.minAmplitudeRelation << ' ' << p.maxAmplitudeRelation << ' '
        << p.minDuration << ' ' << p.maxDuration;
    return out.str();
}

const std::string Failed = "failed";

class DetectionProfileTest : public testing::Test
{
protected:
    /// The record that the bytes load as. A failure must leave the record alone.
    std::string saccades(const std::string& bytes) { return read(bytes, readSaccadeProfile); }
    std::string blinks(const std::string& bytes) { return read(bytes, readBlinkProfile); }

    QString path() const { return m_folder.path(QStringLiteral("profile")); }

    TestFolder m_folder;

private:
    template <class Record>
    std::string read(const std::string& bytes, bool (*load)(const QString&, Record&))
    {
        m_folder.write(QStringLiteral("profile"), bytes);
        Record record = Record::atStart();
        if (load(path(), record))
            return textOf(record);
        EXPECT_EQ(textOf(record), textOf(Record::atStart()));
        return Failed;
    }
};

/// Lines "k: 1", "k: 2" and so on.
std::string numberedLines(int count)
{
    std::string text;
    for (int i = 1; i <= count; ++i)
        text += "k: " + std::to_string(i) + '\n';
    return text;
}

std::string versionLine(int version)
{
    return "Version: " + std::to_string(version) + '\n';
}

/// Version 8 with these eight values.
std::string version8(const std::vector<std::string>& values)
{
    std::string text = NewHead + versionLine(8);
    for (const std::string& value : values)
        text += "k: " + value + '\n';
    return text;
}

/// Sets the default locale for the length of a test.
class DefaultLocale
{
public:
    explicit DefaultLocale(const QLocale& locale) { QLocale::setDefault(locale); }
    ~DefaultLocale() { QLocale::setDefault(m_before); }

private:
    Q_DISABLE_COPY(DefaultLocale)
    QLocale m_before;
};

const char* const SaccadeStartFile = "!!! Saccade detection parameters file - DO NOT EDIT MANUALLY !!!\n"
                                     "Version: 8\n"
                                     "local: 7\n"
                                     "gap: 50\n"
                                     "min_time: 20\n"
                                     "max_time: 300\n"
                                     "init_vel: 35\n"
                                     "min_speed: 100\n"
                                     "min_slope: 15000\n"
                                     "min_amp: 0\n"
                                     "max_amp: 500\n";
const char* const BlinkStartFile = "!!! Blinks detection parameters file - DO NOT EDIT MANUALLY !!!\n"
                                   "Version: 1\n"
                                   "peak_vel_1: 200\n"
                                   "peak_vel_2: 100\n"
                                   "max_peaks_distance: 150\n"
                                   "min_vel: 20\n"
                                   "min_amplitude: 15\n"
                                   "min_amplitude_relation: 0.6\n"
                                   "max_amplitude_relation: 1.4\n"
                                   "min_duration: 100\n"
                                   "max_duration: 500\n";

} // namespace

TEST(DetectionParams, StartValuesAndDefaultsDiffer)
{
    EXPECT_EQ(textOf(SaccadeDetectionParams()), "0 0 0 0 0 0 0 0 0");
    EXPECT_EQ(textOf(SaccadeDetectionParams::atStart()), "7 50 20 300 35 100 15000 0 500");
    EXPECT_EQ(textOf(SaccadeDetectionParams::defaults()), "7 30 20 200 20 100 1000 1 100");
    EXPECT_EQ(textOf(BlinkDetectionParams()), "0 0 0 0 0 0 0 0 0");
    EXPECT_EQ(textOf(BlinkDetectionParams::atStart()),
              "200 100 20 150 15 0.59999999999999998 1.3999999999999999 100 500");
    EXPECT_EQ(textOf(BlinkDetectionParams::defaults()), "200 100 20 150 15 0.5 1.5 200 500");
}

TEST_F(DetectionProfileTest, WritesTheFieldsInTheirOrder)
{
    ASSERT_TRUE(writeSaccadeProfile(path(), SaccadeDetectionParams::atStart()));
    EXPECT_EQ(fileBytes(path()), SaccadeStartFile);
    ASSERT_TRUE(writeBlinkProfile(path(), BlinkDetectionParams::atStart()));
    EXPECT_EQ(fileBytes(path()), BlinkStartFile);
}

TEST_F(DetectionProfileTest, WritesSixSignificantDigits)
{
    SaccadeDetectionParams params;
    params.initVel = 15000.24;
    params.minSpeed = 1234567.0;
    params.minSlope = 0.000012345678;
    params.maxAmp = -1.5;
    ASSERT_TRUE(writeSaccadeProfile(path(), params));
    EXPECT_EQ(fileBytes(path()), NewHead + "Version: 8\nlocal: 0\ngap: 0\nmin_time: 0\nmax_time: 0\n"
                                           "init_vel: 15000.2\nmin_speed: 1.23457e+06\n"
                                           "min_slope: 1.23457e-05\nmin_amp: 0\nmax_amp: -1.5\n");
}

TEST_F(DetectionProfileTest, NumbersDoNotDependOnTheLocale)
{
    const DefaultLocale polish(QLocale(QLocale::Polish, QLocale::Poland));
    BlinkDetectionParams params = BlinkDetectionParams::atStart();
    params.maxPeaksDistance = 12345;
    ASSERT_TRUE(writeBlinkProfile(path(), params));
    EXPECT_NE(fileBytes(path()).find("max_peaks_distance: 12345\n"), std::string::npos);
    EXPECT_NE(fileBytes(path()).find("min_amplitude_relation: 0.6\n"), std::string::npos);
    BlinkDetectionParams again;
    ASSERT_TRUE(readBlinkProfile(path(), again));
    EXPECT_EQ(textOf(again), textOf(params));
    EXPECT_EQ(saccades(version8({"1", "2", "3", "4", "5,5", "6.5", "1,000", "8"})), "1 2 3 4 0 6.5 0 8 0");
    EXPECT_EQ(
        saccadeLine(SaccadeDetectionParams::atStart()).toStdString(),
        "Version;2;7;50;20;300;35.0000000000;100.0000000000;15000.0000000000;0.0000000000;500.0000000000");
}

TEST_F(DetectionProfileTest, OddCountsAreKept)
{
    SaccadeDetectionParams params = SaccadeDetectionParams::atStart();
    params.local = -3;
    params.gap = -50;
    params.minTime = std::numeric_limits<std::int32_t>::min();
    params.maxTime = std::numeric_limits<std::int32_t>::max();
    params.maxAmp = 0.0;
    ASSERT_TRUE(writeSaccadeProfile(path(), params));
    SaccadeDetectionParams again;
    ASSERT_TRUE(readSaccadeProfile(path(), again));
    EXPECT_EQ(textOf(again), textOf(params));
    SaccadeDetectionParams fromLine;
    ASSERT_TRUE(readSaccadeLine(saccadeLine(params), fromLine));
    EXPECT_EQ(textOf(fromLine), textOf(params));
}

TEST_F(DetectionProfileTest, Version8LosesTheGreatestAmplitude)
{
    EXPECT_EQ(saccades(SaccadeStartFile), "7 50 20 300 35 100 15000 0 0");
}

namespace
{

/// How many value lines a version has, and the record that the values 1, 2, 3, ... give.
struct SaccadeVersion
{
    int version;
    int lineCount;
    const char* record;
};

void PrintTo(const SaccadeVersion& row, std::ostream* out)
{
    *out << row.version;
}

class SaccadeVersions : public DetectionProfileTest, public testing::WithParamInterface<SaccadeVersion>
{
protected:
    static std::string head()
    {
        return GetParam().version == 2 ? OldHead : NewHead + versionLine(GetParam().version);
    }
};

// In versions 2 and 3 the speed 6 is divided by twice the base, which is 1.
INSTANTIATE_TEST_SUITE_P(
    Layouts, SaccadeVersions,
    testing::Values(SaccadeVersion{2, 7, "2 3 4 5 0 3 7 0 500"}, SaccadeVersion{3, 8, "2 3 4 5 0 3 7 0 500"},
                    SaccadeVersion{4, 8, "2 3 4 5 0 6 7 0 500"}, SaccadeVersion{5, 9, "2 3 4 5 6 7 8 0 500"},
                    SaccadeVersion{6, 8, "2 3 4 5 6 7 8 0 500"}, SaccadeVersion{7, 10, "2 3 4 5 6 7 8 9 10"},
                    SaccadeVersion{8, 8, "1 2 3 4 5 6 7 8 0"}, SaccadeVersion{9, 8, "1 2 3 4 5 6 7 8 0"},
                    SaccadeVersion{1000, 8, "1 2 3 4 5 6 7 8 0"}),
    [](const auto& row) { return "Version" + std::to_string(row.param.version); });

} // namespace

TEST_P(SaccadeVersions, HasItsLines)
{
    EXPECT_EQ(saccades(head() + numberedLines(GetParam().lineCount)), GetParam().record);
    EXPECT_EQ(saccades(head() + numberedLines(GetParam().lineCount + 5)), GetParam().record);
    EXPECT_EQ(saccades(head() + numberedLines(GetParam().lineCount - 1)), Failed);
}

TEST_P(SaccadeVersions, EachLineMustHoldAColon)
{
    for (int broken = 0; broken < GetParam().lineCount; ++broken) {
        const std::string text =
            head() + numberedLines(broken) + "k 1\n" + numberedLines(GetParam().lineCount - broken - 1);
        EXPECT_EQ(saccades(text), Failed) << broken;
    }
    EXPECT_EQ(saccades(head() + numberedLines(GetParam().lineCount) + "no colon\n"), GetParam().record);
}

TEST_F(DetectionProfileTest, OtherVersionsFail)
{
    for (const char* version : {"2", "1", "0", "-3", "1001", "99999999999", "8.5", "eight", ""})
        EXPECT_EQ(saccades(NewHead + "Version: " + version + '\n' + numberedLines(10)), Failed) << version;
    EXPECT_EQ(saccades(NewHead + "Version 8\n" + numberedLines(10)), Failed);
    EXPECT_EQ(saccades(NewHead + numberedLines(10)), Failed); // the first value, 1, as version
    EXPECT_EQ(saccades(NewHead + "x:8\n" + numberedLines(10)), "1 2 3 4 5 6 7 8 0");
}

TEST_F(DetectionProfileTest, TheOlderHeadHasNoVersionLine)
{
    EXPECT_EQ(saccades(OldHead + "base: 0.5\n" + numberedLines(6)), "1 2 3 4 0 5 6 0 500");
    // Here it is taken for the base.
    EXPECT_EQ(saccades(OldHead + "Version: 2\n" + numberedLines(6)), "1 2 3 4 0 1.25 6 0 500");
}

TEST_F(DetectionProfileTest, OtherHeadsFail)
{
    const std::string lines = versionLine(8) + numberedLines(10);
    EXPECT_EQ(saccades(""), Failed);
    EXPECT_EQ(saccades("\n" + NewHead + lines), Failed);
    EXPECT_EQ(saccades(NewHead), Failed);
    EXPECT_EQ(saccades(OldHead), Failed);
    EXPECT_EQ(saccades(BlinkHead + lines), Failed);
    EXPECT_EQ(saccades(NewHead.substr(0, NewHead.size() - 1) + " \n" + lines), Failed);
    EXPECT_EQ(saccades(' ' + NewHead + lines), Failed);
}

TEST_F(DetectionProfileTest, LineEndsMayBeThoseOfOtherSystems)
{
    std::string text = SaccadeStartFile;
    for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 2))
        text.replace(at, 1, "\r\n");
    EXPECT_EQ(saccades(text), "7 50 20 300 35 100 15000 0 0");
    EXPECT_EQ(saccades(NewHead + versionLine(8) + numberedLines(7) + "k: 9"), "1 2 3 4 5 6 7 9 0");
}

TEST_F(DetectionProfileTest, ValuesThatAreNoNumbersReadAsZero)
{
    EXPECT_EQ(saccades(version8({"seven", "50.5", "", "99999999999", "fast", "1e4", "a:b: 5", "  8\t"})),
              "0 0 0 0 0 10000 0 8 0");
    EXPECT_EQ(saccades(version8({"-3", "+4", "1e2", "0x10", "inf", "nan", "1e999", "-1.5e-3"})),
              "-3 4 0 0 0 0 0 -0.0015 0");
}

TEST_F(DetectionProfileTest, TheSpeedIsDividedByTwiceTheBase)
{
    const auto speed = [this](const std::string& base, const std::string& minSpeed) {
        return saccades(OldHead + "base: " + base + '\n' + numberedLines(4) + "s: " + minSpeed + "\nk: 6\n");
    };
    EXPECT_EQ(speed("37", "623.592"), "1 2 3 4 0 8.4269200000000009 6 0 500");
    EXPECT_EQ(speed("3", "1000000"), "1 2 3 4 0 166667 6 0 500"); // six digits
    EXPECT_EQ(speed("x", "120.5"), "1 2 3 4 0 120.5 6 0 500");
    EXPECT_EQ(speed("4", "x"), "1 2 3 4 0 0 6 0 500");
    EXPECT_EQ(speed("0", "120.5"), "1 2 3 4 0 120.5 6 0 500");
    EXPECT_EQ(speed("1e-300", "1e300"), "1 2 3 4 0 1.0000000000000001e+300 6 0 500");
}

TEST_F(DetectionProfileTest, BlinksAreReadInTheOrderOfTheFile)
{
    EXPECT_EQ(blinks(BlinkHead + versionLine(1) + numberedLines(9)), "1 2 4 3 5 6 7 8 9");
    EXPECT_EQ(blinks(BlinkHead + versionLine(1) + numberedLines(12)), "1 2 4 3 5 6 7 8 9");
    EXPECT_EQ(blinks(BlinkStartFile), textOf(BlinkDetectionParams::atStart()));
    EXPECT_EQ(blinks(BlinkHead + versionLine(1) + "k: x\nk: 2\nk: 1.5\n" + numberedLines(6)),
              "0 2 1 0 2 3 4 5 6");
}

TEST_F(DetectionProfileTest, BlinksHaveVersion1Only)
{
    EXPECT_EQ(blinks(BlinkHead + versionLine(0) + numberedLines(9)), Failed);
    EXPECT_EQ(blinks(BlinkHead + versionLine(2) + numberedLines(9)), Failed);
    EXPECT_EQ(blinks(BlinkHead + "Version 1\n" + numberedLines(9)), Failed);
    EXPECT_EQ(blinks("!!! Blinks detection parameters file - do not change !!!\n" + versionLine(1) +
                     numberedLines(9)),
              Failed);
    EXPECT_EQ(blinks(NewHead + versionLine(1) + numberedLines(9)), Failed);
    EXPECT_EQ(blinks(BlinkHead), Failed);
    EXPECT_EQ(blinks(""), Failed);
}

TEST_F(DetectionProfileTest, BlinksNeedNineLinesWithAColon)
{
    EXPECT_EQ(blinks(BlinkHead + versionLine(1) + numberedLines(8)), Failed);
    for (int broken = 0; broken < 9; ++broken)
        EXPECT_EQ(
            blinks(BlinkHead + versionLine(1) + numberedLines(broken) + "k 1\n" + numberedLines(8 - broken)),
            Failed)
            << broken;
}

TEST_F(DetectionProfileTest, FilesThatAreNoProfilesFail)
{
    EXPECT_EQ(saccades(noise(5000)), Failed);
    EXPECT_EQ(saccades(std::string(5000, '\0')), Failed);
    EXPECT_EQ(blinks(noise(5000)), Failed);
    EXPECT_EQ(saccades(NewHead + versionLine(8) + std::string(50000, ':')), Failed);
}

TEST_F(DetectionProfileTest, ProfilesAreAtMost64KiB)
{
    const std::string profile = NewHead + versionLine(8) + numberedLines(9);
    const std::size_t rest = 65536 - profile.size();
    EXPECT_EQ(saccades(profile + std::string(rest, 'x')), "1 2 3 4 5 6 7 8 0");
    EXPECT_EQ(saccades(profile + std::string(rest + 1, 'x')), Failed);
    EXPECT_EQ(saccades(std::string(5000000, 'x')), Failed);
}

TEST_F(DetectionProfileTest, WhatIsNoRegularFileFails)
{
    SaccadeDetectionParams saccade = SaccadeDetectionParams::atStart();
    BlinkDetectionParams blink = BlinkDetectionParams::atStart();
    const QString pipe = m_folder.path(QStringLiteral("pipe"));
    ASSERT_EQ(::mkfifo(qPrintable(pipe), 0600), 0);
    for (const QString& name : {m_folder.path(QStringLiteral("absent")), m_folder.path(QString()), pipe,
                                QStringLiteral("/dev/zero"), QString()}) {
        EXPECT_FALSE(readSaccadeProfile(name, saccade)) << qPrintable(name);
        EXPECT_FALSE(readBlinkProfile(name, blink)) << qPrintable(name);
    }
    EXPECT_EQ(textOf(saccade), textOf(SaccadeDetectionParams::atStart()));
    EXPECT_EQ(textOf(blink), textOf(BlinkDetectionParams::atStart()));
}

TEST_F(DetectionProfileTest, AFailedWriteLeavesTheOldFile)
{
    m_folder.write(QStringLiteral("profile"), "the old one");
    {
        const FileSizeLimit limit(20);
        EXPECT_FALSE(writeSaccadeProfile(path(), SaccadeDetectionParams::atStart()));
        EXPECT_FALSE(writeBlinkProfile(path(), BlinkDetectionParams::atStart()));
    }
    EXPECT_EQ(fileBytes(path()), "the old one");
    EXPECT_FALSE(writeSaccadeProfile(m_folder.path(QStringLiteral("no/folder")), SaccadeDetectionParams()));
    EXPECT_FALSE(writeBlinkProfile(m_folder.path(QString()), BlinkDetectionParams()));
}

namespace
{

/// What a settings line makes of the start values; "kept" where it leaves them alone.
template <class Record>
std::string readLine(const char* line, bool (*read)(const QString&, Record&))
{
    Record record = Record::atStart();
    const bool taken = read(QString::fromLatin1(line), record);
    const bool kept = textOf(record) == textOf(Record::atStart());
    return taken ? textOf(record) : kept ? "kept" : "changed by a line that was not read";
}

std::string saccadesOfLine(const char* line)
{
    return readLine(line, readSaccadeLine);
}

std::string blinksOfLine(const char* line)
{
    return readLine(line, readBlinkLine);
}

} // namespace

TEST(DetectionLine, HasTenDecimals)
{
    EXPECT_EQ(
        saccadeLine(SaccadeDetectionParams::defaults()).toStdString(),
        "Version;2;7;30;20;200;20.0000000000;100.0000000000;1000.0000000000;1.0000000000;100.0000000000");
    EXPECT_EQ(blinkLine(BlinkDetectionParams::atStart()).toStdString(),
              "Version;1;200.0000000000;100.0000000000;150;20.0000000000;15.0000000000;0.6000000000;"
              "1.4000000000;100;500");
    SaccadeDetectionParams params;
    params.minSlope = 6715506.454132503;
    EXPECT_EQ(saccadeLine(params).toStdString(),
              "Version;2;0;0;0;0;0.0000000000;0.0000000000;6715506.4541325029;0.0000000000;0.0000000000");
}

TEST(DetectionLine, ReadsWhatItWrites)
{
    EXPECT_EQ(saccadesOfLine(qPrintable(saccadeLine(SaccadeDetectionParams::defaults()))),
              textOf(SaccadeDetectionParams::defaults()));
    EXPECT_EQ(blinksOfLine(qPrintable(blinkLine(BlinkDetectionParams::defaults()))),
              textOf(BlinkDetectionParams::defaults()));
}

TEST(DetectionLine, WithoutAVersionEightOrNineFieldsAreRead)
{
    EXPECT_EQ(saccadesOfLine("1;99;2;3;4;5;6;7"), "1 2 3 4 5 6 7 0 500");
    EXPECT_EQ(saccadesOfLine("1;99;2;3;4;5;6;7;8"), "1 2 3 4 5 6 7 0 500");
    EXPECT_EQ(saccadesOfLine("1;99;2;3;4;5;6"), "kept");
    EXPECT_EQ(saccadesOfLine("1;99;2;3;4;5;6;7;8;9"), "kept");
    EXPECT_EQ(saccadesOfLine(""), "kept");
    EXPECT_EQ(saccadesOfLine("version;2;1;2;3;4;5;6;7;8;9"), "kept");
}

TEST(DetectionLine, VersionsOfSaccadesDifferInTheirFields)
{
    EXPECT_EQ(saccadesOfLine("Version;0;1;99;2;3;4;5;6;7"), "1 2 3 4 5 6 7 0 500");
    EXPECT_EQ(saccadesOfLine("Version;1;1;99;2;3;4;5;6;7;8;9"), "1 2 3 4 5 6 7 8 9");
    EXPECT_EQ(saccadesOfLine("Version;2;1;2;3;4;5;6;7;8;9"), "1 2 3 4 5 6 7 8 9");
    EXPECT_EQ(saccadesOfLine("Version;3;1;2;3;4;5;6;7;8;9;10"), "1 2 3 4 5 6 7 8 9");
}

TEST(DetectionLine, ALineThatIsCutIsNotRead)
{
    EXPECT_EQ(saccadesOfLine("Version"), "kept");
    EXPECT_EQ(saccadesOfLine("Version;2"), "kept");
    EXPECT_EQ(saccadesOfLine("Version;x;1;99;2;3;4;5;6;7;8;9"), "kept");
    EXPECT_EQ(saccadesOfLine("Version;0;1;99;2;3;4;5;6"), "kept");
    EXPECT_EQ(saccadesOfLine("Version;1;1;99;2;3;4;5;6;7;8"), "kept");
    EXPECT_EQ(saccadesOfLine("Version;2;1;2;3;4;5;6;7;8"), "kept");
    EXPECT_EQ(blinksOfLine("Version;1;1;2;3;4;5;6;7;8"), "kept");
    EXPECT_EQ(blinksOfLine("Version"), "kept");
    EXPECT_EQ(blinksOfLine(""), "kept");
}

TEST(DetectionLine, FieldsThatAreNoNumbersReadAsZero)
{
    EXPECT_EQ(saccadesOfLine("x;y;z;1;2;3;inf;1e999"), "0 0 1 2 3 0 0 0 500");
    EXPECT_EQ(blinksOfLine("Version;1;x;2;3.5;4;nan;6;7; 8 ;"), "0 2 4 0 0 6 7 8 0");
}

TEST(DetectionLine, BlinksHaveVersion1Only)
{
    EXPECT_EQ(blinksOfLine("Version;1;1;2;3;4;5;6;7;8;9"), "1 2 4 3 5 6 7 8 9");
    EXPECT_EQ(blinksOfLine("Version;1;1;2;3;4;5;6;7;8;9;10"), "1 2 4 3 5 6 7 8 9");
    EXPECT_EQ(blinksOfLine("Version;2;1;2;3;4;5;6;7;8;9"), "kept");
    EXPECT_EQ(blinksOfLine("Version;x;1;2;3;4;5;6;7;8;9"), "kept");
    EXPECT_EQ(blinksOfLine("1;2;3;4;5;6;7;8;9"), "kept");
}
