#pragma once

#include "kirostring.h"
#include "kirovalue.h"

#include <cstdint>

/// Descriptor of one signal of a recording. A value; copying it copies the texts.
struct KiroSignal
{
    int index = 0;                      ///< place in the legacy table; not stored in files
    KiroString fullName;                ///< "Eye movement - horizontal"
    KiroString shortName;               ///< "eyex"
    std::uint32_t ratePeriod = 1000;    ///< milliseconds over which the next field counts
    std::uint32_t samplesPerPeriod = 0; ///< samples in one rate period
    KiroValue::Type valueType = KiroValue::Object;
    std::uint32_t samplesPerFrame = 0; ///< samples of this signal in every frame
    std::uint32_t sampleSize = 0;      ///< bytes of one sample
    bool calibrated = false;           ///< whether the calibration below holds
    double calibrationFactor = 1.0;    ///< raw units for one physical unit
    double calibrationOffset = 0.0;    ///< raw value of physical zero
    KiroString calibrationUnit;

    /// Samples per second; not finite if the rate period is 0.
    double frequency() const;
    /// Bytes of this signal in one frame.
    std::uint64_t runSize() const { return std::uint64_t(samplesPerFrame) * sampleSize; }
    /// Physical value of a raw sample: (raw - offset) / factor.
    double calibratedValue(double raw) const { return (raw - calibrationOffset) / calibrationFactor; }
};
