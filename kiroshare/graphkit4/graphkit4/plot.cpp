#include "plot.h"

#include "axisscale.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

/// Limits beyond this are cut, so that their difference stays finite.
constexpr double MostOfLimit = std::numeric_limits<double>::max() / 8.0;
/// A span below this part of the limits cannot be told apart in doubles on a strip of pixels.
constexpr double LeastSpan = 1e-11;
/// What a strip of one value shows above and below it, as a part of the value.
constexpr double RoomOfConstant = 0.1;

/// Limits that a scale can be made of.
Extremes usableLimits(double one, double other)
{
    const double low = std::clamp(std::min(one, other), -MostOfLimit, MostOfLimit);
    const double high = std::clamp(std::max(one, other), -MostOfLimit, MostOfLimit);
    const double size = std::max(std::abs(low), std::abs(high));
    if (high - low > size * LeastSpan && high - low > std::numeric_limits<double>::min())
        return {low, high};
    const double room = size > std::numeric_limits<double>::min() / LeastSpan ? size * RoomOfConstant : 1.0;
    return {low - room, high + room};
}

} // namespace

bool Plot::setData(const QVector<std::int8_t>& data, int start, int count)
{
    return take(data, start, count);
}

bool Plot::setData(const QVector<std::uint8_t>& data, int start, int count)
{
    return take(data, start, count);
}

bool Plot::setData(const QVector<std::int16_t>& data, int start, int count)
{
    return take(data, start, count);
}

bool Plot::setData(const QVector<std::uint16_t>& data, int start, int count)
{
    return take(data, start, count);
}

bool Plot::setData(const QVector<std::int32_t>& data, int start, int count)
{
    return take(data, start, count);
}

bool Plot::setData(const QVector<std::uint32_t>& data, int start, int count)
{
    return take(data, start, count);
}

bool Plot::setData(const QVector<std::int64_t>& data, int start, int count)
{
    return take(data, start, count);
}

bool Plot::setData(const QVector<std::uint64_t>& data, int start, int count)
{
    return take(data, start, count);
}

bool Plot::setData(const QVector<float>& data, int start, int count)
{
    return take(data, start, count);
}

bool Plot::setData(const QVector<double>& data, int start, int count)
{
    return take(data, start, count);
}

QVector<std::int8_t> Plot::getDataInt8() const
{
    return dataOf<std::int8_t>();
}

QVector<std::uint8_t> Plot::getDataUInt8() const
{
    return dataOf<std::uint8_t>();
}

QVector<std::int16_t> Plot::getDataInt16() const
{
    return dataOf<std::int16_t>();
}

QVector<std::uint16_t> Plot::getDataUInt16() const
{
    return dataOf<std::uint16_t>();
}

QVector<std::int32_t> Plot::getDataInt32() const
{
    return dataOf<std::int32_t>();
}

QVector<std::uint32_t> Plot::getDataUInt32() const
{
    return dataOf<std::uint32_t>();
}

QVector<std::int64_t> Plot::getDataInt64() const
{
    return dataOf<std::int64_t>();
}

QVector<std::uint64_t> Plot::getDataUInt64() const
{
    return dataOf<std::uint64_t>();
}

QVector<float> Plot::getDataFloat() const
{
    return dataOf<float>();
}

QVector<double> Plot::getDataDouble() const
{
    return dataOf<double>();
}

template <class T>
bool Plot::take(const QVector<T>& data, int start, int count)
{
    if (start < 0 || start > data.size() || count < -1 || count > data.size() - start)
        return false;
    const int taken = count < 0 ? data.size() - start : count;
    const bool whole = taken == data.size();
    setSamples(SampleStore(SampleArray(whole ? data : data.mid(start, taken))));
    return true;
}

void Plot::setSamples(const SampleStore& samples)
{
    m_samples = samples;
    dataType = m_samples.elementType();
    m_first = 0;
    m_count = m_samples.count();
    followData();
}

template <class T>
QVector<T> Plot::dataOf() const
{
    const auto* const data = std::get_if<QVector<T>>(&m_samples.samples());
    return data != nullptr ? *data : QVector<T>();
}

bool Plot::setDataRange(int start, int count)
{
    if (start < 0 || count < 0 || start > dataSize() || count > dataSize() - start)
        return false;
    m_first = start;
    m_count = count;
    followData();
    return true;
}

void Plot::setTimePerSample(double seconds)
{
    if (std::isfinite(seconds) && seconds > 0.0)
        timePerSample = seconds;
}

void Plot::setTimeOffset(double seconds)
{
    if (std::isfinite(seconds))
        timeOffset = seconds;
}

void Plot::setScale(double min, double max)
{
    if (!std::isfinite(min) || !std::isfinite(max))
        return;
    scaleMin = min;
    scaleMax = max;
}

void Plot::setScaleType(ScaleType type)
{
    scaleType = type;
    followData();
}

void Plot::adjustPrecision()
{
    const Extremes limits = drawnLimits();
    precision = decimalsOfStep(roundStep((limits.greatest - limits.least) / 100.0));
}

void Plot::followData()
{
    Extremes found;
    if (scaleType == Automatic && m_count > 0 && m_samples.extremes(m_first, m_count, found)) {
        scaleMin = found.least;
        scaleMax = found.greatest;
    }
}

Extremes Plot::drawnLimits() const
{
    Extremes raw{scaleMin, scaleMax};
    if (scaleType != Fixed) {
        Extremes found;
        const bool hasData = m_count > 0 && m_samples.extremes(m_first, m_count, found);
        if (scaleType == Tracing) {
            const double half = std::abs(scaleMax) * 0.5;
            const double middle = hasData ? found.least * 0.5 + found.greatest * 0.5 : 0.0;
            raw = {middle - half, middle + half};
        } else if (hasData) {
            raw = found;
        } else {
            return {0.0, 1.0};
        }
    }
    const double one = drawnValue(raw.least);
    const double other = drawnValue(raw.greatest);
    return std::isnan(one) || std::isnan(other) ? Extremes{0.0, 1.0} : usableLimits(one, other);
}

int Plot::sampleAt(double seconds) const
{
    const double at = std::round((seconds - timeOffset) / timePerSample);
    // Written so that what is not a number ends here.
    const bool inside = timePerSample > 0.0 && at >= m_first && at < double(m_first) + m_count;
    return inside ? static_cast<int>(at) : -1;
}

bool Plot::drawsCalibrated() const
{
    return useCalib && calibFactor != 0.0 && std::isfinite(calibFactor) && std::isfinite(calibOffset);
}
