#include "samplefilters.h"

#include "runningmedian.h"
#include "savitzkygolay.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace
{

using Samples = std::vector<double>;

/// Gives each output the `formula` of a pointer to its input, `margin` samples off the ends, and copies the
/// outermost of these over the margins. There are more than 2 * `margin` samples.
template <class Formula>
void filter(const Samples& input, Samples& output, std::size_t margin, Formula formula)
{
    const std::size_t n = input.size();
    output.resize(n);
    const double* const x = input.data();
    double* const y = output.data();
    for (std::size_t i = margin; i < n - margin; ++i)
        y[i] = formula(x + i);
    std::fill(y, y + margin, y[margin]);
    std::fill(y + n - margin, y + n, y[n - margin - 1]);
}

/// As filter(); the sign goes before the sum is divided. False, and no change, below the least count.
template <class Slope>
bool filterSlope(const Samples& input, Samples& output, bool absolute)
{
    if (input.size() < Slope::LeastCount)
        return false;
    if (absolute)
        filter(input, output, Slope::Half,
               [](const double* x) { return std::fabs(Slope::sum(x)) / Slope::Divisor; });
    else
        filter(input, output, Slope::Half, [](const double* x) { return Slope::sum(x) / Slope::Divisor; });
    return true;
}

} // namespace

bool smoothSavitzkyGolay11(const Samples& input, Samples& output)
{
    if (input.size() < 11)
        return false;
    filter(input, output, 5, [](const double* x) {
        return (-36.0 * x[-5] + 9.0 * x[-4] + 44.0 * x[-3] + 69.0 * x[-2] + 84.0 * x[-1] + 89.0 * x[0] +
                84.0 * x[1] + 69.0 * x[2] + 44.0 * x[3] + 9.0 * x[4] - 36.0 * x[5]) /
               429.0;
    });
    return true;
}

bool velocitySavitzkyGolay11(const Samples& input, Samples& output, bool absolute)
{
    return filterSlope<SavitzkyGolay::Slope11>(input, output, absolute);
}

bool velocitySavitzkyGolay15(const Samples& input, Samples& output, bool absolute)
{
    return filterSlope<SavitzkyGolay::Slope15>(input, output, absolute);
}

bool movingAverage(const Samples& input, Samples& output, std::int32_t w)
{
    const std::size_t n = input.size();
    if (w < 1 || n < static_cast<std::size_t>(w))
        return false;
    output = input;
    const auto h = static_cast<std::size_t>(w / 2);
    if (n < 2 * h + 1)
        return true;
    double sum = 0.0;
    for (std::size_t i = 0; i <= 2 * h; ++i)
        sum += input[i];
    const double divisor = w;
    output[h] = sum / divisor;
    // The running form, drift included, is the definition: no block of it can be computed on its own.
    for (std::size_t i = h + 1; i < n - h; ++i)
        output[i] = output[i - 1] + (input[i + h] - input[i - h - 1]) / divisor;
    return true;
}

bool runningMedian(const Samples& input, Samples& output, std::int32_t w)
{
    const std::size_t n = input.size();
    if (w < 1 || n < static_cast<std::size_t>(w))
        return false;
    output = input;
    const std::size_t window = static_cast<std::size_t>(w) | 1U;
    if (n >= window)
        slideMedian(input.data(), n, window, output.data() + window / 2);
    return true;
}
