#include "demotruth.h"

#include "demoscript.h"
#include "safefile.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace
{

QString key(const char* name)
{
    return QString::fromLatin1(name);
}

QByteArray compact(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

/// Four decimals are finer than any converter's step.
double rounded(double number)
{
    constexpr double Scale = 10000.0;
    return std::floor(number * Scale + 0.5) / Scale;
}

QJsonValue sampleMs(std::int64_t sample, int rateHz)
{
    return rounded(static_cast<double>(sample) * 1000.0 / rateHz);
}

QJsonValue integer(std::int64_t number)
{
    return QJsonValue(static_cast<qint64>(number));
}

QJsonObject eyeObject(const DemoEyeSaccade& eye)
{
    return {{key("start"), integer(eye.start)},
            {key("end"), integer(eye.end)},
            {key("duration_ms"), rounded(eye.durationMs)},
            {key("amplitude"), rounded(eye.amplitude)},
            {key("horizontal"), rounded(eye.horizontal)},
            {key("vertical"), rounded(eye.vertical)},
            {key("peak_velocity"), rounded(eye.peakVelocity)}};
}

/// The right eye's measures stand for the saccade, as in a detection with both eyes.
QJsonObject eventObject(const DemoSaccade& saccade)
{
    QJsonObject object = eyeObject(saccade.right);
    object.insert(key("kind"), key(saccade.corrective ? "corrective" : "primary"));
    object.insert(key("right"), eyeObject(saccade.right));
    object.insert(key("left"), eyeObject(saccade.left));
    return object;
}

QJsonObject eventObject(const DemoBlink& blink)
{
    return {{key("start"), integer(blink.start)},
            {key("end"), integer(blink.end)},
            {key("lowest"), integer(blink.lowest)},
            {key("amplitude"), rounded(blink.rightDepth)},
            {key("amplitude_left"), rounded(blink.leftDepth)},
            {key("closing_ms"), rounded(blink.closingMs)},
            {key("opening_ms"), rounded(blink.openingMs)},
            {key("on"), key("vertical")}};
}

QJsonObject eventObject(const DemoPursuit& pursuit)
{
    return {{key("start"), integer(pursuit.start)},
            {key("end"), integer(pursuit.end)},
            {key("horizontal"), rounded(pursuit.angle)},
            {key("velocity"), rounded(pursuit.velocity)}};
}

QJsonObject eventObject(const DemoHeadRotation& rotation)
{
    constexpr const char* Axes[] = {"roll", "pitch", "yaw"};
    constexpr const char* Gyroscopes[] = {"gyro_x", "gyro_y", "gyro_z"};
    const auto axis = static_cast<std::size_t>(rotation.axis);
    return {{key("axis"), key(Axes[axis])},
            {key("signal"), key(Gyroscopes[axis])},
            {key("begin"), integer(rotation.begin)},
            {key("end"), integer(rotation.end)},
            {key("begin_ms"), sampleMs(rotation.begin, HeadRateHz)},
            {key("end_ms"), sampleMs(rotation.end, HeadRateHz)},
            {key("angle"), rounded(rotation.angle)},
            {key("peak_velocity"), rounded(rotation.peakVelocity)}};
}

/// A beat, by the time of its peak.
QJsonObject eventObject(double beatMs)
{
    const double sample = std::floor(beatMs * PulseRateHz / 1000.0 + 0.5);
    return {{key("sample"), integer(static_cast<std::int64_t>(sample))}, {key("ms"), rounded(beatMs)}};
}

QJsonObject eventObject(const DemoLight& light)
{
    return {{key("begin_ms"), sampleMs(light.begin, LightRateHz)},
            {key("end_ms"), sampleMs(light.end, LightRateHz)},
            {key("level"), rounded(light.lux)}};
}

QJsonObject eventObject(const DemoVoice& voice)
{
    return {{key("begin"), integer(voice.begin)},
            {key("end"), integer(voice.end - 1)},
            {key("begin_ms"), sampleMs(voice.begin, SoundRateHz)},
            {key("end_ms"), sampleMs(voice.end, SoundRateHz)},
            {key("f0_begin"), rounded(voice.beginHz)},
            {key("f0_end"), rounded(voice.endHz)}};
}

QJsonObject signalObject(int index, const DemoSignal& row, const KiroHeader& header)
{
    const KiroSignal stored = header.signal(static_cast<unsigned>(index));
    return {{key("index"), index},
            {key("key"), key(row.key)},
            {key("name"), key(row.fullName)},
            {key("short"), key(row.shortName)},
            {key("rate_period"), integer(row.ratePeriod)},
            {key("samples_per_period"), integer(row.samplesPerPeriod)},
            {key("type"), row.type},
            {key("size"), integer(row.size)},
            {key("samples_per_frame"), integer(stored.samplesPerFrame)},
            {key("calibrated"), stored.calibrated},
            {key("factor"), stored.calibrationFactor},
            {key("offset"), stored.calibrationOffset},
            {key("unit"), stored.calibrationUnit.toQString()},
            {key("true_factor"), row.factor},
            {key("true_offset"), row.offset},
            {key("rate_hz"), header.signalFrequency(index)},
            {key("samples"), integer(static_cast<std::int64_t>(header.signalSampleCount(index)))}};
}

/// The object's text, member by member.
class TruthText
{
public:
    explicit TruthText(SafeFile& file)
        : m_file(file)
    {
    }

    void member(const char* name, const QJsonValue& value)
    {
        const QByteArray object = compact({{key(name), value}});
        write((m_first ? "{\n  " : ",\n  ") + object.mid(1, object.size() - 2));
        m_first = false;
    }
    template <class Event>
    void events(const char* name, const std::vector<Event>& list)
    {
        write(QByteArray(",\n  \"") + name + "\":[");
        bool first = true;
        for (const Event& event : list) {
            write((first ? "\n    " : ",\n    ") + compact(eventObject(event)));
            first = false;
        }
        write("]");
    }
    void signalTable(const KiroHeader& header)
    {
        write(",\n  \"signals\":[");
        for (int i = 0; i < header.signalCount(); ++i)
            write((i == 0 ? "\n    " : ",\n    ") +
                  compact(signalObject(i, demoSignals()[static_cast<std::size_t>(i)], header)));
        write("]");
    }
    bool finish()
    {
        write("\n}\n");
        return m_whole;
    }

private:
    void write(const QByteArray& text) { m_whole = m_file.write(text.constData(), text.size()) && m_whole; }

    SafeFile& m_file;
    bool m_first = true;
    bool m_whole = true;
};

} // namespace

bool writeDemoTruth(const DemoScript& script, const QString& recording, SafeFile& file)
{
    constexpr int CounterSize = 65536;
    const KiroHeader header = demoHeader(script);
    const double durationMs = static_cast<double>(script.frameCount * DemoFrameMs);
    TruthText text(file);
    text.member("file", recording);
    text.member("seed", integer(script.seed));
    text.member("minutes", durationMs / 60000.0);
    text.member("frames", integer(script.frameCount));
    text.member("frame_ms", DemoFrameMs);
    text.member("frame_size", integer(header.frameSize()));
    text.signalTable(header);
    text.member("eye", QJsonObject{{key("rate_hz"), EyeRateHz},
                                   {key("samples"), integer(script.frameCount * DemoFrameMs)}});
    text.events("saccades", script.eyes.saccades);
    text.events("blinks", script.eyes.blinks);
    text.events("pursuits", script.eyes.pursuits);
    text.events("head_rotations", script.head.rotations);
    text.member("heart_rate",
                QJsonObject{{key("mean"), rounded(script.heart.meanRate())}, {key("unit"), key("/min")}});
    text.events("beats", script.heart.beatsMs);
    text.events("light", script.room.lights);
    text.events("audio", script.room.voices);
    text.member("counter", QJsonObject{{key("maximum"), CounterSize}, {key("first"), script.counterStart}});
    return text.finish();
}
