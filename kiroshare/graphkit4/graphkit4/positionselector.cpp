#include "positionselector.h"

#include "axisscale.h"
#include "colormix.h"
#include "positionselectoraccess.h"
#include "stripcurve.h"

#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>
#include <QtMath>

#include <algorithm>
#include <cmath>

namespace
{

constexpr double DegreesOfNotch = 120.0; // in eighths
/// How far a window's width is told apart in texts.
constexpr double PartsOfWindow = 1000.0;
// How strongly the second colour shows on the first.
constexpr double OutlineStrength = 0.35;
constexpr double CurveStrength = 0.55;
constexpr double SelectedCurveStrength = 0.65;
constexpr double DisabledStrength = 0.45;
/// Of the bar's height, above and below the curve.
constexpr double CurveMarginPart = 0.08;

/// Draws a frame of this width inside `rect`, sharp on any device.
void paintOutline(QPainter& painter, const QRectF& rect, double width, const QColor& color)
{
    painter.fillRect(QRectF(rect.left(), rect.top(), rect.width(), width), color);
    painter.fillRect(QRectF(rect.left(), rect.bottom() - width, rect.width(), width), color);
    painter.fillRect(QRectF(rect.left(), rect.top(), width, rect.height()), color);
    painter.fillRect(QRectF(rect.right() - width, rect.top(), width, rect.height()), color);
}

QSize roundedUp(const QSizeF& size)
{
    return QSize(qCeil(size.width()), qCeil(size.height()));
}

/// The samples that stand within the times, with a neighbour on each side. The view has its times already.
void chooseSamples(StripView& view, int count)
{
    const double before = std::floor((view.horzMin - view.timeOffset) / view.timePerSample);
    const double behind = std::ceil((view.horzMax - view.timeOffset) / view.timePerSample) + 1.0;
    view.first = static_cast<int>(std::clamp(before, 0.0, static_cast<double>(count)));
    view.count = static_cast<int>(std::clamp(behind, 0.0, static_cast<double>(count))) - view.first;
}

/// A scale that shows the extremes. Those too far apart for a double are drawn at a quarter.
void chooseScale(StripView& view, Extremes extremes)
{
    if (!std::isfinite(extremes.greatest - extremes.least)) {
        view.calibFactor = 4.0;
        extremes.least /= view.calibFactor;
        extremes.greatest /= view.calibFactor;
    }
    view.scaleMin = extremes.least;
    view.scaleMax = extremes.greatest;
    if (view.scaleMax > view.scaleMin)
        return;
    // A constant lies in the middle.
    const double margin = std::max(std::abs(view.scaleMin) * 0.5, 1.0);
    view.scaleMin -= margin;
    view.scaleMax += margin;
}

} // namespace

bool PositionSelector::CurveKey::operator==(const CurveKey& other) const
{
    return devicePixels == other.devicePixels && ratio == other.ratio && from == other.from &&
           to == other.to && color == other.color;
}

PositionSelector::PositionSelector(QWidget* parent)
    : QFrame(parent)
{
    PositionSelectorAccess::install();
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setTexts();
}

void PositionSelector::setTotalRange(double from, double to)
{
    if (m_window.setTotalRange(from, to))
        windowChanged();
    else
        qWarning("PositionSelector::setTotalRange(...) - invalid range (%g , %g)", from, to);
}

void PositionSelector::setSelectorRange(double range)
{
    if (m_window.setRange(range))
        windowChanged();
    else
        qWarning("PositionSelector::setSelectorRange(...) - invalid range (%g)", range);
}

void PositionSelector::setSelectorPosition(double position)
{
    if (m_window.setPosition(position))
        windowChanged();
    else
        qWarning("PositionSelector::setSelectorPosition(...) - invalid position (%g)", position);
}

void PositionSelector::setMinimalSelection(double range)
{
    if (m_window.setMinimalRange(range))
        windowChanged();
    else
        qWarning("PositionSelector::setMinimalSelection(...) - invalid range (%g)", range);
}

void PositionSelector::setStep(double fraction)
{
    if (!m_window.setStep(fraction))
        qWarning("PositionSelector::setStep(...) - invalid step (%g)", fraction);
}

void PositionSelector::stepLeft(double count)
{
    finishMove(m_window.moveSteps(-count));
}

void PositionSelector::stepRight(double count)
{
    finishMove(m_window.moveSteps(count));
}

void PositionSelector::setTimeStyle(MultiPlotScheme::TimeStyle style)
{
    m_timeStyle = style;
    update();
}

void PositionSelector::setOverview(const SampleStore& samples, double timePerSample, double timeOffset)
{
    if (!(timePerSample > 0.0) || !std::isfinite(timePerSample) || !std::isfinite(timeOffset)) {
        qWarning("PositionSelector::setOverview(...) - invalid times (%g , %g)", timePerSample, timeOffset);
        return;
    }
    clearOverview();
    m_hasOverview = true;
    m_overview = samples;
    m_overviewTimePerSample = timePerSample;
    m_overviewTimeOffset = timeOffset;
}

void PositionSelector::clearOverview()
{
    m_hasOverview = false;
    m_overview = SampleStore();
    m_curve = CurvePicture();
    m_selectedCurve = CurvePicture();
    update();
}

QSize PositionSelector::sizeHint() const
{
    return roundedUp(SelectorLayout::goodSize(font())).grownBy(contentsMargins());
}

QSize PositionSelector::minimumSizeHint() const
{
    return roundedUp(SelectorLayout::leastSize(font())).grownBy(contentsMargins());
}

QString PositionSelector::windowText() const
{
    return tr("%1 to %2 (%3)")
        .arg(timeWithUnit(selectorFrom()), timeWithUnit(selectorTo()), timeWithUnit(selectorRange()));
}

void PositionSelector::zoomIn()
{
    finishZoom(m_window.zoom(0.5));
}

void PositionSelector::zoomOut()
{
    finishZoom(m_window.zoom(2.0));
}

bool PositionSelector::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), timesTextAt(help->x()), this);
        return true;
    }
    if (event->type() == QEvent::ShortcutOverride && m_window.draggedPart() != SelectorWindow::Part::None &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QFrame::event(event);
}

void PositionSelector::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        setTexts();
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        endDrag();
    updateGeometry();
    update();
}

void PositionSelector::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), roleColor(QPalette::Base));
    drawFrame(&painter);
    const SelectorLayout layout = layoutFor(painter.device()->devicePixelRatioF());
    if (hasFocus())
        paintOutline(painter, QRectF(contentsRect()), 2.0 * layout.lineWidth(),
                     roleColor(QPalette::Highlight));
    paintOutline(painter, layout.bar(), layout.lineWidth(),
                 mixedColor(roleColor(QPalette::Base), roleColor(QPalette::Text), OutlineStrength));
    paintCurve(painter, layout, m_curve,
               mixedColor(roleColor(QPalette::Base), roleColor(QPalette::Text), CurveStrength));
    paintNumbers(painter, layout);
    if (m_window.totalRange() > 0.0 && !layout.bar().isEmpty())
        paintWindow(painter, layout);
}

void PositionSelector::mousePressEvent(QMouseEvent* event)
{
    const bool taken = event->button() == Qt::LeftButton && m_window.totalRange() > 0.0;
    event->setAccepted(taken);
    if (taken && m_window.draggedPart() == SelectorWindow::Part::None)
        press(event->localPos().x());
}

void PositionSelector::mouseMoveEvent(QMouseEvent* event)
{
    const double x = event->localPos().x();
    if (m_window.draggedPart() == SelectorWindow::Part::None)
        updateCursor(x);
    else if (event->buttons() & Qt::LeftButton)
        drag(x);
    else // released where nobody told this widget
        endDrag();
}

void PositionSelector::mouseReleaseEvent(QMouseEvent* event)
{
    event->setAccepted(event->button() == Qt::LeftButton);
    if (event->button() != Qt::LeftButton)
        return;
    if (m_mayBeClick && m_window.draggedPart() == SelectorWindow::Part::Body) {
        const double before = selectorPosition();
        m_window.setPosition(layoutNow().timeOf(m_pressX));
        m_movedByPress = selectorPosition() != before;
        windowChanged();
    }
    endDrag();
    updateCursor(event->localPos().x());
}

void PositionSelector::wheelEvent(QWheelEvent* event)
{
    event->accept();
    const QPoint turn = event->angleDelta();
    const int delta = std::abs(turn.x()) > std::abs(turn.y()) ? turn.x() : turn.y();
    if (m_window.draggedPart() == SelectorWindow::Part::None)
        stepLeft(delta / DegreesOfNotch);
}

void PositionSelector::keyPressEvent(QKeyEvent* event)
{
    const Qt::KeyboardModifiers others = event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    if (others != Qt::NoModifier || !doKey(event->key()))
        QFrame::keyPressEvent(event);
}

void PositionSelector::hideEvent(QHideEvent* event)
{
    endDrag();
    QFrame::hideEvent(event);
}

SelectorLayout PositionSelector::layoutFor(double devicePixels) const
{
    return SelectorLayout(QRectF(contentsRect()), font(), devicePixels, totalFrom(), totalTo());
}

QColor PositionSelector::roleColor(QPalette::ColorRole role) const
{
    const QColor color = palette().color(QPalette::Active, role);
    return isEnabled()
               ? color
               : mixedColor(palette().color(QPalette::Active, QPalette::Base), color, DisabledStrength);
}

/// Draws the overview over the bar, from a picture that is drawn anew only when something has changed.
void PositionSelector::paintCurve(QPainter& painter, const SelectorLayout& layout, CurvePicture& picture,
                                  const QColor& color)
{
    if (!m_hasOverview || layout.bar().isEmpty() || !(m_window.totalRange() > 0.0))
        return;
    CurveKey key;
    key.ratio = painter.device()->devicePixelRatioF();
    key.devicePixels = (layout.bar().size() * key.ratio).toSize();
    key.from = totalFrom();
    key.to = totalTo();
    key.color = color.rgb();
    if (picture.pixmap.isNull() || !(picture.key == key)) {
        picture.key = key;
        picture.pixmap = QPixmap(key.devicePixels);
        picture.pixmap.setDevicePixelRatio(key.ratio);
        picture.pixmap.fill(Qt::transparent);
        StripView view;
        const double margin = layout.bar().height() * CurveMarginPart;
        view.rect = QRectF(QPointF(0.0, 0.0), layout.bar().size()).adjusted(0.0, margin, 0.0, -margin);
        view.timePerSample = m_overviewTimePerSample;
        view.timeOffset = m_overviewTimeOffset;
        view.horzMin = key.from;
        view.horzMax = key.to;
        chooseSamples(view, m_overview.count());
        Extremes extremes;
        if (view.count > 0 && m_overview.extremes(view.first, view.count, extremes)) {
            chooseScale(view, extremes);
            QPainter curvePainter(&picture.pixmap);
            drawStripCurve(curvePainter, m_overview, view, QPen(color, 1.0));
        }
    }
    painter.drawPixmap(layout.bar().topLeft(), picture.pixmap);
}

void PositionSelector::paintWindow(QPainter& painter, const SelectorLayout& layout)
{
    paintHandles(painter, layout);
    const QRectF rect = layout.windowRect(m_window);
    const QColor highlight = roleColor(QPalette::Highlight);
    const QColor highlightedText = roleColor(QPalette::HighlightedText);
    painter.fillRect(rect, highlight);
    if (rect.width() > layout.handleWidth()) { // else there is nothing to be recognised
        painter.setClipRect(rect);
        paintCurve(painter, layout, m_selectedCurve,
                   mixedColor(highlight, highlightedText, SelectedCurveStrength));
        painter.setClipping(false);
    }
    painter.fillRect(layout.centreLine(m_window), highlightedText);
}

void PositionSelector::paintHandles(QPainter& painter, const SelectorLayout& layout)
{
    for (const bool isStart : {true, false}) {
        const QRectF rect = isStart ? layout.startHandle(m_window) : layout.endHandle(m_window);
        const double radius = rect.width() * 0.4;
        // The inner corners lie under the window.
        const double left = isStart ? 0.0 : -radius;
        const double right = isStart ? radius : 0.0;
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(roleColor(QPalette::Highlight));
        painter.drawRoundedRect(rect.adjusted(left, 0.0, right, 0.0), radius, radius);
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.fillRect(layout.grip(rect), roleColor(QPalette::HighlightedText));
    }
}

void PositionSelector::paintNumbers(QPainter& painter, const SelectorLayout& layout)
{
    const QColor outline = mixedColor(roleColor(QPalette::Base), roleColor(QPalette::Text), OutlineStrength);
    painter.setPen(roleColor(QPalette::Text));
    painter.setFont(font());
    for (const SelectorMark& mark : layout.marks(m_timeStyle)) {
        painter.fillRect(QRectF(mark.x, layout.bar().bottom(), layout.lineWidth(), layout.tickLength()),
                         outline);
        painter.drawText(mark.place, Qt::AlignCenter | Qt::TextDontClip, mark.text);
    }
}

/// Names itself to screen readers, in the language of the moment, unless somebody gave other texts.
void PositionSelector::setTexts()
{
    if (accessibleName() == m_ownName) {
        m_ownName = tr("Position in the recording");
        setAccessibleName(m_ownName);
    }
    if (accessibleDescription() == m_ownDescription) {
        m_ownDescription =
            tr("The part of the recording that is shown. Arrow and page keys move it, Home and "
               "End go to its ends, plus and minus zoom.");
        setAccessibleDescription(m_ownDescription);
    }
}

QString PositionSelector::timesTextAt(double x) const
{
    if (!(m_window.totalRange() > 0.0))
        return QString();
    const SelectorLayout layout = layoutNow();
    switch (layout.partAt(x, m_window)) {
    case SelectorWindow::Part::Start:
        return tr("Start: %1").arg(timeWithUnit(selectorFrom()));
    case SelectorWindow::Part::End:
        return tr("End: %1").arg(timeWithUnit(selectorTo()));
    case SelectorWindow::Part::Body:
        return windowText();
    case SelectorWindow::Part::None:
        break;
    }
    return timeWithUnit(std::clamp(layout.timeOf(x), totalFrom(), totalTo()));
}

QString PositionSelector::timeWithUnit(double seconds) const
{
    const int decimals = decimalsOfStep(roundStep(selectorRange() / PartsOfWindow));
    const QString text = timeText(seconds, m_timeStyle, decimals);
    if (m_timeStyle == MultiPlotScheme::Milliseconds)
        return tr("%1 ms").arg(text);
    return m_timeStyle == MultiPlotScheme::Seconds ? tr("%1 s").arg(text) : text;
}

/// Does what a key stands for; false for a key that stands for nothing.
bool PositionSelector::doKey(int key)
{
    if (m_window.draggedPart() != SelectorWindow::Part::None) {
        if (key == Qt::Key_Escape)
            cancelDrag();
        return key == Qt::Key_Escape;
    }
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Up:
        stepLeft(1.0);
        return true;
    case Qt::Key_Right:
    case Qt::Key_Down:
        stepRight(1.0);
        return true;
    case Qt::Key_PageUp:
        finishMove(m_window.moveWindows(-1.0));
        return true;
    case Qt::Key_PageDown:
        finishMove(m_window.moveWindows(1.0));
        return true;
    case Qt::Key_Home:
        finishMove(m_window.moveToStart());
        return true;
    case Qt::Key_End:
        finishMove(m_window.moveToEnd());
        return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal: // plus without Shift on many keyboards
        zoomIn();
        return true;
    case Qt::Key_Minus:
        zoomOut();
        return true;
    default:
        return false;
    }
}

void PositionSelector::finishMove(bool moved)
{
    if (!moved)
        return;
    windowChanged();
    emit selectorPositionChange(selectorPosition());
}

void PositionSelector::finishZoom(bool changed)
{
    if (!changed)
        return;
    windowChanged();
    emit selectorRangeChange(selectorRange());
}

void PositionSelector::updateCursor(double x)
{
    switch (layoutNow().partAt(x, m_window)) {
    case SelectorWindow::Part::Start:
    case SelectorWindow::Part::End:
        setCursor(Qt::SizeHorCursor);
        break;
    case SelectorWindow::Part::Body:
        setCursor(m_window.isWhole() ? Qt::ArrowCursor : Qt::OpenHandCursor);
        break;
    case SelectorWindow::Part::None:
        setCursor(Qt::ArrowCursor);
        break;
    }
}

void PositionSelector::windowChanged()
{
    update();
    if (QAccessible::isActive()) {
        QAccessibleValueChangeEvent change(this, selectorPosition());
        QAccessible::updateAccessibility(&change);
    }
}

void PositionSelector::press(double x)
{
    const SelectorLayout layout = layoutNow();
    const double time = layout.timeOf(x);
    const SelectorWindow::Part part = layout.partAt(x, m_window);
    m_pressX = x;
    m_movedByPress = false;
    m_mayBeClick = part == SelectorWindow::Part::Body;
    if (part != SelectorWindow::Part::None) {
        m_window.beginDrag(part, time);
    } else {
        m_window.beginDrag(SelectorWindow::Part::Body, selectorPosition());
        drag(x);
    }
    if (m_window.draggedPart() == SelectorWindow::Part::Body && !m_window.isWhole())
        setCursor(Qt::ClosedHandCursor);
}

void PositionSelector::drag(double x)
{
    // A click with an unsteady hand is no drag.
    if (m_mayBeClick && std::abs(x - m_pressX) * 3.0 < QApplication::startDragDistance())
        return;
    m_mayBeClick = false;
    if (!m_window.dragTo(layoutNow().timeOf(x)))
        return;
    m_movedByPress = true;
    windowChanged();
    if (m_window.draggedPart() == SelectorWindow::Part::Body)
        emit selectorPositionMove(selectorPosition());
    else
        emit selectorRangeChange(selectorRange());
}

void PositionSelector::endDrag()
{
    if (m_window.draggedPart() == SelectorWindow::Part::None)
        return;
    m_window.endDrag();
    m_mayBeClick = false;
    // Whoever heard of the moves is to hear of their end, even if it is where they began.
    if (m_movedByPress)
        emit selectorPositionChange(selectorPosition());
}

void PositionSelector::cancelDrag()
{
    const double rangeBefore = selectorRange();
    m_mayBeClick = false;
    m_window.cancelDrag();
    if (!m_movedByPress)
        return;
    windowChanged();
    if (selectorRange() != rangeBefore)
        emit selectorRangeChange(selectorRange());
    emit selectorPositionChange(selectorPosition());
}
