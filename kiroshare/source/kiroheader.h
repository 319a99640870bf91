#pragma once

#include "kirosignal.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class KiroDateTime;
class KiroFile;
class QDataStream;
namespace RecordingLayout
{
struct Row;
}

/// The header of a recording: what was recorded when, the table of signals and the number of frames.
///
/// A value class. It reads and writes the legacy form (version 2 in memory) and versions 3 to 12; a
/// later version keeps its number and has the layout of 12. A header that was read is written back in
/// its own version. See docs/formats/recording.md for the bytes.
class KiroHeader
{
public:
    static constexpr std::uint32_t CurrentVersion = 12;
    static constexpr std::uint32_t LegacyVersion = 2;
    static constexpr unsigned MaxSignals = 255;

    /// As after clear().
    KiroHeader();

    /// Version 12, no texts, no signals, no frames, the present local date and time.
    void clear();

    /// Opens the file and calls read(). False if it cannot be opened or is no recording; the header is
    /// then as after clear().
    bool load(const KiroString& path);
    /// Reads a header from the start of `file` and leaves the file in the recording's byte order. False,
    /// and as after clear(), if the file is no recording, has KiroFile::SizeLimit bytes or more, or
    /// announces texts or signals that it or the memory cannot hold. Numbers that are missing at the end of
    /// a cut header are 0.
    bool read(KiroFile& file);
    /// Writes the form of the header's own version and sets the byte order that the samples have.
    /// Always true; whether the bytes were taken is the stream's to say.
    bool write(KiroFile& file) const;
    bool write(QDataStream& stream) const;
    /// The bytes that write() writes: headerSize() of them, but 8 bytes in the legacy version.
    std::string toBytes() const;

    std::uint32_t version() const { return m_version; }
    const KiroString& storingProgram() const { return m_storingProgram; }
    const KiroString& notes() const { return m_notes; }
    /// Lines of name, tab and value, ended by line feeds; written by the recorder (version 12).
    const KiroString& technicalParameters() const { return m_technicalParameters; }
    /// A remark for the running program; it never reaches a file.
    const KiroString& remark() const { return m_remark; }
    std::uint8_t day() const { return m_day; }
    std::uint8_t month() const { return m_month; }
    std::uint16_t year() const { return m_year; }
    std::uint8_t hour() const { return m_hour; }
    std::uint8_t minute() const { return m_minute; }
    std::uint8_t second() const { return m_second; }
    std::uint16_t millisecond() const { return m_millisecond; }
    std::uint32_t frameCount() const { return m_frameCount; }

    void setStoringProgram(const KiroString& text) { m_storingProgram = text; }
    void setNotes(const KiroString& text) { m_notes = text; }
    void setTechnicalParameters(const KiroString& text) { m_technicalParameters = text; }
    void setRemark(const KiroString& text) { m_remark = text; }
    void setDay(std::uint8_t day) { m_day = day; }
    void setMonth(std::uint8_t month) { m_month = month; }
    void setYear(std::uint16_t year) { m_year = year; }
    void setHour(std::uint8_t hour) { m_hour = hour; }
    void setMinute(std::uint8_t minute) { m_minute = minute; }
    void setSecond(std::uint8_t second) { m_second = second; }
    void setMillisecond(std::uint16_t millisecond) { m_millisecond = millisecond; }
    void setFrameCount(std::uint32_t count) { m_frameCount = count; }
    /// From the local clock.
    void setCurrentDate();
    void setCurrentTime();

    /// "day/month/year", day and month with two digits.
    KiroString dateString() const;
    /// "hour:minute:second.millisecond", with two and three digits.
    KiroString timeString() const;

    /// Bytes of the header as its version stores it; the sample data begins there. What the file
    /// itself says of its header's size is never trusted.
    std::uint32_t headerSize() const;
    /// Bytes of one frame, 0 without signals. Sizes beyond 2^63 - 1 are held there.
    std::int64_t frameSize() const;
    /// Frames per second, by the first signal. Without signals a fatal error.
    double frameFrequency() const;
    /// Milliseconds that a frame lasts, by the first signal. Without signals a fatal error.
    double frameMSecs() const;

    /// Declared length in whole milliseconds, cut; no value without signals or where the rates give none.
    std::optional<double> durationMSecs() const;
    /// Name and value of each line of the technical parameters that is not empty. A line without a tab has
    /// no value; what stands behind a second tab is left out.
    std::vector<std::pair<KiroString, KiroString>> technicalRows() const;

    int signalCount() const { return static_cast<int>(m_signals.size()); }
    /// Resizes the table; false, and no change, if `count` is negative or above MaxSignals.
    bool setSignalCount(int count);
    /// A copy of descriptor `index`; a fatal error if it is out of range.
    KiroSignal signal(unsigned int index) const;
    /// Copies a descriptor out or in; false, and no change, if `index` is out of range.
    bool getSignal(int index, KiroSignal& out) const;
    bool setSignal(int index, const KiroSignal& descriptor);
    /// All descriptors in order.
    const std::vector<KiroSignal>& signalTable() const { return m_signals; }

    /// Samples per second of a signal; a bad index is a fatal error, as in the next two.
    double signalFrequency(int index) const;
    /// Milliseconds from sample to sample.
    double signalMSecs(int index) const;
    /// Samples that the header declares for the signal.
    std::uint64_t signalSampleCount(int index) const;

    /// Index of the first signal whose full name starts with one of `names`; if there is none, of the
    /// first whose full name contains one; else -1. Signals count before names; case matters.
    int findSignal(const std::vector<KiroString>& names) const;

    /// Number of the field that says whether header size and texts are fixed (version 6 on).
    static constexpr int FixedLayoutField = 0;
    /// Number of the field that says whether the file can store a calibration (version 4 on).
    static constexpr int CalibrationField = 22;
    /// Whether this header's version holds field number `id`; false for numbers that no field has.
    bool hasField(int id) const;

private:
    template <class Walk, class Header>
    static void walkField(Walk& walk, Header& header, const RecordingLayout::Row& row);
    template <class Walk, class Header>
    static void walkFields(Walk& walk, Header& header);

    bool readLegacy(KiroFile& file);
    bool readFields(KiroFile& file);
    void setDate(const KiroDateTime& now);
    void setTime(const KiroDateTime& now);
    bool hasSignal(int index) const { return index >= 0 && index < signalCount(); }
    /// The descriptor, or a fatal error with `message`.
    const KiroSignal& checkedSignal(int index, const char* message) const;

    std::uint32_t m_version = CurrentVersion;
    KiroString m_notes;
    KiroString m_technicalParameters;
    KiroString m_storingProgram;
    KiroString m_remark;
    std::uint8_t m_day = 0;
    std::uint8_t m_month = 0;
    std::uint16_t m_year = 0;
    std::uint8_t m_hour = 0;
    std::uint8_t m_minute = 0;
    std::uint8_t m_second = 0;
    std::uint16_t m_millisecond = 0;
    std::vector<KiroSignal> m_signals;
    std::uint32_t m_frameCount = 0;
};
