#include "kirobulkreader.h"

#include "jobprogress.h"
#include "kirofile.h"
#include "kiroreader.h"
#include "kiroutils.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <new>
#include <stdexcept>
#include <type_traits>
#include <utility>

namespace
{

/// Bytes read at once: large against the cost of a call, small enough for the second-level cache.
constexpr std::int64_t BlockSize = 256 * 1024;
/// Bytes of frames whose samples are sorted at once: they stay in the first-level cache for every signal.
constexpr std::int64_t SortSize = 16 * 1024;

/// A stretch of frames in memory.
struct FrameBlock
{
    const unsigned char* bytes;
    std::size_t frames;
    std::size_t frameSize;
};

/// Where one signal's samples lie in each frame.
struct SampleRun
{
    SampleRun(const KiroSignal& signal, std::int64_t offsetInFrame, bool swapBytes)
        : offset(static_cast<std::size_t>(offsetInFrame))
        , samples(signal.sampleSize > 0 ? signal.samplesPerFrame : 0) // samples of no bytes do not exist
        , size(static_cast<std::size_t>(signal.runSize()))
        , swap(swapBytes)
        , isNumber(elementType(signal.valueType, signal.sampleSize) != ElementTypeDouble ||
                   (signal.valueType == KiroValue::Float && signal.sampleSize == sizeof(double)))
    {
    }

    std::size_t offset;
    std::size_t samples;
    std::size_t size; ///< bytes of the run
    bool swap;
    bool isNumber; ///< else every sample is 0
};

/// Joins the runs of a block. `RunSize` is their size in bytes where the compiler shall know it, or 0.
template <std::size_t RunSize>
void joinRuns(const FrameBlock& block, const SampleRun& run, unsigned char* target)
{
    const std::size_t size = RunSize > 0 ? RunSize : run.size;
    const unsigned char* source = block.bytes + run.offset;
    for (std::size_t frame = 0; frame < block.frames; ++frame) {
        std::memcpy(target, source, size);
        source += block.frameSize;
        target += size;
    }
}

void joinRuns(const FrameBlock& block, const SampleRun& run, unsigned char* target)
{
    switch (run.size) {
    case 1:
        return joinRuns<1>(block, run, target);
    case 2:
        return joinRuns<2>(block, run, target);
    case 4:
        return joinRuns<4>(block, run, target);
    case 8:
        return joinRuns<8>(block, run, target);
    case 16:
        return joinRuns<16>(block, run, target);
    case 32:
        return joinRuns<32>(block, run, target);
    default:
        return joinRuns<0>(block, run, target);
    }
}

std::uint16_t swapped(std::uint16_t word)
{
    return static_cast<std::uint16_t>(word << 8 | word >> 8);
}

std::uint32_t swapped(std::uint32_t word)
{
    return __builtin_bswap32(word);
}

std::uint64_t swapped(std::uint64_t word)
{
    return __builtin_bswap64(word);
}

/// Reverses the bytes of each of `count` numbers of the size of `Word`. Unsigned words stand for numbers
/// here: a float with reversed bytes may be a signalling NaN, which a floating point move would change.
template <class Word>
void swapNumbers(unsigned char* numbers, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        Word word;
        std::memcpy(&word, numbers + i * sizeof(Word), sizeof(Word));
        word = swapped(word);
        std::memcpy(numbers + i * sizeof(Word), &word, sizeof(Word));
    }
}

void swapNumbers(unsigned char* numbers, std::size_t count, std::size_t size)
{
    switch (size) {
    case 2:
        return swapNumbers<std::uint16_t>(numbers, count);
    case 4:
        return swapNumbers<std::uint32_t>(numbers, count);
    case 8:
        return swapNumbers<std::uint64_t>(numbers, count);
    default:
        return; // one byte
    }
}

/// Joins and swaps runs of four 16-bit samples, the form of the recorder's eye signals, two frames at a
/// time in one vector register.
void joinSwappedRunsOfFourWords(const FrameBlock& block, const SampleRun& run, unsigned char* target)
{
    using Runs = std::uint64_t __attribute__((vector_size(16)));
    using Words = std::uint16_t __attribute__((vector_size(16)));
    constexpr std::size_t RunSize = 8;
    const unsigned char* source = block.bytes + run.offset;
    std::size_t frame = 0;
    for (; frame + 2 <= block.frames; frame += 2) {
        std::uint64_t first;
        std::uint64_t second;
        std::memcpy(&first, source, RunSize);
        std::memcpy(&second, source + block.frameSize, RunSize);
        const auto words = reinterpret_cast<Words>(Runs{first, second});
        const Words turned = words << 8 | words >> 8;
        std::memcpy(target, &turned, 2 * RunSize);
        source += 2 * block.frameSize;
        target += 2 * RunSize;
    }
    if (frame < block.frames) {
        std::memcpy(target, source, RunSize);
        swapNumbers<std::uint16_t>(target, 4);
    }
}

template <class Vector>
std::size_t sizeOf(const Vector& samples)
{
    return static_cast<std::size_t>(samples.size());
}

template <class Vector>
void resize(Vector& samples, std::size_t count)
{
    samples.resize(static_cast<typename Vector::size_type>(count));
}

/// Appends the samples of one signal in a block.
template <class Vector>
void appendSamples(const FrameBlock& block, const SampleRun& run, Vector& samples)
{
    using Number = typename Vector::value_type;
    const std::size_t before = sizeOf(samples);
    const std::size_t count = block.frames * run.samples;
    resize(samples, before + count);
    if (!run.isNumber || count == 0)
        return;
    auto* target = reinterpret_cast<unsigned char*>(samples.data() + before);
    if (sizeof(Number) == 2 && run.samples == 4 && run.swap)
        return joinSwappedRunsOfFourWords(block, run, target);
    joinRuns(block, run, target);
    if (run.swap)
        swapNumbers(target, count, sizeof(Number));
}

template <class Vector>
void reserveLarge(Vector& samples, std::size_t count)
{
    if (static_cast<std::size_t>(samples.capacity()) >= count)
        return;
    samples.reserve(static_cast<typename Vector::size_type>(count));
    adviseLargePages(samples.data(), count * sizeof(typename Vector::value_type));
}

/// Leaves `count` elements from `first` on.
template <class Vector>
void trim(Vector& samples, std::size_t first, std::size_t count)
{
    samples.erase(samples.begin(), samples.begin() + static_cast<std::ptrdiff_t>(first));
    resize(samples, count);
}

/// Most bytes of a QVector, whose own head lies before its elements.
constexpr std::size_t ArrayBytes = std::numeric_limits<int>::max() - 64;

/// Bytes that `count` samples of a signal take in memory.
std::size_t bytesInMemory(const KiroSignal& signal, std::size_t count)
{
    const SampleVector one = makeSampleVector(elementType(signal.valueType, signal.sampleSize));
    return count * std::visit([](const auto& samples) { return sizeof(*samples.data()); }, one);
}

/// An empty vector for the samples of a signal: `spare` where that has the right type.
SampleVector emptySamples(int type, SampleVector spare)
{
    if (spare.index() != static_cast<std::size_t>(type))
        return makeSampleVector(type);
    std::visit([](auto& samples) { samples.clear(); }, spare);
    return spare;
}

SampleArray emptySamples(int type, SampleArray)
{
    return makeSampleArray(type);
}

/// Collects one signal in its element type, in the memory of `spare` where that serves.
template <class Samples>
class TypedTarget
{
public:
    TypedTarget(const KiroSignal& signal, const SampleRun& run, std::size_t frames, Samples spare)
        : m_run(run)
        , m_samples(emptySamples(elementType(signal.valueType, signal.sampleSize), std::move(spare)))
    {
        std::visit([&](auto& samples) { reserveLarge(samples, frames * run.samples); }, m_samples);
    }

    void take(const FrameBlock& block)
    {
        std::visit([&](auto& samples) { appendSamples(block, m_run, samples); }, m_samples);
    }

    const Samples& samples() const { return m_samples; }

    Samples takeSamples(std::size_t first, std::size_t count)
    {
        std::visit([&](auto& samples) { trim(samples, first, count); }, m_samples);
        return std::move(m_samples);
    }

private:
    SampleRun m_run;
    Samples m_samples;
};

/// Collects one signal as doubles, calibrated or raw.
class DoubleTarget
{
public:
    DoubleTarget(const KiroSignal& signal, const SampleRun& run, std::size_t frames, bool calibrate)
        : m_signal(signal)
        , m_run(run)
        , m_calibrate(calibrate && signal.calibrated)
        , m_block(makeSampleVector(elementType(signal.valueType, signal.sampleSize)))
    {
        reserveLarge(m_samples, frames * run.samples);
    }

    void take(const FrameBlock& block)
    {
        std::visit(
            [&](auto& typed) {
                typed.clear();
                appendSamples(block, m_run, typed);
                if (m_calibrate)
                    append(typed, [this](double raw) { return m_signal.calibratedValue(raw); });
                else
                    append(typed, [](double raw) { return raw; });
            },
            m_block);
    }

    std::vector<double> takeSamples(std::size_t first, std::size_t count)
    {
        trim(m_samples, first, count);
        return std::move(m_samples);
    }

private:
    template <class Number, class Convert>
    void append(const std::vector<Number>& typed, Convert&& convert)
    {
        for (const Number raw : typed)
            m_samples.push_back(convert(static_cast<double>(raw)));
    }

    const KiroSignal& m_signal;
    SampleRun m_run;
    bool m_calibrate;
    SampleVector m_block; // one block's samples in their element type
    std::vector<double> m_samples;
};

/// When to report how much of `count` frames is read.
class ReportSteps
{
public:
    /// `framesPerReport` of 0 stands for a hundredth.
    ReportSteps(std::int64_t count, std::int64_t framesPerReport)
        : m_count(count)
        , m_framesPerReport(framesPerReport)
    {
    }

    int last() const
    {
        if (m_framesPerReport == 0)
            return 100;
        return static_cast<int>(m_count / m_framesPerReport + (m_count % m_framesPerReport > 0 ? 1 : 0));
    }
    /// The report that is due when `done` frames are read.
    int at(std::int64_t done) const
    {
        if (done >= m_count)
            return last();
        return static_cast<int>(m_framesPerReport == 0 ? last() * done / m_count : done / m_framesPerReport);
    }
    /// How many frames to read before the next report at most.
    std::int64_t framesToNext(std::int64_t done) const
    {
        const std::int64_t left = m_count - done;
        return m_framesPerReport == 0 ? left : std::min(left, m_framesPerReport - done % m_framesPerReport);
    }

private:
    std::int64_t m_count;
    std::int64_t m_framesPerReport;
};

std::int64_t runOffset(const KiroHeader& header, int signal)
{
    std::int64_t offset = 0;
    for (int i = 0; i < signal; ++i)
        offset += static_cast<std::int64_t>(header.signalTable()[static_cast<std::size_t>(i)].runSize());
    return offset;
}

} // namespace

KiroBulkReader::KiroBulkReader(const KiroReader& reader)
    : m_fileName(reader.fileName())
    , m_header(reader.header())
    , m_dataStart(reader.dataStart())
    , m_swap(reader.swapsBytes())
{
}

bool KiroBulkReader::fail(const KiroString& text)
{
    m_errorText = text;
    return false;
}

std::int64_t KiroBulkReader::readableFrames() const
{
    KiroFile file;
    const std::int64_t frameSize = m_header.frameSize();
    if (frameSize == 0 || !file.open(m_fileName, KiroFile::Read))
        return 0;
    const std::int64_t stored = std::max<std::int64_t>(file.size() - m_dataStart, 0) / frameSize;
    return std::min<std::int64_t>(stored, m_header.frameCount());
}

/// Opens the file at frame `first`, after a look whether it holds `count` frames from there.
bool KiroBulkReader::openAtFrame(KiroFile& file, std::int64_t first, std::int64_t count)
{
    if (count == 0)
        return true;
    const std::int64_t readable = readableFrames();
    if (first + count > readable) {
        return fail(KiroString("KiroBulkReader - the file cannot be read or ends before its last declared "
                               "frame (frames needed: %1, frames readable: %2, file: %3)")
                        .arg(first + count)
                        .arg(readable)
                        .arg(m_fileName)); // last: a name may hold a placeholder itself
    }
    const std::int64_t position = m_dataStart + first * m_header.frameSize();
    return (file.open(m_fileName, KiroFile::Read) && position < KiroReader::FileSizeLimit &&
            file.seek(static_cast<std::int32_t>(position))) ||
           fail(KiroString("KiroBulkReader - opening file %1 failed").arg(m_fileName));
}

/// Runs over `count` frames from `first` on and gives each block to every target, then lets `watch` look at
/// them. Memory for targets is taken by `makeTargets` once the file is known to hold the frames; it may
/// fail().
template <class MakeTargets, class Watch, class HandOver>
bool KiroBulkReader::readFrames(std::int64_t first, std::int64_t count, JobProgress& progress,
                                MakeTargets&& makeTargets, Watch&& watch, HandOver&& handOver)
{
    m_errorText.clear();
    m_cancelled = false;
    KiroFile file;
    if (!openAtFrame(file, first, count))
        return false;
    try {
        auto targets = makeTargets();
        if (!m_errorText.isEmpty())
            return false;
        const auto give = [&targets](const FrameBlock& block) {
            for (auto& target : targets)
                target.take(block);
        };
        if (!readBlocks(file, count, progress, give, [&] { watch(targets); }))
            return false;
        handOver(targets);
    } catch (const std::bad_alloc&) {
        return fail("KiroBulkReader - memory allocation error");
    } catch (const std::length_error&) {
        return fail("KiroBulkReader - memory allocation error");
    }
    return true;
}

/// Reads `count` frames in large blocks and gives them on in stretches of SortSize; `watch` follows each
/// block.
template <class Give, class Watch>
bool KiroBulkReader::readBlocks(KiroFile& file, std::int64_t count, JobProgress& progress, Give&& give,
                                Watch&& watch)
{
    const std::int64_t frameSize = m_header.frameSize();
    const auto framesIn = [frameSize](std::int64_t bytes) {
        return std::max<std::int64_t>(bytes / std::max<std::int64_t>(frameSize, 1), 1);
    };
    const std::int64_t framesInBlock = std::min(framesIn(BlockSize), count);
    const std::int64_t framesToSort = framesIn(SortSize);
    std::vector<unsigned char> bytes(static_cast<std::size_t>(framesInBlock * frameSize));
    const ReportSteps steps(count, m_framesPerReport);
    int shown = 0;
    progress.setRange(0, steps.last());
    for (std::int64_t done = 0; done < count;) {
        m_cancelled = progress.cancelled();
        if (m_cancelled)
            return false;
        const std::int64_t frames = std::min(framesInBlock, steps.framesToNext(done));
        const auto size = static_cast<std::int32_t>(frames * frameSize);
        if (file.readRaw(bytes.data(), size) != size)
            return fail(KiroString("KiroBulkReader - reading file %1 failed").arg(m_fileName));
        for (std::int64_t i = 0; i < frames; i += framesToSort) {
            give(FrameBlock{bytes.data() + i * frameSize,
                            static_cast<std::size_t>(std::min(framesToSort, frames - i)),
                            static_cast<std::size_t>(frameSize)});
        }
        watch();
        done += frames;
        const int step = steps.at(done);
        if (step != shown)
            progress.setValue(shown = step);
    }
    if (shown < steps.last())
        progress.setValue(steps.last());
    return true;
}

/// `spare(i)` gives memory that the samples of signal i may use; `watch(i, samples)` sees what is read of
/// them.
template <class Samples, class Spare, class Watch>
bool KiroBulkReader::readEvery(std::vector<Samples>& out, JobProgress& progress, Spare&& spare, Watch&& watch)
{
    // Frames without bytes are as good as no frames.
    const std::int64_t frames = m_header.frameSize() > 0 ? m_header.frameCount() : 0;
    const auto samplesOf = [frames](const KiroSignal& signal) {
        return signal.sampleSize > 0 ? static_cast<std::size_t>(signal.samplesPerFrame * frames) : 0;
    };
    const auto makeTargets = [&] {
        std::vector<TypedTarget<Samples>> targets;
        std::int64_t offset = 0;
        for (const KiroSignal& signal : m_header.signalTable()) {
            const std::size_t bytes = bytesInMemory(signal, samplesOf(signal));
            if (std::is_same_v<Samples, SampleArray> && bytes > ArrayBytes) {
                fail(KiroString("KiroBulkReader - signal %1 is too large for an array (bytes in memory: %2)")
                         .arg(static_cast<std::int64_t>(targets.size()))
                         .arg(static_cast<std::uint64_t>(bytes)));
                break;
            }
            targets.emplace_back(signal, SampleRun(signal, offset, m_swap), static_cast<std::size_t>(frames),
                                 spare(targets.size()));
            offset += static_cast<std::int64_t>(signal.runSize());
        }
        return targets;
    };
    using Targets = std::vector<TypedTarget<Samples>>;
    const auto watchAll = [&](const Targets& targets) {
        for (std::size_t i = 0; i < targets.size(); ++i)
            watch(i, targets[i].samples());
    };
    return readFrames(0, frames, progress, makeTargets, watchAll, [&](Targets& targets) {
        std::vector<Samples> all;
        for (std::size_t i = 0; i < targets.size(); ++i)
            all.push_back(targets[i].takeSamples(0, samplesOf(m_header.signalTable()[i])));
        out = std::move(all);
    });
}

bool KiroBulkReader::readAll(std::vector<SampleVector>& out, JobProgress& progress)
{
    std::vector<SampleVector> spares = std::move(m_spare);
    m_spare.clear();
    const auto spare = [&spares](std::size_t signal) {
        return signal < spares.size() ? std::move(spares[signal]) : SampleVector();
    };
    return readEvery(out, progress, spare, [](std::size_t, const SampleVector&) {});
}

bool KiroBulkReader::readAll(std::vector<SampleArray>& out, JobProgress& progress, const Watcher& watcher)
{
    const auto watch = [&watcher](std::size_t signal, const SampleArray& soFar) {
        if (watcher)
            watcher(signal, soFar);
    };
    return readEvery(
        out, progress, [](std::size_t) { return SampleArray(); }, watch);
}

void KiroBulkReader::recycle(std::vector<SampleVector> samples)
{
    m_spare = std::move(samples);
}

bool KiroBulkReader::checkRange(int signal, std::int64_t first, std::int64_t count)
{
    m_cancelled = false;
    KiroSignal descriptor;
    if (!m_header.getSignal(signal, descriptor))
        return fail(KiroString("KiroBulkReader - invalid signal index (%1)").arg(signal));
    // Two hostile 32-bit numbers may exceed 63 bits; no file holds that many samples.
    constexpr std::uint64_t Most = std::numeric_limits<std::int64_t>::max();
    const auto samples = static_cast<std::int64_t>(
        descriptor.sampleSize > 0 ? std::min(m_header.signalSampleCount(signal), Most) : 0);
    if (first < 0 || count < 1 || first >= samples || count > samples - first) {
        return fail(KiroString("KiroBulkReader - signal %1 does not hold the samples asked for (first: %2, "
                               "count: %3, samples in the signal: %4)")
                        .arg(signal)
                        .arg(first)
                        .arg(count)
                        .arg(samples));
    }
    return true;
}

/// Reads the frames around the samples asked for and hands over just these. `makeTarget` gets the
/// descriptor, the place in the frame and the number of frames.
template <class MakeTarget, class Out>
bool KiroBulkReader::readOne(int signal, std::int64_t first, std::int64_t count, JobProgress& progress,
                             Out& out, MakeTarget&& makeTarget)
{
    if (!checkRange(signal, first, count))
        return false;
    const KiroSignal& descriptor = m_header.signalTable()[static_cast<std::size_t>(signal)];
    const SampleRun run(descriptor, runOffset(m_header, signal), m_swap);
    const std::int64_t perFrame = descriptor.samplesPerFrame;
    const std::int64_t firstFrame = first / perFrame;
    const std::int64_t frames = (first + count - 1) / perFrame + 1 - firstFrame;
    const auto makeTargets = [&] {
        return std::array{makeTarget(descriptor, run, static_cast<std::size_t>(frames))};
    };
    const auto handOver = [&](auto& targets) {
        out = targets[0].takeSamples(static_cast<std::size_t>(first % perFrame),
                                     static_cast<std::size_t>(count));
    };
    return readFrames(
        firstFrame, frames, progress, makeTargets, [](const auto&) {}, handOver);
}

bool KiroBulkReader::readSignal(int signal, std::int64_t first, std::int64_t count, SampleVector& out,
                                JobProgress& progress)
{
    return readOne(signal, first, count, progress, out,
                   [](const KiroSignal& descriptor, const SampleRun& run, std::size_t frames) {
                       return TypedTarget<SampleVector>(descriptor, run, frames, SampleVector());
                   });
}

bool KiroBulkReader::readSignal(int signal, std::int64_t first, std::int64_t count, bool calibrate,
                                std::vector<double>& out, JobProgress& progress)
{
    return readOne(signal, first, count, progress, out,
                   [calibrate](const KiroSignal& descriptor, const SampleRun& run, std::size_t frames) {
                       return DoubleTarget(descriptor, run, frames, calibrate);
                   });
}
