#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

/// The nearest integer, with halves rounded upward for both signs: 2.5 gives 3 and -2.5 gives -2.
///
/// The half is added in double arithmetic, so the largest double below 0.5 gives 1. Beyond the range of 32
/// bits the result is the nearest limit, and NaN gives 0.
inline std::int32_t roundHalfUp(double v)
{
    using Limits = std::numeric_limits<std::int32_t>;
    if (std::isnan(v))
        return 0;
    if (v >= Limits::max())
        return Limits::max();
    if (v <= Limits::min())
        return Limits::min();
    if (v >= 0.0) {
        const double raised = v + 0.5;
        return static_cast<std::int32_t>(raised);
    }
    const auto below = static_cast<std::int64_t>(v - 1.0);
    const double raised = v - static_cast<double>(below) + 0.5;
    return static_cast<std::int32_t>(below + static_cast<std::int64_t>(raised));
}
