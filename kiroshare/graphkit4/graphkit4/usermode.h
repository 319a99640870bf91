#pragma once

#include <QPoint>

/// What the mouse does on a MultiPlot.
enum UserMode {
    UserModeArrow = 0,           ///< plain pointer
    UserModeLine = 1,            ///< a line follows the mouse
    UserModePoint = 2,           ///< a point snaps to the sample under the mouse
    UserModeMeasure = 3,         ///< dragging shows differences of time and value
    UserModeSignalSelection = 4, ///< dragging marks a period of one strip
    UserModeTimeSelection = 5    ///< dragging marks a period of all strips
};

bool isUserMode(int value);
bool isSelectionMode(UserMode mode);

/// A place on the strips.
struct StripPoint
{
    int plot = -1; ///< index of the strip, -1 over none
    double seconds = 0.0;
    double value = 0.0; ///< in the units that the strip draws; 0 over no strip
};

/// A marked stretch of time; `from` is not above `to`.
struct MarkedPeriod
{
    int plot = -1; ///< -1 for all strips
    double from = 0.0;
    double to = 0.0;
};

/// What a drag with the left button has marked: the state behind the modes, without a widget.
///
/// A selection lives from press() to release(), a measured distance until the next press or cancel().
class UserDrag
{
public:
    /// Begins in `mode`; nothing happens in the modes without a drag, or over no strip in a mode that needs
    /// one. `pixel` is where the mouse is.
    void press(UserMode mode, const StripPoint& point, const QPoint& pixel);
    /// The same point as a new start of a drag that goes on; begins one if there is none.
    void restart(UserMode mode, const StripPoint& point, const QPoint& pixel);
    /// Goes on to `point`. Its strip is not looked at: a drag stays on the strip where it began.
    void move(const StripPoint& point, const QPoint& pixel);
    /// Ends the drag. True if it marked a period, which is then in `period`: of a selection whose mouse went
    /// at least `leastPixels` to one side.
    bool release(int leastPixels, MarkedPeriod& period);
    /// Forgets everything.
    void cancel();

    bool isActive() const { return m_active; }
    /// The strip on which the drag stays, -1 for all.
    int plot() const { return m_start.plot; }
    bool showsPeriod() const { return m_active && isSelectionMode(m_mode); }
    bool showsDistance() const { return m_distance; }
    MarkedPeriod period() const;
    StripPoint start() const { return m_start; }
    StripPoint end() const { return m_end; }

private:
    UserMode m_mode = UserModeArrow;
    bool m_active = false;
    bool m_distance = false; ///< a measured distance is there to be seen
    StripPoint m_start;
    StripPoint m_end;
    int m_startPixel = 0;
    int m_widest = 0; ///< how far the mouse went from the start to either side, pixels
};
