#pragma once

#include "detectionparams.h"

#include <QString>

#include <array>
#include <cstdint>
#include <variant>

/// One field of a detection record, as profiles and settings lines know it.
template <class Record>
struct DetectionField
{
    const char* key; ///< in a profile
    std::variant<std::int32_t Record::*, double Record::*> member;
};

/// The fields in the order in which they are written. That of the blinks is not the order of the record.
inline constexpr std::array<DetectionField<SaccadeDetectionParams>, 9> SaccadeFields = {{
    {"local:", &SaccadeDetectionParams::local},
    {"gap:", &SaccadeDetectionParams::gap},
    {"min_time:", &SaccadeDetectionParams::minTime},
    {"max_time:", &SaccadeDetectionParams::maxTime},
    {"init_vel:", &SaccadeDetectionParams::initVel},
    {"min_speed:", &SaccadeDetectionParams::minSpeed},
    {"min_slope:", &SaccadeDetectionParams::minSlope},
    {"min_amp:", &SaccadeDetectionParams::minAmp},
    {"max_amp:", &SaccadeDetectionParams::maxAmp},
}};
inline constexpr std::array<DetectionField<BlinkDetectionParams>, 9> BlinkFields = {{
    {"peak_vel_1:", &BlinkDetectionParams::peakVel1},
    {"peak_vel_2:", &BlinkDetectionParams::peakVel2},
    {"max_peaks_distance:", &BlinkDetectionParams::maxPeaksDistance},
    {"min_vel:", &BlinkDetectionParams::minVel},
    {"min_amplitude:", &BlinkDetectionParams::minAmplitude},
    {"min_amplitude_relation:", &BlinkDetectionParams::minAmplitudeRelation},
    {"max_amplitude_relation:", &BlinkDetectionParams::maxAmplitudeRelation},
    {"min_duration:", &BlinkDetectionParams::minDuration},
    {"max_duration:", &BlinkDetectionParams::maxDuration},
}};

/// Greatest amplitude, in degrees, of records from before there was one.
constexpr double NoMaxAmp = 500.0;

/// Reads a finite decimal number, or a whole one of 32 bits, with blanks around it or none, whatever the
/// locale. Otherwise `value` becomes 0 and false is returned.
bool parseDetectionValue(const QString& text, double& value);
bool parseDetectionValue(const QString& text, std::int32_t& value);

/// Sets a field; a text that is no number gives 0.
template <class Record>
void readField(Record& record, const DetectionField<Record>& field, const QString& text)
{
    std::visit([&](auto member) { parseDetectionValue(text, record.*member); }, field.member);
}

/// How doubles are written, with the letters of QString::number().
struct DoubleForm
{
    char format;
    int precision;

    QString text(double value) const { return QString::number(value, format, precision); }
    QString text(std::int32_t value) const { return QString::number(value); }
};

/// A field as text, whole numbers in decimal.
template <class Record>
QString fieldText(const Record& record, const DetectionField<Record>& field, const DoubleForm& form)
{
    return std::visit([&](auto member) { return form.text(record.*member); }, field.member);
}
