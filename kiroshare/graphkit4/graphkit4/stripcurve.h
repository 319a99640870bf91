#pragma once

#include "samplestore.h"

#include <QPen>
#include <QRectF>

class QPainter;

/// How a stretch of samples lies in a rectangle.
///
/// Sample i stands at timeOffset + i * timePerSample seconds; its drawn value is (raw - calibOffset) /
/// calibFactor. `horzMin` to `horzMax` seconds span the rectangle from left to right, `scaleMin` to
/// `scaleMax` drawn units from bottom to top.
struct StripView
{
    QRectF rect;
    int first = 0; ///< samples to be drawn
    int count = 0;
    double timePerSample = 1.0;
    double timeOffset = 0.0;
    double horzMin = 0.0;
    double horzMax = 1.0;
    double scaleMin = 0.0;
    double scaleMax = 1.0;
    double calibFactor = 1.0;
    double calibOffset = 0.0;
    bool connected = true; ///< by lines; else points only
    /// Above 0: fast drawing, with a polyline that stays within so many pixels of the whole one.
    double tolerance = 0.0;
};

/// Draws the samples with `pen`, clipped to the view's rectangle.
///
/// Without a tolerance the picture is that of the polyline (or the points) through all samples, to within one
/// pixel, at a cost that depends on the pixels and not on the samples: of each pixel column the first, least,
/// greatest and last value are drawn (U. Jugel, Z. Jerzak, G. Hackenbroich, V. Markl: M4, Proc. VLDB
/// Endowment 7(10), 797-808, 2014). NaN and infinite samples leave a gap. Nothing is drawn of a view without
/// extent. Antialiasing is used where samples are few and lines are not steep.
void drawStripCurve(QPainter& painter, const SampleStore& samples, const StripView& view, const QPen& pen);
