#include "kiroheader.h"

#include "kirofile.h"
#include "kiroutils.h"
#include "recordinglayout.h"

#include <QDataStream>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

namespace
{

using RecordingLayout::Field;
using RecordingLayout::LegacyMark;
using RecordingLayout::Magic;
using RecordingLayout::NoText;
using RecordingLayout::Row;
namespace Since = RecordingLayout::Since;

constexpr std::uint32_t LegacyHeaderSize = 8;

struct LegacySignal
{
    const char* fullName;
    const char* shortName;
    std::uint32_t samplesPerPeriod;
    std::uint32_t samplesPerFrame;
};

constexpr LegacySignal LegacyTable[] = {
    {"Eye movement - horizontal", "eyex", 1000, 4},
    {"Eye movement - vertical", "eyey", 1000, 4},
    {"Oxygenated hemoglobine", "oxy", 250, 1},
    {"Total hemoglobine", "hemo", 250, 1},
    {"Acceleration x", "accx", 250, 1},
    {"Acceleration y", "accy", 250, 1},
    {"Battery power", "volt", 250, 1},
    {"Ambient light", "lit", 250, 1},
    {"Microphone", "mic", 4000, 16},
    {"Conscious attention mode", "mode", 1000, 4},
};

/// Takes a walk to one field of a signal.
template <class Walk, class Signal>
void walkSignalField(Walk& walk, Signal& signal, const Row& row)
{
    switch (row.field) {
    case Field::FullName:
        return walk.text(signal.fullName, row.width);
    case Field::ShortName:
        return walk.text(signal.shortName, row.width);
    case Field::RatePeriod:
        return walk.number(signal.ratePeriod);
    case Field::SamplesPerPeriod:
        return walk.number(signal.samplesPerPeriod);
    case Field::ValueType:
        return walk.valueType(signal.valueType);
    case Field::SamplesPerFrame:
        return walk.narrowOrWide(signal.samplesPerFrame);
    case Field::SampleSize:
        return walk.narrowOrWide(signal.sampleSize);
    case Field::CalibrationFactor:
        return walk.factor(signal.calibrationFactor);
    case Field::CalibrationUnit:
        return walk.text(signal.calibrationUnit, row.width);
    case Field::Calibrated:
        return walk.flag(signal.calibrated);
    case Field::CalibrationOffset:
        return walk.number(signal.calibrationOffset);
    default:
        return; // not of a signal
    }
}

template <class Walk, class Signal>
void walkSignal(Walk& walk, Signal&& signal, std::uint32_t version)
{
    for (const Row& row : RecordingLayout::SignalRows) {
        if (version >= row.since)
            walkSignalField(walk, signal, row);
    }
    walk.signalEnd(signal);
}

/// Counts the bytes of a header.
class SizeWalk
{
public:
    explicit SizeWalk(std::uint32_t version)
        : m_version(version)
    {
    }

    std::uint32_t size() const { return m_size; }

    void storedHeaderSize() { m_size += 4; }
    void number(std::uint8_t) { m_size += 1; }
    void number(std::uint16_t) { m_size += 2; }
    void number(std::uint32_t) { m_size += 4; }
    void number(double) { m_size += 8; }
    void flag(bool) { m_size += 1; }
    void narrowOrWide(std::uint32_t) { m_size += m_version < Since::WideSignalNumbers ? 1 : 4; }
    void valueType(KiroValue::Type) { narrowOrWide(0); }
    void factor(double) { m_size += 8; }
    void text(const KiroString& text, std::uint32_t width)
    {
        const auto length = static_cast<std::uint32_t>(text.length());
        m_size += m_version < Since::FixedTexts ? 4 + 2 * length : width;
    }
    void signalCount(const std::vector<KiroSignal>&) { m_size += 1; }
    void signalEnd(const KiroSignal&) {}

private:
    std::uint32_t m_version;
    std::uint32_t m_size = 0;
};

/// Collects the bytes of a header, big-endian.
class WriteWalk
{
public:
    WriteWalk(std::uint32_t version, std::uint32_t headerSize)
        : m_version(version)
        , m_headerSize(headerSize)
    {
        m_bytes.reserve(headerSize);
    }

    std::string takeBytes() { return std::move(m_bytes); }

    void storedHeaderSize() { number(m_headerSize); }
    void number(std::uint8_t value) { bigEndian(value, 1); }
    void number(std::uint16_t value) { bigEndian(value, 2); }
    void number(std::uint32_t value) { bigEndian(value, 4); }
    void number(double value)
    {
        std::uint64_t bits;
        std::memcpy(&bits, &value, sizeof(bits));
        bigEndian(bits, 8);
    }
    void flag(bool value) { bigEndian(value ? 1 : 0, 1); }
    void narrowOrWide(std::uint32_t value) { bigEndian(value, m_version < Since::WideSignalNumbers ? 1 : 4); }
    void valueType(KiroValue::Type type) { narrowOrWide(KiroValue::codeFromType(type)); }
    void factor(double value)
    {
        // Not the mirror of reading: only factors above 1 are turned here.
        number(m_version < Since::FactorAsDivisor && value > 1.0 ? 1.0 / value : value);
    }
    void text(const KiroString& text, std::uint32_t width)
    {
        if (m_version < Since::FixedTexts)
            wideText(text.bytes());
        else
            m_bytes += padded(text.bytes(), width);
    }
    void signalCount(const std::vector<KiroSignal>& signalTable)
    {
        number(static_cast<std::uint8_t>(signalTable.size()));
    }
    void signalEnd(const KiroSignal&) {}

private:
    void bigEndian(std::uint64_t value, int bytes)
    {
        for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8)
            m_bytes.push_back(static_cast<char>(value >> shift & 0xff));
    }
    void wideText(const std::string& text)
    {
        number(static_cast<std::uint32_t>(2 * text.size()));
        for (const char c : text)
            number(static_cast<std::uint16_t>(static_cast<signed char>(c)));
    }
    static std::string padded(std::string text, std::uint32_t width)
    {
        text.resize(width, '\0');
        return text;
    }

    std::uint32_t m_version;
    std::uint32_t m_headerSize;
    std::string m_bytes;
};

/// Reads a header. Once something announced cannot be there it stops reading and ok() is false.
class ReadWalk
{
public:
    ReadWalk(KiroFile& file, std::uint32_t version)
        : m_file(file)
        , m_version(version)
        , m_fileSize(file.size())
    {
    }

    bool ok() const { return m_ok; }

    void storedHeaderSize()
    {
        std::uint32_t ignored = 0;
        number(ignored);
    }
    void number(std::uint8_t& value)
    {
        value = 0;
        m_file.readU8(value);
    }
    void number(std::uint16_t& value)
    {
        value = 0;
        m_file.readU16(value);
    }
    void number(std::uint32_t& value)
    {
        value = 0;
        m_file.readU32(value);
    }
    void number(double& value)
    {
        value = 0.0;
        m_file.readF64(value);
    }
    void flag(bool& value)
    {
        std::uint8_t byte = 0;
        number(byte);
        value = byte != 0;
    }
    void narrowOrWide(std::uint32_t& value)
    {
        if (m_version >= Since::WideSignalNumbers)
            return number(value);
        std::uint8_t narrow = 0;
        number(narrow);
        value = narrow;
    }
    void valueType(KiroValue::Type& type)
    {
        std::uint32_t code = 0;
        narrowOrWide(code);
        type = KiroValue::typeFromCode(code);
    }
    void factor(double& value)
    {
        number(value);
        if (m_version < Since::FactorAsDivisor && value < 1.0 && value > 1e-7)
            value = 1.0 / value;
    }
    void text(KiroString& text, std::uint32_t width)
    {
        if (m_version < Since::FixedTexts)
            wideText(text);
        else
            fixedText(text, width);
    }
    void signalCount(std::vector<KiroSignal>& signalTable)
    {
        std::uint8_t count = 0;
        number(count);
        // Only the last descriptor may be cut short by the file's end.
        SizeWalk smallest(m_version);
        walkSignal(smallest, KiroSignal(), m_version);
        if (count > bytesLeft() / smallest.size() + 1)
            m_ok = false;
        else
            signalTable.resize(count);
    }
    void signalEnd(KiroSignal& signal)
    {
        if (m_version < Since::CalibratedFlag)
            signal.calibrated = !signal.calibrationUnit.isEmpty();
    }

private:
    std::int64_t bytesLeft() const { return std::max<std::int64_t>(m_fileSize - m_file.position(), 0); }

    void fixedText(KiroString& text, std::uint32_t width)
    {
        std::string bytes(width, '\0');
        m_file.readRaw(bytes.data(), static_cast<std::int32_t>(width));
        bytes.resize(std::min(bytes.find('\0'), bytes.size()));
        text = KiroString::fromBytes(std::move(bytes));
    }
    void wideText(KiroString& text)
    {
        std::uint32_t length = 0;
        number(length);
        text.clear();
        if (length == NoText)
            return;
        if (!m_ok || length > bytesLeft()) {
            m_ok = false;
            return;
        }
        std::string bytes(length, '\0');
        m_file.readRaw(bytes.data(), static_cast<std::int32_t>(length));
        // The low byte of each big-endian unit.
        std::string narrow(length / 2, '\0');
        for (std::size_t i = 0; i < narrow.size(); ++i)
            narrow[i] = bytes[2 * i + 1];
        text = KiroString::fromBytes(std::move(narrow));
    }

    KiroFile& m_file;
    std::uint32_t m_version;
    std::int64_t m_fileSize;
    bool m_ok = true;
};

} // namespace

/// Takes a walk to one field of the whole recording. Mark and version are the caller's.
template <class Walk, class Header>
void KiroHeader::walkField(Walk& walk, Header& header, const Row& row)
{
    switch (row.field) {
    case Field::HeaderSize:
        return walk.storedHeaderSize();
    case Field::StoringProgram:
        return walk.text(header.m_storingProgram, row.width);
    case Field::Notes:
        return walk.text(header.m_notes, row.width);
    case Field::TechnicalParameters:
        return walk.text(header.m_technicalParameters, row.width);
    case Field::Day:
        return walk.number(header.m_day);
    case Field::Month:
        return walk.number(header.m_month);
    case Field::Year:
        return walk.number(header.m_year);
    case Field::Hour:
        return walk.number(header.m_hour);
    case Field::Minute:
        return walk.number(header.m_minute);
    case Field::Second:
        return walk.number(header.m_second);
    case Field::Millisecond:
        return walk.number(header.m_millisecond);
    case Field::SignalCount:
        return walk.signalCount(header.m_signals);
    case Field::FrameCount:
        return walk.number(header.m_frameCount);
    default:
        return;
    }
}

/// Takes a walk over all fields behind mark and version, in the order of the layout. What the version lacks
/// keeps the value that the header has before.
template <class Walk, class Header>
void KiroHeader::walkFields(Walk& walk, Header& header)
{
    const std::uint32_t version = header.m_version;
    for (const Row& row : RecordingLayout::HeaderRows) {
        if (version >= row.since)
            walkField(walk, header, row);
    }
    for (auto& signal : header.m_signals)
        walkSignal(walk, signal, version);
    for (const Row& row : RecordingLayout::EndRows)
        walkField(walk, header, row);
}

KiroHeader::KiroHeader()
{
    clear();
}

void KiroHeader::clear()
{
    m_version = CurrentVersion;
    m_notes.clear();
    m_technicalParameters.clear();
    m_storingProgram.clear();
    m_remark.clear();
    m_signals.clear();
    m_frameCount = 0;
    const KiroDateTime now = KiroDateTime::now();
    setDate(now);
    setTime(now);
}

bool KiroHeader::load(const KiroString& path)
{
    clear();
    KiroFile file;
    return file.open(path, KiroFile::Read) && read(file);
}

bool KiroHeader::read(KiroFile& file)
{
    clear();
    if (file.size() >= KiroFile::SizeLimit)
        return false;
    file.setByteOrder(KiroFile::ByteOrder::BigEndian);
    std::uint32_t magic = 0;
    file.readU32(magic);
    if (magic != Magic)
        return readLegacy(file);
    try {
        return readFields(file);
    } catch (const std::bad_alloc&) {
        return false; // a text may be as long as the file
    }
}

/// What follows the mark from version 3 on.
bool KiroHeader::readFields(KiroFile& file)
{
    KiroHeader fresh;
    fresh.m_second = 0;
    fresh.m_millisecond = 0;
    fresh.m_version = 0;
    file.readU32(fresh.m_version);
    if (fresh.m_version < Since::Header)
        return false;
    ReadWalk walk(file, fresh.m_version);
    walkFields(walk, fresh);
    if (!walk.ok())
        return false;
    *this = std::move(fresh);
    return true;
}

bool KiroHeader::readLegacy(KiroFile& file)
{
    file.seek(0);
    file.setByteOrder(KiroFile::ByteOrder::LittleEndian);
    std::uint32_t mark = 0;
    file.readU32(mark);
    if (mark != LegacyMark)
        return false;
    file.readU32(m_frameCount);
    for (const LegacySignal& row : LegacyTable) {
        KiroSignal signal;
        signal.index = signalCount();
        signal.fullName = row.fullName;
        signal.shortName = row.shortName;
        signal.samplesPerPeriod = row.samplesPerPeriod;
        signal.valueType = KiroValue::SignedInt;
        signal.samplesPerFrame = row.samplesPerFrame;
        signal.sampleSize = 4;
        m_signals.push_back(signal);
    }
    m_version = LegacyVersion;
    m_storingProgram = "KiroMonitor ver. 2.0";
    m_notes = "Kiro data converted from the file which was saved in format 2.0";
    m_day = m_month = m_hour = m_minute = m_second = 0;
    m_year = m_millisecond = 0;
    return true;
}

std::string KiroHeader::toBytes() const
{
    if (m_version < Since::Header) {
        std::string bytes(LegacyHeaderSize, '\0');
        std::memcpy(bytes.data(), &LegacyMark, sizeof(LegacyMark));
        std::memcpy(bytes.data() + sizeof(LegacyMark), &m_frameCount, sizeof(m_frameCount));
        return bytes;
    }
    WriteWalk walk(m_version, headerSize());
    walk.number(Magic);
    walk.number(m_version);
    walkFields(walk, *this);
    return walk.takeBytes();
}

bool KiroHeader::write(KiroFile& file) const
{
    file.setByteOrder(m_version < Since::Header ? KiroFile::ByteOrder::LittleEndian
                                                : KiroFile::ByteOrder::BigEndian);
    const std::string bytes = toBytes();
    file.writeRaw(bytes.data(), static_cast<std::int32_t>(bytes.size()));
    return true;
}

bool KiroHeader::write(QDataStream& stream) const
{
    stream.setByteOrder(m_version < Since::Header ? QDataStream::LittleEndian : QDataStream::BigEndian);
    const std::string bytes = toBytes();
    stream.writeRawData(bytes.data(), static_cast<int>(bytes.size()));
    return true;
}

void KiroHeader::setCurrentDate()
{
    setDate(KiroDateTime::now());
}

void KiroHeader::setCurrentTime()
{
    setTime(KiroDateTime::now());
}

void KiroHeader::setDate(const KiroDateTime& now)
{
    m_year = static_cast<std::uint16_t>(now.year());
    m_month = static_cast<std::uint8_t>(now.month());
    m_day = static_cast<std::uint8_t>(now.day());
}

void KiroHeader::setTime(const KiroDateTime& now)
{
    m_hour = static_cast<std::uint8_t>(now.hour());
    m_minute = static_cast<std::uint8_t>(now.minute());
    m_second = static_cast<std::uint8_t>(now.second());
    m_millisecond = static_cast<std::uint16_t>(now.millisecond());
}

KiroString KiroHeader::dateString() const
{
    return KiroString("%1/%2/%3").arg(m_day, 2, 10, '0').arg(m_month, 2, 10, '0').arg(m_year);
}

KiroString KiroHeader::timeString() const
{
    return KiroString("%1:%2:%3.%4")
        .arg(m_hour, 2, 10, '0')
        .arg(m_minute, 2, 10, '0')
        .arg(m_second, 2, 10, '0')
        .arg(m_millisecond, 3, 10, '0');
}

std::uint32_t KiroHeader::headerSize() const
{
    if (m_version < Since::Header)
        return LegacyHeaderSize;
    SizeWalk walk(m_version);
    walk.number(Magic);
    walk.number(m_version);
    walkFields(walk, *this);
    return walk.size();
}

std::int64_t KiroHeader::frameSize() const
{
    constexpr std::uint64_t Most = std::numeric_limits<std::int64_t>::max();
    std::uint64_t size = 0;
    for (const KiroSignal& signal : m_signals)
        size = std::min(Most, size + std::min(Most, signal.runSize()));
    return static_cast<std::int64_t>(size);
}

double KiroHeader::frameFrequency() const
{
    const KiroSignal& first = checkedSignal(0, "KiroHeader::frameFrequency() - no signals");
    return first.frequency() / first.samplesPerFrame;
}

double KiroHeader::frameMSecs() const
{
    return 1000.0 / frameFrequency();
}

std::optional<double> KiroHeader::durationMSecs() const
{
    // From here on a double no longer tells single milliseconds.
    constexpr double Limit = 9007199254740992.0;
    if (m_signals.empty())
        return std::nullopt;
    const double duration = m_frameCount * frameMSecs();
    // Written so that NaN, of a rate without a length, has no duration either.
    return duration < Limit ? std::optional<double>(std::trunc(duration)) : std::nullopt;
}

std::vector<std::pair<KiroString, KiroString>> KiroHeader::technicalRows() const
{
    std::vector<std::pair<KiroString, KiroString>> rows;
    const KiroString& text = m_technicalParameters;
    for (int start = 0; start < text.length();) {
        const int lineFeed = text.indexOf("\n", start);
        const int end = lineFeed < 0 ? text.length() : lineFeed;
        const KiroString line = text.mid(start, end - start);
        const int tab = line.indexOf("\t");
        if (tab >= 0) {
            const KiroString value = line.mid(tab + 1);
            rows.emplace_back(line.left(tab), value.left(value.indexOf("\t")));
        } else if (!line.isEmpty()) {
            rows.emplace_back(line, KiroString());
        }
        start = end + 1;
    }
    return rows;
}

bool KiroHeader::setSignalCount(int count)
{
    if (count < 0 || count > static_cast<int>(MaxSignals))
        return false;
    m_signals.resize(static_cast<std::size_t>(count));
    return true;
}

KiroSignal KiroHeader::signal(unsigned int index) const
{
    if (index >= m_signals.size()) {
        const KiroString message = KiroString("KiroHeader::signal(unsigned int) - invalid signal index "
                                              "(signal index is %1, signal count is %2)")
                                       .arg(index)
                                       .arg(signalCount());
        KiroError::fatalError(message.c_str());
    }
    return m_signals[index];
}

bool KiroHeader::getSignal(int index, KiroSignal& out) const
{
    if (!hasSignal(index))
        return false;
    out = m_signals[static_cast<std::size_t>(index)];
    return true;
}

bool KiroHeader::setSignal(int index, const KiroSignal& descriptor)
{
    if (!hasSignal(index))
        return false;
    m_signals[static_cast<std::size_t>(index)] = descriptor;
    return true;
}

const KiroSignal& KiroHeader::checkedSignal(int index, const char* message) const
{
    if (!hasSignal(index))
        KiroError::fatalError(message);
    return m_signals[static_cast<std::size_t>(index)];
}

double KiroHeader::signalFrequency(int index) const
{
    return checkedSignal(index, "KiroHeader::signalFrequency() - invalid signal index").frequency();
}

double KiroHeader::signalMSecs(int index) const
{
    return 1000.0 / checkedSignal(index, "KiroHeader::signalMSecs() - invalid signal index").frequency();
}

std::uint64_t KiroHeader::signalSampleCount(int index) const
{
    const KiroSignal& signal = checkedSignal(index, "KiroHeader::signalSampleCount() - invalid signal index");
    return std::uint64_t(signal.samplesPerFrame) * m_frameCount;
}

int KiroHeader::findSignal(const std::vector<KiroString>& names) const
{
    const auto find = [&](auto&& matches) {
        for (int i = 0; i < signalCount(); ++i) {
            const KiroString& fullName = m_signals[static_cast<std::size_t>(i)].fullName;
            if (std::any_of(names.begin(), names.end(),
                            [&](const KiroString& name) { return matches(fullName, name); }))
                return i;
        }
        return -1;
    };
    const int starting =
        find([](const KiroString& fullName, const KiroString& name) { return fullName.startsWith(name); });
    if (starting >= 0)
        return starting;
    return find(
        [](const KiroString& fullName, const KiroString& name) { return fullName.indexOf(name) >= 0; });
}

bool KiroHeader::hasField(int id) const
{
    if (id == 2)
        return true;
    if (id == FixedLayoutField)
        return m_version >= Since::FixedTexts;
    if (id == 11 || id == CalibrationField || id == 24 || id == 26)
        return m_version >= Since::Calibration;
    if (id == 12)
        return m_version >= Since::Millisecond;
    if (id == 17 || id == 18)
        return m_version >= Since::RatePeriod;
    if (id == 23)
        return m_version >= Since::CalibratedFlag;
    if (id == 25)
        return m_version >= Since::CalibrationOffset;
    if (id == 28)
        return m_version >= Since::TechnicalParameters;
    return id >= 1 && id <= 27 && m_version >= Since::Header;
}
