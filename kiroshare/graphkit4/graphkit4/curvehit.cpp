#include "curvehit.h"

#include "curvetrace.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

constexpr double Infinity = std::numeric_limits<double>::infinity();

double lengthOf(const QPointF& step)
{
    return std::hypot(step.x(), step.y());
}

double distanceToLine(const QPointF& place, const QPointF& from, const QPointF& to)
{
    const QPointF step = to - from;
    const double square = QPointF::dotProduct(step, step);
    const double share =
        square > 0.0 ? std::clamp(QPointF::dotProduct(place - from, step) / square, 0.0, 1.0) : 0.0;
    return lengthOf(place - (from + step * share));
}

bool hasLines(const Curve& curve)
{
    return curve.style() == Curve::Plain && !(curve.hasPen() && curve.pen().style() == Qt::NoPen);
}

bool isFinite(const QPointF& point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

DeviceAxis deviceAxis(const AxisMapping& mapping)
{
    return {mapping.min(), mapping.firstPixel() + 0.5, mapping.pixelsPerUnit()};
}

} // namespace

CurveHit::CurveHit(const QList<Curve>& curves, const QVector<int>& order, const QRect& area,
                   const AxisMapping& horz, const AxisMapping& vert)
    : m_curves(curves)
    , m_order(order)
    , m_area(area)
    , m_horz(horz)
    , m_vert(vert)
{
}

void CurveHit::setNames(const QRegularExpression& names)
{
    m_names =
        QRegularExpression(QRegularExpression::anchoredPattern(names.pattern()), names.patternOptions());
    m_byExpression = true;
}

void CurveHit::setName(const QString& name)
{
    m_name = name;
    m_byName = true;
}

int CurveHit::topmostWithin(const QPointF& place, double reach) const
{
    for (int i = m_order.size() - 1; i >= 0; --i) {
        const Curve& curve = m_curves[m_order[i]];
        if (distance(curve, place, reach) <= reach && isCandidate(curve))
            return m_order[i];
    }
    return -1;
}

int CurveHit::nearest(const QPointF& place) const
{
    const double aside = std::max(std::abs(place.x() - m_area.left()), std::abs(place.x() - m_area.right()));
    const double above = std::max(std::abs(place.y() - m_area.top()), std::abs(place.y() - m_area.bottom()));
    const double farthest = std::hypot(aside, above) + 1.0;
    // Growing reaches leave out far parts of long curves as long as they can.
    double reach = DefaultReach;
    while (reach < farthest * 2.0) {
        int best = -1;
        double least = reach;
        for (int i = m_order.size() - 1; i >= 0; --i) {
            const Curve& curve = m_curves[m_order[i]];
            const double away = distance(curve, place, least);
            if (away <= least && (best < 0 || away < least) && isCandidate(curve)) {
                best = m_order[i];
                least = away;
            }
        }
        if (best >= 0)
            return best;
        reach *= 2.0;
    }
    return -1;
}

int CurveHit::nearestPoint(int curve, const QPointF& place) const
{
    const QVector<QPointF>& points = m_curves[curve].points();
    const PointRange range = pointsInView(m_curves[curve], deviceAxis(m_horz), m_area.left(), m_area.right());
    int best = -1;
    double least = Infinity;
    for (int i = range.first; i < range.last; ++i) {
        if (!isFinite(points[i]))
            continue;
        const QPointF at = placeOf(points[i]);
        const double away = lengthOf(at - place);
        if (away < least && m_area.contains(at)) {
            best = i;
            least = away;
        }
    }
    return best;
}

int CurveHit::nextPoint(int curve, int from, int step, double leastPixels) const
{
    const QVector<QPointF>& points = m_curves[curve].points();
    const bool hasStart = from >= 0 && from < points.size() && isFinite(points[from]);
    const QPointF start = hasStart ? placeOf(points[from]) : QPointF();
    const PointRange range = pointsInView(m_curves[curve], deviceAxis(m_horz), m_area.left(), m_area.right());
    const int begin = step > 0 ? std::max(from + 1, range.first) : std::min(from - 1, range.last - 1);
    for (int i = begin; i >= range.first && i < range.last; i += step) {
        if (!isFinite(points[i]))
            continue;
        const QPointF at = placeOf(points[i]);
        if (m_area.contains(at) && (!hasStart || lengthOf(at - start) >= leastPixels))
            return i;
    }
    return -1;
}

bool CurveHit::isCandidate(const Curve& curve) const
{
    if (m_byName && curve.name() != m_name)
        return false;
    return !m_byExpression || (m_names.isValid() && m_names.match(curve.name()).hasMatch());
}

double CurveHit::distance(const Curve& curve, const QPointF& place, double reach) const
{
    if (!curve.isVisible() || curve.extent().empty)
        return Infinity;
    DeviceView view{deviceAxis(m_horz), deviceAxis(m_vert), m_area};
    const QRectF around(place - QPointF(reach, reach), QSizeF(2.0 * reach, 2.0 * reach));
    view.clip = m_area & around.adjusted(-1.0, -1.0, 1.0, 1.0);
    if (view.clip.isEmpty() || !view.shows(curve.extent()))
        return Infinity;
    const PointRange range = pointsInView(curve, view.horz, around.left(), around.right());
    const double away = hasLines(curve) ? distanceToLines(curve, place, range.first, range.last)
                                        : distanceToPoints(curve, place, range.first, range.last);
    if (away <= reach)
        return away;
    return Infinity;
}

double CurveHit::distanceToLines(const Curve& curve, const QPointF& place, int first, int last) const
{
    const QPointF* points = curve.points().constData();
    double least = Infinity;
    QPointF before;
    bool hasBefore = false;
    for (int i = first; i < last; ++i) {
        if (!isFinite(points[i])) {
            hasBefore = false;
            continue;
        }
        const QPointF at = placeOf(points[i]);
        QPointF from = hasBefore ? before : at;
        QPointF to = at;
        if (clipLine(m_area, from, to))
            least = std::min(least, distanceToLine(place, from, to));
        before = at;
        hasBefore = true;
    }
    return least;
}

double CurveHit::distanceToPoints(const Curve& curve, const QPointF& place, int first, int last) const
{
    double least = Infinity;
    for (int i = first; i < last; ++i) {
        const QPointF& point = curve.points()[i];
        if (!isFinite(point))
            continue;
        const QPointF at = placeOf(point);
        if (m_area.contains(at))
            least = std::min(least, lengthOf(at - place));
    }
    return least;
}

QPointF CurveHit::placeOf(const QPointF& point) const
{
    return QPointF(deviceAxis(m_horz).at(point.x()), deviceAxis(m_vert).at(point.y()));
}
