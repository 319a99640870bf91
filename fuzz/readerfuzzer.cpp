// Any bytes as a recording: opened, checked, and every sample read one by one and in bulk, which must agree.

#include "memoryfile.h"

#include "jobprogress.h"
#include "kirobulkreader.h"
#include "kiroreader.h"
#include "kiroutils.h"

#include <algorithm>
#include <cstring>

namespace
{

struct FatalError
{
};

/// Samples of one signal that are looked at: enough to cross frames and blocks.
constexpr std::int64_t MostSamples = 5000;

/// getSample() as a double; false if it ended in a fatal error.
bool sampleOneByOne(KiroReader& reader, int signal, std::int64_t index, double& value)
{
    try {
        value = reader.getSample(signal, static_cast<int>(index)).toDouble();
    } catch (const FatalError&) {
        return false;
    }
    return true;
}

bool sameBits(double a, double b)
{
    return std::memcmp(&a, &b, sizeof(a)) == 0;
}

void compareRoads(KiroReader& reader, KiroBulkReader& bulk, int signal)
{
    const KiroSignal descriptor = reader.header().signal(static_cast<unsigned>(signal));
    const std::int64_t perFrame = descriptor.sampleSize > 0 ? descriptor.samplesPerFrame : 0;
    const std::int64_t readable = perFrame * bulk.readableFrames();
    NoProgress progress;
    std::vector<double> samples;
    const std::int64_t count = std::min(readable, MostSamples);
    require(bulk.readSignal(signal, 0, count, false, samples, progress) == (count > 0));
    require(static_cast<std::int64_t>(samples.size()) == count);
    double value = 0.0;
    reader.setReadSize(static_cast<int>(std::max(descriptor.sampleSize, 1u)));
    for (std::int64_t i = 0; i < count; ++i)
        require(sampleOneByOne(reader, signal, i, value) &&
                sameBits(value, samples[static_cast<std::size_t>(i)]));
    if (perFrame > 0 && bulk.readableFrames() < reader.header().frameCount())
        require(!bulk.readSignal(signal, 0, readable + 1, false, samples, progress));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
    KiroError::setPresenter([](const char*) { throw FatalError(); });
    const MemoryFile file(bytes, count);
    KiroReader reader;
    if (!reader.setFile(file.path()))
        return 0;
    (void)reader.checkIntegrity();
    KiroBulkReader bulk(reader);
    NoProgress progress;
    std::vector<SampleVector> all;
    const bool readAll = bulk.readAll(all, progress);
    require(!readAll || static_cast<int>(all.size()) == reader.header().signalCount());
    for (int signal = 0; signal < reader.header().signalCount(); ++signal)
        compareRoads(reader, bulk, signal);
    double value = 0.0;
    for (const int index : {-1, 0x7fffffff})
        sampleOneByOne(reader, 0, index, value);
    reader.header().setNotes("changed");
    // Older headers would be moved by way of a file beside this one, and it has no folder.
    if (reader.header().hasField(KiroHeader::FixedLayoutField))
        (void)reader.updateHeader();
    return 0;
}
