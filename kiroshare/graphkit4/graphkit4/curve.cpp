#include "curve.h"

#include <QDebug>

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

/// What a QVector of points can hold.
constexpr qint64 MostPoints = std::numeric_limits<int>::max() / static_cast<int>(sizeof(QPointF)) - 64;

Curve::Extent extentOf(const QVector<QPointF>& points)
{
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    Curve::Extent extent;
    extent.minX = extent.minY = Infinity;
    extent.maxX = extent.maxY = -Infinity;
    extent.ordered = true;
    double before = -Infinity;
    for (const QPointF& point : points) {
        extent.ordered = extent.ordered && std::isfinite(point.x()) && point.x() >= before;
        before = point.x();
        if (!std::isfinite(point.x()) || !std::isfinite(point.y()))
            continue;
        extent.minX = std::min(extent.minX, point.x());
        extent.maxX = std::max(extent.maxX, point.x());
        extent.minY = std::min(extent.minY, point.y());
        extent.maxY = std::max(extent.maxY, point.y());
    }
    extent.empty = extent.minX > extent.maxX;
    return extent;
}

} // namespace

Curve::Curve(const QString& name)
    : m_name(name)
{
}

void Curve::setPen(const QPen& pen)
{
    m_pen = pen;
    m_hasPen = true;
}

void Curve::setStyle(Style style, QChar character, const QFont& font)
{
    m_style = style;
    m_character = character;
    m_font = font;
}

void Curve::setVisible(bool visible)
{
    if (visible == m_visible)
        return;
    m_visible = visible;
    clearDrawing();
}

void Curve::clearData()
{
    setData(QVector<QPointF>());
}

void Curve::setData(const QVector<QPointF>& points)
{
    m_points = points;
    clearDrawing();
}

bool Curve::setData(const double* x, const double* y, int count)
{
    if (count < 0 || (count > 0 && (!x || !y)))
        return false;
    return setData(x, x + count, y, y + count);
}

const Curve::Extent& Curve::extent() const
{
    if (!m_extentKnown) {
        m_extent = extentOf(m_points);
        m_extentKnown = true;
    }
    return m_extent;
}

bool Curve::sizesAgree(qint64 xCount, qint64 yCount)
{
    if (xCount == yCount && xCount >= 0 && xCount <= MostPoints)
        return true;
    qWarning(
        "%s",
        qUtf8Printable(
            QStringLiteral("Curve::setData(...) - invalid table sizes (%1 , %2)").arg(xCount).arg(yCount)));
    return false;
}
