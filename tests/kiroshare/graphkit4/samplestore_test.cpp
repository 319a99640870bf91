#include "samplestore.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <new>
#include <random>
#include <type_traits>
#include <vector>

namespace
{

/// Bytes that operator new has given out.
std::size_t allocatedBytes = 0;

} // namespace

void* operator new(std::size_t size)
{
    allocatedBytes += size;
    void* memory = std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void* operator new(std::size_t size, std::align_val_t alignment)
{
    allocatedBytes += size;
    const auto unit = std::size_t(alignment);
    void* memory = std::aligned_alloc(unit, (size + unit - 1) / unit * unit);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::align_val_t) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t, std::align_val_t) noexcept
{
    std::free(memory);
}

namespace
{

/// Samples of each element type over its whole range, and of the floating-point ones over many magnitudes.
template <class T>
class SampleStoreTest : public testing::Test
{
protected:
    std::mt19937_64 generator{5};

    T randomSample()
    {
        if constexpr (std::is_floating_point_v<T>)
            return T(std::ldexp(double(std::int64_t(generator())), int(generator() % 100) - 110));
        else
            return T(generator());
    }

    QVector<T> randomSamples(int count)
    {
        QVector<T> samples(count);
        for (T& sample : samples)
            sample = randomSample();
        return samples;
    }

    /// As randomSamples(), here and there with stretches that are not finite.
    QVector<T> samplesWithGaps(int count)
    {
        QVector<T> samples = randomSamples(count);
        if constexpr (std::is_floating_point_v<T>) {
            using Limits = std::numeric_limits<T>;
            const T gaps[] = {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(),
                              -Limits::quiet_NaN()};
            for (int i = 0; i < count;) {
                i += int(generator() % 3000);
                const int end = i + int(generator() % (generator() % 4 == 0 ? 1500 : 5));
                for (; i < std::min(end, count); ++i)
                    samples[i] = gaps[generator() % 4];
            }
        }
        return samples;
    }

    /// A start and a number of samples: mostly few or up to all, often on the borders of blocks.
    std::pair<int, int> randomRange(int count)
    {
        int first = int(generator() % std::uint64_t(count + 1));
        if (generator() % 3 == 0)
            first -= first % (generator() % 2 == 0 ? 64 : 2048);
        const int rest = count - first;
        int length = int(generator() % std::uint64_t(rest + 1));
        if (generator() % 2 == 0)
            length = std::min(length, int(generator() % 300));
        return {first, length};
    }

    void expectAsPlain(const QVector<T>& samples, const SampleStore& store, int first, int count)
    {
        bool any = false;
        bool gaps = false;
        T least{};
        T greatest{};
        for (const T* sample = samples.constData() + first; sample != samples.constData() + first + count;
             ++sample) {
            if (!std::isfinite(double(*sample))) {
                gaps = true;
                continue;
            }
            least = any ? std::min(least, *sample) : *sample;
            greatest = any ? std::max(greatest, *sample) : *sample;
            any = true;
        }
        Extremes found{1.5, 2.5};
        ASSERT_EQ(store.extremes(first, count, found), any) << first << ' ' << count;
        ASSERT_EQ(store.hasGaps(first, count), gaps) << first << ' ' << count;
        ASSERT_EQ(found.least, any ? double(least) : 1.5) << first << ' ' << count;
        ASSERT_EQ(found.greatest, any ? double(greatest) : 2.5) << first << ' ' << count;
    }

    void expectAsPlain(const QVector<T>& samples, int ranges)
    {
        expectAsPlain(samples, SampleStore{SampleArray(samples)}, ranges);
    }

    /// Of random ranges, as many as told.
    void expectAsPlain(const QVector<T>& samples, const SampleStore& store, int ranges)
    {
        ASSERT_EQ(store.count(), samples.size());
        for (int i = 0; i < ranges && !this->HasFatalFailure(); ++i) {
            const auto [first, count] = randomRange(samples.size());
            expectAsPlain(samples, store, first, count);
        }
    }
};

using ElementTypes = testing::Types<std::int8_t, std::uint8_t, std::int16_t, std::uint16_t, std::int32_t,
                                    std::uint32_t, std::int64_t, std::uint64_t, float, double>;
TYPED_TEST_SUITE(SampleStoreTest, ElementTypes);

TYPED_TEST(SampleStoreTest, ExtremesAreThoseOfAPlainLoop)
{
    for (const int count : {1, 2, 63, 64, 65, 127, 128, 1000, 2047, 2048, 2049, 5000, 70000})
        this->expectAsPlain(this->randomSamples(count), count > 10000 ? 60 : 100);
}

TYPED_TEST(SampleStoreTest, ExtremesOfHighLevelsAreThoseOfAPlainLoop)
{
    // More than 64 blocks of 2048 samples: levels of 64, 2048 and 65536 samples.
    this->expectAsPlain(this->samplesWithGaps(300001), 25);
}

TYPED_TEST(SampleStoreTest, SamplesThatAreNotFiniteAreLeftOut)
{
    for (const int count : {1, 2, 64, 130, 4096, 20000})
        this->expectAsPlain(this->samplesWithGaps(count), 100);
}

TYPED_TEST(SampleStoreTest, EachSampleIsFoundWhereverItStands)
{
    constexpr int Count = 17 * 64 + 17; // more blocks than are worked on together
    for (int place = 0; place < Count; ++place) {
        QVector<TypeParam> samples(Count, TypeParam(50));
        samples[place] = TypeParam(100);
        const SampleStore store{SampleArray(samples)};
        for (int first = std::max(place - 70, 0); first <= place; first += 23)
            this->expectAsPlain(samples, store, first, std::min(place + 71, Count) - first);
    }
}

TYPED_TEST(SampleStoreTest, EachBlockIsFoundWhereverItStands)
{
    // More than three groups of blocks that make one of the next level, and a part of one.
    constexpr int Block = SampleStore::BlockSize;
    constexpr int Blocks = 3 * SampleStore::LevelFactor + 9;
    for (int place = 0; place < Blocks; ++place) {
        QVector<TypeParam> samples(Blocks * Block, TypeParam(50));
        samples[place * Block + place % Block] = TypeParam(100);
        const SampleStore store{SampleArray(samples)};
        for (const int first : {0, place - place % 7, place}) {
            for (const int end : {place + 1, std::min(place + 40, Blocks), Blocks})
                this->expectAsPlain(samples, store, first * Block, (end - first) * Block);
        }
        // Just beside it on either side.
        this->expectAsPlain(samples, store, 0, place * Block);
        this->expectAsPlain(samples, store, (place + 1) * Block, (Blocks - place - 1) * Block);
    }
}

TYPED_TEST(SampleStoreTest, TheGreatestNumbersAreFound)
{
    using Limits = std::numeric_limits<TypeParam>;
    for (const int count : {1, 64, 5000}) {
        for (const TypeParam value : {Limits::lowest(), Limits::max()})
            this->expectAsPlain(QVector<TypeParam>(count, value), 20);
    }
}

TYPED_TEST(SampleStoreTest, SamplesThatComeBitByBitMakeTheSameStore)
{
    for (const int count : {0, 1, 63, 64, 1500, 20000, 150001}) {
        for (const int most : {1, 70, 3000, 40000}) {
            if (count > 1000 * most)
                continue;
            const QVector<TypeParam> samples = this->samplesWithGaps(count);
            SampleStoreBuilder builder(count);
            for (int taken = 0; taken < count; taken += 1 + int(this->generator() % std::uint64_t(most)))
                builder.take(SampleArray(samples.mid(0, taken)));
            const SampleStore store = builder.finish(SampleArray(samples));
            EXPECT_EQ(std::get<QVector<TypeParam>>(store.samples()), samples);
            this->expectAsPlain(samples, store, 30);
        }
    }
}

TYPED_TEST(SampleStoreTest, SamplesThatComeBitByBitAreKeptByNobody)
{
    QVector<TypeParam> samples(1000, TypeParam(7));
    SampleStoreBuilder builder(samples.size());
    const SampleArray soFar(samples);
    samples.clear();
    builder.take(soFar);
    EXPECT_TRUE(std::get<QVector<TypeParam>>(soFar).isDetached());
}

TYPED_TEST(SampleStoreTest, ValuesAreTheSamples)
{
    const QVector<TypeParam> samples = this->randomSamples(200);
    const SampleStore store{SampleArray(samples)};
    EXPECT_EQ(store.elementType(), int(SampleArray(samples).index()));
    for (int i = 0; i < samples.size(); ++i)
        EXPECT_EQ(store.value(i), double(samples[i]));
}

TYPED_TEST(SampleStoreTest, ThePyramidIsAFewPerCentOfTheSamples)
{
    const QVector<TypeParam> samples = this->randomSamples(1000000);
    const std::size_t before = allocatedBytes;
    const SampleStore store{SampleArray(samples)};
    const double part = double(allocatedBytes - before) / (samples.size() * double(sizeof(TypeParam)));
    EXPECT_LT(part, 0.05);
    EXPECT_GT(part, 0.0); // it has been counted
}

TYPED_TEST(SampleStoreTest, SamplesAreSharedNotCopied)
{
    const QVector<TypeParam> samples = this->randomSamples(1000);
    const SampleStore store{SampleArray(samples)};
    EXPECT_EQ(std::get<QVector<TypeParam>>(store.samples()).constData(), samples.constData());
    const std::size_t before = allocatedBytes;
    const SampleStore copy = store;
    EXPECT_EQ(std::get<QVector<TypeParam>>(copy.samples()).constData(), samples.constData());
    EXPECT_EQ(&copy.samples(), &store.samples());
    EXPECT_EQ(allocatedBytes, before);
}

TYPED_TEST(SampleStoreTest, ChangesOfTheGivenVectorAreNotSeen)
{
    QVector<TypeParam> samples(1000, TypeParam(7));
    const SampleStore store{SampleArray(samples)};
    samples[500] = TypeParam(9);
    Extremes found;
    ASSERT_TRUE(store.extremes(0, 1000, found));
    EXPECT_EQ(found.greatest, 7.0);
    EXPECT_EQ(store.value(500), 7.0);
}

TYPED_TEST(SampleStoreTest, NothingIsFoundInNoSamples)
{
    const SampleStore empty{SampleArray(QVector<TypeParam>())};
    EXPECT_EQ(empty.count(), 0);
    Extremes found{1.0, 2.0};
    EXPECT_FALSE(empty.extremes(0, 0, found));
    EXPECT_FALSE(empty.hasGaps(0, 0));
    EXPECT_EQ(found.least, 1.0);
    EXPECT_EQ(found.greatest, 2.0);
}

TEST(SampleStore, HoldsNoDoublesAtFirst)
{
    const SampleStore store;
    EXPECT_EQ(store.count(), 0);
    EXPECT_EQ(store.elementType(), 9);
}

} // namespace
