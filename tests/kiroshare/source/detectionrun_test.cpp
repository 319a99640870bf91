#include "detectionrun.h"

#include "detectorsamples.h"
#include "eyesignals.h"
#include "kiroheader.h"
#include "kirosaccadedetector.h"
#include "kirosaccheader.h"
#include "recordingbuilder.h"

#include <gtest/gtest.h>

namespace
{

constexpr double Frequency = 500.0;

/// A jump and a dip, seen by both eyes.
EyeSignals movements()
{
    std::vector<double> horizontal = flat(300);
    appendRamp(horizontal, 10.0, 40);
    appendRest(horizontal, 900);
    std::vector<double> vertical = flat(800);
    appendDip(vertical, 30.0, 30.0);
    appendRest(vertical, 240);
    EyeSignals eyes;
    eyes.detectionType = 3;
    for (const EyeAxis axis : EyeAxes) {
        eyes[axis].signalIndex = 10 + static_cast<int>(axis);
        eyes[axis].factor = 2.0 + static_cast<int>(axis);
        eyes[axis].offset = 100.0 + static_cast<int>(axis);
    }
    eyes[EyeAxis::RightHorizontal].position = eyes[EyeAxis::LeftHorizontal].position = horizontal;
    eyes[EyeAxis::RightVertical].position = eyes[EyeAxis::LeftVertical].position = vertical;
    return eyes;
}

DetectionSettings settings()
{
    DetectionSettings made;
    made.saccades.initVel = 17.0;
    made.saccades.minSpeed = 50.0;
    made.saccades.minSlope = 400.0;
    made.blinks.peakVel1 = 100.0;
    made.blinks.peakVel2 = 50.0;
    made.blinks.minVel = 10.0;
    return made;
}

KiroHeader recording()
{
    KiroHeader header;
    header.setSignalCount(14);
    for (int i = 0; i < 14; ++i) {
        KiroSignal signal = makeSignal("s", KiroValue::SignedInt, 2, 4, 500);
        signal.ratePeriod = 999;
        header.setSignal(i, signal);
    }
    header.setFrameCount(1001);
    return header;
}

} // namespace

TEST(DetectionRunTest, VelocitiesAreDividedByTheFrequencyAndMultipliedAgain)
{
    SaccadeDetectionParams params = settings().saccades;
    params.initVel = 17.0 / Frequency;
    params.minSpeed = 50.0 / Frequency;
    params.minSlope = 400.0 / (Frequency * Frequency);
    const EyeSignals eyes = movements();
    const auto perSample =
        KiroSaccadeDetector().detectOneSignal(params, eyes[EyeAxis::RightHorizontal].position);
    const DetectedMovements found = runDetection(1, Frequency, settings(), eyes);
    ASSERT_EQ(found.saccades.size(), 1U);
    ASSERT_EQ(perSample.size(), 1U);
    const KiroSaccadeEye& raw = perSample[0].main;
    const KiroSaccadeEye& scaled = found.saccades[0].main;
    EXPECT_EQ(scaled.start, raw.start);
    EXPECT_EQ(scaled.peakVelocity, raw.peakVelocity * Frequency);
    EXPECT_EQ(scaled.meanVelocity, raw.meanVelocity * Frequency);
    EXPECT_EQ(scaled.peakAcceleration, raw.peakAcceleration * (Frequency * Frequency));
    EXPECT_EQ(scaled.velocityPerDuration, raw.velocityPerDuration);
    EXPECT_EQ(scaled.amplitude, raw.amplitude);
    EXPECT_TRUE(found.blinks.empty());
}

TEST(DetectionRunTest, BothEyesAreScaledAlike)
{
    const DetectedMovements found = runDetection(3, Frequency, settings(), movements());
    ASSERT_EQ(found.saccades.size(), 1U);
    const KiroSaccade& saccade = found.saccades[0];
    EXPECT_EQ(saccade.left.peakVelocity, saccade.main.peakVelocity);
    EXPECT_EQ(saccade.right.peakVelocity, saccade.main.peakVelocity);
    EXPECT_EQ(saccade.left.peakAcceleration, saccade.main.peakAcceleration);
    EXPECT_GT(saccade.main.peakVelocity, 50.0);
}

TEST(DetectionRunTest, BlinksComeFromTheSignalThatTheSettingsSay)
{
    DetectionSettings made = settings();
    EXPECT_EQ(runDetection(2, Frequency, made, movements()).blinks.size(), 1U);
    EXPECT_EQ(runDetection(3, Frequency, made, movements()).blinks.size(), 1U);
    made.blinksHorizontal = true;
    EXPECT_TRUE(runDetection(2, Frequency, made, movements()).blinks.empty());
    EXPECT_TRUE(runDetection(3, Frequency, made, movements()).blinks.empty());
}

TEST(DetectionRunTest, AnUnknownTypeFindsNothing)
{
    EXPECT_TRUE(runDetection(0, Frequency, settings(), movements()).saccades.empty());
    EXPECT_TRUE(runDetection(4, Frequency, settings(), movements()).saccades.empty());
}

TEST(DetectionRunTest, AGreatestAmplitudeOfZeroAsAProfileLeavesItFindsNothing)
{
    DetectionSettings made = settings();
    made.saccades.maxAmp = 0.0;
    EXPECT_TRUE(runDetection(1, Frequency, made, movements()).saccades.empty());
}

TEST(DetectionRunTest, ADetectionIsDescribedWithTheSignalsThatItsTypeUses)
{
    KiroSaccHeader header;
    header.comment = KiroString("old");
    EyeSignals eyes = movements();
    const DetectedMovements found = runDetection(3, Frequency, settings(), eyes);
    describeDetection(header, found, settings(), eyes, recording(), KiroString("/data/r.kiro"));
    EXPECT_EQ(header.saccades.size(), found.saccades.size());
    EXPECT_EQ(header.blinks.size(), 1U);
    EXPECT_EQ(header.dataFile.bytes(), "/data/r.kiro");
    EXPECT_TRUE(header.relativeDataFile.isEmpty());
    EXPECT_TRUE(header.comment.isEmpty());
    EXPECT_EQ(header.detectionType, 3);
    EXPECT_EQ(header.params.minSpeed, 50.0);
    EXPECT_EQ(header.ratePeriod, 999U);
    EXPECT_EQ(header.samplesPerPeriod, 500U);
    EXPECT_EQ(header.durationMs, 7999U) << "4004 samples of 1.998 ms are 7999.992 ms";
    for (const EyeAxis axis : EyeAxes) {
        const KiroSaccSignal& signal = header.signal(saccadeFileRole(axis));
        EXPECT_EQ(signal.signalIndex, 10 + static_cast<int>(axis));
        EXPECT_EQ(signal.factor, 2.0 + static_cast<int>(axis));
        EXPECT_EQ(signal.offset, 100.0 + static_cast<int>(axis));
    }
    eyes.detectionType = 2;
    describeDetection(header, found, settings(), eyes, recording(), KiroString("/data/r.kiro"));
    EXPECT_EQ(header.rightVertical.signalIndex, 11);
    EXPECT_EQ(header.leftHorizontal.signalIndex, -1);
    eyes.detectionType = 1;
    describeDetection(header, found, settings(), eyes, recording(), KiroString("/data/r.kiro"));
    EXPECT_EQ(header.rightHorizontal.signalIndex, 10);
    EXPECT_EQ(header.rightVertical.signalIndex, -1);
}
