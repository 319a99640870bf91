#include "kirobulkreader.h"

#include "jobprogress.h"
#include "kiroreader.h"
#include "recordingfile.h"

#include <QFile>

#include <gtest/gtest.h>

#include <cstring>
#include <new>

namespace
{

class RecordedProgress final : public JobProgress
{
public:
    void setRange(int minimum, int maximum) override { range = {minimum, maximum}; }
    void setValue(int value) override { values.push_back(value); }
    void setText(const QString&) override {}
    bool cancelled() override { return int(values.size()) >= cancelAfterValues; }

    std::pair<int, int> range{-1, -1};
    std::vector<int> values;
    int cancelAfterValues = 1000000;
};

/// The same double, bit for bit.
bool sameBits(double a, double b)
{
    return std::memcmp(&a, &b, sizeof(a)) == 0;
}

/// Every sample of a signal, one getSample() after the other: what all bulk reading is held against.
std::vector<KiroValue> samplesOneByOne(KiroReader& reader, int signal)
{
    std::vector<KiroValue> samples;
    const auto count = int(reader.header().signalSampleCount(signal));
    for (int i = 0; i < count; ++i)
        samples.push_back(reader.getSample(signal, i));
    return samples;
}

/// Bits of a value in the element type of a vector.
template <class Number>
Number converted(const KiroValue& value)
{
    if constexpr (std::is_same_v<Number, float>)
        return value.toFloat();
    else if constexpr (std::is_same_v<Number, double>)
        return value.toDouble();
    else if constexpr (std::is_signed_v<Number>)
        return static_cast<Number>(value.toInt64());
    else
        return static_cast<Number>(value.toUInt64());
}

/// Whether two vectors hold the same bytes.
template <class Number>
bool sameBytes(const std::vector<Number>& a, const std::vector<Number>& b)
{
    return a.size() == b.size() &&
           (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(Number)) == 0);
}

/// `bulk` in vectors of either kind.
template <class Samples>
bool sameAsOneByOne(const Samples& bulk, const std::vector<KiroValue>& values)
{
    return std::visit(
        [&](const auto& samples) {
            using Number = typename std::decay_t<decltype(samples)>::value_type;
            std::vector<Number> wanted;
            for (const KiroValue& value : values)
                wanted.push_back(converted<Number>(value));
            return sameBytes(std::vector<Number>(samples.begin(), samples.end()), wanted);
        },
        bulk);
}

/// One signal of every type and size, with run sizes that are and are not powers of two.
std::vector<KiroSignal> everyKindOfSignal()
{
    std::vector<KiroSignal> table;
    for (const auto type : {KiroValue::SignedInt, KiroValue::UnsignedInt, KiroValue::Float, KiroValue::Object,
                            KiroValue::Unknown}) {
        for (const std::uint32_t size : {1u, 2u, 3u, 4u, 8u}) {
            KiroSignal signal = makeSignal("s", type, size, 1 + std::uint32_t(table.size()) % 5);
            signal.calibrated = table.size() % 2 == 0;
            signal.calibrationFactor = 3.7;
            signal.calibrationOffset = -12.25;
            table.push_back(signal);
        }
    }
    table.push_back(makeSignal("none", KiroValue::SignedInt, 2, 0));
    table.push_back(makeSignal("many", KiroValue::SignedInt, 2, 32));
    return table;
}

class KiroBulkReaderTest : public testing::Test
{
protected:
    /// Opens a recording of noise with these signals.
    void makeRecording(const std::vector<KiroSignal>& table, int frames)
    {
        const KiroHeader header = makeHeader(table, std::uint32_t(frames));
        const std::string data = noise(std::size_t(header.frameSize()) * std::size_t(frames));
        m_path = m_folder.write(QStringLiteral("b.kiro"), recordingBytes(header, data));
        ASSERT_TRUE(m_reader.setFile(m_path));
        ASSERT_TRUE(m_reader.setReadSize(100000));
    }

    TestFolder m_folder;
    KiroString m_path;
    KiroReader m_reader;
    RecordedProgress m_progress;
};

} // namespace

TEST_F(KiroBulkReaderTest, AllSignalsAreTheSamplesOneByOne)
{
    makeRecording(everyKindOfSignal(), 2500); // several blocks
    std::vector<SampleVector> all;
    KiroBulkReader bulk(m_reader);
    ASSERT_TRUE(bulk.readAll(all, m_progress)) << bulk.errorText().bytes();
    ASSERT_EQ(int(all.size()), m_reader.header().signalCount());
    for (int i = 0; i < m_reader.header().signalCount(); ++i) {
        const KiroSignal signal = m_reader.header().signal(unsigned(i));
        EXPECT_EQ(int(all[std::size_t(i)].index()), elementType(signal.valueType, signal.sampleSize)) << i;
        EXPECT_TRUE(sameAsOneByOne(all[std::size_t(i)], samplesOneByOne(m_reader, i))) << i;
    }
}

TEST_F(KiroBulkReaderTest, SharedArraysAreTheSamplesOneByOne)
{
    makeRecording(everyKindOfSignal(), 2500);
    std::vector<SampleArray> all;
    KiroBulkReader bulk(m_reader);
    ASSERT_TRUE(bulk.readAll(all, m_progress)) << bulk.errorText().bytes();
    ASSERT_EQ(int(all.size()), m_reader.header().signalCount());
    for (int i = 0; i < m_reader.header().signalCount(); ++i) {
        const KiroSignal signal = m_reader.header().signal(unsigned(i));
        EXPECT_EQ(int(all[std::size_t(i)].index()), elementType(signal.valueType, signal.sampleSize)) << i;
        EXPECT_TRUE(sameAsOneByOne(all[std::size_t(i)], samplesOneByOne(m_reader, i))) << i;
    }
}

TEST_F(KiroBulkReaderTest, AWatcherSeesAllSamplesAsTheyCome)
{
    makeRecording(everyKindOfSignal(), 2500);
    const auto signalCount = std::size_t(m_reader.header().signalCount());
    std::vector<std::vector<SampleArray>> seen(signalCount);
    std::vector<SampleArray> all;
    const auto watcher = [&](std::size_t signal, const SampleArray& soFar) {
        // A copy of its own: the reader goes on with the other.
        SampleArray copy = soFar;
        std::visit([](auto& samples) { samples.detach(); }, copy);
        seen.at(signal).push_back(copy);
    };
    ASSERT_TRUE(KiroBulkReader(m_reader).readAll(all, m_progress, watcher));
    ASSERT_EQ(all.size(), signalCount);
    for (std::size_t i = 0; i < signalCount; ++i) {
        ASSERT_GT(seen[i].size(), 1u) << i;
        EXPECT_EQ(seen[i].size(), seen[0].size()) << i;
        for (std::size_t k = 0; k < seen[i].size(); ++k) {
            std::visit(
                [&](const auto& samples) {
                    using Array = std::decay_t<decltype(samples)>;
                    using Number = typename Array::value_type;
                    const auto part = std::get<Array>(seen[i][k]);
                    ASSERT_LE(part.size(), samples.size());
                    EXPECT_TRUE(
                        sameBytes(std::vector<Number>(part.begin(), part.end()),
                                  std::vector<Number>(samples.begin(), samples.begin() + part.size())))
                        << i << ' ' << k;
                    EXPECT_TRUE(k == 0 || sampleCount(seen[i][k - 1]) < sampleCount(seen[i][k]) ||
                                samples.isEmpty())
                        << i << ' ' << k;
                },
                all[i]);
        }
        EXPECT_EQ(sampleCount(seen[i].back()), sampleCount(all[i])) << i;
    }
}

TEST_F(KiroBulkReaderTest, AWatcherWithoutMemoryIsAnError)
{
    makeRecording({makeSignal("a", KiroValue::SignedInt, 2, 1)}, 100);
    std::vector<SampleArray> all;
    KiroBulkReader bulk(m_reader);
    EXPECT_FALSE(
        bulk.readAll(all, m_progress, [](std::size_t, const SampleArray&) { throw std::bad_alloc(); }));
    EXPECT_EQ(bulk.errorText().bytes(), "KiroBulkReader - memory allocation error");
    EXPECT_TRUE(all.empty());
}

TEST_F(KiroBulkReaderTest, SharedArraysHaveNoMoreMemoryThanTheirSamples)
{
    makeRecording({makeSignal("a", KiroValue::SignedInt, 2, 3), makeSignal("b", KiroValue::Float, 4, 1)},
                  5000);
    std::vector<SampleArray> all;
    ASSERT_TRUE(KiroBulkReader(m_reader).readAll(all, m_progress));
    EXPECT_EQ(std::get<QVector<std::int16_t>>(all.at(0)).capacity(), 15000);
    EXPECT_EQ(std::get<QVector<float>>(all.at(1)).capacity(), 5000);
}

// Each byte of a sample that is no number stands for a double in memory.
TEST_F(KiroBulkReaderTest, SignalsThatNoArrayHoldsAreAnError)
{
    const std::int64_t most = (std::int64_t(1) << 31) / 8;
    const KiroHeader header =
        makeHeader({makeSignal("a", KiroValue::SignedInt, 2, 1), makeSignal("b", KiroValue::Object, 1, 1024)},
                   std::uint32_t(most / 1024));
    m_path = m_folder.write(QStringLiteral("o.kiro"), header.toBytes());
    QFile file(m_path.toQString());
    ASSERT_TRUE(file.resize(qint64(header.headerSize()) + header.frameSize() * header.frameCount()));
    ASSERT_TRUE(m_reader.setFile(m_path));
    std::vector<SampleArray> all{QVector<float>{1.0f}};
    KiroBulkReader bulk(m_reader);
    EXPECT_FALSE(bulk.readAll(all, m_progress));
    EXPECT_EQ(bulk.errorText().bytes(),
              "KiroBulkReader - signal 1 is too large for an array (bytes in memory: 2147483648)");
    EXPECT_FALSE(bulk.wasCancelled());
    EXPECT_TRUE(m_progress.values.empty());
    ASSERT_EQ(all.size(), 1u);
    EXPECT_EQ(std::get<QVector<float>>(all[0]), QVector<float>{1.0f});
}

TEST_F(KiroBulkReaderTest, OneSignalIsTheSamplesOneByOneInEveryForm)
{
    makeRecording(everyKindOfSignal(), 1500);
    KiroBulkReader bulk(m_reader);
    for (int i = 0; i < m_reader.header().signalCount(); ++i) {
        const KiroSignal signal = m_reader.header().signal(unsigned(i));
        const std::vector<KiroValue> values = samplesOneByOne(m_reader, i);
        if (values.empty())
            continue;
        SampleVector typed;
        ASSERT_TRUE(bulk.readSignal(i, 0, std::int64_t(values.size()), typed, m_progress));
        EXPECT_TRUE(sameAsOneByOne(typed, values)) << i;
        for (const bool calibrate : {false, true}) {
            std::vector<double> wanted;
            for (const KiroValue& value : values) {
                const double raw = value.toDouble();
                wanted.push_back(calibrate && signal.calibrated ? (raw - -12.25) / 3.7 : raw);
            }
            std::vector<double> samples;
            ASSERT_TRUE(bulk.readSignal(i, 0, std::int64_t(values.size()), calibrate, samples, m_progress));
            EXPECT_TRUE(sameBytes(samples, wanted)) << i << " calibrated " << calibrate;
        }
    }
}

TEST_F(KiroBulkReaderTest, RangesMayBeginAndEndWithinFrames)
{
    makeRecording({makeSignal("a", KiroValue::Float, 8, 1), makeSignal("b", KiroValue::SignedInt, 2, 3)},
                  40000);
    const std::vector<KiroValue> values = samplesOneByOne(m_reader, 1);
    KiroBulkReader bulk(m_reader);
    const std::int64_t total = std::int64_t(values.size());
    for (const auto& [first, count] : {std::pair<std::int64_t, std::int64_t>{0, 1},
                                       {1, 1},
                                       {2, 2},
                                       {3, 3},
                                       {4, 100},
                                       {1, total - 1},
                                       {total - 1, 1},
                                       {56170, 3},
                                       {5, 60000}}) {
        SampleVector samples;
        ASSERT_TRUE(bulk.readSignal(1, first, count, samples, m_progress));
        EXPECT_TRUE(sameAsOneByOne(samples, {values.begin() + first, values.begin() + first + count}))
            << first << " " << count;
    }
}

TEST_F(KiroBulkReaderTest, LegacyFilesAreReadWithoutSwapping)
{
    const std::string data = noise(136 * 5000);
    m_path = m_folder.write(QStringLiteral("l.kiro"), "\xfe\xff\xff\xff" + littleEndian(5000, 4) + data);
    ASSERT_TRUE(m_reader.setFile(m_path));
    std::vector<SampleVector> all;
    ASSERT_TRUE(KiroBulkReader(m_reader).readAll(all, m_progress));
    for (int i = 0; i < 10; ++i)
        EXPECT_TRUE(sameAsOneByOne(all[std::size_t(i)], samplesOneByOne(m_reader, i))) << i;
}

TEST_F(KiroBulkReaderTest, RecycledMemoryIsUsedAndHoldsTheSameSamples)
{
    makeRecording({makeSignal("a", KiroValue::SignedInt, 2, 4), makeSignal("b", KiroValue::Float, 4, 2)},
                  3000);
    std::vector<SampleVector> all;
    KiroBulkReader bulk(m_reader);
    ASSERT_TRUE(bulk.readAll(all, m_progress));
    const void* const memory = std::get<std::vector<std::int16_t>>(all[0]).data();
    bulk.recycle(std::move(all));
    ASSERT_TRUE(bulk.readAll(all, m_progress));
    EXPECT_EQ(std::get<std::vector<std::int16_t>>(all[0]).data(), memory);
    for (int i = 0; i < 2; ++i)
        EXPECT_TRUE(sameAsOneByOne(all[std::size_t(i)], samplesOneByOne(m_reader, i))) << i;
}

TEST_F(KiroBulkReaderTest, RecycledSamplesOfAnotherRecordingDoNoHarm)
{
    makeRecording({makeSignal("a", KiroValue::SignedInt, 2, 4), makeSignal("b", KiroValue::Float, 4, 2)},
                  300);
    KiroBulkReader bulk(m_reader);
    bulk.recycle({std::vector<double>(10, 1.0), std::vector<float>(9000, 1.0f), std::vector<float>(1, 1.0f)});
    std::vector<SampleVector> all;
    ASSERT_TRUE(bulk.readAll(all, m_progress));
    for (int i = 0; i < 2; ++i)
        EXPECT_TRUE(sameAsOneByOne(all[std::size_t(i)], samplesOneByOne(m_reader, i))) << i;
}

// The loop for runs of four 16-bit samples works on two frames at once.
TEST_F(KiroBulkReaderTest, RunsOfFourWordsAreTheSamplesOneByOneForAnyNumberOfFrames)
{
    for (const int frames : {1, 2, 3, 1023, 1025}) {
        m_reader.close();
        makeRecording(
            {makeSignal("a", KiroValue::SignedInt, 2, 4), makeSignal("b", KiroValue::UnsignedInt, 2, 4)},
            frames);
        std::vector<SampleVector> all;
        ASSERT_TRUE(KiroBulkReader(m_reader).readAll(all, m_progress));
        EXPECT_TRUE(sameAsOneByOne(all[0], samplesOneByOne(m_reader, 0))) << frames;
        EXPECT_TRUE(sameAsOneByOne(all[1], samplesOneByOne(m_reader, 1))) << frames;
    }
}

TEST_F(KiroBulkReaderTest, ProgressRisesToItsEnd)
{
    makeRecording({makeSignal("a", KiroValue::Float, 8, 8)}, 30000); // 1.9 MB
    std::vector<SampleVector> all;
    ASSERT_TRUE(KiroBulkReader(m_reader).readAll(all, m_progress));
    EXPECT_EQ(m_progress.range, (std::pair<int, int>{0, 100}));
    ASSERT_GE(m_progress.values.size(), 5u);
    EXPECT_TRUE(std::is_sorted(m_progress.values.begin(), m_progress.values.end()));
    EXPECT_EQ(m_progress.values.back(), 100);
}

TEST_F(KiroBulkReaderTest, ProgressIsReportedAfterAsManyFramesAsAsked)
{
    makeRecording({makeSignal("a", KiroValue::SignedInt, 2, 4)}, 100);
    struct Case
    {
        std::int64_t frames;
        int reports;
    };
    for (const auto& [frames, reports] :
         {Case{5, 20}, Case{30, 4}, Case{1, 100}, Case{1000, 1}, Case{0, 1}, Case{-1, 1}}) {
        RecordedProgress progress;
        KiroBulkReader bulk(m_reader);
        bulk.setFramesPerReport(frames);
        std::vector<SampleArray> all;
        ASSERT_TRUE(bulk.readAll(all, progress));
        EXPECT_TRUE(sameAsOneByOne(all.at(0), samplesOneByOne(m_reader, 0))) << frames;
        ASSERT_EQ(int(progress.values.size()), reports) << frames;
        EXPECT_EQ(progress.range, (std::pair<int, int>{0, progress.values.back()})) << frames;
        // All is read in one go where nothing else is asked.
        EXPECT_EQ(progress.values.back(), frames > 0 ? reports : 100) << frames;
        for (int i = 0; frames > 0 && i < reports; ++i)
            EXPECT_EQ(progress.values[std::size_t(i)], i + 1) << frames;
    }
}

TEST_F(KiroBulkReaderTest, CancellingLeavesTheOutput)
{
    makeRecording({makeSignal("a", KiroValue::Float, 8, 8)}, 30000);
    m_progress.cancelAfterValues = 2;
    std::vector<SampleVector> all{std::vector<float>{1.0f}};
    KiroBulkReader bulk(m_reader);
    EXPECT_FALSE(bulk.readAll(all, m_progress));
    EXPECT_TRUE(bulk.wasCancelled());
    EXPECT_TRUE(bulk.errorText().isEmpty());
    EXPECT_EQ(m_progress.values.size(), 2u);
    ASSERT_EQ(all.size(), 1u);
    EXPECT_EQ(std::get<std::vector<float>>(all[0]), std::vector<float>{1.0f});
    m_progress.cancelAfterValues = 1000;
    EXPECT_TRUE(bulk.readAll(all, m_progress));
    EXPECT_FALSE(bulk.wasCancelled());
}

TEST_F(KiroBulkReaderTest, DeclaredFramesThatAreNotStoredAreAnError)
{
    makeRecording({makeSignal("a", KiroValue::SignedInt, 2, 2)}, 10);
    QFile file(m_path.toQString());
    ASSERT_TRUE(file.resize(file.size() - 1));
    KiroBulkReader bulk(m_reader);
    EXPECT_EQ(bulk.readableFrames(), 9);
    std::vector<SampleVector> all;
    EXPECT_FALSE(bulk.readAll(all, m_progress));
    EXPECT_EQ(
        bulk.errorText().bytes(),
        KiroString("KiroBulkReader - the file cannot be read or ends before its last declared frame (frames "
                   "needed: 10, frames readable: 9, file: %1)")
            .arg(m_path)
            .bytes());
    EXPECT_TRUE(all.empty());
    std::vector<double> samples;
    EXPECT_FALSE(bulk.readSignal(0, 0, 20, false, samples, m_progress));
    EXPECT_TRUE(bulk.readSignal(0, 0, 18, false, samples, m_progress));
    EXPECT_EQ(samples.size(), 18u);
}

namespace
{

/// Cuts the file when it is asked for the second time.
class CuttingProgress final : public JobProgress
{
public:
    explicit CuttingProgress(const QString& path)
        : m_path(path)
    {
    }

    void setRange(int, int) override {}
    void setValue(int) override {}
    void setText(const QString&) override {}
    bool cancelled() override
    {
        if (++m_calls == 2)
            QFile::resize(m_path, 300000);
        return false;
    }

private:
    QString m_path;
    int m_calls = 0;
};

} // namespace

TEST_F(KiroBulkReaderTest, AFileThatShrinksUnderWayIsAnError)
{
    makeRecording({makeSignal("a", KiroValue::Float, 8, 8)}, 30000); // 1.9 MB, several blocks
    CuttingProgress progress(m_path.toQString());
    KiroBulkReader bulk(m_reader);
    std::vector<SampleVector> all;
    EXPECT_FALSE(bulk.readAll(all, progress));
    EXPECT_EQ(bulk.errorText().bytes(),
              KiroString("KiroBulkReader - reading file %1 failed").arg(m_path).bytes());
    EXPECT_FALSE(bulk.wasCancelled());
    EXPECT_TRUE(all.empty());
}

TEST_F(KiroBulkReaderTest, ReadableFramesAreDeclaredAndStored)
{
    makeRecording({makeSignal("a", KiroValue::SignedInt, 2, 2)}, 10);
    EXPECT_EQ(KiroBulkReader(m_reader).readableFrames(), 10);
    m_reader.header().setFrameCount(3);
    EXPECT_EQ(KiroBulkReader(m_reader).readableFrames(), 3);
    m_reader.header().setFrameCount(4000000000u);
    EXPECT_EQ(KiroBulkReader(m_reader).readableFrames(), 10);
    ASSERT_TRUE(QFile::remove(m_path.toQString()));
    EXPECT_EQ(KiroBulkReader(m_reader).readableFrames(), 0);
}

TEST_F(KiroBulkReaderTest, HostileCountsTakeNoMemory)
{
    // Frames without bytes, frames beyond every file, samples without bytes.
    const std::vector<std::vector<KiroSignal>> tables = {
        {makeSignal("a", KiroValue::SignedInt, 2, 0xffffffff)},
        {makeSignal("a", KiroValue::SignedInt, 0, 0xffffffff)},
        {makeSignal("a", KiroValue::SignedInt, 0, 0xffffffff), makeSignal("b", KiroValue::SignedInt, 2, 1)},
        {makeSignal("a", KiroValue::SignedInt, 2, 0)},
        {}};
    for (const auto& table : tables) {
        const KiroString path = m_folder.write(
            QStringLiteral("h.kiro"), recordingBytes(makeHeader(table, 0xffffffff), std::string(50, 'x')));
        KiroReader reader;
        ASSERT_TRUE(reader.setFile(path));
        std::vector<SampleVector> all;
        const bool read = KiroBulkReader(reader).readAll(all, m_progress);
        for (const SampleVector& samples : all)
            EXPECT_EQ(sampleCount(samples), 0u);
        EXPECT_EQ(read, reader.header().frameSize() == 0);
        std::vector<SampleArray> arrays;
        EXPECT_EQ(KiroBulkReader(reader).readAll(arrays, m_progress), read);
        for (const SampleArray& samples : arrays)
            EXPECT_EQ(sampleCount(samples), 0u);
    }
}

TEST_F(KiroBulkReaderTest, CountsBeyondSixtyThreeBitsAreErrors)
{
    const KiroString path = m_folder.write(
        QStringLiteral("h.kiro"),
        recordingBytes(makeHeader({makeSignal("a", KiroValue::SignedInt, 2, 0xffffffff)}, 0xffffffff),
                       "xxxx"));
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(path));
    std::vector<double> samples;
    EXPECT_FALSE(KiroBulkReader(reader).readSignal(0, 0, 1, false, samples, m_progress));
    EXPECT_FALSE(KiroReader::readSignal(path, 0, samples));
    EXPECT_FALSE(KiroReader::readSignal(path, 0, samples, false, 2147483647));
    EXPECT_TRUE(samples.empty());
}

TEST_F(KiroBulkReaderTest, RangesOutsideTheSignalAreErrors)
{
    makeRecording(
        {makeSignal("a", KiroValue::SignedInt, 2, 2), makeSignal("none", KiroValue::SignedInt, 2, 0)}, 10);
    KiroBulkReader bulk(m_reader);
    std::vector<double> samples{7.0};
    EXPECT_FALSE(bulk.readSignal(2, 0, 1, false, samples, m_progress));
    EXPECT_EQ(bulk.errorText().bytes(), "KiroBulkReader - invalid signal index (2)");
    for (const auto& [first, count] :
         {std::pair<std::int64_t, std::int64_t>{20, 1}, {-1, 1}, {0, 0}, {0, 21}, {19, 2}})
        EXPECT_FALSE(bulk.readSignal(0, first, count, false, samples, m_progress)) << first << " " << count;
    EXPECT_EQ(bulk.errorText().bytes(),
              "KiroBulkReader - signal 0 does not hold the samples asked for (first: 19, "
              "count: 2, samples in the signal: 20)");
    EXPECT_FALSE(bulk.readSignal(1, 0, 1, false, samples, m_progress));
    EXPECT_EQ(samples, std::vector<double>{7.0});
}

TEST_F(KiroBulkReaderTest, NaNsKeepTheirBits)
{
    const std::string bits("\x7f\xf0\x00\x00\x00\x00\x00\x01\xff\xf8\xde\xad\xbe\xef\x00\x01", 16);
    m_path = m_folder.write(QStringLiteral("n.kiro"),
                            recordingBytes(makeHeader({makeSignal("a", KiroValue::Float, 8, 1)}, 2), bits));
    ASSERT_TRUE(m_reader.setFile(m_path));
    std::vector<SampleVector> all;
    ASSERT_TRUE(KiroBulkReader(m_reader).readAll(all, m_progress));
    const auto& samples = std::get<std::vector<double>>(all[0]);
    std::uint64_t first;
    std::memcpy(&first, &samples[0], 8);
    EXPECT_EQ(first, 0x7ff0000000000001u);
    EXPECT_TRUE(sameBits(samples[1], m_reader.getSample(0, 1).toDouble()));
}

TEST_F(KiroBulkReaderTest, FramesLargerThanABlockAreReadOneByOne)
{
    makeRecording(
        {makeSignal("a", KiroValue::SignedInt, 4, 100000), makeSignal("b", KiroValue::SignedInt, 1, 3)}, 3);
    std::vector<SampleVector> all;
    ASSERT_TRUE(KiroBulkReader(m_reader).readAll(all, m_progress));
    EXPECT_TRUE(sameAsOneByOne(all[0], samplesOneByOne(m_reader, 0)));
    EXPECT_TRUE(sameAsOneByOne(all[1], samplesOneByOne(m_reader, 1)));
}
