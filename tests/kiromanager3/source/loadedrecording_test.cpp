#include "loadedrecording.h"

#include "jobprogress.h"
#include "kirobulkreader.h"
#include "kiroreader.h"
#include "support/recordingfile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QProcess>

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <set>

namespace
{

using Failure = LoadedRecording::Failure;

template <class Param>
std::string nameOf(const testing::TestParamInfo<Param>& info)
{
    return info.param.name;
}

class RecordedProgress final : public JobProgress
{
public:
    void setRange(int minimum, int maximum) override { range = {minimum, maximum}; }
    void setValue(int value) override { values.push_back(value); }
    void setText(const QString&) override {}
    bool cancelled() override
    {
        ++questions;
        if (questions == actAtQuestion)
            act();
        return questions >= cancelAtQuestion;
    }

    std::pair<int, int> range{-1, -1};
    std::vector<int> values;
    int questions = 0;
    int cancelAtQuestion = std::numeric_limits<int>::max();
    int actAtQuestion = -1;
    std::function<void()> act;
};

/// The sample of a strip with its bits as the reader's value gives them.
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

/// Whether the samples of a signal are those that the reader gives one by one, bit for bit.
bool sameAsOneByOne(const SampleArray& samples, KiroReader& reader, int signal)
{
    return std::visit(
        [&](const auto& array) {
            using Number = typename std::decay_t<decltype(array)>::value_type;
            for (int i = 0; i < array.size(); ++i) {
                const auto wanted = converted<Number>(reader.getSample(signal, i));
                if (std::memcmp(&array.constData()[i], &wanted, sizeof(Number)) != 0)
                    return false;
            }
            return true;
        },
        samples);
}

/// Holds a loaded recording against its file: tables, strips and every sample.
void expectLikeItsFile(const LoadedRecording& loaded, const KiroString& path)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(path));
    ASSERT_TRUE(reader.setReadSize(1 << 16));
    const KiroHeader& header = reader.header();
    const int count = header.signalCount();
    EXPECT_EQ(loaded.header.toBytes(), header.toBytes());
    EXPECT_EQ(loaded.frameCount, int(header.frameCount()));
    ASSERT_EQ(loaded.signalDescriptors.size(), count);
    ASSERT_EQ(loaded.samplesPerFrame.size(), count);
    ASSERT_EQ(loaded.sampleCounts.size(), count);
    ASSERT_EQ(loaded.signalMsecs.size(), count);
    ASSERT_EQ(loaded.signalSecs.size(), count);
    ASSERT_EQ(int(loaded.plots.size()), count);
    for (int i = 0; i < count; ++i) {
        const KiroSignal signal = header.signal(unsigned(i));
        const Plot& plot = loaded.plots[std::size_t(i)];
        const bool bytes = signal.sampleSize > 0;
        EXPECT_EQ(loaded.samplesPerFrame[i], bytes ? int(signal.samplesPerFrame) : 0) << i;
        EXPECT_EQ(loaded.sampleCounts[i], bytes ? int(header.signalSampleCount(i)) : 0) << i;
        EXPECT_EQ(loaded.signalSecs[i], loaded.signalMsecs[i] / 1000) << i;
        EXPECT_EQ(plot.title(), signal.shortName.toQString()) << i;
        EXPECT_EQ(plot.dataType, elementType(signal.valueType, signal.sampleSize)) << i;
        EXPECT_EQ(plot.dataSize(), loaded.sampleCounts[i]) << i;
        EXPECT_EQ(plot.rangeStart(), 0) << i;
        EXPECT_EQ(plot.rangeCount(), loaded.sampleCounts[i]) << i;
        EXPECT_EQ(plot.timeOffset, 0.0) << i;
        EXPECT_EQ(plot.timePerSample, loaded.signalSecs[i]) << i;
        EXPECT_TRUE(sameAsOneByOne(plot.samples().samples(), reader, i)) << i;
    }
}

/// One signal of every type and size, of different rates in one recording.
std::vector<KiroSignal> everyKindOfSignal()
{
    std::vector<KiroSignal> table;
    for (const auto type : {KiroValue::SignedInt, KiroValue::UnsignedInt, KiroValue::Float, KiroValue::Object,
                            KiroValue::Unknown}) {
        for (const std::uint32_t size : {1u, 2u, 3u, 4u, 8u}) {
            const auto perFrame = 1 + std::uint32_t(table.size()) % 5;
            table.push_back(makeSignal("s", type, size, perFrame, 100 * perFrame));
        }
    }
    return table;
}

class LoadedRecordingTest : public testing::Test
{
protected:
    KiroString write(const std::vector<KiroSignal>& table, int frames)
    {
        const KiroHeader header = makeHeader(table, std::uint32_t(frames));
        const std::string data = noise(std::size_t(header.frameSize()) * std::size_t(frames));
        return m_folder.write(QStringLiteral("r.kiro"), recordingBytes(header, data));
    }
    bool load(const KiroString& path) { return m_loaded.load(path.toQString(), m_progress); }

    TestFolder m_folder;
    RecordedProgress m_progress;
    LoadedRecording m_loaded;
};

} // namespace

TEST_F(LoadedRecordingTest, HoldsWhatTheFileHolds)
{
    const KiroString path = write({makeSignal("a", KiroValue::SignedInt, 2, 4)}, 500);
    ASSERT_TRUE(load(path)) << qPrintable(m_loaded.errorText());
    EXPECT_EQ(m_loaded.currentFile, path.toQString());
    EXPECT_EQ(m_loaded.failure(), Failure::None);
    EXPECT_TRUE(m_loaded.errorText().isEmpty());
    expectLikeItsFile(m_loaded, path);
}

TEST_F(LoadedRecordingTest, HoldsSamplesOfEveryType)
{
    const KiroString path = write(everyKindOfSignal(), 700);
    ASSERT_TRUE(load(path)) << qPrintable(m_loaded.errorText());
    expectLikeItsFile(m_loaded, path);
}

// Signed and unsigned integers of 1, 2, 4 and 8 bytes in turn, floats of 4 and 8 bytes; all else counts as
// double.
TEST_F(LoadedRecordingTest, TheElementTypeFollowsFromValueTypeAndSize)
{
    ASSERT_TRUE(load(write(everyKindOfSignal(), 1)));
    const std::vector<int> wanted = {0, 2, 9, 4, 6, // signed, of 1, 2, 3, 4 and 8 bytes
                                     1, 3, 9, 5, 7, // unsigned
                                     9, 9, 9, 8, 9, // float
                                     9, 9, 9, 9, 9, 9, 9, 9, 9, 9};
    std::vector<int> types;
    for (const Plot& plot : m_loaded.plots)
        types.push_back(plot.dataType);
    EXPECT_EQ(types, wanted);
}

TEST_F(LoadedRecordingTest, SamplesThatAreNoNumbersAreZeros)
{
    ASSERT_TRUE(load(
        write({makeSignal("a", KiroValue::SignedInt, 3, 2), makeSignal("b", KiroValue::Object, 8, 1)}, 10)));
    EXPECT_EQ(m_loaded.plots[0].getDataDouble(), QVector<double>(20, 0.0));
    EXPECT_EQ(m_loaded.plots[1].getDataDouble(), QVector<double>(10, 0.0));
}

TEST_F(LoadedRecordingTest, EachSignalHasItsOwnSamplePeriod)
{
    KiroSignal slow = makeSignal("slow", KiroValue::SignedInt, 2, 1, 3);
    slow.ratePeriod = 6000; // one sample in 2 s
    KiroSignal fast = makeSignal("fast", KiroValue::SignedInt, 2, 2000, 1000);
    KiroSignal odd = makeSignal("odd", KiroValue::Float, 4, 6, 3);
    ASSERT_TRUE(load(write({slow, fast, odd}, 7)));
    EXPECT_EQ(m_loaded.frameCount, 7);
    EXPECT_EQ(m_loaded.samplesPerFrame, (QVector<int>{1, 2000, 6}));
    EXPECT_EQ(m_loaded.sampleCounts, (QVector<int>{7, 14000, 42}));
    EXPECT_EQ(m_loaded.signalMsecs, (QVector<double>{1000.0 / 0.5, 1.0, 1000.0 / 3.0}));
    EXPECT_EQ(m_loaded.signalSecs, (QVector<double>{2.0, 0.001, 1000.0 / 3.0 / 1000}));
    EXPECT_EQ(m_loaded.plots[0].timePerSample, 2.0);
    EXPECT_EQ(m_loaded.plots[1].timePerSample, 0.001);
    EXPECT_EQ(m_loaded.total, 14.0);
    EXPECT_EQ(m_loaded.totalSeconds, 14);
}

TEST_F(LoadedRecordingTest, StripsHaveTitleAndCalibration)
{
    KiroSignal calibrated = makeSignal("first", KiroValue::SignedInt, 2, 1);
    calibrated.shortName = "eyex";
    calibrated.calibrated = true;
    calibrated.calibrationFactor = 3.5;
    calibrated.calibrationOffset = -12.25;
    calibrated.calibrationUnit = "deg";
    KiroSignal raw = calibrated;
    raw.shortName = "eyey";
    raw.calibrated = false;
    const KiroString path = write({calibrated, raw}, 10);
    ASSERT_TRUE(load(path));
    const Plot& first = m_loaded.plots[0];
    EXPECT_EQ(first.title(), QStringLiteral("eyex"));
    EXPECT_TRUE(first.hasCalib);
    EXPECT_TRUE(first.useCalib);
    EXPECT_EQ(first.calibFactor, 3.5);
    EXPECT_EQ(first.calibOffset, -12.25);
    EXPECT_EQ(first.calibUnit(), QStringLiteral("deg"));
    const Plot& second = m_loaded.plots[1];
    EXPECT_EQ(second.title(), QStringLiteral("eyey"));
    EXPECT_FALSE(second.hasCalib);
    EXPECT_FALSE(second.useCalib);
    EXPECT_TRUE(second.drawnUnit().isEmpty());
    EXPECT_EQ(m_loaded.signalDescriptors[0].calibrationOffset, -12.25);
    EXPECT_FALSE(m_loaded.signalDescriptors[1].calibrated);
    expectLikeItsFile(m_loaded, path); // samples stay raw
}

TEST_F(LoadedRecordingTest, PrecisionSuitsTheSamples)
{
    KiroSignal fine = makeSignal("fine", KiroValue::Float, 4, 1);
    const KiroHeader header = makeHeader({fine}, 2);
    const KiroString path = m_folder.write(
        QStringLiteral("p.kiro"),
        recordingBytes(header, bigEndian(0x3f800000, 4) + bigEndian(0x3f800347, 4))); // 1 and 1.0001
    ASSERT_TRUE(load(path));
    Plot plain;
    plain.setData(QVector<float>{1.0f, m_loaded.plots[0].getDataFloat()[1]}, 0, -1);
    plain.adjustPrecision();
    EXPECT_EQ(m_loaded.plots[0].precision, plain.precision);
    EXPECT_GE(m_loaded.plots[0].precision, 5);
}

TEST_F(LoadedRecordingTest, StripsShareTheirSamples)
{
    ASSERT_TRUE(load(write({makeSignal("a", KiroValue::SignedInt, 2, 4)}, 100)));
    const Plot copy = m_loaded.plots[0];
    EXPECT_EQ(copy.getDataInt16().constData(), m_loaded.plots[0].getDataInt16().constData());
    EXPECT_EQ(copy.getDataInt16().capacity(), 400);
}

namespace
{

struct Duration
{
    const char* name;
    std::uint32_t samplesPerPeriod;
    std::uint32_t ratePeriod;
    int frames;
    double total;
    int totalSeconds;
};

void PrintTo(const Duration& duration, std::ostream* out)
{
    *out << duration.name;
}

class LoadedRecordingDuration : public LoadedRecordingTest, public testing::WithParamInterface<Duration>
{
};

} // namespace

TEST_P(LoadedRecordingDuration, IsRaisedToWholeSeconds)
{
    const Duration& given = GetParam();
    KiroSignal signal = makeSignal("a", KiroValue::UnsignedInt, 1, 1, given.samplesPerPeriod);
    signal.ratePeriod = given.ratePeriod;
    ASSERT_TRUE(load(write({signal}, given.frames)));
    EXPECT_EQ(m_loaded.total, given.total);
    EXPECT_EQ(m_loaded.totalSeconds, given.totalSeconds);
}

INSTANTIATE_TEST_SUITE_P(
    Durations, LoadedRecordingDuration,
    testing::Values(Duration{"WholeAtOneHertz", 1, 1000, 5, 5.0, 5},
                    Duration{"WholeAtFourHertz", 4, 1000, 20, 5.0, 5},
                    Duration{"AQuarterMore", 4, 1000, 21, 6.0, 6}, Duration{"AHalfMore", 4, 1000, 22, 6.0, 6},
                    Duration{"ThreeQuartersMore", 4, 1000, 23, 6.0, 6},
                    Duration{"OneSample", 1000, 1000, 1, 1.0, 1},
                    Duration{"BeyondIntegers", 1, 4294967295u, 1000, 4294967295.0, 2147483647}),
    nameOf<Duration>);

TEST_F(LoadedRecordingTest, RatesThatAreNoRatesFollowFromTheFrames)
{
    KiroSignal unknown = makeSignal("unknown", KiroValue::SignedInt, 2, 5, 0);
    KiroSignal none = makeSignal("none", KiroValue::SignedInt, 2, 2, 100);
    none.ratePeriod = 0;
    KiroSignal empty = makeSignal("empty", KiroValue::SignedInt, 2, 0, 0);
    const KiroSignal known = makeSignal("known", KiroValue::SignedInt, 2, 4, 100); // 40 ms a frame
    ASSERT_TRUE(load(write({unknown, none, empty, known}, 100)));
    EXPECT_EQ(m_loaded.signalMsecs, (QVector<double>{8.0, 20.0, 40.0, 10.0}));
    EXPECT_EQ(m_loaded.sampleCounts, (QVector<int>{500, 200, 0, 400}));
    EXPECT_EQ(m_loaded.total, 4.0);
}

TEST_F(LoadedRecordingTest, ARecordingOfUnknownRateIsRefused)
{
    EXPECT_FALSE(load(write({makeSignal("a", KiroValue::SignedInt, 2, 4, 0)}, 10)));
    EXPECT_EQ(m_loaded.failure(), Failure::Rate);
    EXPECT_FALSE(m_loaded.errorText().isEmpty());
    EXPECT_TRUE(m_loaded.currentFile.isEmpty());
}

TEST_F(LoadedRecordingTest, SamplesWithoutBytesAreNoSamples)
{
    const KiroString path = write(
        {makeSignal("a", KiroValue::SignedInt, 2, 4), makeSignal("b", KiroValue::SignedInt, 0, 4294967295u)},
        10);
    ASSERT_TRUE(load(path)) << qPrintable(m_loaded.errorText());
    EXPECT_EQ(m_loaded.sampleCounts, (QVector<int>{40, 0}));
    EXPECT_EQ(m_loaded.samplesPerFrame, (QVector<int>{4, 0}));
    EXPECT_EQ(m_loaded.plots[1].dataSize(), 0);
}

TEST_F(LoadedRecordingTest, AHalfWrittenLastFrameIsLeftOut)
{
    const KiroHeader header = makeHeader({makeSignal("a", KiroValue::UnsignedInt, 1, 4)}, 2);
    const KiroString path = m_folder.write(QStringLiteral("h.kiro"), recordingBytes(header, "abcdefghij"));
    ASSERT_TRUE(load(path));
    EXPECT_EQ(m_loaded.plots[0].getDataUInt8(),
              (QVector<std::uint8_t>{'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h'}));
}

TEST_F(LoadedRecordingTest, FilesThatAreNoRecordingsAreRefused)
{
    const QStringList paths = {m_folder.path(QStringLiteral("none.kiro")),
                               m_folder.path(QString()),
                               m_folder.write(QStringLiteral("empty.kiro"), "").toQString(),
                               m_folder.write(QStringLiteral("text.kiro"), "no recording at all").toQString(),
                               QString(),
                               QStringLiteral("/dev/null")};
    for (const QString& path : paths) {
        LoadedRecording loaded;
        EXPECT_FALSE(loaded.load(path, m_progress)) << qPrintable(path);
        EXPECT_EQ(loaded.failure(), Failure::Header) << qPrintable(path);
        EXPECT_EQ(loaded.errorText(), QStringLiteral("Failed to load file header"));
        EXPECT_TRUE(loaded.currentFile.isEmpty());
    }
}

TEST_F(LoadedRecordingTest, WrongFrameCountsAreRefused)
{
    const std::string data = noise(80);
    for (const std::uint32_t declared : {9u, 11u, 0u, 4294967295u}) {
        const KiroHeader header = makeHeader({makeSignal("a", KiroValue::SignedInt, 2, 4)}, declared);
        LoadedRecording loaded;
        EXPECT_FALSE(loaded.load(
            m_folder.write(QStringLiteral("w.kiro"), recordingBytes(header, data)).toQString(), m_progress));
        EXPECT_EQ(loaded.failure(), Failure::Integrity) << declared;
        EXPECT_EQ(loaded.errorText(),
                  QStringLiteral("The file you are trying to open is the valid kiro file but the header is "
                                 "corrupted.\nUse DataFileCenter module to reconstruct it."));
    }
}

TEST_F(LoadedRecordingTest, FilesWithoutFramesAreRefused)
{
    const KiroHeader header = makeHeader({makeSignal("a", KiroValue::SignedInt, 2, 4)}, 0);
    EXPECT_FALSE(load(m_folder.write(QStringLiteral("n.kiro"), recordingBytes(header, std::string()))));
    EXPECT_EQ(m_loaded.failure(), Failure::NoData);
    EXPECT_EQ(m_loaded.errorText(),
              QStringLiteral("The file you are trying to open does not contain any data!"));
}

TEST_F(LoadedRecordingTest, RecordingsWithoutSignalsAreRefused)
{
    for (const std::uint32_t frames : {0u, 10u, 4294967295u}) {
        LoadedRecording loaded;
        EXPECT_FALSE(
            loaded.load(m_folder.write(QStringLiteral("s.kiro"), recordingBytes(makeHeader({}, frames), "xx"))
                            .toQString(),
                        m_progress));
        EXPECT_EQ(loaded.failure(), Failure::Integrity);
    }
}

TEST_F(LoadedRecordingTest, FilesCutAnywhereAreRefused)
{
    const std::string whole = fileBytes(write({makeSignal("a", KiroValue::SignedInt, 2, 4)}, 3));
    for (std::size_t size = 0; size < whole.size(); size += size < whole.size() - 30 ? 97 : 1) {
        LoadedRecording loaded;
        EXPECT_FALSE(loaded.load(m_folder.write(QStringLiteral("c.kiro"), whole.substr(0, size)).toQString(),
                                 m_progress))
            << size;
        EXPECT_NE(loaded.failure(), Failure::None) << size;
        EXPECT_FALSE(loaded.errorText().isEmpty()) << size;
    }
}

namespace
{

struct Outcomes
{
    int loaded = 0;
    int headers = 0;
    int integrities = 0;
    int withoutData = 0;
    std::set<std::uint32_t> versions; ///< of what was loaded
};

/// Loads every recording of a folder and holds the outcome against the reader's word.
Outcomes loadAllOf(const QString& folder)
{
    Outcomes outcomes;
    const QFileInfoList files =
        QDir(folder).entryInfoList({QStringLiteral("*.kiro")}, QDir::Files, QDir::Name);
    for (const QFileInfo& file : files) {
        SCOPED_TRACE(qPrintable(file.fileName()));
        const QString path = file.filePath();
        RecordedProgress progress;
        LoadedRecording loaded;
        const bool done = loaded.load(path, progress);
        KiroReader reader;
        if (!reader.setFile(path)) {
            EXPECT_EQ(loaded.failure(), Failure::Header);
            ++outcomes.headers;
        } else if (!reader.checkIntegrity()) {
            EXPECT_EQ(loaded.failure(), Failure::Integrity);
            ++outcomes.integrities;
        } else if (reader.header().frameCount() == 0) {
            EXPECT_EQ(loaded.failure(), Failure::NoData);
            ++outcomes.withoutData;
        } else if (done) {
            expectLikeItsFile(loaded, path);
            for (const double seconds : loaded.signalSecs)
                EXPECT_TRUE(std::isfinite(seconds) && seconds > 0.0);
            ++outcomes.loaded;
            outcomes.versions.insert(loaded.header.version());
        } else {
            EXPECT_EQ(loaded.failure(), Failure::Rate);
        }
        EXPECT_EQ(done, loaded.failure() == Failure::None);
    }
    return outcomes;
}

} // namespace

TEST(LoadedRecordingFiles, RecordingsOfAllVersionsAreLoaded)
{
    const Outcomes outcomes = loadAllOf(QStringLiteral(KIRO_TEST_DATA "/formats/recordings"));
    for (std::uint32_t version = 2; version <= 12; ++version)
        EXPECT_EQ(outcomes.versions.count(version), 1u) << version;
    EXPECT_GT(outcomes.integrities, 0);
    EXPECT_GT(outcomes.withoutData, 0);
}

TEST(LoadedRecordingFiles, RecordingsWithGapsAreLoaded)
{
    EXPECT_GT(loadAllOf(QStringLiteral(KIRO_TEST_DATA "/formats/gaps")).loaded, 20);
}

TEST(LoadedRecordingFiles, HostileRecordingsAreSurvived)
{
    const Outcomes outcomes = loadAllOf(QStringLiteral(KIRO_TEST_DATA "/formats/hostile"));
    EXPECT_GT(outcomes.headers, 0);
    EXPECT_GT(outcomes.integrities, 0);
}

TEST_F(LoadedRecordingTest, ReportsAboutTwentyTimes)
{
    struct Case
    {
        int frames;
        int reports;
    };
    // Every 1, 1, 2, 5, 6 and 50 frames.
    for (const auto& [frames, reports] :
         {Case{1, 1}, Case{20, 20}, Case{30, 15}, Case{100, 20}, Case{119, 20}, Case{1000, 20}}) {
        LoadedRecording loaded;
        RecordedProgress progress;
        ASSERT_TRUE(
            loaded.load(write({makeSignal("a", KiroValue::SignedInt, 2, 4)}, frames).toQString(), progress));
        EXPECT_EQ(int(progress.values.size()), reports) << frames;
        EXPECT_EQ(progress.range, (std::pair<int, int>{0, reports})) << frames;
        for (int i = 0; i < int(progress.values.size()); ++i)
            EXPECT_EQ(progress.values[std::size_t(i)], i + 1) << frames;
    }
}

TEST_F(LoadedRecordingTest, CanBeCancelledAtEveryQuestion)
{
    const QString path =
        write({makeSignal("a", KiroValue::SignedInt, 2, 4), makeSignal("b", KiroValue::Float, 8, 2)}, 40)
            .toQString();
    ASSERT_TRUE(m_loaded.load(path, m_progress));
    // Three steps, twenty blocks and two signals at least.
    ASSERT_GE(m_progress.questions, 25);
    for (int i = 1; i <= m_progress.questions; ++i) {
        RecordedProgress progress;
        progress.cancelAtQuestion = i;
        LoadedRecording other;
        EXPECT_FALSE(other.load(path, progress)) << i;
        EXPECT_EQ(progress.questions, i);
        EXPECT_EQ(other.failure(), Failure::Cancelled) << i;
        EXPECT_TRUE(other.errorText().isEmpty()) << i;
        EXPECT_TRUE(other.currentFile.isEmpty()) << i;
    }
    expectLikeItsFile(m_loaded, path);
}

TEST_F(LoadedRecordingTest, IsReplacedByAMoveOnceTheNextIsWhole)
{
    const QString path = write({makeSignal("a", KiroValue::SignedInt, 2, 4)}, 40).toQString();
    ASSERT_TRUE(m_loaded.load(path, m_progress));
    const QString next = m_folder.path(QStringLiteral("next.kiro"));
    ASSERT_TRUE(QFile::rename(path, next));
    const KiroString other = write({makeSignal("b", KiroValue::Float, 4, 1)}, 10);
    LoadedRecording loaded;
    ASSERT_TRUE(loaded.openHeader(other.toQString()));
    ASSERT_TRUE(loaded.checkIntegrity());
    ASSERT_TRUE(loaded.describeSignals());
    EXPECT_EQ(loaded.sampleCounts, QVector<int>{10}); // known before the samples
    EXPECT_TRUE(loaded.currentFile.isEmpty());
    ASSERT_TRUE(loaded.readSamples(m_progress));
    expectLikeItsFile(m_loaded, next);
    m_loaded = std::move(loaded);
    expectLikeItsFile(m_loaded, other);
    EXPECT_EQ(m_loaded.currentFile, other.toQString());
}

namespace
{

/// What happens to the file at a question whether to go on.
struct Accident
{
    const char* name;
    std::function<bool(const QString& path)> happen;
};

void PrintTo(const Accident& accident, std::ostream* out)
{
    *out << accident.name;
}

bool overwrite(const QString& path, qint64 offset, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::ReadWrite) && file.seek(offset) && file.write(bytes) == bytes.size() &&
           file.flush() &&
           file.setFileTime(QDateTime::currentDateTime().addSecs(10), QFileDevice::FileModificationTime);
}

class LoadedRecordingAccident : public LoadedRecordingTest, public testing::WithParamInterface<Accident>
{
};

} // namespace

TEST_P(LoadedRecordingAccident, IsAnErrorWheneverItHappens)
{
    const std::vector<KiroSignal> table = {makeSignal("a", KiroValue::SignedInt, 2, 4)};
    ASSERT_TRUE(load(write(table, 40)));
    for (int i = 1; i <= m_progress.questions; ++i) {
        const QString path = write(table, 40).toQString();
        RecordedProgress progress;
        bool happened = false;
        progress.actAtQuestion = i;
        progress.act = [&] { happened = GetParam().happen(path); };
        LoadedRecording loaded;
        EXPECT_FALSE(loaded.load(path, progress)) << i;
        EXPECT_TRUE(happened) << i;
        EXPECT_EQ(loaded.failure(), Failure::Changed) << i;
        EXPECT_FALSE(loaded.errorText().isEmpty()) << i;
        EXPECT_TRUE(loaded.currentFile.isEmpty()) << i;
        QDir().rmdir(path); // for the next round
    }
}

INSTANTIATE_TEST_SUITE_P(
    Accidents, LoadedRecordingAccident,
    testing::Values(
        Accident{"Shortened",
                 [](const QString& path) { return QFile::resize(path, QFileInfo(path).size() - 9); }},
        Accident{"Emptied", [](const QString& path) { return QFile::resize(path, 0); }},
        Accident{"Lengthened",
                 [](const QString& path) { return QFile::resize(path, QFileInfo(path).size() + 3); }},
        Accident{"Removed", [](const QString& path) { return QFile::remove(path); }},
        Accident{"MadeAFolder",
                 [](const QString& path) { return QFile::remove(path) && QDir().mkdir(path); }},
        Accident{"Replaced",
                 [](const QString& path) {
                     const QString other = path + QStringLiteral(".other");
                     return QFile::copy(path, other) && overwrite(other, 20, "another program") &&
                            QFile::remove(path) && QFile::rename(other, path);
                 }},
        Accident{"OtherHeader", [](const QString& path) { return overwrite(path, 20, "another program"); }},
        Accident{
            "OtherSamples",
            [](const QString& path) { return overwrite(path, QFileInfo(path).size() - 8, "12345678"); }}),
    nameOf<Accident>);

namespace
{

/// A recording of zeros that takes no room on the disk.
QString sparseRecording(const TestFolder& folder, const std::vector<KiroSignal>& table, std::uint32_t frames)
{
    const KiroHeader header = makeHeader(table, frames);
    const QString path = folder.write(QStringLiteral("sparse.kiro"), header.toBytes()).toQString();
    EXPECT_TRUE(QFile::resize(path, qint64(header.headerSize()) + header.frameSize() * frames));
    return path;
}

struct MemoryReport
{
    QString result;
    double sampleBytes = 0.0;
    double mostBytes = 0.0;
    QString error;
};

/// Of a process that does nothing but load the recording.
MemoryReport loadInAProcess(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral(LOADMEMORY), arguments);
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
    const QString output = QString::fromLocal8Bit(process.readAllStandardOutput());
    const QStringList words = output.section(QLatin1Char('\n'), 0, 0).split(QLatin1Char(' '));
    if (words.size() != 3)
        return {};
    return {words[0], words[1].toDouble(), words[2].toDouble(), output.section(QLatin1Char('\n'), 1)};
}

} // namespace

TEST_F(LoadedRecordingTest, TakesLittleMoreMemoryThanTheSamples)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer's own memory would be counted";
#endif
    const QString path = sparseRecording(
        m_folder,
        {makeSignal("a", KiroValue::SignedInt, 2, 4), makeSignal("b", KiroValue::UnsignedInt, 1, 4),
         makeSignal("c", KiroValue::Float, 4, 2), makeSignal("d", KiroValue::Float, 8, 1)},
        8000000);
    const MemoryReport report = loadInAProcess({path});
    ASSERT_EQ(report.result, QStringLiteral("loaded"));
    ASSERT_EQ(report.sampleBytes, 8000000.0 * 28.0);
    EXPECT_GT(report.mostBytes, report.sampleBytes); // it has been measured
    EXPECT_LT(report.mostBytes, 1.25 * report.sampleBytes + 120e6);
}

TEST_F(LoadedRecordingTest, TooLittleMemoryIsAnError)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer needs more addresses than the bound leaves";
#endif
    const QString path = sparseRecording(m_folder, {makeSignal("a", KiroValue::SignedInt, 2, 1000)}, 900000);
    const MemoryReport report = loadInAProcess({path, QString::number(1000000000)});
    EXPECT_EQ(report.result, QStringLiteral("failed"));
    EXPECT_EQ(report.error,
              QStringLiteral("Failed to load data signals!\nKiroBulkReader - memory allocation error"));
    EXPECT_EQ(report.sampleBytes, 0.0);
}
