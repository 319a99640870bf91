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
/// The pyramid is built once, in one pass over the samples, and takes a few per cent of their memory.
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
    struct Shared;
    std::shared_ptr<const Shared> m_shared;
};
