#include "eyerecording.h"

#include "kirosaccheader.h"
#include "recordingfile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace
{

constexpr int JumpSamples = 40;
/// Sample of the jump in files that are written.
constexpr int JumpStart = 1000;
constexpr int SamplesPerFrame = 4;

/// Part of a jump that is done: the path of least jerk.
double partDone(int sample)
{
    const double t = std::clamp(double(sample) / JumpSamples, 0.0, 1.0);
    return t * t * t * (10.0 - 15.0 * t + 6.0 * t * t);
}

} // namespace

std::vector<double> jumpingEye(int sampleCount, const std::vector<int>& starts, double amplitude)
{
    std::vector<double> degrees(std::size_t(sampleCount), 0.0);
    double direction = amplitude;
    for (const int start : starts) {
        for (int i = start; i < sampleCount; ++i)
            degrees[std::size_t(i)] += direction * partDone(i - start);
        direction = -direction;
    }
    return degrees;
}

std::string eyeRecording(const std::vector<EyeRecordingSignal>& signalTable)
{
    std::vector<KiroSignal> descriptors;
    for (const EyeRecordingSignal& eye : signalTable) {
        KiroSignal descriptor = makeSignal(eye.name.c_str(), KiroValue::SignedInt, 2, SamplesPerFrame, 1000);
        descriptor.calibrated = eye.calibrated;
        if (eye.calibrated) {
            descriptor.calibrationFactor = eye.factor;
            descriptor.calibrationOffset = eye.offset;
            descriptor.calibrationUnit = "deg";
        }
        descriptors.push_back(descriptor);
    }
    const std::size_t frames = signalTable.at(0).degrees.size() / SamplesPerFrame;
    std::string data;
    for (std::size_t frame = 0; frame < frames; ++frame) {
        for (const EyeRecordingSignal& eye : signalTable) {
            for (std::size_t i = 0; i < SamplesPerFrame; ++i) {
                const double raw = eye.degrees[frame * SamplesPerFrame + i] * eye.factor + eye.offset;
                data += bigEndian(static_cast<std::uint16_t>(std::lround(raw)), 2);
            }
        }
    }
    return recordingBytes(makeHeader(descriptors, std::uint32_t(frames)), data);
}

QString writeRecording(const TestFolder& folder, const QString& fileName)
{
    constexpr int SampleCount = 4000;
    folder.write(fileName, eyeRecording({{"eye position", jumpingEye(SampleCount, {JumpStart}, 10.0)}}));
    return folder.path(fileName);
}

QString writeSaccadeFile(const TestFolder& folder, const QString& name)
{
    KiroSaccHeader header;
    header.setDataFiles(KiroString(writeRecording(folder, name + QStringLiteral(".kiro"))), KiroString());
    header.setSignal(KiroSaccHeader::RightHorizontal, 0, 100.0, 20.0);
    header.ratePeriod = 1000;
    header.samplesPerPeriod = 1000;
    KiroSaccade saccade;
    saccade.main.start = JumpStart;
    saccade.main.end = JumpStart + JumpSamples - 1;
    saccade.main.duration = JumpSamples;
    header.saccades.push_back(saccade);
    const QString path = folder.path(name + QStringLiteral(".sacc"));
    EXPECT_TRUE(header.saveAs(KiroString(path)));
    return path;
}
