#include "heartmodel.h"

#include "demorandom.h"
#include "demostreams.h"
#include "movementshape.h"

namespace
{

constexpr double BreathHz = 0.25;
constexpr double PressureHz = 0.1;
constexpr double RiseMs = 170.0;     ///< before the peak
constexpr double FallMs = 420.0;     ///< behind it
constexpr double SecondMs = 330.0;   ///< where the second, lower wave has its peak
constexpr double SecondHalf = 170.0; ///< its half width

/// Height of the wave of one beat, `time` ms behind its peak.
double waveOfBeat(double time)
{
    return hump(time / (time < 0.0 ? RiseMs : FallMs)) + 0.2 * hump((time - SecondMs) / SecondHalf);
}

} // namespace

HeartPlan HeartPlan::make(std::uint32_t seed, double durationMs)
{
    constexpr double MsPerMinute = 60000.0;
    DemoRandom random(seed, DemoStream::Heart);
    const double restingRate = random.between(62.0, 74.0);
    HeartPlan plan;
    for (double beat = random.between(200.0, 800.0); beat < durationMs;) {
        plan.beatsMs.push_back(beat);
        const double rate = restingRate + 3.0 * sineOfTurns(BreathHz * beat / 1000.0) +
                            2.0 * sineOfTurns(PressureHz * beat / 1000.0) + 0.7 * random.bell();
        beat += MsPerMinute / rate;
    }
    return plan;
}

double HeartPlan::meanRate() const
{
    if (beatsMs.size() < 2)
        return 0.0;
    return 60000.0 * static_cast<double>(beatsMs.size() - 1) / (beatsMs.back() - beatsMs.front());
}

PulseSample PulseTrace::next()
{
    const double now = static_cast<double>(m_sample++) * 1000.0 / PulseRateHz;
    const std::vector<double>& beats = m_plan.beatsMs;
    while (m_firstBeat < beats.size() && now - beats[m_firstBeat] > SecondMs + SecondHalf)
        ++m_firstBeat;
    PulseSample sample;
    sample.breath = sineOfTurns(BreathHz * now / 1000.0);
    for (std::size_t i = m_firstBeat; i < beats.size() && beats[i] - now < RiseMs; ++i)
        sample.wave += waveOfBeat(now - beats[i]);
    return sample;
}
