#include "samplefilters.h"

#include "reference/plainfilters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <limits>
#include <random>
#include <string>

namespace
{

using Samples = std::vector<double>;
using Filter = std::function<bool(const Samples& input, Samples& output)>;

constexpr double Infinity = std::numeric_limits<double>::infinity();
const double Nan = std::nan("");
constexpr std::int32_t LongestWindow = std::numeric_limits<std::int32_t>::max();

const Samples Untouched = {4711.0, -1.0};

/// What `filter` makes of `input`; the output of a refusal is what it was before.
Samples outputOf(const Filter& filter, const Samples& input)
{
    Samples output = Untouched;
    const bool ok = filter(input, output);
    EXPECT_EQ(output.size(), ok ? input.size() : Untouched.size());
    return output;
}

Filter smoothing()
{
    return smoothSavitzkyGolay11;
}

template <class Routine>
Filter velocity(Routine routine, bool absolute)
{
    return [=](const Samples& input, Samples& output) { return routine(input, output, absolute); };
}

template <class Routine>
Filter windowed(Routine routine, std::int32_t w)
{
    return [=](const Samples& input, Samples& output) { return routine(input, output, w); };
}

Samples ramp(std::size_t count, double slope)
{
    Samples samples(count);
    for (std::size_t i = 0; i < count; ++i)
        samples[i] = slope * static_cast<double>(i);
    return samples;
}

// Kinds of input; each is the same for the same count.

Samples randomWalk(std::size_t count)
{
    std::mt19937 generator(11);
    std::normal_distribution<double> step;
    Samples samples(count);
    double position = 0.0;
    for (double& sample : samples)
        sample = position += step(generator);
    return samples;
}

/// Draws each sample from `values`.
Samples drawn(std::size_t count, const Samples& values)
{
    std::mt19937 generator(5);
    std::uniform_int_distribution<std::size_t> which(0, values.size() - 1);
    Samples samples(count);
    for (double& sample : samples)
        sample = values[which(generator)];
    return samples;
}

Samples squareWave(std::size_t count)
{
    Samples samples(count);
    for (std::size_t i = 0; i < count; ++i)
        samples[i] = i / 37 % 2 == 0 ? -1.0 : 1.0;
    return samples;
}

Samples sawtooth(std::size_t count)
{
    Samples samples(count);
    for (std::size_t i = 0; i < count; ++i)
        samples[i] = static_cast<double>(i * 7919 % 1009);
    return samples;
}

struct Kind
{
    const char* name;
    Samples (*make)(std::size_t count);
};

const Kind Kinds[] = {
    {"random walk", randomWalk},
    {"ties",
     [](std::size_t count) {
         return drawn(count, {-1, 0, 1, 2});
     }},
    {"constant", [](std::size_t count) { return Samples(count, 0.1); }},
    {"rising", [](std::size_t count) { return ramp(count, 0.1); }},
    {"falling", [](std::size_t count) { return ramp(count, -0.1); }},
    {"square wave", squareWave},
    {"sawtooth", sawtooth},
    {"signed zeros",
     [](std::size_t count) {
         return drawn(count, {-0.0, 0.0});
     }},
    {"signed zeros among others",
     [](std::size_t count) {
         return drawn(count, {-0.0, 0.0, 1, -1});
     }},
    {"infinities",
     [](std::size_t count) {
         return drawn(count, {-Infinity, Infinity, 0.5, -0.0, 0.0});
     }},
    {"tiny and huge",
     [](std::size_t count) {
         return drawn(count, {5e-324, -5e-324, 1e308, -1e308, 0});
     }},
};

std::uint64_t bitsOf(double value)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof(bits));
    return bits;
}

/// Equal to the last bit; a NaN is only equal to one of the same sign and payload.
testing::AssertionResult sameBits(const Samples& found, const Samples& wanted)
{
    if (found.size() != wanted.size())
        return testing::AssertionFailure() << found.size() << " samples, not " << wanted.size();
    for (std::size_t i = 0; i < found.size(); ++i) {
        if (bitsOf(found[i]) != bitsOf(wanted[i]))
            return testing::AssertionFailure() << "[" << i << "] is " << found[i] << ", not " << wanted[i];
    }
    return testing::AssertionSuccess();
}

void expectSameBits(const Filter& shipped, const Filter& plain, const Samples& input,
                    const std::string& which)
{
    EXPECT_TRUE(sameBits(outputOf(shipped, input), outputOf(plain, input)))
        << which << ", " << input.size() << " samples";
}

/// Compares on each kind of input with 0 to 60 samples and with some longer ones.
void expectSameBitsOnAllKinds(const Filter& shipped, const Filter& plain)
{
    for (const Kind& kind : Kinds) {
        for (std::size_t count = 0; count <= 60; ++count)
            expectSameBits(shipped, plain, kind.make(count), kind.name);
        for (const std::size_t count : {255U, 256U, 257U, 600U})
            expectSameBits(shipped, plain, kind.make(count), kind.name);
    }
}

} // namespace

TEST(SavitzkyGolay, OutputIsSizedOnlyWhereInputIsLongEnough)
{
    for (std::size_t count = 0; count <= 30; ++count) {
        Samples output = Untouched;
        EXPECT_EQ(smoothSavitzkyGolay11(Samples(count), output), count >= 11) << count;
        EXPECT_EQ(output.size(), count >= 11 ? count : Untouched.size());
        output = Untouched;
        EXPECT_EQ(velocitySavitzkyGolay11(Samples(count), output, false), count >= 11) << count;
        EXPECT_EQ(output.size(), count >= 11 ? count : Untouched.size());
        output = Untouched;
        EXPECT_EQ(velocitySavitzkyGolay15(Samples(count), output, false), count >= 21) << count;
        EXPECT_EQ(output.size(), count >= 21 ? count : Untouched.size());
    }
}

TEST(SavitzkyGolay, RefusalLeavesTheOutputUntouched)
{
    EXPECT_EQ(outputOf(smoothing(), Samples(10, 1.0)), Untouched);
    EXPECT_EQ(outputOf(velocity(velocitySavitzkyGolay11, true), Samples(10, 1.0)), Untouched);
    EXPECT_EQ(outputOf(velocity(velocitySavitzkyGolay15, true), Samples(20, 1.0)), Untouched);
}

TEST(SavitzkyGolay, ElevenSamplesGiveOneValueAndItsCopies)
{
    Samples impulse(11, 0.0);
    impulse[5] = 429.0;
    EXPECT_EQ(outputOf(smoothing(), impulse), Samples(11, 89.0));
    impulse[5] = 0.0;
    impulse[10] = 5148.0;
    EXPECT_EQ(outputOf(velocity(velocitySavitzkyGolay11, false), impulse), Samples(11, -300.0));
    EXPECT_EQ(outputOf(velocity(velocitySavitzkyGolay11, true), impulse), Samples(11, 300.0));
}

TEST(SavitzkyGolay, ImpulseShowsTheWeights)
{
    // One sample alone shows the weights in reverse.
    const auto answer = [](const Filter& filter, double height) {
        Samples impulse(31, 0.0);
        impulse[15] = height;
        return outputOf(filter, impulse);
    };
    const auto centred = [](const Samples& weights) {
        Samples samples(31, 0.0);
        std::copy(weights.begin(), weights.end(),
                  samples.begin() + (31 - std::ptrdiff_t(weights.size())) / 2);
        return samples;
    };
    EXPECT_EQ(answer(smoothing(), 429.0), centred({-36, 9, 44, 69, 84, 89, 84, 69, 44, 9, -36}));
    EXPECT_EQ(answer(velocity(velocitySavitzkyGolay11, false), 5148.0),
              centred({-300, 294, 532, 503, 296, 0, -296, -503, -532, -294, 300}));
    EXPECT_EQ(answer(velocity(velocitySavitzkyGolay15, false), 280.0),
              centred({7, 6, 5, 4, 3, 2, 1, 0, -1, -2, -3, -4, -5, -6, -7}));
}

TEST(SavitzkyGolay, ConstantStaysAndHasNoVelocity)
{
    const Samples constant(40, 7.0);
    EXPECT_EQ(outputOf(smoothing(), constant), constant);
    EXPECT_EQ(outputOf(velocity(velocitySavitzkyGolay11, false), constant), Samples(40, 0.0));
    EXPECT_EQ(outputOf(velocity(velocitySavitzkyGolay15, false), constant), Samples(40, 0.0));
}

TEST(SavitzkyGolay, RampHasItsSlopeAsVelocity)
{
    for (const double slope : {0.25, -3.0}) {
        const Samples input = ramp(50, slope);
        EXPECT_EQ(outputOf(velocity(velocitySavitzkyGolay11, false), input), Samples(50, slope));
        EXPECT_EQ(outputOf(velocity(velocitySavitzkyGolay15, false), input), Samples(50, slope));
        EXPECT_EQ(outputOf(velocity(velocitySavitzkyGolay11, true), input), Samples(50, std::fabs(slope)));
        EXPECT_EQ(outputOf(velocity(velocitySavitzkyGolay15, true), input), Samples(50, std::fabs(slope)));
    }
}

TEST(SavitzkyGolay, AbsoluteVelocityOfAConstantIsPositiveZero)
{
    for (const double value : outputOf(velocity(velocitySavitzkyGolay15, true), Samples(30, -2.0)))
        EXPECT_FALSE(std::signbit(value));
}

TEST(SavitzkyGolay, EndsAreCopiesOfTheNearestValue)
{
    const Samples input = randomWalk(40);
    for (const Filter& filter : {smoothing(), velocity(velocitySavitzkyGolay11, false)}) {
        const Samples output = outputOf(filter, input);
        for (std::size_t i = 0; i < 5; ++i) {
            EXPECT_EQ(output[i], output[5]);
            EXPECT_EQ(output[39 - i], output[34]);
        }
        EXPECT_NE(output[5], output[6]);
    }
    const Samples output = outputOf(velocity(velocitySavitzkyGolay15, false), input);
    for (std::size_t i = 0; i < 7; ++i) {
        EXPECT_EQ(output[i], output[7]);
        EXPECT_EQ(output[39 - i], output[32]);
    }
    EXPECT_NE(output[7], output[8]);
}

TEST(SavitzkyGolay, IsThePlainFormBitForBit)
{
    expectSameBitsOnAllKinds(smoothSavitzkyGolay11, plain::smoothSavitzkyGolay11);
    for (const bool absolute : {false, true}) {
        expectSameBitsOnAllKinds(velocity(velocitySavitzkyGolay11, absolute),
                                 velocity(plain::velocitySavitzkyGolay11, absolute));
        expectSameBitsOnAllKinds(velocity(velocitySavitzkyGolay15, absolute),
                                 velocity(plain::velocitySavitzkyGolay15, absolute));
    }
}

TEST(MovingAverage, RefusesWindowsThatDoNotFit)
{
    for (const std::int32_t w : {-LongestWindow - 1, -1, 0, 6, LongestWindow}) {
        EXPECT_EQ(outputOf(windowed(movingAverage, w), {1, 2, 3, 4, 5}), Untouched) << w;
        EXPECT_EQ(outputOf(windowed(movingAverage, w), {}), Untouched) << w;
    }
    EXPECT_EQ(outputOf(windowed(movingAverage, 1), {}), Untouched);
}

TEST(MovingAverage, InputOfOneOddWindowGivesOneAverage)
{
    EXPECT_EQ(outputOf(windowed(movingAverage, 5), {1, 2, 4, 8, 16}), Samples({1, 2, 6.2, 8, 16}));
}

TEST(MovingAverage, EvenWindowSumsOneMoreAndDividesByItself)
{
    EXPECT_EQ(outputOf(windowed(movingAverage, 4), {1, 2, 3, 4, 6, 8}), Samples({1, 2, 4, 5.75, 6, 8}));
}

TEST(MovingAverage, InputOfOneEvenWindowIsCopied)
{
    EXPECT_EQ(outputOf(windowed(movingAverage, 4), {1, 2, 3, 4}), Samples({1, 2, 3, 4}));
    EXPECT_EQ(outputOf(windowed(movingAverage, 2), {1, 2}), Samples({1, 2}));
}

TEST(MovingAverage, KeepsTheDriftOfTheRunningForm)
{
    // By hand: (1e16 + 1 + 0) / 3 loses the 1, which the later steps do not bring back.
    Samples input = {1e16, 1, 0, 0, 0, 0};
    const Samples output = outputOf(windowed(movingAverage, 3), input);
    const double first = 1e16 / 3;
    EXPECT_EQ(output, Samples({1e16, first, first - 1e16 / 3, -1.0 / 3, -1.0 / 3, 0}));
}

TEST(MovingAverage, IsThePlainFormBitForBit)
{
    for (const std::int32_t w : {1, 2, 3, 4, 5, 10, 11, 59, 60, 256, LongestWindow})
        expectSameBitsOnAllKinds(windowed(movingAverage, w), windowed(plain::movingAverage, w));
}

TEST(RunningMedian, RefusesWindowsThatDoNotFit)
{
    for (const std::int32_t w : {-LongestWindow - 1, -1, 0, 6, LongestWindow - 1, LongestWindow}) {
        EXPECT_EQ(outputOf(windowed(runningMedian, w), {1, 2, 3, 4, 5}), Untouched) << w;
        EXPECT_EQ(outputOf(windowed(runningMedian, w), {}), Untouched) << w;
    }
    EXPECT_EQ(outputOf(windowed(runningMedian, 1), {}), Untouched);
}

TEST(RunningMedian, EvenWindowActsAsTheNextOdd)
{
    const Samples input = {9, 1, 8, 2, 7, 3};
    EXPECT_EQ(outputOf(windowed(runningMedian, 4), input), Samples({9, 1, 7, 3, 7, 3}));
    EXPECT_EQ(outputOf(windowed(runningMedian, 5), input), Samples({9, 1, 7, 3, 7, 3}));
}

TEST(RunningMedian, InputOfOneEvenWindowIsCopied)
{
    EXPECT_EQ(outputOf(windowed(runningMedian, 4), {4, 1, 3, 2}), Samples({4, 1, 3, 2}));
    EXPECT_EQ(outputOf(windowed(runningMedian, 5), {4, 1, 3, 2}), Untouched);
}

TEST(RunningMedian, WindowOfOneCopies)
{
    const Samples input = randomWalk(700);
    EXPECT_EQ(outputOf(windowed(runningMedian, 1), input), input);
}

TEST(RunningMedian, EqualZerosKeepTheirOrderOfArrival)
{
    EXPECT_TRUE(sameBits(outputOf(windowed(runningMedian, 3), {0.0, -0.0, 0.0, 0.0, -0.0}),
                         {0.0, -0.0, 0.0, 0.0, -0.0}));
    EXPECT_TRUE(
        sameBits(outputOf(windowed(runningMedian, 3), {-0.0, -1.0, 0.0, 5.0}), {-0.0, -0.0, 0.0, 5.0}));
}

TEST(RunningMedian, IsThePlainFormBitForBit)
{
    for (const std::int32_t w : {1, 2, 3, 4, 5, 6, 7, 8, 15, 21, 30, 59, 60, 63, 64, 65, 127, 255, 256, 257})
        expectSameBitsOnAllKinds(windowed(runningMedian, w), windowed(plain::runningMedian, w));
}

TEST(RunningMedian, IsThePlainFormOverManyPieces)
{
    for (const Kind& kind : Kinds) {
        for (const std::int32_t w : {3, 40, 257, 385, 1000}) {
            for (const std::size_t count : {1001U, 2002U, 2311U})
                expectSameBits(windowed(runningMedian, w), windowed(plain::runningMedian, w),
                               kind.make(count), kind.name + std::string(", w ") + std::to_string(w));
        }
    }
}

TEST(RunningMedian, WindowsWithANanAreThoseOfThePlainForm)
{
    std::mt19937 generator(9);
    const Samples values = {-1, 0.0, -0.0, 1, 2, 3, Infinity};
    for (const unsigned oneIn : {2U, 7U, 40U, 300U}) {
        for (std::size_t count = 0; count < 700; count = count < 60 ? count + 1 : count * 3) {
            Samples input = drawn(count, values);
            for (double& sample : input) {
                if (generator() % oneIn == 0)
                    sample = Nan;
            }
            for (const std::int32_t w : {1, 2, 3, 4, 5, 9, 30, 61, 255})
                expectSameBits(windowed(runningMedian, w), windowed(plain::runningMedian, w), input,
                               "NaN, w " + std::to_string(w));
        }
    }
}

TEST(RunningMedian, InputOfNothingButNanStays)
{
    EXPECT_TRUE(sameBits(outputOf(windowed(runningMedian, 5), Samples(20, Nan)), Samples(20, Nan)));
}

TEST(RunningMedian, LongWindowsOverFarApartValuesTakeNoLongTime)
{
    // The plain form would take hours, and so would a search of the next value from place to place: the
    // median crosses the gap between low and high samples at each step.
    constexpr std::int32_t Window = 200001;
    constexpr std::size_t Half = Window / 2;
    Samples input = ramp(std::size_t{2} * Window, 1.0);
    for (std::size_t i = 1; i < input.size(); i += 2)
        input[i] += 1e9;
    const Samples output = outputOf(windowed(runningMedian, Window), input);
    ASSERT_EQ(output.size(), input.size());
    for (std::size_t begin = 0; begin + Window <= input.size(); ++begin) {
        const std::size_t expected = begin % 2 == 0 ? begin + Window - 1 : begin;
        ASSERT_EQ(output[begin + Half], input[expected]) << begin;
    }
}
