#pragma once

#include "elementtype.h"

#include <memory>

/// A lowest and a highest value.
struct Extremes
{
    double least = 0.0;
    double greatest = 0.0;
};

/// Samples with a pyramid of minima and maxima of blocks beside them. Immutable; copies share everything.
///
/// The pyramid is built once, in one pass over the samples, and takes a few per cent of their memory. A
/// SampleStoreBuilder builds it while the samples come in.
class SampleStore
{
public:
    /// Samples of a block of the pyramid's lowest level.
    static constexpr int BlockSize = 64;
    /// Blocks of a level that make one of the next.
    static constexpr int LevelFactor = 32;

    /// No samples; doubles.
    SampleStore();
    explicit SampleStore(const SampleArray& samples);

    const SampleArray& samples() const;
    int elementType() const { return static_cast<int>(samples().index()); }
    int count() const;
    /// As double; `index` lies within the samples.
    double value(int index) const;
    /// Of the finite samples from `first` on, `count` of them, which lie within the samples. Its cost does
    /// not depend on `count`. False if there are none.
    bool extremes(int first, int count, Extremes& found) const;
    /// Whether a sample of that range is NaN or infinite; at most as costly as extremes().
    bool hasGaps(int first, int count) const;
    /// Has the processor fetch, without waiting, what extremes() will read for a range that begins or ends at
    /// `index`, which lies within the samples or just behind them.
    void prefetch(int index) const;

private:
    friend class PointRows;
    friend class SampleStoreBuilder;

    /// Equal steps of the raw values, for a look at many values at once.
    struct Steps
    {
        double origin = 0.0;  ///< where number 0 begins
        double perUnit = 1.0; ///< below 0 if numbers fall with the values
        int least = 0;        ///< numbers below and above are taken as `least` and `greatest`; 0 or more
        int greatest = 0;
        int none = 0;          ///< in place of the number of what is not finite
        bool areMoved = false; ///< whether the following count
        /// Two parts are moved: what lies from `movedDown` on before `top` to there, and what lies from
        /// `bottom` to before `movedUp` to just before `bottom`. Both may be empty.
        double movedDown = 0.0;
        double top = 0.0;
        double bottom = 1e9;
        double movedUp = 0.0;
    };

    struct Shared;

    explicit SampleStore(std::shared_ptr<const Shared> shared);

    /// The step of each of `count` samples from `first` on, which lie within the samples.
    void findSteps(int first, int count, const Steps& steps, int* found) const;
    /// The steps of the least and of the greatest of each of `count` blocks from `firstBlock` on, all of
    /// whose samples lie within the samples.
    void findBlockSteps(int firstBlock, int count, const Steps& steps, int* ofLeast, int* ofGreatest) const;
    /// Has the processor fetch a block without waiting.
    void prefetchBlock(int block) const;

    std::shared_ptr<const Shared> m_shared;
};

/// Makes a SampleStore of samples that come bit by bit, so that the pyramid is built while they are still in
/// the processor's cache.
class SampleStoreBuilder
{
public:
    /// For `count` samples in all, 0 or more. Takes no memory yet.
    explicit SampleStoreBuilder(int count);
    ~SampleStoreBuilder();
    SampleStoreBuilder(SampleStoreBuilder&& other) noexcept;
    SampleStoreBuilder& operator=(SampleStoreBuilder&& other) noexcept;

    /// The samples that are there so far, `count` at most: those of the last call, unchanged, and more behind
    /// them. The type is the same in all calls. Keeps no copy.
    void take(const SampleArray& soFar);
    /// All samples, after which the builder is of no further use. take() need not have seen any of them.
    SampleStore finish(const SampleArray& samples);

private:
    int m_count;
    std::unique_ptr<SampleStore::Shared> m_shared;
};
