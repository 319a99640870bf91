#pragma once

#include "kirolabel.h"
#include "plot.h"
#include "striplayout.h"
#include "striplook.h"

#include <vector>

class QPainter;

/// Draws the labels that are in sight. Keeps references to what it is given.
class LabelPainter
{
public:
    LabelPainter(const StripLayout& layout, const StripLook& look, const std::vector<Plot>& plots,
                 const QList<KiroLabel>& labels);

    /// The areas of periods, below grid and curves.
    void drawBands(QPainter& painter) const;
    /// Lines, points and names, above the curves.
    void drawMarks(QPainter& painter) const;

private:
    /// A label on the strip that bears its name.
    struct Shown
    {
        const KiroLabel* label;
        const StripBox* box;
        double from; ///< pixels
        double to;
    };

    QColor colorOf(const KiroLabel& label) const;
    /// The part of the strips that the label marks.
    QRectF extent(const Shown& shown) const;
    double pointHeight(const Shown& shown) const;
    double pointRadius() const;
    void drawLines(QPainter& painter) const;
    void drawPoints(QPainter& painter) const;
    void drawNames(QPainter& painter, const StripBox& box) const;

    const StripLayout& m_layout;
    const StripLook& m_look;
    const std::vector<Plot>& m_plots;
    std::vector<Shown> m_shown;
};
