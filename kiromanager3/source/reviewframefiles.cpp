// How a signals browser gets a recording and leaves it.

#include "reviewframeimpl.h"

#include "appconfig.h"
#include "calibrationstore.h"
#include "dialogprogress.h"
#include "filechoice.h"
#include "jobguard.h"
#include "kiroreader.h"
#include "messages.h"
#include "modulewindow.h"
#include "multiplot.h"
#include "partprogress.h"
#include "plaintooltip.h"
#include "positionselector.h"
#include "questiondialog.h"
#include "signalitemdelegate.h"

#include "ui_reviewframebase.h"

#include <QApplication>
#include <QDebug>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>

#include <algorithm>
#include <functional>
#include <memory>

namespace
{

/// Steps of the progress dialog besides a step for each signal, and the two of leaving an open file.
constexpr int Steps = 9;
constexpr int LeavingSteps = 2;

/// Moves a progress dialog on by a step at a time.
class LoadSteps
{
public:
    explicit LoadSteps(JobProgress& progress)
        : m_progress(progress)
    {
        progress.setValue(m_value);
    }

    /// False if the user wants no more.
    bool next(const QString& text)
    {
        m_progress.setText(text);
        m_progress.setValue(++m_value);
        return !m_progress.cancelled();
    }
    /// The range of work of so many steps.
    PartProgress part(int count)
    {
        const int from = m_value;
        m_value += count;
        return PartProgress(m_progress, from, count);
    }

private:
    JobProgress& m_progress;
    int m_value = 1;
};

/// How the files were shown, in this program: the first window that needs it reads them all.
SignalViewStore& viewStore()
{
    static QString path;
    static std::unique_ptr<SignalViewStore> store;
    if (!store || path != appConfig().signalsFile()) {
        path = appConfig().signalsFile();
        store = std::make_unique<SignalViewStore>(path);
    }
    return *store;
}

QStringList namesOf(const LoadedRecording& recording)
{
    QStringList names;
    for (const KiroSignal& descriptor : recording.signalDescriptors)
        names << descriptor.fullName.toQString();
    return names;
}

QStringList shownNames(const LoadedRecording& recording)
{
    QStringList names;
    for (std::size_t i = 0; i < recording.plots.size(); ++i) {
        if (recording.plots[i].show)
            names << recording.signalDescriptors[int(i)].fullName.toQString();
    }
    return names;
}

} // namespace

QStringList ReviewFrame::signalNames() const
{
    return namesOf(m_recording);
}

void ReviewFrame::on_buttonLoad_clicked()
{
    if (!settleUnsaved())
        return;
    const QString path =
        QFileDialog::getOpenFileName(this, tr("Select kiro data file"), startFolder(m_settings.lastDir),
                                     tr("Kiro data (*.kiro)") + QStringLiteral(";;") + tr("All files (*.*)"));
    if (!path.isEmpty())
        loadFile(path);
}

void ReviewFrame::onMenuMRU(QAction* action)
{
    const QString path = action->data().toString();
    if (!QFileInfo::exists(path)) {
        showWarning(this, tr("The file %1 could not be found!").arg(path));
        m_settings.mruFiles.remove(path);
        fillRecentFiles();
        return;
    }
    m_settings.mruFiles.add(path);
    fillRecentFiles();
    openAfterQuestions(path);
}

void ReviewFrame::openAfterQuestions(const QString& path)
{
    if (settleUnsaved())
        loadFile(path);
}

bool ReviewFrame::settleUnsaved()
{
    const auto settle = [this](const QString& question, const std::function<bool()>& isUnsaved,
                               const std::function<void()>& save) {
        if (!isUnsaved())
            return true;
        enum { Save, DoNotSave, Cancel };
        const int answer = QuestionDialog::question(this, question, QPixmap(), tr("Yes, save"), QPixmap(),
                                                    tr("No, do not save"), QPixmap(), tr("Cancel operation"),
                                                    QPixmap(), Cancel);
        if (answer != Save)
            return answer == DoNotSave;
        save();
        return !isUnsaved();
    };
    return settle(
               tr("There are unsaved changes in this file. Would you like to save them?"),
               [this] { return m_ui->buttonSave->isEnabled(); }, [this] { on_buttonSave_clicked(); }) &&
           settle(
               tr("There are unsaved changes in labels for this file. Would you like to save them?"),
               [this] { return m_saveLabelsAction->isEnabled(); }, [this] { onSaveMarkers(); });
}

void ReviewFrame::on_buttonSave_clicked()
{
    if (!isOpen() || !m_ui->buttonSave->isEnabled())
        return;
    KiroReader reader;
    if (!reader.setFile(KiroString(m_recording.currentFile))) {
        showWarning(this, tr("Failed to open file %1").arg(m_recording.currentFile));
        return;
    }
    CalibrationStoreResult result = checkCalibrationStore(reader, m_recording.signalDescriptors);
    if (result.ok()) {
        // No other recording may come in while the text is drawn.
        const JobGuard guard(this);
        m_ui->labelStatus->setText(tr("Storing new calibration values..."));
        QApplication::setOverrideCursor(Qt::WaitCursor);
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        result = storeCalibration(reader, m_recording.signalDescriptors);
        QApplication::restoreOverrideCursor();
        m_ui->labelStatus->clear();
    }
    if (result.ok())
        m_ui->buttonSave->setEnabled(false);
    else
        showWarning(this, result.errorText);
}

void ReviewFrame::loadFile(const QString& path)
{
    const QFileInfo info(path);
    m_settings.lastDir = info.absolutePath();
    LoadedRecording recording;
    SignalViewState state;
    int favoriteIndex = 0;
    bool loaded = recording.openHeader(info.absoluteFilePath());
    if (loaded) {
        const int steps = Steps + recording.header.signalCount() + (isOpen() ? LeavingSteps : 0);
        const bool wasEnabled = m_ui->frameSettings->isEnabled();
        DialogProgress progress(this, tr("Loading data header..."), 0);
        progress.setRange(0, steps);
        loaded = loadInto(recording, progress);
        m_ui->frameSettings->setEnabled(wasEnabled);
        if (loaded) {
            viewAsLeft(recording, state, favoriteIndex);
            showRecording(std::move(recording), state, favoriteIndex);
            progress.setText(tr("Data file loaded!"));
            progress.setValue(steps);
        }
    }
    if (!loaded) {
        if (!recording.errorText().isEmpty())
            showWarning(this, recording.errorText());
        return;
    }
    m_settings.mruFiles.add(m_recording.currentFile);
    fillRecentFiles();
    m_plots->setFocus();
}

/// All that can fail or be cancelled; what is shown stays meanwhile.
bool ReviewFrame::loadInto(LoadedRecording& recording, DialogProgress& progress)
{
    const int signalCount = recording.header.signalCount();
    LoadSteps steps(progress);
    if (!steps.next(tr("Checking selected file integrity...")))
        return false;
    if (!recording.checkIntegrity())
        return false;
    m_ui->frameSettings->setEnabled(false);
    if (isOpen()) {
        if (!steps.next(tr("Storing display settings for current file...")))
            return false;
        storeViewState();
        if (!steps.next(tr("Closing current file...")))
            return false;
    }
    if (!steps.next(tr("Loading favorite views...")) || !steps.next(tr("Initializing internal data...")))
        return false;
    if (!recording.describeSignals())
        return false;
    if (!steps.next(tr("Loading file settings...")) || !steps.next(tr("Looking for audio data...")) ||
        !steps.next(tr("Loading data signals...")))
        return false;
    PartProgress reading = steps.part(signalCount);
    if (!recording.readSamples(reading))
        return false;
    return steps.next(tr("Initializing audio player...")) && steps.next(tr("Initializing user interface..."));
}

/// Shows the strips of a recording as they were shown last, else as the first favourite view that fits.
void ReviewFrame::viewAsLeft(LoadedRecording& recording, SignalViewState& state, int& favoriteIndex)
{
    const QStringList names = namesOf(recording);
    m_settings.views.activate(names);
    for (const Plot& plot : recording.plots)
        state.views.append(viewOf(plot, SignalView::NoUsefulRange));
    const bool found = viewStore().load(recording.currentFile, state);
    if (found) {
        for (std::size_t i = 0; i < recording.plots.size(); ++i)
            applyView(state.views[int(i)], recording.plots[i]);
        favoriteIndex = m_settings.views.numberShowing(shownNames(recording));
    } else if (const auto first = m_settings.views.firstActive()) {
        for (std::size_t i = 0; i < recording.plots.size(); ++i)
            recording.plots[i].setShowPlot(first->viewSignals.contains(names[int(i)]));
        favoriteIndex = 1;
    }
}

void ReviewFrame::storeViewState()
{
    if (!isOpen())
        return;
    SignalViewState state = m_viewState;
    for (int i = 0; i < m_plots->plotCount; ++i)
        state.views[i] = viewOf(*m_plots->plot(i), m_viewState.views[i].usefulRange);
    if (!viewStore().save(m_recording.currentFile, state))
        qWarning("The view of %s could not be stored", qUtf8Printable(m_recording.currentFile));
}

void ReviewFrame::showRecording(LoadedRecording recording, const SignalViewState& state, int favoriteIndex)
{
    m_plots->clearAllLabels();
    m_plots->setPlotCount(0);
    m_recording = std::move(recording);
    m_viewState = state;
    m_plots->setPlotCount(int(m_recording.plots.size()));
    for (std::size_t i = 0; i < m_recording.plots.size(); ++i)
        *m_plots->plot(int(i)) = m_recording.plots[i];

    m_selector->setTotalRange(0.0, m_recording.total);
    m_selector->setSelectorRange(m_recording.total);
    m_selector->setSelectorPosition(m_recording.total * 0.5);
    setWindowTitle(moduleTitle(tr("Signals browser"), m_recording.currentFile));

    fillFavoriteViews();
    m_ui->comboFavoriteViews->setCurrentIndex(favoriteIndex);
    m_contextMenu->close();
    m_contextPlot = -1;
    forgetFoundLabels();
    m_lastLabelFile.clear();
    m_labelHistory.restart(true);
    m_ui->labelStatus->clear();
    m_ui->buttonSave->setEnabled(false);
    fillSignals();
    enableControls();
    m_ui->stackContent->setCurrentWidget(m_ui->pagePlot);
    showRange();
    showWindowTexts();
    redraw();
}

void ReviewFrame::fillFavoriteViews()
{
    m_ui->comboFavoriteViews->clear();
    m_ui->comboFavoriteViews->addItem(FavoriteViews::customName());
    m_ui->comboFavoriteViews->addItems(m_settings.views.activeNames());
}

void ReviewFrame::fillSignals()
{
    const QSignalBlocker blocker(m_ui->listSignals);
    m_ui->listSignals->clear();
    for (const KiroSignal& descriptor : m_recording.signalDescriptors) {
        auto* const item = new QListWidgetItem(descriptor.shortName.toQString(), m_ui->listSignals);
        item->setToolTip(plainToolTip(descriptor.fullName.toQString()));
    }
    selectShown();
    constexpr int Blanks = 5;
    constexpr int MostLetters = 40;
    const QFontMetrics metrics = m_ui->listSignals->fontMetrics();
    const int width =
        m_ui->listSignals->sizeHintForColumn(0) + Blanks * metrics.horizontalAdvance(QLatin1Char(' '));
    m_ui->listSignals->setMinimumWidth(std::min(width, MostLetters * metrics.averageCharWidth()));
}

void ReviewFrame::fillRecentFiles()
{
    m_recentMenu->clear();
    for (const QString& path : m_settings.mruFiles.files()) {
        QString text = path;
        m_recentMenu->addAction(text.replace(QLatin1Char('&'), QLatin1String("&&")))->setData(path);
    }
    m_recentMenu->setEnabled(!m_recentMenu->isEmpty());
}
