#pragma once

#include "curve.h"
#include "curveplotlayout.h"
#include "curveplotscheme.h"

#include <QList>
#include <QVector>

class QPainter;

/// A whole CurvePlot as it is to be drawn.
struct CurvePlotPicture
{
    const CurvePlotLayout& layout;
    CurvePlotScheme scheme; ///< with fonts of the size that the layout was made for
    const QList<Curve>& curves;
    const QVector<int>& order; ///< of drawing: indices of curves, the last on top
    double scale = 1.0;        ///< of pens, and in print of the curves' fonts
    bool isPrint = false;      ///< see CurvesView
};

/// Background within `rect`, grid, border, curves, ticks, numbers and titles. Straight lines lie on whole
/// pixels of the device at any ratio of its pixels to the painter's.
void drawCurvePlot(QPainter& painter, const QRect& rect, const CurvePlotPicture& picture);

/// A ring around a point, with the background between.
void drawPointMark(QPainter& painter, const QPointF& place, double radius, const QColor& color,
                   const QColor& background);
