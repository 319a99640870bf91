#include "multiplot.h"

#include "stripoverlay.h"
#include "strippainter.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace
{

constexpr int MostPlots = 65536;
constexpr int MostPrecision = 9;

} // namespace

MultiPlot::MultiPlot(QWidget* parent)
    : QFrame(parent)
{
    bkgColor = m_scheme.bkg();
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    describe();
}

MultiPlot::~MultiPlot() = default;

void MultiPlot::describe()
{
    const QString name = tr("Signal strips");
    if (accessibleName() == m_ownName)
        setAccessibleName(name);
    m_ownName = name;
    const QString description = tr("Arrow keys move the pointer, Space begins and ends a selection, "
                                   "Return acts as a double click, Escape gives up a selection");
    if (accessibleDescription() == m_ownDescription)
        setAccessibleDescription(description);
    m_ownDescription = description;
}

bool MultiPlot::setPlotCount(int count)
{
    if (count < 0 || count > MostPlots)
        return false;
    m_plots.assign(static_cast<std::size_t>(count), Plot());
    plotCount = count;
    m_drag.cancel();
    m_pointerPoint = StripPoint();
    takeVisibleStrips();
    update();
    return true;
}

Plot* MultiPlot::plot(int index)
{
    return index >= 0 && index < int(m_plots.size()) ? &m_plots[static_cast<std::size_t>(index)] : nullptr;
}

const Plot* MultiPlot::plot(int index) const
{
    return index >= 0 && index < int(m_plots.size()) ? &m_plots[static_cast<std::size_t>(index)] : nullptr;
}

void MultiPlot::setHorzScale(double from, double to)
{
    if (!std::isfinite(from) || !std::isfinite(to))
        return;
    horzMin = std::min(from, to);
    horzMax = std::max(from, to);
    changed();
}

void MultiPlot::setHorzTitle(const QString& title)
{
    m_horzTitle = title;
    changed();
}

void MultiPlot::setHorzUnits(const QString& units)
{
    m_horzUnits = units;
    changed();
}

void MultiPlot::setHorzGrid(double seconds)
{
    m_choosesGrid = !(seconds > 0.0) || !std::isfinite(seconds);
    m_horzGrid = m_choosesGrid ? 0.0 : seconds;
    changed();
}

double MultiPlot::horzGrid() const
{
    if (!m_choosesGrid)
        return m_horzGrid;
    stripLayout();
    return m_chosenGrid;
}

void MultiPlot::adjustHorzGrid()
{
    setHorzGrid(0.0);
}

void MultiPlot::setScheme(const MultiPlotScheme& scheme)
{
    m_scheme = scheme;
    m_hasNewScheme = true;
}

bool MultiPlot::setUserMode(UserMode mode)
{
    if (!isUserMode(mode))
        return false;
    userMode = mode;
    m_drag.cancel();
    setCursor(mode == UserModeArrow ? Qt::ArrowCursor : Qt::CrossCursor);
    if (m_hasPointer)
        m_pointerPoint = pointAt(m_pointer);
    update();
    return true;
}

void MultiPlot::forceModeTimeSelection(const QPoint& point)
{
    if (userMode != UserModeTimeSelection)
        setUserMode(UserModeTimeSelection);
    m_drag.restart(userMode, pointAt(point), point);
    update();
}

void MultiPlot::redraw(bool all)
{
    if (all) {
        takeScheme();
        takeVisibleStrips();
    }
    // Nothing to be seen needs no picture; it is made when the widget comes into sight.
    if (isVisible())
        repaint();
}

void MultiPlot::setFastDrawing(bool fast)
{
    m_fastDrawing = fast;
    m_hasPicture = false;
}

void MultiPlot::setFastDrawingTolerance(double pixels)
{
    if (!(pixels > 0.0) || !std::isfinite(pixels))
        return;
    m_tolerance = pixels;
    m_hasPicture = false;
}

unsigned MultiPlot::addLabel(const KiroLabel& label)
{
    m_hasPicture = false;
    return m_labels.add(label);
}

bool MultiPlot::removeLabel(unsigned id)
{
    m_hasPicture = false;
    return m_labels.remove(id);
}

void MultiPlot::clearAllLabels()
{
    m_hasPicture = false;
    m_labels.clear();
}

unsigned MultiPlot::findLabelByTime(unsigned plot, double time, double tolerance) const
{
    return m_labels.findByTime(plot, time, tolerance);
}

QPoint MultiPlot::getScreenPoint(unsigned plot, const QPointF& point) const
{
    const StripBox* const box = stripLayout().boxOf(plot < unsigned(MostPlots) ? int(plot) : -1);
    if (box == nullptr)
        return {-1, -1};
    return QPointF(stripLayout().xAt(point.x()), stripLayout().yAt(*box, point.y())).toPoint();
}

void MultiPlot::print(QPainter& painter, const QRect& rect)
{
    const StripLook look(m_scheme, m_hasNewScheme ? m_scheme.bkg() : bkgColor, QFrame::font(),
                         painter.device());
    const StripLayout printed = layoutOn(rect, look, visibleStrips());
    painter.save();
    painter.setClipRect(rect, Qt::IntersectClip);
    StripPainter(printed, look, m_plots).draw(painter, m_labels.list(), 0.0);
    painter.restore();
}

void MultiPlot::setPrecision(int decimals)
{
    if (decimals < 0 || decimals > MostPrecision)
        return;
    m_precision = decimals;
    update();
}

QSize MultiPlot::sizeHint() const
{
    const QFontMetrics metrics(font());
    return {metrics.averageCharWidth() * 80, metrics.height() * 24};
}

QSize MultiPlot::minimumSizeHint() const
{
    const QFontMetrics metrics(font());
    return {metrics.averageCharWidth() * 20, metrics.height() * 4};
}

void MultiPlot::changed()
{
    m_hasLayout = false;
    m_hasPicture = false;
}

void MultiPlot::takeScheme()
{
    if (m_hasNewScheme)
        bkgColor = m_scheme.bkg();
    m_drawnScheme = m_scheme;
    m_hasNewScheme = false;
}

void MultiPlot::takeVisibleStrips()
{
    for (Plot& plot : m_plots)
        plot.followData();
    m_shown = visibleStrips();
    changed();
    if (m_hasPointer)
        m_pointerPoint = pointAt(m_pointer);
}

QVector<int> MultiPlot::visibleStrips() const
{
    QVector<int> shown;
    for (int i = 0; i < int(m_plots.size()); ++i) {
        if (plot(i)->show)
            shown.append(i);
    }
    return shown;
}

const StripLayout& MultiPlot::stripLayout() const
{
    if (!m_hasLayout) {
        // The focus frame has its place always, so that nothing moves when it comes.
        const double frame = focusWidth();
        const QRectF inner = QRectF(contentsRect()).adjusted(frame, frame, -frame, -frame);
        m_layout = layoutOn(inner, screenLook(), m_shown);
        m_hasLayout = true;
        m_chosenGrid = m_layout.timeStep();
    }
    return m_layout;
}

StripLayout MultiPlot::layoutOn(const QRectF& rect, const StripLook& look, const QVector<int>& shown) const
{
    QVector<StripContent> strips;
    strips.reserve(shown.size());
    for (const int index : shown) {
        const Plot& strip = *plot(index);
        strips.append({index, strip.drawnLimits(), strip.vertGrid, strip.title(), strip.drawnUnit()});
    }
    TimeAxis axis;
    axis.min = horzMin;
    axis.max = horzMax;
    axis.grid = m_choosesGrid ? 0.0 : m_horzGrid;
    axis.unitType = look.scheme().horzUnitType();
    axis.timeStyle = look.scheme().horzTimeStyle();
    if (!shown.isEmpty()) {
        axis.timePerSample = plot(shown.first())->timePerSample;
        axis.timeOffset = plot(shown.first())->timeOffset;
    }
    axis.title = m_horzTitle;
    axis.units = m_horzUnits;
    return StripLayout(rect, look.metrics(), strips, axis);
}

StripLook MultiPlot::screenLook() const
{
    return StripLook(m_drawnScheme, bkgColor, QFrame::font(), this);
}

double MultiPlot::focusWidth() const
{
    return std::max(1.0, std::round(QFontMetricsF(font()).height() / 10.0));
}

void MultiPlot::updatePicture()
{
    const QSize size = (QSizeF(contentsRect().size()) * devicePixelRatioF()).toSize();
    if (m_picture.size() != size || m_picture.devicePixelRatioF() != devicePixelRatioF()) {
        m_picture = QPixmap(size);
        m_picture.setDevicePixelRatio(devicePixelRatioF());
        m_hasPicture = false;
    }
    if (m_hasPicture || m_picture.isNull())
        return;
    m_hasPicture = true;
    m_picture.fill(bkgColor);
    QPainter painter(&m_picture);
    painter.translate(-contentsRect().topLeft());
    StripPainter(stripLayout(), screenLook(), m_plots)
        .draw(painter, m_labels.list(), m_fastDrawing ? m_tolerance : 0.0);
}

void MultiPlot::paintEvent(QPaintEvent* /*event*/)
{
    updatePicture();
    QPainter painter(this);
    if (!m_picture.isNull())
        painter.drawPixmap(contentsRect().topLeft(), m_picture);
    painter.save();
    painter.setClipRect(contentsRect());
    drawOverlay(painter);
    painter.restore();
    drawFrame(&painter);
}

void MultiPlot::drawOverlay(QPainter& painter) const
{
    const StripLook look = screenLook();
    const StripOverlay overlay(stripLayout(), look, m_precision);
    if (showPlayMarker)
        overlay.drawPlayMarker(painter, playMarkerTime);
    drawPointer(painter);
    if (m_drag.showsPeriod())
        overlay.drawPeriod(painter, m_drag.period());
    const Plot* const measured = m_drag.showsDistance() ? plot(m_drag.plot()) : nullptr;
    if (measured != nullptr)
        overlay.drawDistance(painter, *measured, m_drag.start(), m_drag.end());
    if (hasFocus()) {
        QPen pen(palette().color(QPalette::Highlight), focusWidth());
        pen.setJoinStyle(Qt::MiterJoin);
        painter.setPen(pen);
        const double half = pen.widthF() / 2.0;
        painter.drawRect(QRectF(contentsRect()).adjusted(half, half, -half, -half));
    }
}

void MultiPlot::drawPointer(QPainter& painter) const
{
    if (!m_hasPointer || m_pointerPoint.plot < 0)
        return;
    const StripLook look = screenLook();
    const StripOverlay overlay(stripLayout(), look, m_precision);
    const bool isOfKeys = userMode != UserModeArrow && hasFocus() && !underMouse();
    if (userMode == UserModePoint)
        overlay.drawPointPointer(painter, m_pointerPoint);
    else if (userMode == UserModeLine || isOfKeys)
        overlay.drawLinePointer(painter, m_pointerPoint);
}

void MultiPlot::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    changed();
}

void MultiPlot::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    const QEvent::Type type = event->type();
    if (type == QEvent::LanguageChange)
        describe();
    if (type == QEvent::FontChange || type == QEvent::StyleChange || type == QEvent::PaletteChange ||
        type == QEvent::LanguageChange) {
        changed();
        update();
    }
}
