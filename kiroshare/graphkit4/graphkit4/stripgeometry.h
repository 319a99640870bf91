#pragma once

#include "stripcurve.h"

#include <QRect>
#include <QTransform>

#include <algorithm>

class QPainter;

/// The pixels that a view is drawn on.
///
/// Columns and rows are those of the painter's device where its transformation does nothing but move, scale
/// and mirror; else those of a grid of the same fineness that turns with the view.
struct PixelGrid
{
    QTransform fromView; ///< from the painter's coordinates to pixels
    QRectF rect;         ///< the view's rectangle
    QRect visible;       ///< the pixels that belong to it; empty if there are none
    bool mirroredX = false;
    bool mirroredY = false;
    bool raster = false; ///< whether the device itself has pixels
    double scale = 1.0;  ///< pixels per unit of the painter
    int fineness = 1;    ///< columns in one of the device

    PixelGrid(const QPainter& painter, const QRectF& viewRect);
    /// A grid whose pixels are so many times as fine in both directions.
    PixelGrid finer(int times) const;
};

/// Where the samples of a view stand on the pixels.
///
/// Horizontal places always grow with the sample; where time runs to the left they are mirrored within the
/// visible columns. Vertical places grow downwards.
class StripGeometry
{
public:
    /// `reach`: pixels around a sample that it may light. `shift`: pixels by which all samples stand farther
    /// right and down.
    StripGeometry(const PixelGrid& grid, const SampleStore& samples, const StripView& view, int reach,
                  double shift = 0.0);

    /// Whether there are samples and the view has an extent.
    bool isUsable() const { return m_usable; }
    /// Pixels that may be lit or whose lighting may reach visible ones.
    const QRect& canvas() const { return m_canvas; }
    /// Columns in one of the device.
    int fineness() const { return m_fineness; }
    /// Whether what stands left is to be drawn right.
    bool isMirrored() const { return m_mirrored; }
    /// x of the mirrored picture of a place at `x`.
    double mirrored(double x) const { return 2.0 * m_visibleCentre - x; }

    /// Samples that may be seen, and a neighbour of them on each side.
    int first() const { return m_first; }
    int end() const { return m_end; }
    double x(int sample) const;
    /// Of a finite raw value; within a billion pixels of the origin. A value within the scale lies on a
    /// visible row.
    double y(double raw) const
    {
        const double place = m_isSteady ? m_zero + (raw - m_rawZero) * m_rowsPerUnit : farPlace(raw);
        if (place >= m_top - Slack && place <= m_bottom + Slack)
            return std::clamp(place, m_highest, m_lowest);
        return std::clamp(place, -FarOff, FarOff);
    }
    /// The first sample from `x` on; end of the samples if there is none.
    int firstFrom(double x) const;
    /// Pixels for a step of one raw unit; 0 if numbers are so huge that it cannot be told.
    double rowsPerUnit() const;
    /// The raw value at `y`, the inverse of y(); only where rowsPerUnit() is above 0.
    double rawAt(double y) const;

private:
    /// Farther off no slope changes by what can be seen.
    static constexpr double FarOff = 1e9;
    /// Pixels by which rounding may move a value that is one of the scale's ends.
    static constexpr double Slack = 1.0 / 1024;

    void chooseTimes(const PixelGrid& grid);
    void chooseScale(const PixelGrid& grid);
    void move(double shift);
    double farPlace(double raw) const;

    StripView m_view;
    QRect m_canvas;
    int m_fineness;
    bool m_usable = false;
    bool m_mirrored = false;
    double m_visibleCentre = 0.0;
    int m_first = 0;
    int m_end = 0;
    double m_startTime = 0.0; ///< the time at m_left
    double m_left = 0.0;
    double m_pixelsPerSecond = 0.0;
    double m_zero = 0.0; ///< y of the scale's minimum
    double m_height = 0.0;
    bool m_isSteady = false; ///< whether m_rawZero and m_rowsPerUnit can be used
    double m_rawZero = 0.0;  ///< raw value at m_zero
    double m_rowsPerUnit = 0.0;
    double m_halfMin = 0.0;
    double m_halfRange = 0.0;
    double m_top = 0.0; ///< of the rectangle
    double m_bottom = 0.0;
    double m_highest = 0.0; ///< of the rows that are within it
    double m_lowest = 0.0;
};
