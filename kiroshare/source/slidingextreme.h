#pragma once

#include <cstdint>
#include <deque>
#include <functional>

/// Largest (std::less) or smallest (std::greater) value of windows over a row of values, of which neither end
/// moves back from one window to the next. All windows together cost one visit of each value.
///
/// The answer is that of one pass over the window that begins with its first value and takes each value that
/// is beyond the one taken last: of equal values the first, a NaN only if it is the first of the window.
template <class Beyond>
class SlidingExtreme
{
public:
    /// Of the values from `first` to `last`, both included; `value(i)` gives value i, always the same one.
    template <class Value>
    double of(std::int64_t first, std::int64_t last, Value value)
    {
        while (!m_candidates.empty() && m_candidates.front().place < first)
            m_candidates.pop_front();
        for (std::int64_t i = m_next < first ? first : m_next; i <= last; ++i)
            add({i, value(i)});
        m_next = last + 1;
        const double start = value(first);
        return start != start ? start : m_candidates.front().value;
    }

private:
    struct Candidate
    {
        std::int64_t place;
        double value;
    };

    void add(const Candidate& candidate)
    {
        if (candidate.value != candidate.value)
            return;
        while (!m_candidates.empty() && Beyond()(m_candidates.back().value, candidate.value))
            m_candidates.pop_back();
        m_candidates.push_back(candidate);
    }

    std::deque<Candidate> m_candidates; // each beyond all that follow, or equal
    std::int64_t m_next = 0;
};

using SlidingMaximum = SlidingExtreme<std::less<>>;
using SlidingMinimum = SlidingExtreme<std::greater<>>;
