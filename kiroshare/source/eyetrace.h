#pragma once

#include "kirosaccade.h"

#include <cmath>
#include <cstddef>
#include <vector>

/// The positions of one eye with the speeds that saccades are found by, in the two forms of the detection.
/// What differs between the forms stands here and in mergeCloseSaccades().
///
/// Positions are in degrees and belong to the caller, who keeps them as long as the trace. Derivatives are
/// per sample; they are 0 where the trace is too short for them. The speed is computed for the whole trace,
/// what only counts around a candidate when it is asked for.

/// One position: signed amplitudes, direction and acceleration.
class OneSignalTrace
{
public:
    static constexpr bool LimitIsTooSoon = true; ///< whether saccades exactly the gap apart are merged

    explicit OneSignalTrace(const std::vector<double>& position);

    std::size_t count() const { return m_speed.size(); }
    /// From now on mayReach() tells what is surely below `speed`.
    void setLeastSpeed(double speed) { m_leastSpeed = speed; }
    bool mayReach(std::size_t i) const { return m_speed[i] >= m_leastSpeed; }
    double speed11(std::size_t i) const { return m_speed[i]; }
    /// Whether the velocity over 15 samples is above 0.
    bool isForward(std::size_t i) const { return velocity15(i) > 0.0; }
    /// Absolute velocity over 15 samples.
    double speed15(std::size_t i) const;
    /// Change of the speed at a sample, and the acceleration of a saccade from the largest of its changes.
    double speedChange(std::size_t i) const;
    static double accelerationOf(double largestChange) { return largestChange; }
    /// Sets amplitudes and positions of a saccade between two samples.
    void measureAmplitude(std::size_t first, std::size_t last, KiroSaccadeEye& eye) const;

private:
    double velocity15(std::size_t i) const;

    const std::vector<double>& m_position;
    std::vector<double> m_speed;
    double m_leastSpeed = 0.0;
};

/// Horizontal and vertical position of the same length: Euclidean measures.
class TwoSignalTrace
{
public:
    static constexpr bool LimitIsTooSoon = false;

    TwoSignalTrace(const std::vector<double>& horizontal, const std::vector<double>& vertical);

    std::size_t count() const { return m_horizontalSpeed.size(); }
    void setLeastSpeed(double speed);
    bool mayReach(std::size_t i) const { return squaredSpeed(i) >= m_leastSquare; }
    double speed11(std::size_t i) const;
    /// Whether the length of the velocity over 15 samples is above 0: a direction is not known.
    bool isForward(std::size_t i) const { return squaredSpeed15(i) > 0.0; }
    double speed15(std::size_t i) const;
    /// Squared length of the changes of both speeds.
    double speedChange(std::size_t i) const;
    static double accelerationOf(double largestChange) { return std::sqrt(largestChange); }
    void measureAmplitude(std::size_t first, std::size_t last, KiroSaccadeEye& eye) const;

private:
    double squaredSpeed(std::size_t i) const
    {
        return m_horizontalSpeed[i] * m_horizontalSpeed[i] + m_verticalSpeed[i] * m_verticalSpeed[i];
    }
    double squaredSpeed15(std::size_t i) const;

    const std::vector<double>& m_horizontal;
    const std::vector<double>& m_vertical;
    std::vector<double> m_horizontalSpeed;
    std::vector<double> m_verticalSpeed;
    double m_leastSquare = 0.0;
};
