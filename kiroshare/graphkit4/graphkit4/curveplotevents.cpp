// What users do with a CurvePlot, and how it is painted.

#include "axisscale.h"
#include "curvehit.h"
#include "curveplot.h"
#include "curveplotpainter.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTextDocument>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace
{

constexpr int MoreDecimals = 2;
constexpr double FarPixels = 10.0;

int toolTipDecimals(const CurvePlotAxis& axis)
{
    if (axis.precision >= 0)
        return axis.precision + MoreDecimals;
    return decimalsOfStep(axis.grid > 0.0 ? axis.grid : axis.roundGrid()) + MoreDecimals;
}

/// The format with %1 to %3 replaced in one go, so that a % in a value stays.
QString filledIn(const QString& format, const QStringList& values)
{
    QString text;
    for (int i = 0; i < format.size(); ++i) {
        const int number =
            format[i] == QLatin1Char('%') && i + 1 < format.size() ? format[i + 1].digitValue() : 0;
        if (number < 1 || number > values.size()) {
            text += format[i];
        } else {
            text += values[number - 1];
            ++i;
        }
    }
    return text;
}

/// What a tooltip shows letter by letter.
QString plainToolTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

} // namespace

bool CurvePlot::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || !m_showToolTips)
        return QFrame::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    showToolTipAt(help->pos(), help->globalPos());
    return true;
}

void CurvePlot::changeEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::StyleChange:
    case QEvent::LocaleChange:
        layoutChanged();
        updateGeometry();
        break;
    case QEvent::LanguageChange:
        describe();
        break;
    case QEvent::PaletteChange:
    case QEvent::EnabledChange:
        update();
        break;
    default:
        break;
    }
    QFrame::changeEvent(event);
}

void CurvePlot::resizeEvent(QResizeEvent* event)
{
    layoutChanged();
    QFrame::resizeEvent(event);
}

void CurvePlot::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    // The frame may leave out corners.
    painter.fillRect(rect(), palette().brush(QPalette::Window));
    drawCurvePlot(painter, contentsRect(), {plotLayout(), scheme(), m_curves, m_order});
    drawMark(painter);
    if (hasFocus() && m_focusByKeys)
        drawFocus(painter);
    drawFrame(&painter);
}

void CurvePlot::drawMark(QPainter& painter) const
{
    if (!hasPointMark())
        return;
    const CurvePlotLayout& layout = plotLayout();
    const QPointF& point = m_curves[m_markedCurve].points()[m_markedPoint];
    const QPointF place(layout.horz().position(point.x()), layout.vert().position(point.y()));
    if (!QRectF(layout.area()).contains(place))
        return;
    const double radius = std::max(3.0, fontMetrics().height() * 0.3);
    drawPointMark(painter, place, radius, palette().color(QPalette::Highlight), bkgColor());
}

// Not by the style: some tint all of what has the focus, and with it the curves.
void CurvePlot::drawFocus(QPainter& painter) const
{
    const int width = std::max(1, fontMetrics().height() / 8);
    const QRect rect = contentsRect();
    const QRegion frame = QRegion(rect) - rect.adjusted(width, width, -width, -width);
    for (const QRect& side : frame)
        painter.fillRect(side, palette().color(QPalette::Highlight));
}

void CurvePlot::mousePressEvent(QMouseEvent* event)
{
    emit mousePress(event->x(), event->y(), event->button(), event->modifiers());
}

void CurvePlot::mouseReleaseEvent(QMouseEvent* event)
{
    emit mouseRelease(event->x(), event->y(), event->button(), event->modifiers());
}

void CurvePlot::mouseDoubleClickEvent(QMouseEvent* event)
{
    emit mouseDoubleClick(event->x(), event->y(), event->button(), event->modifiers());
}

void CurvePlot::mouseMoveEvent(QMouseEvent* event)
{
    emit mouseMove(event->x(), event->y());
}

void CurvePlot::wheelEvent(QWheelEvent* event)
{
    const QPoint place = event->position().toPoint();
    // A wheel to the side, or one turned with Alt, counts as well.
    const int delta = event->angleDelta().y() != 0 ? event->angleDelta().y() : event->angleDelta().x();
    if (delta != 0)
        emit mouseWheel(place.x(), place.y(), delta);
    event->accept();
}

void CurvePlot::keyPressEvent(QKeyEvent* event)
{
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool far = modifiers == Qt::ShiftModifier;
    const bool arrow = event->key() == Qt::Key_Left || event->key() == Qt::Key_Right;
    if (arrow && (far || modifiers == Qt::NoModifier) &&
        movePointMark(event->key() == Qt::Key_Left ? -1 : 1, far))
        return;
    if (event->key() == Qt::Key_Escape && hasPointMark()) {
        removePointMark();
        return;
    }
    QFrame::keyPressEvent(event);
}

void CurvePlot::focusInEvent(QFocusEvent* event)
{
    m_focusByKeys = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason ||
                    event->reason() == Qt::ShortcutFocusReason;
    QFrame::focusInEvent(event);
    update();
}

void CurvePlot::focusOutEvent(QFocusEvent* event)
{
    removePointMark();
    QFrame::focusOutEvent(event);
    update();
}

void CurvePlot::showToolTipAt(const QPoint& place, const QPoint& globalPlace)
{
    const CurvePlotLayout& layout = plotLayout();
    const CurveHit hit(m_curves, m_order, layout.area(), layout.horz(), layout.vert());
    const QPointF middle = QPointF(place) + QPointF(0.5, 0.5);
    const int found = hit.topmostWithin(middle, CurveHit::DefaultReach);
    const int point = found < 0 ? -1 : hit.nearestPoint(found, middle);
    if (found < 0 || (point < 0 && m_curves[found].toolTip().isEmpty())) {
        QToolTip::hideText();
        return;
    }
    const QPointF value = point < 0 ? QPointF() : m_curves[found].points()[point];
    // Another point needs another tooltip.
    const QRect around(place - QPoint(1, 1), QSize(3, 3));
    QToolTip::showText(globalPlace, plainToolTip(toolTipText(m_curves[found], value)), this, around);
}

QString CurvePlot::toolTipText(const Curve& curve, const QPointF& point) const
{
    if (!curve.toolTip().isEmpty())
        return curve.toolTip();
    const QString format = m_toolTipFormat.isEmpty() ? QStringLiteral("%1; %2") : m_toolTipFormat;
    return filledIn(format, {numberText(point.x(), toolTipDecimals(m_horz)),
                             numberText(point.y(), toolTipDecimals(m_vert)), curve.name()});
}

int CurvePlot::frontCurve() const
{
    const CurvePlotLayout& layout = plotLayout();
    const CurveHit hit(m_curves, m_order, layout.area(), layout.horz(), layout.vert());
    for (int i = m_order.size() - 1; i >= 0; --i) {
        if (m_curves[m_order[i]].isVisible() && hit.nextPoint(m_order[i], -1, 1, 0.0) >= 0)
            return m_order[i];
    }
    return -1;
}

bool CurvePlot::hasPointMark() const
{
    if (!isCurve(m_markedCurve) || !m_curves[m_markedCurve].isVisible())
        return false;
    const QVector<QPointF>& points = m_curves[m_markedCurve].points();
    return m_markedPoint < points.size() && std::isfinite(points[m_markedPoint].x()) &&
           std::isfinite(points[m_markedPoint].y());
}

bool CurvePlot::movePointMark(int step, bool far)
{
    const int front = frontCurve();
    if (front < 0)
        return false;
    const CurvePlotLayout& layout = plotLayout();
    const CurveHit hit(m_curves, m_order, layout.area(), layout.horz(), layout.vert());
    const bool isMoving = hasPointMark() && m_markedCurve == front;
    const int from = isMoving ? m_markedPoint : step > 0 ? -1 : m_curves[front].points().size();
    int next = hit.nextPoint(front, from, step, far ? FarPixels : 0.0);
    if (next < 0)
        next = from; // at the end; its text is shown again
    m_markedCurve = front;
    m_markedPoint = next;
    m_focusByKeys = true;
    readPointMarkOut();
    update();
    return true;
}

void CurvePlot::readPointMarkOut()
{
    const CurvePlotLayout& layout = plotLayout();
    const QPointF& point = m_curves[m_markedCurve].points()[m_markedPoint];
    const QString text = toolTipText(m_curves[m_markedCurve], point);
    const QPoint place(layout.horz().pixel(point.x()), layout.vert().pixel(point.y()));
    QToolTip::showText(mapToGlobal(place), plainToolTip(text), this);
    m_readOut = text;
    describe();
}

void CurvePlot::removePointMark()
{
    if (m_markedCurve < 0)
        return;
    m_markedCurve = -1;
    QToolTip::hideText();
    m_readOut.clear();
    describe();
    update();
}
