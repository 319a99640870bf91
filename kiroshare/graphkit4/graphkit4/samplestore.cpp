#include "samplestore.h"

#include "blockextremes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <type_traits>
#include <utility>
#include <vector>

namespace
{

constexpr auto Block = std::size_t(SampleStore::BlockSize);
constexpr auto Factor = std::size_t(SampleStore::LevelFactor);
/// A level of so many blocks is the highest.
constexpr std::size_t TopBlocks = 2 * Factor;
/// Memory that is fetched at once.
constexpr std::size_t CacheLine = 64;

template <class T>
bool isFinite(T value)
{
    if constexpr (std::is_floating_point_v<T>)
        return std::isfinite(value);
    else
        return true;
}

/// Least and greatest of what was taken in; of nothing, and of no finite sample, the least is above the
/// greatest.
template <class T>
struct Span
{
    using Limits = std::numeric_limits<T>;
    T least = Limits::has_infinity ? Limits::infinity() : Limits::max();
    T greatest = Limits::has_infinity ? -Limits::infinity() : Limits::lowest();

    void add(T low, T high)
    {
        least = low < least ? low : least;
        greatest = high > greatest ? high : greatest;
    }
    void add(const T* values, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i) {
            if (isFinite(values[i]))
                add(values[i], values[i]);
        }
    }
};

/// Spans of many samples side by side. Loops over its lanes run on several of them at once, which the
/// compiler may not do to comparisons of floating-point numbers in a row. Takes no NaN.
template <class T>
class LaneSpan
{
public:
    static constexpr std::size_t Lanes = 32;

    /// Of nothing.
    LaneSpan()
    {
        m_least.fill(Span<T>().least);
        m_greatest.fill(Span<T>().greatest);
    }
    /// Takes in one of `low` and `high` in each lane.
    void add(const T* low, const T* high)
    {
        for (std::size_t i = 0; i < Lanes; ++i) {
            m_least[i] = lower(low[i], m_least[i]);
            m_greatest[i] = higher(high[i], m_greatest[i]);
        }
    }
    /// As above, but only in the lanes from `first` to before `end`; without a branch.
    void add(const T* low, const T* high, std::size_t first, std::size_t end)
    {
        static constexpr auto LeastShield = shield(Span<T>().greatest, Span<T>().least);
        static constexpr auto GreatestShield = shield(Span<T>().least, Span<T>().greatest);
        const std::size_t before = Lanes - first;
        const std::size_t behind = 2 * Lanes - end;
        for (std::size_t i = 0; i < Lanes; ++i) {
            const T least = higher(higher(low[i], LeastShield[before + i]), LeastShield[behind + i]);
            const T greatest = lower(lower(high[i], GreatestShield[before + i]), GreatestShield[behind + i]);
            m_least[i] = lower(least, m_least[i]);
            m_greatest[i] = higher(greatest, m_greatest[i]);
        }
    }
    Span<T> sum()
    {
        fold<Lanes / 2>();
        fold<Lanes / 4>();
        Span<T> span;
        for (std::size_t i = 0; i < Lanes / 4; ++i)
            span.add(m_least[i], m_greatest[i]);
        return span;
    }

private:
    template <std::size_t Half>
    void fold()
    {
        for (std::size_t i = 0; i < Half; ++i) {
            m_least[i] = lower(m_least[i + Half], m_least[i]);
            m_greatest[i] = higher(m_greatest[i + Half], m_greatest[i]);
        }
    }

    static T lower(T a, T b) { return a < b ? a : b; }
    static T higher(T a, T b) { return a > b ? a : b; }

    /// As many as there are lanes of `inside`, and of `outside` on either side.
    static constexpr std::array<T, 3 * Lanes> shield(T inside, T outside)
    {
        std::array<T, 3 * Lanes> made{};
        for (std::size_t i = 0; i < made.size(); ++i)
            made[i] = i / Lanes == 1 ? inside : outside;
        return made;
    }

    std::array<T, Lanes> m_least;
    std::array<T, Lanes> m_greatest;
};

static_assert(Block == 2 * LaneSpan<char>::Lanes && Factor == LaneSpan<char>::Lanes);

/// Whether one of a block's samples has all bits of its exponent set; without a branch in the loop.
template <class T, class Bits>
bool blockHasGap(const T* samples)
{
    static_assert(sizeof(T) == sizeof(Bits));
    constexpr int Mantissa = std::numeric_limits<T>::digits - 1;
    constexpr Bits Sign = Bits(1) << (sizeof(Bits) * 8 - 1);
    std::array<Bits, Block> bits;
    std::memcpy(bits.data(), samples, sizeof(bits));
    Bits carries = 0;
    // One more than the greatest exponent runs over into the bit of the sign.
    for (const Bits sample : bits)
        carries |= (sample & ~Sign) + (Bits(1) << Mantissa);
    return (carries & Sign) != 0;
}

bool blockHasGap(const float* samples)
{
    return blockHasGap<float, std::uint32_t>(samples);
}

bool blockHasGap(const double* samples)
{
    return blockHasGap<double, std::uint64_t>(samples);
}

template <class T>
bool blockHasGap(const T*)
{
    return false;
}

/// Extremes of the blocks that make one of the next level, side by side, so that they are fetched together.
template <class T>
struct alignas(CacheLine) BlockGroup
{
    std::array<T, Factor> least;
    std::array<T, Factor> greatest;
};

/// Extremes of blocks of one length, without the rest that does not fill a block.
template <class T>
class Level
{
public:
    explicit Level(std::size_t count)
        : m_groups((count + Factor - 1) / Factor)
        , m_gaps(std::is_floating_point_v<T> ? m_groups.size() : 0)
        , m_count(count)
    {
    }

    std::size_t count() const { return m_count; }
    /// Blocks from `index` * Factor on; of the last one there may be fewer than Factor.
    BlockGroup<T>& group(std::size_t index) { return m_groups[index]; }
    const BlockGroup<T>& group(std::size_t index) const { return m_groups[index]; }
    /// A bit for each block of a group that holds a sample that is not finite. Only of floating-point
    /// numbers.
    std::uint32_t gaps(std::size_t group) const { return m_gaps[group]; }
    bool hasGap(std::size_t block) const { return (m_gaps[block / Factor] >> block % Factor & 1) != 0; }

    void setGap(std::size_t block) { m_gaps[block / Factor] |= std::uint32_t(1) << block % Factor; }
    void set(std::size_t block, const Span<T>& span)
    {
        m_groups[block / Factor].least[block % Factor] = span.least;
        m_groups[block / Factor].greatest[block % Factor] = span.greatest;
    }

private:
    static_assert(Factor == 32); // bits of an element of m_gaps

    std::vector<BlockGroup<T>> m_groups;
    std::vector<std::uint32_t> m_gaps;
    std::size_t m_count;
};

/// A block by itself; bears what is not finite.
template <class T>
void setBlock(Level<T>& level, std::size_t index, const T* samples)
{
    const T* block = samples + index * Block;
    Span<T> span;
    span.add(block, Block);
    level.set(index, span);
    if (blockHasGap(block))
        level.setGap(index);
}

template <class T>
Level<T> levelAbove(const Level<T>& below)
{
    Level<T> level(below.count() / Factor);
    for (std::size_t i = 0; i < level.count(); ++i) {
        const BlockGroup<T>& group = below.group(i);
        LaneSpan<T> lanes;
        lanes.add(group.least.data(), group.greatest.data());
        level.set(i, lanes.sum());
        if constexpr (std::is_floating_point_v<T>) {
            if (below.gaps(i) != 0)
                level.setGap(i);
        }
    }
    return level;
}

/// The levels from the lowest on; all empty for fewer samples than a block has.
template <class T>
struct Pyramid
{
    std::vector<Level<T>> levels;
    std::size_t done = 0; ///< blocks of the lowest level that are set

    Pyramid() = default;
    /// Blocks of as many samples, not yet set.
    explicit Pyramid(std::size_t count) { levels.emplace_back(count / Block); }

    /// Sets the blocks of the lowest level that the first `count` samples fill, as far as many can be set at
    /// once.
    void extend(const T* samples, std::size_t count)
    {
        using Extremes = BlockExtremes<T, Block>;
        static_assert(Factor % Extremes::Blocks == 0);
        Level<T>& level = levels.front();
        for (; (done + Extremes::Blocks) * Block <= count; done += Extremes::Blocks) {
            BlockGroup<T>& group = level.group(done / Factor);
            Extremes::find(samples + done * Block, &group.least[done % Factor],
                           &group.greatest[done % Factor]);
            for (std::size_t i = done; i < done + Extremes::Blocks; ++i) {
                if (blockHasGap(samples + i * Block))
                    setBlock(level, i, samples);
            }
        }
    }
    /// Sets all that is left, when all samples are there.
    void finish(const T* samples)
    {
        extend(samples, levels.front().count() * Block);
        for (; done < levels.front().count(); ++done)
            setBlock(levels.front(), done, samples);
        while (levels.back().count() > TopBlocks)
            levels.push_back(levelAbove(levels.back()));
    }
};

/// Calls `samples(first, end)` and `blocks(level, first, end)` for ranges that together make up the samples
/// from `first` to before `end`: of samples, at an end that is not one of a block, as many as a block has,
/// which may overlap other ranges, or all that there are if they hold no block; of blocks those that a block
/// of the next level does not hold.
template <class T, class SamplesVisitor, class BlocksVisitor>
void visitRange(const Pyramid<T>& pyramid, std::size_t first, std::size_t end, SamplesVisitor samples,
                BlocksVisitor blocks)
{
    std::size_t from = (first + Block - 1) / Block;
    std::size_t to = end / Block;
    if (from >= to) {
        samples(first, end);
        return;
    }
    if (first % Block != 0)
        samples(first, first + Block);
    if (end % Block != 0)
        samples(end - Block, end);
    for (std::size_t i = 0;; ++i) {
        const std::size_t above = (from + Factor - 1) / Factor;
        const std::size_t aboveEnd = to / Factor;
        if (i + 1 == pyramid.levels.size() || above >= aboveEnd) {
            blocks(pyramid.levels[i], from, to);
            return;
        }
        if (from % Factor != 0)
            blocks(pyramid.levels[i], from, above * Factor);
        if (to % Factor != 0)
            blocks(pyramid.levels[i], aboveEnd * Factor, to);
        from = above;
        to = aboveEnd;
    }
}

template <class T>
Span<T> spanOfRange(const T* samples, const Pyramid<T>& pyramid, std::size_t first, std::size_t end)
{
    Span<T> span;
    if (end - first < Block) {
        span.add(samples + first, end - first);
        return span;
    }
    LaneSpan<T> lanes;
    const auto addSamples = [&](std::size_t from, std::size_t to) {
        for (; from < to; from += Block) {
            // The last block overlaps the one before.
            const T* block = samples + std::min(from, to - Block);
            if (blockHasGap(block)) {
                span.add(block, Block);
            } else {
                lanes.add(block, block);
                lanes.add(block + Block / 2, block + Block / 2);
            }
        }
    };
    const auto addBlocks = [&](const Level<T>& level, std::size_t from, std::size_t to) {
        for (std::size_t group = from / Factor; group * Factor < to; ++group) {
            const BlockGroup<T>& extremes = level.group(group);
            const std::size_t start = group * Factor;
            lanes.add(extremes.least.data(), extremes.greatest.data(), std::max(from, start) - start,
                      std::min(to - start, Factor));
        }
    };
    visitRange(pyramid, first, end, addSamples, addBlocks);
    const Span<T> sum = lanes.sum();
    span.add(sum.least, sum.greatest);
    return span;
}

template <class T>
bool rangeHasGaps(const QVector<T>& samples, const Pyramid<T>& pyramid, std::size_t first, std::size_t end)
{
    bool found = false;
    visitRange(
        pyramid, first, end,
        [&](std::size_t from, std::size_t to) {
            for (std::size_t i = from; i < to && !found; ++i)
                found = !isFinite(samples.constData()[i]);
        },
        [&](const Level<T>& level, std::size_t from, std::size_t to) {
            for (std::size_t i = from; i < to && !found; ++i)
                found = level.hasGap(i);
        });
    return found;
}

/// From `begin` to before `end`.
void prefetchBytes(const char* begin, const char* end)
{
    for (; begin < end; begin += CacheLine)
        __builtin_prefetch(begin);
    // The compiler leaves out calls of functions that do nothing but fetch.
    asm volatile("");
}

/// From `before` elements before `place` to as many behind it.
template <class T>
void prefetchAround(const T* elements, std::size_t count, std::size_t place, std::size_t before)
{
    const T* begin = elements + (place - std::min(place, before));
    const T* end = elements + std::min(place + before, count);
    prefetchBytes(reinterpret_cast<const char*>(begin), reinterpret_cast<const char*>(end));
}

template <class Object>
void prefetchWhole(const Object& object)
{
    const auto* bytes = reinterpret_cast<const char*>(&object);
    prefetchBytes(bytes, bytes + sizeof(Object));
}

/// The numbers of the steps that values lie on, computed as `Real`. `StepsOfValues` is SampleStore's own
/// Steps.
template <class Real, bool AreMoved, class T, class StepsOfValues>
void stepsAs(const T* values, std::size_t count, const StepsOfValues& steps, int* found)
{
    const auto origin = Real(steps.origin);
    const auto perUnit = Real(steps.perUnit);
    const auto least = Real(steps.least);
    const auto greatest = Real(steps.greatest);
    const auto none = Real(steps.none);
    [[maybe_unused]] const auto movedDown = Real(steps.movedDown);
    [[maybe_unused]] const auto top = Real(steps.top);
    [[maybe_unused]] const auto bottom = Real(steps.bottom);
    [[maybe_unused]] const auto movedUp = Real(steps.movedUp);
    [[maybe_unused]] const Real aboveBottom = bottom - Real(0.5);
    for (std::size_t i = 0; i < count; ++i) {
        Real place = (Real(values[i]) - origin) * perUnit;
        if constexpr (AreMoved) {
            place = (place >= movedDown) & (place < top) ? top : place;
            place = (place >= bottom) & (place < movedUp) ? aboveBottom : place;
        }
        const Real limited = place < greatest ? place : greatest;
        const Real number = limited > least ? limited : least;
        found[i] = int(isFinite(values[i]) ? number : none);
    }
}

template <class T, class StepsOfValues>
void stepsOf(const T* values, std::size_t count, const StepsOfValues& steps, int* found)
{
    if constexpr (sizeof(T) <= 2) {
        // So that rounding moves no value by more than some 2000th of a step.
        constexpr double MostSteps = 2048.0;
        constexpr double Values = 65536.0;
        if ((std::abs(steps.origin) + Values) * std::abs(steps.perUnit) < MostSteps) {
            if (steps.areMoved)
                stepsAs<float, true>(values, count, steps, found);
            else
                stepsAs<float, false>(values, count, steps, found);
            return;
        }
    }
    if (steps.areMoved)
        stepsAs<double, true>(values, count, steps, found);
    else
        stepsAs<double, false>(values, count, steps, found);
}

using AnyPyramid =
    std::variant<Pyramid<std::int8_t>, Pyramid<std::uint8_t>, Pyramid<std::int16_t>, Pyramid<std::uint16_t>,
                 Pyramid<std::int32_t>, Pyramid<std::uint32_t>, Pyramid<std::int64_t>, Pyramid<std::uint64_t>,
                 Pyramid<float>, Pyramid<double>>;

} // namespace

struct SampleStore::Shared
{
    SampleArray samples;
    AnyPyramid pyramid;

    Shared() = default;
    /// Without samples, and with room for the pyramid of so many.
    template <class T>
    Shared(QVector<T> none, std::size_t count)
        : samples(std::move(none))
        , pyramid(Pyramid<T>(count))
    {
    }

    /// Calls `function(vector, pyramid)`.
    template <class Function>
    auto visit(Function function) const
    {
        return std::visit(
            [&](const auto& vector) {
                using T = typename std::decay_t<decltype(vector)>::value_type;
                return function(vector, *std::get_if<Pyramid<T>>(&pyramid));
            },
            samples);
    }
};

SampleStore::SampleStore()
    : SampleStore(SampleArray(QVector<double>()))
{
}

SampleStore::SampleStore(const SampleArray& samples)
    : SampleStore(SampleStoreBuilder(int(sampleCount(samples))).finish(samples))
{
}

SampleStore::SampleStore(std::shared_ptr<const Shared> shared)
    : m_shared(std::move(shared))
{
}

SampleStoreBuilder::SampleStoreBuilder(int count)
    : m_count(count)
{
    Q_ASSERT(count >= 0);
}

SampleStoreBuilder::~SampleStoreBuilder() = default;
SampleStoreBuilder::SampleStoreBuilder(SampleStoreBuilder&& other) noexcept = default;
SampleStoreBuilder& SampleStoreBuilder::operator=(SampleStoreBuilder&& other) noexcept = default;

void SampleStoreBuilder::take(const SampleArray& soFar)
{
    std::visit(
        [this](const auto& vector) {
            using T = typename std::decay_t<decltype(vector)>::value_type;
            Q_ASSERT(vector.size() <= m_count);
            if (!m_shared)
                m_shared = std::make_unique<SampleStore::Shared>(QVector<T>(), std::size_t(m_count));
            std::get_if<Pyramid<T>>(&m_shared->pyramid)
                ->extend(vector.constData(), std::size_t(std::min(vector.size(), m_count)));
        },
        soFar);
}

SampleStore SampleStoreBuilder::finish(const SampleArray& samples)
{
    Q_ASSERT(sampleCount(samples) == std::size_t(m_count));
    take(samples);
    m_shared->samples = samples;
    std::visit(
        [this](const auto& vector) {
            using T = typename std::decay_t<decltype(vector)>::value_type;
            std::get_if<Pyramid<T>>(&m_shared->pyramid)->finish(vector.constData());
        },
        samples);
    return SampleStore(std::move(m_shared));
}

const SampleArray& SampleStore::samples() const
{
    return m_shared->samples;
}

int SampleStore::count() const
{
    return std::visit([](const auto& vector) { return vector.size(); }, m_shared->samples);
}

double SampleStore::value(int index) const
{
    Q_ASSERT(index >= 0 && index < count());
    return std::visit([index](const auto& vector) { return double(vector.constData()[index]); },
                      m_shared->samples);
}

bool SampleStore::extremes(int first, int count, Extremes& found) const
{
    Q_ASSERT(first >= 0 && count >= 0 && count <= this->count() - first);
    return m_shared->visit([&](const auto& vector, const auto& pyramid) {
        const auto span = spanOfRange(vector.constData(), pyramid, std::size_t(first),
                                      std::size_t(first) + std::size_t(count));
        if (count == 0 || span.least > span.greatest)
            return false;
        found = {double(span.least), double(span.greatest)};
        return true;
    });
}

bool SampleStore::hasGaps(int first, int count) const
{
    Q_ASSERT(first >= 0 && count >= 0 && count <= this->count() - first);
    return m_shared->visit([&](const auto& vector, const auto& pyramid) {
        using T = typename std::decay_t<decltype(vector)>::value_type;
        if constexpr (std::is_floating_point_v<T>)
            return rangeHasGaps(vector, pyramid, std::size_t(first), std::size_t(first) + std::size_t(count));
        else
            return false;
    });
}

void SampleStore::prefetch(int index) const
{
    Q_ASSERT(index >= 0 && index <= count());
    m_shared->visit([&](const auto& vector, const auto& pyramid) {
        auto place = std::size_t(index);
        if (place % Block != 0)
            prefetchAround(vector.constData(), std::size_t(vector.size()), place, Block);
        place /= Block;
        // Higher levels are small and stay in the cache.
        for (std::size_t i = 0; i < std::min<std::size_t>(pyramid.levels.size(), 2); ++i) {
            const auto& level = pyramid.levels[i];
            if (place < level.count())
                prefetchWhole(level.group(place / Factor));
            place /= Factor;
        }
    });
}

void SampleStore::findSteps(int first, int count, const Steps& steps, int* found) const
{
    Q_ASSERT(first >= 0 && count >= 0 && count <= this->count() - first);
    std::visit(
        [&](const auto& vector) { stepsOf(vector.constData() + first, std::size_t(count), steps, found); },
        m_shared->samples);
}

void SampleStore::findBlockSteps(int firstBlock, int count, const Steps& steps, int* ofLeast,
                                 int* ofGreatest) const
{
    Q_ASSERT(firstBlock >= 0 && count >= 0 && count <= this->count() / BlockSize - firstBlock);
    m_shared->visit([&](const auto&, const auto& pyramid) {
        const auto& level = pyramid.levels.front();
        auto block = std::size_t(firstBlock);
        for (const std::size_t end = block + std::size_t(count); block < end;) {
            const auto& group = level.group(block / Factor);
            const std::size_t place = block % Factor;
            const std::size_t number = std::min(Factor - place, end - block);
            stepsOf(group.least.data() + place, number, steps, ofLeast);
            stepsOf(group.greatest.data() + place, number, steps, ofGreatest);
            ofLeast += number;
            ofGreatest += number;
            block += number;
        }
    });
}

void SampleStore::prefetchBlock(int block) const
{
    Q_ASSERT(block >= 0 && block < count() / BlockSize);
    std::visit(
        [block](const auto& vector) {
            const auto* begin = vector.constData() + std::size_t(block) * Block;
            prefetchBytes(reinterpret_cast<const char*>(begin), reinterpret_cast<const char*>(begin + Block));
        },
        m_shared->samples);
}
