#include "bdfsamples.h"

#include "bdfheader.h"
#include "jobprogress.h"
#include "safefile.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>

#include <unistd.h>

namespace
{

/// Bytes read and written at once: large against the cost of a call, small enough for the cache.
constexpr std::size_t BlockSize = 256 * 1024;
/// Samples converted at once, a small part of a block.
constexpr qint64 PieceSamples = 4096;
constexpr int ProgressSteps = 100;

/// The recorder's own software writes its samples around 0, and they belong around this.
constexpr int MarkedShift = 0x800;

/// Reads up to `count` bytes at `position`. Returns how many, fewer only at the end of the file, or -1.
qint64 readAt(int handle, uchar* buffer, std::size_t count, qint64 position)
{
    std::size_t done = 0;
    while (done < count) {
        const ssize_t now = ::pread(handle, buffer + done, count - done, position + qint64(done));
        if (now < 0 && errno == EINTR)
            continue;
        if (now < 0)
            return -1;
        if (now == 0)
            break;
        done += static_cast<std::size_t>(now);
    }
    return qint64(done);
}

/// 24-bit little-endian samples as 32-bit big-endian ones.
void widen(const uchar* samples, int count, bool isSigned, int shift, uchar* target)
{
    const std::uint32_t signBit = isSigned ? 0x800000 : 0;
    const auto added = static_cast<std::uint32_t>(shift);
    for (int i = 0; i < count; ++i, samples += 3, target += 4) {
        const std::uint32_t raw =
            samples[0] | std::uint32_t(samples[1]) << 8 | std::uint32_t(samples[2]) << 16;
        const std::uint32_t stored = __builtin_bswap32((raw ^ signBit) - signBit + added);
        std::memcpy(target, &stored, sizeof(stored));
    }
}

/// 16-bit little-endian samples as big-endian ones.
void swapBytes(const uchar* samples, int count, uchar* target)
{
    for (int i = 0; i < count; ++i, samples += 2, target += 2) {
        target[0] = samples[1];
        target[1] = samples[0];
    }
}

} // namespace

int bdfSampleShift(const BdfChannel& channel, bool is24Bit)
{
    return channel.isMarked && is24Bit ? MarkedShift : 0;
}

BdfSampleCopy::BdfSampleCopy(const BdfHeader& header, QFile& source, SafeFile& target)
    : m_source(source)
    , m_target(target)
    , m_headerBytes(header.headerBytes)
    , m_recordBytes(header.recordBytes)
    , m_frameBytes(qint64(header.recordSamples()) * header.storedSampleBytes())
    , m_sampleBytes(header.sampleBytes())
    , m_storedBytes(header.storedSampleBytes())
{
    makeRuns(header);
    m_block.reserve(BlockSize);
    m_frames.reserve(BlockSize + std::size_t(PieceSamples * m_storedBytes));
}

void BdfSampleCopy::makeRuns(const BdfHeader& header)
{
    for (const BdfChannel& channel : header.channels) {
        // Of 16 bits as many come out: with or without a sign they are the same.
        const bool isSigned = header.is24Bit && !channel.isStatus;
        const int shift = bdfSampleShift(channel, header.is24Bit);
        if (m_runs.empty() || m_runs.back().isSigned != isSigned || m_runs.back().shift != shift)
            m_runs.push_back({0, isSigned, shift});
        m_runs.back().samples += channel.samplesPerRecord;
    }
}

BdfSampleCopy::Result BdfSampleCopy::copy(int first, int count, JobProgress& progress)
{
    m_block.clear();
    m_blockPosition = 0;
    m_sourcePosition = m_headerBytes + first * m_recordBytes;
    m_written = 0;
    m_toWrite = count * m_frameBytes;
    m_shownStep = 0;
    progress.setRange(0, ProgressSteps);
    for (int record = 0; record < count; ++record) {
        for (const Run& run : m_runs) {
            const Result result = copyRun(run, progress);
            if (result != Result::Done)
                return result;
        }
    }
    return flush(progress);
}

BdfSampleCopy::Result BdfSampleCopy::copyRun(const Run& run, JobProgress& progress)
{
    for (qint64 left = run.samples; left > 0;) {
        const int count = static_cast<int>(std::min(left, PieceSamples));
        const uchar* const samples = take(count * m_sampleBytes);
        if (!samples)
            return Result::ReadFailed;
        const std::size_t end = m_frames.size();
        m_frames.resize(end + std::size_t(count * m_storedBytes));
        if (m_sampleBytes == 3)
            widen(samples, count, run.isSigned, run.shift, m_frames.data() + end);
        else
            swapBytes(samples, count, m_frames.data() + end);
        left -= count;
        if (m_frames.size() < BlockSize)
            continue;
        const Result result = flush(progress);
        if (result != Result::Done)
            return result;
    }
    return Result::Done;
}

/// The next `count` bytes of the source, valid until the next call; null if they cannot be read.
const uchar* BdfSampleCopy::take(int count)
{
    const auto wanted = static_cast<std::size_t>(count);
    if (m_block.size() - m_blockPosition < wanted && !fillBlock())
        return nullptr;
    const uchar* const bytes = m_block.data() + m_blockPosition;
    m_blockPosition += wanted;
    return bytes;
}

/// Drops what was taken and reads on, with zeros behind the end of the file.
bool BdfSampleCopy::fillBlock()
{
    m_block.erase(m_block.begin(), m_block.begin() + std::ptrdiff_t(m_blockPosition));
    m_blockPosition = 0;
    const std::size_t kept = m_block.size();
    m_block.resize(BlockSize); // new bytes are 0
    const qint64 read = readAt(m_source.handle(), m_block.data() + kept, BlockSize - kept, m_sourcePosition);
    m_sourcePosition += qint64(BlockSize - kept);
    return read >= 0;
}

BdfSampleCopy::Result BdfSampleCopy::flush(JobProgress& progress)
{
    if (progress.cancelled())
        return Result::Cancelled;
    if (!m_target.write(m_frames.data(), qint64(m_frames.size())))
        return Result::WriteFailed;
    m_written += qint64(m_frames.size());
    m_frames.clear();
    const int step = m_toWrite > 0 ? static_cast<int>(m_written * ProgressSteps / m_toWrite) : ProgressSteps;
    if (step != m_shownStep)
        progress.setValue(m_shownStep = step);
    return Result::Done;
}
