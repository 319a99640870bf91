#pragma once

#include "curve.h"

#include <QPointF>
#include <QRectF>
#include <QVarLengthArray>
#include <QVector>

/// Where the values of one axis lie on a device, in its own pixels.
struct DeviceAxis
{
    double base = 0.0;   ///< value at `origin`
    double origin = 0.0; ///< its place, not rounded; pixel i covers [i, i + 1)
    double scale = 1.0;  ///< signed, not 0

    /// Held within a trillion pixels.
    double at(double value) const;
};

/// What of a device shows curves, and how.
struct DeviceView
{
    DeviceAxis horz;
    DeviceAxis vert;
    QRectF clip; ///< what lies outside is not traced

    QPointF at(const QPointF& point) const { return QPointF(horz.at(point.x()), vert.at(point.y())); }
    bool shows(const Curve::Extent& extent) const;
};

/// The line through the points of a curve, in device pixels, cut off at the clip and reduced to what can be
/// seen.
///
/// A curve whose x never falls and that has many points a pixel column gives the first, least, greatest and
/// last of each column and gap-free stretch (U. Jugel, Z. Jerzak, G. Hackenbroich, V. Markl: M4, Proc. VLDB
/// Endowment 7(10), 797-808, 2014). Any other curve leaves out points that lie within half a pixel of the one
/// drawn before. So the reduced line is the whole one to within a pixel.
class CurveTrace
{
public:
    CurveTrace() = default;
    CurveTrace(const Curve& curve, const DeviceView& view);

    /// The points of all runs, one after the other. A run is a polyline; one of a single point is a dot.
    const QVector<QPointF>& points() const { return m_points; }
    int runCount() const { return m_runEnds.size(); }
    /// Points [runStart, runEnd) are one run.
    int runStart(int run) const { return run == 0 ? 0 : m_runEnds[run - 1]; }
    int runEnd(int run) const { return m_runEnds[run]; }

    /// Whether pixel columns were reduced; then x is monotonous within a run.
    bool isDense() const { return m_dense; }
    /// Length of all lines, by the longer of width and height of each.
    double ink() const { return m_ink; }

private:
    friend class CurveTracer;

    QVector<QPointF> m_points;
    QVarLengthArray<int, 4> m_runEnds;
    bool m_dense = false;
    double m_ink = 0.0;
};

/// The indices [first, last) of the points that may touch the clip: for an ordered curve those within it and
/// one beside it on either side, else all.
struct PointRange
{
    int first = 0;
    int last = 0;
};
PointRange pointsInView(const Curve& curve, const DeviceAxis& horz, double left, double right);

/// The part of a line within a rectangle; false if there is none. Coordinates are finite.
bool clipLine(const QRectF& rect, QPointF& from, QPointF& to);

/// The centres of the device pixels within the clip that hold points of the curve, each once where there are
/// many points.
QVector<QPointF> pixelsOfPoints(const Curve& curve, const DeviceView& view);
