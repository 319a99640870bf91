#include "reviewframeimpl.h"

#include "appconfig.h"
#include "inistore.h"
#include "messages.h"
#include "modulewindow.h"
#include "multiplot.h"
#include "openevents.h"
#include "palettecolours.h"
#include "plaintooltip.h"
#include "positionselector.h"
#include "samplewindow.h"
#include "schemecolours.h"
#include "signalitemdelegate.h"
#include "signalreadout.h"
#include "themedicon.h"
#include "windowgeometry.h"

#include "ui_reviewframebase.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QInputDialog>
#include <QMenu>
#include <QShortcut>

#include <algorithm>

namespace
{

constexpr double LeastWindow = 0.1; ///< seconds
constexpr int TimeDecimals = 3;     ///< of the questions for times

/// Whether the selector has the colours of a new program.
bool hasDefaultColours(const ReviewSetup& setup)
{
    const ReviewSetup unchanged;
    return setup.rangeBkgColor == unchanged.rangeBkgColor && setup.rangeFrgColor == unchanged.rangeFrgColor &&
           setup.rangeCenterColor == unchanged.rangeCenterColor &&
           setup.rangeTextColor == unchanged.rangeTextColor;
}

} // namespace

ReviewFrame::ReviewFrame(QWidget* parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::ReviewFrameBase>())
    , m_modeButtons(new QButtonGroup(this))
    , m_recentMenu(new QMenu(this))
    , m_contextMenu(new QMenu(this))
{
    m_ui->setupUi(this);
    m_plots = m_ui->m_pPlot;
    m_selector = m_ui->rangeSelector;
    setWindowIcon(themedIcon(QStringLiteral("signals-browser")));
    setAcceptDrops(true);
    setUpNavigation();
    setUpModes();
    setUpStrips();
    setUpContextMenu();
    addClosingShortcuts(this);
    resize(1301, 761);
    loadSettings();
    muteText(*m_ui->labelHint);
    muteText(*m_ui->labelNothingShown);
    showCheckedTools(*this);
    applyLook();
    fillRecentFiles();
    enableControls();
}

ReviewFrame::~ReviewFrame() = default;

void ReviewFrame::setUpNavigation()
{
    const std::pair<QAbstractButton*, const char*> icons[] = {{m_ui->buttonLoad, "open"},
                                                              {m_ui->buttonSave, "save"},
                                                              {m_ui->buttonLabels, "label"},
                                                              {m_ui->buttonSetup, "setup"},
                                                              {m_ui->buttonClose, "close"},
                                                              {m_ui->buttonSetupLines, "draw-lines"},
                                                              {m_ui->buttonSetupHorzGrid, "grid-time"},
                                                              {m_ui->buttonSetupVertGrid, "grid-values"},
                                                              {m_ui->buttonFavoriteViewAdd, "add"},
                                                              {m_ui->buttonFavoriteViewRemove, "remove"},
                                                              {m_ui->buttonZoomIn, "zoom-in"},
                                                              {m_ui->buttonZoomOut, "zoom-out"}};
    for (const auto& [button, name] : icons)
        button->setIcon(themedIcon(QString::fromLatin1(name)));

    m_recentMenu->setObjectName(QStringLiteral("menuRecent"));
    m_recentMenu->setToolTipsVisible(true);
    m_ui->buttonLoad->setMenu(m_recentMenu);
    connect(m_recentMenu, &QMenu::triggered, this, &ReviewFrame::onMenuMRU);
    const QKeySequence open(QKeySequence::Open);
    connect(new QShortcut(open, this), &QShortcut::activated, this, &ReviewFrame::on_buttonLoad_clicked);
    const QKeySequence recent(QStringLiteral("Ctrl+Shift+O"));
    connect(new QShortcut(recent, this), &QShortcut::activated, this, [this] {
        if (m_recentMenu->isEnabled())
            m_ui->buttonLoad->showMenu();
    });
    m_ui->buttonLoad->setToolTip(withKey(m_ui->buttonLoad->toolTip(), open) + QLatin1Char('\n') +
                                 withKey(tr("The files opened last"), recent));
    const QKeySequence save(QKeySequence::Save);
    m_ui->buttonSave->setShortcut(save);
    m_ui->buttonSave->setToolTip(withKey(m_ui->buttonSave->toolTip(), save));
    connect(m_ui->buttonClose, &QAbstractButton::clicked, this, &QWidget::close);
    m_ui->buttonClose->setToolTip(
        withKey(m_ui->buttonClose->toolTip(), QKeySequence(QStringLiteral("Ctrl+W"))));

    auto* const labels = new QMenu(this);
    labels->setObjectName(QStringLiteral("menuLabels"));
    m_ui->buttonLabels->setMenu(labels);
    m_openLabelsAction = labels->addAction(tr("Open labels"), this, &ReviewFrame::onLoadMarkers);
    m_addLabelsAction = labels->addAction(tr("Add labels"), this, &ReviewFrame::onAddMarkers);
    // Ctrl+S is for the recording itself.
    m_saveLabelsAction = labels->addAction(tr("Save labels"), this, &ReviewFrame::onSaveMarkers,
                                           QKeySequence(QStringLiteral("Ctrl+Shift+S")));
    m_saveLabelsAsAction = labels->addAction(tr("Save labels as..."), this, &ReviewFrame::onSaveMarkersAs);
    m_exportLabelsAction = labels->addAction(tr("Export labels..."));
    labels->addSeparator();
    m_manageLabelsAction = labels->addAction(tr("Manage labels"));
    m_clearLabelsAction = labels->addAction(tr("Clear labels"), this, &ReviewFrame::onNewMarkers);
    labels->addSeparator();
    QAction* const undo = m_labelHistory.undoStack().createUndoAction(this, tr("Undo"));
    QAction* const redo = m_labelHistory.undoStack().createRedoAction(this, tr("Redo"));
    undo->setObjectName(QStringLiteral("actionUndo"));
    redo->setObjectName(QStringLiteral("actionRedo"));
    undo->setShortcut(QKeySequence(QStringLiteral("Ctrl+Z")));
    redo->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+Z")));
    undo->setIcon(themedIcon(QStringLiteral("undo")));
    redo->setIcon(themedIcon(QStringLiteral("redo")));
    labels->addActions({undo, redo});
    connect(&m_labelHistory, &LabelHistory::labelsRestored, this, [this](const QList<KiroLabel>& restored) {
        takeLabels(restored);
        // Without the labels of the file that were added the others do not belong into it.
        if (m_addedLabels)
            m_lastLabelFile.clear();
    });
    connect(&m_labelHistory, &LabelHistory::stateChanged, this, &ReviewFrame::enableControls);

    auto* const setup = new QMenu(this);
    setup->setObjectName(QStringLiteral("menuSetup"));
    m_ui->buttonSetup->setMenu(setup);
    const auto later = [setup](const QString& text, const QString& keys = QString()) {
        QAction* const action = setup->addAction(text);
        action->setEnabled(false);
        action->setShortcut(QKeySequence(keys));
    };
    later(tr("General"));
    later(tr("Plot style"));
    later(tr("Signals scale"));
    setup->addSeparator();
    later(tr("Print selected range"), QStringLiteral("Ctrl+Shift+P"));
    later(tr("Print current page"), QStringLiteral("Ctrl+P"));
    later(tr("Acquire screenshot"), QStringLiteral("Ctrl+I"));
    setup->addSeparator();
    m_gotoTimeAction = setup->addAction(tr("Go to time..."), this, &ReviewFrame::onGotoTime,
                                        QKeySequence(QStringLiteral("Ctrl+G")));
    m_selectionTimeAction = setup->addAction(tr("Selection time"), this, &ReviewFrame::onSelectionTime,
                                             QKeySequence(QStringLiteral("Ctrl+T")));
    // Shortcuts work in the window, not only while the menu is open.
    addActions(labels->actions());
    addActions(setup->actions());
}

void ReviewFrame::setUpModes()
{
    struct ModeButton
    {
        QToolButton* button;
        InteractionMode mode;
        const char* icon;
        const char* keys;
    };
    // In the order in which a checked button is looked for.
    const ModeButton buttons[] = {
        {m_ui->buttonModeArrow, InteractionMode::Arrow, "mode-arrow", "Ctrl+1"},
        {m_ui->buttonModeMeasure, InteractionMode::Measure, "mode-measure", "Ctrl+2"},
        {m_ui->buttonModeCalibrate, InteractionMode::Calibrate, "mode-calibrate", "Ctrl+9"},
        {m_ui->buttonModeNoiseStat, InteractionMode::NoiseStat, "mode-noise", "Ctrl+0"},
        {m_ui->buttonModeZoom, InteractionMode::Zoom, "mode-zoom", "Ctrl+3"},
        {m_ui->buttonModePoint, InteractionMode::Point, "mode-point", "Ctrl+4"},
        {m_ui->buttonModeSignalLine, InteractionMode::SignalLine, "mode-signal-line", "Ctrl+5"},
        {m_ui->buttonModeTimeLine, InteractionMode::TimeLine, "mode-time-line", "Ctrl+6"},
        {m_ui->buttonModeSignalPeriod, InteractionMode::SignalPeriod, "mode-signal-period", "Ctrl+7"},
        {m_ui->buttonModeTimePeriod, InteractionMode::TimePeriod, "mode-time-period", "Ctrl+8"},
        {m_ui->buttonModeAudioPlayer, InteractionMode::AudioPlayer, "mode-audio", "Ctrl+Shift+A"},
        {m_ui->buttonModeVideoPlayer, InteractionMode::VideoPlayer, "mode-video", "Ctrl+Shift+V"}};
    for (const ModeButton& each : buttons) {
        each.button->setIcon(themedIcon(QString::fromLatin1(each.icon)));
        const QKeySequence keys(QString::fromLatin1(each.keys));
        each.button->setToolTip(withKey(each.button->toolTip(), keys));
        connect(new QShortcut(keys, this), &QShortcut::activated, each.button, &QAbstractButton::click);
        m_modeButtons->addButton(each.button, int(each.mode));
    }
    m_modeButtons->setExclusive(true);
    m_ui->buttonModeArrow->setChecked(true);
    connect(m_modeButtons, &QButtonGroup::idClicked, this, &ReviewFrame::onModeChanged);
}

void ReviewFrame::setUpStrips()
{
    m_selector->setMinimalSelection(LeastWindow);
    m_selector->setStep(0.1);
    m_plots->setHorzTitle(tr("Time"));
    m_plots->setHorzUnits(QStringLiteral("s"));
    connect(m_ui->buttonZoomIn, &QAbstractButton::clicked, m_selector, &PositionSelector::zoomIn);
    connect(m_ui->buttonZoomOut, &QAbstractButton::clicked, m_selector, &PositionSelector::zoomOut);

    connect(m_plots, &MultiPlot::sigMouseLeftPress, this, &ReviewFrame::onMouseLeftPress);
    connect(m_plots, &MultiPlot::sigMouseLeftRelease, this, &ReviewFrame::onMouseLeftRelease);
    connect(m_plots, &MultiPlot::sigMouseLeftDoubleClick, this, &ReviewFrame::onMouseLeftDoubleClick);
    connect(m_plots, &MultiPlot::sigMouseRightRelease, this, &ReviewFrame::onMouseRightRelease);
    connect(m_plots, &MultiPlot::sigMouseMove, this, &ReviewFrame::onMouseMove);
    connect(m_plots, &MultiPlot::sigPeriodSelected, this, &ReviewFrame::onPeriodSelected);
    connect(m_plots, &MultiPlot::sigMouseWheelEvent, this, &ReviewFrame::onMouseWheelEvent);

    m_plots->installEventFilter(this);

    m_ui->listSignals->setItemDelegate(new SignalItemDelegate(this));
    connect(m_ui->listSignals, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        const int only = m_ui->listSignals->row(item);
        showStrips([only](int index) { return index == only; });
    });
    connect(m_ui->buttonShowAll, &QAbstractButton::clicked, this, [this] {
        onSignalShowAll();
        m_plots->setFocus();
    });
    m_ui->splitterContent->setStretchFactor(0, 0);
    m_ui->splitterContent->setStretchFactor(1, 1);
    connect(m_ui->splitterContent, &QSplitter::splitterMoved, this,
            [this](int position) { m_settings.listWidth = position; });
}

void ReviewFrame::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        muteText(*m_ui->labelHint);
        muteText(*m_ui->labelNothingShown);
        showCheckedTools(*this);
        applyLook();
    }
}

void ReviewFrame::loadSettings()
{
    IniStore store;
    store.load(appConfig().configFile());
    m_settings.load(store);
    if (m_settings.listWidth > 0)
        m_ui->splitterContent->setSizes({m_settings.listWidth, width() - m_settings.listWidth});
}

void ReviewFrame::saveSettings()
{
    replaceSection(appConfig().configFile(), section(), [this](IniStore& store) {
        WindowGeometry::write(store, section(), *this);
        m_settings.save(store);
    });
}

void ReviewFrame::closeEvent(QCloseEvent* event)
{
    if (!settleUnsaved()) {
        event->ignore();
        return;
    }
    storeViewState();
    saveSettings();
    event->accept();
}

void ReviewFrame::customEvent(QEvent* event)
{
    if (event->type() != OpenFileEvent::Number)
        return;
    const QString path = static_cast<OpenFileEvent*>(event)->path();
    if (isBlocked(*this)) {
        openLater(*this, path);
        return;
    }
    openAfterQuestions(path);
}

void ReviewFrame::dragEnterEvent(QDragEnterEvent* event)
{
    acceptFile(*event);
}

void ReviewFrame::dropEvent(QDropEvent* event)
{
    openDropped(*this, *event);
}

bool ReviewFrame::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_plots && event->type() == QEvent::Leave) {
        clearReadout();
        m_ui->labelStatus->clear();
    }
    return QWidget::eventFilter(watched, event);
}

/// Keys that the strips leave alone page and zoom as they do in the selector.
void ReviewFrame::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Plus:
    case Qt::Key_Equal:
    case Qt::Key_Minus:
        if (isOpen() && focusWidget() == m_plots && !m_handingOnKey) {
            // What the selector leaves alone comes back to this window.
            m_handingOnKey = true;
            QKeyEvent copy(event->type(), event->key(), event->modifiers(), event->text());
            QCoreApplication::sendEvent(m_selector, &copy);
            m_handingOnKey = false;
            event->setAccepted(copy.isAccepted());
            return;
        }
        break;
    default:
        break;
    }
    QWidget::keyPressEvent(event);
}

void ReviewFrame::enableControls()
{
    const bool open = isOpen();
    m_ui->frameSettings->setEnabled(open);
    m_selector->setEnabled(open);
    m_ui->buttonZoomIn->setEnabled(open);
    m_ui->buttonZoomOut->setEnabled(open);
    m_gotoTimeAction->setEnabled(open);
    m_selectionTimeAction->setEnabled(open);
    for (QAction* action : {m_openLabelsAction, m_addLabelsAction, m_saveLabelsAsAction, m_clearLabelsAction})
        action->setEnabled(open);
    m_saveLabelsAction->setEnabled(open && m_labelHistory.hasChanges());
    for (QAction* action : {m_exportLabelsAction, m_manageLabelsAction})
        action->setEnabled(false);
}

void ReviewFrame::applyLook()
{
    const MultiPlotScheme scheme = m_settings.schemes.current();
    {
        const QSignalBlocker lines(m_ui->buttonSetupLines);
        const QSignalBlocker horz(m_ui->buttonSetupHorzGrid);
        const QSignalBlocker vert(m_ui->buttonSetupVertGrid);
        const QSignalBlocker width(m_ui->spinDataWidth);
        m_ui->buttonSetupLines->setChecked(scheme.drawStyle() == MultiPlotScheme::Lines);
        m_ui->buttonSetupHorzGrid->setChecked(scheme.horzGrid());
        m_ui->buttonSetupVertGrid->setChecked(scheme.vertGrid());
        m_ui->spinDataWidth->setValue(std::max(scheme.data().width(), 1));
    }
    m_plots->setScheme(schemeOn(palette(), scheme));
    m_plots->setFastDrawingTolerance(m_settings.setup.fastDrawPrecision);
    m_plots->redraw(true);

    const ReviewSetup& setup = m_settings.setup;
    QPalette colours;
    if (!isDark(palette()) || !hasDefaultColours(setup)) {
        colours.setColor(QPalette::Base, setup.rangeBkgColor);
        colours.setColor(QPalette::Highlight, setup.rangeFrgColor);
        colours.setColor(QPalette::HighlightedText, setup.rangeCenterColor);
        colours.setColor(QPalette::Text, setup.rangeTextColor);
    }
    m_selector->setPalette(colours);
    m_selector->setFont(setup.rangeTextFont);
    m_selector->setTimeStyle(scheme.horzTimeStyle());
}

void ReviewFrame::changeScheme(const std::function<void(MultiPlotScheme&)>& change)
{
    MultiPlotScheme scheme = m_settings.schemes.current();
    change(scheme);
    m_settings.schemes.changeCurrent(scheme);
    m_plots->setScheme(schemeOn(palette(), scheme));
    m_plots->redraw(true);
}

void ReviewFrame::on_spinDataWidth_valueChanged(int width)
{
    changeScheme([width](MultiPlotScheme& scheme) {
        QPen pen = scheme.data();
        pen.setWidth(width == 1 ? 0 : width);
        scheme.setData(pen);
    });
}

void ReviewFrame::on_buttonSetupLines_toggled(bool on)
{
    changeScheme([on](MultiPlotScheme& scheme) {
        scheme.setDrawStyle(on ? MultiPlotScheme::Lines : MultiPlotScheme::Points);
    });
}

void ReviewFrame::on_buttonSetupHorzGrid_toggled(bool on)
{
    changeScheme([on](MultiPlotScheme& scheme) { scheme.setHorzGrid(on); });
}

void ReviewFrame::on_buttonSetupVertGrid_toggled(bool on)
{
    changeScheme([on](MultiPlotScheme& scheme) { scheme.setVertGrid(on); });
}

void ReviewFrame::redraw()
{
    if (!isOpen())
        return;
    // What was under the mouse is elsewhere now.
    clearReadout();
    m_plots->setToolTip(QString());
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const double position = m_selector->selectorPosition();
    const double range = m_selector->selectorRange();
    for (int i = 0; i < m_plots->plotCount; ++i) {
        const SampleStretch stretch =
            samplesInWindow(position, range, m_recording.signalSecs[i], m_recording.sampleCounts[i]);
        m_plots->plot(i)->setDataRange(stretch.first, stretch.count);
    }
    m_plots->setHorzScale(position - range * 0.5, position + range * 0.5);
    m_plots->adjustHorzGrid();
    m_plots->setFastDrawing(m_settings.setup.fastDrawEnable && range >= m_settings.setup.fastDrawTime);
    m_plots->redraw(true);
    QApplication::restoreOverrideCursor();
}

void ReviewFrame::setWindowOfTime(double position, double range)
{
    m_selector->setSelectorRange(range);
    m_selector->setSelectorPosition(position);
    redraw();
}

void ReviewFrame::showRange()
{
    m_ui->labelSelection->setText(
        tr("Position %1 s").arg(readoutNumber(m_selector->selectorPosition(), m_plots->precision())));
}

void ReviewFrame::showWindowTexts()
{
    m_ui->labelStatus->setText(tr("New selector position %1 s with range %2 s")
                                   .arg(readoutNumber(m_selector->selectorPosition(), m_plots->precision()),
                                        readoutNumber(m_selector->selectorRange(), m_plots->precision())));
}

void ReviewFrame::on_rangeSelector_selectorPositionMove(double)
{
    redraw();
    showRange();
    showWindowTexts();
}

void ReviewFrame::on_rangeSelector_selectorPositionChange(double)
{
    windowMoved();
}

void ReviewFrame::on_rangeSelector_selectorRangeChange(double)
{
    windowMoved();
}

void ReviewFrame::windowMoved()
{
    redraw();
    showRange();
    m_ui->labelStatus->clear();
}

void ReviewFrame::onGotoTime()
{
    bool entered = false;
    const double seconds = QInputDialog::getDouble(this, windowTitle(), tr("Enter time in seconds"),
                                                   m_selector->selectorPosition(), 0.0, m_recording.total,
                                                   TimeDecimals, &entered);
    if (!entered)
        return;
    m_selector->setSelectorPosition(seconds);
    redraw();
    showRange();
}

void ReviewFrame::onSelectionTime()
{
    bool entered = false;
    const double seconds = QInputDialog::getDouble(
        this, windowTitle(), tr("Enter new selection time in seconds"), m_selector->selectorRange(),
        LeastWindow, std::max(m_recording.total, LeastWindow), TimeDecimals, &entered);
    if (!entered)
        return;
    m_selector->setSelectorRange(seconds);
    redraw();
    showRange();
}

/// Shows just the strips that `isShown` wants, if these are others than now.
void ReviewFrame::showStrips(const std::function<bool(int)>& isShown)
{
    bool changed = false;
    for (int i = 0; i < m_plots->plotCount; ++i) {
        Plot& plot = *m_plots->plot(i);
        changed = changed || plot.showPlot() != isShown(i);
        plot.setShowPlot(isShown(i));
    }
    if (changed)
        redraw();
    selectShown();
}

void ReviewFrame::selectShown()
{
    const QSignalBlocker blocker(m_ui->listSignals);
    int first = -1;
    for (int i = 0; i < m_plots->plotCount && i < m_ui->listSignals->count(); ++i) {
        const bool shown = m_plots->plot(i)->showPlot();
        m_ui->listSignals->item(i)->setSelected(shown);
        if (shown && first < 0)
            first = i;
    }
    const bool loseFocus = first < 0 && m_plots->hasFocus();
    m_ui->stackStrips->setCurrentWidget(first < 0 ? m_ui->pageNothingShown : m_plots);
    if (loseFocus)
        m_ui->buttonShowAll->setFocus();
    if (first < 0) {
        m_selector->clearOverview();
        return;
    }
    const Plot& plot = *m_plots->plot(first);
    m_selector->setOverview(plot.samples(), plot.timePerSample, plot.timeOffset);
}

void ReviewFrame::on_listSignals_itemSelectionChanged()
{
    showStrips([this](int index) { return m_ui->listSignals->item(index)->isSelected(); });
}

void ReviewFrame::onSignalShowAll()
{
    showStrips([](int) { return true; });
}

void ReviewFrame::onSignalOnly()
{
    if (!m_plots->plot(m_contextPlot))
        return;
    showStrips([this](int index) { return index == m_contextPlot; });
}

void ReviewFrame::onSignalSwitch()
{
    showStrips([this](int index) { return m_plots->plot(index)->showPlot() != (index == m_contextPlot); });
}

void ReviewFrame::on_comboFavoriteViews_activated(const QString& name)
{
    if (name == FavoriteViews::customName()) {
        onSignalShowAll();
        return;
    }
    const auto view = m_settings.views.activeView(name);
    if (!view)
        return;
    const QStringList names = signalNames();
    showStrips([&](int index) { return view->viewSignals.contains(names[index]); });
}

QStringList ReviewFrame::shownSignalNames() const
{
    QStringList names = signalNames();
    for (int i = m_plots->plotCount - 1; i >= 0; --i) {
        if (!m_plots->plot(i)->showPlot())
            names.removeAt(i);
    }
    return names;
}

void ReviewFrame::on_buttonFavoriteViewAdd_clicked()
{
    bool entered = false;
    const QString name =
        QInputDialog::getText(this, windowTitle(), tr("Enter new favorite signals view name"),
                              QLineEdit::Normal, QString(), &entered);
    if (!entered || name.isEmpty())
        return;
    if (!m_settings.views.add(name, signalNames(), shownSignalNames())) {
        showWarning(this, tr("New favorite signals view name must be unique. Please try again."));
        return;
    }
    m_ui->comboFavoriteViews->addItem(name);
    m_ui->comboFavoriteViews->setCurrentIndex(m_ui->comboFavoriteViews->count() - 1);
}

void ReviewFrame::on_buttonFavoriteViewRemove_clicked()
{
    const int index = m_ui->comboFavoriteViews->currentIndex();
    if (index <= 0) {
        showWarning(this, tr("Cannot remove default favorite signals view!"));
        return;
    }
    m_settings.views.remove(m_ui->comboFavoriteViews->currentText());
    m_ui->comboFavoriteViews->removeItem(index);
    // The neighbour that the box goes to is not what is shown.
    m_ui->comboFavoriteViews->setCurrentIndex(0);
}
