#include "kirosaccadedetector.h"

#include "../../reference/plaindetector.h"
#include "detectorsamples.h"
#include "saccadepairs.h"
#include "samplefilters.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

namespace
{

/// Any NaN is the same.
std::uint64_t bits(double value)
{
    if (std::isnan(value))
        return 0x7ff8000000000000U;
    std::uint64_t number = 0;
    std::memcpy(&number, &value, sizeof(number));
    return number;
}

/// All fields, doubles by their bits.
std::vector<std::uint64_t> fields(const KiroSaccadeEye& eye)
{
    std::vector<std::uint64_t> list;
    for (const std::int32_t value : {eye.start, eye.end, eye.duration, eye.fixation, eye.reserved})
        list.push_back(static_cast<std::uint64_t>(value));
    for (const double value :
         {eye.amplitude, eye.peakVelocity, eye.meanVelocity, eye.peakAcceleration, eye.velocityPerDuration,
          eye.amplitudeHorz, eye.startHorz, eye.endHorz, eye.amplitudeVert, eye.startVert, eye.endVert})
        list.push_back(bits(value));
    return list;
}

template <class Saccades>
std::vector<std::vector<std::uint64_t>> fields(const Saccades& saccades)
{
    std::vector<std::vector<std::uint64_t>> list;
    for (const KiroSaccade& saccade : saccades) {
        for (const KiroSaccadeEye* eye : {&saccade.main, &saccade.left, &saccade.right})
            list.push_back(fields(*eye));
        list.push_back({saccade.valid ? 1U : 0U});
    }
    return list;
}

std::vector<std::vector<std::uint64_t>> fields(const std::vector<KiroBlink>& blinks)
{
    std::vector<std::vector<std::uint64_t>> list;
    for (const KiroBlink& blink : blinks)
        list.push_back({static_cast<std::uint64_t>(blink.start), static_cast<std::uint64_t>(blink.end),
                        static_cast<std::uint64_t>(blink.duration),
                        static_cast<std::uint64_t>(blink.peaksDistance), bits(blink.amp1), bits(blink.amp2),
                        bits(blink.ampRelation)});
    return list;
}

std::vector<KiroSaccade> detectOne(const std::vector<double>& position,
                                   const SaccadeDetectionParams& params = saccadeParamsPerSample())
{
    return KiroSaccadeDetector().detectOneSignal(params, position);
}

/// With a second signal that rests.
std::vector<KiroSaccade> detectTwo(const std::vector<double>& position,
                                   const SaccadeDetectionParams& params = saccadeParamsPerSample())
{
    std::vector<KiroBlink> blinks;
    return KiroSaccadeDetector().detectMonocular(params, blinkParamsPerSample(), position,
                                                 flat(position.size()), blinks, false);
}

/// A rest of 200 samples, 10 degrees within 40 samples, and a rest of 360.
std::vector<double> rampOfTenDegrees()
{
    std::vector<double> position = flat(201);
    appendRamp(position, 10.0, 40);
    appendRest(position, 359);
    return position;
}

KiroBlink blinkBetween(int start, int end)
{
    KiroBlink blink;
    blink.start = start;
    blink.end = end;
    return blink;
}

template <class Number>
Number anyOf(std::mt19937& random, std::initializer_list<Number> values)
{
    return values.begin()[std::uniform_int_distribution<std::size_t>(0, values.size() - 1)(random)];
}

SaccadeDetectionParams randomParams(std::mt19937& random)
{
    SaccadeDetectionParams params;
    params.local = anyOf(random, {1, 2, 7, 7, 20});
    params.gap = anyOf(random, {-30, 0, 1, 10, 50, 200});
    params.minTime = anyOf(random, {0, 1, 10, 20});
    params.maxTime = anyOf(random, {0, 60, 300, 100000});
    params.initVel = anyOf(random, {-1.0, 0.0, 0.001, 0.035, 0.2, 5.0});
    params.minSpeed = anyOf(random, {0.0, 0.02, 0.1, 0.3});
    params.minSlope = anyOf(random, {-1.0, 0.0, 0.001, 0.015});
    params.minAmp = anyOf(random, {0.0, 0.0, 1.0, 5.0});
    params.maxAmp = anyOf(random, {0.0, 8.0, 500.0, 500.0});
    return params;
}

BlinkDetectionParams randomBlinkParams(std::mt19937& random)
{
    BlinkDetectionParams params;
    params.peakVel1 = anyOf(random, {-0.1, 0.0, 0.05, 0.2});
    params.peakVel2 = anyOf(random, {-0.1, 0.0, 0.05, 0.1, 3.0});
    params.minVel = anyOf(random, {-0.5, 0.0, 0.02, 0.1});
    params.maxPeaksDistance = anyOf(random, {-1, 10, 150, 400, 100000});
    params.minAmplitude = anyOf(random, {0.0, 5.0, 15.0});
    params.minAmplitudeRelation = anyOf(random, {0.0, 0.2, 0.6});
    params.maxAmplitudeRelation = anyOf(random, {1.4, 3.0, 1e9});
    params.minDuration = anyOf(random, {0, 20, 100});
    params.maxDuration = anyOf(random, {100, 500, 100000});
    return params;
}

constexpr int Rounds = 400;
constexpr int Most = std::numeric_limits<int>::max();
constexpr double Infinity = std::numeric_limits<double>::infinity();
const double Nothing = std::numeric_limits<double>::quiet_NaN();

/// Values that no converter gives, here and there.
void spoil(std::mt19937& random, std::vector<double>& position)
{
    if (position.empty())
        return;
    std::uniform_int_distribution<std::size_t> place(0, position.size() - 1);
    for (int i = 0; i < 3; ++i)
        position[place(random)] = anyOf(random, {Nothing, Infinity, -Infinity, -0.0, 1e-310, 1e200});
}

SaccadeDetectionParams oddParams(std::mt19937& random)
{
    SaccadeDetectionParams params = randomParams(random);
    params.maxTime = anyOf(random, {Most, Most, 100, -1});
    params.gap = anyOf(random, {Most, -Most, 0, 20});
    params.minSpeed = anyOf(random, {0.02, -1.0, -0.0, Nothing, -Infinity});
    params.initVel = anyOf(random, {0.0, -1.0, 0.03, Nothing, Infinity});
    params.minSlope = anyOf(random, {-Infinity, 0.0, 1e9, Nothing});
    params.maxAmp = anyOf(random, {500.0, Infinity, Nothing});
    return params;
}

std::size_t randomLength(std::mt19937& random)
{
    return std::uniform_int_distribution<std::size_t>(0, 2500)(random);
}

} // namespace

TEST(KiroSaccadeDetectorTest, ARampOfTenDegreesIsOneSaccade)
{
    const std::vector<double> position = rampOfTenDegrees();
    const auto found = detectOne(position);
    ASSERT_EQ(found.size(), 1U);
    const KiroSaccadeEye& eye = found[0].main;
    EXPECT_EQ(eye.start, 194);
    EXPECT_EQ(eye.end, 246);
    EXPECT_EQ(eye.duration, 53);
    EXPECT_EQ(eye.fixation, 194);
    EXPECT_EQ(eye.amplitude, 10.0);
    EXPECT_EQ(eye.velocityPerDuration, eye.peakVelocity / 53.0);
    EXPECT_EQ(eye.meanVelocity, 10.0 / 53.0);

    std::vector<double> speed11;
    std::vector<double> speed15;
    ASSERT_TRUE(velocitySavitzkyGolay11(position, speed11, true));
    ASSERT_TRUE(velocitySavitzkyGolay15(position, speed15, true));
    EXPECT_LT(speed11[194], 0.035);
    EXPECT_LT(speed11[246], 0.035);
    EXPECT_GE(speed15[193], 0.0);
    EXPECT_EQ(speed15[192], 0.0); // the smooth speed rises and falls within the saccade only
    EXPECT_EQ(speed15[248], 0.0);
}

TEST(KiroSaccadeDetectorTest, AReversalEndsTheSaccadeOfOneSignalOnly)
{
    std::vector<double> position = flat(200);
    appendRamp(position, 12.0, 40);
    appendRamp(position, -4.0, 20);
    appendRest(position, 300);
    const auto one = detectOne(position);
    ASSERT_EQ(one.size(), 1U);
    std::vector<double> velocity;
    ASSERT_TRUE(velocitySavitzkyGolay15(position, velocity, false));
    const auto end = static_cast<std::size_t>(one[0].main.end);
    EXPECT_GT(velocity[end], 0.0);
    EXPECT_LE(velocity[end + 1], 0.0);
    const auto two = detectTwo(position);
    ASSERT_EQ(two.size(), 1U);
    EXPECT_GE(two[0].main.end, 259) << "it runs on to the end of the movement back";
    EXPECT_EQ(two[0].main.amplitude, 8.0);
}

TEST(KiroSaccadeDetectorTest, ASaccadeWithinTheFirstGapStaysInTheTwoSignalFormOnly)
{
    std::vector<double> position = flat(40);
    appendRamp(position, 10.0, 40);
    appendRest(position, 300);
    appendRamp(position, -10.0, 40);
    appendRest(position, 100);
    const auto one = detectOne(position);
    ASSERT_EQ(one.size(), 1U);
    EXPECT_GT(one[0].main.start, 300);
    EXPECT_LT(one[0].main.fixation, one[0].main.start) << "it still counts from the one that was removed";
    EXPECT_EQ(detectTwo(position).size(), 2U);
}

TEST(KiroSaccadeDetectorTest, ShortSignalsGiveNothing)
{
    for (std::size_t count = 0; count <= 20; ++count) {
        std::vector<double> position;
        appendRamp(position, 30.0, count);
        EXPECT_TRUE(detectOne(position).empty()) << count;
        EXPECT_TRUE(detectTwo(position).empty()) << count;
        std::vector<KiroBlink> blinks = {blinkBetween(1, 2)};
        EXPECT_TRUE(KiroSaccadeDetector()
                        .detectBinocular(saccadeParamsPerSample(), blinkParamsPerSample(), position, position,
                                         position, position, blinks, true)
                        .empty())
            << count;
        EXPECT_TRUE(blinks.empty()) << count;
    }
}

TEST(KiroSaccadeDetectorTest, ShortSignalsGiveNothingWhateverTheParametersLetPass)
{
    SaccadeDetectionParams params;
    params.local = 1;
    params.maxTime = 100;
    params.maxAmp = 500.0;
    EXPECT_TRUE(detectOne(flat(10), params).empty());
    EXPECT_TRUE(detectTwo(flat(10), params).empty());
    EXPECT_FALSE(detectTwo(flat(11), params).empty());
}

TEST(KiroSaccadeDetectorTest, AGreatestAmplitudeOfZeroAcceptsNothing)
{
    SaccadeDetectionParams params = saccadeParamsPerSample();
    params.maxAmp = 0.0;
    EXPECT_TRUE(detectOne(rampOfTenDegrees(), params).empty());
    EXPECT_TRUE(detectTwo(rampOfTenDegrees(), params).empty());
}

TEST(KiroSaccadeDetectorTest, RightAndLeftPairFromAQuarterOfBothDurationsOn)
{
    // 40 and 80 samples: a quarter of the longer are 20.
    const std::vector<KiroSaccade> left = {between(100, 179)};
    const auto pairs = [&left](int start) { return pairEyes(left, {between(start, start + 39)}).size(); };
    EXPECT_EQ(pairs(160), 1U) << "20 samples";
    EXPECT_EQ(pairs(161), 0U) << "19 samples";
    EXPECT_EQ(pairs(80), 1U);
    EXPECT_EQ(pairs(79 + 2 - 1), 1U);
    EXPECT_EQ(pairs(79), 0U);
}

TEST(KiroSaccadeDetectorTest, APairHoldsBothEyesAndTheRightOneAsItsMain)
{
    std::vector<double> left = flat(200);
    appendRamp(left, 8.0, 40);
    appendRest(left, 300);
    const std::vector<double> right = rampOfTenDegrees();
    std::vector<KiroBlink> blinks;
    const auto found =
        KiroSaccadeDetector().detectBinocular(saccadeParamsPerSample(), blinkParamsPerSample(), left,
                                              flat(left.size()), right, flat(right.size()), blinks, false);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(fields(found[0].main), fields(found[0].right));
    EXPECT_EQ(found[0].right.amplitude, 10.0);
    EXPECT_EQ(found[0].left.amplitude, 8.0);
    EXPECT_EQ(found[0].left.fixation, found[0].left.start);
}

TEST(KiroSaccadeDetectorTest, ALeftSaccadeMayServeTwoRightOnes)
{
    const auto pairs =
        pairEyes({between(100, 199)}, {between(100, 149), between(160, 209), between(400, 440)});
    ASSERT_EQ(pairs.size(), 2U);
    EXPECT_EQ(pairs[0].left.start, 100);
    EXPECT_EQ(pairs[1].left.start, 100);
    EXPECT_EQ(pairs[1].right.start, 160);
}

TEST(KiroSaccadeDetectorTest, ABlinkThatOnlyTouchesASaccadeRemovesNothing)
{
    const auto kept = [](const KiroBlink& blink) {
        std::vector<KiroSaccade> saccades = {between(200, 240)};
        dropSaccadesTouchingBlinks(saccades, {blink});
        return saccades.size();
    };
    EXPECT_EQ(kept(blinkBetween(100, 200)), 1U) << "its end is the saccade's start";
    EXPECT_EQ(kept(blinkBetween(100, 201)), 0U);
    EXPECT_EQ(kept(blinkBetween(240, 300)), 1U) << "its start is the saccade's end";
    EXPECT_EQ(kept(blinkBetween(239, 300)), 0U);
}

TEST(KiroSaccadeDetectorTest, ABlinkRemovesAPairIfItTouchesEitherEye)
{
    const auto kept = [](int leftStart, int leftEnd, int rightStart, int rightEnd) {
        KiroSaccade pair;
        pair.left = between(leftStart, leftEnd).main;
        pair.right = pair.main = between(rightStart, rightEnd).main;
        std::vector<KiroSaccade> pairs = {pair};
        dropPairsTouchingBlinks(pairs, {blinkBetween(300, 400)});
        return pairs.size();
    };
    EXPECT_EQ(kept(200, 300, 205, 299), 1U) << "both end before it";
    EXPECT_EQ(kept(200, 301, 205, 299), 0U) << "the left eye's runs into it";
    EXPECT_EQ(kept(200, 299, 205, 301), 0U) << "the right eye's runs into it";
    EXPECT_EQ(kept(400, 450, 400, 440), 1U) << "both begin with its end";
    EXPECT_EQ(kept(399, 450, 400, 440), 0U);
    EXPECT_EQ(kept(400, 450, 399, 440), 0U);
}

TEST(KiroSaccadeDetectorTest, BlinksOfBothEyesAreThoseOfTheRightOne)
{
    std::vector<double> dip = flat(400);
    appendDip(dip, 30.0, 30.0);
    appendRest(dip, 400);
    const std::vector<double> rest = flat(dip.size());
    const auto count = [](const std::vector<double>& leftH, const std::vector<double>& leftV,
                          const std::vector<double>& rightH, const std::vector<double>& rightV,
                          bool horizontal) {
        std::vector<KiroBlink> blinks;
        KiroSaccadeDetector().detectBinocular(saccadeParamsPerSample(), blinkParamsPerSample(), leftH, leftV,
                                              rightH, rightV, blinks, horizontal);
        return blinks.size();
    };
    EXPECT_EQ(count(rest, rest, rest, dip, false), 1U);
    EXPECT_EQ(count(dip, dip, dip, rest, false), 0U);
    EXPECT_EQ(count(rest, rest, dip, rest, true), 1U);
    EXPECT_EQ(count(dip, dip, rest, dip, true), 0U);
}

TEST(KiroSaccadeDetectorTest, OnlyTheFirstBlinkBehindTheStartDecides)
{
    std::vector<KiroSaccade> saccades = {between(200, 240), between(500, 540)};
    // Out of order: the second blink would remove the first saccade.
    dropSaccadesTouchingBlinks(saccades, {blinkBetween(400, 450), blinkBetween(210, 230)});
    ASSERT_EQ(saccades.size(), 2U);
    EXPECT_EQ(saccades[0].main.fixation, 200);
    EXPECT_EQ(saccades[1].main.fixation, 260);
}

TEST(KiroSaccadeDetectorTest, ADipIsABlinkAndTheSameDipUpwardIsNot)
{
    std::vector<double> position = flat(400);
    appendDip(position, 30.0, 30.0);
    appendRest(position, 400);
    KiroSaccadeDetector detector;
    detector.blinkParams = blinkParamsPerSample();
    const auto blinks = detector.detectBlinks(position);
    ASSERT_EQ(blinks.size(), 1U);
    EXPECT_EQ(blinks[0].amp1, 30.0);
    EXPECT_EQ(blinks[0].duration, blinks[0].end - blinks[0].start + 1);
    for (double& sample : position)
        sample = -sample;
    EXPECT_TRUE(detector.detectBlinks(position).empty());
}

TEST(KiroSaccadeDetectorTest, PeaksMayBeAsFarApartAsTheGreatestDistance)
{
    KiroSaccadeDetector detector;
    detector.blinkParams = blinkParamsPerSample();
    const auto count = [&detector](std::size_t bottom) {
        std::vector<double> position = flat(400);
        appendDip(position, 30.0, 30.0, bottom);
        appendRest(position, 400);
        return detector.detectBlinks(position);
    };
    std::size_t bottom = 40;
    while (bottom < 200 && !count(bottom).empty() && count(bottom)[0].peaksDistance < 150)
        ++bottom;
    ASSERT_EQ(count(bottom).size(), 1U);
    EXPECT_EQ(count(bottom)[0].peaksDistance, 150);
    EXPECT_TRUE(count(bottom + 1).empty());
}

TEST(KiroSaccadeDetectorTest, ABlinkReturnsToAboutTheOldLevel)
{
    KiroSaccadeDetector detector;
    detector.blinkParams = blinkParamsPerSample();
    const auto count = [&detector](double rise) {
        std::vector<double> position = flat(400);
        appendDip(position, 30.0, rise);
        appendRest(position, 400);
        return detector.detectBlinks(position).size();
    };
    EXPECT_EQ(count(17.0), 0U) << "relation below 0.6";
    EXPECT_EQ(count(19.0), 1U);
    EXPECT_EQ(count(41.0), 1U);
    EXPECT_EQ(count(43.0), 0U) << "relation above 1.4";
}

TEST(KiroSaccadeDetectorTest, BehindAFigureOfAWrongDurationTheSearchGoesOnAtItsEnd)
{
    std::vector<double> position = flat(400);
    appendDip(position, 30.0, 30.0);
    appendRest(position, 400);
    KiroSaccadeDetector detector;
    detector.blinkParams = blinkParamsPerSample();
    detector.blinkParams.minVel = 5.0; // so that a figure is not widened
    detector.blinkParams.minDuration = 0;
    detector.blinkParams.minAmplitudeRelation = 0.0; // it ends where it begins to rise
    const auto whole = detector.detectBlinks(position);
    ASSERT_EQ(whole.size(), 1U);
    EXPECT_EQ(whole[0].duration, whole[0].peaksDistance);
    // From the sample after its start the figure would be one shorter, and fit.
    detector.blinkParams.maxDuration = whole[0].duration - 1;
    EXPECT_TRUE(detector.detectBlinks(position).empty());
}

TEST(KiroSaccadeDetectorTest, WithoutTheSecondVelocityTheRunOfTheFirstPeakIsSkipped)
{
    std::vector<double> position = flat(400);
    appendRamp(position, -30.0, 80);
    appendRest(position, 600);
    appendRamp(position, 30.0, 600); // slow
    appendRest(position, 400);
    const std::size_t second = position.size();
    appendDip(position, 30.0, 30.0);
    appendRest(position, 400);
    KiroSaccadeDetector detector;
    detector.blinkParams = blinkParamsPerSample();
    const auto blinks = detector.detectBlinks(position);
    ASSERT_EQ(blinks.size(), 1U);
    EXPECT_GT(blinks[0].start, static_cast<int>(second) - 10);
}

TEST(KiroSaccadeDetectorTest, AShortArrayHasNoBlinks)
{
    std::vector<double> position = {0.0};
    appendRamp(position, -30.0, 5);
    appendRamp(position, 30.0, 4);
    ASSERT_EQ(position.size(), 10U);
    KiroSaccadeDetector detector;
    detector.blinkParams = blinkParamsPerSample();
    EXPECT_TRUE(detector.detectBlinks(position).empty());
    EXPECT_TRUE(detector.detectBlinks({}).empty());
}

TEST(KiroSaccadeDetectorTest, OneSignalAgreesWithThePlainForm)
{
    std::mt19937 random(11);
    std::size_t found = 0;
    for (int round = 0; round < Rounds; ++round) {
        const SaccadeDetectionParams params = randomParams(random);
        const auto position = randomTrace(random, randomLength(random), round % 2 == 0);
        KiroSaccadeDetector detector;
        detector.keepRejected = round % 3 == 0;
        const auto saccades = detector.detectOneSignal(params, position);
        ASSERT_EQ(fields(saccades), fields(plain::detectOneSignal(params, position, detector.keepRejected)))
            << "round " << round;
        found += saccades.size();
    }
    EXPECT_GT(found, 1000U);
}

TEST(KiroSaccadeDetectorTest, MonocularAgreesWithThePlainForm)
{
    std::mt19937 random(12);
    std::size_t found = 0;
    for (int round = 0; round < Rounds; ++round) {
        const SaccadeDetectionParams params = randomParams(random);
        const BlinkDetectionParams blinkParams = randomBlinkParams(random);
        const std::size_t count = randomLength(random);
        const auto horizontal = randomTrace(random, count, round % 2 == 0);
        const auto vertical = randomTrace(random, count, round % 4 == 0);
        KiroSaccadeDetector detector;
        detector.keepRejected = round % 3 == 0;
        std::vector<KiroBlink> blinks;
        const auto saccades =
            detector.detectMonocular(params, blinkParams, horizontal, vertical, blinks, false);
        const auto plainBlinks = plain::detectBlinks(blinkParams, vertical);
        ASSERT_EQ(fields(blinks), fields(plainBlinks)) << "round " << round;
        ASSERT_EQ(fields(saccades), fields(plain::detectMonocular(params, horizontal, vertical, plainBlinks,
                                                                  detector.keepRejected)))
            << "round " << round;
        found += saccades.size();
    }
    EXPECT_GT(found, 1000U);
}

TEST(KiroSaccadeDetectorTest, BinocularAgreesWithThePlainForm)
{
    std::mt19937 random(13);
    std::size_t found = 0;
    for (int round = 0; round < Rounds / 3; ++round) {
        const SaccadeDetectionParams params = randomParams(random);
        const BlinkDetectionParams blinkParams = randomBlinkParams(random);
        const std::size_t count = randomLength(random);
        const auto rightH = randomTrace(random, count, false);
        const auto rightV = randomTrace(random, count, round % 2 == 0);
        std::vector<double> leftH(rightH.begin(), rightH.end()); // the same movements a little later
        std::vector<double> leftV(rightV.begin(), rightV.end());
        const std::size_t shift = std::min<std::size_t>(count, static_cast<std::size_t>(round % 30));
        leftH.insert(leftH.begin(), shift, 0.0);
        leftV.insert(leftV.begin(), shift, 0.0);
        leftH.resize(count);
        leftV.resize(count);
        KiroSaccadeDetector detector;
        detector.keepRejected = round % 3 == 0;
        std::vector<KiroBlink> blinks;
        const auto saccades =
            detector.detectBinocular(params, blinkParams, leftH, leftV, rightH, rightV, blinks, true);
        const auto plainBlinks = plain::detectBlinks(blinkParams, rightH);
        ASSERT_EQ(fields(blinks), fields(plainBlinks)) << "round " << round;
        ASSERT_EQ(fields(saccades), fields(plain::detectBinocular(params, leftH, leftV, rightH, rightV,
                                                                  plainBlinks, detector.keepRejected)))
            << "round " << round;
        found += saccades.size();
    }
    EXPECT_GT(found, 300U);
}

TEST(KiroSaccadeDetectorTest, OddParametersAndValuesAgreeWithThePlainFormToo)
{
    std::mt19937 random(16);
    std::size_t found = 0;
    for (int round = 0; round < Rounds; ++round) {
        const SaccadeDetectionParams params = oddParams(random);
        BlinkDetectionParams blinkParams = randomBlinkParams(random);
        blinkParams.maxPeaksDistance = blinkParams.maxDuration = Most;
        blinkParams.minVel = anyOf(random, {0.02, 0.0, -0.5, Nothing});
        const std::size_t count = randomLength(random) / 2;
        auto horizontal = randomTrace(random, count, round % 2 == 0);
        auto vertical = randomTrace(random, count, round % 4 == 0);
        if (round % 3 != 0) {
            spoil(random, horizontal);
            spoil(random, vertical);
        }
        KiroSaccadeDetector detector;
        detector.keepRejected = round % 5 == 0;
        ASSERT_EQ(fields(detector.detectOneSignal(params, horizontal)),
                  fields(plain::detectOneSignal(params, horizontal, detector.keepRejected)))
            << "round " << round;
        std::vector<KiroBlink> blinks;
        const auto saccades =
            detector.detectMonocular(params, blinkParams, horizontal, vertical, blinks, true);
        const auto plainBlinks = plain::detectBlinks(blinkParams, horizontal);
        ASSERT_EQ(fields(blinks), fields(plainBlinks)) << "round " << round;
        ASSERT_EQ(fields(saccades), fields(plain::detectMonocular(params, horizontal, vertical, plainBlinks,
                                                                  detector.keepRejected)))
            << "round " << round;
        found += saccades.size() + blinks.size();
    }
    EXPECT_GT(found, 500U);
}

TEST(KiroSaccadeDetectorTest, PairingAgreesWithThePlainFormForListsInAnyOrder)
{
    std::mt19937 random(14);
    std::uniform_int_distribution<int> start(0, 400);
    std::uniform_int_distribution<int> length(0, 60);
    const auto list = [&](bool ordered) {
        std::vector<KiroSaccade> saccades;
        for (int i = 0; i < 12; ++i) {
            const int first =
                ordered && i > 0 ? saccades.back().main.end + length(random) / 3 : start(random);
            saccades.push_back(between(first, first + length(random)));
        }
        return saccades;
    };
    for (int round = 0; round < 2000; ++round) {
        const auto left = list(round % 2 == 0);
        const auto right = list(round % 4 < 2);
        const plain::Saccades wanted =
            plain::pairEyes({left.begin(), left.end()}, {right.begin(), right.end()});
        ASSERT_EQ(fields(pairEyes(left, right)), fields(wanted)) << "round " << round;
    }
}

TEST(KiroSaccadeDetectorTest, WhateverTheParametersNothingOutsideTheArraysIsRead)
{
    constexpr int Least = std::numeric_limits<int>::min();
    std::mt19937 random(15);
    for (int round = 0; round < 2000; ++round) {
        const auto number = [&random] { return anyOf(random, {Least, -5, -1, 0, 1, 7, 200, Most}); };
        const auto real = [&random] {
            return anyOf(random, {-Infinity, -1.0, -0.0, 0.0, 0.02, 1e300, Infinity, Nothing});
        };
        SaccadeDetectionParams params{number(), number(), number(), number(), real(),
                                      real(),   real(),   real(),   real()};
        BlinkDetectionParams blinkParams{real(), real(), real(),   number(), real(),
                                         real(), real(), number(), number()};
        const std::size_t count = randomLength(random) / 10;
        auto horizontal = randomTrace(random, count, true);
        auto vertical = randomTrace(random, count, false);
        if (count > 30 && round % 2 == 0) {
            horizontal[count / 2] = Nothing;
            vertical[count / 3] = Infinity;
        }
        KiroSaccadeDetector detector;
        detector.keepRejected = round % 3 == 0;
        std::vector<KiroBlink> blinks;
        std::vector<KiroSaccade> found = detector.detectOneSignal(params, horizontal);
        for (const KiroSaccade& saccade :
             detector.detectMonocular(params, blinkParams, horizontal, vertical, blinks, round % 5 == 0))
            found.push_back(saccade);
        for (const KiroSaccade& saccade : found) {
            ASSERT_GE(saccade.main.start, 0);
            ASSERT_LE(saccade.main.start, saccade.main.end);
            ASSERT_LT(saccade.main.end, static_cast<int>(count));
        }
        for (const KiroBlink& blink : blinks) {
            ASSERT_GE(blink.start, 0);
            ASSERT_LE(blink.start, blink.end);
            ASSERT_LT(blink.end, static_cast<int>(count));
        }
    }
}

TEST(KiroSaccadeDetectorTest, OfArraysWithDifferentLengthsTheShortestCounts)
{
    const std::vector<double> whole = rampOfTenDegrees();
    const std::vector<double> half(whole.begin(), whole.begin() + 300);
    std::vector<KiroBlink> blinks;
    KiroSaccadeDetector detector;
    const auto mixed = detector.detectMonocular(saccadeParamsPerSample(), blinkParamsPerSample(), whole,
                                                flat(300), blinks, false);
    EXPECT_EQ(fields(mixed), fields(detectTwo(half)));
    EXPECT_TRUE(detector
                    .detectBinocular(saccadeParamsPerSample(), blinkParamsPerSample(), whole, flat(300),
                                     whole, {}, blinks, false)
                    .empty());
}
