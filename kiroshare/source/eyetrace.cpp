#include "eyetrace.h"

#include "samplefilters.h"
#include "savitzkygolay.h"

#include <cmath>
#include <limits>

namespace
{

using SavitzkyGolay::Slope11;
using SavitzkyGolay::Slope15;

std::vector<double> speedOf(const std::vector<double>& position)
{
    std::vector<double> speed;
    if (!velocitySavitzkyGolay11(position, speed, true))
        speed.assign(position.size(), 0.0);
    return speed;
}

template <class Slope>
double slopeAt(const std::vector<double>& samples, std::size_t i)
{
    return SavitzkyGolay::slopeAt<Slope>(samples.data(), samples.size(), i);
}

} // namespace

OneSignalTrace::OneSignalTrace(const std::vector<double>& position)
    : m_position(position)
    , m_speed(speedOf(position))
{
}

double OneSignalTrace::velocity15(std::size_t i) const
{
    return slopeAt<Slope15>(m_position, i);
}

double OneSignalTrace::speed15(std::size_t i) const
{
    return std::abs(velocity15(i));
}

double OneSignalTrace::speedChange(std::size_t i) const
{
    return slopeAt<Slope11>(m_speed, i);
}

void OneSignalTrace::measureAmplitude(std::size_t first, std::size_t last, KiroSaccadeEye& eye) const
{
    eye.startHorz = m_position[first];
    eye.endHorz = m_position[last];
    eye.amplitudeHorz = eye.endHorz - eye.startHorz;
    eye.amplitude = eye.amplitudeHorz;
}

TwoSignalTrace::TwoSignalTrace(const std::vector<double>& horizontal, const std::vector<double>& vertical)
    : m_horizontal(horizontal)
    , m_vertical(vertical)
    , m_horizontalSpeed(speedOf(horizontal))
    , m_verticalSpeed(speedOf(vertical))
{
}

/// A square root is rounded to within a unit in the last place, so that a square below this cannot reach the
/// speed; what is not below is looked at closely.
void TwoSignalTrace::setLeastSpeed(double speed)
{
    constexpr double Almost = 1.0 - 1e-12;
    m_leastSquare = speed < 0.0 ? -std::numeric_limits<double>::infinity() : speed * speed * Almost;
}

double TwoSignalTrace::speed11(std::size_t i) const
{
    return std::sqrt(squaredSpeed(i));
}

double TwoSignalTrace::squaredSpeed15(std::size_t i) const
{
    const double horizontal = slopeAt<Slope15>(m_horizontal, i);
    const double vertical = slopeAt<Slope15>(m_vertical, i);
    return horizontal * horizontal + vertical * vertical;
}

double TwoSignalTrace::speed15(std::size_t i) const
{
    return std::sqrt(squaredSpeed15(i));
}

double TwoSignalTrace::speedChange(std::size_t i) const
{
    const double horizontal = slopeAt<Slope11>(m_horizontalSpeed, i);
    const double vertical = slopeAt<Slope11>(m_verticalSpeed, i);
    return horizontal * horizontal + vertical * vertical;
}

void TwoSignalTrace::measureAmplitude(std::size_t first, std::size_t last, KiroSaccadeEye& eye) const
{
    eye.startHorz = m_horizontal[first];
    eye.endHorz = m_horizontal[last];
    eye.amplitudeHorz = eye.endHorz - eye.startHorz;
    eye.startVert = m_vertical[first];
    eye.endVert = m_vertical[last];
    eye.amplitudeVert = eye.endVert - eye.startVert;
    eye.amplitude = std::sqrt(eye.amplitudeHorz * eye.amplitudeHorz + eye.amplitudeVert * eye.amplitudeVert);
}
