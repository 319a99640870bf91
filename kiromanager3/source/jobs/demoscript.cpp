#include "demoscript.h"

#include "demorandom.h"
#include "demostreams.h"

#include <limits>
#include <string>

namespace
{

KiroSignal descriptor(const DemoSignal& signal)
{
    KiroSignal result;
    result.fullName = signal.fullName;
    result.shortName = signal.shortName;
    result.ratePeriod = signal.ratePeriod;
    result.samplesPerPeriod = signal.samplesPerPeriod;
    result.valueType = signal.type;
    result.samplesPerFrame = signal.samplesPerPeriod * DemoFrameMs / signal.ratePeriod;
    result.sampleSize = signal.size;
    result.calibrated = signal.unit != nullptr;
    if (result.calibrated) {
        result.calibrationFactor = signal.factor;
        result.calibrationOffset = signal.offset;
        result.calibrationUnit = signal.unit;
    }
    return result;
}

} // namespace

DemoScript DemoScript::make(std::uint32_t seed, std::int64_t frameCount)
{
    const std::int64_t durationMs = frameCount * DemoFrameMs;
    DemoScript script;
    script.seed = seed;
    script.frameCount = frameCount;
    script.counterStart = static_cast<std::uint16_t>(
        DemoRandom(seed, DemoStream::Counter).whole(0, std::numeric_limits<std::uint16_t>::max()));
    script.eyes = EyeMovementPlan::make(seed, durationMs * EyeRateHz / 1000);
    script.head = HeadMovementPlan::make(seed, durationMs * HeadRateHz / 1000);
    script.heart = HeartPlan::make(seed, static_cast<double>(durationMs));
    script.room = RoomPlan::make(seed, static_cast<double>(durationMs));
    return script;
}

const std::vector<DemoSignal>& demoSignals()
{
    constexpr auto Signed = KiroValue::SignedInt;
    constexpr auto Unsigned = KiroValue::UnsignedInt;
    constexpr auto Float = KiroValue::Float;
    static const std::vector<DemoSignal> table = {
        {"right_horizontal", "right eye - horizontal", "R_eyex", Signed, 2, 1000, 1000, "deg", 40.0, 35.0},
        {"right_vertical", "right eye - vertical", "R_eyey", Signed, 2, 1000, 1000, "deg", 40.0, -60.0},
        {"left_horizontal", "left eye - horizontal", "L_eyex", Signed, 2, 1000, 1000, "deg", 40.0, -20.0},
        {"left_vertical", "left eye - vertical", "L_eyey", Signed, 2, 1000, 1000, "deg", 40.0, 50.0},
        {"gyro_x", "head velocity - X", "gyrx", Unsigned, 2, 1000, 250, "deg/s", 5.456, 2048.0},
        {"gyro_y", "head velocity - Y", "gyry", Unsigned, 2, 1000, 250, "deg/s", 5.456, 2048.0},
        {"gyro_z", "head velocity - Z", "gyrz", Unsigned, 2, 1000, 250, "deg/s", 5.456, 2048.0},
        {"acc_x", "head acceleration - X", "accx", Unsigned, 2, 1000, 250, nullptr, 993.0, 2048.0},
        {"acc_y", "head acceleration - Y", "accy", Unsigned, 2, 1000, 250, nullptr, 993.0, 2048.0},
        {"acc_z", "head acceleration - Z", "accz", Unsigned, 2, 1000, 250, nullptr, 993.0, 2048.0},
        {"pulse", "pulsoxymeter infrared", "ppg_ir", Unsigned, 4, 1000, 250, nullptr, 1.0, 0.0},
        {"pulse_red", "pulsoxymeter red", "ppg_red", Unsigned, 4, 1000, 250, nullptr, 1.0, 0.0},
        {"light", "ambient light", "lit", Float, 4, 20, 1, "lx", 1.0, 0.0},
        {"battery", "battery voltage", "volt", Unsigned, 1, 20, 1, "V", 50.0, 0.0},
        {"sound", "microphone", "mic", Signed, 2, 1000, 8000, nullptr, 1.0, 0.0},
        {"counter", "packet counter", "pckt", Unsigned, 2, 20, 1, nullptr, 1.0, 0.0},
    };
    return table;
}

KiroHeader demoHeader(const DemoScript& script)
{
    const std::string seed = std::to_string(script.seed);
    KiroHeader header;
    header.setStoringProgram("KiroManager demo");
    header.setNotes(("Made by a program, not recorded: seed " + seed).c_str());
    header.setTechnicalParameters(
        ("Device\tnone\nSeed\t" + seed + "\nFrame length [ms]\t" + std::to_string(DemoFrameMs) + "\n")
            .c_str());
    header.setDay(1);
    header.setMonth(3);
    header.setYear(2024);
    header.setHour(9);
    header.setMinute(0);
    header.setSecond(0);
    header.setMillisecond(0);
    header.setFrameCount(static_cast<std::uint32_t>(script.frameCount));
    const std::vector<DemoSignal>& table = demoSignals();
    header.setSignalCount(static_cast<int>(table.size()));
    for (std::size_t i = 0; i < table.size(); ++i)
        header.setSignal(static_cast<int>(i), descriptor(table[i]));
    return header;
}
