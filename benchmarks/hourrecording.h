#pragma once

#include "kirostring.h"

/// The recording that reading is measured with: 16 signals of 16 bits at 1000 Hz, 60 minutes in frames of 4
/// ms.
namespace HourRecording
{

constexpr int Signals = 16;
constexpr int SamplesPerFrame = 4;
constexpr int Frames = 60 * 60 * 250;
constexpr int SamplesOfSignal = Frames * SamplesPerFrame;

} // namespace HourRecording

/// Its path; it is made on first use and removed at the end.
const KiroString& hourRecording();
/// The same of eight hours.
const KiroString& eightHourRecording();
