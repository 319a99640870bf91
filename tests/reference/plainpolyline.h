#pragma once

#include "samplestore.h"
#include "stripcurve.h"

#include <QPointF>
#include <QRect>
#include <QSize>

#include <algorithm>
#include <cmath>
#include <vector>

/// The plain form of drawing a strip: the pixels of the true polyline through every sample, from its geometry
/// in double precision. A painter's own thin lines are no measure: they are shifted by up to a pixel where
/// steep ones follow flat ones.
namespace plain
{

/// Which pixels of a picture are lit.
class Pixels
{
public:
    explicit Pixels(const QSize& size)
        : m_size(size)
        , m_lit(std::size_t(size.width()) * std::size_t(size.height()))
    {
    }

    int width() const { return m_size.width(); }
    int height() const { return m_size.height(); }
    bool isLit(int x, int y) const { return m_lit[index(x, y)] != 0; }
    void light(int x, int y) { m_lit[index(x, y)] = 1; }
    long litCount() const { return long(std::count(m_lit.begin(), m_lit.end(), 1)); }

private:
    std::size_t index(int x, int y) const
    {
        return std::size_t(y) * std::size_t(m_size.width()) + std::size_t(x);
    }

    QSize m_size;
    std::vector<char> m_lit;
};

/// A sample's place in device pixels, of which the painter's coordinates have `ratio`; of a value within the
/// scale on a row that the view has. Far off, heights are bounded.
inline QPointF placeOf(const StripView& view, double ratio, int sample, double raw)
{
    const double time = view.timeOffset + sample * view.timePerSample;
    const double value = (raw - view.calibOffset) / view.calibFactor;
    const double across = (time - view.horzMin) / (view.horzMax - view.horzMin);
    // Halves, since the difference of two limits need not be finite.
    const double up = (value / 2.0 - view.scaleMin / 2.0) / (view.scaleMax / 2.0 - view.scaleMin / 2.0);
    const double x = (view.rect.left() + across * view.rect.width()) * ratio;
    double y = (view.rect.bottom() - up * view.rect.height()) * ratio;
    // Values of a scale's ends may be rounded to beside it.
    if (up >= -1e-6 && up <= 1.0 + 1e-6)
        y = std::clamp(y, std::round(view.rect.top() * ratio),
                       std::round(view.rect.bottom() * ratio) - 1.0 / 64);
    return {x, std::clamp(y, -1e12, 1e12)};
}

/// Draws lines and points, clipped to the pixels of a rectangle.
class PolylinePen
{
public:
    /// `width` in pixels. Up to 1.5: the pixels that a line passes, else those whose centres are within half
    /// the width from it.
    PolylinePen(Pixels& pixels, const QRect& clip, double width)
        : m_pixels(pixels)
        , m_clip(clip.intersected(QRect(0, 0, pixels.width(), pixels.height())))
        , m_radius(width > 1.5 ? width * 0.5 : 0.0)
    {
    }

    /// A line of no length is a point. The end is not left of the start.
    void draw(const QPointF& start, const QPointF& end)
    {
        const int firstColumn = cell(start.x() - m_radius, m_clip.left(), m_clip.right() + 1);
        const int lastColumn = cell(end.x() + m_radius, m_clip.left() - 1, m_clip.right());
        for (int column = firstColumn; column <= lastColumn; ++column) {
            // The part of the line from which the pixels of the column may be lit.
            const double one = heightAt(start, end, column - m_radius);
            const double other = heightAt(start, end, column + 1.0 + m_radius);
            const int top = cell(std::min(one, other) - m_radius, m_clip.top(), m_clip.bottom() + 1);
            const int bottom = cell(std::max(one, other) + m_radius, m_clip.top() - 1, m_clip.bottom());
            for (int row = top; row <= bottom; ++row) {
                if (m_radius == 0.0 || distance(start, end, {column + 0.5, row + 0.5}) <= m_radius)
                    m_pixels.light(column, row);
            }
        }
    }

    /// The end of a line, or a point: if lines are wide a disc of the pen's width in whole pixels, around the
    /// nearest middle (of an odd width) or corner (of an even one) of a pixel, so that all look alike.
    void drawDot(const QPointF& place)
    {
        if (m_radius == 0.0) {
            draw(place, place);
            return;
        }
        const int width = int(std::lround(2.0 * m_radius));
        const QPointF centre = width % 2 == 1
                                   ? QPointF(std::floor(place.x()) + 0.5, std::floor(place.y()) + 0.5)
                                   : QPointF(std::floor(place.x() + 0.5), std::floor(place.y() + 0.5));
        const double reach = width * 0.5;
        const int firstColumn = cell(centre.x() - reach, m_clip.left(), m_clip.right() + 1);
        const int lastColumn = cell(centre.x() + reach, m_clip.left() - 1, m_clip.right());
        const int top = cell(centre.y() - reach, m_clip.top(), m_clip.bottom() + 1);
        const int bottom = cell(centre.y() + reach, m_clip.top() - 1, m_clip.bottom());
        for (int column = firstColumn; column <= lastColumn; ++column) {
            for (int row = top; row <= bottom; ++row) {
                if (std::hypot(column + 0.5 - centre.x(), row + 0.5 - centre.y()) <= reach)
                    m_pixels.light(column, row);
            }
        }
    }

private:
    static int cell(double place, int least, int greatest)
    {
        return int(std::clamp(std::floor(place), double(least), double(greatest)));
    }

    /// Where the line crosses `x`, or its end on that side.
    static double heightAt(const QPointF& start, const QPointF& end, double x)
    {
        if (x <= start.x())
            return start.y();
        if (x >= end.x())
            return end.y();
        return start.y() + (x - start.x()) / (end.x() - start.x()) * (end.y() - start.y());
    }

    static double distance(const QPointF& start, const QPointF& end, const QPointF& point)
    {
        const QPointF step = end - start;
        const double length = QPointF::dotProduct(step, step);
        const double part = length > 0.0 ? QPointF::dotProduct(point - start, step) / length : 0.0;
        const QPointF aside = point - start - step * std::clamp(part, 0.0, 1.0);
        return std::hypot(aside.x(), aside.y());
    }

    Pixels& m_pixels;
    QRect m_clip;
    double m_radius;
};

/// The pixels that drawStripCurve() lights without a tolerance, of samples whose time grows to the right.
/// `width` of the pen in device pixels.
inline Pixels stripCurve(const QSize& size, double ratio, const SampleStore& samples, const StripView& view,
                         double width)
{
    Pixels pixels(size);
    const QRectF rect(view.rect.topLeft() * ratio, view.rect.size() * ratio);
    PolylinePen pen(pixels, rect.toRect(), width);
    bool hasLast = false;
    QPointF last;
    for (int i = view.first; i < view.first + view.count; ++i) {
        const double raw = samples.value(i);
        if (!std::isfinite(raw)) {
            if (hasLast)
                pen.drawDot(last);
            hasLast = false;
            continue;
        }
        const QPointF place = placeOf(view, ratio, i, raw);
        if (hasLast && view.connected)
            pen.draw(last, place);
        else
            pen.drawDot(place);
        last = place;
        hasLast = true;
    }
    if (hasLast)
        pen.drawDot(last);
    return pixels;
}

} // namespace plain
