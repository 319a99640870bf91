#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// One block of a saccade of version 17 and up, with numbers that tell the fields apart.
struct SaccBlockFields
{
    std::int32_t integers[5] = {100, 119, 20, 80, 0};
    double reals[11] = {4.5, 310.25, 225.5, 9000.75, 0.0625, 3.25, -1.5, 1.75, 2.5, 0.5, 3.0};

    std::string bytes() const;
};

/// The saccade of a version below 17. `peakVelocity` and the three positions are cut to integers where the
/// version stores integers.
struct OldSaccadeFields
{
    std::int32_t integers[5] = {100, 119, 20, 80, 0};
    double positions[3] = {400.0, -100.0, 300.0}; ///< amplitudeHorz, startHorz, endHorz
    double peakVelocity = 3000.0;
    double meanVelocity = 2000.0;
    double peakAcceleration = 500.0;
    double velocityPerDuration = 0.25;

    std::string bytes(std::uint32_t version) const;
};

/// Builds the bytes of a saccade file of any version by hand from the table of fields, so that tests do not
/// lean on the layout that they test. At first a sound file without records.
struct SaccFields
{
    std::uint32_t version = 19;
    std::uint32_t mark = 0xa0c27d9f;
    std::uint32_t sizeCheck = 0; ///< that of the version if 0
    std::string dataFile = "/data/rec.kiro";
    std::string relativeDataFile = "../rec.kiro";
    std::string comment = "a comment";
    std::uint8_t blinksHorizontal = 1;
    std::uint32_t saccadeCount = 0;
    std::uint32_t blinkCount = 0;
    std::uint32_t ratePeriod = 2000;
    std::uint32_t samplesPerPeriod = 501;
    double frequency = 250.0; ///< of versions below 10
    std::uint32_t detectionType = 3;
    std::int32_t indices[4] = {4, 5, 6, -1}; ///< left, then right; horizontal, then vertical
    double factors[4] = {10.5, 11.5, 12.5, 13.5};
    double offsets[4] = {-1.25, -2.25, -3.25, -4.25};
    std::int32_t oldIndex = 3;
    std::uint8_t raw = 0;
    double oldFactor = 8.0;
    std::uint32_t base = 5;
    std::uint32_t counts[4] = {7, 50, 20, 300}; ///< local, gap, minTime, maxTime
    double initVel = 35.5;
    double minSpeed = 100.0; ///< a whole number where the version stores integers
    double minSlope = 15000.5;
    std::uint32_t durationMs = 600123;
    std::string records; ///< bytes of saccades, then blinks

    /// The number that the version has as its size check.
    static std::uint32_t sizeCheckOf(std::uint32_t version);
    std::string bytes() const;
};

/// A blink of version 18 and up.
std::string blinkBytes();
