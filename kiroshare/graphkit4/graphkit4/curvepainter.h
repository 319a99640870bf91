#pragma once

#include "axismapping.h"
#include "curve.h"

#include <QColor>
#include <QFont>
#include <QList>
#include <QRect>
#include <QVector>

class QPainter;

/// Where curves are drawn, and how large.
struct CurvesView
{
    QRect area;
    AxisMapping horz;
    AxisMapping vert;
    QColor foreground;  ///< of curves without a pen
    double scale = 1.0; ///< of pens
    /// Characters get the size in pixels that they have on a screen, times `scale`, whatever the painter's
    /// resolution.
    bool isPrint = false;
};

/// Draws the visible curves at the places `order` of `curves`, the last on top, clipped to the area.
///
/// Lines are antialiased where they are few and plain where they are many: then they go through a LineCanvas,
/// if the painter paints on an image, so that ten thousand curves are drawn in the time of some full
/// repaints. What is denser than the pixels of the device is reduced first; see CurveTrace.
void drawCurves(QPainter& painter, const QList<Curve>& curves, const QVector<int>& order,
                const CurvesView& view);

/// The font with the size in pixels that it has on a screen, times `scale`.
QFont printFont(const QFont& font, double scale);
