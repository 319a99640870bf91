#pragma once

#include <QFile>
#include <QString>

#include <vector>

class JobProgress;
class SafeFile;
struct BdfChannel;
struct BdfHeader;

/// What is added to every sample of a channel when it is stored.
int bdfSampleShift(const BdfChannel& channel, bool is24Bit);

/// Turns data records of a BDF or EDF file into frames of a recording.
///
/// A frame holds the samples of its record in the same order, so that both are read and written forward
/// in blocks; the memory taken depends on no size in the file. What the file lacks at its end reads as 0.
class BdfSampleCopy
{
public:
    enum class Result { Done, Cancelled, ReadFailed, WriteFailed };

    /// `source` is open for reading; all three stay the caller's.
    BdfSampleCopy(const BdfHeader& header, QFile& source, SafeFile& target);

    /// Copies `count` records from `first` on, both within the header's record count.
    Result copy(int first, int count, JobProgress& progress);

private:
    /// Samples of neighbouring channels that are stored alike.
    struct Run
    {
        qint64 samples;
        bool isSigned;
        int shift;
    };

    void makeRuns(const BdfHeader& header);
    Result copyRun(const Run& run, JobProgress& progress);
    const uchar* take(int count);
    bool fillBlock();
    Result flush(JobProgress& progress);

    QFile& m_source;
    SafeFile& m_target;
    qint64 m_headerBytes;
    qint64 m_recordBytes;
    qint64 m_frameBytes;
    int m_sampleBytes;
    int m_storedBytes;
    std::vector<Run> m_runs;         // of one record
    std::vector<uchar> m_block;      // bytes of the source
    std::size_t m_blockPosition = 0; // of the first byte not yet taken
    qint64 m_sourcePosition = 0;     // of the byte behind the block
    std::vector<uchar> m_frames;     // bytes for the target
    qint64 m_written = 0;
    qint64 m_toWrite = 0;
    int m_shownStep = 0;
};
