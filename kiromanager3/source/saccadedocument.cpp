#include "saccadedocument.h"

#include "inistore.h"
#include "kiroheader.h"
#include "saccadeundo.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace
{

template <class Record>
QList<Record> listOf(const std::vector<Record>& records)
{
    return QList<Record>(records.begin(), records.end());
}

/// Also by different paths; false if there is none at one of them.
bool isSameFile(const QString& a, const QString& b)
{
    const QString canonical = QFileInfo(a).canonicalFilePath();
    return !canonical.isEmpty() && canonical == QFileInfo(b).canonicalFilePath();
}

/// Sample that the user looks at.
int shownPlace(const SaccadeState& state)
{
    const int current = state.currentSaccade;
    return current < state.saccades.size() ? state.saccades[current].main.start : 0;
}

/// The first saccade that begins at a sample or behind, or else the last one.
int firstFrom(const QList<KiroSaccade>& saccades, int sample)
{
    const auto found = std::find_if(saccades.begin(), saccades.end(), [sample](const KiroSaccade& saccade) {
        return saccade.main.start >= sample;
    });
    const int index = int(found - saccades.begin());
    return std::max(0, std::min(index, saccades.size() - 1));
}

} // namespace

double frequencyOf(const KiroSaccHeader& header)
{
    const double frequency = header.frequency();
    return std::isfinite(frequency) && frequency > 0.0 ? frequency : 1000.0;
}

SaccadeDocument::SaccadeDocument(const QString& journalFolder, QObject* parent)
    : QObject(parent)
    , m_undo(this)
    , m_journalFolder(journalFolder)
    , m_journal(std::make_unique<EditJournal>(journalFolder))
{
    connect(&m_undo, &QUndoStack::indexChanged, this, &SaccadeDocument::onUndoIndexChanged);
    connect(&m_undo, &QUndoStack::cleanChanged, this, &SaccadeDocument::stateChanged);
}

double SaccadeDocument::frequency() const
{
    return frequencyOf(m_state.header);
}

double SaccadeDocument::msPerSample() const
{
    return 1000.0 / frequency();
}

void SaccadeDocument::setParams(const SaccadeDetectionParams& saccades, const BlinkDetectionParams& blinks)
{
    m_state.saccadeParams = saccades;
    m_state.blinkParams = blinks;
}

void SaccadeDocument::takeDetection(const DetectedMovements& found, const DetectionSettings& settings,
                                    EyeSignals eyes, const KiroHeader& recording, const QString& path)
{
    SaccadeState state;
    describeDetection(state.header, found, settings, eyes, recording, KiroString(path));
    state.saccades = listOf(found.saccades);
    state.blinks = listOf(found.blinks);
    state.saccadeParams = settings.saccades;
    state.blinkParams = settings.blinks;
    state.dataFile = path;
    takeLeftEdits(state, std::move(eyes));
}

void SaccadeDocument::takeLeftEdits(const SaccadeState& state, EyeSignals eyes)
{
    leaveFailedSave();
    m_state = state;
    m_undo.clear();
    m_undo.resetClean();
    show(std::move(eyes));
    m_journal->keep(m_state);
}

void SaccadeDocument::takeFile(const KiroSaccHeader& header, const QString& saccadeFile, EyeSignals eyes,
                               const QString& dataFile)
{
    leaveFailedSave();
    m_state.header = header;
    m_state.saccades = listOf(header.saccades);
    m_state.blinks = listOf(header.blinks);
    m_state.currentSaccade = 0;
    m_state.saccadeFile = saccadeFile;
    m_state.dataFile = dataFile;
    m_undo.clear();
    m_undo.setClean();
    m_journal->drop();
    show(std::move(eyes));
}

void SaccadeDocument::dropSignals()
{
    m_eyes.clear();
    emit changed();
    emit stateChanged();
}

/// What could not be saved stays in its journal, to be offered again.
void SaccadeDocument::leaveFailedSave()
{
    if (m_saveFailed)
        m_journal = std::make_unique<EditJournal>(m_journalFolder);
    m_saveFailed = false;
}

void SaccadeDocument::show(EyeSignals eyes)
{
    m_eyes = std::move(eyes);
    settle();
    emit stateChanged();
}

/// After any change of the lists.
void SaccadeDocument::settle()
{
    setCurrentSaccade(m_state.currentSaccade);
    findLargest();
}

void SaccadeDocument::findLargest()
{
    if (m_state.saccades.isEmpty()) {
        m_largestAmplitude = AmplitudeOfNone;
        m_largestVelocity = VelocityOfNone;
        return;
    }
    m_largestAmplitude = 0.0;
    m_largestVelocity = 0.0;
    for (const KiroSaccade& saccade : qAsConst(m_state.saccades)) {
        m_largestAmplitude = std::max(m_largestAmplitude, std::abs(saccade.main.amplitude));
        m_largestVelocity = std::max(m_largestVelocity, saccade.main.peakVelocity);
    }
}

bool SaccadeDocument::redetect()
{
    const DetectionSettings settings = {m_state.saccadeParams, m_state.blinkParams,
                                        m_state.header.blinksHorizontal};
    const DetectedMovements found = runDetection(m_state.header.detectionType, frequency(), settings, m_eyes);
    SaccadeDetection detected;
    detected.saccades = listOf(found.saccades);
    detected.blinks = listOf(found.blinks);
    detected.currentSaccade = firstFrom(detected.saccades, shownPlace(m_state));
    detected.params = settings.saccades;
    m_undo.push(new RedetectCommand(m_state, std::move(detected), tr("Detect again")));
    return !found.saccades.empty();
}

SaccadeAddition SaccadeDocument::addSaccade(double t0, double t1)
{
    QList<KiroSaccade> edited = m_state.saccades;
    const EditSource source = {m_eyes, m_eyes.detectionType, frequency(), m_state.saccadeParams.minTime};
    const SaccadeAddition addition = ::addSaccade(edited, source, t0, t1);
    if (addition.outcome == SaccadeAddition::Outcome::Added)
        pushEdit(tr("Add saccade"), edited, addition.index);
    return addition;
}

void SaccadeDocument::removeCurrent()
{
    removeSelected({m_state.currentSaccade});
}

void SaccadeDocument::removeSelected(const QList<int>& indices)
{
    QList<KiroSaccade> edited = m_state.saccades;
    const int current = removeSaccades(edited, std::vector<int>(indices.begin(), indices.end()),
                                       m_state.header.detectionType, m_state.currentSaccade);
    const int removed = m_state.saccades.size() - edited.size();
    if (removed > 0)
        pushEdit(removed == 1 ? tr("Remove saccade") : tr("Remove %1 saccades").arg(removed), edited,
                 current);
}

void SaccadeDocument::pushEdit(const QString& text, const QList<KiroSaccade>& edited, int current)
{
    m_undo.push(new SaccadeEditCommand(m_state, edited, current, text));
}

void SaccadeDocument::onUndoIndexChanged()
{
    // Taking another document clears the stack, and then there is nothing to keep.
    if (m_undo.count() == 0)
        return;
    settle();
    // After a failed save the state that counts as saved is in no file.
    if (isModified() || m_saveFailed)
        m_journal->keep(m_state);
    else
        m_journal->drop();
    emit changed();
    emit stateChanged();
}

void SaccadeDocument::setCurrentSaccade(int index)
{
    m_state.currentSaccade = std::max(0, std::min(index, m_state.saccades.size() - 1));
}

void SaccadeDocument::fillHeader()
{
    m_state.header.saccades.assign(m_state.saccades.begin(), m_state.saccades.end());
    m_state.header.blinks.assign(m_state.blinks.begin(), m_state.blinks.end());
}

bool SaccadeDocument::save()
{
    fillHeader();
    const bool saved = m_state.header.save();
    m_saveFailed = !saved;
    if (saved)
        m_journal->drop();
    else
        m_error = m_state.header.error.toQString();
    m_undo.setClean();
    emit stateChanged();
    return saved;
}

bool SaccadeDocument::saveAs(const QString& path)
{
    if (isSameFile(path, m_state.dataFile)) {
        m_error = tr("this is the recording itself");
        return false;
    }
    if (KiroHeader().load(path)) {
        m_error = tr("there is a recording of this name, which is not replaced");
        return false;
    }
    fillHeader();
    KiroSaccHeader& header = m_state.header;
    const KiroString oldAbsolute = header.dataFile;
    const KiroString oldRelative = header.relativeDataFile;
    const QString absolute = QFileInfo(m_state.dataFile).absoluteFilePath();
    header.setDataFiles(KiroString(absolute), KiroString(IniStore::relativePath(path, absolute)));
    if (!header.saveAs(KiroString(path))) {
        m_error = header.error.toQString();
        header.setDataFiles(oldAbsolute, oldRelative);
        return false;
    }
    header.fileName = KiroString(path);
    m_state.saccadeFile = path;
    m_saveFailed = false;
    m_journal->drop();
    m_undo.setClean();
    emit stateChanged();
    return true;
}

void SaccadeDocument::forget()
{
    if (!m_saveFailed || isModified())
        m_journal->drop();
}

QString findRecording(const KiroSaccHeader& header, const QString& saccadeFile)
{
    const QString absolute = header.dataFileName(true).toQString();
    if (QFileInfo(absolute).isFile())
        return absolute;
    const QString relative = header.dataFileName(false).toQString();
    if (relative.isEmpty())
        return QString();
    const QString path = IniStore::absolutePath(saccadeFile, relative);
    return QFileInfo(path).isFile() ? path : QString();
}

EyeSignals signalsOf(const KiroSaccHeader& header)
{
    EyeSignals eyes;
    for (const EyeAxis axis : EyeAxes) {
        const KiroSaccSignal& known = header.signal(saccadeFileRole(axis));
        eyes[axis].signalIndex = known.signalIndex;
        eyes[axis].factor = known.factor;
        eyes[axis].offset = known.offset;
    }
    return eyes;
}
