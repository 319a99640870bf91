#include "linecanvas.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace
{

int pixelOf(double place)
{
    return static_cast<int>(std::floor(place));
}

/// First of `count` pixels around a place.
int firstPixel(double place, int count)
{
    return pixelOf(place - (count - 1) * 0.5);
}

/// Fast lines keep so far from the edges of the picture that no rounding takes them out of it.
constexpr double Margin = 1e-6;

/// Where a line goes across, at the centres of the pixels along it.
struct Course
{
    double start; ///< at the first pixel; beyond the end of the line if that lies behind the centre
    double slope;
    double least; ///< of the ends of the line
    double greatest;

    double at(int step) const { return std::clamp(start + step * slope, least, greatest); }
};

/// Lights a pixel at each of `steps` + 1 places along a course that is moved across by `shift`.
void drawThin(QRgb* pixels, std::ptrdiff_t along, std::ptrdiff_t across, int steps, const Course& course,
              double shift, QRgb color)
{
    // 32 digits behind the binary point: the end is met to within a millionth of a pixel.
    constexpr int Digits = 32;
    constexpr double One = 4294967296.0;
    auto place = static_cast<std::int64_t>((course.start + shift) * One);
    const auto step = static_cast<std::int64_t>(course.slope * One);
    pixels[pixelOf(course.at(0) + shift) * across] = color;
    for (int i = 1; i < steps; ++i) {
        pixels += along;
        place += step;
        pixels[(place >> Digits) * across] = color;
    }
    pixels[along + pixelOf(course.at(steps) + shift) * across] = color;
}

} // namespace

LineCanvas::LineCanvas(const QRect& rect)
    : m_rect(rect)
    , m_image(rect.size(), QImage::Format_ARGB32_Premultiplied)
{
    if (m_image.isNull())
        return;
    m_image.fill(Qt::transparent);
    m_pixels = reinterpret_cast<QRgb*>(m_image.bits());
    m_pixelsPerLine = m_image.bytesPerLine() / static_cast<int>(sizeof(QRgb));
}

void LineCanvas::drawPolyline(const QPointF* points, int count, int width, QRgb color)
{
    const QPointF origin = m_rect.topLeft();
    for (int i = 0; i < count; ++i) {
        const QPointF point = points[i] - origin;
        if (width > 1 || count == 1)
            fill(firstPixel(point.x(), width), firstPixel(point.y(), width), width, width, color);
        if (i > 0)
            drawLine(points[i - 1] - origin, point, width, color);
    }
}

void LineCanvas::drawLine(const QPointF& from, const QPointF& to, int width, QRgb color)
{
    const QPointF step = to - from;
    const bool flat = std::abs(step.x()) >= std::abs(step.y());
    const double along = flat ? std::abs(step.x()) : std::abs(step.y());
    int across = width;
    if (width > 1 && along > 0.0)
        across = static_cast<int>(std::lround(width * std::hypot(step.x(), step.y()) / along));
    if (flat)
        drawFlat(from, to, across, color);
    else
        drawSteep(from, to, across, color);
}

void LineCanvas::drawFlat(const QPointF& from, const QPointF& to, int height, QRgb color)
{
    const QPointF& left = from.x() <= to.x() ? from : to;
    const QPointF& right = from.x() <= to.x() ? to : from;
    const double length = right.x() - left.x();
    const double slope = length > 0.0 ? (right.y() - left.y()) / length : 0.0;
    const int first = std::max(pixelOf(left.x()), 0);
    const int last = std::min(pixelOf(right.x()), m_rect.width() - 1);
    const Course course{left.y() + (first + 0.5 - left.x()) * slope, slope, std::min(from.y(), to.y()),
                        std::max(from.y(), to.y())};
    const double aside = (height - 1) * 0.5;
    const bool inside = course.least - aside >= Margin && course.greatest + aside <= m_rect.height() - Margin;
    if (inside && first < last) {
        for (int row = 0; row < height; ++row)
            drawThin(m_pixels + first, 1, m_pixelsPerLine, last - first, course, row - aside, color);
        return;
    }
    for (int x = first; x <= last; ++x)
        fill(x, firstPixel(course.at(x - first), height), 1, height, color);
}

void LineCanvas::drawSteep(const QPointF& from, const QPointF& to, int width, QRgb color)
{
    const QPointF& top = from.y() <= to.y() ? from : to;
    const QPointF& bottom = from.y() <= to.y() ? to : from;
    const double slope = (bottom.x() - top.x()) / (bottom.y() - top.y());
    const int first = std::max(pixelOf(top.y()), 0);
    const int last = std::min(pixelOf(bottom.y()), m_rect.height() - 1);
    const Course course{top.x() + (first + 0.5 - top.y()) * slope, slope, std::min(from.x(), to.x()),
                        std::max(from.x(), to.x())};
    const double aside = (width - 1) * 0.5;
    const bool inside = course.least - aside >= Margin && course.greatest + aside <= m_rect.width() - Margin;
    if (inside && first < last) {
        QRgb* start = m_pixels + static_cast<std::ptrdiff_t>(first) * m_pixelsPerLine;
        for (int column = 0; column < width; ++column)
            drawThin(start, m_pixelsPerLine, 1, last - first, course, column - aside, color);
        return;
    }
    for (int y = first; y <= last; ++y)
        fill(firstPixel(course.at(y - first), width), y, width, 1, color);
}

void LineCanvas::fill(int left, int top, int width, int height, QRgb color)
{
    const int right = std::min(left + width, m_rect.width());
    const int bottom = std::min(top + height, m_rect.height());
    for (int y = std::max(top, 0); y < bottom; ++y) {
        for (int x = std::max(left, 0); x < right; ++x)
            m_pixels[static_cast<std::ptrdiff_t>(y) * m_pixelsPerLine + x] = color;
    }
}
