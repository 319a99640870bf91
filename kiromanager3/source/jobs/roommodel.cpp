#include "roommodel.h"

#include "demorandom.h"
#include "demostreams.h"
#include "movementshape.h"

namespace
{

std::int64_t samples(double milliseconds, int rateHz)
{
    return static_cast<std::int64_t>(milliseconds * rateHz / 1000.0);
}

std::vector<DemoLight> makeLights(DemoRandom& random, std::int64_t count)
{
    std::vector<DemoLight> lights;
    for (std::int64_t now = 0; now < count;) {
        DemoLight light;
        light.begin = now;
        light.lux = random.between(80.0, 600.0);
        now += random.whole(8 * LightRateHz, 20 * LightRateHz);
        light.end = now < count ? now : count;
        lights.push_back(light);
    }
    return lights;
}

std::vector<DemoVoice> makeVoices(DemoRandom& random, std::int64_t count)
{
    std::vector<DemoVoice> voices;
    std::int64_t now = random.whole(SoundRateHz, 2 * SoundRateHz);
    while (true) {
        for (std::int64_t syllables = random.whole(1, 5); syllables > 0; --syllables) {
            DemoVoice voice;
            voice.begin = now;
            voice.end = now + random.whole(SoundRateHz / 8, SoundRateHz / 4);
            voice.beginHz = random.between(100.0, 160.0);
            voice.endHz = random.between(100.0, 200.0);
            voice.loudness = random.between(0.4, 1.0);
            if (voice.end > count)
                return voices;
            voices.push_back(voice);
            now = voice.end + random.whole(SoundRateHz / 50, SoundRateHz / 12);
        }
        now += random.whole(3 * SoundRateHz, 6 * SoundRateHz);
    }
}

/// The voice `sample` samples after it has begun, -1 to 1.
double voiceAt(const DemoVoice& voice, std::int64_t sample)
{
    const auto length = static_cast<double>(voice.end - voice.begin);
    const double seconds = static_cast<double>(sample) / SoundRateHz;
    const double share = static_cast<double>(sample) / length;
    const double turns = seconds * (voice.beginHz + 0.5 * share * (voice.endHz - voice.beginHz));
    const double tone =
        0.6 * sineOfTurns(turns) + 0.25 * sineOfTurns(2.0 * turns) + 0.15 * sineOfTurns(3.0 * turns);
    return voice.loudness * hump(2.0 * share - 1.0) * tone;
}

} // namespace

RoomPlan RoomPlan::make(std::uint32_t seed, double durationMs)
{
    DemoRandom random(seed, DemoStream::Room);
    RoomPlan plan;
    plan.lights = makeLights(random, samples(durationMs, LightRateHz));
    plan.voices = makeVoices(random, samples(durationMs, SoundRateHz));
    return plan;
}

double RoomTrace::nextLight()
{
    const std::int64_t now = m_lightSample++;
    while (m_light + 1 < m_plan.lights.size() && now >= m_plan.lights[m_light].end)
        ++m_light;
    return m_plan.lights.empty() ? 0.0 : m_plan.lights[m_light].lux;
}

double RoomTrace::nextSound()
{
    const std::int64_t now = m_soundSample++;
    while (m_voice < m_plan.voices.size() && now >= m_plan.voices[m_voice].end)
        ++m_voice;
    if (m_voice == m_plan.voices.size() || now < m_plan.voices[m_voice].begin)
        return 0.0;
    return voiceAt(m_plan.voices[m_voice], now - m_plan.voices[m_voice].begin);
}
