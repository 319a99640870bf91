#include "kirosaccheader.h"

#include "kirofile.h"
#include "kiroutils.h"
#include "sacclayout.h"
#include "saccrecords.h"
#include "safefile.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <utility>
#include <vector>

#include <sys/stat.h>

/// The bytes of a saccade file, read forward. They may end before what is asked for.
class SaccSource
{
public:
    /// Reads a file, which open() opens.
    explicit SaccSource(const KiroString& path)
        : m_path(path)
    {
    }
    /// Reads memory, which must outlive this object.
    explicit SaccSource(const std::string& bytes)
        : m_memory(bytes.data())
        , m_size(static_cast<std::int64_t>(bytes.size()))
        , m_left(m_size)
    {
    }
    /// False if the file cannot be opened.
    bool open()
    {
        if (m_memory)
            return true;
        const bool opened = m_file.open(m_path, KiroFile::Read);
        m_size = m_left = m_file.size();
        return opened;
    }
    /// Empty for memory.
    const KiroString& path() const { return m_path; }
    std::int64_t size() const { return m_size; }
    bool hasFailed() const { return m_failed; }

    /// Reads up to `count` bytes and returns how many were left.
    std::int64_t read(char* bytes, std::int64_t count)
    {
        const auto piece = static_cast<std::int32_t>(std::min(count, m_left));
        if (m_memory)
            std::memcpy(bytes, m_memory + (m_size - m_left), static_cast<std::size_t>(piece));
        else
            m_failed = m_failed || m_file.readRaw(bytes, piece) != piece;
        m_left -= piece;
        return m_failed ? 0 : piece;
    }

private:
    KiroString m_path;
    KiroFile m_file;
    const char* m_memory = nullptr;
    std::int64_t m_size = 0;
    std::int64_t m_left = 0;
    bool m_failed = false;
};

namespace
{

using SaccLayout::Field;
using SaccLayout::Form;
using SaccLayout::Row;
namespace Since = SaccLayout::Since;
namespace Until = SaccLayout::Until;

/// Records are read in blocks of this many bytes.
constexpr std::int64_t BlockSize = 1 << 16;
/// As many bytes may be missing at the end of any file, however short.
constexpr std::int64_t AlwaysMayMiss = 4 << 20;
/// Rate period of a frequency that is stored in Hz: microseconds by thousands.
constexpr std::uint32_t PeriodOfFrequency = 1000000;
/// Factors up to it are no real ones, and are not turned.
constexpr double LeastFactorTurned = 0.00001;

/// The number as u32, cut towards 0 and held at the limits; NaN is 0.
std::uint32_t cutToU32(double value)
{
    constexpr double Most = std::numeric_limits<std::uint32_t>::max();
    if (!(value > 0.0))
        return 0;
    return static_cast<std::uint32_t>(std::min(value, Most));
}

/// Takes big-endian numbers from memory. A number that the bytes end before or within is 0.
class Decoder
{
public:
    Decoder(const char* bytes, std::int64_t count)
        : m_next(bytes)
        , m_end(bytes + count)
    {
    }

    std::uint8_t u8() { return take<std::uint8_t>(); }
    std::uint32_t u32() { return take<std::uint32_t>(); }
    std::int32_t i32() { return static_cast<std::int32_t>(u32()); }
    double f64()
    {
        const auto bits = take<quint64>();
        double value;
        std::memcpy(&value, &bits, sizeof(value));
        return value;
    }
    /// The bytes of a field of `width` that are there.
    std::string bytes(std::uint32_t width)
    {
        const auto count = std::min<std::ptrdiff_t>(width, m_end - m_next);
        std::string result(m_next, static_cast<std::size_t>(count));
        m_next += count;
        return result;
    }

private:
    template <class Number>
    Number take()
    {
        if (m_end - m_next < static_cast<std::ptrdiff_t>(sizeof(Number))) {
            m_next = m_end;
            return 0;
        }
        const auto value = qFromBigEndian<Number>(m_next);
        m_next += sizeof(Number);
        return value;
    }

    const char* m_next;
    const char* m_end;
};

/// Appends big-endian numbers to bytes.
class Encoder
{
public:
    explicit Encoder(std::size_t size) { m_bytes.reserve(size); }

    void u8(std::uint8_t value) { put(value); }
    void u32(std::uint32_t value) { put(value); }
    void i32(std::int32_t value) { put(static_cast<std::uint32_t>(value)); }
    void f64(double value)
    {
        quint64 bits;
        std::memcpy(&bits, &value, sizeof(bits));
        put(bits);
    }
    /// Filled up with zero bytes to `width`, of which the last is always one.
    void text(const std::string& text, std::uint32_t width)
    {
        const std::size_t taken = std::min<std::size_t>(text.size(), width - 1);
        m_bytes.append(text, 0, taken);
        m_bytes.append(width - taken, '\0');
    }
    void zeros(std::uint32_t width) { m_bytes.append(width, '\0'); }

    std::string takeBytes() { return std::move(m_bytes); }

private:
    template <class Number>
    void put(Number value)
    {
        const Number swapped = qToBigEndian(value);
        char bytes[sizeof(Number)];
        std::memcpy(bytes, &swapped, sizeof(bytes));
        m_bytes.append(bytes, sizeof(bytes));
    }

    std::string m_bytes;
};

/// A header with what the file says beside its fields.
template <class Header>
struct Parts
{
    Header& header;
    std::uint32_t magic = SaccLayout::Magic;
    std::uint32_t version = SaccLayout::Last;
    std::uint32_t sizeCheck = SaccLayout::sizeCheck(SaccLayout::Last);
    std::uint32_t saccadeCount = 0;
    std::uint32_t blinkCount = 0;
    double frequency = 0.0;
    bool raw = false;
    std::uint32_t base = 0;
};

/// Takes a walk to one field.
template <class Walk, class Header>
void walkField(Walk& walk, Parts<Header>& parts, const Row& row)
{
    auto& header = parts.header;
    switch (row.field) {
    case Field::Mark:
        return walk.value(parts.magic, row);
    case Field::Version:
        return walk.value(parts.version, row);
    case Field::SizeCheck:
        return walk.value(parts.sizeCheck, row);
    case Field::DataFile:
        return walk.value(header.dataFile, row);
    case Field::RelativeDataFile:
        return walk.value(header.relativeDataFile, row);
    case Field::Comment:
        return walk.value(header.comment, row);
    case Field::BlinksHorizontal:
        return walk.value(header.blinksHorizontal, row);
    case Field::SaccadeCount:
        return walk.value(parts.saccadeCount, row);
    case Field::BlinkCount:
        return walk.value(parts.blinkCount, row);
    case Field::RatePeriod:
        return walk.value(header.ratePeriod, row);
    case Field::SamplesPerPeriod:
        return walk.value(header.samplesPerPeriod, row);
    case Field::Frequency:
        return walk.value(parts.frequency, row);
    case Field::DetectionType:
        return walk.value(header.detectionType, row);
    case Field::SignalIndex:
        return walk.value((header.*row.slot).signalIndex, row);
    case Field::SignalFactor:
        return walk.value((header.*row.slot).factor, row);
    case Field::SignalOffset:
        return walk.value((header.*row.slot).offset, row);
    case Field::Raw:
        return walk.value(parts.raw, row);
    case Field::Base:
        return walk.value(parts.base, row);
    case Field::Local:
        return walk.value(header.params.local, row);
    case Field::Gap:
        return walk.value(header.params.gap, row);
    case Field::MinTime:
        return walk.value(header.params.minTime, row);
    case Field::MaxTime:
        return walk.value(header.params.maxTime, row);
    case Field::InitVel:
        return walk.value(header.params.initVel, row);
    case Field::MinSpeed:
        return walk.value(header.params.minSpeed, row);
    case Field::MinSlope:
        return walk.value(header.params.minSlope, row);
    case Field::DurationMs:
        return walk.value(header.durationMs, row);
    case Field::Ignored:
        return walk.skip(row);
    }
}

template <class Rows, class Walk, class Header>
void walkRows(const Rows& rows, Walk& walk, Parts<Header>& parts, std::uint32_t version)
{
    for (const Row& row : rows) {
        if (row.isIn(version))
            walkField(walk, parts, row);
    }
}

/// Reads fields.
class ReadWalk
{
public:
    ReadWalk(const char* bytes, std::int64_t count)
        : m_decoder(bytes, count)
    {
    }

    void value(bool& flag, const Row&) { flag = m_decoder.u8() != 0; }
    void value(std::uint32_t& number, const Row&) { number = m_decoder.u32(); }
    void value(std::int32_t& number, const Row&) { number = m_decoder.i32(); }
    void value(double& number, const Row& row)
    {
        number = row.form == Form::U32 ? m_decoder.u32() : m_decoder.f64();
    }
    void value(KiroString& text, const Row& row)
    {
        std::string bytes = m_decoder.bytes(row.width());
        bytes.resize(std::min(bytes.find('\0'), bytes.size()));
        text = KiroString::fromBytes(std::move(bytes));
    }
    void skip(const Row& row) { m_decoder.bytes(row.width()); }

private:
    Decoder m_decoder;
};

/// Writes fields of the last version.
class WriteWalk
{
public:
    explicit WriteWalk(Encoder& encoder)
        : m_encoder(encoder)
    {
    }

    void value(bool flag, const Row&) { m_encoder.u8(flag ? 1 : 0); }
    void value(std::uint32_t number, const Row&) { m_encoder.u32(number); }
    void value(std::int32_t number, const Row&) { m_encoder.i32(number); }
    void value(double number, const Row&) { m_encoder.f64(number); }
    void value(const KiroString& text, const Row& row) { m_encoder.text(text.bytes(), row.width()); }
    void skip(const Row& row) { m_encoder.zeros(row.width()); }

private:
    Encoder& m_encoder;
};

/// What the conversions of older versions take from the header.
struct Conversion
{
    bool speedsByBase = false;
    double speedDivisor = 1.0;
    bool raw = false;
    double factor = 1.0;
    double frequency = 0.0;

    void apply(KiroSaccadeEye& eye) const
    {
        if (speedsByBase) {
            eye.peakVelocity = eye.peakVelocity / speedDivisor;
            eye.meanVelocity = eye.meanVelocity / speedDivisor;
        }
        if (raw)
            applyCalibration(eye);
    }

private:
    void applyCalibration(KiroSaccadeEye& eye) const
    {
        eye.amplitudeHorz = eye.amplitudeHorz / factor;
        eye.startHorz = eye.startHorz / factor;
        eye.endHorz = eye.endHorz / factor;
        eye.amplitude = eye.amplitudeHorz;
        eye.amplitudeVert = eye.amplitudeHorz;
        eye.startVert = eye.startHorz;
        eye.endVert = eye.endHorz;
        eye.meanVelocity = eye.meanVelocity / factor * frequency;
        eye.peakVelocity = eye.peakVelocity / factor * frequency;
        eye.peakAcceleration = eye.peakAcceleration / factor * frequency * frequency;
    }
};

/// Makes the fields of an older version into those of today. To be called once, after reading.
Conversion convertHeader(Parts<KiroSaccHeader>& parts)
{
    KiroSaccHeader& header = parts.header;
    const std::uint32_t version = header.version;
    Conversion conversion;
    conversion.speedsByBase = version <= Until::SpeedByBase;
    conversion.speedDivisor = parts.base * 2.0;
    if (conversion.speedsByBase)
        header.params.minSpeed = header.params.minSpeed / conversion.speedDivisor;
    if (version <= Until::Frequency) {
        header.ratePeriod = PeriodOfFrequency;
        header.samplesPerPeriod = cutToU32(parts.frequency * 1000);
    }
    double& factor = header.rightHorizontal.factor;
    if (version <= Until::FactorTurned && factor > LeastFactorTurned)
        factor = 1.0 / factor;
    conversion.raw = parts.raw;
    conversion.factor = factor;
    conversion.frequency = header.frequency();
    return conversion;
}

/// Appends `count` records of `size` bytes to `records`; `read(bytes, record)` takes one from memory. Numbers
/// that the file does not hold whole are read as zeros. `format` is that of a record or of its parts.
template <class Format, class Record, class Read>
void readRecords(SaccSource& source, std::uint32_t count, std::uint32_t size, const Format& format,
                 std::vector<Record>& records, Read&& read)
{
    const std::int64_t inBlock = BlockSize / size;
    std::vector<char> block(static_cast<std::size_t>(inBlock * size));
    records.reserve(count);
    adviseLargePages(records.data(), count * sizeof(Record));
    for (std::int64_t left = count; left > 0 && !source.hasFailed();) {
        const std::int64_t piece = std::min(left, inBlock);
        const std::int64_t stored = source.read(block.data(), piece * size);
        if (stored < piece * size)
            std::fill(block.begin() + format.wholeNumbers(stored), block.end(), '\0');
        const char* bytes = block.data();
        for (std::int64_t i = 0; i < piece; ++i)
            read(bytes, records.emplace_back());
        left -= piece;
    }
}

void readSaccades(SaccSource& source, std::uint32_t count, const Conversion& conversion,
                  KiroSaccHeader& header)
{
    const std::uint32_t version = header.version;
    const SaccRecords<KiroSaccadeEye> blocks(SaccLayout::BlockRows, version);
    const auto read = [&](const char*& bytes, KiroSaccade& saccade) {
        blocks.read(bytes, saccade.main);
        if (version >= Since::ThreeBlocks) {
            blocks.read(bytes, saccade.left);
            blocks.read(bytes, saccade.right);
        } else {
            conversion.apply(saccade.main);
        }
    };
    readRecords(source, count, SaccLayout::saccadeSize(version), blocks, header.saccades, read);
}

void readBlinks(SaccSource& source, std::uint32_t count, KiroSaccHeader& header)
{
    if (count == 0)
        return;
    const SaccRecords<KiroBlink> format(SaccLayout::BlinkRows, header.version);
    const auto read = [&](const char*& bytes, KiroBlink& blink) { format.read(bytes, blink); };
    readRecords(source, count, SaccLayout::blinkSize(header.version), format, header.blinks, read);
}

template <class Rows>
void readRows(SaccSource& source, const Rows& rows, std::uint32_t version, Parts<KiroSaccHeader>& parts)
{
    std::vector<char> bytes(SaccLayout::sizeOf(rows, version));
    const std::int64_t count = source.read(bytes.data(), static_cast<std::int64_t>(bytes.size()));
    ReadWalk walk(bytes.data(), count);
    walkRows(rows, walk, parts, version);
}

KiroString loadText(const char* text)
{
    return KiroString("KiroSaccHeader::load(const KiroString&) - ") + text;
}

KiroString saveText(const char* text)
{
    return KiroString("KiroSaccHeader::saveAs(const KiroString&) - ") + text;
}

/// Why what the file begins with is not to be read on; empty if it is.
KiroString startProblem(const Parts<KiroSaccHeader>& parts)
{
    if (parts.magic != SaccLayout::Magic)
        return loadText("invalid magic number (0x%1)").arg(parts.magic, 8, 16);
    if (parts.version < SaccLayout::FirstVersion || parts.version > SaccLayout::Last)
        return loadText("unknown header version (%1)").arg(parts.version);
    const std::uint32_t expected = SaccLayout::sizeCheck(parts.version);
    if (parts.sizeCheck != expected)
        return loadText("invalid header size (%1), should be %2").arg(parts.sizeCheck).arg(expected);
    return {};
}

bool isThereButNoRegularFile(const KiroString& path)
{
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode);
}

/// Whether the path survives the way through QString; else another file would be written.
bool isSamePath(const QString& name, const KiroString& path)
{
    return !path.isEmpty() && QFile::encodeName(name).toStdString() == path.bytes();
}

} // namespace

void KiroSaccHeader::clear()
{
    KiroSaccHeader fresh;
    fresh.error = error;
    *this = std::move(fresh);
}

bool KiroSaccHeader::load(const KiroString& path)
{
    SaccSource source(path);
    return readAnew(source);
}

bool KiroSaccHeader::fromBytes(const std::string& bytes)
{
    SaccSource source(bytes);
    return readAnew(source);
}

bool KiroSaccHeader::readAnew(SaccSource& source)
{
    error.clear();
    KiroSaccHeader fresh;
    try {
        const KiroString problem = fresh.read(source);
        if (!problem.isEmpty())
            return fail(problem);
    } catch (const std::bad_alloc&) {
        return fail(loadText("memory allocation error"));
    }
    *this = std::move(fresh);
    return true;
}

KiroString KiroSaccHeader::read(SaccSource& source)
{
    if (!source.open())
        return loadText("can't open file (%1)").arg(source.path());
    Parts<KiroSaccHeader> parts{*this};
    readRows(source, SaccLayout::StartRows, SaccLayout::Last, parts);
    if (source.hasFailed())
        return loadText("can't read file (%1)").arg(source.path());
    KiroString problem = startProblem(parts);
    if (!problem.isEmpty())
        return problem;
    version = parts.version;
    readRows(source, SaccLayout::HeaderRows, version, parts);
    const Conversion conversion = convertHeader(parts);
    if (!checkCounts(parts.saccadeCount, parts.blinkCount, source.size())) {
        return loadText("too many records announced (%1 saccades, %2 blinks, %3 bytes missing)")
            .arg(parts.saccadeCount)
            .arg(parts.blinkCount)
            .arg(m_missingBytes);
    }
    readSaccades(source, parts.saccadeCount, conversion, *this);
    readBlinks(source, parts.blinkCount, *this);
    if (source.hasFailed())
        return loadText("can't read file (%1)").arg(source.path());
    fileName = source.path();
    version = CurrentVersion;
    return {};
}

/// Finds what a file of `fileSize` bytes lacks of what its header announces. False if that is too much to be
/// a file cut short: memory is never taken on the word of a damaged count.
bool KiroSaccHeader::checkCounts(std::int64_t saccadeCount, std::int64_t blinkCount, std::int64_t fileSize)
{
    const std::int64_t saccadeSize = SaccLayout::saccadeSize(version);
    const std::int64_t blinkSize = SaccLayout::blinkSize(version);
    const std::int64_t saccadeBytes = saccadeCount * saccadeSize;
    const std::int64_t stored = std::max<std::int64_t>(fileSize - SaccLayout::headerSize(version), 0);
    const std::int64_t wholeSaccades = std::min(stored / saccadeSize, saccadeCount);
    const std::int64_t storedBlinks = std::max<std::int64_t>(stored - saccadeBytes, 0);
    const std::int64_t wholeBlinks = blinkSize > 0 ? std::min(storedBlinks / blinkSize, blinkCount) : 0;
    const std::int64_t announced = SaccLayout::headerSize(version) + saccadeBytes + blinkCount * blinkSize;
    m_missingSaccades = saccadeCount - wholeSaccades;
    m_missingBlinks = blinkCount - wholeBlinks;
    m_missingBytes = std::max<std::int64_t>(announced - fileSize, 0);
    return m_missingBytes <= std::max(fileSize, AlwaysMayMiss);
}

bool KiroSaccHeader::save()
{
    if (fileName.isEmpty())
        return fail("KiroSaccHeader::save() - file name is empty!");
    return saveAs(fileName);
}

bool KiroSaccHeader::saveAs(const KiroString& path)
{
    error.clear();
    const QString name = path.toQString();
    SafeFile file(name);
    if (!isSamePath(name, path) || isThereButNoRegularFile(path) || !file.open())
        return fail(saveText("can't open file (%1)").arg(path));
    try {
        const std::string bytes = toBytes();
        file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    } catch (const std::bad_alloc&) {
        return fail(saveText("memory allocation error"));
    }
    // The path comes last: it may hold a placeholder itself.
    return file.commit() ||
           fail(saveText("can't write file (%2): %1").arg(KiroString(file.errorText())).arg(path));
}

std::string KiroSaccHeader::toBytes() const
{
    using namespace SaccLayout;
    Encoder encoder(headerSize(Last) + saccades.size() * saccadeSize(Last) + blinks.size() * blinkSize(Last));
    Parts<const KiroSaccHeader> parts{*this};
    parts.saccadeCount = static_cast<std::uint32_t>(saccades.size());
    parts.blinkCount = static_cast<std::uint32_t>(blinks.size());
    WriteWalk walk(encoder);
    walkRows(StartRows, walk, parts, Last);
    walkRows(HeaderRows, walk, parts, Last);
    std::string bytes = encoder.takeBytes();
    const SaccRecords<KiroSaccadeEye> blocks(BlockRows, Last);
    for (const KiroSaccade& saccade : saccades) {
        blocks.append(bytes, saccade.main);
        blocks.append(bytes, saccade.left);
        blocks.append(bytes, saccade.right);
    }
    const SaccRecords<KiroBlink> blinkRecords(BlinkRows, Last);
    for (const KiroBlink& blink : blinks)
        blinkRecords.append(bytes, blink);
    return bytes;
}

void KiroSaccHeader::setDataFiles(const KiroString& absolute, const KiroString& relative)
{
    dataFile = absolute;
    relativeDataFile = relative;
}

void KiroSaccHeader::setSignal(std::int32_t role, std::int32_t index, double factor, double offset)
{
    this->*slot(role) = {index, factor, offset};
}

KiroString KiroSaccHeader::detectionTypeName(std::int32_t type)
{
    switch (type) {
    case OneSignal:
        return "One signal";
    case Monocular:
        return "Monocular";
    case Binocular:
        return "Binocular";
    default:
        return "unknown!";
    }
}

KiroSaccSignal KiroSaccHeader::*KiroSaccHeader::slot(std::int32_t role)
{
    switch (role) {
    case 2:
    case RightVertical:
        return &KiroSaccHeader::rightVertical;
    case LeftHorizontal:
        return &KiroSaccHeader::leftHorizontal;
    case LeftVertical:
        return &KiroSaccHeader::leftVertical;
    default:
        return &KiroSaccHeader::rightHorizontal;
    }
}

bool KiroSaccHeader::fail(const KiroString& text)
{
    error = text;
    return false;
}
