#include "demorecording.h"

#include "demofixture.h"
#include "eyesignals.h"
#include "filesizelimit.h"
#include "samplefilters.h"

#include <QCryptographicHash>
#include <QFile>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace
{

using Outcome = DemoResult::Outcome;

/// Mean of `count` samples from `first` on.
double meanOf(const std::vector<double>& samples, std::size_t first, std::size_t count)
{
    const auto begin = samples.begin() + static_cast<std::ptrdiff_t>(first);
    return std::accumulate(begin, begin + static_cast<std::ptrdiff_t>(count), 0.0) /
           static_cast<double>(count);
}

std::string sha256(const std::string& bytes)
{
    return QCryptographicHash::hash(QByteArray::fromStdString(bytes), QCryptographicHash::Sha256)
        .toHex()
        .toStdString();
}

/// Wants to stop at a value.
class StoppingProgress final : public JobProgress
{
public:
    explicit StoppingProgress(int stopAt)
        : m_stopAt(stopAt)
    {
    }
    void setRange(int minimum, int maximum) override
    {
        EXPECT_EQ(minimum, 0);
        m_maximum = maximum;
    }
    void setValue(int value) override
    {
        EXPECT_GE(value, m_value);
        EXPECT_LE(value, m_maximum);
        m_value = value;
    }
    void setText(const QString&) override {}
    bool cancelled() override { return m_value >= m_stopAt; }

    int value() const { return m_value; }
    int maximum() const { return m_maximum; }

private:
    int m_stopAt;
    int m_value = 0;
    int m_maximum = 0;
};

class DemoRecording : public DemoTest
{
};

} // namespace

TEST_F(DemoRecording, HasTheSignalsOfTheRecorder)
{
    struct Expected
    {
        const char* name;
        KiroValue::Type type;
        std::uint32_t size;
        double frequency;
        std::uint32_t samplesPerFrame;
        const char* unit;
    };
    const std::vector<Expected> expected = {
        {"right eye - horizontal", KiroValue::SignedInt, 2, 1000.0, 20, "deg"},
        {"right eye - vertical", KiroValue::SignedInt, 2, 1000.0, 20, "deg"},
        {"left eye - horizontal", KiroValue::SignedInt, 2, 1000.0, 20, "deg"},
        {"left eye - vertical", KiroValue::SignedInt, 2, 1000.0, 20, "deg"},
        {"head velocity - X", KiroValue::UnsignedInt, 2, 250.0, 5, "deg/s"},
        {"head velocity - Y", KiroValue::UnsignedInt, 2, 250.0, 5, "deg/s"},
        {"head velocity - Z", KiroValue::UnsignedInt, 2, 250.0, 5, "deg/s"},
        {"head acceleration - X", KiroValue::UnsignedInt, 2, 250.0, 5, ""},
        {"head acceleration - Y", KiroValue::UnsignedInt, 2, 250.0, 5, ""},
        {"head acceleration - Z", KiroValue::UnsignedInt, 2, 250.0, 5, ""},
        {"pulsoxymeter infrared", KiroValue::UnsignedInt, 4, 250.0, 5, ""},
        {"pulsoxymeter red", KiroValue::UnsignedInt, 4, 250.0, 5, ""},
        {"ambient light", KiroValue::Float, 4, 50.0, 1, "lx"},
        {"battery voltage", KiroValue::UnsignedInt, 1, 50.0, 1, "V"},
        {"microphone", KiroValue::SignedInt, 2, 8000.0, 160, ""},
        {"packet counter", KiroValue::UnsignedInt, 2, 50.0, 1, ""},
    };
    const DemoResult result = make();
    ASSERT_TRUE(result.ok());
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(KiroString(path())));
    const KiroHeader& header = reader.header();
    EXPECT_TRUE(reader.checkIntegrity());
    EXPECT_EQ(header.version(), KiroHeader::CurrentVersion);
    EXPECT_EQ(header.frameCount(), 3000u);
    EXPECT_EQ(header.frameMSecs(), 20.0);
    EXPECT_EQ(header.durationMSecs(), 60000.0);
    EXPECT_EQ(static_cast<std::int64_t>(bytes().size()), header.headerSize() + 3000 * header.frameSize());
    EXPECT_EQ(result.frameCount, 3000);
    EXPECT_EQ(result.signalCount, header.signalCount());
    ASSERT_EQ(header.signalCount(), static_cast<int>(expected.size()));
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const KiroSignal& signal = header.signalTable()[i];
        EXPECT_EQ(signal.fullName.bytes(), expected[i].name);
        EXPECT_EQ(signal.valueType, expected[i].type) << expected[i].name;
        EXPECT_EQ(signal.sampleSize, expected[i].size) << expected[i].name;
        EXPECT_EQ(signal.frequency(), expected[i].frequency) << expected[i].name;
        EXPECT_EQ(signal.samplesPerFrame, expected[i].samplesPerFrame) << expected[i].name;
        EXPECT_EQ(signal.calibrationUnit.bytes(), expected[i].unit) << expected[i].name;
        EXPECT_EQ(signal.calibrated, *expected[i].unit != '\0') << expected[i].name;
    }
}

TEST_F(DemoRecording, ItsEyeSignalsAreFoundByTheirNames)
{
    ASSERT_TRUE(make(0.1).ok());
    KiroHeader header;
    ASSERT_TRUE(header.load(KiroString(path())));
    const EyeSignals eyes = findEyeSignals(header);
    EXPECT_EQ(eyes[EyeAxis::RightHorizontal].signalIndex, 0);
    EXPECT_EQ(eyes[EyeAxis::RightVertical].signalIndex, 1);
    EXPECT_EQ(eyes[EyeAxis::LeftHorizontal].signalIndex, 2);
    EXPECT_EQ(eyes[EyeAxis::LeftVertical].signalIndex, 3);
}

TEST_F(DemoRecording, TheSameSeedGivesTheSameBytesOnEveryMachine)
{
    ASSERT_TRUE(make(0.25, 7).ok());
    const std::string first = bytes();
    const std::string firstTruth = fileBytes(KiroString(truthPath()));
    ASSERT_TRUE(make(0.25, 7).ok());
    EXPECT_TRUE(bytes() == first);
    EXPECT_TRUE(fileBytes(KiroString(truthPath())) == firstTruth);
    // Of the files as they were first made. Another compiler, build type or machine must not change them; a
    // change of the model does.
    EXPECT_EQ(sha256(first), "29af6b06c95a914957b350b98b43f855ad03cc97454557fb1bba70b66c9a87a6");
    EXPECT_EQ(sha256(firstTruth), "c32b072fa6cc99e85d75d06c440eed71129f11401bbb8f51f31660f841c6c652");
}

TEST_F(DemoRecording, AnotherSeedGivesOtherSamplesOfEverySignal)
{
    const auto allSignals = [this](std::uint32_t seed) {
        EXPECT_TRUE(make(0.1, seed).ok());
        std::vector<std::vector<double>> result;
        KiroHeader header;
        EXPECT_TRUE(header.load(KiroString(path())));
        for (const KiroSignal& signal : header.signalTable())
            result.push_back(samples(signal.fullName.c_str()));
        return result;
    };
    const auto one = allSignals(1);
    const auto other = allSignals(2);
    ASSERT_EQ(one.size(), other.size());
    for (std::size_t i = 0; i < one.size(); ++i)
        EXPECT_TRUE(one[i] != other[i]) << i;
}

TEST_F(DemoRecording, ItsLengthIsRoundedToFrames)
{
    for (const auto& [minutes, frames] :
         {std::pair{0.1, 300}, std::pair{0.2501, 750}, std::pair{0.25034, 751}, std::pair{1.5, 4500}}) {
        const DemoResult result = make(minutes);
        EXPECT_TRUE(result.ok());
        EXPECT_EQ(result.frameCount, frames);
        EXPECT_EQ(number(truth(), "frames"), frames);
        EXPECT_EQ(number(truth(), "minutes"), frames / 3000.0);
    }
}

TEST_F(DemoRecording, LengthsOutOfRangeAreRefused)
{
    constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    for (const double minutes : {0.0, 0.0999, 120.01, -1.0, NaN, Infinity}) {
        EXPECT_EQ(make(minutes).outcome, Outcome::BadMinutes) << minutes;
        EXPECT_EQ(files(), QStringList()) << minutes;
    }
}

TEST_F(DemoRecording, TheLongestStaysFarBelowWhatCanBeRead)
{
    ASSERT_TRUE(make(0.1).ok());
    KiroHeader header;
    ASSERT_TRUE(header.load(KiroString(path())));
    EXPECT_LT(static_cast<double>(header.frameSize()) * 3000.0 * DemoOptions::MostMinutes,
              static_cast<double>(KiroReader::FileSizeLimit) / 8.0);
}

TEST_F(DemoRecording, TheResultCountsWhatTheTruthLists)
{
    const DemoResult result = make();
    EXPECT_EQ(result.saccades, events("saccades").size());
    EXPECT_EQ(result.blinks, events("blinks").size());
    EXPECT_EQ(result.headRotations, events("head_rotations").size());
    EXPECT_EQ(result.beats, events("beats").size());
    EXPECT_GT(result.saccades, 80);
    EXPECT_GT(result.blinks, 8);
    EXPECT_GT(result.headRotations, 7);
    EXPECT_EQ(truth().value(QStringLiteral("file")).toString(), QStringLiteral("demo.kiro"));
    EXPECT_EQ(number(truth(), "seed"), 1.0);
}

TEST_F(DemoRecording, TheEyesMoveByTheAmplitudeOfEachSaccade)
{
    // Noise of 0.025 degrees and steps of as much, averaged, and a drift of up to 0.6 degrees a second.
    constexpr double Tolerance = 0.12;
    constexpr std::size_t Averaged = 10;
    ASSERT_TRUE(make().ok());
    for (const char* eye : {"right", "left"}) {
        const std::string name = std::string(eye) + " eye - ";
        const std::vector<double> horizontal = samples((name + "horizontal").c_str());
        const std::vector<double> vertical = samples((name + "vertical").c_str());
        for (const QJsonValue& event : events("saccades")) {
            const QJsonValue saccade = event[QLatin1String(eye)];
            const std::size_t start = index(saccade, "start");
            const std::size_t end = index(saccade, "end");
            ASSERT_GT(start, Averaged);
            ASSERT_LT(end + Averaged, horizontal.size());
            const auto change = [&](const std::vector<double>& position) {
                return meanOf(position, end, Averaged) - meanOf(position, start + 1 - Averaged, Averaged);
            };
            EXPECT_NEAR(change(horizontal), number(saccade, "horizontal"), Tolerance) << eye << start;
            EXPECT_NEAR(change(vertical), number(saccade, "vertical"), Tolerance) << eye << start;
            EXPECT_NEAR(number(saccade, "amplitude"),
                        std::hypot(number(saccade, "horizontal"), number(saccade, "vertical")), 2e-4);
        }
    }
}

TEST_F(DemoRecording, TheEyesRestOutsideOfTheirMovements)
{
    constexpr std::size_t Averaged = 10;
    ASSERT_TRUE(make().ok());
    const std::vector<double> position = samples("right eye - horizontal");
    std::vector<bool> moving(position.size(), false);
    const QJsonObject all = truth();
    for (const char* kind : {"saccades", "blinks", "pursuits"}) {
        for (const QJsonValue& event : all.value(QLatin1String(kind)).toArray()) {
            for (std::size_t i = index(event, "start") - Averaged; i <= index(event, "end") + Averaged; ++i)
                moving[i] = true;
        }
    }
    std::size_t resting = 0;
    for (std::size_t i = Averaged; i + Averaged <= position.size(); ++i) {
        if (moving[i])
            continue;
        ++resting;
        // Eight deviations of the noise's means, and the drift.
        ASSERT_LT(std::abs(meanOf(position, i, Averaged) - meanOf(position, i - Averaged, Averaged)), 0.1)
            << i;
    }
    EXPECT_GT(resting, moving.size() / 2);
}

TEST_F(DemoRecording, SaccadesReachTheirPeakVelocity)
{
    ASSERT_TRUE(make().ok());
    const std::vector<double> horizontal = samples("right eye - horizontal");
    const std::vector<double> vertical = samples("right eye - vertical");
    std::vector<double> across(horizontal.size(), 0.0);
    std::vector<double> along(vertical.size(), 0.0);
    velocitySavitzkyGolay11(horizontal, across, false);
    velocitySavitzkyGolay11(vertical, along, false);
    int compared = 0;
    for (const QJsonValue& saccade : events("saccades")) {
        if (number(saccade, "amplitude") < 5.0)
            continue; // the filter is as long as a good part of a shorter one
        double peak = 0.0;
        for (std::size_t i = index(saccade, "start"); i <= index(saccade, "end"); ++i)
            peak = std::max(peak, 1000.0 * std::hypot(across[i], along[i]));
        EXPECT_NEAR(peak, number(saccade, "peak_velocity"), 0.06 * number(saccade, "peak_velocity"));
        ++compared;
    }
    EXPECT_GT(compared, 30);
}

TEST_F(DemoRecording, SaccadesFollowTheMainSequence)
{
    ASSERT_TRUE(make(5.0).ok());
    double least = 100.0;
    double greatest = 0.0;
    for (const QJsonValue& saccade : events("saccades")) {
        const double amplitude = number(saccade, "amplitude");
        // Carpenter, Movements of the Eyes (1988).
        const double usualMs = 2.2 * amplitude + 21.0;
        EXPECT_NEAR(number(saccade, "duration_ms"), usualMs, 0.15 * usualMs);
        EXPECT_EQ(number(saccade, "end") - number(saccade, "start"),
                  std::ceil(number(saccade, "duration_ms")));
        // Typical values: saturation at 600 deg/s, with 6 deg as the constant of the exponential.
        const double usualVelocity = 600.0 * (1.0 - std::exp(-amplitude / 6.0));
        EXPECT_GT(number(saccade, "peak_velocity"), 0.7 * usualVelocity) << amplitude;
        EXPECT_LT(number(saccade, "peak_velocity"), 1.3 * usualVelocity) << amplitude;
        least = std::min(least, amplitude);
        greatest = std::max(greatest, amplitude);
    }
    EXPECT_LT(least, 2.0);
    EXPECT_GT(greatest, 18.0);
}

TEST_F(DemoRecording, TheEyesDifferALittle)
{
    ASSERT_TRUE(make().ok());
    double sum = 0.0;
    const QJsonArray saccades = events("saccades");
    for (const QJsonValue& saccade : saccades) {
        const QJsonValue right = saccade[QLatin1String("right")];
        const QJsonValue left = saccade[QLatin1String("left")];
        const double difference = std::abs(number(right, "amplitude") - number(left, "amplitude"));
        EXPECT_LT(difference, 1.5);
        EXPECT_LE(std::abs(number(right, "start") - number(left, "start")), 1.0);
        sum += difference;
    }
    EXPECT_GT(sum / saccades.size(), 0.02);
}

TEST_F(DemoRecording, BlinksGoDownAndBackUpInBothEyes)
{
    ASSERT_TRUE(make().ok());
    for (const auto& [name, key] : {std::pair{"right eye - vertical", "amplitude"},
                                    std::pair{"left eye - vertical", "amplitude_left"}}) {
        const std::vector<double> position = samples(name);
        for (const QJsonValue& blink : events("blinks")) {
            const double before = meanOf(position, index(blink, "start") - 10, 10);
            const double lowest = meanOf(position, index(blink, "lowest"), 4);
            const double after = meanOf(position, index(blink, "end"), 10);
            EXPECT_NEAR(before - lowest, number(blink, key), 0.3);
            EXPECT_NEAR(before, after, 0.3);
        }
    }
}

TEST_F(DemoRecording, GyroscopesTurnByTheAngleOfEachRotation)
{
    ASSERT_TRUE(make().ok());
    for (const QJsonValue& rotation : events("head_rotations")) {
        const QString key = rotation[QLatin1String("signal")].toString();
        const std::string name = "head velocity - " + key.right(1).toUpper().toStdString();
        const std::vector<double> velocity = samples(name.c_str());
        const std::size_t begin = index(rotation, "begin");
        const std::size_t count = index(rotation, "end") - begin + 1;
        const double rest = meanOf(velocity, begin - 200, 200);
        EXPECT_NEAR((meanOf(velocity, begin, count) - rest) * static_cast<double>(count) / 250.0,
                    number(rotation, "angle"), 0.3);
        double peak = 0.0;
        for (std::size_t i = begin; i < begin + count; ++i)
            peak = std::max(peak, std::abs(velocity[i] - rest));
        EXPECT_NEAR(peak, number(rotation, "peak_velocity"), 2.0);
    }
}

TEST_F(DemoRecording, AccelerometersFeelGravityAlone)
{
    constexpr double Zero = 2048.0;
    constexpr double Gravity = 993.0;
    ASSERT_TRUE(make().ok());
    const std::vector<double> x = samples("head acceleration - X");
    const std::vector<double> y = samples("head acceleration - Y");
    const std::vector<double> z = samples("head acceleration - Z");
    for (std::size_t i = 0; i < x.size(); ++i) {
        const double length = std::hypot(x[i] - Zero, y[i] - Zero, z[i] - Zero) / Gravity;
        ASSERT_NEAR(length, 1.0, 0.015) << i;
    }
    EXPECT_GT(*std::max_element(y.begin(), y.end()) - *std::min_element(y.begin(), y.end()), 200.0);
}

TEST_F(DemoRecording, ThePulseHasItsPeaksAtTheBeats)
{
    constexpr std::size_t Around = 40;
    // The breath's slope shifts the top by 2 samples; within 5 more its fall is lost in 2.5 deviations of
    // noise.
    constexpr double Tolerance = 8.0;
    ASSERT_TRUE(make().ok());
    for (const char* name : {"pulsoxymeter infrared", "pulsoxymeter red"}) {
        const std::vector<double> light = samples(name);
        std::vector<double> smooth(light.size(), 0.0);
        for (std::size_t i = 2; i + 2 < light.size(); ++i)
            smooth[i] = meanOf(light, i - 2, 5);
        for (const QJsonValue& beat : events("beats")) {
            const std::size_t sample = index(beat, "sample");
            if (sample < Around + 2 || sample + Around + 2 >= light.size())
                continue;
            const auto begin = smooth.begin() + static_cast<std::ptrdiff_t>(sample - Around);
            const auto top = std::max_element(begin, begin + 2 * Around + 1) - begin;
            EXPECT_NEAR(static_cast<double>(top), static_cast<double>(Around), Tolerance) << name << sample;
        }
    }
}

TEST_F(DemoRecording, TheHeartRateIsThatOfTheBeatsAndVaries)
{
    const DemoResult result = make();
    const QJsonArray beats = events("beats");
    double shortest = 1e9;
    double longest = 0.0;
    for (int i = 1; i < beats.size(); ++i) {
        const double interval = number(beats[i], "ms") - number(beats[i - 1], "ms");
        shortest = std::min(shortest, interval);
        longest = std::max(longest, interval);
    }
    const double mean =
        60000.0 * (beats.size() - 1) / (number(beats.last(), "ms") - number(beats.first(), "ms"));
    EXPECT_NEAR(number(truth().value(QStringLiteral("heart_rate")), "mean"), mean, 1e-3);
    EXPECT_NEAR(result.meanHeartRate, mean, 1e-3);
    EXPECT_GT(60000.0 / longest, 50.0);
    EXPECT_LT(60000.0 / shortest, 90.0);
    EXPECT_GT(longest - shortest, 60.0);
}

TEST_F(DemoRecording, LightAndSoundAreThoseOfTheTruth)
{
    ASSERT_TRUE(make().ok());
    const std::vector<double> light = samples("ambient light");
    for (const QJsonValue& level : events("light")) {
        const auto begin = static_cast<std::size_t>(number(level, "begin_ms") / 20.0);
        const auto end = static_cast<std::size_t>(number(level, "end_ms") / 20.0);
        ASSERT_LE(end, light.size());
        EXPECT_NEAR(meanOf(light, begin, end - begin), number(level, "level"),
                    0.002 * number(level, "level"));
    }
    const std::vector<double> sound = samples("microphone");
    std::vector<bool> spoken(sound.size(), false);
    for (const QJsonValue& voice : events("audio")) {
        double loudest = 0.0;
        for (std::size_t i = index(voice, "begin"); i <= index(voice, "end"); ++i) {
            spoken[i] = true;
            loudest = std::max(loudest, std::abs(sound[i]));
        }
        EXPECT_GT(loudest, 2000.0);
    }
    for (std::size_t i = 0; i < sound.size(); ++i)
        ASSERT_TRUE(spoken[i] || std::abs(sound[i]) < 100.0) << i;
}

TEST_F(DemoRecording, ThePacketCounterCountsOn)
{
    ASSERT_TRUE(make(0.5, 3).ok());
    const std::vector<double> counter = samples("packet counter");
    EXPECT_EQ(counter[0], number(truth().value(QStringLiteral("counter")), "first"));
    for (std::size_t i = 1; i < counter.size(); ++i)
        ASSERT_EQ(counter[i], std::fmod(counter[i - 1] + 1.0, 65536.0)) << i;
}

TEST_F(DemoRecording, ProgressRunsThroughTheFrames)
{
    StoppingProgress progress(std::numeric_limits<int>::max());
    EXPECT_TRUE(makeDemoRecording(path(), {0.1, 1}, progress).ok());
    EXPECT_EQ(progress.maximum(), 300);
    EXPECT_EQ(progress.value(), 300);
}

TEST_F(DemoRecording, CancelLeavesNothing)
{
    for (const int stopAt : {0, 1500, 3000}) {
        StoppingProgress progress(stopAt);
        const DemoResult result = makeDemoRecording(path(), {1.0, 1}, progress);
        EXPECT_EQ(result.outcome, Outcome::Cancelled) << stopAt;
        EXPECT_EQ(result.saccades, 0);
        EXPECT_EQ(progress.value(), stopAt);
        EXPECT_EQ(files(), QStringList()) << stopAt;
    }
}

TEST_F(DemoRecording, CancelLeavesOldFilesAsTheyWere)
{
    m_folder.write(QStringLiteral("demo.kiro"), "old");
    m_folder.write(QStringLiteral("demo.json"), "old truth");
    StoppingProgress progress(1000);
    EXPECT_EQ(makeDemoRecording(path(), {1.0, 1}, progress).outcome, Outcome::Cancelled);
    EXPECT_EQ(bytes(), "old");
    EXPECT_EQ(fileBytes(KiroString(truthPath())), "old truth");
    EXPECT_EQ(files().size(), 2);
}

TEST_F(DemoRecording, FullDiskLeavesNothing)
{
    // Too small for the header, for the truth that is shorter than the samples, and for the samples.
    for (const rlim_t room : {1000, 50000, 1000000}) {
        DemoResult result;
        {
            const FileSizeLimit limit(room);
            ASSERT_TRUE(limit.isSet());
            result = make();
        }
        EXPECT_EQ(result.outcome, Outcome::CannotWrite) << room;
        EXPECT_EQ(result.path, path()) << room;
        EXPECT_FALSE(result.reason.isEmpty()) << room;
        EXPECT_EQ(files(), QStringList()) << room;
    }
}

TEST_F(DemoRecording, FullDiskLeavesAnOldRecordingAsItWas)
{
    m_folder.write(QStringLiteral("demo.kiro"), "old");
    {
        const FileSizeLimit limit(1000000);
        ASSERT_TRUE(limit.isSet());
        EXPECT_EQ(make().outcome, Outcome::CannotWrite);
    }
    EXPECT_EQ(bytes(), "old");
    EXPECT_EQ(files().size(), 1);
}

TEST_F(DemoRecording, ATruthThatCannotBeWrittenLeavesNoRecording)
{
    ASSERT_TRUE(QDir(m_folder.path(QString())).mkdir(QStringLiteral("demo.json")));
    const DemoResult result = make(0.1);
    EXPECT_EQ(result.outcome, Outcome::CannotWrite);
    EXPECT_EQ(result.path, truthPath());
    EXPECT_FALSE(result.reason.isEmpty());
    EXPECT_EQ(files(), QStringList());
}

TEST_F(DemoRecording, AFolderThatIsNotThereIsNamed)
{
    NoProgress progress;
    const QString nowhere = m_folder.path(QStringLiteral("no/such/demo.kiro"));
    const DemoResult result = makeDemoRecording(nowhere, {0.1, 1}, progress);
    EXPECT_EQ(result.outcome, Outcome::CannotWrite);
    EXPECT_EQ(result.path, nowhere);
    EXPECT_FALSE(result.reason.isEmpty());
}

TEST_F(DemoRecording, OldFilesAreReplaced)
{
    m_folder.write(QStringLiteral("demo.kiro"), "old");
    m_folder.write(QStringLiteral("demo.json"), "old truth");
    ASSERT_TRUE(make(0.1).ok());
    KiroHeader header;
    EXPECT_TRUE(header.load(KiroString(path())));
    EXPECT_EQ(number(truth(), "frames"), 300.0);
    EXPECT_EQ(files().size(), 2);
}

TEST(DemoTruthPath, ReplacesTheEndingOfARecordingOnly)
{
    EXPECT_EQ(demoTruthPath(QStringLiteral("a/demo.kiro")), QStringLiteral("a/demo.json"));
    EXPECT_EQ(demoTruthPath(QStringLiteral("a.b.kiro")), QStringLiteral("a.b.json"));
    EXPECT_EQ(demoTruthPath(QStringLiteral("x.kiro/demo")), QStringLiteral("x.kiro/demo.json"));
    EXPECT_EQ(demoTruthPath(QStringLiteral("demo.json")), QStringLiteral("demo.json.json"));
}
