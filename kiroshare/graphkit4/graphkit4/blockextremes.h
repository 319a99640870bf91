#pragma once

#include <cstddef>
#include <cstring>
#include <utility>

/// Least and greatest of several blocks of samples at once: of as many blocks as a vector register of 16
/// bytes has lanes, so that no register is ever summed up alone. Takes no NaN.
template <class T, std::size_t BlockSize>
class BlockExtremes
{
public:
    /// Blocks that are worked on together.
    static constexpr std::size_t Blocks = 16 / sizeof(T);

    /// Of `Blocks` blocks that follow one another from `samples` on.
    static void find(const T* samples, T* least, T* greatest)
    {
        Register low[Blocks];
        Register high[Blocks];
        for (std::size_t i = 0; i < Blocks; ++i)
            foldBlock(samples + reversedBits(i) * BlockSize, low[i], high[i]);
        joinLanes(low, lower);
        joinLanes(high, higher);
        std::memcpy(least, &low[0], sizeof(Register));
        std::memcpy(greatest, &high[0], sizeof(Register));
    }

private:
    // Neither an alias nor an argument of a template keeps the attribute.
    typedef T Register __attribute__((vector_size(16)));
    static_assert(BlockSize % Blocks == 0);

    static Register lower(Register a, Register b) { return a < b ? a : b; }
    static Register higher(Register a, Register b) { return a > b ? a : b; }

    static Register load(const T* values)
    {
        Register loaded;
        std::memcpy(&loaded, values, sizeof(loaded));
        return loaded;
    }

    static void foldBlock(const T* samples, Register& low, Register& high)
    {
        low = load(samples);
        high = low;
        for (std::size_t i = Blocks; i < BlockSize; i += Blocks) {
            const Register next = load(samples + i);
            low = lower(low, next);
            high = higher(high, next);
        }
    }

    /// Joins the lanes of each register and leaves the results in the lanes of the first one. A step halves
    /// the lanes that belong to a register by taking two registers together; the last holds all registers in
    /// the order of reversed bits.
    template <class Join>
    static void joinLanes(Register (&registers)[Blocks], Join join)
    {
        for (std::size_t left = Blocks / 2; left > 0; left /= 2) {
            for (std::size_t i = 0; i < left; ++i) {
                const Register a = registers[2 * i];
                const Register b = registers[2 * i + 1];
                registers[i] = join(zip<0>(a, b), zip<Blocks / 2>(a, b));
            }
        }
    }

    /// A half of the lanes of `a` and of `b` in turn, from lane `First` on.
    template <std::size_t First>
    static Register zip(Register a, Register b)
    {
        return zipLanes<First>(a, b, std::make_index_sequence<Blocks>());
    }
    template <std::size_t First, std::size_t... Lane>
    static Register zipLanes(Register a, Register b, std::index_sequence<Lane...>)
    {
        return __builtin_shufflevector(a, b, (First + Lane / 2 + (Lane % 2) * Blocks)...);
    }

    static constexpr std::size_t reversedBits(std::size_t value)
    {
        std::size_t reversed = 0;
        for (std::size_t bit = 1; bit < Blocks; bit *= 2)
            reversed = 2 * reversed + (value & bit ? 1 : 0);
        return reversed;
    }
};
