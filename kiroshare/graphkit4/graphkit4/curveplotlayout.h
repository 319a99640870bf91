#pragma once

#include "axismapping.h"

#include <QFont>
#include <QRect>
#include <QRectF>
#include <QString>
#include <QStringList>
#include <QVector>

/// What a CurvePlot knows of one of its axes.
struct CurvePlotAxis
{
    double min = 0.0; ///< above `max` on a reversed axis
    double max = 1.0;
    double grid = 0.0; ///< step of the grid; 0: no grid, and numbers at round values
    double gridStart = 0.0;
    int precision = -1; ///< decimals of the numbers, or -1 for as many as the step needs
    QString title;

    /// The round step that divides the limits into five to ten parts.
    double roundGrid() const;
};

/// All that a CurvePlotLayout is made of. The fonts are as large as they are to be drawn.
struct CurvePlotContents
{
    QRect rect;
    CurvePlotAxis horz;
    CurvePlotAxis vert;
    QString title;
    QString vertScaleWidthTemplate; ///< the vertical numbers get at least the room of this text
    QFont titleFont;
    QFont axisFont;
    QFont axisTitleFont;
};

/// Where the parts of a CurvePlot lie: the area of the curves, numbers, grid lines and titles.
///
/// Lengths come from the fonts. Nothing overlaps: numbers are left out, on each axis at every second, fifth,
/// tenth and so on step of the grid, counted from its start; titles are broken into lines and shortened, and
/// what finds no room at all is not there.
class CurvePlotLayout
{
public:
    struct Number
    {
        double value = 0.0;
        QString text;
        QRectF place;
    };
    struct Title
    {
        QStringList lines; ///< none: there is no room, or nothing to say
        QRectF place;
    };

    CurvePlotLayout();
    explicit CurvePlotLayout(const CurvePlotContents& contents);

    /// The pixels of the curves, the outermost of which lie under the border.
    QRect area() const { return m_area; }
    /// The limits are at the centres of the area's outermost pixels.
    const AxisMapping& horz() const { return m_horz; }
    const AxisMapping& vert() const { return m_vert; }

    const QVector<Number>& horzNumbers() const { return m_horzNumbers; }
    const QVector<Number>& vertNumbers() const { return m_vertNumbers; }
    /// Values at which grid lines are drawn: all of the grid's, or where those are too close the numbered.
    const QVector<double>& horzGridLines() const { return m_horzGridLines; }
    const QVector<double>& vertGridLines() const { return m_vertGridLines; }

    const Title& title() const { return m_title; }
    const Title& horzTitle() const { return m_horzTitle; }
    /// Written upwards; `place` is as it lies on the picture.
    const Title& vertTitle() const { return m_vertTitle; }

    /// Length of the ticks beside the area, towards the numbers.
    double tickLength() const { return m_tickLength; }

    /// A size that shows everything with a few numbers, and one that is pleasant.
    static QSize leastSize(const CurvePlotContents& contents);
    static QSize goodSize(const CurvePlotContents& contents);

private:
    void placeRows(const CurvePlotContents& contents);
    void placeColumns(const CurvePlotContents& contents);
    void breakVertTitle(const CurvePlotContents& contents);
    void placeVertTitle(const CurvePlotContents& contents, double width);
    void placeHorzNumbers(const CurvePlotContents& contents);
    void placeTitles(const CurvePlotContents& contents);

    QRect m_area;
    AxisMapping m_horz;
    AxisMapping m_vert;
    QVector<Number> m_horzNumbers;
    QVector<Number> m_vertNumbers;
    QVector<double> m_horzGridLines;
    QVector<double> m_vertGridLines;
    Title m_title;
    Title m_horzTitle;
    Title m_vertTitle;
    bool m_hasHorzNumbers = false; ///< there is a row for them
    double m_tickLength = 0.0;
};
