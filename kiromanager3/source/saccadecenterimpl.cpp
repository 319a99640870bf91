#include "saccadecenterimpl.h"

#include "appconfig.h"
#include "blinksdetectparams.h"
#include "curveplot.h"
#include "elidedlabel.h"
#include "inistore.h"
#include "modulewindow.h"
#include "openevents.h"
#include "palettecolours.h"
#include "plaintooltip.h"
#include "rounding.h"
#include "saccadecenteroptions.h"
#include "saccadetimes.h"
#include "saccdetectparams.h"
#include "themedicon.h"
#include "windowgeometry.h"

#include "ui_saccadecenterbase.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QShortcut>
#include <QTimer>

#include <algorithm>

namespace
{

/// The unit of calibrated eye signals.
const QString EyeUnit = QStringLiteral("deg");

/// The key's name for this program's own translation: Qt's Polish one calls it after the home folder.
[[maybe_unused]] constexpr const char* HomeKey = QT_TRANSLATE_NOOP("QShortcut", "Home");

QLocale numberFormat()
{
    QLocale locale = QLocale::system();
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale;
}

QString withUnit(const QString& caption, const QString& unit)
{
    return caption + QStringLiteral(" [%1]").arg(unit);
}

QString detectionTypeText(int type)
{
    switch (type) {
    case KiroSaccHeader::OneSignal:
        return SaccadeCenter::tr("One signal");
    case KiroSaccHeader::Monocular:
        return SaccadeCenter::tr("Monocular");
    case KiroSaccHeader::Binocular:
        return SaccadeCenter::tr("Binocular");
    default:
        return SaccadeCenter::tr("Unknown");
    }
}

/// A text that changes, of a label whose accessible name is what it stands for.
void tell(QLabel* label, const QString& text)
{
    label->setText(text);
    label->setAccessibleDescription(text);
}

/// Makes the captions of a form the names of what stands beside them.
void nameByCaptions(const QFormLayout& form)
{
    for (int row = 0; row < form.rowCount(); ++row) {
        auto* const caption = qobject_cast<QLabel*>(form.itemAt(row, QFormLayout::LabelRole)->widget());
        caption->setBuddy(form.itemAt(row, QFormLayout::FieldRole)->widget());
    }
}

/// Whether a button is pressed or left by the key while it has the focus.
bool isKeyOfButton(const QObject* button, int key)
{
    if (key == Qt::Key_Space)
        return true;
    return qobject_cast<const QRadioButton*>(button) && (key == Qt::Key_Left || key == Qt::Key_Right);
}

/// Room for a text, so that nothing moves while it changes.
void keepRoomFor(QLabel* label, const QString& text)
{
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(text));
}

} // namespace

SaccadeCenter::SaccadeCenter(QWidget* parent)
    : QMainWindow(parent)
    , m_ui(std::make_unique<Ui::SaccadeCenterBase>())
    , m_document(EditJournal::journalFolder())
    , m_fileLabel(new ElidedLabel)
    , m_stateLabel(new QLabel)
{
    m_ui->setupUi(this);
    setWindowIcon(themedIcon(QStringLiteral("saccades-browser")));
    setAcceptDrops(true);
    setUpCharts();
    setUpActions();
    setUpSidePanel();
    setUpTabOrder();
    loadSettings();
    muteText(*m_ui->labelHint);
    connect(&m_document, &SaccadeDocument::changed, this, &SaccadeCenter::onDocumentChanged);
    connect(&m_document, &SaccadeDocument::stateChanged, this, [this] {
        enableActions();
        showFiles();
    });
    applyLook();
    showSaccade();
    showDetection();
    showTimeWindow();
    enableActions();
}

SaccadeCenter::~SaccadeCenter() = default;

void SaccadeCenter::setUpCharts()
{
    std::array<CurvePlot*, EyeCharts::Count> plots{};
    constexpr const char* Names[EyeCharts::Count] = {
        "plotRightHorzPosition", "plotRightHorzVelocity", "plotRightVertPosition", "plotRightVertVelocity",
        "plotLeftHorzPosition",  "plotLeftHorzVelocity",  "plotLeftVertPosition",  "plotLeftVertVelocity"};
    for (int i = 0; i < EyeCharts::Count; ++i) {
        auto* const plot = new CurvePlot(m_ui->pageCharts);
        plot->setObjectName(QLatin1String(Names[i]));
        plot->setShowToolTips(true);
        plot->setVertScaleWidthTemplate(QStringLiteral("-000.0"));
        plot->setFocusPolicy(Qt::StrongFocus);
        connect(plot, &CurvePlot::mousePress, this, &SaccadeCenter::onPlotMousePress);
        connect(plot, &CurvePlot::mouseMove, this, &SaccadeCenter::onPlotMouseMove);
        connect(plot, &CurvePlot::mouseRelease, this, &SaccadeCenter::onPlotMouseRelease);
        connect(plot, &CurvePlot::mouseDoubleClick, this, &SaccadeCenter::onPlotMouseDoubleClick);
        connect(plot, &CurvePlot::mouseWheel, this, &SaccadeCenter::onPlotMouseWheel);
        plots[std::size_t(i)] = plot;
    }
    m_eyeCharts = std::make_unique<EyeCharts>(plots);
    m_eyeCharts->setStartTitles();
    m_eyeCharts->setStartScales();
    arrangeCharts();
}

void SaccadeCenter::setUpActions()
{
    const std::pair<QAction*, const char*> icons[] = {{m_ui->actionFileDetect, "detect"},
                                                      {m_ui->actionFileOpen, "open"},
                                                      {m_ui->actionFileSave, "save"},
                                                      {m_ui->actionFileSaveAs, "save-as"},
                                                      {m_ui->actionFileRedetect, "detect-again"},
                                                      {m_ui->actionEditDetectParams, "parameters"},
                                                      {m_ui->actionEditOptions, "setup"},
                                                      {m_ui->actionSaccFirst, "first"},
                                                      {m_ui->actionSaccPrev, "previous"},
                                                      {m_ui->actionSaccCurrent, "centre"},
                                                      {m_ui->actionSaccNext, "next"},
                                                      {m_ui->actionSaccLast, "last"},
                                                      {m_ui->actionSaccRemoveCurrent, "remove"},
                                                      {m_ui->actionFileClose, "close"},
                                                      {m_ui->actionFileQuit, "exit"}};
    for (const auto& [action, name] : icons)
        action->setIcon(themedIcon(QString::fromLatin1(name)));

    QAction* const undo = m_document.undoStack().createUndoAction(this, tr("&Undo"));
    QAction* const redo = m_document.undoStack().createRedoAction(this, tr("&Redo"));
    undo->setObjectName(QStringLiteral("actionEditUndo"));
    redo->setObjectName(QStringLiteral("actionEditRedo"));
    undo->setShortcut(QKeySequence(QStringLiteral("Ctrl+Z")));
    redo->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+Z")));
    undo->setIcon(themedIcon(QStringLiteral("undo")));
    redo->setIcon(themedIcon(QStringLiteral("redo")));
    undo->setIconText(tr("Undo"));
    redo->setIconText(tr("Redo"));
    undo->setToolTip(tr("Undo the last change"));
    redo->setToolTip(tr("Make the change again"));
    QAction* const first = m_ui->menuEdit->actions().constFirst();
    m_ui->menuEdit->insertActions(first, {undo, redo});
    m_ui->menuEdit->insertSeparator(first);
    m_ui->toolBar->addActions({undo, redo, m_ui->actionSaccRemoveCurrent});
    m_ui->toolBar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    for (QAction* action : {undo, redo}) {
        connect(action, &QAction::triggered, this, [this] {
            if (!m_document.saccades().isEmpty() && !m_eyeCharts->isCurrentDrawn())
                on_actionSaccCurrent_triggered();
        });
    }

    for (QAction* action : findChildren<QAction*>()) {
        if (!action->shortcut().isEmpty())
            action->setToolTip(withKey(action->toolTip(), action->shortcut()));
    }
    connect(m_ui->actionFileQuit, &QAction::triggered, qApp, &QApplication::closeAllWindows);
    const auto onKey = [this](const QKeySequence& keys, auto&& function) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, function);
    };
    onKey(QKeySequence(QStringLiteral("PgDown")),
          [this] { m_ui->scrollTime->triggerAction(QAbstractSlider::SliderPageStepAdd); });
    onKey(QKeySequence(QStringLiteral("PgUp")),
          [this] { m_ui->scrollTime->triggerAction(QAbstractSlider::SliderPageStepSub); });
    const QKeySequence zoomIn(QStringLiteral("Ctrl++"));
    const QKeySequence zoomOut(QStringLiteral("Ctrl+-"));
    onKey(zoomIn, [this] { m_ui->buttonTimeZoomIn->click(); });
    // The same key on keyboards that have the plus with Shift.
    onKey(QKeySequence(QStringLiteral("Ctrl+=")), [this] { m_ui->buttonTimeZoomIn->click(); });
    onKey(zoomOut, [this] { m_ui->buttonTimeZoomOut->click(); });
    m_ui->buttonTimeZoomIn->setToolTip(withKey(m_ui->buttonTimeZoomIn->toolTip(), zoomIn));
    m_ui->buttonTimeZoomOut->setToolTip(withKey(m_ui->buttonTimeZoomOut->toolTip(), zoomOut));
}

void SaccadeCenter::setUpSidePanel()
{
    const std::pair<QToolButton*, const char*> icons[] = {{m_ui->buttonTimeZoomIn, "zoom-in"},
                                                          {m_ui->buttonTimeZoomOut, "zoom-out"},
                                                          {m_ui->buttonPosScaleZoomIn, "zoom-in"},
                                                          {m_ui->buttonPosScaleZoomOut, "zoom-out"},
                                                          {m_ui->buttonPosScaleReset, "fit"},
                                                          {m_ui->buttonVelScaleZoomIn, "zoom-in"},
                                                          {m_ui->buttonVelScaleZoomOut, "zoom-out"},
                                                          {m_ui->buttonVelScaleReset, "fit"},
                                                          {m_ui->buttonFirst, "first"},
                                                          {m_ui->buttonPrev, "previous"},
                                                          {m_ui->buttonNext, "next"},
                                                          {m_ui->buttonLast, "last"}};
    for (const auto& [button, name] : icons)
        button->setIcon(themedIcon(QString::fromLatin1(name)));
    const std::pair<QToolButton*, QAction*> steps[] = {{m_ui->buttonFirst, m_ui->actionSaccFirst},
                                                       {m_ui->buttonPrev, m_ui->actionSaccPrev},
                                                       {m_ui->buttonNext, m_ui->actionSaccNext},
                                                       {m_ui->buttonLast, m_ui->actionSaccLast}};
    for (const auto& [button, action] : steps) {
        connect(button, &QAbstractButton::clicked, action, &QAction::trigger);
        button->setToolTip(withKey(button->toolTip(), action->shortcut()));
    }
    for (QRadioButton* radio : {m_ui->radioPosAuto, m_ui->radioPosConst, m_ui->radioPosFit})
        connect(radio, &QAbstractButton::clicked, this, [this] { resetPositionScale(); });
    for (QRadioButton* radio : {m_ui->radioVelAuto, m_ui->radioVelConst, m_ui->radioVelFit})
        connect(radio, &QAbstractButton::clicked, this, [this] { resetVelocityScale(); });

    for (QAbstractButton* button : m_ui->centralWidget->findChildren<QAbstractButton*>())
        button->installEventFilter(this);

    nameByCaptions(*m_ui->layoutMeasures);
    nameByCaptions(*m_ui->layoutDetection);
    keepRoomFor(m_ui->labelTimeWindow, numberFormat().toString(60.0, 'f', 4));
    keepRoomFor(m_ui->labelCurrent, QStringLiteral("00000 / 00000"));
    for (QLabel* label : {m_ui->labelBegin, m_ui->labelDetectedType})
        keepRoomFor(label, QStringLiteral("00:00:00.000"));
    m_fileLabel->setObjectName(QStringLiteral("labelFiles"));
    m_stateLabel->setObjectName(QStringLiteral("labelState"));
    statusBar()->addWidget(m_fileLabel, 1);
    statusBar()->addPermanentWidget(m_stateLabel);

    constexpr int WidthInLetters = 160;
    constexpr int HeightInLines = 48;
    resize(WidthInLetters * fontMetrics().averageCharWidth(), HeightInLines * fontMetrics().height());
}

/// Tab goes to the charts first, and from them to what stands below and beside them.
void SaccadeCenter::setUpTabOrder()
{
    QWidgetList plots;
    for (int i = 0; i < EyeCharts::Count; ++i)
        plots << (*m_eyeCharts)[i].plot;
    QWidgetList controls;
    for (QWidget* next = m_ui->buttonTimeZoomOut; !plots.contains(next); next = next->nextInFocusChain()) {
        if (next->focusPolicy() != Qt::NoFocus)
            controls << next;
    }
    // The charts stand at the end of a circle, where Qt sees them as ahead of the rest already and moves
    // nothing. So the rest goes behind the first of them, and then the other charts go between.
    const auto chain = [&plots](const QWidgetList& widgets) {
        QWidget* before = plots.constFirst();
        for (QWidget* widget : widgets) {
            setTabOrder(before, widget);
            before = widget;
        }
    };
    chain(controls);
    chain(plots.mid(1));
}

void SaccadeCenter::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        muteText(*m_ui->labelHint);
}

/// A button that has the focus gets its keys ahead of the actions that have them as shortcuts.
bool SaccadeCenter::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride &&
        isKeyOfButton(watched, static_cast<QKeyEvent*>(event)->key())) {
        event->accept();
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

void SaccadeCenter::loadSettings()
{
    IniStore store;
    store.load(appConfig().configFile());
    m_settings.load(store);
    m_timeWindow.setLength(m_settings.timeWindowMs);
    m_document.setParams(m_settings.saccadeParams, m_settings.blinkParams);
}

void SaccadeCenter::saveSettings()
{
    m_settings.timeWindowMs = m_timeWindow.length();
    replaceSection(appConfig().configFile(), section(), [this](IniStore& store) {
        WindowGeometry::write(store, section(), *this);
        m_settings.save(store);
    });
}

void SaccadeCenter::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (m_shownBefore)
        return;
    m_shownBefore = true;
    QTimer::singleShot(0, this, &SaccadeCenter::offerLeftEdits);
}

void SaccadeCenter::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    // Curves have the points that the width of their charts can show, which these get after this event.
    QTimer::singleShot(0, this, [this] {
        if (m_document.sampleCount() > 0 && m_drag.kind == Drag::None)
            redraw(false);
    });
}

void SaccadeCenter::closeEvent(QCloseEvent* event)
{
    if (!settleUnsaved(Before::Closing)) {
        event->ignore();
        return;
    }
    m_document.forget();
    saveSettings();
    event->accept();
}

void SaccadeCenter::customEvent(QEvent* event)
{
    if (event->type() != OpenFileEvent::Number)
        return;
    const QString path = static_cast<OpenFileEvent*>(event)->path();
    if (isBlocked(*this)) {
        openLater(*this, path);
        return;
    }
    const bool recording = path.endsWith(QLatin1String(".kiro"), Qt::CaseInsensitive);
    if (!settleUnsaved(recording ? Before::Detecting : Before::Opening))
        return;
    if (recording)
        detectIn(path, false);
    else
        openFile(path);
}

void SaccadeCenter::dragEnterEvent(QDragEnterEvent* event)
{
    acceptFile(*event);
}

void SaccadeCenter::dropEvent(QDropEvent* event)
{
    openDropped(*this, *event);
}

void SaccadeCenter::on_actionFileClose_triggered()
{
    close();
}

void SaccadeCenter::on_actionEditDetectParams_triggered()
{
    SaccDetectParams dialog(this);
    dialog.profiles().setFolder(m_settings.openFolder);
    dialog.setParams(m_settings.saccadeParams);
    if (dialog.exec() != QDialog::Accepted)
        return;
    m_settings.saccadeParams = dialog.params();
    m_document.setParams(m_settings.saccadeParams, m_settings.blinkParams);
}

void SaccadeCenter::on_actionEditBlinksDetectParams_triggered()
{
    BlinksDetectParams dialog(this);
    dialog.profiles().setFolder(m_settings.openFolder);
    dialog.setParams(m_settings.blinkParams);
    if (dialog.exec() != QDialog::Accepted)
        return;
    m_settings.blinkParams = dialog.params();
    m_document.setParams(m_settings.saccadeParams, m_settings.blinkParams);
}

void SaccadeCenter::on_actionEditOptions_triggered()
{
    if (!SaccadeCenterOptions::edit(this, m_settings))
        return;
    applyLook();
    showSaccade();
    redraw(false);
}

void SaccadeCenter::applyLook()
{
    const CurvePlotScheme scheme = curvePlotScheme(m_settings.plot);
    for (int i = 0; i < EyeCharts::Count; ++i)
        (*m_eyeCharts)[i].plot->setScheme(scheme);
}

/// Shows as many charts as are used, those of two eyes side by side.
void SaccadeCenter::arrangeCharts()
{
    const int used = m_eyeCharts->usedCharts();
    if (used == m_arrangedCharts)
        return;
    m_arrangedCharts = used;
    constexpr int ChartsOfAnEye = EyeCharts::Count / 2;
    for (int i = 0; i < EyeCharts::Count; ++i) {
        CurvePlot* const plot = (*m_eyeCharts)[i].plot;
        m_ui->layoutCharts->removeWidget(plot);
        plot->setVisible(i < used);
        if (i < used)
            m_ui->layoutCharts->addWidget(plot, i % ChartsOfAnEye, i / ChartsOfAnEye);
    }
}

void SaccadeCenter::showData()
{
    endDrag();
    m_eyeCharts->setDetectionType(m_document.eyes().detectionType);
    m_eyeCharts->setDataTitles(EyeUnit);
    arrangeCharts();
    m_ui->stackContent->setCurrentWidget(m_ui->pageCharts);
    // An empty window has the focus on the first of its buttons, which would take the keys.
    (*m_eyeCharts)[0].plot->setFocus();
    m_timeWindow.setSamples(m_document.sampleCount(), m_document.msPerSample());
    setUpScroll();
    enableActions();
    showFiles();
    showDetection();
    on_actionSaccFirst_triggered();
}

void SaccadeCenter::setUpScroll()
{
    const QSignalBlocker quiet(m_ui->scrollTime);
    m_ui->scrollTime->setRange(0, std::max(m_timeWindow.scrollMaximum(), 0));
    m_ui->scrollTime->setPageStep(m_timeWindow.pageStep());
    m_ui->scrollTime->setSingleStep(std::max(m_timeWindow.pageStep() / 10, 1));
}

void SaccadeCenter::setScroll(int value)
{
    const QSignalBlocker quiet(m_ui->scrollTime);
    m_ui->scrollTime->setValue(value);
}

void SaccadeCenter::redraw(bool resetScales)
{
    const SaccadePlotLook& look = m_settings.plot;
    // The curve of a new saccade stands behind those that are drawn anew; the next move fills it.
    const bool adding = m_drag.kind == Drag::Adding;
    if (adding)
        m_eyeCharts->endMark();
    m_eyeCharts->draw(
        {m_document.eyes(), m_document.saccades(), m_document.blinks(), m_document.currentSaccade()},
        m_timeWindow, m_ui->scrollTime->value(),
        {look.eyeSignal, look.saccadeLeft, look.saccadeRight, look.saccadeSelected, look.blinks});
    if (adding)
        m_eyeCharts->beginMark();
    if (resetScales) {
        resetPositionScale();
        resetVelocityScale();
    }
}

void SaccadeCenter::on_scrollTime_valueChanged()
{
    redraw(true);
}

void SaccadeCenter::on_buttonTimeZoomIn_clicked()
{
    zoomTime(true);
}

void SaccadeCenter::on_buttonTimeZoomOut_clicked()
{
    zoomTime(false);
}

void SaccadeCenter::zoomTime(bool in)
{
    const double oldLength = m_timeWindow.length();
    if (!(in ? m_timeWindow.zoomIn() : m_timeWindow.zoomOut()))
        return;
    const int scroll = m_timeWindow.scrollAfterZoom(m_ui->scrollTime->value(), oldLength);
    setUpScroll();
    setScroll(scroll);
    showTimeWindow();
    redraw(false);
}

void SaccadeCenter::showTimeWindow()
{
    tell(m_ui->labelTimeWindow, numberFormat().toString(m_timeWindow.length() / 1000.0, 'f', 2));
    m_ui->buttonTimeZoomIn->setEnabled(m_timeWindow.length() > TimeWindow::LeastLength);
    m_ui->buttonTimeZoomOut->setEnabled(TimeWindow::GreatestLength > m_timeWindow.length());
}

void SaccadeCenter::on_actionSaccFirst_triggered()
{
    goTo(0);
}

void SaccadeCenter::on_actionSaccPrev_triggered()
{
    goTo(m_document.currentSaccade() - 1);
}

void SaccadeCenter::on_actionSaccNext_triggered()
{
    goTo(m_document.currentSaccade() + 1);
}

void SaccadeCenter::on_actionSaccLast_triggered()
{
    goTo(m_document.saccades().size() - 1);
}

void SaccadeCenter::goTo(int index)
{
    m_document.setCurrentSaccade(index);
    showSaccade();
    on_actionSaccCurrent_triggered();
}

void SaccadeCenter::on_actionSaccCurrent_triggered()
{
    if (!m_document.saccades().isEmpty())
        setScroll(m_timeWindow.scrollToCentre(m_document.saccades()[m_document.currentSaccade()].main.start));
    redraw(true);
}

void SaccadeCenter::on_buttonPosScaleZoomIn_clicked()
{
    m_eyeCharts->zoomScales(false, true);
}

void SaccadeCenter::on_buttonPosScaleZoomOut_clicked()
{
    m_eyeCharts->zoomScales(false, false);
}

void SaccadeCenter::on_buttonPosScaleReset_clicked()
{
    resetPositionScale();
}

void SaccadeCenter::on_buttonVelScaleZoomIn_clicked()
{
    m_eyeCharts->zoomScales(true, true);
}

void SaccadeCenter::on_buttonVelScaleZoomOut_clicked()
{
    m_eyeCharts->zoomScales(true, false);
}

void SaccadeCenter::on_buttonVelScaleReset_clicked()
{
    resetVelocityScale();
}

void SaccadeCenter::resetPositionScale()
{
    const ScaleMode mode = m_ui->radioPosConst->isChecked() ? ScaleMode::Const
                           : m_ui->radioPosFit->isChecked() ? ScaleMode::Fit
                                                            : ScaleMode::Auto;
    m_eyeCharts->resetPositionScales(mode, m_document.largestAmplitude());
}

void SaccadeCenter::resetVelocityScale()
{
    const ScaleMode mode = m_ui->radioVelConst->isChecked() ? ScaleMode::Const
                           : m_ui->radioVelFit->isChecked() ? ScaleMode::Fit
                                                            : ScaleMode::Auto;
    m_eyeCharts->resetVelocityScales(mode, m_document.largestVelocity());
}

void SaccadeCenter::showSaccade()
{
    const TimeUnit unit = m_settings.timeUnits;
    m_ui->captionBegin->setText(withUnit(tr("Begin"), unitName(unit)));
    m_ui->captionEnd->setText(withUnit(tr("End"), unitName(unit)));
    m_ui->captionDuration->setText(withUnit(tr("Duration"), durationUnitName(unit)));
    m_ui->captionFixation->setText(withUnit(tr("Fixation"), durationUnitName(unit)));
    const QList<KiroSaccade>& saccades = m_document.saccades();
    const bool any = !saccades.isEmpty();
    tell(m_ui->labelCurrent,
         tr("%1 / %2").arg(any ? m_document.currentSaccade() + 1 : 0).arg(saccades.size()));
    const QList<QLabel*> labels = {m_ui->labelBegin,    m_ui->labelEnd,       m_ui->labelDuration,
                                   m_ui->labelFixation, m_ui->labelAmplitude, m_ui->labelPeakVelocity};
    if (!any) {
        for (QLabel* label : labels)
            label->setText(QStringLiteral("-"));
        return;
    }
    const KiroSaccadeEye& eye = saccades[m_document.currentSaccade()].main;
    const double frequency = m_document.frequency();
    const QStringList texts = {
        timeString(eye.start, frequency, unit, false),   timeString(eye.end, frequency, unit, false),
        timeString(eye.duration, frequency, unit, true), timeString(eye.fixation, frequency, unit, true),
        numberFormat().toString(eye.amplitude, 'f', 1),  numberFormat().toString(eye.peakVelocity, 'f', 1)};
    for (int i = 0; i < labels.size(); ++i)
        labels[i]->setText(texts[i]);
}

/// What the saccades were detected with, as far as their file tells.
void SaccadeCenter::showDetection()
{
    const KiroSaccHeader& header = m_document.state().header;
    m_ui->groupDetection->setVisible(m_document.hasRecording());
    const QLocale format = numberFormat();
    m_ui->labelDetectedType->setText(detectionTypeText(header.detectionType));
    const QString blinks = header.blinksHorizontal ? tr("horizontal") : tr("vertical");
    // In one signal no blinks are looked for.
    m_ui->labelDetectedBlinks->setText(header.detectionType == KiroSaccHeader::OneSignal ? QStringLiteral("-")
                                                                                         : blinks);
    m_ui->labelDetectedMinSpeed->setText(format.toString(header.params.minSpeed, 'g', 6));
    m_ui->labelDetectedInitVel->setText(format.toString(header.params.initVel, 'g', 6));
    m_ui->labelDetectedMinSlope->setText(format.toString(header.params.minSlope, 'g', 6));
    m_ui->labelDetectedTime->setText(tr("%1 to %2").arg(header.params.minTime).arg(header.params.maxTime));
    m_ui->labelDetectedGap->setText(format.toString(header.params.gap));
}

void SaccadeCenter::showFiles()
{
    const SaccadeState& state = m_document.state();
    const QString shown = state.saccadeFile.isEmpty() ? state.dataFile : state.saccadeFile;
    const QString title = tr("Saccades browser");
    setWindowTitle(shown.isEmpty() ? title : moduleTitle(title, shown));
    const QString file = state.saccadeFile.isEmpty() ? tr("not saved yet") : state.saccadeFile;
    m_fileLabel->setText(m_document.hasRecording()
                             ? tr("Saccades: %1    Recording: %2").arg(file, state.dataFile)
                             : QString());
    m_stateLabel->setText(m_document.hasFailedToSave() ? tr("Not saved: see Save as")
                          : m_document.isModified()    ? tr("Unsaved changes")
                                                       : QString());
}

void SaccadeCenter::onDocumentChanged()
{
    showSaccade();
    showDetection();
    redraw(false);
    enableActions();
}

void SaccadeCenter::enableActions()
{
    const bool recording = m_document.hasRecording();
    const bool any = !m_document.saccades().isEmpty();
    m_ui->actionFileSave->setEnabled(m_document.isModified());
    m_ui->actionFileSaveAs->setEnabled(recording);
    m_ui->actionFileRedetect->setEnabled(recording && m_document.sampleCount() > 0);
    m_ui->groupSaccade->setEnabled(any);
    for (QAction* action :
         {m_ui->actionSaccFirst, m_ui->actionSaccPrev, m_ui->actionSaccCurrent, m_ui->actionSaccNext,
          m_ui->actionSaccLast, m_ui->actionSaccRemoveCurrent, m_ui->actionSaccRemoveSelected})
        action->setEnabled(any);
}
