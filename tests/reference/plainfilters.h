#pragma once

#include <cmath>
#include <cstdint>
#include <iterator>
#include <list>
#include <vector>

/// The plain forms of the filters on sample arrays, one formula and one step at a time. Results of the
/// shipped routines are the same to the last bit.
namespace plain
{

using Samples = std::vector<double>;

/// Copies the outputs next to the ends outward.
inline void fillEnds(Samples& output, std::size_t count)
{
    const std::size_t n = output.size();
    for (std::size_t i = 0; i < count; ++i) {
        output[i] = output[count];
        output[n - 1 - i] = output[n - 1 - count];
    }
}

inline bool smoothSavitzkyGolay11(const Samples& x, Samples& y)
{
    const std::size_t n = x.size();
    if (n < 11)
        return false;
    y.resize(n);
    for (std::size_t i = 5; i <= n - 6; ++i) {
        y[i] = (-36 * x[i - 5] + 9 * x[i - 4] + 44 * x[i - 3] + 69 * x[i - 2] + 84 * x[i - 1] + 89 * x[i] +
                84 * x[i + 1] + 69 * x[i + 2] + 44 * x[i + 3] + 9 * x[i + 4] - 36 * x[i + 5]) /
               429;
    }
    fillEnds(y, 5);
    return true;
}

inline bool velocitySavitzkyGolay11(const Samples& x, Samples& d, bool absolute)
{
    const std::size_t n = x.size();
    if (n < 11)
        return false;
    d.resize(n);
    for (std::size_t i = 5; i <= n - 6; ++i) {
        double sum = 300 * x[i - 5] - 294 * x[i - 4] - 532 * x[i - 3] - 503 * x[i - 2] - 296 * x[i - 1] +
                     296 * x[i + 1] + 503 * x[i + 2] + 532 * x[i + 3] + 294 * x[i + 4] - 300 * x[i + 5];
        if (absolute)
            sum = std::fabs(sum);
        d[i] = sum / 5148;
    }
    fillEnds(d, 5);
    return true;
}

inline bool velocitySavitzkyGolay15(const Samples& x, Samples& d, bool absolute)
{
    const std::size_t n = x.size();
    if (n < 21)
        return false;
    d.resize(n);
    for (std::size_t i = 7; i <= n - 8; ++i) {
        double sum = 7 * (x[i + 7] - x[i - 7]) + 6 * (x[i + 6] - x[i - 6]) + 5 * (x[i + 5] - x[i - 5]) +
                     4 * (x[i + 4] - x[i - 4]) + 3 * (x[i + 3] - x[i - 3]) + 2 * (x[i + 2] - x[i - 2]) +
                     (x[i + 1] - x[i - 1]);
        if (absolute)
            sum = std::fabs(sum);
        d[i] = sum / 280;
    }
    fillEnds(d, 7);
    return true;
}

inline bool movingAverage(const Samples& x, Samples& y, std::int32_t w)
{
    const auto n = static_cast<std::int64_t>(x.size());
    if (w < 1 || n < w)
        return false;
    const std::int64_t h = w / 2;
    y.resize(x.size());
    const auto in = [&x](std::int64_t i) { return x[static_cast<std::size_t>(i)]; };
    const auto out = [&y](std::int64_t i) -> double& { return y[static_cast<std::size_t>(i)]; };
    for (std::int64_t i = 0; i < h; ++i) {
        out(i) = in(i);
        out(n - 1 - i) = in(n - 1 - i);
    }
    if (h > n - h - 1)
        return true;
    double sum = 0.0;
    for (std::int64_t i = 0; i <= 2 * h; ++i)
        sum += in(i);
    out(h) = sum / w;
    for (std::int64_t i = h + 1; i <= n - h - 1; ++i)
        out(i) = out(i - 1) + (in(i + h) - in(i - h - 1)) / w;
    return true;
}

/// The window is a list of values with their sample index, kept in ascending order by insertion.
inline bool runningMedian(const Samples& x, Samples& y, std::int32_t w)
{
    const auto n = static_cast<std::int64_t>(x.size());
    if (w < 1 || n < w)
        return false;
    struct Node
    {
        double value;
        std::int64_t index;
    };
    y = x;
    const std::int64_t window = w % 2 == 0 ? std::int64_t{w} + 1 : w;
    const std::int64_t h = window / 2;
    std::list<Node> list;
    std::int64_t oldest = 0;
    for (std::int64_t i = 0; i < n; ++i) {
        const double value = x[static_cast<std::size_t>(i)];
        auto place = list.begin();
        while (place != list.end() && !(place->value > value))
            ++place;
        list.insert(place, {value, i});
        if (static_cast<std::int64_t>(list.size()) > window) {
            auto node = list.begin();
            while (node->index != oldest)
                ++node;
            list.erase(node);
            ++oldest;
        }
        if (static_cast<std::int64_t>(list.size()) >= window)
            y[static_cast<std::size_t>(i - h)] = std::next(list.begin(), h)->value;
    }
    return true;
}

} // namespace plain
