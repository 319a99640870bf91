#pragma once

#include "eyemovementmodel.h"
#include "headmovementmodel.h"
#include "heartmodel.h"
#include "kiroheader.h"
#include "roommodel.h"

#include <cstdint>
#include <vector>

/// Milliseconds of a frame of the demo recording.
constexpr int DemoFrameMs = 20;

/// All that happens in a demo recording, which is its truth. It is small beside the samples: some hundred
/// bytes for each movement.
struct DemoScript
{
    std::uint32_t seed = 0;
    std::int64_t frameCount = 0;
    std::uint16_t counterStart = 0; ///< packet counter of the first frame
    EyeMovementPlan eyes;
    HeadMovementPlan head;
    HeartPlan heart;
    RoomPlan room;

    static DemoScript make(std::uint32_t seed, std::int64_t frameCount);
};

/// A signal of the demo recording as its table of signals has it.
struct DemoSignal
{
    const char* key; ///< in the truth
    const char* fullName;
    const char* shortName;
    KiroValue::Type type;
    std::uint32_t size;       ///< bytes of a sample
    std::uint32_t ratePeriod; ///< milliseconds
    std::uint32_t samplesPerPeriod;
    const char* unit; ///< nullptr if the signal is not calibrated
    double factor;    ///< raw units for one unit, also of a signal that is not calibrated
    double offset;    ///< raw value of zero
};

/// The signals in the order of the file.
const std::vector<DemoSignal>& demoSignals();

/// The header of the recording; its date is fixed.
KiroHeader demoHeader(const DemoScript& script);
