#pragma once

#include <cstdint>

/// The layout of a recording's header: every field with its width and first version, in the file's order.
/// Written down here once, for reading, writing, measuring and checking headers. See
/// docs/formats/recording.md.
namespace RecordingLayout
{

constexpr std::uint32_t Magic = 0xf9d72c0a;      ///< from version 3 on, big-endian
constexpr std::uint32_t LegacyMark = 0xfffffffe; ///< of the legacy form, little-endian
constexpr std::uint32_t LegacyVersion = 2;
/// Length of a length-prefixed text that stands for "empty, no body".
constexpr std::uint32_t NoText = 0xffffffff;

/// First versions of what was added to the format.
namespace Since
{
constexpr std::uint32_t Header = 3;
constexpr std::uint32_t Second = 4;
constexpr std::uint32_t Calibration = 4;
constexpr std::uint32_t RatePeriod = 5;
constexpr std::uint32_t FixedTexts = 6;
constexpr std::uint32_t CalibratedFlag = 7;
constexpr std::uint32_t FactorAsDivisor = 8;
constexpr std::uint32_t WideSignalNumbers = 9;
constexpr std::uint32_t CalibrationOffset = 10;
constexpr std::uint32_t Millisecond = 11;
constexpr std::uint32_t TechnicalParameters = 12;
} // namespace Since

enum class Field {
    Mark,
    Version,
    HeaderSize,
    StoringProgram,
    Notes,
    TechnicalParameters,
    Day,
    Month,
    Year,
    Hour,
    Minute,
    Second,
    Millisecond,
    SignalCount,
    FullName,
    ShortName,
    RatePeriod,
    SamplesPerPeriod,
    ValueType,
    SamplesPerFrame,
    SampleSize,
    CalibrationFactor,
    CalibrationUnit,
    Calibrated,
    CalibrationOffset,
    FrameCount
};

enum class Form {
    Number,
    Text,        ///< a fixed field from Since::FixedTexts on, before it a length and 16-bit units
    NarrowOrWide ///< one byte before Since::WideSignalNumbers
};

struct Row
{
    Field field;
    Form form;
    std::uint32_t width; ///< bytes; of a text those of its fixed field
    std::uint32_t since;
};

/// What comes before the signals.
constexpr Row HeaderRows[] = {
    {Field::Mark, Form::Number, 4, Since::Header},
    {Field::Version, Form::Number, 4, Since::Header},
    {Field::HeaderSize, Form::Number, 4, Since::Header},
    {Field::StoringProgram, Form::Text, 128, Since::Header},
    {Field::Notes, Form::Text, 1024, Since::Header},
    {Field::TechnicalParameters, Form::Text, 1024, Since::TechnicalParameters},
    {Field::Day, Form::Number, 1, Since::Header},
    {Field::Month, Form::Number, 1, Since::Header},
    {Field::Year, Form::Number, 2, Since::Header},
    {Field::Hour, Form::Number, 1, Since::Header},
    {Field::Minute, Form::Number, 1, Since::Header},
    {Field::Second, Form::Number, 1, Since::Second},
    {Field::Millisecond, Form::Number, 2, Since::Millisecond},
    {Field::SignalCount, Form::Number, 1, Since::Header},
};

/// Each signal.
constexpr Row SignalRows[] = {
    {Field::FullName, Form::Text, 128, Since::Header},
    {Field::ShortName, Form::Text, 32, Since::Header},
    {Field::RatePeriod, Form::Number, 4, Since::RatePeriod},
    {Field::SamplesPerPeriod, Form::Number, 4, Since::Header},
    {Field::ValueType, Form::NarrowOrWide, 4, Since::Header},
    {Field::SamplesPerFrame, Form::NarrowOrWide, 4, Since::Header},
    {Field::SampleSize, Form::NarrowOrWide, 4, Since::Header},
    {Field::CalibrationFactor, Form::Number, 8, Since::Calibration},
    {Field::CalibrationUnit, Form::Text, 64, Since::Calibration},
    {Field::Calibrated, Form::Number, 1, Since::CalibratedFlag},
    {Field::CalibrationOffset, Form::Number, 8, Since::CalibrationOffset},
};

/// What comes behind the signals.
constexpr Row EndRows[] = {{Field::FrameCount, Form::Number, 4, Since::Header}};

/// The whole header of the legacy form.
constexpr Row LegacyRows[] = {{Field::Mark, Form::Number, 4, LegacyVersion},
                              {Field::FrameCount, Form::Number, 4, LegacyVersion}};

} // namespace RecordingLayout
