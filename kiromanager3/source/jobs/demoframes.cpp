#include "demoframes.h"

#include "demostreams.h"
#include "movementshape.h"

#include <QtEndian>

#include <algorithm>
#include <cmath>

namespace
{

constexpr int samplesPerFrame(int rateHz)
{
    return rateHz * DemoFrameMs / 1000;
}

constexpr std::size_t EyeSamples = samplesPerFrame(EyeRateHz);
constexpr std::size_t HeadSamples = samplesPerFrame(HeadRateHz);
constexpr std::size_t PulseSamples = samplesPerFrame(PulseRateHz);
constexpr int SoundSamples = samplesPerFrame(SoundRateHz);

constexpr double TwelveBits = 4095.0;
constexpr double TwentyFourBits = 16777215.0;
constexpr double EyeNoise = 0.025; ///< degrees, one step of the converter

/// Slow wander of a gyroscope's zero, in raw units.
double gyroZero(std::size_t axis, double seconds)
{
    constexpr double Zeros[] = {2044.0, 2051.0, 2046.0};
    const double place = static_cast<double>(axis);
    return Zeros[axis] + 2.5 * sineOfTurns(seconds / (95.0 + 20.0 * place) + 0.3 * place);
}

} // namespace

DemoFrames::DemoFrames(const DemoScript& script)
    : m_script(script)
    , m_eyes{EyeMovementTrace(script.eyes, EyeMovementTrace::Eye::Right),
             EyeMovementTrace(script.eyes, EyeMovementTrace::Eye::Left)}
    , m_head(script.head)
    , m_pulse(script.heart)
    , m_room(script.room)
    , m_eyeNoise(script.seed, DemoStream::EyeNoise)
    , m_headNoise(script.seed, DemoStream::HeadNoise)
    , m_pulseNoise(script.seed, DemoStream::HeartNoise)
    , m_roomNoise(script.seed, DemoStream::RoomNoise)
{
}

template <class Number>
void DemoFrames::append(Number number)
{
    char bytes[sizeof(Number)];
    qToBigEndian(number, bytes);
    m_bytes.append(bytes, sizeof(bytes));
}

template <class Number>
void DemoFrames::appendRaw(double raw, double lowest, double highest)
{
    append(static_cast<Number>(std::clamp(std::floor(raw + 0.5), lowest, highest)));
}

const std::string& DemoFrames::next()
{
    m_bytes.clear();
    appendEyes();
    appendHead();
    appendPulse();
    appendRoom();
    append(static_cast<std::uint16_t>(m_script.counterStart + m_frame));
    ++m_frame;
    return m_bytes;
}

void DemoFrames::appendEyes()
{
    std::size_t signal = 0; // the first four of the table, horizontal before vertical
    const auto appendRun = [&](const std::array<EyePosition, EyeSamples>& positions,
                               double EyePosition::*axis) {
        const DemoSignal& row = demoSignals()[signal++];
        for (const EyePosition& position : positions) {
            const double degrees = position.*axis + EyeNoise * m_eyeNoise.bell();
            appendRaw<std::int16_t>(degrees * row.factor + row.offset, -2048.0, 2047.0);
        }
    };
    for (EyeMovementTrace& eye : m_eyes) {
        std::array<EyePosition, EyeSamples> positions;
        std::generate(positions.begin(), positions.end(), [&eye] { return eye.next(); });
        appendRun(positions, &EyePosition::horizontal);
        appendRun(positions, &EyePosition::vertical);
    }
}

void DemoFrames::appendHead()
{
    constexpr double GyroNoise = 1.2; // raw units
    constexpr double AccelerometerNoise = 2.0;
    constexpr double GyroFactor = 5.456;
    constexpr double AccelerometerFactor = 993.0;
    constexpr double AccelerometerZero = 2048.0;
    std::array<HeadSample, HeadSamples> samples;
    std::generate(samples.begin(), samples.end(), [this] { return m_head.next(); });
    const double seconds = static_cast<double>(m_frame) * DemoFrameMs / 1000.0;
    for (std::size_t axis = 0; axis < HeadAxisCount; ++axis) {
        for (const HeadSample& sample : samples)
            appendRaw<std::uint16_t>(gyroZero(axis, seconds) + GyroFactor * sample.velocity[axis] +
                                         GyroNoise * m_headNoise.bell(),
                                     0.0, TwelveBits);
    }
    for (std::size_t axis = 0; axis < HeadAxisCount; ++axis) {
        for (const HeadSample& sample : samples)
            appendRaw<std::uint16_t>(AccelerometerZero + AccelerometerFactor * sample.acceleration[axis] +
                                         AccelerometerNoise * m_headNoise.bell(),
                                     0.0, TwelveBits);
    }
}

void DemoFrames::appendPulse()
{
    std::array<PulseSample, PulseSamples> samples;
    std::generate(samples.begin(), samples.end(), [this] { return m_pulse.next(); });
    const auto appendRun = [&](double base, double height, double breath, double noise) {
        for (const PulseSample& sample : samples)
            appendRaw<std::uint32_t>(base + height * sample.wave + breath * sample.breath +
                                         noise * m_pulseNoise.bell(),
                                     0.0, TwentyFourBits);
    };
    appendRun(182000.0, 3000.0, 400.0, 12.0);
    appendRun(131000.0, 1300.0, 160.0, 6.0);
}

void DemoFrames::appendRoom()
{
    constexpr double Loudest = 12000.0; // raw units
    const double lux = m_room.nextLight() * (1.0 + 0.004 * m_roomNoise.bell());
    append(static_cast<float>(lux));
    const double seconds = static_cast<double>(m_frame) * DemoFrameMs / 1000.0;
    const double volts = 4.15 - 0.00002 * seconds + 0.005 * m_roomNoise.bell();
    appendRaw<std::uint8_t>(50.0 * volts, 0.0, 255.0);
    for (int i = 0; i < SoundSamples; ++i)
        appendRaw<std::int16_t>(Loudest * m_room.nextSound() + 25.0 * m_roomNoise.bell(), -32768.0, 32767.0);
}
