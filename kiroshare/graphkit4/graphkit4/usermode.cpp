#include "usermode.h"

#include <algorithm>
#include <cstdlib>

bool isUserMode(int value)
{
    return value >= UserModeArrow && value <= UserModeTimeSelection;
}

bool isSelectionMode(UserMode mode)
{
    return mode == UserModeSignalSelection || mode == UserModeTimeSelection;
}

void UserDrag::press(UserMode mode, const StripPoint& point, const QPoint& pixel)
{
    cancel();
    const bool drags = mode == UserModeMeasure || isSelectionMode(mode);
    if (!drags || (mode != UserModeTimeSelection && point.plot < 0))
        return;
    m_mode = mode;
    m_active = true;
    m_start = point;
    if (mode == UserModeTimeSelection)
        m_start.plot = -1;
    m_end = m_start;
    m_startPixel = pixel.x();
}

void UserDrag::restart(UserMode mode, const StripPoint& point, const QPoint& pixel)
{
    if (!m_active || mode != m_mode) {
        press(mode, point, pixel);
        return;
    }
    m_start.seconds = point.seconds;
    m_start.value = point.value;
    m_startPixel = pixel.x();
}

void UserDrag::move(const StripPoint& point, const QPoint& pixel)
{
    if (!m_active)
        return;
    m_end.seconds = point.seconds;
    m_end.value = point.value;
    m_widest = std::max(m_widest, std::abs(pixel.x() - m_startPixel));
    m_distance = m_mode == UserModeMeasure;
}

bool UserDrag::release(int leastPixels, MarkedPeriod& period)
{
    const bool marked = showsPeriod() && m_widest >= leastPixels && m_start.seconds != m_end.seconds;
    if (marked)
        period = this->period();
    m_active = false;
    return marked;
}

void UserDrag::cancel()
{
    *this = UserDrag();
}

MarkedPeriod UserDrag::period() const
{
    return {m_start.plot, std::min(m_start.seconds, m_end.seconds), std::max(m_start.seconds, m_end.seconds)};
}
