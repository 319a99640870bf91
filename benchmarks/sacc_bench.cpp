// Reading of a saccade file of 100000 saccades.

#include "goals.h"
#include "repetitions.h"

#include "kirofile.h"
#include "kirosaccheader.h"
#include "kiroutils.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>

namespace
{

constexpr int Saccades = 100000;

KiroSaccadeEye someEye(std::mt19937& generator)
{
    std::uniform_real_distribution<double> real(-100.0, 100.0);
    KiroSaccadeEye eye;
    eye.start = static_cast<std::int32_t>(generator() >> 2);
    eye.end = eye.start + 20;
    eye.duration = 21;
    eye.amplitude = real(generator);
    eye.peakVelocity = real(generator);
    eye.meanVelocity = real(generator);
    eye.peakAcceleration = real(generator);
    eye.amplitudeHorz = real(generator);
    eye.startHorz = real(generator);
    eye.endHorz = real(generator);
    return eye;
}

/// Path of the file, made on first use and removed at the end.
const KiroString& saccadeFile()
{
    static const QTemporaryDir folder;
    static const KiroString path = [] {
        std::mt19937 generator(1);
        KiroSaccHeader header;
        header.saccades.resize(Saccades);
        for (KiroSaccade& saccade : header.saccades) {
            saccade.right = saccade.main = someEye(generator);
            saccade.left = someEye(generator);
        }
        const KiroString name(folder.filePath(QStringLiteral("many.sacc")));
        if (!header.saveAs(name))
            stop("cannot write the saccade file for the benchmarks");
        return name;
    }();
    return path;
}

/// Reads all bytes of the file, block by block; `target(done)` is where the next block goes.
template <class Target>
void readAllBytes(Target target)
{
    constexpr std::int64_t Block = 1 << 18;
    KiroFile file;
    if (!file.open(saccadeFile(), KiroFile::Read))
        stop("cannot open the saccade file");
    const std::int64_t size = file.size();
    for (std::int64_t done = 0; done < size; done += Block) {
        const auto piece = static_cast<std::int32_t>(std::min(size - done, Block));
        if (file.readRaw(target(done), piece) != piece)
            stop("cannot read the saccade file");
        benchmark::ClobberMemory();
    }
}

std::size_t fileSize()
{
    KiroFile file;
    if (!file.open(saccadeFile(), KiroFile::Read))
        stop("cannot open the saccade file");
    return static_cast<std::size_t>(file.size());
}

/// The bytes alone, from the page cache into one block over and over.
void ReadSaccadeBytes(benchmark::State& state)
{
    const auto block = std::make_unique<unsigned char[]>(1 << 18);
    saccadeFile();
    for (auto _ : state)
        readAllBytes([&](std::int64_t) { return block.get(); });
}

/// The bytes alone, into fresh memory for all of them.
void ReadSaccadeBytesIntoFreshMemory(benchmark::State& state)
{
    const std::size_t size = fileSize();
    for (auto _ : state) {
        // The allocator keeps blocks of up to 32 MiB for the next round; larger ones are fresh each time.
        const std::unique_ptr<unsigned char[]> memory(new unsigned char[2 * size]);
        adviseLargePages(memory.get(), size);
        readAllBytes([&](std::int64_t done) { return memory.get() + done; });
    }
}

void LoadSaccades(benchmark::State& state)
{
    saccadeFile();
    for (auto _ : state) {
        KiroSaccHeader header;
        if (!header.load(saccadeFile()) || header.saccades.size() != Saccades)
            stop("cannot load the saccade file");
        benchmark::DoNotOptimize(header.saccades.data());
    }
}

BENCHMARK(ReadSaccadeBytes)->Apply(repeated<7>);
BENCHMARK(ReadSaccadeBytesIntoFreshMemory)->Apply(repeated<7>);
BENCHMARK(LoadSaccades)->Apply(repeated<7>);

const bool Goals[] = {
    registerGoal(
        {"saccade-load-to-read", "LoadSaccades", "ReadSaccadeBytesIntoFreshMemory", Goal::Kind::AtMost, 6.0}),
    // Without the cost of memory on the side of reading.
    registerGoal(
        {"saccade-load-to-read-into-one-block", "LoadSaccades", "ReadSaccadeBytes", Goal::Kind::Shown, 0.0}),
};

} // namespace
