#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// The eye movements of the demo recording: what the two eyes do when, and where they look at each sample.
// Samples are milliseconds (EyeRateHz). Angles are degrees, to the right and upward positive.

constexpr int EyeRateHz = 1000;

/// One eye's part of a saccade.
struct DemoEyeSaccade
{
    std::int64_t start = 0;  ///< first sample of the movement, still at rest
    std::int64_t end = 0;    ///< first sample at which it is over
    double durationMs = 0.0; ///< end is start + durationMs, rounded up
    double horizontal = 0.0; ///< amplitudes
    double vertical = 0.0;
    double amplitude = 0.0;    ///< of the vector
    double peakVelocity = 0.0; ///< of the vector, degrees per second
    double skew = 0.0;         ///< see skewedMovement()
};

struct DemoSaccade
{
    DemoEyeSaccade right;
    DemoEyeSaccade left;
    bool corrective = false; ///< follows a saccade that fell short
};

/// A stroke of both eyes downward and back up, with a little of it towards the nose.
struct DemoBlink
{
    std::int64_t start = 0;
    std::int64_t end = 0;    ///< first sample at which the eye is back
    std::int64_t lowest = 0; ///< first sample at the lowest point
    double closingMs = 0.0;
    double closedMs = 0.0;
    double openingMs = 0.0;
    double rightDepth = 0.0;
    double leftDepth = 0.0;
};

/// Both eyes follow a target smoothly along the horizontal.
struct DemoPursuit
{
    std::int64_t start = 0;
    std::int64_t end = 0;
    double angle = 0.0;
    double velocity = 0.0; ///< degrees per second, signed
};

/// All eye movements of a recording, each kind in the order of time. Movements do not overlap.
///
/// The duration of a saccade of A degrees is 2.2 A + 21 ms (Carpenter, Movements of the Eyes, 1988), with a
/// scatter of 4 %. With the shape of the movement that gives the main sequence of Bahill, Clark and Stark,
/// Math. Biosci. 24, 191 (1975): peak velocities that rise with the amplitude and saturate.
struct EyeMovementPlan
{
    std::vector<DemoSaccade> saccades;
    std::vector<DemoBlink> blinks;
    std::vector<DemoPursuit> pursuits;
    double startHorizontal = 0.0; ///< where the eyes look at first
    double startVertical = 0.0;

    /// Movements that end within `sampleCount` samples.
    static EyeMovementPlan make(std::uint32_t seed, std::int64_t sampleCount);
};

struct EyePosition
{
    double horizontal = 0.0;
    double vertical = 0.0;
};

/// One eye's positions at successive samples, without noise. The plan must outlive it.
class EyeMovementTrace
{
public:
    enum class Eye { Right, Left };

    EyeMovementTrace(const EyeMovementPlan& plan, Eye eye);

    /// At sample 0 in the first call, then one sample further in each.
    EyePosition next();

private:
    void addSaccade(EyePosition& position);
    void addPursuit(EyePosition& position);
    void addBlink(EyePosition& position);
    EyePosition drift() const;
    const DemoEyeSaccade& part(const DemoSaccade& saccade) const;

    const EyeMovementPlan& m_plan;
    Eye m_eye;
    std::int64_t m_sample = 0;
    EyePosition m_rest;        // after all saccades and pursuits that are over
    std::size_t m_saccade = 0; // the next of each kind that is not over
    std::size_t m_pursuit = 0;
    std::size_t m_blink = 0;
};
