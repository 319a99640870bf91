#include "bdfimporter.h"

#include "bdfbuilder.h"
#include "filesizelimit.h"
#include "jobprogress.h"
#include "kiroreader.h"
#include "recordingfile.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

constexpr const char* Old = "the good old recording";

/// Remembers what it is told, and cancels once it was asked `m_patience` times.
class RecordedProgress final : public JobProgress
{
public:
    explicit RecordedProgress(int patience = -1)
        : m_patience(patience)
    {
    }
    void setRange(int minimum, int maximum) override { range = {minimum, maximum}; }
    void setValue(int value) override { values.push_back(value); }
    void setText(const QString&) override {}
    bool cancelled() override { return m_patience >= 0 && asked++ >= m_patience; }

    std::pair<int, int> range;
    std::vector<int> values;
    int asked = 0;

private:
    int m_patience;
};

class BdfConvert : public testing::Test
{
protected:
    void load(const std::string& bytes)
    {
        ASSERT_TRUE(m_importer.load(m_folder.write(QStringLiteral("f.bdf"), bytes).toQString()))
            << m_importer.errorText().toStdString();
    }
    void load(const BdfFields& fields) { load(fields.bytes()); }

    QString target() const { return m_folder.path(QStringLiteral("f.kiro")); }
    /// Loads and converts all records.
    KiroHeader converted(const BdfFields& fields)
    {
        load(fields);
        EXPECT_TRUE(m_importer.convert(target())) << m_importer.errorText().toStdString();
        KiroHeader header;
        EXPECT_TRUE(header.load(KiroString(target())));
        return header;
    }
    std::string targetBytes() const { return fileBytes(KiroString(target())); }
    /// The frames of the last conversion.
    std::string frames() const
    {
        return targetBytes().substr(2202 + 261 * std::size_t(m_importer.header().channelCount()));
    }
    QStringList files() const
    {
        return QDir(m_folder.path(QString())).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }

    TestFolder m_folder;
    BdfImporter m_importer;
};

/// Little-endian samples of the file and big-endian ones of the recording.
std::string samplesOf(const std::vector<int>& values, int bytes)
{
    std::string data;
    for (const int value : values)
        data += littleEndian(static_cast<std::uint64_t>(value), bytes).substr(0, std::size_t(bytes));
    return data;
}

std::string storedOf(const std::vector<int>& values, int bytes)
{
    std::string data;
    for (const int value : values)
        data += bigEndian(static_cast<std::uint64_t>(value), bytes);
    return data;
}

/// A file of one channel and one record with these samples.
BdfFields withSamples(BdfFields fields, const std::vector<int>& values)
{
    const int bytes = fields.reserved == "24BIT" ? 3 : 2;
    fields.channels.resize(1);
    fields.channels[0].samplesPerRecord = std::to_string(values.size());
    fields.data = samplesOf(values, bytes);
    return fields;
}

BdfFields statusFile(BdfFields fields, const std::vector<int>& values)
{
    fields = withSamples(fields, values);
    fields.channels[0].label = "Status";
    fields.channels[0].physicalDimension = "Boolean";
    return fields;
}

BdfFields markedFile(BdfFields fields, const std::vector<int>& values)
{
    fields = withSamples(fields, values);
    fields.channels[0].transducer = "Kiro Multisensor EOG";
    return fields;
}

/// Four records of one 16-bit sample: 0, 1, 2, 3.
BdfFields fourRecords()
{
    BdfFields fields = withSamples(BdfFields::edf(), {0});
    fields.records = "4";
    fields.data = samplesOf({0, 1, 2, 3}, 2);
    return fields;
}

} // namespace

TEST_F(BdfConvert, WithoutALoadedFileIsRefused)
{
    EXPECT_FALSE(m_importer.convert(target()));
    EXPECT_EQ(m_importer.errorText(), QStringLiteral("Data file header not loaded!"));
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(BdfConvert, WritesAHeaderOfVersion12)
{
    BdfFields fields = withSamples(BdfFields(), {1, 2, 3, 4});
    fields.channels.push_back({"Gaze", "camera", "deg", "0", "0", "0", "4095", "LP: 50 Hz", "0"});
    const KiroHeader header = converted(fields);
    EXPECT_EQ(header.version(), 12u);
    EXPECT_EQ(header.storingProgram(), KiroString("BDF/EDF->KIRO converter"));
    EXPECT_EQ(header.notes(), KiroString("A1 : DC<|>Gaze : LP: 50 Hz"));
    EXPECT_EQ(header.technicalParameters(), KiroString(""));
    EXPECT_EQ(header.dateString(), KiroString("05/06/2014"));
    EXPECT_EQ(header.timeString(), KiroString("07:08:09.000"));
    EXPECT_EQ(header.frameCount(), 1u);
    ASSERT_EQ(header.signalCount(), 2);
    EXPECT_EQ(header.signal(1).fullName, KiroString("Gaze (camera)"));
    EXPECT_EQ(header.signal(1).shortName, KiroString("Gaze"));
}

TEST_F(BdfConvert, WritesASignalByteForByte)
{
    converted(withSamples(BdfFields(), {1}));
    ByteBuilder signal;
    signal.fixed("A1 (active electrode)", 128).fixed("A1", 32);
    signal.u32(1000).u32(1).u32(1).u32(1).u32(4); // milliseconds, samples, signed, samples a frame, bytes
    signal.f64(10.0).fixed("uV", 64).u8(1).f64(0.0);
    EXPECT_EQ(targetBytes().substr(2198, 261), signal.bytes());
}

TEST_F(BdfConvert, HalfSecondOf1024SamplesIs2048Hz)
{
    BdfFields fields = withSamples(BdfFields(), std::vector<int>(1024, 5));
    fields.duration = "0.5";
    const KiroHeader header = converted(fields);
    EXPECT_EQ(header.signal(0).ratePeriod, 500u);
    EXPECT_EQ(header.signalFrequency(0), 2048.0);
}

TEST_F(BdfConvert, RatePeriodIsRoundedAndKeptWithinItsField)
{
    BdfFields fields = withSamples(BdfFields::edf(), {1});
    const std::pair<const char*, std::uint32_t> periods[] = {
        {"0", 0},  {"0.0004", 0}, {"0.0005", 1},      {"2.4994", 2499},     {"1e-1", 100},
        {"-1", 0}, {"nan", 0},    {"1e5", 100000000}, {"1e9", 4294967295u}, {"inf", 4294967295u}};
    for (const auto& [text, period] : periods) {
        fields.duration = text;
        EXPECT_EQ(converted(fields).signal(0).ratePeriod, period) << text;
    }
}

TEST_F(BdfConvert, UnknownDateAndTimeAreZeros)
{
    BdfFields fields = withSamples(BdfFields::edf(), {1});
    fields.date = "31.02.14";
    KiroHeader header = converted(fields);
    EXPECT_EQ(header.dateString(), KiroString("00/00/0"));
    EXPECT_EQ(header.timeString(), KiroString("07:08:09.000"));
    fields.date = "05.06.14";
    fields.time = "25.00.00";
    header = converted(fields);
    EXPECT_EQ(header.dateString(), KiroString("05/06/2014"));
    EXPECT_EQ(header.timeString(), KiroString("00:00:00.000"));
}

// On this day the clocks of central Europe went from 2 to 3.
TEST_F(BdfConvert, TimeOfDayThatSomeZonesLackIsKept)
{
    ::setenv("TZ", "Europe/Warsaw", 1);
    ::tzset();
    BdfFields fields = withSamples(BdfFields::edf(), {1});
    fields.date = "30.03.14";
    fields.time = "02.30.00";
    const KiroHeader header = converted(fields);
    ::unsetenv("TZ");
    ::tzset();
    EXPECT_EQ(header.timeString(), KiroString("02:30:00.000"));
}

TEST_F(BdfConvert, OnlyGainsAbove1001ThousandthsCalibrate)
{
    BdfFields fields = withSamples(BdfFields::edf(), {1});
    const auto signalFor = [&](const char* physical, const char* digital) {
        fields.channels[0].physicalMaximum = physical;
        fields.channels[0].digitalMaximum = digital;
        return converted(fields).signal(0);
    };
    fields.channels[0].physicalMinimum = fields.channels[0].digitalMinimum = "0";
    for (const auto& [physical, digital] :
         {std::pair("1000", "1000"), std::pair("2000", "2001"), std::pair("1000", "1001"),
          std::pair("1000", "500"), std::pair("0", "1000"), std::pair("-1", "1000")}) {
        const KiroSignal signal = signalFor(physical, digital);
        EXPECT_FALSE(signal.calibrated) << physical << " " << digital;
        EXPECT_EQ(signal.calibrationFactor, 1.0) << physical << " " << digital;
        EXPECT_EQ(signal.calibrationUnit, KiroString("")) << physical << " " << digital;
    }
    const KiroSignal signal = signalFor("1000", "1002");
    EXPECT_TRUE(signal.calibrated);
    EXPECT_EQ(signal.calibrationFactor, 1.002);
    EXPECT_EQ(signal.calibrationUnit, KiroString("uV"));
    EXPECT_EQ(signal.calibrationOffset, 0.0);
}

TEST_F(BdfConvert, StatusChannelIsNeverCalibrated)
{
    const KiroSignal signal = converted(statusFile(BdfFields(), {1})).signal(0);
    EXPECT_FALSE(signal.calibrated);
    EXPECT_EQ(signal.calibrationFactor, 1.0);
}

TEST_F(BdfConvert, SamplesOf24BitsAreSigned)
{
    converted(withSamples(BdfFields(), {0, 1, -1, 0x7fffff, -0x800000, 0x123456}));
    EXPECT_EQ(frames(), storedOf({0, 1, -1, 0x7fffff, -0x800000, 0x123456}, 4));
}

TEST_F(BdfConvert, SamplesOf16BitsAreSwapped)
{
    converted(withSamples(BdfFields::edf(), {0, 1, -1, 0x7fff, -0x8000, 0x1234}));
    EXPECT_EQ(frames(), storedOf({0, 1, -1, 0x7fff, -0x8000, 0x1234}, 2));
}

TEST_F(BdfConvert, StatusSamplesHaveNoSign)
{
    converted(statusFile(BdfFields(), {-1, -0x800000, 5}));
    EXPECT_EQ(frames(), storedOf({0xffffff, 0x800000, 5}, 4));
    converted(statusFile(BdfFields::edf(), {-1, 5}));
    EXPECT_EQ(frames(), storedOf({0xffff, 5}, 2));
}

TEST_F(BdfConvert, MarkedSamplesOf24BitsAreShifted)
{
    converted(markedFile(BdfFields(), {100, -2048, 0x7fffff, -0x800000}));
    EXPECT_EQ(frames(), storedOf({2148, 0, 0x8007ff, -0x7ff800}, 4));
    converted(markedFile(BdfFields::edf(), {100, -2048}));
    EXPECT_EQ(frames(), storedOf({100, -2048}, 2));
}

TEST_F(BdfConvert, FramesHoldTheChannelsOfARecordInTheirOrder)
{
    BdfFields fields = BdfFields::edf();
    fields.channels.resize(2);
    fields.channels[0].samplesPerRecord = "3";
    fields.channels[1].samplesPerRecord = "1";
    fields.records = "2";
    fields.data = samplesOf({1, 2, 3, 40, 5, 6, 7, 80}, 2);
    const KiroHeader header = converted(fields);
    EXPECT_EQ(header.frameSize(), 8);
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(KiroString(target())));
    EXPECT_TRUE(reader.checkIntegrity());
    EXPECT_EQ(reader.getSample(0, 5).toInt32(), 7);
    EXPECT_EQ(reader.getSample(1, 0).toInt32(), 40);
    EXPECT_EQ(reader.getSample(1, 1).toInt32(), 80);
}

TEST_F(BdfConvert, DataBeginWhereTheHeaderSays)
{
    BdfFields fields = withSamples(BdfFields::edf(), {0x4241});
    fields.headerBytes = "515";
    fields.data = "xyzAB";
    converted(fields);
    EXPECT_EQ(frames(), "BA");
}

/// Numbers of the first and last record asked for, and the samples that fourRecords() gives for them.
struct RecordRange
{
    int first;
    int last;
    std::vector<int> samples;
};

void PrintTo(const RecordRange& range, std::ostream* out)
{
    *out << range.first << " to " << range.last;
}

class BdfRecordRange : public BdfConvert, public testing::WithParamInterface<RecordRange>
{
};

TEST_P(BdfRecordRange, EndsWithTheLastRecordUnlessItsEndLiesWithin)
{
    load(fourRecords());
    ASSERT_TRUE(m_importer.convert(target(), GetParam().first, GetParam().last));
    EXPECT_EQ(frames(), storedOf(GetParam().samples, 2));
    KiroHeader header;
    ASSERT_TRUE(header.load(KiroString(target())));
    EXPECT_EQ(header.frameCount(), GetParam().samples.size());
}

INSTANTIATE_TEST_SUITE_P(Ranges, BdfRecordRange,
                         testing::Values(RecordRange{0, -1, {0, 1, 2, 3}}, RecordRange{0, 3, {0, 1, 2, 3}},
                                         RecordRange{0, 4, {0, 1, 2, 3}}, RecordRange{1, 2, {1, 2}},
                                         RecordRange{2, 2, {2}}, RecordRange{2, 1, {2, 3}},
                                         RecordRange{3, -1, {3}}, RecordRange{0, 0, {0}},
                                         RecordRange{1, 2147483647, {1, 2, 3}}));

TEST_F(BdfConvert, FirstRecordOutsideTheFileIsRefused)
{
    load(fourRecords());
    for (const int first : {-1, 4, 2147483647, -2147483647 - 1}) {
        EXPECT_FALSE(m_importer.convert(target(), first, -1));
        EXPECT_EQ(m_importer.errorText(),
                  QStringLiteral("Incorrect value of first data record (%1 of 4)").arg(first));
    }
    EXPECT_EQ(files(), QStringList{QStringLiteral("f.bdf")});
    EXPECT_TRUE(m_importer.convert(target()));
    EXPECT_TRUE(m_importer.errorText().isEmpty());
}

TEST_F(BdfConvert, MissingDataAreZeros)
{
    BdfFields fields = withSamples(BdfFields(), {1, 2, 3});
    fields.records = "2";
    fields.data = samplesOf({0x010203, 7}, 3) + "\x09";
    converted(fields);
    EXPECT_EQ(frames(), storedOf({0x010203, 7, 9, 0, 0, 0}, 4));
    fields.data.clear();
    fields.headerBytes = "99999";
    converted(fields);
    EXPECT_EQ(frames(), std::string(24, '\0'));
}

TEST_F(BdfConvert, MissingDataOfAMarkedChannelAreShiftedZeros)
{
    BdfFields fields = markedFile(BdfFields(), {1, 2});
    fields.data.clear();
    converted(fields);
    EXPECT_EQ(frames(), storedOf({2048, 2048}, 4));
}

namespace
{

/// Three channels whose record lengths divide no block: plain, marked and status.
BdfFields manyBlocks(BdfFields fields)
{
    fields.channels.resize(3);
    fields.channels[0].samplesPerRecord = "7001";
    fields.channels[1].samplesPerRecord = "1";
    fields.channels[1].transducer = "Kiro Multisensor";
    fields.channels[2].samplesPerRecord = "313";
    fields.channels[2].label = "Status";
    fields.channels[2].physicalDimension = "Boolean";
    fields.records = "53";
    return fields;
}

} // namespace

TEST_F(BdfConvert, ManyBlocksOf24BitsKeepEverySample)
{
    BdfFields fields = manyBlocks(BdfFields());
    const std::string data = fields.data = noise(53 * 7315 * 3);
    std::string wanted;
    for (std::size_t at = 0; at < data.size(); at += 3) {
        const std::size_t sample = at / 3 % 7315;
        const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(data[at + i]); };
        int value = byte(0) + 256 * byte(1) + 65536 * byte(2);
        if (sample <= 7001 && value >= 0x800000)
            value -= 0x1000000;
        wanted += bigEndian(static_cast<std::uint64_t>(sample == 7001 ? value + 2048 : value), 4);
    }
    converted(fields);
    EXPECT_TRUE(frames() == wanted);
}

TEST_F(BdfConvert, ManyBlocksOf16BitsKeepEverySample)
{
    BdfFields fields = manyBlocks(BdfFields::edf());
    std::string wanted = fields.data = noise(53 * 7315 * 2);
    for (std::size_t at = 0; at < wanted.size(); at += 2)
        std::swap(wanted[at], wanted[at + 1]);
    converted(fields);
    EXPECT_TRUE(frames() == wanted);
}

TEST_F(BdfConvert, RecordsBehind4GibibytesAreFound)
{
    BdfFields fields = withSamples(BdfFields::edf(), {0});
    fields.channels[0].samplesPerRecord = "1000000";
    fields.records = "2600";
    load(fields);
    QFile file(m_folder.path(QStringLiteral("f.bdf")));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.resize(512 + qint64(2600) * 2000000)); // sparse
    ASSERT_TRUE(file.seek(512 + qint64(2599) * 2000000));
    ASSERT_EQ(file.write("\x34\x12"), 2);
    file.close();
    ASSERT_TRUE(m_importer.convert(target(), 2599)) << m_importer.errorText().toStdString();
    EXPECT_EQ(frames().substr(0, 4), storedOf({0x1234, 0}, 2));
    EXPECT_EQ(frames().size(), 2000000u);
}

TEST_F(BdfConvert, RecordingOf2GibibytesIsRefused)
{
    // The packets alone would be 2048 bytes short of it.
    BdfFields fields = withSamples(BdfFields(), {0});
    fields.channels[0].samplesPerRecord = "1048575";
    fields.records = "512";
    load(fields);
    EXPECT_FALSE(m_importer.convert(target()));
    EXPECT_EQ(m_importer.errorText(),
              QStringLiteral("The recording would have 512 packets of 4194300 bytes, and only files below "
                             "2147483648 bytes can be read. Import a part of the data records."));
    EXPECT_EQ(files(), QStringList{QStringLiteral("f.bdf")});
    EXPECT_TRUE(m_importer.convert(target(), 511));
}

TEST_F(BdfConvert, ReportsProgressFrom0To100)
{
    BdfFields fields = manyBlocks(BdfFields());
    load(fields);
    RecordedProgress progress;
    ASSERT_TRUE(m_importer.convert(target(), 0, -1, progress));
    EXPECT_EQ(progress.range, std::make_pair(0, 100));
    ASSERT_GE(progress.values.size(), 4u);
    EXPECT_TRUE(std::is_sorted(progress.values.begin(), progress.values.end()));
    EXPECT_GT(progress.values.front(), 0);
    EXPECT_LT(progress.values.front(), 50);
    EXPECT_EQ(progress.values.back(), 100);
}

TEST_F(BdfConvert, CancelLeavesTheOldRecording)
{
    load(manyBlocks(BdfFields()));
    for (const int patience : {0, 2}) {
        m_folder.write(QStringLiteral("f.kiro"), Old);
        RecordedProgress progress(patience);
        EXPECT_FALSE(m_importer.convert(target(), 0, -1, progress));
        EXPECT_TRUE(m_importer.wasCancelled());
        EXPECT_TRUE(m_importer.errorText().isEmpty());
        EXPECT_EQ(progress.asked, patience + 1);
        EXPECT_EQ(targetBytes(), Old);
        EXPECT_EQ(files().size(), 2);
    }
    EXPECT_TRUE(m_importer.convert(target()));
    EXPECT_FALSE(m_importer.wasCancelled());
}

TEST_F(BdfConvert, SourceThatIsGoneIsNamed)
{
    load(fourRecords());
    const QString source = m_importer.fileName();
    ASSERT_TRUE(QFile::remove(source));
    EXPECT_FALSE(m_importer.convert(target()));
    EXPECT_EQ(m_importer.errorText(), QStringLiteral("Failed to open file ") + source);
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(BdfConvert, DestinationThatCannotBeOpenedIsNamed)
{
    load(fourRecords());
    const QString folder = m_folder.path(QStringLiteral("folder"));
    ASSERT_TRUE(QDir().mkdir(folder));
    for (const QString& path : {folder, m_folder.path(QStringLiteral("no/such/f.kiro"))}) {
        EXPECT_FALSE(m_importer.convert(path));
        EXPECT_EQ(m_importer.errorText(), QStringLiteral("Failed to open file ") + path);
    }
    EXPECT_EQ(files(), QStringList{QStringLiteral("f.bdf")});
}

TEST_F(BdfConvert, SourceIsNotReplacedByItsRecording)
{
    load(fourRecords());
    const QString source = m_importer.fileName();
    const QString link = m_folder.path(QStringLiteral("link"));
    ASSERT_TRUE(QFile::link(source, link));
    for (const QString& path : {source, link}) {
        EXPECT_FALSE(m_importer.convert(path));
        EXPECT_EQ(m_importer.errorText(),
                  QStringLiteral("The destination is the imported file itself (%1)").arg(path));
    }
    EXPECT_EQ(fileBytes(KiroString(source)), fourRecords().bytes());
}

// A limit on the size of files makes a write come back short, as a full disk does.
TEST_F(BdfConvert, DestinationThatCannotBeWrittenWholeIsReportedAndRemoved)
{
    load(manyBlocks(BdfFields()));
    m_folder.write(QStringLiteral("f.kiro"), Old);
    auto disk = std::make_unique<FileSizeLimit>(1000000);
    ASSERT_TRUE(disk->isSet());
    const bool converted = m_importer.convert(target());
    disk.reset();
    EXPECT_FALSE(converted);
    const std::string start = "Failed to write file " + target().toStdString() + " (";
    EXPECT_EQ(m_importer.errorText().toStdString().substr(0, start.size()), start);
    EXPECT_EQ(targetBytes(), Old);
    EXPECT_EQ(files().size(), 2);
    EXPECT_FALSE(m_importer.wasCancelled());
}

namespace
{

/// Largest resident memory in MiB of a process that converts a file of `samples` 24-bit samples to nowhere.
long memoryToConvert(const QString& source, const QString& target, int samples, const char* records)
{
    BdfFields fields = withSamples(BdfFields(), {0});
    fields.channels[0].samplesPerRecord = std::to_string(samples);
    fields.records = records;
    QFile file(source);
    const std::string bytes = fields.bytes();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes.data(), qint64(bytes.size())) < 0)
        return -1;
    file.close();
    const pid_t child = ::fork();
    if (child == 0) {
        BdfImporter importer;
        ::_exit(importer.load(source) && importer.convert(target) ? 0 : 1);
    }
    int status = 0;
    struct rusage usage = {};
    if (::wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return -1;
    return usage.ru_maxrss / 1024;
}

} // namespace

TEST_F(BdfConvert, MemoryDependsNeitherOnTheFileNorOnTheRecord)
{
    const QString source = m_folder.path(QStringLiteral("f.bdf"));
    const long small = memoryToConvert(source, target(), 1, "1");
    ASSERT_GT(small, 0);
    for (const auto& [samples, records] : {std::pair(10000000, "1"), std::pair(1000, "10000")}) {
        const long large = memoryToConvert(source, target(), samples, records);
        EXPECT_EQ(QFile(target()).size(), 2202 + 261 + 40000000);
        EXPECT_GT(large, 0);
        EXPECT_LE(large, small + 8) << records << " records";
    }
}
