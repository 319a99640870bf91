#pragma once

#include "elementtype.h"
#include "kiroheader.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <vector>

class JobProgress;
class KiroFile;
class KiroReader;

/// Whole signals of a recording, read forward in large blocks with one open of the file.
///
/// Values are exactly those of KiroReader::getSample. Each call reports progress in its own range and
/// stops soon after JobProgress::cancelled(). A call that fails or is cancelled leaves its output
/// untouched. Memory is taken only for samples that the file holds; nothing is thrown.
class KiroBulkReader
{
public:
    /// Told of the samples of a signal that are read so far, which are valid only during the call. May
    /// throw std::bad_alloc.
    using Watcher = std::function<void(std::size_t signal, const SampleArray& soFar)>;

    /// Reads the file that `reader` is set to, by a copy of its header.
    explicit KiroBulkReader(const KiroReader& reader);

    /// Whole frames that are both declared and stored, by the file's present length; 0 if the file cannot
    /// be opened.
    std::int64_t readableFrames() const;

    /// Every sample of every signal, each signal in a vector of its element type. False if the file does
    /// not hold all declared frames.
    bool readAll(std::vector<SampleVector>& out, JobProgress& progress);
    /// The same. False also if a signal takes more bytes in memory than an array holds. `watcher`, if there
    /// is one, is told of each signal after each block of the file, while the samples of the block are still
    /// in the processor's cache.
    bool readAll(std::vector<SampleArray>& out, JobProgress& progress, const Watcher& watcher = {});

    /// How many frames lie between two reports of progress; 0, as at first, for a hundredth of what is read.
    void setFramesPerReport(std::int64_t frames) { m_framesPerReport = std::max<std::int64_t>(frames, 0); }

    /// Gives samples that are no longer needed, so that the next readAll() uses their memory. Worth it
    /// where many recordings are read in turn: fresh memory costs more than the reading.
    void recycle(std::vector<SampleVector> samples);

    /// Samples `first` to `first` + `count` - 1 of one signal, in its element type. False if the signal
    /// does not exist or the file does not hold all of them.
    bool readSignal(int signal, std::int64_t first, std::int64_t count, SampleVector& out,
                    JobProgress& progress);

    /// The same as doubles: calibrated if `calibrate` is set and the signal is calibrated, else raw.
    bool readSignal(int signal, std::int64_t first, std::int64_t count, bool calibrate,
                    std::vector<double>& out, JobProgress& progress);

    /// What went wrong in the last call; empty after success and after a cancel.
    const KiroString& errorText() const { return m_errorText; }
    /// Whether the last call was stopped by its JobProgress.
    bool wasCancelled() const { return m_cancelled; }

private:
    bool openAtFrame(KiroFile& file, std::int64_t first, std::int64_t count);
    template <class MakeTargets, class Watch, class HandOver>
    bool readFrames(std::int64_t first, std::int64_t count, JobProgress& progress, MakeTargets&& makeTargets,
                    Watch&& watch, HandOver&& handOver);
    template <class Give, class Watch>
    bool readBlocks(KiroFile& file, std::int64_t count, JobProgress& progress, Give&& give, Watch&& watch);
    template <class Samples, class Spare, class Watch>
    bool readEvery(std::vector<Samples>& out, JobProgress& progress, Spare&& spare, Watch&& watch);
    template <class MakeTarget, class Out>
    bool readOne(int signal, std::int64_t first, std::int64_t count, JobProgress& progress, Out& out,
                 MakeTarget&& makeTarget);
    bool checkRange(int signal, std::int64_t first, std::int64_t count);
    bool fail(const KiroString& text);

    KiroString m_fileName;
    KiroHeader m_header;
    std::int64_t m_dataStart;
    bool m_swap;
    std::vector<SampleVector> m_spare; // memory for the next readAll()
    std::int64_t m_framesPerReport = 0;
    KiroString m_errorText;
    bool m_cancelled = false;
};
