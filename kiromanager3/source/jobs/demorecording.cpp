#include "demorecording.h"

#include "demoframes.h"
#include "demoscript.h"
#include "demotruth.h"
#include "jobprogress.h"
#include "safefile.h"

#include <QFile>
#include <QFileInfo>

#include <cmath>
#include <new>

namespace
{

using Outcome = DemoResult::Outcome;

DemoResult stopped(Outcome outcome)
{
    DemoResult result;
    result.outcome = outcome;
    return result;
}

DemoResult cannotWrite(const QString& path, const SafeFile& file)
{
    DemoResult result = stopped(Outcome::CannotWrite);
    result.path = path;
    result.reason = file.errorText();
    return result;
}

DemoResult written(const DemoScript& script)
{
    DemoResult result;
    result.signalCount = static_cast<int>(demoSignals().size());
    result.frameCount = script.frameCount;
    result.saccades = static_cast<int>(script.eyes.saccades.size());
    result.blinks = static_cast<int>(script.eyes.blinks.size());
    result.headRotations = static_cast<int>(script.head.rotations.size());
    result.beats = static_cast<int>(script.heart.beatsMs.size());
    result.meanHeartRate = script.heart.meanRate();
    return result;
}

/// False if the file did not take all or the user has cancelled.
bool writeSamples(const DemoScript& script, SafeFile& file, JobProgress& progress)
{
    constexpr std::int64_t FramesPerStep = 1000 / DemoFrameMs;
    const std::string header = demoHeader(script).toBytes();
    bool whole = file.write(header.data(), static_cast<qint64>(header.size()));
    progress.setRange(0, static_cast<int>(script.frameCount));
    DemoFrames frames(script);
    for (std::int64_t i = 0; whole && i < script.frameCount; ++i) {
        if (i % FramesPerStep == 0) {
            progress.setValue(static_cast<int>(i));
            if (progress.cancelled())
                return false;
        }
        const std::string& frame = frames.next();
        whole = file.write(frame.data(), static_cast<qint64>(frame.size()));
    }
    progress.setValue(static_cast<int>(script.frameCount));
    return whole;
}

DemoResult writeBoth(const DemoScript& script, const QString& path, JobProgress& progress)
{
    const QString truthPath = demoTruthPath(path);
    SafeFile recording(path);
    SafeFile truth(truthPath);
    if (!recording.open())
        return cannotWrite(path, recording);
    if (!truth.open())
        return cannotWrite(truthPath, truth);
    const bool whole = writeSamples(script, recording, progress);
    if (progress.cancelled())
        return stopped(Outcome::Cancelled);
    if (!whole)
        return cannotWrite(path, recording);
    if (!writeDemoTruth(script, QFileInfo(path).fileName(), truth) || !truth.commit())
        return cannotWrite(truthPath, truth);
    if (recording.commit())
        return written(script);
    QFile::remove(truthPath); // it would belong to no recording
    return cannotWrite(path, recording);
}

} // namespace

QString demoTruthPath(const QString& recording)
{
    const QLatin1String extension(".kiro");
    const QString stem =
        recording.endsWith(extension) ? recording.left(recording.size() - extension.size()) : recording;
    return stem + QLatin1String(".json");
}

DemoResult makeDemoRecording(const QString& path, const DemoOptions& options, JobProgress& progress)
{
    constexpr double FramesPerMinute = 60000.0 / DemoFrameMs;
    if (!(options.minutes >= DemoOptions::LeastMinutes && options.minutes <= DemoOptions::MostMinutes))
        return stopped(Outcome::BadMinutes);
    try {
        const auto frameCount =
            static_cast<std::int64_t>(std::floor(options.minutes * FramesPerMinute + 0.5));
        return writeBoth(DemoScript::make(options.seed, frameCount), path, progress);
    } catch (const std::bad_alloc&) {
        return stopped(Outcome::NoMemory);
    }
}
