#pragma once

#include <cstdint>

/// The streams of random numbers of a demo recording. Each has its own, so that a change in one signal leaves
/// the others as they are.
namespace DemoStream
{

enum : std::uint32_t {
    EyePlan = 1,
    EyeNoise,
    HeadPlan,
    HeadNoise,
    Heart,
    HeartNoise,
    Room,
    RoomNoise,
    Counter
};

} // namespace DemoStream
