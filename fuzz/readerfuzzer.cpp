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

double asDouble(const SampleVector& samples, std::size_t index)
{
    return std::visit([index](const auto& vector) { return static_cast<double>(vector[index]); }, samples);
}

bool sameBits(double a, double b)
{
    return std::memcmp(&a, &b, sizeof(a)) == 0;
}

/// The two bytes at the end of the input choose how far refills read back and ahead, and which way is walked.
struct Walk
{
    int back = 0;
    int ahead = 1;
    bool backwards = false;

    Walk(const std::uint8_t* bytes, std::size_t count)
    {
        if (count < 2)
            return;
        back = bytes[count - 2];
        ahead = 1 + bytes[count - 1] / 2;
        backwards = bytes[count - 1] % 2 == 1;
    }
};

void compareRoads(KiroReader& reader, KiroBulkReader& bulk, int signal, const Walk& walk)
{
    const KiroSignal descriptor = reader.header().signal(static_cast<unsigned>(signal));
    const std::int64_t perFrame = descriptor.sampleSize > 0 ? descriptor.samplesPerFrame : 0;
    const std::int64_t readable = perFrame * bulk.readableFrames();
    NoProgress progress;
    std::vector<double> samples;
    SampleVector typed;
    require(bulk.readSignal(signal, 0, readable, false, samples, progress) == (readable > 0));
    require(bulk.readSignal(signal, 0, readable, typed, progress) == (readable > 0));
    require(static_cast<std::int64_t>(samples.size()) == readable);
    require(static_cast<std::int64_t>(sampleCount(typed)) == readable);
    double value = 0.0;
    // A refill that would reach declared frames which are not stored fails as a whole.
    const bool whole = bulk.readableFrames() == reader.header().frameCount();
    reader.setReadSize(whole ? walk.back : 0,
                       whole ? walk.ahead : static_cast<int>(std::max(descriptor.sampleSize, 1u)));
    for (std::int64_t i = 0; i < readable; ++i) {
        const std::int64_t index = walk.backwards ? readable - 1 - i : i;
        require(sampleOneByOne(reader, signal, index, value));
        require(sameBits(value, samples[static_cast<std::size_t>(index)]));
        require(sameBits(value, asDouble(typed, static_cast<std::size_t>(index))));
    }
    if (perFrame > 0 && bulk.readableFrames() < reader.header().frameCount())
        require(!bulk.readSignal(signal, 0, readable + 1, false, samples, progress));
}

/// The whole recording at once gives what the one signal gives.
void compareWithOneSignal(KiroBulkReader& bulk, int signal, const SampleVector& fromAll)
{
    NoProgress progress;
    SampleVector one;
    const std::size_t count = sampleCount(fromAll);
    require(bulk.readSignal(signal, 0, static_cast<std::int64_t>(count), one, progress) == (count > 0));
    for (std::size_t i = 0; i < count; ++i)
        require(sameBits(asDouble(fromAll, i), asDouble(one, i)));
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
    const Walk walk(bytes, count);
    for (int signal = 0; signal < reader.header().signalCount(); ++signal) {
        compareRoads(reader, bulk, signal, walk);
        if (readAll)
            compareWithOneSignal(bulk, signal, all[static_cast<std::size_t>(signal)]);
    }
    double value = 0.0;
    for (const int index : {-1, 0x7fffffff})
        sampleOneByOne(reader, 0, index, value);
    reader.header().setNotes("changed");
    // Older headers would be moved by way of a file beside this one, and it has no folder.
    if (reader.header().hasField(KiroHeader::FixedLayoutField))
        (void)reader.updateHeader();
    return 0;
}
