#pragma once

#include <QDateTime>
#include <QString>

#include <vector>

/// One channel of a BDF or EDF file: the texts of its header fields and what they say.
struct BdfChannel
{
    QString label;
    QString transducer;
    QString physicalDimension;
    QString physicalMinimumText;
    QString physicalMaximumText;
    QString digitalMinimumText;
    QString digitalMaximumText;
    QString prefiltering;
    QString samplesPerRecordText;
    QString reserved;

    bool isStatus = false; ///< the trigger channel: its samples have no sign and no calibration
    double physicalMinimum = 0.0;
    double physicalMaximum = 0.0;
    int digitalMinimum = 0;
    int digitalMaximum = 0;
    int samplesPerRecord = 0; ///< 0 or more
    double gain = 1.0;        ///< digital steps for one physical unit; 1 without a physical range
    bool isMarked = false;    ///< written by the recorder's own software

    /// Whether a recording takes the gain over as calibration factor.
    bool isCalibrated() const;
};

/// The header of a BDF or EDF file: the texts of its fields and what they say.
struct BdfHeader
{
    /// Bytes that every file has at least: the fixed part and one channel.
    static constexpr int SmallestFile = 512;

    QString patient;
    QString recording;
    QString dateText;
    QString timeText;
    QString headerBytesText;
    QString reserved;
    QString recordCountText;
    QString recordDurationText;
    QString channelCountText;

    bool isBdf = false; ///< identified by the byte 0xFF; else by "0", as EDF
    std::vector<BdfChannel> channels;
    QDateTime start;             ///< as written, in UTC; a date or time that does not parse is invalid
    int headerBytes = 0;         ///< the first record begins there
    int recordCount = 0;         ///< 1 or more
    double recordDuration = 0.0; ///< seconds; any number, nan included
    int recordBytes = 0;         ///< 1 or more
    bool is24Bit = false;        ///< samples of 3 bytes, else of 2

    int channelCount() const { return static_cast<int>(channels.size()); }
    /// Bytes of one sample in the file.
    int sampleBytes() const { return is24Bit ? 3 : 2; }
    /// Bytes of one sample in a recording.
    int storedSampleBytes() const { return is24Bit ? 4 : 2; }
    /// Samples of all channels in one record.
    int recordSamples() const { return recordBytes / sampleBytes(); }
};

/// What the reserved field of a file with 24-bit samples holds.
QString bdfWidthText();

/// Reads and checks the header of the file at `path`. `sampleBytes` is 2 or 3, or 0 to go by the reserved
/// field. False with a text for the user in `error` if a check fails; `header` is then unchanged.
bool readBdfHeader(const QString& path, int sampleBytes, BdfHeader& header, QString& error);
