#include "recording.h"

#include "roads.h"

#include "jobprogress.h"
#include "kirobulkreader.h"

#include <algorithm>
#include <stdexcept>

namespace
{

constexpr std::int64_t SamplesAtAnEnd = 16;

/// Samples `first` to `first` + `count` - 1 of one signal.
struct Stretch
{
    int signal = 0;
    std::int64_t first = 0;
    std::int64_t count = 0;
};

std::int64_t readableSamples(const Recording& recording, int signal)
{
    return recording.readableFrames() *
           recording.header().signalTable().at(static_cast<std::size_t>(signal)).samplesPerFrame;
}

/// In the widest number of the value's type; 0 for types that do not convert.
Number numberOf(const KiroValue& value)
{
    if (value.type() == KiroValue::SignedInt)
        return value.toInt64();
    if (value.type() == KiroValue::UnsignedInt)
        return value.toUInt64();
    return value.toDouble();
}

std::vector<Number> readOneByOne(const Recording& recording, const Stretch& stretch)
{
    KiroReader reader;
    if (!reader.setFile(recording.path()))
        throw std::runtime_error(reader.errorText().bytes());
    const auto& signal = recording.header().signalTable().at(static_cast<std::size_t>(stretch.signal));
    // A corpus states what is read with a read size of one sample: a larger one would run into the end of
    // a file that holds fewer frames than it declares.
    reader.setReadSize(std::max(1, static_cast<int>(signal.sampleSize)));
    std::vector<Number> numbers;
    for (std::int64_t i = 0; i < stretch.count; ++i)
        numbers.push_back(numberOf(reader.getSample(stretch.signal, static_cast<int>(stretch.first + i))));
    return numbers;
}

std::vector<Number> numbersOf(const SampleVector& samples, std::int64_t first, std::int64_t count)
{
    return std::visit(
        [first, count](const auto& elements) {
            std::vector<Number> numbers;
            for (std::int64_t i = first; i < first + count; ++i)
                numbers.push_back(toNumber(elements.at(static_cast<std::size_t>(i))));
            return numbers;
        },
        samples);
}

std::vector<Number> readStretch(const Recording& recording, const Stretch& stretch)
{
    KiroBulkReader bulk(recording.reader());
    NoProgress progress;
    SampleVector samples;
    if (!bulk.readSignal(stretch.signal, stretch.first, stretch.count, samples, progress))
        throw std::runtime_error("refused: " + bulk.errorText().bytes());
    return numbersOf(samples, 0, static_cast<std::int64_t>(sampleCount(samples)));
}

std::vector<Number> readFromAllSignals(const Recording& recording, const Stretch& stretch)
{
    KiroBulkReader bulk(recording.reader());
    NoProgress progress;
    std::vector<SampleVector> all;
    if (!bulk.readAll(all, progress))
        throw std::runtime_error("refused: " + bulk.errorText().bytes());
    return numbersOf(all.at(static_cast<std::size_t>(stretch.signal)), stretch.first, stretch.count);
}

Verdict checkStretch(const Recording& recording, const Stretch& stretch, const QJsonValue& wanted)
{
    std::vector<Road> roads = {
        {"getSample", [&] { return compareNumbers(wanted, readOneByOne(recording, stretch)); }},
        {"bulk readSignal", [&] { return compareNumbers(wanted, readStretch(recording, stretch)); }}};
    // Bulk reading of everything refuses a file that ends before its last declared frame.
    if (recording.readableFrames() == recording.header().frameCount())
        roads.push_back(
            {"bulk readAll", [&] { return compareNumbers(wanted, readFromAllSignals(recording, stretch)); }});
    return checkRoads(roads);
}

} // namespace

Recording::Recording(const QString& path)
    : m_path(path)
{
    m_open = m_reader.setFile(m_path);
    KiroFile file;
    KiroHeader header;
    if (file.open(m_path, KiroFile::Read) && header.read(file))
        m_byteOrder = file.byteOrder();
    m_headerLoads = KiroHeader().load(m_path);
}

std::int64_t Recording::readableFrames() const
{
    return KiroBulkReader(m_reader).readableFrames();
}

Verdict checkFirstSamples(Recording& recording, int signal, const QJsonValue& wanted)
{
    const std::int64_t count = std::min(SamplesAtAnEnd, readableSamples(recording, signal));
    return checkStretch(recording, {signal, 0, count}, wanted);
}

Verdict checkLastSamples(Recording& recording, int signal, const QJsonValue& wanted)
{
    const std::int64_t samples = readableSamples(recording, signal);
    const std::int64_t count = std::min(SamplesAtAnEnd, samples);
    return checkStretch(recording, {signal, samples - count, count}, wanted);
}
