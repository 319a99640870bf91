#pragma once

#include "multiplotscheme.h"
#include "selectorwindow.h"

#include <QFontMetricsF>
#include <QRectF>
#include <QString>
#include <QVector>

/// A mark under the bar of a PositionSelector: a tick and its number.
struct SelectorMark
{
    double x = 0.0; ///< left edge of the tick
    QString text;   ///< empty if there is no room for it
    QRectF place;
};

/// Where the parts of a PositionSelector lie: the bar with the window, its handles and the numbers below.
///
/// Lengths come from the font; edges lie on the pixels of the device. Positions are in the coordinates of the
/// widget, times in seconds.
class SelectorLayout
{
public:
    /// Lays out `contents` for a total range; `devicePixels` is how many a unit of the coordinates has.
    SelectorLayout(const QRectF& contents, const QFont& font, double devicePixels, double totalFrom,
                   double totalTo);

    /// What a selector of this font needs inside its frame, and what it would like to have.
    static QSizeF leastSize(const QFont& font);
    static QSizeF goodSize(const QFont& font);

    /// The bar that stands for the total range.
    QRectF bar() const { return m_bar; }
    /// One pixel, or as many pixels of the device as come nearest to it.
    double lineWidth() const { return m_lineWidth; }
    /// Horizontal place of a time, held within the bar; the left end for an empty range.
    double xOf(double time) const;
    /// Time of a horizontal place, which may lie beside the bar; the start of a bar without width.
    double timeOf(double x) const;

    /// The window in the bar, widened so that it is always seen, but not beyond the bar.
    QRectF windowRect(const SelectorWindow& window) const;
    /// The grips at the edges of the window, outside of it.
    QRectF startHandle(const SelectorWindow& window) const;
    QRectF endHandle(const SelectorWindow& window) const;
    double handleWidth() const { return m_handleWidth; }
    /// The line in the middle of a handle.
    QRectF grip(const QRectF& handle) const;
    /// The line at the window's centre.
    QRectF centreLine(const SelectorWindow& window) const;
    /// What of the window can be taken hold of at a horizontal place.
    SelectorWindow::Part partAt(double x, const SelectorWindow& window) const;

    /// Start, round steps between and end, from left to right. The start's number goes before the end's, and
    /// both before the others. None if the contents are too low or too narrow for numbers.
    QVector<SelectorMark> marks(MultiPlotScheme::TimeStyle style) const;
    /// From the bar down to the top of the numbers.
    double tickLength() const { return m_tickLength; }

private:
    double snapped(double length) const;
    double stepOfMarks(MultiPlotScheme::TimeStyle style) const;
    SelectorMark markAt(double time, MultiPlotScheme::TimeStyle style, int decimals) const;

    QRectF m_contents;
    QFontMetricsF m_metrics;
    double m_devicePixels;
    double m_totalFrom;
    double m_totalTo;
    QRectF m_bar;
    double m_lineWidth;
    double m_handleWidth;
    double m_gap;
    double m_tickLength;
    bool m_hasNumbers;
};
