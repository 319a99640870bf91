#include "labellayout.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace
{

/// What is taken of each row so far: the texts come from left to right, so that a right end tells all.
class Rows
{
public:
    /// `dots` from left to right.
    Rows(const QVector<LabelDot>& dots, const QRectF& area, double height, double gap)
        : m_dots(dots)
        , m_area(area)
        , m_height(height)
        , m_gap(gap)
        , m_ends(static_cast<int>(area.height() / height), area.left() - gap)
    {
    }

    QRectF place(const LabelText& text)
    {
        const int count = m_ends.size();
        const int nearest =
            std::clamp(static_cast<int>((text.y - m_area.top()) / m_height), 0, std::max(count - 1, 0));
        for (int away = 0; away < std::min(count, text.mostRowsAway + 1); ++away) {
            for (const int row : {nearest - away, nearest + away}) {
                const QRectF rect = row >= 0 && row < count ? placeInRow(text, row) : QRectF();
                if (!rect.isNull())
                    return rect;
            }
        }
        return {};
    }

private:
    QRectF placeInRow(const LabelText& text, int row)
    {
        double left = std::max(text.x, m_area.left()) + m_gap;
        if (left + text.width > m_area.right())
            left = std::min(text.x, m_area.right()) - m_gap - text.width;
        if (left < m_ends[row] + m_gap || left < m_area.left())
            return {};
        const QRectF place(left, m_area.top() + row * m_height, text.width, m_height);
        if (coversDot(place))
            return {};
        m_ends[row] = place.right();
        return place;
    }

    bool coversDot(const QRectF& place) const
    {
        const double radius = m_dots.isEmpty() ? 0.0 : m_dots.first().radius;
        const QRectF near = place.adjusted(-radius, -radius, radius, radius);
        auto dot = std::lower_bound(m_dots.begin(), m_dots.end(), near.left(),
                                    [](const LabelDot& a, double x) { return a.x < x; });
        for (; dot != m_dots.end() && dot->x <= near.right(); ++dot) {
            if (dot->y > near.top() && dot->y < near.bottom())
                return true;
        }
        return false;
    }

    QVector<LabelDot> m_dots;
    QRectF m_area;
    double m_height;
    double m_gap;
    QVector<double> m_ends;
};

} // namespace

QVector<QRectF> placeLabelTexts(const QVector<LabelText>& texts, const QVector<LabelDot>& dots,
                                const QRectF& area, double rowHeight, double gap)
{
    QVector<QRectF> places(texts.size());
    if (!(rowHeight > 0.0) || !(area.height() >= rowHeight))
        return places;
    QVector<int> order(texts.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&texts](int a, int b) { return texts[a].x < texts[b].x; });
    QVector<LabelDot> sortedDots = dots;
    std::sort(sortedDots.begin(), sortedDots.end(),
              [](const LabelDot& a, const LabelDot& b) { return a.x < b.x; });
    Rows rows(sortedDots, area, rowHeight, gap);
    for (const int index : order)
        places[index] = rows.place(texts[index]);
    return places;
}
