#pragma once

#include "samplestore.h"
#include "timeaxis.h"

#include <QFontMetricsF>
#include <QRectF>
#include <QStringList>
#include <QVector>

/// What a strip brings into the layout.
struct StripContent
{
    int plot = 0;          ///< its index in the MultiPlot
    Extremes limits;       ///< of the vertical scale, in drawn units, the first below the second
    double vertGrid = 0.0; ///< step in drawn units; 0: chosen for the height
    QString title;
    QString unit; ///< of what is drawn; may be empty
};

/// A mark on an axis.
struct AxisMark
{
    double value = 0.0;
    double position = 0.0; ///< pixel from the left or the top
    QString text;          ///< empty where there is no room for it
    QRectF textRect;
};

/// Where a strip stands.
struct StripBox
{
    int plot = 0;
    QRectF rect;   ///< of the curve
    Extremes edge; ///< drawn units at the lower and the upper edge of `rect`: the limits and a little room
    QVector<AxisMark> marks; ///< of the value axis, from top to bottom
    QStringList titleLines;
    QRectF titleRect;
};

/// Where the strips, their value axes and titles, and the time axis stand, from the metrics of the font and
/// what is to be shown: titles on the left, then the value axes, then the curves one above the other, and the
/// time axis below them. Where room is short the titles give way first, then the time axis, then the value
/// axes. Nothing here draws.
class StripLayout
{
public:
    StripLayout() = default;
    /// `contents` has edges on whole pixels. Texts are measured with `metrics`.
    StripLayout(const QRectF& contents, const QFontMetricsF& metrics, const QVector<StripContent>& strips,
                const TimeAxis& axis);

    QRectF contents() const { return m_contents; }
    /// All curves together; null without strips.
    QRectF plotArea() const { return m_plotArea; }
    const QVector<StripBox>& strips() const { return m_strips; }
    const QVector<AxisMark>& timeMarks() const { return m_timeMarks; }
    const TimeAxis& timeAxis() const { return m_axis; }
    /// The step of the time marks in seconds, 0 if there are none.
    double timeStep() const { return m_timeStep; }
    QString timeTitle() const { return m_timeTitle; }
    QRectF timeTitleRect() const { return m_timeTitleRect; }
    /// Length of the small lines at the numbers, pixels.
    double tickLength() const;

    /// The box of a strip by its index in the MultiPlot; null if it is not shown.
    const StripBox* boxOf(int plot) const;
    /// The box under a pixel; null over none.
    const StripBox* boxAt(const QPointF& pixel) const;

    /// Pixel of a time. Times outside of the axis lie outside of the plot area, by at most as much as a
    /// painter bears.
    double xAt(double seconds) const;
    double yAt(const StripBox& box, double value) const;
    /// The time at a pixel, within the limits of the axis.
    double secondsAt(double x) const;
    double valueAt(const StripBox& box, double y) const;

private:
    void placeRows(const QVector<StripContent>& strips);
    void placeColumns(const QVector<StripContent>& strips);
    /// Whether a number has room beside a strip.
    bool hasRoomForTexts(const StripBox& box) const;
    void dropNumbers();
    void thinTitles();
    void placeTimeTitle();
    void placeTimeMarks();
    void placeTitle(StripBox& box, const StripContent& content, double width) const;
    QVector<AxisMark> valueMarks(const StripBox& box, double step) const;
    QVector<AxisMark> suitableValueMarks(const StripBox& box, const StripContent& content) const;

    QRectF m_contents;
    QFontMetricsF m_metrics = QFontMetricsF(QFont());
    TimeAxis m_axis;
    QRectF m_plotArea;
    QVector<StripBox> m_strips;
    QVector<AxisMark> m_timeMarks;
    double m_timeStep = 0.0;
    QString m_timeTitle;
    QRectF m_timeTitleRect;
    bool m_hasTimeAxis = false;
};

/// `text`, which a unit in brackets follows, on at most `mostLines` lines of `width` pixels, broken between
/// words. What does not fit is cut with an ellipsis, but the unit stays where it has room.
QStringList titleLines(const QString& text, const QString& unit, double width, int mostLines,
                       const QFontMetricsF& metrics);

/// A number of a value axis with marks at multiples of `step`; very great and very small ones with exponent.
QString valueText(double value, double step);
