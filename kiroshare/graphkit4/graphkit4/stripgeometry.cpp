#include "stripgeometry.h"

#include <QPaintEngine>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace
{

/// A grid that is not the device's has at most so many columns and rows.
constexpr double MostPixels = 32768.0;
/// Lines between samples that are farther apart do not occur.
constexpr double FarAside = 1e15;
/// Sums of numbers below are finite.
constexpr double HugeNumber = 1e300;
/// Steps by which a guessed sample is set right before it is searched.
constexpr int GuessSteps = 4;

bool isFiniteRect(const QRectF& rect)
{
    return std::isfinite(rect.left()) && std::isfinite(rect.top()) && std::isfinite(rect.width()) &&
           std::isfinite(rect.height());
}

QRectF boundsOf(const QPaintDevice& device)
{
    return {0.0, 0.0, double(device.width()), double(device.height())};
}

} // namespace

PixelGrid::PixelGrid(const QPainter& painter, const QRectF& viewRect)
{
    const QPaintEngine* engine = painter.paintEngine();
    const QTransform device = painter.deviceTransform();
    scale = std::sqrt(std::abs(device.determinant()));
    if (!engine || !isFiniteRect(viewRect) || !(viewRect.width() > 0.0) || !(viewRect.height() > 0.0) ||
        !(scale > 0.0) || !std::isfinite(scale))
        return;
    raster = engine->type() == QPaintEngine::Raster;
    QRectF bounds(0.0, 0.0, MostPixels, MostPixels);
    if (raster && device.type() <= QTransform::TxScale) {
        fromView = device;
        bounds = boundsOf(*engine->paintDevice());
    } else {
        scale = std::min(scale, MostPixels / std::max(viewRect.width(), viewRect.height()));
        fromView = QTransform::fromTranslate(-viewRect.left(), -viewRect.top()) *
                   QTransform::fromScale(scale, scale);
    }
    mirroredX = fromView.m11() < 0.0;
    mirroredY = fromView.m22() < 0.0;
    rect = fromView.mapRect(viewRect);
    if (isFiniteRect(rect))
        visible = rect.intersected(bounds).toRect();
}

PixelGrid PixelGrid::finer(int times) const
{
    PixelGrid fine = *this;
    fine.fromView *= QTransform::fromScale(times, times);
    fine.rect = QRectF(rect.topLeft() * times, rect.size() * times);
    fine.visible = QRect(visible.topLeft() * times, visible.size() * times);
    fine.scale *= times;
    fine.fineness *= times;
    return fine;
}

StripGeometry::StripGeometry(const PixelGrid& grid, const SampleStore& samples, const StripView& view,
                             int reach, double shift)
    : m_view(view)
    , m_canvas(grid.visible.adjusted(-reach, -reach, reach, reach))
    , m_fineness(grid.fineness)
    , m_visibleCentre((grid.visible.left() + grid.visible.right() + 1) * 0.5)
{
    const int last = samples.count();
    m_first = std::clamp(view.first, 0, last);
    m_end = m_first + std::clamp(view.count, 0, last - m_first);
    if (grid.visible.isEmpty() || m_first == m_end)
        return;
    chooseTimes(grid);
    chooseScale(grid);
    move(shift);
    m_usable = std::isfinite(m_pixelsPerSecond) && m_pixelsPerSecond > 0.0 &&
               std::isfinite(view.timeOffset) && std::isfinite(m_halfRange) && m_halfRange != 0.0 &&
               std::isfinite(view.calibOffset) && std::isfinite(view.calibFactor) &&
               view.calibFactor != 0.0 && std::isfinite(view.timePerSample) && view.timePerSample > 0.0;
    if (!m_usable)
        return;
    const int from = std::max(firstFrom(m_canvas.left()) - 1, m_first);
    m_end = std::min(firstFrom(m_canvas.right() + 1) + 1, m_end);
    m_first = from;
}

void StripGeometry::chooseTimes(const PixelGrid& grid)
{
    m_mirrored = grid.mirroredX != (m_view.horzMax < m_view.horzMin);
    m_startTime = std::min(m_view.horzMin, m_view.horzMax);
    m_left = m_mirrored ? mirrored(grid.rect.right()) : grid.rect.left();
    m_pixelsPerSecond = grid.rect.width() / std::abs(m_view.horzMax - m_view.horzMin);
}

void StripGeometry::chooseScale(const PixelGrid& grid)
{
    m_zero = grid.mirroredY ? grid.rect.top() : grid.rect.bottom();
    m_height = grid.mirroredY ? grid.rect.height() : -grid.rect.height();
    // Halves, since the difference of two finite limits need not be finite.
    m_halfMin = 0.5 * m_view.scaleMin;
    m_halfRange = 0.5 * m_view.scaleMax - m_halfMin;
    m_rawZero = m_view.scaleMin * m_view.calibFactor + m_view.calibOffset;
    const double rawRange = (m_view.scaleMax - m_view.scaleMin) * m_view.calibFactor;
    m_rowsPerUnit = m_height / rawRange;
    m_isSteady =
        std::abs(m_rawZero) < HugeNumber && std::abs(rawRange) < HugeNumber && std::isnormal(m_rowsPerUnit);
    m_top = grid.rect.top();
    m_bottom = grid.rect.bottom();
    m_highest = std::round(m_top);
    // On the last row, also in the fixed-point numbers that lines are drawn with.
    m_lowest = std::max(std::round(m_bottom) - 1.0 / 64, m_highest);
}

void StripGeometry::move(double shift)
{
    for (double* place : {&m_left, &m_zero, &m_top, &m_bottom, &m_highest, &m_lowest})
        *place += shift;
}

double StripGeometry::x(int sample) const
{
    const double time = m_view.timeOffset + sample * m_view.timePerSample;
    return std::clamp(m_left + (time - m_startTime) * m_pixelsPerSecond, -FarAside, FarAside);
}

double StripGeometry::farPlace(double raw) const
{
    const double value = (raw - m_view.calibOffset) / m_view.calibFactor;
    return m_zero + (0.5 * value - m_halfMin) / m_halfRange * m_height;
}

int StripGeometry::firstFrom(double x) const
{
    const double time = m_startTime + (x - m_left) / m_pixelsPerSecond;
    const double guess = std::ceil((time - m_view.timeOffset) / m_view.timePerSample);
    int sample = int(std::clamp(guess, double(m_first), double(m_end)));
    for (int step = 0; step < GuessSteps; ++step) {
        if (sample > m_first && this->x(sample - 1) >= x)
            --sample;
        else if (sample < m_end && this->x(sample) < x)
            ++sample;
        else
            return sample;
    }
    // Places so close that rounding hides them from the formula.
    int from = m_first;
    int to = m_end;
    while (from < to) {
        const int middle = from + (to - from) / 2;
        if (this->x(middle) < x)
            from = middle + 1;
        else
            to = middle;
    }
    return from;
}

double StripGeometry::rowsPerUnit() const
{
    return m_isSteady ? std::abs(m_rowsPerUnit) : 0.0;
}

double StripGeometry::rawAt(double y) const
{
    return m_rawZero + (y - m_zero) / m_rowsPerUnit;
}
