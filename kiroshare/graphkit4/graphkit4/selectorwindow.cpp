#include "selectorwindow.h"

#include <algorithm>
#include <cmath>

namespace
{

/// The least width as a part of the total range; below, positions would run out of digits.
constexpr double LeastPart = 1e-9;

} // namespace

double SelectorWindow::from() const
{
    const double half = m_range * 0.5;
    return m_position <= m_totalFrom + half ? m_totalFrom : m_position - half;
}

double SelectorWindow::to() const
{
    const double half = m_range * 0.5;
    return m_position >= m_totalTo - half ? m_totalTo : m_position + half;
}

bool SelectorWindow::setTotalRange(double from, double to)
{
    if (!(to >= from) || !std::isfinite(to - from))
        return false;
    const bool wasWhole = isWhole();
    m_dragged = Part::None;
    m_totalFrom = from;
    m_totalTo = to;
    if (wasWhole)
        m_range = totalRange();
    holdWithinTotal();
    return true;
}

bool SelectorWindow::setRange(double range)
{
    if (!(range >= 0.0) || !std::isfinite(range))
        return false;
    m_range = range;
    holdWithinTotal();
    return true;
}

bool SelectorWindow::setPosition(double position)
{
    if (!std::isfinite(position))
        return false;
    m_position = position;
    holdWithinTotal();
    return true;
}

bool SelectorWindow::setMinimalRange(double range)
{
    if (!(range > 0.0) || !std::isfinite(range))
        return false;
    m_minimalRange = range;
    holdWithinTotal();
    return true;
}

double SelectorWindow::minimalRange() const
{
    return std::min(std::max(m_minimalRange, totalRange() * LeastPart), totalRange());
}

bool SelectorWindow::setStep(double fraction)
{
    if (!(fraction > 0.0) || !std::isfinite(fraction))
        return false;
    m_step = fraction;
    return true;
}

bool SelectorWindow::moveSteps(double count)
{
    return moveWindows(count * m_step);
}

bool SelectorWindow::moveWindows(double count)
{
    if (!std::isfinite(count))
        return false;
    const double before = m_position;
    // Farther than the total range is as good as that; and products stay finite.
    const double most = totalRange();
    m_position += std::clamp(count * m_range, -most, most);
    holdWithinTotal();
    return m_position != before;
}

bool SelectorWindow::moveToStart()
{
    const double before = m_position;
    m_position = m_totalFrom;
    holdWithinTotal();
    return m_position != before;
}

bool SelectorWindow::moveToEnd()
{
    const double before = m_position;
    m_position = m_totalTo;
    holdWithinTotal();
    return m_position != before;
}

bool SelectorWindow::zoom(double factor)
{
    const double before = m_range;
    return setRange(std::min(m_range * factor, totalRange())) && m_range != before;
}

void SelectorWindow::beginDrag(Part part, double time)
{
    m_dragged = part;
    m_grabTime = time;
    m_positionBefore = m_position;
    m_rangeBefore = m_range;
    m_edgeBefore = part == Part::Start ? from() : to();
    m_fixedEdge = part == Part::Start ? to() : from();
}

bool SelectorWindow::dragTo(double time)
{
    if (!std::isfinite(time) || m_dragged == Part::None)
        return false;
    if (m_dragged != Part::Body)
        return dragEdge(m_edgeBefore + (time - m_grabTime));
    const double before = m_position;
    setPosition(m_positionBefore + (time - m_grabTime));
    return m_position != before;
}

bool SelectorWindow::cancelDrag()
{
    if (m_dragged == Part::None)
        return false;
    m_dragged = Part::None;
    const bool changed = m_position != m_positionBefore || m_range != m_rangeBefore;
    m_position = m_positionBefore;
    m_range = m_rangeBefore;
    holdWithinTotal();
    return changed;
}

bool SelectorWindow::dragEdge(double edge)
{
    const double before = m_range;
    if (m_dragged == Part::Start) {
        const double start = std::max(std::min(edge, m_fixedEdge - minimalRange()), m_totalFrom);
        m_range = m_fixedEdge - start;
        m_position = start + m_range * 0.5;
    } else {
        const double end = std::min(std::max(edge, m_fixedEdge + minimalRange()), m_totalTo);
        m_range = end - m_fixedEdge;
        m_position = m_fixedEdge + m_range * 0.5;
    }
    holdWithinTotal();
    return m_range != before;
}

void SelectorWindow::holdWithinTotal()
{
    m_range = std::clamp(m_range, minimalRange(), totalRange());
    const double half = m_range * 0.5;
    if (isWhole())
        m_position = m_totalFrom + half;
    else
        m_position = std::min(std::max(m_position, m_totalFrom + half), m_totalTo - half);
}
