// The events of mouse, wheel and keys of MultiPlot.

#include "multiplot.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>

namespace
{

constexpr int ShiftSteps = 10;

/// So far a drag must go sideways to mark a period: a click is none, nor a trembling hand.
int leastDrag()
{
    return std::max(QApplication::startDragDistance() / 2, 1);
}

QPointF valueOf(const StripPoint& point)
{
    return {point.seconds, point.value};
}

} // namespace

StripPoint MultiPlot::pointAt(const QPoint& pixel) const
{
    StripPoint point;
    point.seconds = stripLayout().secondsAt(pixel.x());
    const StripBox* const box = stripLayout().boxAt(pixel);
    if (box == nullptr)
        return point;
    point.plot = box->plot;
    point.value = stripLayout().valueAt(*box, pixel.y());
    const Plot* const strip = plot(box->plot);
    const int sample = userMode == UserModePoint ? strip->sampleAt(point.seconds) : -1;
    if (sample >= 0) {
        point.seconds = strip->timeOfSample(sample);
        point.value = strip->drawnValue(strip->samples().value(sample));
    }
    return point;
}

StripPoint MultiPlot::pointOfDrag(const QPoint& pixel) const
{
    StripPoint point = pointAt(pixel);
    const StripBox* const box = stripLayout().boxOf(m_drag.plot());
    if (box != nullptr) {
        point.plot = box->plot;
        const double y = std::clamp(double(pixel.y()), box->rect.top(), box->rect.bottom());
        point.value = stripLayout().valueAt(*box, y);
    }
    return point;
}

void MultiPlot::beginDrag(const QPoint& pixel)
{
    m_drag.press(userMode, pointAt(pixel), pixel);
    update();
}

void MultiPlot::endDrag(const QPoint& pixel)
{
    m_drag.move(pointOfDrag(pixel), pixel);
    MarkedPeriod period;
    const bool marked = m_drag.release(leastDrag(), period);
    update();
    if (marked)
        emit sigPeriodSelected(period.plot, period.from, period.to);
}

void MultiPlot::cancelDrag()
{
    m_drag.cancel();
    update();
}

bool MultiPlot::event(QEvent* event)
{
    // Escape belongs to the drag before it belongs to a shortcut of the window.
    if (event->type() == QEvent::ShortcutOverride && canCancelDrag() &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QFrame::event(event);
}

void MultiPlot::hideEvent(QHideEvent* event)
{
    m_drag.cancel();
    QFrame::hideEvent(event);
}

void MultiPlot::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QPoint pixel = event->pos();
    beginDrag(pixel);
    const StripPoint point = pointAt(pixel);
    emit sigMouseLeftPress(pixel, point.plot, valueOf(point), event->button(), event->modifiers());
}

void MultiPlot::mouseReleaseEvent(QMouseEvent* event)
{
    const QPoint pixel = event->pos();
    const StripPoint point = pointAt(pixel);
    if (event->button() == Qt::LeftButton) {
        // The period goes first: whoever hears of the release may leave the mode.
        endDrag(pixel);
        emit sigMouseLeftRelease(pixel, point.plot, valueOf(point), event->button(), event->modifiers());
    } else if (event->button() == Qt::RightButton) {
        emit sigMouseRightRelease(pixel, point.plot, valueOf(point), event->button(), event->modifiers());
    }
}

void MultiPlot::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QPoint pixel = event->pos();
    const StripPoint point = pointAt(pixel);
    emit sigMouseLeftDoubleClick(pixel, point.plot, valueOf(point), event->button(), event->modifiers());
}

void MultiPlot::mouseMoveEvent(QMouseEvent* event)
{
    movePointer(event->pos());
}

void MultiPlot::movePointer(const QPoint& pixel)
{
    m_pointer = pixel;
    m_hasPointer = true;
    m_pointerPoint = pointAt(pixel);
    if (m_drag.isActive())
        m_drag.move(pointOfDrag(pixel), pixel);
    if (userMode != UserModeArrow)
        update();
    const StripPoint point = m_pointerPoint;
    emit sigMouseMove(pixel, point.plot, valueOf(point));
}

void MultiPlot::leaveEvent(QEvent* event)
{
    QFrame::leaveEvent(event);
    m_hasPointer = false;
    update();
}

void MultiPlot::wheelEvent(QWheelEvent* event)
{
    const QPoint delta = event->angleDelta();
    const int turned = delta.y() != 0 ? delta.y() : delta.x();
    if (turned == 0) {
        event->ignore();
        return;
    }
    event->accept();
    emit sigMouseWheelEvent(turned);
}

void MultiPlot::contextMenuEvent(QContextMenuEvent* event)
{
    // The menu belongs to whoever listens to sigMouseRightRelease; the mouse's own event says nothing new.
    event->accept();
    if (event->reason() != QContextMenuEvent::Keyboard)
        return;
    ensurePointer();
    const StripPoint point = m_pointerPoint;
    emit sigMouseRightRelease(m_pointer, point.plot, valueOf(point), Qt::RightButton, event->modifiers());
}

void MultiPlot::keyPressEvent(QKeyEvent* event)
{
    // Keys with other modifiers belong to the window.
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool isPlain = (modifiers & ~Qt::ShiftModifier) == 0;
    if (!isPlain || !handleKey(event->key(), modifiers))
        QFrame::keyPressEvent(event);
}

bool MultiPlot::handleKey(int key, Qt::KeyboardModifiers modifiers)
{
    if (key == Qt::Key_Escape && canCancelDrag()) {
        cancelDrag();
        return true;
    }
    if (userMode == UserModeArrow || stripLayout().strips().isEmpty())
        return false;
    const int steps = (modifiers & Qt::ShiftModifier) != 0 ? ShiftSteps : 1;
    switch (key) {
    case Qt::Key_Left:
        movePointerSideways(-steps);
        return true;
    case Qt::Key_Right:
        movePointerSideways(steps);
        return true;
    case Qt::Key_Up:
        movePointerToStrip(-1);
        return true;
    case Qt::Key_Down:
        movePointerToStrip(1);
        return true;
    case Qt::Key_Space:
        toggleDrag();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter: {
        ensurePointer();
        const StripPoint point = m_pointerPoint;
        emit sigMouseLeftDoubleClick(m_pointer, point.plot, valueOf(point), Qt::LeftButton, modifiers);
        return true;
    }
    default:
        return false;
    }
}

void MultiPlot::ensurePointer()
{
    if ((m_hasPointer && m_pointerPoint.plot >= 0) || stripLayout().strips().isEmpty())
        return;
    m_pointer = stripLayout().strips().first().rect.center().toPoint();
    m_hasPointer = true;
    m_pointerPoint = pointAt(m_pointer);
}

void MultiPlot::movePointerSideways(int steps)
{
    ensurePointer();
    QPoint pixel = m_pointer + QPoint(steps, 0);
    const Plot* const strip = plot(m_pointerPoint.plot);
    const int sample =
        userMode == UserModePoint && strip != nullptr ? strip->sampleAt(m_pointerPoint.seconds) : -1;
    const QRectF area = stripLayout().plotArea();
    if (sample < 0) {
        pixel.setX(std::clamp(pixel.x(), int(area.left()), int(area.right())));
        movePointer(pixel);
        return;
    }
    const int first = std::max(strip->rangeStart(), strip->sampleAt(horzMin));
    const int last = strip->rangeStart() + strip->rangeCount() - 1;
    const int target = std::clamp(sample + steps, first, last);
    const double seconds = strip->timeOfSample(target);
    if (seconds < horzMin || seconds > horzMax)
        return;
    // Samples may lie closer than pixels, so the point is told, not found again by its pixel.
    m_pointerPoint.seconds = seconds;
    m_pointerPoint.value = strip->drawnValue(strip->samples().value(target));
    m_pointer.setX(qRound(stripLayout().xAt(seconds)));
    update();
    const StripPoint point = m_pointerPoint;
    emit sigMouseMove(m_pointer, point.plot, valueOf(point));
}

void MultiPlot::movePointerToStrip(int steps)
{
    ensurePointer();
    const QVector<StripBox>& strips = stripLayout().strips();
    const auto current = std::find_if(strips.begin(), strips.end(), [this](const StripBox& box) {
        return box.plot == m_pointerPoint.plot;
    });
    const int target = std::clamp(int(current - strips.begin()) + steps, 0, strips.size() - 1);
    movePointer({m_pointer.x(), qRound(strips[target].rect.center().y())});
}

void MultiPlot::toggleDrag()
{
    ensurePointer();
    if (m_drag.isActive())
        endDrag(m_pointer);
    else
        beginDrag(m_pointer);
}
