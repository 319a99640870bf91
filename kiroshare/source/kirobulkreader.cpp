#include "kirobulkreader.h"

#include "jobprogress.h"
#include "kirofile.h"
#include "kiroreader.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <stdexcept>
#include <utility>

namespace
{

/// Bytes read at once: large against the cost of a call, small enough to stay in the cache between the
/// reading and the sorting of the samples.
constexpr std::int64_t BlockSize = 256 * 1024;
constexpr int ProgressSteps = 100;

/// A stretch of frames in memory.
struct FrameBlock
{
    const unsigned char* bytes;
    std::size_t frames;
    std::size_t frameSize;
};

template <std::size_t RunSize>
void copyRuns(const FrameBlock& block, std::size_t offset, unsigned char* target)
{
    const unsigned char* source = block.bytes + offset;
    for (std::size_t i = 0; i < block.frames; ++i, source += block.frameSize, target += RunSize)
        std::memcpy(target, source, RunSize);
}

/// Joins the runs of one signal. Usual sizes are known to the compiler.
void copyRuns(const FrameBlock& block, std::size_t offset, std::size_t runSize, unsigned char* target)
{
    switch (runSize) {
    case 1:
        return copyRuns<1>(block, offset, target);
    case 2:
        return copyRuns<2>(block, offset, target);
    case 4:
        return copyRuns<4>(block, offset, target);
    case 8:
        return copyRuns<8>(block, offset, target);
    case 16:
        return copyRuns<16>(block, offset, target);
    case 32:
        return copyRuns<32>(block, offset, target);
    case 64:
        return copyRuns<64>(block, offset, target);
    default:
        break;
    }
    const unsigned char* source = block.bytes + offset;
    for (std::size_t i = 0; i < block.frames; ++i, source += block.frameSize, target += runSize)
        std::memcpy(target, source, runSize);
}

template <std::size_t Size>
struct Word;
template <>
struct Word<1>
{
    using Type = std::uint8_t;
    static Type swapped(Type w) { return w; }
};
template <>
struct Word<2>
{
    using Type = std::uint16_t;
    static Type swapped(Type w) { return __builtin_bswap16(w); }
};
template <>
struct Word<4>
{
    using Type = std::uint32_t;
    static Type swapped(Type w) { return __builtin_bswap32(w); }
};
template <>
struct Word<8>
{
    using Type = std::uint64_t;
    static Type swapped(Type w) { return __builtin_bswap64(w); }
};

/// Reverses the bytes of each of `count` numbers, in integer registers: a float with reversed bytes may
/// be a signalling NaN, which a floating point move would change.
template <class Number>
void swapNumbers(Number* numbers, std::size_t count)
{
    using Bits = Word<sizeof(Number)>;
    auto* bytes = reinterpret_cast<unsigned char*>(numbers);
    for (std::size_t i = 0; i < count; ++i) {
        typename Bits::Type word;
        std::memcpy(&word, bytes + i * sizeof(word), sizeof(word));
        word = Bits::swapped(word);
        std::memcpy(bytes + i * sizeof(word), &word, sizeof(word));
    }
}

/// Samples of a signal that a frame really holds: samples of no bytes do not exist.
std::uint32_t samplesInFrame(const KiroSignal& signal)
{
    return signal.sampleSize > 0 ? signal.samplesPerFrame : 0;
}

/// Takes the samples of one signal out of blocks of frames, as numbers of its element type.
class SignalSink
{
public:
    /// `skip` samples are left out at the start of the first block, `count` in all are taken.
    SignalSink(const KiroSignal& signal, std::int64_t runOffset, bool swap, std::int64_t skip,
               std::int64_t count)
        : m_runOffset(static_cast<std::size_t>(runOffset))
        , m_runSize(static_cast<std::size_t>(signal.runSize()))
        , m_samplesPerFrame(samplesInFrame(signal))
        , m_swap(swap)
        , m_isNumber(elementType(signal.valueType, signal.sampleSize) != ElementTypeDouble ||
                     (signal.valueType == KiroValue::Float && signal.sampleSize == sizeof(double)))
        , m_skip(static_cast<std::size_t>(skip))
        , m_left(static_cast<std::size_t>(count))
    {
    }

    /// Calls `append(first, end)` with the block's samples as Number, the signal's element type.
    template <class Number, class Append>
    void take(const FrameBlock& block, Append&& append)
    {
        const std::size_t inBlock = block.frames * m_samplesPerFrame;
        const std::size_t first = std::min(m_skip, inBlock);
        const std::size_t count = std::min(m_left, inBlock - first);
        m_skip -= first;
        m_left -= count;
        auto& numbers = buffer<Number>();
        if (numbers.size() < inBlock)
            numbers.resize(inBlock);
        if (m_isNumber) {
            copyRuns(block, m_runOffset, m_runSize, reinterpret_cast<unsigned char*>(numbers.data()));
            if (m_swap)
                swapNumbers(numbers.data() + first, count);
        }
        append(numbers.data() + first, numbers.data() + first + count);
    }

private:
    template <class Number>
    std::vector<Number>& buffer()
    {
        if (!std::holds_alternative<std::vector<Number>>(m_buffer))
            m_buffer.emplace<std::vector<Number>>();
        return std::get<std::vector<Number>>(m_buffer);
    }

    std::size_t m_runOffset;
    std::size_t m_runSize;
    std::size_t m_samplesPerFrame;
    bool m_swap;
    bool m_isNumber; // else every sample is 0
    std::size_t m_skip;
    std::size_t m_left;
    SampleVector m_buffer; // one block's samples, kept between blocks; zeros where !m_isNumber
};

/// Appends blocks to a vector of the signal's element type.
class TypedTarget
{
public:
    TypedTarget(SignalSink sink, const KiroSignal& signal, std::int64_t count)
        : m_sink(std::move(sink))
        , m_samples(makeSampleVector(elementType(signal.valueType, signal.sampleSize)))
    {
        std::visit([count](auto& samples) { samples.reserve(static_cast<std::size_t>(count)); }, m_samples);
    }

    void take(const FrameBlock& block)
    {
        std::visit(
            [&](auto& samples) {
                using Number = typename std::decay_t<decltype(samples)>::value_type;
                m_sink.template take<Number>(block, [&samples](const Number* first, const Number* end) {
                    samples.insert(samples.end(), first, end);
                });
            },
            m_samples);
    }

    SampleVector takeSamples() { return std::move(m_samples); }

private:
    SignalSink m_sink;
    SampleVector m_samples;
};

/// Appends blocks to a vector of doubles, calibrated or raw.
class DoubleTarget
{
public:
    DoubleTarget(SignalSink sink, const KiroSignal& signal, bool calibrate, std::int64_t count)
        : m_sink(std::move(sink))
        , m_signal(signal)
        , m_calibrate(calibrate && signal.calibrated)
        , m_elementTypeSample(makeSampleVector(elementType(signal.valueType, signal.sampleSize)))
    {
        m_samples.reserve(static_cast<std::size_t>(count));
    }

    void take(const FrameBlock& block)
    {
        std::visit(
            [&](const auto& typed) {
                using Number = typename std::decay_t<decltype(typed)>::value_type;
                m_sink.template take<Number>(
                    block, [this](const Number* first, const Number* end) { append(first, end); });
            },
            m_elementTypeSample);
    }

    std::vector<double> takeSamples() { return std::move(m_samples); }

private:
    template <class Number>
    void append(const Number* first, const Number* end)
    {
        if (m_calibrate) {
            for (; first != end; ++first)
                m_samples.push_back(m_signal.calibratedValue(static_cast<double>(*first)));
        } else {
            for (; first != end; ++first)
                m_samples.push_back(static_cast<double>(*first));
        }
    }

    SignalSink m_sink;
    const KiroSignal& m_signal;
    bool m_calibrate;
    SampleVector m_elementTypeSample; // empty; its alternative is the type to read
    std::vector<double> m_samples;
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

/// Runs over frames `firstFrame` to `endFrame` - 1 and gives each block to every target. Memory for
/// targets is taken by `makeTargets` once the file is known to hold the frames.
template <class MakeTargets, class HandOver>
bool KiroBulkReader::readFrames(std::int64_t firstFrame, std::int64_t endFrame, JobProgress& progress,
                                MakeTargets&& makeTargets, HandOver&& handOver)
{
    m_errorText.clear();
    m_cancelled = false;
    const std::int64_t frameSize = m_header.frameSize();
    if (endFrame > readableFrames() && frameSize > 0) {
        return fail(KiroString("KiroBulkReader - file %1 cannot be read or ends before its last declared "
                               "frame (frames needed: %2, frames readable: %3)")
                        .arg(m_fileName)
                        .arg(endFrame)
                        .arg(readableFrames()));
    }
    try {
        auto targets = makeTargets();
        KiroFile file;
        const std::int64_t start = m_dataStart + firstFrame * frameSize;
        const bool anyFrames = frameSize > 0 && endFrame > firstFrame;
        if (anyFrames && (!file.open(m_fileName, KiroFile::Read) || start > INT32_MAX ||
                          !file.seek(static_cast<std::int32_t>(start))))
            return fail(KiroString("KiroBulkReader - opening file %1 failed").arg(m_fileName));

        const std::int64_t framesInBlock = anyFrames ? std::max<std::int64_t>(BlockSize / frameSize, 1) : 1;
        std::vector<unsigned char> bytes(
            anyFrames ? static_cast<std::size_t>(std::min(framesInBlock, endFrame - firstFrame) * frameSize)
                      : 0);
        progress.setRange(0, ProgressSteps);
        int shown = 0;
        for (std::int64_t frame = firstFrame; anyFrames && frame < endFrame; frame += framesInBlock) {
            if (progress.cancelled()) {
                m_cancelled = true;
                return false;
            }
            const std::int64_t frames = std::min(framesInBlock, endFrame - frame);
            const auto count = static_cast<std::int32_t>(frames * frameSize);
            if (file.readRaw(bytes.data(), count) != count)
                return fail(KiroString("KiroBulkReader - reading file %1 failed at frame %2")
                                .arg(m_fileName)
                                .arg(frame));
            const FrameBlock block{bytes.data(), static_cast<std::size_t>(frames),
                                   static_cast<std::size_t>(frameSize)};
            for (auto& target : targets)
                target.take(block);
            const auto done =
                static_cast<int>(ProgressSteps * (frame + frames - firstFrame) / (endFrame - firstFrame));
            if (done != shown)
                progress.setValue(shown = done);
        }
        progress.setValue(ProgressSteps);
        handOver(targets);
    } catch (const std::bad_alloc&) {
        return fail("KiroBulkReader - memory allocation error");
    } catch (const std::length_error&) {
        return fail("KiroBulkReader - memory allocation error");
    }
    return true;
}

bool KiroBulkReader::readAll(std::vector<SampleVector>& out, JobProgress& progress)
{
    const auto makeTargets = [this] {
        std::vector<TypedTarget> targets;
        std::int64_t offset = 0;
        for (const KiroSignal& signal : m_header.signalTable()) {
            const auto count = std::int64_t(samplesInFrame(signal)) * m_header.frameCount();
            targets.emplace_back(SignalSink(signal, offset, m_swap, 0, count), signal, count);
            offset += static_cast<std::int64_t>(signal.runSize());
        }
        return targets;
    };
    return readFrames(0, m_header.frameCount(), progress, makeTargets, [&out](auto& targets) {
        std::vector<SampleVector> all;
        all.reserve(targets.size());
        for (TypedTarget& target : targets)
            all.push_back(target.takeSamples());
        out = std::move(all);
    });
}

bool KiroBulkReader::checkRange(int signal, std::int64_t first, std::int64_t count)
{
    m_cancelled = false;
    KiroSignal descriptor;
    if (!m_header.getSignal(signal, descriptor))
        return fail(KiroString("KiroBulkReader - invalid signal index (%1)").arg(signal));
    const std::int64_t samples = std::int64_t(samplesInFrame(descriptor)) * m_header.frameCount();
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

template <class Target, class... Arguments, class Out>
bool KiroBulkReader::readOne(int signal, std::int64_t first, std::int64_t count, JobProgress& progress,
                             Out& out, Arguments... arguments)
{
    if (!checkRange(signal, first, count))
        return false;
    const KiroSignal& descriptor = m_header.signalTable()[static_cast<std::size_t>(signal)];
    const std::int64_t perFrame = descriptor.samplesPerFrame;
    const auto makeTargets = [&] {
        std::vector<Target> targets;
        targets.emplace_back(
            SignalSink(descriptor, runOffset(m_header, signal), m_swap, first % perFrame, count), descriptor,
            arguments..., count);
        return targets;
    };
    return readFrames(first / perFrame, (first + count - 1) / perFrame + 1, progress, makeTargets,
                      [&out](auto& targets) { out = targets.front().takeSamples(); });
}

bool KiroBulkReader::readSignal(int signal, std::int64_t first, std::int64_t count, SampleVector& out,
                                JobProgress& progress)
{
    return readOne<TypedTarget>(signal, first, count, progress, out);
}

bool KiroBulkReader::readSignal(int signal, std::int64_t first, std::int64_t count, bool calibrate,
                                std::vector<double>& out, JobProgress& progress)
{
    return readOne<DoubleTarget>(signal, first, count, progress, out, calibrate);
}
