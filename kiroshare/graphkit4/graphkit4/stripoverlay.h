#pragma once

#include "plot.h"
#include "striplayout.h"
#include "striplook.h"
#include "usermode.h"

class QPainter;

/// Draws what moves over the strips: the play marker, what a drag marks, the pointer. Keeps references to
/// what it is given.
class StripOverlay
{
public:
    /// `precision` is the number of decimals of times.
    StripOverlay(const StripLayout& layout, const StripLook& look, int precision);

    void drawPlayMarker(QPainter& painter, double seconds) const;
    /// The band of a selection, with its length.
    void drawPeriod(QPainter& painter, const MarkedPeriod& period) const;
    /// A measured distance on a strip, with the differences of time and value and the rate.
    void drawDistance(QPainter& painter, const Plot& plot, const StripPoint& start,
                      const StripPoint& end) const;
    /// A line at the pointer: strong on its strip, quiet on the others.
    void drawLinePointer(QPainter& painter, const StripPoint& point) const;
    /// A cross hair with a ring around the sample.
    void drawPointPointer(QPainter& painter, const StripPoint& point) const;

private:
    void drawPlate(QPainter& painter, const QRectF& rect, const QStringList& lines) const;
    QSizeF plateSize(const QStringList& lines) const;
    QPen pointerPen() const;

    const StripLayout& m_layout;
    const StripLook& m_look;
    int m_precision;
};

/// The lines of the measuring display: the differences of time, with `precision` decimals, and of value, and
/// the rate in hertz unless the time is 0.
QStringList distanceTexts(const Plot& plot, const StripPoint& start, const StripPoint& end, int precision);
