#include "headmovementmodel.h"

#include "demorandom.h"
#include "demostreams.h"
#include "movementshape.h"

#include <cmath>

namespace
{

constexpr double LeastAngle = 10.0;
/// Either side of straight ahead, by axis.
constexpr std::array<double, HeadAxisCount> AngleLimits = {15.0, 20.0, 45.0};

std::size_t indexOf(HeadAxis axis)
{
    return static_cast<std::size_t>(axis);
}

HeadAxis chooseAxis(DemoRandom& random)
{
    const double share = random.uniform();
    return share < 0.6 ? HeadAxis::Z : share < 0.85 ? HeadAxis::Y : HeadAxis::X;
}

/// The angle of the next turn from `present`, to a place within the limits.
double chooseAngle(DemoRandom& random, HeadAxis axis, double present)
{
    // To the side with more room, so that the least angle always fits.
    const double limit = AngleLimits[indexOf(axis)];
    const double room = limit + std::abs(present);
    return random.between(LeastAngle, room) * (present > 0.0 ? -1.0 : 1.0);
}

/// Earth's pull along X and Y of a rolled and pitched head, and what is left of it along Z.
std::array<double, HeadAxisCount> gravity(const std::array<double, HeadAxisCount>& angles)
{
    constexpr double FullTurn = 360.0;
    const double x = sineOfTurns(angles[indexOf(HeadAxis::X)] / FullTurn);
    const double y = sineOfTurns(angles[indexOf(HeadAxis::Y)] / FullTurn);
    return {x, y, std::sqrt(1.0 - x * x - y * y)};
}

} // namespace

HeadMovementPlan HeadMovementPlan::make(std::uint32_t seed, std::int64_t sampleCount)
{
    constexpr double DegreesPerSecond = 60.0; // on the mean of a turn
    DemoRandom random(seed, DemoStream::HeadPlan);
    HeadMovementPlan plan;
    plan.startAngles = {random.between(-4.0, 4.0), random.between(-4.0, 4.0), 0.0};
    std::array<double, HeadAxisCount> angles = plan.startAngles;
    for (std::int64_t now = random.whole(2 * HeadRateHz, 3 * HeadRateHz);;) {
        DemoHeadRotation rotation;
        rotation.axis = chooseAxis(random);
        double& present = angles[indexOf(rotation.axis)];
        rotation.begin = now;
        rotation.fromAngle = present;
        rotation.angle = chooseAngle(random, rotation.axis, present);
        const double seconds = 0.2 + std::abs(rotation.angle) / DegreesPerSecond * random.between(0.85, 1.15);
        rotation.end = now + static_cast<std::int64_t>(std::ceil(seconds * HeadRateHz));
        if (rotation.end >= sampleCount)
            return plan;
        rotation.peakVelocity = minimumJerkSpeed(0.5) * std::abs(rotation.angle) * HeadRateHz /
                                static_cast<double>(rotation.end - rotation.begin);
        present += rotation.angle;
        plan.rotations.push_back(rotation);
        now = rotation.end + random.whole(3 * HeadRateHz, 7 * HeadRateHz);
    }
}

HeadMovementTrace::HeadMovementTrace(const HeadMovementPlan& plan)
    : m_plan(plan)
    , m_angles(plan.startAngles)
{
}

HeadSample HeadMovementTrace::next()
{
    HeadSample sample;
    const std::int64_t now = m_sample++;
    if (m_rotation < m_plan.rotations.size() && now >= m_plan.rotations[m_rotation].begin) {
        const DemoHeadRotation& rotation = m_plan.rotations[m_rotation];
        const std::size_t axis = indexOf(rotation.axis);
        const auto length = static_cast<double>(rotation.end - rotation.begin);
        const double t = static_cast<double>(now - rotation.begin) / length;
        m_angles[axis] = rotation.fromAngle + rotation.angle * minimumJerk(t);
        sample.velocity[axis] = rotation.angle * minimumJerkSpeed(t) * HeadRateHz / length;
        if (now >= rotation.end)
            ++m_rotation;
    }
    sample.acceleration = gravity(m_angles);
    return sample;
}
