#include "saccadeedit.h"

#include "detectorsamples.h"
#include "eyesignals.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

namespace
{

using Outcome = SaccadeAddition::Outcome;
using testing::ElementsAre;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();

/// All fields in the order of the record.
std::vector<double> fieldsOf(const KiroSaccadeEye& eye)
{
    return {double(eye.start),    double(eye.end),         double(eye.duration), double(eye.fixation),
            double(eye.reserved), eye.amplitude,           eye.peakVelocity,     eye.meanVelocity,
            eye.peakAcceleration, eye.velocityPerDuration, eye.amplitudeHorz,    eye.startHorz,
            eye.endHorz,          eye.amplitudeVert,       eye.startVert,        eye.endVert};
}

std::vector<std::vector<double>> fieldsOf(const QList<KiroSaccade>& saccades)
{
    std::vector<std::vector<double>> rows;
    for (const KiroSaccade& saccade : saccades) {
        for (const auto& block : {saccade.main, saccade.left, saccade.right})
            rows.push_back(fieldsOf(block));
        rows.push_back({saccade.valid ? 1.0 : 0.0});
    }
    return rows;
}

std::vector<int> starts(const QList<KiroSaccade>& saccades)
{
    std::vector<int> result;
    for (const KiroSaccade& saccade : saccades)
        result.push_back(saccade.main.start);
    return result;
}

std::vector<int> fixations(const QList<KiroSaccade>& saccades,
                           KiroSaccadeEye KiroSaccade::*block = &KiroSaccade::main)
{
    std::vector<int> result;
    for (const KiroSaccade& saccade : saccades)
        result.push_back((saccade.*block).fixation);
    return result;
}

/// One that stands in the list already; its fixations show whether they were repaired.
KiroSaccade saccadeAt(int start, int end)
{
    KiroSaccade saccade = between(start, end);
    saccade.main.fixation = saccade.left.fixation = saccade.right.fixation = -7;
    return saccade;
}

/// With other ends in the left eye.
KiroSaccade saccadeAt(int start, int end, int leftStart, int leftEnd)
{
    KiroSaccade saccade = saccadeAt(start, end);
    saccade.right = saccade.main;
    saccade.left.start = leftStart;
    saccade.left.end = leftEnd;
    return saccade;
}

/// Thousand samples of all signals at 1000 Hz, flat, with room for the values of a test.
class SaccadeEditTest : public testing::Test
{
protected:
    SaccadeEditTest()
    {
        for (EyeSignal& signal : eyes.axes) {
            signal.position.assign(1000, 0.0);
            signal.velocity.assign(1000, 1.0);
        }
    }

    EyeSignal& rightHorz() { return eyes[EyeAxis::RightHorizontal]; }
    EyeSignal& rightVert() { return eyes[EyeAxis::RightVertical]; }
    EyeSignal& leftHorz() { return eyes[EyeAxis::LeftHorizontal]; }
    EyeSignal& leftVert() { return eyes[EyeAxis::LeftVertical]; }

    SaccadeAddition add(double t0, double t1)
    {
        return addSaccade(saccades, {eyes, type, frequency, minTime}, t0, t1);
    }
    /// Adds and expects success.
    KiroSaccade added(double t0, double t1)
    {
        const SaccadeAddition addition = add(t0, t1);
        EXPECT_EQ(addition.outcome, Outcome::Added);
        return saccades.value(addition.index);
    }
    void expectRefused(double t0, double t1, Outcome outcome)
    {
        const auto before = fieldsOf(saccades);
        const SaccadeAddition addition = add(t0, t1);
        EXPECT_EQ(addition.outcome, outcome) << t0 << " to " << t1;
        EXPECT_EQ(addition.index, -1);
        EXPECT_EQ(fieldsOf(saccades), before);
    }

    EyeSignals eyes;
    QList<KiroSaccade> saccades;
    int type = 1;
    double frequency = 1000.0;
    int minTime = 1;
};

} // namespace

TEST_F(SaccadeEditTest, OneSignalGivesTheMeasures)
{
    frequency = 500.0;
    rightHorz().position[10] = 2.0;
    rightHorz().position[20] = -0.5;
    rightHorz().velocity[13] = 40.0;
    rightVert().position[10] = 9.0; // not of this type
    const SaccadeAddition addition = add(0.020, 0.040);
    EXPECT_EQ(addition.outcome, Outcome::Added);
    EXPECT_EQ(addition.index, 0);
    ASSERT_EQ(saccades.size(), 1);
    EXPECT_TRUE(saccades[0].valid);
    // The amplitude is positive; 40 deg/s come 3 samples behind the start.
    EXPECT_THAT(fieldsOf(saccades[0].main), ElementsAre(10, 20, 11, 10, 0, 2.5, 40.0, 2.5 * 500 / 11,
                                                        40.0 * 500 / 3, 40.0 / 11, -2.5, 2.0, -0.5, 0, 0, 0));
    EXPECT_EQ(fieldsOf(saccades[0].left), fieldsOf(KiroSaccadeEye()));
    EXPECT_EQ(fieldsOf(saccades[0].right), fieldsOf(KiroSaccadeEye()));
}

TEST_F(SaccadeEditTest, TwoSignalsGiveTheEuclideanAmplitude)
{
    type = 2;
    rightHorz().position[20] = 3.0;
    rightVert().position[10] = 1.0;
    rightVert().position[20] = -3.0;
    const KiroSaccade saccade = added(0.010, 0.020);
    EXPECT_THAT(fieldsOf(saccade.main), ElementsAre(10, 20, 11, 10, 0, 5.0, 1.0, 5.0 * 1000 / 11, 0.0,
                                                    1.0 / 11, 3.0, 0.0, 3.0, -4.0, 1.0, -3.0));
    EXPECT_EQ(fieldsOf(saccade.right), fieldsOf(KiroSaccadeEye()));
}

TEST_F(SaccadeEditTest, BothEyesGiveAllBlocks)
{
    type = 3;
    saccades = {saccadeAt(2, 5, 3, 8)};
    rightHorz().position[20] = 3.0;
    rightVert().position[20] = 4.0;
    rightHorz().velocity[12] = 60.0;
    leftHorz().position[10] = -8.0;
    leftVert().position[20] = 6.0;
    leftHorz().velocity[15] = 50.0;
    const KiroSaccade saccade = added(0.010, 0.020);
    EXPECT_THAT(fieldsOf(saccade.main), ElementsAre(10, 20, 11, 5, 0, 5.0, 60.0, 5.0 * 1000 / 11, 30000.0,
                                                    60.0 / 11, 3.0, 0.0, 3.0, 4.0, 0.0, 4.0));
    EXPECT_EQ(fieldsOf(saccade.right), fieldsOf(saccade.main));
    EXPECT_THAT(fieldsOf(saccade.left), ElementsAre(10, 20, 11, 2, 0, 10.0, 50.0, 10.0 * 1000 / 11, 10000.0,
                                                    50.0 / 11, 8.0, -8.0, 0.0, 6.0, 0.0, 6.0));
}

TEST_F(SaccadeEditTest, FirstSaccadeHasItsStartAsFixationInAllBlocks)
{
    type = 3;
    const KiroSaccade saccade = added(0.010, 0.020);
    EXPECT_EQ(saccade.main.fixation, 10);
    EXPECT_EQ(saccade.left.fixation, 10);
    EXPECT_EQ(saccade.right.fixation, 10);
}

TEST_F(SaccadeEditTest, DragFromRightToLeftGivesTheSameSaccade)
{
    rightHorz().position[20] = 3.0;
    rightHorz().velocity[13] = 40.0;
    added(0.010, 0.020);
    const auto fromLeft = fieldsOf(saccades);
    saccades.clear();
    added(0.020, 0.010);
    EXPECT_EQ(fieldsOf(saccades), fromLeft);
}

TEST_F(SaccadeEditTest, DragOfFourMillisecondsIsRefusedWithTheLargerLimit)
{
    minTime = 1;
    EXPECT_EQ(add(0.010, 0.014).shortest, 5);
    expectRefused(0.010, 0.014, Outcome::TooShort);
    minTime = 20;
    EXPECT_EQ(add(0.010, 0.014).shortest, 20);
    expectRefused(0.010, 0.014, Outcome::TooShort);
    minTime = -3;
    EXPECT_EQ(add(0.010, 0.014).shortest, 5);
}

TEST_F(SaccadeEditTest, LimitIsTheDistanceOfTheEndsInMilliseconds)
{
    expectRefused(0.010, 0.0144, Outcome::TooShort);
    EXPECT_EQ(added(0.010, 0.015).main.duration, 6);
    minTime = 20;
    expectRefused(0.100, 0.119, Outcome::TooShort);
    EXPECT_EQ(added(0.100, 0.120).main.duration, 21);
    frequency = 250.0;
    expectRefused(0.800, 0.816, Outcome::TooShort);
    EXPECT_EQ(added(0.800, 0.820).main.duration, 6);
}

TEST_F(SaccadeEditTest, HalvesOfSamplesRoundUp)
{
    const KiroSaccade saccade = added(0.0625, 0.1875);
    EXPECT_EQ(saccade.main.start, 63);
    EXPECT_EQ(saccade.main.end, 188);
}

TEST_F(SaccadeEditTest, BeginningOnTheLastSampleOfThePreviousIsRefused)
{
    saccades = {saccadeAt(100, 120)};
    expectRefused(0.120, 0.150, Outcome::Overlaps);
    const KiroSaccade saccade = added(0.121, 0.150);
    EXPECT_EQ(saccade.main.fixation, 1);
    EXPECT_THAT(starts(saccades), ElementsAre(100, 121));
}

TEST_F(SaccadeEditTest, EndingOnTheFirstSampleOfTheNextIsRefused)
{
    saccades = {saccadeAt(100, 120)};
    expectRefused(0.080, 0.100, Outcome::Overlaps);
    added(0.080, 0.099);
    EXPECT_THAT(starts(saccades), ElementsAre(80, 100));
    EXPECT_THAT(fixations(saccades), ElementsAre(80, 1));
}

TEST_F(SaccadeEditTest, StretchWithinAroundOrFromTheStartOfAnotherIsRefused)
{
    saccades = {saccadeAt(100, 120), saccadeAt(200, 220)};
    expectRefused(0.105, 0.115, Outcome::Overlaps);
    expectRefused(0.090, 0.130, Outcome::Overlaps);
    expectRefused(0.200, 0.230, Outcome::Overlaps);
    expectRefused(0.090, 0.300, Outcome::Overlaps);
}

TEST_F(SaccadeEditTest, ShortnessIsSeenAheadOfOverlap)
{
    saccades = {saccadeAt(100, 120)};
    expectRefused(0.110, 0.114, Outcome::TooShort);
}

TEST_F(SaccadeEditTest, FirstOfEqualPeaksCounts)
{
    rightHorz().velocity[13] = 40.0;
    rightHorz().velocity[15] = 40.0;
    const KiroSaccade saccade = added(0.010, 0.020);
    EXPECT_EQ(saccade.main.peakVelocity, 40.0);
    EXPECT_EQ(saccade.main.peakAcceleration, 40.0 * 1000 / 3);
}

TEST_F(SaccadeEditTest, PeaksOutsideTheStretchDoNotCount)
{
    rightHorz().velocity[9] = 90.0;
    rightHorz().velocity[21] = 90.0;
    rightHorz().velocity[20] = 40.0;
    EXPECT_EQ(added(0.010, 0.020).main.peakVelocity, 40.0);
}

TEST_F(SaccadeEditTest, PeakAtTheStartHasNoAcceleration)
{
    rightHorz().velocity[10] = 40.0;
    const KiroSaccade saccade = added(0.010, 0.020);
    EXPECT_EQ(saccade.main.peakVelocity, 40.0);
    EXPECT_EQ(saccade.main.peakAcceleration, 0.0);
}

TEST_F(SaccadeEditTest, AdditionRepairsTheFixationOfTheNextOnly)
{
    saccades = {saccadeAt(10, 20), saccadeAt(100, 120), saccadeAt(200, 220)};
    EXPECT_EQ(add(0.050, 0.070).index, 1);
    EXPECT_THAT(starts(saccades), ElementsAre(10, 50, 100, 200));
    EXPECT_THAT(fixations(saccades), ElementsAre(-7, 30, 30, -7));
    EXPECT_THAT(fixations(saccades, &KiroSaccade::left), ElementsAre(-7, 0, -7, -7));
    EXPECT_THAT(fixations(saccades, &KiroSaccade::right), ElementsAre(-7, 0, -7, -7));
}

TEST_F(SaccadeEditTest, AdditionInBothEyesRepairsTheFixationsFromTheirOwnStarts)
{
    type = 3;
    saccades = {saccadeAt(100, 120, 105, 118)};
    saccades[0].right.start = 102;
    added(0.050, 0.070);
    EXPECT_THAT(fixations(saccades), ElementsAre(50, 30));
    EXPECT_THAT(fixations(saccades, &KiroSaccade::left), ElementsAre(50, 35));
    EXPECT_THAT(fixations(saccades, &KiroSaccade::right), ElementsAre(50, 32));
}

TEST_F(SaccadeEditTest, LastInTheListHasNoNextToRepair)
{
    saccades = {saccadeAt(10, 20)};
    EXPECT_EQ(add(0.050, 0.070).index, 1);
    EXPECT_THAT(fixations(saccades), ElementsAre(-7, 30));
}

TEST_F(SaccadeEditTest, DragBeyondTheEndsIsHeldWithinTheSamples)
{
    EXPECT_EQ(added(-3.0, 0.010).main.start, 0);
    const KiroSaccade last = added(0.900, 50.0);
    EXPECT_EQ(last.main.end, 999);
    EXPECT_EQ(last.main.duration, 100);
    saccades.clear();
    const KiroSaccade whole = added(-Infinity, Infinity);
    EXPECT_EQ(whole.main.start, 0);
    EXPECT_EQ(whole.main.end, 999);
}

TEST_F(SaccadeEditTest, WhatIsLeftOfADragBeyondTheEndsMustBeLongEnough)
{
    expectRefused(-1.0, 0.004, Outcome::TooShort);
    expectRefused(0.995, 9.0, Outcome::TooShort);
    expectRefused(2.0, 3.0, Outcome::TooShort);
    expectRefused(-3.0, -2.0, Outcome::TooShort);
    expectRefused(Infinity, Infinity, Outcome::TooShort);
    EXPECT_EQ(added(0.994, 9.0).main.start, 994);
}

TEST_F(SaccadeEditTest, ShortestSignalOfTheTypeHoldsTheEnd)
{
    rightVert().position.resize(500);
    EXPECT_EQ(added(0.100, 5.0).main.end, 999);
    saccades.clear();
    type = 2;
    EXPECT_EQ(added(0.100, 5.0).main.end, 499);
    saccades.clear();
    rightHorz().velocity.resize(400);
    EXPECT_EQ(added(0.100, 5.0).main.end, 399);
    saccades.clear();
    type = 3;
    leftVert().position.resize(300);
    EXPECT_EQ(added(0.100, 5.0).main.end, 299);
    saccades.clear();
    leftHorz().velocity.clear();
    expectRefused(0.100, 5.0, Outcome::TooShort);
}

TEST_F(SaccadeEditTest, NothingIsAddedWithoutSamples)
{
    eyes.clear();
    for (type = 0; type <= 4; ++type) {
        expectRefused(0.0, 1.0, Outcome::TooShort);
        expectRefused(-Infinity, Infinity, Outcome::TooShort);
    }
}

TEST_F(SaccadeEditTest, NothingIsAddedForNumbersThatAreNone)
{
    expectRefused(NotANumber, 0.5, Outcome::TooShort);
    expectRefused(0.1, NotANumber, Outcome::TooShort);
    for (const double noRate : {0.0, -0.0, -1000.0, NotANumber, Infinity, -Infinity}) {
        frequency = noRate;
        expectRefused(0.1, 0.5, Outcome::TooShort);
    }
    frequency = 1000.0;
    added(0.1, 0.5);
}

TEST_F(SaccadeEditTest, SamplesThatAreNoNumbersAreTaken)
{
    rightHorz().position[10] = NotANumber;
    rightHorz().velocity[12] = NotANumber;
    rightHorz().velocity[14] = 30.0;
    const KiroSaccade saccade = added(0.010, 0.020);
    EXPECT_TRUE(std::isnan(saccade.main.amplitude));
    EXPECT_TRUE(std::isnan(saccade.main.startHorz));
    EXPECT_EQ(saccade.main.endHorz, 0.0);
    EXPECT_EQ(saccade.main.peakVelocity, 30.0);
}

TEST_F(SaccadeEditTest, RemovedFirstLeavesTheNextItsStartPlusOne)
{
    saccades = {saccadeAt(10, 20), saccadeAt(50, 70), saccadeAt(100, 120)};
    EXPECT_EQ(removeSaccade(saccades, 0, type), 0);
    EXPECT_THAT(starts(saccades), ElementsAre(50, 100));
    EXPECT_THAT(fixations(saccades), ElementsAre(51, -7));
}

TEST_F(SaccadeEditTest, RemovedFromTheMiddleLeavesTheDistancePlusOne)
{
    saccades = {saccadeAt(10, 20), saccadeAt(50, 70), saccadeAt(100, 120)};
    EXPECT_EQ(removeSaccade(saccades, 1, type), 1);
    EXPECT_THAT(starts(saccades), ElementsAre(10, 100));
    EXPECT_THAT(fixations(saccades), ElementsAre(-7, 81));
    EXPECT_THAT(fixations(saccades, &KiroSaccade::left), ElementsAre(-7, -7));
    EXPECT_THAT(fixations(saccades, &KiroSaccade::right), ElementsAre(-7, -7));
}

TEST_F(SaccadeEditTest, RemovedLastMakesTheOneBeforeCurrent)
{
    saccades = {saccadeAt(10, 20), saccadeAt(50, 70)};
    EXPECT_EQ(removeSaccade(saccades, 1, type), 0);
    EXPECT_THAT(starts(saccades), ElementsAre(10));
    EXPECT_THAT(fixations(saccades), ElementsAre(-7));
}

TEST_F(SaccadeEditTest, RemovingTheOnlyOneLeavesAnEmptyList)
{
    saccades = {saccadeAt(10, 20)};
    EXPECT_EQ(removeSaccade(saccades, 0, type), -1);
    EXPECT_TRUE(saccades.isEmpty());
}

TEST_F(SaccadeEditTest, RemovalInBothEyesRepairsEachBlock)
{
    type = 3;
    saccades = {saccadeAt(10, 20, 12, 25), saccadeAt(50, 70, 51, 69), saccadeAt(100, 120, 103, 119)};
    QList<KiroSaccade> copy = saccades;
    removeSaccade(saccades, 1, type);
    EXPECT_THAT(fixations(saccades), ElementsAre(-7, 81));
    EXPECT_THAT(fixations(saccades, &KiroSaccade::right), ElementsAre(-7, 81));
    EXPECT_THAT(fixations(saccades, &KiroSaccade::left), ElementsAre(-7, 79));
    removeSaccade(copy, 0, type);
    EXPECT_THAT(fixations(copy), ElementsAre(51, -7));
    EXPECT_THAT(fixations(copy, &KiroSaccade::right), ElementsAre(51, -7));
    EXPECT_THAT(fixations(copy, &KiroSaccade::left), ElementsAre(52, -7));
}

TEST_F(SaccadeEditTest, RemovingOutsideTheListRemovesNothing)
{
    EXPECT_EQ(removeSaccade(saccades, 0, type), -1);
    saccades = {saccadeAt(10, 20), saccadeAt(50, 70)};
    const auto before = fieldsOf(saccades);
    EXPECT_EQ(removeSaccade(saccades, 2, type), 1);
    EXPECT_EQ(removeSaccade(saccades, -1, type), -1);
    EXPECT_EQ(removeSaccade(saccades, Most, type), 1);
    EXPECT_EQ(removeSaccade(saccades, Least, type), -1);
    EXPECT_EQ(fieldsOf(saccades), before);
}

TEST_F(SaccadeEditTest, SelectedAreRemovedFromTheLastToTheFirst)
{
    for (type = 1; type <= 3; type += 2) {
        saccades = {saccadeAt(10, 20, 11, 22), saccadeAt(50, 70, 51, 69), saccadeAt(100, 120, 103, 119),
                    saccadeAt(200, 220, 202, 223), saccadeAt(300, 320, 301, 325)};
        QList<KiroSaccade> oneByOne = saccades;
        for (const int index : {3, 2, 0})
            removeSaccade(oneByOne, index, type);
        removeSaccades(saccades, {2, 0, 3}, type, 0);
        EXPECT_THAT(starts(saccades), ElementsAre(50, 300));
        EXPECT_THAT(fixations(saccades), ElementsAre(51, 231));
        EXPECT_EQ(fieldsOf(saccades), fieldsOf(oneByOne));
    }
}

TEST_F(SaccadeEditTest, RemovingSelectedPassesOverRepeatedAndOutsideOnes)
{
    saccades = {saccadeAt(10, 20), saccadeAt(50, 70), saccadeAt(100, 120)};
    EXPECT_EQ(removeSaccades(saccades, {1, 7, 1, -1, Most, Least}, type, 0), 0);
    EXPECT_THAT(starts(saccades), ElementsAre(10, 100));
    EXPECT_EQ(removeSaccades(saccades, {}, type, 1), 1);
    EXPECT_THAT(starts(saccades), ElementsAre(10, 100));
}

TEST_F(SaccadeEditTest, CurrentSaccadeIsFollowedWhereSelectedAreRemoved)
{
    const QList<KiroSaccade> all = {saccadeAt(10, 20), saccadeAt(50, 70), saccadeAt(100, 120),
                                    saccadeAt(200, 220), saccadeAt(300, 320)};
    const auto currentAfter = [&](std::vector<int> indices, int current) {
        saccades = all;
        current = removeSaccades(saccades, std::move(indices), type, current);
        return current < 0 ? -1 : saccades[current].main.start;
    };
    EXPECT_EQ(currentAfter({0, 1, 4}, 3), 200);
    EXPECT_EQ(currentAfter({3, 4}, 2), 100);
    EXPECT_EQ(currentAfter({1, 2}, 2), 200); // the one behind takes its place
    EXPECT_EQ(currentAfter({2, 3}, 2), 300);
    EXPECT_EQ(currentAfter({3, 4}, 4), 100); // there is none behind
    EXPECT_EQ(currentAfter({0, 1, 2, 3, 4}, 2), -1);
}

TEST_F(SaccadeEditTest, EndsOfADamagedFileAreHeldWithinTheNumbers)
{
    type = 3;
    saccades = {saccadeAt(0, Least, 0, Least), saccadeAt(Most, Most, Most, Most)};
    added(0.1, 0.5);
    EXPECT_THAT(fixations(saccades), ElementsAre(-7, Most, Most - 500));
    EXPECT_THAT(fixations(saccades, &KiroSaccade::left), ElementsAre(-7, Most, Most - 500));
    removeSaccade(saccades, 1, type);
    EXPECT_THAT(fixations(saccades), ElementsAre(-7, Most));
    EXPECT_THAT(fixations(saccades, &KiroSaccade::left), ElementsAre(-7, Most));
    removeSaccade(saccades, 0, type);
    EXPECT_THAT(fixations(saccades), ElementsAre(Most));
}
