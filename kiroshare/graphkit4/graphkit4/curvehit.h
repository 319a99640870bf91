#pragma once

#include "axismapping.h"
#include "curve.h"

#include <QList>
#include <QPointF>
#include <QRect>
#include <QRegularExpression>
#include <QVector>

/// Finds what of the curves of a plot lies at a place, by distances in pixels as they are drawn: to the lines
/// of a curve of lines, to the points of another. What lies outside of the area isn't drawn and so isn't
/// found.
class CurveHit
{
public:
    /// A place of the default tolerance is under the pointer if it is at most so many pixels away.
    static constexpr double DefaultReach = 5.0;

    CurveHit(const QList<Curve>& curves, const QVector<int>& order, const QRect& area,
             const AxisMapping& horz, const AxisMapping& vert);

    /// Leaves out the curves whose whole name doesn't match; an expression that isn't valid leaves out all.
    void setNames(const QRegularExpression& names);
    /// Leaves out the curves of other names.
    void setName(const QString& name);

    /// The index of the topmost curve within `reach` pixels of a place, -1 if there is none.
    int topmostWithin(const QPointF& place, double reach) const;
    /// The index of the curve that is nearest, the topmost of several; -1 if no curve is in view.
    int nearest(const QPointF& place) const;

    /// The point of a curve that is nearest to a place and lies in the area; -1 if there is none.
    int nearestPoint(int curve, const QPointF& place) const;

    /// The next point of a curve in the area from `from` on, which is left out itself, forwards or with
    /// `step` -1 backwards, and at least so many pixels away from it; -1 if there is none. `from` may lie one
    /// beyond either end; then any distance will do.
    int nextPoint(int curve, int from, int step, double leastPixels) const;

private:
    bool isCandidate(const Curve& curve) const;
    /// Infinite where the curve is farther away than `reach`.
    double distance(const Curve& curve, const QPointF& place, double reach) const;
    double distanceToLines(const Curve& curve, const QPointF& place, int first, int last) const;
    double distanceToPoints(const Curve& curve, const QPointF& place, int first, int last) const;
    QPointF placeOf(const QPointF& point) const;

    const QList<Curve>& m_curves;
    const QVector<int>& m_order;
    QRectF m_area;
    AxisMapping m_horz;
    AxisMapping m_vert;
    QRegularExpression m_names;
    QString m_name;
    bool m_byExpression = false;
    bool m_byName = false;
};
