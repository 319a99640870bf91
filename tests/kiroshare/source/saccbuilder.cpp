#include "saccbuilder.h"

#include "recordingbuilder.h"

namespace
{

std::uint64_t unsignedOf(double value)
{
    return static_cast<std::uint32_t>(static_cast<std::int64_t>(value));
}

/// What is stored and read by nobody.
void putIgnored(ByteBuilder& b, std::uint32_t version)
{
    if (version >= 3 && version <= 14)
        b.f64(-1e300);
    if (version <= 16)
        b.u8(0xee).u32(0xeeeeeeee).u32(0xeeeeeeee).f64(-1e300).f64(-1e300);
    if (version >= 13 && version <= 16)
        b.u32(0xeeeeeeee);
}

void putSignals(ByteBuilder& b, const SaccFields& fields)
{
    if (fields.version >= 17) {
        b.u32(fields.detectionType);
        for (const std::int32_t index : fields.indices)
            b.u32(static_cast<std::uint32_t>(index));
        for (const double factor : fields.factors)
            b.f64(factor);
        for (const double offset : fields.offsets)
            b.f64(offset);
        return;
    }
    b.u32(static_cast<std::uint32_t>(fields.oldIndex));
    if (fields.version <= 8)
        b.u32(0xeeeeeeee);
    b.u8(fields.raw).f64(fields.oldFactor);
    if (fields.version >= 5)
        b.raw(std::string(31, 'u'));
    if (fields.version <= 15)
        b.u32(fields.base);
}

void putRates(ByteBuilder& b, const SaccFields& fields)
{
    if (fields.version >= 10)
        b.u32(fields.ratePeriod).u32(fields.samplesPerPeriod);
    else if (fields.version >= 7)
        b.f64(fields.frequency);
    else
        b.u32(unsignedOf(fields.frequency));
}

void putParams(ByteBuilder& b, const SaccFields& fields)
{
    for (const std::uint32_t count : fields.counts)
        b.u32(count);
    if (fields.version >= 14)
        b.f64(fields.initVel);
    if (fields.version >= 7)
        b.f64(fields.minSpeed);
    else
        b.u32(unsignedOf(fields.minSpeed));
    b.f64(fields.minSlope);
}

} // namespace

std::string SaccBlockFields::bytes() const
{
    ByteBuilder b;
    for (const std::int32_t number : integers)
        b.u32(static_cast<std::uint32_t>(number));
    for (const double number : reals)
        b.f64(number);
    return b.bytes();
}

std::string OldSaccadeFields::bytes(std::uint32_t version) const
{
    ByteBuilder b;
    for (int i = 0; i < 5; ++i) {
        if (i == 2 && version <= 11)
            b.u32(0xeeeeeeee).u32(0xeeeeeeee);
        b.u32(static_cast<std::uint32_t>(integers[i]));
    }
    for (const double position : positions)
        version >= 8 ? b.f64(position) : b.u32(unsignedOf(position));
    version >= 7 ? b.f64(peakVelocity) : b.u32(unsignedOf(peakVelocity));
    b.f64(meanVelocity).f64(peakAcceleration);
    if (version >= 3)
        b.f64(velocityPerDuration);
    return b.bytes();
}

std::uint32_t SaccFields::sizeCheckOf(std::uint32_t version)
{
    if (version <= 2)
        return 12382;
    if (version == 3)
        return 12390;
    if (version == 4)
        return 12394;
    if (version <= 6)
        return 12425;
    if (version <= 8)
        return 12433;
    if (version <= 12)
        return 12429;
    if (version == 14)
        return 12441;
    if (version <= 16)
        return 12433;
    return version <= 18 ? 12444 : 12445;
}

std::string SaccFields::bytes() const
{
    ByteBuilder b;
    b.u32(mark).u32(version).u32(sizeCheck != 0 ? sizeCheck : sizeCheckOf(version));
    if (version >= 11)
        b.fixed(dataFile, 4096);
    b.fixed(relativeDataFile, 4096).fixed(comment, 8192);
    if (version >= 19)
        b.u8(blinksHorizontal);
    b.u32(saccadeCount);
    if (version >= 18)
        b.u32(blinkCount);
    putRates(b, *this);
    putSignals(b, *this);
    putParams(b, *this);
    putIgnored(b, version);
    if (version >= 4)
        b.u32(durationMs);
    return b.bytes() + records;
}

std::string blinkBytes()
{
    return ByteBuilder().u32(400).u32(599).u32(200).u32(90).f64(20.5).f64(16.5).f64(0.75).bytes();
}
