// What the mouse does on the strips of a signals browser.

#include "reviewframeimpl.h"

#include "elidedlabel.h"
#include "multiplot.h"
#include "plaintooltip.h"
#include "positionselector.h"
#include "rounding.h"
#include "signalitemdelegate.h"
#include "signalreadout.h"

#include "ui_reviewframebase.h"

#include <QButtonGroup>
#include <QCursor>
#include <QMenu>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace
{

/// Of the window: how far from a label the mouse still finds it.
constexpr double FoundWithin = 1.0 / 200.0;
/// Eighths of a degree that are a step of the wheel.
constexpr double WheelStep = 120.0;

uint msecsOf(double seconds)
{
    return uint(std::max(roundHalfUp(seconds * 1000.0), 0));
}

} // namespace

void ReviewFrame::setUpContextMenu()
{
    m_contextMenu->setObjectName(QStringLiteral("menuContext"));
    for (const QString& text :
         {tr("Mark calibration point"), tr("Delete calibration point"), tr("Calculate calibration factor"),
          tr("Clear calibration points"), tr("Direct calibration"), tr("Clear signal calibration")}) {
        QAction* const action = m_contextMenu->addAction(text);
        action->setEnabled(false);
        m_calibrationActions.append(action);
    }
    m_contextMenu->addSeparator();
    m_editLabelAction = m_contextMenu->addAction(tr("Edit label"), this, &ReviewFrame::onEditLabel);
    m_deleteLabelAction = m_contextMenu->addAction(tr("Delete label"), this, &ReviewFrame::onDeleteLabel);
    m_contextMenu->addSeparator();
    m_contextMenu->addAction(tr("Show all signals"), this, &ReviewFrame::onSignalShowAll);
    m_contextMenu->addAction(tr("Show only this signal"), this, &ReviewFrame::onSignalOnly);
    m_contextMenu->addAction(tr("Hide this signal"), this, &ReviewFrame::onSignalSwitch);
    m_contextMenu->addSeparator();
    m_scaleAutoAction =
        m_contextMenu->addAction(tr("Change scale type to automatic"), this, &ReviewFrame::onSignalScaleAuto);
    m_scaleFixedAction =
        m_contextMenu->addAction(tr("Change scale type to fixed"), this, &ReviewFrame::onSignalScaleFixed);
    m_scaleTracingAction = m_contextMenu->addAction(tr("Change scale type to tracing"), this,
                                                    &ReviewFrame::onSignalScaleTracing);
    m_contextMenu->addAction(tr("Edit signal scale..."))->setEnabled(false);
}

void ReviewFrame::onModeChanged()
{
    m_mode = InteractionMode(m_modeButtons->checkedId());
    m_savedMode = InteractionMode::Zoom;
    m_plots->setUserMode(userModeOf(m_mode));
    m_plots->showPlayMarker = showsPlayMarker(m_mode);
    m_plots->update();
}

/// How far from a label in seconds it is still found.
double ReviewFrame::labelTolerance() const
{
    return m_selector->selectorRange() * FoundWithin;
}

void ReviewFrame::forgetFoundLabels()
{
    m_contextLabel = 0;
    m_plots->setToolTip(QString());
}

void ReviewFrame::showStatus(int plot, const QPointF& value)
{
    const Plot* const strip = m_plots->plot(plot);
    if (!strip) {
        m_ui->labelStatus->clear();
        return;
    }
    m_ui->labelStatus->setText(statusText(*strip, m_recording.signalDescriptors[plot].fullName.toQString(),
                                          value.x(), value.y(), m_plots->precision()));
}

void ReviewFrame::showReadout(double seconds)
{
    for (int i = 0; i < m_ui->listSignals->count(); ++i) {
        const Plot& plot = *m_plots->plot(i);
        m_ui->listSignals->item(i)->setData(SignalItemDelegate::ValueRole,
                                            plot.showPlot() ? readoutAt(plot, seconds) : QString());
    }
}

void ReviewFrame::clearReadout()
{
    for (int i = 0; i < m_ui->listSignals->count(); ++i)
        m_ui->listSignals->item(i)->setData(SignalItemDelegate::ValueRole, QString());
}

void ReviewFrame::onMouseLeftPress(const QPoint& point, int plot, const QPointF& value, Qt::MouseButton,
                                   Qt::KeyboardModifiers modifiers)
{
    if (plot == -1 || !isOpen())
        return;
    showStatus(plot, value);
    m_leftPressed = true;
    m_pressPlot = plot;
    m_pressPoint = value;
    if (!modifiers.testFlag(Qt::ControlModifier))
        return;
    m_savedUserMode = m_plots->userMode;
    m_savedMode = m_mode;
    if (m_mode == InteractionMode::Zoom)
        return;
    m_plots->forceModeTimeSelection(point);
    m_mode = InteractionMode::Zoom;
}

/// Where Ctrl was released before the button, zooming stays in force.
void ReviewFrame::onMouseLeftRelease(const QPoint&, int, const QPointF&, Qt::MouseButton,
                                     Qt::KeyboardModifiers modifiers)
{
    m_leftPressed = false;
    const InteractionMode saved = std::exchange(m_savedMode, InteractionMode::Zoom);
    if (!modifiers.testFlag(Qt::ControlModifier) || m_mode != InteractionMode::Zoom ||
        saved == InteractionMode::Zoom)
        return;
    m_plots->setUserMode(m_savedUserMode);
    m_mode = saved;
}

void ReviewFrame::onMouseMove(const QPoint&, int plot, const QPointF& value)
{
    if (plot == -1 || !isOpen()) {
        m_plots->setToolTip(QString());
        clearReadout();
        return;
    }
    showStatus(plot, value);
    showReadout(value.x());
    const unsigned found = m_plots->findLabelByTime(unsigned(plot), value.x(), labelTolerance());
    if (found == 0) {
        m_plots->setToolTip(QString());
        return;
    }
    const KiroLabel label = m_plots->label(found);
    m_plots->setToolTip(plainToolTip(tr("Label %1\nDescription: %2").arg(label.name(), label.description())));
}

void ReviewFrame::onMouseLeftDoubleClick(const QPoint&, int plot, const QPointF& value, Qt::MouseButton,
                                         Qt::KeyboardModifiers modifiers)
{
    if (!isOpen())
        return;
    const double seconds = value.x();
    if (modifiers.testFlag(Qt::ControlModifier) || m_mode == InteractionMode::Zoom) {
        const double factor = modifiers.testFlag(Qt::AltModifier) ? 2.0 : 0.5;
        setWindowOfTime(seconds, m_selector->selectorRange() * factor);
        showRange();
        return;
    }
    if (plot == -1)
        return;
    const LabelTemplate& next = m_settings.labels.next();
    KiroLabel label;
    switch (m_mode) {
    case InteractionMode::Point:
        label.setupPoint(uint(plot), msecsOf(seconds), value.y(), next.labelName, next.labelDescription,
                         next.labelColor);
        break;
    case InteractionMode::SignalLine:
        label.setupSignalLine(uint(plot), msecsOf(seconds), next.labelName, next.labelDescription,
                              next.labelColor);
        break;
    case InteractionMode::TimeLine:
        label.setupTimeLine(msecsOf(seconds), next.labelName, next.labelDescription, next.labelColor);
        break;
    default:
        return;
    }
    makeLabel(label);
}

void ReviewFrame::onPeriodSelected(int plot, double from, double to)
{
    if (!isOpen())
        return;
    if (m_mode == InteractionMode::Zoom) {
        setWindowOfTime(from + (to - from) * 0.5, to - from);
        showRange();
        return;
    }
    if (m_mode != InteractionMode::SignalPeriod && m_mode != InteractionMode::TimePeriod)
        return;
    const LabelTemplate& next = m_settings.labels.next();
    KiroLabel label;
    if (plot != -1)
        label.setupSignalPeriod(uint(plot), msecsOf(from), msecsOf(to), next.labelName, next.labelDescription,
                                next.labelColor);
    else
        label.setupTimePeriod(msecsOf(from), msecsOf(to), next.labelName, next.labelDescription,
                              next.labelColor);
    makeLabel(label);
}

void ReviewFrame::onMouseWheelEvent(int delta)
{
    if (!isOpen())
        return;
    const double steps = delta / WheelStep;
    if (delta > 0)
        m_selector->stepLeft(steps);
    else
        m_selector->stepRight(std::abs(steps));
}

void ReviewFrame::onMouseRightRelease(const QPoint& point, int plot, const QPointF& value, Qt::MouseButton,
                                      Qt::KeyboardModifiers)
{
    m_contextPlot = plot;
    m_contextPoint = value;
    const Plot* const strip = m_plots->plot(plot);
    if (!strip || !isOpen())
        return;
    const bool calibrating = m_mode == InteractionMode::Calibrate;
    for (QAction* action : m_calibrationActions)
        action->setVisible(calibrating);
    m_contextLabel = m_plots->findLabelByTime(unsigned(plot), value.x(), labelTolerance());
    for (QAction* action : {m_editLabelAction, m_deleteLabelAction}) {
        action->setVisible(editsLabels(m_mode));
        action->setEnabled(m_contextLabel != 0);
    }
    m_scaleAutoAction->setEnabled(strip->scaleType != Plot::Automatic);
    m_scaleFixedAction->setEnabled(strip->scaleType != Plot::Fixed);
    m_scaleTracingAction->setEnabled(strip->scaleType != Plot::Tracing);
    m_contextMenu->popup(m_plots->mapToGlobal(point));
}

void ReviewFrame::setScaleType(Plot::ScaleType type, const std::function<void(Plot&)>& change)
{
    Plot* const strip = m_plots->plot(m_contextPlot);
    if (!strip || !isOpen())
        return;
    change(*strip);
    strip->setScaleType(type);
    m_plots->redraw(true);
}

void ReviewFrame::onSignalScaleAuto()
{
    setScaleType(Plot::Automatic, [](Plot&) {});
}

void ReviewFrame::onSignalScaleFixed()
{
    setScaleType(Plot::Fixed, [](Plot& strip) {
        const Extremes limits = strip.drawnLimits();
        const double one = strip.rawValue(limits.least);
        const double other = strip.rawValue(limits.greatest);
        strip.setScale(std::min(one, other), std::max(one, other));
    });
}

void ReviewFrame::onSignalScaleTracing()
{
    setScaleType(Plot::Tracing, [](Plot& strip) {
        const Extremes limits = strip.drawnLimits();
        strip.setScale(0.0, std::abs(strip.rawValue(limits.greatest) - strip.rawValue(limits.least)));
    });
}
