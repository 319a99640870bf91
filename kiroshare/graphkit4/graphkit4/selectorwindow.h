#pragma once

/// The window that a PositionSelector selects from a total range: its arithmetic, without a widget.
///
/// All times are seconds. The window lies within the total range at any time, and its width within the
/// minimal range and the total one. A new object has an empty total range from 0 to 0.
class SelectorWindow
{
public:
    /// What of the window is dragged.
    enum class Part { None, Start, Body, End };

    double totalFrom() const { return m_totalFrom; }
    double totalTo() const { return m_totalTo; }
    double totalRange() const { return m_totalTo - m_totalFrom; }
    /// The centre of the window.
    double position() const { return m_position; }
    double range() const { return m_range; }
    /// The edges of the window. A window that touches the end of the total range has exactly that edge.
    double from() const;
    double to() const;
    /// Whether the window covers all, so that it can't move.
    bool isWhole() const { return m_range >= totalRange(); }

    /// The window is kept as far as it fits; one that covered all covers all of the new range. Ends a drag.
    /// False, with nothing changed, if a limit is not finite, `to` lies below `from`, or they are further
    /// apart than doubles go. `from` equal to `to` is an empty range.
    bool setTotalRange(double from, double to);
    /// Changes the width around the centre, held within its limits; the window moves if it would stick out.
    /// False, with nothing changed, if `range` is negative or not finite.
    bool setRange(double range);
    /// Moves the centre, held so that the window lies within the total range. False, with nothing changed, if
    /// `position` is not finite.
    bool setPosition(double position);
    /// The least width, above 0, from now on; a narrower window is widened. At first a billionth of the total
    /// range, which is the least in any case. False, with nothing changed, if it is not above 0 or not
    /// finite.
    bool setMinimalRange(double range);
    double minimalRange() const;
    /// The fraction of the window by which one step moves it, at first 0.1. False, with nothing changed, if
    /// it is not above 0 or not finite.
    bool setStep(double fraction);
    double step() const { return m_step; }

    /// The following tell whether they changed something.
    /// Moves by so many steps, forwards if above 0; nothing happens if `count` is not finite.
    bool moveSteps(double count);
    /// Moves by so many widths of the window.
    bool moveWindows(double count);
    bool moveToStart();
    bool moveToEnd();
    /// Multiplies the width, around the same centre where the total range has room for it.
    bool zoom(double factor);

    /// Takes hold of a part of the window at `time`. Neither this nor the end of a drag changes the window.
    void beginDrag(Part part, double time);
    /// Moves what was taken to `time`, keeping its distance from where it was taken. An edge leaves the other
    /// edge where it is, and stops where the window would become too narrow.
    bool dragTo(double time);
    Part draggedPart() const { return m_dragged; }
    void endDrag() { m_dragged = Part::None; }
    /// Ends the drag and puts the window back to where it was taken.
    bool cancelDrag();

private:
    void holdWithinTotal();
    bool dragEdge(double edge);

    double m_totalFrom = 0.0;
    double m_totalTo = 0.0;
    double m_position = 0.0;
    double m_range = 0.0;
    double m_minimalRange = 0.0;
    double m_step = 0.1;

    Part m_dragged = Part::None;
    double m_grabTime = 0.0;
    double m_positionBefore = 0.0;
    double m_rangeBefore = 0.0;
    double m_edgeBefore = 0.0; // of the edge that is dragged
    double m_fixedEdge = 0.0;  // that it is dragged against
};
