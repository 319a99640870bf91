// How a saccades browser gets its data and gives it back: detecting, opening, saving, and taking up edits
// that a crash left.

#include "saccadecenterimpl.h"

#include "dialogprogress.h"
#include "eyesignalsdialog.h"
#include "filechoice.h"
#include "kiroreader.h"
#include "messages.h"
#include "modulewindow.h"
#include "questiondialog.h"
#include "themedicon.h"

#include "ui_saccadecenterbase.h"

#include <QDebug>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLocale>
#include <QMessageBox>
#include <QRegularExpression>
#include <QTimer>

namespace
{

/// Of the progress dialog.
constexpr int Begun = 1;
constexpr int Loaded = 1000;
constexpr int Detected = 1999;
constexpr int End = 2000;

/// Icons of questions, in the size of the dialog's buttons.
QPixmap questionPixmap(const char* name)
{
    constexpr int Size = 24;
    return themedIcon(QString::fromLatin1(name)).pixmap(Size);
}

} // namespace

/// Whether to go on with what the user wants, after the question of unsaved changes.
bool SaccadeCenter::settleUnsaved(Before before)
{
    if (!m_ui->actionFileSave->isEnabled())
        return true;
    QString save;
    QString doNotSave;
    QString cancel = tr("   Cancel and go back to the current data");
    switch (before) {
    case Before::Detecting:
        save = tr("   Save changes and detect");
        doNotSave = tr("   Don't save changes and detect");
        break;
    case Before::Opening:
        save = tr("   Save changes and open");
        doNotSave = tr("   Don't save changes and open");
        break;
    case Before::Closing:
        save = tr("   Save changes and close");
        doNotSave = tr("   Don't save changes and close");
        cancel = tr("   Cancel and go back to saccades browser");
        break;
    }
    enum { Save, DoNotSave, Cancel };
    const int answer = QuestionDialog::question(
        this, tr("There are unsaved changes in the current data!\nWhat would you like to do?"), QPixmap(),
        save, questionPixmap("save"), doNotSave, questionPixmap("remove"), cancel, questionPixmap("undo"),
        Cancel);
    if (answer != Save)
        return answer == DoNotSave;
    on_actionFileSave_triggered();
    return !m_ui->actionFileSave->isEnabled() && !m_document.hasFailedToSave();
}

void SaccadeCenter::on_actionFileDetect_triggered()
{
    detect(false);
}

void SaccadeCenter::on_actionFileDetectBlinksHorz_triggered()
{
    detect(true);
}

void SaccadeCenter::detect(bool blinksHorizontal)
{
    if (!settleUnsaved(Before::Detecting))
        return;
    const QString path =
        QFileDialog::getOpenFileName(this, tr("Select kiro data file"), startFolder(m_settings.openFolder),
                                     tr("Kiro data (*.kiro)") + QStringLiteral(";;") + tr("All files (*.*)"));
    if (path.isEmpty())
        return;
    m_settings.openFolder = QFileInfo(path).path();
    detectIn(path, blinksHorizontal);
}

bool SaccadeCenter::openRecording(KiroReader& reader, const QString& path, const QString& unreadable,
                                  const QString& empty)
{
    if (!reader.setFile(KiroString(path))) {
        qWarning().noquote() << path + QStringLiteral(": ") + reader.errorText().toQString();
        showWarning(this, unreadable);
        return false;
    }
    if (reader.header().frameCount() == 0 || reader.header().signalCount() == 0) {
        showWarning(this, empty);
        return false;
    }
    return true;
}

/// The eye signals of a recording, by their names or as the user says; no value if the user cancels.
std::optional<EyeSignals> SaccadeCenter::chooseSignals(const KiroHeader& header)
{
    if (!m_settings.askForSignals) {
        if (const auto chosen = chooseEyeSignals(header))
            return chosen;
    }
    return askForEyeSignals(this, header, suggestEyeSignals(header), m_settings.askForSignals);
}

std::optional<double> SaccadeCenter::askFactor(const QString& name)
{
    constexpr double Proposed = 100.0;
    constexpr double Least = 1.0;
    constexpr double Greatest = 10000.0;
    bool entered = false;
    const double factor = QInputDialog::getDouble(this, windowTitle(),
                                                  tr("Signal %1 is not calibrated!\nPlease enter calibration "
                                                     "factor or use the default one (calibration "
                                                     "unit: deg).")
                                                      .arg(name),
                                                  Proposed, Least, Greatest, 1, &entered);
    return entered ? std::optional<double>(factor) : std::nullopt;
}

/// Loads the samples of `eyes` and runs `next`, which is described by `nextText`, on them. False if that is
/// not to be shown: the user cancelled, or loading failed, which is told and leaves the charts empty.
bool SaccadeCenter::loadSignals(const QString& path, const KiroHeader& header, const EyeLoadOptions& options,
                                EyeSignals& eyes, const QString& nextText, const std::function<void()>& next)
{
    QString error;
    {
        DialogProgress progress(this, tr("Loading eye movement signal..."), 0);
        progress.setRange(0, End);
        progress.setValue(Begun);
        if (loadEyeSignals(KiroString(path), header, options, eyes, error)) {
            progress.setValue(Loaded);
            progress.setText(nextText);
            if (progress.cancelled())
                return false;
            next();
            progress.setText(tr("Done"));
            progress.setValue(Detected);
            if (progress.cancelled())
                return false;
            progress.setValue(End);
            return true;
        }
    }
    m_document.dropSignals();
    showWarning(this, error);
    return false;
}

void SaccadeCenter::detectIn(const QString& path, bool blinksHorizontal)
{
    KiroReader reader;
    if (!openRecording(reader, path,
                       tr("Cannot read header - probably this is not valid kiro binary data file"),
                       tr("The file you are trying to open does not contain any data!")))
        return;
    const KiroHeader& header = reader.header();
    std::optional<EyeSignals> eyes = chooseSignals(header);
    if (!eyes)
        return;
    EyeLoadOptions options;
    // Without that signal loading fails, and says so.
    const EyeSignal& first = (*eyes)[EyeAxis::RightHorizontal];
    if (first.isSet())
        options.frequency = header.signalFrequency(first.signalIndex);
    options.askFactor = [this](const KiroSignal& descriptor) {
        return askFactor(descriptor.fullName.toQString());
    };
    const DetectionSettings settings = {m_settings.saccadeParams, m_settings.blinkParams, blinksHorizontal};
    DetectedMovements found;
    const auto run = [&] { found = runDetection(eyes->detectionType, options.frequency, settings, *eyes); };
    if (!loadSignals(path, header, options, *eyes, tr("Detecting saccades..."), run))
        return;
    m_document.takeDetection(found, settings, std::move(*eyes), header, path);
    showData();
    warnIfEmpty();
}

void SaccadeCenter::warnIfEmpty()
{
    if (m_document.saccades().isEmpty())
        showWarning(this, tr("No saccades found!"));
}

void SaccadeCenter::on_actionFileRedetect_triggered()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_document.redetect();
    QApplication::restoreOverrideCursor();
    redraw(true);
    warnIfEmpty();
}

void SaccadeCenter::on_actionFileOpen_triggered()
{
    if (!settleUnsaved(Before::Opening))
        return;
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Select file with saccades"), startFolder(m_settings.openFolder),
        tr("Kiro saccade file (*.sacc)") + QStringLiteral(";;") + tr("All files (*.*)"));
    if (path.isEmpty())
        return;
    m_settings.openFolder = QFileInfo(path).path();
    openFile(path);
}

/// Path of the recording of a saccade file; empty if the user cancels.
QString SaccadeCenter::locateRecording(const KiroSaccHeader& header, const QString& saccadeFile)
{
    const QString path = findRecording(header, saccadeFile);
    if (!path.isEmpty())
        return path;
    const QString name =
        header.dataFileName(true).toQString().section(QRegularExpression(QStringLiteral("[/\\\\]")), -1);
    QMessageBox box(QMessageBox::Warning, windowTitle(),
                    tr("Failed to locate kiro data file (%1)!\nPress OK to locate file manually or cancel to "
                       "break.")
                        .arg(QFileInfo(name).baseName()),
                    QMessageBox::Ok | QMessageBox::Cancel, this);
    box.setTextFormat(Qt::PlainText);
    if (box.exec() != QMessageBox::Ok)
        return QString();
    return QFileDialog::getOpenFileName(this, tr("Select kiro data file"), startFolder(m_settings.openFolder),
                                        tr("Kiro data file (*.kiro)") + QStringLiteral(";;") +
                                            tr("All files (*.*)"));
}

/// Loads the signals that a saccade file names, as it knows their calibration.
bool SaccadeCenter::loadSignalsOf(const KiroSaccHeader& header, const QString& dataFile, EyeSignals& eyes)
{
    KiroReader reader;
    if (!openRecording(reader, dataFile,
                       tr("Cannot load kiro data file header - probably this is not valid format"),
                       tr("The kiro data file does not contain any data!")))
        return false;
    eyes = signalsOf(header);
    EyeLoadOptions options;
    options.frequency = frequencyOf(header);
    options.storedCalibration = true;
    return loadSignals(dataFile, reader.header(), options, eyes, tr("Loading saccades..."), [] {});
}

void SaccadeCenter::openFile(const QString& path)
{
    KiroSaccHeader header;
    if (!header.load(KiroString(path))) {
        qWarning().noquote() << path + QStringLiteral(": ") + header.error.toQString();
        showWarning(this, tr("Failed to load saccades!"));
        return;
    }
    if (header.missingBytes() > 0) {
        qWarning("%s ends %lld bytes early: %lld saccades and %lld blinks are missing", qUtf8Printable(path),
                 static_cast<long long>(header.missingBytes()),
                 static_cast<long long>(header.missingSaccades()),
                 static_cast<long long>(header.missingBlinks()));
    }
    const QString dataFile = locateRecording(header, path);
    EyeSignals eyes;
    if (dataFile.isEmpty() || !loadSignalsOf(header, dataFile, eyes))
        return;
    m_document.takeFile(header, path, std::move(eyes), dataFile);
    showData();
    warnIfEmpty();
}

void SaccadeCenter::on_actionFileSave_triggered()
{
    if (m_document.state().saccadeFile.isEmpty())
        on_actionFileSaveAs_triggered();
    else if (!m_document.save())
        showWarning(this, tr("Failed to save saccades (%1)").arg(m_document.error()));
}

void SaccadeCenter::on_actionFileSaveAs_triggered()
{
    const SaccadeState& state = m_document.state();
    const QString named = state.saccadeFile.isEmpty() ? state.dataFile : state.saccadeFile;
    const QString proposed = startFolder(m_settings.openFolder) + QLatin1Char('/') +
                             QFileInfo(named).completeBaseName() + QStringLiteral(".sacc");
    const QString chosen = QFileDialog::getSaveFileName(this, tr("Select output file name"), proposed,
                                                        tr("Kiro saccade file (*.sacc)") +
                                                            QStringLiteral(";;") + tr("All files (*.*)"));
    if (chosen.isEmpty())
        return;
    m_settings.openFolder = QFileInfo(chosen).path();
    const QString path = withSuffix(chosen, QStringLiteral("sacc"));
    // The file dialog has asked about the name that was chosen, not about this one.
    if (path != chosen && QFileInfo::exists(path) && !mayReplace(this, path))
        return;
    if (!m_document.saveAs(path))
        showWarning(this, tr("Unable to save saccades (%1)").arg(m_document.error()));
}

/// Offers the edits that a crash left: to a window that shows nothing all of them, else those of its files.
void SaccadeCenter::offerLeftEdits()
{
    if (isBlocked(*this)) {
        QTimer::singleShot(BlockedMs, this, &SaccadeCenter::offerLeftEdits);
        return;
    }
    for (LeftEdits& edits : EditJournal::leftBehind(EditJournal::journalFolder())) {
        const SaccadeState& state = m_document.state();
        const bool ofThis = edits.saccadeFile() == state.saccadeFile && edits.dataFile() == state.dataFile;
        if (m_document.hasRecording() && !ofThis)
            continue;
        enum { Restore, Discard, Later };
        const QString file = edits.saccadeFile().isEmpty() ? edits.dataFile() : edits.saccadeFile();
        const int answer = QuestionDialog::question(
            this,
            tr("KiroManager ended before these edits of saccades were saved:\n%1\nThe last one was made on "
               "%2.\nWhat would you like to do?")
                .arg(file, QLocale::system().toString(edits.lastWritten(), QLocale::ShortFormat)),
            QPixmap(), tr("   Restore the edits"), questionPixmap("redo"), tr("   Discard the edits"),
            questionPixmap("remove"), tr("   Decide later"), questionPixmap("undo"), Later);
        if (answer == Discard)
            edits.discard();
        else if (answer == Restore && takeUp(edits))
            return;
    }
}

bool SaccadeCenter::takeUp(LeftEdits& edits)
{
    SaccadeState state;
    if (!edits.read(state)) {
        showWarning(this, tr("The edits cannot be read.\nThe saved file is as it was."));
        return false;
    }
    if (!QFileInfo(state.dataFile).isFile())
        state.dataFile = locateRecording(state.header, state.saccadeFile);
    EyeSignals eyes;
    if (state.dataFile.isEmpty() || !loadSignalsOf(state.header, state.dataFile, eyes))
        return false;
    m_document.takeLeftEdits(state, std::move(eyes));
    // They are in the journal of this window now.
    edits.discard();
    m_settings.saccadeParams = state.saccadeParams;
    m_settings.blinkParams = state.blinkParams;
    showData();
    return true;
}
