#include "recordingcheck.h"

#include "kirofile.h"
#include "kiroheader.h"
#include "kiroreader.h"
#include "recordingfields.h"

#include <QDate>
#include <QString>

#include <algorithm>
#include <cmath>
#include <cstring>

using Grade = CheckFinding::Grade;
using Id = RecordingField::Id;

namespace
{

const std::string Mark("\xf9\xd7\x2c\x0a");
const std::string LegacyMark("\xfe\xff\xff\xff");
constexpr std::uint32_t FirstMarkedVersion = 3;
constexpr std::uint32_t FixedTextsSince = 6;
constexpr std::uint32_t NoText = 0xffffffff;
constexpr std::uint64_t KnownTypes = 4; // codes 0 to 3
constexpr int FirstYear = 1601;
constexpr int LastYear = 30827;

/// Whole milliseconds of a rate period in files that do not store it.
constexpr std::uint64_t OldRatePeriod = 1000;
/// By which frequencies may differ that were computed on different ways.
constexpr double RoundingShare = 1e-9;

struct FieldName
{
    Id id;
    const char* key;
    const char* name;
};

constexpr FieldName FieldNames[] = {
    {Id::Mark, "mark", "mark"},
    {Id::Version, "version", "version"},
    {Id::HeaderSize, "headerSize", "header size"},
    {Id::StoringProgram, "storingProgram", "storing program"},
    {Id::Notes, "notes", "notes"},
    {Id::TechnicalParameters, "technicalParameters", "technical parameters"},
    {Id::Day, "day", "day"},
    {Id::Month, "month", "month"},
    {Id::Year, "year", "year"},
    {Id::Hour, "hour", "hour"},
    {Id::Minute, "minute", "minute"},
    {Id::Second, "second", "second"},
    {Id::Millisecond, "millisecond", "millisecond"},
    {Id::SignalCount, "signalCount", "signal count"},
    {Id::FullName, "fullName", "full name"},
    {Id::ShortName, "shortName", "short name"},
    {Id::RatePeriod, "ratePeriod", "rate period"},
    {Id::SamplesPerPeriod, "samplesPerPeriod", "samples per period"},
    {Id::ValueType, "valueType", "value type"},
    {Id::SamplesPerFrame, "samplesPerFrame", "samples per packet"},
    {Id::SampleSize, "sampleSize", "sample size"},
    {Id::CalibrationFactor, "calibrationFactor", "calibration factor"},
    {Id::CalibrationUnit, "calibrationUnit", "calibration unit"},
    {Id::Calibrated, "calibrated", "calibrated"},
    {Id::CalibrationOffset, "calibrationOffset", "calibration offset"},
    {Id::FrameCount, "frameCount", "packet count"},
};

std::string bytesText(std::int64_t count)
{
    return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

std::string numberText(double number)
{
    return QString::number(number, 'g', 10).toStdString();
}

/// Hexadecimal bytes, and the characters that some of them are.
std::string bytesShown(const std::string& bytes)
{
    const auto isPlain = [](char c) { return c >= ' ' && c <= '~'; };
    std::string text = QByteArray::fromStdString(bytes).toHex(' ').toUpper().toStdString();
    if (!bytes.empty() && std::all_of(bytes.begin(), bytes.end(), isPlain))
        text += " (\"" + bytes + "\")";
    return text;
}

/// One run over one recording.
class Check
{
public:
    explicit Check(KiroFile& file)
        : m_file(file)
        , m_size(file.size())
    {
    }

    std::vector<CheckFinding> run()
    {
        if (checkMark() && checkFileSize()) {
            m_fields = RecordingFields::read(m_file);
            if (checkVersion())
                checkContent();
        }
        return std::move(m_findings);
    }

private:
    bool isLegacy() const { return m_fields.version == KiroHeader::LegacyVersion; }

    void add(Grade grade, const RecordingField& place, const std::string& found, const std::string& expected,
             const std::string& meaning = {})
    {
        const auto name = std::find_if(std::begin(FieldNames), std::end(FieldNames),
                                       [&](const FieldName& each) { return each.id == place.id; });
        m_findings.push_back(
            {grade, name->key, name->name, place.signal, place.offset, found, expected, meaning});
    }
    /// A finding on the file as a whole.
    void addOnFile(Grade grade, const char* key, const char* name, std::int64_t offset,
                   const std::string& found, const std::string& expected, const std::string& meaning)
    {
        m_findings.push_back({grade, key, name, -1, offset, found, expected, meaning});
    }

    bool checkMark()
    {
        std::string bytes(static_cast<std::size_t>(std::min<std::int64_t>(m_size, 4)), '\0');
        m_file.seek(0);
        m_file.readRaw(bytes.data(), static_cast<std::int32_t>(bytes.size()));
        if (bytes == Mark || bytes == LegacyMark)
            return true;
        add(Grade::Error, RecordingField(), bytes.empty() ? "an empty file" : bytesShown(bytes),
            bytesShown(Mark) + ", or " + bytesShown(LegacyMark) + " in the oldest form",
            "it is no recording");
        return false;
    }

    bool checkFileSize()
    {
        if (m_size < KiroReader::FileSizeLimit)
            return true;
        addOnFile(Grade::Error, "fileSize", "file size", -1, bytesText(m_size),
                  "less than " + bytesText(KiroReader::FileSizeLimit), "the file does not open");
        return false;
    }

    bool checkVersion()
    {
        const RecordingField* const version = m_fields.find(Id::Version);
        if (!version) // legacy, or cut
            return true;
        if (m_fields.version > KiroHeader::CurrentVersion)
            add(Grade::Warning, *version, std::to_string(m_fields.version), "3 to 12",
                "it is read with the layout of version 12");
        if (m_fields.version >= FirstMarkedVersion)
            return true;
        add(Grade::Error, *version, std::to_string(m_fields.version), "3 to 12 behind this mark",
            "the file does not open");
        return false;
    }

    void checkContent()
    {
        KiroHeader header;
        m_file.seek(0);
        const bool whole = !m_fields.cutField && header.read(m_file);
        if (whole && !isLegacy())
            checkHeaderSize(header);
        checkDate();
        for (const RecordingField& field : m_fields.fields)
            checkField(field);
        if (m_fields.cutField)
            reportCut(*m_fields.cutField);
        else if (whole)
            checkData(header);
        std::stable_sort(m_findings.begin(), m_findings.end(),
                         [](const CheckFinding& a, const CheckFinding& b) { return a.offset < b.offset; });
    }

    void checkHeaderSize(const KiroHeader& header)
    {
        const RecordingField& stored = *m_fields.find(Id::HeaderSize);
        if (stored.number() != header.headerSize())
            add(Grade::Warning, stored, std::to_string(stored.number()), std::to_string(header.headerSize()),
                "this program goes by the latter, others may not");
    }

    /// A part of date or time beside its limits.
    void checkRange(Id id, std::uint64_t least, std::uint64_t most)
    {
        const RecordingField* const field = m_fields.find(id);
        if (field && (field->number() < least || field->number() > most))
            add(Grade::Warning, *field, std::to_string(field->number()),
                std::to_string(least) + " to " + std::to_string(most));
    }

    void checkDate()
    {
        const RecordingField* const day = m_fields.find(Id::Day);
        const RecordingField* const month = m_fields.find(Id::Month);
        const RecordingField* const year = m_fields.find(Id::Year);
        if (day && month && year && day->number() + month->number() + year->number() == 0) {
            add(Grade::Note, *day, "a date of zeros", "day, month and year", "the date is not known");
        } else {
            const int days =
                month && year ? QDate(int(year->number()), int(month->number()), 1).daysInMonth() : 0;
            checkRange(Id::Day, 1, days > 0 ? std::uint64_t(days) : 31);
            checkRange(Id::Month, 1, 12);
            checkRange(Id::Year, FirstYear, LastYear);
        }
        checkRange(Id::Hour, 0, 23);
        checkRange(Id::Minute, 0, 59);
        checkRange(Id::Second, 0, 59);
        checkRange(Id::Millisecond, 0, 999);
    }

    void checkField(const RecordingField& field)
    {
        switch (field.id) {
        case Id::StoringProgram:
        case Id::Notes:
        case Id::TechnicalParameters:
        case Id::FullName:
        case Id::ShortName:
        case Id::CalibrationUnit:
            return m_fields.version < FixedTextsSince ? checkWideText(field) : checkFixedText(field);
        case Id::RatePeriod:
            return checkNotZero(field, "its frequency is not finite");
        case Id::SamplesPerPeriod:
            return checkNotZero(field, "its frequency is 0");
        case Id::SamplesPerFrame:
            checkNotZero(field, "the signal has no samples");
            return checkFrameFrequency(field);
        case Id::ValueType:
            return checkValueType(field);
        case Id::SampleSize:
            return checkSampleSize(field);
        case Id::CalibrationFactor:
        case Id::CalibrationOffset:
            return checkCalibration(field);
        default:
            return;
        }
    }

    void checkFixedText(const RecordingField& field)
    {
        const std::size_t end = field.bytes.find('\0');
        if (end == std::string::npos) {
            add(Grade::Note, field, bytesText(field.size) + " without a zero byte", "a zero byte at the end",
                "the text fills its field and may have been cut");
            return;
        }
        const std::size_t behind = field.bytes.find_first_not_of('\0', end);
        if (behind == std::string::npos)
            return;
        const auto others = std::count_if(field.bytes.begin() + std::ptrdiff_t(behind), field.bytes.end(),
                                          [](char c) { return c != '\0'; });
        RecordingField place = field;
        place.offset += static_cast<std::int64_t>(behind);
        add(Grade::Note, place, bytesText(others) + " other than zero behind the end of the text",
            "zero bytes", "they are not read");
    }

    void checkWideText(const RecordingField& field)
    {
        const std::uint64_t length = field.number();
        if (length != NoText && length % 2 != 0)
            add(Grade::Error, field, "a length of " + bytesText(std::int64_t(length)), "an even number",
                "all that follows, the samples too, is read a byte off");
    }

    void checkNotZero(const RecordingField& field, const char* meaning)
    {
        if (field.number() == 0)
            add(Grade::Warning, field, "0", "1 or more", meaning);
    }

    /// Frames a second by one signal; not finite if it has none.
    double frameFrequency(int signal) const
    {
        const RecordingField* const period = m_fields.find(Id::RatePeriod, signal);
        const double milliseconds = double(period ? period->number() : OldRatePeriod);
        const double samples = double(m_fields.find(Id::SamplesPerPeriod, signal)->number());
        return samples * 1000.0 / milliseconds / double(m_fields.find(Id::SamplesPerFrame, signal)->number());
    }

    void checkFrameFrequency(const RecordingField& field)
    {
        const double first = frameFrequency(0);
        const double own = frameFrequency(field.signal);
        if (std::isfinite(first) && std::isfinite(own) && std::abs(own - first) > RoundingShare * first)
            add(Grade::Warning, field, numberText(own) + " packets a second",
                numberText(first) + " as of the first signal", "its times are wrong");
    }

    void checkValueType(const RecordingField& field)
    {
        if (field.number() >= KnownTypes)
            add(Grade::Warning, field, std::to_string(field.number()),
                "0 (object), 1 (signed int), 2 (unsigned int) or 3 (float)", "its values read as 0");
        else if (field.number() == KiroValue::Object)
            add(Grade::Note, field, "0 (object)", "a type of numbers", "its values read as 0");
    }

    void checkSampleSize(const RecordingField& field)
    {
        const std::uint64_t size = field.number();
        const bool isFloat = m_fields.find(Id::ValueType, field.signal)->number() == KiroValue::Float;
        if (size > KiroValue::MaxSize)
            add(Grade::Error, field, std::to_string(size), "1, 2, 4 or 8", "the file does not open");
        else if (size == 0)
            add(Grade::Warning, field, "0", "1, 2, 4 or 8", "the signal has no samples");
        else if (size != 1 && size != 2 && size != 4 && size != 8)
            add(Grade::Warning, field, std::to_string(size), "1, 2, 4 or 8", "its values read as 0");
        else if (isFloat && size < 4)
            add(Grade::Warning, field, std::to_string(size), "4 or 8 for a float", "its values read as 0");
    }

    bool isCalibrated(int signal) const
    {
        if (const RecordingField* const flag = m_fields.find(Id::Calibrated, signal))
            return flag->number() != 0;
        const RecordingField* const unit = m_fields.find(Id::CalibrationUnit, signal);
        if (!unit)
            return false;
        if (m_fields.version < FixedTextsSince)
            return unit->number() > 1 && unit->number() != NoText;
        return unit->bytes.front() != '\0';
    }

    void checkCalibration(const RecordingField& field)
    {
        const double number = field.real();
        const bool isFactor = field.id == Id::CalibrationFactor;
        if (std::isfinite(number) && !(isFactor && number == 0))
            return;
        const bool used = isCalibrated(field.signal);
        add(used ? Grade::Warning : Grade::Note, field, numberText(number),
            isFactor ? "a finite number other than 0" : "a finite number",
            used ? "its calibrated values are not finite" : "the signal is not calibrated");
    }

    void reportCut(const RecordingField& field)
    {
        add(Grade::Error, field, "the end of the file at byte " + std::to_string(m_size),
            bytesText(field.size), "the header is cut and there are no samples");
    }

    void checkData(const KiroHeader& header)
    {
        const std::int64_t start = header.headerSize();
        const std::int64_t data = m_size - start;
        const std::int64_t frameSize = header.frameSize();
        if (frameSize == 0) {
            reportNoSamples(header);
            return;
        }
        const std::int64_t whole = std::max<std::int64_t>(data, 0) / frameSize;
        checkFrameCount(header.frameCount(), whole, data);
        if (data > 0 && data % frameSize != 0)
            addOnFile(Grade::Note, "data", "data", start + whole * frameSize,
                      bytesText(data % frameSize) + " behind the last whole packet",
                      "packets of " + bytesText(frameSize), "an incomplete packet is not read");
    }

    void reportNoSamples(const KiroHeader& header)
    {
        const std::string found = header.signalCount() == 0 ? "0" : "no signal with samples";
        const RecordingField* const field = m_fields.find(Id::SignalCount);
        if (field)
            add(Grade::Warning, *field, found, "at least one signal with samples", "the packets are empty");
    }

    void checkFrameCount(std::uint32_t declared, std::int64_t whole, std::int64_t data)
    {
        const RecordingField& field = *m_fields.find(Id::FrameCount);
        const std::string stored = std::to_string(whole) + " as stored, in " + bytesText(data) + " of data";
        if (declared > whole)
            add(Grade::Error, field, std::to_string(declared), stored,
                "samples are missing and can't be brought back");
        else if (declared < whole)
            add(Grade::Error, field, std::to_string(declared), stored, "repair can put it right");
        else if (declared == 0)
            add(Grade::Warning, field, "0", "1 or more", "the recording is empty");
    }

    KiroFile& m_file;
    std::int64_t m_size;
    RecordingFields m_fields;
    std::vector<CheckFinding> m_findings;
};

} // namespace

std::string CheckFinding::text() const
{
    std::string result = signal >= 0 ? "signal " + std::to_string(signal) + ", " : std::string();
    result += field;
    if (offset >= 0)
        result += ", at byte " + std::to_string(offset);
    result += ": found " + found + ", expected " + expected;
    return meaning.empty() ? result : result + "; " + meaning;
}

int CheckResult::count(Grade grade) const
{
    return static_cast<int>(std::count_if(findings.begin(), findings.end(),
                                          [grade](const CheckFinding& each) { return each.grade == grade; }));
}

CheckResult checkRecording(const KiroString& path)
{
    CheckResult result;
    KiroFile file;
    result.opened = file.open(path, KiroFile::Read);
    if (result.opened)
        result.findings = Check(file).run();
    return result;
}
