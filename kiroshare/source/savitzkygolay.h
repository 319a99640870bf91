#pragma once

#include <cstddef>

/// The weighted sums of the Savitzky-Golay filters around one sample, undivided. `x` points to the centre; as
/// many samples as `Half` says stand on either side. Terms are summed from left to right.
namespace SavitzkyGolay
{

/// First derivative over 11 samples.
struct Slope11
{
    static constexpr std::size_t Half = 5;
    static constexpr std::size_t LeastCount = 11; ///< samples below which an array is refused
    static constexpr double Divisor = 5148.0;
    static double sum(const double* x)
    {
        return 300.0 * x[-5] - 294.0 * x[-4] - 532.0 * x[-3] - 503.0 * x[-2] - 296.0 * x[-1] + 296.0 * x[1] +
               503.0 * x[2] + 532.0 * x[3] + 294.0 * x[4] - 300.0 * x[5];
    }
};

/// First derivative over 15 samples.
struct Slope15
{
    static constexpr std::size_t Half = 7;
    /// Fifteen samples would do for the sum; callers count on arrays below 21 being refused.
    static constexpr std::size_t LeastCount = 21;
    static constexpr double Divisor = 280.0;
    static double sum(const double* x)
    {
        return 7.0 * (x[7] - x[-7]) + 6.0 * (x[6] - x[-6]) + 5.0 * (x[5] - x[-5]) + 4.0 * (x[4] - x[-4]) +
               3.0 * (x[3] - x[-3]) + 2.0 * (x[2] - x[-2]) + (x[1] - x[-1]);
    }
};

/// One value of a filter's output, signed, for `count` samples at `x`: at the ends that of the nearest sample
/// with a whole window, and 0 if there are too few samples.
template <class Slope>
double slopeAt(const double* x, std::size_t count, std::size_t i)
{
    if (count < Slope::LeastCount)
        return 0.0;
    if (i < Slope::Half)
        i = Slope::Half;
    else if (i > count - 1 - Slope::Half)
        i = count - 1 - Slope::Half;
    return Slope::sum(x + i) / Slope::Divisor;
}

} // namespace SavitzkyGolay
