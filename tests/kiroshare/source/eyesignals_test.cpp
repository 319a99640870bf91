#include "eyesignals.h"

#include "recordingbuilder.h"
#include "samplefilters.h"

#include "kirofile.h"
#include "kiroheader.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{

KiroHeader headerWith(const std::vector<const char*>& names)
{
    KiroHeader header;
    std::vector<KiroSignal> table;
    header.setSignalCount(static_cast<int>(names.size()));
    for (std::size_t i = 0; i < names.size(); ++i)
        header.setSignal(static_cast<int>(i), makeSignal(names[i], KiroValue::SignedInt, 2, 1, 1000));
    return header;
}

std::vector<int> indices(const EyeSignals& eyes)
{
    std::vector<int> list;
    for (const EyeAxis axis : EyeAxes)
        list.push_back(eyes[axis].signalIndex);
    return list;
}

std::vector<int> found(const std::vector<const char*>& names)
{
    return indices(findEyeSignals(headerWith(names)));
}

using Indices = std::vector<int>;

constexpr int FrameCount = 40;

/// A recording of four signals of 16 bits, of which sample i of signal s is 100 * s + i * i.
class EyeLoading : public testing::Test
{
protected:
    EyeLoading()
        : header(headerWith({"a", "b", "c", "d"}))
    {
        header.setFrameCount(FrameCount);
        for (int i = 0; i < 4; ++i)
            eyes.axes[static_cast<std::size_t>(i)].signalIndex = i;
    }

    static int raw(int signal, int i) { return 100 * signal + i * i; }

    void calibrate(int index, double factor, double offset)
    {
        KiroSignal signal = header.signal(static_cast<unsigned>(index));
        signal.calibrated = true;
        signal.calibrationFactor = factor;
        signal.calibrationOffset = offset;
        header.setSignal(index, signal);
    }

    bool load(const EyeLoadOptions& options)
    {
        std::string samples;
        for (int i = 0; i < FrameCount; ++i) {
            for (int signal = 0; signal < 4; ++signal)
                samples += bigEndian(static_cast<std::uint64_t>(raw(signal, i)), 2);
        }
        const KiroString path =
            m_folder.write(QStringLiteral("eyes.kiro"), header.toBytes() + samples.substr(0, m_keptBytes));
        return loadEyeSignals(path, header, options, eyes, error);
    }

    /// Options that answer every question with `factor`.
    EyeLoadOptions answering(double factor)
    {
        EyeLoadOptions options;
        options.askFactor = [this, factor](const KiroSignal& signal) {
            asked.push_back(signal.fullName.bytes());
            return std::optional<double>(factor);
        };
        return options;
    }

    KiroHeader header;
    EyeSignals eyes;
    QString error;
    std::vector<std::string> asked;
    std::size_t m_keptBytes = std::string::npos;

private:
    TestFolder m_folder;
};

} // namespace

TEST(EyeSignalsTest, OneEyeIsFoundByEitherOfItsNames)
{
    EXPECT_EQ(found({"light", "eye position"}), (Indices{1, -1, -1, -1}));
    EXPECT_EQ(found({"eye movement - vertical", "eye movement - horizontal"}), (Indices{1, 0, -1, -1}));
}

TEST(EyeSignalsTest, TheFirstSignalOfANameIsTaken)
{
    EXPECT_EQ(found({"eye movement - horizontal", "eye position", "eye movement - vertical",
                     "eye movement - vertical"}),
              (Indices{0, 2, -1, -1}));
}

TEST(EyeSignalsTest, BothEyesAreLookedForIfThereIsNoSingleHorizontalOne)
{
    EXPECT_EQ(found({"left eye - vertical", "left eye - horizontal", "right eye - vertical",
                     "right eye - horizontal"}),
              (Indices{3, 2, 1, 0}));
    EXPECT_EQ(found({"eye movement - vertical", "right eye - horizontal"}), (Indices{1, -1, -1, -1}))
        << "the single vertical one is let go";
    EXPECT_EQ(found({"eye position", "left eye - horizontal", "left eye - vertical"}),
              (Indices{0, -1, -1, -1}));
}

TEST(EyeSignalsTest, NamesAreComparedWithCaseAndWithoutExtraWhiteSpace)
{
    EXPECT_EQ(found({"Eye Movement - Horizontal"}), (Indices{-1, -1, -1, -1}));
    EXPECT_EQ(found({"  eye \t position "}), (Indices{0, -1, -1, -1}));
    EXPECT_EQ(found({"eye position (tracker)"}), (Indices{-1, -1, -1, -1}));
}

TEST(EyeSignalsTest, AnOnlySignalNeedsNoName)
{
    const auto chosen = [](const std::vector<const char*>& names) {
        const std::optional<EyeSignals> eyes = chooseEyeSignals(headerWith(names));
        return eyes ? indices(*eyes) : Indices{};
    };
    EXPECT_EQ(chosen({"EOG"}), (Indices{0, -1, -1, -1}));
    EXPECT_EQ(chosen({"left eye - vertical"}), (Indices{0, -1, -1, -1}));
    EXPECT_EQ(chosen({"EOG", "EEG"}), Indices{});
    EXPECT_EQ(chosen({}), Indices{});
    EXPECT_EQ(chosen({"EEG", "eye position"}), (Indices{1, -1, -1, -1}));
}

TEST_F(EyeLoading, CalibratedSignalsComeWithTheRecordingsCalibration)
{
    for (int i = 0; i < 4; ++i)
        calibrate(i, 8.0, 4.0);
    EyeLoadOptions options = answering(1.0);
    options.frequency = 500.0;
    ASSERT_TRUE(load(options)) << error.toStdString();
    EXPECT_EQ(eyes.detectionType, 3);
    EXPECT_TRUE(asked.empty());
    for (int s = 0; s < 4; ++s) {
        const EyeSignal& eye = eyes.axes[static_cast<std::size_t>(s)];
        EXPECT_EQ(eye.factor, 8.0);
        EXPECT_EQ(eye.offset, 4.0);
        ASSERT_EQ(eye.position.size(), std::size_t(FrameCount));
        EXPECT_EQ(eye.position[7], (raw(s, 7) - 4.0) / 8.0);
        std::vector<double> velocity;
        ASSERT_TRUE(velocitySavitzkyGolay11(eye.position, velocity, true));
        for (std::size_t i = 0; i < velocity.size(); ++i)
            EXPECT_EQ(eye.velocity[i], velocity[i] * 500.0);
    }
}

TEST_F(EyeLoading, AFactorIsAskedForEachSignalThatIsNotCalibrated)
{
    calibrate(1, 2.0, 0.0);
    EyeLoadOptions options = answering(50.0);
    ASSERT_TRUE(load(options)) << error.toStdString();
    EXPECT_EQ(asked, (std::vector<std::string>{"a", "c", "d"}));
    const EyeSignal& eye = eyes[EyeAxis::LeftHorizontal];
    EXPECT_EQ(eye.factor, 50.0);
    EXPECT_EQ(eye.offset, 0.0);
    EXPECT_EQ(eye.position[9], raw(2, 9) / 50.0);
    std::vector<double> rawPosition;
    for (int i = 0; i < FrameCount; ++i)
        rawPosition.push_back(raw(2, i));
    std::vector<double> velocity;
    ASSERT_TRUE(velocitySavitzkyGolay11(rawPosition, velocity, true));
    EXPECT_EQ(eye.velocity[20], velocity[20] * 1000.0 / 50.0);
}

TEST_F(EyeLoading, WithoutAnAnswerNothingIsLoaded)
{
    EyeLoadOptions options;
    options.askFactor = [](const KiroSignal&) { return std::nullopt; };
    EXPECT_FALSE(load(options));
    EXPECT_EQ(error, QStringLiteral("Calibration factor not entered. Cannot proceed."));
    EXPECT_EQ(eyes.detectionType, 0);
    for (const EyeSignal& eye : eyes.axes)
        EXPECT_TRUE(eye.position.empty());
    EXPECT_EQ(indices(eyes), (Indices{0, 1, 2, 3})) << "the choice stays";
}

TEST_F(EyeLoading, AStoredCalibrationIsAppliedToRawSamples)
{
    for (int i = 0; i < 4; ++i)
        calibrate(i, 8.0, 4.0);
    for (EyeSignal& eye : eyes.axes) {
        eye.factor = 16.0;
        eye.offset = 1.0;
    }
    EyeLoadOptions options = answering(1.0);
    options.storedCalibration = true;
    options.velocities = false;
    ASSERT_TRUE(load(options)) << error.toStdString();
    EXPECT_TRUE(asked.empty());
    EXPECT_EQ(eyes[EyeAxis::RightVertical].position[5], (raw(1, 5) - 1.0) / 16.0);
    EXPECT_TRUE(eyes[EyeAxis::RightVertical].velocity.empty());
}

TEST_F(EyeLoading, TheDetectionTypeFollowsFromTheSignals)
{
    const EyeSignals all = eyes;
    eyes[EyeAxis::LeftVertical].signalIndex = -1;
    ASSERT_TRUE(load(answering(1.0)));
    EXPECT_EQ(eyes.detectionType, 2);
    EXPECT_TRUE(eyes[EyeAxis::LeftHorizontal].position.empty()) << "of the left eye both are needed";
    eyes[EyeAxis::RightVertical].signalIndex = -1;
    ASSERT_TRUE(load(answering(1.0)));
    EXPECT_EQ(eyes.detectionType, 1);
    eyes = all;
    eyes[EyeAxis::RightVertical].signalIndex = -1;
    ASSERT_TRUE(load(answering(1.0)));
    EXPECT_EQ(eyes.detectionType, 3);
}

TEST_F(EyeLoading, FailuresNameTheSignal)
{
    const auto failure = [this](EyeAxis axis) {
        eyes[axis].signalIndex = 99;
        EXPECT_FALSE(load(answering(1.0)));
        eyes[axis].signalIndex = static_cast<int>(axis);
        return error.toStdString();
    };
    EXPECT_EQ(failure(EyeAxis::RightHorizontal), "Error while loading horizontal eye position samples!");
    EXPECT_EQ(failure(EyeAxis::RightVertical), "Error while loading vertical eye position samples!");
    EXPECT_EQ(failure(EyeAxis::LeftHorizontal), "Error while loading horizontal left eye position samples!");
    EXPECT_EQ(failure(EyeAxis::LeftVertical), "Error while loading vertical left eye position samples!");
}

TEST_F(EyeLoading, ARecordingThatIsCutShortIsAFailure)
{
    m_keptBytes = 100;
    EXPECT_FALSE(load(answering(1.0)));
    EXPECT_EQ(error, QStringLiteral("Error while loading horizontal eye position samples!"));
}
