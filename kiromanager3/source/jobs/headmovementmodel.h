#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

// The head movements of the demo recording. Samples are those of the gyroscopes and accelerometers
// (HeadRateHz).

constexpr int HeadRateHz = 250;

/// Roll about X, pitch about Y and yaw about Z.
enum class HeadAxis { X = 0, Y, Z };
constexpr std::size_t HeadAxisCount = 3;

/// A turn about one axis from rest to rest, with the shape of minimumJerk().
struct DemoHeadRotation
{
    HeadAxis axis = HeadAxis::Z;
    std::int64_t begin = 0;
    std::int64_t end = 0; ///< first sample at which it is over
    double fromAngle = 0.0;
    double angle = 0.0;        ///< degrees, signed
    double peakVelocity = 0.0; ///< degrees per second
};

/// Turns in the order of time, which do not overlap.
struct HeadMovementPlan
{
    std::vector<DemoHeadRotation> rotations;
    std::array<double, HeadAxisCount> startAngles = {}; ///< degrees

    /// Turns that end within `sampleCount` samples.
    static HeadMovementPlan make(std::uint32_t seed, std::int64_t sampleCount);
};

struct HeadSample
{
    std::array<double, HeadAxisCount> velocity = {};     ///< degrees per second
    std::array<double, HeadAxisCount> acceleration = {}; ///< g; gravity alone
};

/// Velocities and the pull of gravity at successive samples, without noise. The plan must outlive it.
class HeadMovementTrace
{
public:
    explicit HeadMovementTrace(const HeadMovementPlan& plan);

    /// At sample 0 in the first call, then one sample further in each.
    HeadSample next();

private:
    const HeadMovementPlan& m_plan;
    std::array<double, HeadAxisCount> m_angles;
    std::int64_t m_sample = 0;
    std::size_t m_rotation = 0; // the next that is not over
};
