#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// What the demo recording sees and hears of the room: lamps that are switched, and a voice.

constexpr int LightRateHz = 50;
constexpr int SoundRateHz = 8000;

/// A stretch of even light.
struct DemoLight
{
    std::int64_t begin = 0; ///< sample of the light signal
    std::int64_t end = 0;   ///< first sample behind it
    double lux = 0.0;
};

/// One spoken syllable: a tone with overtones whose pitch glides.
struct DemoVoice
{
    std::int64_t begin = 0; ///< sample of the sound signal
    std::int64_t end = 0;   ///< first sample behind it
    double beginHz = 0.0;
    double endHz = 0.0;
    double loudness = 0.0; ///< 0 to 1
};

/// Both in the order of time; the lights follow on each other, the voices do not overlap.
struct RoomPlan
{
    std::vector<DemoLight> lights;
    std::vector<DemoVoice> voices;

    static RoomPlan make(std::uint32_t seed, double durationMs);
};

/// Light and sound at successive samples of each, without noise. The plan must outlive it.
class RoomTrace
{
public:
    explicit RoomTrace(const RoomPlan& plan)
        : m_plan(plan)
    {
    }

    /// Lux at sample 0 in the first call, then one sample further in each.
    double nextLight();
    /// -1 to 1, in the same way.
    double nextSound();

private:
    const RoomPlan& m_plan;
    std::int64_t m_lightSample = 0;
    std::int64_t m_soundSample = 0;
    std::size_t m_light = 0;
    std::size_t m_voice = 0;
};
