#pragma once

#include "bdfheader.h"
#include "bdfremarks.h"
#include "bdfsamples.h"

#include <QString>

#include <vector>

class JobProgress;
class KiroHeader;
class SafeFile;

/// Reads a BDF (24-bit) or EDF (16-bit) file and writes it as a recording.
///
/// A record of the file becomes a frame of the recording: channels keep their rates. Samples keep their
/// numbers, but those of channels that the recorder's own software wrote are shifted. The offset of a
/// channel's ranges is not kept; remarks() tells where that and other rules show.
class BdfImporter
{
public:
    /// Bytes of a sample for the next load(): 2 or 3; 0, as at first, goes by the file's reserved field.
    void setSampleBytes(int bytes) { m_sampleBytes = bytes; }

    /// Reads and checks the header. False with errorText() set, and nothing loaded, if a check fails.
    bool load(const QString& path);
    /// Writes the records `first` to `last` (from 0) as a new recording; a `last` below `first` or behind
    /// the end stands for the last record. Data that the file lacks become zeros. False with errorText()
    /// set after a failure, and after a cancel; an older file at `destination` then stands, and no part of
    /// the new one.
    bool convert(const QString& destination, int first = 0, int last = -1);
    bool convert(const QString& destination, int first, int last, JobProgress& progress);

    /// What went wrong in the last call; empty after success and after a cancel.
    const QString& errorText() const { return m_errorText; }
    bool wasCancelled() const { return m_cancelled; }

    /// Path of the loaded file, empty if none is loaded.
    const QString& fileName() const { return m_fileName; }
    /// Of the loaded file.
    const BdfHeader& header() const { return m_header; }
    /// What to tell the user about the loaded file, before or after convert().
    const std::vector<BdfRemark>& remarks() const { return m_remarks; }

private:
    bool convertLoaded(const QString& destination, int first, int last, JobProgress& progress);
    bool checkSize(const KiroHeader& recording);
    KiroHeader makeRecording(const QString& destination, int frames) const;
    bool finish(BdfSampleCopy::Result result, SafeFile& file, const QString& destination);
    bool fail(const QString& text);

    QString m_fileName;
    QString m_errorText;
    BdfHeader m_header;
    std::vector<BdfRemark> m_remarks;
    int m_sampleBytes = 0;
    bool m_cancelled = false;
};
