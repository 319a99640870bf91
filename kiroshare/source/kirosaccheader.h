#pragma once

#include "detectionparams.h"
#include "kirosaccade.h"
#include "kirostring.h"

#include <cstdint>
#include <string>
#include <vector>

class SaccSource;

/// A signal that a detection used, with its calibration: physical value = (raw - offset) / factor.
struct KiroSaccSignal
{
    std::int32_t signalIndex = -1; ///< in the recording; -1 for none
    double factor = 1.0;
    double offset = 0.0;
};

/// The saccades and blinks of one detection run, and what is needed to open them again: the recording that
/// they came from, its eye signals, and how they were detected. Kept in a saccade file (.sacc).
///
/// A value class. It reads versions 1 to 19 of the file and writes 19. The file holds no eye signal. Nothing
/// is thrown; a call that fails says why in `error`. See docs/formats/saccades.md for the bytes.
class KiroSaccHeader
{
public:
    static constexpr std::uint32_t CurrentVersion = 19;

    enum DetectionType : std::int32_t { OneSignal = 1, Monocular = 2, Binocular = 3 };

    /// Names the slot of a signal. 2 means RightVertical too, and any other number RightHorizontal.
    enum SignalRole : std::int32_t {
        LeftHorizontal = 3,
        LeftVertical = 4,
        RightHorizontal = 5,
        RightVertical = 6
    };

    std::uint32_t version = CurrentVersion; ///< also after reading an older file
    KiroString fileName;                    ///< of the saccade file; empty until loaded
    KiroString relativeDataFile;            ///< the recording, seen from the folder of the saccade file
    KiroString dataFile;                    ///< the recording's absolute path
    KiroString comment;
    bool blinksHorizontal = false; ///< blinks were detected on the horizontal signal
    std::vector<KiroSaccade> saccades;
    std::vector<KiroBlink> blinks;
    std::int32_t detectionType = OneSignal;
    KiroSaccSignal rightHorizontal; ///< also the only signal of one-signal detection
    KiroSaccSignal rightVertical;   ///< also the vertical signal of monocular detection
    KiroSaccSignal leftHorizontal;
    KiroSaccSignal leftVertical;
    SaccadeDetectionParams params;      ///< `minAmp` and `maxAmp` are not stored: 0 after load()
    std::uint32_t ratePeriod = 1;       ///< of the first eye signal, milliseconds
    std::uint32_t samplesPerPeriod = 1; ///< of that signal
    std::uint32_t durationMs = 0;       ///< of that signal, cut to whole milliseconds
    KiroString error;                   ///< text of the last failure

    /// Samples of the eye signals per second; not finite if the rate period is 0.
    double frequency() const { return samplesPerPeriod * 1000.0 / ratePeriod; }

    /// All fields but `error` as in a new object.
    void clear();

    /// Reads a file of any version. False, and nothing but `error` changed, if it cannot be opened or read,
    /// if mark, version or size check are wrong, or if it announces many more records than it holds.
    ///
    /// A file that ends early is no failure: numbers that are missing, whole or in part, are 0. The missing
    /// calls below then tell how much that was.
    bool load(const KiroString& path);
    /// load() from the bytes of a file; `fileName` is empty afterwards.
    bool fromBytes(const std::string& bytes);
    /// saveAs() to `fileName`; false if that is empty.
    bool save();
    /// Replaces the file at `path` whole, or on failure leaves it as it was. Texts are cut to 4095 bytes, the
    /// comment to 8191. Does not change `fileName`.
    bool saveAs(const KiroString& path);
    /// The bytes that saveAs() writes.
    std::string toBytes() const;

    /// Bytes that the file of the last successful load() lacked at its end; 0 for a whole file.
    std::int64_t missingBytes() const { return m_missingBytes; }
    /// Saccades and blinks that it announced and did not hold whole.
    std::int64_t missingSaccades() const { return m_missingSaccades; }
    std::int64_t missingBlinks() const { return m_missingBlinks; }

    /// `dataFile`, or `relativeDataFile` if `absolute` is not set.
    const KiroString& dataFileName(bool absolute) const { return absolute ? dataFile : relativeDataFile; }
    void setDataFiles(const KiroString& absolute, const KiroString& relative);

    const KiroSaccSignal& signal(std::int32_t role) const { return this->*slot(role); }
    double signalFactor(std::int32_t role) const { return signal(role).factor; }
    double signalOffset(std::int32_t role) const { return signal(role).offset; }
    std::int32_t signalIndex(std::int32_t role) const { return signal(role).signalIndex; }
    void setSignalFactor(std::int32_t role, double factor) { (this->*slot(role)).factor = factor; }
    void setSignalOffset(std::int32_t role, double offset) { (this->*slot(role)).offset = offset; }
    void setSignalIndex(std::int32_t role, std::int32_t index) { (this->*slot(role)).signalIndex = index; }
    void setSignal(std::int32_t role, std::int32_t index, double factor, double offset);

    /// "One signal", "Monocular", "Binocular", or "unknown!".
    static KiroString detectionTypeName(std::int32_t type);

private:
    static KiroSaccSignal KiroSaccHeader::*slot(std::int32_t role);
    bool readAnew(SaccSource& source);
    KiroString read(SaccSource& source);
    bool checkCounts(std::int64_t saccadeCount, std::int64_t blinkCount, std::int64_t fileSize);
    bool fail(const KiroString& text);

    std::int64_t m_missingBytes = 0;
    std::int64_t m_missingSaccades = 0;
    std::int64_t m_missingBlinks = 0;
};
