#pragma once

#include "detectionrun.h"
#include "editjournal.h"
#include "eyesignals.h"
#include "saccadeedit.h"
#include "saccadestate.h"

#include <QObject>
#include <QUndoStack>

#include <memory>

class KiroHeader;

/// What a saccades browser works on: the saccades and blinks of one recording and its eye signals, with the
/// edits since the last save. Runs without a window.
///
/// Every change is kept in a journal, from which it can be taken up again after a crash.
class SaccadeDocument : public QObject
{
    Q_OBJECT

public:
    /// Largest measures where there are no saccades to tell them.
    static constexpr double AmplitudeOfNone = 10.0;
    static constexpr double VelocityOfNone = 500.0;

    /// `journalFolder` is made when there is something to keep.
    explicit SaccadeDocument(const QString& journalFolder, QObject* parent = nullptr);

    const SaccadeState& state() const { return m_state; }
    const QList<KiroSaccade>& saccades() const { return m_state.saccades; }
    const QList<KiroBlink>& blinks() const { return m_state.blinks; }
    int currentSaccade() const { return m_state.currentSaccade; }
    const EyeSignals& eyes() const { return m_eyes; }
    /// Of the right horizontal signal; 0 if no samples are loaded.
    int sampleCount() const { return int(m_eyes[EyeAxis::RightHorizontal].position.size()); }
    /// As the saccades' header says; always finite and above 0.
    double frequency() const;
    double msPerSample() const;
    /// Over all saccades, for the scales.
    double largestAmplitude() const { return m_largestAmplitude; }
    double largestVelocity() const { return m_largestVelocity; }

    bool hasRecording() const { return !m_state.dataFile.isEmpty(); }
    /// Whether there is something that is not saved.
    bool isModified() const { return !m_undo.isClean(); }
    /// Manual edits and repeated detections, undone and done again.
    QUndoStack& undoStack() { return m_undo; }
    /// Text of the last failed save.
    const QString& error() const { return m_error; }

    /// Parameters of the next detection.
    void setParams(const SaccadeDetectionParams& saccades, const BlinkDetectionParams& blinks);

    /// Replaces everything by what was found in the recording at `path`. `eyes` holds the loaded samples.
    void takeDetection(const DetectedMovements& found, const DetectionSettings& settings, EyeSignals eyes,
                       const KiroHeader& recording, const QString& path);
    /// Replaces everything by the content of the saccade file at `saccadeFile`.
    void takeFile(const KiroSaccHeader& header, const QString& saccadeFile, EyeSignals eyes,
                  const QString& dataFile);
    /// Replaces everything by edits that a crash left; they are not saved.
    void takeLeftEdits(const SaccadeState& state, EyeSignals eyes);
    /// After signals could not be loaded: shows none until the next detection or file.
    void dropSignals();

    /// Detects again in the samples held, with the parameters set. False if nothing was found.
    bool redetect();
    /// Adds a saccade by hand, times in seconds. See addSaccade() for what is refused.
    SaccadeAddition addSaccade(double t0, double t1);
    void removeCurrent();
    /// Indices of saccades.
    void removeSelected(const QList<int>& indices);
    /// Held within the list.
    void setCurrentSaccade(int index);

    /// Saves to the open saccade file. False with error(); what is not saved counts as saved then, and stays
    /// in the journal.
    bool save();
    bool hasFailedToSave() const { return m_saveFailed; }
    /// Saves to a new file, which is then the open one. False with error(), and nothing changed.
    bool saveAs(const QString& path);
    /// After the user has decided to do without what is not saved, and has nothing more to do here.
    void forget();

signals:
    /// The lists or the current saccade have changed.
    void changed();
    /// isModified() or the open files have changed.
    void stateChanged();

private:
    void leaveFailedSave();
    void show(EyeSignals eyes);
    void settle();
    void findLargest();
    void fillHeader();
    void pushEdit(const QString& text, const QList<KiroSaccade>& edited, int current);
    void onUndoIndexChanged();

    SaccadeState m_state;
    EyeSignals m_eyes;
    QUndoStack m_undo;
    QString m_journalFolder;
    std::unique_ptr<EditJournal> m_journal;
    QString m_error;
    double m_largestAmplitude = AmplitudeOfNone;
    double m_largestVelocity = 100.0;
    bool m_saveFailed = false;
};

/// Samples per second of the eye signals of a saccade file; 1000 if it does not tell.
double frequencyOf(const KiroSaccHeader& header);

/// Where the recording of a saccade file is: at the absolute path that the file names, else at the relative
/// one seen from the file's folder; empty if there is none at either.
QString findRecording(const KiroSaccHeader& header, const QString& saccadeFile);

/// The signals that a saccade file names, with their calibration and without samples.
EyeSignals signalsOf(const KiroSaccHeader& header);
