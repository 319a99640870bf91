#include "axismapping.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double MostPixel = 1e9;
/// Doubles closer to each other than this share of their size can't be told apart pixel by pixel.
constexpr double LeastRelativeRange = 1e-10;
constexpr double LeastRange = 1e-280;
/// A range of nothing is shown with so much beside it.
constexpr double RoomBeside = 0.5;
constexpr double RelativeRoomBeside = 1e-6;

} // namespace

AxisMapping::AxisMapping()
    : AxisMapping(0.0, 1.0, 0, 1)
{
}

AxisMapping::AxisMapping(double min, double max, int firstPixel, int lastPixel)
    : m_min(min)
    , m_max(max)
    , m_first(firstPixel)
    , m_last(lastPixel)
{
    const double size = std::max(std::abs(min), std::abs(max));
    if (std::abs(max - min) < std::max(size * LeastRelativeRange, LeastRange)) {
        const double middle = min * 0.5 + max * 0.5;
        const double beside = std::max(RoomBeside, std::abs(middle) * RelativeRoomBeside);
        m_min = middle - beside;
        m_max = middle + beside;
    }
    m_pixelsPerUnit = (static_cast<double>(m_last) - m_first) / (m_max - m_min);
}

int AxisMapping::pixel(double value) const
{
    const double place = std::floor(position(value));
    if (!(place > -MostPixel))
        return static_cast<int>(-MostPixel);
    return static_cast<int>(std::min(place, MostPixel));
}

double AxisMapping::value(int pixel) const
{
    return pixel == m_last ? m_max : valueAt(pixel + 0.5);
}

double AxisMapping::valueAt(double position) const
{
    return m_min + (position - 0.5 - m_first) / (static_cast<double>(m_last) - m_first) * (m_max - m_min);
}

double AxisMapping::distance(int pixels) const
{
    return pixels / std::abs(m_pixelsPerUnit);
}
