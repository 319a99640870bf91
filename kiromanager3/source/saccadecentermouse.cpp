// What the mouse does over the charts of a saccades browser: move the view, mark new saccades, choose one.

#include "saccadecenterimpl.h"

#include "curveplot.h"
#include "messages.h"
#include "rounding.h"
#include "saccadeselection.h"

#include "ui_saccadecenterbase.h"

#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

void SaccadeCenter::onPlotMousePress(int x, int y, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    const int slot = m_eyeCharts->slotOf(sender());
    if (slot < 0 || button != Qt::LeftButton)
        return;
    // A dialog in the middle of the last drag may have taken its release.
    endDrag();
    m_drag.kind = modifiers & Qt::ShiftModifier ? Drag::Adding : Drag::Panning;
    m_drag.slot = slot;
    m_drag.pressX = x;
    m_drag.pressY = y;
    m_drag.pressScroll = m_ui->scrollTime->value();
    for (int i = 0; i < m_eyeCharts->usedCharts(); ++i) {
        const CurvePlot& plot = *(*m_eyeCharts)[i].plot;
        m_drag.pressVert[std::size_t(i)] = {plot.vertMin(), plot.vertMax()};
    }
    if (m_drag.kind == Drag::Adding) {
        m_ui->pageCharts->setCursor(Qt::IBeamCursor);
        m_eyeCharts->beginMark();
    }
}

/// Ends a drag, if there is one, with nothing added.
void SaccadeCenter::endDrag()
{
    if (m_drag.kind == Drag::Adding)
        m_eyeCharts->endMark();
    m_drag = Drag();
    m_ui->pageCharts->unsetCursor();
}

void SaccadeCenter::onPlotMouseMove(int x, int y)
{
    const int slot = m_eyeCharts->slotOf(sender());
    if (slot < 0 || slot != m_drag.slot)
        return;
    if (m_drag.kind == Drag::Panning)
        pan(x, y);
    else if (m_drag.kind == Drag::Adding)
        mark(x);
}

/// Moves the chart of the drag, and the others of its kind by as much.
void SaccadeCenter::pan(int x, int y)
{
    const EyeChart& chart = (*m_eyeCharts)[m_drag.slot];
    const double up = chart.plot->vertPoints2Scale(y - m_drag.pressY);
    for (int i = 0; i < m_eyeCharts->usedCharts(); ++i) {
        const EyeChart& follower = (*m_eyeCharts)[i];
        if (follower.velocity != chart.velocity)
            continue;
        const ScaleRange& press = m_drag.pressVert[std::size_t(i)];
        follower.plot->setVertMinMax(press.min + up, press.max + up);
    }
    constexpr double MsPerSecond = 1000.0;
    const double later = chart.plot->horzPoints2Scale(m_drag.pressX - x) * MsPerSecond;
    setScroll(m_drag.pressScroll + roundHalfUp(later));
    redraw(false);
}

/// Shows the stretch from the press to the column `x` in all charts.
void SaccadeCenter::mark(int x)
{
    const CurvePlot& plot = *(*m_eyeCharts)[m_drag.slot].plot;
    const int left = std::min(m_drag.pressX, x);
    const int right = std::max(m_drag.pressX, x);
    const int shown = m_timeWindow.range(m_ui->scrollTime->value()).first;
    const double start = m_timeWindow.secondsOf(shown);
    const auto sampleAt = [&](int column) {
        const double samples = (plot.horzScaleValue(column) - start) * 1000.0 / m_timeWindow.msPerSample();
        return shown + int(std::clamp(samples, -double(shown), double(m_timeWindow.sampleCount())));
    };
    m_eyeCharts->setMark(m_document.eyes(), m_timeWindow, std::max(sampleAt(left), 0), sampleAt(right));
}

void SaccadeCenter::onPlotMouseRelease(int x, int, Qt::MouseButton button, Qt::KeyboardModifiers)
{
    const int slot = m_eyeCharts->slotOf(sender());
    if (slot < 0 || button != Qt::LeftButton || m_drag.kind == Drag::None)
        return;
    const Drag drag = m_drag;
    endDrag();
    if (drag.kind != Drag::Adding)
        return;
    const CurvePlot& plot = *(*m_eyeCharts)[drag.slot].plot;
    add(plot.horzScaleValue(std::min(drag.pressX, x)), plot.horzScaleValue(std::max(drag.pressX, x)));
}

/// Adds a saccade by hand; times in seconds.
void SaccadeCenter::add(double t0, double t1)
{
    const SaccadeAddition addition = m_document.addSaccade(t0, t1);
    switch (addition.outcome) {
    case SaccadeAddition::Outcome::TooShort:
        showWarning(this, tr("A new saccade can't have duration shorter than %1 ms!").arg(addition.shortest));
        break;
    case SaccadeAddition::Outcome::Overlaps:
        showWarning(this, tr("A new saccade can't overlap with exisiting one!"));
        break;
    case SaccadeAddition::Outcome::Added:
        break;
    }
}

void SaccadeCenter::onPlotMouseDoubleClick(int x, int y, Qt::MouseButton button, Qt::KeyboardModifiers)
{
    const int slot = m_eyeCharts->slotOf(sender());
    if (slot < 0 || button != Qt::LeftButton)
        return;
    CurvePlot& plot = *(*m_eyeCharts)[slot].plot;
    const auto curve =
        plot.curveFromPoint(plot.horzScaleValue(x), plot.vertScaleValue(y), -1.0, QStringLiteral("\\d+"));
    if (curve == plot.curveListEnd())
        return;
    m_document.setCurrentSaccade(curve->name().toInt());
    showSaccade();
    redraw(false);
}

void SaccadeCenter::onPlotMouseWheel(int, int, int delta)
{
    if (m_eyeCharts->slotOf(sender()) < 0 || m_drag.kind != Drag::None)
        return;
    setScroll(m_timeWindow.scrollAfterWheel(m_ui->scrollTime->value(), delta));
    redraw(true);
}

void SaccadeCenter::on_actionSaccRemoveCurrent_triggered()
{
    m_document.removeCurrent();
    if (!m_document.saccades().isEmpty())
        on_actionSaccCurrent_triggered();
}

void SaccadeCenter::on_actionSaccRemoveSelected_triggered()
{
    const QList<int> chosen =
        selectSaccades(this, m_document.saccades(), m_document.frequency(), m_settings.timeUnits);
    if (chosen.isEmpty())
        return;
    QMessageBox box(QMessageBox::Warning, windowTitle(),
                    tr("Please acknowledge selected removal of selected %1 saccades.").arg(chosen.size()),
                    QMessageBox::Cancel, this);
    QPushButton* const remove = box.addButton(tr("Remove"), QMessageBox::AcceptRole);
    box.button(QMessageBox::Cancel)->setText(tr("Cancel"));
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    if (box.clickedButton() != remove)
        return;
    m_document.removeSelected(chosen);
    if (!m_document.saccades().isEmpty())
        on_actionSaccCurrent_triggered();
}
