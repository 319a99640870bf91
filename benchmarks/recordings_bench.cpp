// Reading of the recording of an hour.

#include "goals.h"
#include "hourrecording.h"
#include "repetitions.h"

#include "jobprogress.h"
#include "kirobulkreader.h"
#include "kirofile.h"
#include "kiroreader.h"
#include "kiroutils.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <random>

namespace
{

using namespace HourRecording;

constexpr int RandomSamples = 100000;
/// As the signals browser sets it.
constexpr int ReadSize = 5242880;

void openRecording(KiroReader& reader)
{
    if (!reader.setFile(hourRecording()) || !reader.setReadSize(ReadSize))
        stop("cannot read the recording for the benchmarks");
}

/// Reads all bytes of the recording, block by block; `target(done)` is where the next block goes.
template <class Target>
void readAllBytes(Target target)
{
    constexpr std::int64_t Block = 1 << 20;
    KiroFile file;
    if (!file.open(hourRecording(), KiroFile::Read))
        stop("cannot open the recording");
    const std::int64_t size = file.size();
    for (std::int64_t done = 0; done < size; done += Block) {
        const auto piece = std::int32_t(std::min(size - done, Block));
        if (file.readRaw(target(done), piece) != piece)
            stop("cannot read the recording");
        benchmark::ClobberMemory();
    }
}

/// The bytes alone, from the page cache into one block over and over.
void ReadBytes(benchmark::State& state)
{
    const auto block = std::make_unique<unsigned char[]>(1 << 20);
    hourRecording();
    for (auto _ : state)
        readAllBytes([&](std::int64_t) { return block.get(); });
}

/// The bytes alone, into fresh memory for all of them.
void ReadBytesIntoFreshMemory(benchmark::State& state)
{
    hourRecording();
    for (auto _ : state) {
        const std::size_t size = std::size_t(Frames) * Signals * SamplesPerFrame * 2 + 10000;
        const std::unique_ptr<unsigned char[]> memory(new unsigned char[size]);
        adviseLargePages(memory.get(), size);
        readAllBytes([&](std::int64_t done) { return memory.get() + done; });
    }
}

void loadAll(KiroBulkReader& bulk, std::vector<SampleVector>& samples)
{
    NoProgress progress;
    if (!bulk.readAll(samples, progress) || sampleCount(samples[15]) != SamplesOfSignal)
        stop("bulk reading failed");
    benchmark::DoNotOptimize(samples.data());
}

/// As in a study of many recordings: the memory of the last one serves the next.
void LoadAllSignals(benchmark::State& state)
{
    KiroReader reader;
    openRecording(reader);
    KiroBulkReader bulk(reader);
    std::vector<SampleVector> samples;
    loadAll(bulk, samples);
    for (auto _ : state) {
        bulk.recycle(std::move(samples));
        loadAll(bulk, samples);
    }
}

/// As when one recording is opened in a window.
void LoadAllSignalsIntoFreshMemory(benchmark::State& state)
{
    KiroReader reader;
    openRecording(reader);
    for (auto _ : state) {
        KiroBulkReader bulk(reader);
        std::vector<SampleVector> samples;
        loadAll(bulk, samples);
    }
}

/// All samples of all signals in the order of the file, one call each.
void GetSampleOfAllSignals(benchmark::State& state)
{
    for (auto _ : state) {
        KiroReader reader;
        openRecording(reader);
        std::vector<std::vector<std::int16_t>> samples(Signals, std::vector<std::int16_t>(SamplesOfSignal));
        for (int frame = 0; frame < Frames; ++frame) {
            for (int signal = 0; signal < Signals; ++signal) {
                for (int i = frame * SamplesPerFrame; i < (frame + 1) * SamplesPerFrame; ++i)
                    samples[std::size_t(signal)][std::size_t(i)] = reader.getSample(signal, i).toInt16();
            }
        }
        benchmark::DoNotOptimize(samples.data());
    }
}

void ReadHeader(benchmark::State& state)
{
    hourRecording();
    for (auto _ : state) {
        KiroHeader header;
        if (!header.load(hourRecording()))
            stop("cannot read the header");
        benchmark::DoNotOptimize(header);
    }
}

/// One signal's samples by index; `index(i)` gives the i-th.
template <class Index>
void getSamples(benchmark::State& state, int count, int readBack, int readAhead, Index index)
{
    KiroReader reader;
    openRecording(reader);
    reader.setReadSize(readBack, readAhead);
    for (auto _ : state) {
        int sum = 0;
        for (int i = 0; i < count; ++i)
            sum += reader.getSample(3, index(i)).toInt16();
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * count);
}

void GetSampleForward(benchmark::State& state)
{
    getSamples(state, SamplesOfSignal, 0, ReadSize, [](int i) { return i; });
}

void GetSampleBackward(benchmark::State& state)
{
    getSamples(state, SamplesOfSignal, ReadSize - 128, 128, [](int i) { return SamplesOfSignal - 1 - i; });
}

void GetSampleRandom(benchmark::State& state)
{
    std::mt19937 generator(7);
    std::uniform_int_distribution<int> anySample(0, SamplesOfSignal - 1);
    std::vector<int> order(RandomSamples);
    std::generate(order.begin(), order.end(), [&] { return anySample(generator); });
    getSamples(state, RandomSamples, 0, 4096, [&order](int i) { return order[std::size_t(i)]; });
}

BENCHMARK(ReadBytes)->Apply(repeated<7>);
BENCHMARK(LoadAllSignals)->Apply(repeated<7>);
BENCHMARK(ReadBytesIntoFreshMemory)->Apply(repeated<7>);
BENCHMARK(LoadAllSignalsIntoFreshMemory)->Apply(repeated<7>);
BENCHMARK(GetSampleOfAllSignals)->Apply(repeated<7>)->Iterations(1);
BENCHMARK(ReadHeader)->Apply(repeated<7>)->Unit(benchmark::kMicrosecond);
BENCHMARK(GetSampleForward)->Apply(repeated<7>);
BENCHMARK(GetSampleBackward)->Apply(repeated<7>);
BENCHMARK(GetSampleRandom)->Apply(repeated<7>);

const bool Goals[] = {
    // Both put an hour's bytes into memory of their own; touching that memory is most of the cost.
    registerGoal({"bulk-load-to-read", "LoadAllSignalsIntoFreshMemory", "ReadBytesIntoFreshMemory",
                  Goal::Kind::AtMost, 2.5}),
    // Without the cost of memory on the one side, and then on neither.
    registerGoal({"bulk-load-to-read-into-one-block", "LoadAllSignalsIntoFreshMemory", "ReadBytes",
                  Goal::Kind::Shown, 0.0}),
    registerGoal(
        {"recycled-bulk-load-to-read-into-one-block", "LoadAllSignals", "ReadBytes", Goal::Kind::Shown, 0.0}),
    registerGoal({"bulk-load-faster-than-getSample", "GetSampleOfAllSignals", "LoadAllSignalsIntoFreshMemory",
                  Goal::Kind::AtLeast, 8.0}),
};

} // namespace
