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

void writeRecording(const KiroString& path, int hours)
{
    const int frames = hours * Frames;
    KiroHeader header;
    header.setFrameCount(frames);
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
    std::int64_t left = std::int64_t(frames) * header.frameSize();
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

/// A recording in a folder that goes away at the end.
class TemporaryRecording
{
public:
    explicit TemporaryRecording(int hours)
        : m_path(m_folder.filePath(QStringLiteral("recording.kiro")))
    {
        writeRecording(m_path, hours);
    }

    const KiroString& path() const { return m_path; }

private:
    QTemporaryDir m_folder;
    KiroString m_path;
};

} // namespace

const KiroString& hourRecording()
{
    static const TemporaryRecording recording(1);
    return recording.path();
}

const KiroString& eightHourRecording()
{
    static const TemporaryRecording recording(8);
    return recording.path();
}
