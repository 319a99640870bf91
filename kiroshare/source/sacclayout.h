#pragma once

#include "kirosaccade.h"
#include "kirosaccheader.h"

#include <cstdint>

/// The layout of a saccade file: every field with its width and the versions that store it, in the file's
/// order. Written down here once, for reading, measuring and writing. See docs/formats/saccades.md.
namespace SaccLayout
{

constexpr std::uint32_t Magic = 0xa0c27d9f;
constexpr std::uint32_t FirstVersion = 1;
constexpr std::uint32_t Last = KiroSaccHeader::CurrentVersion;

/// What stands in the size check of versions 1 to 19. Fields were added without counting them, so that it is
/// the length of no header; readers compare it all the same.
constexpr std::uint32_t SizeChecks[] = {12382, 12382, 12390, 12394, 12425, 12425, 12433, 12433, 12429, 12429,
                                        12429, 12429, 12433, 12441, 12433, 12433, 12444, 12444, 12445};
static_assert(sizeof(SizeChecks) / sizeof(SizeChecks[0]) == Last);

constexpr std::uint32_t sizeCheck(std::uint32_t version)
{
    return SizeChecks[version - FirstVersion];
}

/// First and last versions of what is read differently, beyond which fields there are.
namespace Since
{
constexpr std::uint32_t ThreeBlocks = 17; ///< main, left and right; before it main alone
constexpr std::uint32_t Blinks = 18;
} // namespace Since
namespace Until
{
constexpr std::uint32_t FactorTurned = 6; ///< units by raw unit, not raw units by unit
constexpr std::uint32_t SpeedByBase = 6;  ///< speeds are multiplied by the base
constexpr std::uint32_t Frequency = 9;    ///< in place of rate period and samples per period
} // namespace Until

enum class Form {
    U8,
    U32,
    I32, ///< only of numbers that are doubles in memory
    F64,
    Bytes ///< a text, or what is passed over
};

/// Bytes of a number; a field of Form::Bytes has its own width.
constexpr std::uint32_t widthOf(Form form)
{
    switch (form) {
    case Form::U8:
        return 1;
    case Form::U32:
    case Form::I32:
        return 4;
    case Form::F64:
        return 8;
    case Form::Bytes:
        break;
    }
    return 0;
}

enum class Field {
    Mark,
    Version,
    SizeCheck,
    DataFile,
    RelativeDataFile,
    Comment,
    BlinksHorizontal,
    SaccadeCount,
    BlinkCount,
    RatePeriod,
    SamplesPerPeriod,
    Frequency,
    DetectionType,
    SignalIndex,
    SignalFactor,
    SignalOffset,
    Raw,
    Base,
    Local,
    Gap,
    MinTime,
    MaxTime,
    InitVel,
    MinSpeed,
    MinSlope,
    DurationMs,
    Ignored
};

struct Row
{
    Field field;
    Form form;
    std::uint32_t first;
    std::uint32_t last;
    std::uint32_t bytes = 0;                        ///< of Form::Bytes
    KiroSaccSignal KiroSaccHeader::*slot = nullptr; ///< of the fields of a signal

    constexpr std::uint32_t width() const { return bytes + widthOf(form); }
    constexpr bool isIn(std::uint32_t version) const { return first <= version && version <= last; }
};

constexpr auto LeftHorizontal = &KiroSaccHeader::leftHorizontal;
constexpr auto LeftVertical = &KiroSaccHeader::leftVertical;
constexpr auto RightHorizontal = &KiroSaccHeader::rightHorizontal;
constexpr auto RightVertical = &KiroSaccHeader::rightVertical;

/// What is read before anything else, to see whether the rest can be.
constexpr Row StartRows[] = {
    {Field::Mark, Form::U32, 1, Last},
    {Field::Version, Form::U32, 1, Last},
    {Field::SizeCheck, Form::U32, 1, Last},
};

/// The header behind it.
constexpr Row HeaderRows[] = {
    {Field::DataFile, Form::Bytes, 11, Last, 4096},
    {Field::RelativeDataFile, Form::Bytes, 1, Last, 4096},
    {Field::Comment, Form::Bytes, 1, Last, 8192},
    {Field::BlinksHorizontal, Form::U8, 19, Last},
    {Field::SaccadeCount, Form::U32, 1, Last},
    {Field::BlinkCount, Form::U32, Since::Blinks, Last},
    {Field::RatePeriod, Form::U32, Until::Frequency + 1, Last},
    {Field::SamplesPerPeriod, Form::U32, Until::Frequency + 1, Last},
    {Field::Frequency, Form::F64, 7, Until::Frequency},
    {Field::Frequency, Form::U32, 1, 6},
    {Field::DetectionType, Form::U32, 17, Last},
    {Field::SignalIndex, Form::U32, 17, Last, 0, LeftHorizontal},
    {Field::SignalIndex, Form::U32, 17, Last, 0, LeftVertical},
    {Field::SignalIndex, Form::U32, 1, Last, 0, RightHorizontal},
    {Field::SignalIndex, Form::U32, 17, Last, 0, RightVertical},
    {Field::Ignored, Form::U32, 1, 8},
    {Field::Raw, Form::U8, 1, 16},
    {Field::SignalFactor, Form::F64, 17, Last, 0, LeftHorizontal},
    {Field::SignalFactor, Form::F64, 17, Last, 0, LeftVertical},
    {Field::SignalFactor, Form::F64, 1, Last, 0, RightHorizontal},
    {Field::SignalFactor, Form::F64, 17, Last, 0, RightVertical},
    {Field::SignalOffset, Form::F64, 17, Last, 0, LeftHorizontal},
    {Field::SignalOffset, Form::F64, 17, Last, 0, LeftVertical},
    {Field::SignalOffset, Form::F64, 17, Last, 0, RightHorizontal},
    {Field::SignalOffset, Form::F64, 17, Last, 0, RightVertical},
    {Field::Ignored, Form::Bytes, 5, 16, 31}, // the unit
    {Field::Base, Form::U32, 1, 15},
    {Field::Local, Form::U32, 1, Last},
    {Field::Gap, Form::U32, 1, Last},
    {Field::MinTime, Form::U32, 1, Last},
    {Field::MaxTime, Form::U32, 1, Last},
    {Field::InitVel, Form::F64, 14, Last},
    {Field::MinSpeed, Form::F64, Until::SpeedByBase + 1, Last},
    {Field::MinSpeed, Form::U32, 1, Until::SpeedByBase},
    {Field::MinSlope, Form::F64, 1, Last},
    {Field::Ignored, Form::F64, 3, 14},
    {Field::Ignored, Form::U8, 1, 16},
    {Field::Ignored, Form::U32, 1, 16},
    {Field::Ignored, Form::U32, 1, 16},
    {Field::Ignored, Form::F64, 1, 16},
    {Field::Ignored, Form::F64, 1, 16},
    {Field::Ignored, Form::U32, 13, 16},
    {Field::DurationMs, Form::U32, 4, Last},
};

/// A number of a record, which is an integer or a double in memory; one that is neither is passed over.
template <class Record>
struct NumberRow
{
    constexpr NumberRow(std::int32_t Record::*member, std::uint32_t firstVersion, std::uint32_t lastVersion)
        : integer(member)
        , form(Form::U32)
        , first(firstVersion)
        , last(lastVersion)
    {
    }
    constexpr NumberRow(double Record::*member, Form storedForm, std::uint32_t firstVersion,
                        std::uint32_t lastVersion)
        : real(member)
        , form(storedForm)
        , first(firstVersion)
        , last(lastVersion)
    {
    }

    constexpr std::uint32_t width() const { return widthOf(form); }
    constexpr bool isIn(std::uint32_t version) const { return first <= version && version <= last; }

    std::int32_t Record::*integer = nullptr;
    double Record::*real = nullptr;
    Form form;
    std::uint32_t first;
    std::uint32_t last;
};

using Eye = KiroSaccadeEye;

/// One block of a saccade.
constexpr NumberRow<Eye> BlockRows[] = {
    {&Eye::start, 1, Last},
    {&Eye::end, 1, Last},
    {nullptr, Form::U32, 1, 11},
    {nullptr, Form::U32, 1, 11},
    {&Eye::duration, 1, Last},
    {&Eye::fixation, 1, Last},
    {&Eye::reserved, 1, Last},
    {&Eye::amplitudeHorz, Form::F64, 8, 16},
    {&Eye::startHorz, Form::F64, 8, 16},
    {&Eye::endHorz, Form::F64, 8, 16},
    {&Eye::amplitudeHorz, Form::I32, 1, 7},
    {&Eye::startHorz, Form::I32, 1, 7},
    {&Eye::endHorz, Form::I32, 1, 7},
    {&Eye::amplitude, Form::F64, Since::ThreeBlocks, Last},
    {&Eye::peakVelocity, Form::F64, Until::SpeedByBase + 1, Last},
    {&Eye::peakVelocity, Form::U32, 1, Until::SpeedByBase},
    {&Eye::meanVelocity, Form::F64, 1, Last},
    {&Eye::peakAcceleration, Form::F64, 1, Last},
    {&Eye::velocityPerDuration, Form::F64, 3, Last},
    {&Eye::amplitudeHorz, Form::F64, Since::ThreeBlocks, Last},
    {&Eye::startHorz, Form::F64, Since::ThreeBlocks, Last},
    {&Eye::endHorz, Form::F64, Since::ThreeBlocks, Last},
    {&Eye::amplitudeVert, Form::F64, Since::ThreeBlocks, Last},
    {&Eye::startVert, Form::F64, Since::ThreeBlocks, Last},
    {&Eye::endVert, Form::F64, Since::ThreeBlocks, Last},
};

/// One blink.
constexpr NumberRow<KiroBlink> BlinkRows[] = {
    {&KiroBlink::start, Since::Blinks, Last},
    {&KiroBlink::end, Since::Blinks, Last},
    {&KiroBlink::duration, Since::Blinks, Last},
    {&KiroBlink::peaksDistance, Since::Blinks, Last},
    {&KiroBlink::amp1, Form::F64, Since::Blinks, Last},
    {&KiroBlink::amp2, Form::F64, Since::Blinks, Last},
    {&KiroBlink::ampRelation, Form::F64, Since::Blinks, Last},
};

/// Bytes of the rows that a version has.
template <class Rows>
constexpr std::uint32_t sizeOf(const Rows& rows, std::uint32_t version)
{
    std::uint32_t size = 0;
    for (const auto& row : rows)
        size += row.isIn(version) ? row.width() : 0;
    return size;
}

constexpr std::uint32_t StartSize = sizeOf(StartRows, Last);

constexpr std::uint32_t headerSize(std::uint32_t version)
{
    return StartSize + sizeOf(HeaderRows, version);
}

constexpr std::uint32_t saccadeSize(std::uint32_t version)
{
    return sizeOf(BlockRows, version) * (version < Since::ThreeBlocks ? 1 : 3);
}

constexpr std::uint32_t blinkSize(std::uint32_t version)
{
    return sizeOf(BlinkRows, version);
}

static_assert(headerSize(Last) == 16541 && saccadeSize(Last) == 324 && blinkSize(Last) == 40);

} // namespace SaccLayout
