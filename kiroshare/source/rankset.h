#pragma once

#include <QtAlgorithms>

#include <cstddef>
#include <cstdint>
#include <vector>

/// A set of whole numbers below a limit that finds the neighbour of a number.
///
/// A bit of the first level stands for a number, a bit of each further level for a word of the level below
/// that is not empty. So a neighbour is a few steps away however large the gap.
class RankSet
{
public:
    /// An empty set for numbers below `limit`, at most 2^32.
    explicit RankSet(std::size_t limit)
    {
        std::size_t words = limit;
        do {
            words = (words + WordBits - 1) / WordBits;
            m_levels.emplace_back(words);
        } while (words > 1);
    }

    void clear()
    {
        for (std::vector<quint64>& level : m_levels)
            level.assign(level.size(), 0);
    }

    void insert(std::uint32_t number)
    {
        for (std::vector<quint64>& level : m_levels) {
            quint64& word = level[number / WordBits];
            const bool wasEmpty = word == 0;
            word |= quint64{1} << number % WordBits;
            if (!wasEmpty)
                return;
            number /= WordBits;
        }
    }

    /// Takes out a member.
    void erase(std::uint32_t number)
    {
        for (std::vector<quint64>& level : m_levels) {
            quint64& word = level[number / WordBits];
            word &= ~(quint64{1} << number % WordBits);
            if (word != 0)
                return;
            number /= WordBits;
        }
    }

    /// The least member above `number`; there must be one.
    std::uint32_t after(std::uint32_t number) const
    {
        std::size_t level = 0;
        quint64 found = 0;
        while ((found = m_levels[level][number / WordBits] & above(number % WordBits)) == 0) {
            number /= WordBits;
            ++level;
        }
        number = number / WordBits * WordBits + qCountTrailingZeroBits(found);
        while (level > 0)
            number = number * WordBits + qCountTrailingZeroBits(m_levels[--level][number]);
        return number;
    }

    /// The greatest member below `number`; there must be one.
    std::uint32_t before(std::uint32_t number) const
    {
        std::size_t level = 0;
        quint64 found = 0;
        while ((found = m_levels[level][number / WordBits] & below(number % WordBits)) == 0) {
            number /= WordBits;
            ++level;
        }
        number = number / WordBits * WordBits + highest(found);
        while (level > 0)
            number = number * WordBits + highest(m_levels[--level][number]);
        return number;
    }

    /// The member that `position` others are below; there must be more members than that.
    std::uint32_t at(std::size_t position) const
    {
        std::size_t word = 0;
        std::size_t count = 0;
        while ((count = qPopulationCount(m_levels[0][word])) <= position) {
            position -= count;
            ++word;
        }
        quint64 bits = m_levels[0][word];
        for (; position > 0; --position)
            bits &= bits - 1;
        return static_cast<std::uint32_t>(word * WordBits + qCountTrailingZeroBits(bits));
    }

private:
    static constexpr std::uint32_t WordBits = 64;

    static quint64 above(std::uint32_t bit) { return ~quint64{0} << 1 << bit; }
    static quint64 below(std::uint32_t bit) { return (quint64{1} << bit) - 1; }
    static std::uint32_t highest(quint64 word) { return WordBits - 1 - qCountLeadingZeroBits(word); }

    std::vector<std::vector<quint64>> m_levels;
};
