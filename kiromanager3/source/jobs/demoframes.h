#pragma once

#include "demorandom.h"
#include "demoscript.h"

#include <array>
#include <cstdint>
#include <string>

/// The frames of a demo recording, one after the other: what the script says, with noise, drift and the steps
/// of the converters. The script must outlive it.
class DemoFrames
{
public:
    explicit DemoFrames(const DemoScript& script);

    /// The bytes of the first frame in the first call, then of one frame further in each; valid until the
    /// next call.
    const std::string& next();

private:
    void appendEyes();
    void appendHead();
    void appendPulse();
    void appendRoom();
    template <class Number>
    void append(Number number);
    /// `value` in raw units, rounded and held within the range of the type and of the converter.
    template <class Number>
    void appendRaw(double raw, double lowest, double highest);

    const DemoScript& m_script;
    std::array<EyeMovementTrace, 2> m_eyes;
    HeadMovementTrace m_head;
    PulseTrace m_pulse;
    RoomTrace m_room;
    DemoRandom m_eyeNoise;
    DemoRandom m_headNoise;
    DemoRandom m_pulseNoise;
    DemoRandom m_roomNoise;
    std::int64_t m_frame = 0;
    std::string m_bytes;
};
