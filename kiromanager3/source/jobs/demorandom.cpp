#include "demorandom.h"

DemoRandom::DemoRandom(std::uint32_t seed, std::uint32_t stream)
    : m_generator(std::uint64_t(stream) << 32 | seed)
{
}

double DemoRandom::uniform()
{
    constexpr int UnusedBits = 11; // of 64, so that the rest is a double's 53
    constexpr double Unit = 1.0 / 9007199254740992.0;
    return static_cast<double>(m_generator() >> UnusedBits) * Unit;
}

double DemoRandom::between(double low, double high)
{
    return low + (high - low) * uniform();
}

std::int64_t DemoRandom::whole(std::int64_t low, std::int64_t high)
{
    return low + static_cast<std::int64_t>(uniform() * static_cast<double>(high - low + 1));
}

bool DemoRandom::chance(double probability)
{
    return uniform() < probability;
}

double DemoRandom::bell()
{
    constexpr std::uint64_t Mask = 0xffff;
    constexpr double Mean = 4 * 65535 / 2.0;
    constexpr double Deviation = 37837.2273; // of the sum: sqrt(4 * (65536^2 - 1) / 12)
    const std::uint64_t bits = m_generator();
    const std::uint64_t sum = (bits & Mask) + (bits >> 16 & Mask) + (bits >> 32 & Mask) + (bits >> 48);
    return (static_cast<double>(sum) - Mean) / Deviation;
}
