#include "movementshape.h"

#include <algorithm>
#include <cmath>

namespace
{

/// Time within the minimum jerk movement at the share `t` of the skewed one.
double skewedTime(double t, double skew)
{
    return t + skew * t * (1.0 - t);
}

} // namespace

double minimumJerk(double t)
{
    const double x = std::clamp(t, 0.0, 1.0);
    return x * x * x * (10.0 + x * (6.0 * x - 15.0));
}

double minimumJerkSpeed(double t)
{
    const double x = std::clamp(t, 0.0, 1.0);
    return 30.0 * x * x * (1.0 - x) * (1.0 - x);
}

double skewedMovement(double t, double skew)
{
    return minimumJerk(skewedTime(std::clamp(t, 0.0, 1.0), skew));
}

double skewedPeakSpeed(double skew)
{
    constexpr int Steps = 1000;
    double peak = 0.0;
    for (int i = 0; i <= Steps; ++i) {
        const double t = static_cast<double>(i) / Steps;
        peak = std::max(peak, minimumJerkSpeed(skewedTime(t, skew)) * (1.0 + skew - 2.0 * skew * t));
    }
    return peak;
}

double sineOfTurns(double turns)
{
    constexpr double TwoPi = 6.283185307179586;
    double t = turns - std::floor(turns);
    const double sign = t > 0.5 ? -1.0 : 1.0;
    t = t > 0.5 ? t - 0.5 : t;
    const double x = TwoPi * std::min(t, 0.5 - t);
    // The power series to the 13th order; x is at most a quarter turn.
    constexpr double Divisors[] = {156.0, 110.0, 72.0, 42.0, 20.0, 6.0};
    double series = 1.0;
    for (const double divisor : Divisors)
        series = 1.0 - series * x * x / divisor;
    return sign * x * series;
}

double hump(double x)
{
    const double inside = std::max(1.0 - x * x, 0.0);
    return inside * inside;
}
