#include "loadedrecording.h"

#include "jobprogress.h"
#include "kirobulkreader.h"
#include "kiroreader.h"
#include "rounding.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>
#include <utility>

namespace
{

/// Reports of progress while samples are read.
constexpr double Reports = 20.0;

bool isUsablePeriod(double msecs)
{
    return std::isfinite(msecs) && msecs > 0.0;
}

double declaredMsecs(const KiroSignal& signal)
{
    return 1000.0 / signal.frequency();
}

/// Samples of no bytes do not exist.
int samplesInFrame(const KiroSignal& signal)
{
    return signal.sampleSize > 0 ? static_cast<int>(signal.samplesPerFrame) : 0;
}

/// Milliseconds that a frame lasts, by the first signal that tells; 0 if none does.
double frameMsecsOf(const KiroHeader& header)
{
    for (const KiroSignal& signal : header.signalTable()) {
        const double msecs = declaredMsecs(signal) * samplesInFrame(signal);
        if (isUsablePeriod(msecs))
            return msecs;
    }
    return 0.0;
}

Plot stripOf(const KiroSignal& signal)
{
    Plot plot;
    plot.setTitle(signal.shortName.toQString());
    plot.hasCalib = signal.calibrated;
    if (signal.calibrated) {
        plot.calibFactor = signal.calibrationFactor;
        plot.calibOffset = signal.calibrationOffset;
        plot.setCalibUnit(signal.calibrationUnit.toQString());
        plot.useCalib = true;
    }
    return plot;
}

/// To the nearest whole number of seconds, and to the next if that is less.
double wholeSeconds(double seconds)
{
    const double nearest = std::floor(seconds + 0.5);
    return seconds > nearest ? nearest + 1.0 : nearest;
}

} // namespace

LoadedRecording::LoadedRecording() = default;
LoadedRecording::~LoadedRecording() = default;
LoadedRecording::LoadedRecording(LoadedRecording&& other) noexcept = default;
LoadedRecording& LoadedRecording::operator=(LoadedRecording&& other) noexcept = default;

LoadedRecording::FileStamp::FileStamp(const QString& path)
{
    const QFileInfo info(path);
    size = info.size();
    modified = info.lastModified();
}

bool LoadedRecording::FileStamp::operator==(const FileStamp& other) const
{
    return size == other.size && modified == other.modified;
}

bool LoadedRecording::fail(Failure failure, const QString& text)
{
    m_failure = failure;
    m_errorText = text;
    m_reader.reset();
    return false;
}

/// A file that has changed since openHeader() is what the failure comes from.
bool LoadedRecording::failUnlessChanged(Failure failure, const QString& text)
{
    return hasChanged() ? failChanged() : fail(failure, text);
}

bool LoadedRecording::failChanged()
{
    return fail(Failure::Changed,
                tr("The file %1 was changed or removed by another program while it was loaded.").arg(m_path));
}

bool LoadedRecording::failToRead(const QString& why)
{
    return failUnlessChanged(Failure::Samples, tr("Failed to load data signals!") + QLatin1Char('\n') + why);
}

bool LoadedRecording::load(const QString& path, JobProgress& progress)
{
    const auto goesOn = [&] { return !progress.cancelled() || fail(Failure::Cancelled); };
    return openHeader(path) && goesOn() && checkIntegrity() && goesOn() && describeSignals() && goesOn() &&
           readSamples(progress);
}

bool LoadedRecording::openHeader(const QString& path)
{
    m_path = path;
    m_stamp = FileStamp(path);
    m_reader = std::make_unique<KiroReader>();
    if (!m_reader->setFile(path))
        return fail(Failure::Header, tr("Failed to load file header"));
    header = m_reader->header();
    return true;
}

bool LoadedRecording::checkIntegrity()
{
    Q_ASSERT(m_reader);
    if (!m_reader->checkIntegrity()) {
        return failUnlessChanged(
            Failure::Integrity,
            tr("The file you are trying to open is the valid kiro file but the header is corrupted.\n"
               "Use DataFileCenter module to reconstruct it."));
    }
    if (header.frameCount() == 0)
        return fail(Failure::NoData, tr("The file you are trying to open does not contain any data!"));
    return true;
}

// The file holds all frames and so each number of samples is one of 31 bits.
bool LoadedRecording::describeSignals()
{
    Q_ASSERT(m_reader);
    const double frameMsecs = frameMsecsOf(header);
    if (frameMsecs == 0.0) {
        return fail(Failure::Rate,
                    tr("The file %1 does not tell how fast its signals were recorded.").arg(m_path));
    }
    frameCount = static_cast<int>(header.frameCount());
    for (const KiroSignal& signal : header.signalTable())
        describe(signal, frameMsecs);
    total = wholeSeconds(sampleCounts[0] * signalSecs[0]);
    totalSeconds = static_cast<int>(std::min<double>(total, std::numeric_limits<int>::max()));
    return true;
}

void LoadedRecording::describe(const KiroSignal& signal, double frameMsecs)
{
    const int perFrame = samplesInFrame(signal);
    const double declared = declaredMsecs(signal);
    const double msecs = isUsablePeriod(declared) ? declared : frameMsecs / std::max(perFrame, 1);
    signalDescriptors.append(signal);
    samplesPerFrame.append(perFrame);
    sampleCounts.append(perFrame * frameCount);
    signalMsecs.append(msecs);
    signalSecs.append(msecs / 1000.0);
    plots.push_back(stripOf(signal));
}

bool LoadedRecording::readSamples(JobProgress& progress)
{
    Q_ASSERT(m_reader);
    std::vector<SampleArray> samples;
    std::vector<SampleStoreBuilder> builders(sampleCounts.cbegin(), sampleCounts.cend());
    const auto build = [&builders](std::size_t signal, const SampleArray& soFar) {
        builders[signal].take(soFar);
    };
    KiroBulkReader bulk(*m_reader);
    bulk.setFramesPerReport(std::max(1, roundHalfUp(frameCount / Reports)));
    if (!bulk.readAll(samples, progress, build))
        return bulk.wasCancelled() ? fail(Failure::Cancelled) : failToRead(bulk.errorText().toQString());
    if (!giveSamples(std::move(samples), std::move(builders), progress))
        return false;
    if (hasChanged())
        return failChanged();
    m_reader.reset();
    currentFile = m_path;
    return true;
}

/// Hands the samples of each signal to its strip.
bool LoadedRecording::giveSamples(std::vector<SampleArray> samples, std::vector<SampleStoreBuilder> builders,
                                  JobProgress& progress)
{
    try {
        for (std::size_t i = 0; i < samples.size(); ++i) {
            if (progress.cancelled())
                return fail(Failure::Cancelled);
            Plot& plot = plots[i];
            plot.setSamples(builders[i].finish(samples[i]));
            plot.setTimeOffset(0.0);
            plot.setTimePerSample(signalSecs[static_cast<int>(i)]);
            plot.adjustPrecision();
        }
    } catch (const std::bad_alloc&) {
        return failToRead(tr("There is not enough memory."));
    }
    return true;
}

bool LoadedRecording::hasChanged() const
{
    KiroHeader present;
    return !(FileStamp(m_path) == m_stamp) || !present.load(m_path) || present.toBytes() != header.toBytes();
}
