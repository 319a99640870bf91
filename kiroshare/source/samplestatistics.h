#pragma once

#include <cstddef>

/// Statistics of a range of numbers: mean, sample variance and extremes.
///
/// The range is given by forward iterators, so it may be an array, a deque or a list; results are the same
/// for the same numbers in the same order. Each number is taken as a double. Sums start at 0.0 and run from
/// the first number upward. Extremes are found in one pass that starts with the first number; a NaN at the
/// start stays the extreme, a later one is passed over. A NaN makes mean and variance NaN. An empty range
/// gives 0.0 throughout.

/// What one pass over a range finds.
struct RangeTotals
{
    std::size_t count = 0;
    double sum = 0.0;
    double minimum = 0.0;
    double maximum = 0.0;
};

template <class Iterator>
RangeTotals rangeTotals(Iterator first, Iterator last)
{
    RangeTotals totals;
    if (first == last)
        return totals;
    totals.minimum = static_cast<double>(*first);
    totals.maximum = totals.minimum;
    for (; first != last; ++first) {
        const double x = static_cast<double>(*first);
        ++totals.count;
        totals.sum += x;
        if (totals.minimum > x)
            totals.minimum = x;
        else if (x > totals.maximum)
            totals.maximum = x;
    }
    return totals;
}

/// Mean of a range by its totals. With `dropExtremes` set and at least 3 numbers, one occurrence of the
/// minimum and then one of the maximum are taken off the sum.
inline double rangeMean(const RangeTotals& totals, bool dropExtremes)
{
    if (totals.count == 0)
        return 0.0;
    if (!dropExtremes || totals.count < 3)
        return totals.sum / static_cast<double>(totals.count);
    return (totals.sum - totals.minimum - totals.maximum) / static_cast<double>(totals.count - 2);
}

template <class Iterator>
double rangeMean(Iterator first, Iterator last, bool dropExtremes)
{
    return rangeMean(rangeTotals(first, last), dropExtremes);
}

/// Sample variance of a range by its totals: the squared deviations from rangeMean() with the same switch,
/// divided by their count less one. With `dropExtremes` set and at least 4 numbers, those of one minimum and
/// of one maximum are taken off again. Never below 0, which rounding could otherwise cause. A single number
/// gives 0.0.
template <class Iterator>
double rangeVariance(const RangeTotals& totals, Iterator first, Iterator last, bool dropExtremes)
{
    if (totals.count < 2)
        return 0.0;
    const double mean = rangeMean(totals, dropExtremes);
    double sum = 0.0;
    for (; first != last; ++first) {
        const double deviation = static_cast<double>(*first) - mean;
        sum += deviation * deviation;
    }
    std::size_t count = totals.count;
    if (dropExtremes && count >= 4) {
        const double low = totals.minimum - mean;
        const double high = totals.maximum - mean;
        sum = sum - low * low - high * high;
        if (sum < 0.0)
            sum = 0.0;
        count -= 2;
    }
    return sum / static_cast<double>(count - 1);
}

template <class Iterator>
double rangeVariance(Iterator first, Iterator last, bool dropExtremes)
{
    return rangeVariance(rangeTotals(first, last), first, last, dropExtremes);
}

template <class Iterator>
double rangeMin(Iterator first, Iterator last)
{
    return rangeTotals(first, last).minimum;
}

template <class Iterator>
double rangeMax(Iterator first, Iterator last)
{
    return rangeTotals(first, last).maximum;
}
