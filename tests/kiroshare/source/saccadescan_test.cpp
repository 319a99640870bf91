#include "saccadescan.h"

#include "detectorsamples.h"
#include "eyetrace.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>

namespace
{

/// A trace whose derivatives are written by hand; all flat and slow to begin with.
struct HandMadeTrace
{
    explicit HandMadeTrace(std::size_t count)
        : position(count, 0.0)
        , speeds(count, 0.0)
        , velocities(count, 1.0)
        , accelerations(count, 1.0)
    {
    }
    std::size_t count() const { return position.size(); }
    void setLeastSpeed(double) {}
    bool mayReach(std::size_t) const { return true; }
    double speed11(std::size_t i) const { return speeds.at(i); }
    bool isForward(std::size_t i) const { return velocities.at(i) > 0.0; }
    double speed15(std::size_t i) const { return std::abs(velocities.at(i)); }
    double speedChange(std::size_t i) const { return accelerations.at(i); }
    static double accelerationOf(double largestChange) { return largestChange; }
    void measureAmplitude(std::size_t first, std::size_t last, KiroSaccadeEye& eye) const
    {
        eye.amplitude = position.at(last) - position.at(first);
    }

    std::vector<double> position;
    std::vector<double> speeds;
    std::vector<double> velocities;
    std::vector<double> accelerations;
};

std::vector<KiroSaccade> scan(HandMadeTrace& trace, const SaccadeDetectionParams& params, bool keepRejected)
{
    return SaccadeScan<HandMadeTrace>(trace, params).run(keepRejected);
}

SaccadeDetectionParams lenient()
{
    SaccadeDetectionParams params;
    params.local = 3;
    params.minTime = 1;
    params.maxTime = 1000;
    params.minSpeed = 5.0;
    params.maxAmp = 1000.0;
    return params;
}

std::vector<int> peaksOf(HandMadeTrace& trace, const SaccadeDetectionParams params)
{
    std::vector<int> peaks;
    for (const KiroSaccade& saccade : scan(trace, params, true))
        peaks.push_back(saccade.main.start);
    return peaks;
}

std::vector<int> starts(const std::vector<KiroSaccade>& saccades)
{
    std::vector<int> list;
    for (const KiroSaccade& saccade : saccades)
        list.push_back(saccade.main.start);
    return list;
}

std::vector<int> fixations(const std::vector<KiroSaccade>& saccades)
{
    std::vector<int> list;
    for (const KiroSaccade& saccade : saccades)
        list.push_back(saccade.main.fixation);
    return list;
}

std::vector<int> mergedStarts(std::vector<KiroSaccade> saccades, bool limitIsTooSoon, int gap)
{
    mergeCloseSaccades(saccades, limitIsTooSoon, gap);
    return starts(saccades);
}

} // namespace

TEST(SaccadeScanTest, TheLastSampleOfAFlatTopIsThePeak)
{
    HandMadeTrace made(40);
    for (const std::size_t i : {18U, 19U, 20U})
        made.speeds[i] = 9.0;
    // Every sample stops both searches, so that the candidate is the peak alone.
    made.velocities.assign(40, 0.5);
    SaccadeDetectionParams params = lenient();
    params.initVel = 100.0;
    EXPECT_EQ(peaksOf(made, params), std::vector<int>{20});
}

TEST(SaccadeScanTest, ThePeakWindowIsOneSampleShorterBehindThePeak)
{
    SaccadeDetectionParams params = lenient(); // half width 3
    params.initVel = 100.0;
    HandMadeTrace before(40);
    before.velocities.assign(40, 0.5);
    before.speeds[20] = 9.0;
    before.speeds[17] = 10.0; // three before hides sample 20; sample 17 is a peak of its own
    EXPECT_EQ(peaksOf(before, params), std::vector<int>{17});
    HandMadeTrace behind(40);
    behind.velocities.assign(40, 0.5);
    behind.speeds[20] = 9.0;
    behind.speeds[23] = 10.0; // three behind hides nothing
    EXPECT_EQ(peaksOf(behind, params), (std::vector<int>{20, 23}));
}

TEST(SaccadeScanTest, ACandidateWhoseOffsetIsThePeakIsRefused)
{
    HandMadeTrace made(40);
    made.speeds[20] = 9.0;
    for (std::size_t i = 21; i < 40; ++i)
        made.velocities[i] = -1.0;
    EXPECT_TRUE(scan(made, lenient(), false).empty());
    const auto kept = scan(made, lenient(), true);
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(kept[0].main.end, 20);
    EXPECT_FALSE(kept[0].valid);
    made.velocities[21] = 1.0;
    const auto accepted = scan(made, lenient(), false);
    ASSERT_EQ(accepted.size(), 1U);
    EXPECT_EQ(accepted[0].main.end, 21);
}

TEST(SaccadeScanTest, WithoutAStopASaccadeRunsFromTheFirstToTheLastSample)
{
    HandMadeTrace made(40);
    made.speeds[20] = 9.0;
    const auto found = scan(made, lenient(), false);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].main.start, 0);
    EXPECT_EQ(found[0].main.end, 39);
    EXPECT_EQ(found[0].main.duration, 40);
}

TEST(SaccadeScanTest, AZeroVelocityCountsAsNegative)
{
    HandMadeTrace made(40);
    made.speeds[20] = 9.0;
    made.velocities.assign(40, -1.0);
    made.velocities[10] = 0.0;
    made.velocities[30] = 1e-300;
    const auto found = scan(made, lenient(), false);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].main.start, 0);
    EXPECT_EQ(found[0].main.end, 29);
}

TEST(SaccadeScanTest, WithALeastSpeedOfZeroTheOtherTestsStillApply)
{
    HandMadeTrace made(40);
    for (std::size_t i = 0; i < 40; ++i)
        made.speeds[i] = std::abs(double(i) - 20.0) / -100.0 + 1.0;
    SaccadeDetectionParams params = lenient();
    params.minSpeed = 0.0;
    EXPECT_EQ(scan(made, params, false).size(), 1U);
    params.minSlope = 2.0;
    EXPECT_TRUE(scan(made, params, false).empty());
    made.speeds.assign(40, 0.0); // every sample ties with a later one
    params.minSlope = 0.0;
    EXPECT_TRUE(scan(made, params, false).empty());
}

TEST(SaccadeScanTest, EveryLimitIncludesItsValue)
{
    HandMadeTrace made(40);
    made.speeds[20] = 9.0;
    made.position.back() = -12.5;
    made.accelerations[25] = 4.0;
    const auto count = [&made](void (*change)(SaccadeDetectionParams&)) {
        SaccadeDetectionParams params = lenient();
        params.minAmp = params.maxAmp = 12.5;
        params.minSlope = 4.0;
        params.minTime = params.maxTime = 40;
        params.minSpeed = 9.0;
        change(params);
        return scan(made, params, false).size();
    };
    EXPECT_EQ(count([](SaccadeDetectionParams&) {}), 1U);
    EXPECT_EQ(count([](SaccadeDetectionParams& p) { p.minAmp = 12.500001; }), 0U);
    EXPECT_EQ(count([](SaccadeDetectionParams& p) { p.maxAmp = 12.499999; }), 0U);
    EXPECT_EQ(count([](SaccadeDetectionParams& p) { p.minSlope = 4.000001; }), 0U);
    EXPECT_EQ(count([](SaccadeDetectionParams& p) { p.minTime = 41; }), 0U);
    EXPECT_EQ(count([](SaccadeDetectionParams& p) { p.maxTime = 39; }), 0U);
    EXPECT_EQ(count([](SaccadeDetectionParams& p) { p.minSpeed = 9.000001; }), 0U);
}

TEST(SaccadeScanTest, AnAccelerationMayBeNegative)
{
    HandMadeTrace made(40);
    made.speeds[20] = 9.0;
    made.accelerations.assign(40, -7.0);
    made.accelerations[22] = -2.0;
    SaccadeDetectionParams params = lenient();
    params.minSlope = -10.0;
    const auto found = scan(made, params, false);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].main.peakAcceleration, -2.0);
}

TEST(SaccadeScanTest, OfTwoSaccadesExactlyTheGapApartOneSignalLosesTheSecond)
{
    const std::vector<KiroSaccade> saccades = {between(60, 100), between(150, 180)};
    EXPECT_EQ(mergedStarts(saccades, OneSignalTrace::LimitIsTooSoon, 50), std::vector<int>{60});
    EXPECT_EQ(mergedStarts(saccades, TwoSignalTrace::LimitIsTooSoon, 50), (std::vector<int>{60, 150}));
    EXPECT_EQ(mergedStarts(saccades, OneSignalTrace::LimitIsTooSoon, 49), (std::vector<int>{60, 150}));
    EXPECT_EQ(mergedStarts(saccades, TwoSignalTrace::LimitIsTooSoon, 51), std::vector<int>{60});
}

TEST(SaccadeScanTest, MergingComparesWithTheSaccadeThatStays)
{
    const std::vector<KiroSaccade> saccades = {between(10, 20), between(40, 50), between(70, 80),
                                               between(300, 310)};
    EXPECT_EQ(mergedStarts(saccades, TwoSignalTrace::LimitIsTooSoon, 30), (std::vector<int>{10, 70, 300}));
    EXPECT_EQ(mergedStarts({}, OneSignalTrace::LimitIsTooSoon, 30), std::vector<int>{});
}

TEST(SaccadeScanTest, RejectedCandidatesAreNeitherMergedNorEndAFixation)
{
    std::vector<KiroSaccade> saccades = {between(10, 20), between(22, 30), between(60, 70)};
    saccades[1].valid = false;
    EXPECT_EQ(mergedStarts(saccades, OneSignalTrace::LimitIsTooSoon, 5), (std::vector<int>{10, 22, 60}));
    setFixations(saccades);
    EXPECT_EQ(fixations(saccades), (std::vector<int>{10, 2, 40}));
}

TEST(SaccadeScanTest, AGapNearTheLimitOfIntegersDoesNotWrap)
{
    const std::vector<KiroSaccade> saccades = {between(60, 100), between(150, 180)};
    constexpr int Most = 2147483647;
    EXPECT_EQ(mergedStarts(saccades, OneSignalTrace::LimitIsTooSoon, Most), std::vector<int>{60});
    EXPECT_EQ(mergedStarts(saccades, TwoSignalTrace::LimitIsTooSoon, -Most - 1), (std::vector<int>{60, 150}));
}

TEST(SaccadeScanTest, AFixationIsNeverNegative)
{
    std::vector<KiroSaccade> saccades = {between(0, 100), between(90, 180), between(181, 190)};
    setFixations(saccades);
    EXPECT_EQ(fixations(saccades), (std::vector<int>{0, 0, 1}));
}
