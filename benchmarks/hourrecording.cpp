#include "hourrecording.h"

#include "repetitions.h"

#include "kirofile.h"
#include "kiroheader.h"

#include <QTemporaryDir>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <random>
#include <vector>

namespace
{

using namespace HourRecording;

void writeRecording(const KiroString& path)
{
    KiroHeader header;
    header.setFrameCount(Frames);
    header.setSignalCount(Signals);
    for (int i = 0; i < Signals; ++i) {
        KiroSignal signal;
        signal.fullName = KiroString("signal %1").arg(i);
        signal.samplesPerPeriod = 1000;
        signal.valueType = KiroValue::SignedInt;
        signal.sampleSize = 2;
        signal.samplesPerFrame = SamplesPerFrame;
        header.setSignal(i, signal);
    }
    KiroFile file;
    if (!file.open(path, KiroFile::Create) || !header.write(file))
        stop("cannot write the recording for the benchmarks");
    std::mt19937_64 generator(1);
    std::vector<std::uint64_t> block(4096);
    std::int64_t left = std::int64_t(Frames) * header.frameSize();
    while (left > 0) {
        std::generate(block.begin(), block.end(), std::ref(generator));
        const auto piece = std::int32_t(std::min<std::int64_t>(left, std::int64_t(block.size() * 8)));
        if (file.writeRaw(block.data(), piece) != piece)
            stop("cannot write the recording for the benchmarks");
        left -= piece;
    }
    if (!file.close())
        stop("cannot write the recording for the benchmarks");
}

} // namespace

const KiroString& hourRecording()
{
    static const QTemporaryDir folder;
    static const KiroString path = [] {
        const KiroString name(folder.filePath(QStringLiteral("hour.kiro")));
        writeRecording(name);
        return name;
    }();
    return path;
}
