#pragma once

#include "kiroheader.h"
#include "plot.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QString>
#include <QVector>

#include <memory>
#include <vector>

class JobProgress;
class KiroReader;

/// A recording with all its samples in memory, as a signals browser shows it. Runs without a window.
///
/// A new object loads one recording, by load() or by its steps in their order; after a step that fails it is
/// of no further use. A window keeps the recording that it shows until another is loaded whole, and then
/// takes the other by a move. Afterwards the file is not touched.
class LoadedRecording
{
    Q_DECLARE_TR_FUNCTIONS(LoadedRecording)

public:
    enum class Failure {
        None,
        Header,    ///< the file cannot be opened or is no recording
        Integrity, ///< the declared number of frames is not that of the file
        NoData,    ///< there are no frames
        Rate,      ///< no signal tells how fast it was sampled
        Samples,   ///< the samples cannot be read or held in memory
        Changed,   ///< the file became another while it was loaded
        Cancelled
    };

    LoadedRecording();
    ~LoadedRecording();
    LoadedRecording(LoadedRecording&& other) noexcept;
    LoadedRecording& operator=(LoadedRecording&& other) noexcept;

    /// All steps. Asks between them whether to go on, and reports as readSamples() does.
    bool load(const QString& path, JobProgress& progress);

    /// The steps. Each is false, with failure() and errorText(), if there is nothing to show.
    bool openHeader(const QString& path);
    bool checkIntegrity();
    bool describeSignals();
    /// The longest step by far: about twenty reports of progress, and often the question whether to go on.
    bool readSamples(JobProgress& progress);

    Failure failure() const { return m_failure; }
    /// What to tell the user of the failure; empty after a cancel.
    const QString& errorText() const { return m_errorText; }

    /// Full path; empty until the recording is loaded.
    QString currentFile;
    KiroHeader header;
    int frameCount = 0;
    /// One element for each signal; a signal whose samples have no bytes has no samples.
    QVector<KiroSignal> signalDescriptors;
    QVector<int> samplesPerFrame;
    QVector<int> sampleCounts; ///< of the whole recording
    /// Time from sample to sample; always finite and above 0. A signal without a usable rate has what its
    /// samples in a frame tell, frames being equally long for all signals.
    QVector<double> signalMsecs;
    QVector<double> signalSecs;
    /// Seconds for the selector: the duration of the first signal, raised to a whole number.
    double total = 0.0;
    int totalSeconds = 0; ///< `total`, held within the range of its type
    /// A strip for each signal: title, calibration, all samples as data and data range, times, precision. To
    /// be copied into the widget, which shares the samples.
    std::vector<Plot> plots;

private:
    /// What another file at the same path would hardly share.
    struct FileStamp
    {
        qint64 size = 0;
        QDateTime modified;

        explicit FileStamp(const QString& path = QString());
        bool operator==(const FileStamp& other) const;
    };

    bool fail(Failure failure, const QString& text = QString());
    bool failUnlessChanged(Failure failure, const QString& text);
    bool failChanged();
    bool failToRead(const QString& why);
    bool hasChanged() const;
    void describe(const KiroSignal& signal, double frameMsecs);
    bool giveSamples(std::vector<SampleArray> samples, std::vector<SampleStoreBuilder> builders,
                     JobProgress& progress);

    QString m_path;
    FileStamp m_stamp;                    // as of openHeader()
    std::unique_ptr<KiroReader> m_reader; // only while loading
    Failure m_failure = Failure::None;
    QString m_errorText;
};
