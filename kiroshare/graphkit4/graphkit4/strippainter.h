#pragma once

#include "plot.h"
#include "striplayout.h"
#include "striplook.h"

#include <QList>

#include <vector>

class KiroLabel;
class QPainter;

/// Draws strips as a layout places them, on the screen and on paper: all that does not follow the mouse.
///
/// Keeps references to what it is given.
class StripPainter
{
public:
    StripPainter(const StripLayout& layout, const StripLook& look, const std::vector<Plot>& plots);

    /// Everything, from the background to the labels. `tolerance` above 0 draws the curves fast, see
    /// StripView.
    void draw(QPainter& painter, const QList<KiroLabel>& labels, double tolerance) const;

private:
    void drawGrid(QPainter& painter) const;
    void drawCurves(QPainter& painter, double tolerance) const;
    void drawAxes(QPainter& painter) const;
    void drawTitles(QPainter& painter) const;
    void drawNumber(QPainter& painter, const AxisMark& mark) const;

    const StripLayout& m_layout;
    const StripLook& m_look;
    const std::vector<Plot>& m_plots;
};
